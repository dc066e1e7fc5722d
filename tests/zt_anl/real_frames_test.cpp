#include "zt_anl/real_frame_fixture.h"

namespace zt {
namespace {

/// Real frames against results of others. Those were computed without shear deformation and with lumped masses.
class RealFrames : public RealFrameTest {
protected:
    RealFrames() { options.shearDeformation = false; }
    /// Expects the values of a table of displacements, up to a share of the greatest of their kind.
    void ExpectDisplacements(const std::string& table) {
        constexpr TableColumns kColumns{"ux_m", "uy_m", "uz_m", "rx_rad", "ry_rad", "rz_rad"};
        const auto rows = ReadTable(results / table);
        for (const auto& row : rows) {
            const NodeVector& values = CaseOf(row.at("load_case")).displacements[placeOfName.at(row.at("node"))];
            for (std::size_t i = 0; i < kFreedoms; ++i) {
                const double wanted = std::stod(row.at(kColumns[i]));
                EXPECT_NEAR(values[i], wanted, kStaticTolerance * Greatest(rows, kColumns, i < 3 ? 0 : 3))
                    << table << " node " << row.at("node") << ' ' << kColumns[i];
            }
        }
    }
    void ExpectReactions(const std::string& table) {
        constexpr TableColumns kColumns{"Fx_kN", "Fy_kN", "Fz_kN", "Mx_kNm", "My_kNm", "Mz_kNm"};
        const auto rows = ReadTable(results / table);
        for (const auto& row : rows) {
            const NodeVector& values = ReactionOf(CaseOf(row.at("load_case")), row.at("node"));
            for (std::size_t i = 0; i < kFreedoms; ++i) {
                EXPECT_NEAR(values[i] / 1000.0, std::stod(row.at(kColumns[i])),
                            kStaticTolerance * Greatest(rows, kColumns, i < 3 ? 0 : 3))
                    << table << " node " << row.at("node") << ' ' << kColumns[i];
            }
        }
    }
    /// Expects the end forces of a table whose members are known by number.
    void ExpectEndForces(const std::string& table) {
        constexpr TableColumns kColumns{"N_kN", "Vy_kN", "Vz_kN", "T_kNm", "My_kNm", "Mz_kNm"};
        const auto rows = ReadTable(results / table);
        for (const auto& row : rows) {
            const auto number = static_cast<std::uint32_t>(std::stoul(row.at("member")));
            const std::uint32_t member = Records<CClassMemb>().GetMembKeyByNo(number);
            const std::size_t first = row.at("end") == "i" ? 0 : kFreedoms;
            const EndVector& ends = CaseOf(row.at("load_case")).elements[result.model.spansOfMember.at(member)[0]].ends;
            for (std::size_t i = 0; i < kFreedoms; ++i) {
                EXPECT_NEAR(ends[first + i] / 1000.0, std::stod(row.at(kColumns[i])),
                            kStaticTolerance * Greatest(rows, kColumns, i < 3 ? 0 : 3))
                    << table << " member " << number << ' ' << kColumns[i];
            }
        }
    }
    void ExpectFrequencies(const std::string& table, const std::string& column, double tolerance) {
        const auto rows = ReadTable(results / table);
        ASSERT_GE(result.modal.modes.size(), rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const double wanted = std::stod(rows[i].at(column));
            EXPECT_NEAR(result.modal.modes[i].frequency, wanted, tolerance * wanted) << "mode " << i + 1;
        }
    }
    void ExpectMassShares(const std::string& table, const std::string& column, std::size_t axis, double tolerance) {
        const auto rows = ReadTable(results / table);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const double share = 100.0 * result.modal.modes[i].effectiveMass[axis] / result.modal.totalMass[axis];
            EXPECT_NEAR(share, std::stod(rows[i].at(column)), tolerance) << "mode " << i + 1;
        }
    }

    static constexpr double kStaticTolerance = 1.0e-5;
    static constexpr double kModalTolerance = 1.0e-4;
};

TEST_F(RealFrames, BracedFrameOfFourStoreysUnderItsLateralLoads) {
    Load("braced_frame_4story_3d");
    Solve();
    for (const std::string name : {"latx", "laty", "tors"}) {
        ExpectDisplacements("results_" + name + "_displacements.csv");
        ExpectReactions("results_" + name + "_reactions.csv");
        ExpectEndForces("results_" + name + "_member_end_forces.csv");
    }
}

TEST_F(RealFrames, BracedFrameOfFourStoreysSwingsInTwelveModes) {
    Load("braced_frame_4story_3d");
    Solve();
    ExpectFrequencies("results_modal.csv", "frame_model_Hz", kModalTolerance);
    ExpectMassShares("results_modal.csv", "frame_eff_mass_x_pct", 0, 0.01);
    ExpectMassShares("results_modal.csv", "frame_eff_mass_y_pct", 1, 0.01);
}

TEST_F(RealFrames, SteelFrameOfThreeStoreysUnderItsLateralLoad) {
    Load("steel_frame_3story_la");
    options.selfWeightMass = false;
    Solve();
    ExpectDisplacements("results_static_displacements.csv");
    ExpectReactions("results_static_reactions.csv");
}

TEST_F(RealFrames, SteelFrameOfThreeStoreysHasItsPublishedFrequencies) {
    Load("steel_frame_3story_la");
    options.selfWeightMass = false;
    Solve();
    ExpectFrequencies("results_modal.csv", "recalculated_frequency_Hz", kModalTolerance);
    ExpectFrequencies("results_modal.csv", "published_frequency_Hz", 1.3e-3);
    ExpectMassShares("results_modal.csv", "eff_mass_ratio_x_pct", 0, 0.01);
}

TEST_F(RealFrames, ConcreteFrameOfThreeStoreysUnderItsLateralLoad) {
    Load("rc_plane_frame_3story_modal");
    options.selfWeightMass = false;
    Solve();
    ExpectDisplacements("results_static_recalculated_displacements.csv");
    ExpectReactions("results_static_recalculated_reactions.csv");
}

TEST_F(RealFrames, ConcreteFrameOfThreeStoreysHasItsPublishedModes) {
    Load("rc_plane_frame_3story_modal");
    options.selfWeightMass = false;
    Solve();
    ASSERT_EQ(result.modal.modes.size(), 3u);
    ExpectFrequencies("results_modal_published.csv", "frequency_Hz", 1.0e-5);
    ExpectMassShares("results_modal_published.csv", "part_mass_x_pct", 0, 0.01);
}

}  // namespace
}  // namespace zt
