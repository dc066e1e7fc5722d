#include "zt_tb/modelview/load_legend.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/key_text.h"
#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace zt {

using velda::KeyText;

namespace {

constexpr double kDigits = 4.0;
constexpr double kMostDecimals = 12.0;

std::string UnitsOf(const SceneLoads& loads, const CUnitCtrl& units) {
    std::string text;
    for (std::size_t kind = 0; kind < kLoadKinds; ++kind) {
        if (loads.Greatest(static_cast<LoadKind>(kind)) == 0.0) continue;
        text += (text.empty() ? " | " : ", ") + units.Label(kLoadUnits[kind]);
    }
    return text;
}

/// The factors that are not 0 with their axes: "-1 Z".
std::string FactorsOf(const Vec3& factors) {
    std::string text;
    const auto add = [&](double factor, const char* axis) {
        if (factor != 0.0) text += (text.empty() ? "" : ", ") + velda::FormatDouble(factor) + axis;
    };
    add(factors.x, " X");
    add(factors.y, " Y");
    add(factors.z, " Z");
    return text;
}

}  // namespace

std::string LoadText(double value) {
    const double amount = std::abs(value);
    if (amount == 0.0) return "0";
    const double decimals = std::clamp(kDigits - 1.0 - std::floor(std::log10(amount)), 0.0, kMostDecimals);
    const double scale = std::pow(10.0, decimals);
    return velda::FormatDouble(std::round(amount * scale) / scale);
}

LoadLegend LegendOf(const SceneLoads& loads, const CUnitCtrl& units) {
    if (loads.LoadCase() == 0) return {};
    LoadLegend legend{loads.Name() + UnitsOf(loads, units), {}};
    if (const std::string factors = FactorsOf(loads.SelfWeight()); !factors.empty()) {
        legend.lines.push_back(velda::FormatText("IDS_MODEL_VIEW_SELF_WEIGHT", {factors}));
    }
    if (loads.OwnSelfWeights() > 0) {
        const std::string count = velda::FormatLong(static_cast<std::int64_t>(loads.OwnSelfWeights()));
        legend.lines.push_back(velda::FormatText("IDS_MODEL_VIEW_OWN_SELF_WEIGHTS", {count}));
    }
    if (!loads.SlabLoads().empty()) {
        const bool isDead = loads.Slabs() == SlabPart::Dead;
        legend.lines.push_back(KeyText(isDead ? "IDS_MODEL_VIEW_SLABS_DEAD" : "IDS_MODEL_VIEW_SLABS_LIVE"));
    }
    if (loads.Count() == 0 && legend.lines.empty()) legend.lines.push_back(KeyText("IDS_MODEL_VIEW_CASE_EMPTY"));
    return legend;
}

}  // namespace zt
