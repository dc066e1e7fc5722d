#include "velda_util/style/gx_style.h"

#include <limits>

#include "velda_util/style_support.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

TEST(GXStyle, ANewStyleSetsNothing) {
    const CGXStyle style;
    EXPECT_TRUE(style.IsEmpty());
    EXPECT_TRUE(AttributesOf(style).empty());
}

TEST(GXStyle, GettersAnswerWithDefaultsForWhatIsNotSet) {
    const CGXStyle style;
    EXPECT_FALSE(style.GetBold());
    EXPECT_FALSE(style.GetWrapText());
    EXPECT_TRUE(style.GetEnabled());
    EXPECT_FALSE(style.GetReadOnly());
    EXPECT_TRUE(style.GetAllowEnter());
    EXPECT_EQ(style.GetValueType(), ValueType::String);
    EXPECT_EQ(style.GetFormat(), NumberFormat::General);
    EXPECT_EQ(style.GetFontSize(), 10.0);
    EXPECT_EQ(style.GetTextColor(), 0u);
    EXPECT_EQ(style.GetInterior(), 0xFFFFFFu);
    EXPECT_EQ(style.GetHorizontalAlignment(), HorizontalAlignment::Left);
    EXPECT_EQ(style.GetVerticalAlignment(), VerticalAlignment::Top);
    EXPECT_EQ(style.GetPlaces(), 0);
    EXPECT_EQ(style.GetControl(), ControlKind::Edit);
    EXPECT_EQ(style.GetMaxLength(), 0);
    EXPECT_EQ(style.GetMergedSpan(), (MergedSpan{1, 1}));
    EXPECT_EQ(style.GetKeyColumn(), "0");
    EXPECT_EQ(style.GetTextColumn(), "0");
    EXPECT_EQ(style.GetChoiceList() + style.GetThirdAttribute() + style.GetFourthAttribute() + style.GetMinimum() +
                  style.GetMaximum() + style.GetValue() + style.GetToolTip() + style.GetPicture(),
              "");
}

TEST(GXStyle, SettersChain) {
    const CGXStyle style = CGXStyle()
                               .SetBold(true)
                               .SetEnabled(false)
                               .SetTextColor(255)
                               .SetControl(ControlKind::TabbedDropDownList)
                               .SetChoiceList("1\tA\n2\tB\n")
                               .SetKeyColumn("0")
                               .SetTextColumn("1");
    EXPECT_TRUE(style.GetBold());
    EXPECT_FALSE(style.GetEnabled());
    EXPECT_EQ(style.GetTextColor(), 255u);
    EXPECT_EQ(style.GetControl(), ControlKind::TabbedDropDownList);
    EXPECT_EQ(style.GetChoiceList(), "1\tA\n2\tB\n");
    EXPECT_EQ(style.GetTextColumn(), "1");
    EXPECT_EQ(AttributesOf(style).size(), 7u);
}

TEST(GXStyle, WhatIsSetToItsDefaultIsSet) {
    const CGXStyle style = CGXStyle().SetBold(false).SetTextColor(0).SetChoiceList("").SetControl(ControlKind::Edit);
    EXPECT_TRUE(style.IncludeBold());
    EXPECT_TRUE(style.IncludeTextColor());
    EXPECT_TRUE(style.IncludeChoiceList());
    EXPECT_TRUE(style.IncludeControl());
    EXPECT_NE(style, CGXStyle());
    const CGXStyle overridden = CGXStyle().SetBold(true).SetChoiceList("a\n").OverrideWith(style);
    EXPECT_FALSE(overridden.GetBold());
    EXPECT_EQ(overridden.GetChoiceList(), "");
}

TEST(GXStyle, NumbersOutOfRangeAreTakenToTheNearestEnd) {
    EXPECT_EQ(CGXStyle().SetPlaces(-1).GetPlaces(), 0);
    EXPECT_EQ(CGXStyle().SetPlaces(1000).GetPlaces(), CGXStyle::kMaxPlaces);
    EXPECT_EQ(CGXStyle().SetFontSize(-3.0).GetFontSize(), 1.0);
    EXPECT_EQ(CGXStyle().SetFontSize(1e300).GetFontSize(), 1000.0);
    EXPECT_EQ(CGXStyle().SetFontSize(std::numeric_limits<double>::quiet_NaN()).GetFontSize(), 1.0);
    EXPECT_EQ(CGXStyle().SetMergedSpan({0, 0}).GetMergedSpan(), (MergedSpan{1, 1}));
}

TEST(GXStyle, FontSizesKeepATenthOfAPoint) {
    EXPECT_EQ(CGXStyle().SetFontSize(8.3).GetFontSize(), 8.3);
    EXPECT_EQ(CGXStyle().SetFontSize(8.25).GetFontSize(), 8.3);
}

TEST(GXStyle, MergingFollowsTheAttributes) {
    RandomStyles styles(11);
    for (int round = 0; round < 5000; ++round) {
        const CGXStyle a = styles.Next();
        const CGXStyle b = styles.Next();
        const Attributes ofA = AttributesOf(a);
        const Attributes ofB = AttributesOf(b);
        EXPECT_EQ(AttributesOf(CGXStyle(a).OverrideWith(b)), Overridden(ofA, ofB));
        EXPECT_EQ(AttributesOf(CGXStyle(a).FillFrom(b)), Overridden(ofB, ofA));
        EXPECT_EQ(AttributesOf(CGXStyle(a).RemoveAttributesOf(b)), Without(ofA, ofB));
    }
}

TEST(GXStyle, EqualityFollowsTheAttributes) {
    RandomStyles styles(12);
    int equal = 0;
    for (int round = 0; round < 20000; ++round) {
        const CGXStyle a = styles.Next(2);
        const CGXStyle b = styles.Next(2);
        ASSERT_EQ(a == b, AttributesOf(a) == AttributesOf(b));
        if (a != b) continue;
        ++equal;
        EXPECT_EQ(a.Hash(), b.Hash());
    }
    EXPECT_GT(equal, 1000);
}

TEST(GXStyle, RemovingLeavesNoTrace) {
    RandomStyles styles(13);
    for (int round = 0; round < 1000; ++round) {
        CGXStyle style = styles.Next();
        EXPECT_EQ(CGXStyle(style).RemoveAttributesOf(style), CGXStyle());
        EXPECT_TRUE(style.RemoveAttributesOf(style).IsEmpty());
    }
}

TEST(InternedText, EqualTextsAreKeptOnceAndDroppedWithTheirLastUser) {
    InternPool<std::string>& pool = InternPool<std::string>::Shared();
    const std::size_t before = pool.Count();
    {
        const CGXStyle one = CGXStyle().SetValue("interned once\n");
        const CGXStyle two = CGXStyle().SetToolTip("interned once\n");
        CGXStyle three = one;
        EXPECT_EQ(pool.Count(), before + 1);
        EXPECT_EQ(&one.GetValue(), &two.GetToolTip());
        three.SetValue("another\n");
        EXPECT_EQ(pool.Count(), before + 2);
        EXPECT_EQ(one.GetValue(), "interned once\n");
    }
    EXPECT_EQ(pool.Count(), before);
}

TEST(InternedText, SurvivesSelfAssignmentAndMoves) {
    InternedText text("kept");
    const InternedText& same = text;
    text = same;
    EXPECT_EQ(text.Get(), "kept");
    InternedText moved = std::move(text);
    EXPECT_EQ(moved.Get(), "kept");
    EXPECT_EQ(moved, InternedText("kept"));
    EXPECT_NE(moved, InternedText());
    EXPECT_EQ(InternedText().Get(), "");
}

TEST(InternedText, ANumberThatWasSetFreeServesAgain) {
    const auto idOf = [](const char* text) { return InternedText(text).Id(); };
    EXPECT_EQ(idOf("first user of the number"), idOf("second user of the number"));
}

}  // namespace
}  // namespace velda
