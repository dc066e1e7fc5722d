#include "zt_tb/boundary_load/load_type_names.h"

#include <algorithm>
#include <vector>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_tb/core/tb_common_wnd.h"

namespace zt {
namespace {

template <class Class>
std::vector<std::uint32_t> KeysOf() {
    std::vector<std::uint32_t> keys;
    if (const Class* types = CTBCommonWnd::GetRecords<Class>()) types->GetKeyList(keys);
    return keys;
}

std::string NumberedName(std::size_t place) {
    return velda::CMsgDll::pfuncLoadStr("IDS_TB_SlabLoad_", 0) +
           velda::FormatLong(static_cast<std::int64_t>(place) + 1);
}

template <class Record>
std::string NameIn(const Record& type, std::size_t /*place*/) {
    return type.name;
}
std::string NameIn(const T_SLTP_D& /*type*/, std::size_t place) { return NumberedName(place); }

}  // namespace

template <class Class>
bool LoadTypeNames<Class>::Get(std::uint32_t key, Record& type) {
    const Class* types = CTBCommonWnd::GetRecords<Class>();
    return types && types->Get(key, type);
}

template <class Class>
std::string LoadTypeNames<Class>::NameOf(std::uint32_t key) {
    Record type;
    if (!Get(key, type)) return {};
    const std::vector<std::uint32_t> keys = KeysOf<Class>();
    return NameIn(type, static_cast<std::size_t>(std::find(keys.begin(), keys.end(), key) - keys.begin()));
}

template <class Class>
std::uint32_t LoadTypeNames<Class>::KeyOf(std::string_view name, std::uint32_t current) {
    if (!name.empty() && NameOf(current) == name) return current;
    const std::vector<std::uint32_t> keys = KeysOf<Class>();
    for (std::size_t place = 0; place < keys.size(); ++place) {
        Record type;
        if (Get(keys[place], type) && !name.empty() && NameIn(type, place) == name) return keys[place];
    }
    return 0;
}

template <class Class>
std::string LoadTypeNames<Class>::Lines() {
    std::string lines;
    const std::vector<std::uint32_t> keys = KeysOf<Class>();
    for (std::size_t place = 0; place < keys.size(); ++place) {
        Record type;
        if (Get(keys[place], type)) lines += NameIn(type, place) + "\n";
    }
    return lines;
}

template struct LoadTypeNames<CClassBltp>;
template struct LoadTypeNames<CClassBwtp>;
template struct LoadTypeNames<CClassSltp>;

}  // namespace zt
