#include "desktop/window/analysis_run.h"

#include <QMenuBar>

#include "desktop/grid/qt_text.h"
#include "desktop/window_fixture.h"
#include "zt_db/doc/hint_codes.h"
#include "zt_db/records/actl.h"
#include "zt_db/records/spts.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Keeps the hints of executions.
class Listener final : public CDBUpdateConnector {
public:
    void OnUpdate(CDBUpdateConnector* /*sender*/, int code, T_UPDATE_HINT* /*hint*/) override {
        if (code == HintCode::ExecutionStarted || code == HintCode::ExecutionEnded) codes.push_back(code);
    }
    std::vector<int> codes;
};

class AnalysisRunTest : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        auto doc = CDBDoc::New();
        ASSERT_TRUE(BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), "small"));
        window = std::make_unique<MainWindow>(std::move(doc));
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        listener.ConnectToDoc(&window->Document());
    }
    void TearDown() override {
        listener.DisconnectFromDoc();
        WindowFixture::TearDown();
    }
    CDataBase& Db() { return *window->Document().GetMDBCtrl()->GetCurrentDB(); }
    std::string Log() { return FromQt(window->Log().Text()); }
    void RemoveSupports() {
        std::vector<std::uint32_t> keys;
        Db().GetClass<CClassSpts>()->GetKeyList(keys);
        ASSERT_TRUE(Db().GetClass<CClassSpts>()->TR_Del(keys));
    }

    Listener listener;
};

TEST_F(AnalysisRunTest, RunsFromItsMenuAndSummarisesTheResultsInTheLog) {
    QAction* run = window->ActionOf("analysis-run");
    ASSERT_NE(nullptr, run);
    EXPECT_EQ(run->shortcut(), QKeySequence(Qt::Key_F5));
    run->trigger();
    EXPECT_THAT(Log(), HasSubstr("Analysis started"));
    EXPECT_THAT(Log(), HasSubstr("DL: largest displacement"));
    EXPECT_THAT(Log(), HasSubstr("Mode 12: period"));
    EXPECT_THAT(host.messages.shown, IsEmpty());
    EXPECT_FALSE(host.progress.open);
    EXPECT_THAT(listener.codes, ElementsAre(HintCode::ExecutionStarted, HintCode::ExecutionEnded));
}

TEST_F(AnalysisRunTest, TakesTheNumberOfModesFromTheControl) {
    ASSERT_TRUE(Db().GetClass<CClassActl>()->TR_Add(T_ACTL_D::kKey, {.modes = 3}));
    window->RunAnalysis();
    EXPECT_THAT(Log(), HasSubstr("Mode 3: period"));
    EXPECT_THAT(Log(), Not(HasSubstr("Mode 4: period")));
}

TEST_F(AnalysisRunTest, TellsARefusalInABoxAndInTheLogThatComesUp) {
    RemoveSupports();
    window->RunAnalysis();
    ASSERT_EQ(host.messages.shown.size(), 1u);
    EXPECT_THAT(host.messages.shown.front(), Not(IsEmpty()));
    EXPECT_THAT(Log(), HasSubstr("Error: " + host.messages.shown.front()));
    EXPECT_TRUE(window->Log().isVisible());
    EXPECT_THAT(listener.codes, ElementsAre(HintCode::ExecutionStarted, HintCode::ExecutionEnded));
    EXPECT_THAT(Log(), Not(HasSubstr("Mode 1")));
}

TEST_F(AnalysisRunTest, IsCancelledWithoutABox) {
    host.progress.cancelAt = 10;
    window->RunAnalysis();
    EXPECT_THAT(Log(), HasSubstr("The analysis was stopped"));
    EXPECT_THAT(Log(), Not(HasSubstr("Error")));
    EXPECT_THAT(host.messages.shown, IsEmpty());
    EXPECT_EQ(listener.codes.back(), HintCode::ExecutionEnded);
}

TEST_F(AnalysisRunTest, BeginsItsLogAnewAndDropsItWithTheModel) {
    RemoveSupports();
    window->RunAnalysis();
    window->Undo();
    window->RunAnalysis();
    EXPECT_THAT(Log(), Not(HasSubstr("Error")));
    host.messages.answers.push_back(velda::MessageAnswer::No);
    listener.DisconnectFromDoc();
    window->NewModel();
    EXPECT_EQ(Log(), "");
    EXPECT_FALSE(window->HasModel()) << "nothing to analyse";
}

TEST_F(AnalysisRunTest, KeepsItsResultsInOneStepWhichLocksTheModel) {
    const std::size_t steps = Db().GetUndoNames().size();
    window->RunAnalysis();
    EXPECT_EQ(Db().GetUndoNames().size(), steps + 1);
    EXPECT_TRUE(CDBDoc::m_pDBDoc->IsExcuted());
    window->DiscardResults();
    EXPECT_EQ(Db().GetUndoNames().size(), steps + 2);
    EXPECT_FALSE(CDBDoc::m_pDBDoc->IsExcuted());
}

// ---- the pane ----

class AnalysisLogPaneTest : public WindowFixture {
protected:
    AnalysisLogPane& Pane() { return window->Log(); }
};

TEST_F(AnalysisLogPaneTest, ComesUpWithWarningsAndErrorsOnly) {
    EXPECT_FALSE(Pane().isVisible());
    Pane().Add(LogEntry::Note, "read");
    EXPECT_FALSE(Pane().isVisible());
    Pane().Add(LogEntry::Warning, "loose");
    EXPECT_TRUE(Pane().isVisible());
    Pane().close();
    Pane().Add(LogEntry::Error, "unstable");
    EXPECT_TRUE(Pane().isVisible());
}

TEST_F(AnalysisLogPaneTest, BringsTheFirstFaultIntoSight) {
    Pane().Add(LogEntry::Note, "read");
    Pane().ShowFirstFault();
    EXPECT_EQ(Pane().Lines().currentItem(), nullptr) << "there is none";
    Pane().Add(LogEntry::Warning, "loose");
    for (int at = 0; at < 100; ++at) Pane().Add(LogEntry::Note, "more");
    Pane().ShowFirstFault();
    QTreeWidgetItem* warning = Pane().Lines().topLevelItem(1);
    EXPECT_EQ(Pane().Lines().currentItem(), warning);
    EXPECT_TRUE(Pane().Lines().viewport()->rect().intersects(Pane().Lines().visualItemRect(warning)));
}

TEST_F(AnalysisLogPaneTest, IsShownFromTheViewMenu) {
    const QList<QAction*> menus = window->menuBar()->actions();
    const auto view = std::find_if(menus.begin(), menus.end(),
                                   [](const QAction* menu) { return menu->text() == QStringLiteral("&View"); });
    ASSERT_NE(view, menus.end());
    const QList<QAction*> actions = (*view)->menu()->actions();
    const auto show = std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
        return action->text() == QStringLiteral("Analysis log");
    });
    ASSERT_NE(show, actions.end());
    (*show)->trigger();
    EXPECT_TRUE(Pane().isVisible());
}

TEST_F(AnalysisLogPaneTest, TellsTimeAndKindOfEachLineAndCopiesThem) {
    Pane().Add(LogEntry::Note, "read");
    Pane().Add(LogEntry::Warning, "loose");
    Pane().Add(LogEntry::Error, "unstable");
    Pane().CopyAll();
    EXPECT_THAT(host.clipboard.GetText(),
                testing::MatchesRegex("..:..:..\tread\n..:..:..\tWarning: loose\n..:..:..\tError: unstable\n"));
    Pane().Lines().topLevelItem(1)->setSelected(true);
    Pane().Copy();
    EXPECT_THAT(host.clipboard.GetText(), testing::MatchesRegex("..:..:..\tWarning: loose\n"));
}

TEST_F(AnalysisLogPaneTest, MarksWarningsAndErrorsByColourAndIcon) {
    for (const LogEntry entry : {LogEntry::Note, LogEntry::Warning, LogEntry::Error}) Pane().Add(entry, "x");
    std::set<QRgb> colors;
    for (int at = 0; at < 3; ++at) {
        const QTreeWidgetItem* line = Pane().Lines().topLevelItem(at);
        const QImage icon = line->icon(1).pixmap(16).toImage();
        EXPECT_EQ(icon.pixelColor(icon.rect().center()).alpha() > 0, at > 0) << at;
        if (at > 0) colors.insert(line->foreground(1).color().rgb());
    }
    EXPECT_EQ(colors.size(), 2u);
    EXPECT_EQ(Pane().Lines().topLevelItem(0)->foreground(1).style(), Qt::NoBrush) << "notes are plain text";
}

}  // namespace
}  // namespace zt
