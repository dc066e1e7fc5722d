#pragma once

#include "zt_cmd/single_record_dialog_of.h"
#include "zt_db/records/actl.h"

namespace zt {

/// The dialog of the analysis control: modes, masses, and how the deformed shape enters the equilibrium.
class AnalysisControlDialog final : public SingleRecordDialogOf<CClassActl> {
public:
    static constexpr std::string_view kName = "AnalysisControlDialog";

    using SingleRecordDialogOf::SingleRecordDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
    std::vector<List> DeclaredLists() const override;
    /// Given loads of second order are given.
    velda::Outcome CheckRecord() const override;
};

}  // namespace zt
