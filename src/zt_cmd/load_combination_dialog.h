#pragma once

#include "zt_cmd/property_dialog_of.h"
#include "zt_db/records/load.h"

namespace zt {

/// The dialog of load combinations. Its rows are the load cases and other combinations that one holds, with factors.
class LoadCombinationDialog final : public PropertyDialogOf<CClassLcom> {
public:
    static constexpr std::string_view kName = "LoadCombinationDialog";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
    std::vector<List> DeclaredLists() const override;
    std::string ListText(std::size_t place, const T_LCOM_D& record) const override;
};

}  // namespace zt
