#pragma once

#include "zt_cmd/single_record_dialog_of.h"
#include "zt_db/records/rstp.h"

namespace zt {

/// The dialog of the story drift restriction.
class DriftRestrictionDialog final : public SingleRecordDialogOf<CClassRstp> {
public:
    static constexpr std::string_view kName = "DriftRestrictionDialog";

    using SingleRecordDialogOf::SingleRecordDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
    std::vector<List> DeclaredLists() const override;
    /// A story has one row of betas.
    velda::Outcome CheckRecord() const override;
};

}  // namespace zt
