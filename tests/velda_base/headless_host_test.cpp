#include "velda_base/host/headless_host.h"

#include "velda_base/host/headless_dock_pane.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HeadlessHostTest : public testing::Test {
protected:
    HeadlessHost host;
    UseHost use{host};
};

TEST(ApplicationHostTest, IsHeadlessUntilAnotherIsSet) {
    ApplicationHost& usual = ApplicationHost::Current();
    {
        HeadlessHost host;
        const UseHost use(host);
        EXPECT_EQ(&ApplicationHost::Current(), &host);
        HeadlessHost inner;
        { const UseHost useInner(inner); }
        EXPECT_EQ(&ApplicationHost::Current(), &host);
    }
    EXPECT_EQ(&ApplicationHost::Current(), &usual);
    EXPECT_EQ(ICmdDialog::Instance(), nullptr);
}

// ---- questions

TEST_F(HeadlessHostTest, QuestionsAreAnsweredFromTheQueue) {
    host.messages.answers = {MessageAnswer::Yes, MessageAnswer::No};
    EXPECT_EQ(AfxMessageBox("a", MessageButtons::YesNo), MessageAnswer::Yes);
    EXPECT_EQ(AfxMessageBox("b", MessageButtons::YesNoCancel), MessageAnswer::No);
    EXPECT_THAT(host.messages.shown, ElementsAre("a", "b"));
}

TEST_F(HeadlessHostTest, AQuestionWithoutAnAnswerGetsTheMostCarefulOne) {
    EXPECT_EQ(AfxMessageBox("a", MessageButtons::Ok), MessageAnswer::Ok);
    EXPECT_EQ(AfxMessageBox("a", MessageButtons::OkCancel), MessageAnswer::Cancel);
    EXPECT_EQ(AfxMessageBox("a", MessageButtons::YesNo), MessageAnswer::No);
    EXPECT_EQ(AfxMessageBox("a", MessageButtons::YesNoCancel), MessageAnswer::Cancel);
}

TEST_F(HeadlessHostTest, AnAnswerThatTheButtonsDoNotHaveIsNotGiven) {
    host.messages.answers = {MessageAnswer::Ok, MessageAnswer::Yes};
    EXPECT_EQ(AfxMessageBox("a", MessageButtons::YesNo), MessageAnswer::No);
    EXPECT_EQ(AfxMessageBox("a", MessageButtons::OkCancel), MessageAnswer::Cancel);
    EXPECT_THAT(host.messages.answers, IsEmpty());
}

TEST_F(HeadlessHostTest, AMessageTakesNoAnswerFromTheQueue) {
    host.messages.answers = {MessageAnswer::Yes};
    AfxMessageBox("a");
    EXPECT_EQ(host.messages.answers.size(), 1u);
}

// ---- waiting

TEST_F(HeadlessHostTest, WaitCursorsMayBeNested) {
    {
        const WaitCursor outer;
        { const WaitCursor inner; }
        EXPECT_EQ(host.waitCursor.depth, 1);
    }
    EXPECT_EQ(host.waitCursor.depth, 0);
    EXPECT_EQ(host.waitCursor.times, 1);
}

TEST_F(HeadlessHostTest, ProgressTellsThatTheUserCancelled) {
    host.progress.cancelAt = 2;
    {
        Progress progress("Filling", 5);
        EXPECT_TRUE(progress.Step(1));
        EXPECT_FALSE(progress.Step(2));
        EXPECT_TRUE(host.progress.open);
        EXPECT_EQ(host.progress.lastTitle, "Filling");
    }
    EXPECT_FALSE(host.progress.open);
}

// ---- main frame

TEST_F(HeadlessHostTest, ASentCommandRunsAtOnceAndAPostedOneAfterTheHandler) {
    std::vector<int> ran;
    host.mainFrame.handlers[7] = [&] { ran.push_back(7); };
    host.mainFrame.handlers[8] = [&] { ran.push_back(8); };
    host.queue.Run([&] {
        host.mainFrame.PostCommand({7});
        host.mainFrame.SendCommand({8});
        EXPECT_THAT(ran, ElementsAre(8));
    });
    EXPECT_THAT(ran, ElementsAre(8, 7));
    EXPECT_THAT(host.mainFrame.sent, ElementsAre(8));
    EXPECT_THAT(host.mainFrame.posted, ElementsAre(7));
}

TEST_F(HeadlessHostTest, ToolButtonsKeepTheirState) {
    EXPECT_FALSE(host.mainFrame.IsToolButtonChecked(33028));
    host.mainFrame.CheckToolButton(33028, true);
    EXPECT_TRUE(host.mainFrame.IsToolButtonChecked(33028));
    host.mainFrame.CheckToolButton(33028, false);
    EXPECT_FALSE(host.mainFrame.IsToolButtonChecked(33028));
}

// ---- windows and frames

TEST_F(HeadlessHostTest, AFrameIsClosedOnce) {
    HeadlessFrame frame(host.queue);
    int closed = 0;
    frame.onClosed = [&] { ++closed; };
    frame.Close();
    frame.Close();
    EXPECT_FALSE(frame.IsOpen());
    EXPECT_EQ(closed, 1);
}

TEST_F(HeadlessHostTest, AWindowTellsItsSizeFromItsUpperLeftCorner) {
    HeadlessWindow window(host.queue);
    window.MoveWindow({10, 20, 110, 70});
    EXPECT_EQ(window.GetClientRect(), (WindowRect{0, 0, 100, 50}));
    EXPECT_EQ(window.Place(), (WindowRect{10, 20, 110, 70}));
}

// ---- menus

TEST(MenuTest, EntriesAreFoundRemovedAndDisabledByCommand) {
    CMenu menu;
    menu.Append(1, "One");
    menu.AppendSeparator();
    menu.Append(2, "Two");
    EXPECT_TRUE(menu.Enable(2, false));
    EXPECT_FALSE(menu.Find(2)->enabled);
    EXPECT_TRUE(menu.RemoveCommand(1));
    EXPECT_FALSE(menu.RemoveCommand(1));
    EXPECT_FALSE(menu.Enable(1, true));
    EXPECT_EQ(menu.Find(1), nullptr);
    EXPECT_EQ(menu.Find(0), nullptr) << "a separator is no command";
}

TEST(MenuTest, AnEntryIsRemovedByPositionWhichMayBeASeparator) {
    CMenu menu;
    menu.Append(1, "One");
    menu.AppendSeparator();
    EXPECT_FALSE(menu.RemovePosition(-1));
    EXPECT_FALSE(menu.RemovePosition(2));
    EXPECT_TRUE(menu.RemovePosition(1));
    EXPECT_EQ(menu.Items().size(), 1u);
}

TEST(MenuTest, UselessSeparatorsGo) {
    CMenu menu;
    menu.AppendSeparator();
    menu.AppendSeparator();
    menu.Append(1, "One");
    menu.AppendSeparator();
    menu.AppendSeparator();
    menu.Append(2, "Two");
    menu.AppendSeparator();
    menu.DeleteUselessSeparators();
    EXPECT_EQ(menu.Items(), (std::vector<MenuItem>{{1, "One"}, {}, {2, "Two"}}));
    CMenu onlySeparators;
    onlySeparators.AppendSeparator();
    onlySeparators.DeleteUselessSeparators();
    EXPECT_THAT(onlySeparators.Items(), IsEmpty());
}

TEST_F(HeadlessHostTest, ACommandThatTheMenuDoesNotOfferIsNotChosen) {
    CMenu menu;
    menu.Append(1, "One");
    menu.Append(2, "Two", false);
    host.menus.choices = {1, 2, 3};
    EXPECT_EQ(host.menus.Track(menu, nullptr, {}), 1);
    EXPECT_EQ(host.menus.Track(menu, nullptr, {}), 0);
    EXPECT_EQ(host.menus.Track(menu, nullptr, {}), 0);
    EXPECT_EQ(host.menus.Track(menu, nullptr, {5, 6}), 0);
    EXPECT_EQ(host.menus.lastPlace, (WindowPoint{5, 6}));
}

TEST_F(HeadlessHostTest, EntriesOfMenusAreChosenByTextBeforeCommands) {
    CMenu menu;
    menu.AppendSeparator();
    menu.Append(1, "One");
    menu.Append(2, "Two");
    menu.Append(3, "Three", false);
    host.menus.choices = {1};
    host.menus.texts = {"Two", "Three", ""};
    EXPECT_EQ(host.menus.Track(menu, nullptr, {}), 2);
    EXPECT_EQ(host.menus.Track(menu, nullptr, {}), 0);
    EXPECT_EQ(host.menus.Track(menu, nullptr, {}), 0);
    EXPECT_EQ(host.menus.Track(menu, nullptr, {}), 1);
}

// ---- dialogs

class StubbornDialog : public ModalDialog {
public:
    std::string_view GetName() const override { return "Stubborn"; }
    bool OnOK() override { return takes; }
    void OnCancel() override { ++cancels; }

    bool takes = false;
    int cancels = 0;
};

TEST_F(HeadlessHostTest, ADialogIsCancelledWithoutAUserAndWhenItDoesNotTakeTheOK) {
    StubbornDialog dialog;
    EXPECT_FALSE(DoModal(dialog));
    host.dialogs.users.push_back([](ModalDialog&) { return true; });
    EXPECT_FALSE(DoModal(dialog));
    EXPECT_EQ(dialog.cancels, 2);
    dialog.takes = true;
    host.dialogs.users.push_back([](ModalDialog&) { return true; });
    EXPECT_TRUE(DoModal(dialog));
    EXPECT_THAT(host.dialogs.shown, ElementsAre("Stubborn", "Stubborn", "Stubborn"));
}

// ---- other services

TEST_F(HeadlessHostTest, TheModelViewForgetsHighlightsWhenTheyAreReset) {
    const std::uint32_t keys[] = {3, 5};
    host.model.Highlight(keys, 7, 1);
    ASSERT_EQ(host.model.highlighted.size(), 1u);
    EXPECT_THAT(host.model.highlighted[0].keys, ElementsAre(3, 5));
    host.model.ResetHighlights();
    EXPECT_THAT(host.model.highlighted, IsEmpty());
    host.model.Refresh();
    EXPECT_EQ(host.model.refreshes, 1);
}

TEST_F(HeadlessHostTest, PrintingStopsWhereTheUserCancels) {
    host.printer.cancelsAtPage = 2;
    host.printer.BeginJob({});
    EXPECT_TRUE(host.printer.BeginPage(1));
    EXPECT_FALSE(host.printer.BeginPage(2));
    EXPECT_THAT(host.printer.pages, ElementsAre(1));
}

TEST_F(HeadlessHostTest, TheClipboardKeepsItsText) {
    EXPECT_EQ(host.clipboard.GetText(), "");
    host.clipboard.SetText("a\tb\n");
    EXPECT_EQ(host.clipboard.GetText(), "a\tb\n");
}

// ---- docking panes

TEST_F(HeadlessHostTest, APaneIsKnownByItsIdentifierAsLongAsItLives) {
    {
        CDockViewBase pane;
        CDockViewBase other;
        EXPECT_TRUE(CDockViewBase::SetDockViewWithID(7, &pane));
        EXPECT_TRUE(CDockViewBase::SetDockViewWithID(7, &pane));
        EXPECT_FALSE(CDockViewBase::SetDockViewWithID(7, &other));
        EXPECT_FALSE(CDockViewBase::SetDockViewWithID(CDockViewBase::kNoId, &other));
        EXPECT_FALSE(CDockViewBase::SetDockViewWithID(8, nullptr));
        EXPECT_EQ(CDockViewBase::GetDockViewFromID(7), &pane);
    }
    EXPECT_EQ(CDockViewBase::GetDockViewFromID(7), nullptr);
    EXPECT_FALSE(CDockViewBase::ShowDockView(7));
    EXPECT_FALSE(CDockViewBase::CloseDockView(7));
}

TEST_F(HeadlessHostTest, APaneIsClosedAndShownAgain) {
    CDockViewBase pane;
    CDockViewBase::SetDockViewWithID(7, &pane);
    EXPECT_FALSE(CDockViewBase::CloseDockView(7)) << "it has no window yet";
    HeadlessDockPane window(host.queue, pane);
    CDockViewBase::CloseDockViewAll();
    EXPECT_FALSE(pane.IsVisible());
    EXPECT_EQ(window.stored, 1);
    EXPECT_TRUE(CDockViewBase::ShowDockView(7));
    EXPECT_TRUE(pane.IsVisible());
    window.docked = false;
    EXPECT_TRUE(CDockViewBase::CloseDockView(7));
    EXPECT_TRUE(pane.IsVisible()) << "a floating pane is not hidden";
    window.Destroy();
    EXPECT_FALSE(CDockViewBase::CloseDockView(7));
    EXPECT_FALSE(CDockViewBase::ShowDockView(7));
}

}  // namespace
}  // namespace velda
