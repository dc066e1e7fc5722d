#include "zt_script/script_runner.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "velda_lib/language.h"
#include "zt_db/test_support.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

struct RunResult {
    std::string output;
    ScriptCount count;
};

RunResult RunLines(std::string_view text) {
    std::ostringstream output;
    ScriptRunner runner(output);
    const ScriptCount count = runner.RunText("a.zts", text);
    return {output.str(), count};
}

RunResult RunPath(const std::string& path) {
    std::ostringstream output;
    ScriptRunner runner(output);
    const ScriptCount count = runner.RunFile(path);
    return {output.str(), count};
}

void ExpectCounts(const RunResult& run, int passed, int failed, int unreadable) {
    EXPECT_EQ(run.count.passed, passed) << run.output;
    EXPECT_EQ(run.count.failed, failed) << run.output;
    EXPECT_EQ(run.count.unreadable, unreadable) << run.output;
}

/// A script whose only line cannot be read, for the reason given.
void ExpectUnreadable(std::string_view line, const std::string& why) {
    const RunResult run = RunLines(line);
    EXPECT_EQ(run.output, "a.zts:1: " + why + "\n") << line;
    ExpectCounts(run, 0, 0, 1);
    EXPECT_EQ(run.count.ExitStatus(), 2);
}

TEST(ScriptRunner, ExpectationsThatHoldAreCountedAndSayNothing) {
    const RunResult run = RunLines(
        "record add THIK 1 name=\"W200\"\nexpect count THIK 1\n"
        "expect record THIK 1 name=\"W200\"\n");
    ExpectCounts(run, 2, 0, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.count.ExitStatus(), 0);
}

TEST(ScriptRunner, AFailedExpectationTellsItsPlaceAndBothSides) {
    const RunResult run = RunLines(
        "record add THIK 1 name=\"W200\" thickness=0.2\n\n"
        "expect record THIK 1 name=\"W300\" thickness=0.2\nexpect count THIK 2\n");
    EXPECT_EQ(run.output,
              "a.zts:3: expected THIK 1 name=\"W300\" thickness=0.2, found THIK 1 name=\"W200\" thickness=0.2\n"
              "a.zts:4: expected 2, found 1\n");
    ExpectCounts(run, 0, 2, 0);
    EXPECT_EQ(run.count.ExitStatus(), 1);
}

TEST(ScriptRunner, AnExpectedRecordThatDoesNotExistIsSaidSo) {
    EXPECT_EQ(RunLines("expect record THIK 7 name=\"W200\"").output,
              "a.zts:1: expected THIK 7 name=\"W200\", found no such record\n");
    EXPECT_EQ(RunLines("record add THIK 7\nexpect no record THIK 7").output,
              "a.zts:2: expected no THIK 7, found THIK 7\n");
}

TEST(ScriptRunner, ACommandThatIsRefusedFails) {
    const RunResult run = RunLines("record del THIK 5\nexpect count THIK 0\n");
    EXPECT_EQ(run.output, "a.zts:1: refused: Thickness 5 does not exist.\n");
    ExpectCounts(run, 1, 1, 0);
}

TEST(ScriptRunner, TheScriptGoesOnAfterAFailure) {
    const RunResult run = RunLines("nonsense\nexpect count THIK 1\nrecord add THIK 1\nexpect count THIK 1\n");
    ExpectCounts(run, 1, 1, 1);
    EXPECT_EQ(run.count.ExitStatus(), 2);
}

TEST(ScriptRunner, ARefusalThatIsExpectedPasses) {
    const RunResult run = RunLines("refused record del THIK 5\nexpect reason \"Thickness 5 does not exist.\"\n");
    ExpectCounts(run, 2, 0, 0);
}

TEST(ScriptRunner, ACommandThatIsDoneThoughARefusalWasExpectedFails) {
    const RunResult run = RunLines("refused record add THIK 5\nexpect count THIK 1\n");
    EXPECT_EQ(run.output, "a.zts:1: expected refused, found done\n");
    ExpectCounts(run, 1, 1, 0);
}

TEST(ScriptRunner, ARefusalIsNotExpectedOfALineThatCannotBeRead) {
    ExpectUnreadable("refused nonsense", "unknown command nonsense");
    ExpectUnreadable("refused record add THIK x", "x is no key");
    ExpectUnreadable("refused", "refused COMMAND");
}

TEST(ScriptRunner, ANegatedExpectationPassesWhenItDoesNotHold) {
    ExpectCounts(RunLines("expect not count THIK 1"), 1, 0, 0);
    ExpectCounts(RunLines("expect not record THIK 1"), 1, 0, 0);
}

TEST(ScriptRunner, ANegatedExpectationThatHoldsFailsAndTellsWhatWasFound) {
    const RunResult run = RunLines("record add THIK 1 name=\"W200\"\nexpect not record THIK 1 name=\"W200\"\n");
    EXPECT_EQ(run.output, "a.zts:2: expected not THIK 1 name=\"W200\", found THIK 1 name=\"W200\"\n");
    ExpectCounts(run, 0, 1, 0);
}

TEST(ScriptRunner, NegationDoesNotHideALineThatCannotBeRead) {
    ExpectUnreadable("expect not count QQQQ 1", "expect count CLASS N");
    ExpectUnreadable("expect not record THIK 1 nonsense=1", "THIK has no field nonsense");
    ExpectUnreadable("expect not sense", "unknown command expect");
}

TEST(ScriptRunner, AQuotedWordIsNoCommand) {
    ExpectUnreadable("\"mark\"", "unknown command mark");
    ExpectUnreadable("expect \"not\" count THIK 1", "unknown command expect");
    ExpectUnreadable("\"refused\" record del THIK 1", "unknown command refused");
}

TEST(ScriptRunner, AnUnknownCommandIsNamed) {
    ExpectUnreadable("nonsense 1 2", "unknown command nonsense");
    ExpectUnreadable("record", "unknown command record");
    ExpectUnreadable("Undo", "unknown command Undo");
}

TEST(ScriptRunner, AnUnknownClassIsNamed) {
    ExpectUnreadable("record add QQQQ 1", "unknown record class QQQQ");
    ExpectUnreadable("record add thik 1", "unknown record class thik");
    ExpectUnreadable("expect record QQQQ 1", "unknown record class QQQQ");
}

TEST(ScriptRunner, AnUnknownFieldIsNamed) {
    ExpectUnreadable("record add THIK 1 depth=3", "THIK has no field depth");
    ExpectUnreadable("expect record THIK 1 depth=3", "THIK has no field depth");
    ExpectUnreadable("record add THIK 1 name", "field=value is needed instead of name");
}

TEST(ScriptRunner, AValueOfTheWrongKindIsNamed) {
    ExpectUnreadable("record add THIK 1 thickness=thick", "thickness cannot be \"thick\"");
    ExpectUnreadable("record add THIK 1 thickness=", "thickness cannot be \"\"");
    ExpectUnreadable("record add THIK 1 thickness=1e999", "thickness cannot be \"1e999\"");
    ExpectUnreadable("record add THIK 1 thickness=nan", "thickness cannot be \"nan\"");
    ExpectUnreadable("record add THIK 1 inOutDiffers=1.5", "inOutDiffers cannot be \"1.5\"");
    ExpectUnreadable("record add PONT 1 plan=2147483648", "plan cannot be \"2147483648\"");
    ExpectUnreadable("record add PONT 1 no=-1", "no cannot be \"-1\"");
    ExpectUnreadable("record add MEMB 1 nodes=[1,a]", "nodes cannot be \"[1,a]\"");
    ExpectUnreadable("record add MEMB 1 nodes=5", "nodes cannot be \"5\"");
    ExpectUnreadable("record add LCOM 1 items=[[1,1]]", "items cannot be \"[[1,1]]\"");
    ExpectUnreadable("record add SECT 1 base_size=[1,2]", "base_size cannot be \"[1,2]\"");
}

TEST(ScriptRunner, AKeyMustBeAKey) {
    ExpectUnreadable("record add THIK", "a record class and a key are needed");
    ExpectUnreadable("record add THIK one", "one is no key");
    ExpectUnreadable("record add THIK -1", "-1 is no key");
    ExpectUnreadable("record add THIK 4294967296", "4294967296 is no key");
    ExpectUnreadable("record del THIK 1 x", "x is no key");
}

TEST(ScriptRunner, WordsThatACommandDoesNotTakeAreAFault) {
    ExpectUnreadable("undo x", "a number of steps is needed");
    ExpectUnreadable("undo 0", "a number of steps is needed");
    ExpectUnreadable("lang fr", "lang en|ko");
    ExpectUnreadable("end now", "end takes no words");
    ExpectUnreadable("model open a.ztm quickly", "unknown word quickly");
    ExpectUnreadable("units length=furlong", "unknown unit furlong of length");
    ExpectUnreadable("units furlong", "units takes force=, length=, modelLength=, mass=, temperature=");
    ExpectUnreadable("expect change 0 \"THIK ADD\" 1", "expect change N \"CLASS KIND\" KEY [field=value ...]");
    ExpectUnreadable("expect factor 2 one", "expect factor CODE NUMBER");
}

TEST(ScriptRunner, NothingIsChangedByALineThatCannotBeRead) {
    ExpectCounts(RunLines("record add THIK 1 name=\"a\"\nrecord modify THIK 1 name=\"b\" thickness=x\n"
                          "expect record THIK 1 name=\"a\"\nunits length=mm force=x\nexpect unit 2 \"m\"\n"),
                 2, 0, 2);
}

TEST(ScriptRunner, ALineThatCannotBeReadTellsWhy) {
    ExpectUnreadable("undo to \"Add", "the quote is not closed");
    ExpectUnreadable("record add MEMB 1 nodes=[1", "the list is not closed");
}

TEST(ScriptRunner, OfCommandsThatBeginAlikeTheLongestCounts) {
    const RunResult run = RunLines(
        "record add THIK 1\nundo to \"Add Thickness\"\nexpect count THIK 0\n"
        "redo\nexpect count THIK 1\n");
    ExpectCounts(run, 2, 0, 0);
}

TEST(ScriptRunner, LinesAreCountedWithForeignLineEnds) {
    const RunResult run = RunLines(
        "# comment\r\n\r\nrecord add THIK 1 name=\"a\"\r\n"
        "expect record THIK 1 name=\"a\"\r\nexpect count THIK 2\r\n");
    EXPECT_EQ(run.output, "a.zts:5: expected 2, found 1\n");
    ExpectCounts(run, 1, 1, 0);
}

TEST(ScriptRunner, AByteOrderMarkIsPassedOver) {
    ExpectCounts(RunLines("\xef\xbb\xbf"
                          "expect count THIK 0"),
                 1, 0, 0);
}

TEST(ScriptRunner, AnEmptyScriptPassesWithNothing) {
    const RunResult run = RunLines("");
    ExpectCounts(run, 0, 0, 0);
    EXPECT_EQ(run.count.ExitStatus(), 0);
}

TEST(ScriptRunner, AShownRecordCanBeWrittenAgain) {
    const std::string fields = "name=\"[a] \\\"b\\\"\\n\" thickness=0.2 inOutDiffers=1 thicknessOut=0.15";
    const RunResult run = RunLines("record add THIK 1 " + fields + "\nrecord show THIK 1\n");
    EXPECT_EQ(run.output, "THIK 1 " + fields + "\n");
    EXPECT_EQ(RunLines("record add STLD 1 type=[1]\nrecord show STLD 1\n").output,
              "STLD 1 name=\"\" type=\"[1]\" description=\"\"\n");
    EXPECT_EQ(RunLines("record add NAME 1 type=7\nrecord show NAME 1\n").output, "NAME 1 name=\"\" type=7 keys=[]\n");
}

TEST(ScriptRunner, NumbersInListsAreShownInFifteenDigits) {
    const RunResult run = RunLines(
        "units length=mm\nrecord add SECT 1 base_size=[300.3,0.7,123.4,0,0,0,0,0,0]\nunits length=in\n"
        "expect record SECT 1 base_size=[11.8228346456693,0.0275590551181102,4.85826771653543,0,0,0,0,0,0]\n");
    EXPECT_EQ(run.output, "");
    ExpectCounts(run, 1, 0, 0);
}

TEST(ScriptRunner, TheWrongChangeIsToldWithWhatStandsThere) {
    const RunResult run = RunLines(
        "record add THIK 1 name=\"a\"\nexpect change 1 \"THIK DEL\" 1\nexpect change 1 \"THIK ADD\" 2\n"
        "expect change 2 \"THIK ADD\" 1\nexpect change 1 \"THIK ADD\" 1 name=\"b\"\n");
    EXPECT_EQ(run.output,
              "a.zts:2: expected THIK DEL 1, found THIK ADD 1\n"
              "a.zts:3: expected THIK ADD 2, found THIK ADD 1\n"
              "a.zts:4: expected THIK ADD 1, found 1 changes\n"
              "a.zts:5: expected THIK ADD 1 name=\"b\", found THIK ADD 1 name=\"a\"\n");
}

TEST(ScriptRunner, TheLanguageOfAScriptDoesNotReachTheNextOne) {
    std::ostringstream output;
    ScriptRunner runner(output);
    runner.RunText("a.zts", "lang ko\nrecord add THIK 1\nexpect undo \"두께 추가\"\n");
    const ScriptCount count = runner.RunText("b.zts", "record add THIK 1\nexpect undo \"Add Thickness\"\n");
    EXPECT_EQ(output.str(), "");
    EXPECT_EQ(count.passed, 1);
}

TEST(ScriptRunner, TheModelAndTheUnitsOfAScriptDoNotReachTheNextOne) {
    std::ostringstream output;
    ScriptRunner runner(output);
    runner.RunText("a.zts", "units length=mm\nrecord add THIK 1\n");
    const ScriptCount count = runner.RunText("b.zts", "expect count THIK 0\nexpect unit 2 \"m\"\nexpect reason \"\"\n");
    EXPECT_EQ(output.str(), "");
    EXPECT_EQ(count.passed, 3);
    EXPECT_EQ(CDBDoc::m_pDBDoc, nullptr);
}

/// A folder of scripts of a test's own.
class IncludedScripts : public testing::Test {
protected:
    ~IncludedScripts() override { std::filesystem::remove_all(folder); }
    void Write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories((folder / name).parent_path());
        std::ofstream(folder / name) << text;
    }
    RunResult Run(const std::string& name) const { return RunPath((folder / name).string()); }

    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("zt_include_" + std::to_string(::getpid()));
};

TEST_F(IncludedScripts, RunAtTheirPlaceFromTheFolderOfTheScript) {
    Write("models/plate.zti", "record add THIK 1 name=\"W200\"\nexpect count THIK 1\n");
    Write("tables/a.zts", "include \"../models/plate.zti\"\nexpect record THIK 1 name=\"W200\"\n");
    const RunResult run = Run("tables/a.zts");
    EXPECT_EQ(run.output, "");
    ExpectCounts(run, 2, 0, 0);
}

TEST_F(IncludedScripts, TellTheirOwnPlaceWhenTheyFail) {
    Write("b.zti", "\nexpect count THIK 1\n");
    Write("a.zts", "# first\ninclude b.zti\nexpect count THIK 2\n");
    const RunResult run = Run("a.zts");
    const std::string b = (folder / "b.zti").string() + ":2: expected 1, found 0\n";
    const std::string a = (folder / "a.zts").string() + ":3: expected 2, found 0\n";
    EXPECT_EQ(run.output, b + a);
    ExpectCounts(run, 0, 2, 0);
}

TEST_F(IncludedScripts, AMissingFileAndOneThatIncludesItselfAreFaults) {
    Write("a.zts", "include none.zti\ninclude\ninclude a b\n");
    ExpectCounts(Run("a.zts"), 0, 0, 3);
    Write("b.zts", "expect count THIK 0\ninclude b.zts\n");
    const RunResult ring = Run("b.zts");
    ExpectCounts(ring, 4, 0, 1);
    EXPECT_EQ(ring.output, (folder / "b.zts").string() + ":2: files include each other too deeply\n");
}

TEST(ScriptRunner, AScriptFileIsNamedByItsPathInMessages) {
    const TemporaryFolder folder;
    const std::string path = folder.File("two words.zts");
    std::ofstream(path) << "expect count THIK 1";
    EXPECT_EQ(RunPath(path).output, path + ":1: expected 1, found 0\n");
}

TEST(ScriptRunner, AFileLongerThanABlockIsReadWhole) {
    const TemporaryFolder folder;
    const std::string path = folder.File("long.zts");
    {
        std::ofstream file(path);
        for (int i = 0; i < 1000; ++i) file << "expect count THIK 0\n";
    }
    ExpectCounts(RunPath(path), 1000, 0, 0);
}

TEST(ScriptRunner, AnEmptyFilePassesWithNothing) {
    const TemporaryFolder folder;
    const std::string path = folder.File("empty.zts");
    std::ofstream{path}.close();
    const RunResult run = RunPath(path);
    EXPECT_EQ(run.output, "");
    ExpectCounts(run, 0, 0, 0);
}

TEST(ScriptRunner, AMissingFileCannotBeRead) {
    const TemporaryFolder folder;
    const std::string path = folder.File("missing.zts");
    const RunResult run = RunPath(path);
    EXPECT_EQ(run.output, path + ": cannot be read\n");
    ExpectCounts(run, 0, 0, 1);
    EXPECT_EQ(run.count.ExitStatus(), 2);
}

TEST(ScriptRunner, AFolderCannotBeRead) {
    const TemporaryFolder folder;
    ExpectCounts(RunPath(folder.Path().string()), 0, 0, 1);
}

TEST(ScriptCount, SeveralScriptsAddUp) {
    ScriptCount total{.passed = 1, .failed = 2, .unreadable = 0};
    EXPECT_EQ(total.ExitStatus(), 1);
    total += {.passed = 10, .failed = 20, .unreadable = 30};
    EXPECT_EQ(total.passed, 11);
    EXPECT_EQ(total.failed, 22);
    EXPECT_EQ(total.unreadable, 30);
    EXPECT_EQ(total.ExitStatus(), 2);
    EXPECT_EQ((ScriptCount{.passed = 3, .failed = 0, .unreadable = 0}.ExitStatus()), 0);
}

TEST(ScriptUsage, EveryCommandHasALine) {
    const std::string usage = ScriptRunner::Usage();
    std::size_t lines = 0;
    for (const auto table : ScriptRunner::Commands()) {
        for (const ScriptCommand& command : table) {
            EXPECT_TRUE(command.usage.starts_with(command.name)) << command.name;
            EXPECT_NE(usage.find("  " + std::string(command.usage) + "\n"), std::string::npos) << command.name;
            ++lines;
        }
    }
    for (const char* own : {"include FILE", "refused COMMAND", "expect not ..."}) {
        EXPECT_NE(usage.find("  " + std::string(own) + "\n"), std::string::npos) << own;
        ++lines;
    }
    EXPECT_EQ(static_cast<std::size_t>(std::count(usage.begin(), usage.end(), '\n')), lines);
}

}  // namespace
}  // namespace zt
