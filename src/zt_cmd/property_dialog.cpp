#include "zt_cmd/property_dialog.h"

#include <regex>
#include <set>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/formula/cell_number.h"
#include "zt_db/units/unit_ctrl.h"

namespace zt {
namespace {

/// Records of one class that are named before the others are only counted.
constexpr std::size_t kNamedUsers = 8;

std::string NumberOf(const RecordStoreBase& store, std::uint32_t key) {
    const std::uint32_t number = store.HasNumbers() ? store.NumberOfKey(key) : key;
    return velda::FormatLong(number);
}

std::string UsersText(const RecordStoreBase& store, const std::set<std::uint32_t>& users) {
    std::string names;
    std::size_t named = 0;
    for (const std::uint32_t key : users) {
        if (named++ == kNamedUsers) break;
        names += (names.empty() ? "" : ", ") + NumberOf(store, key);
    }
    if (users.size() > kNamedUsers) names += ", ...";
    return store.DisplayName() + " (" + std::to_string(users.size()) + "): " + names;
}

}  // namespace

std::string UsesText(const DB_CDataBase& database, const RecordIdentity& identity, std::uint32_t key) {
    std::string text;
    if (key == 0) return text;
    for (std::uint16_t at = 0; at < database.ClassCount(); ++at) {
        const RecordStoreBase& store = database.StoreAt(at);
        if (!store.MayReferTo(identity)) continue;
        std::set<std::uint32_t> users;
        store.ForEachReference([&](std::uint32_t user, const RecordIdentity& target, std::uint32_t used, IfGone) {
            if (used == key && &target == &identity) users.insert(user);
        });
        if (!users.empty()) text += (text.empty() ? "" : "\n") + UsersText(store, users);
    }
    return text;
}

std::string FreeName(const std::string& name, velda::FunctionRef<bool(const std::string&)> isTaken) {
    std::string free = name;
    // A copy of a copy counts on.
    const std::string root = std::regex_replace(name, std::regex(" \\([0-9]+\\)$"), "");
    for (int number = 2; isTaken(free); ++number) free = root + " (" + std::to_string(number) + ")";
    return free;
}

std::string NotANumber(const std::string& label, const std::string& text) {
    return label + ": " + velda::InvalidNumberReason(text, velda::CellNumberKind::Double);
}

std::string FieldLabel(std::string_view textKey, int unit) {
    std::string label = velda::CMsgDll::pfuncLoadStr(textKey, 0);
    std::string unitText;
    if (unit > Unit::None) CUnitCtrl::GetUnitSystem(unit, unitText);
    return unitText.empty() ? label : label + " (" + unitText + ")";
}

}  // namespace zt
