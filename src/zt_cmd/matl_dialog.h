#pragma once

#include "zt_cmd/property_dialog_of.h"
#include "zt_db/records/matl.h"

namespace zt {

/// The dialog of materials. A grade of the library brings its figures; without a code they are the user's own. A
/// composite has two groups of them.
class CModelPropMatlDlg final : public PropertyDialogOf<CClassMatl> {
public:
    static constexpr std::string_view kName = "CModelPropMatlDlg";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
    /// A material has a type and stiffness.
    velda::Outcome CheckRecord() const override;
};

}  // namespace zt
