#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "zt_db/units/unit_codes.h"

namespace zt {

/// The choice of a unit for each base quantity: indexes into the tables of CUnitCtrl, in the order of the structure.
struct T_UNIT_INDEX {
    int mass = 1;
    int modelLength = 0;
    int force = 3;
    int length = 0;
    int temperature = 2;
    bool operator==(const T_UNIT_INDEX&) const = default;
};

/// The base quantities that a unit can be chosen for, in the order of T_UNIT_INDEX.
enum class UnitQuantity { Mass, ModelLength, Force, Length, Temperature };

/// A unit that can be chosen: its label and its size in SI units. For temperatures `zero` is the reading of this scale
/// at 0 degrees Celsius, the scale that values are kept in.
struct UnitChoice {
    std::string_view label;
    double size;
    double zero = 0.0;
};

/// The current unit system. Numbers are kept in SI units (m, N, kg, s, rad; temperatures in degrees Celsius) and cross
/// the interface of the database in the current units. A switch of units rewrites no stored number.
///
/// A number with up to 15 digits comes back from the store with the same digits, because it is multiplied and divided
/// by the same factor. A temperature keeps its first 13 decimals.
class CUnitCtrl {
public:
    CUnitCtrl();

    void GetUnitIndexCurrent(T_UNIT_INDEX& index) const { index = current_; }
    /// Makes a unit system current. With `tell` not 0 the previous system is remembered for ConvertUnitPrev and the
    /// views are told. Returns 0, and changes nothing, when an index names no unit.
    int SetUnitIndexCurrent(const T_UNIT_INDEX& index, int tell = 0);

    /// What a value in SI units is multiplied by to give current units; 1 for codes without unit. Temperature scales
    /// have a shift besides, which ToCurrent and ToBase apply.
    double GetConvertFactorCurrent(int unitCode) const { return 1.0 / size_[Checked(unitCode)]; }

    double ToCurrent(int unitCode, double base) const { return FromBase(unitCode, base, size_, current_); }
    double ToBase(int unitCode, double value) const { return IntoBase(unitCode, value, size_, current_); }
    /// A value written under the previous unit system, in the current one.
    double FromPrevious(int unitCode, double value) const {
        return ToCurrent(unitCode, IntoBase(unitCode, value, previousSize_, previous_));
    }

    /// Converts between the current system and one that differs from it in its force and length units. Indexes that
    /// name no unit leave the value as it is.
    double ConvertCurUnitData2TgtUnit(int unitCode, int force, int length, double value) const;
    double ConvertTgtUnitData2CurUnit(int unitCode, int force, int length, double value) const;

    // The static forms use the unit control of the open document; without a document the value stays as it is.
    static double ConvValueTgtUnit2CurUnit(int unitCode, int force, int length, double value);
    /// Converts the length in a value between the current length unit and that of the model.
    static double ConvValueCurUnit2ModelLengthUnit(int unitCode, double value);
    static double ConvValueModelLengthUnit2CurUnit(int unitCode, double value);
    /// Label of a unit code in the current units, such as "kN/m"; empty for codes without unit. Returns whether there
    /// is one.
    static int GetUnitSystem(int unitCode, std::string& text);

    /// Label of a unit code in the units of this control.
    std::string Label(int unitCode) const;

    /// The units that can be chosen for a quantity, in index order.
    static const UnitChoice* Choices(UnitQuantity quantity, int& count);
    /// Index of the unit with a label such as "kN"; -1 when there is none.
    static int FindChoice(UnitQuantity quantity, std::string_view label);
    static int& IndexOf(T_UNIT_INDEX& index, UnitQuantity quantity);
    static int IndexOf(const T_UNIT_INDEX& index, UnitQuantity quantity);

    /// The calls to make when units were switched and the views are to be told.
    void SetListener(std::function<void()> listener) { listener_ = std::move(listener); }

private:
    using Sizes = std::array<double, Unit::kCodeLimit>;

    static std::size_t Checked(int unitCode);
    static Sizes SizesOf(const T_UNIT_INDEX& index);
    static double FromBase(int unitCode, double base, const Sizes& sizes, const T_UNIT_INDEX& index) {
        if (unitCode == Unit::Temperature) return TemperatureFromBase(base, index);
        return base / sizes[Checked(unitCode)];
    }
    static double IntoBase(int unitCode, double value, const Sizes& sizes, const T_UNIT_INDEX& index) {
        if (unitCode == Unit::Temperature) return TemperatureToBase(value, index);
        return value * sizes[Checked(unitCode)];
    }
    static double TemperatureFromBase(double celsius, const T_UNIT_INDEX& index);
    static double TemperatureToBase(double value, const T_UNIT_INDEX& index);
    double ModelLengthRatio(int unitCode) const;
    /// This system with other units of force and length; none for indexes that name no unit.
    std::optional<CUnitCtrl> WithForceAndLength(int force, int length) const;

    T_UNIT_INDEX current_;
    T_UNIT_INDEX previous_;
    Sizes size_;
    Sizes previousSize_;
    std::function<void()> listener_;
};

}  // namespace zt
