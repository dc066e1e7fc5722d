#include <cmath>

#include "velda_base/host/headless_host.h"
#include "verification/csv_table.h"
#include "zt_anl/store_results.h"
#include "zt_db/exchange/model_exchange.h"
#include "zt_tb/post/tb_post_view.h"

namespace zt {
namespace {

namespace fs = std::filesystem;
const fs::path kFigures = fs::path(ZT_SOURCE_DIR) / "tests/data/analysis/braced_frame_4story_3d";

/// The braced frame, analysed.
class PublishedTables : public testing::Test {
protected:
    PublishedTables() {
        doc->MakeCurrent();
        CDataBase& model = *doc->GetMDBCtrl()->GetCurrentDB();
        ExchangeReport report;
        EXPECT_TRUE(ImportModel(model, fs::path(ZT_SOURCE_DIR) / "samples/braced_frame_4_storeys", {}, report));
        AnalysisResult result;
        AnalysisLog log;
        EXPECT_TRUE(Analyse(model, OptionsOf(model), result, log));
        EXPECT_TRUE(StoreResults(result, *doc));
    }

    /// The table of an operation with one load case.
    const velda::CTBCore& Show(std::string_view operation, const std::string& loadCase) {
        EXPECT_TRUE(view.AddTable(operation));
        TB_ACTIVE_PARAM param;
        EXPECT_TRUE(view.GetActivation(param));
        const auto& names = param.loads.names;
        const auto found = std::find(names.begin(), names.end(), loadCase) - names.begin();
        param.loads.selected = {param.loads.all.at(static_cast<std::size_t>(found))};
        view.Activate(param);
        return *view.GetActiveCore();
    }
    /// The row whose first column has a text; 0 for none.
    static int RowOf(const velda::CTBCore& grid, const std::string& text) {
        for (int row = 1; row <= grid.RowCount(); ++row) {
            if (grid.GetValueRowCol(row, 1) == text) return row;
        }
        return 0;
    }
    /// Holds six neighbouring cells of each row against a table of published values, to the digits that are shown.
    static void Compare(const velda::CTBCore& grid, const fs::path& table, const std::array<const char*, 6>& columns) {
        constexpr double kLastDigit = 1.0e-6;
        for (const CsvRow& published : ReadTable(kFigures / table)) {
            const int row = RowOf(grid, published.at("node"));
            ASSERT_GT(row, 0) << published.at("node");
            for (int at = 0; at < 6; ++at) {
                const double shown = std::stod(grid.GetShownText(row, 3 + at));
                EXPECT_NEAR(NumberOf(published, columns[static_cast<std::size_t>(at)]), shown, 0.5001 * kLastDigit)
                    << "node " << published.at("node") << ", " << columns[static_cast<std::size_t>(at)];
            }
        }
    }

    velda::HeadlessHost host;
    velda::UseHost use{host};
    std::unique_ptr<CDBDoc> doc = CDBDoc::New();
    CTBPostView view;
};

TEST_F(PublishedTables, DisplacementsAgreeToTheShownDigits) {
    const velda::CTBCore& grid = Show("AddDispView", "LATX");
    Compare(grid, "results_latx_displacements.csv", {"ux_m", "uy_m", "uz_m", "rx_rad", "ry_rad", "rz_rad"});
}

TEST_F(PublishedTables, DisplacementsInMillimetresAgreeToTheShownDigits) {
    T_UNIT_INDEX units;
    doc->GetUnitCtrl()->GetUnitIndexCurrent(units);
    units.modelLength = CUnitCtrl::FindChoice(UnitQuantity::ModelLength, "mm");
    units.length = CUnitCtrl::FindChoice(UnitQuantity::Length, "mm");
    doc->GetUnitCtrl()->SetUnitIndexCurrent(units, 1);
    const velda::CTBCore& grid = Show("AddDispView", "LATY");
    EXPECT_EQ("DX (mm)", grid.Header().ColumnTitle(2));
    for (const CsvRow& published : ReadTable(kFigures / "results_laty_displacements.csv")) {
        const double shown = std::stod(grid.GetShownText(RowOf(grid, published.at("node")), 4));
        EXPECT_NEAR(1000.0 * NumberOf(published, "uy_m"), shown, 0.51e-6) << published.at("node");
    }
}

TEST_F(PublishedTables, ReactionsAgreeToTheShownDigits) {
    const velda::CTBCore& grid = Show("AddReacView", "LATX");
    Compare(grid, "results_latx_reactions.csv", {"Fx_kN", "Fy_kN", "Fz_kN", "Mx_kNm", "My_kNm", "Mz_kNm"});
    // 1 + 2 + 3 + 4 kN.
    EXPECT_EQ("-10.000000", grid.GetShownText(grid.RowCount(), 2));
    EXPECT_EQ("LATX", grid.GetShownText(grid.RowCount(), 1));
}

TEST_F(PublishedTables, StoryDriftsAgreeToTheShownDigits) {
    // The load case is no wind and no earthquake, so that the table does not offer it.
    view.AddStorDispView();
    TB_ACTIVE_PARAM param{.hasLoads = true};
    param.loads.selected = {{.key = 1}};
    view.Activate(param);
    const velda::CTBCore& grid = *view.GetActiveCore();
    double below = 0.0;
    // The table has the topmost story first.
    const std::vector<CsvRow> published = ReadTable(kFigures / "results_latx_story_drifts.csv");
    for (std::size_t story = 0; story < published.size(); ++story) {
        const int row = grid.RowCount() - static_cast<int>(story);
        const double shown = std::stod(grid.GetValueRowCol(row, 7));
        EXPECT_NEAR(NumberOf(published[story], "max_drift_m"), shown - below, 1.0e-9) << story + 1;
        below = shown;
    }
}

}  // namespace
}  // namespace zt
