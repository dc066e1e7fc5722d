#include "zt_db/post/result_import.h"

#include <fstream>

#include "zt_db/exchange/model_exchange.h"
#include "zt_db/post/post_ctrl.h"
#include "zt_db/test_support.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class ResultImports : public ModelTest {
protected:
    void Load(const std::string& model) {
        const fs::path data = fs::path(ZT_SOURCE_DIR) / "tests/data";
        ASSERT_TRUE(ImportModel(Db(), data / "exchange" / model, {}, report)) << report.Text();
        results = data / "analysis" / model;
        report = {};
    }
    void Write(const std::string& name, const std::string& text) { std::ofstream(folder.File(name)) << text; }
    CPostCtrl& Post() { return *doc->GetPostCtrl(); }
    bool Select(const std::string& name) {
        return Post().SelectLoadComb(LoadCaseKind::Static, Records<CClassStld>().GetKey(name)) != 0;
    }

    fs::path results;
    TemporaryFolder folder;
    ExchangeReport report;
};

TEST_F(ResultImports, TablesBecomeTheCurrentResultsInOneStep) {
    Load("braced_frame_4story_3d");
    const std::size_t steps = Db().GetUndoNames().size();
    ASSERT_TRUE(ImportResults(*doc, results, report)) << report.Text();
    EXPECT_EQ(Db().GetUndoNames().size(), steps + 1);
    EXPECT_TRUE(doc->IsExcuted());
    ASSERT_TRUE(Select("LATX"));
    T_DISP_D displacement;
    ASSERT_TRUE(Post().GetDisp(41, &displacement));
    EXPECT_NEAR(displacement.value[0], 0.00049403833, 1e-10);
    T_REAC_D sum;
    ASSERT_TRUE(Post().GetReac(0, &sum));
    EXPECT_NEAR(sum.value[0], -10.0, 1e-5);
    T_REAC_D reaction;
    ASSERT_TRUE(Post().GetReac(1, &reaction));
    EXPECT_DOUBLE_EQ(reaction.value[2], -4.4063489);
    // Forces on the member at its end i are turned around for the section there: N is tension there as here.
    T_FCOL_D forces;
    ASSERT_TRUE(Post().GetMbcl(1, &forces));
    EXPECT_DOUBLE_EQ(forces.part[0][0], 3.2499196);
    EXPECT_DOUBLE_EQ(forces.part[1][0], 3.2499196);
    EXPECT_DOUBLE_EQ(forces.part[0][4], -0.24050506);
    EXPECT_DOUBLE_EQ(forces.part[1][4], 0.10129571);
    EXPECT_TRUE(Select("TORS"));
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_FALSE(doc->IsExcuted());
}

TEST_F(ResultImports, MembersWithNamesAreFoundByTheirNodes) {
    Load("steel_frame_3story_la");
    ASSERT_TRUE(ImportResults(*doc, results, report)) << report.Text();
    ASSERT_TRUE(Select("LAT"));
    const CPostDataBase& post = *doc->GetMDBCtrl()->GetDBPost();
    EXPECT_EQ(post.Elements().size(), 27u);
    T_FCOL_D forces;
    const std::uint32_t column = post.Elements().front().member;
    ASSERT_TRUE(Post().GetMbcl(column, &forces));
    EXPECT_DOUBLE_EQ(forces.part[0][0], 376.94552);
}

TEST_F(ResultImports, UnitsStandBehindTheNamesOfColumns) {
    Load("braced_frame_4story_3d");
    Write("results_displacements.csv",
          "load_case,node,ux_in,uy_in,uz_in,rx_rad,ry_rad,rz_rad\nLATX,41,1,0,0,0.5,0,0\n");
    ASSERT_TRUE(ImportResults(*doc, folder.Path(), report)) << report.Text();
    ASSERT_TRUE(Select("LATX"));
    T_DISP_D displacement;
    ASSERT_TRUE(Post().GetDisp(41, &displacement));
    EXPECT_DOUBLE_EQ(displacement.value[0], 0.0254);
    EXPECT_EQ(displacement.value[3], 0.5);
    ASSERT_TRUE(Post().GetDisp(40, &displacement));
    EXPECT_EQ(displacement.value[0], 0.0);
}

TEST_F(ResultImports, WhatTheModelDoesNotKnowIsLeftOutAndTold) {
    Load("braced_frame_4story_3d");
    Write("results_displacements.csv",
          "load_case,node,ux_m,uy_m,uz_m,rx_rad,ry_rad,rz_rad\nLATX,41,1,0,0,0,0,0\n"
          "OTHER,41,1,0,0,0,0,0\nLATX,999,1,0,0,0,0,0\n");
    Write("results_member_end_forces.csv",
          "load_case,member,end,node,N_kN,Vy_kN,Vz_kN,T_kNm,My_kNm,Mz_kNm\n"
          "LATX,X1,i,41,1,0,0,0,0,0\nLATX,X1,j,1,-1,0,0,0,0,0\n");
    ASSERT_TRUE(ImportResults(*doc, folder.Path(), report)) << report.Text();
    EXPECT_THAT(report.Text(), HasSubstr("OTHER"));
    EXPECT_THAT(report.Text(), HasSubstr("999"));
    EXPECT_THAT(report.Text(), HasSubstr("X1"));
    EXPECT_TRUE(doc->IsExcuted());
}

TEST_F(ResultImports, NothingIsKeptOfWhatCannotBeRead) {
    Load("braced_frame_4story_3d");
    EXPECT_FALSE(ImportResults(*doc, folder.Path(), report));
    EXPECT_TRUE(report.HasErrors());
    report = {};
    Write("results_displacements.csv", "load_case,node,ux_m,uy_m,uz_m,rx_rad,ry_rad,rz_rad\nLATX,41,much,0,0,0,0,0\n");
    EXPECT_FALSE(ImportResults(*doc, folder.Path(), report));
    report = {};
    Write("results_displacements.csv", "load_case,ux_m\nLATX,1\n");
    EXPECT_FALSE(ImportResults(*doc, folder.Path(), report));
    report = {};
    EXPECT_FALSE(ImportResults(*doc, folder.File("none"), report));
    EXPECT_TRUE(report.HasErrors());
    EXPECT_FALSE(doc->IsExcuted());
}

}  // namespace
}  // namespace zt
