#pragma once

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velda_base/host/headless_host.h"
#include "verification/csv_table.h"
#include "zt_anl/store_results.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/exchange/model_exchange.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/pont.h"
#include "zt_db/records/swgt.h"
#include "zt_script/published_building.h"
#include "zt_tb/post/tb_post_view.h"

namespace zt {

/// What a column of figures measures.
enum class Measure { Number, Length, Force, Moment };

/// A column of figures and the column of a table that shows them.
struct PublishedColumn {
    std::string figure{};  ///< without the unit behind its name
    std::string title{};   ///< without unit
    Measure measure = Measure::Number;
    int occurrence = 0;  ///< of columns with equal titles
};

/// Half of the last digit of a figure of which so many digits count.
inline double HalfDigit(double figure, int digits) {
    if (figure == 0.0) return 0.0;
    return 0.5 * std::pow(10.0, std::floor(std::log10(std::abs(figure))) + 1.0 - digits);
}
/// Half of the last digit of a number as it is shown.
inline double HalfPlace(const std::string& shown) {
    const std::size_t point = shown.find('.');
    return 0.5 * std::pow(10.0, point == std::string::npos ? 0.0 : -static_cast<double>(shown.size() - point - 1));
}

/// Tables of a published building, read as a user reads them: by the titles of their columns and the texts of their
/// cells, in units that are chosen.
class PublishedTables : public testing::Test {
protected:
    PublishedTables() { doc->MakeCurrent(); }

    static std::filesystem::path DataFolder() { return std::filesystem::path(ZT_SOURCE_DIR) / "tests/data"; }
    CDataBase& Db() { return *doc->GetMDBCtrl()->GetCurrentDB(); }
    template <class Class>
    void Put(std::uint32_t key, const typename Class::Record& record) {
        ASSERT_TRUE(Db().GetClass<Class>()->TR_Add(key, record)) << Db().GetLastReason();
    }

    void Import(const PublishedBuilding& imported) {
        building = imported;
        ExchangeReport report;
        ASSERT_TRUE(ImportModel(Db(), DataFolder() / "exchange" / building.name, {}, report)) << report.Text();
        Put<CClassActl>(T_ACTL_D::kKey, building.control);
        if (building.hasSelfWeight) Put<CClassSwgt>(1, {.stld = 1, .z = -1.0});
        ForEachInOrder<CClassPont>(Db(), [&](std::uint32_t key, const T_PONT_D& node) {
            nodes[node.name.empty() ? std::to_string(node.no) : node.name] = {key, node.no};
        });
        ForEachInOrder<CClassMemb>(Db(), [&](std::uint32_t, const T_MEMB_D& member) {
            members[{member.nodes.front(), member.nodes.back()}] = member;
        });
    }
    void Solve() {
        AnalysisResult result;
        AnalysisLog log;
        const velda::Outcome outcome = Analyse(Db(), OptionsOf(Db()), result, log);
        ASSERT_TRUE(outcome) << outcome.Reason();
        ASSERT_TRUE(StoreResults(result, *doc));
    }
    std::vector<CsvRow> Figures(const std::string& file) const {
        return ReadTable(DataFolder() / "analysis" / building.name / file);
    }
    std::uint32_t NumberOfNode(const std::string& name) const { return nodes.at(name).no; }
    /// The member of a name in the table of members, by its nodes: names may have become other numbers.
    const T_MEMB_D& MemberOf(const std::string& name) {
        if (memberNodes.empty()) {
            for (const CsvRow& row : ReadTable(DataFolder() / "exchange" / building.name / "members.csv")) {
                memberNodes[row.at("member")] = {nodes.at(row.at("node_i")).key, nodes.at(row.at("node_j")).key};
            }
        }
        return members.at(memberNodes.at(name));
    }

    /// Whether a column of the forces of a member has the other sign there.
    bool IsTurned(const T_MEMB_D& member, const PublishedColumn& column) const {
        const bool isAcross = column.figure[0] != 'N' && column.figure[0] != 'T';
        return building.turnsVerticals && isAcross && member.type == MembType::Column;
    }

    // ---- what is shown

    /// Moments have a length unit of their own where the model has another one.
    void ShowIn(const std::string& force, const std::string& length, const std::string& modelLength) {
        T_UNIT_INDEX units;
        doc->GetUnitCtrl()->GetUnitIndexCurrent(units);
        units.force = CUnitCtrl::FindChoice(UnitQuantity::Force, force);
        units.length = CUnitCtrl::FindChoice(UnitQuantity::Length, length);
        units.modelLength = CUnitCtrl::FindChoice(UnitQuantity::ModelLength, modelLength);
        ASSERT_EQ(1, doc->GetUnitCtrl()->SetUnitIndexCurrent(units, 1))
            << force << ", " << length << ", " << modelLength;
        shownForce = force;
        armLength = length;
        shownLength = modelLength;
    }
    void ShowIn(const std::string& force, const std::string& length) { ShowIn(force, length, length); }
    /// Opens the table of an operation with one of its tabs in front; what it could show.
    TB_ACTIVE_PARAM Open(std::string_view operation, int tab = 0) {
        doc->SetModePost();
        view = std::make_unique<CTBPostView>();
        EXPECT_TRUE(view->AddTable(operation));
        view->SetCurrentTab(tab);
        TB_ACTIVE_PARAM param;
        EXPECT_TRUE(view->GetActivation(param));
        return param;
    }
    /// Shows one of the load cases that a table offers.
    const velda::CTBCore& Show(TB_ACTIVE_PARAM param, const std::string& loadCase) {
        const auto& names = param.loads.names;
        const auto found = std::find(names.begin(), names.end(), loadCase);
        EXPECT_NE(found, names.end()) << loadCase << " is not offered";
        if (found != names.end()) {
            param.loads.selected = {param.loads.all[static_cast<std::size_t>(found - names.begin())]};
        }
        view->Activate(param);
        return *view->GetActiveCore();
    }

    /// A measure of figures in what is shown.
    double Factor(Measure measure) const {
        const double figureLength = SizeOf(UnitQuantity::Length, building.length);
        const double force = SizeOf(UnitQuantity::Force, building.force) / SizeOf(UnitQuantity::Force, shownForce);
        switch (measure) {
            case Measure::Length: return figureLength / SizeOf(UnitQuantity::Length, shownLength);
            case Measure::Force: return force;
            case Measure::Moment: return force * figureLength / SizeOf(UnitQuantity::Length, armLength);
            default: return 1.0;
        }
    }
    std::string TitleOf(const PublishedColumn& column) const {
        switch (column.measure) {
            case Measure::Length: return column.title + " (" + shownLength + ")";
            case Measure::Force: return column.title + " (" + shownForce + ")";
            case Measure::Moment: return column.title + " (" + shownForce + "·" + armLength + ")";
            default: return column.title;
        }
    }
    /// The name of a column of figures, with its unit.
    std::string FigureOf(const PublishedColumn& column) const {
        switch (column.measure) {
            case Measure::Length: return column.figure + "_" + building.length;
            case Measure::Force: return column.figure + "_" + building.force;
            case Measure::Moment: return column.figure + "_" + building.moment;
            default: return column.figure;
        }
    }
    /// The place of a column by its title; 0 for none.
    static int ColumnOf(const velda::CTBCore& grid, const std::string& title, int occurrence = 0) {
        for (int col = 1; col <= grid.GetColCount(); ++col) {
            const bool isIt = grid.Header().ColumnTitle(static_cast<std::uint32_t>(col - 1)) == title;
            if (isIt && occurrence-- == 0) return col;
        }
        return 0;
    }
    /// The first row whose first column has a number; 0 for none.
    static int RowOf(const velda::CTBCore& grid, std::uint32_t number) {
        for (int row = 1; row <= grid.RowCount(); ++row) {
            if (grid.GetValueRowCol(row, 1) == std::to_string(number)) return row;
        }
        return 0;
    }
    /// The row of a story; 0 for none.
    static int RowOfStory(const velda::CTBCore& grid, const std::string& story) {
        const int col = ColumnOf(grid, "Story");
        for (int row = 1; row <= grid.RowCount() && col > 0; ++row) {
            if (grid.GetValueRowCol(row, col) == story) return row;
        }
        return 0;
    }
    static std::string Shown(const velda::CTBCore& grid, int row, const std::string& title, int occurrence = 0) {
        const int col = ColumnOf(grid, title, occurrence);
        EXPECT_GT(col, 0) << title;
        return col > 0 ? grid.GetShownText(row, col) : std::string();
    }
    /// Holds a number that is shown against a figure, both in the same unit: to the coarser of their last digits.
    static void ExpectShown(const std::string& shown, double figure, double tolerance, const std::string& where) {
        ASSERT_FALSE(shown.empty()) << where;
        // What doubles of this size cannot tell.
        const double unseen = 4.0 * std::numeric_limits<double>::epsilon() * std::abs(figure);
        EXPECT_NEAR(std::stod(shown), figure, std::max(HalfPlace(shown), tolerance) + unseen) << where;
    }
    /// Holds the cells of a row against the figures of a row; blank figures were not published. `sense` is what our
    /// sign of a column is to theirs.
    template <class Sense>
    void CompareRow(const velda::CTBCore& grid, int row, const std::vector<PublishedColumn>& columns,
                    const CsvRow& figures, const std::string& where, Sense sense) {
        for (const PublishedColumn& column : columns) {
            const auto found = figures.find(FigureOf(column));
            if (found == figures.end() || found->second.empty()) continue;
            const double factor = Factor(column.measure);
            const double figure = std::stod(found->second);
            const double tolerance =
                std::max(HalfDigit(figure, building.digits), building.share * greatest[column.measure]);
            ExpectShown(Shown(grid, row, TitleOf(column), column.occurrence), sense(column) * factor * figure,
                        factor * tolerance, where + ", " + found->first);
            ++compared;
        }
    }
    /// Finds the greatest figure of each kind, which shares are of.
    void FindGreatest(const std::vector<CsvRow>& figures, const std::vector<PublishedColumn>& columns) {
        for (const PublishedColumn& column : columns) {
            for (const CsvRow& row : figures) {
                const auto found = row.find(FigureOf(column));
                if (found == row.end() || found->second.empty()) continue;
                double& most = greatest[column.measure];
                most = std::max(most, std::abs(std::stod(found->second)));
            }
        }
    }

    struct NodeName {
        std::uint32_t key = 0;
        std::uint32_t no = 0;
    };

    velda::HeadlessHost host;
    velda::UseHost use{host};
    std::unique_ptr<CDBDoc> doc = CDBDoc::New();
    std::unique_ptr<CTBPostView> view;
    PublishedBuilding building;
    std::map<std::string, NodeName> nodes;
    std::map<std::pair<std::uint32_t, std::uint32_t>, T_MEMB_D> members;  ///< by their end nodes
    std::map<std::string, std::pair<std::uint32_t, std::uint32_t>> memberNodes;
    std::map<Measure, double> greatest;
    std::size_t compared = 0;  ///< figures
    std::string shownForce;
    std::string shownLength;  ///< of lengths
    std::string armLength;    ///< in moments

private:
    static double SizeOf(UnitQuantity quantity, const std::string& label) {
        int count = 0;
        const UnitChoice* choices = CUnitCtrl::Choices(quantity, count);
        return choices[CUnitCtrl::FindChoice(quantity, label)].size;
    }
};

/// A table of figures, and how it is shown.
struct TableOfFigures {
    std::string name;
    PublishedBuilding (*building)();
    std::string file;
    std::string force;
    std::string length;
    std::size_t figures;  ///< how many are compared, so that none is passed over
    int tab = 0;
    std::string modelLength{};  ///< empty for the same as the length
};
inline void PrintTo(const TableOfFigures& table, std::ostream* stream) { *stream << table.name; }
inline std::string NameOf(const testing::TestParamInfo<TableOfFigures>& info) { return info.param.name; }

/// Tables of a building that is analysed as it was published.
class PublishedTablesOf : public PublishedTables, public testing::WithParamInterface<TableOfFigures> {
protected:
    void SetUp() override {
        Import(GetParam().building());
        Complete();
        Solve();
        const std::string& length = GetParam().length;
        ShowIn(GetParam().force, length, GetParam().modelLength.empty() ? length : GetParam().modelLength);
    }
    /// Adds to the model what a test needs.
    virtual void Complete() {}
};

}  // namespace zt
