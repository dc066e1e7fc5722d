#include <QImage>
#include <algorithm>

#include "desktop/grid/grid_colors.h"
#include "desktop/grid_fixture.h"

namespace zt {
namespace {

class GridDrawing : public GridFixture {
protected:
    QImage Picture() { return widget.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    GridColors Colors() const { return GridColors::Of(widget.palette()); }
    QRect Cell(int row, int col) const { return widget.Geometry().CellRect(row, col).adjusted(3, 3, -4, -4); }

    /// Pixels of a rectangle that a condition holds for.
    template <class Condition>
    static int Count(const QImage& picture, const QRect& rect, Condition holds) {
        int count = 0;
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x) count += holds(picture.pixelColor(x, y)) ? 1 : 0;
        }
        return count;
    }
    static int Dark(const QImage& picture, const QRect& rect) {
        return Count(picture, rect, [](const QColor& color) { return color.lightness() < 128; });
    }
    static int Of(const QImage& picture, const QRect& rect, const QColor& wanted) {
        return Count(picture, rect, [&](const QColor& color) { return color == wanted; });
    }
    static bool IsRed(const QColor& color) { return color.red() > 150 && color.green() < 90 && color.blue() < 90; }
    static QColor Ground(const QImage& picture, const QRect& cell) { return picture.pixelColor(cell.topLeft()); }
};

TEST_F(GridDrawing, TextsStandInTheirCells) {
    grid.SetDataRowCol(3, ExampleGrid::kName, std::string_view(""));
    const QImage picture = Picture();
    EXPECT_GT(Dark(picture, Cell(2, ExampleGrid::kName)), 20);
    EXPECT_EQ(0, Dark(picture, Cell(3, ExampleGrid::kName)));
}

TEST_F(GridDrawing, NumbersStandAtTheRightAndNamesAtTheLeft) {
    const QImage picture = Picture();
    const auto half = [&](int col, bool right) {
        QRect cell = Cell(2, col);
        if (right) cell.setLeft(cell.center().x());
        if (!right) cell.setRight(cell.center().x());
        return Dark(picture, cell);
    };
    EXPECT_GT(half(ExampleGrid::kMeasure, true), half(ExampleGrid::kMeasure, false));
    EXPECT_GT(half(ExampleGrid::kName, false), half(ExampleGrid::kName, true));
}

TEST_F(GridDrawing, TheGroundTellsWhatCanBeEdited) {
    grid.SetReadOnly(2, ExampleGrid::kName, true);
    grid.SetEnable(3, ExampleGrid::kName, false);
    grid.SetStyleRange(velda::CGXRange(4, ExampleGrid::kName), velda::CGXStyle().SetInterior(0x00FF80));
    ASSERT_TRUE(grid.EditCell(5, ExampleGrid::kName, "x"));
    const QImage picture = Picture();
    EXPECT_EQ(Colors().readOnly, Ground(picture, Cell(2, ExampleGrid::kName)));
    EXPECT_EQ(Colors().disabled, Ground(picture, Cell(3, ExampleGrid::kName)));
    EXPECT_EQ(QColor(0x80, 0xFF, 0x00), Ground(picture, Cell(4, ExampleGrid::kName)));
    EXPECT_EQ(Colors().rowInEdit, Ground(picture, Cell(5, ExampleGrid::kMeasure)));
    EXPECT_EQ(Colors().base, Ground(picture, Cell(6, ExampleGrid::kName)));
}

TEST_F(GridDrawing, VerdictsAreColoured) {
    const auto red = [this] { return Count(Picture(), Cell(2, ExampleGrid::kName), &IsRed); };
    EXPECT_EQ(0, red());
    grid.ApplyStyleNG(2, ExampleGrid::kName);
    EXPECT_GT(red(), 10);
}

TEST_F(GridDrawing, AFindingIsARedCorner) {
    const QRect cell = widget.Geometry().CellRect(1, ExampleGrid::kName);
    const QRect corner(cell.right() - 4, cell.top() + 2, 3, 2);
    EXPECT_EQ(0, Count(Picture(), corner, &IsRed));
    Type("bad");
    Key(Qt::Key_Return);
    Editor()->hide();
    EXPECT_GT(Count(Picture(), corner, &IsRed), 1);
}

TEST_F(GridDrawing, TheOpenRowHasAPencilAndTheAppendRowAStar) {
    const auto mark = [this](int row) {
        const GridGeometry geometry = widget.Geometry();
        const GridBand* band = geometry.RowOf(row);
        return Dark(Picture(), QRect(2, band->start + 2, 14, band->size - 4));
    };
    EXPECT_EQ(0, mark(1));
    Type("a");
    EXPECT_GT(mark(1), 5);
    Key(Qt::Key_Escape);
    const auto number = [this] {
        const GridGeometry geometry = widget.Geometry();
        const GridBand* band = geometry.RowOf(51);
        return band ? Dark(Picture(), QRect(16, band->start + 2, geometry.RowHeaderWidth() - 18, band->size - 4)) : 0;
    };
    EXPECT_EQ(0, number());
    grid.EnableAppendRow(true);
    At(51, ExampleGrid::kName);
    EXPECT_GT(number(), 3);
}

TEST_F(GridDrawing, SelectedCellsAreTintedAndTheCurrentOneIsFramed) {
    Drag(Middle(2, ExampleGrid::kName), Middle(3, ExampleGrid::kMeasure));
    const QImage picture = Picture();
    EXPECT_EQ(Colors().base, Ground(picture, Cell(2, ExampleGrid::kName)));
    EXPECT_NE(Colors().base, Ground(picture, Cell(3, ExampleGrid::kMeasure)));
    EXPECT_EQ(Colors().base, Ground(picture, Cell(4, ExampleGrid::kMeasure)));
    const QRect current = widget.Geometry().CellRect(2, ExampleGrid::kName);
    EXPECT_GT(Of(picture, current, Colors().current), 2 * current.width());
}

TEST_F(GridDrawing, ACheckedBoxHasATick) {
    const QRect box = Cell(2, ExampleGrid::kCheck);
    const int empty = Dark(Picture(), box);
    EXPECT_GT(empty, 10);
    grid.SetDataRowCol(2, ExampleGrid::kCheck, 1);
    EXPECT_GT(Dark(Picture(), box), empty + 5);
}

TEST_F(GridDrawing, ANumberThatDoesNotFitIsNotCut) {
    grid.SetColWidth(ExampleGrid::kMeasure, 40);
    grid.SetDataRowCol(2, ExampleGrid::kMeasure, std::string_view("1111111"));
    grid.SetDataRowCol(3, ExampleGrid::kMeasure, std::string_view("2222222222"));
    widget.Refresh();
    const QImage picture = Picture();
    EXPECT_EQ(picture.copy(Cell(2, ExampleGrid::kMeasure)), picture.copy(Cell(3, ExampleGrid::kMeasure)));
}

TEST_F(GridDrawing, MergedCellsShowOneText) {
    ASSERT_TRUE(grid.SetCoveredCellsRowCol(2, ExampleGrid::kName, 4, ExampleGrid::kMeasure));
    const QImage picture = Picture();
    EXPECT_GT(Dark(picture, Cell(2, ExampleGrid::kName)) + Dark(picture, Cell(3, ExampleGrid::kName)), 20);
    EXPECT_EQ(0, Dark(picture, Cell(3, ExampleGrid::kMeasure)));
    EXPECT_EQ(Colors().base, picture.pixelColor(widget.Geometry().CellRect(3, ExampleGrid::kMeasure).topLeft()));
}

TEST_F(GridDrawing, HeaderGroupsLieOverTheirColumns) {
    grid.Header().SetRowCount(2);
    const std::vector<std::uint32_t> ids = {1, 2};
    ASSERT_TRUE(grid.Header().SetGroup(0, 0, ids, "Group"));
    widget.Refresh();
    const GridGeometry geometry = widget.Geometry();
    const QImage picture = Picture();
    const int edge = geometry.ColumnOf(2)->End() - 1;
    EXPECT_NE(Colors().headerLine, picture.pixelColor(edge, 3)) << "within the group";
    EXPECT_EQ(Colors().headerLine, picture.pixelColor(edge, geometry.HeaderRowTop(1) + 5)) << "beneath it";
}

TEST_F(GridDrawing, FollowsADarkPalette) {
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::WindowText, Qt::white);
    widget.setPalette(dark);
    grid.ApplyStyleOK(3, ExampleGrid::kName);
    const QImage picture = Picture();
    EXPECT_EQ(QColor(30, 30, 30), Ground(picture, Cell(2, ExampleGrid::kName)));
    const auto bright = [](const QColor& color) { return color.lightness() > 140; };
    EXPECT_GT(Count(picture, Cell(2, ExampleGrid::kName), bright), 20);
    EXPECT_GT(Count(picture, Cell(3, ExampleGrid::kName), bright), 5) << "pure blue cannot be read on black";
}

TEST_F(GridDrawing, LinesAreSharpAtAnyScale) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        QImage picture((QSizeF(widget.viewport()->size()) * scale).toSize(), QImage::Format_RGB32);
        picture.setDevicePixelRatio(scale);
        widget.viewport()->render(&picture);
        const QRect cell = widget.Geometry().CellRect(3, ExampleGrid::kMeasure);
        const int y = static_cast<int>((cell.top() + 2) * scale);
        std::vector<QColor> seen;
        for (int x = static_cast<int>((cell.right() - 3) * scale); x < static_cast<int>((cell.right() + 3) * scale);
             ++x) {
            const QColor color = picture.pixelColor(x, y);
            if (std::find(seen.begin(), seen.end(), color) == seen.end()) seen.push_back(color);
        }
        EXPECT_EQ(2u, seen.size()) << "ground and line, nothing between them, at " << scale;
    }
}

// ---- the cost of drawing

int AskedBy(int rows) {
    ExampleGrid grid(rows);
    GridWidget widget;
    widget.resize(640, 400);
    widget.SetGrid(&grid);
    widget.show();
    grid.SetCurrentCell(rows, ExampleGrid::kName);
    widget.Refresh();
    grid.asked = 0;
    widget.viewport()->grab();
    widget.ScrollBy(-rows / 2, 0);
    widget.viewport()->grab();
    return grid.asked;
}

TEST(GridDrawingCost, OnlyCellsInSightAreAskedFor) {
    const int few = AskedBy(1000);
    EXPECT_GT(few, 100);
    EXPECT_LT(few, 300);
    EXPECT_EQ(few, AskedBy(1000000));
}

TEST(GridDrawingCost, FittingAColumnLooksAtASample) {
    ExampleGrid grid(100000);
    GridWidget widget;
    widget.SetGrid(&grid);
    grid.asked = 0;
    widget.FitColumn(ExampleGrid::kName);
    EXPECT_GT(grid.asked, 10);
    EXPECT_LT(grid.asked, 1000);
}

}  // namespace
}  // namespace zt
