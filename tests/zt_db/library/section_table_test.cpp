#include <cmath>

#include "zt_db/library/library.h"
#include "zt_db/library/sect_util.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

/// By how much percent the properties computed from the sizes may differ from the figures of a family of sections. The
/// beginning of the series tells the family; the first that fits counts.
struct Deviation {
    std::string_view standard;
    std::string_view shape;
    std::string_view series;
    double area;
    double inertia;
    double torsion;
};

constexpr Deviation kDeviations[] = {
    {"EN", "L", "", 0.5, 1.4, 1.0},
    {"EN", "H", "HEA", 0.1, 0.1, 4.3},
    {"EN", "H", "HD", 0.1, 0.1, 4.3},
    {"EN", "H", "HL", 1.0, 0.2, 2.6},
    {"EN", "H", "IPN", 1.4, 2.8, 0.0},
    {"EN", "H", "", 0.1, 0.1, 2.0},
    {"EN", "B", "", 0.35, 0.35, 0.1},
    {"EN", "P", "", 0.35, 0.1, 0.1},
    // The flange thickness is that at the gauge of the standard, not in the middle of the overhang.
    {"EN", "C", "UPN", 2.0, 2.6, 0.0},
    {"EN", "C", "", 0.3, 0.6, 0.1},
    {"BS", "H", "", 0.5, 1.3, 2.0},
    {"BS", "C", "", 0.5, 0.5, 0.5},
    {"BS", "T", "", 0.5, 0.5, 0.5},
    // Of these no toe radius is published, and the root radius follows from a rounded distance.
    {"AISC", "C", "", 3.0, 3.0, 17.0},
    {"AISC", "H", "HP", 3.0, 3.0, 14.0},
    {"AISC", "H", "W", 1.0, 2.0, 2.0},
    {"AISC", "H", "", 3.0, 4.0, 11.0},
    {"AISC", "T", "WT", 1.0, 2.1, 2.0},
    {"AISC", "T", "", 3.0, 4.0, 11.0},
    {"AISC", "L", "", 3.0, 3.0, 11.0},
    {"AISC", "B", "", 1.0, 1.5, 3.5},
    {"AISC", "", "", 3.0, 3.0, 3.0},
    // The published torsion of some light angles counts the legs alone.
    {"IS", "L", "", 1.2, 2.2, 21.0},
    {"IS", "H", "WPB", 1.2, 1.2, 9.5},
    {"IS", "H", "LB", 1.2, 3.4, 4.6},
    {"IS", "", "", 1.2, 1.3, 4.6},
    {"GB", "L", "", 0.1, 0.1, 5.0},
    {"GB", "", "", 0.1, 0.1, 0.1},
    {"", "C", "", 0.4, 0.5, 0.1},
    {"", "L", "L-unequal-thickness", 0.5, 1.7, 5.0},
    {"", "L", "", 0.1, 0.1, 5.0},
    {"", "2L", "", 0.1, 0.1, 5.0},
    {"", "H", "LH", 0.1, 0.4, 3.5},
    {"JIS", "B", "BCP", 0.1, 0.5, 0.1},
    {"", "", "", 0.1, 0.1, 0.2},
};

const Deviation& DeviationOf(const LibrarySection& row) {
    const auto fits = [](std::string_view wanted, std::string_view text) { return wanted.empty() || wanted == text; };
    for (const Deviation& deviation : kDeviations) {
        if (fits(deviation.standard, row.standard) && fits(deviation.shape, row.shape) &&
            std::string_view(row.series).starts_with(deviation.series)) {
            return deviation;
        }
    }
    throw std::logic_error("the last deviation fits all");
}

T_SECT_D SectionOf(const LibrarySection& row) {
    T_SECT_D section{.kind = 1, .shape = row.shape};
    section.base = {row.standard, row.name, row.size};
    return section;
}

/// Rows of a shape whose published figures belong to their published sizes.
template <class Visitor>
void ForEachSound(std::string_view shape, Visitor visit) {
    const auto library = Library::BuiltIn();
    for (const LibrarySection& row : library->Rows<LibrarySection>()) {
        if (row.shape == shape && row.deviates.empty()) visit(row);
    }
}

void ExpectWithin(double value, double figure, double percent, const char* what) {
    if (figure > 0.0) {
        EXPECT_NEAR(value / figure, 1.0, percent / 100.0) << what;
    }
}

class SectionTable : public testing::TestWithParam<const char*> {};

TEST_P(SectionTable, HasTheFiguresThatItsSizesGive) {
    int count = 0;
    ForEachSound(GetParam(), [&](const LibrarySection& row) {
        SCOPED_TRACE(row.standard + " " + row.series + " " + row.name);
        const Deviation& deviation = DeviationOf(row);
        const T_SECT_STIFFNESS values = CSectUtil::GetProperStiffPosition(SectionOf(row), 0);
        EXPECT_GT(row.area, 0.0);
        ExpectWithin(values.area, row.area, deviation.area, "area");
        ExpectWithin(values.iyy, row.iyy, deviation.inertia, "Iyy");
        ExpectWithin(values.izz, row.izz, deviation.inertia, "Izz");
        ExpectWithin(values.ixx, row.j, deviation.torsion, "torsion constant");
        ++count;
    });
    EXPECT_GT(count, 50);
}

TEST_P(SectionTable, GivesPropertiesInTheirOrder) {
    ForEachSound(GetParam(), [&](const LibrarySection& row) {
        SCOPED_TRACE(row.standard + " " + row.name);
        const T_SECT_D section = SectionOf(row);
        const T_SECT_STIFFNESS stiffness = CSectUtil::GetProperStiffPosition(section, 0);
        const T_SECT_DESIGN design = CSectUtil::GetProperDesignPosition(section, 0);
        EXPECT_GT(stiffness.asy, 0.0);
        EXPECT_LT(stiffness.asy, stiffness.area);
        EXPECT_GT(stiffness.asz, 0.0);
        EXPECT_LT(stiffness.asz, stiffness.area);
        EXPECT_GT(design.wpy, design.wey);
        EXPECT_GT(design.wpz, design.wez);
        EXPECT_GT(CSectUtil::GetStandForPeriOut(section), CSectUtil::GetStandForPeriIn(section));
    });
}

INSTANTIATE_TEST_SUITE_P(Shapes, SectionTable,
                         testing::Values("H", "C", "L", "T", "B", "P", "SR", "SB", "2L", "2C", "CC"),
                         [](const auto& shape) { return "Shape" + std::string(shape.param); });

TEST(SectionTable, HasEveryRegularShapeOfTheLibrary) {
    const auto library = Library::BuiltIn();
    EXPECT_EQ(library->Rows<LibrarySection>().size(), 6608u);
    for (const LibrarySection& row : library->Rows<LibrarySection>()) {
        EXPECT_GE(CSectUtil::GetShapeIndexFromNameReg(row.shape), 0) << row.name;
        EXPECT_GT(CSectUtil::GetProperStiffPosition(SectionOf(row), 0).area, 0.0) << row.name;
    }
}

}  // namespace
}  // namespace zt
