#include "zt_script/published_tables_fixture.h"

namespace zt {
namespace {

// ---- nodes

const std::vector<PublishedColumn> kDisplacements{
    {"ux", "DX", Measure::Length},
    {"uy", "DY", Measure::Length},
    {"uz", "DZ", Measure::Length},
    {"rx_rad", "RX"},
    {"ry_rad", "RY"},
    {"rz_rad", "RZ"},
};
const std::vector<PublishedColumn> kReactions{
    {"Fx", "FX", Measure::Force},  {"Fy", "FY", Measure::Force},  {"Fz", "FZ", Measure::Force},
    {"Mx", "MX", Measure::Moment}, {"My", "MY", Measure::Moment}, {"Mz", "MZ", Measure::Moment},
};

class PublishedNodes : public PublishedTablesOf {
protected:
    void CompareNodes(std::string_view operation, const std::vector<PublishedColumn>& columns) {
        const std::vector<CsvRow> figures = Figures(GetParam().file);
        FindGreatest(figures, columns);
        const velda::CTBCore& grid = Show(Open(operation), figures.front().at("load_case"));
        for (const CsvRow& row : figures) {
            const int at = RowOf(grid, NumberOfNode(row.at("node")));
            ASSERT_GT(at, 0) << row.at("node");
            CompareRow(grid, at, columns, row, "node " + row.at("node"), [](const PublishedColumn&) { return 1.0; });
        }
        EXPECT_EQ(GetParam().figures, compared);
    }
};

class PublishedDisplacements : public PublishedNodes {};

TEST_P(PublishedDisplacements, AgreeToTheShownDigits) { CompareNodes("AddDispView", kDisplacements); }

INSTANTIATE_TEST_SUITE_P(
    Buildings, PublishedDisplacements,
    testing::Values(
        TableOfFigures{"BracedFrameX", BracedFrame, "results_latx_displacements.csv", "kN", "m", 270},
        TableOfFigures{"BracedFrameY", BracedFrame, "results_laty_displacements.csv", "kN", "mm", 270},
        TableOfFigures{"BracedFrameTorsion", BracedFrame, "results_tors_displacements.csv", "N", "mm", 270},
        TableOfFigures{"SteelFrame", SteelFrame, "results_static_displacements.csv", "kN", "m", 120},
        TableOfFigures{"SteelFrameInMillimetres", SteelFrame, "results_static_displacements.csv", "kN", "mm", 120},
        TableOfFigures{"SteelFrameInAModelInMillimetres", SteelFrame, "results_static_displacements.csv", "kN", "m",
                       120, 0, "mm"},
        TableOfFigures{"ConcreteFrame", ConcreteFrame, "results_static_recalculated_displacements.csv", "kN", "mm", 48},
        TableOfFigures{"PublishedConcreteFrame", PublishedConcreteFrame, "results_static_published.csv", "kN", "mm",
                       24},
        TableOfFigures{"SetbackTower", SetbackTower, "results_displacements_published.csv", "kip", "in", 90}),
    NameOf);

class PublishedReactions : public PublishedNodes {};

TEST_P(PublishedReactions, AgreeToTheShownDigits) { CompareNodes("AddReacView", kReactions); }

/// The last row of the table has the sums of the forces, which follow from the figures.
TEST_P(PublishedReactions, AddUpToTheShownSums) {
    const std::vector<CsvRow> figures = Figures(GetParam().file);
    FindGreatest(figures, kReactions);
    const std::string loadCase = figures.front().at("load_case");
    const velda::CTBCore& grid = Show(Open("AddReacView"), loadCase);
    EXPECT_EQ(loadCase, grid.GetShownText(grid.RowCount(), 1));
    for (int axis = 0; axis < 3; ++axis) {
        const PublishedColumn& column = kReactions[static_cast<std::size_t>(axis)];
        double sum = 0.0;
        double tolerance = 0.0;
        for (const CsvRow& row : figures) {
            const auto found = row.find(FigureOf(column));
            if (found == row.end() || found->second.empty()) continue;
            sum += std::stod(found->second);
            tolerance += std::max(HalfDigit(std::stod(found->second), building.digits),
                                  building.share * greatest[column.measure]);
        }
        const double factor = Factor(column.measure);
        ExpectShown(grid.GetShownText(grid.RowCount(), 2 + axis), factor * sum, factor * tolerance, column.title);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Buildings, PublishedReactions,
    testing::Values(
        TableOfFigures{"BracedFrameX", BracedFrame, "results_latx_reactions.csv", "kN", "m", 54},
        TableOfFigures{"BracedFrameY", BracedFrame, "results_laty_reactions.csv", "kN", "m", 54},
        TableOfFigures{"BracedFrameTorsion", BracedFrame, "results_tors_reactions.csv", "N", "mm", 54},
        TableOfFigures{"SteelFrame", SteelFrame, "results_static_reactions.csv", "kN", "m", 30},
        TableOfFigures{"ConcreteFrame", ConcreteFrame, "results_static_recalculated_reactions.csv", "kN", "m", 12},
        TableOfFigures{"PublishedConcreteFrame", PublishedConcreteFrame, "results_static_published.csv", "kN", "m", 6},
        TableOfFigures{"SteelFrameInAModelInMillimetres", SteelFrame, "results_static_reactions.csv", "kN", "m", 30, 0,
                       "mm"},
        TableOfFigures{"SetbackTower", SetbackTower, "results_reactions_published.csv", "kip", "in", 18}),
    NameOf);

// ---- members

/// Parts of a type of members and what a table shows of them. Figures are forces on the ends of a member; tables show
/// those on the face that looks to end j, which have the other sign at end i.
struct MemberTab {
    int tab;
    std::int16_t endI;
    std::int16_t endJ;
    const char* nameI;
    const char* nameJ;
    std::vector<PublishedColumn> columns;
};
const MemberTab kBeams{0,
                       0,
                       16,
                       "i-End",
                       "j-End",
                       {{"N", "N (Axial)", Measure::Force},
                        {"Vz", "V (Shear)", Measure::Force},
                        {"My", "M (Moment)", Measure::Moment},
                        {"T", "T (Torsion)", Measure::Moment}}};
const std::vector<PublishedColumn> kColumnForces{{"N", "N (Axial)", Measure::Force},
                                                 {"Vy", "Vy (Shear)", Measure::Force},
                                                 {"Vz", "Vz (Shear)", Measure::Force},
                                                 {"My", "My (Moment)", Measure::Moment},
                                                 {"Mz", "Mz (Moment)", Measure::Moment}};
const MemberTab kColumns{1, 0, 1, "Bottom", "Top", kColumnForces};
const MemberTab kBraces{2, 0, 1, "i-End", "j-End", kColumnForces};

const MemberTab& TabOf(const T_MEMB_D& member) {
    if (member.type == MembType::Column) return kColumns;
    return member.type == MembType::Brace ? kBraces : kBeams;
}

class PublishedMemberForces : public PublishedTablesOf {
protected:
    /// Shows both ends of all members of a tab, end i first.
    const velda::CTBCore& ShowEnds(const MemberTab& tab, const std::string& loadCase) {
        TB_ACTIVE_PARAM param = Open("AddMembForceView", tab.tab);
        param.parts.selected = {tab.endI, tab.endJ};
        return Show(param, loadCase);
    }
};

TEST_P(PublishedMemberForces, AtBothEndsAgreeToTheShownDigits) {
    const std::vector<CsvRow> figures = Figures(GetParam().file);
    FindGreatest(figures, kBeams.columns);
    FindGreatest(figures, kColumnForces);
    for (const MemberTab* tab : {&kBeams, &kColumns, &kBraces}) {
        const velda::CTBCore& grid = ShowEnds(*tab, figures.front().at("load_case"));
        for (const CsvRow& row : figures) {
            const T_MEMB_D& member = MemberOf(row.at("member"));
            if (&TabOf(member) != tab) continue;
            const int first = RowOf(grid, member.no);
            ASSERT_GT(first, 0) << row.at("member");
            const bool isEndI = nodes.at(row.at("node")).key == member.nodes.front();
            const int at = first + (isEndI ? 0 : 1);
            const std::string where = "member " + row.at("member") + " at " + row.at("node");
            EXPECT_EQ(isEndI ? tab->nameI : tab->nameJ, Shown(grid, at, "Part")) << where;
            CompareRow(grid, at, tab->columns, row, where, [&](const PublishedColumn& column) {
                return (isEndI ? -1.0 : 1.0) * (IsTurned(member, column) ? -1.0 : 1.0);
            });
        }
    }
    EXPECT_EQ(GetParam().figures, compared);
}

INSTANTIATE_TEST_SUITE_P(
    Buildings, PublishedMemberForces,
    testing::Values(
        TableOfFigures{"BracedFrameX", BracedFrame, "results_latx_member_end_forces.csv", "kN", "m", 1064},
        TableOfFigures{"BracedFrameY", BracedFrame, "results_laty_member_end_forces.csv", "kN", "m", 1064},
        TableOfFigures{"BracedFrameTorsion", BracedFrame, "results_tors_member_end_forces.csv", "N", "mm", 1064},
        TableOfFigures{"SteelFrame", SteelFrame, "results_static_member_end_forces.csv", "kN", "m", 246},
        TableOfFigures{"ConcreteFrame", ConcreteFrame, "results_static_recalculated_member_end_forces.csv", "N", "mm",
                       84},
        TableOfFigures{"SetbackTower", SetbackTower, "results_member_end_forces_published.csv", "kip", "in", 216}),
    NameOf);

class PublishedTower : public PublishedTables {
protected:
    void Run(const PublishedBuilding& tower) {
        Import(tower);
        Solve();
        ShowIn("kip", "in");
    }
    /// Holds the greatest or least of the rows of a member against its peak.
    void ComparePeak(const velda::CTBCore& grid, int first, int parts, const T_MEMB_D& member,
                     const PublishedColumn& column, const CsvRow& row) {
        // Their My runs the other way round, besides the half turn of vertical members.
        const double sense = (column.figure == "My") != IsTurned(member, column) ? -1.0 : 1.0;
        const double upward = row.at("extreme") == "max" ? 1.0 : -1.0;
        double most = -std::numeric_limits<double>::max();
        for (int part = 0; part < parts; ++part) {
            most = std::max(most, upward * sense * std::stod(Shown(grid, first + part, TitleOf(column))));
        }
        const double figure = upward * NumberOf(row, FigureOf(column));
        const double tolerance = building.share * greatest[column.measure];
        const bool rises = &TabOf(member) == &kBeams && column.figure == "My";
        const double rise = rises ? RiseOf(std::stod(Shown(grid, first, "Length (in)"))) : 0.0;
        EXPECT_LE(most, figure + tolerance) << "member " << row.at("member") << ", " << column.figure;
        EXPECT_GE(most, figure - tolerance - rise) << "member " << row.at("member") << ", " << column.figure;
        ++compared;
    }
    /// The most that the moment of a beam of a length rises above the nearest of its eighths.
    static double RiseOf(double length) {
        constexpr double kMostLoad = 2.4;  // kip/in, self-weight with it
        return kMostLoad * std::pow(length / 8.0, 2.0) / 8.0;
    }
};

/// Peaks lie anywhere along a member, cells at the parts of it: at the ends, except for the moments of beams, which
/// rise between two eighths of the length above both.
TEST_F(PublishedTower, PeaksOfMembersAgreeWithThePartsThatAreShown) {
    Run(SetbackTower());
    const std::vector<CsvRow> figures = Figures("results_member_internal_force_peaks_published.csv");
    FindGreatest(figures, kBeams.columns);
    FindGreatest(figures, kColumnForces);
    for (const MemberTab* tab : {&kBeams, &kColumns}) {
        TB_ACTIVE_PARAM param = Open("AddMembForceView", tab->tab);
        param.parts.selected = param.parts.keys;
        const velda::CTBCore& grid = Show(param, "1");
        for (const CsvRow& row : figures) {
            const T_MEMB_D& member = MemberOf(row.at("member"));
            if (&TabOf(member) != tab) continue;
            const int first = RowOf(grid, member.no);
            ASSERT_GT(first, 0) << row.at("member");
            const auto parts = static_cast<int>(param.parts.keys.size());
            for (const PublishedColumn& column : tab->columns) ComparePeak(grid, first, parts, member, column, row);
        }
    }
    EXPECT_EQ(216u, compared);
}

/// What others found for the tower without the second order, in four digits.
TEST_F(PublishedTower, TheSwayWithoutTheSecondOrderAgreesToItsFourDigits) {
    PublishedBuilding tower = SetbackTower();
    tower.control.secondOrder = SecondOrder::None;
    Run(tower);
    const velda::CTBCore& grid = Show(Open("AddDispView"), "1");
    ExpectShown(Shown(grid, RowOf(grid, NumberOfNode("15")), "DY (in)"), 8.948, HalfDigit(8.948, 4), "node 15");
}

}  // namespace
}  // namespace zt
