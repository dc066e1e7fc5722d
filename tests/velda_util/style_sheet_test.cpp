#include "velda_util/style/style_sheet.h"

#include <stdexcept>

#include "velda_util/style_support.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

using Ids = std::vector<std::uint32_t>;

CGXStyle Red() { return CGXStyle().SetTextColor(255); }
CGXStyle Bold() { return CGXStyle().SetBold(true); }

TEST(StyleSheet, TheNearestStyleWins) {
    StyleSheet sheet;
    const Ids col = {2};
    const Ids row = {7};
    sheet.ChangeStandardStyle(CGXStyle().SetFontSize(8).SetPlaces(1).SetTextColor(1).SetInterior(1));
    sheet.SetStyleRange(StyleTarget::Columns(col), CGXStyle().SetPlaces(2).SetTextColor(2).SetInterior(2));
    sheet.SetStyleRange(StyleTarget::Rows(row), CGXStyle().SetTextColor(3).SetInterior(3));
    sheet.SetStyleRange(StyleTarget::Cells(row, col), CGXStyle().SetInterior(4));

    const CGXStyle& cell = sheet.Resolve(7, 2);
    EXPECT_EQ(cell.GetFontSize(), 8);
    EXPECT_EQ(cell.GetPlaces(), 2);
    EXPECT_EQ(cell.GetTextColor(), 3u);
    EXPECT_EQ(cell.GetInterior(), 4u);
    EXPECT_EQ(sheet.Resolve(8, 2).GetTextColor(), 2u);
    EXPECT_EQ(sheet.Resolve(7, 1).GetInterior(), 3u);
    EXPECT_EQ(sheet.Resolve(8, 1).GetPlaces(), 1);
}

TEST(StyleSheet, EachPlaceTellsWhatWasSetThere) {
    StyleSheet sheet;
    sheet.SetStyleRange(StyleTarget::Table(), CGXStyle().SetFontSize(9));
    sheet.SetStyleRange(StyleTarget::Columns(Ids{1}), Bold());
    sheet.SetStyleRange(StyleTarget::Rows(Ids{0}), Red());
    sheet.SetCellStyle(0, 1, CGXStyle().SetEnabled(false));
    EXPECT_EQ(sheet.StandardStyle(), CGXStyle().SetFontSize(9));
    EXPECT_EQ(sheet.ColumnStyle(1), Bold());
    EXPECT_EQ(sheet.RowStyle(0), Red());
    EXPECT_EQ(sheet.CellStyle(0, 1), CGXStyle().SetEnabled(false));
    EXPECT_TRUE(sheet.ColumnStyle(5).IsEmpty());
    EXPECT_TRUE(sheet.RowStyle(5).IsEmpty());
    EXPECT_TRUE(sheet.CellStyle(0, 0).IsEmpty());
    EXPECT_TRUE(sheet.CellStyle(5, 5).IsEmpty());
}

TEST(StyleSheet, ModesTellWhatBecomesOfWhatIsSet) {
    const CGXStyle before = CGXStyle().SetBold(true).SetTextColor(1);
    const CGXStyle applied = CGXStyle().SetTextColor(2).SetPlaces(3);
    const auto after = [&](StyleMode mode) {
        StyleSheet sheet;
        sheet.SetCellStyle(1, 1, before);
        sheet.SetCellStyle(1, 1, applied, mode);
        return sheet.CellStyle(1, 1);
    };
    EXPECT_EQ(after(StyleMode::Override), CGXStyle().SetBold(true).SetTextColor(2).SetPlaces(3));
    EXPECT_EQ(after(StyleMode::Copy), applied);
    EXPECT_EQ(after(StyleMode::ApplyNew), CGXStyle().SetBold(true).SetTextColor(1).SetPlaces(3));
    EXPECT_EQ(after(StyleMode::Remove), Bold());
}

TEST(StyleSheet, RowsThatAreAlikeShareOnePattern) {
    StyleSheet sheet;
    Ids rows(1000);
    for (std::uint32_t i = 0; i < rows.size(); ++i) rows[i] = i;
    sheet.SetStyleRange(StyleTarget::Cells(rows, Ids{3, 4}), CGXStyle().SetEnabled(false));
    for (const std::uint32_t row : rows) sheet.SetCellStyle(row, 5, Red());
    const StyleCounts counts = sheet.Counts();
    EXPECT_EQ(counts.rows, 1000u);
    EXPECT_EQ(counts.rowPatterns, 1u);
}

TEST(StyleSheet, AStyleThatBecomesEmptyTakesNoPlace) {
    StyleSheet sheet;
    sheet.SetCellStyle(4, 1, Red());
    sheet.SetStyleRange(StyleTarget::Rows(Ids{4}), Bold());
    sheet.SetHeaderCellStyle(0, 1, Red());
    sheet.SetStyleRange(StyleTarget::Columns(Ids{1}), Red());
    EXPECT_TRUE(sheet.SetCellStyle(4, 1, {}, StyleMode::Copy));
    EXPECT_EQ(sheet.Counts().rows, 1u);
    EXPECT_TRUE(sheet.SetStyleRange(StyleTarget::Rows(Ids{4}), CGXStyle().SetBold(false), StyleMode::Remove));
    EXPECT_TRUE(sheet.SetHeaderCellStyle(0, 1, Red(), StyleMode::Remove));
    EXPECT_TRUE(sheet.SetStyleRange(StyleTarget::Columns(Ids{1}), Red(), StyleMode::Remove));
    const StyleCounts counts = sheet.Counts();
    EXPECT_EQ(counts.rows + counts.rowPatterns + counts.columns + counts.headerCells, 0u);
}

TEST(StyleSheet, RemovingARowDropsItsStylesAlone) {
    StyleSheet sheet;
    sheet.SetStyleRange(StyleTarget::Cells(Ids{1, 2}, Ids{0, 1}), Red());
    sheet.SetStyleRange(StyleTarget::Rows(Ids{1}), Bold());
    sheet.RemoveRow(1);
    EXPECT_TRUE(sheet.RowStyle(1).IsEmpty());
    EXPECT_TRUE(sheet.Resolve(1, 0).IsEmpty());
    EXPECT_EQ(sheet.Resolve(2, 0), Red());
    EXPECT_EQ(sheet.Counts().rows, 1u);
    EXPECT_EQ(sheet.Counts().rowPatterns, 1u);
    sheet.RemoveRow(99);
    EXPECT_EQ(sheet.Counts().rows, 1u);
}

TEST(StyleSheet, AnEditOfRowsListedTwiceCountsForEachListing) {
    StyleSheet sheet;
    const Ids rows = {1, 2, 1};
    sheet.SetStyleRange(StyleTarget::Rows(rows), Red());
    EXPECT_EQ(sheet.RowStyle(1), Red());
    EXPECT_EQ(sheet.RowStyle(2), Red());
    EXPECT_EQ(sheet.Counts().rowPatterns, 1u);
}

TEST(StyleSheet, DrawingAgainComputesNothing) {
    StyleSheet sheet;
    sheet.SetStyleRange(StyleTarget::Columns(Ids{0, 1, 2}), CGXStyle().SetPlaces(2));
    sheet.SetStyleRange(StyleTarget::Cells(Ids{10, 20}, Ids{1}), Red());
    for (std::uint32_t row = 0; row < 100; ++row) {
        for (std::uint32_t col = 0; col < 3; ++col) sheet.Resolve(row, col);
    }
    EXPECT_EQ(sheet.Counts().resolved, 6u);
    EXPECT_EQ(&sheet.Resolve(5, 1), &sheet.Resolve(99, 1));
    EXPECT_EQ(&sheet.Resolve(10, 1), &sheet.Resolve(20, 1));
}

TEST(StyleSheet, AResolvedStyleFollowsEveryChangeBeneath) {
    StyleSheet sheet;
    sheet.SetCellStyle(1, 1, Bold());
    EXPECT_EQ(sheet.Resolve(1, 1), Bold());
    sheet.SetStyleRange(StyleTarget::Columns(Ids{1}), Red());
    EXPECT_EQ(sheet.Resolve(1, 1), Bold().SetTextColor(255));
    sheet.ChangeStandardStyle(CGXStyle().SetPlaces(1));
    EXPECT_EQ(sheet.Resolve(1, 1), Bold().SetTextColor(255).SetPlaces(1));
    EXPECT_EQ(sheet.Resolve(2, 0), CGXStyle().SetPlaces(1));
}

TEST(StyleSheet, APatternNumberThatServesAgainIsResolvedAnew) {
    StyleSheet sheet;
    sheet.SetCellStyle(1, 0, Red());
    EXPECT_EQ(sheet.Resolve(1, 0), Red());
    sheet.RemoveRow(1);
    sheet.SetCellStyle(2, 0, Bold());
    EXPECT_EQ(sheet.Resolve(2, 0), Bold());
    sheet.ClearRows();
    sheet.SetCellStyle(3, 0, Red());
    EXPECT_EQ(sheet.Resolve(3, 0), Red());
}

TEST(StyleSheet, HeaderCellsHaveTheirOwnStyles) {
    StyleSheet sheet;
    sheet.ChangeStandardStyle(CGXStyle().SetFontSize(8));
    sheet.SetStyleRange(StyleTarget::Columns(Ids{1}), Red());
    sheet.ChangeHeaderStyle(CGXStyle().SetWrapText(true).SetInterior(7));
    sheet.SetHeaderCellStyle(1, 1, CGXStyle().SetInterior(9));
    EXPECT_EQ(sheet.ResolveHeader(0, 1), CGXStyle().SetFontSize(8).SetWrapText(true).SetInterior(7));
    EXPECT_EQ(sheet.ResolveHeader(1, 1).GetInterior(), 9u);
    sheet.SetHeaderCellStyle(1, 1, CGXStyle().SetInterior(10));
    EXPECT_EQ(sheet.ResolveHeader(1, 1).GetInterior(), 10u);
    sheet.ChangeHeaderStyle({}, StyleMode::Copy);
    EXPECT_EQ(sheet.ResolveHeader(1, 1), CGXStyle().SetFontSize(8).SetInterior(10));
    EXPECT_EQ(sheet.HeaderCellStyle(1, 1), CGXStyle().SetInterior(10));
    EXPECT_TRUE(sheet.HeaderCellStyle(0, 1).IsEmpty());
}

TEST(StyleSheet, OnlyRealChangesAreCounted) {
    StyleSheet sheet;
    EXPECT_TRUE(sheet.SetCellStyle(1, 1, Red()));
    const std::uint64_t changes = sheet.ChangeCount();
    EXPECT_GT(changes, 0u);
    EXPECT_FALSE(sheet.SetCellStyle(1, 1, Red()));
    EXPECT_FALSE(sheet.SetCellStyle(1, 1, CGXStyle().SetTextColor(9), StyleMode::ApplyNew));
    EXPECT_FALSE(sheet.SetStyleRange(StyleTarget::Rows(Ids{2, 3}), {}));
    EXPECT_FALSE(sheet.SetStyleRange(StyleTarget::Columns(Ids{2}), Red(), StyleMode::Remove));
    EXPECT_FALSE(sheet.ChangeStandardStyle({}));
    EXPECT_FALSE(sheet.SetHeaderCellStyle(0, 0, {}));
    sheet.RemoveRow(2);
    sheet.Resolve(1, 1);
    EXPECT_EQ(sheet.ChangeCount(), changes);
    sheet.RemoveRow(1);
    EXPECT_EQ(sheet.ChangeCount(), changes + 1);
}

TEST(StyleSheet, ClearingLeavesNothing) {
    StyleSheet sheet;
    sheet.ChangeStandardStyle(Bold());
    sheet.ChangeHeaderStyle(Red());
    sheet.SetHeaderCellStyle(0, 0, Bold());
    sheet.SetStyleRange(StyleTarget::Columns(Ids{0}), Red());
    sheet.SetCellStyle(1, 0, CGXStyle().SetPlaces(3));
    sheet.Resolve(1, 0);
    const std::uint64_t changes = sheet.ChangeCount();
    sheet.Clear();
    EXPECT_GT(sheet.ChangeCount(), changes);
    const StyleCounts counts = sheet.Counts();
    EXPECT_EQ(counts.columns + counts.rows + counts.rowPatterns + counts.headerCells + counts.resolved, 0u);
    EXPECT_TRUE(sheet.Resolve(1, 0).IsEmpty());
    EXPECT_TRUE(sheet.ResolveHeader(0, 0).IsEmpty());
}

TEST(StyleSheet, EveryStyleIsGivenBackWithTheSheet) {
    const std::size_t before = InternPool<CGXStyle>::Shared().Count();
    {
        StyleSheet sheet;
        RandomStyles styles(3);
        for (int i = 0; i < 500; ++i) sheet.SetCellStyle(styles.Number(20), styles.Number(5), styles.Next());
        for (std::uint32_t row = 0; row < 20; ++row) sheet.Resolve(row, row % 5);
        EXPECT_GT(InternPool<CGXStyle>::Shared().Count(), before);
    }
    EXPECT_EQ(InternPool<CGXStyle>::Shared().Count(), before);
}

TEST(StyleSheet, IdsOutOfRangeAreRefusedBeforeAnythingChanges) {
    StyleSheet sheet;
    EXPECT_THROW(sheet.SetStyleRange(StyleTarget::Columns(Ids{0, kMaxColumns}), Red()), std::invalid_argument);
    EXPECT_THROW(sheet.SetStyleRange(StyleTarget::Rows(Ids{0, StyleSheet::kNoRow}), Red()), std::invalid_argument);
    EXPECT_THROW(sheet.SetCellStyle(0, kMaxColumns, Red()), std::invalid_argument);
    EXPECT_THROW(sheet.SetHeaderCellStyle(0, kMaxColumns, Red()), std::invalid_argument);
    EXPECT_THROW(sheet.Resolve(0, kMaxColumns), std::invalid_argument);
    EXPECT_THROW(sheet.ResolveHeader(0, kMaxColumns), std::invalid_argument);
    EXPECT_EQ(sheet.ChangeCount(), 0u);
    EXPECT_TRUE(sheet.Resolve(0, 0).IsEmpty());
}

/// A style sheet as one would write it without a thought for speed.
class NaiveSheet {
public:
    static void Apply(Attributes& own, const Attributes& style, StyleMode mode) {
        switch (mode) {
            case StyleMode::Override: own = Overridden(own, style); break;
            case StyleMode::Copy: own = style; break;
            case StyleMode::ApplyNew: own = Overridden(style, own); break;
            case StyleMode::Remove: own = Without(own, style); break;
        }
    }
    Attributes Resolve(std::uint32_t row, std::uint32_t col) {
        return Overridden(Overridden(Overridden(standard, columns[col]), rows[row]), cells[row][col]);
    }

    Attributes standard;
    std::map<std::uint32_t, Attributes> columns;
    std::map<std::uint32_t, Attributes> rows;
    std::map<std::uint32_t, std::map<std::uint32_t, Attributes>> cells;
};

class StyleSheetProperty : public testing::TestWithParam<unsigned> {
protected:
    static constexpr std::uint32_t kRows = 6;
    static constexpr std::uint32_t kCols = 5;

    Ids SomeIds(std::uint32_t below) {
        Ids ids(styles_.Number(4));
        for (std::uint32_t& id : ids) id = styles_.Number(below);
        return ids;
    }
    bool Step() {
        const CGXStyle style = styles_.Next(3);
        const Attributes attributes = AttributesOf(style);
        const auto mode = static_cast<StyleMode>(styles_.Number(4));
        const Ids rows = SomeIds(kRows);
        const Ids cols = SomeIds(kCols);
        const auto apply = [&](Attributes& own) { NaiveSheet::Apply(own, attributes, mode); };
        switch (styles_.Number(9)) {
            case 0: apply(naive_.standard); return sheet_.SetStyleRange(StyleTarget::Table(), style, mode);
            case 1:
                for (const std::uint32_t col : cols) apply(naive_.columns[col]);
                return sheet_.SetStyleRange(StyleTarget::Columns(cols), style, mode);
            case 2:
            case 3:
                for (const std::uint32_t row : rows) apply(naive_.rows[row]);
                return sheet_.SetStyleRange(StyleTarget::Rows(rows), style, mode);
            case 4: {
                const std::uint32_t row = styles_.Number(kRows);
                naive_.rows.erase(row);
                naive_.cells.erase(row);
                const std::uint64_t changes = sheet_.ChangeCount();
                sheet_.RemoveRow(row);
                return sheet_.ChangeCount() != changes;
            }
            default:
                for (const std::uint32_t row : rows) {
                    for (const std::uint32_t col : cols) apply(naive_.cells[row][col]);
                }
                return sheet_.SetStyleRange(StyleTarget::Cells(rows, cols), style, mode);
        }
    }
    std::vector<Attributes> AllOwn() {
        std::vector<Attributes> all = {naive_.standard};
        for (std::uint32_t col = 0; col < kCols; ++col) all.push_back(naive_.columns[col]);
        for (std::uint32_t row = 0; row < kRows; ++row) {
            all.push_back(naive_.rows[row]);
            for (std::uint32_t col = 0; col < kCols; ++col) all.push_back(naive_.cells[row][col]);
        }
        return all;
    }
    void Compare() {
        for (std::uint32_t row = 0; row < kRows; ++row) {
            ASSERT_EQ(AttributesOf(sheet_.RowStyle(row)), naive_.rows[row]);
            for (std::uint32_t col = 0; col < kCols; ++col) {
                ASSERT_EQ(AttributesOf(sheet_.CellStyle(row, col)), naive_.cells[row][col]);
                ASSERT_EQ(AttributesOf(sheet_.Resolve(row, col)), naive_.Resolve(row, col));
            }
        }
    }

    RandomStyles styles_{GetParam()};
    StyleSheet sheet_;
    NaiveSheet naive_;
};

TEST_P(StyleSheetProperty, ResolvesLikeTheNaiveModelAfterAnyOperations) {
    for (int step = 0; step < 300; ++step) {
        const std::vector<Attributes> before = AllOwn();
        const bool changed = Step();
        // A row listed twice may be changed there and back, which counts as a change.
        ASSERT_TRUE(changed || before == AllOwn());
        ASSERT_NO_FATAL_FAILURE(Compare());
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, StyleSheetProperty, testing::Range(1u, 9u));

}  // namespace
}  // namespace velda
