#include "velda_util/grid/gx_tab_wnd.h"

#include <algorithm>

namespace velda {

void CGXTabWnd::TellChanged() {
    if (host_) host_->OnTabsChanged();
}

void CGXTabWnd::AddTab(std::unique_ptr<TabPane> pane, std::string label) {
    tabs_.push_back({std::move(pane), std::move(label)});
    TellChanged();
}

void CGXTabWnd::RemoveTab(int tab) {
    if (!Has(tab)) return;
    OnRemoveTab(GetPane(tab));
    tabs_.erase(tabs_.begin() + tab);
    if (tab < active_) --active_;
    active_ = std::clamp(active_, 0, std::max(GetTabCount() - 1, 0));
    TellChanged();
}

int CGXTabWnd::FindPane(const TabPane* pane) const {
    const auto found = std::find_if(tabs_.begin(), tabs_.end(), [&](const Tab& tab) { return tab.pane.get() == pane; });
    return pane && found != tabs_.end() ? static_cast<int>(found - tabs_.begin()) : -1;
}

void CGXTabWnd::SetLabel(int tab, std::string label) {
    if (!Has(tab)) return;
    tabs_[static_cast<std::size_t>(tab)].label = std::move(label);
    TellChanged();
}

void CGXTabWnd::SwitchTab(int tab) {
    if (!Has(tab) || tab == active_) return;
    active_ = tab;
    OnTabSwitch();
}

void CGXTabWnd::OnTabSwitch() {
    if (host_) host_->OnTabSwitched(active_);
}

}  // namespace velda
