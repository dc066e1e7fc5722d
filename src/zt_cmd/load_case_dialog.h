#pragma once

#include "zt_cmd/property_dialog_of.h"
#include "zt_db/records/load.h"

namespace zt {

/// The dialog of static load cases. Their type is one of the known ones, or a code of the user's own.
class LoadCaseDialog final : public PropertyDialogOf<CClassStld> {
public:
    static constexpr std::string_view kName = "LoadCaseDialog";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
    std::string ListText(std::size_t place, const T_STLD_D& record) const override;
};

}  // namespace zt
