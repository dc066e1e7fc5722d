#include "zt_anl/frame_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::HasSubstr;

TEST_F(FrameTest, PortalFrameSwaysAsItsClosedFormulaTells) {
    // Columns and beam so thick that they change no length.
    PutSection(3, {1.0e4, 0.0, 0.0, 1.0, 2.0e-4, 2.0e-4});
    PutSection(4, {1.0e4, 0.0, 0.0, 1.0, 3.0e-4, 3.0e-4});
    constexpr double kHeight = 4.0;
    constexpr double kSpan = 6.0;
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t corner = Node(0.0, 0.0, kHeight);
    const std::uint32_t otherCorner = Node(kSpan, 0.0, kHeight);
    const std::uint32_t otherFoot = Node(kSpan, 0.0, 0.0);
    const std::uint32_t column = Member({foot, corner}, 3, MembType::Column);
    Member({corner, otherCorner}, 4);
    Member({otherCorner, otherFoot}, 3, MembType::Column);
    Support(foot, "111111");
    Support(otherFoot, "111111");
    Support(corner, "010101");
    Support(otherCorner, "010101");
    Force(corner, kDx, 10.0);
    Solve();
    const double k = 3.0e-4 * kHeight / (2.0e-4 * kSpan);
    const double base = 1.0e4 * kHeight / 2.0 * (3.0 * k + 1.0) / (6.0 * k + 1.0);
    const double top = 1.0e4 * kHeight / 2.0 * 3.0 * k / (6.0 * k + 1.0);
    ExpectClose(std::abs(Forces(column).ends[4]), base, 1.0e-4);
    ExpectClose(std::abs(Forces(column).ends[10]), top, 1.0e-4);
    ExpectClose(Reaction(foot, kDx), -5.0e3, 1.0e-4);
    ExpectClose(Reaction(otherFoot, kDz), 2.0 * top / kSpan, 1.0e-4);
}

TEST_F(FrameTest, TwoBarTrussShortensAsItsBarsDo) {
    const std::uint32_t left = Node(-4.0, 0.0, 0.0);
    const std::uint32_t right = Node(4.0, 0.0, 0.0);
    const std::uint32_t top = Node(0.0, 0.0, 3.0);
    const std::uint32_t bar = Bar(left, top);
    Bar(right, top);
    Support(left, "111000");
    Support(right, "111000");
    Support(top, "010000");
    Force(top, kDz, -12.0);
    Solve();
    constexpr double kSine = 0.6;
    ExpectClose(Forces(bar).stations[3].forces[0], -12.0e3 / (2.0 * kSine));
    ExpectClose(Displacement(top, kDz), -12.0e3 * 5.0 / (2.0 * kE * kArea * kSine * kSine));
    ExpectClose(Reaction(left, kDx), 12.0e3 / (2.0 * kSine) * 0.8);
    EXPECT_TRUE(log.Has("IDS_ANL_FREE_ROTATIONS"));
}

TEST_F(FrameTest, BarCarriesItsOwnLoadAsASimpleBeam) {
    const std::uint32_t left = Node(0.0, 0.0, 0.0);
    const std::uint32_t right = Node(4.0, 0.0, 0.0);
    const std::uint32_t bar = Bar(left, right);
    Support(left, "111000");
    Support(right, "011000");
    Uniform(bar, -6.0);
    Solve();
    ExpectClose(Reaction(left, kDz), 12.0e3);
    ExpectClose(std::abs(Forces(bar).stations[4].forces[4]), 6.0e3 * 16.0 / 8.0);
    EXPECT_EQ(Forces(bar).ends[4], 0.0);
}

TEST_F(FrameTest, StructureWithoutSupportsIsRefusedWithTheNodeThatMoves) {
    const std::uint32_t first = Node(0.0, 0.0, 0.0);
    const std::uint32_t last = Node(4.0, 0.0, 0.0);
    Member({first, last});
    Support(first, "110111");
    const velda::Outcome outcome = Run();
    ASSERT_FALSE(outcome);
    EXPECT_THAT(outcome.Reason(), HasSubstr("in Dz"));
    EXPECT_TRUE(result.cases.empty());
}

TEST_F(FrameTest, BeamThatCanTurnAboutItselfIsRefused) {
    const std::uint32_t first = Node(0.0, 0.0, 0.0);
    const std::uint32_t last = Node(4.0, 0.0, 0.0);
    Member({first, last});
    Support(first, "111011");
    const velda::Outcome outcome = Run();
    ASSERT_FALSE(outcome);
    EXPECT_THAT(outcome.Reason(), HasSubstr("in Rx"));
}

TEST_F(FrameTest, PlaneTrussIsRefusedWithoutSupportsAcross) {
    const std::uint32_t left = Node(-4.0, 0.0, 0.0);
    const std::uint32_t right = Node(4.0, 0.0, 0.0);
    const std::uint32_t top = Node(0.0, 0.0, 3.0);
    Bar(left, top);
    Bar(right, top);
    Support(left, "111000");
    Support(right, "111000");
    const velda::Outcome outcome = Run();
    ASSERT_FALSE(outcome);
    EXPECT_THAT(outcome.Reason(), HasSubstr("Node 3 can move freely in Dy"));
}

TEST_F(FrameTest, MembersWithoutPropertiesAreRefused) {
    const std::uint32_t first = Node(0.0, 0.0, 0.0);
    const std::uint32_t last = Node(4.0, 0.0, 0.0);
    Member({first, last}, 0);
    Support(first, "111111");
    EXPECT_THAT(Run().Reason(), HasSubstr("Member 1 has no section"));
}

TEST_F(FrameTest, MemberWithoutLengthIsRefused) {
    const std::uint32_t first = Node(0.0, 0.0, 0.0);
    const std::uint32_t last = Node(0.0, 0.0, 0.0);
    Member({first, last});
    Support(first, "111111");
    EXPECT_THAT(Run().Reason(), HasSubstr("Member 1 has no length"));
}

TEST_F(FrameTest, ModelWithoutMembersIsRefused) { EXPECT_FALSE(Run()); }

TEST_F(FrameTest, ProgressStopsTheAnalysis) {
    const std::uint32_t first = Node(0.0, 0.0, 0.0);
    Member({first, Node(4.0, 0.0, 0.0)});
    Support(first, "111111");
    options.modal = true;
    std::vector<AnalysisStep> steps;
    options.progress = [&](AnalysisStep step, std::size_t, std::size_t) {
        steps.push_back(step);
        return true;
    };
    EXPECT_TRUE(Run());
    EXPECT_EQ(steps, (std::vector{AnalysisStep::Read, AnalysisStep::Assemble, AnalysisStep::Factor,
                                  AnalysisStep::Static, AnalysisStep::Static, AnalysisStep::Modal}));
    for (const AnalysisStep last :
         {AnalysisStep::Read, AnalysisStep::Factor, AnalysisStep::Static, AnalysisStep::Modal}) {
        options.progress = [&](AnalysisStep step, std::size_t, std::size_t) { return step != last; };
        EXPECT_FALSE(Run());
        EXPECT_TRUE(result.model.nodes.empty());
    }
}

// ---- rigid links ----

/// Two cantilever columns, 4 m high and 6 m apart.
class LinkedColumns : public FrameTest {
protected:
    static constexpr double kHeight = 4.0;

    LinkedColumns() {
        foot = Node(0.0, 0.0, 0.0);
        top = Node(0.0, 0.0, kHeight);
        otherFoot = Node(6.0, 0.0, 0.0);
        otherTop = Node(6.0, 0.0, kHeight);
        Member({foot, top}, 2, MembType::Column);
        Member({otherFoot, otherTop}, 2, MembType::Column);
        Support(foot, "111111");
        Support(otherFoot, "111111");
    }
    void Link(std::uint32_t master, int freedoms, const std::vector<std::uint32_t>& slaves) {
        T_RIGD_D link;
        link.master = master;
        link.freedoms = freedoms;
        link.slaves = slaves;
        Add<CClassRigd>(master, link);
    }
    std::uint32_t foot = 0;
    std::uint32_t top = 0;
    std::uint32_t otherFoot = 0;
    std::uint32_t otherTop = 0;
};

TEST_F(LinkedColumns, EqualDisplacementsShareTheLoad) {
    Link(top, 100000, {otherTop});
    Force(otherTop, kDx, 10.0);
    Solve();
    const double stiffness = 3.0 * kE * kIyy / (kHeight * kHeight * kHeight);
    ExpectClose(Displacement(top, kDx), 1.0e4 / (2.0 * stiffness));
    ExpectClose(Displacement(otherTop, kDx), Displacement(top, kDx));
    ExpectClose(Reaction(foot, kDx), -5.0e3);
}

TEST_F(LinkedColumns, RigidFloorTurnsAboutItsMaster) {
    const std::uint32_t centre = Node(3.0, 0.0, kHeight);
    Link(centre, 110001, {top, otherTop});
    Force(centre, kRz, 9.0);
    Solve();
    const double across = 3.0 * kE * kIzz / (kHeight * kHeight * kHeight);
    const double torsion = kG * kIxx / kHeight;
    const double angle = 9.0e3 / (2.0 * (across * 9.0 + torsion));
    ExpectClose(Displacement(centre, kRz), angle);
    ExpectClose(Displacement(otherTop, kDy), 3.0 * angle);
    ExpectClose(Displacement(top, kDy), -3.0 * angle);
}

TEST_F(LinkedColumns, WhollyRigidArmCarriesMoments) {
    const std::uint32_t arm = Node(0.0, 2.0, kHeight);
    Link(top, 111111, {arm});
    Force(arm, kDz, -10.0);
    Solve();
    ExpectClose(Reaction(foot, kDz), 1.0e4);
    ExpectClose(Reaction(foot, kRx), 2.0e4);
    ExpectClose(Displacement(top, kRx), -2.0e4 * kHeight / (kE * kIzz));
}

TEST_F(LinkedColumns, LinksOfLinksFollowTheFirstMaster) {
    const std::uint32_t centre = Node(3.0, 0.0, kHeight);
    Link(centre, 110001, {top});
    Link(top, 110000, {otherTop});
    Force(otherTop, kDx, 10.0);
    Solve();
    ExpectClose(Displacement(otherTop, kDx), Displacement(centre, kDx));
}

TEST_F(LinkedColumns, LinksInARingAreRefused) {
    Link(top, 100000, {otherTop});
    Link(otherTop, 100000, {top});
    EXPECT_THAT(Run().Reason(), HasSubstr("lead back"));
}

TEST_F(LinkedColumns, FreedomTiedTwiceIsRefused) {
    const std::uint32_t centre = Node(3.0, 0.0, kHeight);
    Link(top, 100000, {otherTop});
    Link(centre, 100000, {otherTop});
    EXPECT_THAT(Run().Reason(), HasSubstr("Node 4 is tied in Dx by two"));
}

TEST_F(LinkedColumns, SupportedSlaveOfAFreeMasterIsRefused) {
    Link(top, 100000, {otherTop});
    Support(otherTop, "100000");
    EXPECT_THAT(Run().Reason(), HasSubstr("Node 4 is supported in Dx"));
}

TEST_F(LinkedColumns, SupportedSlaveOfASupportedMasterIsTaken) {
    Link(top, 110001, {otherTop});
    Support(top, "010001");
    Support(otherTop, "010001");
    Force(otherTop, kDx, 10.0);
    Solve();
    ExpectClose(Reaction(foot, kDx), -5.0e3);
}

// ---- tension only ----

/// A hinged square panel of 4 m whose two diagonals carry tension only.
class BracedPanel : public FrameTest {
protected:
    void Build(const std::string& tops) {
        a = Node(0.0, 0.0, 0.0);
        b = Node(4.0, 0.0, 0.0);
        c = Node(0.0, 0.0, 4.0);
        d = Node(4.0, 0.0, 4.0);
        Bar(a, c);
        Bar(b, d);
        Bar(c, d);
        rising = Bar(a, d, true);
        falling = Bar(b, c, true);
        Support(a, "111000");
        Support(b, "111000");
        Support(c, tops);
        Support(d, tops);
    }
    std::uint32_t a = 0;
    std::uint32_t b = 0;
    std::uint32_t c = 0;
    std::uint32_t d = 0;
    std::uint32_t rising = 0;
    std::uint32_t falling = 0;
};

TEST_F(BracedPanel, OnlyTheDrawnDiagonalCarries) {
    Build("010000");
    Force(c, kDx, 10.0, 1);
    Force(c, kDx, -10.0, 2);
    Solve();
    ExpectClose(Forces(rising).stations[0].forces[0], 1.0e4 * std::sqrt(2.0));
    EXPECT_EQ(Forces(falling).stations[0].forces[0], 0.0);
    EXPECT_GT(result.cases[0].rounds, 1);
    EXPECT_TRUE(result.cases[0].hasSettled);
    const auto& other = result.cases[1].elements;
    EXPECT_EQ(other[result.model.spansOfMember.at(rising)[0]].stations[0].forces[0], 0.0);
    ExpectClose(other[result.model.spansOfMember.at(falling)[0]].stations[0].forces[0], 1.0e4 * std::sqrt(2.0));
    ExpectClose(Reaction(a, kDx), -1.0e4);
}

TEST_F(BracedPanel, CaseThatSlackensAllDiagonalsOfAMechanismIsTold) {
    Build("010000");
    Force(c, kDz, -10.0);
    Force(d, kDz, -10.0);
    Solve();
    EXPECT_FALSE(result.cases[0].hasSettled);
    EXPECT_TRUE(log.Has("IDS_ANL_NOT_SETTLED"));
    ExpectClose(result.cases[0].reactionSum[2], 2.0e4);
    EXPECT_TRUE(result.cases[1].hasSettled);
}

// ---- weights and shares ----

TEST_F(FrameTest, SelfWeightCountsTheWholeModelOrOneMember) {
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t top = Node(0.0, 0.0, 4.0);
    const std::uint32_t tip = Node(3.0, 0.0, 4.0);
    Member({foot, top}, 1, MembType::Column);
    const std::uint32_t beam = Member({top, tip});
    Support(foot, "111111");
    Add<CClassSwgt>(1, {.stld = 1, .z = -1.0});
    Add<CClassSwgt>(2, {.memb = beam, .stld = 2, .x = 0.5});
    Solve();
    const double perLength = kDensity * 9.80665 * kArea;
    ExpectClose(Reaction(foot, kDz), 7.0 * perLength, 1.0e-12);
    ExpectClose(Reaction(foot, kRy), -3.0 * perLength * 1.5, 1.0e-9);
    ExpectClose(Reaction(foot, kDx, 1), -0.5 * 3.0 * perLength, 1.0e-12);
}

TEST_F(FrameTest, ProjectedLoadCountsTheShadowOfTheMember) {
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t beam = Member({foot, Node(4.0, 0.0, 3.0)});
    Support(foot, "111111");
    MemberLoad(beam, LoadType::UniformLoads, LoadDirection::GlobalZ, {0.0, 1.0}, {-2.0, -2.0}, 1);
    MemberLoad(beam, LoadType::UniformLoads, LoadDirection::GlobalX, {0.0, 1.0}, {2.0, 2.0});
    Solve();
    ExpectClose(Reaction(foot, kDz), 8.0e3);
    ExpectClose(Reaction(foot, kDx), -10.0e3);
}

TEST_F(FrameTest, SlabsGiveWeightAndLoadsToTheirNodes) {
    AddCase(3, "D", "D");
    AddCase(4, "L", "L");
    std::vector<std::uint32_t> tops;
    for (const auto& [x, y] : {std::pair{0.0, 0.0}, {4.0, 0.0}, {4.0, 5.0}, {0.0, 5.0}}) {
        const std::uint32_t foot = Node(x, y, 0.0);
        tops.push_back(Node(x, y, 3.0));
        Member({foot, tops.back()}, 1, MembType::Column);
        Support(foot, "111111");
    }
    Add<CClassThik>(1, {.name = "T", .thickness = 0.2});
    T_MEMB_D slab;
    slab.type = MembType::Slab;
    slab.no = 50;
    slab.prop = 1;
    slab.matl = 1;
    slab.nodes = tops;
    Add<CClassMemb>(50, slab);
    Add<CClassSbla>(50, {.dl = 3.0, .ll = 2.0});
    Add<CClassSwgt>(1, {.memb = 50, .stld = 1, .z = -1.0});
    Solve();
    const double weight = 20.0 * 0.2 * kDensity * 9.80665;
    ExpectClose(Reaction(1, kDz, 0), weight / 4.0);
    ExpectClose(Reaction(1, kDz, 2), 20.0 * 3.0e3 / 4.0);
    ExpectClose(result.cases[3].reactionSum[2], 20.0 * 2.0e3);
    EXPECT_NEAR(result.cases[1].reactionSum[2], 0.0, 1.0e-9);
    EXPECT_TRUE(log.Has("IDS_ANL_BEARERS"));
    EXPECT_TRUE(log.Has("IDS_ANL_SLAB_LOADS"));
}

TEST_F(FrameTest, WallsGiveTheLoadsOnThemToTheirNodes) {
    std::vector<std::uint32_t> tops;
    std::vector<std::uint32_t> feet;
    for (const double x : {0.0, 4.0}) {
        feet.push_back(Node(x, 0.0, 0.0));
        tops.push_back(Node(x, 0.0, 3.0));
        Member({feet.back(), tops.back()}, 1, MembType::Column);
        Support(feet.back(), "111111");
    }
    Add<CClassThik>(1, {.name = "T", .thickness = 0.2});
    const std::uint32_t wall = Member({feet[0], feet[1], tops[1], tops[0]}, 1, MembType::Wall);
    Uniform(wall, -5.0);
    MemberLoad(wall, LoadType::ConcentratedForces, LoadDirection::Normal, {0.5, 0.0}, {8.0, 0.0});
    Solve();
    ExpectClose(result.cases[0].reactionSum[2], 20.0e3);
    ExpectClose(Reaction(feet[0], kDz), 10.0e3);
    ExpectClose(std::abs(result.cases[0].reactionSum[1]), 8.0e3);
}

TEST_F(FrameTest, WhatIsNotAnalysedIsTold) {
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t beam = Member({foot, Node(4.0, 0.0, 0.0)});
    Support(foot, "111111");
    MemberLoad(beam, LoadType::Unknown, LoadDirection::GlobalZ, {0.0, 1.0}, {-5.0, -5.0});
    Add<CClassBwld>(beam, {.dl = 3.0});
    Solve();
    EXPECT_TRUE(log.Has("IDS_ANL_LOADS_OF_NO_KIND"));
    EXPECT_TRUE(log.Has("IDS_ANL_LOADS_BY_TYPE"));
    EXPECT_EQ(log.Warnings(), 2u);
    EXPECT_EQ(result.cases[0].loadSum[2], 0.0);
}

TEST_F(FrameTest, LoadOnANodeThatNothingMeetsIsToldAndLeftOut) {
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    Member({foot, Node(0.0, 0.0, 4.0)}, 1, MembType::Column);
    const std::uint32_t loose = Node(9.0, 9.0, 9.0);
    Support(foot, "111111");
    Force(loose, kDz, -10.0);
    Solve();
    EXPECT_TRUE(log.Has("IDS_ANL_LOOSE_NODES"));
    EXPECT_TRUE(log.Has("IDS_ANL_LOOSE_LOAD"));
    EXPECT_EQ(result.cases[0].loadSum[2], 0.0);
    EXPECT_FALSE(log.Has("IDS_ANL_NO_EQUILIBRIUM"));
}

TEST_F(FrameTest, ResultsDoNotDependOnTheCurrentUnits) {
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t tip = Node(3.0, 0.0, 0.0);
    Member({foot, tip});
    Support(foot, "111111");
    Force(tip, kDz, -10.0);
    Solve();
    const double inMetres = Displacement(tip, kDz);
    SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, "kip"), CUnitCtrl::FindChoice(UnitQuantity::Length, "in"));
    Solve();
    ExpectClose(Displacement(tip, kDz), inMetres, 1.0e-12);
}

TEST(AnalysisLogTest, OnlyTheFirstWarningsOfOneKindAreHeld) {
    AnalysisLog log;
    for (int i = 0; i < 25; ++i) log.Warn("IDS_ANL_NO_EQUILIBRIUM", {std::to_string(i)});
    log.Note("IDS_ANL_EQUATIONS", {"7"});
    EXPECT_EQ(log.Warnings(), 25u);
    EXPECT_EQ(log.Lines().size(), 21u);
    EXPECT_THAT(log.Text(), HasSubstr("5 more warnings of this kind"));
    EXPECT_THAT(log.Text(), HasSubstr("7 equations"));
}

}  // namespace
}  // namespace zt
