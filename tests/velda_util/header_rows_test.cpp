#include "velda_util/style/header_rows.h"

#include <algorithm>
#include <random>
#include <stdexcept>

#include "velda_lib/msg_dll.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {

void PrintTo(const HeaderSpan& span, std::ostream* out) {
    *out << "rows " << span.firstRow << "-" << span.lastRow << " places " << span.firstPlace << "-" << span.lastPlace
         << " \"" << span.text << '"';
}

namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;
using Ids = std::vector<std::uint32_t>;

/// "No" over both rows, "Drift" over "X" and "Y", "Remark" in the upper row alone.
HeaderRows Drifts() {
    HeaderRows header(2);
    EXPECT_TRUE(header.SetGroup(0, 1, Ids{0}, "No"));
    EXPECT_TRUE(header.SetGroup(0, 0, Ids{1, 2}, "Drift"));
    header.SetTitle(1, 1, "X");
    header.SetTitle(1, 2, "Y");
    header.SetTitle(0, 3, "Remark");
    return header;
}

TEST(HeaderRows, ACellTakesTheTextOfItsGroupOrItsOwnOrItsColumns) {
    const HeaderRows header = Drifts();
    EXPECT_EQ(header.Text(0, 0), "No");
    EXPECT_EQ(header.Text(1, 0), "No");
    EXPECT_EQ(header.Text(0, 2), "Drift");
    EXPECT_EQ(header.Text(1, 2), "Y");
    EXPECT_EQ(header.Text(1, 3), "Remark");
    EXPECT_EQ(header.Text(1, 4), "");
}

TEST(HeaderRows, AColumnIsNamedByItsLowestCell) {
    const HeaderRows header = Drifts();
    EXPECT_EQ(header.ColumnTitle(0), "No");
    EXPECT_EQ(header.ColumnTitle(1), "X");
    EXPECT_EQ(header.ColumnTitle(3), "Remark");
}

TEST(HeaderRows, TextsFallUpwardWhenNothingStandsAbove) {
    HeaderRows header(3);
    header.SetTitle(2, 0, "low");
    EXPECT_EQ(header.Text(0, 0), "low");
    header.SetTitle(0, 0, "high");
    EXPECT_EQ(header.Text(1, 0), "high");
}

TEST(HeaderRows, AnEmptyTitleStopsTheFall) {
    HeaderRows header(2);
    header.SetTitle(0, 0, "above");
    header.SetTitle(1, 0, "");
    EXPECT_EQ(header.Text(1, 0), "");
}

TEST(HeaderRows, SpansFollowGroupsAndFallThrough) {
    const HeaderRows header = Drifts();
    EXPECT_THAT(
        header.Spans(Ids{0, 1, 2, 3}),
        UnorderedElementsAre(HeaderSpan{0, 1, 0, 0, "No"}, HeaderSpan{0, 0, 1, 2, "Drift"}, HeaderSpan{1, 1, 1, 1, "X"},
                             HeaderSpan{1, 1, 2, 2, "Y"}, HeaderSpan{0, 1, 3, 3, "Remark"}));
}

TEST(HeaderRows, AGroupWhoseColumnsArePartedBreaksIntoPiecesWithItsTitle) {
    const HeaderRows header = Drifts();
    EXPECT_THAT(
        header.Spans(Ids{1, 0, 2}),
        UnorderedElementsAre(HeaderSpan{0, 0, 0, 0, "Drift"}, HeaderSpan{1, 1, 0, 0, "X"}, HeaderSpan{0, 1, 1, 1, "No"},
                             HeaderSpan{0, 0, 2, 2, "Drift"}, HeaderSpan{1, 1, 2, 2, "Y"}));
}

TEST(HeaderRows, AHiddenColumnLeavesItsGroup) {
    HeaderRows header(1);
    ASSERT_TRUE(header.SetGroup(0, 0, Ids{0, 1, 2}, "G"));
    EXPECT_THAT(header.Spans(Ids{0, 2}), ElementsAre(HeaderSpan{0, 0, 0, 1, "G"}));
    EXPECT_THAT(header.Spans(Ids{1}), ElementsAre(HeaderSpan{0, 0, 0, 0, "G"}));
    EXPECT_THAT(header.Spans(Ids{}), ElementsAre());
}

TEST(HeaderRows, AGroupMaySpanRowsAndColumns) {
    HeaderRows header(3);
    header.SetTitle(0, 4, "Bars");
    ASSERT_TRUE(header.SetGroup(1, 2, Ids{4, 5}, "Across"));
    EXPECT_THAT(header.Spans(Ids{4, 5}),
                UnorderedElementsAre(HeaderSpan{0, 0, 0, 0, "Bars"}, HeaderSpan{0, 0, 1, 1, "Across"},
                                     HeaderSpan{1, 2, 0, 1, "Across"}));
}

TEST(HeaderRows, CellsWithoutTitlesUnderAGroupStandTogether) {
    HeaderRows header(3);
    ASSERT_TRUE(header.SetGroup(0, 0, Ids{0, 1}, "G"));
    header.SetTitle(1, 1, "b");
    EXPECT_THAT(header.Spans(Ids{0, 1}), UnorderedElementsAre(HeaderSpan{0, 0, 0, 1, "G"}, HeaderSpan{1, 2, 0, 0, "G"},
                                                              HeaderSpan{1, 2, 1, 1, "b"}));
}

TEST(HeaderRows, GroupsMayNotOverlap) {
    HeaderRows header = Drifts();
    const Outcome refused = header.SetGroup(0, 0, Ids{2, 3}, "Other");
    EXPECT_FALSE(refused);
    EXPECT_EQ(refused.Reason(), FormatText("IDS_TB_ENGINE_HEADER_GROUP_OVERLAPS", {"Other", "Drift"}));
    EXPECT_FALSE(header.SetGroup(1, 1, Ids{0}, "Other"));
    EXPECT_EQ(header.Text(0, 3), "Remark");
    EXPECT_EQ(header.Text(0, 2), "Drift");
}

TEST(HeaderRows, TheSameGroupAgainGetsTheNewTitle) {
    HeaderRows header = Drifts();
    EXPECT_TRUE(header.SetGroup(0, 0, Ids{2, 1, 1}, "Drift (mm)"));
    EXPECT_EQ(header.Text(0, 1), "Drift (mm)");
    EXPECT_EQ(header.Text(0, 2), "Drift (mm)");
}

TEST(HeaderRows, FewerRowsDropWhatStoodInTheOthers) {
    HeaderRows header = Drifts();
    header.SetRowCount(1);
    EXPECT_EQ(header.Text(0, 0), "");
    EXPECT_EQ(header.ColumnTitle(1), "Drift");
    header.SetRowCount(2);
    EXPECT_EQ(header.Text(1, 1), "Drift");
    EXPECT_TRUE(header.SetGroup(0, 1, Ids{0, 3}, "free again"));
    header.Clear();
    EXPECT_EQ(header.Text(0, 1), "");
    EXPECT_TRUE(header.SetGroup(0, 0, Ids{0, 1}, "after all"));
}

TEST(HeaderRows, RowsOutOfRangeAreRefused) {
    EXPECT_THROW(HeaderRows(0), std::invalid_argument);
    EXPECT_THROW(HeaderRows(4), std::invalid_argument);
    HeaderRows header(2);
    EXPECT_THROW(header.SetTitle(2, 0, "x"), std::invalid_argument);
    EXPECT_THROW((void)header.Text(2, 0), std::invalid_argument);
    EXPECT_THROW((void)header.SetGroup(1, 2, Ids{0}, "x"), std::invalid_argument);
    EXPECT_THROW((void)header.SetGroup(1, 0, Ids{0}, "x"), std::invalid_argument);
    EXPECT_THROW((void)header.SetGroup(0, 0, Ids{}, "x"), std::invalid_argument);
}

TEST(HeaderRows, SpansCoverEveryCellOnceWithItsText) {
    std::mt19937 random(9);
    const auto number = [&](std::uint32_t below) { return static_cast<std::uint32_t>(random() % below); };
    for (int round = 0; round < 2000; ++round) {
        HeaderRows header(1 + number(3));
        for (int i = 0; i < 8; ++i) {
            header.SetTitle(number(header.RowCount()), number(6), std::string(1, static_cast<char>('a' + i)));
        }
        for (int i = 0; i < 4; ++i) {
            const std::uint32_t row = number(header.RowCount());
            const Ids group = {number(6), number(6), number(6)};
            // One that overlaps an earlier group is refused, which is no matter here.
            (void)header.SetGroup(row, row + number(header.RowCount() - row), group,
                                  std::string(1, static_cast<char>('A' + i)));
        }
        Ids columns = {0, 1, 2, 3, 4, 5};
        std::shuffle(columns.begin(), columns.end(), random);
        columns.resize(number(7));

        std::vector<std::vector<int>> covered(header.RowCount(), std::vector<int>(columns.size(), 0));
        for (const HeaderSpan& span : header.Spans(columns)) {
            for (std::uint32_t row = span.firstRow; row <= span.lastRow; ++row) {
                for (std::uint32_t place = span.firstPlace; place <= span.lastPlace; ++place) {
                    ++covered[row][place];
                    ASSERT_EQ(header.Text(row, columns[place]), span.text);
                }
            }
        }
        for (const auto& row : covered) ASSERT_THAT(row, testing::Each(1));
    }
}

}  // namespace
}  // namespace velda
