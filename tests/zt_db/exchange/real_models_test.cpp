#include <cmath>
#include <map>
#include <string>

#include "velda_lib/number_text.h"
#include "zt_db/exchange/exchange_files.h"
#include "zt_db/geometry/member_geometry.h"
#include "zt_db/record_texts.h"

namespace zt {
namespace {

struct Counts {
    int nodes;
    int members;
    int materials;
    int sections;
    int stories;
    int supports;
};

class RealModels : public ExchangeTest {
protected:
    void SetUp() override {
        T_UNIT_INDEX units;
        doc->GetUnitCtrl()->GetUnitIndexCurrent(units);
        units.force = CUnitCtrl::FindChoice(UnitQuantity::Force, "kN");
        units.length = CUnitCtrl::FindChoice(UnitQuantity::Length, "m");
        units.mass = CUnitCtrl::FindChoice(UnitQuantity::Mass, "t");
        ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(units));
    }
    void ExpectCounts(const Counts& wanted) {
        EXPECT_EQ(Count<CClassPont>(), wanted.nodes);
        EXPECT_EQ(Count<CClassMemb>(), wanted.members);
        EXPECT_EQ(Count<CClassMatl>(), wanted.materials);
        EXPECT_EQ(Count<CClassSect>(), wanted.sections);
        EXPECT_EQ(Count<CClassStor>(), wanted.stories);
        EXPECT_EQ(Count<CClassSpts>(), wanted.supports);
    }
    template <class Class, class Visit>
    void ForEach(Visit visit) {
        std::vector<std::uint32_t> keys;
        Records<Class>().GetKeyList(keys);
        for (const std::uint32_t key : keys) visit(RecordAt<Class>(key));
    }
    int CountOfType(int type) {
        int count = 0;
        ForEach<CClassMemb>([&](const T_MEMB_D& member) { count += member.type == type; });
        return count;
    }
    Vector3 PlaceOf(std::uint32_t node) {
        T_PONT_D point;
        EXPECT_TRUE(Records<CClassPont>().Get3DPos(node, point));
        return {point.x, point.y, point.z};
    }
    double LengthOf(const T_MEMB_D& member) {
        double length = 0.0;
        for (std::size_t i = 1; i < member.nodes.size(); ++i) {
            length += Length(Minus(PlaceOf(member.nodes[i]), PlaceOf(member.nodes[i - 1])));
        }
        return length;
    }
    double AreaOf(const T_MEMB_D& member) {
        Vector3 sum{};
        const Vector3 origin = PlaceOf(member.nodes[0]);
        for (std::size_t i = 2; i < member.nodes.size(); ++i) {
            const Vector3 part =
                Cross(Minus(PlaceOf(member.nodes[i - 1]), origin), Minus(PlaceOf(member.nodes[i]), origin));
            for (std::size_t k = 0; k < 3; ++k) sum[k] += part[k];
        }
        return Length(sum) / 2.0;
    }
};

TEST_F(RealModels, SteelHallHasTheLengthsAndTheMassThatItsAuthorsTell) {
    ASSERT_TRUE(Import(ExampleFolder() / "saf/SAF_example_STEEL_HALL_metrix_ZYX_210.xlsx")) << report.Text();
    ExpectCounts({45, 47, 1, 7, 2, 10});
    EXPECT_EQ(Count<CClassFrls>(), 8);
    EXPECT_EQ(Count<CClassStld>(), 7);
    EXPECT_EQ(Count<CClassLcom>(), 2);
    std::map<std::string, double> lengths;
    double mass = 0.0;
    ForEach<CClassMemb>([&](const T_MEMB_D& member) {
        const T_SECT_D section = RecordAt<CClassSect>(member.prop);
        lengths[section.name] += LengthOf(member);
        mass += LengthOf(member) * section.stiffness.area * 7.85;
    });
    EXPECT_NEAR(lengths["CS1"], 50.0, 1e-6);
    EXPECT_NEAR(lengths["CS4"], 56.568542, 1e-6);
    EXPECT_NEAR(lengths["CS5"], 60.0, 1e-6);
    EXPECT_NEAR(lengths["CS6"], 80.0, 1e-6);
    EXPECT_NEAR(lengths["CS7"], 60.827625, 1e-6);
    EXPECT_NEAR(mass, 7.519767, 1e-6);
}

TEST_F(RealModels, SteelHallKeepsTheNodesAlongItsRafters) {
    ASSERT_TRUE(Import(ExampleFolder() / "saf/SAF_example_STEEL_HALL_metrix_ZYX_210.xlsx")) << report.Text();
    const T_MEMB_D rafter = RecordAt<CClassMemb>(Records<CClassMemb>().GetMembKeyByNo(2));
    EXPECT_EQ(rafter.type, 201);
    ASSERT_EQ(rafter.nodes.size(), 4u);
    EXPECT_EQ(RecordAt<CClassPont>(rafter.nodes[0]).name, "N2");
    EXPECT_EQ(RecordAt<CClassPont>(rafter.nodes[3]).name, "N3");
    EXPECT_LT(PlaceOf(rafter.nodes[1])[0], PlaceOf(rafter.nodes[2])[0]);
    EXPECT_EQ(CountOfType(101), 10);
    EXPECT_EQ(CountOfType(261), 24);
}

TEST_F(RealModels, HouseTellsWhatItCannotKeep) {
    ASSERT_TRUE(Import(ExampleFolder() / "saf/SAF_example_HOUSE_metric_ZYX_220.xlsx")) << report.Text();
    ExpectCounts({127, 42 + 11 + 7, 12, 29, 2, 1});
    EXPECT_EQ(CountOfType(302), 7);
    EXPECT_EQ(Count<CClassFrls>(), 22);
    EXPECT_EQ(Count<CClassRigd>(), 1);
    EXPECT_EQ(Count<CClassLcom>(), 2);
    EXPECT_TRUE(Found(FindingLevel::LeftOut, "IDS_XCH_SHEET_NOT_KEPT", "StructuralCurveMemberRib"));
    EXPECT_TRUE(Found(FindingLevel::LeftOut, "IDS_XCH_SUPPORT_ON_MEMBER", "StructuralPointSupport", 3));
    EXPECT_TRUE(Found(FindingLevel::Converted, "IDS_XCH_CURVE_STRAIGHTENED", "StructuralCurveMember", 32, "Segments"));
    EXPECT_TRUE(Found(FindingLevel::Warning, "IDS_XCH_STIFFNESS_NEGATIVE", "RelConnectsRigidLink", 2));
    EXPECT_TRUE(Found(FindingLevel::Converted, "IDS_XCH_THICKNESS_MEAN", "StructuralSurfaceMember", 12, "Thickness"));
}

TEST_F(RealModels, HouseCombinesWithFactorsTimesMultipliers) {
    ASSERT_TRUE(Import(ExampleFolder() / "saf/SAF_example_HOUSE_metric_ZYX_220.xlsx")) << report.Text();
    const T_LCOM_D combination = RecordAt<CClassLcom>(1);
    EXPECT_EQ(combination.name, "CO1");
    ASSERT_EQ(combination.items.size(), 2u);
    EXPECT_DOUBLE_EQ(combination.items[0].factor, 7.5);
    EXPECT_DOUBLE_EQ(combination.items[1].factor, 2.0);
}

TEST_F(RealModels, BracedFrameComesWholeFromTables) {
    ASSERT_TRUE(Import(ExampleFolder() / "braced_frame_4story_3d")) << report.Text();
    ExpectCounts({45, 116, 1, 3, 5, 9});
    EXPECT_EQ(CountOfType(101), 36);
    EXPECT_EQ(CountOfType(201), 48);
    EXPECT_EQ(CountOfType(206), 32);
    EXPECT_EQ(Count<CClassRigd>(), 4);
    EXPECT_EQ(Count<CClassPtld>(), 12);
    double mass = 0.0;
    ForEach<CClassPmas>([&](const T_PMAS_D& point) { mass += point.mx; });
    EXPECT_NEAR(mass, 3.2 + 2.4 + 2.4 + 1.6, 1e-9);
    const T_RIGD_D floor = RecordAt<CClassRigd>(14);
    EXPECT_EQ(floor.freedoms, 110001);
    EXPECT_EQ(floor.slaves.size(), 8u);
}

TEST_F(RealModels, WorkbookAndTablesOfOneBuildingAgree) {
    for (const std::string name : {"braced_frame_4story_3d", "steel_frame_3story_la", "rc_building_3story_design"}) {
        Use(CDBDoc::New());
        ASSERT_TRUE(Import(ExampleFolder() / name / (name + "_saf220.xlsx"))) << report.Text();
        std::vector<T_MEMB_D> members;
        ForEach<CClassMemb>([&](const T_MEMB_D& member) { members.push_back(member); });
        Use(CDBDoc::New());
        ASSERT_TRUE(Import(ExampleFolder() / name)) << report.Text();
        std::size_t i = 0;
        ForEach<CClassMemb>([&](const T_MEMB_D& member) {
            ASSERT_LT(i, members.size());
            EXPECT_EQ(member.type, members[i].type) << name << ' ' << member.no;
            EXPECT_EQ(member.nodes, members[i].nodes) << name << ' ' << member.no;
            EXPECT_NEAR(member.beta, members[i].beta, 1e-9) << name << ' ' << member.no;
            ++i;
        });
        EXPECT_EQ(i, members.size());
    }
}

TEST_F(RealModels, SteelFrameHasItsWeakColumnAndItsHinges) {
    ASSERT_TRUE(Import(ExampleFolder() / "steel_frame_3story_la")) << report.Text();
    ExpectCounts({20, 27, 1, 7, 4, 20});
    EXPECT_EQ(Count<CClassFrls>(), 3);
    EXPECT_EQ(Count<CClassPmas>(), 15);
    int turned = 0;
    ForEach<CClassMemb>([&](const T_MEMB_D& member) { turned += member.type == 101 && member.beta != 0.0; });
    EXPECT_EQ(turned, 3);
}

TEST_F(RealModels, ConcreteBuildingIsReadFromTables) {
    ASSERT_TRUE(Import(ExampleFolder() / "rc_building_3story_design")) << report.Text();
    ExpectCounts({103, 195, 1, 2, 4, 28});
    EXPECT_EQ(CountOfType(101), 75);
    EXPECT_EQ(CountOfType(201), 120);
    double mass = 0.0;
    ForEach<CClassPmas>([&](const T_PMAS_D& point) { mass += point.mx; });
    EXPECT_NEAR(mass, 991.5068 + 964.0002 + 892.48305, 1e-9);
    ForEach<CClassRigd>([&](const T_RIGD_D& floor) { EXPECT_EQ(floor.slaves.size(), 25u); });
    EXPECT_EQ(Count<CClassRigd>(), 3);
}

TEST_F(RealModels, PlaneFrameWithFibresTakesItsStoriesAndCasesFromNodesAndLoads) {
    ASSERT_TRUE(Import(ExampleFolder() / "rc_plane_frame_7story_pushover")) << report.Text();
    ExpectCounts({228, 245, 3, 2, 8, 4});
    EXPECT_EQ(Count<CClassStld>(), 2);
    double gravity = 0.0;
    double push = 0.0;
    ForEach<CClassPtld>([&](const T_PTLD_D& load) {
        gravity += load.fz;
        push += load.fx;
    });
    EXPECT_NEAR(gravity, -5600.0, 1e-9);
    EXPECT_NEAR(push, 1400.0, 1e-9);
    EXPECT_TRUE(Found(FindingLevel::Warning, "IDS_XCH_MATERIAL_NOT_LISTED", "sections", 2, "material"));
    T_PONT_D node = RecordAt<CClassPont>(2);
    EXPECT_NEAR(node.z, 0.6 - 3.0, 1e-12);
    EXPECT_NEAR(PlaceOf(2)[2], 0.6, 1e-12);
}

TEST_F(RealModels, TowerInInchesAndKipsIsConverted) {
    ASSERT_TRUE(Import(ExampleFolder() / "setback_tower_3d")) << report.Text();
    ExpectCounts({15, 24, 1, 1, 5, 3});
    EXPECT_NEAR(PlaceOf(15)[2], 510.0 * 0.0254, 1e-12);
    EXPECT_NEAR(RecordAt<CClassPtld>(1).fy, 200.0 * 4.4482216152605, 1e-9);
    EXPECT_NEAR(RecordAt<CClassLnld>(1).p[0], -2.361 * 4.4482216152605 / 0.0254, 1e-6);
    EXPECT_NEAR(RecordAt<CClassSect>(1).stiffness.area, 100.0 * 0.0254 * 0.0254, 1e-12);
    EXPECT_NEAR(RecordAt<CClassMatl>(1).analysis[0].elasticity, 29000.0 * 6.894757293168361, 1e-6);
    // 7.33e-7 kip s2/in4 is the density of steel.
    EXPECT_NEAR(RecordAt<CClassMatl>(1).analysis[0].density, 7833.5, 1.0);
}

TEST_F(RealModels, BuildingWithDefectsHasItsTotalsAndWarnings) {
    const auto source = ExampleFolder() / "small_building_with_defects";
    ASSERT_TRUE(Import(source)) << report.Text();
    ExpectCounts({40, 32 + 13, 4, 3, 5, 8});
    EXPECT_EQ(CountOfType(101), 16);
    EXPECT_EQ(CountOfType(201), 16);
    double slabs = 0.0;
    double walls = 0.0;
    ForEach<CClassMemb>([&](const T_MEMB_D& member) {
        if (member.type == 301) slabs += AreaOf(member);
        if (member.type == 202) walls += AreaOf(member);
    });
    EXPECT_NEAR(slabs, 116.02, 1e-6);
    EXPECT_NEAR(walls, 101.0, 1e-6);
    EXPECT_TRUE(Found(FindingLevel::Warning, "IDS_XCH_VALUE_DOUBTFUL", "materials", 4, "E"));
    EXPECT_TRUE(Found(FindingLevel::Warning, "IDS_XCH_VALUE_DOUBTFUL", "materials", 4, "density"));
    EXPECT_TRUE(Found(FindingLevel::LeftOut, "IDS_XCH_LOAD_NO_SLAB", "loads_area", 2));
}

TEST_F(RealModels, BuildingWithDefectsHasTheAreaLoadsThatItsAuthorsTell) {
    ExchangeModel model;
    ASSERT_TRUE(ReadExchange(ExampleFolder() / "small_building_with_defects", options, model, report)) << report.Text();
    std::map<std::string, double> areas;
    for (const ExchangeSurface& surface : model.surfaces) areas[surface.name] = *surface.area;
    std::map<std::string, double> totals;
    for (const ExchangeSurfaceLoad& load : model.surfaceLoads) {
        totals[load.loadCase] += *load.value / 1000.0 * areas[load.surface];
    }
    EXPECT_EQ(model.surfaceLoads.size(), 14u);
    EXPECT_NEAR(totals["Live"], -282.0, 1e-9);
    EXPECT_NEAR(totals["floor finishing"], -13.5, 1e-9);
}

TEST_F(RealModels, AnImportIsOneStepThatCanBeUndone) {
    ASSERT_TRUE(Import(ExampleFolder() / "braced_frame_4story_3d")) << report.Text();
    const std::vector<std::string> records = AllRecords(*doc);
    ASSERT_EQ(Db().GetUndoNames(), std::vector<std::string>{"Import braced_frame_4story_3d"});
    EXPECT_EQ(Db().Undo(), 1);
    EXPECT_TRUE(AllRecords(*doc).empty());
    EXPECT_EQ(Db().Redo(), 1);
    EXPECT_EQ(AllRecords(*doc), records);
}

TEST_F(RealModels, ASecondImportReusesEverything) {
    ASSERT_TRUE(Import(ExampleFolder() / "braced_frame_4story_3d")) << report.Text();
    const std::vector<std::string> records = AllRecords(*doc);
    ASSERT_TRUE(Import(ExampleFolder() / "braced_frame_4story_3d")) << report.Text();
    ExpectSameRecords(AllRecords(*doc), records);
    EXPECT_TRUE(Found(FindingLevel::Note, "IDS_XCH_REUSED", "materials", 2));
}

}  // namespace
}  // namespace zt
