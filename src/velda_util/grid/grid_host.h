#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "velda_base/host/application_host.h"
#include "velda_util/grid/gx_grid_core.h"
#include "velda_util/print/text_measure.h"

namespace velda {

/// What a grid tells its surroundings and asks of them. The window that shows a grid implements it; a grid without one
/// uses the operations here.
class GridHost {
public:
    virtual ~GridHost() = default;

    /// What the grid shows has changed.
    virtual void OnRedraw() {}
    /// Something that the user entered was refused; the text says why.
    virtual void OnWarning(const std::string& /*text*/) {}
    /// Something that the user should know: the end of a search, the report of a paste, an edit that was lost.
    virtual void OnMessage(const std::string& /*text*/) {}

    /// The grid wants the focus.
    virtual void OnSetFocus() {}

    /// Another cell is to be the first one that is shown behind the frozen columns.
    virtual void OnTopLeft(GridPosition /*cell*/) {}
    /// The cell of a grid under a point of its window; row 0 is the header. No position where there is no cell. A
    /// window that draws row headers, scrolls or zooms knows better than the grid.
    virtual std::optional<GridPosition> CellUnder(const CGXGridCore& grid, WindowPoint point) const {
        return grid.HitTest(point);
    }

    virtual void SetClipboardText(std::string text) {
        ApplicationHost::Current().GetClipboard().SetText(std::move(text));
    }
    virtual std::string GetClipboardText() { return ApplicationHost::Current().GetClipboard().GetText(); }

    /// Width in pixels that a text takes in a font of this size in points.
    virtual double TextWidth(std::string_view text, double fontSize, bool bold) const {
        return UsualTextWidth(text, fontSize, bold) / kPointsPerPixel;
    }
};

}  // namespace velda
