#include "velda_util/list/choice_list.h"

#include <array>
#include <chrono>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;

ChoiceList KeysAndNames(std::string lines) { return ChoiceList(std::move(lines), 0, 1); }

TEST(ChoiceList, ReadsKeysAndNames) {
    const ChoiceList list = KeysAndNames("1\tC24\n12\tSS275 x\n");
    ASSERT_EQ(list.Count(), 2u);
    EXPECT_EQ(list.Line(1), "12\tSS275 x");
    EXPECT_EQ(list.Key(1), "12");
    EXPECT_EQ(list.Text(1), "SS275 x");
    EXPECT_EQ(list.Lines(), "1\tC24\n12\tSS275 x\n");
}

TEST(ChoiceList, ReadsBareNames) {
    const ChoiceList list("None\n서쪽 코어\n");
    ASSERT_EQ(list.Count(), 2u);
    EXPECT_EQ(list.Key(1), "서쪽 코어");
    EXPECT_EQ(list.Text(1), "서쪽 코어");
}

TEST(ChoiceList, TheEndOfTheLastLineMayBeMissing) {
    EXPECT_EQ(ChoiceList("Yes\nNo").Count(), 2u);
    EXPECT_EQ(ChoiceList("Yes\nNo\n").Count(), 2u);
}

TEST(ChoiceList, MayBeEmptyOrHoldEmptyLines) {
    EXPECT_TRUE(ChoiceList().IsEmpty());
    EXPECT_TRUE(ChoiceList("").IsEmpty());
    EXPECT_EQ(ChoiceList("\n").Count(), 1u);
    EXPECT_THAT(ChoiceList("a\n\nb").IndexOfText(""), Optional(1u));
}

TEST(ChoiceList, AnEmptyOneFindsNothingAndShowsTheValue) {
    const ChoiceList list;
    EXPECT_EQ(list.IndexOfKey(""), std::nullopt);
    EXPECT_EQ(list.IndexOfText("a"), std::nullopt);
    EXPECT_EQ(list.IndexOfTyped("a", std::nullopt), std::nullopt);
    EXPECT_EQ(list.ShownText("stored"), "stored");
    EXPECT_EQ(list.JoinedText({}), "");
}

TEST(ChoiceList, ALineThatDoesNotExistIsWrongUse) {
    const ChoiceList list("a\n");
    EXPECT_THROW(list.Line(1), std::invalid_argument);
    EXPECT_THROW(list.Key(1), std::invalid_argument);
    EXPECT_THROW(list.Text(1), std::invalid_argument);
    EXPECT_THROW(list.JoinedText(std::array<std::size_t, 1>{1}), std::invalid_argument);
    EXPECT_THROW(ChoiceList("a", -1, 0), std::invalid_argument);
    EXPECT_THROW(ChoiceList("a", 0, -1), std::invalid_argument);
}

TEST(ChoiceList, FindsAKey) {
    const ChoiceList list = KeysAndNames("10\tb\n2\ta\n0\tNone\n");
    EXPECT_THAT(list.IndexOfKey("10"), Optional(0u));
    EXPECT_THAT(list.IndexOfKey("0"), Optional(2u)) << "key 0 is a key like any other";
    EXPECT_EQ(list.IndexOfKey("1"), std::nullopt);
    EXPECT_EQ(list.IndexOfKey(""), std::nullopt);
    EXPECT_EQ(list.IndexOfKey("a"), std::nullopt);
}

TEST(ChoiceList, TheFirstOfEqualLinesCounts) {
    const ChoiceList list = KeysAndNames("5\tx\n1\ta\n1\tb\n2\ta\n");
    EXPECT_THAT(list.IndexOfKey("1"), Optional(1u));
    EXPECT_THAT(list.IndexOfText("a"), Optional(1u));
}

TEST(ChoiceList, FindsATextExactlyBeforeItDisregardsCase) {
    const ChoiceList list("ab\nAB\nÖst\n벽\n");
    EXPECT_THAT(list.IndexOfText("AB"), Optional(1u));
    EXPECT_THAT(list.IndexOfText("Ab"), Optional(0u));
    EXPECT_THAT(list.IndexOfText("öST"), Optional(2u));
    EXPECT_THAT(list.IndexOfText("벽"), Optional(3u));
    EXPECT_EQ(list.IndexOfText("a"), std::nullopt);
}

TEST(ChoiceList, ShowsTheNameOfAKeyAndAnyOtherValueAsItStands) {
    const ChoiceList list = KeysAndNames("1\tC24\n2\n");
    EXPECT_EQ(list.ShownText("1"), "C24");
    EXPECT_EQ(list.ShownText("2"), "2") << "a line without a name shows its key";
    EXPECT_EQ(list.ShownText("9"), "9");
    EXPECT_EQ(list.ShownText(""), "");
}

TEST(ChoiceList, TheKeyMayStandInALaterColumn) {
    const ChoiceList list("C24\t7\tx\n", 1, 0);
    EXPECT_EQ(list.Key(0), "7");
    EXPECT_EQ(list.Text(0), "C24");
    EXPECT_EQ(list.ShownText("7"), "C24");
}

TEST(ChoiceList, OneTypedCharacterGoesOnBehindTheCurrentLine) {
    const ChoiceList list("Beam\nbrace\nColumn\nBase\n");
    EXPECT_THAT(list.IndexOfTyped("b", std::nullopt), Optional(0u));
    EXPECT_THAT(list.IndexOfTyped("b", 0), Optional(1u));
    EXPECT_THAT(list.IndexOfTyped("b", 1), Optional(3u));
    EXPECT_THAT(list.IndexOfTyped("B", 3), Optional(0u));
    EXPECT_THAT(list.IndexOfTyped("c", 2), Optional(2u)) << "the only line with it is the current one";
    EXPECT_EQ(list.IndexOfTyped("x", 0), std::nullopt);
    EXPECT_EQ(list.IndexOfTyped("", 0), std::nullopt);
}

TEST(ChoiceList, MoreTypedCharactersStayAtTheCurrentLineWhileItFits) {
    const ChoiceList list("Base\nBeam\nBeam 2\n");
    EXPECT_THAT(list.IndexOfTyped("be", 0), Optional(1u));
    EXPECT_THAT(list.IndexOfTyped("bea", 1), Optional(1u));
    EXPECT_THAT(list.IndexOfTyped("beam ", 1), Optional(2u));
    EXPECT_THAT(list.IndexOfTyped("ba", 2), Optional(0u)) << "on from the beginning";
    EXPECT_EQ(list.IndexOfTyped("bx", 1), std::nullopt);
}

TEST(ChoiceList, ARepeatedCharacterCyclesUnlessATextBeginsWithIt) {
    const ChoiceList list("벽1\n벽2\n보\n벽3\n");
    EXPECT_THAT(list.IndexOfTyped("벽벽", 0), Optional(1u));
    EXPECT_THAT(list.IndexOfTyped("벽벽벽", 1), Optional(3u));
    EXPECT_THAT(list.IndexOfTyped("벽벽벽벽", 3), Optional(0u));
    const ChoiceList doubled("Aa\nAbc\nAAB\n");
    EXPECT_THAT(doubled.IndexOfTyped("aa", 1), Optional(2u));
    EXPECT_THAT(doubled.IndexOfTyped("aaa", 1), Optional(2u));
}

TEST(ChoiceList, TypingLooksAtTheShownText) {
    EXPECT_THAT(KeysAndNames("1\t2x\n2\t1x\n").IndexOfTyped("1", std::nullopt), Optional(1u));
}

TEST(ChoiceList, JoinsChosenTextsInTheOrderOfTheList) {
    const ChoiceList list = KeysAndNames("1\tD13\n2\tD16\n3\tD19\n");
    EXPECT_EQ(list.JoinedText(std::array<std::size_t, 3>{2, 0, 2}), "D13,D19");
    std::vector<std::size_t> lines{9};
    EXPECT_TRUE(list.ReadJoinedText("D19, d13 ,,D19", lines));
    EXPECT_THAT(lines, ElementsAre(0u, 2u));
    EXPECT_TRUE(list.ReadJoinedText(" ", lines));
    EXPECT_THAT(lines, IsEmpty());
}

TEST(ChoiceList, AJoinedTextThatIsNotInTheListIsRefused) {
    const ChoiceList list("D13\nD16\n");
    std::vector<std::size_t> lines{7};
    const Outcome outcome = list.ReadJoinedText("D13,D14", lines);
    EXPECT_FALSE(outcome);
    EXPECT_EQ(outcome.Reason(), "\"D14\" is not in the list.");
    EXPECT_THAT(lines, ElementsAre(7u));
    EXPECT_FALSE(ChoiceList().ReadJoinedText("a", lines));
}

TEST(ChoiceList, ATextWithACommaIsReadAsAWhole) {
    const ChoiceList list("L\nL, LR\nW,E,T\nE\n");
    std::vector<std::size_t> lines;
    EXPECT_TRUE(list.ReadJoinedText(list.JoinedText(std::array<std::size_t, 3>{1, 2, 3}), lines));
    EXPECT_THAT(lines, ElementsAre(1u, 2u, 3u));
    EXPECT_TRUE(list.ReadJoinedText("L,E", lines));
    EXPECT_THAT(lines, ElementsAre(0u, 3u));
    EXPECT_FALSE(list.ReadJoinedText("L,W,E", lines)) << "a part of a text is no text";
}

TEST(ChoiceList, HoldsFlagsBehindAnEmptyLine) {
    const ChoiceList list("\nDx\nDy\nDz");
    EXPECT_TRUE(list.HoldsFlags());
    EXPECT_FALSE(ChoiceList("Dx\n\nDy\n").HoldsFlags());
    EXPECT_FALSE(ChoiceList().HoldsFlags());
    EXPECT_EQ(list.JoinedText(std::array<std::size_t, 3>{3, 0, 1}), "101");
    EXPECT_EQ(list.JoinedText({}), "000");
    std::vector<std::size_t> lines{9};
    EXPECT_TRUE(list.ReadJoinedText("011", lines));
    EXPECT_THAT(lines, ElementsAre(2u, 3u));
    EXPECT_TRUE(list.ReadJoinedText("1", lines)) << "zeros in front may be missing";
    EXPECT_THAT(lines, ElementsAre(3u));
    EXPECT_TRUE(list.ReadJoinedText("Dz, dx", lines)) << "names are read, too";
    EXPECT_THAT(lines, ElementsAre(1u, 3u));
    EXPECT_TRUE(list.ReadJoinedText("", lines));
    EXPECT_THAT(lines, IsEmpty());
    EXPECT_FALSE(list.ReadJoinedText("0110", lines));
    EXPECT_FALSE(list.ReadJoinedText("Rx", lines));
}

TEST(ChoiceList, CopiesShareOneList) {
    const ChoiceList list("a\nb\n");
    const std::vector<ChoiceList> cells(1000, list);
    EXPECT_TRUE(cells.back().SharesWith(list));
    EXPECT_EQ(cells.back().Lines().data(), list.Lines().data());
    EXPECT_FALSE(ChoiceList("a\nb\n").SharesWith(list));
}

TEST(ChoiceList, IsEqualByLinesAndColumns) {
    const ChoiceList list = KeysAndNames("1\ta\n");
    EXPECT_EQ(list, ChoiceList(list));
    EXPECT_EQ(list, KeysAndNames("1\ta\n"));
    EXPECT_NE(list, KeysAndNames("1\ta"));
    EXPECT_NE(list, ChoiceList("1\ta\n", 0, 0));
    EXPECT_NE(list, ChoiceList("1\ta\n", 1, 1));
    EXPECT_EQ(ChoiceList(), ChoiceList(""));
}

TEST(ChoiceList, OtherColumnsOfItsLinesAreAnotherListOfTheSameText) {
    const ChoiceList names("1\tC24\tx\n2\tc30\ty\n");
    const ChoiceList byName = names.ByColumns(1, 2);
    EXPECT_EQ(&byName.Lines(), &names.Lines());
    EXPECT_EQ(byName.KeyColumn(), 1);
    EXPECT_EQ(byName.TextColumn(), 2);
    EXPECT_EQ(byName, ChoiceList(names.Lines(), 1, 2));
    EXPECT_NE(byName, names);
    EXPECT_EQ(byName.ByColumns(0, 0), names);
    EXPECT_FALSE(byName.ByColumns(1, 2).SharesWith(byName));
    EXPECT_THROW(names.ByColumns(-1, 0), std::invalid_argument);
    EXPECT_THROW(names.ByColumns(0, -1), std::invalid_argument);
}

TEST(ChoiceList, ListsOfOneTextLookUpEachByItsOwnColumns) {
    const ChoiceList first("a\tB\nb\tA\n");
    const ChoiceList second = first.ByColumns(1, 0);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(first.ShownText("a"), "a");
        EXPECT_EQ(second.ShownText("A"), "b");
        EXPECT_THAT(first.IndexOfText("B"), Optional(1u));
        EXPECT_THAT(second.IndexOfText("B"), Optional(1u));
        EXPECT_THAT(first.ByColumns(0, 1).IndexOfText("b"), Optional(0u));
    }
}

TEST(ChoiceList, ListsOfOneTextOutliveEachOther) {
    ChoiceList names;
    {
        const ChoiceList keys("1\tabc\n2\td\n");
        names = keys.ByColumns(0, 1);
    }
    EXPECT_EQ(names.ShownText("1"), "abc");
}

TEST(ChoiceList, TheKeyOfALineWithoutAKeyColumnIsTheWholeLine) {
    const ChoiceList list("a\nd\te\n", 1, 0);
    EXPECT_THAT(list.IndexOfKey("a"), Optional(0u));
    EXPECT_EQ(list.IndexOfKey(""), std::nullopt);
    EXPECT_EQ(list.ShownText("e"), "d");
}

TEST(ChoiceList, ACopyOutlivesItsOriginal) {
    ChoiceList copy;
    {
        const ChoiceList list("abc\nd\n");
        copy = list;
    }
    EXPECT_THAT(copy.IndexOfText("D"), Optional(1u));
}

TEST(ChoiceList, IsQuickWithTenThousandLines) {
    std::string text;
    for (int i = 0; i < 10'000; ++i) text += std::to_string(i) + "\tName " + std::to_string(i) + "\n";
    const auto start = std::chrono::steady_clock::now();
    const ChoiceList list = KeysAndNames(text);
    std::vector<std::size_t> all;
    for (std::size_t i = 0; i < 10'000; ++i) {
        ASSERT_THAT(list.IndexOfKey(list.Key(i)), Optional(i));
        ASSERT_THAT(list.IndexOfText("NAME " + std::to_string(i)), Optional(i));
        all.push_back(i);
    }
    std::vector<std::size_t> read;
    EXPECT_TRUE(list.ReadJoinedText(list.JoinedText(all), read));
    EXPECT_THAT(read, Eq(all));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

}  // namespace
}  // namespace velda
