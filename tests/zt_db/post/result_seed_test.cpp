#include "zt_db/post/result_seed.h"

#include <fstream>

#include "post_fixture.h"
#include "zt_db/post/result_keeper.h"
#include "zt_db/post/story/story_result.h"
#include "zt_db/post/story/story_result_post.h"
#include "zt_db/post/story/story_rows.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class ResultSeeds : public PortalTest {
protected:
    void Read(const std::string& text) {
        results = std::make_shared<MemoryResults>();
        EXPECT_TRUE(results->PutHead({.run = "r"}));
        const velda::Outcome outcome = ReadResultSeed(text, Db(), *results);
        ASSERT_TRUE(outcome) << outcome.Reason();
        doc->GetMDBCtrl()->SetResults(results);
    }
    std::string FaultOf(const std::string& text) {
        MemoryResults sink;
        const velda::Outcome outcome = ReadResultSeed(text, Db(), sink);
        EXPECT_TRUE(sink.Names().empty() && sink.Cases().empty()) << text;
        return outcome.Reason();
    }
    std::vector<double> RowOf(const std::string& array, std::size_t row) {
        const ResultArray values = results->Array(array);
        const double* first = values.Row(row);
        return first ? std::vector<double>(first, first + values.Columns()) : std::vector<double>{};
    }

    std::shared_ptr<MemoryResults> results;
};

TEST_F(ResultSeeds, WhatTheTextDoesNotListIsThatOfTheModel) {
    Records<CClassSpts>().TR_Add({101, 102}, {T_SPTS_D{.flags = "111111"}, T_SPTS_D{.flags = "111000"}});
    Read("case static 1\nreaction DL 2 1 2 3 4 5 6\n");
    EXPECT_THAT(results->Keys(ResultName::Nodes), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(results->Keys(ResultName::Supports), ElementsAre(1, 2));
    EXPECT_THAT(results->Keys(ResultName::ElementMembers), ElementsAre(11, 12, 13));
    EXPECT_THAT(results->Keys(ResultName::ElementEnds), ElementsAre(1, 3, 4, 2, 3, 4));
    EXPECT_EQ(results->Cases(), (std::vector<ResultCase>{{1, kDead, "DL", "D"}}));
    EXPECT_THAT(RowOf("case/1_1/reaction", 0), ElementsAre(0, 0, 0, 0, 0, 0));
    EXPECT_THAT(RowOf("case/1_1/reaction", 1), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(ResultSeeds, CasesGoByNameOrByKindAndKey) {
    Read(
        "case static 1 \"Dead load\" D\n"
        "case spectrum 5\n"
        "case 30 7 \"ES 1\"\n"
        "displacement \"Dead load\" 1 1 0 0 0 0 0\n"
        "displacement 4_5 1 2 0 0 0 0 0\n"
        "displacement es_combination_7 1 3 0 0 0 0 0\n");
    EXPECT_EQ(results->Cases()[0], (ResultCase{1, 1, "Dead load", "D"}));
    EXPECT_EQ(results->Cases()[1], (ResultCase{4, 5, "RX", ""}));
    EXPECT_EQ(RowOf("case/1_1/displacement", 0)[0], 1.0);
    EXPECT_EQ(RowOf("case/4_5/displacement", 0)[0], 2.0);
    EXPECT_EQ(RowOf("case/30_7/displacement", 0)[0], 3.0);
}

TEST_F(ResultSeeds, ForcesStandAtTheStationsOfAMember) {
    Read(
        "case static 1\n"
        "force DL 13 0 1 2 3 4 5 6\n"
        "force DL 13 4-8 7 0 0 0 0 0\n");
    EXPECT_EQ(results->Array("case/1_1/element_force").Rows(), 3u * 9u);
    EXPECT_THAT(RowOf("case/1_1/element_force", 18), ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_EQ(RowOf("case/1_1/element_force", 21)[0], 0.0);
    EXPECT_EQ(RowOf("case/1_1/element_force", 22)[0], 7.0);
    EXPECT_EQ(RowOf("case/1_1/element_force", 26)[0], 7.0);
}

TEST_F(ResultSeeds, StationsCountOnOverTheElementsOfAMember) {
    const std::string model =
        "keys model/element_member 11 11 12\nkeys model/element_node\n1 5\n5 3\n4 2\n"
        "array model/element_range\n0 0.5\n0.5 1\n0 1\ncase static 1\n";
    Read(model + "force DL 11 10 5 0 0 0 0 0\n");
    EXPECT_EQ(RowOf("case/1_1/element_force", 10)[0], 5.0);
    EXPECT_THAT(FaultOf(model + "force DL 11 18 5 0 0 0 0 0\n"), StartsWith("Line 11, \"11\""));
}

TEST_F(ResultSeeds, EnvelopesAndTheirTimesStandBehindTheCase) {
    Read(
        "units current\ncase history 6\n"
        "displacement EQ max 3 1 0 0 0 0 0\ndisplacement EQ min_time 3 0.25 0 0 0 0 0\n");
    EXPECT_EQ(RowOf("case/5_6/displacement_max", 2)[0], 1.0);
    EXPECT_EQ(RowOf("case/5_6/displacement_min_time", 2)[0], 0.25);
}

TEST_F(ResultSeeds, CurrentUnitsHoldForNamedQuantitiesAndNotForArrays) {
    Read(
        "units current\ncase static 1\nforce DL 13 0 1 0 0 2 0 0\nlink DL 8 1 0 0 2 0 0 3 0 0 4 0 0\n"
        "total_mass 1 1 1 2 2 2\narray case/1_1/load_sum\n5 6 7\nunits si\nreaction_sum DL 1 0 0 0 0 0\n");
    EXPECT_EQ(RowOf("case/1_1/element_force", 18)[0], 1000.0);
    EXPECT_EQ(RowOf("case/1_1/element_force", 18)[3], 2000.0);
    EXPECT_THAT(results->Keys(ResultName::Links), ElementsAre(8));
    EXPECT_EQ(RowOf("case/1_1/link_force", 0)[9], 4000.0);
    EXPECT_EQ(RowOf("modal/total_mass", 0)[0], 1000.0);
    EXPECT_THAT(RowOf("case/1_1/load_sum", 0), ElementsAre(5, 6, 7));
    EXPECT_EQ(RowOf("case/1_1/reaction_sum", 0)[0], 1.0);
}

TEST_F(ResultSeeds, ModesHaveFrequenciesAndShapes) {
    Read(
        "frequency 2 2.5\nfrequency 1 0.5 1e-9\neffective_mass 1 80 0 0 0 0 0\ntotal_mass 100 100 0 0 0 0\n"
        "participation 1 9 0 0 0 0 0\nshape 2 4 0 0.5 0 0 0 0\n");
    double values[4] = {};
    ASSERT_TRUE(Post().GetEiFreq(1, values));
    EXPECT_EQ(values[1], 0.5);
    EXPECT_EQ(values[3], 1e-9);
    ASSERT_TRUE(Post().GetEiFreq(2, values));
    EXPECT_EQ(values[2], 0.4);
    T_MPAM_D masses;
    ASSERT_TRUE(Post().GetEiMpam(1, masses));
    EXPECT_EQ(masses.mass[0], 80.0);
    T_DISP_D shape;
    ASSERT_TRUE(Post().GetEiMode(2, 4, shape));
    EXPECT_EQ(shape.value[1], 0.5);
}

TEST_F(ResultSeeds, RecordsOfStoriesAreServedInTheirOrder) {
    doc->GetUnitCtrl()->SetUnitIndexCurrent({.force = 3, .length = 1});
    Read(
        "case static 2\n"
        "story DSP WX\npart1_maximum=0.012 part1_node=3\nhead_level=9\n"
        "story SMS 0_0\nmass=[1,2,3]\n"
        "story DFT4PV/2 pushover_4\npart2_inUse=1\n"
        "units current\nstory SFR combination_3\npart1_sum=12 part1_status=1\n");
    CStoryResultPost services(Post());
    std::vector<T_STDSP_D> displacements;
    ASSERT_TRUE(services.GetDSP(LoadCaseKind::Static, 2, displacements));
    ASSERT_EQ(displacements.size(), 2u);
    EXPECT_DOUBLE_EQ(displacements[0].part[0].maximum, 12.0);
    EXPECT_EQ(displacements[0].part[0].node, 3u);
    EXPECT_EQ(displacements[0].head.story, 2u);
    EXPECT_EQ(displacements[0].head.level, 4000.0);
    EXPECT_EQ(displacements[1].head.seq, 2u);
    EXPECT_EQ(displacements[1].head.level, 9000.0);
    std::vector<T_STSMS_D> masses;
    ASSERT_TRUE(services.GetSMS(0, 0, masses));
    EXPECT_EQ(masses[0].mass[2], 0.003);
    std::vector<T_STDFTTH_D> drifts;
    ASSERT_TRUE(CStoryResult(Post()).GetDFT4PV(LoadCaseKind::Pushover, 4, 2, drifts));
    EXPECT_EQ(drifts[0].part[1].inUse, 1);
    std::vector<T_STSFR_D> shears;
    ASSERT_TRUE(services.GetSFR(LoadCaseKind::Combination, 3, shears));
    EXPECT_EQ(shears[0].part[0].sum, 12.0);
}

TEST_F(ResultSeeds, SlabForcesListTheirPairs) {
    Read(
        "case static 1\nslab DL 21 4 1 0 0 0 0 0\nslab DL 21 3 2 0 0 0 0 0\nslab DL 4294967295 4294967295 3 0 0 0 0 0");
    EXPECT_THAT(results->Keys(ResultName::SlabNodes), ElementsAre(21, 3, 21, 4, 4294967295u, 4294967295u));
    EXPECT_EQ(RowOf("case/1_1/slab_force", 0)[0], 2.0);
}

TEST_F(ResultSeeds, FaultsNameLineAndWordAndLeaveTheSinkAlone) {
    struct Fault {
        std::string text;
        std::string place;
    };
    const std::string begin = "# comment\r\ncase static 1\r\n";
    for (const Fault& fault : std::vector<Fault>{
             {"displacemnt DL 1 0 0 0 0 0 0", "Line 3, \"displacemnt\": no line can begin"},
             {"displacement DL 1 0 0 0 0 0", "Line 3, \"0\": words are missing"},
             {"displacement DL 1 0 0 0 0 0 0 7", "Line 3, \"7\": the line has no place"},
             {"displacement DL 1 0 0 x 0 0 0", "Line 3, \"x\": a number"},
             {"displacement DL 1 0 0 1e999 0 0 0", "Line 3, \"1e999\": a number"},
             {"displacement DL one 0 0 0 0 0 0", "Line 3, \"one\": a number"},
             {"displacement XX 1 0 0 0 0 0 0", "Line 3, \"XX\": no line before"},
             {"displacement static_2 1 0 0 0 0 0 0", "Line 3, \"static_2\": no line before"},
             {"displacement DL 9 0 0 0 0 0 0", "Line 3, \"9\": the results have no row"},
             {"displacement DL 1 0 0 0 0 0 0\ndisplacement DL 1 0 0 0 0 0 0", "Line 4, \"1\": this was told"},
             {"displacement DL 1 0 0 0 0 0 0\narray case/1_1/displacement", "Line 4, \"case/1_1/displacement\": this"},
             {"force DL 13 8-4 0 0 0 0 0 0", "Line 3, \"8-4\": a number"},
             {"force DL 13 9 0 0 0 0 0 0", "Line 3, \"13\": the results have no row"},
             {"case static 1", "Line 3, \"1\": this was told"},
             {"case -1 1", "Line 3, \"-1\": there is no such kind"},
             {"case", "Line 3, \"case\": words are missing"},
             {"units mm", "Line 3, \"mm\": units are"},
             {"array ../x", "Line 3, \"../x\": there can be no array"},
             {"array model/node", "Line 3, \"model/node\": there can be no array"},
             {"array case/1_1/x\n1 2\n3", "Line 5, \"3\": words are missing"},
             {"keys modal/x", "Line 3, \"modal/x\": there can be no array"},
             {"keys model/node\n1 -2", "Line 4, \"-2\": a number"},
             {"1 2", "Line 3, \"1\": no line can begin"},
             {"story XYZ DL", "Line 3, \"XYZ\": there are no records"},
             {"story DSP/1 DL", "Line 3, \"DSP/1\": there are no records"},
             {"story DFT4PV DL", "Line 3, \"DFT4PV\": there are no records"},
             {"story DSP DL\npart1_least=1", "Line 4, \"part1_least\": the record has no such field"},
             {"story DSP DL\npart1_node=1.5", "Line 4, \"part1_node\": the record has no such field"},
             {"story DSP DL\npart1_maximum=1 2", "Line 4, \"2\": the record has no such field"},
             {"part1_node=1", "Line 3, \"part1_node\": no line can begin"},
             {"frequency 0 1", "Line 3, \"0\": the results have no row"},
             {"shape 1001 1 0 0 0 0 0 0", "Line 3, \"1001\": the results have no row"},
             {"case static 2 \"open", "Line 3"},
         }) {
        EXPECT_THAT(FaultOf(begin + fault.text), StartsWith(fault.place)) << fault.text;
    }
}

TEST_F(ResultSeeds, AFileBecomesTheCurrentResultsInOneStep) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.File("seed.txt");
    std::ofstream(file) << "\xef\xbb\xbf"
                           "case static 1\ndisplacement DL 3 0.5 0 0 0 0 0\n";
    const std::size_t steps = Db().GetUndoNames().size();
    const velda::Outcome outcome = SeedResults(*doc, file);
    ASSERT_TRUE(outcome) << outcome.Reason();
    EXPECT_EQ(Db().GetUndoNames().size(), steps + 1);
    EXPECT_TRUE(doc->IsExcuted());
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    EXPECT_EQ(DxOf(3), 0.5);
}

TEST_F(ResultSeeds, AFaultyFileLeavesTheCurrentResults) {
    const TemporaryFolder folder;
    std::ofstream(folder.File("good.txt")) << "case static 1\ndisplacement DL 3 0.5 0 0 0 0 0\n";
    std::ofstream(folder.File("bad.txt")) << "case static 1\ndisplacement DL 33 0.5 0 0 0 0 0\n";
    ASSERT_TRUE(SeedResults(*doc, folder.File("good.txt")));
    EXPECT_THAT(SeedResults(*doc, folder.File("bad.txt")).Reason(), HasSubstr("Line 2"));
    EXPECT_THAT(SeedResults(*doc, folder.File("none.txt")).Reason(), HasSubstr("none.txt"));
    EXPECT_TRUE(doc->IsExcuted());
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    EXPECT_EQ(DxOf(3), 0.5);
}

}  // namespace
}  // namespace zt
