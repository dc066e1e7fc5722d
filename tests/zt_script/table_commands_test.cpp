#include <fstream>
#include <sstream>

#include "zt_script/script_runner.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using testing::HasSubstr;

/// Two thicknesses in millimetres, shown in the property view.
constexpr std::string_view kTable =
    "units length=mm\nrecord add THIK 3 name=\"W200\" thickness=200\nrecord add THIK 7 name=\"a | b\" thickness=150\n"
    "view prop THIK\n";
constexpr int kTableLines = 4;

struct RunResult {
    std::string output;
    ScriptCount count;
};

RunResult RunLines(const std::string& text) {
    std::ostringstream output;
    ScriptRunner runner(output);
    const ScriptCount count = runner.RunText("a.zts", text);
    return {output.str(), count};
}

RunResult RunOnTable(const std::string& lines) { return RunLines(std::string(kTable) + lines); }

void ExpectPasses(const std::string& lines, int passed) {
    const RunResult run = RunOnTable(lines);
    EXPECT_EQ(run.output, "") << lines;
    EXPECT_EQ(run.count.passed, passed) << lines;
}

/// The only line behind the table's fails with this output.
void ExpectFails(const std::string& line, const std::string& message) {
    const RunResult run = RunOnTable(line);
    EXPECT_EQ(run.output, "a.zts:" + std::to_string(kTableLines + 1) + ": " + message + "\n") << line;
    EXPECT_EQ(run.count.failed, 1) << line;
}

void ExpectUnreadable(const std::string& line, const std::string& why) {
    const RunResult run = RunOnTable(line);
    EXPECT_EQ(run.output, "a.zts:" + std::to_string(kTableLines + 1) + ": " + why + "\n") << line;
    EXPECT_EQ(run.count.unreadable, 1) << line;
}

// ---- columns and rows

TEST(TableCommands, AColumnIsNamedByItsTitleItsHeaderOrItsIdentifier) {
    ExpectPasses(
        "expect cell 1 \"Thickness\" \"200\"\nexpect cell 1 Thickness \"200\"\nexpect cell 1 \"Thickness (mm)\" "
        "\"200\"\n"
        "expect cell 1 #2 \"200\"\nexpect cell 1 #0 \"3\"\n",
        5);
}

TEST(TableCommands, AColumnKeepsItsIdentifierWhereverItIsMoved) {
    ExpectPasses("move #2 before #0\nexpect cell 1 #2 \"200\"\nexpect columns \"Thickness\" | \"Name\"\n", 2);
}

TEST(TableCommands, AnUnknownColumnIsNamed) {
    ExpectUnreadable("expect cell 1 \"Depth\" \"\"", "there is no column Depth");
    ExpectUnreadable("cell 1 #3", "there is no column #3");
    ExpectUnreadable("cell 1 #-1", "there is no column #-1");
    ExpectUnreadable("cell 1 \"#2\"", "there is no column #2");
    ExpectUnreadable("cell 1 \"Thickness (m)\"", "there is no column Thickness (m)");
    ExpectUnreadable("expect not cell 1 \"Depth\" \"\"", "there is no column Depth");
    ExpectUnreadable("sort \"Depth\" asc", "there is no column Depth");
}

TEST(TableCommands, ARowMustBeARow) {
    ExpectUnreadable("cell 0 \"Name\"", "0 is no row");
    ExpectUnreadable("cell one \"Name\"", "one is no row");
    ExpectUnreadable("cell \"1\" \"Name\"", "1 is no row");
    ExpectUnreadable("edit 99999999999 \"Name\" \"x\"", "99999999999 is no row");
}

TEST(TableCommands, ARowThatDoesNotExistFailsTurnedRoundOrNot) {
    ExpectFails("expect cell 3 \"Name\" \"x\"", "refused: there is no row 3");
    ExpectFails("expect not cell 3 \"Name\" \"x\"", "refused: there is no row 3");
    ExpectFails("expect not row 3: \"x\" | \"y\"", "refused: there is no row 3");
    ExpectPasses("refused edit 3 \"Name\" \"x\"\nexpect reason \"there is no row 3\"\n", 2);
}

// ---- rows of texts

TEST(TableCommands, TheTextsOfARowStandBetweenBars) {
    ExpectPasses("expect row 1: \"W200\" | \"200\"\nexpect row 1: W200 | 200\nexpect row 2: \"a | b\" | \"150\"\n", 3);
}

TEST(TableCommands, ARowThatDiffersTellsAllItsTexts) {
    ExpectFails("expect row 1: \"W200\" | \"201\"", "expected \"W200\" | \"201\", found \"W200\" | \"200\"");
    ExpectFails("expect row 1: \"W200\"", "expected \"W200\", found \"W200\" | \"200\"");
    ExpectFails("expect row 1: \"\" | \"W200\" | \"200\"",
                "expected \"\" | \"W200\" | \"200\", found \"W200\" | \"200\"");
}

TEST(TableCommands, ARowOfTextsThatIsWronglyWrittenCannotBeRead) {
    const std::string usage = "expect row R: \"a\" | \"b\" ...";
    for (const char* line :
         {"expect row 1:", "expect row 1 \"W200\" | \"200\"", "expect row 1: \"W200\" \"200\"",
          "expect row 1: \"W200\" |", "expect row 1: | \"200\"", "expect row 1: \"W200\" | | \"200\"",
          "expect row 1: \"W200\" \"|\" \"200\"", "expect row", "expect not row 1: |"}) {
        ExpectUnreadable(line, usage);
    }
    ExpectUnreadable("expect row x: \"a\"", "x is no row");
}

TEST(TableCommands, TheTitlesOfColumnsStandBetweenBars) {
    ExpectPasses("expect columns \"Name\" | \"Thickness\"\nexpect not columns \"Name\"\n", 2);
    ExpectFails("expect columns \"Name\" | \"Thickness (mm)\"",
                "expected \"Name\" | \"Thickness (mm)\", found \"Name\" | \"Thickness\"");
    ExpectUnreadable("expect columns", "expect columns \"A\" | \"B\" ...");
}

// ---- refusals and negation

TEST(TableCommands, ARefusedEditGivesItsWarningAsTheReason) {
    const std::string reason = "Thickness: \\\"x\\\" is not a number.";
    ExpectPasses("refused edit 1 \"Thickness\" \"x\"\nexpect reason \"" + reason + "\"\nexpect warning \"" + reason +
                     "\"\nexpect editing row 1\n",
                 4);
    ExpectFails("edit 1 \"Thickness\" \"x\"", "refused: Thickness: \"x\" is not a number.");
    ExpectFails("refused edit 1 \"Thickness\" \"1\"", "expected refused, found done");
}

TEST(TableCommands, AWarningIsForgottenByTheNextCommandAndByNoExpectation) {
    ExpectPasses(
        "refused edit 1 \"Thickness\" \"x\"\nexpect rows 2\n# comment\n\nexpect not no warning\nkey Esc\n"
        "expect no warning\n",
        4);
}

TEST(TableCommands, EveryExpectationCanBeTurnedRound) {
    ExpectPasses(
        "expect not rows 3\nexpect not cell 1 \"Name\" \"x\"\nexpect not row 1: \"x\" | \"y\"\nexpect not warning "
        "\"x\"\n"
        "expect not current 1 \"Name\"\nexpect not editing row 1\nexpect not hidden \"Name\"\nexpect not closed\n"
        "expect not dialog \"x\" 1\nexpect not enabled 1 #0\nexpect not style 1 \"Name\" bold=yes\n",
        11);
    ExpectFails("expect not rows 2", "expected not 2, found 2");
    ExpectFails("expect not browsing", "expected not browsing, found browsing");
}

TEST(TableCommands, WithoutATableCommandsOnItAreRefused) {
    const RunResult run = RunLines(
        "refused cell 1 \"Name\"\nexpect reason \"no table is open\"\nexpect rows 0\n"
        "expect not rows 0\nrefused tab 1\nexpect reason \"no view is open\"\nexpect closed\n");
    EXPECT_EQ(run.output, "a.zts:3: refused: no table is open\na.zts:4: refused: no table is open\n");
    EXPECT_EQ(run.count.passed, 5);
}

// ---- other words

TEST(TableCommands, WordsThatDoNotFitGetTheUsage) {
    ExpectUnreadable("key", "key CHORD");
    ExpectUnreadable("key Nonsense", "key CHORD");
    ExpectUnreadable("sort \"Name\"", "sort COL asc|desc ...");
    ExpectUnreadable("sort \"Name\" up", "sort COL asc|desc ...");
    ExpectUnreadable("find \"a\" back back", "find \"text\" [back] [case] [all]");
    ExpectUnreadable("find \"a\" \"back\"", "find \"text\" [back] [case] [all]");
    ExpectUnreadable("select rows 3-1", "select rows 1 3-5 ...");
    ExpectUnreadable("select rows 1-", "select rows 1 3-5 ...");
    ExpectUnreadable("select rows", "select rows 1 3-5 ...");
    ExpectUnreadable("view prop LOAD", "the property view has no table LOAD");
    ExpectUnreadable("view prop", "view prop THIK|3 [selected]");
    ExpectUnreadable("expect style 1 \"Name\" weight=7", "styles have no weight");
    ExpectUnreadable("expect style 1 \"Name\" bold", "styles have no bold");
    ExpectUnreadable("executed maybe", "executed on|off");
    ExpectUnreadable("call GetNothing 1", "unknown name GetNothing");
    ExpectUnreadable("call GetThikName \"W200\"", "call NAME \"text\"|NUMBER [NUMBER]");
    ExpectUnreadable("paste \"a\" \"b\"", "paste [\"a\\tb\\n\"]");
}

TEST(TableCommands, WhatDoesNotExistIsRefused) {
    ExpectFails("tab 4", "refused: there is no tab 4");
    ExpectFails("tab \"Materials\"", "refused: there is no tab Materials");
    ExpectFails("view 2", "refused: there is no view 2");
    ExpectFails("view 0", "refused: there is no view 0");
    ExpectFails("select rows 2-3", "refused: there is no row 3");
    ExpectFails("select nodes 8", "refused: 8 is no number in use");
}

TEST(TableCommands, TheViewsOfAScriptDoNotReachTheNextOne) {
    std::ostringstream output;
    ScriptRunner runner(output);
    runner.RunText("a.zts", std::string(kTable) + "width \"Name\" 300\nview close\nview prop THIK\n");
    const ScriptCount count = runner.RunText("b.zts", "expect closed\nview prop THIK\nexpect width \"Name\" 80\n");
    EXPECT_EQ(output.str(), "");
    EXPECT_EQ(count.passed, 2);
}

TEST(TableCommands, TheOpenRowOfAScriptThatEndsIsDropped) {
    EXPECT_EQ(RunOnTable("edit 1 \"Name\" \"x\"\n").output, "");
    EXPECT_EQ(RunOnTable("edit 1 \"Name\" \"x\"\ntype \"y\"\nmodel new\nexpect count THIK 0\n").output, "");
}

// ---- the book of the language

TEST(ScriptBook, EveryCommandIsTold) {
    std::ostringstream book;
    book << std::ifstream(ZT_SOURCE_DIR "/docs/scripting.md").rdbuf();
    ASSERT_THAT(book.str(), HasSubstr("# Table scripts"));
    for (const auto table : ScriptRunner::Commands()) {
        for (const ScriptCommand& command : table) {
            const std::string name = "`" + std::string(command.name);
            const bool told =
                book.str().find(name + " ") != std::string::npos || book.str().find(name + "`") != std::string::npos;
            EXPECT_TRUE(told) << command.name;
        }
    }
}

}  // namespace
}  // namespace zt
