#include "velda_base/host/dock_view_base.h"

#include <map>
#include <vector>

namespace velda {
namespace {

std::map<std::uint32_t, CDockViewBase*>& Panes() {
    static std::map<std::uint32_t, CDockViewBase*> panes;
    return panes;
}

}  // namespace

CDockViewBase::~CDockViewBase() {
    std::erase_if(Panes(), [this](const auto& entry) { return entry.second == this; });
}

CDockViewBase* CDockViewBase::GetDockViewFromID(std::uint32_t id) {
    const auto found = Panes().find(id);
    return found == Panes().end() ? nullptr : found->second;
}

bool CDockViewBase::SetDockViewWithID(std::uint32_t id, CDockViewBase* pane) {
    if (id == kNoId || !pane) return false;
    return Panes().emplace(id, pane).first->second == pane;
}

bool CDockViewBase::ShowDockView(std::uint32_t id) {
    CDockViewBase* pane = GetDockViewFromID(id);
    if (!pane || !pane->HasWindow()) return false;
    pane->window_->Show(true);
    return true;
}

bool CDockViewBase::CloseDockView(std::uint32_t id) {
    CDockViewBase* pane = GetDockViewFromID(id);
    return pane && pane->CloseDockViewImpl();
}

void CDockViewBase::CloseDockViewAll() {
    // A pane that closes may take others with it.
    std::vector<std::uint32_t> ids;
    for (const auto& [id, pane] : Panes()) ids.push_back(id);
    for (const std::uint32_t id : ids) CloseDockView(id);
}

bool CDockViewBase::CloseDockViewImpl() {
    if (!HasWindow()) return false;
    if (window_->IsDocked() && window_->IsVisible()) window_->Show(false);
    window_->StoreState();
    OnClosed();
    return true;
}

}  // namespace velda
