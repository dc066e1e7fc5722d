#include <filesystem>

#include "verification/csv_table.h"
#include "verification/verification_record.h"
#include "zt_db/exchange/model_exchange.h"
#include "zt_db/post/story/story_fixture.h"

namespace zt {
namespace {

constexpr int kStatic = LoadCaseKind::Static;
/// Real models whose displacements others computed: what follows from them must be what they found.
class PublishedStories : public StoryTest {
protected:
    void Load(const std::string& model) {
        const std::filesystem::path data = std::filesystem::path(ZT_SOURCE_DIR) / "tests/data";
        folder = data / "analysis" / model;
        ExchangeReport report;
        ASSERT_TRUE(ImportModel(Db(), data / "exchange" / model, {}, report)) << report.Text();
        results = std::make_shared<MemoryResults>();
        PutHead({.run = "r", .stations = 2});
        for (const std::uint32_t key : KeysOfClass<CClassPont>()) {
            T_PONT_D node;
            Records<CClassPont>().Get3DPos(key, node);
            placeOfNode[node.name.empty() ? std::to_string(node.no) : node.name] = numbers.size();
            numbers.push_back(node.no);
            heights.push_back(node.z);
        }
        PutKeys(ResultName::Nodes, numbers);
    }
    template <class Class>
    std::vector<std::uint32_t> KeysOfClass() {
        std::vector<std::uint32_t> keys;
        Records<Class>().GetKeyList(keys);
        return keys;
    }
    void PutDisplacements(std::uint32_t key, const std::string& table) {
        std::vector<double> values(6 * numbers.size());
        for (const auto& row : ReadTable(folder / table)) {
            const std::size_t place = placeOfNode.at(row.at("node"));
            values[6 * place] = NumberOf(row, "ux_m");
            values[6 * place + 1] = NumberOf(row, "uy_m");
        }
        PutResultCase({kStatic, key, "L", "E"});
        PutArray(CasePath(kStatic, key, ResultName::Displacement), 6, values);
        UseResults();
    }
    /// Stories of a table stand from the lowest, records from the topmost.
    void ExpectDrifts(const std::string& displacements, const std::string& drifts, std::size_t direction) {
        PutDisplacements(1, displacements);
        const CPostCtrl control = Control();
        std::vector<T_STDFT_D> records;
        std::vector<T_STTIC_D> torsion;
        ASSERT_TRUE(CStoryResultPost(control).GetDFT(kStatic, 1, records));
        ASSERT_TRUE(CStoryResultPost(control).GetTIC(kStatic, 1, torsion));
        const std::vector<CsvRow> rows = ReadTable(folder / drifts);
        ASSERT_EQ(records.size(), rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::size_t at = rows.size() - 1 - i;
            const T_STDFT_POINT& point = records[at].part[direction].maximum;
            EXPECT_NEAR(records[at].head.height, NumberOf(rows[i], "height_m"), 1e-9);
            // Displacements are told with eight digits.
            EXPECT_NEAR(point.drift, NumberOf(rows[i], "max_drift_m"), 2e-9) << drifts << ' ' << i;
            EXPECT_NEAR(torsion[at].part[direction].averageDrift, NumberOf(rows[i], "avg_drift_m"), 2e-9);
            EXPECT_NEAR(torsion[at].part[direction].driftRatio, NumberOf(rows[i], "max_over_avg"), 1e-9);
            EXPECT_NEAR(point.angle, NumberOf(rows[i], "drift_ratio_max"), 1e-8);
            EXPECT_EQ(torsion[at].part[direction].status, StoryStatus::Regular);
            EXPECT_EQ(records[at].head.direction, static_cast<int>(direction));
        }
    }

    std::filesystem::path folder;
    std::map<std::string, std::size_t> placeOfNode;
    std::vector<std::uint32_t> numbers;
    std::vector<double> heights;
};

TEST_F(PublishedStories, BracedFrameDriftsAlongX) {
    Load("braced_frame_4story_3d");
    ExpectDrifts("results_latx_displacements.csv", "results_latx_story_drifts.csv", 0);
}

TEST_F(PublishedStories, BracedFrameDriftsAlongY) {
    Load("braced_frame_4story_3d");
    ExpectDrifts("results_laty_displacements.csv", "results_laty_story_drifts.csv", 1);
}

TEST_F(PublishedStories, SteelFrameDrifts) {
    Load("steel_frame_3story_la");
    ExpectDrifts("results_static_displacements.csv", "results_story_drifts.csv", 0);
}

TEST_F(PublishedStories, ConcretePlaneFrameDrifts) {
    Load("rc_plane_frame_3story_modal");
    ExpectDrifts("results_static_recalculated_displacements.csv", "results_story_drifts.csv", 0);
}

/// Displacements, shears and gravity loads in; drifts, ratios, stability coefficients out. Units are inch and kip.
class DesignVerification : public PublishedStories {
protected:
    static constexpr double kInchInMetres = 0.0254;
    static constexpr double kKip = 4448.2216152605;

    DesignVerification() {
        Load("rc_building_3story_design");
        rows = ReadTable(folder / "results_drift_and_stability.csv");
        for (const std::uint32_t key : {1u, 2u}) {
            if (!Records<CClassStld>().Exist(key)) Add<CClassStld>(key, {.name = std::to_string(key), .type = "E"});
        }
        Add<CClassRstp>(1, {.amplification = NumberOf(rows[0], "Cd"),
                            .importance = 1.0,
                            .allowableRatio = 0.01 * NumberOf(rows[0], "limit_pct"),
                            .verticalLoads = {{kStatic, 2, 1.0}},
                            .betas = {}});
        PutColumns();
        PutResults();
        SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, "kip"), CUnitCtrl::FindChoice(UnitQuantity::Length, "in"));
    }
    /// The story, from 0, whose top level a height is; -1 for the ground.
    static int StoryOfHeight(double z) { return z < 1.0 ? -1 : z < 6.0 ? 0 : z < 10.0 ? 1 : 2; }

    void PutColumns() {
        std::vector<std::uint32_t> members;
        std::vector<std::uint32_t> ends;
        for (const std::uint32_t key : KeysOfClass<CClassMemb>()) {
            T_MEMB_D member;
            Records<CClassMemb>().Get(key, member);
            if (member.type != MembType::Column) continue;
            T_PONT_D top;
            Records<CClassPont>().Get3DPos(member.nodes[1], top);
            members.push_back(member.no);
            storyOfColumn.push_back(StoryOfHeight(top.z));
            for (const std::uint32_t node : member.nodes) ends.push_back(Records<CClassPont>().GetPontNoByKey(node));
        }
        PutKeys(ResultName::ElementMembers, members);
        PutKeys(ResultName::ElementEnds, ends);
    }
    void PutResults() {
        std::vector<double> displacements(6 * numbers.size());
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            const int story = StoryOfHeight(heights[i]);
            if (story >= 0) displacements[6 * i] = At(story, "displacement_in") * kInchInMetres;
        }
        // 25 columns a story share its shear and its gravity load. The local axes of a column are turned by its angle.
        std::vector<double> shears;
        std::vector<double> pressures;
        for (std::size_t i = 0; i < storyOfColumn.size(); ++i) {
            const double shear = At(storyOfColumn[i], "story_shear_kip") * kKip / 25.0;
            const double pressure = At(storyOfColumn[i], "gravity_load_above_kip") * kKip / 25.0;
            const auto [y, z] = AxesOfColumn(i);
            for (int station = 0; station < 2; ++station) {
                shears.insert(shears.end(), {0.0, y * shear, z * shear, 0.0, 0.0, 0.0});
                pressures.insert(pressures.end(), {-pressure, 0.0, 0.0, 0.0, 0.0, 0.0});
            }
        }
        for (const std::uint32_t key : {1u, 2u}) PutResultCase({kStatic, key, "", "E"});
        PutArray(CasePath(kStatic, 1, ResultName::Displacement), 6, displacements);
        PutArray(CasePath(kStatic, 1, ResultName::ElementForce), 6, shears);
        PutArray(CasePath(kStatic, 2, ResultName::ElementForce), 6, pressures);
        UseResults();
    }
    /// How far local y and local z of a column point along X.
    std::pair<double, double> AxesOfColumn(std::size_t column) {
        const std::uint32_t no = results->Keys(ResultName::ElementMembers)[column];
        T_MEMB_D member;
        Records<CClassMemb>().Get(Records<CClassMemb>().GetMembKeyByNo(no), member);
        const double angle = doc->GetUnitCtrl()->ToBase(Unit::Angle, member.beta);
        const MemberAxes axes = TurnedAbout(AxesOfLine({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}), angle);
        return {axes.y[0], axes.z[0]};
    }
    double At(int story, const char* column) const { return NumberOf(rows[static_cast<std::size_t>(story)], column); }
    /// Place in a list of records of a row of the table.
    std::size_t RecordOf(std::size_t row) const { return rows.size() - 1 - row; }

    std::vector<CsvRow> rows;
    std::vector<int> storyOfColumn;
};

TEST_F(DesignVerification, ConcreteBuildingOfThreeStoreys) {
    VerificationRecord record(
        "rc_building_3story_design",
        "Drifts, stability coefficients and stiffness ratios of a published seismic design in inches and kips. The "
        "displacements, shears and gravity loads of the designer are the input; the services of stories find what the "
        "design found from them. The analysis itself is not compared: the design stands on another model.");
    const CPostCtrl control = Control();
    const CStoryResultPost service(control);
    std::vector<T_STDFT_D> drifts;
    std::vector<T_STBCF_D> coefficients;
    std::vector<T_STSIC_D> ratios;
    ASSERT_TRUE(service.GetDFT(kStatic, 1, drifts));
    ASSERT_TRUE(service.GetStbCoeff(kStatic, 1, coefficients));
    ASSERT_TRUE(service.GetSIC(kStatic, 1, ratios));
    ASSERT_EQ(drifts.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const CsvRow& row = rows[i];
        const std::string story = " of story " + row.at("story");
        const T_STDFT_POINT& point = drifts[RecordOf(i)].part[0].maximum;
        const T_STBCF_PART& part = coefficients[RecordOf(i)].part[0];
        const auto exact = [&](const std::string& column, double ours) {
            record.Value(column + story, ours, NumberOf(row, column), 1.0e-8);
        };
        const auto printed = [&](const std::string& column, double ours) {
            record.Within(column + story, ours, NumberOf(row, column), 5.0e-4);
        };
        exact("height_in", drifts[RecordOf(i)].head.height);
        exact("story_shear_kip", part.shear);
        exact("gravity_load_above_kip", part.verticalLoad);
        exact("elastic_drift_in", point.drift);
        exact("inelastic_drift_in", point.modified);
        exact("published_inelastic_drift_in", point.modified);
        printed("drift_ratio_pct", 100.0 * point.ratio);
        printed("published_drift_ratio_pct", 100.0 * point.ratio);
        printed("stability_coefficient", part.theta[0]);
        printed("published_stability_coefficient", part.theta[0]);
        EXPECT_EQ(service.GetAllowDrftRatio() > point.ratio ? "pass" : "fail", row.at("check"));
        EXPECT_NEAR(drifts[RecordOf(i)].part[0].center.drift, point.drift, 1e-9) << "the floors are rigid";
        EXPECT_NEAR(part.limit, 0.0909, 5e-5);  // 0.5 / (1 * 5.5)
    }
    const T_STSIC_BLOCK& block = ratios[RecordOf(0)].part[0].method[DriftMethod::Maximum];
    record.Within("ratio_to_story_above of story 1", block.angleRatio, NumberOf(rows[0], "ratio_to_story_above"),
                  5.0e-4);
    record.Within("published_ratio_to_story_above of story 1", block.angleRatio,
                  NumberOf(rows[0], "published_ratio_to_story_above"), 5.0e-4);
    EXPECT_EQ(block.angleStatus, StoryStatus::Regular);
    record.Finish();
}

}  // namespace
}  // namespace zt
