// Records that stand on nodes and members: supports, releases, links, loads and masses.

#include "zt_db/record_texts.h"
#include "zt_db/test_support.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using Keys = std::vector<std::uint32_t>;
using testing::ElementsAre;

/// A model with three nodes, two members and a load case.
class SupportsAndLoads : public ModelTest {
protected:
    SupportsAndLoads() {
        EXPECT_TRUE(Records<CClassPont>().TR_Add(Keys{1, 2, 3}, std::vector<T_PONT_D>(3)));
        EXPECT_TRUE(Records<CClassMemb>().TR_Add(
            Keys{1, 2}, std::vector<T_MEMB_D>{{.type = 201, .nodes = {1, 2}}, {.type = 201, .nodes = {2, 3}}}));
        EXPECT_TRUE(Records<CClassStld>().TR_Add(1, {.name = "DL", .type = "D"}));
    }
    std::string FlagsAt(std::uint32_t key) {
        T_SPTS_D support;
        return Records<CClassSpts>().Get(key, support) ? support.flags : "none";
    }
};

TEST_F(SupportsAndLoads, ASupportTakesTheFurtherArgumentOfItsTransaction) {
    auto& supports = Records<CClassSpts>();
    ASSERT_TRUE(supports.TR_Add(1, {.flags = "111000"}, 0));
    EXPECT_FALSE(supports.TR_Add(1, {}, 0));
    EXPECT_EQ(FlagsAt(1), "111000");
    EXPECT_EQ(supports.GetCount(), 1);
}

TEST_F(SupportsAndLoads, SupportsFollowNodesThatSwapTheirKeys) {
    auto& supports = Records<CClassSpts>();
    auto& nodes = Records<CClassPont>();
    ASSERT_TRUE(supports.TR_Add(Keys{1, 2}, std::vector<T_SPTS_D>{{.flags = "111111"}, {.flags = "001000"}}));
    const std::vector<std::string> before = AllRecords(*doc);
    T_PONT_D first;
    T_PONT_D second;
    ASSERT_TRUE(nodes.Get(1, first) && nodes.Get(2, second));
    ASSERT_TRUE(nodes.TR_Modify(Keys{1, 2}, Keys{2, 1}, {first, second})) << Db().GetLastReason();
    EXPECT_EQ(FlagsAt(1), "001000");
    EXPECT_EQ(FlagsAt(2), "111111");
    EXPECT_EQ(Db().Undo(), 1);
    EXPECT_EQ(AllRecords(*doc), before);
}

TEST_F(SupportsAndLoads, SupportsFollowAChainOfKeys) {
    auto& nodes = Records<CClassPont>();
    ASSERT_TRUE(Records<CClassSpts>().TR_Add(
        Keys{1, 2, 3}, std::vector<T_SPTS_D>{{.flags = "100000"}, {.flags = "010000"}, {.flags = "001000"}}));
    std::vector<T_PONT_D> records(3);
    for (std::uint32_t key = 1; key <= 3; ++key) ASSERT_TRUE(nodes.Get(key, records[key - 1]));
    ASSERT_TRUE(nodes.TR_Modify(Keys{1, 2, 3}, Keys{2, 3, 4}, records)) << Db().GetLastReason();
    EXPECT_EQ(FlagsAt(1), "none");
    EXPECT_EQ(FlagsAt(2), "100000");
    EXPECT_EQ(FlagsAt(3), "010000");
    EXPECT_EQ(FlagsAt(4), "001000");
}

TEST_F(SupportsAndLoads, ARefusedTransactionWithSeveralSupportsAddsNone) {
    auto& supports = Records<CClassSpts>();
    EXPECT_FALSE(supports.TR_Add(Keys{1, 9}, std::vector<T_SPTS_D>(2)));
    EXPECT_EQ(supports.GetCount(), 0);
    EXPECT_FALSE(supports.TR_Add(0, {}));
    EXPECT_EQ(supports.GetCount(), 0);
}

TEST_F(SupportsAndLoads, TheDeletionOfSeveralNodesTakesEverythingOnThemAndUndoBringsItBack) {
    ASSERT_TRUE(Records<CClassSpts>().TR_Add(Keys{1, 3}, std::vector<T_SPTS_D>(2, {.flags = "111111"})));
    ASSERT_TRUE(Records<CClassPmas>().TR_Add(2, {.mx = 3.5}));
    ASSERT_TRUE(Records<CClassRigd>().TR_Add(3, {.master = 3, .freedoms = 110001, .slaves = {1, 2}}));
    ASSERT_TRUE(Records<CClassFrls>().TR_Add(2, {.flagsI = "000011"}));
    ASSERT_TRUE(Records<CClassLnld>().TR_Add(8, {.memb = 1, .stld = 1, .p = {-5.0, -5.0}}));
    const std::vector<std::string> before = AllRecords(*doc);
    ASSERT_TRUE(Records<CClassPont>().TR_Del(Keys{1, 2}));
    EXPECT_EQ(Records<CClassSpts>().GetCount(), 1);
    EXPECT_EQ(Records<CClassPmas>().GetCount(), 0);
    EXPECT_EQ(Records<CClassFrls>().GetCount(), 0);
    EXPECT_EQ(Records<CClassLnld>().GetCount(), 0);
    T_RIGD_D link;
    ASSERT_TRUE(Records<CClassRigd>().Get(3, link));
    EXPECT_THAT(link.slaves, ElementsAre());
    const std::vector<std::string> after = AllRecords(*doc);
    EXPECT_EQ(Db().Undo(), 1);
    EXPECT_EQ(AllRecords(*doc), before);
    EXPECT_EQ(Db().Redo(), 1);
    EXPECT_EQ(AllRecords(*doc), after);
}

TEST_F(SupportsAndLoads, ARecordUnderTheKeyOfAMemberIsKnownByTheNumberOfTheMember) {
    ASSERT_TRUE(Records<CClassMemb>().TR_Modify(2, 2, {.type = 201, .no = 750, .nodes = {2, 3}}));
    const int releases = Db().FindClass("FRLS");
    ASSERT_GE(releases, 0);
    EXPECT_EQ(Db().RecordLabel(static_cast<std::uint16_t>(releases), 2), "End Release 750");
    EXPECT_EQ(Db().RecordLabel(static_cast<std::uint16_t>(releases), 99), "End Release 99");
}

TEST_F(SupportsAndLoads, LoadTypesAreFoundByTheirNames) {
    ASSERT_TRUE(Records<CClassBltp>().TR_Add(
        Keys{5, 3, 4}, std::vector<T_BLTP_D>{{.name = "Parapet"}, {.name = "Parapet"}, {.name = "난간"}}));
    ASSERT_TRUE(Records<CClassBwtp>().TR_Add(7, {.name = "Block 190"}));
    EXPECT_EQ(Records<CClassBltp>().GetKey("Parapet"), 3u);
    EXPECT_EQ(Records<CClassBltp>().GetKey("난간"), 4u);
    EXPECT_EQ(Records<CClassBltp>().GetKey("parapet"), 0u);
    EXPECT_EQ(Records<CClassBwtp>().GetKey("Block 190"), 7u);
    EXPECT_EQ(Records<CClassBwtp>().GetKey("Parapet"), 0u);
    EXPECT_EQ(CClassBltp().GetKey(""), 0u);
}

// ---- units

TEST(SupportUnits, EveryFreedomHasACodeOfItsOwn) {
    EXPECT_EQ(T_SPTS_D::unit.Count(), 6u);
    EXPECT_EQ(T_SPTS_D::unit[2], Unit::Stiffness);
    EXPECT_EQ(T_SPTS_D::unit[3], Unit::RotationalStiffness);
    EXPECT_EQ(T_PTLD_D::unit.Count(), 6u);
    EXPECT_EQ(T_PTLD_D::unit[2], Unit::Force);
    EXPECT_EQ(T_PTLD_D::unit[3], Unit::Moment);
    EXPECT_EQ(T_PMAS_D::unit.Count(), 6u);
    EXPECT_EQ(T_PMAS_D::unit[0], Unit::Mass);
    EXPECT_EQ(T_PMAS_D::unit[5], Unit::RotationalMass);
}

TEST(SupportUnits, TheCodesOfAMemberLoadStandInTheOrderOfTheLoadTypes) {
    EXPECT_EQ(T_LNLD_D::unit.Count(), 4u);
    EXPECT_EQ(T_LNLD_D::unit[LoadType::ConcentratedForces - 1], Unit::Force);
    EXPECT_EQ(T_LNLD_D::unit[LoadType::ConcentratedMoments - 1], Unit::Moment);
    EXPECT_EQ(T_LNLD_D::unit[LoadType::UniformLoads - 1], Unit::LineLoad);
    EXPECT_EQ(T_CMLD_D::unit[LoadType::UniformMoments - 1], Unit::MomentPerLength);
}

TEST(SupportUnits, TheCodesOfSlabAndWallLoadsStandInFieldOrder) {
    EXPECT_EQ(T_SBLA_D::unit[0], Unit::AreaLoad);
    EXPECT_EQ(T_SBLA_D::unit[1], Unit::AreaLoad);
    EXPECT_EQ(T_BWLD_D::unit[0], Unit::AreaLoad);
    EXPECT_EQ(T_BMLA_D::unit[0], Unit::Length);
}

TEST_F(SupportsAndLoads, ALoadWrittenUnderThePreviousUnitsIsBroughtToTheCurrentOnesByItsType) {
    CDataLnld moment;
    moment.record.type = LoadType::ConcentratedMoments;
    moment.record.p = {2.0, 0.0, 0.0, 4.0};
    CDataLnld unknown;
    unknown.record.type = LoadType::Unknown;
    unknown.record.p = {2.0, 0.0, 0.0, 4.0};
    CDataSpts support;
    support.record.value = {1.0, 0.0, 0.0, 1.0, 0.0, 0.0};
    SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, "N"), CUnitCtrl::FindChoice(UnitQuantity::Length, "mm"));
    moment.ConvertUnitPrev(doc->GetUnitCtrl());
    unknown.ConvertUnitPrev(doc->GetUnitCtrl());
    support.ConvertUnitPrev(doc->GetUnitCtrl());
    EXPECT_THAT(moment.record.p, ElementsAre(2.0e6, 0.0, 0.0, 4.0e6));
    EXPECT_THAT(unknown.record.p, ElementsAre(2.0, 0.0, 0.0, 4.0));
    EXPECT_THAT(support.record.value, ElementsAre(1.0, 0.0, 0.0, 1.0e6, 0.0, 0.0));
}

}  // namespace
}  // namespace zt
