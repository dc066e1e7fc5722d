#include <string>

#include "zt_db/exchange/exchange_files.h"

namespace zt {
namespace {

namespace fs = std::filesystem;

/// Files that are damaged, too large, or made to harm: each is refused with a reason, and the model stays empty.
class HostileFile : public ExchangeTest {
protected:
    std::string Path() const { return folder.File("book.xlsx"); }
    void ExpectRefused(const fs::path& source, const std::string& key, const std::string& sheet = "",
                       std::uint32_t row = 0, const std::string& column = "") {
        EXPECT_FALSE(Import(source));
        EXPECT_TRUE(Found(FindingLevel::Error, key, sheet, row, column)) << report.Text();
        EXPECT_TRUE(ModelIsEmpty());
    }
    void ExpectSheetsRefused(const std::vector<TestSheet>& sheets, const std::string& key, const std::string& sheet,
                             std::uint32_t row = 0, const std::string& column = "") {
        WriteWorkbook(Path(), sheets);
        ExpectRefused(Path(), key, sheet, row, column);
    }
    /// A workbook whose sheet of nodes has this XML.
    void WriteNodesXml(const std::string& xml) {
        WriteZip(Path(), WorkbookParts({{"StructuralPointConnection", xml}}));
    }
};

TEST_F(HostileFile, ThatDoesNotExist) { ExpectRefused(folder.File("none.xlsx"), "IDS_XCH_WORKBOOK_REFUSED"); }

TEST_F(HostileFile, ThatIsNoZip) {
    WriteText(Path(), "Name;Coordinate X\nN1;0\n");
    ExpectRefused(Path(), "IDS_XCH_WORKBOOK_REFUSED");
}

TEST_F(HostileFile, ThatIsEmpty) {
    WriteText(Path(), "");
    ExpectRefused(Path(), "IDS_XCH_WORKBOOK_REFUSED");
}

TEST_F(HostileFile, ThatIsAZipOfSomethingElse) {
    WriteZip(Path(), {{"readme.txt", "hello"}});
    ExpectRefused(Path(), "IDS_XCH_WORKBOOK_REFUSED");
}

TEST_F(HostileFile, ThatEndsTooSoon) {
    WriteWorkbook(Path(), FrameSheets());
    fs::resize_file(Path(), fs::file_size(Path()) / 2);
    ExpectRefused(Path(), "IDS_XCH_WORKBOOK_REFUSED");
}

TEST_F(HostileFile, WhoseSheetHasNoPart) {
    auto parts = WorkbookParts({{"StructuralPointConnection", "<worksheet/>"}});
    parts.erase(parts.begin());
    WriteZip(Path(), parts);
    ExpectRefused(Path(), "IDS_XCH_WORKBOOK_REFUSED");
}

TEST_F(HostileFile, WithoutNodes) {
    std::vector<TestSheet> sheets = FrameSheets();
    sheets.erase(sheets.begin() + 4);
    ExpectSheetsRefused(sheets, "IDS_XCH_NO_SHEET", "");
}

TEST_F(HostileFile, WhoseXmlIsDamaged) {
    WriteNodesXml("<worksheet><sheetData><row><c></row></sheetData></worksheet>");
    ExpectRefused(Path(), "IDS_XCH_SHEET_REFUSED", "StructuralPointConnection");
}

TEST_F(HostileFile, WithADocumentTypeAndEntities) {
    WriteNodesXml(
        "<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]>"
        "<worksheet><sheetData><row><c t=\"inlineStr\"><is><t>&b;</t></is></c></row></sheetData></worksheet>");
    ExpectRefused(Path(), "IDS_XCH_SHEET_REFUSED", "StructuralPointConnection");
}

TEST_F(HostileFile, WithAnEntityThatReadsAFile) {
    WriteNodesXml(
        "<!DOCTYPE x [<!ENTITY a SYSTEM \"file:///etc/hostname\">]><worksheet><sheetData><row>"
        "<c t=\"inlineStr\"><is><t>&a;</t></is></c></row></sheetData></worksheet>");
    ExpectRefused(Path(), "IDS_XCH_SHEET_REFUSED", "StructuralPointConnection");
}

TEST_F(HostileFile, WithElementsNestedWithoutEnd) {
    std::string xml = "<worksheet>";
    for (int i = 0; i < 100'000; ++i) xml += "<a>";
    WriteNodesXml(xml);
    ExpectRefused(Path(), "IDS_XCH_SHEET_REFUSED", "StructuralPointConnection");
}

TEST_F(HostileFile, WithOneEndlessTag) {
    options.limits.unpackedRatio = 1'000'000;
    WriteNodesXml("<worksheet><sheetData><row r=\"" + std::string(std::size_t{8} << 20, '1') + "\"/>");
    ExpectRefused(Path(), "IDS_XCH_SHEET_REFUSED", "StructuralPointConnection");
}

TEST_F(HostileFile, ThatUnpacksToMuchMoreThanItIs) {
    options.limits.freeBytes = 1 << 16;
    options.limits.unpackedRatio = 50;
    WriteNodesXml("<worksheet><sheetData>" + std::string(std::size_t{4} << 20, ' ') + "</sheetData></worksheet>");
    ExpectRefused(Path(), "IDS_XCH_SHEET_REFUSED", "StructuralPointConnection");
    EXPECT_NE(report.Text().find("50"), std::string::npos);
}

TEST_F(HostileFile, ThatUnpacksToMoreThanTheLimit) {
    options.limits.unpackedBytes = 1 << 20;
    WriteNodesXml("<worksheet><sheetData>" + std::string(std::size_t{2} << 20, ' ') + "</sheetData></worksheet>");
    ExpectRefused(Path(), "IDS_XCH_SHEET_REFUSED", "StructuralPointConnection");
}

TEST_F(HostileFile, WithTenMillionEmptyRows) {
    std::string xml = "<worksheet><sheetData>";
    for (int i = 0; i < 10'000'000; ++i) xml += "<row/>";
    WriteNodesXml(xml + "</sheetData></worksheet>");
    options.limits.unpackedRatio = 1'000'000;
    ExpectRefused(Path(), "IDS_XCH_TOO_MANY_ROWS", "StructuralPointConnection", options.limits.rows + 1);
}

TEST_F(HostileFile, WhoseRowNumbersAreOutOfRange) {
    WriteNodesXml("<worksheet><sheetData><row r=\"99999999999\"><c><v>1</v></c></row></sheetData></worksheet>");
    ExpectRefused(Path(), "IDS_XCH_TOO_MANY_ROWS", "StructuralPointConnection", 1);
}

TEST_F(HostileFile, WhoseColumnsAreOutOfRange) {
    WriteNodesXml("<worksheet><sheetData><row><c r=\"ZZZZZZZ1\"><v>1</v></c></row></sheetData></worksheet>");
    ExpectRefused(Path(), "IDS_XCH_TOO_MANY_COLUMNS", "StructuralPointConnection", 1);
}

TEST_F(HostileFile, WithACellWithoutEnd) {
    WriteNodesXml("<worksheet><sheetData><row><c t=\"inlineStr\"><is><t>" + std::string(std::size_t{2} << 20, 'a') +
                  "</t></is></c></row></sheetData></worksheet>");
    ExpectRefused(Path(), "IDS_XCH_CELL_TOO_LONG", "StructuralPointConnection", 1);
}

TEST_F(HostileFile, WithTooManySheets) {
    options.limits.sheets = 3;
    WriteWorkbook(Path(), FrameSheets());
    ExpectRefused(Path(), "IDS_XCH_WORKBOOK_REFUSED");
}

TEST_F(HostileFile, WithAColumnMissing) {
    ExpectSheetsRefused(With(FrameSheets(), {"StructuralStorey", {{"Name"}, {"Base"}}}), "IDS_XCH_COLUMN_MISSING",
                        "StructuralStorey", 0, "Height level");
}

TEST_F(HostileFile, WithAWrongType) {
    ExpectSheetsRefused(With(FrameSheets(), {"StructuralStorey", {{"Name", "Height level [m]"}, {"Base", "high"}}}),
                        "IDS_XCH_WRONG_TYPE", "StructuralStorey", 2, "Height level [m]");
}

TEST_F(HostileFile, WithAnUnknownUnit) {
    ExpectSheetsRefused(With(FrameSheets(), {"StructuralStorey", {{"Name", "Height level [kg]"}, {"Base", "#0"}}}),
                        "IDS_XCH_UNKNOWN_UNIT", "StructuralStorey", 0, "Height level");
}

TEST_F(HostileFile, WithAValueMissing) {
    ExpectSheetsRefused(With(FrameSheets(), {"StructuralStorey", {{"Name", "Height level [m]"}, {"", "#3"}}}),
                        "IDS_XCH_VALUE_MISSING", "StructuralStorey", 2, "Name");
}

TEST_F(HostileFile, WithANameThatStandsTwice) {
    ExpectSheetsRefused(
        With(FrameSheets(), {"StructuralStorey", {{"Name", "Height level [m]"}, {"A", "#0"}, {"A", "#3"}}}),
        "IDS_XCH_NAME_TWICE", "StructuralStorey", 3, "Name");
}

TEST_F(HostileFile, WithReferencesThatLeadNowhere) {
    std::vector<TestSheet> sheets = FrameSheets();
    sheets[5].rows[2][3] = "N2;N99";
    sheets[5].rows[1][2] = "CS9";
    ExpectSheetsRefused(sheets, "IDS_XCH_REFERENCE_DANGLING", "StructuralCurveMember", 3, "Nodes");
    EXPECT_TRUE(Found(FindingLevel::Error, "IDS_XCH_REFERENCE_DANGLING", "StructuralCurveMember", 2, "Cross section"));
}

TEST_F(HostileFile, WithCombinationsThatContainEachOther) {
    std::vector<TestSheet> sheets = FrameSheets();
    sheets.push_back({"StructuralLoadCase", {{"Name", "Action type"}, {"LC", "Permanent"}}});
    sheets.push_back({"StructuralLoadCombination",
                      {{"Name", "Category", "Load factor 1", "Load case name 1"},
                       {"A", "Not defined", "#1", "B"},
                       {"B", "Not defined", "#1", "C"},
                       {"C", "Not defined", "#1", "A"}}});
    ExpectSheetsRefused(sheets, "IDS_XCH_COMBINATION_CYCLE", "StructuralLoadCombination", 4, "Load case name");
}

TEST_F(HostileFile, WithATextAsLongAsTheSheet) {
    std::vector<TestSheet> sheets = FrameSheets();
    sheets[4].rows[1][1] = std::string(5000, 'x');
    ExpectSheetsRefused(sheets, "IDS_XCH_WRONG_TYPE", "StructuralPointConnection", 2, "Coordinate X [m]");
    EXPECT_LT(report.Text().size(), 2000u);
}

TEST_F(HostileFile, WithManyErrorsMakesAShortReport) {
    TestSheet nodes{"StructuralPointConnection", {{"Name", "Coordinate X", "Coordinate Y", "Coordinate Z"}}};
    for (int i = 0; i < 5000; ++i) nodes.rows.push_back({"N", "x", "y", "z"});
    ExpectSheetsRefused(With(FrameSheets(), nodes), "IDS_XCH_WRONG_TYPE", nodes.name, 2, "Coordinate X");
    EXPECT_EQ(report.Count(FindingLevel::Error), 15'000u);
    EXPECT_LT(report.Text().size(), 10'000u);
}

/// Folders of tables.
class HostileFolder : public HostileFile {
protected:
    fs::path Folder() const { return folder.Path() / "tables"; }
    void Write(const std::string& name, const std::string& text) const { WriteText(Folder() / name, text); }
};

TEST_F(HostileFolder, ThatIsEmpty) {
    fs::create_directories(Folder());
    ExpectRefused(Folder(), "IDS_XCH_FOLDER_EMPTY");
}

TEST_F(HostileFolder, WithoutNodes) {
    Write("members.csv", "member,node_i,node_j\n1,1,2\n");
    ExpectRefused(Folder(), "IDS_XCH_NO_SHEET");
}

TEST_F(HostileFolder, WithTextsThatAreNotUtf8) {
    Write("nodes.csv", "node,x_m,y_m,z_m\n\xB1\xE2\xB5\xD5,0,0,0\n");
    ExpectRefused(Folder(), "IDS_XCH_NOT_UTF8", "nodes", 2);
}

TEST_F(HostileFolder, WithAQuoteThatNeverEnds) {
    Write("nodes.csv", "node,x_m,y_m,z_m\n\"1,0,0,0\n2,0,0,0\n");
    ExpectRefused(Folder(), "IDS_XCH_QUOTE_OPEN", "nodes", 2);
}

TEST_F(HostileFolder, WithTenMillionEmptyRows) {
    Write("nodes.csv", "node,x_m,y_m,z_m\n" + std::string(10'000'000, '\n'));
    ExpectRefused(Folder(), "IDS_XCH_TOO_MANY_ROWS", "nodes", options.limits.rows);
}

TEST_F(HostileFolder, WithReleasesThatAreNone) {
    Write("nodes.csv", "node,x_m,y_m,z_m\n1,0,0,0\n2,0,0,3\n");
    Write("sections.csv", "section,A_m2\nS,0.01\n");
    Write("members.csv", "member,node_i,node_j,section,release_i\n1,1,2,S,00020\n");
    ExpectRefused(Folder(), "IDS_XCH_WRONG_WORD", "members", 2, "release_i");
}

TEST_F(HostileFolder, ThatHoldsAFolderInPlaceOfATable) {
    fs::create_directories(Folder() / "nodes.csv");
    Write("members.csv", "member,node_i,node_j\n");
    ExpectRefused(Folder(), "IDS_XCH_NO_SHEET");
}

}  // namespace
}  // namespace zt
