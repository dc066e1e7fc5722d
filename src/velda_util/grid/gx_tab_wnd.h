#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "velda_base/host/window.h"

namespace velda {

/// What fills a view or a tab.
class TabPane {
public:
    virtual ~TabPane() = default;

    /// Puts the pane to a place within its window.
    void MoveWindow(const WindowRect& place) { place_ = place; }
    const WindowRect& Place() const { return place_; }

private:
    WindowRect place_;
};

/// The pane of a tab strip that has no table yet.
class CGXGridView final : public TabPane {};

/// Look of a tab strip. Colours are blue-green-red, heights in pixels.
struct TabStyle {
    std::uint32_t activeText = 0x000000;
    std::uint32_t activeBackground = 0xFFFFFF;
    std::uint32_t otherText = 0x000000;
    std::string faceName{};
    int fontHeight = 15;
    int activeFontHeight = 15;
    int activeFontWeight = 400;
    int stripHeight = 20;
    bool operator==(const TabStyle&) const = default;
};

/// The window that shows a tab strip.
class TabStripHost {
public:
    virtual ~TabStripHost() = default;
    /// Tabs or their labels have changed.
    virtual void OnTabsChanged() = 0;
    virtual void OnTabSwitched(int tab) = 0;
};

/// A tab strip: panes with labels, one of which is active. Tabs count from 0; numbers outside are passed over.
class CGXTabWnd : public TabPane {
public:
    CGXTabWnd() = default;
    CGXTabWnd(const CGXTabWnd&) = delete;
    CGXTabWnd& operator=(const CGXTabWnd&) = delete;

    /// Identifiers for the windows of panes, each another one.
    std::uint32_t GetNextID() { return nextId_++; }
    /// Who shows the strip; null for nobody. It outlives its use.
    void SetHost(TabStripHost* host) { host_ = host; }

    /// A pane may be null while it is being made. The first tab becomes the active one.
    void AddTab(std::unique_ptr<TabPane> pane, std::string label);
    /// Removes a tab with its pane. When it was active the one that takes its place is, or the last one.
    void RemoveTab(int tab);
    int GetTabCount() const { return static_cast<int>(tabs_.size()); }
    const TabStyle& GetStyle() const { return style_; }
    void SetStyle(TabStyle style) {
        style_ = std::move(style);
        TellChanged();
    }
    /// Null outside the tabs and on a tab without a pane.
    TabPane* GetPane(int tab) const { return Has(tab) ? tabs_[static_cast<std::size_t>(tab)].pane.get() : nullptr; }
    /// The tab of a pane; -1 when it has none.
    int FindPane(const TabPane* pane) const;
    const std::string& GetLabel(int tab) const { return tabs_.at(static_cast<std::size_t>(tab)).label; }
    void SetLabel(int tab, std::string label);

    int GetActiveTab() const { return active_; }
    TabPane* GetActivePane() const { return GetPane(active_); }
    /// Brings a tab to the front; nothing happens when it is there.
    void SwitchTab(int tab);

protected:
    /// Another tab came to the front.
    virtual void OnTabSwitch();
    /// A tab is about to be removed with its pane, which may be null.
    virtual void OnRemoveTab(const TabPane* /*pane*/) {}

private:
    struct Tab {
        std::unique_ptr<TabPane> pane;
        std::string label;
    };
    bool Has(int tab) const { return tab >= 0 && tab < GetTabCount(); }
    void TellChanged();

    std::vector<Tab> tabs_;
    TabStyle style_;
    TabStripHost* host_ = nullptr;
    int active_ = 0;
    std::uint32_t nextId_ = 1;
};

}  // namespace velda
