#include <fstream>
#include <iomanip>
#include <sstream>

#include "zt_db/post/result_seed.h"
#include "zt_db/test_support.h"
#include "zt_script/published_tables_fixture.h"
#include "zt_tb/post/story/tb_post_st_drft.h"

namespace zt {
namespace {

// ---- stories

class PublishedStories : public PublishedTablesOf {
protected:
    /// Tables of stories offer wind and earthquakes only.
    void Complete() override {
        auto& cases = *Db().GetClass<CClassStld>();
        std::vector<std::uint32_t> keys;
        cases.GetKeyList(keys);
        for (const std::uint32_t key : keys) {
            T_STLD_D loadCase;
            cases.Get(key, loadCase);
            loadCase.type = "W";
            ASSERT_TRUE(cases.TR_Modify(key, key, loadCase)) << Db().GetLastReason();
        }
    }
};

TEST_P(PublishedStories, DisplacementsAgreeToTheShownDigits) {
    const std::vector<CsvRow> figures = Figures(GetParam().file);
    const velda::CTBCore& grid = Show(Open("AddStorDispView", GetParam().tab), figures.front().at("load_case"));
    const double factor = Factor(Measure::Length);
    double most = 0.0;
    double average = 0.0;
    double tolerance = 0.0;
    for (const CsvRow& row : figures) {
        // Their drifts add up to displacements; so do what these were rounded by.
        most += factor * NumberOf(row, "max_drift_m");
        average += factor * NumberOf(row, "avg_drift_m");
        tolerance += factor * HalfDigit(NumberOf(row, "max_drift_m"), building.digits);
        const int at = RowOfStory(grid, row.at("story"));
        ASSERT_GT(at, 0) << row.at("story");
        const std::string where = "story " + row.at("story");
        ExpectShown(Shown(grid, at, "Maximum Displacement (" + shownLength + ")"), most, tolerance, where);
        ExpectShown(Shown(grid, at, "Average Displacement (" + shownLength + ")"), average, tolerance, where);
        ExpectShown(Shown(grid, at, "Max./Avg. Ratio"), NumberOf(row, "max_over_avg"), 0.0, where);
    }
}

TEST_P(PublishedStories, DriftsAgreeToTheShownDigits) {
    const std::vector<PublishedColumn> columns{{"height", "Story Height", Measure::Length},
                                               {"max_drift", "Story Drift", Measure::Length},
                                               {"max_drift", "Modified Story Drift", Measure::Length},
                                               {"drift_ratio_max", "Story Drift Ratio"},
                                               {"avg_drift", "Story Drift", Measure::Length, 1}};
    const std::vector<CsvRow> figures = Figures(GetParam().file);
    const velda::CTBCore& grid = Show(Open("AddStorDrftAngView"), figures.front().at("load_case"));
    for (const CsvRow& row : figures) {
        const int at = RowOfStory(grid, row.at("story"));
        ASSERT_GT(at, 0) << row.at("story");
        CompareRow(grid, at, columns, row, "story " + row.at("story"), [](const PublishedColumn&) { return 1.0; });
    }
    EXPECT_EQ(GetParam().figures, compared);
}

INSTANTIATE_TEST_SUITE_P(
    Buildings, PublishedStories,
    testing::Values(TableOfFigures{"BracedFrameX", BracedFrame, "results_latx_story_drifts.csv", "kN", "m", 20, 0},
                    TableOfFigures{"BracedFrameXInMillimetres", BracedFrame, "results_latx_story_drifts.csv", "kN",
                                   "mm", 20, 0},
                    TableOfFigures{"BracedFrameY", BracedFrame, "results_laty_story_drifts.csv", "kN", "mm", 20, 1},
                    TableOfFigures{"BracedFrameYInAModelInMillimetres", BracedFrame, "results_laty_story_drifts.csv",
                                   "kN", "m", 20, 1, "mm"},
                    TableOfFigures{"SteelFrame", SteelFrame, "results_story_drifts.csv", "kN", "mm", 15, 0},
                    TableOfFigures{"ConcreteFrame", ConcreteFrame, "results_story_drifts.csv", "kN", "mm", 15, 0}),
    NameOf);

// ---- a time history

/// The steel frame under the record of El Centro.
class PublishedHistory : public PublishedTables {
protected:
    void SetUp() override {
        Import(SteelFrame());
        building.digits = 6;
        T_THFC_D function{.name = "El Centro"};
        for (const CsvRow& row : ReadTable(DataFolder() / "analysis/ground_motion_elcentro/elcentro_1940_ns.csv")) {
            function.points.push_back({NumberOf(row, "time_s"), NumberOf(row, "acc_g")});
        }
        Put<CClassThfc>(1, function);
        T_THLC_D history{.name = "El Centro", .damping = 0.02, .step = 0.02, .duration = 31.18};
        history.items.push_back({.thfc = 1});
        Put<CClassThlc>(1, history);
        // Tables of nodes offer a history in combinations only.
        Put<CClassLcom>(1, {.name = "TH", .items = {{LoadCaseKind::TimeHistory, 1, 1.0}}});
        Solve();
        ShowIn("kN", "mm");
        for (const CsvRow& row : Figures("results_time_history_peaks.csv")) peaks[row.at("quantity")] = row;
    }
    void ExpectPeak(const std::string& shown, const std::string& quantity, Measure measure) {
        const double figure = NumberOf(peaks.at(quantity), "peak_abs");
        const double factor = Factor(measure);
        ExpectShown(shown[0] == '-' ? shown.substr(1) : shown, factor * figure,
                    factor * HalfDigit(figure, building.digits), quantity);
    }
    /// Of two numbers that are shown, that of greater magnitude.
    static std::string Governing(const std::string& a, const std::string& b) {
        return std::abs(std::stod(a)) < std::abs(std::stod(b)) ? b : a;
    }

    std::map<std::string, CsvRow> peaks;
};

TEST_F(PublishedHistory, PeaksOfDisplacementsAgreeToTheShownDigits) {
    std::map<std::string, std::string> shown;
    for (const char* extreme : {"TH(max)", "TH(min)"}) {
        const velda::CTBCore& grid = Show(Open("AddDispView"), extreme);
        for (const std::string floor : {"1", "2", "3"}) {
            const std::string text = Shown(grid, RowOf(grid, NumberOfNode("N1" + floor)), "DX (mm)");
            shown["u" + floor] = shown.contains("u" + floor) ? Governing(shown["u" + floor], text) : text;
        }
    }
    for (const auto& [quantity, text] : shown) ExpectPeak(text, quantity, Measure::Length);
}

TEST_F(PublishedHistory, PeaksOfDriftsAndTheirTimesAgreeToTheShownDigits) {
    const velda::CTBCore& grid = Show(Open("AddStorDrftAngTHView"), "El Centro(TH:max)");
    for (const std::string story : {"1", "2", "3"}) {
        const int at = RowOfStory(grid, story);
        ASSERT_GT(at, 0) << story;
        ExpectPeak(Shown(grid, at, "Story Drift (mm)"), "drift" + story, Measure::Length);
        ExpectShown(Shown(grid, at, "Time (sec)"), NumberOf(peaks.at("drift" + story), "time_s"), 0.0, story);
    }
}

TEST_F(PublishedHistory, ThePeakOfTheBaseShearAgreesToTheShownDigits) {
    std::string shown = "0";
    for (const char* extreme : {"TH(max)", "TH(min)"}) {
        const velda::CTBCore& grid = Show(Open("AddReacView"), extreme);
        shown = Governing(shown, grid.GetShownText(grid.RowCount(), 2));
    }
    ExpectPeak(shown, "base_shear", Measure::Force);
}

// ---- results that are told

/// Buildings whose published displacements are not those of a linear analysis: the tables stand on these.
class PublishedSeeds : public PublishedTables {
protected:
    void Seed(const std::string& text) {
        const TemporaryFolder folder;
        std::ofstream(folder.File("seed.txt")) << text;
        const velda::Outcome outcome = SeedResults(*doc, folder.File("seed.txt"));
        ASSERT_TRUE(outcome) << outcome.Reason();
    }
};

TEST_F(PublishedSeeds, TheDisplacementsOfADesignGiveItsDisplacementsAndDrifts) {
    Import({.name = "rc_building_3story_design", .force = "kip", .length = "in", .digits = 6, .control = PlainBeams()});
    ShowIn("kip", "in");
    Put<CClassStld>(1, {.name = "EX", .type = "E"});
    Put<CClassRstp>(1, {.amplification = 5.5, .allowableRatio = 0.02, .verticalLoads = {}, .betas = {}});
    const std::vector<CsvRow> figures = Figures("results_drift_and_stability.csv");
    std::string seed = "units current\ncase static 1\n";
    for (const CsvRow& row : figures) {
        // Names of nodes tell their story in two digits, behind N or, at centres of mass, CM.
        for (const auto& [name, node] : nodes) {
            if (name.substr(name[0] == 'N' ? 1 : 2, 2) != "0" + row.at("story")) continue;
            seed += "displacement EX " + std::to_string(node.no) + " " + row.at("displacement_in") + " 0 0 0 0 0\n";
        }
    }
    Seed(seed);

    const std::vector<PublishedColumn> displacements{{"height", "Story Height", Measure::Length},
                                                     {"displacement", "Maximum Displacement", Measure::Length},
                                                     {"displacement", "Average Displacement", Measure::Length}};
    const std::vector<PublishedColumn> drifts{{"height", "Story Height", Measure::Length},
                                              {"elastic_drift", "Story Drift", Measure::Length},
                                              {"published_inelastic_drift", "Modified Story Drift", Measure::Length}};
    const auto equal = [](const PublishedColumn&) { return 1.0; };
    const velda::CTBCore& moved = Show(Open("AddStorDispView"), "EX");
    for (const CsvRow& row : figures) {
        CompareRow(moved, RowOfStory(moved, row.at("story")), displacements, row, "story " + row.at("story"), equal);
    }
    const velda::CTBCore& drifting = Show(Open("AddStorDrftAngView"), "EX");
    for (const CsvRow& row : figures) {
        const int at = RowOfStory(drifting, row.at("story"));
        const std::string where = "story " + row.at("story");
        CompareRow(drifting, at, drifts, row, where, equal);
        const double ratio = NumberOf(row, "published_drift_ratio_pct") / 100.0;
        ExpectShown(Shown(drifting, at, "Story Drift Ratio"), ratio, HalfDigit(ratio, 4), where);
        ExpectShown(Shown(drifting, at, "Allowable Ratio"), NumberOf(row, "limit_pct") / 100.0, 0.0, where);
        EXPECT_EQ("pass", row.at("check"));
        EXPECT_EQ("OK", Shown(drifting, at, "Remark")) << where;
    }
    EXPECT_EQ(18u, compared);
}

TEST_F(PublishedSeeds, TheStepsOfAPushoverShowTheirDrifts) {
    Import({.name = "rc_plane_frame_7story_pushover", .digits = 6, .control = PlainBeams()});
    ShowIn("kN", "mm");
    constexpr double kHeight = 3.0;
    constexpr int kStories = 7;
    const std::vector<CsvRow> figures = Figures("results_pushover_story_drifts.csv");
    const auto driftOf = [&](std::size_t step, int story) {
        const std::string above = "u" + std::to_string(story) + "_m";
        const double below = story == 1 ? 0.0 : NumberOf(figures[step], "u" + std::to_string(story - 1) + "_m");
        return NumberOf(figures[step], above) - below;
    };
    const auto ratioOf = [&](std::size_t step, int story) {
        return figures[step].at("drift" + std::to_string(story) + "_ratio");
    };
    const std::vector<std::int16_t> steps{1, 40, 107};
    std::string seed = "case pushover 1\n";
    for (const std::int16_t step : steps) {
        const auto at = static_cast<std::size_t>(step);
        seed += "story DFT4PV/" + std::to_string(step) + " pushover_1\n";
        for (int story = kStories; story > 0; --story) {
            std::ostringstream drift;
            drift << std::setprecision(15) << driftOf(at, story);
            seed += "part1_inUse=1 part1_drift=" + drift.str() + " part1_angle=" + ratioOf(at, story) + "\n";
        }
    }
    Seed(seed);

    TB_ACTIVE_PARAM param = Open("AddPSOVStorDrftAngView");
    param.steps.selected = steps;
    ASSERT_EQ(1u, param.loads.names.size());
    const velda::CTBCore& grid = Show(param, param.loads.names.front());
    auto* source = dynamic_cast<CTBPostStDrftBase*>(PostSourceOf(&grid));
    ASSERT_NE(nullptr, source);
    constexpr double kLimit = 0.01;
    source->SetLimits({{{{.denominator = 1.0 / kLimit}, {.denominator = 1.0 / kLimit}}}});
    // A line stands above the records, which stand story by story from the top, each with its steps.
    ASSERT_EQ(1 + kStories * static_cast<int>(steps.size()), grid.RowCount());
    for (int row = 2; row <= grid.RowCount(); ++row) {
        const int story = std::stoi(Shown(grid, row, "Story"));
        const auto step = static_cast<std::size_t>(std::stoul(Shown(grid, row, "Step")));
        const std::string where = "story " + std::to_string(story) + ", step " + std::to_string(step);
        ExpectShown(Shown(grid, row, "Story Height (mm)"), 1000.0 * kHeight, 0.0, where);
        // Of their displacements seven digits count.
        ExpectShown(Shown(grid, row, "Story Drift (mm)"), 1000.0 * driftOf(step, story), 0.0, where);
        const std::string angle = Shown(grid, row, "Story Drift Angle");
        ASSERT_EQ("1/", angle.substr(0, 2)) << where;
        ExpectShown(angle.substr(2), 1.0 / std::stod(ratioOf(step, story)), 0.0, where);
        EXPECT_EQ(std::stod(ratioOf(step, story)) > kLimit ? "NG" : "OK", Shown(grid, row, "Remark")) << where;
    }
}

}  // namespace
}  // namespace zt
