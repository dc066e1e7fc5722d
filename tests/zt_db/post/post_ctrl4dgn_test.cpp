#include "zt_db/post/post_ctrl4dgn.h"

#include <map>

#include "zt_db/post/post_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

/// The portal in N and m: every member has analysis forces; the column 11 and the beam 13 were designed.
class DesignForces : public PortalTest {
protected:
    DesignForces() {
        SetUnits(2, 0);
        auto results = std::make_shared<MemoryResults>();
        EXPECT_TRUE(PutAll(*results));
        EXPECT_TRUE(results->PutKeys(ResultName::Designed, std::vector<std::uint32_t>{11, 13}));
        // What a member was designed for is its analysis turned round.
        PutDesign(*results, LoadCaseKind::Static, kDead, -10.0);
        PutDesign(*results, LoadCaseKind::Static, kWind, -100.0);
        doc->GetMDBCtrl()->SetResults(results);
        EXPECT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    }
    static void PutDesign(ResultSink& sink, int kind, std::uint32_t key, double scale) {
        EXPECT_TRUE(sink.PutArray(CasePath(kind, key, ResultName::DesignForce), 6, Values(3 * 9, scale)));
    }
    void UseMaterial(const std::string& type) {
        T_MATL_D material;
        ASSERT_TRUE(Records<CClassMatl>().Get(1, material));
        material.type = type;
        ASSERT_TRUE(Records<CClassMatl>().TR_Modify(1, 1, material)) << type;
    }
    template <class Record>
    using Getter = int (CPostCtrl4Dgn::*)(std::uint32_t, Record*, Record*, Record*) const;

    /// The axial forces of the parts that a getter tells of a member; none where it refuses, which leaves the record.
    template <class Record>
    std::vector<double> Axial(Getter<Record> getter, std::uint32_t memb) {
        Record record;
        record.part[0][0] = 7.0;
        if (!(CPostCtrl4Dgn(Post()).*getter)(memb, &record, nullptr, nullptr)) {
            EXPECT_EQ(record.part[0][0], 7.0);
            return {};
        }
        std::vector<double> axial;
        for (const T_FORCE_D& part : record.part) axial.push_back(part[0]);
        return axial;
    }
    /// Which getters tell something of a member, each by a letter.
    std::string Telling(std::uint32_t memb) {
        std::string telling;
        const auto ask = [&](char letter, auto getter) {
            if (!Axial(getter, memb).empty()) telling += letter;
        };
        ask('B', &CPostCtrl4Dgn::GetBeamDesignForce);
        ask('S', &CPostCtrl4Dgn::GetSteelDesignForce);
        ask('b', &CPostCtrl4Dgn::GetWBemDesignForce);
        ask('C', &CPostCtrl4Dgn::GetColmDesignForce);
        ask('E', &CPostCtrl4Dgn::GetSrcColmDesignForce);
        ask('W', &CPostCtrl4Dgn::GetWallDesignForce);
        ask('R', &CPostCtrl4Dgn::GetBrceDesignForce);
        return telling;
    }
};

TEST_F(DesignForces, AreToldByTheMaterialThatAMemberWasDesignedIn) {
    const std::map<std::string, std::string> tellingOfMaterial = {
        {"C", "BbCWR"}, {"S", "SbCWR"}, {"SRC", "bEWR"}, {"U", "bCWR"}};
    for (const auto& [material, telling] : tellingOfMaterial) {
        UseMaterial(material);
        EXPECT_EQ(Telling(13), telling) << material;
        EXPECT_EQ(Telling(11), telling) << material;
        EXPECT_EQ(Telling(12), "") << "not designed, " << material;
        EXPECT_EQ(Telling(99), "") << material;
        const CPostCtrl4Dgn design(Post());
        EXPECT_EQ(design.IsConcreteDesignResultEnableBeam(13), material == "C") << material;
        EXPECT_EQ(design.IsSteelDesignForceEnable(13), material == "S") << material;
        EXPECT_FALSE(design.IsConcreteDesignResultEnableBeam(12)) << material;
        EXPECT_FALSE(design.IsSteelDesignForceEnable(12)) << material;
    }
}

TEST_F(DesignForces, StandAtThePartsOfTheMember) {
    using testing::ElementsAre;
    UseMaterial("C");
    // The stations of member 11 have -10 to -90, those of member 13 have -190 to -270.
    EXPECT_THAT(Axial(&CPostCtrl4Dgn::GetBeamDesignForce, 13),
                ElementsAre(-190, -200, -210, -220, -230, -240, -250, -260, -270));
    EXPECT_THAT(Axial(&CPostCtrl4Dgn::GetWBemDesignForce, 13),
                ElementsAre(-190, -200, -210, -220, -230, -240, -250, -260, -270));
    EXPECT_THAT(Axial(&CPostCtrl4Dgn::GetBrceDesignForce, 13), ElementsAre(-190, -270));
    for (const auto getter : {&CPostCtrl4Dgn::GetColmDesignForce, &CPostCtrl4Dgn::GetWallDesignForce}) {
        const std::vector<double> axial = Axial(getter, 11);
        ASSERT_EQ(axial.size(), 4u);
        EXPECT_EQ(axial[0], -10.0) << "the bottom";
        EXPECT_EQ(axial[1], -90.0) << "the top";
    }
}

TEST_F(DesignForces, OfAnEnvelopeAreTheGreatestAndTheLeastOfWhatWasDesigned) {
    UseMaterial("S");
    Records<CClassLcom>().TR_Add(1,
                                 {.name = "E",
                                  .type = LoadCombinationType::Envelope,
                                  .items = {{LoadCaseKind::Static, kDead, 1.0}, {LoadCaseKind::Static, kWind, -1.0}}});
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Combination, 1));
    T_FBEM_D all;
    T_FBEM_D max;
    T_FBEM_D min;
    ASSERT_TRUE(CPostCtrl4Dgn(Post()).GetSteelDesignForce(13, &all, &max, &min));
    EXPECT_EQ(max.part[0][0], 1900.0);
    EXPECT_EQ(min.part[0][0], -190.0);
    EXPECT_EQ(all.part[0][0], 1900.0);
    T_FBEM_D least;
    ASSERT_TRUE(CPostCtrl4Dgn(Post()).GetSteelDesignForce(13, nullptr, nullptr, &least));
    EXPECT_EQ(least.part[0][0], -190.0);
}

TEST_F(DesignForces, AreNoneWithoutResultsOrWithoutAnOpenedCase) {
    UseMaterial("C");
    const CPostCtrl unopened(*doc->GetMDBCtrl(), *doc->GetUnitCtrl());
    T_FBEM_D record;
    EXPECT_TRUE(CPostCtrl4Dgn(unopened).IsConcreteDesignResultEnableBeam(13));
    EXPECT_FALSE(CPostCtrl4Dgn(unopened).GetBeamDesignForce(13, &record, nullptr, nullptr));
    doc->GetMDBCtrl()->SetResults(nullptr);
    EXPECT_EQ(Telling(13), "");
    EXPECT_FALSE(CPostCtrl4Dgn(Post()).IsConcreteDesignResultEnableBeam(13));
}

}  // namespace
}  // namespace zt
