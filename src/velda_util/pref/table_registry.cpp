#include "velda_util/pref/table_registry.h"

#include <stdexcept>
#include <utility>

#include "velda_lib/msg_dll.h"
#include "velda_util/result/tb_data_src.h"

namespace velda {

TableRegistry& TableRegistry::OfProcess() {
    static TableRegistry registry;
    return registry;
}

void TableRegistry::UseFile(PreferenceFile file) {
    file_ = std::move(file);
    loaded_ = false;
    for (auto& [name, entry] : entries_) entry.changed.reset();
}

std::string TableRegistry::RegisterTable(std::string_view name, DefaultPreferenceFunction defaults) {
    if (name.empty() || !defaults) throw std::invalid_argument("a table needs a name and default preferences");
    return Add(name, {.defaults = defaults});
}

std::string TableRegistry::RegisterTable(std::string_view className, std::string_view name, DataSrcFactory factory) {
    if (className.empty() || name.empty() || !factory) {
        throw std::invalid_argument("a table of results needs a class, a name and a factory");
    }
    const auto known = classes_.find(className);
    if (known != classes_.end() && known->second != name) {
        throw std::invalid_argument("class registered twice: " + known->first);
    }
    std::string added = Add(name, {.factory = factory});
    classes_.try_emplace(std::string(className), added);
    return added;
}

std::string TableRegistry::Add(std::string_view name, const Entry& entry) {
    const auto [place, added] = entries_.try_emplace(std::string(name), entry);
    if (!added && (place->second.defaults != entry.defaults || place->second.factory != entry.factory)) {
        throw std::invalid_argument("table registered twice: " + place->first);
    }
    return place->first;
}

DataSrcFactory TableRegistry::FactoryOf(std::string_view className) const {
    const auto place = classes_.find(className);
    return place == classes_.end() ? nullptr : entries_.find(place->second)->second.factory;
}

std::vector<std::string> TableRegistry::RegisteredNames() const {
    std::vector<std::string> names;
    for (const auto& [name, entry] : entries_) names.push_back(name);
    return names;
}

std::vector<STBPrefItem> TableRegistry::GetPrefInfo(std::string_view name) {
    const Entry* entry = Find(name);
    return entry ? Current(name, *entry).columns : std::vector<STBPrefItem>();
}

bool TableRegistry::SetPrefInfo(std::string_view name, const std::vector<STBPrefItem>& items) {
    Entry* entry = Find(name);
    if (!entry) return false;
    TablePreferences preferences = Current(name, *entry);
    if (items.size() != preferences.columns.size()) return false;
    for (std::size_t i = 0; i < items.size(); ++i) {
        preferences.columns[i] = FitItem(items[i], preferences.columns[i]);
    }
    entry->changed = std::move(preferences);
    return true;
}

bool TableRegistry::SetCurrColWithInPrefInfo(std::string_view name, const std::vector<int>& widths) {
    std::vector<STBPrefItem> items = GetPrefInfo(name);
    if (items.size() != widths.size()) return false;
    for (std::size_t i = 0; i < items.size(); ++i) items[i].columnWidth = widths[i];
    return SetPrefInfo(name, items);
}

TableLayout TableRegistry::GetLayout(std::string_view name) {
    const Entry* entry = Find(name);
    return entry ? Current(name, *entry).layout : TableLayout();
}

bool TableRegistry::SetLayout(std::string_view name, const TableLayout& layout) {
    Entry* entry = Find(name);
    if (!entry) return false;
    TablePreferences preferences = Current(name, *entry);
    preferences.layout = FitLayout(layout, preferences.columns.size());
    entry->changed = std::move(preferences);
    return true;
}

Outcome TableRegistry::WriteToRegistry(std::string_view name) {
    Entry* entry = Find(name);
    if (!entry) return Outcome::Refused(FormatText("IDS_TB_ENGINE_PREF_UNKNOWN_TABLE", {name}));
    Outcome outcome = LoadedFile().WriteTable(name, Current(name, *entry));
    if (outcome) entry->changed.reset();
    return outcome;
}

std::string TableRegistry::TakeMessage() { return LoadedFile().TakeMessage(); }

TableRegistry::Entry* TableRegistry::Find(std::string_view name) {
    const auto place = entries_.find(name);
    return place == entries_.end() ? nullptr : &place->second;
}

PreferenceFile& TableRegistry::LoadedFile() {
    if (!std::exchange(loaded_, true)) file_.Load();
    return file_;
}

TablePreferences TableRegistry::Current(std::string_view name, const Entry& entry) {
    if (entry.changed) return *entry.changed;
    std::vector<STBPrefItem> usual;
    if (entry.factory) {
        entry.factory(0, 0)->AppendPreferences(usual);
    } else {
        entry.defaults(usual);
    }
    return FitPreferences(LoadedFile().Table(name).value_or(TablePreferences()), usual);
}

}  // namespace velda
