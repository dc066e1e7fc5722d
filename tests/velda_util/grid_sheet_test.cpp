#include "velda_util/export/grid_sheet.h"

#include "velda_util/sheet_support.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class GridSheetTest : public testing::Test {
protected:
    SheetCell Cell(std::uint32_t row, std::uint32_t col) const {
        SheetCell cell;
        cell.kind = SheetCell::Kind::Check;
        GridSheet(grid, "Sheet").ReadCell(row, col, cell);
        return cell;
    }
    /// A cell as a text that tells its kind: 'text', number, TRUE.
    std::string Told(std::uint32_t row, std::uint32_t col) const {
        const SheetCell cell = Cell(row, col);
        switch (cell.kind) {
            case SheetCell::Kind::Number: return std::to_string(cell.number);
            case SheetCell::Kind::Text: return "'" + cell.text + "'";
            case SheetCell::Kind::Check: return cell.checked ? "TRUE" : "FALSE";
            case SheetCell::Kind::Empty: break;
        }
        return "";
    }

    TextGrid grid;
};

TEST_F(GridSheetTest, GivesNumbersOfNumericColumnsAsNumbers) {
    grid.AddColumn("A");
    grid.AddRow({"1.25"});
    grid.AddRow({""});
    grid.AddRow({"none"});
    EXPECT_EQ(Told(1, 0), "1.250000");
    EXPECT_EQ(Told(2, 0), "");
    EXPECT_EQ(Told(3, 0), "'none'");
}

TEST_F(GridSheetTest, GivesTextsOfTextColumnsAsTexts) {
    grid.AddColumn("이름", ColumnType::String);
    grid.AddRow({"007"});
    grid.AddRow({"벽체"});
    grid.AddRow({"a\xFF"});
    EXPECT_EQ(Told(0, 0), "'이름'");
    EXPECT_EQ(Told(1, 0), "'007'");
    EXPECT_EQ(Told(2, 0), "'벽체'");
    EXPECT_EQ(Told(3, 0), "'a\xEF\xBF\xBD'");
}

TEST_F(GridSheetTest, ShowsPlacesOfTheFixedFormatAlone) {
    grid.AddColumn("A");
    grid.AddColumn("B");
    grid.StyleColumn(1, CGXStyle().SetFormat(NumberFormat::Fixed).SetPlaces(3));
    grid.StyleColumn(2, CGXStyle().SetFormat(NumberFormat::General).SetPlaces(3));
    grid.AddRow({"1.23456", "1.23456"});
    EXPECT_EQ(Cell(1, 0).look.places, 3);
    EXPECT_EQ(Cell(1, 0).number, 1.23456);
    EXPECT_EQ(Cell(1, 1).look.places, std::nullopt);
}

TEST_F(GridSheetTest, GivesTheNameOfAListedKeyAndTheStateOfACheckBox) {
    grid.AddColumn("List");
    grid.AddColumn("Check");
    grid.StyleColumn(1, CGXStyle()
                            .SetControl(ControlKind::TabbedDropDownList)
                            .SetChoiceList("1\tC24\n2\tC30")
                            .SetKeyColumn("0")
                            .SetTextColumn("1"));
    grid.StyleColumn(2, CGXStyle().SetControl(ControlKind::CheckBox));
    grid.AddRow({"2", "1"});
    grid.AddRow({"1", ""});
    EXPECT_EQ(Told(1, 0), "'C30'");
    EXPECT_EQ(Told(1, 1), "TRUE");
    EXPECT_EQ(Told(2, 1), "FALSE");
}

TEST_F(GridSheetTest, KeepsTheLookOfVerdicts) {
    grid.AddColumn("Verdict", ColumnType::String);
    grid.AddRow({"NG"});
    grid.AddRow({"OK"});
    grid.ApplyStyleNG(1, 1);
    grid.ApplyStyleOK(2, 1);
    EXPECT_TRUE(Cell(1, 0).look.bold);
    EXPECT_EQ(Cell(1, 0).look.textColor, 255u);
    EXPECT_FALSE(Cell(2, 0).look.bold);
    EXPECT_EQ(Cell(2, 0).look.textColor, 0xFF0000u);
}

TEST_F(GridSheetTest, HoldsTheShownColumnsInTheirOrder) {
    for (const char* title : {"A", "B", "C", "D"}) grid.AddColumn(title);
    grid.AddRow({"1", "2", "3", "4"});
    grid.SetColWidth(4, 123);
    grid.MoveColumn(4, 1);
    grid.SetColHidden(2, true);
    grid.SetFrozenCols(3);
    const GridSheet sheet(grid, "S");
    EXPECT_EQ(sheet.ColumnCount(), 3u);
    EXPECT_EQ(sheet.ColumnWidth(0), 123);
    EXPECT_EQ(sheet.FrozenColumnCount(), 2u) << "the hidden one of the three does not count";
    EXPECT_THAT((std::vector{Told(0, 0), Told(0, 1), Told(0, 2)}), ElementsAre("'D'", "'B'", "'C'"));
    EXPECT_EQ(Told(1, 0), "4.000000");
}

TEST_F(GridSheetTest, LeavesTheAppendRowOut) {
    grid.AddColumn("A");
    grid.AddRow({"1"});
    grid.AddRow({""});
    grid.SetAppendRow(true);
    EXPECT_EQ(GridSheet(grid, "S").RowCount(), 2u);
}

TEST_F(GridSheetTest, WithoutRowsHoldsTheHeader) {
    grid.AddColumn("A");
    EXPECT_EQ(GridSheet(grid, "S").RowCount(), 1u);
    EXPECT_EQ(Told(0, 0), "'A'");
}

TEST_F(GridSheetTest, MergesGroupsAndTallTitlesOfTheHeader) {
    grid.Header().SetRowCount(2);
    for (const char* title : {"Name", "Fx", "Fy"}) grid.AddColumn(title);
    const std::uint32_t group[] = {1, 2};
    ASSERT_TRUE(grid.Header().SetGroup(0, 0, group, "Force"));
    const GridSheet sheet(grid, "S");
    EXPECT_EQ(sheet.HeaderRowCount(), 2u);
    EXPECT_THAT(sheet.Merges(), UnorderedElementsAre(SheetMerge{0, 1, 0, 0}, SheetMerge{0, 0, 1, 2}));
    EXPECT_EQ(Told(0, 0), "'Name'");
    EXPECT_EQ(Told(1, 0), "");
    EXPECT_EQ(Told(0, 1), "'Force'");
    EXPECT_EQ(Told(0, 2), "");
    EXPECT_EQ(Told(1, 2), "'Fy'");
    EXPECT_TRUE(Cell(1, 0).look.isHeader);
}

TEST_F(GridSheetTest, MergesCellsOfShownColumns) {
    for (const char* title : {"A", "B", "C"}) grid.AddColumn(title);
    for (int row = 0; row < 3; ++row) grid.AddRow({"1", "2", "3"});
    grid.SetColHidden(1, true);
    ASSERT_TRUE(grid.SetCoveredCellsRowCol(1, 1, 2, 3));
    EXPECT_THAT(GridSheet(grid, "S").Merges(), ElementsAre(SheetMerge{1, 2, 0, 1}));
    EXPECT_EQ(Told(1, 0), "1.000000") << "the text of the first cell, whose column is hidden";
    EXPECT_EQ(Told(1, 1), "");
    EXPECT_EQ(Told(2, 0), "");
    EXPECT_EQ(Told(3, 0), "2.000000");
}

TEST_F(GridSheetTest, KeepsNoMergeThatIsHiddenOrOneCellWide) {
    for (const char* title : {"A", "B"}) grid.AddColumn(title);
    grid.AddRow({"1", "2"});
    grid.AddRow({"3", "4"});
    grid.SetAppendRow(true);
    ASSERT_TRUE(grid.SetCoveredCellsRowCol(1, 1, 1, 2));
    ASSERT_TRUE(grid.SetCoveredCellsRowCol(2, 1, 2, 2));
    grid.SetColHidden(2, true);
    EXPECT_THAT(GridSheet(grid, "S").Merges(), IsEmpty());
}

}  // namespace
}  // namespace velda
