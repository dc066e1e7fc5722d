#include "zt_cmd/load_combination_dialog.h"

#include <algorithm>
#include <set>

namespace zt {
namespace {

using Kind = PropertyField::Kind;

std::string Word(std::string_view key) { return velda::CMsgDll::pfuncLoadStr(key, 0); }

/// A number that a record holds and the text key of what it means.
struct NamedNumber {
    int number;
    std::string_view textKey;
};
constexpr NamedNumber kActive[] = {{1, "IDS_CMD_YES"}, {0, "IDS_CMD_NO"}};
constexpr NamedNumber kTypes[] = {
    {LoadCombinationType::Sum, "IDS_CMD_LCOM_SUM"},
    {LoadCombinationType::Envelope, "IDS_CMD_LCOM_ENVELOPE"},
};
constexpr NamedNumber kKinds[] = {
    {LoadCaseKind::Static, "IDS_DB_DATA_NAME_STLD"},
    {LoadCaseKind::Combination, "IDS_DB_DATA_NAME_LCOM"},
};

/// The text of a number; the number itself where nothing tells its meaning.
template <std::size_t Count>
std::string TextOf(const NamedNumber (&known)[Count], int number) {
    for (const NamedNumber& one : known) {
        if (one.number == number) return Word(one.textKey);
    }
    return std::to_string(number);
}

/// All texts, with that of a number that has none of its own.
template <std::size_t Count>
std::vector<std::string> TextsWith(const NamedNumber (&known)[Count], int number) {
    std::vector<std::string> texts;
    for (const NamedNumber& one : known) texts.push_back(Word(one.textKey));
    const std::string text = TextOf(known, number);
    if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
    return texts;
}

/// The number of a text; `before` for one that is not known.
template <std::size_t Count>
int NumberOf(const NamedNumber (&known)[Count], const std::string& text, int before) {
    for (const NamedNumber& one : known) {
        if (Word(one.textKey) == text) return one.number;
    }
    return before;
}

template <int T_LCOM_D::*Member, const auto& Known>
FieldDeclaration<T_LCOM_D> NamedField(std::string_view labelKey) {
    return {labelKey,
            Kind::Choice,
            Unit::None,
            [](const T_LCOM_D& record) { return TextOf(Known, record.*Member); },
            [](T_LCOM_D& record, const std::string& text) { record.*Member = NumberOf(Known, text, record.*Member); },
            [](const T_LCOM_D& record) { return TextsWith(Known, record.*Member); }};
}

bool HasRecord(const T_LCOM_ITEM& item) { return T_LCOM_ITEM::CaseClass(item) != nullptr; }

}  // namespace

std::string LoadCombinationDialog::GetTitle() const { return Word("IDS_CMD_LCOM_TITLE"); }

std::vector<LoadCombinationDialog::Field> LoadCombinationDialog::Declared() const {
    return {
        TextField<T_LCOM_D, &T_LCOM_D::name>("IDS_CMD_NAME"),
        NamedField<&T_LCOM_D::active, kActive>("IDS_CMD_LCOM_ACTIVE"),
        NamedField<&T_LCOM_D::type, kTypes>("IDS_CMD_LCOM_TYPE"),
        TextField<T_LCOM_D, &T_LCOM_D::description>("IDS_CMD_DESCRIPTION"),
    };
}

std::string LoadCombinationDialog::ListText(std::size_t /*place*/, const T_LCOM_D& record) const {
    return record.description.empty() ? record.name : record.name + ", " + record.description;
}

velda::Outcome LoadCombinationDialog::CheckRecord() const {
    const auto& items = Edited().items;
    const auto empty = std::find_if(items.begin(), items.end(),
                                    [](const T_LCOM_ITEM& item) { return HasRecord(item) && item.key == 0; });
    if (empty == items.end()) return velda::Outcome::Done();
    return velda::Outcome::Refused(
        velda::FormatText("IDS_CMD_LCOM_NO_CASE", {std::to_string(empty - items.begin() + 1)}));
}

std::vector<LoadCombinationDialog::Field> LoadCombinationDialog::DeclaredRow(std::size_t row) const {
    return {
        {"IDS_CMD_LCOM_KIND", Kind::Choice, Unit::None,
         [row](const T_LCOM_D& record) { return TextOf(kKinds, record.items[row].kind); },
         [this, row](T_LCOM_D& record, const std::string& text) { ReadKind(record.items[row], text); },
         [row](const T_LCOM_D& record) { return TextsWith(kKinds, record.items[row].kind); }},
        {"IDS_CMD_LCOM_CASE", Kind::Choice, Unit::None,
         [this, row](const T_LCOM_D& record) { return CaseText(record.items[row]); },
         [this, row](T_LCOM_D& record, const std::string& text) { ReadCase(record.items[row], text); },
         [this, row](const T_LCOM_D& record) { return CaseTexts(record.items[row]); },
         [row](const T_LCOM_D& record) { return HasRecord(record.items[row]); }},
        {"IDS_CMD_LCOM_FACTOR", Kind::Number, Unit::None,
         [row](const T_LCOM_D& record) { return velda::FormatDouble(record.items[row].factor); },
         [row](T_LCOM_D& record, const std::string& text) { record.items[row].factor = velda::wtof(text); }},
    };
}

void LoadCombinationDialog::AppendRow(T_LCOM_D& record) const {
    T_LCOM_ITEM item;
    const std::vector<NamedCase> cases = Cases(item.kind);
    const auto free = std::find_if(cases.begin(), cases.end(), [&](const NamedCase& one) {
        return std::none_of(record.items.begin(), record.items.end(),
                            [&](const T_LCOM_ITEM& taken) { return taken.kind == item.kind && taken.key == one.key; });
    });
    if (!cases.empty()) item.key = free == cases.end() ? cases.front().key : free->key;
    record.items.push_back(item);
}

void LoadCombinationDialog::EraseRow(T_LCOM_D& record, std::size_t row) const {
    record.items.erase(record.items.begin() + static_cast<std::ptrdiff_t>(row));
}

std::vector<LoadCombinationDialog::NamedCase> LoadCombinationDialog::Cases(int kind) const {
    const T_LCOM_ITEM item{.kind = kind};
    std::vector<NamedCase> cases;
    if (!HasRecord(item)) return cases;
    const RecordStoreBase& store = Database().StoreAt(static_cast<std::uint16_t>(T_LCOM_ITEM::CaseClass(item)->index));
    std::set<std::string> taken;
    for (const std::uint32_t key : store.SortedKeys()) {
        std::string text = store.NameOfKey(key);
        // Records of other origin may have one name twice, or none.
        if (text.empty() || !taken.insert(text).second) text += "#" + velda::FormatLong(key);
        cases.push_back({key, text});
    }
    return cases;
}

std::vector<std::string> LoadCombinationDialog::CaseTexts(const T_LCOM_ITEM& item) const {
    std::vector<std::string> texts;
    for (const NamedCase& one : Cases(item.kind)) texts.push_back(one.text);
    if (!HasRecord(item)) texts.push_back(CaseText(item));
    return texts;
}

std::string LoadCombinationDialog::CaseText(const T_LCOM_ITEM& item) const {
    for (const NamedCase& one : Cases(item.kind)) {
        if (one.key == item.key) return one.text;
    }
    return item.key == 0 ? std::string() : velda::FormatLong(item.key);
}

void LoadCombinationDialog::ReadCase(T_LCOM_ITEM& item, const std::string& text) const {
    for (const NamedCase& one : Cases(item.kind)) {
        if (one.text == text) item.key = one.key;
    }
}

void LoadCombinationDialog::ReadKind(T_LCOM_ITEM& item, const std::string& text) const {
    const int before = item.kind;
    item.kind = NumberOf(kKinds, text, before);
    if (item.kind == before) return;
    item.key = 0;
    for (const NamedCase& one : Cases(item.kind)) {
        // What would make a ring is not offered first.
        const bool isSelf = item.kind == LoadCaseKind::Combination && one.key == Current();
        if (item.key == 0 && !isSelf) item.key = one.key;
    }
}

}  // namespace zt
