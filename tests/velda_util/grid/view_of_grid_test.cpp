#include "velda_base/host/headless_host.h"
#include "velda_util/grid/table_dialogs.h"
#include "velda_util/support/plate_table.h"
#include <gmock/gmock.h>

namespace velda {
namespace {

using testing::ElementsAre;

/// Each character is ten pixels wide.
class RulerHost : public GridHost {
public:
    double TextWidth(std::string_view text, double, bool) const override {
        return 10.0 * static_cast<double>(text.size());
    }
    void OnSetFocus() override { ++focuses; }

    int focuses = 0;
};

class ViewOfGrid : public PlateTableTest {
protected:
    ViewOfGrid() { table.SetHost(&ruler); }
    int WidthOf(PlateTable::Column column) { return table.GetColWidth(table.Col(column)); }

    HeadlessHost app;
    UseHost use{app};
    RulerHost ruler;
};

// ---- widths

TEST_F(ViewOfGrid, AColumnFitsItsLongestTextOrItsTitle) {
    table.SetValueRange(2, table.Col(PlateTable::Name), "A very long name");
    table.ResizeColWidthsToFitSmart(100);
    EXPECT_EQ(WidthOf(PlateTable::Name), 16 * 10 + 10);
    EXPECT_EQ(WidthOf(PlateTable::Number), 6 * 10 + 10) << "the title is the longest text";
}

TEST_F(ViewOfGrid, OnlySampledRowsCount) {
    table.SetValueRange(3, table.Col(PlateTable::Name), "A very long name");
    table.ResizeColWidthsToFitSmart(1);
    EXPECT_EQ(WidthOf(PlateTable::Name), 4 * 10 + 10);
    table.ResizeColWidthsToFitSmart(-5);
    EXPECT_EQ(WidthOf(PlateTable::Name), 4 * 10 + 10);
}

TEST_F(ViewOfGrid, HiddenColumnsKeepTheirWidth) {
    const int before = WidthOf(PlateTable::Key);
    table.ResizeColWidthsToFitSmart(100);
    EXPECT_EQ(WidthOf(PlateTable::Key), before);
}

TEST_F(ViewOfGrid, AHugeTextDoesNotMakeAHugeColumn) {
    table.SetValueRange(1, table.Col(PlateTable::Note), std::string(1000000, 'x'));
    table.ResizeColWidthsToFitSmart(100);
    EXPECT_EQ(WidthOf(PlateTable::Note), ColumnList::kLargestWidth);
}

TEST(TextMeasure, WideAndBoldTextsAreWider) {
    EXPECT_EQ(UsualTextWidth("", 10.0, false), 0.0);
    EXPECT_GT(UsualTextWidth("두께", 10.0, false), UsualTextWidth("ab", 10.0, false));
    EXPECT_GT(UsualTextWidth("ab", 10.0, true), UsualTextWidth("ab", 10.0, false));
    EXPECT_DOUBLE_EQ(UsualTextWidth("ab", 20.0, false), 2.0 * UsualTextWidth("ab", 10.0, false));
}

// ---- places in the window

TEST_F(ViewOfGrid, EveryShownCellIsFoundAtItsMiddle) {
    for (int row = 0; row <= table.RowCount(); ++row) {
        for (int col = 1; col <= table.GetColCount(); ++col) {
            const auto middle = table.CellMiddle({row, col});
            EXPECT_EQ(middle.has_value(), !table.IsColumnHidden(col));
            if (!middle) continue;
            EXPECT_EQ(table.HitTest(*middle), (GridPosition{row, col}));
        }
    }
}

TEST_F(ViewOfGrid, NoCellIsFoundOutsideOfTheTable) {
    EXPECT_EQ(table.HitTest({-1, 5}), std::nullopt);
    EXPECT_EQ(table.HitTest({5, -1}), std::nullopt);
    EXPECT_EQ(table.HitTest({100000, 5}), std::nullopt);
    EXPECT_EQ(table.HitTest({5, 100000}), std::nullopt);
    EXPECT_EQ(table.CellMiddle({99, 2}), std::nullopt);
    EXPECT_EQ(table.CellMiddle({1, 0}), std::nullopt);
}

TEST_F(ViewOfGrid, ScrollingMovesAllButTheHeaderAndTheFrozenColumns) {
    table.SetFrozenCols(table.Col(PlateTable::Number));
    const auto frozen = table.CellMiddle({0, table.Col(PlateTable::Number)});
    table.SetTopLeft({2, table.Col(PlateTable::Thickness)});
    EXPECT_EQ(table.CellMiddle({0, table.Col(PlateTable::Number)}), frozen);
    EXPECT_EQ(table.CellMiddle({1, table.Col(PlateTable::Thickness)}), std::nullopt);
    EXPECT_EQ(table.CellMiddle({2, table.Col(PlateTable::Name)}), std::nullopt);
    const auto first = table.CellMiddle({2, table.Col(PlateTable::Thickness)});
    ASSERT_TRUE(first);
    EXPECT_EQ(table.HitTest(*first), (GridPosition{2, table.Col(PlateTable::Thickness)}));
}

TEST_F(ViewOfGrid, TheFirstCellStaysInTheTable) {
    table.SetTopLeft({99, 99});
    EXPECT_EQ(table.TopLeft(), (GridPosition{table.RowCount(), table.GetColCount()}));
    table.SetTopLeft({-1, 0});
    EXPECT_EQ(table.TopLeft(), (GridPosition{1, 1}));
}

TEST_F(ViewOfGrid, TheLockedKeyColumnStaysInView) {
    table.MoveColumn(1, 3);
    table.SetTopLeft({2, 4});
    table.SetColLocked(2, true);
    EXPECT_EQ(table.Columns().Frozen(), 2);
    table.SetColLocked(2, false);
    EXPECT_EQ(table.Columns().Frozen(), 0);
    EXPECT_EQ(table.TopLeft(), (GridPosition{2, 1}));
    table.SetColLocked(3, true);
    EXPECT_EQ(table.Columns().Frozen(), 0) << "another column is not frozen";
}

TEST_F(ViewOfGrid, TheFocusIsTheBusinessOfTheWindow) {
    table.SetFocus();
    EXPECT_EQ(ruler.focuses, 1);
}

// ---- pastes

class PickyTable : public PlateTable {
public:
    using PlateTable::PlateTable;
    void InitBrowserSettings() override { ++initialised; }
    bool OnPasteFromClipboard(const CGXRange& range) override {
        pastedAt = range;
        return takes;
    }

    int initialised = 0;
    bool takes = false;
    CGXRange pastedAt;
};

TEST_F(ViewOfGrid, ATableMayKeepAPasteOut) {
    PickyTable picky(db);
    picky.Initialize();
    EXPECT_EQ(picky.initialised, 1);
    picky.MakeItemEx(nullptr, -2, 0);
    ASSERT_TRUE(picky.SetCurrentCell(1, picky.Col(PlateTable::Name)));
    app.clipboard.SetText("New\n");
    EXPECT_TRUE(picky.CanPaste());
    EXPECT_FALSE(picky.Paste());
    EXPECT_EQ(picky.pastedAt.Top(), 1u);
    EXPECT_EQ(picky.pastedAt.Left(), static_cast<std::uint32_t>(picky.Col(PlateTable::Name)));
    EXPECT_EQ(db.plates.at(1).name, "A");
    picky.takes = true;
    EXPECT_TRUE(picky.Paste());
    EXPECT_EQ(db.plates.at(1).name, "New");
    picky.LockEditMode(true);
    EXPECT_FALSE(picky.CanPaste());
}

// ---- dialogs

TEST_F(ViewOfGrid, TheSortDialogBeginsWithTheOrderAndSortsOnOK) {
    app.dialogs.users.push_back([](ModalDialog& dialog) {
        auto& sort = dynamic_cast<CTBSortDlg&>(dialog);
        EXPECT_EQ(sort.items, (std::vector<STBSortItem>{{PlateTable::Number, 0, 0}}));
        EXPECT_EQ(sort.Columns().front(), PlateTable::Number) << "the key column is hidden";
        sort.items = {{PlateTable::Number, 0, 1}};
        return true;
    });
    EXPECT_TRUE(table.ShowSortDlg());
    EXPECT_THAT(table.ShownKeys(), ElementsAre(3, 2, 1));
    EXPECT_FALSE(table.ShowSortDlg()) << "cancelled";
}

TEST_F(ViewOfGrid, ColoursChangeOnOKAlone) {
    const STBColorSet before = CTBGrid::m_Color;
    const auto paint = [](bool ok) {
        return [ok](ModalDialog& dialog) {
            dynamic_cast<CTBColorDlg&>(dialog).colors.text = 77;
            return ok;
        };
    };
    app.dialogs.users = {paint(false), paint(true)};
    EXPECT_FALSE(CTBGrid::ShowColorDlg());
    EXPECT_EQ(CTBGrid::m_Color, before);
    EXPECT_TRUE(CTBGrid::ShowColorDlg());
    EXPECT_EQ(CTBGrid::m_Color.text, 77u);
    CTBGrid::m_Color = before;
}

TEST_F(ViewOfGrid, TheStyleDialogChangesColumnsAndKeepsTheRows) {
    TableRegistry::OfProcess().UseFile(PreferenceFile(std::filesystem::path()));
    CTBStyleCtrlEx control;
    EXPECT_FALSE(control.ShowStyleDlg()) << "it has no table";
    control.Initialize(table);
    app.dialogs.users.push_back([](ModalDialog& dialog) {
        dynamic_cast<CTBStyleDlg&>(dialog).items.at(PlateTable::Name).columnWidth = 321;
        return true;
    });
    EXPECT_TRUE(control.ShowStyleDlg());
    EXPECT_EQ(WidthOf(PlateTable::Name), 321);
    EXPECT_EQ(table.RecordRowCount(), 3);
    app.dialogs.users.push_back([](ModalDialog& dialog) {
        dynamic_cast<CTBStyleDlg&>(dialog).items.clear();
        return true;
    });
    EXPECT_FALSE(control.ShowStyleDlg()) << "items that do not fit the table";
    EXPECT_EQ(WidthOf(PlateTable::Name), 321);
    TableRegistry::OfProcess().UseFile(PreferenceFile());
}

TEST_F(PlateTableTest, APrintTakesTheHeadingsAndTheMeasuresOfItsJob) {
    PrintJob job;
    job.title = "Plates";
    job.headings = {"Model", ""};
    job.fontSize = 8.0;
    int measured = 0;
    job.textWidth = [&](std::string_view, double size, bool) {
        ++measured;
        return size;
    };
    table.OnGridBeginPrinting(job);
    ASSERT_NE(table.PrintedPages(), nullptr);
    const PrintedPage page = table.PrintedPages()->Page(1);
    ASSERT_EQ(page.titles.size(), 3u);
    EXPECT_EQ(page.titles[0].text, "Plates");
    EXPECT_EQ(page.titles[1].text, "Model");
    EXPECT_GT(measured, 0);
    EXPECT_EQ(job.pages, 1);
}

}  // namespace
}  // namespace velda
