#pragma once

#include <algorithm>

#include "zt_cmd/field_declaration.h"
#include "zt_db/records/load.h"

namespace zt {

/// The kinds of load cases that users choose among, and their names.
inline constexpr NamedNumber kLoadCaseKinds[] = {
    {LoadCaseKind::Static, "IDS_DB_DATA_NAME_STLD"},
    {LoadCaseKind::Spectrum, "IDS_DB_DATA_NAME_SPLC"},
    {LoadCaseKind::TimeHistory, "IDS_DB_DATA_NAME_THLC"},
    {LoadCaseKind::Combination, "IDS_DB_DATA_NAME_LCOM"},
};

/// What an item chooses its load case from; nothing for kinds whose cases are no records.
inline RecordChoice CasesOf(const DB_CDataBase& database, const T_LCOM_ITEM& item) {
    return {database, T_LCOM_ITEM::CaseClass(item)};
}
/// The texts of that choice; where there is none, the text that the item has.
std::vector<std::string> CaseTexts(const DB_CDataBase& database, const T_LCOM_ITEM& item);
/// Makes an item one of another kind, by the text of the kind. It gets the first case of it, if possible not the
/// combination `self` to which it belongs.
void UseKind(const DB_CDataBase& database, std::uint32_t self, const std::string& text, T_LCOM_ITEM& item);
/// The load cases of a list with factors, in their order: kind, case and factor. `at` gives the list in a record;
/// `self` is the key of that record where it is a combination itself.
template <class R, class At>
ListDeclaration<R> LoadCaseList(std::string_view titleKey, const DB_CDataBase& database, std::uint32_t self, At at) {
    const auto make = [&database, at](const R& record) {
        T_LCOM_ITEM item;
        item.key = CasesOf(database, item).FirstFree([&](std::uint32_t key) {
            return std::any_of(at(record).begin(), at(record).end(),
                               [&](const T_LCOM_ITEM& taken) { return taken.kind == item.kind && taken.key == key; });
        });
        return item;
    };
    return ListAt<R>(titleKey, at, make, [&database, self, at](std::size_t row) {
        const auto item = [ at, row ](auto& record) -> auto& { return at(record)[row]; };
        FieldDeclaration<R> kind = NamedAt<R>(
            "IDS_CMD_LCOM_KIND", kLoadCaseKinds, [item](auto& record) -> auto& { return item(record).kind; });
        kind.read = [&database, self, item](R& record, const std::string& text) {
            UseKind(database, self, text, item(record));
        };
        FieldDeclaration<R> loadCase{
            "IDS_CMD_LCOM_CASE",
            PropertyField::Kind::Choice,
            Unit::None,
            [&database, item](const R& record) { return CasesOf(database, item(record)).TextOf(item(record).key); },
            [&database, item](R& record, const std::string& text) {
                item(record).key = CasesOf(database, item(record)).KeyOf(text, item(record).key);
            },
            [&database, item](const R& record) { return CaseTexts(database, item(record)); },
            [item](const R& record) { return T_LCOM_ITEM::CaseClass(item(record)) != nullptr; }};
        loadCase.isNeeded = true;
        return std::vector<FieldDeclaration<R>>{
            std::move(kind), std::move(loadCase),
            NumberAt<R>(
                "IDS_CMD_LCOM_FACTOR", Unit::None, [item](auto& record) -> auto& { return item(record).factor; })};
    });
}

}  // namespace zt
