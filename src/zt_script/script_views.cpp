#include "zt_script/script_views.h"

#include <algorithm>

namespace zt {

void ScriptViews::Open(std::unique_ptr<CTBView> view) {
    auto frame = std::make_unique<velda::HeadlessFrame>(queue_);
    auto window = std::make_unique<ViewWindow>(queue_, *view);
    window->SetParentFrame(frame.get());
    view->SetWindow(window.get());
    view->OnWindowPosChanging(window->GetClientRect());
    views_.push_back({std::move(frame), std::move(window), std::move(view)});
    active_ = views_.size() - 1;
}

void ScriptViews::Close(std::size_t at) {
    views_[at].view->OnDestroy();
    views_.erase(views_.begin() + static_cast<std::ptrdiff_t>(at));
    active_ = views_.empty() ? 0 : views_.size() - 1;
}

void ScriptViews::DropClosed() {
    for (std::size_t at = views_.size(); at-- > 0;) {
        if (!views_[at].frame->IsOpen()) Close(at);
    }
}

bool ScriptViews::Activate(std::int64_t number) {
    if (number < 1 || std::cmp_greater(number, views_.size())) return false;
    active_ = static_cast<std::size_t>(number - 1);
    return true;
}

void ScriptViews::CloseActive() {
    if (!views_.empty()) Close(active_);
}

void ScriptViews::CloseAll() {
    while (!views_.empty()) CloseActive();
}

std::vector<const CTBView*> ScriptViews::All() const {
    std::vector<const CTBView*> all;
    for (const OpenView& open : views_) all.push_back(open.view.get());
    return all;
}

velda::CTBGrid* ScriptViews::ActiveGrid() const { return Active() ? Active()->GetActiveGrid() : nullptr; }

CTBCommonWnd* ScriptViews::ActiveTable() const { return dynamic_cast<CTBCommonWnd*>(ActiveGrid()); }

bool ScriptViews::LeaveRows() const {
    return std::all_of(views_.begin(), views_.end(), [](const OpenView& open) { return open.view->LeaveRows(); });
}

void ScriptViews::Mark() {
    std::vector<velda::CTBGrid*> grids;
    for (OpenView& open : views_) {
        open.view->GetAllGrid(grids);
        open.redraws.clear();
        for (const velda::CTBGrid* grid : grids) open.redraws[grid] = grid->RedrawCount();
    }
}

std::uint64_t ScriptViews::RedrawsSinceMark() const {
    const velda::CTBGrid* table = ActiveGrid();
    if (!table) return 0;
    const auto& marked = views_[active_].redraws;
    const auto before = marked.find(table);
    return table->RedrawCount() - (before == marked.end() ? 0 : before->second);
}

}  // namespace zt
