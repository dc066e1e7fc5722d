#include "velda_util/rows/record_rows.h"

#include <map>
#include <random>

#include "velda_lib/number_text.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

using Keys = std::vector<std::uint32_t>;

/// Records with a level and a number, shown sorted by both; column 0 shows the key.
class Browser : public testing::Test {
protected:
    struct Record {
        double level = 0.0;
        int number = 0;
    };
    Browser() { rows.Configure({ColumnType::Long, ColumnType::Double, ColumnType::Long}, 0, {{1, 0, 0}, {2, 0, 0}}); }

    void Write(std::uint32_t key, CGXData& data, RowId row) {
        ++written;
        data.StoreNumber(row, 0, key);
        data.StoreNumber(row, 1, records[key].level);
        data.StoreNumber(row, 2, records[key].number);
    }
    void Fill() {
        Keys keys;
        for (const auto& [key, record] : records) keys.push_back(key);
        rows.Fill(keys, [this](auto key, auto& data, auto row) { Write(key, data, row); });
    }
    void Replay(const Keys& gone, const Keys& come) {
        rows.Replay(gone, come, [this](auto key, auto& data, auto row) { Write(key, data, row); });
    }
    Keys Shown() const {
        Keys keys;
        for (int position = 1; position <= rows.Count(); ++position) keys.push_back(rows.KeyOf(rows.IdAt(position)));
        return keys;
    }
    Keys Expected(const Keys& shown) const {
        Keys keys = shown;
        std::sort(keys.begin(), keys.end(), [this](std::uint32_t a, std::uint32_t b) {
            const Record& left = records.at(a);
            const Record& right = records.at(b);
            return std::tuple(left.level, left.number, a) < std::tuple(right.level, right.number, b);
        });
        return keys;
    }

    std::map<std::uint32_t, Record> records;
    RecordRows rows;
    int written = 0;
};

TEST_F(Browser, FillsInSortOrderAndKnowsRowsByKey) {
    records = {{7, {3.0, 1}}, {2, {1.0, 9}}, {5, {1.0, 4}}};
    Fill();
    EXPECT_EQ(Shown(), (Keys{5, 2, 7}));
    EXPECT_EQ(rows.PositionOf(rows.RowOfKey(7)), 3);
    EXPECT_EQ(rows.RowOfKey(8), kNoRow);
    EXPECT_EQ(rows.RowOfKey(0), kNoRow);
    EXPECT_EQ(rows.Data().Text(rows.IdAt(3), 1), "3");
}

TEST_F(Browser, AnEmptyTableFindsNothing) {
    Fill();
    int position = 0;
    const std::string texts[] = {std::string("1"), std::string("2")};
    EXPECT_FALSE(rows.FindRecordByKey(texts, 3, position));
    EXPECT_EQ(position, 1);
}

TEST_F(Browser, FindsARecordByItsSortTextsOrThePlaceWhereItBelongs) {
    records = {{1, {0.0, 1}}, {2, {0.0, 2}}, {3, {0.0, 10}}, {4, {2.5, 1}}};
    Fill();
    int position = 0;
    const auto find = [&](const char* level, const char* number, std::uint32_t key = 0) {
        const std::string texts[] = {std::string(level), std::string(number)};
        return rows.FindRecordByKey(texts, key, position);
    };
    EXPECT_TRUE(find("0", "10"));
    EXPECT_EQ(position, 3);
    EXPECT_TRUE(find("2.5", "1"));
    EXPECT_EQ(position, 4);
    EXPECT_FALSE(find("0", "9"));
    EXPECT_EQ(position, 3);
    EXPECT_FALSE(find("9", "1"));
    EXPECT_EQ(position, 5);
}

TEST_F(Browser, AmongRowsWithEqualTextsTheOneWithTheKeyCounts) {
    records = {{3, {1.0, 1}}, {8, {1.0, 1}}, {5, {1.0, 1}}, {9, {0.0, 1}}};
    Fill();
    EXPECT_EQ(Shown(), (Keys{9, 3, 5, 8}));
    int position = 0;
    const std::string texts[] = {std::string("1"), std::string("1")};
    EXPECT_TRUE(rows.FindRecordByKey(texts, 5, position));
    EXPECT_EQ(position, 3);
    EXPECT_TRUE(rows.FindRecordByKey(texts, 77, position));
    EXPECT_EQ(position, 2);
    EXPECT_TRUE(rows.FindRecordByKey(texts, 9, position));
    EXPECT_EQ(position, 2);
}

TEST_F(Browser, AnEmptySpecificationSortsByTheKeyColumn) {
    rows.Configure({ColumnType::Long, ColumnType::Double, ColumnType::Long}, 0, {});
    records = {{30, {}}, {4, {}}, {100, {}}};
    Fill();
    EXPECT_EQ(Shown(), (Keys{4, 30, 100}));
    EXPECT_EQ(rows.SortItems(), (std::vector<STBSortItem>{{0, 0, 0}}));
}

TEST_F(Browser, AChangeMovesItsRowAndWritesNoOther) {
    records = {{1, {1.0, 1}}, {2, {2.0, 1}}, {3, {3.0, 1}}};
    Fill();
    const RowId other = rows.RowOfKey(2);
    records[1].level = 9.0;
    written = 0;
    Replay({1}, {1});
    EXPECT_EQ(Shown(), (Keys{2, 3, 1}));
    EXPECT_EQ(written, 1);
    EXPECT_EQ(rows.RowOfKey(2), other);
}

TEST_F(Browser, KeysThatChangeAreReplayedAsLeavingAndComing) {
    records = {{1, {1.0, 1}}, {2, {2.0, 1}}};
    Fill();
    records = {{2, {1.0, 1}}, {1, {2.0, 1}}};
    Replay({1, 2}, {1, 2});
    EXPECT_EQ(Shown(), (Keys{2, 1}));
}

TEST_F(Browser, RemovingARowTouchesNothingElse) {
    records = {{1, {1.0, 1}}, {2, {2.0, 1}}, {3, {3.0, 1}}};
    Fill();
    rows.RemoveRow(2);
    EXPECT_EQ(Shown(), (Keys{1, 3}));
    EXPECT_EQ(rows.RowOfKey(2), kNoRow);
    EXPECT_EQ(rows.PositionOf(kNoRow), 0);
}

TEST_F(Browser, SortsByAnotherSpecificationAndKeepsItForChanges) {
    records = {{1, {1.0, 5}}, {2, {2.0, 9}}, {3, {3.0, 7}}};
    Fill();
    rows.SetSort({{2, 0, 1}});
    rows.SortTable();
    EXPECT_EQ(Shown(), (Keys{2, 3, 1}));
    records[4] = {0.0, 8};
    Replay({}, {4});
    EXPECT_EQ(Shown(), (Keys{2, 4, 3, 1}));
}

TEST_F(Browser, ARowWhoseCellsWereChangedGoesToItsPlace) {
    records = {{1, {1.0, 1}}, {2, {2.0, 1}}, {3, {3.0, 1}}};
    Fill();
    const RowId row = rows.RowOfKey(1);
    rows.Data().StoreNumber(row, 1, 2.5);
    EXPECT_EQ(rows.Replace(row), 2);
    EXPECT_EQ(Shown(), (Keys{2, 1, 3}));
}

TEST_F(Browser, RandomChangesOfEverySizeKeepRowsAndOrder) {
    std::mt19937 random(6);
    const auto pick = [&random](unsigned limit) { return static_cast<std::uint32_t>(random() % limit); };
    for (std::uint32_t key = 1; key <= 3000; ++key) records[key] = {pick(9) * 0.5, static_cast<int>(pick(30))};
    Fill();
    for (int round = 0; round < 60; ++round) {
        const unsigned size = round % 2 == 0 ? 3 : 900;
        Keys gone;
        Keys come;
        std::map<std::uint32_t, bool> touched;
        for (unsigned i = 0; i < size; ++i) {
            const std::uint32_t key = pick(4000) + 1;
            if (touched[key]) continue;
            touched[key] = true;
            const bool existed = records.contains(key);
            const bool exists = pick(3) > 0;
            if (existed) gone.push_back(key);
            records.erase(key);
            if (!exists) continue;
            records[key] = {pick(9) * 0.5, static_cast<int>(pick(30))};
            come.push_back(key);
        }
        Replay(gone, come);
        Keys all;
        for (const auto& [key, record] : records) all.push_back(key);
        ASSERT_EQ(Shown(), Expected(all)) << "round " << round;
    }
}

}  // namespace
}  // namespace velda
