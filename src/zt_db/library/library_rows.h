#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>

namespace zt {

// The rows of the library. Lengths are in mm, areas in mm2, second moments in mm4, strengths and elasticity in N/mm2,
// density in kg/m3, thermal coefficients in 1/C, mass of bars and sections in kg/m. A figure that a row does not give
// is 0.

/// A grade of steel.
struct SteelGrade {
    static constexpr std::size_t kBands = 6;

    std::string code{};
    std::string name{};
    std::string productStandard{};
    double elasticity = 0.0;
    double poisson = 0.0;
    double thermal = 0.0;
    double density = 0.0;
    double fy = 0.0;  ///< of the thinnest band
    double fu = 0.0;
    /// Greatest thickness of each band and the yield strength there; 0 is without limit, a band without strength is
    /// none.
    std::array<double, kBands> bandThickness{};
    std::array<double, kBands> bandFy{};
    std::string checked{};
};

/// A grade of concrete.
struct ConcreteGrade {
    std::string code{};
    std::string name{};
    double fck = 0.0;      ///< strength of the cylinder or the prism
    double fckCube = 0.0;  ///< strength of the cube
    double elasticity = 0.0;
    double poisson = 0.0;
    double thermal = 0.0;
    double density = 0.0;  ///< with reinforcement
    double fcm = 0.0;
    double ft = 0.0;
    std::string checked{};
};

/// A section of a standard, or of the user's own.
struct LibrarySection {
    std::string standard{};
    std::string shape{};
    std::string series{};
    std::string name{};
    std::array<double, 9> size{};
    double area = 0.0;
    double iyy = 0.0;
    double izz = 0.0;
    double j = 0.0;
    double mass = 0.0;
    /// Where the figures come from: "tab" as published, "mix" the mass as published and the rest computed, "calc" all
    /// computed. `jFigures` tells it of the torsion constant.
    std::string figures{};
    std::string jFigures{};
    /// "yes" where the published figures do not belong to the published sizes.
    std::string deviates{};
};

/// A reinforcing bar.
struct LibraryBar {
    std::string standard{};
    std::string name{};
    std::string otherName{};
    double diameter = 0.0;
    double area = 0.0;
    double perimeter = 0.0;
    double mass = 0.0;
    std::string checked{};
};

/// A grade of reinforcing bars.
struct LibraryBarGrade {
    std::string standard{};
    std::string name{};
    double fy = 0.0;
    double fyMax = 0.0;
    double fuMin = 0.0;
    double elasticity = 0.0;
    std::string property{};
    std::string surface{};
    std::string checked{};
};

/// A spacing of bars.
struct LibrarySpacing {
    std::string name{};
    double spacing = 0.0;
};

/// A bolt, a stud, or a material of them, by category.
struct LibraryBolt {
    std::string category{};
    std::string standard{};
    std::string name{};
    double diameter = 0.0;
    double pitch = 0.0;
    double nominalArea = 0.0;
    double tensileArea = 0.0;
    double acrossFlats = 0.0;
    double headHeight = 0.0;
    double headDiameter = 0.0;
    double holeEn = 0.0;
    double holeUsKr = 0.0;
    double fy = 0.0;
    double fu = 0.0;
    std::string checked{};
};

/// A thickness of plates; the mass is that of a square metre.
struct LibraryPlate {
    std::string standard{};
    double thickness = 0.0;
    double mass = 0.0;
    std::string checked{};
};

/// The codes that are used together with a code for concrete.
struct DesignCodeSet {
    std::string concrete{};
    std::string steel{};
    std::string barStandard{};
    std::string sectionStandard{};
};

/// What a value of a table must be.
enum class ValueRule { Free, Name, Number, Positive };

/// A column of a table: its title, where its value stands in the row, and what it must be.
template <class Row, class Value>
struct LibraryColumn {
    std::string_view title;
    Value Row::*member;
    ValueRule rule;
    std::size_t index = 0;  ///< place in an array

    auto& In(Row& row) const {
        if constexpr (requires(Value value) { value.fill(0.0); }) {
            return (row.*member)[index];
        } else {
            return row.*member;
        }
    }
};

template <class Row>
constexpr auto NameColumn(std::string_view title, std::string Row::*member) {
    return LibraryColumn<Row, std::string>{title, member, ValueRule::Name};
}
template <class Row>
constexpr auto TextColumn(std::string_view title, std::string Row::*member) {
    return LibraryColumn<Row, std::string>{title, member, ValueRule::Free};
}
template <class Row>
constexpr auto NumberColumn(std::string_view title, double Row::*member) {
    return LibraryColumn<Row, double>{title, member, ValueRule::Number};
}
template <class Row>
constexpr auto PositiveColumn(std::string_view title, double Row::*member) {
    return LibraryColumn<Row, double>{title, member, ValueRule::Positive};
}
template <class Row, std::size_t N>
constexpr auto ItemColumn(std::string_view title, std::array<double, N> Row::*member, std::size_t index) {
    return LibraryColumn<Row, std::array<double, N>>{title, member, ValueRule::Number, index};
}

/// The table of a class of rows: its kind, its columns, and how many of the first columns make a row unique.
template <class Row>
struct LibraryTable;

template <>
struct LibraryTable<SteelGrade> {
    static constexpr std::string_view kind = "materials_steel";
    static constexpr std::size_t keyColumns = 2;
    static constexpr auto columns = std::tuple{
        NameColumn("code", &SteelGrade::code),
        NameColumn("grade", &SteelGrade::name),
        TextColumn("product_standard", &SteelGrade::productStandard),
        PositiveColumn("E_N_per_mm2", &SteelGrade::elasticity),
        NumberColumn("poisson", &SteelGrade::poisson),
        NumberColumn("thermal_per_C", &SteelGrade::thermal),
        PositiveColumn("density_kg_per_m3", &SteelGrade::density),
        PositiveColumn("Fy_N_per_mm2", &SteelGrade::fy),
        NumberColumn("Fu_N_per_mm2", &SteelGrade::fu),
        ItemColumn("t1_max_mm", &SteelGrade::bandThickness, 0),
        ItemColumn("Fy1_N_per_mm2", &SteelGrade::bandFy, 0),
        ItemColumn("t2_max_mm", &SteelGrade::bandThickness, 1),
        ItemColumn("Fy2_N_per_mm2", &SteelGrade::bandFy, 1),
        ItemColumn("t3_max_mm", &SteelGrade::bandThickness, 2),
        ItemColumn("Fy3_N_per_mm2", &SteelGrade::bandFy, 2),
        ItemColumn("t4_max_mm", &SteelGrade::bandThickness, 3),
        ItemColumn("Fy4_N_per_mm2", &SteelGrade::bandFy, 3),
        ItemColumn("t5_max_mm", &SteelGrade::bandThickness, 4),
        ItemColumn("Fy5_N_per_mm2", &SteelGrade::bandFy, 4),
        ItemColumn("t6_max_mm", &SteelGrade::bandThickness, 5),
        ItemColumn("Fy6_N_per_mm2", &SteelGrade::bandFy, 5),
        TextColumn("checked", &SteelGrade::checked),
    };
};

template <>
struct LibraryTable<ConcreteGrade> {
    static constexpr std::string_view kind = "materials_concrete";
    static constexpr std::size_t keyColumns = 2;
    static constexpr auto columns = std::tuple{
        NameColumn("code", &ConcreteGrade::code),
        NameColumn("grade", &ConcreteGrade::name),
        PositiveColumn("fck_N_per_mm2", &ConcreteGrade::fck),
        NumberColumn("fck_cube_N_per_mm2", &ConcreteGrade::fckCube),
        PositiveColumn("E_N_per_mm2", &ConcreteGrade::elasticity),
        NumberColumn("poisson", &ConcreteGrade::poisson),
        NumberColumn("thermal_per_C", &ConcreteGrade::thermal),
        PositiveColumn("density_kg_per_m3", &ConcreteGrade::density),
        NumberColumn("fcm_N_per_mm2", &ConcreteGrade::fcm),
        NumberColumn("ft_N_per_mm2", &ConcreteGrade::ft),
        TextColumn("checked", &ConcreteGrade::checked),
    };
};

template <>
struct LibraryTable<LibrarySection> {
    static constexpr std::string_view kind = "sections";
    static constexpr std::size_t keyColumns = 2;
    static constexpr auto columns = std::tuple{
        NameColumn("standard", &LibrarySection::standard), NameColumn("name", &LibrarySection::name),
        NameColumn("shape", &LibrarySection::shape),       TextColumn("series", &LibrarySection::series),
        ItemColumn("d1_mm", &LibrarySection::size, 0),     ItemColumn("d2_mm", &LibrarySection::size, 1),
        ItemColumn("d3_mm", &LibrarySection::size, 2),     ItemColumn("d4_mm", &LibrarySection::size, 3),
        ItemColumn("d5_mm", &LibrarySection::size, 4),     ItemColumn("d6_mm", &LibrarySection::size, 5),
        ItemColumn("d7_mm", &LibrarySection::size, 6),     ItemColumn("d8_mm", &LibrarySection::size, 7),
        ItemColumn("d9_mm", &LibrarySection::size, 8),     NumberColumn("area_mm2", &LibrarySection::area),
        NumberColumn("Iyy_mm4", &LibrarySection::iyy),     NumberColumn("Izz_mm4", &LibrarySection::izz),
        NumberColumn("J_mm4", &LibrarySection::j),         NumberColumn("mass_kg_per_m", &LibrarySection::mass),
        TextColumn("figures", &LibrarySection::figures),   TextColumn("J_figures", &LibrarySection::jFigures),
        TextColumn("deviates", &LibrarySection::deviates),
    };
};

template <>
struct LibraryTable<LibraryBar> {
    static constexpr std::string_view kind = "rebar_bars";
    static constexpr std::size_t keyColumns = 2;
    static constexpr auto columns = std::tuple{
        NameColumn("standard", &LibraryBar::standard),    NameColumn("name", &LibraryBar::name),
        TextColumn("alt_name", &LibraryBar::otherName),   PositiveColumn("diameter_mm", &LibraryBar::diameter),
        PositiveColumn("area_mm2", &LibraryBar::area),    NumberColumn("perimeter_mm", &LibraryBar::perimeter),
        NumberColumn("mass_kg_per_m", &LibraryBar::mass), TextColumn("checked", &LibraryBar::checked),
    };
};

template <>
struct LibraryTable<LibraryBarGrade> {
    static constexpr std::string_view kind = "rebar_grades";
    static constexpr std::size_t keyColumns = 2;
    static constexpr auto columns = std::tuple{
        NameColumn("standard", &LibraryBarGrade::standard),
        NameColumn("grade", &LibraryBarGrade::name),
        PositiveColumn("fy_N_per_mm2", &LibraryBarGrade::fy),
        NumberColumn("fy_max_N_per_mm2", &LibraryBarGrade::fyMax),
        NumberColumn("fu_min_N_per_mm2", &LibraryBarGrade::fuMin),
        PositiveColumn("Es_N_per_mm2", &LibraryBarGrade::elasticity),
        TextColumn("property", &LibraryBarGrade::property),
        TextColumn("surface", &LibraryBarGrade::surface),
        TextColumn("checked", &LibraryBarGrade::checked),
    };
};

template <>
struct LibraryTable<LibrarySpacing> {
    static constexpr std::string_view kind = "rebar_spacings";
    static constexpr std::size_t keyColumns = 1;
    static constexpr auto columns = std::tuple{
        NameColumn("name", &LibrarySpacing::name),
        PositiveColumn("spacing_mm", &LibrarySpacing::spacing),
    };
};

template <>
struct LibraryTable<LibraryBolt> {
    static constexpr std::string_view kind = "bolts";
    static constexpr std::size_t keyColumns = 3;
    static constexpr auto columns = std::tuple{
        NameColumn("category", &LibraryBolt::category),
        NameColumn("standard", &LibraryBolt::standard),
        NameColumn("name", &LibraryBolt::name),
        NumberColumn("d_mm", &LibraryBolt::diameter),
        NumberColumn("pitch_mm", &LibraryBolt::pitch),
        NumberColumn("area_nominal_mm2", &LibraryBolt::nominalArea),
        NumberColumn("area_tensile_mm2", &LibraryBolt::tensileArea),
        NumberColumn("across_flats_mm", &LibraryBolt::acrossFlats),
        NumberColumn("head_height_mm", &LibraryBolt::headHeight),
        NumberColumn("head_diameter_mm", &LibraryBolt::headDiameter),
        NumberColumn("hole_en_mm", &LibraryBolt::holeEn),
        NumberColumn("hole_us_kr_mm", &LibraryBolt::holeUsKr),
        NumberColumn("Fy_N_per_mm2", &LibraryBolt::fy),
        NumberColumn("Fu_N_per_mm2", &LibraryBolt::fu),
        TextColumn("checked", &LibraryBolt::checked),
    };
};

template <>
struct LibraryTable<LibraryPlate> {
    static constexpr std::string_view kind = "plates";
    static constexpr std::size_t keyColumns = 2;
    static constexpr auto columns = std::tuple{
        NameColumn("standard", &LibraryPlate::standard),
        PositiveColumn("thickness_mm", &LibraryPlate::thickness),
        NumberColumn("mass_kg_per_m2", &LibraryPlate::mass),
        TextColumn("checked", &LibraryPlate::checked),
    };
};

template <>
struct LibraryTable<DesignCodeSet> {
    static constexpr std::string_view kind = "design_codes";
    static constexpr std::size_t keyColumns = 1;
    static constexpr auto columns = std::tuple{
        NameColumn("concrete_code", &DesignCodeSet::concrete),
        NameColumn("steel_code", &DesignCodeSet::steel),
        NameColumn("rebar_standard", &DesignCodeSet::barStandard),
        NameColumn("section_standard", &DesignCodeSet::sectionStandard),
    };
};

}  // namespace zt
