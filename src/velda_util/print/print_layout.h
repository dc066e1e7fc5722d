#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "velda_base/host/printer.h"
#include "velda_util/print/text_measure.h"

namespace velda {

class CGXGridCore;

/// How a grid is laid on paper. Lengths are points.
struct PrintSettings {
    PaperSize paper{};
    PrintMargins margins{};
    double fontSize = 10.0;
    std::vector<std::string> titles{};  ///< lines of the title block, above the table on every page
    double pointsPerPixel = kPointsPerPixel;
    /// Width of a text in a font of a size, as the printer draws it.
    std::function<double(std::string_view text, double fontSize, bool bold)> textWidth = &UsualTextWidth;
};

/// A line of text on a page.
struct PrintedText {
    std::string text;
    double x = 0.0;
    double y = 0.0;
};

/// A column on a page, or a row: where it begins and what it takes. Row 0 is the header.
struct PrintedBand {
    int index = 0;
    double at = 0.0;
    double size = 0.0;
};

/// One page: its cells are those of the rows and columns given.
struct PrintedPage {
    int number = 0;
    std::vector<PrintedBand> columns{};
    std::vector<PrintedBand> rows{};
    std::vector<PrintedText> titles{};
    PrintedText pageNumber{};
};

/// A grid cut into pages: the rows from top to bottom, then the next columns. The header and the frozen columns stand
/// on every page; frozen columns that leave no room for others are printed once. A row or a column that is larger than
/// the page gets a page and is cut off there. The append row is not printed, nor are hidden columns.
class PrintLayout {
public:
    PrintLayout(const CGXGridCore& grid, PrintSettings settings);

    /// At least one, which shows the header of an empty table.
    int PageCount() const { return static_cast<int>(rowBreaks_.size() * columnBreaks_.size()); }
    /// A page from 1; throws std::invalid_argument for any other number. The grid must be as it was.
    PrintedPage Page(int number) const;
    double LineHeight() const;

private:
    /// Rows or columns of one page; the last one is included.
    struct Run {
        int first = 0;
        int last = 0;
    };
    double ContentWidth() const;
    double ContentTop() const;
    double RowHeight(int row) const;
    double ColumnWidth(int col) const;
    double LinesIn(int row, int col) const;
    void BreakColumns();
    void BreakRows();
    void AddBand(std::vector<PrintedBand>& bands, int index, double size, double begin, double end) const;

    const CGXGridCore& grid_;
    PrintSettings settings_;
    std::vector<int> frozen_;
    std::vector<int> columns_;  ///< the others that are shown
    std::vector<Run> columnBreaks_;
    std::vector<Run> rowBreaks_;
};

}  // namespace velda
