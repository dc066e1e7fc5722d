#include <algorithm>
#include <random>

#include "velda_lib/number_text.h"
#include "velda_util/cells/cell_data.h"
#include "velda_util/cells/row_sort.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

std::uint32_t Pick(std::mt19937& random, std::size_t limit) { return static_cast<std::uint32_t>(random() % limit); }

TEST(RowOrder, ARowKnowsItsPositionAndAPositionItsRow) {
    RowOrder order;
    order.Insert(0, 7);
    order.Insert(0, 3);
    order.Insert(2, 9);
    EXPECT_EQ(order.ToVector(), (std::vector<RowId>{3, 7, 9}));
    EXPECT_EQ(order.PositionOf(7), 1u);
    EXPECT_EQ(order.At(2), 9u);
    EXPECT_EQ(order.PositionOf(100), 3u);
    order.Remove(7);
    EXPECT_FALSE(order.Contains(7));
    order.Remove(7);
    EXPECT_EQ(order.Count(), 2u);
}

TEST(RowOrder, AnEmptyOrderTakesAndLosesRows) {
    RowOrder order;
    EXPECT_EQ(order.Count(), 0u);
    order.Insert(5, 1);
    order.Remove(1);
    order.Insert(0, 1);
    EXPECT_EQ(order.ToVector(), (std::vector<RowId>{1}));
    order.Clear();
    EXPECT_FALSE(order.Contains(1));
}

TEST(RowOrder, BehavesAsAPlainListUnderRandomChanges) {
    std::mt19937 random(1);
    RowOrder order;
    std::vector<RowId> plain;
    RowId next = 0;
    for (int round = 0; round < 30000; ++round) {
        if (plain.empty() || Pick(random, 10) < 6) {
            const std::size_t position = Pick(random, plain.size() + 1);
            order.Insert(position, next);
            plain.insert(plain.begin() + static_cast<std::ptrdiff_t>(position), next++);
        } else {
            const std::size_t position = Pick(random, plain.size());
            order.Remove(plain[position]);
            plain.erase(plain.begin() + static_cast<std::ptrdiff_t>(position));
        }
        if (round % 997 == 0) {
            ASSERT_EQ(order.ToVector(), plain);
        }
        if (!plain.empty()) {
            const std::size_t position = Pick(random, plain.size());
            ASSERT_EQ(order.At(position), plain[position]);
            ASSERT_EQ(order.PositionOf(plain[position]), position);
        }
    }
}

TEST(RowOrder, AMergeRemovesAndAddsInOnePass) {
    std::mt19937 random(2);
    RowOrder order;
    std::vector<RowId> plain(5000);
    for (RowId row = 0; row < plain.size(); ++row) plain[row] = row;
    order.Assign(plain);
    std::vector<RowOrder::Arrival> added;
    for (RowId row = 0; row < 700; ++row) added.push_back({Pick(random, plain.size() + 1), 10000 + row});
    std::stable_sort(added.begin(), added.end(), [](const auto& a, const auto& b) { return a.position < b.position; });
    const auto goes = [](RowId row) { return row % 3 == 0 && row < 10000; };
    std::vector<RowId> expected;
    std::size_t next = 0;
    for (std::size_t position = 0; position <= plain.size(); ++position) {
        while (next < added.size() && added[next].position == position) expected.push_back(added[next++].row);
        if (position < plain.size() && !goes(plain[position])) expected.push_back(plain[position]);
    }
    std::vector<RowId> removed;
    std::copy_if(plain.begin(), plain.end(), std::back_inserter(removed), goes);
    order.Merge(removed, added);
    EXPECT_EQ(order.ToVector(), expected);
    EXPECT_FALSE(order.Contains(3));
    for (std::size_t position = 0; position < expected.size(); position += 37) {
        ASSERT_EQ(order.PositionOf(expected[position]), position);
    }
}

TEST(RowOrder, MergesOfEverySizeKeepPositionsRight) {
    std::mt19937 random(8);
    RowOrder order;
    std::vector<RowId> plain;
    RowId next = 0;
    for (int round = 0; round < 40; ++round) {
        std::vector<RowId> removed;
        for (const RowId row : plain) {
            if (Pick(random, 10) < (round % 7 == 6 ? 10 : 2)) removed.push_back(row);
        }
        std::vector<RowOrder::Arrival> added;
        for (std::uint32_t i = 0; i < (round % 5 == 0 ? 6000u : 20u); ++i) {
            added.push_back({round % 3 == 0 ? plain.size() / 2 : Pick(random, plain.size() + 1), next++});
        }
        std::stable_sort(added.begin(), added.end(),
                         [](const auto& a, const auto& b) { return a.position < b.position; });
        std::sort(removed.begin(), removed.end());
        std::vector<RowId> expected;
        std::size_t arrival = 0;
        for (std::size_t position = 0; position <= plain.size(); ++position) {
            for (; arrival < added.size() && added[arrival].position == position; ++arrival) {
                expected.push_back(added[arrival].row);
            }
            if (position < plain.size() && !std::binary_search(removed.begin(), removed.end(), plain[position])) {
                expected.push_back(plain[position]);
            }
        }
        order.Merge(removed, added);
        plain = expected;
        ASSERT_EQ(order.ToVector(), plain) << "round " << round;
        for (std::size_t position = 0; position < plain.size(); position += 101) {
            ASSERT_EQ(order.At(position), plain[position]);
            ASSERT_EQ(order.PositionOf(plain[position]), position);
        }
    }
}

TEST(CellValue, TellsItsKindsApart) {
    EXPECT_TRUE(CellValue{}.IsEmpty());
    for (const double number : {0.0, -0.0, 1.5, -1e308, 5e-324, HUGE_VAL, -HUGE_VAL}) {
        const CellValue value = CellValue::OfNumber(number);
        EXPECT_TRUE(value.IsNumber());
        EXPECT_FALSE(value.IsPooled());
        EXPECT_FALSE(value.IsEmpty());
        EXPECT_EQ(value.Number(), number);
    }
    EXPECT_TRUE(CellValue::OfPooled(0).IsPooled());
    EXPECT_EQ(CellValue::OfPooled(4000000000u).PoolNumber(), 4000000000u);
    EXPECT_TRUE(CellValue::OfShort("")->IsEmpty());
    EXPECT_FALSE(CellValue::OfShort("1234567"));
    EXPECT_FALSE(CellValue::OfShort(std::string_view("a\0b", 3)));
}

TEST(CellStore, TextsComeBackAsTheyWereKept) {
    CGXData data(2);
    const RowId row = data.NewRow();
    EXPECT_EQ(data.Text(row, 0), "");
    const std::string texts[] = {
        "",    "a",   "123456", "1234567", "층",  "지하 1층", "0.30", "1e5", "-0",    "+5",    " 7 ",
        "007", "inf", "nan",    "1e400",   "2,5", "a\tb",     "x\ny", "0.3", "-12.5", "1e+20", "0.333333333333333"};
    for (const std::string& text : texts) {
        for (const bool numeric : {false, true}) {
            data.StoreText(row, 1, text, numeric);
            EXPECT_EQ(data.Text(row, 1), text) << text;
        }
    }
    data.StoreText(row, 1, std::string("a\0b", 3), true);
    EXPECT_EQ(data.Text(row, 1), std::string("a\0b", 3));
}

TEST(CellStore, NumbersAreKeptAsNumbersInNumericColumnsOnly) {
    CGXData data(1);
    const RowId row = data.NewRow();
    data.StoreText(row, 0, "0.3", true);
    EXPECT_TRUE(data.Value(row, 0).IsNumber());
    data.StoreText(row, 0, "0.3", false);
    EXPECT_FALSE(data.Value(row, 0).IsNumber());
    data.StoreText(row, 0, "0.30", true);
    EXPECT_FALSE(data.Value(row, 0).IsNumber());
    EXPECT_EQ(data.Number(row, 0), 0.3);
    data.StoreNumber(row, 0, 1.0 / 3.0);
    EXPECT_EQ(data.Text(row, 0), "0.333333333333333");
    data.StoreNumber(row, 0, HUGE_VAL);
    EXPECT_EQ(data.Text(row, 0), "inf");
}

TEST(CellStore, NumbersThatLookEqualAreEqual) {
    CGXData data(1);
    const RowId a = data.NewRow();
    const RowId b = data.NewRow();
    data.StoreNumber(a, 0, 0.1 + 0.2);
    data.StoreNumber(b, 0, 0.3);
    EXPECT_NE(0.1 + 0.2, 0.3);
    EXPECT_EQ(data.Number(a, 0), data.Number(b, 0));
}

TEST(CellStore, IdsOfRemovedRowsComeBackOnlyWhenTheyAreGivenFree) {
    CGXData data(1);
    const RowId first = data.NewRow();
    data.Order().Insert(0, first);
    data.StoreText(first, 0, "old", false);
    data.RemoveRow(first);
    EXPECT_FALSE(data.HasRow(first));
    EXPECT_EQ(data.Order().Count(), 0u);
    EXPECT_NE(data.NewRow(), first);
    data.RecycleRows();
    const RowId again = data.NewRow();
    EXPECT_EQ(again, first);
    EXPECT_EQ(data.Text(again, 0), "");
}

TEST(CellStore, TextsThatNobodyHoldsDoNotPileUp) {
    CGXData data(1);
    const RowId row = data.NewRow();
    for (int i = 0; i < 300000; ++i) data.StoreText(row, 0, "a longer text " + std::to_string(i), false);
    EXPECT_EQ(data.Text(row, 0), "a longer text 299999");
    EXPECT_LT(data.MemoryBytes(), 8u << 20);
}

/// A table of numbers, whole numbers and texts with many equal values.
class SortedTable : public testing::Test {
protected:
    static constexpr ColumnType kTypes[] = {ColumnType::Long, ColumnType::Double, ColumnType::String};
    CGXData data{3};

    void Fill(std::size_t rows, unsigned seed) {
        std::mt19937 random(seed);
        std::vector<RowId> ids;
        for (std::size_t i = 0; i < rows; ++i) {
            const RowId row = data.NewRow();
            data.StoreNumber(row, 0, static_cast<double>(Pick(random, 50)) - 25.0);
            data.StoreNumber(row, 1, (static_cast<double>(Pick(random, 2001)) - 1000.0) / 7.0);
            data.StoreText(row, 2, std::string("story number ") + std::to_string(Pick(random, 40)), false);
            ids.push_back(row);
        }
        std::shuffle(ids.begin(), ids.end(), random);
        data.Order().Assign(ids);
    }

    void ExpectSortAgreesWithComparison(std::vector<STBSortItem> items) {
        const RowComparison comparison(data, std::move(items), kTypes);
        std::vector<RowId> expected = data.Order().ToVector();
        std::vector<RowId> sorted = expected;
        std::stable_sort(expected.begin(), expected.end(),
                         [&](RowId a, RowId b) { return comparison.Compare(a, b) < 0; });
        comparison.Sort(sorted);
        EXPECT_EQ(sorted, expected);
    }
};

TEST_F(SortedTable, SortsByEverySpecificationAndKeepsEqualRowsInOrder) {
    for (const std::size_t rows : {0u, 1u, 300u, 9000u}) {
        data.Reset(3);
        Fill(rows, 5);
        for (const int order : {0, 1}) {
            for (const int first : {0, 1, 2}) {
                ExpectSortAgreesWithComparison({{first, 0, order}});
                for (const int second : {0, 1, 2})
                    ExpectSortAgreesWithComparison({{first, 0, order}, {second, 0, 1 - order}});
            }
        }
        ExpectSortAgreesWithComparison({{2, 0, 1}, {0, 0, 0}, {1, 0, 1}});
        ExpectSortAgreesWithComparison({});
    }
}

TEST_F(SortedTable, NumbersSortByValueAndTextsByTheirBytes) {
    for (const char* text : {"10", "9", "-1", "2.5"}) {
        const RowId row = data.NewRow();
        data.StoreText(row, 1, text, true);
        data.StoreText(row, 2, text, false);
        data.Order().Insert(data.Order().Count(), row);
    }
    const auto texts = [&](int column) {
        std::vector<RowId> rows = data.Order().ToVector();
        RowComparison(data, {{column, 0, 0}}, kTypes).Sort(rows);
        std::string joined;
        for (const RowId row : rows) joined += data.Text(row, column) + " ";
        return joined;
    };
    EXPECT_EQ(texts(1), "-1 2.5 9 10 ");
    EXPECT_EQ(texts(2), "-1 10 2.5 9 ");
}

TEST_F(SortedTable, ARowIsFoundByItsSortTextsAndTheSearchBehindAgrees) {
    Fill(5000, 9);
    const RowComparison comparison(data, {{2, 0, 0}, {1, 0, 1}}, kTypes);
    std::vector<RowId> rows = data.Order().ToVector();
    comparison.Sort(rows);
    data.Order().Assign(rows);
    for (std::size_t position = 0; position < rows.size(); position += 13) {
        const std::string texts[] = {data.Text(rows[position], 2), FormatDouble(data.Number(rows[position], 1))};
        const auto key = comparison.ReadKey(texts);
        const std::size_t found = comparison.LowerBound(key);
        ASSERT_LE(found, position);
        ASSERT_EQ(comparison.Compare(rows[found], rows[position]), 0);
        const auto before = [&](std::size_t at) { return comparison.Compare(rows[at], rows[position]) < 0; };
        for (const std::size_t start : {std::size_t{0}, found / 2, found}) {
            ASSERT_EQ(FirstWhereNotBehind(start, rows.size(), before), found);
        }
    }
    const std::string beyond[] = {std::string("zzz"), std::string("0")};
    EXPECT_EQ(comparison.LowerBound(comparison.ReadKey(beyond)), rows.size());
}

TEST_F(SortedTable, AMergeOfManyRowsKeepsTheOrder) {
    Fill(8000, 4);
    const RowComparison comparison(data, {{1, 0, 0}, {2, 0, 0}}, kTypes);
    std::vector<RowId> rows = data.Order().ToVector();
    comparison.Sort(rows);
    data.Order().Assign(rows);

    std::vector<RowId> removed;
    for (std::size_t i = 0; i < rows.size(); i += 4) removed.push_back(rows[i]);
    std::mt19937 random(3);
    std::vector<RowId> fresh;
    for (int i = 0; i < 1500; ++i) {
        const RowId row = data.NewRow();
        data.StoreNumber(row, 1, static_cast<double>(Pick(random, 4000)) / 11.0 - 150.0);
        data.StoreText(row, 2, "story number 7", false);
        fresh.push_back(row);
    }
    comparison.Sort(fresh);
    std::vector<RowOrder::Arrival> added;
    std::size_t position = 0;
    for (const RowId row : fresh) {
        position = FirstWhereNotBehind(position, data.Order().Count(), [&](std::size_t at) {
            return comparison.Compare(data.Order().At(at), row) < 0;
        });
        added.push_back({position, row});
    }
    data.MergeRows(removed, added);
    EXPECT_EQ(data.Order().Count(), 8000u - removed.size() + fresh.size());
    const std::vector<RowId> merged = data.Order().ToVector();
    EXPECT_TRUE(
        std::is_sorted(merged.begin(), merged.end(), [&](RowId a, RowId b) { return comparison.Compare(a, b) < 0; }));
    EXPECT_FALSE(data.HasRow(removed.front()));
}

}  // namespace
}  // namespace velda
