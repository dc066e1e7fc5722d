#include <cstdio>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "zt_db/exchange/exchange_files.h"
#include "zt_db/exchange/table_reader.h"
#include "zt_db/record_texts.h"
#include "zt_db/sample/sample_building.h"

namespace zt {
namespace {

namespace fs = std::filesystem;

class RoundTrip : public ExchangeTest, public testing::WithParamInterface<const char*> {
protected:
    fs::path Target(ExchangeFormat format, const std::string& name = "out") const {
        return folder.File(format == ExchangeFormat::Saf ? name + ".xlsx" : name);
    }
    fs::path Export(ExchangeFormat format, const std::string& name = "out") {
        const fs::path target = Target(format, name);
        const velda::Outcome done = ExportModel(Db(), target, format, {}, report);
        EXPECT_TRUE(done) << done.Reason();
        return target;
    }
    /// The records of a model that holds nothing but a file.
    std::vector<std::string> Reimport(const fs::path& file) {
        Use(CDBDoc::New());
        EXPECT_TRUE(Import(file)) << report.Text();
        return AllRecords(*doc);
    }
};

TEST_P(RoundTrip, OfAWorkbookGivesEqualRecords) {
    ASSERT_TRUE(Import(ExampleFolder() / GetParam())) << report.Text();
    const std::vector<std::string> first = Reimport(Export(ExchangeFormat::Saf, "first"));
    ExpectSameRecords(Reimport(Export(ExchangeFormat::Saf, "second")), first);
}

TEST_P(RoundTrip, OfTablesGivesEqualRecords) {
    ASSERT_TRUE(Import(ExampleFolder() / GetParam())) << report.Text();
    const std::vector<std::string> first = Reimport(Export(ExchangeFormat::Csv, "first"));
    ExpectSameRecords(Reimport(Export(ExchangeFormat::Csv, "second")), first);
}

/// The text of a record with its numbers in 12 digits: workbooks keep 16, and conversions of units cost some.
std::string Blurred(const std::string& record) {
    static const std::regex number(R"([-+]?\d+\.\d+(e[-+]?\d+)?)");
    std::string text;
    auto rest = record.begin();
    for (std::sregex_iterator at(record.begin(), record.end(), number), end; at != end; ++at) {
        text.append(rest, record.begin() + at->position());
        char digits[32];
        std::snprintf(digits, sizeof digits, "%.12g", std::stod(at->str()));
        text += digits;
        rest = record.begin() + at->position() + at->length();
    }
    return text.append(rest, record.end());
}

/// Records of classes that a format holds wholly.
std::vector<std::string> Held(const std::vector<std::string>& records, const std::set<std::string>& classes) {
    std::vector<std::string> held;
    for (const std::string& record : records) {
        if (classes.contains(record.substr(0, 4))) held.push_back(Blurred(record));
    }
    return held;
}

TEST_P(RoundTrip, OfAWorkbookLosesNoNodesAndMembers) {
    const std::set<std::string> classes = {"PONT", "MEMB", "STOR", "THIK", "SPTS", "FRLS"};
    ASSERT_TRUE(Import(ExampleFolder() / GetParam())) << report.Text();
    const std::vector<std::string> before = Held(AllRecords(*doc), classes);
    ExpectSameRecords(Held(Reimport(Export(ExchangeFormat::Saf)), classes), before);
}

TEST_P(RoundTrip, OfTablesLosesNoNodesMembersAndMasses) {
    const std::set<std::string> classes = {"PONT", "MEMB", "STOR", "THIK", "SECT", "SPTS", "RIGD", "PMAS", "PTLD"};
    ASSERT_TRUE(Import(ExampleFolder() / GetParam())) << report.Text();
    const std::vector<std::string> before = Held(AllRecords(*doc), classes);
    ExpectSameRecords(Held(Reimport(Export(ExchangeFormat::Csv)), classes), before);
}

INSTANTIATE_TEST_SUITE_P(Models, RoundTrip,
                         testing::Values("braced_frame_4story_3d", "steel_frame_3story_la", "setback_tower_3d",
                                         "small_building_with_defects", "rc_building_3story_design",
                                         "rc_plane_frame_3story_modal", "rc_plane_frame_7story_pushover",
                                         "saf/SAF_example_STEEL_HALL_metrix_ZYX_210.xlsx",
                                         "saf/SAF_example_HOUSE_metric_ZYX_220.xlsx"));

class ExportTest : public RoundTrip {};

TEST_F(ExportTest, OfASampleBuildingComesBackWhole) {
    ASSERT_TRUE(BuildSample(Db(), "office"));
    const std::set<std::string> classes = {"PONT", "MEMB", "STOR", "MDUL"};
    const std::vector<std::string> before = Held(AllRecords(*doc), classes);
    const fs::path saf = Export(ExchangeFormat::Saf);
    const fs::path csv = Export(ExchangeFormat::Csv);
    EXPECT_EQ(Held(Reimport(csv), classes).size(), before.size());
    EXPECT_EQ(Held(Reimport(saf), classes).size(), before.size());
}

/// Lines of a file of comma separated texts whose first three fields are not quoted.
std::vector<std::vector<std::string>> ColumnList() {
    std::ifstream file(ExampleFolder() / "saf/saf_columns_2_2_0.csv");
    std::vector<std::vector<std::string>> lines;
    for (std::string line; std::getline(file, line);) {
        std::vector<std::string> fields;
        std::istringstream text(line);
        for (std::string field; std::getline(text, field, ',');) fields.push_back(field);
        if (!fields.empty() && fields.back().ends_with('\r')) fields.back().pop_back();
        lines.push_back(std::move(fields));
    }
    return lines;
}

TEST_F(ExportTest, WritesTheColumnsThatTheFormatAsksFor) {
    ASSERT_TRUE(Import(ExampleFolder() / "saf/SAF_example_HOUSE_metric_ZYX_220.xlsx")) << report.Text();
    const fs::path file = Export(ExchangeFormat::Saf);
    const auto source = OpenWorkbook(file, {}, report);
    ASSERT_TRUE(source);
    const auto columns = ColumnList();
    for (std::size_t sheet = 0; sheet < source->Names().size(); ++sheet) {
        const std::string& name = source->Names()[sheet];
        std::set<std::string> headers;
        ASSERT_TRUE(source->Read(
            sheet,
            [&](const SheetRow& row) {
                for (const SheetValue& cell : row.cells) headers.insert(Comparable(cell.text));
                return false;
            },
            report));
        for (const auto& column : columns) {
            if (column.size() < 6 || column[0] != name || column.back() != "yes") continue;
            const bool repeated = column[2].find('#') != std::string::npos;
            const std::string header = repeated ? column[2].substr(0, column[2].find('#')) + "1" : column[2];
            EXPECT_TRUE(headers.contains(Comparable(header))) << name << ": " << header;
        }
    }
}

TEST_F(ExportTest, IntoAFolderThatHoldsSomethingIsRefused) {
    ASSERT_TRUE(BuildSample(Db(), "small"));
    WriteText(folder.Path() / "out/notes.txt", "mine");
    const velda::Outcome done = ExportModel(Db(), folder.Path() / "out", ExchangeFormat::Csv, {}, report);
    EXPECT_FALSE(done);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator{}), 1);
}

TEST_F(ExportTest, ThatIsStoppedLeavesNothing) {
    ASSERT_TRUE(BuildSample(Db(), "small"));
    for (const ExchangeFormat format : {ExchangeFormat::Saf, ExchangeFormat::Csv}) {
        const auto stop = [](std::string_view, std::uint64_t) { return false; };
        EXPECT_FALSE(ExportModel(Db(), Target(format), format, stop, report));
        EXPECT_TRUE(fs::is_empty(folder.Path()));
    }
}

}  // namespace
}  // namespace zt
