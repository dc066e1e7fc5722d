#include <QClipboard>
#include <QStatusBar>

#include "desktop/window_fixture.h"
#include "zt_db/records/thik.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

class MainWindowTest : public WindowFixture {
protected:
    double Thickness(std::uint32_t key) {
        T_THIK_D record;
        window->Document().GetMDBCtrl()->GetCurrentDB()->GetClass<CClassThik>()->Get(key, record);
        return record.thickness;
    }
};

TEST_F(MainWindowTest, ShowsTheThicknessesOfTheModel) {
    EXPECT_EQ(2, grid->Grid()->RowCount());
    EXPECT_EQ("W200", grid->Grid()->GetShownText(1, 2));
}

TEST_F(MainWindowTest, WritesAnEditAndTakesItBack) {
    const double before = Thickness(1);
    GoTo(1, 3);
    QTest::keyClicks(KeyTarget(), "0");
    QTest::keyClicks(KeyTarget(), ".35");
    QTest::keyClick(KeyTarget(), Qt::Key_Return);
    EXPECT_EQ(0.35, Thickness(1));
    EXPECT_EQ("0.3500", grid->Grid()->GetShownText(1, 3));
    window->Undo();
    EXPECT_EQ(before, Thickness(1));
    window->Redo();
    EXPECT_EQ(0.35, Thickness(1));
}

TEST_F(MainWindowTest, PastesFromTheClipboardAsOneStep) {
    const double before = Thickness(2);
    QApplication::clipboard()->setText("0.41\n0.42\n");
    GoTo(1, 3);
    QTest::keyClick(grid, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(0.41, Thickness(1));
    EXPECT_EQ(0.42, Thickness(2));
    window->Undo();
    EXPECT_EQ(before, Thickness(2));
}

TEST_F(MainWindowTest, TellsWhyATextIsRefused) {
    GoTo(1, 3);
    QTest::keyClicks(KeyTarget(), "a");
    QTest::keyClick(KeyTarget(), Qt::Key_Return);
    EXPECT_FALSE(window->statusBar()->currentMessage().isEmpty());
    EXPECT_TRUE(grid->Browser()->Session().IsCellOpen());
    EXPECT_FALSE(window->close()) << "the row stays open with its text";
}

TEST_F(MainWindowTest, KeepsTheLayoutWhenItIsClosed) {
    grid->Grid()->SetColWidth(2, 173);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(173, velda::CTBGrid::GetPrefInfo("TBThik").at(1).columnWidth);
}

TEST_F(MainWindowTest, SavesAModelThatLivesInAFile) {
    const std::string path = folder.filePath("model.ztm").toStdString();
    ASSERT_TRUE(window->Document().SaveAs(path));
    window->statusBar()->clearMessage();
    window->Save();
    EXPECT_FALSE(window->statusBar()->currentMessage().isEmpty());
    EXPECT_EQ(path, window->Document().GetPath());
}

}  // namespace
}  // namespace zt
