#pragma once

#include "velda_util/grid/grid_host.h"
#include "velda_util/grid/gx_grid_core.h"

namespace velda {

/// A grid as a window shows it: the cell engine with its host.
class CGXGridWnd : public CGXGridCore {
public:
    /// The window that shows the grid from now on; null for none.
    void SetHost(GridHost* host) { host_ = host; }

    /// Copies the texts of the selected cells of shown columns to the clipboard, with titles and units above them when
    /// asked for. False when nothing is selected or the clipboard's limits are passed.
    bool Copy(bool withHeaders = false);
    bool CanCopy() const { return CommandRange().bottom >= CommandRange().top; }

protected:
    GridHost& Host() { return host_ ? *host_ : none_; }
    void OnRedrawn() override { Host().OnRedraw(); }
    /// The text of a cell as it goes to the clipboard: whole numbers, not the rounded ones that are drawn, and the
    /// names of listed keys.
    std::string ClipboardCellText(int row, int col) const;
    /// Title of a column and its unit apart, for copied headers.
    virtual std::string GetTitle(ColumnId column) const { return columns_.Info(column).title; }
    virtual std::string GetUnitText(ColumnId /*column*/) const { return {}; }

private:
    GridHost* host_ = nullptr;
    GridHost none_;
};

}  // namespace velda
