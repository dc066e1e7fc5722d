#include <algorithm>
#include <cmath>

#include "velda_lib/language.h"
#include "velda_lib/msg_dll.h"
#include "zt_db/library/library.h"
#include "zt_db/library/matl_db.h"
#include "zt_db/test_support.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

std::vector<std::string> Codes(std::string_view type, std::string_view selector = "S") {
    std::vector<std::string> codes;
    CMatlDB::GetMatlCodeList(type, selector, codes);
    return codes;
}

TEST(MaterialCodes, AreThoseOfTheShortType) {
    EXPECT_THAT(Codes("S"), Contains("KDS 14 31 05"));
    EXPECT_THAT(Codes("S"), Not(Contains("KDS 14 20 10")));
    EXPECT_THAT(Codes("C"), Contains("KDS 14 20 10"));
    EXPECT_THAT(Codes("C"), Not(Contains("KDS 14 31 05")));
}

TEST(MaterialCodes, OfACompositeAreBothWithThoseOfTheSelectorFirst) {
    EXPECT_EQ(Codes("SRC", "S").size(), Codes("S").size() + Codes("C").size());
    EXPECT_EQ(Codes("SRC", "S").front(), Codes("S").front());
    EXPECT_EQ(Codes("SRC", "C").front(), Codes("C").front());
}

TEST(MaterialCodes, OfOtherTypesAreNone) {
    std::vector<std::string> codes = {"old"};
    EXPECT_EQ(CMatlDB::GetMatlCodeList("U", "S", codes), 0);
    EXPECT_THAT(codes, IsEmpty());
    EXPECT_THAT(Codes("s"), IsEmpty());
}

TEST(MaterialCodes, StandOnceAndBelongToOneType) {
    std::vector<std::string> codes = Codes("SRC");
    std::sort(codes.begin(), codes.end());
    EXPECT_EQ(std::adjacent_find(codes.begin(), codes.end()), codes.end());
}

TEST(MaterialType, IsToldByTheCodeComparedExactly) {
    std::string type = "old";
    EXPECT_EQ(CMatlDB::GetMatlType("AIJ Steel", type), 1);
    EXPECT_EQ(type, "S");
    EXPECT_EQ(CMatlDB::GetMatlType("AIJ RC", type), 1);
    EXPECT_EQ(type, "C");
    for (const char* code : {"", "None", "aij rc", "AIJ RC ", "AIJ"}) EXPECT_EQ(CMatlDB::GetMatlType(code, type), 0);
    EXPECT_EQ(type, "C");
}

TEST(MaterialCodes, HoldTheConcreteCodeThatCompositesStartWithInEveryLanguage) {
    for (const velda::Language language : {velda::Language::English, velda::Language::Korean}) {
        velda::SetCurrentLanguage(language);
        std::string type;
        EXPECT_EQ(CMatlDB::GetMatlType(velda::CMsgDll::pfuncLoadStr("IDS_TB_MATL_KCI03_RC", 0), type), 1);
        EXPECT_EQ(type, "C");
    }
    velda::SetCurrentLanguage(velda::Language::English);
}

TEST(SteelGrades, HaveTheirData) {
    std::vector<std::string> names;
    ASSERT_EQ(CMatlDB::GetSteelNameList("KDS 14 31 05", names), 1);
    EXPECT_EQ(names.front(), "SS235");
    SteelGrade steel;
    ASSERT_EQ(CMatlDB::GetSteelData("KDS 14 31 05", "SS275", steel), 1);
    EXPECT_EQ(steel.elasticity, 210000.0);
    EXPECT_EQ(steel.poisson, 0.3);
    EXPECT_EQ(steel.thermal, 1.2e-5);
    EXPECT_EQ(steel.density, 7850.0);
    EXPECT_EQ(steel.fu, 410.0);
}

TEST(SteelGrades, YieldByTheirThickness) {
    const auto fy = [](double thickness) { return CMatlDB::GetSteelFy("KDS 14 31 05", "SS275", thickness); };
    EXPECT_EQ(fy(0.0), 275.0);
    EXPECT_EQ(fy(16.0), 275.0);
    EXPECT_EQ(fy(16.1), 265.0);
    EXPECT_EQ(fy(100.0), 245.0);
    EXPECT_EQ(fy(500.0), 235.0);
    EXPECT_EQ(CMatlDB::GetSteelFy("KDS 14 31 05", "ss275", 10.0), 0.0);
}

TEST(Grades, ThatDoNotExistLeaveTheDataAlone) {
    SteelGrade steel{.elasticity = 1.0};
    ConcreteGrade concrete{.elasticity = 2.0};
    EXPECT_EQ(CMatlDB::GetSteelData("KDS 14 31 05", "", steel), 0);
    EXPECT_EQ(CMatlDB::GetSteelData("KDS 14 20 10", "C24", steel), 0);
    EXPECT_EQ(CMatlDB::GetConcreteData("KDS 14 20 10", "c24", concrete), 0);
    EXPECT_EQ(steel.elasticity, 1.0);
    EXPECT_EQ(concrete.elasticity, 2.0);
    std::vector<std::string> names = {"old"};
    EXPECT_EQ(CMatlDB::GetSteelNameList("", names), 0);
    EXPECT_THAT(names, IsEmpty());
    EXPECT_EQ(CMatlDB::GetConcreteNameList("KDS 14 31 05", names), 0);
}

TEST(ConcreteGrades, HaveTheElasticityOfTheirCode) {
    ConcreteGrade concrete;
    ASSERT_EQ(CMatlDB::GetConcreteData("KDS 14 20 10", "C24", concrete), 1);
    EXPECT_NEAR(concrete.elasticity, 8500.0 * std::cbrt(28.0), 0.5);
    ASSERT_EQ(CMatlDB::GetConcreteData("KCI 2003", "C24", concrete), 1);
    EXPECT_NEAR(concrete.elasticity, 8500.0 * std::cbrt(32.0), 0.5);
    EXPECT_EQ(concrete.fck, 24.0);
}

TEST(ConcreteStrengths, AreListedAsTextsAndNumbersInTheSameOrder) {
    std::vector<std::string> texts;
    std::vector<double> numbers;
    std::vector<std::string> names;
    ASSERT_EQ(CMatlDB::GetConcfckList("KDS 14 20 10", texts), 1);
    ASSERT_EQ(CMatlDB::GetConcfckList("KDS 14 20 10", numbers), 1);
    ASSERT_EQ(CMatlDB::GetConcreteNameList("KDS 14 20 10", names), 1);
    ASSERT_EQ(texts.size(), names.size());
    EXPECT_EQ(texts[1], "18");
    EXPECT_EQ(numbers[1], 18.0);
    EXPECT_EQ(CMatlDB::GetMatlConcreteFc("KDS 14 20 10", names[1]), 18.0);
    EXPECT_EQ(CMatlDB::GetStrConcName("KDS 14 20 10", 18.0), names[1]);
    EXPECT_EQ(CMatlDB::GetStrConcName("KDS 14 20 10", 18.5), "");
    EXPECT_EQ(CMatlDB::GetMatlConcreteFc("KDS 14 20 10", "C18.5"), 0.0);
}

TEST(BarStrengths, HaveOneEntryForEachGradeAlsoWhereTheyRepeat) {
    std::vector<std::string> texts;
    std::vector<double> numbers;
    ASSERT_EQ(CMatlDB::GetRebarfyList("KS D 3504", texts), 1);
    ASSERT_EQ(CMatlDB::GetRebarfyList("KS D 3504", numbers), 1);
    EXPECT_THAT(texts, ElementsAre("300", "400", "500", "600", "700", "400", "500", "400", "500", "600", "700"));
    EXPECT_EQ(numbers.size(), texts.size());
}

TEST(BarStrengths, AreFoundByTheStandardOfBarsAndByTheCodeForConcrete) {
    EXPECT_EQ(CMatlDB::GetRebarfyFromRebarName("KS D 3504", "SD500"), 500.0);
    EXPECT_EQ(CMatlDB::GetRebarfyFromRebarName("KDS 14 20 10", "SD500"), 500.0);
    EXPECT_EQ(CMatlDB::GetRebarfyFromRebarName("KDS 14 20 10", "sd500"), 0.0);
    EXPECT_EQ(CMatlDB::GetRebarfyFromRebarName("", "SD500"), 0.0);
    EXPECT_EQ(CMatlDB::GetStrRebarName("KDS 14 20 10", 400.0), "SD400");
    EXPECT_EQ(CMatlDB::GetStrRebarName("KDS 14 20 10", 401.0), "");
}

TEST(DesignCodes, NameCodesAndStandardsOfTheLibrary) {
    const auto library = Library::BuiltIn();
    ASSERT_THAT(library->Rows<DesignCodeSet>(), Not(IsEmpty()));
    for (const DesignCodeSet& set : library->Rows<DesignCodeSet>()) {
        std::vector<std::string> list;
        EXPECT_TRUE(CMatlDB::GetConcreteNameList(set.concrete, list)) << set.concrete;
        EXPECT_TRUE(CMatlDB::GetSteelNameList(set.steel, list)) << set.steel;
        EXPECT_TRUE(CMatlDB::GetRebarNameList(set.barStandard, list)) << set.barStandard;
        const auto& bars = library->Rows<LibraryBar>();
        EXPECT_TRUE(
            std::any_of(bars.begin(), bars.end(), [&](const auto& b) { return b.standard == set.barStandard; }));
        const auto& sections = library->Rows<LibrarySection>();
        EXPECT_TRUE(std::any_of(sections.begin(), sections.end(),
                                [&](const auto& s) { return s.standard == set.sectionStandard; }));
    }
}

TEST_F(ModelTest, ADocumentHasTheMaterialLibrary) {
    ASSERT_NE(doc->GetMatlDB(), nullptr);
    std::string type;
    EXPECT_EQ(doc->GetMatlDB()->GetMatlType("EN 1992-1-1", type), 1);
}

}  // namespace
}  // namespace zt
