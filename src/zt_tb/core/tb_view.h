#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zt_db/doc/doc.h"
#include "zt_tb/core/tb_common_wnd.h"

namespace zt {

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

/// The base of all views: one grid alone, or several on tabs. It turns the hints of the document into operations.
class CTBView : public CDBUpdateConnector {
public:
    CTBView() = default;

    /// Tells each grid, those that come later too, where it is shown.
    void SetGridHost(velda::GridHost* host);

    /// Makes the tab strip.
    void BuildWorkbook() { hasTabs_ = true; }
    /// Takes over a grid: as a tab under `title`, or as the one grid of a view without tabs. Null makes an empty tab.
    void AddWorksheet(std::unique_ptr<velda::CTBGrid> grid, std::string title);
    void ChangeTabLabel(int tab, std::string title);
    /// Takes a tab away with its grid. A number outside the tabs is passed over.
    void RemoveWorksheet(int tab);
    /// Makes a tab the active one. A number outside the tabs is passed over.
    void SetCurrentTab(int tab);
    int GetCurrentTab() const { return current_; }
    int GetTabCount() const { return static_cast<int>(sheets_.size()); }
    const std::string& GetTabLabel(int tab) const { return sheets_.at(static_cast<std::size_t>(tab)).title; }

    const TabStyle& GetTabStyle() const { return tabStyle_; }

    /// The grid in front; null where there is none.
    virtual velda::CTBGrid* GetActiveGrid() const;
    /// The grids of all tabs in their order, null for an empty tab; their number.
    int GetAllGrid(std::vector<velda::CTBGrid*>& grids) const;
    const std::string& GetTitle() const { return title_; }

    /// Leaves the open rows of all grids before something else goes on; false when one stays open.
    bool LeaveRows();

    void OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) override;

    virtual void OnTabSwitch() {}
    virtual void UpdateViewTitle() {}
    virtual void UpdateBuffer(T_UPDATE_HINT* /*hint*/) {}
    virtual void UpdateUnit() {}
    virtual void UpdateSelAdd() {}
    virtual void UpdateSelDel() {}
    virtual void UpdateSelPre() {}
    virtual void UpdateSelPost() {}
    virtual void UpdateExeStart() {}
    virtual void UpdateExeEnd() {}
    virtual void UpdateRefresh() {}
    virtual void UpdatePostDBChanged() {}
    virtual void UpdatePrefChanged() {}
    /// Locks the record browsers among the grids against edits, or unlocks them.
    virtual void SetTableReadOnlyMode(int flag);
    virtual void UpdateDgnForceChanged() {}
    virtual void UpdateDgnForceRemoved() {}
    virtual void SetTabStyle() {}

protected:
    void SetTitle(std::string title) { title_ = std::move(title); }
    void SetTabStyle(TabStyle style) { tabStyle_ = std::move(style); }

private:
    struct Sheet {
        std::unique_ptr<velda::CTBGrid> grid;
        std::string title;
    };
    std::vector<Sheet> sheets_;
    velda::GridHost* host_ = nullptr;
    std::string title_;
    TabStyle tabStyle_;
    bool hasTabs_ = false;
    int current_ = 0;
};

}  // namespace zt
