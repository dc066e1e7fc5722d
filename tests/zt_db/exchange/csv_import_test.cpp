#include <string>

#include "zt_db/exchange/exchange_files.h"
#include "zt_db/exchange/exchange_units.h"

namespace zt {
namespace {

class CsvImport : public ExchangeTest {
protected:
    std::filesystem::path Folder() const { return folder.Path() / "tables"; }
    void Write(const std::string& name, const std::string& text) const { WriteText(Folder() / name, text); }
    void WriteFrame() const {
        Write("materials.csv", "material,type,E_GPa,poisson,density_t_m3\nM,Concrete,30,0.2,2.5\n");
        Write("sections.csv", "section,shape,width_mm,depth_mm\nS,Rectangle,300,600\n");
        Write("members.csv", "member,node_i,node_j,kind,section,material\n1,1,2,column,S,M\n");
    }
};

TEST_F(CsvImport, TakesUnitsFromHeaders) {
    WriteFrame();
    Write("nodes.csv", "node,x_mm,y_ft,z_cm\n1,0,0,0\n2,1500,10,300\n");
    ASSERT_TRUE(Import(Folder())) << report.Text();
    const CUnitCtrl& units = *doc->GetUnitCtrl();
    const T_PONT_D node = RecordAt<CClassPont>(2);
    EXPECT_DOUBLE_EQ(units.ToBase(Unit::Length, node.x), 1.5);
    EXPECT_DOUBLE_EQ(units.ToBase(Unit::Length, node.y), 3.048);
    EXPECT_DOUBLE_EQ(RecordAt<CClassMatl>(1).analysis[0].elasticity, 30'000.0);
    EXPECT_DOUBLE_EQ(units.ToBase(Unit::Length, RecordAt<CClassSect>(1).base.size[0]), 0.6);
}

TEST_F(CsvImport, ReadsOtherSeparatorsLineEndsAndMarks) {
    WriteFrame();
    Write("nodes.csv", "\xEF\xBB\xBFnode;x_m;y_m;z_m;storey\r\n\"a \"\"1\"\"\";0;0;0;\r\n2;1;2;3;\r\n\r\n");
    Write("members.csv", "member\tnode_i\tnode_j\tsection\tmaterial\r1\t\"a \"\"1\"\"\"\t2\tS\tM\r");
    ASSERT_TRUE(Import(Folder())) << report.Text();
    EXPECT_EQ(RecordAt<CClassPont>(1).name, "a \"1\"");
    EXPECT_EQ(Count<CClassMemb>(), 1);
}

TEST_F(CsvImport, KeepsKoreanNames) {
    WriteFrame();
    Write("nodes.csv", "node,x_m,y_m,z_m\n기둥1,0,0,0\n기둥2,0,0,3\n");
    Write("members.csv", "member,node_i,node_j,kind,section,material\n1,기둥1,기둥2,column,S,M\n");
    ASSERT_TRUE(Import(Folder())) << report.Text();
    EXPECT_EQ(RecordAt<CClassPont>(2).name, "기둥2");
    EXPECT_EQ(RecordAt<CClassPont>(2).no, 2u);
}

TEST(ExchangeUnits, AreReadInBothWritings) {
    EXPECT_DOUBLE_EQ(*UnitSize("kN/m2", "kN/m2"), 1000.0);
    EXPECT_DOUBLE_EQ(*UnitSize("kN_m2", "MPa"), 1000.0);
    EXPECT_DOUBLE_EQ(*UnitSize("t_m2", "t*m2"), 1000.0);
    EXPECT_DOUBLE_EQ(*UnitSize("t_m3", "kg/m3"), 1000.0);
    EXPECT_DOUBLE_EQ(*UnitSize("MNm/rad/m", "MNm/rad/m"), 1.0e6);
    EXPECT_DOUBLE_EQ(*UnitSize("1/K", "1/K"), 1.0);
    EXPECT_DOUBLE_EQ(*UnitSize("1_F", "1/K"), 1.8);
    EXPECT_NEAR(*UnitSize("lb/ft3", "kg/m3"), 16.018463, 1e-6);
    EXPECT_NEAR(*UnitSize("lb/ft", "kN/m"), 14.593903, 1e-6);
    EXPECT_NEAR(*UnitSize("kip-ft", "kNm"), 1355.817948, 1e-6);
}

TEST(ExchangeUnits, ThatMeasureSomethingElseAreRefused) {
    EXPECT_FALSE(UnitSize("kg", "m"));
    EXPECT_FALSE(UnitSize("furlong", "m"));
    EXPECT_FALSE(UnitSize("", "m"));
    EXPECT_FALSE(UnitSize("m/m/m/m/m/m/m/m/m", "m"));
    EXPECT_FALSE(UnitSize("kN/m", "kNm"));
}

TEST(ExchangeUnits, OfImperialTablesMeasureTheSame) {
    for (const std::string_view unit : {"m", "mm", "m2", "m3", "m4", "m6", "MPa", "kg/m3", "1/K", "kN", "kNm", "kN/m",
                                        "kNm/m", "kN/m2", "MN/m", "MNm/rad", "MN", "MNm", "deg"}) {
        EXPECT_TRUE(UnitSize(ImperialUnit(unit), unit)) << unit;
    }
}

}  // namespace
}  // namespace zt
