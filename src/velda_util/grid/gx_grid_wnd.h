#pragma once

#include <optional>

#include "velda_util/controls/control_registry.h"
#include "velda_util/grid/grid_host.h"
#include "velda_util/grid/gx_grid_core.h"
#include "velda_util/grid/gx_tab_wnd.h"
#include "velda_util/print/print_layout.h"

namespace velda {

/// A grid as a window shows it: the cell engine with its host.
class CGXGridWnd : public CGXGridCore, public TabPane {
public:
    /// The window that shows the grid from now on; null for none.
    void SetHost(GridHost* host) { host_ = host; }

    /// Gives the grid a control of its own under a number; cells get it by its style.
    void RegisterControl(int number, std::unique_ptr<CGXEditBtn> control) {
        controls_.Register(number, std::move(control));
    }
    const ControlRegistry& Controls() const { return controls_; }

    void SetFocus() { Host().OnSetFocus(); }
    /// The cell under a point of the window that shows the grid; row 0 is the header.
    std::optional<GridPosition> CellUnder(WindowPoint point) const { return Host().CellUnder(*this, point); }

    /// Copies the texts of the selected cells of shown columns to the clipboard, with titles and units above them when
    /// asked for. False when nothing is selected or the clipboard's limits are passed.
    bool Copy(bool withHeaders = false);
    bool CanCopy() const { return CommandRange().bottom >= CommandRange().top; }
    /// What a paste does in a grid that takes none: nothing.
    virtual bool Paste() { return false; }
    virtual bool CanPaste() const { return false; }

    /// Fits the widths of shown columns to their titles and to the texts of so many rows, taken evenly from all.
    void ResizeColWidthsToFitSmart(int rowCount);

    // ---- printing

    /// Margins of the paper in points, for printing other than previews.
    void SetMargins(int top, int left, int bottom, int right) { margins_ = {left, top, right, bottom}; }
    const PrintMargins& GetMargins() const { return margins_; }
    /// The grid is about to be printed: cuts it into pages, whose number goes into the job.
    virtual void OnGridBeginPrinting(PrintJob& job);
    /// A page of it is about to be drawn.
    virtual void OnGridPrepareDC(int /*page*/) {}
    virtual void OnPrint(int /*page*/) {}
    virtual void OnGridEndPrinting() { printed_.reset(); }
    /// The pages while it is being printed; null at any other time.
    const PrintLayout* PrintedPages() const { return printed_ ? &*printed_ : nullptr; }

protected:
    GridHost& Host() const { return host_ ? *host_ : none_; }
    void OnRedrawn() override { Host().OnRedraw(); }
    void OnTopLeft() override { Host().OnTopLeft(TopLeft()); }
    /// The text of a cell as it goes to the clipboard: whole numbers, not the rounded ones that are drawn, and the
    /// names of listed keys.
    std::string ClipboardCellText(int row, int col) const;
    /// Title of a column and its unit apart, for copied headers.
    virtual std::string GetTitle(ColumnId column) const { return columns_.Info(column).title; }
    virtual std::string GetUnitText(ColumnId /*column*/) const { return {}; }

private:
    int FittingWidth(int col, int rowCount) const;

    ControlRegistry controls_;
    GridHost* host_ = nullptr;
    mutable GridHost none_;
    PrintMargins margins_;
    std::optional<PrintLayout> printed_;
};

}  // namespace velda
