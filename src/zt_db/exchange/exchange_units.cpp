#include "zt_db/exchange/exchange_units.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>
#include <string>
#include <vector>

#include "zt_db/units/exact_units.h"

namespace zt {
namespace {

/// Exponents of metre, kilogram, second and degree.
struct Dimension {
    int length = 0;
    int mass = 0;
    int time = 0;
    int temperature = 0;
    bool operator==(const Dimension&) const = default;

    Dimension Plus(const Dimension& other, int times) const {
        return {length + other.length * times, mass + other.mass * times, time + other.time * times,
                temperature + other.temperature * times};
    }
};

struct Symbol {
    std::string_view text;
    double size;
    Dimension dimension;
};

constexpr double kFoot = 12.0 * kInch;
constexpr double kPoundForce = kPound * kGravity;
constexpr Dimension kNone{};
constexpr Dimension kLength{1, 0, 0, 0};
constexpr Dimension kMass{0, 1, 0, 0};
constexpr Dimension kTime{0, 0, 1, 0};
constexpr Dimension kDegree{0, 0, 0, 1};
constexpr Dimension kForce{1, 1, -2, 0};
constexpr Dimension kStress{-1, 1, -2, 0};

// A symbol that stands twice ("lb" as mass and as force) means what is to be measured.
constexpr Symbol kSymbols[] = {
    {"1", 1.0, kNone},
    {"rad", 1.0, kNone},
    {"mrad", 0.001, kNone},
    {"deg", std::numbers::pi / 180.0, kNone},
    {"\u00B0", std::numbers::pi / 180.0, kNone},
    {"m", 1.0, kLength},
    {"mm", 0.001, kLength},
    {"cm", 0.01, kLength},
    {"in", kInch, kLength},
    {"inch", kInch, kLength},
    {"ft", kFoot, kLength},
    {"kg", 1.0, kMass},
    {"t", 1000.0, kMass},
    {"lb", kPound, kMass},
    {"lbm", kPound, kMass},
    {"slug", kPoundForce / kFoot, kMass},
    {"kip", 1000.0 * kPound, kMass},
    {"s", 1.0, kTime},
    {"sec", 1.0, kTime},
    {"K", 1.0, kDegree},
    {"C", 1.0, kDegree},
    {"\u00B0C", 1.0, kDegree},
    {"degC", 1.0, kDegree},
    {"F", 1.0 / 1.8, kDegree},
    {"\u00B0F", 1.0 / 1.8, kDegree},
    {"degF", 1.0 / 1.8, kDegree},
    {"N", 1.0, kForce},
    {"kN", 1.0e3, kForce},
    {"MN", 1.0e6, kForce},
    {"kgf", kGravity, kForce},
    {"tf", 1000.0 * kGravity, kForce},
    {"tonf", 1000.0 * kGravity, kForce},
    {"lb", kPoundForce, kForce},
    {"lbf", kPoundForce, kForce},
    {"k", 1000.0 * kPoundForce, kForce},
    {"kip", 1000.0 * kPoundForce, kForce},
    {"kips", 1000.0 * kPoundForce, kForce},
    {"klbf", 1000.0 * kPoundForce, kForce},
    {"Nm", 1.0, {2, 1, -2, 0}},
    {"kNm", 1.0e3, {2, 1, -2, 0}},
    {"MNm", 1.0e6, {2, 1, -2, 0}},
    {"kipft", 1000.0 * kPoundForce* kFoot, {2, 1, -2, 0}},
    {"Pa", 1.0, kStress},
    {"kPa", 1.0e3, kStress},
    {"MPa", 1.0e6, kStress},
    {"GPa", 1.0e9, kStress},
    {"psi", kPoundForce / (kInch * kInch), kStress},
    {"ksi", 1000.0 * kPoundForce / (kInch * kInch), kStress},
    {"psf", kPoundForce / (kFoot * kFoot), kStress},
    {"ksf", 1000.0 * kPoundForce / (kFoot * kFoot), kStress},
    {"pcf", kPound / (kFoot * kFoot * kFoot), {-3, 1, 0, 0}},
};

/// One factor of a unit: its symbol, its power, and whether "/" said that it divides.
struct Part {
    std::string symbol;
    int power = 1;
    int sign = 1;  ///< 0 where it may do either
};

constexpr std::size_t kMostParts = 6;

/// Splits "kN*m2/rad" into its parts; nothing for a text that is no product.
std::optional<std::vector<Part>> PartsOf(std::string_view text) {
    std::vector<Part> parts;
    int sign = 1;
    bool fresh = true;
    for (const char c : text) {
        const bool separates =
            c == '/' || c == '_' || c == '*' || c == '.' || c == ' ' || c == '-' || c == '(' || c == ')';
        if (c == '/') sign = -1;
        if (c == '_' && sign > 0 && !parts.empty()) sign = 0;
        if (separates || c == '^') {
            fresh = fresh || separates;
        } else if (c >= '2' && c <= '9' && !fresh) {
            parts.back().power = c - '0';
        } else {
            if (fresh) parts.push_back({{}, 1, sign});
            if (parts.size() > kMostParts) return std::nullopt;
            parts.back().symbol += c;
            fresh = false;
        }
    }
    return parts;
}

/// Tries every meaning of the parts from `at` on.
std::optional<double> Resolve(const std::vector<Part>& parts, std::size_t at, double size, const Dimension& have,
                              const Dimension& want) {
    if (at == parts.size()) return have == want ? std::optional(size) : std::nullopt;
    const Part& part = parts[at];
    for (const Symbol& symbol : kSymbols) {
        if (symbol.text != part.symbol) continue;
        for (const int sign : {-1, 1}) {
            if (part.sign != 0 && part.sign != sign) continue;
            const int power = part.power * sign;
            const auto found =
                Resolve(parts, at + 1, size * std::pow(symbol.size, power), have.Plus(symbol.dimension, power), want);
            if (found) return found;
        }
    }
    return std::nullopt;
}

/// What a unit of our own tables measures; they hold no ambiguous symbols.
Dimension DimensionOf(std::string_view unit) {
    Dimension dimension;
    const auto parts = PartsOf(unit);
    for (const Part& part : *parts) {
        for (const Symbol& symbol : kSymbols) {
            if (symbol.text == part.symbol) dimension = dimension.Plus(symbol.dimension, part.power * part.sign);
        }
    }
    return dimension;
}

constexpr std::array<std::array<std::string_view, 2>, 25> kImperial{{
    {"m", "ft"},
    {"mm", "in"},
    {"m2", "in2"},
    {"m3", "in3"},
    {"m4", "in4"},
    {"m6", "in6"},
    {"MPa", "ksi"},
    {"kg/m3", "lb/ft3"},
    {"1/K", "1/F"},
    {"kN", "kip"},
    {"MN", "kip"},
    {"kNm", "kip ft"},
    {"MNm", "kip ft"},
    {"kN/m", "kip/ft"},
    {"kNm/m", "kip ft/ft"},
    {"kN/m2", "ksf"},
    {"MN/m", "kip/in"},
    {"MN/m2", "ksi"},
    {"MN/m3", "kip/in3"},
    {"MNm/rad", "kip ft/rad"},
    {"MNm/rad/m", "kip ft/rad/ft"},
    {"mrad", "mrad"},
    {"deg", "deg"},
    {"t", "kip"},
    {"rad", "rad"},
}};

}  // namespace

std::optional<double> UnitSize(std::string_view text, std::string_view same) {
    const auto parts = PartsOf(text);
    if (!parts || parts->empty()) return std::nullopt;
    return Resolve(*parts, 0, 1.0, {}, DimensionOf(same));
}

std::string_view ImperialUnit(std::string_view metric) {
    for (const auto& [from, to] : kImperial) {
        if (from == metric) return to;
    }
    return metric;
}

}  // namespace zt
