#include "velda_util/clip/find_text.h"

#include <stdexcept>

#include "velda_util/clip/text_matcher.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;
using Place = std::pair<int, int>;

bool Contains(std::string_view cell, std::string_view text, bool matchCase) {
    return TextMatcher(text, matchCase).IsIn(cell);
}

TEST(TextMatcher, FindsAPartOfACell) {
    EXPECT_TRUE(Contains("Wall W200", "W2", true));
    EXPECT_TRUE(Contains("W200", "00", true));
    EXPECT_TRUE(Contains("W200", "W200", true));
    EXPECT_FALSE(Contains("W200", "W2000", true));
    EXPECT_FALSE(Contains("W200", "w2", true));
    EXPECT_TRUE(Contains("aab", "ab", false)) << "a match that begins within another one";
}

TEST(TextMatcher, DisregardsCaseBeyondLatinLetters) {
    EXPECT_TRUE(Contains("WALL w200", "Wall W", false));
    EXPECT_TRUE(Contains("Träger ÖST", "TRÄGER ö", false));
    EXPECT_TRUE(Contains("ΔΟΚΟΣ 1", "δοκοσ", false));
    EXPECT_TRUE(Contains("Балка", "БАЛ", false));
    EXPECT_FALSE(Contains("Балка", "БАЛ", true));
    EXPECT_TRUE(Contains("벽체 W1", "벽체 w", false));
    EXPECT_TRUE(Contains("벽체 W1", "w1", false));
    EXPECT_FALSE(Contains("벽체", "병", false));
}

TEST(TextMatcher, FindsAnEmptyTextNowhere) {
    EXPECT_FALSE(Contains("a", "", false));
    EXPECT_FALSE(Contains("", "", true));
    EXPECT_FALSE(Contains("", "a", false));
    EXPECT_FALSE(TextMatcher("", true).Is(""));
}

TEST(TextMatcher, ComparesWholeCells) {
    EXPECT_TRUE(TextMatcher("ÄB", false).Is("äb"));
    EXPECT_FALSE(TextMatcher("ÄB", true).Is("äb"));
    EXPECT_FALSE(TextMatcher("a", false).Is("ab"));
}

TEST(TextMatcher, ReplacesFromTheLeftWithoutOverlap) {
    std::size_t count = 9;
    EXPECT_EQ(TextMatcher("aa", false).ReplaceIn("aAaab", "a", count), "aab");
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(TextMatcher("Ö", false).ReplaceIn("벽öÖx", "oe", count), "벽oeoex");
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(TextMatcher("", false).ReplaceIn("ab", "x", count), "ab");
    EXPECT_EQ(count, 0u);
}

/// Three rows, four columns; the third column is hidden.
struct FindTextTest : testing::Test {
    FindArea area{.rowCount = 3, .columns = {{10}, {11}, {12, true}, {13}}};
    STBFindStruct settings{.text = "x", .currentRow = 1};
    std::vector<Place> matches;
    std::vector<Place> looked;

    FindResult Find() {
        looked.clear();
        return FindText(settings, area, [&](int row, int column) -> std::string_view {
            looked.emplace_back(row, column);
            return std::find(matches.begin(), matches.end(), Place{row, column}) != matches.end() ? "1x" : "1y";
        });
    }
};

TEST_F(FindTextTest, HasTheSettingsOfAFirstSearch) {
    const STBFindStruct fresh;
    EXPECT_EQ(fresh.text, "");
    EXPECT_FALSE(fresh.onlyCurrentColumn);
    EXPECT_FALSE(fresh.matchCase);
    EXPECT_EQ(fresh.direction, 1);
    const auto& [text, onlyCurrentColumn, matchCase, direction, currentRow] = STBFindStruct{"a", true, false, 0, 7};
    EXPECT_EQ(text, "a");
    EXPECT_TRUE(onlyCurrentColumn);
    EXPECT_FALSE(matchCase);
    EXPECT_EQ(direction, 0);
    EXPECT_EQ(currentRow, 7);
}

TEST_F(FindTextTest, LooksForwardAtEachVisibleCellOnce) {
    settings.currentRow = 2;
    area.currentColumn = 2;
    EXPECT_FALSE(Find().found);
    EXPECT_THAT(looked, ElementsAre(Place{2, 2}, Place{2, 4}, Place{3, 1}, Place{3, 2}, Place{3, 4}, Place{1, 1},
                                    Place{1, 2}, Place{1, 4}, Place{2, 1}));
}

TEST_F(FindTextTest, LooksBackwardAtEachVisibleCellOnce) {
    settings.currentRow = 2;
    settings.direction = 0;
    area.currentColumn = 2;
    EXPECT_FALSE(Find().found);
    EXPECT_THAT(looked, ElementsAre(Place{2, 2}, Place{2, 1}, Place{1, 4}, Place{1, 2}, Place{1, 1}, Place{3, 4},
                                    Place{3, 2}, Place{3, 1}, Place{2, 4}));
}

TEST_F(FindTextTest, KeepsToTheCurrentColumn) {
    settings.onlyCurrentColumn = true;
    settings.currentRow = 2;
    area.currentColumn = 4;
    Find();
    EXPECT_THAT(looked, ElementsAre(Place{2, 4}, Place{3, 4}, Place{1, 4}));
    settings.direction = 0;
    Find();
    EXPECT_THAT(looked, ElementsAre(Place{2, 4}, Place{1, 4}, Place{3, 4}));
}

TEST_F(FindTextTest, TellsWhetherItWrapped) {
    matches = {{1, 4}, {3, 1}};
    settings.currentRow = 2;
    FindResult result = Find();
    EXPECT_EQ(Place(result.row, result.column), Place(3, 1));
    EXPECT_TRUE(result.found);
    EXPECT_FALSE(result.wrapped);
    settings.currentRow = 3;
    area.currentColumn = 2;
    result = Find();
    EXPECT_EQ(Place(result.row, result.column), Place(1, 4));
    EXPECT_TRUE(result.wrapped);
    settings.direction = 0;
    settings.currentRow = 1;
    result = Find();
    EXPECT_EQ(Place(result.row, result.column), Place(3, 1));
    EXPECT_TRUE(result.wrapped);
}

TEST_F(FindTextTest, FindsTheCellThatItStartsIn) {
    matches = {{2, 2}};
    settings.currentRow = 2;
    area.currentColumn = 2;
    for (const int direction : {0, 1}) {
        settings.direction = direction;
        const FindResult result = Find();
        EXPECT_EQ(Place(result.row, result.column), Place(2, 2));
        EXPECT_FALSE(result.wrapped);
    }
}

TEST_F(FindTextTest, ARowPastTheEndWrapsAndOneBeforeItDoesNot) {
    matches = {{1, 1}, {3, 4}};
    const auto search = [&](int direction, int row) {
        settings.direction = direction;
        settings.currentRow = row;
        return Find();
    };
    const FindResult pastEnd = search(1, 4);
    EXPECT_EQ(pastEnd.row, 1);
    EXPECT_TRUE(pastEnd.wrapped);
    const FindResult pastBeginning = search(0, 0);
    EXPECT_EQ(pastBeginning.row, 3);
    EXPECT_TRUE(pastBeginning.wrapped);
    const FindResult fromHeader = search(1, 0);
    EXPECT_EQ(fromHeader.row, 1);
    EXPECT_FALSE(fromHeader.wrapped);
    const FindResult fromBelow = search(0, 4);
    EXPECT_EQ(fromBelow.row, 3);
    EXPECT_FALSE(fromBelow.wrapped);
}

TEST_F(FindTextTest, StartsBehindAHiddenCurrentColumn) {
    area.currentColumn = 3;
    Find();
    EXPECT_EQ(looked.front(), Place(1, 4));
    settings.direction = 0;
    Find();
    EXPECT_EQ(looked.front(), Place(1, 2));
}

TEST_F(FindTextTest, MatchesCaseWhereItIsTold) {
    matches = {{2, 1}};
    settings.text = "X";
    EXPECT_TRUE(Find().found);
    settings.matchCase = true;
    EXPECT_FALSE(Find().found);
}

TEST_F(FindTextTest, FindsNothingInAnEmptyTableOrForAnEmptyText) {
    settings.text = "";
    EXPECT_FALSE(Find().found);
    settings.text = "x";
    area.rowCount = 0;
    EXPECT_FALSE(Find().found);
    area = {.rowCount = 2, .columns = {{1, true}}};
    EXPECT_FALSE(Find().found);
}

TEST_F(FindTextTest, ACurrentColumnThatDoesNotExistIsWrongUse) {
    for (const int column : {0, 5}) {
        area.currentColumn = column;
        EXPECT_THROW(Find(), std::invalid_argument);
    }
}

}  // namespace
}  // namespace velda
