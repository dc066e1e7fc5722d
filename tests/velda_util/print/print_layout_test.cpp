#include "velda_util/print/print_layout.h"

#include <set>

#include "velda_base/host/headless_host.h"
#include "velda_util/support/plate_table.h"
#include <gmock/gmock.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PrintLayoutTest : public PlateTableTest {
protected:
    PrintLayoutTest() {
        settings.paper = {220.0, 200.0};
        settings.margins = {10, 10, 10, 10};
        settings.fontSize = 8.0;
        settings.pointsPerPixel = 1.0;
        settings.textWidth = [](std::string_view text, double size, bool) {
            return size * static_cast<double>(text.size());
        };
        for (int col = 1; col <= table.GetColCount(); ++col) table.SetColWidth(col, 50);
    }
    void Fill(std::uint32_t count) {
        for (std::uint32_t key = 100; key < 100 + count; ++key) db.Put(key, {key, "P", 0.1, 1, false, ""});
    }
    static std::vector<int> Indices(const std::vector<PrintedBand>& bands) {
        std::vector<int> indices;
        for (const PrintedBand& band : bands) indices.push_back(band.index);
        return indices;
    }

    PrintSettings settings;
};

TEST_F(PrintLayoutTest, EveryCellIsPrintedOnceAndNothingHidden) {
    Fill(20);
    const PrintLayout layout(table, settings);
    std::multiset<std::pair<int, int>> cells;
    for (int number = 1; number <= layout.PageCount(); ++number) {
        const PrintedPage page = layout.Page(number);
        for (const PrintedBand& row : page.rows) {
            if (row.index == 0) continue;
            for (const PrintedBand& col : page.columns) cells.insert({row.index, col.index});
        }
    }
    EXPECT_GT(layout.PageCount(), 4);
    EXPECT_EQ(cells.size(), 23u * static_cast<std::size_t>(PlateTable::ColumnCount - 1)) << "without the append row";
    EXPECT_EQ(std::set(cells.begin(), cells.end()).size(), cells.size());
    EXPECT_EQ(cells.count({1, table.Col(PlateTable::Key)}), 0u);
}

TEST_F(PrintLayoutTest, TheHeaderStandsOnEveryPage) {
    Fill(20);
    const PrintLayout layout(table, settings);
    for (int number = 1; number <= layout.PageCount(); ++number) {
        EXPECT_EQ(layout.Page(number).rows.front().index, 0);
        EXPECT_DOUBLE_EQ(layout.Page(number).rows.front().at, 10.0);
    }
}

TEST_F(PrintLayoutTest, RowsComeFirstThenTheNextColumns) {
    Fill(20);
    const PrintLayout layout(table, settings);
    EXPECT_EQ(Indices(layout.Page(1).columns), Indices(layout.Page(2).columns));
    EXPECT_EQ(layout.Page(2).rows[1].index, layout.Page(1).rows.back().index + 1);
    EXPECT_EQ(Indices(layout.Page(1).columns), (std::vector<int>{2, 3, 4, 5}));
    EXPECT_EQ(Indices(layout.Page(layout.PageCount()).columns), (std::vector<int>{6, 7, 8, 9}));
}

TEST_F(PrintLayoutTest, FrozenColumnsStandOnEveryPage) {
    table.SetFrozenCols(2);
    const PrintLayout layout(table, settings);
    ASSERT_EQ(layout.PageCount(), 3);
    EXPECT_THAT(Indices(layout.Page(1).columns), ElementsAre(2, 3, 4, 5));
    EXPECT_THAT(Indices(layout.Page(2).columns), ElementsAre(2, 6, 7, 8));
    EXPECT_THAT(Indices(layout.Page(3).columns), ElementsAre(2, 9));
}

TEST_F(PrintLayoutTest, FrozenColumnsWithoutRoomForOthersArePrintedOnce) {
    table.SetFrozenCols(2);
    table.SetColWidth(2, 180);
    const PrintLayout layout(table, settings);
    EXPECT_THAT(Indices(layout.Page(1).columns), ElementsAre(2));
    EXPECT_THAT(Indices(layout.Page(2).columns), ElementsAre(3, 4, 5, 6));
}

TEST_F(PrintLayoutTest, WhatIsLargerThanThePageIsCutOff) {
    table.SetColWidth(3, 1000);
    table.SetRowHeight(2, 1000);
    const PrintLayout layout(table, settings);
    for (int number = 1; number <= layout.PageCount(); ++number) {
        const PrintedPage page = layout.Page(number);
        EXPECT_LE(page.columns.back().at + page.columns.back().size, 210.0);
        EXPECT_LE(page.rows.back().at + page.rows.back().size, 190.0);
    }
}

TEST_F(PrintLayoutTest, AnEmptyTableHasOneRowOfPages) {
    db.Delete({1, 2, 3});
    const PrintLayout layout(table, settings);
    EXPECT_EQ(layout.PageCount(), 2);
    EXPECT_THAT(Indices(layout.Page(1).rows), ElementsAre(0));
}

TEST_F(PrintLayoutTest, ATableWithoutColumnsStillHasAPage) {
    for (int col = 1; col <= table.GetColCount(); ++col) table.SetColHidden(col, true);
    const PrintLayout layout(table, settings);
    EXPECT_EQ(layout.PageCount(), 1);
    EXPECT_THAT(layout.Page(1).columns, IsEmpty());
}

TEST_F(PrintLayoutTest, PaperSmallerThanItsMarginsStillEnds) {
    settings.paper = {5.0, 5.0};
    const PrintLayout layout(table, settings);
    EXPECT_GE(layout.PageCount(), 3);
    EXPECT_EQ(layout.Page(1).columns.front().size, 0.0);
}

TEST_F(PrintLayoutTest, PagesAreNumberedAtTheLowerRight) {
    Fill(20);
    const PrintLayout layout(table, settings);
    const PrintedText number = layout.Page(2).pageNumber;
    EXPECT_EQ(number.text, "2 / " + std::to_string(layout.PageCount()));
    EXPECT_DOUBLE_EQ(number.x, 210.0 - 8.0 * static_cast<double>(number.text.size()));
    EXPECT_DOUBLE_EQ(number.y, 190.0 - layout.LineHeight());
    EXPECT_THROW(layout.Page(0), std::invalid_argument);
    EXPECT_THROW(layout.Page(layout.PageCount() + 1), std::invalid_argument);
}

TEST_F(PrintLayoutTest, TheTitleBlockStandsAboveTheTable) {
    settings.titles = {"Tower", "Thickness"};
    const PrintLayout layout(table, settings);
    const PrintedPage page = layout.Page(1);
    ASSERT_EQ(page.titles.size(), 2u);
    EXPECT_EQ(page.titles[1].text, "Thickness");
    EXPECT_DOUBLE_EQ(page.titles[1].y, 10.0 + layout.LineHeight());
    EXPECT_DOUBLE_EQ(page.rows.front().at, 10.0 + 2.0 * layout.LineHeight());
}

TEST_F(PrintLayoutTest, AWrappedTextMakesItsRowHigher) {
    table.SetStyleRange(CGXRange().SetCols(static_cast<std::uint32_t>(table.Col(PlateTable::Note))),
                        CGXStyle().SetWrapText(true));
    table.SetValueRange(1, table.Col(PlateTable::Note), "twenty letters long!");
    const PrintedPage page = PrintLayout(table, settings).Page(1);
    EXPECT_DOUBLE_EQ(page.rows[1].size, 40.0) << "160 points in columns of 50";
    EXPECT_DOUBLE_EQ(page.rows[2].size, 20.0);
}

}  // namespace
}  // namespace velda
