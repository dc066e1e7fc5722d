#include "zt_db/library/sect_util.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "zt_db/library/section_geometry.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using testing::ElementsAre;

T_SECT_D Section(int kind, const char* shape, std::array<double, 9> size) {
    T_SECT_D section{.kind = kind, .shape = shape};
    section.base.size = size;
    return section;
}
T_SECT_D Regular(const char* shape, std::array<double, 9> size) { return Section(1, shape, size); }
T_SECT_STIFFNESS Stiffness(const T_SECT_D& section) { return CSectUtil::GetProperStiffPosition(section, 0); }
T_SECT_DESIGN Design(const T_SECT_D& section) { return CSectUtil::GetProperDesignPosition(section, 0); }

void ExpectRatio(double value, double wanted, double tolerance = 1e-6) { EXPECT_NEAR(value / wanted, 1.0, tolerance); }

TEST(SectionType, FollowsTheKindAndTheDatabaseName) {
    T_SECT_D section = Regular("H", {});
    EXPECT_EQ(CSectUtil::GetSectTypeNo(section), 2);
    section.base.dbName = "KS";
    EXPECT_EQ(CSectUtil::GetSectTypeNo(section), 1);
    constexpr int kTypes[][2] = {{2, 3}, {3, 4}, {4, 6}, {5, 5}, {0, 0}, {6, 0}, {-1, 0}};
    for (const auto& [kind, type] : kTypes) EXPECT_EQ(CSectUtil::GetSectTypeNo(Section(kind, "H", {})), type);
}

TEST(ShapeNames, StandInTheOrderOfTheirIndexes) {
    std::vector<std::string> names;
    CSectUtil::GetRegShapeNameList(names);
    EXPECT_THAT(names, ElementsAre("L", "C", "H", "T", "B", "P", "2L", "2C", "SB", "SR", "CC", "CR"));
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(CSectUtil::GetShapeIndexFromNameReg(names[i]), static_cast<int>(i));
    }
    CSectUtil::GetSrcShapeNameList(names);
    ASSERT_EQ(names.size(), 12u);
    EXPECT_EQ(CSectUtil::GetShapeIndexFromNameSrc("Rect-Box-Open"), 0);
    EXPECT_EQ(CSectUtil::GetShapeIndexFromNameSrc("Circle-HBeam"), 11);
    CSectUtil::GetComShapeNameList(names);
    ASSERT_EQ(names.size(), 14u);
    EXPECT_EQ(CSectUtil::GetShapeIndexFromNameCom("2I Combined Shape"), 0);
    EXPECT_EQ(CSectUtil::GetShapeIndexFromNameCom("I-shape with Plate"), 13);
}

TEST(ShapeNames, OfRegularShapesAreCodesOrLongNames) {
    EXPECT_EQ(CSectUtil::GetShapeIndexFromNameReg("H Section"), 2);
    EXPECT_EQ(CSectUtil::GetShapeIndexFromNameReg("H-Section"), 2);
    EXPECT_EQ(CSectUtil::GetShapeIndexFromNameReg("Solid Rectangle"), 8);
    EXPECT_EQ(CSectUtil::GetShapeIndexFromNameReg("Cold Formed Channel"), 10);
}

TEST(ShapeNames, AreComparedExactly) {
    for (const char* name : {"", "h", "H ", "URIB", "2I Combined Shape"}) {
        EXPECT_EQ(CSectUtil::GetShapeIndexFromNameReg(name), -1) << name;
    }
    EXPECT_EQ(CSectUtil::GetShapeIndexFromNameSrc("rect-box-open"), -1);
    EXPECT_EQ(CSectUtil::GetShapeIndexFromNameCom("H"), -1);
}

TEST(SolidRectangle, HasTheTextbookValues) {
    const T_SECT_D section = Regular("SB", {600, 300});
    const T_SECT_STIFFNESS stiffness = Stiffness(section);
    ExpectRatio(stiffness.area, 180000.0);
    ExpectRatio(stiffness.asy, 150000.0);
    ExpectRatio(stiffness.asz, 150000.0);
    ExpectRatio(stiffness.iyy, 300.0 * std::pow(600.0, 3) / 12.0);
    ExpectRatio(stiffness.izz, 600.0 * std::pow(300.0, 3) / 12.0);
    // Timoshenko and Goodier tabulate 0.229 for a side ratio of 2 and 0.1406 for a square.
    ExpectRatio(stiffness.ixx, 0.229 * 600.0 * std::pow(300.0, 3), 0.002);
    ExpectRatio(Stiffness(Regular("SB", {300, 300})).ixx, 0.1406 * std::pow(300.0, 4), 0.001);
    const T_SECT_DESIGN design = Design(section);
    ExpectRatio(design.wey, 300.0 * 600.0 * 600.0 / 6.0);
    ExpectRatio(design.wpy, 300.0 * 600.0 * 600.0 / 4.0);
    ExpectRatio(design.wpz, 600.0 * 300.0 * 300.0 / 4.0);
    ExpectRatio(design.rz, 300.0 / std::sqrt(12.0));
    EXPECT_EQ(design.cw, 0.0);
    EXPECT_EQ(design.j, stiffness.ixx);
    EXPECT_DOUBLE_EQ(CSectUtil::GetStandForPeriOut(section), 1800.0);
    EXPECT_EQ(CSectUtil::GetStandForPeriIn(section), 0.0);
    EXPECT_DOUBLE_EQ(CSectUtil::GetStandForYBar(section), 150.0);
    EXPECT_DOUBLE_EQ(CSectUtil::GetStandForZBar(section), 300.0);
}

TEST(SolidRound, HasTheTextbookValues) {
    const T_SECT_D section = Regular("SR", {100});
    const double inertia = std::numbers::pi * 1e8 / 64.0;
    ExpectRatio(Stiffness(section).area, std::numbers::pi * 2500.0);
    ExpectRatio(Stiffness(section).iyy, inertia);
    ExpectRatio(Stiffness(section).ixx, 2.0 * inertia);
    ExpectRatio(Stiffness(section).asz, 0.9 * std::numbers::pi * 2500.0, 0.001);
    ExpectRatio(Design(section).wey, inertia / 50.0);
    ExpectRatio(Design(section).wpy, 1e6 / 6.0, 1e-4);
    ExpectRatio(CSectUtil::GetStandForPeriOut(section), std::numbers::pi * 100.0);
}

TEST(Pipe, HasAnInnerPerimeterUnlessItIsSolid) {
    const T_SECT_D section = Regular("P", {100, 10});
    ExpectRatio(CSectUtil::GetStandForPeriOut(section), std::numbers::pi * 100.0);
    ExpectRatio(CSectUtil::GetStandForPeriIn(section), std::numbers::pi * 80.0);
    const T_SECT_D full = Regular("P", {100, 50});
    EXPECT_EQ(CSectUtil::GetStandForPeriIn(full), 0.0);
    ExpectRatio(Stiffness(full).iyy, Stiffness(Regular("SR", {100})).iyy);
}

TEST(HSection, HasTheThinWallValues) {
    const T_SECT_D section = Regular("H", {300, 150, 6.5, 9});
    const T_SECT_DESIGN design = Design(section);
    ExpectRatio(design.cw, Stiffness(section).izz * 291.0 * 291.0 / 4.0, 0.002);
    EXPECT_NEAR(design.ey, 0.0, 1e-9);
    EXPECT_NEAR(design.ez, 0.0, 1e-9);
    ExpectRatio(design.wpy, 150.0 * 9.0 * 291.0 + 6.5 * 282.0 * 282.0 / 4.0);
    ExpectRatio(design.wpz, 2.0 * 9.0 * 150.0 * 150.0 / 4.0 + 282.0 * 6.5 * 6.5 / 4.0);
    ExpectRatio(design.rp * design.rp, design.ry * design.ry + design.rz * design.rz);
    ExpectRatio(Stiffness(section).asz, 6.5 * 291.0, 0.05);
    // The flanges as rectangles, and a little for the web where it lies across them.
    EXPECT_GT(Stiffness(section).asy, 2.0 * 150.0 * 9.0 / 1.2);
    EXPECT_LT(Stiffness(section).asy, 2.0 * 150.0 * 9.0);
    ExpectRatio(CSectUtil::GetStandForPeriOut(section), 2.0 * 300.0 + 4.0 * 150.0 - 2.0 * 6.5);
}

TEST(HSection, TakesTheRadiusFromEitherOfItsPlaces) {
    const double sharp = Stiffness(Regular("H", {300, 150, 6.5, 9})).area;
    const double first = Stiffness(Regular("H", {300, 150, 6.5, 9, 13})).area;
    const double second = Stiffness(Regular("H", {300, 150, 6.5, 9, 0, 0, 13})).area;
    EXPECT_EQ(first, second);
    ExpectRatio(first - sharp, (4.0 - std::numbers::pi) * 13.0 * 13.0, 0.01);
}

TEST(Channel, HasItsShearCentreBehindTheWeb) {
    const T_SECT_D section = Regular("C", {200, 80, 6, 10});
    // e = 3 b2 tf / (6 b tf + h tw) behind the middle of the web, by middle lines.
    const double b = 77.0;
    const double h = 190.0;
    const double behind = 3.0 * b * b * 10.0 / (6.0 * b * 10.0 + h * 6.0);
    ExpectRatio(Design(section).ey, -(behind - 3.0 + CSectUtil::GetStandForYBar(section)), 1e-6);
    const double cw = 10.0 * b * b * b * h * h / 12.0 * (3.0 * b * 10.0 + 2.0 * h * 6.0) / (6.0 * b * 10.0 + h * 6.0);
    ExpectRatio(Design(section).cw, cw);
}

TEST(Angle, HasItsShearCentreWhereTheLegsMeet) {
    const T_SECT_D section = Regular("L", {100, 75, 8, 8});
    EXPECT_NEAR(Design(section).ey, 4.0 - CSectUtil::GetStandForYBar(section), 1e-9);
    EXPECT_NEAR(Design(section).ez, 4.0 - CSectUtil::GetStandForZBar(section), 1e-9);
    EXPECT_NEAR(Design(section).cw, 0.0, 1e-3);
}

TEST(DoubleSections, ArePaintedOnlyWhereTheyDoNotTouch) {
    const T_SECT_D touching = Regular("2L", {100, 75, 8, 8, 0});
    const T_SECT_D apart = Regular("2L", {100, 75, 8, 8, 10});
    EXPECT_NEAR(CSectUtil::GetStandForPeriOut(apart) - CSectUtil::GetStandForPeriOut(touching), 200.0, 1e-9);
    ExpectRatio(Stiffness(apart).area, 2.0 * Stiffness(Regular("L", {100, 75, 8, 8})).area);
    EXPECT_NEAR(Design(apart).ey, 0.0, 1e-9);
}

TEST(DoubleSections, ShareNoShearAcrossAGap) {
    const T_SECT_STIFFNESS one = Stiffness(Regular("C", {200, 80, 6, 10}));
    const T_SECT_STIFFNESS two = Stiffness(Regular("2C", {200, 80, 6, 10, 0, 20}));
    ExpectRatio(two.asy, 2.0 * one.asy);
    ExpectRatio(two.asz, 2.0 * one.asz);
}

TEST(DoubleChannel, TakesTheGapFromEitherOfItsPlaces) {
    const double far = Stiffness(Regular("2C", {200, 80, 6, 10, 0, 20})).izz;
    EXPECT_EQ(Stiffness(Regular("2C", {200, 80, 6, 10, 0, 0, 20})).izz, far);
    EXPECT_GT(far, Stiffness(Regular("2C", {200, 80, 6, 10})).izz);
}

TEST(Box, HasTheTorsionOfItsCell) {
    const T_SECT_D section = Regular("B", {200, 100, 5, 5});
    const double enclosed = 195.0 * 95.0;
    const double around = 2.0 * (195.0 + 95.0);
    ExpectRatio(Stiffness(section).ixx, 4.0 * enclosed * enclosed * 5.0 / around + around * 125.0 / 3.0);
    ExpectRatio(CSectUtil::GetStandForPeriIn(section), 2.0 * (190.0 + 90.0));
}

TEST(Cross, HasTheValuesOfTwoBars) {
    const T_SECT_D section = Regular("CR", {200, 100, 10, 20});
    ExpectRatio(Stiffness(section).area, 200.0 * 10.0 + 90.0 * 20.0);
    ExpectRatio(Stiffness(section).iyy, (10.0 * std::pow(200.0, 3) + 90.0 * std::pow(20.0, 3)) / 12.0);
}

TEST(TaperedFlange, KeepsTheAreaAndMovesItToTheWeb) {
    const T_SECT_STIFFNESS level = Stiffness(Regular("H", {300, 150, 8, 12}));
    const T_SECT_STIFFNESS tapered = Stiffness(Regular("H", {300, 150, 8, 12, 0, 0, 0, 0, 10}));
    ExpectRatio(tapered.area, level.area);
    EXPECT_LT(tapered.izz, level.izz);
    EXPECT_GT(tapered.ixx, level.ixx);
}

TEST(Properties, FollowTheUnitOfTheSizes) {
    const T_SECT_D inMm = Regular("C", {200, 80, 6, 10, 12, 5, 0, 0, 2});
    T_SECT_D inM = inMm;
    for (double& size : inM.base.size) size *= 0.001;
    ExpectRatio(Stiffness(inM).area, Stiffness(inMm).area * 1e-6, 1e-9);
    ExpectRatio(Stiffness(inM).asz, Stiffness(inMm).asz * 1e-6, 1e-9);
    ExpectRatio(Stiffness(inM).ixx, Stiffness(inMm).ixx * 1e-12, 1e-9);
    ExpectRatio(Design(inM).wpz, Design(inMm).wpz * 1e-9, 1e-9);
    ExpectRatio(Design(inM).cw, Design(inMm).cw * 1e-18, 1e-9);
}

TEST(Properties, AreZeroForSizesThatMakeNoShape) {
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    const T_SECT_D wrong[] = {
        Regular("H", {}),
        Regular("H", {300, 150, 6.5, 0}),
        Regular("H", {300, 150, 6.5, 150}),
        Regular("H", {300, 150, 150, 9}),
        Regular("H", {-300, 150, 6.5, 9}),
        Regular("H", {kNan, 150, 6.5, 9}),
        Regular("H", {300, 150, 6.5, 9, 0, 0, 0, 0, 18}),
        Regular("C", {100, 50, 50, 7}),
        Regular("T", {100, 50, 5, 100}),
        Regular("L", {50, 50, 50, 5}),
        Regular("B", {100, 100, 50, 5}),
        Regular("B", {100, 100, 5, 5, 0, 0, 51}),
        Regular("P", {100, 51}),
        Regular("P", {100, 0}),
        Regular("SR", {0}),
        Regular("SB", {100, 0}),
        Regular("CC", {100, 50, 20, 0}),
        Regular("CC", {100, 50, 2, 2}),
        Regular("CR", {100, 100, 100, 5}),
        Regular("GEN", {100, 100, 5, 5}),
        Regular("", {100, 100, 5, 5}),
        Section(3, "H", {300, 150, 6.5, 9}),
        Section(9, "H", {300, 150, 6.5, 9}),
        Section(2, "Rect-HBeam", {300, 300, 400, 200, 8, 13}),
        Section(2, "H", {300, 150, 6.5, 9}),
        Section(4, "2T(Web Opened I)", {300, 150, 6.5, 9, 290}),
        Section(4, "H", {300, 150, 6.5, 9}),
    };
    for (const T_SECT_D& section : wrong) {
        SCOPED_TRACE(section.shape + " " + std::to_string(&section - wrong));
        EXPECT_EQ(Stiffness(section), T_SECT_STIFFNESS{});
        EXPECT_EQ(Design(section), T_SECT_DESIGN{});
        EXPECT_EQ(CSectUtil::GetStandForPeriOut(section), 0.0);
        EXPECT_EQ(CSectUtil::GetStandForYBar(section), 0.0);
    }
}

TEST(CompositeSections, CountConcreteByItsElasticity) {
    const T_SECT_D section = Section(2, "Rect-HBeam", {600, 500, 400, 200, 8, 13});
    const T_SECT_STIFFNESS steel = Stiffness(Regular("H", {400, 200, 8, 13}));
    ExpectRatio(Stiffness(section).area, 600.0 * 500.0 / kModularRatio + steel.area * (1.0 - 1.0 / kModularRatio));
    EXPECT_DOUBLE_EQ(CSectUtil::GetStandForPeriOut(section), 2200.0);
    EXPECT_EQ(CSectUtil::GetStandForPeriIn(section), 0.0);
    EXPECT_DOUBLE_EQ(CSectUtil::GetStandForZBar(section), 300.0);
}

TEST(CompositeSections, WithAnOpenTubeAreHollow) {
    const std::array<double, 9> box = {600, 600, 300, 300, 12, 12};
    const double filled = Stiffness(Section(2, "Rect-Box-Close", box)).area;
    const double hollow = Stiffness(Section(2, "Rect-Box-Open", box)).area;
    ExpectRatio(filled - hollow, 276.0 * 276.0 / kModularRatio);
    ExpectRatio(CSectUtil::GetStandForPeriIn(Section(2, "Rect-Box-Open", box)), 4.0 * 276.0);
    const std::array<double, 9> pipe = {600, 0, 300, 0, 12};
    ExpectRatio(
        Stiffness(Section(2, "Circle-Pipe-Close", pipe)).area - Stiffness(Section(2, "Circle-Pipe-Open", pipe)).area,
        std::numbers::pi * 138.0 * 138.0 / kModularRatio);
}

TEST(CompositeSections, WithACrossAreEqualAboutBothAxes) {
    const T_SECT_STIFFNESS cross = Stiffness(Section(2, "Rect-Cross-HBeam", {700, 700, 400, 200, 8, 13}));
    ExpectRatio(cross.iyy, cross.izz);
    ExpectRatio(Stiffness(Section(2, "Circle-Cross-HBeam", {700, 0, 400, 200, 8, 13})).iyy,
                Stiffness(Section(2, "Circle-Cross-HBeam", {700, 0, 400, 200, 8, 13})).izz);
}

TEST(CompositeSections, HavePropertiesForEveryName) {
    std::vector<std::string> names;
    CSectUtil::GetSrcShapeNameList(names);
    for (const std::string& name : names) {
        const T_SECT_D section = Section(2, name.c_str(), {800, 800, 400, 200, 12, 13});
        EXPECT_GT(Stiffness(section).area, 0.0) << name;
        EXPECT_GT(Stiffness(section).ixx, 0.0) << name;
    }
}

/// A combined section, and the area and the second moments that its rectangles have by hand.
struct CombinedCase {
    const char* shape;
    std::array<double, 9> size;
    double area;
};

TEST(CombinedSections, HaveTheAreaOfTheirParts) {
    const double i = 2.0 * 150.0 * 10.0 + 280.0 * 6.0;
    const double c = 2.0 * 80.0 * 10.0 + 180.0 * 6.0;
    const CombinedCase cases[] = {
        {"2I Combined Shape", {300, 150, 6, 10, 20}, 2.0 * i},
        {"I-C Combined Shape", {300, 150, 6, 10, 200, 80, 6, 10}, i + 200.0 * 6.0 + 2.0 * 74.0 * 10.0},
        {"I-C Combined Shape2", {300, 150, 6, 10, 200, 80, 6, 10}, i + 200.0 * 6.0 + 2.0 * 74.0 * 10.0},
        {"I-T Combined Shape", {300, 150, 6, 10, 150, 100, 6, 10}, i + 100.0 * 10.0 + 140.0 * 6.0},
        {"2T(Web Opened I)", {300, 150, 6, 10, 100}, i - 100.0 * 6.0},
        {"2T(Web Opened I)2", {300, 150, 6, 10, 100, 120, 200, 12}, 150.0 * 10 + 70.0 * 6 + 108.0 * 6 + 200.0 * 12},
        {"I-Shape with 2T or Web", {300, 150, 6, 10, 100, 80, 6, 10}, i + 2.0 * (90.0 * 6.0 + 80.0 * 10.0)},
        {"I-Shape with 2T or Web", {300, 150, 6, 10, 100, 0, 6, 0}, i + 2.0 * 100.0 * 6.0},
        {"Web Opened I with Stiffener", {300, 150, 6, 10, 100, 50, 8}, i - 600.0 + 4.0 * 50.0 * 8.0},
        {"2C with Web Plate1", {200, 80, 6, 10, 180, 12}, 2.0 * c + 180.0 * 12.0},
        {"2C with Web Plate2", {200, 80, 6, 10, 160, 8, 30}, 2.0 * (c + 160.0 * 8.0)},
        {"C with Web Plate1", {200, 80, 6, 10, 160, 8}, c + 160.0 * 8.0},
        {"C with Web Plate2", {200, 80, 6, 10, 160, 8}, c + 160.0 * 8.0},
        {"4-Angle", {400, 300, 75, 75, 6}, 4.0 * (75.0 + 69.0) * 6.0},
        {"I-shape with Plate", {300, 150, 6, 10, 180, 12, 200, 14}, i + 180.0 * 12.0 + 200.0 * 14.0},
        {"I-shape with Plate", {300, 150, 6, 10}, i},
    };
    for (const CombinedCase& each : cases) {
        SCOPED_TRACE(each.shape);
        const T_SECT_D section = Section(4, each.shape, each.size);
        ExpectRatio(Stiffness(section).area, each.area);
        EXPECT_GT(Stiffness(section).ixx, 0.0);
        EXPECT_GT(Design(section).wpy, Design(section).wey * 0.999999);
        EXPECT_GT(CSectUtil::GetStandForPeriOut(section), 0.0);
    }
}

TEST(CombinedSections, WithoutAdditionsAreTheirPart) {
    const T_SECT_D plain = Section(4, "I-shape with Plate", {300, 150, 6, 10});
    const T_SECT_D rolled = Regular("H", {300, 150, 6, 10});
    ExpectRatio(Stiffness(plain).iyy, Stiffness(rolled).iyy);
    ExpectRatio(Stiffness(plain).izz, Stiffness(rolled).izz);
    ExpectRatio(CSectUtil::GetStandForPeriOut(plain), CSectUtil::GetStandForPeriOut(rolled));
    ExpectRatio(Design(plain).cw, Design(rolled).cw);
}

TEST(CombinedSections, OfTwoISectionsFollowTheParallelAxisTheorem) {
    const T_SECT_STIFFNESS one = Stiffness(Regular("H", {300, 150, 6, 10}));
    const T_SECT_STIFFNESS two = Stiffness(Section(4, "2I Combined Shape", {300, 150, 6, 10, 20}));
    ExpectRatio(two.iyy, 2.0 * one.iyy);
    ExpectRatio(two.izz, 2.0 * (one.izz + one.area * 85.0 * 85.0));
}

TEST(TaperedSections, HaveThePropertiesOfTheirSizes) {
    EXPECT_EQ(Stiffness(Section(5, "H", {300, 150, 6.5, 9})), Stiffness(Regular("H", {300, 150, 6.5, 9})));
}

}  // namespace
}  // namespace zt
