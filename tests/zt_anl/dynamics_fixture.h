#pragma once

#include <numbers>

#include "zt_anl/frame_fixture.h"
#include "zt_db/units/exact_units.h"

namespace zt {

/// A column of 4 m with a mass on it, and what may shake it. Masses are in kg.
class DynamicsTest : public FrameTest {
protected:
    static constexpr double kMass = 500.0;
    static constexpr double kHeight = 4.0;

    DynamicsTest() {
        UseKilograms();
        options.modal = true;
        options.selfWeightMass = false;
        options.modes = 30;
    }
    /// A column that swings along X and Y; its local y stands along global X or Y.
    void BuildMast() {
        foot = Node(0.0, 0.0, 0.0);
        top = Node(0.0, 0.0, kHeight);
        mast = Member({foot, top}, 2, MembType::Column);
        Support(foot, "111111");
        Add<CClassPmas>(top, {.mx = kMass, .my = kMass});
    }
    /// A frame of storeys whose masses swing along X, in the plane of X and Z, with uneven columns.
    void BuildStoreys(std::size_t storeys) {
        std::array<std::uint32_t, 2> below{Node(0.0, 0.0, 0.0), Node(5.0, 0.0, 0.0)};
        for (const std::uint32_t node : below) Support(node, "111111");
        for (std::size_t i = 1; i <= storeys; ++i) {
            const double z = 3.0 * static_cast<double>(i);
            const std::array<std::uint32_t, 2> above{Node(0.0, 0.0, z), Node(5.0, 0.0, z)};
            for (std::size_t k = 0; k < 2; ++k) {
                Member({below[k], above[k]}, 1, MembType::Column);
                Support(above[k], "010101");
                Add<CClassPmas>(above[k], {.mx = 3000.0 + 500.0 * static_cast<double>(k)});
            }
            Member({above[0], above[1]});
            below = above;
        }
        top = below[1];
    }
    void AddSpectrum(const std::vector<T_SPFC_POINT>& points) {
        Add<CClassSpfc>(1, {.name = "Spectrum", .points = points, .description = {}});
    }
    void AddFunction(const std::vector<T_THFC_POINT>& points) {
        Add<CClassThfc>(1, {.name = "Function", .points = points, .description = {}});
    }
    double Omega(std::size_t mode) const { return 2.0 * std::numbers::pi * result.modal.modes[mode].frequency; }
    std::size_t Place(std::uint32_t node) const { return result.model.nodeOfKey.at(node); }

    std::uint32_t foot = 0;
    std::uint32_t top = 0;
    std::uint32_t mast = 0;
};

}  // namespace zt
