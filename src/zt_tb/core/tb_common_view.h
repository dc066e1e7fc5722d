#pragma once

#include "zt_tb/core/tb_view.h"

namespace zt {

/// A view with the user's commands on the table in front: right-button menu, find, sort, widths and locks of columns,
/// style. Without a table they do nothing.
class CTBCommonView : public CTBView {
public:
    bool OnCommand(int id) override;
    bool IsCommandEnabled(int id) const override;

    /// The right-button menu at a point of the grid's window, and the command that the user chooses there.
    void OnContextMenu(velda::WindowPoint point) override;
    void OnTbGvFind();
    void OnTbGvFindNext();
    void OnTbGvSortDlg();
    void OnTbCmenuSortDlg() { OnTbGvSortDlg(); }
    void OnTbGvResizeWidth();
    void OnResizeWidth();
    void OnTbGvStyleDlg();
    /// Unlock and lock columns: the selected ones, or that under the point of the menu. The column of the current cell
    /// is left out.
    void OnEnableCol() { SetColumnsLocked(false); }
    void OnDisableCol() { SetColumnsLocked(true); }
    /// A view with tables in other units overrides it.
    virtual void OnChangeUnit() {}
    /// A command that the table added to the menu; false when it is none.
    bool OnTbSelectCustomContextMenu(int command);
    /// Keeps the column widths of the table in front.
    void OnDestroy() override;

    void UpdateExeStart() override {}
    void UpdateExeEnd() override {}
    void UpdateSelPre() override {}
    void UpdateSelPost() override {}

protected:
    /// Adds to the right-button menu before the table does.
    virtual void CustomizeContextMenu(velda::CMenu& /*menu*/) {}

private:
    bool HasTable() const { return LiveGrid() != nullptr; }
    static std::span<const ViewCommand<CTBCommonView>> Commands();
    velda::CMenu BuildContextMenu(velda::CTBGrid& grid);
    void SetColumnsLocked(bool locked);
    std::vector<int> ColumnsToLock(const velda::CTBGrid& grid, bool& selected) const;

    velda::WindowPoint menuPoint_{-1, -1};  ///< where the menu was opened last
};

}  // namespace zt
