#pragma once

#include <optional>
#include <string_view>

namespace zt {

/// What a value in the unit `text` is multiplied by to give SI units (m, kg, s, N, Pa, rad, degrees of temperature as
/// differences). The unit must measure the same as `same`. None for a text that is no unit, or measures something else.
///
/// Units are written with "/" ("kN/m2") or with "_" alone ("kN_m2", "t_m2", "1_C"): then each part after the first
/// multiplies or divides, whichever gives what is to be measured.
std::optional<double> UnitSize(std::string_view text, std::string_view same);

/// The unit that takes the place of a metric one in imperial tables: "ft" for "m", "in" for "mm".
std::string_view ImperialUnit(std::string_view metric);

}  // namespace zt
