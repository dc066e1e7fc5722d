#include "velda_base/host/menu.h"

#include <algorithm>
#include <utility>

namespace velda {
namespace {

struct HasCommand {
    int id;
    bool operator()(const MenuItem& item) const { return !item.IsSeparator() && item.id == id; }
};

}  // namespace

std::vector<MenuItem>::iterator CMenu::At(int id) { return std::find_if(items_.begin(), items_.end(), HasCommand{id}); }

bool CMenu::RemoveCommand(int id) {
    const auto found = At(id);
    if (found == items_.end()) return false;
    items_.erase(found);
    return true;
}

bool CMenu::RemovePosition(int position) {
    if (position < 0 || std::cmp_greater_equal(position, items_.size())) return false;
    items_.erase(items_.begin() + position);
    return true;
}

bool CMenu::Enable(int id, bool enabled) {
    const auto found = At(id);
    if (found == items_.end()) return false;
    found->enabled = enabled;
    return true;
}

void CMenu::DeleteUselessSeparators() {
    const auto bothSeparate = [](const MenuItem& a, const MenuItem& b) { return a.IsSeparator() && b.IsSeparator(); };
    items_.erase(std::unique(items_.begin(), items_.end(), bothSeparate), items_.end());
    if (!items_.empty() && items_.front().IsSeparator()) items_.erase(items_.begin());
    if (!items_.empty() && items_.back().IsSeparator()) items_.pop_back();
}

const MenuItem* CMenu::Find(int id) const {
    const auto found = std::find_if(items_.begin(), items_.end(), HasCommand{id});
    return found == items_.end() ? nullptr : &*found;
}

}  // namespace velda
