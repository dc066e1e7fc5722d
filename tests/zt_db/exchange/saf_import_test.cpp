#include <numbers>
#include <string>

#include "zt_db/exchange/exchange_files.h"
#include "zt_db/record_texts.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::ElementsAre;

class SafImport : public ExchangeTest {
protected:
    SafImport() {
        T_UNIT_INDEX units;
        doc->GetUnitCtrl()->GetUnitIndexCurrent(units);
        units.force = CUnitCtrl::FindChoice(UnitQuantity::Force, "N");
        units.length = CUnitCtrl::FindChoice(UnitQuantity::Length, "m");
        doc->GetUnitCtrl()->SetUnitIndexCurrent(units);
    }
};

TEST_F(SafImport, OfAFrameSaysNothing) {
    ASSERT_TRUE(ImportSheets(FrameSheets()));
    EXPECT_TRUE(report.Findings().empty()) << report.Text();
    EXPECT_EQ(Count<CClassMemb>(), 2);
    EXPECT_EQ(RecordAt<CClassPont>(3).story, 2u);
    EXPECT_EQ(RecordAt<CClassPont>(3).z, 0.0);
    EXPECT_EQ(RecordAt<CClassMemb>(1).matl, 1u);
    EXPECT_EQ(RecordAt<CClassStor>(2).height, 4.0);
}

TEST_F(SafImport, HeadersMayDifferInCaseBlanksAndUnits) {
    ASSERT_TRUE(
        ImportSheets(With(FrameSheets(), {"StructuralPointConnection",
                                          {{" NAME", "coordinatex[mm]", "Coordinate  Y  [ft]", "COORDINATE Z [m]"},
                                           {"N1", "#0", "#0", "#0"},
                                           {"N2", "#0", "#0", "#4"},
                                           {"N3", "#6000", "#10", "#4"}}})))
        << report.Text();
    EXPECT_DOUBLE_EQ(RecordAt<CClassPont>(3).x, 6.0);
    EXPECT_DOUBLE_EQ(RecordAt<CClassPont>(3).y, 3.048);
}

TEST_F(SafImport, NumbersMayBeTexts) {
    ASSERT_TRUE(ImportSheets(
        With(FrameSheets(), {"StructuralStorey", {{"Name", "Height level [m]"}, {"Base", "0"}, {"Roof", " 4.0 "}}})));
    EXPECT_EQ(RecordAt<CClassStor>(2).level, 4.0);
}

TEST_F(SafImport, OrderOfSheetsAndUnknownSheetsMeanNothing) {
    std::vector<TestSheet> sheets = FrameSheets();
    std::reverse(sheets.begin(), sheets.end());
    sheets.push_back({"MyNotes", {{"a"}, {"b"}, {"c"}}});
    ASSERT_TRUE(ImportSheets(sheets));
    EXPECT_EQ(Count<CClassMemb>(), 2);
    EXPECT_TRUE(Found(FindingLevel::LeftOut, "IDS_XCH_SHEET_NOT_KEPT", "MyNotes"));
}

TEST_F(SafImport, ImperialFilesAreConverted) {
    std::vector<TestSheet> sheets = FrameSheets();
    sheets[0].rows[2][1] = "Imperial";
    sheets[4].rows[0] = {"Name", "Coordinate X", "Coordinate Y", "Coordinate Z"};
    sheets[1].rows[0][4] = "E modulus";
    sheets[1].rows[1][4] = "#29000";
    ASSERT_TRUE(ImportSheets(sheets)) << report.Text();
    EXPECT_NEAR(RecordAt<CClassPont>(3).x, 6.0 * 0.3048, 1e-12);
    EXPECT_NEAR(RecordAt<CClassMatl>(1).analysis[0].elasticity, 199948.0, 1.0);
}

TEST_F(SafImport, AnotherVerticalAxisIsTurnedUp) {
    struct Case {
        const char* axis;
        std::array<double, 3> top;  ///< of the column, in the file
    };
    for (const Case& one :
         {Case{"X vertical", {4, 0, 0}}, Case{"Y vertical", {0, 4, 0}}, Case{"Z vertical", {0, 0, 4}},
          Case{"-X vertical", {-4, 0, 0}}, Case{"-Y vertical", {0, -4, 0}}, Case{"-Z vertical", {0, 0, -4}}}) {
        Use(CDBDoc::New());
        std::vector<TestSheet> sheets = FrameSheets();
        sheets[0].rows[1][1] = one.axis;
        for (std::size_t i = 0; i < 3; ++i) {
            const std::string text = "#" + std::to_string(one.top[i]);
            sheets[4].rows[2][i + 1] = text;
            sheets[4].rows[3][i + 1] = one.top[i] == 0.0 ? "#6" : text;
        }
        sheets[4].rows[3][one.axis[one.axis[0] == '-' ? 1 : 0] == 'Z' ? 1 : 3] = "#0";
        ASSERT_TRUE(ImportSheets(sheets)) << one.axis << report.Text();
        T_PONT_D top;
        Records<CClassPont>().Get3DPos(2, top);
        EXPECT_DOUBLE_EQ(doc->GetUnitCtrl()->ToBase(Unit::Length, top.z), 4.0) << one.axis;
    }
}

TEST_F(SafImport, ALoadAlongTheVerticalAxisStaysOne) {
    std::vector<TestSheet> sheets = FrameSheets();
    sheets[0].rows[1][1] = "Y vertical";
    sheets.push_back({"StructuralLoadCase", {{"Name", "Action type"}, {"G", "Permanent"}}});
    sheets.push_back({"StructuralPointAction",
                      {{"Name", "Direction", "Force action", "Reference node", "Value [kN]", "Load case"},
                       {"F1", "Y", "In node", "N3", "#-5", "G"}}});
    ASSERT_TRUE(ImportSheets(sheets)) << report.Text();
    EXPECT_NEAR(RecordAt<CClassPtld>(1).fz, -5000.0, 1e-9);
}

TEST_F(SafImport, TypesComeFromWordsAndOtherwiseFromTheLie) {
    ASSERT_TRUE(ImportSheets(With(FrameSheets(), {"StructuralCurveMember",
                                                  {{"Name", "Type", "Cross section", "Nodes"},
                                                   {"1", "", "CS1", "N1;N2"},
                                                   {"2", "", "CS1", "N2;N3"},
                                                   {"3", "", "CS1", "N1;N3"},
                                                   {"4", "Secondary beam", "CS1", "N2;N3"},
                                                   {"5", "Wall bracing", "CS1", "N1;N3"},
                                                   {"6", "PURLIN", "CS1", "N2;N3"}}})))
        << report.Text();
    std::vector<int> types;
    for (std::uint32_t key = 1; key <= 6; ++key) types.push_back(RecordAt<CClassMemb>(key).type);
    EXPECT_THAT(types, ElementsAre(101, 201, 206, 205, 206, 261));
    EXPECT_TRUE(Found(FindingLevel::Converted, "IDS_XCH_TYPE_FROM_GEOMETRY", "StructuralCurveMember", 2));
}

TEST_F(SafImport, LocalAxesBecomeTheAngleOfTheMember) {
    const std::vector<std::string> header = {"Name",         "Type",         "Cross section", "Nodes",       "LCS",
                                             "Coordinate X", "Coordinate Y", "Coordinate Z",  "LCS Rotation"};
    ASSERT_TRUE(
        ImportSheets(With(FrameSheets(), {"StructuralCurveMember",
                                          {header,
                                           {"1", "Beam", "CS1", "N2;N3", "z by vector", "#0", "#0", "#1", "#0"},
                                           {"2", "Beam", "CS1", "N2;N3", "Z by vector", "#0", "#1", "#0", "#0"},
                                           {"3", "Beam", "CS1", "N2;N3", "y by vector", "#0", "#1", "#0", "#30"},
                                           {"4", "Beam", "CS1", "N2;N3", "z by point", "#0", "#0", "#9", "#0"},
                                           {"5", "Column", "CS1", "N1;N2", "z by vector", "#-1", "#0", "#0", "#0"}}})))
        << report.Text();
    constexpr double kPi = std::numbers::pi;
    const CUnitCtrl& units = *doc->GetUnitCtrl();
    const auto angle = [&](std::uint32_t key) { return units.ToBase(Unit::Angle, RecordAt<CClassMemb>(key).beta); };
    EXPECT_NEAR(angle(1), 0.0, 1e-12);
    EXPECT_NEAR(angle(2), -kPi / 2.0, 1e-12);
    EXPECT_NEAR(angle(3), kPi / 6.0, 1e-12);
    EXPECT_NEAR(angle(4), 0.0, 1e-12);
    EXPECT_NEAR(std::abs(angle(5)), kPi, 1e-12);
}

TEST_F(SafImport, ParametricShapesBecomeRegularSections) {
    ASSERT_TRUE(
        ImportSheets(With(FrameSheets(), {"StructuralCrossSection",
                                          {{"Name", "Material", "Cross-section type", "Shape", "Parameters [mm]"},
                                           {"CS1", "S355", "Parametric", "rectangle", "600;300"},
                                           {"CS2", "S355", "Parametric", "I rolled", "400;200;13;8;16"},
                                           {"CS3", "S355", "Parametric", "Oval", "600;300"}}})))
        << report.Text();
    const T_SECT_D rectangle = RecordAt<CClassSect>(1);
    EXPECT_EQ(rectangle.shape, "Solid Rectangle");
    EXPECT_DOUBLE_EQ(rectangle.base.size[0], 0.6);
    EXPECT_DOUBLE_EQ(rectangle.base.size[1], 0.3);
    const T_SECT_D rolled = RecordAt<CClassSect>(2);
    EXPECT_EQ(rolled.kind, 1);
    EXPECT_DOUBLE_EQ(rolled.base.size[2], 0.008);
    EXPECT_DOUBLE_EQ(rolled.base.size[3], 0.013);
    EXPECT_EQ(RecordAt<CClassSect>(3).kind, 3);
    EXPECT_TRUE(Found(FindingLevel::Converted, "IDS_XCH_SHAPE_UNKNOWN", "StructuralCrossSection", 4));
}

TEST_F(SafImport, ALibraryCompletesProfiles) {
    options.lookup = [](T_SECT_D& section) {
        if (section.base.sectName != "IPE270") return false;
        section.kind = 1;
        section.base.dbName = "EN";
        section.stiffness.area = 0.00459;
        return true;
    };
    ASSERT_TRUE(ImportSheets(With(FrameSheets(), {"StructuralCrossSection",
                                                  {{"Name", "Material", "Cross-section type", "Profile", "Form code"},
                                                   {"CS1", "S355", "Manufactured", "IPE270", "#1"},
                                                   {"CS2", "S355", "Manufactured", "IPE271", "#1"}}})));
    EXPECT_EQ(RecordAt<CClassSect>(1).base.dbName, "EN");
    EXPECT_DOUBLE_EQ(RecordAt<CClassSect>(1).stiffness.area, 0.00459);
    EXPECT_FALSE(Found(FindingLevel::Warning, "IDS_XCH_SECTION_WITHOUT_VALUES", "StructuralCrossSection", 2));
    EXPECT_TRUE(Found(FindingLevel::Warning, "IDS_XCH_SECTION_WITHOUT_VALUES", "StructuralCrossSection", 3));
}

TEST_F(SafImport, SupportsKeepSpringsAndSenses) {
    ASSERT_TRUE(ImportSheets(
        With(FrameSheets(),
             {"StructuralPointSupport",
              {{"Name", "Node", "ux", "uy", "uz", "fix", "fiy", "fiz", "Stiffness X [MN/m]", "Stiffness Fiy [MNm/rad]"},
               {"S1", "N1", "Flexible", "Rigid", "Compression only", "Free", "flexible", "Rigid", "#2", "#3"}}})))
        << report.Text();
    const T_SPTS_D support = RecordAt<CClassSpts>(1);
    EXPECT_EQ(support.flags, "011001");
    EXPECT_DOUBLE_EQ(support.value[0], 2.0e6);
    EXPECT_DOUBLE_EQ(support.value[4], 3.0e6);
    EXPECT_EQ(support.compressionType[2], T_SPTS_D::kPositive);
}

TEST_F(SafImport, LoadsOnMembersKeepPlaceAndDirection) {
    std::vector<TestSheet> sheets = FrameSheets();
    sheets.push_back(
        {"StructuralLoadCase",
         {{"Name", "Action type", "Load type"}, {"SW", "Permanent", "Self weight"}, {"Q", "Variable", "Wind"}}});
    sheets.push_back({"StructuralCurveAction",
                      {{"Name", "Force action", "Distribution", "Direction", "Value 1 [kN/m]", "Value 2 [kN/m]",
                        "Member", "Load case", "Coordinate system", "Location", "Coordinate definition", "Origin",
                        "Extent", "Start point [m]", "End point [m]"},
                       {"L1", "On beam", "Trapez", "Z", "#-2", "#-4", "B2", "Q", "Global", "Projection", "Absolute",
                        "From end", "Full", "#0", "#3"}}});
    sheets.push_back(
        {"StructuralPointAction",
         {{"Name", "Direction", "Force action", "Reference member", "Value [kN]", "Load case", "Origin",
           "Coordinate definition", "Position x [m]", "Repeat (n)", "Delta x [m]", "Coordinate system"},
          {"P1", "Y", "On beam", "B1", "#5", "Q", "From start", "Relative", "#0.1", "#6", "#0.1", "Local"}}});
    ASSERT_TRUE(ImportSheets(sheets)) << report.Text();
    const T_LNLD_D line = RecordAt<CClassLnld>(1);
    EXPECT_EQ(line.direction, LoadDirection::GlobalZ);
    EXPECT_EQ(line.projection, 1);
    EXPECT_THAT(line.x, ElementsAre(0.5, 1.0, 0.0, 0.0));
    EXPECT_THAT(line.p, ElementsAre(-4000.0, -2000.0, 0.0, 0.0));
    ASSERT_EQ(Count<CClassCmld>(), 2);
    EXPECT_EQ(RecordAt<CClassCmld>(1).direction, LoadDirection::LocalY);
    EXPECT_THAT(RecordAt<CClassCmld>(2).x, ElementsAre(0.5, 0.6, 0.0, 0.0));
    EXPECT_EQ(RecordAt<CClassSwgt>(1).z, -1.0);
    EXPECT_EQ(RecordAt<CClassStld>(2).type, "W");
}

TEST_F(SafImport, NamesThatAreTakenAreChanged) {
    ASSERT_TRUE(ImportSheets(FrameSheets()));
    std::vector<TestSheet> sheets = FrameSheets();
    sheets[1].rows[1][4] = "#200000";
    ASSERT_TRUE(ImportSheets(sheets)) << report.Text();
    EXPECT_EQ(RecordAt<CClassMatl>(2).name, "S355 (2)");
    EXPECT_EQ(Count<CClassPont>(), 3);
    EXPECT_TRUE(Found(FindingLevel::Converted, "IDS_XCH_NAME_TAKEN", "StructuralMaterial", 2));
}

TEST_F(SafImport, NumbersComeFromNamesWhereTheyAreFree) {
    ASSERT_TRUE(ImportSheets(With(FrameSheets(), {"StructuralCurveMember",
                                                  {{"Name", "Type", "Cross section", "Nodes"},
                                                   {"B7", "Column", "CS1", "N1;N2"},
                                                   {"C7", "Beam", "CS1", "N2;N3"},
                                                   {"Last", "Beam", "CS1", "N1;N3"}}})));
    EXPECT_EQ(RecordAt<CClassMemb>(1).no, 7u);
    EXPECT_EQ(RecordAt<CClassMemb>(2).no, 8u);
    EXPECT_EQ(RecordAt<CClassMemb>(3).no, 9u);
}

TEST_F(SafImport, ThatIsStoppedChangesNothing) {
    options.progress = [](std::string_view what, std::uint64_t) { return what != "StructuralCurveMember"; };
    EXPECT_FALSE(ImportSheets(FrameSheets()));
    EXPECT_TRUE(ModelIsEmpty());
    EXPECT_TRUE(Found(FindingLevel::Error, "IDS_XCH_STOPPED"));
}

}  // namespace
}  // namespace zt
