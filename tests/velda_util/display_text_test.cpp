#include "velda_util/style/display_text.h"

#include <locale>
#include <random>

#include "velda_lib/number_text.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

TEST(RoundedText, RoundsHalfAwayFromZeroInDecimals) {
    EXPECT_EQ(RoundedText("0.125", 2), "0.13");
    EXPECT_EQ(RoundedText("-0.125", 2), "-0.13");
    EXPECT_EQ(RoundedText("1.005", 2), "1.01");
    EXPECT_EQ(RoundedText("2.5", 0), "3");
    EXPECT_EQ(RoundedText("-2.5", 0), "-3");
    EXPECT_EQ(RoundedText("0.4999", 0), "0");
    EXPECT_EQ(RoundedText("0.5", 0), "1");
}

TEST(RoundedText, CarriesThroughNines) {
    EXPECT_EQ(RoundedText("9.995", 2), "10.00");
    EXPECT_EQ(RoundedText("0.0996", 3), "0.100");
    EXPECT_EQ(RoundedText("999.5", 0), "1000");
    EXPECT_EQ(RoundedText("0.05", 1), "0.1");
    EXPECT_EQ(RoundedText("0.95", 1), "1.0");
}

TEST(RoundedText, FillsUpWithZeros) {
    EXPECT_EQ(RoundedText("3", 4), "3.0000");
    EXPECT_EQ(RoundedText("3.1", 4), "3.1000");
    EXPECT_EQ(RoundedText("0", 2), "0.00");
    EXPECT_EQ(RoundedText("120", 0), "120");
}

TEST(RoundedText, ShowsNoNegativeZero) {
    EXPECT_EQ(RoundedText("-0", 2), "0.00");
    EXPECT_EQ(RoundedText("-0.004", 2), "0.00");
    EXPECT_EQ(RoundedText("-1e-20", 3), "0.000");
    EXPECT_EQ(RoundedText("-0.005", 2), "-0.01");
}

TEST(RoundedText, ReadsExponents) {
    EXPECT_EQ(RoundedText("1.5e-07", 8), "0.00000015");
    EXPECT_EQ(RoundedText("1.5e-07", 7), "0.0000002");
    EXPECT_EQ(RoundedText("1.5e-07", 4), "0.0000");
    EXPECT_EQ(RoundedText("1.25E+3", 1), "1250.0");
    EXPECT_EQ(RoundedText("1.23456789012345e+15", 2), "1234567890123450.00");
    EXPECT_EQ(RoundedText("0e999999999999", 1), "0.0");
    EXPECT_EQ(RoundedText("1e-999999999999", 1), "0.0");
    EXPECT_EQ(RoundedText("1e300", 1), "1" + std::string(300, '0') + ".0");
}

TEST(RoundedText, TakesEveryFormOfANumber) {
    EXPECT_EQ(RoundedText(" +5. ", 1), "5.0");
    EXPECT_EQ(RoundedText(".5", 1), "0.5");
    EXPECT_EQ(RoundedText("007.25", 1), "7.3");
    EXPECT_EQ(RoundedText("0.00", 1), "0.0");
}

TEST(RoundedText, LeavesWhatIsNoNumberAsItStands) {
    for (const char* text : {"", " ", "-", "NG", "1,5", "12 mm", "1e", "--1", "0x10", "inf", "nan", "1e999999999999"}) {
        EXPECT_EQ(RoundedText(text, 2), text);
    }
}

TEST(RoundedText, PlacesOutOfRangeAreTakenToTheNearestEnd) {
    EXPECT_EQ(RoundedText("1.5", -3), "2");
    EXPECT_EQ(RoundedText("1", 1000), "1." + std::string(CGXStyle::kMaxPlaces, '0'));
}

/// n / 10^scale with `places` decimal places, worked out in integers.
std::string Expected(std::int64_t n, int scale, int places) {
    const bool negative = n < 0;
    std::int64_t value = negative ? -n : n;
    for (int i = scale; i < places; ++i) value *= 10;
    std::int64_t divisor = 1;
    for (int i = places; i < scale; ++i) divisor *= 10;
    value = (value + divisor / 2) / divisor;
    std::string digits = std::to_string(value);
    const auto least = static_cast<std::size_t>(places) + 1;
    if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
    if (places > 0) digits.insert(digits.size() - static_cast<std::size_t>(places), ".");
    return (negative && value != 0 ? "-" : "") + digits;
}

TEST(RoundedText, AgreesWithIntegersHoweverTheNumberIsWritten) {
    std::mt19937_64 random(4);
    for (int round = 0; round < 20000; ++round) {
        std::int64_t bound = 10;
        for (std::uint64_t i = random() % 9; i > 0; --i) bound *= 10;
        const std::int64_t n = static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(bound)) - bound / 2;
        const int scale = static_cast<int>(random() % 8);
        const int places = static_cast<int>(random() % 7);
        double divisor = 1.0;
        for (int i = 0; i < scale; ++i) divisor *= 10.0;
        const std::string expected = Expected(n, scale, places);
        ASSERT_EQ(RoundedText(FormatDouble(static_cast<double>(n) / divisor), places), expected);
        ASSERT_EQ(RoundedText(std::to_string(n) + "e-" + std::to_string(scale), places), expected);
        ASSERT_EQ(RoundedText(expected, places), expected);
    }
}

CGXStyle Fixed(int places) {
    return CGXStyle().SetValueType(ValueType::Numeric).SetFormat(NumberFormat::Fixed).SetPlaces(places);
}

TEST(DisplayText, RoundsNumbersOfAFixedFormat) {
    EXPECT_EQ(DisplayText("3.14159", Fixed(2)), "3.14");
    EXPECT_EQ(DisplayText("-", Fixed(2)), "-");
}

TEST(DisplayText, LeavesOtherTextsAsTheyStand) {
    EXPECT_EQ(DisplayText("3.14159", {}), "3.14159");
    EXPECT_EQ(DisplayText("3.14159", Fixed(2).SetValueType(ValueType::String)), "3.14159");
    EXPECT_EQ(DisplayText("3.14159", Fixed(2).SetFormat(NumberFormat::General)), "3.14159");
    EXPECT_EQ(DisplayText("3.14159", Fixed(2).RemoveAttributesOf(CGXStyle().SetPlaces(0))), "3.14159");
}

TEST(DisplayText, ACheckBoxShowsItsState) {
    for (const ControlKind control : {ControlKind::CheckBox, ControlKind::CaptionCheckBox}) {
        const CGXStyle style = CGXStyle().SetControl(control);
        EXPECT_EQ(DisplayText("1", style), "1");
        EXPECT_EQ(DisplayText("0", style), "0");
        EXPECT_EQ(DisplayText("", style), "0");
        EXPECT_EQ(DisplayText("11", style), "0");
    }
}

TEST(DisplayText, AKeyOfATabbedListShowsItsName) {
    CGXStyle style = CGXStyle().SetControl(ControlKind::TabbedDropDownList).SetChoiceList("1\tDL\n12\tLL\n3\t\n");
    style.SetKeyColumn("0").SetTextColumn("1");
    EXPECT_EQ(DisplayText("12", style), "LL");
    EXPECT_EQ(DisplayText("1", style), "DL");
    EXPECT_EQ(DisplayText("3", style), "");
    EXPECT_EQ(DisplayText("2", style), "2");
    EXPECT_EQ(DisplayText("", style), "");
    style.SetTextColumn("0");
    EXPECT_EQ(DisplayText("12", style), "12");
}

CGXStyle Tabbed(std::string_view lines, std::string_view keyColumn, std::string_view textColumn) {
    return CGXStyle()
        .SetControl(ControlKind::TabbedDropDownList)
        .SetChoiceList(lines)
        .SetKeyColumn(keyColumn)
        .SetTextColumn(textColumn);
}

TEST(DisplayText, ATabbedListTakesAnyColumnsOfItsLines) {
    EXPECT_EQ(DisplayText("e", Tabbed("a\tb\tc\nd\te\tf", "1", "2")), "f");
    EXPECT_EQ(DisplayText("c", Tabbed("a\tb\tc\nd\te\tf", "2", "0")), "a");
    EXPECT_EQ(DisplayText("a", Tabbed("", "0", "1")), "a");
    EXPECT_EQ(DisplayText("None", Tabbed("None\nA\n", "0", "0")), "None");
}

TEST(DisplayText, ALineWithoutTheShownColumnShowsItsKey) {
    EXPECT_EQ(DisplayText("a", Tabbed("a\nd\te\n", "0", "1")), "a");
}

TEST(DisplayText, AnAttributeThatIsNoColumnNumberMeansTheFirst) {
    EXPECT_EQ(DisplayText("a", Tabbed("a\tb\n", "-1", "1")), "b");
    EXPECT_EQ(DisplayText("b", Tabbed("a\tb\n", "1", "x")), "a");
    EXPECT_EQ(DisplayText("b", Tabbed("a\tb\n", "1", "")), "a");
}

TEST(DisplayText, TheFirstOfTheLinesWithOneKeyIsShown) {
    EXPECT_EQ(DisplayText("1", Tabbed("2\tc\n1\ta\n1\tb\n", "0", "1")), "a");
}

TEST(DisplayText, TheValueOfAListWithoutTabsIsItsShownText) {
    for (const ControlKind control :
         {ControlKind::DropDownList, ControlKind::ComboBox, ControlKind::CheckListComboBox}) {
        const CGXStyle style = Tabbed("a\nb\n1.25\n", "0", "1").SetControl(control);
        EXPECT_EQ(DisplayText("a", style), "a");
        EXPECT_EQ(DisplayText("a,b", style), "a,b");
        EXPECT_EQ(DisplayText("c", style), "c");
        EXPECT_EQ(DisplayText("1.25", CGXStyle(style).OverrideWith(Fixed(1))), "1.3");
    }
}

TEST(DisplayText, ATabbedListIsNotRounded) {
    const CGXStyle style = Tabbed("1\t1.25\n", "0", "1").OverrideWith(Fixed(1));
    EXPECT_EQ(DisplayText("1", style), "1.25");
    EXPECT_EQ(DisplayText("2.75", style), "2.75");
}

/// A decimal comma and points between thousands.
class CommaNumbers : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(DisplayText, DoesNotFollowTheLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale(), new CommaNumbers));
    const std::string point = DisplayText("1234.5", Fixed(2));
    const std::string comma = DisplayText("1234,5", Fixed(2));
    std::locale::global(before);
    EXPECT_EQ(point, "1234.50");
    EXPECT_EQ(comma, "1234,5");
}

}  // namespace
}  // namespace velda
