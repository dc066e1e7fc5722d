#include "zt_db/records/name.h"

namespace zt {

ZT_DEFINE_RECORD(NAME)

int CClassName::GetList(int type, std::vector<std::uint32_t>& keys, std::vector<std::string>& names) const {
    keys = KeysWhere([type](const T_NAME_D& group) { return group.type == type; });
    names.clear();
    for (const std::uint32_t key : keys) names.push_back(Stored(key)->name);
    return keys.empty() ? 0 : 1;
}

std::uint32_t CClassName::GetKey(std::string_view name, int type) const {
    return KeyOfName(name, [type](const T_NAME_D& group) { return group.type == type; });
}

}  // namespace zt
