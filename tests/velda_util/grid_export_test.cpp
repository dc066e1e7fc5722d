#include "velda_lib/language.h"
#include "velda_util/export/grid_export_to_excel.h"
#include "velda_util/preference_folder.h"
#include "velda_util/sheet_support.h"
#include "velda_util/zip_parts.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::Pair;
using testing::UnorderedElementsAre;

constexpr const char* kSheet1 = "xl/worksheets/sheet1.xml";
constexpr const char* kMark = "\xEF\xBB\xBF";

class GridExportTest : public PreferenceFolderTest {
protected:
    GridExportTest() : xlsx(folder / "table.xlsx"), csv(folder / "table.csv") {}

    void AddMade(std::uint32_t rows, std::uint32_t columns, MadeSheet::Make make = nullptr) {
        exporter.AddSheet(std::make_unique<MadeSheet>("Made", rows, columns, std::move(make)));
    }
    std::string Part(const std::string& name) { return ZipParts(xlsx).at(name); }

    std::filesystem::path xlsx;
    std::filesystem::path csv;
    TextGrid grid;
    CGridExportToExcel exporter;
};

/// A sheet of one cell with a text.
MadeSheet::Make OneText(const std::string& text) {
    return [text](std::uint32_t, std::uint32_t, SheetCell& cell) {
        cell.kind = text.empty() ? SheetCell::Kind::Empty : SheetCell::Kind::Text;
        cell.text = text;
    };
}

// ---- xlsx

TEST_F(GridExportTest, WritesTypedCellsWithFormats) {
    grid.AddColumn("이름", ColumnType::String);
    grid.AddColumn("두께 (mm)");
    grid.AddColumn("Check");
    grid.StyleColumn(2, CGXStyle().SetFormat(NumberFormat::Fixed).SetPlaces(3));
    grid.StyleColumn(3, CGXStyle().SetControl(ControlKind::CheckBox));
    grid.AddRow({"007", "200.5", "1"});
    grid.ApplyStyleNG(1, 1);
    exporter.AddGrid(grid, "두께");
    ASSERT_TRUE(exporter.Export(xlsx));
    const std::string sheet = Part(kSheet1);
    EXPECT_THAT(sheet, HasSubstr("<t>이름</t>"));
    EXPECT_THAT(sheet, HasSubstr("t=\"inlineStr\"><is><t>007</t>"));
    EXPECT_THAT(sheet, HasSubstr("<v>200.5</v>"));
    EXPECT_THAT(sheet, HasSubstr("t=\"b\"><v>1</v>"));
    EXPECT_THAT(Part("xl/workbook.xml"), HasSubstr("name=\"두께\""));
    EXPECT_THAT(Part("xl/styles.xml"), HasSubstr("formatCode=\"0.000\""));
    EXPECT_THAT(Part("xl/styles.xml"), HasSubstr("rgb=\"FFFF0000\"")) << "red of the verdict";
}

TEST_F(GridExportTest, WritesMergesFrozenPanesAndWidths) {
    grid.Header().SetRowCount(2);
    for (const char* title : {"Name", "Fx", "Fy"}) grid.AddColumn(title);
    const std::uint32_t group[] = {1, 2};
    ASSERT_TRUE(grid.Header().SetGroup(0, 0, group, "Force"));
    for (int row = 0; row < 3; ++row) grid.AddRow({"1", "2", "3"});
    ASSERT_TRUE(grid.SetCoveredCellsRowCol(1, 2, 3, 3));
    grid.SetFrozenCols(1);
    grid.SetColWidth(1, 145);
    exporter.AddGrid(grid, "Forces");
    ASSERT_TRUE(exporter.Export(xlsx));
    const std::string sheet = Part(kSheet1);
    EXPECT_THAT(sheet, HasSubstr("<mergeCells count=\"3\">"));
    for (const char* merge : {"\"A1:A2\"", "\"B1:C1\"", "\"B3:C5\""}) EXPECT_THAT(sheet, HasSubstr(merge));
    EXPECT_THAT(sheet, HasSubstr("<pane xSplit=\"1\" ySplit=\"2\""));
    EXPECT_THAT(sheet, HasSubstr("<col min=\"1\" max=\"1\" width=\"20"));
    EXPECT_THAT(sheet, HasSubstr("r=\"A5\"")) << "cells below the first row of a merge";
}

TEST_F(GridExportTest, WritesASheetForEachTable) {
    grid.AddColumn("A");
    exporter.AddGrid(grid, "One/Two");
    exporter.AddGrid(grid, "one_two");
    ASSERT_TRUE(exporter.Export(xlsx));
    EXPECT_THAT(Part("xl/workbook.xml"), HasSubstr("name=\"One_Two\""));
    EXPECT_THAT(Part("xl/workbook.xml"), HasSubstr("name=\"one_two (2)\""));
    EXPECT_THAT(Part("xl/worksheets/sheet2.xml"), HasSubstr("<t>A</t>"));
}

TEST_F(GridExportTest, WritesATableWithoutRowsOrColumns) {
    exporter.AddGrid(grid, "Empty");
    ASSERT_TRUE(exporter.Export(xlsx));
    EXPECT_THAT(ZipParts(xlsx), Contains(Pair(kSheet1, HasSubstr("<sheetData/>"))));
}

TEST_F(GridExportTest, WritesAHundredThousandRows) {
    AddMade(100'001, 3);
    ASSERT_TRUE(exporter.Export(xlsx));
    const std::string sheet = Part(kSheet1);
    EXPECT_THAT(sheet, HasSubstr("<dimension ref=\"A1:C100001\"/>"));
    EXPECT_THAT(sheet, HasSubstr("<c r=\"C100001\"><v>10000002</v></c></row></sheetData>"));
}

TEST_F(GridExportTest, KeepsSpecialCharactersInTexts) {
    AddMade(1, 1, OneText("a<b>&\"c\"\n\x01"));
    ASSERT_TRUE(exporter.Export(xlsx));
    EXPECT_THAT(Part(kSheet1), HasSubstr("a&lt;b&gt;&amp;\"c\"\n_x0001_"));
}

TEST_F(GridExportTest, NeverWritesATextAsAFormula) {
    AddMade(1, 1, OneText("=1+1"));
    ASSERT_TRUE(exporter.Export(xlsx));
    EXPECT_THAT(Part(kSheet1), HasSubstr("<t>=1+1</t>"));
    EXPECT_THAT(Part(kSheet1), Not(HasSubstr("<f>")));
}

TEST_F(GridExportTest, TakesTheLargestSheetColumnsAndRefusesMore) {
    AddMade(1, 16'384);
    EXPECT_TRUE(exporter.Export(xlsx));
    CGridExportToExcel wide;
    wide.AddSheet(std::make_unique<MadeSheet>("Wide", 1, 16'385));
    const Outcome refused = wide.Export(folder / "wide.xlsx");
    EXPECT_FALSE(refused);
    EXPECT_THAT(refused.Reason(), HasSubstr("16384"));
    EXPECT_THAT(refused.Reason(), HasSubstr("wide.xlsx"));
    EXPECT_THAT(FileNames(), UnorderedElementsAre("table.xlsx"));
}

TEST_F(GridExportTest, RefusesMoreRowsThanASheetHolds) {
    AddMade(1'048'577, 1);
    const Outcome refused = exporter.Export(xlsx);
    EXPECT_FALSE(refused);
    EXPECT_THAT(refused.Reason(), HasSubstr("1048576"));
    EXPECT_THAT(FileNames(), ElementsAre());
}

TEST_F(GridExportTest, RefusesATextThatNoCellHolds) {
    AddMade(1, 1, OneText(std::string(32'768, 'a')));
    const Outcome refused = exporter.Export(xlsx);
    EXPECT_FALSE(refused);
    EXPECT_THAT(refused.Reason(), HasSubstr("32767"));
    EXPECT_THAT(FileNames(), ElementsAre());
}

// ---- CSV

TEST_F(GridExportTest, WritesCsvWithFullDigitsAndQuotes) {
    grid.AddColumn("이름", ColumnType::String);
    grid.AddColumn("B, C");
    grid.StyleColumn(2, CGXStyle().SetFormat(NumberFormat::Fixed).SetPlaces(1));
    grid.AddRow({"say \"a\"", "0.123456789012345"});
    grid.AddRow({"two\nlines", "-1e+20"});
    exporter.AddGrid(grid, "T");
    ASSERT_TRUE(exporter.Export(csv));
    EXPECT_EQ(Content(csv),
              std::string(kMark) + "이름,\"B, C\"\r\n\"say \"\"a\"\"\",0.123456789012345\r\n\"two\nlines\",-1e+20\r\n");
}

TEST_F(GridExportTest, QuotesTextsThatReadAsNumbersOrFormulas) {
    const std::pair<const char*, const char*> texts[] = {
        {"007", "\"007\""}, {"=A1", "\"=A1\""}, {"+1", "\"+1\""}, {"-a", "\"-a\""},
        {"@x", "\"@x\""},   {" a", "\" a\""},   {"a=1", "a=1"},   {"", ""},
    };
    for (const auto& [text, written] : texts) {
        CGridExportToExcel one;
        one.SetByteOrderMark(false);
        one.AddSheet(std::make_unique<MadeSheet>("T", 1, 1, OneText(text)));
        ASSERT_TRUE(one.Export(csv));
        EXPECT_EQ(Content(csv), std::string(written) + "\r\n") << text;
    }
}

TEST_F(GridExportTest, WritesCheckBoxesToCsvAsWords) {
    grid.AddColumn("A");
    grid.StyleColumn(1, CGXStyle().SetControl(ControlKind::CheckBox));
    grid.AddRow({"1"});
    grid.AddRow({"0"});
    exporter.AddGrid(grid, "T");
    exporter.SetByteOrderMark(false);
    ASSERT_TRUE(exporter.Export(csv));
    EXPECT_EQ(Content(csv), "A\r\nTRUE\r\nFALSE\r\n");
}

TEST_F(GridExportTest, WritesSeveralTablesToCsvBelowTheirNames) {
    AddMade(1, 2);
    AddMade(1, 1);
    exporter.SetByteOrderMark(false);
    ASSERT_TRUE(exporter.Export(csv));
    EXPECT_EQ(Content(csv), "Made\r\n0,1\r\n\r\nMade (2)\r\n0\r\n");
}

TEST_F(GridExportTest, WritesMoreRowsToCsvThanASheetHolds) {
    AddMade(1'048'577, 1);
    EXPECT_TRUE(exporter.Export(csv));
}

// ---- whole or not at all

TEST_F(GridExportTest, TellsItsProgressUpToTheEnd) {
    AddMade(2500, 1);
    std::vector<std::pair<std::uint64_t, std::uint64_t>> told;
    exporter.SetProgress([&](std::uint64_t done, std::uint64_t total) {
        told.emplace_back(done, total);
        return true;
    });
    ASSERT_TRUE(exporter.Export(xlsx));
    EXPECT_THAT(told, ElementsAre(Pair(1000, 2500), Pair(2000, 2500), Pair(2500, 2500)));
    EXPECT_FALSE(exporter.WasStopped());
}

TEST_F(GridExportTest, StoppedLeavesNoFile) {
    for (const std::uint64_t last : {1000u, 2500u}) {
        for (const auto& file : {xlsx, csv}) {
            CGridExportToExcel stopped;
            stopped.AddSheet(std::make_unique<MadeSheet>("Made", 2500, 2));
            stopped.SetProgress([&](std::uint64_t done, std::uint64_t) { return done != last; });
            EXPECT_FALSE(stopped.Export(file));
            EXPECT_TRUE(stopped.WasStopped());
            EXPECT_THAT(FileNames(), ElementsAre());
        }
    }
}

TEST_F(GridExportTest, StoppedKeepsTheFileThatWasThere) {
    Fill(xlsx, "before");
    AddMade(2500, 1);
    exporter.SetProgress([](std::uint64_t, std::uint64_t) { return false; });
    EXPECT_FALSE(exporter.Export(xlsx));
    EXPECT_EQ(Content(xlsx), "before");
    EXPECT_THAT(FileNames(), UnorderedElementsAre("table.xlsx"));
}

TEST_F(GridExportTest, ReplacesTheFileThatWasThere) {
    Fill(csv, "before");
    AddMade(1, 1);
    exporter.SetByteOrderMark(false);
    EXPECT_TRUE(exporter.Export(csv));
    EXPECT_EQ(Content(csv), "0\r\n");
    EXPECT_THAT(FileNames(), UnorderedElementsAre("table.csv"));
}

TEST_F(GridExportTest, AfterAStopCanBeDoneAgain) {
    AddMade(2500, 1);
    exporter.SetProgress([](std::uint64_t, std::uint64_t) { return false; });
    EXPECT_FALSE(exporter.Export(csv));
    exporter.SetProgress(nullptr);
    EXPECT_TRUE(exporter.Export(csv));
    EXPECT_FALSE(exporter.WasStopped());
}

TEST_F(GridExportTest, RefusesAFolderThatCannotBeWrittenNamingThePath) {
    AddMade(1, 1);
    const std::filesystem::path missing = folder / "missing" / "table.xlsx";
    EXPECT_THAT(exporter.Export(missing).Reason(), HasSubstr(missing.string()));
    WriteProtect(folder);
    const WithoutPrivileges user;
    EXPECT_THAT(exporter.Export(xlsx).Reason(), HasSubstr(xlsx.string()));
    EXPECT_THAT(exporter.Export(csv).Reason(), HasSubstr(csv.string()));
}

TEST_F(GridExportTest, RefusesAFolderInPlaceOfTheFile) {
    std::filesystem::create_directory(xlsx);
    AddMade(1, 1);
    EXPECT_THAT(exporter.Export(xlsx).Reason(), HasSubstr(xlsx.string()));
    EXPECT_THAT(FileNames(), UnorderedElementsAre("table.xlsx"));
}

TEST_F(GridExportTest, RefusesAFormatThatItDoesNotKnow) {
    AddMade(1, 1);
    for (const char* name : {"table", "table.xls", "xlsx", ".csv", "table.csv.bak"}) {
        EXPECT_THAT(exporter.Export(folder / name).Reason(), HasSubstr(name));
    }
    EXPECT_TRUE(exporter.Export(folder / "TABLE.CSV"));
    EXPECT_THAT(FileNames(), UnorderedElementsAre("TABLE.CSV"));
}

TEST_F(GridExportTest, RefusesAnExportOfNothing) {
    EXPECT_FALSE(exporter.Export(xlsx));
    EXPECT_THAT(FileNames(), ElementsAre());
}

TEST_F(GridExportTest, RefusesInTheLanguageOfTheUser) {
    SetCurrentLanguage(Language::Korean);
    EXPECT_THAT(exporter.Export(xlsx).Reason(), HasSubstr("내보낼 테이블이 없습니다"));
    SetCurrentLanguage(Language::English);
}

}  // namespace
}  // namespace velda
