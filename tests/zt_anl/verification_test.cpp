#include <numbers>

#include "zt_anl/frame_fixture.h"
#include "zt_anl/real_frame_fixture.h"
#include "zt_db/units/exact_units.h"

namespace zt {
namespace {

using Columns = std::array<const char*, kFreedoms>;

constexpr double kPi = std::numbers::pi;

/// The north-south record of El Centro, 1940.
T_THFC_D ElCentro() {
    T_THFC_D function{.name = "El Centro"};
    const auto folder = std::filesystem::path(ZT_SOURCE_DIR) / "tests/data/analysis/ground_motion_elcentro";
    for (const CsvRow& row : ReadTable(folder / "elcentro_1940_ns.csv")) {
        function.points.push_back({NumberOf(row, "time_s"), NumberOf(row, "acc_g")});
    }
    return function;
}

/// That record along global X, in its own steps.
T_THLC_D ElCentroHistory(double damping, double scale) {
    T_THLC_D history{.name = "El Centro", .damping = damping, .step = 0.02, .duration = 31.18};
    history.items.push_back({.thfc = 1, .scale = scale});
    return history;
}

/// Whole sets of results of others. Tolerances are what the printed digits of those allow, unless said otherwise.
class Verification : public RealFrames {
protected:
    static constexpr double kStaticTolerance = 1.0e-7;
    static constexpr double kPublishedTolerance = 1.0e-5;
    static constexpr double kFrequencyTolerance = 5.0e-6;
    static constexpr double kPercentTolerance = 2.0e-6;

    /// Compares six columns of a table, displacements apart from rotations and forces from moments.
    template <class Values>
    void CompareSix(VerificationRecord& record, const std::string& what, const std::string& table,
                    const std::string& item, const Columns& columns, Values values) {
        for (const std::size_t first : {std::size_t{0}, std::size_t{3}}) {
            Entries entries;
            for (const CsvRow& row : ReadTable(results / table)) {
                const NodeVector ours = values(row);
                for (std::size_t i = first; i < first + 3; ++i) {
                    entries.push_back({row.at(item) + " " + columns[i], ours[i], NumberOf(row, columns[i])});
                }
            }
            const std::string kind = item == "node" && what == "displacements" ? (first == 0 ? what : "rotations")
                                     : first == 0                              ? what + ", forces"
                                                                               : what + ", moments";
            record.List(table.substr(8, table.size() - 12) + ": " + kind, entries, kStaticTolerance);
        }
    }
    void CompareDisplacements(VerificationRecord& record, const std::string& table) {
        CompareSix(record, "displacements", table, "node", {"ux_m", "uy_m", "uz_m", "rx_rad", "ry_rad", "rz_rad"},
                   [&](const CsvRow& row) {
                       return CaseOf(row.at("load_case")).displacements[placeOfName.at(row.at("node"))];
                   });
    }
    void CompareReactions(VerificationRecord& record, const std::string& table) {
        CompareSix(record, "reactions", table, "node", {"Fx_kN", "Fy_kN", "Fz_kN", "Mx_kNm", "My_kNm", "Mz_kNm"},
                   [&](const CsvRow& row) {
                       const std::size_t support = SupportAt(placeOfName.at(row.at("node")));
                       NodeVector values = CaseOf(row.at("load_case")).reactions[support];
                       for (double& value : values) value /= 1000.0;
                       return values;
                   });
    }
    void CompareEndForces(VerificationRecord& record, const std::string& table) {
        CompareSix(record, "end forces", table, "member", {"N_kN", "Vy_kN", "Vz_kN", "T_kNm", "My_kNm", "Mz_kNm"},
                   [&](const CsvRow& row) {
                       const EndVector& ends = CaseOf(row.at("load_case")).elements[SpanOf(row.at("member"))].ends;
                       const std::size_t first = row.at("end") == "i" ? 0 : kFreedoms;
                       NodeVector values{};
                       for (std::size_t i = 0; i < kFreedoms; ++i) values[i] = ends[first + i] / 1000.0;
                       return values;
                   });
    }

    /// How far nodes of a storey move over those below them, along one axis: the most, and the mean.
    std::array<double, 2> DriftOf(const CaseResult& of, double below, double above, std::size_t axis) const {
        std::vector<double> drifts;
        const auto& nodes = result.model.nodes;
        for (std::size_t top = 0; top < nodes.size(); ++top) {
            for (std::size_t foot = 0; foot < nodes.size(); ++foot) {
                const Vector3 way = Minus(nodes[top].place, nodes[foot].place);
                const bool isOver = way[0] == 0.0 && way[1] == 0.0 && std::abs(nodes[top].place[2] - above) < 1.0e-6 &&
                                    std::abs(nodes[foot].place[2] - below) < 1.0e-6;
                if (isOver) drifts.push_back(std::abs(of.displacements[top][axis] - of.displacements[foot][axis]));
            }
        }
        double sum = 0.0;
        for (const double drift : drifts) sum += drift;
        return {*std::max_element(drifts.begin(), drifts.end()), sum / static_cast<double>(drifts.size())};
    }
    void CompareDrifts(VerificationRecord& record, const std::string& table, std::size_t axis) {
        Entries drifts;
        Entries ratios;
        double below = 0.0;
        for (const CsvRow& row : ReadTable(results / table)) {
            const double height = NumberOf(row, "height_m");
            const auto [most, mean] = DriftOf(CaseOf(row.at("load_case")), below, below + height, axis);
            below += height;
            const std::string storey = "storey " + row.at("story");
            drifts.push_back({storey, most, NumberOf(row, "max_drift_m")});
            drifts.push_back({storey + " mean", mean, NumberOf(row, "avg_drift_m")});
            ratios.push_back({storey, most / height, NumberOf(row, "drift_ratio_max")});
            ratios.push_back({storey + " most over mean", most / mean, NumberOf(row, "max_over_avg")});
        }
        const std::string name = table.substr(8, table.size() - 12);
        record.List(name + ": drifts", drifts, kStaticTolerance);
        record.List(name + ": ratios", ratios, 1.0e-6);
    }

    const ModeResult& Mode(const CsvRow& row) const {
        return result.modal.modes.at(static_cast<std::size_t>(NumberOf(row, "mode")) - 1);
    }
    double Percent(const ModeResult& mode, std::size_t axis) const {
        const double total = result.modal.totalMass[axis];
        return total > 0.0 ? 100.0 * mode.effectiveMass[axis] / total : 0.0;
    }
    double PercentUpTo(const CsvRow& row, std::size_t axis) const {
        double sum = 0.0;
        for (const ModeResult& mode : result.modal.modes) {
            sum += Percent(mode, axis);
            if (&mode == &Mode(row)) break;
        }
        return sum;
    }
    void ComparePercents(VerificationRecord& record, const std::string& column, const std::string& sums,
                         std::size_t axis, double tolerance) {
        Entries shares;
        Entries cumulated;
        for (const CsvRow& row : ReadTable(results / modalTable)) {
            shares.push_back({"mode " + row.at("mode"), Percent(Mode(row), axis), NumberOf(row, column)});
            cumulated.push_back({"mode " + row.at("mode"), PercentUpTo(row, axis), NumberOf(row, sums)});
        }
        record.List("effective mass in percent: " + column, shares, tolerance);
        record.List("sum of effective masses in percent: " + sums, cumulated, tolerance);
    }
    template <class Ours>
    void CompareModes(VerificationRecord& record, const std::string& column, double tolerance, Ours ours) {
        for (const CsvRow& row : ReadTable(results / modalTable)) {
            if (row.at(column).empty()) continue;
            record.Value(column + " of mode " + row.at("mode"), ours(Mode(row)), NumberOf(row, column), tolerance);
        }
    }
    void ComparePublishedStatics(VerificationRecord& record) {
        Entries displacements;
        Entries rotations;
        Entries forces;
        Entries moments;
        for (const CsvRow& row : ReadTable(results / "results_static_published.csv")) {
            const std::size_t node = placeOfName.at(row.at("node"));
            const CaseResult& of = CaseOf(row.at("load_case"));
            const NodeVector& moved = of.displacements[node];
            displacements.push_back({row.at("node") + " ux", moved[0], NumberOf(row, "ux_m")});
            displacements.push_back({row.at("node") + " uz", moved[2], NumberOf(row, "uz_m")});
            rotations.push_back({row.at("node") + " ry", moved[4], NumberOf(row, "ry_rad")});
            if (row.count("Fx_kN") == 0 || row.at("Fx_kN").empty()) continue;
            const NodeVector& reaction = of.reactions[SupportAt(node)];
            forces.push_back({row.at("node") + " Fx", reaction[0] / 1000.0, NumberOf(row, "Fx_kN")});
            forces.push_back({row.at("node") + " Fz", reaction[2] / 1000.0, NumberOf(row, "Fz_kN")});
            moments.push_back({row.at("node") + " My", reaction[4] / 1000.0, NumberOf(row, "My_kNm")});
        }
        record.List("static_published: displacements", displacements, kPublishedTolerance);
        record.List("static_published: rotations", rotations, kPublishedTolerance);
        record.List("static_published: reactions, forces", forces, kPublishedTolerance);
        record.List("static_published: reactions, moments", moments, kPublishedTolerance);
    }
    /// Their shapes have a greatest displacement of 1, their turns run from Z to X and about a point of their own.
    void ComparePublishedParticipation(VerificationRecord& record) {
        constexpr double kCentre = 7.5;
        constexpr double kTheirCentre = 2440.5 / 387.0;
        const auto turnOf = [&](const ModeResult& mode) {
            return -(mode.participation[4] + (kCentre - kTheirCentre) * mode.participation[0]);
        };
        double whole = 0.0;
        for (const ModeResult& mode : result.modal.modes) whole += std::pow(turnOf(mode), 2.0);
        double sum = 0.0;
        const auto shapes = ReadTable(results / "results_mode_shapes_published.csv");
        for (const CsvRow& row : ReadTable(results / modalTable)) {
            const ModeResult& mode = Mode(row);
            Entries entries;
            for (const CsvRow& shape : shapes) {
                if (shape.at("mode") != row.at("mode")) continue;
                entries.push_back({"", mode.shape[placeOfName.at(shape.at("node"))][0], NumberOf(shape, "ux")});
            }
            const double scale = ScaleOf(entries);
            const double turning = std::pow(turnOf(mode), 2.0);
            sum += turning;
            const auto compare = [&](const std::string& column, double ours) {
                record.Value(column + " of mode " + row.at("mode"), ours, NumberOf(row, column), 1.0e-5);
            };
            compare("participation_factor_x", mode.participation[0] / scale);
            compare("participation_factor_rot", turnOf(mode) / scale);
            compare("part_mass_x_t", mode.effectiveMass[0] / 1000.0);
            compare("part_mass_rot", turning / 1000.0);
            compare("part_mass_rot_pct", 100.0 * turning / whole);
            compare("cum_mass_rot_pct", 100.0 * sum / whole);
        }
    }
    static double FrequencyOf(const ModeResult& mode) { return mode.frequency; }
    static double PeriodOf(const ModeResult& mode) { return mode.period; }

    /// Shapes are compared after ours is scaled to theirs at their greatest value. In a mode that turns alone their
    /// table has great turns beside displacements that are rounding alone.
    void CompareShapes(VerificationRecord& record, const std::string& table, double tolerance) {
        const Columns columns{"ux", "uy", "uz", "rx", "ry", "rz"};
        std::map<std::string, std::vector<CsvRow>> rowsOfMode;
        for (const CsvRow& row : ReadTable(results / table)) rowsOfMode[row.at("mode")].push_back(row);
        for (std::size_t number = 1; number <= rowsOfMode.size(); ++number) {
            const std::vector<CsvRow>& rows = rowsOfMode.at(std::to_string(number));
            Entries entries;
            for (const CsvRow& row : rows) {
                const NodeVector& shape = Mode(row).shape[placeOfName.at(row.at("node"))];
                for (std::size_t i = 0; i < kFreedoms; ++i) {
                    if (row.count(columns[i]) == 0) continue;
                    entries.push_back({row.at("node") + " " + columns[i], shape[i], NumberOf(row, columns[i])});
                }
            }
            const double scale = ScaleOf(entries);
            for (auto& entry : entries) entry.ours *= scale;
            record.List("shape of mode " + std::to_string(number), entries, tolerance);
        }
    }
    static double ScaleOf(const Entries& entries) {
        const auto most = std::max_element(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
            return std::abs(a.theirs) < std::abs(b.theirs);
        });
        return most->theirs / most->ours;
    }

    std::string modalTable = "results_modal.csv";
};

TEST_F(Verification, BracedFrameOfFourStoreys) {
    Load("braced_frame_4story_3d");
    Solve();
    VerificationRecord record("braced_frame_4story_3d",
                              "A frame in space of 4 storeys with braces and rigid floors. Static cases, modes and "
                              "shapes were recalculated by "
                              "an independent solver; the frequencies of the shear building, whose floors do not tilt, "
                              "stand in the literature "
                              "with two places.");
    for (const std::string name : {"latx", "laty", "tors"}) {
        CompareDisplacements(record, "results_" + name + "_displacements.csv");
        CompareReactions(record, "results_" + name + "_reactions.csv");
        CompareEndForces(record, "results_" + name + "_member_end_forces.csv");
    }
    CompareDrifts(record, "results_latx_story_drifts.csv", 0);
    CompareDrifts(record, "results_laty_story_drifts.csv", 1);
    CompareModes(record, "frame_model_Hz", kFrequencyTolerance, FrequencyOf);
    ComparePercents(record, "frame_eff_mass_x_pct", "cum_x_pct", 0, kPercentTolerance);
    ComparePercents(record, "frame_eff_mass_y_pct", "cum_y_pct", 1, kPercentTolerance);
    CompareShapes(record, "results_mode_shapes.csv", 1.0e-5);
    for (const CsvRow& row : ReadTable(frame / "nodes.csv")) {
        if (row.at("storey") == "BASE") continue;
        const std::uint32_t key = result.model.nodes[placeOfName.at(row.at("node"))].key;
        ASSERT_TRUE(Records<CClassSpts>().TR_Add(key, {.flags = "001110"})) << Db().GetLastReason();
    }
    Solve();
    CompareModes(record, "shear_building_model_Hz", kFrequencyTolerance, FrequencyOf);
    for (const CsvRow& row : ReadTable(results / modalTable)) {
        if (row.at("literature_Hz").empty()) continue;
        record.Within("literature_Hz of mode " + row.at("mode"), Mode(row).frequency, NumberOf(row, "literature_Hz"),
                      0.0051);
    }
    record.Finish();
}

TEST_F(Verification, SteelFrameOfThreeStoreys) {
    Load("steel_frame_3story_la");
    options.selfWeightMass = false;
    ASSERT_TRUE(Records<CClassThfc>().TR_Add(1, ElCentro()));
    ASSERT_TRUE(Records<CClassThlc>().TR_Add(1, ElCentroHistory(0.02, 1.0)));
    Solve();
    VerificationRecord record(
        "steel_frame_3story_la",
        "A plane frame of 3 storeys. Columns named published hold what the literature prints; the rest was "
        "recalculated "
        "by an independent solver. The time history is that of the El Centro record of 1940. The recalculation has 2 "
        "percent of damping in each mode (5 percent, and damping in proportion to masses and stiffness, are far off), "
        "steps of 0.02 s and an exact integration between the points of the record. The literature's model with slabs "
        "and "
        "panel zones and its drifts beyond the elastic range describe other structures and are not compared.");
    CompareDisplacements(record, "results_static_displacements.csv");
    CompareReactions(record, "results_static_reactions.csv");
    CompareEndForces(record, "results_static_member_end_forces.csv");
    CompareDrifts(record, "results_story_drifts.csv", 0);
    CompareModes(record, "recalculated_frequency_Hz", kFrequencyTolerance, FrequencyOf);
    CompareModes(record, "recalculated_period_s", kFrequencyTolerance, PeriodOf);
    CompareModes(record, "published_frequency_Hz", 1.3e-3, FrequencyOf);
    CompareModes(record, "published_period_s", 1.3e-3, PeriodOf);
    ComparePercents(record, "eff_mass_ratio_x_pct", "cum_x_pct", 0, kPercentTolerance);
    ComparePercents(record, "eff_mass_ratio_y_pct", "cum_y_pct", 1, kPercentTolerance);
    ComparePercents(record, "eff_mass_ratio_z_pct", "cum_z_pct", 2, kPercentTolerance);
    CompareShapes(record, "results_mode_shapes.csv", 1.0e-5);
    // FEMA-355C (2000): the bare frame along its centre lines, by two groups, with sections and joints of their own.
    record.Value("period of mode 1, frame along centre lines", result.modal.modes[0].period, 1.03, 0.03);
    record.Value("period of mode 1, the same recalculated", result.modal.modes[0].period, 1.041, 0.03);
    // A model with fibre sections and an elastic modulus of 204 GPa; ours has 200 GPa.
    constexpr std::array<double, 3> kFibrePeriods{1.00971, 0.32667, 0.17080};
    for (std::size_t i = 0; i < kFibrePeriods.size(); ++i) {
        record.Value("period of mode " + std::to_string(i + 1) + ", fibre sections, 204 GPa",
                     result.modal.modes[i].period * std::sqrt(200.0 / 204.0), kFibrePeriods[i], 0.015);
    }

    const HistoryResult& history = result.histories.at(0);
    const std::size_t modes = result.modal.modes.size();
    const auto displacement = [&](std::size_t state, const std::string& node) {
        double sum = 0.0;
        for (std::size_t i = 0; i < modes; ++i) {
            sum += history.coordinates[state * modes + i] * result.modal.modes[i].shape[placeOfName.at(node)][0];
        }
        return sum;
    };
    const auto baseShear = [&](std::size_t state) {
        double sum = 0.0;
        for (std::size_t i = 0; i < modes; ++i) {
            const ModeResult& mode = result.modal.modes[i];
            const double omega = 2.0 * kPi * mode.frequency;
            sum += history.coordinates[state * modes + i] * omega * omega * mode.participation[0];
        }
        return sum / 1000.0;
    };
    const auto valueOf = [&](const std::string& column, std::size_t state) {
        if (column[0] == 'g') return history.ground[state][0] / kGravity;
        if (column[0] == 'b') return baseShear(state);
        const std::string floor = column.substr(column.find_first_of("123"), 1);
        const double above = displacement(state, "N1" + floor);
        if (column[0] == 'u' || floor == "1") return above;
        return above - displacement(state, floor == "2" ? "N11" : "N12");
    };
    const auto series = ReadTable(results / "results_time_history_elcentro.csv");
    ASSERT_EQ(series.size(), history.steps);
    for (const std::string column :
         {"ground_acc_g", "u1_m", "u2_m", "u3_m", "drift1_m", "drift2_m", "drift3_m", "base_shear_kN"}) {
        Entries entries;
        for (std::size_t state = 0; state < series.size(); ++state) {
            entries.push_back(
                {series[state].at("time_s") + " s", valueOf(column, state), NumberOf(series[state], column)});
        }
        record.List("El Centro: " + column, entries, 5.0e-6);
    }
    for (const CsvRow& row : ReadTable(results / "results_time_history_peaks.csv")) {
        const std::string& quantity = row.at("quantity");
        std::size_t at = 0;
        for (std::size_t state = 0; state < history.steps; ++state) {
            if (std::abs(valueOf(quantity, state)) > std::abs(valueOf(quantity, at))) at = state;
        }
        record.Value("El Centro: peak of " + quantity, std::abs(valueOf(quantity, at)), NumberOf(row, "peak_abs"),
                     5.0e-6);
        record.Value("El Centro: time of the peak of " + quantity, 0.02 * static_cast<double>(at),
                     NumberOf(row, "time_s"), 1.0e-9);
        if (quantity[0] != 'u') continue;
        const NodeEnvelope& envelope = history.displacements[placeOfName.at("N1" + quantity.substr(1))];
        EXPECT_NEAR(std::max(envelope.max[0], -envelope.min[0]), std::abs(valueOf(quantity, at)), 1.0e-12);
    }
    record.Finish();
}

TEST_F(Verification, ConcreteFrameOfThreeStoreys) {
    Load("rc_plane_frame_3story_modal");
    options.selfWeightMass = false;
    modalTable = "results_modal_published.csv";
    Solve();
    VerificationRecord record(
        "rc_plane_frame_3story_modal",
        "A plane frame of 3 storeys. Tables named published hold the printed figures of their source, those named "
        "recalculated are of an independent solver. The source takes turns about the mean height of the 387 free nodes "
        "of its finer model, 6.3062 m; ours, about the centre of mass at 7.5 m, are brought there.");
    CompareDisplacements(record, "results_static_recalculated_displacements.csv");
    CompareReactions(record, "results_static_recalculated_reactions.csv");
    CompareEndForces(record, "results_static_recalculated_member_end_forces.csv");
    CompareDrifts(record, "results_story_drifts.csv", 0);
    ComparePublishedStatics(record);

    ASSERT_EQ(result.modal.modes.size(), 3u);
    CompareModes(record, "frequency_Hz", 5.0e-6, FrequencyOf);
    CompareModes(record, "period_s", 5.0e-6, PeriodOf);
    const auto omegaOf = [](const ModeResult& mode) { return 2.0 * kPi * mode.frequency; };
    CompareModes(record, "omega_rad_s", 5.0e-6, omegaOf);
    CompareModes(record, "eigenvalue", 5.0e-6, [&](const ModeResult& mode) { return std::pow(omegaOf(mode), 2.0); });
    ComparePercents(record, "part_mass_x_pct", "cum_mass_x_pct", 0, 5.0e-6);
    CompareShapes(record, "results_mode_shapes_published.csv", 5.0e-6);
    ComparePublishedParticipation(record);
    record.Finish();
}

class OscillatorVerification : public FrameTest {};

TEST_F(OscillatorVerification, FollowsElCentro) {
    VerificationRecord record(
        "ground_motion_elcentro",
        "Greatest displacements of systems with one freedom under the El Centro record of 1940, in "
        "inches: printed ones, and those of an independent exact integration.");
    constexpr double kTheirGravity = 386.4 * kInch;
    constexpr double kStiffness = 12.0 * kE * kIyy;  // of a column of 1 m whose head moves but does not turn
    UseKilograms();
    options.modal = true;
    options.shearDeformation = false;
    options.selfWeightMass = false;
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t head = Node(0.0, 0.0, 1.0);
    Member({foot, head}, 2, MembType::Column);
    Support(foot, "111111");
    Support(head, "011111");
    Add<CClassPmas>(head, {.mx = 1.0});
    Add<CClassThfc>(1, ElCentro());
    Add<CClassThlc>(1, ElCentroHistory(0.0, 1.0));
    const auto table = std::filesystem::path(ZT_SOURCE_DIR) / "tests/data/analysis/ground_motion_elcentro";
    for (const CsvRow& row : ReadTable(table / "sdof_peak_displacements.csv")) {
        const double omega = 2.0 * kPi / NumberOf(row, "period_s");
        ASSERT_TRUE(Records<CClassPmas>().TR_Modify(head, head, {.mx = kStiffness / (omega * omega)}));
        ASSERT_TRUE(Records<CClassThlc>().TR_Modify(
            1, 1, ElCentroHistory(NumberOf(row, "damping_ratio"), kTheirGravity / kGravity)));
        Solve();
        ASSERT_EQ(result.modal.modes.size(), 1u);
        ExpectClose(result.modal.modes[0].period, NumberOf(row, "period_s"));
        const NodeEnvelope& envelope = result.histories.at(0).displacements[1];
        const double peak = std::max(envelope.max[0], -envelope.min[0]) / kInch;
        const std::string name = "period " + row.at("period_s") + " s, damping " + row.at("damping_ratio");
        record.Within(name + ", published", peak, NumberOf(row, "published_peak_in"), 0.01);
        record.Within(name + ", recalculated", peak, NumberOf(row, "recalculated_peak_in"), 0.00051);
    }
    record.Finish();
}

}  // namespace
}  // namespace zt
