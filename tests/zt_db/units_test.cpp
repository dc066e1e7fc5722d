#include <cmath>
#include <random>

#include "velda_lib/number_text.h"
#include "zt_db/test_support.h"

namespace zt {
namespace {

using Units = ModelTest;

/// Every unit system that can be chosen.
std::vector<T_UNIT_INDEX> AllSystems() {
    std::vector<T_UNIT_INDEX> systems{T_UNIT_INDEX{}};
    for (int quantity = 0; quantity <= static_cast<int>(UnitQuantity::Temperature); ++quantity) {
        int count = 0;
        CUnitCtrl::Choices(static_cast<UnitQuantity>(quantity), count);
        std::vector<T_UNIT_INDEX> more;
        for (const T_UNIT_INDEX& system : systems) {
            for (int choice = 0; choice < count; ++choice) {
                more.push_back(system);
                CUnitCtrl::IndexOf(more.back(), static_cast<UnitQuantity>(quantity)) = choice;
            }
        }
        systems = std::move(more);
    }
    return systems;
}

TEST_F(Units, LabelsFollowTheChosenUnits) {
    T_UNIT_INDEX system;
    system.force = CUnitCtrl::FindChoice(UnitQuantity::Force, "tonf");
    system.length = CUnitCtrl::FindChoice(UnitQuantity::Length, "cm");
    system.modelLength = CUnitCtrl::FindChoice(UnitQuantity::ModelLength, "ft");
    system.temperature = CUnitCtrl::FindChoice(UnitQuantity::Temperature, "F");
    ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(system));
    const std::pair<int, const char*> expected[] = {
        {Unit::None, ""},
        {Unit::ModelLength, "ft"},
        {Unit::Length, "cm"},
        {Unit::Force, "tonf"},
        {Unit::Area, "cm²"},
        {Unit::Moment, "tonf·cm"},
        {Unit::Stiffness, "tonf/cm"},
        {Unit::Stress, "tonf/cm²"},
        {Unit::Mass, "t"},
        {Unit::RotationalMass, "t·cm²"},
        {Unit::FlexuralRigidity, "tonf·cm²"},
        {Unit::WarpingConstant, "cm⁶"},
        {Unit::Angle, "deg"},
        {Unit::Temperature, "°F"},
        {Unit::ThermalCoefficient, "1/°F"},
        {Unit::RotationalStiffness, "tonf·cm/rad"},
        {Unit::MomentPerLength, "tonf·cm/cm"},
        {Unit::FixedStress, "N/mm²"},
    };
    for (const auto& [code, label] : expected) {
        std::string text = "left";
        EXPECT_EQ(CUnitCtrl::GetUnitSystem(code, text), code == Unit::None ? 0 : 1);
        EXPECT_EQ(text, label);
    }
}

TEST_F(Units, TheCodesOfTheProjectDoNotChange) {
    EXPECT_EQ(Unit::ModelLength, 1);
    EXPECT_EQ(Unit::Length, 2);
    EXPECT_EQ(Unit::Force, 3);
    EXPECT_EQ(Unit::Moment, 12);
    EXPECT_EQ(Unit::Stiffness, 14);
    EXPECT_EQ(Unit::Stress, 17);
    EXPECT_EQ(Unit::Mass, 23);
    EXPECT_EQ(Unit::RotationalMass, 24);
    EXPECT_EQ(Unit::FlexuralRigidity, 53);
}

TEST_F(Units, ASwitchRewritesNothing) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, T_THIK_D{.thickness = 0.2}));
    const std::size_t steps = Db().GetUndoNames().size();
    SetUnits(2, 1);
    T_THIK_D record;
    ASSERT_TRUE(Records<CClassThik>().Get(1, record));
    EXPECT_DOUBLE_EQ(record.thickness, 200.0);
    EXPECT_EQ(Db().GetUndoNames().size(), steps);
    ASSERT_TRUE(Records<CClassThik>().TR_Modify(1, 1, T_THIK_D{.thickness = 250.0}));
    SetUnits(3, 0);
    ASSERT_TRUE(Records<CClassThik>().Get(1, record));
    EXPECT_DOUBLE_EQ(record.thickness, 0.25);
}

TEST_F(Units, AllNumbersOfNestedGroupsAndListsAreConverted) {
    T_SECT_D section;
    section.base.size[0] = 400.0;
    section.stiffness.iyy = 2.0e8;
    SetUnits(2, 1);
    ASSERT_TRUE(Records<CClassSect>().TR_Add(1, section));
    SetUnits(3, 0);
    ASSERT_TRUE(Records<CClassSect>().Get(1, section));
    EXPECT_DOUBLE_EQ(section.base.size[0], 0.4);
    EXPECT_DOUBLE_EQ(section.stiffness.iyy, 2.0e-4);
}

TEST_F(Units, FixedUnitsDoNotFollow) {
    T_MATL_D material;
    material.analysis[0].elasticity = 210000.0;
    material.analysis[1].density = 2400.0;
    ASSERT_TRUE(Records<CClassMatl>().TR_Add(1, material));
    SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, "kip"), CUnitCtrl::FindChoice(UnitQuantity::Length, "in"));
    ASSERT_TRUE(Records<CClassMatl>().Get(1, material));
    EXPECT_EQ(velda::FormatDouble(material.analysis[0].elasticity), "210000");
    EXPECT_EQ(velda::FormatDouble(material.analysis[1].density), "2400");
}

TEST_F(Units, KnownConversions) {
    CUnitCtrl& units = *doc->GetUnitCtrl();
    const auto in = [&](const char* force, const char* length) {
        SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, force),
                 CUnitCtrl::FindChoice(UnitQuantity::Length, length));
    };
    in("kip", "ft");
    EXPECT_NEAR(units.ToCurrent(Unit::Moment, 1.0e6), 737.562149277, 1e-8);
    EXPECT_NEAR(units.ToCurrent(Unit::Length, 0.3048), 1.0, 1e-15);
    in("tonf", "cm");
    EXPECT_NEAR(units.ToCurrent(Unit::Stress, 98066.5), 0.001, 1e-15);
    EXPECT_NEAR(units.ToBase(Unit::Angle, 180.0), 3.14159265358979, 1e-14);
    EXPECT_DOUBLE_EQ(units.GetConvertFactorCurrent(Unit::Length), 100.0);
    EXPECT_DOUBLE_EQ(units.GetConvertFactorCurrent(Unit::None), 1.0);
    EXPECT_DOUBLE_EQ(units.GetConvertFactorCurrent(9999), 1.0);
}

TEST_F(Units, TemperaturesHaveScalesAndDifferences) {
    CUnitCtrl& units = *doc->GetUnitCtrl();
    T_UNIT_INDEX system;
    system.temperature = CUnitCtrl::FindChoice(UnitQuantity::Temperature, "F");
    ASSERT_TRUE(units.SetUnitIndexCurrent(system));
    EXPECT_DOUBLE_EQ(units.ToCurrent(Unit::Temperature, 100.0), 212.0);
    EXPECT_DOUBLE_EQ(units.ToBase(Unit::Temperature, 32.0), 0.0);
    EXPECT_DOUBLE_EQ(units.ToCurrent(Unit::TemperatureDifference, 10.0), 18.0);
    EXPECT_DOUBLE_EQ(units.ToCurrent(Unit::ThermalCoefficient, 1.8e-5), 1.0e-5);
}

TEST_F(Units, TargetUnitsOfForceAndLength) {
    SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, "kN"), CUnitCtrl::FindChoice(UnitQuantity::Length, "m"));
    CUnitCtrl& units = *doc->GetUnitCtrl();
    const int newton = CUnitCtrl::FindChoice(UnitQuantity::Force, "N");
    const int mm = CUnitCtrl::FindChoice(UnitQuantity::Length, "mm");
    EXPECT_DOUBLE_EQ(units.ConvertCurUnitData2TgtUnit(Unit::Moment, newton, mm, 1.0), 1.0e6);
    EXPECT_DOUBLE_EQ(units.ConvertTgtUnitData2CurUnit(Unit::Moment, newton, mm, 1.0e6), 1.0);
    EXPECT_DOUBLE_EQ(CUnitCtrl::ConvValueTgtUnit2CurUnit(Unit::Length, 0, mm, 16.0), 0.016);
    EXPECT_DOUBLE_EQ(units.ConvertCurUnitData2TgtUnit(Unit::Moment, 99, mm, 3.0), 3.0);
}

TEST_F(Units, TheModelLengthIsApartFromTheCurrentOne) {
    SetUnits(3, CUnitCtrl::FindChoice(UnitQuantity::Length, "mm"));
    EXPECT_DOUBLE_EQ(CUnitCtrl::ConvValueCurUnit2ModelLengthUnit(Unit::Length, 2500.0), 2.5);
    EXPECT_DOUBLE_EQ(CUnitCtrl::ConvValueModelLengthUnit2CurUnit(Unit::Length, 2.5), 2500.0);
    EXPECT_DOUBLE_EQ(CUnitCtrl::ConvValueCurUnit2ModelLengthUnit(Unit::ModelLength, 2500.0), 2.5);
    EXPECT_DOUBLE_EQ(CUnitCtrl::ConvValueCurUnit2ModelLengthUnit(Unit::Area, 1.0e6), 1.0);
    EXPECT_DOUBLE_EQ(CUnitCtrl::ConvValueCurUnit2ModelLengthUnit(Unit::Force, 5.0), 5.0);
    doc.reset();
    EXPECT_DOUBLE_EQ(CUnitCtrl::ConvValueCurUnit2ModelLengthUnit(Unit::Length, 2500.0), 2500.0);
    EXPECT_DOUBLE_EQ(CUnitCtrl::ConvValueTgtUnit2CurUnit(Unit::Length, 0, 1, 16.0), 16.0);
}

TEST_F(Units, AnIndexOutsideItsTableIsRefusedWhole) {
    T_UNIT_INDEX before;
    doc->GetUnitCtrl()->GetUnitIndexCurrent(before);
    for (const int wrong : {-1, 99}) {
        for (int quantity = 0; quantity <= static_cast<int>(UnitQuantity::Temperature); ++quantity) {
            T_UNIT_INDEX system = before;
            CUnitCtrl::IndexOf(system, static_cast<UnitQuantity>(quantity)) = wrong;
            EXPECT_FALSE(doc->GetUnitCtrl()->SetUnitIndexCurrent(system, 1));
        }
    }
    T_UNIT_INDEX after;
    doc->GetUnitCtrl()->GetUnitIndexCurrent(after);
    EXPECT_EQ(after, before);
}

/// A random decimal with up to 15 digits, as a user might type it.
double TypedNumber(std::mt19937_64& random, int maxDigits, int maxDecimals) {
    const int digits = static_cast<int>(random() % static_cast<unsigned>(maxDigits)) + 1;
    std::string text = random() % 2 == 0 ? "-" : "";
    for (int i = 0; i < digits; ++i) text += static_cast<char>('0' + random() % 10);
    return velda::wtof(text + "e-" + std::to_string(random() % static_cast<unsigned>(maxDecimals + 1))) + 0.0;
}

std::vector<double> TypedNumbers(int maxDigits, int maxDecimals) {
    std::mt19937_64 random(11);
    std::vector<double> values;
    for (int i = 0; i < 10000; ++i) values.push_back(TypedNumber(random, maxDigits, maxDecimals));
    return values;
}

TEST(UnitProperty, ATypedNumberReadsBackTheSameInEverySystemAndCode) {
    const std::vector<double> values = TypedNumbers(15, 20);
    const std::vector<double> temperatures = TypedNumbers(9, 6);
    const std::vector<T_UNIT_INDEX> systems = AllSystems();
    CUnitCtrl units;
    std::size_t system = 0;
    for (int code = 0; code < Unit::kCodeLimit; ++code) {
        for (const double value : code == Unit::Temperature ? temperatures : values) {
            ASSERT_TRUE(units.SetUnitIndexCurrent(systems[system++ % systems.size()]));
            const double stored = units.ToBase(code, value);
            ASSERT_EQ(velda::FormatDouble(units.ToCurrent(code, stored)), velda::FormatDouble(value))
                << "code " << code;
        }
    }
}

/// A code in which each quantity stands alone.
int CodeOf(UnitQuantity quantity) {
    switch (quantity) {
        case UnitQuantity::Mass: return Unit::Mass;
        case UnitQuantity::ModelLength: return Unit::ModelLength;
        case UnitQuantity::Force: return Unit::Force;
        case UnitQuantity::Length: return Unit::Length;
        case UnitQuantity::Temperature: break;
    }
    return Unit::Temperature;
}

// Typed in one unit, shown in another, shown in the first again: 10,000 values for every pair of units of a quantity.
TEST(UnitProperty, ATypedNumberReadsBackTheSameAfterASwitchToEveryOtherUnit) {
    const std::vector<double> values = TypedNumbers(15, 20);
    const std::vector<double> temperatures = TypedNumbers(9, 6);
    CUnitCtrl units;
    for (int q = 0; q <= static_cast<int>(UnitQuantity::Temperature); ++q) {
        const auto quantity = static_cast<UnitQuantity>(q);
        const int code = CodeOf(quantity);
        int count = 0;
        CUnitCtrl::Choices(quantity, count);
        const std::vector<double>& typed = quantity == UnitQuantity::Temperature ? temperatures : values;
        for (int pair = 0; pair < count * count; ++pair) {
            T_UNIT_INDEX first;
            CUnitCtrl::IndexOf(first, quantity) = pair / count;
            T_UNIT_INDEX second = first;
            CUnitCtrl::IndexOf(second, quantity) = pair % count;
            std::vector<double> stored;
            ASSERT_TRUE(units.SetUnitIndexCurrent(first));
            for (const double value : typed) stored.push_back(units.ToBase(code, value));
            ASSERT_TRUE(units.SetUnitIndexCurrent(second));
            for (const double base : stored) ASSERT_TRUE(std::isfinite(units.ToCurrent(code, base)));
            ASSERT_TRUE(units.SetUnitIndexCurrent(first));
            for (std::size_t i = 0; i < typed.size(); ++i) {
                ASSERT_EQ(velda::FormatDouble(units.ToCurrent(code, stored[i])), velda::FormatDouble(typed[i]));
            }
        }
    }
}

TEST_F(Units, ARecordReadsBackAsTypedThroughEverySystem) {
    std::mt19937_64 random(5);
    const std::vector<T_UNIT_INDEX> systems = AllSystems();
    for (std::size_t i = 0; i < systems.size(); ++i) {
        const T_UNIT_INDEX typedIn = systems[random() % systems.size()];
        ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(typedIn));
        const double value = TypedNumber(random, 15, 8);
        const auto key = static_cast<std::uint32_t>(i + 1);
        ASSERT_TRUE(Records<CClassThik>().TR_Add(key, T_THIK_D{.thickness = value}));
        for (int step = 0; step < 3; ++step) {
            ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(systems[random() % systems.size()]));
        }
        ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(typedIn));
        T_THIK_D record;
        ASSERT_TRUE(Records<CClassThik>().Get(key, record));
        ASSERT_EQ(velda::FormatDouble(record.thickness), velda::FormatDouble(value));
    }
}

}  // namespace
}  // namespace zt
