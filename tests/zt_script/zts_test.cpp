#include <cstdlib>
#include <fstream>
#include <sstream>

#include "zt_db/sample/sample_building.h"
#include "zt_db/test_support.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace zt {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// Runs the command line in a folder of its own.
class ZtsTest : public testing::Test {
protected:
    struct Result {
        int status = -1;
        std::string output;
        std::string errors;
    };

    Result Zts(const std::string& words) const {
        const std::string folder = folder_.Path().string();
        const std::string command = "cd '" + folder + "' && '" ZT_ZTS "' " + words + " >output 2>errors";
        const int ended = std::system(command.c_str());
        return {WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, Content("output"), Content("errors")};
    }
    void Write(const std::string& name, std::string_view text) const {
        std::ofstream(folder_.File(name), std::ios::binary) << text;
    }
    std::filesystem::path File(const std::string& name) const { return folder_.File(name); }
    std::string Content(const std::string& name) const {
        std::ostringstream text;
        text << std::ifstream(folder_.File(name), std::ios::binary).rdbuf();
        return text.str();
    }
    void SaveSample(const std::string& name) const {
        const auto doc = CDBDoc::New();
        ASSERT_TRUE(BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), "small"));
        ASSERT_TRUE(doc->SaveAs(folder_.File(name)));
    }

private:
    TemporaryFolder folder_;
};

TEST_F(ZtsTest, WrongWordsGetTheUsageAndStatusTwo) {
    for (const char* words : {"",
                              "nonsense",
                              "info",
                              "info a b",
                              "script",
                              "HELP",
                              "export",
                              "export model",
                              "export --out a.csv",
                              "export model --out",
                              "export model --out a.csv --out b.csv",
                              "export model --kind x --out a.csv",
                              "library doors",
                              "library sections a b",
                              "export model --out a --as pdf",
                              "import",
                              "import a.xlsx",
                              "import --out a.ztm",
                              "import a.xlsx --out a.ztm --out b.ztm",
                              "analyse",
                              "analyse a b"}) {
        const Result result = Zts(words);
        EXPECT_EQ(result.status, 2) << words;
        EXPECT_EQ(result.output, "") << words;
        EXPECT_THAT(result.errors, StartsWith("zts info FILE")) << words;
    }
}

TEST_F(ZtsTest, AnalysePrintsTheLogAndWhatIsGreatest) {
    const std::string frame = ZT_SOURCE_DIR "/tests/data/exchange/rc_plane_frame_3story_modal";
    ASSERT_EQ(Zts("import '" + frame + "' --out frame.ztm").status, 0);
    const Result result = Zts("analyse frame.ztm");
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(result.output, HasSubstr("Load case TOP: loads (40, 0, 0) kN, reactions (-40, 0, 0) kN\n"));
    EXPECT_THAT(result.output, HasSubstr("TOP: largest displacement 13."));
    EXPECT_THAT(result.output, HasSubstr("\nMode 1: period 0."));
}

TEST_F(ZtsTest, AnalyseTellsWhyAModelCannotBeAnalysed) {
    const Result result = Zts("analyse nothing.ztm");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors, "");
}

TEST_F(ZtsTest, LibraryPrintsRowsThatHoldAText) {
    const Result found = Zts("library sections 'ipe 300'");
    EXPECT_EQ(found.status, 0);
    EXPECT_THAT(found.output, StartsWith("standard\tname\tshape\t"));
    EXPECT_THAT(found.output, HasSubstr("EN\tIPE300\tH\tIPE\t300\t150\t7.1\t10.7\t"));
    EXPECT_EQ(found.output.find("IPE400"), std::string::npos);
    EXPECT_THAT(Zts("library materials ss275").output, HasSubstr("KDS 14 31 05\tSS275\t"));
    EXPECT_THAT(Zts("library bars").output, HasSubstr("\nname\tspacing_mm\n@50\t50\n"));
    EXPECT_THAT(Zts("library").output, HasSubstr("sections\t6608\n"));
    const Result none = Zts("library plates nothing");
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.output, "");
}

TEST_F(ZtsTest, LibraryHasTheFilesOfTheUser) {
    const std::filesystem::path folder = File("settings") / "zt_tb" / "library";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "a.csv") << "zt-library,plates,1\nstandard,thickness_mm,mass_kg_per_m2,checked\nOwn,7,,\n";
    std::ofstream(folder / "b.csv") << "zt-library,plates,9\n";
    ASSERT_EQ(::setenv("XDG_CONFIG_HOME", File("settings").c_str(), 1), 0);
    const Result result = Zts("library plates own");
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, HasSubstr("Own\t7\t"));
    EXPECT_THAT(result.errors, HasSubstr("b.csv, line 1, column 3: "));
}

TEST_F(ZtsTest, ExportWritesTheTablesThatAreNamed) {
    SaveSample("model.ztm");
    for (const char* words : {"--table THIK --out a.csv", "--out a.csv --table Thickness", "--out a.csv"}) {
        std::filesystem::remove(File("a.csv"));
        const Result result = Zts("export model.ztm " + std::string(words));
        EXPECT_EQ(result.status, 0) << words << result.errors;
        EXPECT_THAT(Content("a.csv"), HasSubstr("Name,Thickness (")) << words;
    }
    EXPECT_EQ(Zts("export model.ztm --out a.xlsx").status, 0);
    EXPECT_THAT(Content("a.xlsx"), StartsWith("PK"));
    EXPECT_EQ(Zts("export model.ztm --table THIK --out a.pdf").status, 0);
    EXPECT_THAT(Content("a.pdf"), StartsWith("%PDF"));
}

TEST_F(ZtsTest, ExportTellsWhyItWasRefused) {
    SaveSample("model.ztm");
    const auto refused = [this](const std::string& words, const std::string& reason) {
        const Result result = Zts("export " + words);
        EXPECT_EQ(result.status, 1) << words;
        EXPECT_THAT(result.errors, HasSubstr(reason)) << words;
    };
    refused("missing.ztm --out a.csv", "missing.ztm");
    refused("model.ztm --table NONE --out a.csv", "NONE; there are MATL SECT THIK");
    refused("model.ztm --out missing/a.csv", "missing/a.csv");
    refused("model.ztm --out a.txt", "a.txt");
    refused("model.ztm --table THIK --out missing/a.pdf", "missing/a.pdf");
    refused("model.ztm --table THIK --table THIK --out a.pdf", "one table");
    EXPECT_FALSE(std::filesystem::exists(File("a.csv")));
}

TEST_F(ZtsTest, AModelGoesOutAndComesBack) {
    SaveSample("model.ztm");
    for (const std::string format : {"saf", "csv"}) {
        const std::string file = format == "saf" ? "book.xlsx" : "tables";
        const Result out = Zts("export model.ztm --out " + file + " --as " + format);
        ASSERT_EQ(out.status, 0) << out.errors;
        const Result in = Zts("import " + file + " --out back.ztm --report report.txt");
        ASSERT_EQ(in.status, 0) << in.errors << Content("report.txt");
        EXPECT_EQ(in.output, "");
        EXPECT_THAT(Content("report.txt"), HasSubstr(": 12 read, 12 kept\n"));
        const Result info = Zts("info back.ztm");
        EXPECT_THAT(info.output, HasSubstr("\n  PONT  12  Node\n"));
        EXPECT_THAT(info.output, HasSubstr("\n  MEMB  20  Member\n"));
    }
}

TEST_F(ZtsTest, AnImportThatFailsLeavesTheModelFileAlone) {
    SaveSample("model.ztm");
    const std::string before = Content("model.ztm");
    Write("book.xlsx", "no workbook");
    const Result result = Zts("import book.xlsx --out model.ztm");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, HasSubstr("book.xlsx"));
    EXPECT_THAT(result.errors, HasSubstr("Nothing was imported."));
    EXPECT_EQ(Content("model.ztm"), before);
    EXPECT_EQ(Zts("import missing --out new.ztm").status, 1);
    EXPECT_FALSE(std::filesystem::exists(File("new.ztm")));
}

TEST_F(ZtsTest, HelpTellsTheUsageAndTheCommandsOfScripts) {
    const Result result = Zts("help");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(result.output, StartsWith("zts info FILE"));
    EXPECT_THAT(result.output, HasSubstr("Commands of scripts:\n"));
    EXPECT_THAT(result.output, HasSubstr("  record add CLASS KEY [field=value ...]\n"));
    EXPECT_EQ(Zts("--help").output, result.output);
}

TEST_F(ZtsTest, InfoTellsWhatAModelHolds) {
    SaveSample("model.ztm");
    const Result result = Zts("info model.ztm");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(result.output, StartsWith("model.ztm, format "));
    EXPECT_THAT(result.output, HasSubstr("\n  PONT  12  Node\n"));
    EXPECT_THAT(result.output, HasSubstr("\n  MEMB  20  Member\n"));
    EXPECT_THAT(result.output, HasSubstr("\n  MBTP  0  Member Type Data\n"));
}

TEST_F(ZtsTest, InfoLeavesTheFileAsItIs) {
    SaveSample("model.ztm");
    const std::string before = Content("model.ztm");
    EXPECT_EQ(Zts("info model.ztm").status, 0);
    EXPECT_EQ(Content("model.ztm"), before);
}

TEST_F(ZtsTest, InfoOfAMissingFileFails) {
    const Result result = Zts("info missing.ztm");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "The file \"missing.ztm\" does not exist.\n");
}

TEST_F(ZtsTest, InfoOfATextFileFails) {
    Write("text.txt", "no model");
    const Result result = Zts("info text.txt");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "The file \"text.txt\" is not a model file.\n");
}

TEST_F(ZtsTest, AScriptThatPassesHasStatusZero) {
    Write("a.zts", "record add THIK 1\nexpect count THIK 1\nrefused record add THIK 1\n");
    const Result result = Zts("script a.zts");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "2 passed, 0 failed\n");
}

TEST_F(ZtsTest, AScriptWithAFailureHasStatusOne) {
    Write("a.zts", "expect count THIK 1\nexpect count THIK 0\n");
    const Result result = Zts("script a.zts");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "a.zts:1: expected 1, found 0\n1 passed, 1 failed\n");
}

TEST_F(ZtsTest, AScriptThatCannotBeReadHasStatusTwo) {
    Write("a.zts", "nonsense\nexpect count THIK 1\nexpect count THIK 0\n");
    const Result result = Zts("script a.zts");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.output, StartsWith("a.zts:1: unknown command nonsense\n"));
    EXPECT_THAT(result.output, EndsWith("1 passed, 1 failed, 1 not readable\n"));
}

TEST_F(ZtsTest, AMissingScriptHasStatusTwoAndTheOthersRun) {
    Write("a.zts", "expect count THIK 0\n");
    const Result result = Zts("script missing.zts a.zts");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "missing.zts: cannot be read\n1 passed, 0 failed, 1 not readable\n");
}

TEST_F(ZtsTest, SeveralScriptsAreCountedTogetherAndStartAnew) {
    Write("a.zts", "lang ko\nunits length=mm\nrecord add THIK 1\nexpect undo \"두께 추가\"\n");
    Write("b.zts", "expect count THIK 0\nexpect unit 2 \"m\"\nrecord add THIK 1\nexpect undo \"Add Thickness\"\n");
    const Result result = Zts("script a.zts b.zts");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "4 passed, 0 failed\n");
}

TEST_F(ZtsTest, AnEmptyScriptPassesWithNothing) {
    Write("empty.zts", "");
    const Result result = Zts("script empty.zts");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "0 passed, 0 failed\n");
}

TEST_F(ZtsTest, AModelSavedByAScriptIsThereForTheNextRun) {
    Write("save.zts", "model sample small\nmodel save model.ztm\nrecord add THIK 9 name=\"later\"\n");
    Write("open.zts", "model open model.ztm\nexpect record THIK 9 name=\"later\"\nexpect undo \"\"\n");
    EXPECT_EQ(Zts("script save.zts").status, 0);
    EXPECT_EQ(Zts("script open.zts").output, "2 passed, 0 failed\n");
    EXPECT_THAT(Zts("info model.ztm").output, HasSubstr("\n  THIK  3  Thickness\n"));
}

}  // namespace
}  // namespace zt
