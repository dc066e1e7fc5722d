#include "zt_script/script_views.h"

#include <algorithm>

namespace zt {

void ScriptViews::Open(std::unique_ptr<CTBView> view) {
    views_.push_back({std::move(view)});
    active_ = views_.size() - 1;
}

bool ScriptViews::Activate(std::int64_t number) {
    if (number < 1 || std::cmp_greater(number, views_.size())) return false;
    active_ = static_cast<std::size_t>(number - 1);
    return true;
}

void ScriptViews::CloseActive() {
    if (views_.empty()) return;
    // A script has no file to write the layout to; the next views take it from memory.
    if (velda::CTBGrid* grid = Active()->GetActiveGrid()) static_cast<void>(grid->SaveLayout());
    views_.erase(views_.begin() + static_cast<std::ptrdiff_t>(active_));
    active_ = views_.empty() ? 0 : views_.size() - 1;
}

void ScriptViews::CloseAll() {
    views_.clear();
    active_ = 0;
}

std::vector<const CTBView*> ScriptViews::All() const {
    std::vector<const CTBView*> all;
    for (const OpenView& open : views_) all.push_back(open.view.get());
    return all;
}

CTBCommonWnd* ScriptViews::ActiveTable() const {
    const CTBView* view = Active();
    return view ? dynamic_cast<CTBCommonWnd*>(view->GetActiveGrid()) : nullptr;
}

bool ScriptViews::LeaveRows() const {
    return std::all_of(views_.begin(), views_.end(), [](const OpenView& open) { return open.view->LeaveRows(); });
}

void ScriptViews::Mark() {
    std::vector<velda::CTBGrid*> grids;
    for (OpenView& open : views_) {
        open.view->GetAllGrid(grids);
        open.redraws.clear();
        for (const velda::CTBGrid* grid : grids) open.redraws.push_back(grid->RedrawCount());
    }
}

std::uint64_t ScriptViews::RedrawsSinceMark() const {
    const CTBCommonWnd* table = ActiveTable();
    if (!table) return 0;
    const auto tab = static_cast<std::size_t>(Active()->GetCurrentTab());
    const std::vector<std::uint64_t>& marked = views_[active_].redraws;
    return table->RedrawCount() - (tab < marked.size() ? marked[tab] : 0);
}

}  // namespace zt
