#include "velda_util/pref/table_preferences.h"

#include <climits>

#include <gtest/gtest.h>

namespace velda {
namespace {

using Ids = std::vector<int>;

const std::vector<STBPrefItem> kUsual{{1, 2, 0, 45}, {3, 2, 0, 80}, {2, 2, 4, 120}};

TEST(TablePreferences, ItemsWithOneForEachColumnAreTaken) {
    const TablePreferences kept{{{1, 3, 0, 50}, {3, 2, 0, 0}, {2, 1, 6, kMaxColumnWidth}}, {{2, 0, 1}, {1}, {0, 2}}};
    EXPECT_EQ(FitPreferences(kept, kUsual), kept);
}

TEST(TablePreferences, ItemsOfAnotherNumberOfColumnsGiveTheDefaults) {
    const TablePreferences kept{{{1, 2, 0, 50}, {3, 2, 0, 90}}, {}};
    EXPECT_EQ(FitPreferences(kept, kUsual).columns, kUsual);
    EXPECT_EQ(FitPreferences({}, kUsual).columns, kUsual);
    EXPECT_TRUE(FitPreferences(kept, {}).columns.empty());
}

TEST(TablePreferences, DefaultsAreGivenAsTheyWereRegistered) {
    const std::vector<STBPrefItem> odd{{7, -3, 99, 1'000'000}};
    EXPECT_EQ(FitPreferences({}, odd).columns, odd);
}

TEST(TablePreferences, AValueOutOfRangeIsReplacedAlone) {
    const STBPrefItem usual{2, 2, 4, 120};
    EXPECT_EQ(FitItem({2, 1, 6, -1}, usual), (STBPrefItem{2, 1, 6, 120}));
    EXPECT_EQ(FitItem({2, 1, 6, kMaxColumnWidth + 1}, usual), (STBPrefItem{2, 1, 6, 120}));
    EXPECT_EQ(FitItem({2, 1, 6, INT_MAX}, usual), (STBPrefItem{2, 1, 6, 120}));
    EXPECT_EQ(FitItem({2, 1, kMaxDecimalPlaces, 60}, usual), (STBPrefItem{2, 1, kMaxDecimalPlaces, 60}));
    EXPECT_EQ(FitItem({2, 1, kMaxDecimalPlaces + 1, 60}, usual), (STBPrefItem{2, 1, 4, 60}));
    EXPECT_EQ(FitItem({2, 1, -1, 60}, usual), (STBPrefItem{2, 1, 4, 60}));
    EXPECT_EQ(FitItem({2, kMaxNumberFormat + 1, 6, 60}, usual), (STBPrefItem{2, 2, 6, 60}));
    EXPECT_EQ(FitItem({2, INT_MIN, 6, 60}, usual), (STBPrefItem{2, 2, 6, 60}));
}

TEST(TablePreferences, AnItemOfAnotherColumnTypeIsNotTaken) {
    EXPECT_EQ(FitItem({3, 1, 6, 60}, {2, 2, 4, 120}), (STBPrefItem{2, 2, 4, 120}));
}

TEST(TablePreferences, AnOrderThatIsNotOfJustTheseColumnsIsDropped) {
    EXPECT_EQ(FitLayout({{2, 0, 1}, {}, {}}, 3).order, (Ids{2, 0, 1}));
    for (const Ids& order : {Ids{0, 1}, Ids{0, 1, 2, 3}, Ids{0, 1, 1}, Ids{0, 1, 3}, Ids{-1, 0, 1}, Ids{0, 1, 2, 2}}) {
        EXPECT_EQ(FitLayout({order, {}, {}}, 3).order, Ids());
    }
}

TEST(TablePreferences, IdsThatDoNotExistAreDroppedAndTheOthersStay) {
    const TableLayout layout = FitLayout({{}, {2, 3, 0, -1, 2}, {INT_MAX, 1, INT_MIN}}, 3);
    EXPECT_EQ(layout.hidden, (Ids{0, 2}));
    EXPECT_EQ(layout.locked, (Ids{1}));
}

TEST(TablePreferences, ATableWithoutColumnsHasNoLayout) { EXPECT_EQ(FitLayout({{0}, {0}, {0}}, 0), TableLayout()); }

}  // namespace
}  // namespace velda
