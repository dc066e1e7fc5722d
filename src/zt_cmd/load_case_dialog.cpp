#include "zt_cmd/load_case_dialog.h"

#include "velda_lib/key_text.h"

namespace zt {

using velda::KeyText;

namespace {

/// A known type with its name: "D - Dead load".
std::string NamedType(const LoadCaseTypeName& known) {
    return std::string(known.type) + " - " + KeyText(known.nameKey);
}

std::string TypeText(const T_STLD_D& loadCase) {
    for (const LoadCaseTypeName& known : kLoadCaseTypes) {
        if (known.type == loadCase.type) return NamedType(known);
    }
    return loadCase.type;
}

void ReadType(T_STLD_D& loadCase, const std::string& text) {
    loadCase.type = text;
    for (const LoadCaseTypeName& known : kLoadCaseTypes) {
        if (NamedType(known) == text) loadCase.type = known.type;
    }
}

std::vector<std::string> Types(const T_STLD_D&) {
    std::vector<std::string> types;
    for (const LoadCaseTypeName& known : kLoadCaseTypes) types.push_back(NamedType(known));
    return types;
}

}  // namespace

std::string LoadCaseDialog::GetTitle() const { return KeyText("IDS_CMD_STLD_TITLE"); }

std::vector<LoadCaseDialog::Field> LoadCaseDialog::Declared() const {
    return {
        TextField<T_STLD_D, &T_STLD_D::name>("IDS_CMD_NAME"),
        {"IDS_CMD_STLD_TYPE", PropertyField::Kind::Suggestion, Unit::None, &TypeText, &ReadType, &Types},
        TextField<T_STLD_D, &T_STLD_D::description>("IDS_CMD_DESCRIPTION"),
    };
}

std::string LoadCaseDialog::ListText(std::size_t /*place*/, const T_STLD_D& record) const {
    std::string text = record.name;
    if (!record.type.empty()) text += " (" + record.type + ")";
    if (!record.description.empty()) text += ", " + record.description;
    return text;
}

}  // namespace zt
