#include "velda_util/style/gx_range.h"

#include <random>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

namespace velda {
namespace {

using Kind = CGXRange::Kind;

TEST(GXRange, ANewRangeIsEmpty) {
    const CGXRange range;
    EXPECT_TRUE(range.IsEmpty());
    EXPECT_EQ(range.GetKind(), Kind::Empty);
    EXPECT_EQ(range.CellCount(), 0u);
    EXPECT_FALSE(range.Contains(0, 0));
    EXPECT_EQ(range.begin(), range.end());
}

TEST(GXRange, KnowsItsKind) {
    EXPECT_EQ(CGXRange().SetCells(2, 3).GetKind(), Kind::Cells);
    EXPECT_EQ(CGXRange().SetRows(0).GetKind(), Kind::Rows);
    EXPECT_EQ(CGXRange().SetCols(1, 4).GetKind(), Kind::Cols);
    EXPECT_EQ(CGXRange().SetTable().GetKind(), Kind::Table);
}

TEST(GXRange, CornersComeInAnyOrder) {
    EXPECT_EQ(CGXRange(5, 1, 2, 4), CGXRange(2, 4, 5, 1));
    EXPECT_EQ(CGXRange().SetRows(4, 2), CGXRange().SetRows(2, 4));
    EXPECT_EQ(CGXRange().SetCols(4, 2), CGXRange().SetCols(2, 4));
}

TEST(GXRange, WholeRowsAndColumnsExpandToTheGridWithoutItsHeaders) {
    EXPECT_EQ(CGXRange().SetRows(0, 3).Expanded(10, 6), CGXRange(1, 1, 3, 6));
    EXPECT_EQ(CGXRange().SetCols(2).Expanded(10, 6), CGXRange(1, 2, 10, 2));
    EXPECT_EQ(CGXRange().SetTable().Expanded(10, 6), CGXRange(1, 1, 10, 6));
    EXPECT_EQ(CGXRange(4, 4, 20, 20).Expanded(10, 6), CGXRange(4, 4, 10, 6));
}

TEST(GXRange, ExpansionTakesHeadersOnRequest) {
    EXPECT_EQ(CGXRange().SetCols(2).Expanded(10, 6, 0), CGXRange(0, 2, 10, 2));
    EXPECT_EQ(CGXRange().SetTable().Expanded(10, 6, 0, 0), CGXRange(0, 0, 10, 6));
}

TEST(GXRange, NothingIsLeftOfARangeOutsideTheGrid) {
    EXPECT_TRUE(CGXRange().SetCols(7).Expanded(10, 6).IsEmpty());
    EXPECT_TRUE(CGXRange().SetRows(0).Expanded(10, 6).IsEmpty());
    EXPECT_TRUE(CGXRange().SetTable().Expanded(0, 6).IsEmpty());
}

TEST(GXRange, RowsAndColumnsMeetInCells) {
    EXPECT_EQ(CGXRange().SetRows(2, 3).Intersection(CGXRange().SetCols(5)), CGXRange(2, 5, 3, 5));
    EXPECT_EQ(CGXRange().SetRows(2, 3).UnionOfBounds(CGXRange().SetCols(5)), CGXRange().SetTable());
    EXPECT_EQ(CGXRange(2, 2).UnionOfBounds({}), CGXRange(2, 2));
    EXPECT_EQ(CGXRange().UnionOfBounds({2, 2}), CGXRange(2, 2));
}

TEST(GXRange, IsWalkedRowByRow) {
    const CGXRange range(1, 2, 2, 3);
    const std::vector<CellPosition> cells(range.begin(), range.end());
    EXPECT_EQ(cells, (std::vector<CellPosition>{{1, 2}, {1, 3}, {2, 2}, {2, 3}}));
}

TEST(GXRange, ARangeWithoutAnEndCannotBeWalked) {
    EXPECT_THROW(CGXRange().SetRows(1).begin(), std::invalid_argument);
    EXPECT_THROW(CGXRange().SetCols(1).end(), std::invalid_argument);
    EXPECT_THROW(CGXRange().SetTable().CellCount(), std::invalid_argument);
}

class Ranges {
public:
    CGXRange Next() {
        switch (Number(5)) {
            case 0: return CGXRange().SetRows(Number(8), Number(8));
            case 1: return CGXRange().SetCols(Number(8), Number(8));
            case 2: return Number(4) == 0 ? CGXRange() : CGXRange().SetTable();
            default: return {Number(8), Number(8), Number(8), Number(8)};
        }
    }

private:
    std::uint32_t Number(std::uint32_t below) { return static_cast<std::uint32_t>(random_() % below); }
    std::mt19937 random_{7};
};

TEST(GXRange, ContainmentAgreesWithIntersectionAndUnion) {
    Ranges ranges;
    for (int round = 0; round < 2000; ++round) {
        const CGXRange a = ranges.Next();
        const CGXRange b = ranges.Next();
        const CGXRange both = a.Intersection(b);
        const CGXRange bounds = a.UnionOfBounds(b);
        EXPECT_EQ(both, b.Intersection(a));
        EXPECT_EQ(bounds, b.UnionOfBounds(a));
        EXPECT_EQ(a.Intersects(b), !both.IsEmpty());
        std::uint64_t count = 0;
        for (const auto& [row, col] : CGXRange(0, 0, 9, 9)) {
            EXPECT_EQ(both.Contains(row, col), a.Contains(row, col) && b.Contains(row, col));
            EXPECT_TRUE(bounds.Contains(row, col) || !(a.Contains(row, col) || b.Contains(row, col)));
            count += a.Contains(row, col) ? 1 : 0;
        }
        EXPECT_EQ(a.Expanded(9, 9, 0, 0).CellCount(), count);
    }
}

}  // namespace
}  // namespace velda
