#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zt_db/doc/doc.h"
#include "zt_tb/core/tb_common_wnd.h"

namespace zt {

/// The base of all views: one grid alone, or several on tabs. It turns the hints of the document into operations.
class CTBView : public CDBUpdateConnector {
public:
    CTBView() = default;

    /// Tells each grid, those that come later too, where it is shown.
    void SetGridHost(velda::GridHost* host);

    /// Makes the tab strip.
    void BuildWorkbook() { hasTabs_ = true; }
    /// Takes over a grid: as a tab under `title`, or as the one grid of a view without tabs.
    void AddWorksheet(std::unique_ptr<velda::CTBGrid> grid, std::string title);
    void ChangeTabLabel(int tab, std::string title);
    /// Makes a tab the active one. A number outside the tabs is passed over.
    void SetCurrentTab(int tab);
    int GetCurrentTab() const { return current_; }
    int GetTabCount() const { return static_cast<int>(sheets_.size()); }
    const std::string& GetTabLabel(int tab) const { return sheets_.at(static_cast<std::size_t>(tab)).title; }

    virtual velda::CTBGrid* GetActiveGrid() const;
    /// All grids in the order of their tabs; their number.
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

protected:
    void SetTitle(std::string title) { title_ = std::move(title); }

private:
    struct Sheet {
        std::unique_ptr<velda::CTBGrid> grid;
        std::string title;
    };
    std::vector<Sheet> sheets_;
    velda::GridHost* host_ = nullptr;
    std::string title_;
    bool hasTabs_ = false;
    int current_ = 0;
};

}  // namespace zt
