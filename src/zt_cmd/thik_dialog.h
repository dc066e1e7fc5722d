#pragma once

#include "zt_cmd/property_dialog_of.h"
#include "zt_db/records/thik.h"

namespace zt {

/// The dialog of thicknesses.
class CModelPropThikDlg final : public PropertyDialogOf<CClassThik> {
public:
    static constexpr std::string_view kName = "CModelPropThikDlg";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
    /// A plate has a thickness.
    velda::Outcome CheckRecord() const override;
};

}  // namespace zt
