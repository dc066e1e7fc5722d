#include "zt_db/post/result_keeper.h"

#include "velda_lib/msg_dll.h"
#include "zt_db/post/fingerprint.h"
#include "zt_db/post/post_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using velda::FormatText;

using velda::Outcome;

/// A portal that can be analysed: its results are made up.
class ResultKeeping : public PortalTest {
protected:
    struct Listener : CDBUpdateConnector {
        std::vector<int> codes;
        void OnUpdate(CDBUpdateConnector*, int code, T_UPDATE_HINT*) override { codes.push_back(code); }
    };

    Outcome Analyse() {
        return doc->GetResults().Keep("Analysis", "test", 9, [](ResultSink& sink) { return PutAll(sink); });
    }
    bool Rename() { return Records<CClassSect>().TR_Modify(1, 1, T_SECT_D{.name = "other"}) != 0; }
    bool HasDisplacements() {
        T_DISP_D displacement;
        return Post().SelectLoadComb(LoadCaseKind::Static, kDead) && Post().GetDisp(1, &displacement);
    }
    void Reopen(OpenMode mode = OpenMode::Normal) {
        OpenReport report;
        doc.reset();
        auto opened = CDBDoc::Open(path, mode, report);
        ASSERT_NE(opened, nullptr) << report.message;
        Use(std::move(opened));
    }

    TemporaryFolder folder;
    std::string path = folder.File("portal.ztm");
};

TEST_F(ResultKeeping, AnAnalysisLocksTheModelInOneStep) {
    Listener listener;
    listener.ConnectToDoc(doc.get());
    const std::size_t steps = Db().GetUndoNames().size();
    const Outcome outcome = Analyse();
    ASSERT_TRUE(outcome) << outcome.Reason();
    EXPECT_TRUE(doc->IsExcuted());
    EXPECT_TRUE(HasDisplacements());
    EXPECT_EQ(Db().GetUndoNames().size(), steps + 1);
    EXPECT_EQ(Db().GetUndoNames().front(), "Analysis");
    EXPECT_THAT(listener.codes, ElementsAre(HintCode::Changed0, HintCode::PostDatabaseChanged));
    EXPECT_FALSE(Rename());
    EXPECT_EQ(Db().GetLastReason(), FormatText("IDS_DB_REASON_HAS_RESULTS", {}));
    EXPECT_FALSE(Records<CClassPont>().TR_Del(101));
}

TEST_F(ResultKeeping, CombinationsAndNamesMayChangeMeanwhile) {
    ASSERT_TRUE(Analyse());
    EXPECT_TRUE(Records<CClassLcom>().TR_Add(1, {.name = "C", .items = {{LoadCaseKind::Static, kDead, 2.0}}}));
    EXPECT_TRUE(Records<CClassName>().TR_Add(1, T_NAME_D{.name = "group"}));
    EXPECT_TRUE(doc->IsExcuted());
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Combination, 1));
}

TEST_F(ResultKeeping, UndoOfADiscardBringsTheResultsBack) {
    ASSERT_TRUE(Analyse());
    ASSERT_TRUE(doc->GetResults().Discard());
    EXPECT_FALSE(doc->IsExcuted());
    EXPECT_FALSE(Post().IsPostEnable());
    EXPECT_EQ(Db().GetUndoNames().front(), FormatText("IDS_DB_STEP_DISCARD", {}));
    ASSERT_TRUE(Rename());
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_FALSE(doc->IsExcuted());
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_TRUE(doc->IsExcuted());
    EXPECT_TRUE(HasDisplacements());
    EXPECT_FALSE(Rename());
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_FALSE(doc->IsExcuted());
    EXPECT_TRUE(Rename());
}

TEST_F(ResultKeeping, ADiscardAndAnEditCanBeOneStep) {
    ASSERT_TRUE(Analyse());
    ASSERT_TRUE(Db().BeginGroup("Edit"));
    ASSERT_TRUE(doc->GetResults().Discard());
    ASSERT_TRUE(Rename());
    ASSERT_TRUE(Db().EndGroup());
    EXPECT_FALSE(doc->IsExcuted());
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_TRUE(doc->IsExcuted());
}

TEST_F(ResultKeeping, DiscardWithoutResultsIsRefused) { EXPECT_FALSE(doc->GetResults().Discard()); }

TEST_F(ResultKeeping, ASecondAnalysisTakesThePlaceOfTheFirst) {
    ASSERT_TRUE(Analyse());
    const std::string first = doc->GetResults().Current()->Head().run;
    ASSERT_TRUE(Analyse());
    EXPECT_NE(doc->GetResults().Current()->Head().run, first);
    EXPECT_TRUE(HasDisplacements());
    // The file holds the later run; the earlier one is gone and says so.
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_FALSE(doc->IsExcuted());
    EXPECT_EQ(doc->GetResults().Message(), FormatText("IDS_DB_RESULT_OTHER_RUN", {doc->GetResults().File().string()}));
    ASSERT_EQ(Db().Redo(), 1);
    EXPECT_TRUE(doc->IsExcuted());
}

TEST_F(ResultKeeping, AnAnalysisThatFailsLeavesTheModelAsItWas) {
    const std::size_t steps = Db().GetUndoNames().size();
    const Outcome outcome =
        doc->GetResults().Keep("Analysis", "test", 9, [](ResultSink&) { return Outcome::Refused("no"); });
    EXPECT_EQ(outcome.Reason(), "no");
    EXPECT_FALSE(doc->IsExcuted());
    EXPECT_EQ(Db().GetUndoNames().size(), steps);
    EXPECT_FALSE(Db().InGroup());
    EXPECT_TRUE(Rename());
}

TEST_F(ResultKeeping, ResultsComeBackWithTheModelFile) {
    ASSERT_TRUE(doc->SaveAs(path));
    ASSERT_TRUE(Analyse());
    EXPECT_EQ(doc->GetResults().File(), folder.File("portal.results.h5"));
    Reopen();
    EXPECT_TRUE(doc->IsExcuted());
    EXPECT_TRUE(HasDisplacements());
    Reopen(OpenMode::ReadOnly);
    EXPECT_TRUE(doc->IsExcuted());
    EXPECT_FALSE(doc->GetResults().Discard());
}

TEST_F(ResultKeeping, ResultsGoWithAModelThatIsSavedElsewhere) {
    ASSERT_TRUE(Analyse());
    const fs::path temporary = doc->GetResults().File();
    ASSERT_TRUE(doc->SaveAs(path));
    EXPECT_TRUE(fs::exists(folder.File("portal.results.h5")));
    Reopen();
    EXPECT_TRUE(doc->IsExcuted());
    EXPECT_FALSE(fs::exists(temporary));
}

TEST_F(ResultKeeping, ResultsOfAnotherModelOrAnOlderStateAreOutOfDate) {
    ASSERT_TRUE(doc->SaveAs(path));
    ASSERT_TRUE(Analyse());
    const T_RSLT_D record{.run = doc->GetResults().Current()->Head().run};
    ASSERT_TRUE(doc->GetResults().Discard());
    ASSERT_TRUE(Rename());
    ASSERT_TRUE(Records<CClassRslt>().TR_Add(1, record));
    EXPECT_FALSE(doc->IsExcuted());
    EXPECT_EQ(doc->GetResults().Message(), FormatText("IDS_DB_RESULT_OUT_OF_DATE", {folder.File("portal.results.h5")}));
    Reopen();
    EXPECT_FALSE(doc->IsExcuted());
    EXPECT_TRUE(Records<CClassSect>().TR_Modify(1, 1, T_SECT_D{.name = "free"}));
}

TEST_F(ResultKeeping, AModelWhoseResultFileIsGoneOpensWithoutResults) {
    ASSERT_TRUE(doc->SaveAs(path));
    ASSERT_TRUE(Analyse());
    doc.reset();
    fs::remove(folder.File("portal.results.h5"));
    Reopen();
    EXPECT_FALSE(doc->IsExcuted());
    EXPECT_EQ(doc->GetResults().Message(), FormatText("IDS_DB_RESULT_NOT_FOUND", {folder.File("portal.results.h5")}));
    EXPECT_TRUE(Rename());
    EXPECT_TRUE(Analyse());
    EXPECT_TRUE(doc->IsExcuted());
}

TEST_F(ResultKeeping, TheResultsOfAModelWithoutAFileGoWithIt) {
    ASSERT_TRUE(Analyse());
    const fs::path file = doc->GetResults().File();
    EXPECT_TRUE(fs::exists(file));
    doc.reset();
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(ResultKeeping, ThePostSideIsLeftWhenItsResultsGo) {
    ASSERT_TRUE(Analyse());
    doc->SetModePost();
    ASSERT_TRUE(doc->GetResults().Discard());
    EXPECT_TRUE(doc->IsPreMode());
}

// ---- fingerprints ----

using Fingerprint = PortalTest;

TEST_F(Fingerprint, IsThatOfTheStateAndNotOfTheWayThere) {
    const std::string before = FingerprintOf(Db());
    EXPECT_EQ(before.size(), 32u);
    ASSERT_TRUE(Records<CClassThik>().TR_Add(5, {.name = "T", .thickness = 0.2}));
    const std::string with = FingerprintOf(Db());
    EXPECT_NE(with, before);
    Db().Undo();
    EXPECT_EQ(FingerprintOf(Db()), before);
    ASSERT_TRUE(Records<CClassThik>().TR_Add({6, 5}, {{.name = "U"}, {.name = "T", .thickness = 0.2}}));
    ASSERT_TRUE(Records<CClassThik>().TR_Del(6));
    EXPECT_EQ(FingerprintOf(Db()), with);
}

TEST_F(Fingerprint, TellsEveryFieldAndEveryKey) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(5, {.name = "T", .thickness = 0.2}));
    const std::string before = FingerprintOf(Db());
    ASSERT_TRUE(Records<CClassThik>().TR_Modify(5, 5, {.name = "T", .thickness = 0.2 + 1e-12}));
    EXPECT_NE(FingerprintOf(Db()), before);
    ASSERT_TRUE(Records<CClassThik>().TR_Modify(5, 6, {.name = "T", .thickness = 0.2}));
    EXPECT_NE(FingerprintOf(Db()), before);
}

TEST_F(Fingerprint, DoesNotKnowUnitsCombinationsAndResults) {
    const std::string before = FingerprintOf(Db());
    SetUnits(2, 2);
    ASSERT_TRUE(Records<CClassLcom>().TR_Add(1, {.name = "C"}));
    ASSERT_TRUE(Records<CClassRslt>().TR_Add(1, {.run = "x"}));
    EXPECT_EQ(FingerprintOf(Db()), before);
}

}  // namespace
}  // namespace zt
