#include <QTimer>
#include <stdexcept>

#include "desktop/safe_application.h"
#include "desktop/window_fixture.h"
#include "zt_db/records/thik.h"

namespace zt {
namespace {

using WindowSafetyTest = WindowFixture;

TEST_F(WindowSafetyTest, AsksBeforeItClosesATableWithAnInvalidRow) {
    TypeWrongText();
    window->CloseTable();
    ASSERT_EQ(1u, host.messages.shown.size());
    EXPECT_EQ(1u, window->Area().Documents().size()) << "the user stays";
    EXPECT_TRUE(grid->Browser()->Session().IsCellOpen());

    host.messages.answers.push_back(velda::MessageAnswer::Yes);
    window->CloseTable();
    EXPECT_TRUE(window->Area().Documents().empty());
}

TEST_F(WindowSafetyTest, ShowsWhatIsWrongWithTheRow) {
    TypeWrongText();
    const auto findings = grid->Browser()->Session().Findings();
    ASSERT_FALSE(findings.empty());
    EXPECT_FALSE(window->close());
    ASSERT_FALSE(host.messages.shown.empty());
    EXPECT_NE(std::string::npos, host.messages.shown[0].find(findings[0].message));
}

TEST_F(WindowSafetyTest, DropsTheRowBeforeUndo) {
    TypeWrongText();
    host.messages.answers.push_back(velda::MessageAnswer::Yes);
    const auto names = window->Document().GetMDBCtrl()->GetCurrentDB()->GetUndoNames();
    window->Undo();
    EXPECT_FALSE(grid->Browser()->Session().IsRowOpen());
    EXPECT_EQ(names.size() - 1, window->Document().GetMDBCtrl()->GetCurrentDB()->GetUndoNames().size());
}

TEST_F(WindowSafetyTest, AsksBeforeItDropsChangesThatAreInNoFile) {
    GoTo(1, 3);
    QTest::keyClicks(KeyTarget(), "0.35");
    QTest::keyClick(KeyTarget(), Qt::Key_Return);
    EXPECT_FALSE(window->close());
    host.messages.answers.push_back(velda::MessageAnswer::No);
    EXPECT_TRUE(window->close());
}

TEST_F(WindowSafetyTest, ShowsAFailureOfAHandlerOnce) {
    const auto fail = [] { throw std::runtime_error("no such load"); };
    const std::size_t steps = window->Document().GetMDBCtrl()->GetCurrentDB()->GetUndoNames().size();
    for (int time = 0; time < 2; ++time) QTimer::singleShot(0, window.get(), fail);
    QTRY_VERIFY_WITH_TIMEOUT(!host.messages.shown.empty(), 5000);
    QCoreApplication::processEvents();
    ASSERT_EQ(1u, host.messages.shown.size());
    EXPECT_NE(std::string::npos, host.messages.shown[0].find("no such load"));
    EXPECT_EQ(steps, window->Document().GetMDBCtrl()->GetCurrentDB()->GetUndoNames().size());
}

TEST_F(WindowSafetyTest, KeepsTheModelWhenAFileCannotBeOpened) {
    EXPECT_FALSE(window->OpenModelFile(folder.filePath("missing.ztm")));
    EXPECT_EQ(1u, host.messages.shown.size());
    EXPECT_EQ(2, grid->Grid()->RowCount());
}

TEST_F(WindowSafetyTest, OpensAModelInPlaceOfTheCurrentOne) {
    const std::string path = folder.filePath("model.ztm").toStdString();
    ASSERT_TRUE(window->Document().SaveAs(path));
    window->NewModel();
    EXPECT_TRUE(window->Document().GetPath().empty());
    EXPECT_TRUE(window->OpenModelFile(QString::fromStdString(path)));
    EXPECT_EQ(path, window->Document().GetPath());
    EXPECT_TRUE(window->windowTitle().contains("model.ztm"));
}

TEST_F(WindowSafetyTest, TakesBackWhatAFailedHandlerLeftHalfDone) {
    CDataBase& db = *window->Document().GetMDBCtrl()->GetCurrentDB();
    const std::size_t steps = db.GetUndoNames().size();
    const int rows = grid->Grid()->RowCount();
    QTimer::singleShot(0, window.get(), [&db] {
        db.BeginGroup("outer");
        db.BeginGroup("inner");
        db.GetClass<CClassThik>()->TR_Add(77, T_THIK_D{.name = "half", .thickness = 0.1});
        throw std::runtime_error("lost its way");
    });
    QTRY_VERIFY_WITH_TIMEOUT(!host.messages.shown.empty(), 5000);
    EXPECT_FALSE(db.InGroup());
    EXPECT_FALSE(db.GetClass<CClassThik>()->Exist(77));
    EXPECT_EQ(steps, db.GetUndoNames().size());
    EXPECT_EQ(rows, grid->Grid()->RowCount());
    EXPECT_TRUE(db.GetClass<CClassThik>()->TR_Add(78, T_THIK_D{.name = "next", .thickness = 0.1})) << "work goes on";
}

}  // namespace
}  // namespace zt
