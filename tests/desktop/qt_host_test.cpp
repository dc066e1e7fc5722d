#include "desktop/host/qt_host.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "desktop/example_grid.h"
#include "desktop/host/dialogs.h"
#include "desktop/host/qt_dock_pane.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

class QtHostTest : public ::testing::Test {
protected:
    /// Does something to the window that a call under test opens.
    template <class Window, class Use>
    void WhenShown(Use use) {
        QTimer::singleShot(0, &waiting, [use] {
            auto* shown = qobject_cast<Window*>(QApplication::activeModalWidget());
            if (shown) use(*shown);
        });
    }

    QObject waiting;
    QtHost host;
    velda::UseHost use{host};
};

TEST_F(QtHostTest, NestsTheWaitCursor) {
    {
        const velda::WaitCursor outer;
        { const velda::WaitCursor inner; }
        EXPECT_NE(nullptr, QGuiApplication::overrideCursor());
    }
    EXPECT_EQ(nullptr, QGuiApplication::overrideCursor());
}

TEST_F(QtHostTest, AnswersWithTheButtonThatWasPressed) {
    WhenShown<QMessageBox>([](QMessageBox& box) { box.buttons().first()->click(); });
    EXPECT_EQ(velda::MessageAnswer::Yes, velda::AfxMessageBox("?", velda::MessageButtons::YesNo));
}

TEST_F(QtHostTest, TakesTheMostCarefulAnswerWhenABoxIsClosed) {
    WhenShown<QMessageBox>([](QMessageBox& box) { box.reject(); });
    EXPECT_EQ(velda::MessageAnswer::Cancel, velda::AfxMessageBox("?", velda::MessageButtons::YesNoCancel));
    WhenShown<QMessageBox>([](QMessageBox& box) { box.reject(); });
    EXPECT_EQ(velda::MessageAnswer::No, velda::AfxMessageBox("?", velda::MessageButtons::YesNo));
}

TEST_F(QtHostTest, StopsWorkWhoseProgressIsCancelled) {
    velda::Progress progress("work", 10);
    EXPECT_TRUE(progress.Step(1));
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<QProgressDialog*>(window)) dialog->cancel();
    }
    EXPECT_FALSE(progress.Step(2));
}

TEST_F(QtHostTest, ShowsMenusAsTheyAreListed) {
    velda::CMenu items;
    items.Append(7, "Sort");
    items.AppendSeparator();
    items.Append(8, "Style", false);
    QMenu menu;
    FillMenu(menu, items);
    ASSERT_EQ(3, menu.actions().size());
    EXPECT_EQ(7, menu.actions()[0]->data().toInt());
    EXPECT_TRUE(menu.actions()[1]->isSeparator());
    EXPECT_FALSE(menu.actions()[2]->isEnabled());
}

TEST_F(QtHostTest, RunsTheFindDialogOnItsBlock) {
    ExampleGrid grid(3);
    velda::CTBGrid::m_Find = {};
    CTBFindDlg block(grid);
    WhenShown<BlockDialog>([](BlockDialog& dialog) {
        QPushButton* find = dialog.Buttons().button(QDialogButtonBox::Ok);
        EXPECT_FALSE(find->isEnabled()) << "there is no text yet";
        dialog.findChild<QLineEdit*>()->setText("abc");
        dialog.findChild<QCheckBox*>()->setChecked(true);
        find->click();
    });
    EXPECT_TRUE(velda::DoModal(block));
    EXPECT_EQ("abc", velda::CTBGrid::m_Find.text);
    EXPECT_TRUE(velda::CTBGrid::m_Find.matchCase);
}

TEST_F(QtHostTest, LeavesColorsWhenTheDialogIsCancelled) {
    const velda::STBColorSet before = velda::CTBGrid::m_Color;
    WhenShown<BlockDialog>([](BlockDialog& dialog) { dialog.reject(); });
    EXPECT_FALSE(velda::CTBGrid::ShowColorDlg());
    EXPECT_EQ(before, velda::CTBGrid::m_Color);
}

TEST_F(QtHostTest, CancelsADialogThatItDoesNotKnow) {
    struct Unknown final : velda::ModalDialog {
        std::string_view GetName() const override { return "Unknown"; }
        void OnCancel() override { cancelled = true; }
        bool cancelled = false;
    } dialog;
    EXPECT_FALSE(velda::DoModal(dialog));
    EXPECT_TRUE(dialog.cancelled);
}

TEST_F(QtHostTest, DeliversPostedCommandsAfterTheHandlerAtWork) {
    QWidget widget;
    std::vector<int> ids;
    QtMainFrame frame(widget, [&](std::uint16_t id) { ids.push_back(id); });
    frame.PostCommand({1});
    frame.SendCommand({2});
    EXPECT_EQ(std::vector<int>({2}), ids);
    QCoreApplication::processEvents();
    EXPECT_EQ(std::vector<int>({2, 1}), ids);
}

TEST_F(QtHostTest, ClosesAFrameWithItsWidget) {
    QWidget widget;
    QtMainFrame frame(widget, [](std::uint16_t) {});
    const auto child = host.GetFrames().CreateChildFrame(frame);
    ASSERT_NE(nullptr, child);
    child->SetTitle("Nodes");
    EXPECT_EQ("Nodes", child->GetTitle());
    EXPECT_TRUE(child->IsOpen());
    child->Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(child->IsOpen());
}

class SizedPane final : public velda::CDockViewBase {
public:
    void OnSize() override { ++sizes; }
    int sizes = 0;
};

TEST_F(QtHostTest, ShowsADockingPaneInTheMainWindow) {
    QMainWindow window;
    SizedPane pane;
    ASSERT_TRUE(velda::CDockViewBase::SetDockViewWithID(4711, &pane));
    {
        QtDockPane shown(window, pane, "pane", "Nodes");
        window.show();
        EXPECT_TRUE(pane.IsVisible());
        EXPECT_TRUE(shown.IsDocked());
        EXPECT_LT(0, pane.sizes);
        EXPECT_TRUE(velda::CDockViewBase::CloseDockView(4711));
        EXPECT_FALSE(pane.IsVisible());
        EXPECT_TRUE(velda::CDockViewBase::ShowDockView(4711));
        EXPECT_TRUE(pane.IsVisible());
    }
    EXPECT_FALSE(pane.HasWindow());
}

}  // namespace
}  // namespace zt
