#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zt_tb/core/my_gx_tab_wnd.h"
#include "zt_tb/core/tb_command_ids.h"
#include "zt_tb/core/tb_common_wnd.h"
#include "zt_tb/core/title_ctrl_view.h"

namespace zt {

/// The base of all views that show tables: one grid alone, or several on tabs. It turns the hints of the document into
/// operations, and brings printing, the clipboard commands, the graph view and the read-only state of the tables.
class CTBView : public CTBViewBase {
public:
    CTBView() = default;

    /// Tells each grid, those that come later too, where it is shown.
    void SetGridHost(velda::GridHost* host);

    // ---- tabs

    /// Makes the tab strip, with an empty tab that the first worksheet replaces.
    void BuildWorkbook();
    /// The tab strip; null in a view of one grid.
    CMyGXTabWnd* GetTabWnd() const { return tabs_.get(); }
    /// Takes over a grid: as a tab under `title`, or as the one grid of a view without tabs. A tab without a grid is
    /// allowed, for a table that does not exist yet.
    void AddWorksheet(std::unique_ptr<velda::CTBGrid> grid, std::string title);
    void ChangeTabLabel(int tab, std::string title);
    /// Makes a tab the active one. A number outside the tabs is passed over.
    void SetCurrentTab(int tab);
    int GetCurrentTab() const { return tabs_ ? tabs_->GetActiveTab() : 0; }
    /// 0 in a view of one grid.
    int GetTabCount() const { return tabs_ ? tabs_->GetTabCount() : 0; }
    const std::string& GetTabLabel(int tab) const;

    /// The one grid, or that of the tab in front; null when there is none.
    virtual velda::CTBGrid* GetActiveGrid() const;
    /// All grids in the order of their tabs; their number.
    int GetAllGrid(std::vector<velda::CTBGrid*>& grids) const;

    /// A tab goes with its pane.
    void OnRemoveTab(const velda::TabPane* pane);

    /// Leaves the open rows of all grids before something else goes on; false when one stays open.
    bool LeaveRows();

    // ---- hints of the document

    void OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) override;

    virtual void OnTabSwitch() {}
    /// Takes all texts anew, in the current language; false for a view that has to be made anew for that.
    virtual bool UpdateLanguage() { return false; }
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
    /// Locks the tables against edits, or unlocks them. A view with grids that are no record browsers overrides it;
    /// otherwise a message says so.
    virtual void SetTableReadOnlyMode(int flag);
    virtual void UpdateDgnForceChanged() {}
    virtual void UpdateDgnForceRemoved() {}
    virtual void SetTabStyle() {}

    // ---- commands

    /// Runs a command; false when it is none of this view or is disabled.
    virtual bool OnCommand(int id);
    /// Shows the right-button menu of the table in front, and runs what is chosen.
    virtual void OnContextMenu(velda::WindowPoint /*point*/) {}
    /// Whether a command of this view can be given now.
    virtual bool IsCommandEnabled(int id) const;

    void OnEditCopy();
    void OnEditPaste();
    void OnFilePrint() { Print(false); }
    void OnFilePrintPreview();
    void OnTbColorDlg();
    void OnTbGvGraphView();

    // ---- the window

    /// The window has been opened.
    virtual void OnInitialUpdate() {}
    /// The view closes; it is deleted afterwards.
    virtual void OnDestroy() { DisconnectFromDoc(); }
    /// The window got the focus.
    void OnSetFocus();
    /// The window has another place or size: what fills it follows.
    virtual void OnWindowPosChanging(const velda::WindowRect& place);
    const velda::WindowRect& GetPlace() const { return place_; }

    // ---- printing

    /// Prints the table in front, or shows what would be printed. False when the user cancels or there is no table.
    bool Print(bool preview);
    virtual bool OnPreparePrinting(velda::PrintJob& job);
    virtual void OnBeginPrinting(velda::PrintJob& job);
    virtual void OnPrepareDC(int page);
    virtual void OnPrint(int page);
    virtual void OnEndPrinting(const velda::PrintJob& job);
    /// The window is drawn, which may happen in the middle of printing; `printing` tells that paper is drawn on.
    virtual void OnDraw(bool printing);

protected:
    /// The active grid, unless its window is gone; null otherwise.
    velda::CTBGrid* LiveGrid() const;
    /// The tables are filled: locks them while results are current, draws the one in front and gives it the focus.
    void ShowActiveTable(const CDBDoc& doc);

private:
    /// Tells the user, once, what is wrong with the file of column preferences.
    static void TellOfPreferences();
    bool CanCopy() const;
    bool CanPaste() const;
    bool HasLiveGrid() const { return LiveGrid() != nullptr; }
    bool Always() const { return true; }
    static std::span<const ViewCommand<CTBView>> Commands();
    void SetReadOnlyMode(velda::TabPane* pane, int flag) const;
    /// The grid that is printed, unless its window is gone; null otherwise.
    velda::CTBGrid* PrintedGrid() const { return IsWindowGone() ? nullptr : printed_; }
    bool IsWindowGone() const { return GetWindow() && !GetWindow()->IsOpen(); }
    /// What fills the view: the tab strip or the one grid; null while there is neither.
    velda::TabPane* Child() const;

    std::unique_ptr<CMyGXTabWnd> tabs_;
    std::unique_ptr<velda::CTBGrid> single_;
    velda::GridHost* host_ = nullptr;
    velda::WindowRect place_;
    bool printing_ = false;              ///< a direct print is being prepared
    velda::CTBGrid* printed_ = nullptr;  ///< the grid that is printed; null once it is gone
    double savedFontSize_ = 0.0;         ///< of its standard style
    velda::PrintMargins savedMargins_;   ///< of that grid
    bool savedLock_ = false;
};

}  // namespace zt
