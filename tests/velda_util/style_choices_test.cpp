#include <cstdint>
#include <stdexcept>
#include <string>

#include "velda_util/style/choice_lines.h"
#include "velda_util/style/display_text.h"
#include "velda_util/style/gx_style.h"
#include "velda_util/style/style_sheet.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

const char* const kLines = "1\tDL\n2\tLL\n";

CGXStyle Tabbed() { return CGXStyle().SetControl(ControlKind::TabbedDropDownList); }

TEST(StyleChoices, AStyleWithoutLinesHasAnEmptyList) {
    EXPECT_TRUE(CGXStyle().GetChoices().IsEmpty());
    EXPECT_TRUE(Tabbed().SetTextColumn("1").GetChoices().IsEmpty());
    EXPECT_EQ(Tabbed().GetChoices().ShownText("x"), "x");
}

TEST(StyleChoices, AttributesMayBeSetInAnyOrder) {
    const ChoiceList expected(kLines, 0, 1);
    EXPECT_EQ(Tabbed().SetChoiceList(kLines).SetKeyColumn("0").SetTextColumn("1").GetChoices(), expected);
    EXPECT_EQ(CGXStyle()
                  .SetTextColumn("1")
                  .SetChoiceList("other\n")
                  .SetChoiceList(kLines)
                  .SetControl(ControlKind::TabbedDropDownList)
                  .GetChoices(),
              expected);
}

TEST(StyleChoices, ColumnsThatAreNotSetAreTheFirst) {
    EXPECT_EQ(Tabbed().SetChoiceList(kLines).GetChoices(), ChoiceList(kLines, 0, 0));
    EXPECT_EQ(Tabbed().SetChoiceList(kLines).SetKeyColumn("1").GetChoices(), ChoiceList(kLines, 1, 0));
}

TEST(StyleChoices, ANegativeColumnIsTheFirst) {
    EXPECT_EQ(Tabbed().SetChoiceList(kLines).SetKeyColumn("-2").SetTextColumn("-1").GetChoices(), ChoiceList(kLines));
}

TEST(StyleChoices, AControlWithoutTabsTakesNoColumns) {
    for (const ControlKind control : {ControlKind::DropDownList, ControlKind::ComboBox, ControlKind::CheckListComboBox,
                                      ControlKind::CaptionCheckBox, ControlKind::PushButton, ControlKind::Edit}) {
        const CGXStyle style =
            CGXStyle().SetControl(control).SetChoiceList("a\nb\n").SetKeyColumn("1").SetTextColumn("1");
        EXPECT_EQ(style.GetChoices(), ChoiceList("a\nb\n"));
    }
}

TEST(StyleChoices, TheListIsMadeOnce) {
    const CGXStyle style = Tabbed().SetChoiceList(kLines).SetTextColumn("1");
    const ChoiceList list = style.GetChoices();
    EXPECT_TRUE(style.GetChoices().SharesWith(list));
    const CGXStyle copy = style;
    EXPECT_TRUE(copy.GetChoices().SharesWith(list));
}

TEST(StyleChoices, StylesWithEqualLinesAndColumnsShareOneList) {
    const CGXStyle one = Tabbed().SetChoiceList(kLines).SetTextColumn("1");
    const CGXStyle two = Tabbed().SetTextColumn("1").SetBold(true).SetChoiceList(std::string(kLines));
    EXPECT_TRUE(one.GetChoices().SharesWith(two.GetChoices()));
    EXPECT_EQ(&one.GetChoiceList(), &two.GetChoiceList());
}

TEST(StyleChoices, StylesWithOtherColumnsShareTheTextAlone) {
    const CGXStyle names = Tabbed().SetChoiceList(kLines).SetTextColumn("1");
    const CGXStyle keys = CGXStyle(names).SetTextColumn("0");
    EXPECT_FALSE(names.GetChoices().SharesWith(keys.GetChoices()));
    EXPECT_EQ(&names.GetChoices().Lines(), &keys.GetChoiceList());
    EXPECT_EQ(names.GetChoices().ShownText("1"), "DL");
    EXPECT_EQ(keys.GetChoices().ShownText("1"), "1");
}

TEST(StyleChoices, NewLinesLeaveCopiesAlone) {
    CGXStyle style = Tabbed().SetChoiceList(kLines).SetTextColumn("1");
    const CGXStyle before = style;
    style.SetChoiceList("1\tSW\n");
    EXPECT_EQ(DisplayText("1", before), "DL");
    EXPECT_EQ(DisplayText("1", style), "SW");
    EXPECT_NE(style, before);
    EXPECT_EQ(style.SetChoiceList(kLines), before);
    EXPECT_EQ(style.Hash(), before.Hash());
}

TEST(StyleChoices, AListOutlivesItsStyle) {
    const ChoiceList list = Tabbed().SetChoiceList("7\tkept alive\n").SetTextColumn("1").GetChoices();
    EXPECT_EQ(list.ShownText("7"), "kept alive");
}

TEST(StyleChoices, EqualLinesAreKeptOnceAndDroppedWithTheirLastStyle) {
    const InternPool<ChoiceLines>& pool = InternPool<ChoiceLines>::Shared();
    const std::size_t before = pool.Count();
    {
        const CGXStyle one = CGXStyle().SetChoiceList("held by styles\n");
        const CGXStyle two = CGXStyle().SetBold(true).SetChoiceList("held by styles\n");
        CGXStyle three = one;
        EXPECT_EQ(pool.Count(), before + 1);
        three.SetChoiceList("held by one style\n");
        EXPECT_EQ(pool.Count(), before + 2);
        three.RemoveAttributesOf(one);
        EXPECT_EQ(pool.Count(), before + 1);
        EXPECT_FALSE(three.IncludeChoiceList());
    }
    EXPECT_EQ(pool.Count(), before);
}

TEST(ChoiceLines, RefuseANegativeColumn) {
    EXPECT_THROW(ChoiceLines("a\n").ListBy(-1, 0), std::invalid_argument);
    EXPECT_THROW(ChoiceLines("a\n").ListBy(0, -1), std::invalid_argument);
}

constexpr std::uint32_t kCol = 3;

/// A sheet whose column style says that the cells are tabbed lists of names.
struct SheetOfNames : StyleSheet {
    SheetOfNames() { SetColumn(Tabbed().SetKeyColumn("0").SetTextColumn("1")); }
    void SetColumn(const CGXStyle& style) { SetStyleRange(StyleTarget::Columns({&kCol, 1}), style); }
};

TEST(StyleChoices, LinesOfACellMeetTheColumnsOfItsColumnStyle) {
    SheetOfNames sheet;
    sheet.SetCellStyle(1, kCol, CGXStyle().SetChoiceList(kLines));
    sheet.SetCellStyle(2, kCol, CGXStyle().SetChoiceList("1\tSW\n"));
    EXPECT_EQ(DisplayText("1", sheet.Resolve(1, kCol)), "DL");
    EXPECT_EQ(DisplayText("1", sheet.Resolve(2, kCol)), "SW");
    EXPECT_EQ(DisplayText("1", sheet.Resolve(3, kCol)), "1");
}

TEST(StyleChoices, ACellMayShowAnotherColumnOfTheLinesOfItsColumnStyle) {
    SheetOfNames sheet;
    sheet.SetColumn(CGXStyle().SetChoiceList(kLines));
    sheet.SetCellStyle(2, kCol, CGXStyle().SetTextColumn("0"));
    sheet.SetCellStyle(3, kCol, CGXStyle().SetControl(ControlKind::DropDownList).SetChoiceList("Yes\nNo\n"));
    EXPECT_EQ(DisplayText("2", sheet.Resolve(1, kCol)), "LL");
    EXPECT_EQ(DisplayText("2", sheet.Resolve(2, kCol)), "2");
    EXPECT_EQ(sheet.Resolve(3, kCol).GetChoices(), ChoiceList("Yes\nNo\n"));
}

TEST(StyleChoices, CellsOfDifferentLooksShareTheListOfTheirColumn) {
    SheetOfNames sheet;
    sheet.SetColumn(CGXStyle().SetChoiceList(kLines));
    sheet.SetCellStyle(2, kCol, CGXStyle().SetBold(true));
    sheet.SetCellStyle(4, kCol + 1, Tabbed().SetTextColumn("1").SetChoiceList(kLines));
    const ChoiceList list = sheet.Resolve(1, kCol).GetChoices();
    EXPECT_TRUE(sheet.Resolve(2, kCol).GetChoices().SharesWith(list));
    EXPECT_TRUE(sheet.Resolve(4, kCol + 1).GetChoices().SharesWith(list));
}

TEST(StyleChoices, NewLinesOfAColumnStyleReachItsCells) {
    SheetOfNames sheet;
    sheet.SetColumn(CGXStyle().SetChoiceList(kLines));
    EXPECT_EQ(DisplayText("1", sheet.Resolve(1, kCol)), "DL");
    sheet.SetColumn(CGXStyle().SetChoiceList("1\tSW\n"));
    EXPECT_EQ(DisplayText("1", sheet.Resolve(1, kCol)), "SW");
}

}  // namespace
}  // namespace velda
