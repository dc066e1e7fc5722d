#include "velda_util/columns/column_list.h"

#include <algorithm>
#include <utility>

namespace velda {

int ColumnList::AddColInfo(std::string title, ColumnType type, int unitCode) {
    const int id = Count();
    infos_.push_back({std::move(title), type, unitCode});
    types_.push_back(type);
    state_.emplace_back();
    order_.push_back(id);
    numbers_.push_back(id + 1);
    return id;
}

bool ColumnList::GetColumnNoFor(int id, int& number) const {
    if (!Has(id)) return false;
    number = numbers_[static_cast<std::size_t>(id)];
    return true;
}

bool ColumnList::GetColumnNoFor(std::string_view title, int& number) const {
    const auto found =
        std::find_if(infos_.begin(), infos_.end(), [&](const ColumnInfo& info) { return info.title == title; });
    return found != infos_.end() && GetColumnNoFor(static_cast<int>(found - infos_.begin()), number);
}

bool ColumnList::GetColumnIDFor(int number, int& id) const {
    if (number < 1 || number > Count()) return false;
    id = order_[static_cast<std::size_t>(number - 1)];
    return true;
}

void ColumnList::Renumber() {
    for (std::size_t place = 0; place < order_.size(); ++place) {
        numbers_[static_cast<std::size_t>(order_[place])] = static_cast<int>(place) + 1;
    }
}

bool ColumnList::Move(int number, int before) {
    if (number < 1 || number > Count() || before < 1 || before > Count() + 1) return false;
    const auto at = [this](int n) { return order_.begin() + (n - 1); };
    if (before > number) {
        std::rotate(at(number), at(number + 1), at(before));
    } else {
        std::rotate(at(before), at(number), at(number + 1));
    }
    Renumber();
    return true;
}

bool ColumnList::SetOrder(const std::vector<int>& ids) {
    std::vector<int> sorted = ids;
    std::sort(sorted.begin(), sorted.end());
    if (std::cmp_not_equal(sorted.size(), Count())) return false;
    for (int id = 0; id < Count(); ++id) {
        if (sorted[static_cast<std::size_t>(id)] != id) return false;
    }
    order_ = ids;
    Renumber();
    return true;
}

void ColumnList::HideColsByIntend(int firstNumber, int lastNumber, bool hide) {
    for (int number = std::max(firstNumber, 1); number <= std::min(lastNumber, Count()); ++number) {
        state_[static_cast<std::size_t>(order_[static_cast<std::size_t>(number - 1)])].hiddenByIntend = hide;
    }
}

bool ColumnList::IsHiddenByIntend(int number) const {
    int id = 0;
    return GetColumnIDFor(number, id) && state_[static_cast<std::size_t>(id)].hiddenByIntend;
}

void ColumnList::SetHidden(int id, bool hidden) { state_.at(static_cast<std::size_t>(id)).hidden = hidden; }

bool ColumnList::IsHidden(int id) const {
    const State& state = state_.at(static_cast<std::size_t>(id));
    return state.hidden || state.hiddenByIntend;
}

void ColumnList::SetWidth(int id, int width) {
    state_.at(static_cast<std::size_t>(id)).width = std::clamp(width, 0, kLargestWidth);
}

}  // namespace velda
