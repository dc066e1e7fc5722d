#include "zt_tb/post/result_declaration.h"

#include <string>

#include "velda_lib/msg_dll.h"

namespace zt {

void AddPreferences(const ResultDeclaration& declaration, std::vector<velda::STBPrefItem>& items) {
    constexpr int kFixed = 2;
    for (const ResultColumn& column : declaration.columns) {
        items.push_back({static_cast<int>(column.type), column.type == ResultColumn::Type::Double ? kFixed : 0,
                         column.places, column.width});
    }
}

std::string ResultTitle(std::string_view title) {
    return title.starts_with("IDS_") ? velda::CMsgDll::pfuncLoadStr(std::string(title).c_str(), 0) : std::string(title);
}

}  // namespace zt
