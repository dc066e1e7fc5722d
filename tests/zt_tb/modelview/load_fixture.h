#pragma once

#include "zt_db/records/lnld.h"
#include "zt_db/records/ptld.h"
#include "zt_db/records/sbla.h"
#include "zt_db/records/swgt.h"
#include "zt_tb/modelview/bay_fixture.h"

namespace zt {

/// The bay with a dead, a live and a wind load case, in kN and m.
class BayLoadTest : public BayViewTest {
protected:
    static constexpr std::uint32_t kDead = 1;
    static constexpr std::uint32_t kLive = 2;
    static constexpr std::uint32_t kWind = 3;
    static constexpr std::uint32_t kFrontBeam = 5;  ///< along x at y = 0

    BayLoadTest() {
        Add<CClassStld>(kDead, {.name = "DL", .type = "D"});
        Add<CClassStld>(kLive, {.name = "LL", .type = "L"});
        Add<CClassStld>(kWind, {.name = "WX", .type = "W"});
    }
    /// A line load on the front beam from `from` to `to`, of the values at its ends.
    static T_LNLD_D LineLoad(double first, double second, double from = 0.0, double to = 1.0) {
        return {.memb = kFrontBeam, .stld = kDead, .x = {from, to}, .p = {first, second}};
    }
    void AddSlabLoad(double dead, double live) {
        Add<CClassSltp>(1, {.dl = dead, .ll = live});
        Add<CClassSbla>(kSlab, {.type = 1, .dl = dead, .ll = live});
    }
};

}  // namespace zt
