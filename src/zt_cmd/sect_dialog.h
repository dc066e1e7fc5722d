#pragma once

#include "zt_cmd/property_dialog_of.h"
#include "zt_db/records/sect.h"

namespace zt {

/// The dialog of sections: from the library, by sizes, or by values. It shows the picture and the properties of what
/// stands in its fields.
class CCMSectItemDlg final : public PropertyDialogOf<CClassSect> {
public:
    static constexpr std::string_view kName = "CCMSectItemDlg";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;
    std::vector<Value> Results() const override;
    std::vector<Outline> Picture() const override;

protected:
    std::vector<Field> Declared() const override;
    /// The sizes make the shape, or the values have an area.
    velda::Outcome CheckRecord() const override;
    /// Its values follow from its sizes.
    void Complete(T_SECT_D& section) const override;
};

}  // namespace zt
