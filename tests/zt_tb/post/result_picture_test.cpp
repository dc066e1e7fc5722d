#include "zt_tb/post/result_picture.h"

#include "zt_tb/post/force_tables.h"
#include "zt_tb/post/story/story_table_fixture.h"
#include "zt_tb/post/story/tb_post_st_disp.h"
#include "zt_tb/post/tb_post_memb_force.h"
#include "zt_tb/post/tb_post_node.h"

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The portal in N and m.
class ResultPicture : public ForceTables {
protected:
    ResultPicture() { SetUnits(2, 0); }

    static std::vector<std::pair<std::uint32_t, double>> Pairs(const std::vector<NumberedValue>& values) {
        std::vector<std::pair<std::uint32_t, double>> pairs;
        for (const NumberedValue& value : values) pairs.emplace_back(value.no, value.value);
        return pairs;
    }
    static bool IsGrey(const ResultColours& colours) { return colours.nodes.empty() && colours.members.empty(); }
};

TEST_F(ResultPicture, IsOfTheLoadCaseOfARow) {
    PutResults();
    Open<CTBPostReac>(2).SetActiveParam(
        Choice({1, 2}, {{kWind}, {kSpectrum, LoadCaseKind::Spectrum, LoadCaseSubKind::Max}, {kDead}}));
    EXPECT_EQ(LoadOfRow(*grid, 1), LoadChoice{.key = kDead});
    EXPECT_EQ(LoadOfRow(*grid, 4), LoadChoice{.key = kWind});
    EXPECT_EQ(LoadOfRow(*grid, 5), (LoadChoice{kSpectrum, LoadCaseKind::Spectrum, LoadCaseSubKind::Max}));
    // Rows of sums, and those that are not there, have none.
    for (const int row : {0, 7, 8, 9, 99, -1}) EXPECT_EQ(LoadOfRow(*grid, row), std::nullopt) << row;
    EXPECT_EQ(LoadOfRow(velda::CTBCore(), 1), std::nullopt);
}

TEST_F(ResultPicture, ColoursNodesByTheColumnUnderTheLoadCaseOfTheRow) {
    PutResults();
    Open<CTBPostDisp>(1).SetActiveParam(Choice({4, 1, 2}, {{kWind}, {kDead}}));
    // DX is ten times the place of the node under DL and a hundred times under WX; DY is one more.
    ResultColours colours = ColoursOfColumn(*grid, 1, 3);
    EXPECT_EQ(colours.title, "DX");
    EXPECT_EQ(colours.unit, "m");
    EXPECT_THAT(Pairs(colours.nodes), ElementsAre(std::pair(4u, 40.0), std::pair(1u, 10.0), std::pair(2u, 20.0)));
    EXPECT_THAT(colours.members, IsEmpty());
    colours = ColoursOfColumn(*grid, 6, 4);
    EXPECT_EQ(colours.title, "DY");
    EXPECT_THAT(Pairs(colours.nodes), ElementsAre(std::pair(4u, 401.0), std::pair(1u, 101.0), std::pair(2u, 201.0)));
    // Sorted, the row is of another load case.
    ASSERT_TRUE(grid->Sort({{2, 0, 1}}));
    EXPECT_EQ(ColoursOfColumn(*grid, 1, 3).nodes.front().value, 400.0);
    EXPECT_EQ(ColoursOfColumn(*grid, 6, 3).nodes.front().value, 40.0);
}

TEST_F(ResultPicture, ColoursMembersByThePartOfGreatestMagnitude) {
    auto results = std::make_shared<MemoryResults>();
    ASSERT_TRUE(PutModel(*results));
    ASSERT_TRUE(results->PutCase({LoadCaseKind::Static, kDead, "DL", ""}));
    std::vector<double> forces(27 * 6);
    for (const auto& [station, axial] : {std::pair(0u, 5.0), std::pair(8u, -7.0), std::pair(9u, -2.0)}) {
        forces[station * 6] = axial;
    }
    ASSERT_TRUE(results->PutArray(CasePath(LoadCaseKind::Static, kDead, ResultName::ElementForce), 6, forces));
    doc->GetMDBCtrl()->SetResults(results);
    CTBPostColmForce& source = Open<CTBPostColmForce>(67);
    TB_ACTIVE_PARAM param = Choice({11, 12});
    param.parts = {.isOn = true, .selected = {1, 0}};
    source.SetActiveParam(param);
    // Member 12 stands on its head: its station 0 is its top.
    for (const int row : {1, 2, 4}) {
        const ResultColours colours = ColoursOfColumn(*grid, row, 7);
        EXPECT_EQ(colours.title, "N (Axial)") << row;
        EXPECT_THAT(Pairs(colours.members), ElementsAre(std::pair(11u, -7.0), std::pair(12u, -2.0))) << row;
        EXPECT_THAT(colours.nodes, IsEmpty());
    }
    // Parts that are not shown do not count.
    param.parts.selected = {0};
    source.SetActiveParam(param);
    EXPECT_THAT(Pairs(ColoursOfColumn(*grid, 1, 7).members), ElementsAre(std::pair(11u, 5.0), std::pair(12u, 0.0)));
}

TEST_F(ResultPicture, IsGreyWhereThereIsNothingToColour) {
    PutResults();
    Open<CTBPostReac>(2).SetActiveParam(Choice({1, 2}));
    EXPECT_FALSE(IsGrey(ColoursOfColumn(*grid, 1, 3)));
    EXPECT_TRUE(IsGrey(ColoursOfColumn(*grid, 1, 1))) << "numbers of nodes";
    EXPECT_TRUE(IsGrey(ColoursOfColumn(*grid, 1, 2))) << "texts";
    EXPECT_TRUE(IsGrey(ColoursOfColumn(*grid, 5, 3))) << "sums";
    EXPECT_TRUE(IsGrey(ColoursOfColumn(*grid, 0, 3)));
    velda::CTBCore empty;
    EXPECT_TRUE(IsGrey(ColoursOfColumn(empty, 1, 3)));
    Open<CTBPostStek>(13).SetActiveParam(Choice({}));
    EXPECT_TRUE(IsGrey(ColoursOfColumn(*grid, 1, 4)));
}

using PictureOfStories = StoryTableTest;

TEST_F(PictureOfStories, HasALoadCaseButNoColours) {
    PutRecords(LoadCaseKind::Static, kSeismic, "DSP", std::vector{RecordOf<T_STDSP_D>(3)});
    auto& table = Open<CTBPostStDisp>(0);
    table.SetActiveParam(Loads({Static(kSeismic)}));
    EXPECT_EQ(LoadOfRow(*table.Grid(), 1), Static(kSeismic));
    const ResultColours colours = ColoursOfColumn(*table.Grid(), 1, 7);
    EXPECT_THAT(colours.nodes, IsEmpty());
    EXPECT_THAT(colours.members, IsEmpty());
}

}  // namespace
}  // namespace zt
