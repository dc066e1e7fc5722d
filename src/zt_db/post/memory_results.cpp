#include "zt_db/post/memory_results.h"

#include <algorithm>

namespace zt {

using velda::Outcome;

bool HasResultsOf(const ResultSource& results, int kind, std::uint32_t key) {
    const auto& cases = results.Cases();
    return std::any_of(cases.begin(), cases.end(),
                       [&](const ResultCase& one) { return one.kind == kind && one.key == key; });
}

std::string CasePath(int kind, std::uint32_t key, std::string_view quantity, std::string_view suffix) {
    std::string path = "case/" + std::to_string(kind) + "_" + std::to_string(key) + "/";
    return path.append(quantity).append(suffix);
}

ResultArray MemoryResults::Array(std::string_view name) const {
    const auto found = arrays_.find(name);
    if (found == arrays_.end() || found->second.values.empty()) return {};
    const Numbers& numbers = found->second;
    return {numbers.values.data(), numbers.values.size() / numbers.columns, numbers.columns};
}

std::vector<std::uint32_t> MemoryResults::Keys(std::string_view name) const {
    const auto found = keys_.find(name);
    return found == keys_.end() ? std::vector<std::uint32_t>{} : found->second;
}

std::vector<std::string> MemoryResults::Names() const {
    std::vector<std::string> names;
    for (const auto& [name, numbers] : arrays_) names.push_back(name);
    for (const auto& [name, keys] : keys_) names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
}

Outcome MemoryResults::PutHead(const ResultHead& head) {
    head_ = head;
    return Outcome::Done();
}

Outcome MemoryResults::PutCase(const ResultCase& loadCase) {
    cases_.push_back(loadCase);
    return Outcome::Done();
}

Outcome MemoryResults::PutArray(std::string_view name, std::size_t columns, std::span<const double> values) {
    arrays_[std::string(name)] = {columns, {values.begin(), values.end()}};
    return Outcome::Done();
}

Outcome MemoryResults::PutKeys(std::string_view name, std::span<const std::uint32_t> keys) {
    keys_[std::string(name)] = {keys.begin(), keys.end()};
    return Outcome::Done();
}

}  // namespace zt
