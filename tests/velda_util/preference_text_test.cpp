#include "velda_util/pref/preference_text.h"

#include <map>

#include "velda_util/preference_damage.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

using Fault = PreferenceText::Fault;

const std::vector<STBPrefItem> kUsual{{1, 2, 0, 45}, {3, 2, 0, 80}, {2, 2, 4, 120}};
const TablePreferences kThik{kUsual, {{2, 0, 1}, {1}, {0, 2}}};

constexpr std::string_view kThikText =
    "zt_tb tables 1.0\n"
    "[table TBThik]\n"
    "column 1 2 0 45\n"
    "column 3 2 0 80\n"
    "column 2 2 4 120\n"
    "order 2 0 1\n"
    "hidden 1\n"
    "locked 0 2\n"
    "checksum af4802f67ca9a85c\n";

PreferenceText TextOf(std::string lines) {
    PreferenceText text;
    EXPECT_EQ(text.Read(WithChecksumLine(std::move(lines))), Fault::None);
    return text;
}

PreferenceText SeveralTables() {
    PreferenceText text;
    text.SetTable("TBThik", kThik);
    text.SetTable("TBMemb", {kUsual, {}});
    text.SetTable("%1 \n", {{{3, 2, 0, 80}}, {{}, {0}, {}}});
    return text;
}

TEST(PreferenceText, IsWrittenInThisForm) {
    PreferenceText text;
    text.SetTable("TBThik", kThik);
    EXPECT_EQ(text.Bytes(), kThikText);
}

TEST(PreferenceText, ReadsBackWhatWasWritten) {
    PreferenceText text;
    ASSERT_EQ(text.Read(kThikText), Fault::None);
    EXPECT_EQ(text.Table("TBThik"), kThik);
    EXPECT_EQ(text.Bytes(), kThikText);
}

TEST(PreferenceText, HoldsNothingForOtherNames) {
    const PreferenceText text = SeveralTables();
    for (const char* name : {"", "TBThi", "TBThik ", "tbthik", "table TBThik"})
        EXPECT_EQ(text.Table(name), std::nullopt);
}

TEST(PreferenceText, AnEmptyTextIsWholeToo) {
    PreferenceText text;
    EXPECT_EQ(text.Read(PreferenceText().Bytes()), Fault::None);
    EXPECT_EQ(text.Table("TBThik"), std::nullopt);
}

TEST(PreferenceText, AReplacedTableKeepsNothingOfItsOldPreferences) {
    PreferenceText text = SeveralTables();
    text.SetTable("TBThik", {{{1, 2, 0, 50}}, {}});
    EXPECT_EQ(text.Table("TBThik"), (TablePreferences{{{1, 2, 0, 50}}, {}}));
    EXPECT_EQ(text.Table("TBMemb"), (TablePreferences{kUsual, {}}));
}

TEST(PreferenceText, NamesOfAnyBytesAreKeptApart) {
    std::vector<std::string> names{"",         "]",     "[table A]", "A]\n[table B", "a b", "a%20b", "a\xEC\x97\xB4 b",
                                   "\xFF\xFE", "A\r\n", "A\r"};
    for (int byte = 0; byte < 256; ++byte) {
        names.push_back(std::string(1, static_cast<char>(byte)));
        names.push_back("n" + names.back() + names.back());
    }
    PreferenceText text;
    std::map<std::string, int> widths;
    for (const std::string& name : names) {
        const int width = static_cast<int>(widths.size());
        if (widths.emplace(name, width).second) text.SetTable(name, {{{1, 2, 0, width}}, {}});
    }
    PreferenceText read;
    ASSERT_EQ(read.Read(text.Bytes()), Fault::None);
    for (const auto& [name, width] : widths) {
        ASSERT_TRUE(read.Table(name).has_value()) << testing::PrintToString(name);
        EXPECT_EQ(read.Table(name)->columns, (std::vector<STBPrefItem>{{1, 2, 0, width}}))
            << testing::PrintToString(name);
    }
}

TEST(PreferenceText, ALaterMinorVersionKeepsWhatIsUnknownHere) {
    PreferenceText text = TextOf(
        "zt_tb tables 1.7\n"
        "theme dark\n"
        "\n"
        "[window main]\n"
        "column 9 9 9 9\n"
        "[table TBThik]\n"
        "colour 255\n"
        "column 1 2 0 45\n"
        "sort 0 asc\n"
        "[table TBMemb]\n"
        "zoom  150 \n");
    EXPECT_EQ(text.Table("TBThik"), (TablePreferences{{{1, 2, 0, 45}}, {}}));
    text.SetTable("TBThik", {{{1, 2, 0, 60}}, {{}, {0}, {}}});
    EXPECT_EQ(text.Bytes(), WithChecksumLine("zt_tb tables 1.7\n"
                                             "theme dark\n"
                                             "\n"
                                             "[window main]\n"
                                             "column 9 9 9 9\n"
                                             "[table TBThik]\n"
                                             "column 1 2 0 60\n"
                                             "hidden 0\n"
                                             "colour 255\n"
                                             "sort 0 asc\n"
                                             "[table TBMemb]\n"
                                             "zoom  150 \n"));
}

TEST(PreferenceText, ALaterMajorVersionIsNoDamage) {
    PreferenceText text = SeveralTables();
    EXPECT_EQ(text.Read(WithChecksumLine("zt_tb tables 2.0\nanything\n")), Fault::Newer);
    EXPECT_EQ(text.Bytes(), SeveralTables().Bytes());
}

TEST(PreferenceText, AWholeTextWithoutAProperVersionLineIsNoPreferenceText) {
    for (const char* lines : {"\n", "zt_tb tables\n", "zt_tb tables \n", "zt_tb tables 1\n", "zt_tb tables 1.\n",
                              "zt_tb tables 0.9\n", "zt_tb tables 1.-1\n", "zt_tb tables 1.0x\n", "zt_tb tables -2.0\n",
                              "zt_tb tables 99999999999.0\n", " zt_tb tables 1.0\n", "[table TBThik]\n"}) {
        EXPECT_EQ(PreferenceText().Read(WithChecksumLine(lines)), Fault::Damaged) << lines;
    }
    EXPECT_EQ(PreferenceText().Read(WithChecksumLine("")), Fault::Damaged);
    EXPECT_EQ(PreferenceText().Read(WithChecksumLine("zt_tb tables 1.0")), Fault::Damaged);
}

TEST(PreferenceText, EveryCutIsNoticed) {
    const std::string bytes = SeveralTables().Bytes();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_EQ(PreferenceText().Read(std::string_view(bytes).substr(0, size)), Fault::Damaged) << size;
        EXPECT_EQ(PreferenceText().Read(std::string_view(bytes).substr(bytes.size() - size)), Fault::Damaged) << size;
    }
}

TEST(PreferenceText, EveryChangedByteIsNoticed) {
    const std::string bytes = SeveralTables().Bytes();
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string damaged = bytes;
            damaged[at] = static_cast<char>(byte);
            const Fault expected = damaged == bytes ? Fault::None : Fault::Damaged;
            ASSERT_EQ(PreferenceText().Read(damaged), expected) << "byte " << byte << " at " << at;
        }
    }
}

TEST(PreferenceText, AnEditThatIsNoHarmIsNoticedToo) {
    std::string bytes(kThikText);
    EXPECT_EQ(PreferenceText().Read(bytes + "\n"), Fault::Damaged);
    EXPECT_EQ(PreferenceText().Read(bytes + bytes), Fault::Damaged);
    bytes.replace(bytes.find(" 120"), 4, " 125");
    EXPECT_EQ(PreferenceText().Read(bytes), Fault::Damaged);
}

TEST(PreferenceText, BadNumbersOfAWholeTextGiveTheDefaults) {
    const PreferenceText text = TextOf(
        "zt_tb tables 1.0\n"
        "[table T]\n"
        "column 1 2 0 -45\n"
        "column 3 two 0 99999999999999999999\n"
        "column 2 2 4\n"
        "order 0 1 x\n"
        "hidden 1 1.5 0x1 +2 --1 2\n"
        "locked\n");
    const TablePreferences fitted = FitPreferences(text.Table("T").value(), kUsual);
    EXPECT_EQ(fitted, (TablePreferences{kUsual, {{}, {1, 2}, {}}}));
}

TEST(PreferenceText, AColumnLineOfAnotherLengthGivesTheDefaultsOfItsColumnAlone) {
    const PreferenceText text = TextOf(
        "zt_tb tables 1.0\n"
        "[table T]\n"
        "column 1 2 0 50\n"
        "column\n"
        "column 2 2 4 130 1\n");
    EXPECT_EQ(FitPreferences(text.Table("T").value(), kUsual).columns,
              (std::vector<STBPrefItem>{{1, 2, 0, 50}, {3, 2, 0, 80}, {2, 2, 4, 120}}));
}

TEST(PreferenceText, RandomDamageIsNoticed) {
    const std::string bytes = SeveralTables().Bytes();
    Damage damage(1);
    int harmed = 0;
    for (int i = 0; i < 50'000; ++i) {
        const std::string damaged = damage.Of(bytes);
        if (damaged == bytes) continue;
        ++harmed;
        ASSERT_EQ(PreferenceText().Read(damaged), Fault::Damaged) << damaged;
    }
    EXPECT_GT(harmed, 40'000);
}

void ExpectSoundItems(const std::vector<STBPrefItem>& items) {
    ASSERT_EQ(items.size(), kUsual.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].columnType, kUsual[i].columnType);
        EXPECT_TRUE(items[i].columnWidth >= 0 && items[i].columnWidth <= kMaxColumnWidth) << items[i].columnWidth;
        EXPECT_TRUE(items[i].decimalPlaces >= 0 && items[i].decimalPlaces <= kMaxDecimalPlaces);
        EXPECT_TRUE(items[i].numberFormat >= 0 && items[i].numberFormat <= kMaxNumberFormat);
    }
}

TEST(PreferenceText, DamageUnderARightChecksumGivesNoNonsense) {
    const std::string whole = SeveralTables().Bytes();
    const std::string lines = whole.substr(0, whole.rfind("checksum"));
    Damage damage(2);
    int read = 0;
    for (int i = 0; i < 50'000; ++i) {
        PreferenceText text;
        if (text.Read(WithChecksumLine(damage.Of(lines))) != Fault::None) continue;
        ++read;
        for (const char* name : {"TBThik", "TBMemb"}) {
            const TablePreferences fitted = FitPreferences(text.Table(name).value_or(TablePreferences()), kUsual);
            ExpectSoundItems(fitted.columns);
            text.SetTable(name, fitted);
            PreferenceText again;
            ASSERT_EQ(again.Read(text.Bytes()), Fault::None);
            ASSERT_EQ(again.Table(name), fitted);
        }
    }
    EXPECT_GT(read, 20'000);
}

}  // namespace
}  // namespace velda
