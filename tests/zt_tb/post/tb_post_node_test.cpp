#include "zt_tb/post/tb_post_node.h"

#include <cmath>

#include "zt_tb/post/force_tables.h"
#include "zt_tb/post/tb_post_memb_force.h"

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// ---- what of the envelopes of a case is shown ----

/// The portal with a history, in N and m. Its greatest values are those of Values(), its least ones twice as large
/// where the component is even and half as large where it is odd: the governing value is now one, now the other.
class EnvelopeTables : public ForceTables {
protected:
    EnvelopeTables() {
        SetUnits(2, 0);
        auto results = std::make_shared<MemoryResults>();
        EXPECT_TRUE(PutModel(*results));
        EXPECT_TRUE(results->PutKeys(ResultName::Links, std::vector<std::uint32_t>{7}));
        EXPECT_TRUE(results->PutKeys(ResultName::LinkEnds, std::vector<std::uint32_t>{1, 2}));
        EXPECT_TRUE(results->PutCase({LoadCaseKind::TimeHistory, kHistory, "EQ", ""}));
        PutBoth(*results, ResultName::Displacement, 4);
        PutBoth(*results, ResultName::Reaction, 2);
        PutBoth(*results, ResultName::ElementForce, 3 * 9);
        PutBoth(*results, ResultName::LinkForce, 1, 12);
        doc->GetMDBCtrl()->SetResults(results);
    }
    static void PutBoth(ResultSink& sink, std::string_view name, std::size_t rows, std::size_t columns = 6) {
        const std::vector<double> greatest = Values(rows * columns / 6, 1.0);
        std::vector<double> least;
        for (std::size_t i = 0; i < greatest.size(); ++i) least.push_back(greatest[i] * (i % 2 == 0 ? -2.0 : -0.5));
        const std::string path = CasePath(LoadCaseKind::TimeHistory, kHistory, name);
        EXPECT_TRUE(sink.PutArray(path + "_max", columns, greatest));
        EXPECT_TRUE(sink.PutArray(path + "_min", columns, least));
    }
    /// Opens a table with one object under all, the least and the greatest.
    template <class Source>
    void Show(int tab, std::uint32_t object) {
        const auto load = [](std::int16_t subKind) {
            return LoadChoice{.key = kHistory, .kind = LoadCaseKind::TimeHistory, .subKind = subKind};
        };
        TB_ACTIVE_PARAM param =
            Choice({object}, {load(LoadCaseSubKind::All), load(LoadCaseSubKind::Min), load(LoadCaseSubKind::Max)});
        param.kinds = {.isOn = true, .selected = {object}};
        Open<Source>(tab).SetActiveParam(param);
    }
};

TEST_F(EnvelopeTables, NodesShowTheGreatestThenTheLeastThenTheGoverning) {
    Show<CTBPostDisp>(1, 2);
    ASSERT_EQ(grid->GetRowCount(), 3);
    EXPECT_THAT(Row(1), ElementsAre("2", "EQ(max)", "2", "3", "4", "5", "6", "7", "1500006"));
    EXPECT_THAT(Row(2), ElementsAre("2", "EQ(min)", "-4", "-1.5", "-8", "-2.5", "-12", "-3.5", "1600006"));
    EXPECT_THAT(Row(3), ElementsAre("2", "EQ(all)", "-4", "3", "-8", "5", "-12", "7", "1700006"));
}

TEST_F(EnvelopeTables, ReactionsDoSoInRecordsAndSums) {
    Show<CTBPostReac>(2, 2);
    ASSERT_EQ(grid->GetRowCount(), 3 + 5);
    EXPECT_THAT(Row(1), ElementsAre("2", "EQ(max)", "2", "3", "4", "5", "6", "7", "1500006"));
    EXPECT_THAT(Row(2), ElementsAre("2", "EQ(min)", "-4", "-1.5", "-8", "-2.5", "-12", "-3.5", "1600006"));
    EXPECT_THAT(Row(3), ElementsAre("2", "EQ(all)", "-4", "3", "-8", "5", "-12", "7", "1700006"));
    // Node 1 has 1 to 6, node 2 has 2 to 7. Sums stand in the order of the choice.
    const auto sum = [this](int row) {
        const std::vector<std::string> texts = Row(row);
        return std::vector<std::string>(texts.begin(), texts.begin() + 4);
    };
    EXPECT_THAT(sum(6), ElementsAre("EQ(all)", "-6", "5", "-14"));
    EXPECT_THAT(sum(7), ElementsAre("EQ(min)", "-6", "-2.5", "-14"));
    EXPECT_THAT(sum(8), ElementsAre("EQ(max)", "3", "5", "7"));
}

TEST_F(EnvelopeTables, LinksDoSoAtBothEnds) {
    Show<CTBPostStek>(13, 7);
    ASSERT_EQ(grid->GetRowCount(), 6);
    EXPECT_THAT(Row(1), ElementsAre("7", "EQ(max)", "1", "1", "2", "3", "4", "5", "6", "1500006"));
    EXPECT_THAT(Row(2), ElementsAre("", "", "2", "2", "3", "4", "5", "6", "7", ""));
    EXPECT_THAT(Row(4), ElementsAre("", "", "2", "-4", "-1.5", "-8", "-2.5", "-12", "-3.5", ""));
    EXPECT_THAT(Row(5), ElementsAre("7", "EQ(all)", "1", "-2", "2", "-6", "4", "-10", "6", "1700006"));
    EXPECT_THAT(Row(6), ElementsAre("", "", "2", "-4", "3", "-8", "5", "-12", "7", ""));
}

TEST_F(EnvelopeTables, MembersDoSoInEachPart) {
    Show<CTBPostColmForce>(67, 11);
    ASSERT_EQ(grid->GetRowCount(), 12);
    // The bottom is the last of four parts.
    EXPECT_THAT(Row(4), ElementsAre("", "", "", "Bottom", "EQ(max)", "Analysis", "1", "2", "3", "5", "6", "", ""));
    EXPECT_THAT(Row(8),
                ElementsAre("", "", "", "Bottom", "EQ(min)", "Analysis", "-2", "-1", "-6", "-10", "-3", "", ""));
    EXPECT_THAT(Row(12), ElementsAre("", "", "", "Bottom", "EQ(all)", "Analysis", "-2", "2", "-6", "-10", "6", "", ""));
    EXPECT_EQ(grid->GetValueRowCol(1, 12), "1500006");
    EXPECT_EQ(grid->GetValueRowCol(5, 12), "1600006");
    EXPECT_EQ(grid->GetValueRowCol(9, 12), "1700006");
}

// ---- reactions ----

class ReactionTables : public ForceTables {
protected:
    ReactionTables() { PutResults(); }

    /// The records of the table as "node load".
    std::vector<std::string> Pairs(const CTBPostDS& source) const {
        std::vector<std::string> pairs;
        for (int row = 1; row <= grid->RecCtrl().RecCount(); ++row) {
            pairs.push_back(grid->GetValueRowCol(row, 1) + " " + grid->GetValueRowCol(row, 2));
        }
        EXPECT_EQ(pairs.size(), source.ObjectCount() * source.Rows().size());
        return pairs;
    }
};

TEST_F(ReactionTables, FollowTheNodesAndLoadCasesOfAnotherTable) {
    CTBPostReac& source = Open<CTBPostReac>(2);
    source.SetActiveParam(Choice({1, 3}));
    EXPECT_THAT(Pairs(source), ElementsAre("1 DL"));
    EXPECT_EQ(grid->GetRowCount(), 1 + 3);

    source.ApplyExternalActive(Choice({2, 3, 1}, {{.key = kWind}, {.key = kDead}}));
    EXPECT_THAT(Pairs(source), ElementsAre("1 DL", "2 DL", "1 WX", "2 WX"));
    EXPECT_THAT(Keys(source), ElementsAre(2, 3, 1));
    EXPECT_EQ(grid->GetRowCount(), 4 + 4);
    EXPECT_THAT(Row(4), ElementsAre("2", "WX", "0.2", "0.201", "0.202", "0.203", "0.204", "0.205", "300002"));

    source.ApplyExternalActive(Choice({3, 4}));
    EXPECT_THAT(Pairs(source), IsEmpty()) << "they carry no reactions";
    EXPECT_EQ(grid->GetRowCount(), 3);
}

TEST_F(ReactionTables, KeepWhatAnotherTableDoesNotChoose) {
    CTBPostReac& source = Open<CTBPostReac>(2);
    source.SetActiveParam(Choice({1, 2}));
    TB_ACTIVE_PARAM param = Choice({2}, {{.key = kWind}});
    param.hasObjects = false;
    source.ApplyExternalActive(param);
    EXPECT_THAT(Pairs(source), ElementsAre("1 WX", "2 WX"));
    param = Choice({2});
    param.hasLoads = false;
    source.ApplyExternalActive(param);
    EXPECT_THAT(Pairs(source), ElementsAre("2 WX"));
}

TEST_F(ReactionTables, HaveTheirSumsInABlockOfItsOwnLook) {
    constexpr std::uint32_t kBlue = 0xFF0000;
    constexpr std::uint32_t kYellow = 65535;
    CTBPostReac& source = Open<CTBPostReac>(2);
    for (const std::vector<LoadChoice>& loads :
         {std::vector<LoadChoice>{{.key = kDead}, {.key = kWind}}, {{.key = kWind}}}) {
        source.SetActiveParam(Choice({1, 2}, loads));
        const int heading = static_cast<int>(grid->RecCtrl().RecCount()) + 1;
        const int count = static_cast<int>(loads.size());
        ASSERT_EQ(grid->GetRowCount(), heading + 1 + count);
        for (int row = heading; row <= grid->GetRowCount(); ++row) {
            EXPECT_EQ(grid->GetRowHeight(row), row == heading + 1 ? 32 : 16) << row;
            EXPECT_EQ(grid->StyleOf(row, 2).GetTextColor(), row == heading ? kYellow : kBlue) << row;
            EXPECT_TRUE(grid->StyleOf(row, 2).GetReadOnly()) << row;
        }
        // The heading lies over all columns, and nothing else is joined.
        ASSERT_EQ(grid->CoveredCells().Count(), 1u);
        const auto at = static_cast<std::uint32_t>(heading);
        EXPECT_EQ(grid->CoveredCells().All().front(), velda::CGXRange(at, 1, at, 9));
        EXPECT_EQ(grid->StyleOf(heading, 1).GetInterior(), kBlue);
        EXPECT_EQ(grid->StyleOf(heading, 1).GetHorizontalAlignment(), velda::HorizontalAlignment::Center);
        // Records look as always.
        EXPECT_NE(grid->StyleOf(1, 2).GetTextColor(), kBlue);
        EXPECT_NE(grid->GetRowHeight(1), 16);
        // Titles of FX to FZ stand over them.
        for (int col = 2; col <= 4; ++col) {
            EXPECT_EQ(grid->GetValueRowCol(heading + 1, col), grid->Header().Text(0, static_cast<std::uint32_t>(col)));
        }
        EXPECT_EQ(grid->GetValueRowCol(heading + 1, 5), "");
    }
}

}  // namespace
}  // namespace zt
