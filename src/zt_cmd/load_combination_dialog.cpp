#include "zt_cmd/load_combination_dialog.h"

#include "zt_cmd/load_case_items.h"

namespace zt {
namespace {

constexpr NamedNumber kTypes[] = {
    {LoadCombinationType::Sum, "IDS_CMD_LCOM_SUM"},
    {LoadCombinationType::Envelope, "IDS_CMD_LCOM_ENVELOPE"},
};

}  // namespace

std::string LoadCombinationDialog::GetTitle() const { return velda::CMsgDll::pfuncLoadStr("IDS_CMD_LCOM_TITLE", 0); }

std::vector<LoadCombinationDialog::Field> LoadCombinationDialog::Declared() const {
    return {
        TextField<T_LCOM_D, &T_LCOM_D::name>("IDS_CMD_NAME"),
        NamedField<T_LCOM_D, &T_LCOM_D::active>("IDS_CMD_LCOM_ACTIVE", kYesNo),
        NamedField<T_LCOM_D, &T_LCOM_D::type>("IDS_CMD_LCOM_TYPE", kTypes),
        TextField<T_LCOM_D, &T_LCOM_D::description>("IDS_CMD_DESCRIPTION"),
    };
}

std::vector<LoadCombinationDialog::List> LoadCombinationDialog::DeclaredLists() const {
    return {LoadCaseList<T_LCOM_D>(
        {}, Database(), Current(), [](auto& record) -> auto& { return record.items; })};
}

std::string LoadCombinationDialog::ListText(std::size_t /*place*/, const T_LCOM_D& record) const {
    return record.description.empty() ? record.name : record.name + ", " + record.description;
}

}  // namespace zt
