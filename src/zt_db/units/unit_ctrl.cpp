#include "zt_db/units/unit_ctrl.h"

#include <cmath>
#include <numbers>
#include <vector>

#include "zt_db/doc/doc.h"
#include "zt_db/units/exact_units.h"

namespace zt {
namespace {

constexpr UnitChoice kMass[] = {{"kg", 1.0}, {"t", 1000.0}, {"lb", kPound}};
constexpr UnitChoice kLength[] = {{"m", 1.0}, {"mm", 0.001}, {"cm", 0.01}, {"in", kInch}, {"ft", 12.0 * kInch}};
constexpr UnitChoice kForce[] = {
    {"kgf", kGravity},         {"tonf", 1000.0 * kGravity},       {"N", 1.0}, {"kN", 1000.0}, {"MN", 1.0e6},
    {"lbf", kPound* kGravity}, {"kip", 1000.0 * kPound* kGravity}};
constexpr UnitChoice kTemperature[] = {{"K", 1.0, 273.15}, {"F", 1.0 / 1.8, 32.0}, {"C", 1.0, 0.0}};

constexpr UnitDefinition kDefinitions[] = {
    {Unit::ModelLength, "P"},
    {Unit::Length, "L"},
    {Unit::Force, "F"},
    {Unit::Area, "L²"},
    {Unit::SectionModulus, "L³"},
    {Unit::Inertia, "L⁴"},
    {Unit::WarpingConstant, "L⁶"},
    {Unit::Angle, "deg", std::numbers::pi / 180.0},
    {Unit::Temperature, "T"},
    {Unit::TemperatureDifference, "T"},
    {Unit::ThermalCoefficient, "1/T"},
    {Unit::Moment, "F·L"},
    {Unit::MomentPerLength, "F·L/L"},
    {Unit::Stiffness, "F/L"},
    {Unit::LineLoad, "F/L"},
    {Unit::AreaLoad, "F/L²"},
    {Unit::Stress, "F/L²"},
    {Unit::RotationalStiffness, "F·L/rad"},
    {Unit::WeightDensity, "F/L³"},
    {Unit::MassDensity, "M/L³"},
    {Unit::Time, "sec", 1.0},
    {Unit::Frequency, "Hz", 1.0},
    {Unit::Mass, "M"},
    {Unit::RotationalMass, "M·L²"},
    {Unit::Velocity, "L/sec"},
    {Unit::Acceleration, "L/sec²"},
    {Unit::FlexuralRigidity, "F·L²"},
    {Unit::FixedStress, "N/mm²", 1.0e6},
    {Unit::FixedWeightDensity, "kgf/m³", kGravity},
};

struct Superscript {
    std::string_view text;
    int power;
};
constexpr Superscript kSuperscripts[] = {{"²", 2}, {"³", 3}, {"⁴", 4}, {"⁶", 6}};

const UnitDefinition* FindDefinition(int unitCode) {
    for (const UnitDefinition& definition : kDefinitions) {
        if (definition.code == unitCode) return &definition;
    }
    return nullptr;
}

const UnitChoice* ChoiceOfLetter(char letter, const T_UNIT_INDEX& index) {
    switch (letter) {
        case 'F': return &kForce[index.force];
        case 'L': return &kLength[index.length];
        case 'P': return &kLength[index.modelLength];
        case 'M': return &kMass[index.mass];
        case 'T': return &kTemperature[index.temperature];
        default: return nullptr;
    }
}

/// The superscript that follows a letter of a pattern, 1 when none does.
int PowerAt(std::string_view rest) {
    for (const Superscript& superscript : kSuperscripts) {
        if (rest.starts_with(superscript.text)) return superscript.power;
    }
    return 1;
}

/// Size of one unit of a pattern in SI units.
double PatternSize(std::string_view pattern, const T_UNIT_INDEX& index) {
    double above = 1.0;
    double below = 1.0;
    bool divides = false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '/') divides = true;
        const UnitChoice* choice = ChoiceOfLetter(pattern[i], index);
        if (!choice) continue;
        for (int power = PowerAt(pattern.substr(i + 1)); power > 0; --power) (divides ? below : above) *= choice->size;
    }
    return above / below;
}

std::string PatternLabel(std::string_view pattern, const T_UNIT_INDEX& index) {
    std::string label;
    for (const char letter : pattern) {
        const UnitChoice* choice = ChoiceOfLetter(letter, index);
        if (choice && (letter == 'T') && choice->label != "K") label += "°";
        if (choice) {
            label += choice->label;
        } else {
            label += letter;
        }
    }
    return label;
}

/// The exponent of length that a pattern has.
int LengthPower(std::string_view pattern) {
    int power = 0;
    int sign = 1;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '/') sign = -1;
        if (pattern[i] == 'L' || pattern[i] == 'P') power += sign * PowerAt(pattern.substr(i + 1));
    }
    return power;
}

const CUnitCtrl* OpenDocumentUnits() { return CDBDoc::m_pDBDoc ? CDBDoc::m_pDBDoc->GetUnitCtrl() : nullptr; }

}  // namespace

CUnitCtrl::CUnitCtrl() : size_(SizesOf(current_)), previousSize_(size_) {}

std::size_t CUnitCtrl::Checked(int unitCode) {
    return unitCode > 0 && unitCode < Unit::kCodeLimit ? static_cast<std::size_t>(unitCode) : 0;
}

CUnitCtrl::Sizes CUnitCtrl::SizesOf(const T_UNIT_INDEX& index) {
    Sizes sizes;
    sizes.fill(1.0);
    for (const UnitDefinition& definition : kDefinitions) {
        const bool fixed = definition.fixedSize != 0.0;
        sizes[Checked(definition.code)] = fixed ? definition.fixedSize : PatternSize(definition.pattern, index);
    }
    return sizes;
}

int CUnitCtrl::SetUnitIndexCurrent(const T_UNIT_INDEX& index, int tell) {
    for (int quantity = 0; quantity <= static_cast<int>(UnitQuantity::Temperature); ++quantity) {
        int count = 0;
        Choices(static_cast<UnitQuantity>(quantity), count);
        const int chosen = IndexOf(index, static_cast<UnitQuantity>(quantity));
        if (chosen < 0 || chosen >= count) return 0;
    }
    if (tell != 0) {
        previous_ = current_;
        previousSize_ = size_;
    }
    current_ = index;
    size_ = SizesOf(index);
    if (tell != 0 && listener_) listener_();
    return 1;
}

// A sum of a scale factor and a shift loses digits of small readings. What is lost lies beyond the 13th decimal, so
// that rounding there gives the reading back as it was typed.
double CUnitCtrl::TemperatureFromBase(double celsius, const T_UNIT_INDEX& index) {
    const UnitChoice& scale = kTemperature[index.temperature];
    if (scale.zero == 0.0) return celsius;
    const double reading = celsius / scale.size + scale.zero;
    constexpr double kDecimals = 1.0e13;
    const double scaled = reading * kDecimals;
    return std::abs(scaled) < 1.0e18 ? std::round(scaled) / kDecimals : reading;
}

double CUnitCtrl::TemperatureToBase(double value, const T_UNIT_INDEX& index) {
    const UnitChoice& scale = kTemperature[index.temperature];
    return scale.zero == 0.0 ? value : (value - scale.zero) * scale.size;
}

std::optional<CUnitCtrl> CUnitCtrl::WithForceAndLength(int force, int length) const {
    T_UNIT_INDEX target = current_;
    target.force = force;
    target.length = length;
    CUnitCtrl other;
    if (!other.SetUnitIndexCurrent(target)) return std::nullopt;
    return other;
}

double CUnitCtrl::ConvertCurUnitData2TgtUnit(int unitCode, int force, int length, double value) const {
    const auto other = WithForceAndLength(force, length);
    return other ? other->ToCurrent(unitCode, ToBase(unitCode, value)) : value;
}

double CUnitCtrl::ConvertTgtUnitData2CurUnit(int unitCode, int force, int length, double value) const {
    const auto other = WithForceAndLength(force, length);
    return other ? ToCurrent(unitCode, other->ToBase(unitCode, value)) : value;
}

double CUnitCtrl::ConvValueTgtUnit2CurUnit(int unitCode, int force, int length, double value) {
    const CUnitCtrl* units = OpenDocumentUnits();
    return units ? units->ConvertTgtUnitData2CurUnit(unitCode, force, length, value) : value;
}

double CUnitCtrl::ModelLengthRatio(int unitCode) const {
    const UnitDefinition* definition = FindDefinition(unitCode);
    if (!definition || definition->fixedSize != 0.0) return 1.0;
    const double ratio = kLength[current_.length].size / kLength[current_.modelLength].size;
    return std::pow(ratio, LengthPower(definition->pattern));
}

double CUnitCtrl::ConvValueCurUnit2ModelLengthUnit(int unitCode, double value) {
    const CUnitCtrl* units = OpenDocumentUnits();
    if (!units || units->current_.length == units->current_.modelLength) return value;
    return value * units->ModelLengthRatio(unitCode);
}

double CUnitCtrl::ConvValueModelLengthUnit2CurUnit(int unitCode, double value) {
    const CUnitCtrl* units = OpenDocumentUnits();
    if (!units || units->current_.length == units->current_.modelLength) return value;
    return value / units->ModelLengthRatio(unitCode);
}

int CUnitCtrl::GetUnitSystem(int unitCode, std::string& text) {
    const CUnitCtrl* units = OpenDocumentUnits();
    text = units ? units->Label(unitCode) : CUnitCtrl().Label(unitCode);
    return text.empty() ? 0 : 1;
}

std::string CUnitCtrl::Label(int unitCode) const {
    const UnitDefinition* definition = FindDefinition(unitCode);
    if (!definition) return {};
    if (definition->fixedSize != 0.0) return std::string(definition->pattern);
    return PatternLabel(definition->pattern, current_);
}

const UnitChoice* CUnitCtrl::Choices(UnitQuantity quantity, int& count) {
    const auto table = [&count](const auto& choices) {
        count = static_cast<int>(std::size(choices));
        return static_cast<const UnitChoice*>(choices);
    };
    switch (quantity) {
        case UnitQuantity::Mass: return table(kMass);
        case UnitQuantity::Force: return table(kForce);
        case UnitQuantity::Temperature: return table(kTemperature);
        case UnitQuantity::ModelLength:
        case UnitQuantity::Length: break;
    }
    return table(kLength);
}

int CUnitCtrl::FindChoice(UnitQuantity quantity, std::string_view label) {
    int count = 0;
    const UnitChoice* choices = Choices(quantity, count);
    for (int i = 0; i < count; ++i) {
        if (choices[i].label == label) return i;
    }
    return -1;
}

int& CUnitCtrl::IndexOf(T_UNIT_INDEX& index, UnitQuantity quantity) {
    switch (quantity) {
        case UnitQuantity::Mass: return index.mass;
        case UnitQuantity::ModelLength: return index.modelLength;
        case UnitQuantity::Force: return index.force;
        case UnitQuantity::Length: return index.length;
        case UnitQuantity::Temperature: break;
    }
    return index.temperature;
}

int CUnitCtrl::IndexOf(const T_UNIT_INDEX& index, UnitQuantity quantity) {
    T_UNIT_INDEX copy = index;
    return IndexOf(copy, quantity);
}

}  // namespace zt
