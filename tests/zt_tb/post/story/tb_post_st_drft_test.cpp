#include "zt_tb/post/story/tb_post_st_drft.h"

#include "zt_tb/post/result_sources.h"
#include "zt_tb/post/story/story_table_fixture.h"
#include "zt_tb/post/story/tb_post_st_drft_th.h"
#include "zt_tb/post/story/tb_set_rmf_mini_dlg.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

class DriftTable : public StoryTableTest {
protected:
    T_STDFT_D Drift(int story, double angle, int type = 0) {
        auto record = RecordOf<T_STDFT_D>(story);
        record.type = type;
        record.part[0] = {.inUse = 1, .maximum = {.drift = 3.0 * angle, .angle = angle}};
        return record;
    }
    void PutDrifts(std::uint32_t key, const std::vector<T_STDFT_D>& records) {
        PutRecords(LoadCaseKind::Static, key, "DFT", records);
    }
    /// Two limits by their denominators.
    static DriftLimits Denominators(double plain, double walls) {
        DriftLimits limits;
        limits.limit[0].denominator = plain;
        limits.limit[1].denominator = walls;
        return limits;
    }
};

TEST_F(DriftTable, LimitsAreThoseOfTheTableUntilTheyAreSet) {
    const DriftLimits limits;
    for (const DriftLimits::Limit& limit : limits.limit) {
        EXPECT_DOUBLE_EQ(limit.ratio, 0.015);
        EXPECT_DOUBLE_EQ(limit.denominator, 550.0);
    }
}

TEST_F(DriftTable, AnAngleOfExactlyTheLimitIsGood) {
    PutDrifts(kSeismic, {Drift(3, 1.0 / 550.0), Drift(2, -1.0 / 549.0), Drift(1, 0.0)});
    auto& table = Open<CTBPostStDrftAng>(0);
    table.SetActiveParam(Loads({Static(kSeismic)}));
    EXPECT_EQ(RowOf(table, 2), "M|3F|3|case|0.00545454545454545|1/550|1/550|OK|300001|1");
    EXPECT_EQ(RowOf(table, 3), "M|2F|3|case|-0.00546448087431694|-1/549|1/550|NG|300001|2");
    EXPECT_EQ(RowOf(table, 4), "M|1F|3|case|0|0|1/550|OK|300001|3");
}

TEST_F(DriftTable, StoriesWithWallsHaveTheSecondLimit) {
    PutDrifts(kSeismic, {Drift(3, 0.001), Drift(2, 0.001, 1)});
    auto& table = Open<CTBPostStDrftAng>(0);
    table.SetActiveParam(Loads({Static(kSeismic)}));
    table.SetLimits(Denominators(1000.0, 1001.0));
    EXPECT_EQ(Cell(table, 2, 7), "1/1000");
    EXPECT_EQ(Cell(table, 2, 8), "OK");
    EXPECT_EQ(Cell(table, 3, 7), "1/1001");
    EXPECT_EQ(Cell(table, 3, 8), "NG");
}

TEST_F(DriftTable, ANegativeLimitIsToldAndTakenAsItIs) {
    PutDrifts(kSeismic, {Drift(3, 0.0)});
    auto& table = Open<CTBPostStDrftAng>(0);
    table.SetActiveParam(Loads({Static(kSeismic)}));
    table.SetLimits(Denominators(-550.0, 550.0));
    EXPECT_EQ(Cell(table, 2, 7), "-1/550");
    EXPECT_EQ(Cell(table, 2, 8), "NG");
}

TEST_F(DriftTable, AStoryWithoutALineOfNodesHasDashesAndStays) {
    PutDrifts(kSeismic, {Drift(3, 0.001), RecordOf<T_STDFT_D>(2)});
    auto& table = Open<CTBPostStDrftAng>(0);
    table.SetActiveParam(Loads({Static(kSeismic)}));
    EXPECT_EQ(table.Grid()->GetRowCount(), 3);
    EXPECT_EQ(RowOf(table, 3), "M|2F|3|case|-|-|-|-|300001|2");
}

TEST_F(DriftTable, ARecordOfAStoryThatIsNotThereStaysEmptyInItsPlace) {
    T_STDFT_D lost = Drift(3, 0.001);
    lost.head.story = 99;
    T_STDFT_D homeless = Drift(2, 0.001);
    homeless.head.mdul = 99;
    PutDrifts(kSeismic, {lost, homeless, Drift(1, 0.001)});
    auto& table = Open<CTBPostStDrftAng>(0);
    table.SetActiveParam(Loads({Static(kSeismic)}));
    EXPECT_EQ(RowOf(table, 2), "||||||||300001|1");
    EXPECT_EQ(RowOf(table, 3), "||||||||300001|2");
    EXPECT_EQ(Cell(table, 4, 2), "1F");
}

TEST_F(DriftTable, ACaseWithFewerStoriesLeavesTheirRowsEmpty) {
    PutDrifts(kSeismic, {Drift(3, 0.001)});
    PutDrifts(2, {Drift(3, 0.002), Drift(2, 0.002)});
    auto& table = Open<CTBPostStDrftAng>(0);
    table.SetActiveParam(Loads({Static(2), Static(kSeismic), Static(77)}));
    EXPECT_EQ(table.Grid()->GetRowCount(), 7);
    EXPECT_EQ(Cell(table, 2, 6), "1/1000") << "in the order of the load cases";
    EXPECT_EQ(RowOf(table, 3), "||||||||300001|2");
    EXPECT_EQ(Cell(table, 5, 6), "1/500");
    EXPECT_EQ(RowOf(table, 6), "||||||||300077|1");
}

TEST_F(DriftTable, TheLineAboveTheRecordsLiesOverAllColumns) {
    auto& table = Open<CTBPostStDrftAng>(0);
    EXPECT_EQ(table.Grid()->GetRowCount(), 1);
    EXPECT_FALSE(Cell(table, 1, 1).empty());
    EXPECT_EQ(table.Grid()->GetRowHeight(1), 30);
    EXPECT_EQ(table.Grid()->StyleOf(1, 1).GetHorizontalAlignment(), velda::HorizontalAlignment::Left);
}

TEST_F(DriftTable, ATableThatFollowsTakesOverWhatTheLeadingOneHasRead) {
    PutDrifts(kSeismic, {Drift(3, 0.001)});
    auto& leader = Open<CTBPostStDrftAng>(0);
    leader.SetActiveParam(Loads({Static(kSeismic)}));
    PutDrifts(kSeismic, {Drift(3, 0.002)});
    auto& follower = Open<CTBPostStDrftAng>(1);
    EXPECT_EQ(Cell(follower, 2, 6), "1/1000");
    // Told to read, or asked for other cases, it reads.
    follower.SetActiveParam(Loads({Static(kSeismic), Static(2)}));
    EXPECT_EQ(Cell(follower, 2, 6), "1/500");
    follower.SetActiveParam(Loads({Static(kSeismic)}));
    EXPECT_EQ(Cell(follower, 2, 6), "1/1000");
    follower.SetReRead(true);
    follower.SetActiveParam(Loads({Static(kSeismic)}));
    EXPECT_EQ(Cell(follower, 2, 6), "1/500");
}

TEST_F(DriftTable, AFollowerThatGoesLeavesTheLeaderInItsPlace) {
    PutDrifts(kSeismic, {Drift(3, 0.001)});
    auto& leader = Open<CTBPostStDrftAng>(0);
    leader.SetActiveParam(Loads({Static(kSeismic)}));
    Open<CTBPostStDrftAng>(1);
    grids.pop_back();
    EXPECT_EQ(Open<CTBPostStDrftAng>(1).Grid()->GetRowCount(), 2);
    // With the leader gone nothing is taken over.
    grids.erase(grids.begin());
    EXPECT_EQ(Open<CTBPostStDrftAng>(1).Grid()->GetRowCount(), 1);
}

TEST_F(DriftTable, OtherUnitsReadTheRecordsAgain) {
    PutDrifts(kSeismic, {Drift(3, 0.001)});
    auto& leader = Open<CTBPostStDrftAng>(0);
    leader.SetActiveParam(Loads({Static(kSeismic)}));
    auto& follower = Open<CTBPostStDrftAng>(1);
    SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, "kN"), CUnitCtrl::FindChoice(UnitQuantity::Length, "mm"));
    follower.Grid()->UpdateUnit();
    leader.Grid()->UpdateUnit();
    EXPECT_EQ(Cell(follower, 2, 5), Cell(leader, 2, 5));
    EXPECT_EQ(Cell(follower, 2, 3), Cell(leader, 2, 3));
}

TEST_F(DriftTable, TheTableOfAnglesIsMadeByItsName) {
    const auto source = MakeResultSource("CTBPostStDrftAng", 7, 0);
    ASSERT_NE(dynamic_cast<CTBPostStDrftAng*>(source.get()), nullptr);
    EXPECT_EQ(source->GetKind(), 7);
}

TEST_F(DriftTable, TellsWhetherTheRestrictionAllowsAnyDrift) {
    EXPECT_TRUE(CTBPostStDrftBase::HasAllowableAngle());
    Add<CClassRstp>(1, {.allowableRatio = 0.0, .verticalLoads = {}, .betas = {}});
    EXPECT_FALSE(CTBPostStDrftBase::HasAllowableAngle());
}

// ---- drift by a code ----

TEST_F(DriftTable, ARatioOfExactlyTheRestrictionIsTooMuch) {
    Add<CClassRstp>(1, {.allowableRatio = 0.02, .verticalLoads = {}, .betas = {}});
    std::vector<T_STDFT_D> records;
    for (const double ratio : {0.02, 0.02 - 0.9e-10, 0.02 - 1.1e-10}) {
        records.push_back(Drift(3 - static_cast<int>(records.size()), 0.001));
        records.back().part[0].maximum.ratio = -ratio;
        records.back().part[0].center.ratio = 0.02 - ratio;
    }
    PutDrifts(kSeismic, records);
    auto& table = Open<CTBPostStDrftQorv>();
    table.SetActiveParam(Loads({Static(kSeismic)}));
    EXPECT_EQ(Cell(table, 1, 6), "0.02");
    EXPECT_EQ(Cell(table, 1, 10), "0.02");
    EXPECT_EQ(Cell(table, 1, 11), "NG");
    EXPECT_EQ(Cell(table, 2, 11), "NG");
    EXPECT_EQ(Cell(table, 3, 11), "OK");
    EXPECT_EQ(Cell(table, 1, 15), "OK");
}

// ---- pushover ----

class PushoverDrift : public DriftTable {
protected:
    static constexpr std::uint32_t kCase = 1;

    void PutStep(int step, double angle) {
        auto record = RecordOf<T_STDFTTH_D>(3);
        record.head.direction = 1;
        record.part[1] = {
            .inUse = 1, .drift = 3.0 * angle, .angle = angle, .allowable = 550.0, .isFailed = angle > 0.002 ? 1 : 0};
        PutRecords(LoadCaseKind::Pushover, kCase, "DFT4PV/" + std::to_string(step), std::vector{record});
    }
    static TB_ACTIVE_PARAM Steps(std::vector<std::int16_t> steps) {
        TB_ACTIVE_PARAM param = Loads({{kCase, LoadCaseKind::Pushover, LoadCaseSubKind::All}});
        param.steps = {.isOn = true, .names = {"1", "2", "Ultimate"}, .keys = {1, 2, 3}, .selected = std::move(steps)};
        return param;
    }
};

TEST_F(PushoverDrift, EachStepIsARecordWithItsName) {
    PutStep(1, 0.001);
    PutStep(3, 0.004);
    auto& table = Open<CTBPostStDrftPO>();
    table.SetStepListOff(true);
    table.SetActiveParam(Steps({1, 3}));
    ASSERT_EQ(table.Grid()->GetRowCount(), 3);
    EXPECT_EQ(RowOf(table, 2).substr(0, 7), "M|3F|3|");
    EXPECT_EQ(Cell(table, 2, 5), "1");
    EXPECT_EQ(Cell(table, 2, 7), "1/1000");
    EXPECT_EQ(Cell(table, 2, 9), "OK");
    EXPECT_EQ(Cell(table, 2, 10), "5100001") << "as a case without envelopes";
    EXPECT_EQ(Cell(table, 3, 5), "Ultimate");
    EXPECT_EQ(Cell(table, 3, 7), "1/250");
    EXPECT_EQ(Cell(table, 3, 9), "NG");
}

TEST_F(PushoverDrift, AStepWithoutRecordsIsEmpty) {
    PutStep(1, 0.001);
    auto& table = Open<CTBPostStDrftPO>();
    table.SetStepListOff(true);
    table.SetActiveParam(Steps({2, 1}));
    ASSERT_EQ(table.Grid()->GetRowCount(), 3);
    EXPECT_EQ(RowOf(table, 2), "|||||||||5100001|1");
    EXPECT_EQ(Cell(table, 3, 7), "1/1000");
}

TEST_F(PushoverDrift, NothingIsShownWithoutSteps) {
    PutStep(1, 0.001);
    auto& table = Open<CTBPostStDrftPO>();
    table.SetStepListOff(true);
    table.SetActiveParam(Steps({}));
    EXPECT_EQ(table.Grid()->GetRowCount(), 1);
}

// ---- the dialog of limits ----

class DriftLimitsDialog : public DriftTable {};

TEST_F(DriftLimitsDialog, ShowsTheLimitsAndTakesWhatIsTyped) {
    DriftLimits limits;
    CTBSetRMFMiniDlg dialog(limits);
    dialog.OnInitDialog();
    EXPECT_EQ(dialog.entries[0].ratio, "0.015");
    EXPECT_EQ(dialog.entries[1].denominator, "550");
    EXPECT_FALSE(CTBSetRMFMiniDlg::Title().empty());
    dialog.entries[1].denominator = "120.5";
    dialog.entries[0].ratio = " 0.02 ";
    EXPECT_TRUE(dialog.OnOK());
    EXPECT_DOUBLE_EQ(limits.limit[1].denominator, 120.5);
    EXPECT_DOUBLE_EQ(limits.limit[0].ratio, 0.02);
}

TEST_F(DriftLimitsDialog, RefusesWhatIsNoLimitAndTakesNothing) {
    for (const char* wrong : {"", "x", "0", "-550", "1e999", "550 m"}) {
        DriftLimits limits;
        CTBSetRMFMiniDlg dialog(limits);
        dialog.OnInitDialog();
        dialog.entries[0].ratio = "0.5";
        dialog.entries[1].denominator = wrong;
        host.messages.shown.clear();
        EXPECT_FALSE(dialog.OnOK()) << wrong;
        EXPECT_EQ(host.messages.shown.size(), 1u) << wrong;
        EXPECT_EQ(limits, DriftLimits{}) << wrong;
    }
}

}  // namespace
}  // namespace zt
