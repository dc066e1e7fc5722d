#include <filesystem>
#include <fstream>
#include <sstream>

#include "zt_db/exchange/model_exchange.h"
#include "zt_db/post/story/story_fixture.h"

namespace zt {
namespace {

constexpr int kStatic = LoadCaseKind::Static;
using Rows = std::vector<std::map<std::string, std::string>>;

/// The rows of a table of results, by the names of its columns.
Rows ReadRows(const std::filesystem::path& path) {
    std::ifstream file(path);
    EXPECT_TRUE(file) << path;
    const auto cellsOf = [](std::string line) {
        if (line.ends_with('\r')) line.pop_back();
        std::vector<std::string> cells;
        std::istringstream stream(line);
        for (std::string cell; std::getline(stream, cell, ',');) cells.push_back(cell);
        return cells;
    };
    std::string line;
    std::getline(file, line);
    const std::vector<std::string> names = cellsOf(line);
    Rows rows;
    while (std::getline(file, line)) {
        const std::vector<std::string> cells = cellsOf(line);
        auto& row = rows.emplace_back();
        for (std::size_t i = 0; i < cells.size(); ++i) row[names[i]] = cells[i];
    }
    EXPECT_FALSE(rows.empty()) << path;
    return rows;
}

double Number(const Rows::value_type& row, const char* column) { return std::stod(row.at(column)); }

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
        for (const auto& row : ReadRows(folder / table)) {
            const std::size_t place = placeOfNode.at(row.at("node"));
            values[6 * place] = Number(row, "ux_m");
            values[6 * place + 1] = Number(row, "uy_m");
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
        const Rows rows = ReadRows(folder / drifts);
        ASSERT_EQ(records.size(), rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::size_t at = rows.size() - 1 - i;
            const T_STDFT_POINT& point = records[at].part[direction].maximum;
            EXPECT_NEAR(records[at].head.height, Number(rows[i], "height_m"), 1e-9);
            // Displacements are told with eight digits.
            EXPECT_NEAR(point.drift, Number(rows[i], "max_drift_m"), 2e-9) << drifts << ' ' << i;
            EXPECT_NEAR(torsion[at].part[direction].averageDrift, Number(rows[i], "avg_drift_m"), 2e-9);
            EXPECT_NEAR(torsion[at].part[direction].driftRatio, Number(rows[i], "max_over_avg"), 1e-9);
            EXPECT_NEAR(point.angle, Number(rows[i], "drift_ratio_max"), 1e-8);
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
class PublishedDesign : public PublishedStories {
protected:
    static constexpr double kInchInMetres = 0.0254;
    static constexpr double kKip = 4448.2216152605;

    PublishedDesign() {
        Load("rc_building_3story_design");
        rows = ReadRows(folder / "results_drift_and_stability.csv");
        for (const std::uint32_t key : {1u, 2u}) {
            if (!Records<CClassStld>().Exist(key)) Add<CClassStld>(key, {.name = std::to_string(key), .type = "E"});
        }
        Add<CClassRstp>(1, {.amplification = Number(rows[0], "Cd"),
                            .importance = 1.0,
                            .allowableRatio = 0.01 * Number(rows[0], "limit_pct"),
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
    double At(int story, const char* column) const { return Number(rows[static_cast<std::size_t>(story)], column); }
    /// Place in a list of records of a row of the table.
    std::size_t RecordOf(std::size_t row) const { return rows.size() - 1 - row; }

    Rows rows;
    std::vector<int> storyOfColumn;
};

TEST_F(PublishedDesign, DriftsAndTheirRatiosAreThePublishedOnes) {
    const CPostCtrl control = Control();
    const CStoryResultPost service(control);
    std::vector<T_STDFT_D> records;
    ASSERT_TRUE(service.GetDFT(kStatic, 1, records));
    ASSERT_EQ(records.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const T_STDFT_D& record = records[RecordOf(i)];
        const T_STDFT_POINT& point = record.part[0].maximum;
        EXPECT_NEAR(record.head.height, Number(rows[i], "height_in"), 1e-9);
        EXPECT_NEAR(point.drift, Number(rows[i], "elastic_drift_in"), 1e-9);
        EXPECT_NEAR(point.modified, Number(rows[i], "inelastic_drift_in"), 1e-9);
        EXPECT_NEAR(point.modified, Number(rows[i], "published_inelastic_drift_in"), 1e-9);
        EXPECT_NEAR(100.0 * point.ratio, Number(rows[i], "drift_ratio_pct"), 5e-4);
        EXPECT_NEAR(100.0 * point.ratio, Number(rows[i], "published_drift_ratio_pct"), 5e-4);
        EXPECT_EQ(service.GetAllowDrftRatio() > point.ratio ? "pass" : "fail", rows[i].at("check"));
        EXPECT_NEAR(record.part[0].center.drift, point.drift, 1e-9) << "the floors are rigid";
    }
}

TEST_F(PublishedDesign, ShearsAndStabilityCoefficientsAreThePublishedOnes) {
    const CPostCtrl control = Control();
    std::vector<T_STBCF_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetStbCoeff(kStatic, 1, records));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const T_STBCF_PART& part = records[RecordOf(i)].part[0];
        EXPECT_NEAR(part.shear, Number(rows[i], "story_shear_kip"), 1e-9);
        EXPECT_NEAR(part.verticalLoad, Number(rows[i], "gravity_load_above_kip"), 1e-6);
        EXPECT_NEAR(part.theta[0], Number(rows[i], "stability_coefficient"), 5e-4);
        EXPECT_NEAR(part.theta[0], Number(rows[i], "published_stability_coefficient"), 5e-4);
        EXPECT_NEAR(part.limit, 0.0909, 5e-5);  // 0.5 / (1 * 5.5)
    }
}

TEST_F(PublishedDesign, TheRatioToTheStoryAboveIsThePublishedOne) {
    const CPostCtrl control = Control();
    std::vector<T_STSIC_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetSIC(kStatic, 1, records));
    const T_STSIC_BLOCK& block = records[RecordOf(0)].part[0].method[DriftMethod::Maximum];
    EXPECT_NEAR(block.angleRatio, Number(rows[0], "ratio_to_story_above"), 5e-4);
    EXPECT_NEAR(block.angleRatio, Number(rows[0], "published_ratio_to_story_above"), 5e-4);
    EXPECT_EQ(block.angleStatus, StoryStatus::Regular);
}

}  // namespace
}  // namespace zt
