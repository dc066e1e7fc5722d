#include "zt_tb/post/tb_post_slab_forc.h"

#include "zt_tb/post/force_tables.h"

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The portal with the slabs 14 and 15, of which the first gives forces to the nodes 3 and 4 only.
class SlabForces : public ForceTables {
protected:
    SlabForces() {
        const auto slab = [](std::uint32_t no, std::vector<std::uint32_t> nodes) {
            return T_MEMB_D{.type = MembType::Slab, .no = no, .story = 2, .nodes = std::move(nodes)};
        };
        Records<CClassMemb>().TR_Add(std::vector<std::uint32_t>{204, 205},
                                     std::vector<T_MEMB_D>{slab(14, {101, 103, 104}), slab(15, {102, 104, 103})});
    }
    void PutSlabResults() {
        const auto results = PutResults();
        ASSERT_TRUE(results->PutKeys(ResultName::SlabNodes, std::vector<std::uint32_t>{14, 3, 14, 4, 15, 4}));
        const std::vector<double> forces = {1e3,  2e3,  3e3,  4e3,  5e3,  6e3,  11e3, 12e3, 13e3,
                                            14e3, 15e3, 16e3, 21e3, 22e3, 23e3, 24e3, 25e3, 26e3};
        ASSERT_TRUE(results->PutArray(CasePath(LoadCaseKind::Static, kDead, ResultName::SlabForce), 6, forces));
        doc->GetMDBCtrl()->SetResults(results);
    }
};

TEST_F(SlabForces, StandAtTheNodesOfTheirSlab) {
    PutSlabResults();
    CTBPostSlabForc& source = Open<CTBPostSlabForc>(12);
    source.SetActiveParam(Choice({14, 15}));
    ASSERT_EQ(grid->GetRowCount(), 3);
    EXPECT_THAT(Row(1), ElementsAre("14", "Tower : 2F", "4", "DL", "3", "1", "2", "3", "4", "5", "6", "300001"));
    EXPECT_THAT(Row(2), ElementsAre("14", "Tower : 2F", "4", "DL", "4", "11", "12", "13", "14", "15", "16", "300001"));
    EXPECT_EQ(grid->GetValueRowCol(3, 1), "15");
    EXPECT_EQ(grid->GetValueRowCol(3, 6), "21");
}

TEST_F(SlabForces, TakeEachElementOnce) {
    PutSlabResults();
    const CTBPostSlabForc& source = Open<CTBPostSlabForc>(12);
    EXPECT_THAT(Keys(source), ElementsAre(14, 15));
}

TEST_F(SlabForces, AreChosenAmongSlabsOnly) {
    PutSlabResults();
    CTBPostSlabForc& source = Open<CTBPostSlabForc>(12);
    TB_ACTIVE_PARAM param;
    EXPECT_TRUE(source.GetActiveParam(param));
    EXPECT_THAT(param.allObjects, ElementsAre(14, 15));
    EXPECT_FALSE(param.stories.isOn);
    EXPECT_FALSE(param.parts.isOn);
    source.SetActiveParam(Choice({15}));
    EXPECT_EQ(grid->GetRowCount(), 1);
}

TEST_F(SlabForces, KeepTheirObjectsWhenNoneAreChosen) {
    PutSlabResults();
    CTBPostSlabForc& source = Open<CTBPostSlabForc>(12);
    TB_ACTIVE_PARAM param = Choice({});
    param.hasObjects = false;
    source.SetActiveParam(param);
    EXPECT_EQ(grid->GetRowCount(), 3);
}

TEST_F(SlabForces, OfACaseThatHasNoneAreZero) {
    PutSlabResults();
    Open<CTBPostSlabForc>(12).SetActiveParam(Choice({15}, {{.key = kWind}}));
    EXPECT_THAT(Row(1), ElementsAre("15", "Tower : 2F", "4", "WX", "4", "0", "0", "0", "0", "0", "0", "300002"));
}

TEST_F(SlabForces, AreNotShownWhereTheResultsHaveNone) {
    PutResults();
    CTBPostSlabForc& source = Open<CTBPostSlabForc>(12);
    source.SetActiveParam(Choice({14, 15}));
    EXPECT_EQ(grid->GetRowCount(), 0);
    EXPECT_THAT(Keys(source), IsEmpty());
}

TEST_F(SlabForces, OfUnknownSlabsAreNone) {
    PutSlabResults();
    Open<CTBPostSlabForc>(12).SetActiveParam(Choice({99}));
    EXPECT_EQ(grid->GetRowCount(), 0);
}

}  // namespace
}  // namespace zt
