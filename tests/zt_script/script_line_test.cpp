#include "zt_script/script_line.h"

#include "velda_lib/language.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Values(std::string_view line) {
    std::vector<std::string> values;
    const ScriptLine read = ReadScriptLine(line);
    EXPECT_EQ(read.fault, "") << line;
    for (const ScriptWord& word : read.words) values.push_back(word.value);
    return values;
}

ScriptWord OnlyWord(std::string_view line) {
    const ScriptLine read = ReadScriptLine(line);
    EXPECT_EQ(read.fault, "") << line;
    EXPECT_EQ(read.words.size(), 1u) << line;
    return read.words.empty() ? ScriptWord{} : read.words.front();
}

std::string FaultOf(std::string_view line) { return ReadScriptLine(line).fault; }

TEST(ScriptLine, BlanksAndTabsSeparateWords) {
    EXPECT_THAT(Values("record add THIK 1"), ElementsAre("record", "add", "THIK", "1"));
    EXPECT_THAT(Values("  record\t \tadd  "), ElementsAre("record", "add"));
}

TEST(ScriptLine, ALineOfNothingHasNoWords) {
    EXPECT_THAT(Values(""), IsEmpty());
    EXPECT_THAT(Values(" \t "), IsEmpty());
    EXPECT_THAT(Values("\r"), IsEmpty());
}

TEST(ScriptLine, ALineThatBeginsWithANumberSignIsAComment) {
    EXPECT_THAT(Values("# record add"), IsEmpty());
    EXPECT_THAT(Values("   # record add \"unclosed"), IsEmpty());
    EXPECT_THAT(Values("record # add"), ElementsAre("record", "#", "add"));
}

TEST(ScriptLine, TheCarriageReturnOfAForeignLineEndIsNoPartOfAWord) {
    EXPECT_THAT(Values("record add\r"), ElementsAre("record", "add"));
    EXPECT_THAT(Values("undo \"a\"\r"), ElementsAre("undo", "a"));
    EXPECT_THAT(Values("nodes=[1,2]\r"), ElementsAre("[1,2]"));
}

TEST(ScriptLine, AQuotedTextIsOneWord) {
    EXPECT_THAT(Values("undo to \"Add Thickness\""), ElementsAre("undo", "to", "Add Thickness"));
    EXPECT_THAT(Values("expect undo \"\""), ElementsAre("expect", "undo", ""));
    EXPECT_THAT(Values("\"# no comment\""), ElementsAre("# no comment"));
    EXPECT_THAT(Values("\"[1 2\""), ElementsAre("[1 2"));
}

TEST(ScriptLine, AQuotedWordSaysThatItIs) {
    EXPECT_TRUE(OnlyWord("\"undo\"").quoted);
    EXPECT_FALSE(OnlyWord("undo").quoted);
    EXPECT_FALSE(OnlyWord("[\"undo\"]").quoted);
}

TEST(ScriptLine, EscapesInQuotesAreResolved) {
    EXPECT_EQ(OnlyWord(R"("a\tb\nc\"d\\e")").value, "a\tb\nc\"d\\e");
    EXPECT_EQ(OnlyWord(R"("\\n")").value, "\\n");
}

TEST(ScriptLine, EscapesOutsideQuotesAreNot) { EXPECT_EQ(OnlyWord(R"(C:\new)").value, R"(C:\new)"); }

TEST(ScriptLine, AnUnknownEscapeIsAFault) {
    EXPECT_EQ(FaultOf(R"("a\qb")"), R"(unknown escape "\q")");
    EXPECT_NE(FaultOf("\"a\\"), "");
}

TEST(ScriptLine, AnUnclosedQuoteIsAFault) {
    EXPECT_EQ(FaultOf("undo \"Add"), "the quote is not closed");
    EXPECT_EQ(FaultOf("\""), "the quote is not closed");
    EXPECT_EQ(FaultOf(R"(name="a\")"), "the quote is not closed");
}

TEST(ScriptLine, AnUnclosedListIsAFault) {
    EXPECT_EQ(FaultOf("nodes=[1,2"), "the list is not closed");
    EXPECT_EQ(FaultOf("nodes=[[1,2]"), "the list is not closed");
    EXPECT_EQ(FaultOf("keys=[\"]"), "the list is not closed");
}

TEST(ScriptLine, AKeyInBracesStandsForItsText) {
    velda::SetCurrentLanguage(velda::Language::English);
    EXPECT_EQ(OnlyWord("\"Add {IDS_DB_DATA_NAME_THIK}!\"").value, "Add Thickness!");
    EXPECT_EQ(OnlyWord("\"{IDS_DB_DATA_NAME_THIK}{IDS_DB_DATA_NAME_MATL}\"").value, "ThicknessMaterial");
}

TEST(ScriptLine, AKeyThatNoTextBelongsToStandsForItself) {
    EXPECT_EQ(OnlyWord("\"{IDS_NOT_THERE}\"").value, "IDS_NOT_THERE");
}

TEST(ScriptLine, BracesAroundAnythingElseAreKept) {
    EXPECT_EQ(OnlyWord("\"{200} {name} {}\"").value, "{200} {name} {}");
    EXPECT_EQ(OnlyWord("\"{IDS_DB_DATA_NAME_THIK\"").value, "{IDS_DB_DATA_NAME_THIK");
    EXPECT_EQ(OnlyWord("{IDS_DB_DATA_NAME_THIK}").value, "{IDS_DB_DATA_NAME_THIK}");
}

TEST(ScriptLine, AWordWithAnEqualsSignHasANameAndAValue) {
    const ScriptWord word = OnlyWord("thickness=0.2");
    EXPECT_TRUE(word.assigns);
    EXPECT_EQ(word.name, "thickness");
    EXPECT_EQ(word.value, "0.2");
    EXPECT_FALSE(OnlyWord("thickness").assigns);
}

TEST(ScriptLine, AQuotedValueMayHoldAnything) {
    const ScriptWord word = OnlyWord("name=\"W 200 = \\\"wall\\\" # 1\"");
    EXPECT_EQ(word.name, "name");
    EXPECT_EQ(word.value, "W 200 = \"wall\" # 1");
    EXPECT_TRUE(word.quoted);
}

TEST(ScriptLine, AValueMayBeEmpty) {
    EXPECT_EQ(OnlyWord("name=").value, "");
    EXPECT_EQ(OnlyWord("name=\"\"").value, "");
    EXPECT_TRUE(OnlyWord("name=").assigns);
}

TEST(ScriptLine, OnlyTheFirstEqualsSignEndsTheName) {
    const ScriptWord word = OnlyWord("name=a=b");
    EXPECT_EQ(word.name, "name");
    EXPECT_EQ(word.value, "a=b");
}

TEST(ScriptLine, AnEqualsSignWithoutANameIsAPlainCharacter) {
    EXPECT_FALSE(OnlyWord("=5").assigns);
    EXPECT_EQ(OnlyWord("=5").value, "=5");
    EXPECT_FALSE(OnlyWord("\"name\"=5").assigns);
}

TEST(ScriptLine, AListIsOneWordWithItsBlanks) {
    EXPECT_THAT(Values("nodes=[1, 2,  3] plan=1"), ElementsAre("[1, 2,  3]", "1"));
    EXPECT_EQ(OnlyWord("items=[[1, 3, 1.2], [1,4]]").value, "[[1, 3, 1.2], [1,4]]");
    EXPECT_EQ(OnlyWord("keys=[]").name, "keys");
}

TEST(ScriptLine, QuotesInAListStayAndHideBrackets) {
    EXPECT_EQ(OnlyWord(R"(keys=["a ]", "b [", "c \"]"])").value, R"(["a ]", "b [", "c \"]"])");
}

TEST(ScriptLine, TextsOfEveryScriptAreTakenAsTheyAre) {
    EXPECT_THAT(Values("name=\"두께 🏢\" 두께"), ElementsAre("두께 🏢", "두께"));
}

}  // namespace
}  // namespace zt
