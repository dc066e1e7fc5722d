#include "zt_tb/model/open_table.h"

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "zt_tb/model/table_kinds.h"
#include "zt_tb/model/tb_pre_view.h"
#include "zt_tb/model/tb_prop_view.h"

namespace zt {
namespace {

bool IsTitle(const std::string& name, std::string_view titleKey) {
    return name == velda::CMsgDll::pfuncLoadStr(titleKey, 0);
}

const CTBPropView::TableEntry* FindProperty(const std::string& name) {
    const auto tables = CTBPropView::Tables();
    const auto found = std::find_if(tables.begin(), tables.end(), [&](const CTBPropView::TableEntry& entry) {
        return entry.make && (name == entry.mnemonic || IsTitle(name, entry.titleKey));
    });
    return found == tables.end() ? nullptr : &*found;
}

const TableKindEntry* FindKind(const std::string& name) {
    const auto kinds = TableKinds();
    const auto found = std::find_if(kinds.begin(), kinds.end(), [&](const TableKindEntry& entry) {
        return entry.make &&
               (name == entry.mnemonic || name == std::to_string(entry.kind) || IsTitle(name, entry.titleKey));
    });
    return found == kinds.end() ? nullptr : &*found;
}

}  // namespace

std::unique_ptr<CTBView> OpenTable(const std::string& name) {
    if (const CTBPropView::TableEntry* entry = FindProperty(name)) {
        auto view = std::make_unique<CTBPropView>();
        view->OpenProperties(entry->kind);
        return view;
    }
    const TableKindEntry* entry = FindKind(name);
    if (!entry) return nullptr;
    auto view = std::make_unique<CTBPreView>();
    view->SetTable(entry->kind, nullptr);
    return view;
}

std::vector<std::string_view> ExistingTables() {
    std::vector<std::string_view> names;
    const auto add = [&](const auto& entry) {
        const bool isNew = std::find(names.begin(), names.end(), entry.mnemonic) == names.end();
        if (entry.make && isNew) names.push_back(entry.mnemonic);
    };
    for (const CTBPropView::TableEntry& entry : CTBPropView::Tables()) add(entry);
    for (const TableKindEntry& entry : TableKinds()) add(entry);
    return names;
}

}  // namespace zt
