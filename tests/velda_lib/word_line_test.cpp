#include "velda_lib/word_line.h"

#include "velda_lib/language.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Values(std::string_view line) {
    std::vector<std::string> values;
    const WordLine read = ReadWordLine(line);
    EXPECT_EQ(read.fault, "") << line;
    for (const LineWord& word : read.words) values.push_back(word.value);
    return values;
}

LineWord OnlyWord(std::string_view line) {
    const WordLine read = ReadWordLine(line);
    EXPECT_EQ(read.fault, "") << line;
    EXPECT_EQ(read.words.size(), 1u) << line;
    return read.words.empty() ? LineWord{} : read.words.front();
}

std::string FaultOf(std::string_view line) { return ReadWordLine(line).fault; }

TEST(WordLine, BlanksAndTabsSeparateWords) {
    EXPECT_THAT(Values("record add THIK 1"), ElementsAre("record", "add", "THIK", "1"));
    EXPECT_THAT(Values("  record\t \tadd  "), ElementsAre("record", "add"));
}

TEST(WordLine, ALineOfNothingHasNoWords) {
    EXPECT_THAT(Values(""), IsEmpty());
    EXPECT_THAT(Values(" \t "), IsEmpty());
    EXPECT_THAT(Values("\r"), IsEmpty());
}

TEST(WordLine, ALineThatBeginsWithANumberSignIsAComment) {
    EXPECT_THAT(Values("# record add"), IsEmpty());
    EXPECT_THAT(Values("   # record add \"unclosed"), IsEmpty());
    EXPECT_THAT(Values("record # add"), ElementsAre("record", "#", "add"));
}

TEST(WordLine, TheCarriageReturnOfAForeignLineEndIsNoPartOfAWord) {
    EXPECT_THAT(Values("record add\r"), ElementsAre("record", "add"));
    EXPECT_THAT(Values("undo \"a\"\r"), ElementsAre("undo", "a"));
    EXPECT_THAT(Values("nodes=[1,2]\r"), ElementsAre("[1,2]"));
}

TEST(WordLine, AQuotedTextIsOneWord) {
    EXPECT_THAT(Values("undo to \"Add Thickness\""), ElementsAre("undo", "to", "Add Thickness"));
    EXPECT_THAT(Values("expect undo \"\""), ElementsAre("expect", "undo", ""));
    EXPECT_THAT(Values("\"# no comment\""), ElementsAre("# no comment"));
    EXPECT_THAT(Values("\"[1 2\""), ElementsAre("[1 2"));
}

TEST(WordLine, AQuotedWordSaysThatItIs) {
    EXPECT_TRUE(OnlyWord("\"undo\"").quoted);
    EXPECT_FALSE(OnlyWord("undo").quoted);
    EXPECT_FALSE(OnlyWord("[\"undo\"]").quoted);
}

TEST(WordLine, EscapesInQuotesAreResolved) {
    EXPECT_EQ(OnlyWord(R"("a\tb\nc\"d\\e")").value, "a\tb\nc\"d\\e");
    EXPECT_EQ(OnlyWord(R"("\\n")").value, "\\n");
}

TEST(WordLine, EscapesOutsideQuotesAreNot) { EXPECT_EQ(OnlyWord(R"(C:\new)").value, R"(C:\new)"); }

TEST(WordLine, AnUnknownEscapeIsAFault) {
    EXPECT_EQ(FaultOf(R"("a\qb")"), R"(unknown escape "\q")");
    EXPECT_NE(FaultOf("\"a\\"), "");
}

TEST(WordLine, AnUnclosedQuoteIsAFault) {
    EXPECT_EQ(FaultOf("undo \"Add"), "the quote is not closed");
    EXPECT_EQ(FaultOf("\""), "the quote is not closed");
    EXPECT_EQ(FaultOf(R"(name="a\")"), "the quote is not closed");
}

TEST(WordLine, AnUnclosedListIsAFault) {
    EXPECT_EQ(FaultOf("nodes=[1,2"), "the list is not closed");
    EXPECT_EQ(FaultOf("nodes=[[1,2]"), "the list is not closed");
    EXPECT_EQ(FaultOf("keys=[\"]"), "the list is not closed");
}

TEST(WordLine, AKeyInBracesStandsForItsText) {
    SetCurrentLanguage(Language::English);
    EXPECT_EQ(OnlyWord("\"Add {IDS_DB_DATA_NAME_THIK}!\"").value, "Add Thickness!");
    EXPECT_EQ(OnlyWord("\"{IDS_DB_DATA_NAME_THIK}{IDS_DB_DATA_NAME_MATL}\"").value, "ThicknessMaterial");
}

TEST(WordLine, AKeyThatNoTextBelongsToStandsForItself) {
    EXPECT_EQ(OnlyWord("\"{IDS_NOT_THERE}\"").value, "IDS_NOT_THERE");
}

TEST(WordLine, BracesAroundAnythingElseAreKept) {
    EXPECT_EQ(OnlyWord("\"{200} {name} {}\"").value, "{200} {name} {}");
    EXPECT_EQ(OnlyWord("\"{IDS_DB_DATA_NAME_THIK\"").value, "{IDS_DB_DATA_NAME_THIK");
    EXPECT_EQ(OnlyWord("{IDS_DB_DATA_NAME_THIK}").value, "{IDS_DB_DATA_NAME_THIK}");
}

TEST(WordLine, AWordWithAnEqualsSignHasANameAndAValue) {
    const LineWord word = OnlyWord("thickness=0.2");
    EXPECT_TRUE(word.assigns);
    EXPECT_EQ(word.name, "thickness");
    EXPECT_EQ(word.value, "0.2");
    EXPECT_FALSE(OnlyWord("thickness").assigns);
}

TEST(WordLine, AQuotedValueMayHoldAnything) {
    const LineWord word = OnlyWord("name=\"W 200 = \\\"wall\\\" # 1\"");
    EXPECT_EQ(word.name, "name");
    EXPECT_EQ(word.value, "W 200 = \"wall\" # 1");
    EXPECT_TRUE(word.quoted);
}

TEST(WordLine, AValueMayBeEmpty) {
    EXPECT_EQ(OnlyWord("name=").value, "");
    EXPECT_EQ(OnlyWord("name=\"\"").value, "");
    EXPECT_TRUE(OnlyWord("name=").assigns);
}

TEST(WordLine, OnlyTheFirstEqualsSignEndsTheName) {
    const LineWord word = OnlyWord("name=a=b");
    EXPECT_EQ(word.name, "name");
    EXPECT_EQ(word.value, "a=b");
}

TEST(WordLine, AnEqualsSignWithoutANameIsAPlainCharacter) {
    EXPECT_FALSE(OnlyWord("=5").assigns);
    EXPECT_EQ(OnlyWord("=5").value, "=5");
    EXPECT_FALSE(OnlyWord("\"name\"=5").assigns);
}

TEST(WordLine, AListIsOneWordWithItsBlanks) {
    EXPECT_THAT(Values("nodes=[1, 2,  3] plan=1"), ElementsAre("[1, 2,  3]", "1"));
    EXPECT_EQ(OnlyWord("items=[[1, 3, 1.2], [1,4]]").value, "[[1, 3, 1.2], [1,4]]");
    EXPECT_EQ(OnlyWord("keys=[]").name, "keys");
}

TEST(WordLine, QuotesInAListStayAndHideBrackets) {
    EXPECT_EQ(OnlyWord(R"(keys=["a ]", "b [", "c \"]"])").value, R"(["a ]", "b [", "c \"]"])");
}

TEST(WordLine, TextsOfEveryScriptAreTakenAsTheyAre) {
    EXPECT_THAT(Values("name=\"두께 🏢\" 두께"), ElementsAre("두께 🏢", "두께"));
}

}  // namespace
}  // namespace velda
