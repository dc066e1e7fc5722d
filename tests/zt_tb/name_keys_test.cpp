#include "velda_lib/language.h"
#include "zt_db/records/load.h"
#include "zt_db/records/name.h"
#include "zt_tb/support/number_tables.h"

namespace zt {
namespace {

using Wnd = CTBCommonWnd;

class NameKeysTest : public TableTest {
protected:
    ~NameKeysTest() override { velda::SetCurrentLanguage(velda::Language::English); }
};

TEST_F(NameKeysTest, PropertiesAreFoundByExactlyTheirNames) {
    AddNamed<CClassMatl>(2, "C24");
    AddNamed<CClassSect>(3, "B 400x600");
    AddNamed<CClassThik>(5, "W200");
    EXPECT_EQ(2u, Wnd::GetMatlKey("C24"));
    EXPECT_EQ(0u, Wnd::GetMatlKey("c24"));
    EXPECT_EQ(0u, Wnd::GetMatlKey("C240"));
    EXPECT_EQ(3u, Wnd::GetSectKey("B 400x600"));
    EXPECT_EQ(0u, Wnd::GetSectKey("b 400x600"));
    EXPECT_EQ(5u, Wnd::GetThikKey("W200"));
    EXPECT_EQ(0u, Wnd::GetThikKey("w200"));
}

TEST_F(NameKeysTest, AmongPropertiesOfOneNameTheFirstOfTheIterationIsFound) {
    AddNamed<CClassMatl>(2, "C24");
    AddNamed<CClassMatl>(4, "C24");
    std::uint32_t first = 0;
    T_MATL_D record;
    POSITION at = Records<CClassMatl>().DB_GetStart();
    Records<CClassMatl>().GetNextData(at, first, record);
    EXPECT_EQ(first, Wnd::GetMatlKey("C24"));
}

TEST_F(NameKeysTest, APropertyMayBeNamedLikeNone) {
    AddNamed<CClassMatl>(2, "None");
    AddNamed<CClassSect>(3, "");
    EXPECT_EQ(2u, Wnd::GetMatlKey("None"));
    EXPECT_EQ(3u, Wnd::GetSectKey(""));
}

TEST_F(NameKeysTest, NoPropertyIsFoundInAnEmptyClass) {
    EXPECT_EQ(0u, Wnd::GetMatlKey("C24"));
    EXPECT_EQ(0u, Wnd::GetSectKey("B"));
    EXPECT_EQ(0u, Wnd::GetThikKey("W200"));
}

TEST_F(NameKeysTest, NamesOfKeys) {
    AddNamed<CClassMatl>(2, "C24");
    AddNamed<CClassSect>(3, "B 400x600");
    AddNamed<CClassThik>(5, "W200");
    AddGroup(7, "Base", 100);
    AddGroup(8, "Beams", 201);
    AddLoadCase(9, "DL", "D");
    EXPECT_EQ("C24", Wnd::GetMatlName(2));
    EXPECT_EQ("B 400x600", Wnd::GetSectName(3));
    EXPECT_EQ("W200", Wnd::GetThikName(5));
    EXPECT_EQ("Base", Wnd::GetPontNameName(7));
    EXPECT_EQ("Beams", Wnd::GetMembNameName(8));
    EXPECT_EQ("DL", Wnd::GetStldName(9));
}

using NameOfKey = std::string (*)(std::uint32_t);
constexpr NameOfKey kNamesOfKeys[] = {&Wnd::GetMatlName,     &Wnd::GetSectName,     &Wnd::GetThikName,
                                      &Wnd::GetPontNameName, &Wnd::GetMembNameName, &Wnd::GetStldName,
                                      &Wnd::GetStorName};

TEST_F(NameKeysTest, KeyZeroIsNamedNoneAndAVanishedKeyNothing) {
    for (const NameOfKey name : kNamesOfKeys) {
        EXPECT_EQ("None", name(0));
        EXPECT_EQ("", name(77));
    }
    velda::SetCurrentLanguage(velda::Language::Korean);
    for (const NameOfKey name : kNamesOfKeys) EXPECT_EQ("없음", name(0));
}

TEST_F(NameKeysTest, GroupsAreFoundByNameAndType) {
    AddGroup(7, "Base", 100);
    AddGroup(8, "Base", 201);
    EXPECT_EQ(7u, Wnd::GetPontNameKey("Base"));
    EXPECT_EQ(8u, Wnd::GetMembNameKey("Base", 201));
    EXPECT_EQ(0u, Wnd::GetMembNameKey("Base", 101));
    EXPECT_EQ(0u, Wnd::GetPontNameKey("base"));
}

TEST_F(NameKeysTest, LoadCasesAreFoundByName) {
    AddLoadCase(9, "DL", "D");
    EXPECT_EQ(9u, Wnd::GetStldKey("DL"));
    EXPECT_EQ(0u, Wnd::GetStldKey("dl"));
}

TEST_F(NameKeysTest, AnEmptyNameAndNoneInAnyCaseAreKeyZeroEvenWhenRecordsAreCalledSo) {
    AddGroup(6, "", 100);
    AddGroup(7, "None", 100);
    AddGroup(8, "NONE", 201);
    AddLoadCase(9, "none", "D");
    EXPECT_EQ(0u, Wnd::GetPontNameKey(""));
    EXPECT_EQ(0u, Wnd::GetPontNameKey("None"));
    EXPECT_EQ(0u, Wnd::GetMembNameKey("NONE", 201));
    EXPECT_EQ(0u, Wnd::GetStldKey("none"));
}

TEST_F(NameKeysTest, NoneIsTheWordOfTheLanguage) {
    AddGroup(7, "None", 100);
    AddGroup(8, "없음", 100);
    EXPECT_EQ(8u, Wnd::GetPontNameKey("없음"));
    velda::SetCurrentLanguage(velda::Language::Korean);
    EXPECT_EQ(7u, Wnd::GetPontNameKey("None"));
    EXPECT_EQ(0u, Wnd::GetPontNameKey("없음"));
}

TEST_F(NameKeysTest, InOneModuleAStoryIsItsName) {
    AddNamed<CClassMdul>(1, "Tower");
    AddStory(4, "2F", 1, 7.2);
    EXPECT_EQ(4u, Wnd::GetStorKey("2F"));
    EXPECT_EQ(0u, Wnd::GetStorKey("2f"));
    EXPECT_EQ(0u, Wnd::GetStorKey("Tower : 2F"));
    EXPECT_EQ("2F", Wnd::GetStorName(4));
}

TEST_F(NameKeysTest, InOneModuleTheSeparatorIsPartOfTheName) {
    AddNamed<CClassMdul>(1, "Tower");
    AddStory(4, "A : B", 1, 7.2);
    EXPECT_EQ(4u, Wnd::GetStorKey("A : B"));
}

TEST_F(NameKeysTest, InSeveralModulesAStoryIsNamedWithItsModule) {
    AddNamed<CClassMdul>(1, "Tower");
    AddNamed<CClassMdul>(2, "Podium");
    AddStory(4, "2F", 1, 7.2);
    AddStory(5, "2F", 2, 7.2);
    EXPECT_EQ("Tower : 2F", Wnd::GetStorName(4));
    EXPECT_EQ("Podium : 2F", Wnd::GetStorName(5));
    EXPECT_EQ(4u, Wnd::GetStorKey("Tower : 2F"));
    EXPECT_EQ(5u, Wnd::GetStorKey("Podium : 2F"));
    EXPECT_EQ(0u, Wnd::GetStorKey("Annex : 2F"));
    EXPECT_EQ(0u, Wnd::GetStorKey("Tower : 3F"));
}

TEST_F(NameKeysTest, InSeveralModulesATextWithoutSeparatorIsNoStory) {
    AddNamed<CClassMdul>(1, "Tower");
    AddNamed<CClassMdul>(2, "");
    AddStory(4, "2F", 1, 7.2);
    AddStory(5, "F", 2, 7.2);
    EXPECT_EQ(0u, Wnd::GetStorKey("2F"));
    EXPECT_EQ(0u, Wnd::GetStorKey("12F"));
    EXPECT_EQ(0u, Wnd::GetStorKey("Tower: 2F"));
    EXPECT_EQ(0u, Wnd::GetStorKey(""));
}

TEST_F(NameKeysTest, TheFirstSeparatorDividesModuleAndStory) {
    AddNamed<CClassMdul>(1, "Tower");
    AddNamed<CClassMdul>(2, "Tower : A");
    AddStory(4, "A : 2F", 1, 7.2);
    AddStory(5, "2F", 2, 7.2);
    EXPECT_EQ(4u, Wnd::GetStorKey("Tower : A : 2F"));
}

TEST_F(NameKeysTest, AStoryWithoutModuleHasNoNameAmongSeveralModules) {
    AddNamed<CClassMdul>(1, "Tower");
    AddStory(4, "2F", 0, 7.2);
    EXPECT_EQ("2F", Wnd::GetStorName(4));
    AddNamed<CClassMdul>(2, "Podium");
    EXPECT_EQ("", Wnd::GetStorName(4));
}

TEST_F(NameKeysTest, WithoutModulesNoStoryIsFound) {
    AddStory(4, "2F", 0, 7.2);
    EXPECT_EQ(0u, Wnd::GetStorKey("2F"));
    EXPECT_EQ("2F", Wnd::GetStorName(4));
}

TEST_F(NameKeysTest, WithoutAModelKeysAreZeroAndNamesEmpty) {
    CDBDoc::m_pDBDoc = nullptr;
    EXPECT_EQ(nullptr, Wnd::GetDB());
    EXPECT_EQ(0u, Wnd::GetMatlKey("a"));
    EXPECT_EQ(0u, Wnd::GetSectKey("a"));
    EXPECT_EQ(0u, Wnd::GetThikKey("a"));
    EXPECT_EQ(0u, Wnd::GetPontNameKey("a"));
    EXPECT_EQ(0u, Wnd::GetMembNameKey("a", 201));
    EXPECT_EQ(0u, Wnd::GetStldKey("a"));
    EXPECT_EQ(0u, Wnd::GetStorKey("a"));
    for (const NameOfKey name : kNamesOfKeys) {
        EXPECT_EQ("", name(0));
        EXPECT_EQ("", name(1));
    }
}

TEST_F(NameKeysTest, YesIsTheEnglishWordInEveryLanguage) {
    EXPECT_EQ(1, Wnd::GetYesNo("Yes"));
    EXPECT_EQ(1, Wnd::GetYesNo("yES"));
    EXPECT_EQ(0, Wnd::GetYesNo("No"));
    EXPECT_EQ(0, Wnd::GetYesNo(""));
    EXPECT_EQ(0, Wnd::GetYesNo("Yes "));
    EXPECT_EQ(0, Wnd::GetYesNo("1"));
    velda::SetCurrentLanguage(velda::Language::Korean);
    EXPECT_EQ(0, Wnd::GetYesNo("예"));
    EXPECT_EQ(1, Wnd::GetYesNo("Yes"));
    EXPECT_EQ("Yes", Wnd::GetYesNoName(1));
}

TEST_F(NameKeysTest, EveryValueButZeroIsYes) {
    EXPECT_EQ("Yes", Wnd::GetYesNoName(1));
    EXPECT_EQ("Yes", Wnd::GetYesNoName(-3));
    EXPECT_EQ("No", Wnd::GetYesNoName(0));
}

TEST_F(NameKeysTest, FlagsAreReadFromTheLowestOn) {
    EXPECT_EQ(10, Wnd::GetValueNum("0101"));
    EXPECT_EQ(0, Wnd::GetValueNum(""));
    EXPECT_EQ(0, Wnd::GetValueNum("0000"));
    EXPECT_EQ(1, Wnd::GetValueNum("1"));
    EXPECT_EQ(0b110, Wnd::GetValueNum("0x2")) << "every character but 0 counts";
    EXPECT_EQ(0b101, Wnd::GetValueNum("예0예")) << "a character counts once, whatever its bytes";
}

TEST_F(NameKeysTest, FlagsHaveThirtyTwoBits) {
    EXPECT_EQ(-1, Wnd::GetValueNum(std::string(32, '1')));
    EXPECT_EQ(-1, Wnd::GetValueNum(std::string(40, '1')));
    EXPECT_EQ(std::string(32, '1') + "00", Wnd::GetValueStr(-1, 34));
}

TEST_F(NameKeysTest, FlagsAreWrittenInTheWidthAskedFor) {
    EXPECT_EQ("0101", Wnd::GetValueStr(10, 4));
    EXPECT_EQ("010100", Wnd::GetValueStr(10, 6));
    EXPECT_EQ("01", Wnd::GetValueStr(10, 2));
    EXPECT_EQ("", Wnd::GetValueStr(10, 0));
    EXPECT_EQ("000", Wnd::GetValueStr(0, 3));
}

}  // namespace
}  // namespace zt
