#pragma once

#include <string>
#include <vector>

#include "zt_db/units/unit_ctrl.h"
#include "zt_tb/modelview/scene_loads.h"

namespace zt {

/// A value as it stands beside its arrow: its amount, rounded to four digits.
std::string LoadText(double value);

/// What the corner of the picture tells of the loads that are shown: the load case with the units of its loads, and
/// below it what is not seen on members.
struct LoadLegend {
    std::string title;
    std::vector<std::string> lines;
};
/// Empty when no loads are shown.
LoadLegend LegendOf(const SceneLoads& loads, const CUnitCtrl& units);

}  // namespace zt
