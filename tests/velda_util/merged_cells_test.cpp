#include "velda_util/style/merged_cells.h"

#include <random>
#include <stdexcept>

#include "velda_lib/msg_dll.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;

TEST(MergedCells, FindsTheMergeThatCoversACell) {
    MergedCells merged;
    ASSERT_TRUE(merged.Add({0, 5, 0, 7}));
    ASSERT_TRUE(merged.Add({2, 1, 4, 1}));
    EXPECT_EQ(merged.Find(0, 6), CGXRange(0, 5, 0, 7));
    EXPECT_EQ(merged.Find(4, 1), CGXRange(2, 1, 4, 1));
    EXPECT_EQ(merged.Find(1, 6), std::nullopt);
    EXPECT_EQ(merged.Find(5, 1), std::nullopt);
    EXPECT_EQ(merged.Find(0, 8), std::nullopt);
    EXPECT_EQ(merged.Count(), 2u);
}

TEST(MergedCells, AnOverlapIsRefusedWithTheMergeNamed) {
    MergedCells merged;
    ASSERT_TRUE(merged.Add({2, 1, 4, 3}));
    const Outcome refused = merged.Add({4, 3, 6, 5});
    EXPECT_FALSE(refused);
    EXPECT_EQ(refused.Reason(), FormatText("IDS_TB_ENGINE_MERGE_OVERLAPS", {"2", "4", "1", "3"}));
    EXPECT_FALSE(merged.Add({3, 2}));
    EXPECT_FALSE(merged.Add({0, 0, 9, 9}));
    EXPECT_THAT(merged.All(), ElementsAre(CGXRange(2, 1, 4, 3)));
}

TEST(MergedCells, TheSameMergeAgainChangesNothing) {
    MergedCells merged;
    ASSERT_TRUE(merged.Add({2, 1, 4, 3}));
    EXPECT_TRUE(merged.Add({2, 1, 4, 3}));
    EXPECT_EQ(merged.Count(), 1u);
}

TEST(MergedCells, OneCellNeedsNoMerge) {
    MergedCells merged;
    EXPECT_TRUE(merged.Add({2, 2}));
    EXPECT_EQ(merged.Count(), 0u);
}

TEST(MergedCells, OnlyARangeOfTheGridCanBeMerged) {
    MergedCells merged;
    EXPECT_THROW((void)merged.Add({}), std::invalid_argument);
    EXPECT_THROW((void)merged.Add(CGXRange().SetRows(1)), std::invalid_argument);
    EXPECT_THROW((void)merged.Add(CGXRange().SetCols(1)), std::invalid_argument);
    EXPECT_THROW((void)merged.Add({0, 0, 1, kMaxColumns}), std::invalid_argument);
    EXPECT_EQ(merged.Count(), 0u);
}

TEST(MergedCells, AnyCellOfAMergeUndoesIt) {
    MergedCells merged;
    ASSERT_TRUE(merged.Add({2, 1, 4, 3}));
    EXPECT_FALSE(merged.Remove(1, 1));
    EXPECT_TRUE(merged.Remove(3, 2));
    EXPECT_FALSE(merged.Remove(3, 2));
    EXPECT_EQ(merged.Count(), 0u);
    EXPECT_TRUE(merged.Add({4, 3, 6, 5}));
}

TEST(MergedCells, InsertedRowsMoveOrStretchAMerge) {
    MergedCells merged;
    ASSERT_TRUE(merged.Add({2, 1, 4, 1}));
    merged.InsertRows(5, 10);
    EXPECT_THAT(merged.All(), ElementsAre(CGXRange(2, 1, 4, 1)));
    merged.InsertRows(3, 2);
    EXPECT_THAT(merged.All(), ElementsAre(CGXRange(2, 1, 6, 1)));
    merged.InsertRows(2, 1);
    EXPECT_THAT(merged.All(), ElementsAre(CGXRange(3, 1, 7, 1)));
}

TEST(MergedCells, RemovedRowsMoveOrShrinkAMerge) {
    MergedCells merged;
    ASSERT_TRUE(merged.Add({5, 1, 9, 2}));
    merged.RemoveRows(10, 5);
    EXPECT_THAT(merged.All(), ElementsAre(CGXRange(5, 1, 9, 2)));
    merged.RemoveRows(0, 2);
    EXPECT_THAT(merged.All(), ElementsAre(CGXRange(3, 1, 7, 2)));
    merged.RemoveRows(2, 2);
    EXPECT_THAT(merged.All(), ElementsAre(CGXRange(2, 1, 5, 2)));
    merged.RemoveRows(3, 3);
    EXPECT_THAT(merged.All(), ElementsAre(CGXRange(2, 1, 2, 2)));
    merged.RemoveRows(2, 1);
    EXPECT_EQ(merged.Count(), 0u);
}

TEST(MergedCells, AMergeOfWhichOneCellIsLeftGoes) {
    MergedCells merged;
    ASSERT_TRUE(merged.Add({5, 1, 6, 1}));
    merged.RemoveRows(6, 1);
    EXPECT_EQ(merged.Count(), 0u);
}

/// Merges as a grid of numbers, one for each merge; 0 for a cell by itself.
class NaiveMerges {
public:
    static constexpr std::uint32_t kRows = 14;
    static constexpr std::uint32_t kCols = 5;

    NaiveMerges() : rows_(kRows, Row(kCols, 0)) {}

    bool Add(const CGXRange& cells) {
        if (cells.CellCount() > 1 && Covered(cells) == std::vector<CGXRange>{cells}) return true;
        if (!Covered(cells).empty()) return false;
        ++last_;
        for (const auto& [row, col] : cells) rows_[row][col] = cells.CellCount() > 1 ? last_ : 0;
        return true;
    }
    void Remove(std::uint32_t row, std::uint32_t col) {
        if (const auto merge = Find(row, col)) {
            for (const auto& [r, c] : *merge) rows_[r][c] = 0;
        }
    }
    void InsertRow(std::uint32_t row) {
        Row fresh(kCols, 0);
        for (std::uint32_t col = 0; col < kCols && row > 0; ++col) {
            if (rows_[row - 1][col] == rows_[row][col]) fresh[col] = rows_[row][col];
        }
        rows_.insert(rows_.begin() + row, fresh);
    }
    void RemoveRows(std::uint32_t row, std::uint32_t count) {
        const auto first = rows_.begin() + std::min<std::ptrdiff_t>(row, std::ssize(rows_));
        rows_.erase(first, first + std::min<std::ptrdiff_t>(count, rows_.end() - first));
        while (rows_.size() < kRows) rows_.emplace_back(kCols, 0);
        for (const auto& [r, c] : CGXRange(0, 0, LastRow(), kCols - 1)) {
            if (const auto merge = Find(r, c); merge && merge->CellCount() == 1) rows_[r][c] = 0;
        }
    }
    std::optional<CGXRange> Find(std::uint32_t row, std::uint32_t col) const {
        const int number = rows_[row][col];
        if (number == 0) return std::nullopt;
        CGXRange merge(row, col);
        for (const auto& [r, c] : CGXRange(0, 0, LastRow(), kCols - 1)) {
            if (rows_[r][c] == number) merge = merge.UnionOfBounds({r, c});
        }
        return merge;
    }
    std::uint32_t LastRow() const { return static_cast<std::uint32_t>(rows_.size() - 1); }

private:
    using Row = std::vector<int>;
    std::vector<CGXRange> Covered(const CGXRange& cells) const {
        std::vector<CGXRange> merges;
        for (const auto& [row, col] : cells) {
            const auto merge = Find(row, col);
            if (merge && (merges.empty() || merges.back() != *merge)) merges.push_back(*merge);
        }
        return merges;
    }
    std::vector<Row> rows_;
    int last_ = 0;
};

TEST(MergedCells, FollowTheNaiveModelThroughAnyOperations) {
    std::mt19937 random(5);
    const auto number = [&](std::uint32_t below) { return static_cast<std::uint32_t>(random() % below); };
    MergedCells merged;
    NaiveMerges naive;
    for (int step = 0; step < 1500; ++step) {
        const std::uint32_t row = number(NaiveMerges::kRows - 3);
        const std::uint32_t col = number(NaiveMerges::kCols);
        switch (number(8)) {
            case 0:
                merged.InsertRows(row, 1);
                naive.InsertRow(row);
                break;
            case 1: {
                const std::uint32_t count = number(4);
                merged.RemoveRows(row, count);
                naive.RemoveRows(row, count);
                break;
            }
            case 2:
                merged.Remove(row, col);
                naive.Remove(row, col);
                break;
            default: {
                const CGXRange cells(row, col, row + number(3), col + number(NaiveMerges::kCols - col));
                ASSERT_EQ(static_cast<bool>(merged.Add(cells)), naive.Add(cells));
            }
        }
        for (const auto& [r, c] : CGXRange(0, 0, naive.LastRow(), NaiveMerges::kCols - 1)) {
            ASSERT_EQ(merged.Find(r, c), naive.Find(r, c)) << "step " << step << ", cell " << r << " " << c;
        }
    }
}

}  // namespace
}  // namespace velda
