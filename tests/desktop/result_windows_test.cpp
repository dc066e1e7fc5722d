#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <algorithm>

#include "desktop/grid/grid_widget.h"
#include "desktop/host/activation_dialog.h"
#include "desktop/mouse_drag.h"
#include "desktop/window_fixture.h"
#include "zt_tb/post/post_view_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// ---- the window of the activation ----

/// The window over a block of members, two load cases, three parts.
class ActivationWindow : public PostViewTest {
protected:
    ActivationWindow() {
        param.hasObjects = true;
        param.objectDomain = KeyDomain::Members;
        param.allObjects = {11, 12, 13};
        param.selectedObjects = {11, 12};
        param.hasLoads = true;
        param.loads.names = {"Wind X", "Dead", "Wind Y"};
        param.loads.all = {{.key = 2}, {.key = 1}, {.key = 3}};
        param.loads.selected = {{.key = 1}};
        param.parts = {.isOn = true, .names = {"i", "mid", "j"}, .keys = {0, 4, 7}, .selected = {0}};
        UseResults();
    }
    void Open() {
        block = std::make_unique<CTBActiveNewDlg>(param, *doc->GetMDBCtrl()->GetDBPost());
        block->OnInitDialog();
        dialog = MakeActivationDialog(*block, nullptr);
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }
    /// The sections in sight, from left to right.
    std::vector<QGroupBox*> Boxes() const {
        std::vector<QGroupBox*> boxes;
        for (QGroupBox* box : dialog->findChildren<QGroupBox*>()) {
            if (box->isVisible()) boxes.push_back(box);
        }
        std::sort(boxes.begin(), boxes.end(), [](const auto* a, const auto* b) { return a->x() < b->x(); });
        return boxes;
    }
    std::vector<std::string> Titles() const {
        std::vector<std::string> titles;
        for (const QGroupBox* box : Boxes()) titles.push_back(box->title().toStdString());
        return titles;
    }
    QGroupBox& Box(std::size_t at) const { return *Boxes().at(at); }
    /// Lines of the list of a section, those that are ticked with a star.
    static std::vector<std::string> Lines(const QGroupBox& box) {
        const auto* list = box.findChild<QListWidget*>();
        std::vector<std::string> lines;
        for (int line = 0; line < list->count(); ++line) {
            const bool isTicked = list->item(line)->checkState() == Qt::Checked;
            lines.push_back(list->item(line)->text().toStdString() + (isTicked ? "*" : ""));
        }
        return lines;
    }
    static void Press(const QGroupBox& box, const char* text) {
        for (QPushButton* button : box.findChildren<QPushButton*>()) {
            if (button->text() == QLatin1String(text)) return QTest::mouseClick(button, Qt::LeftButton);
        }
        FAIL() << text;
    }
    static void Search(const QGroupBox& box, const char* text) {
        auto* edit = box.findChild<QLineEdit*>();
        edit->clear();
        QTest::keyClicks(edit, text);
    }

    TB_ACTIVE_PARAM param;
    std::unique_ptr<CTBActiveNewDlg> block;
    std::unique_ptr<BlockDialog> dialog;
};

TEST_F(ActivationWindow, ShowsTheSectionsOfTheTableSideBySide) {
    Open();
    EXPECT_THAT(Titles(), ElementsAre("Objects", "Load Cases", "Parts"));
    param.loads.title = "Pushover Load Cases";
    param.parts.isOn = false;
    param.steps = {.isOn = true, .title = "Modes", .names = {"1"}, .keys = {1}};
    Open();
    EXPECT_THAT(Titles(), ElementsAre("Objects", "Pushover Load Cases", "Modes"));
}

TEST_F(ActivationWindow, HiddenSectionsLeaveNoGap) {
    param.stories = {.isOn = true, .names = {"A : 1F"}, .keys = {1}};
    Open();
    const int wide = dialog->width();
    ASSERT_EQ(4u, Boxes().size());
    const int gap = Boxes()[1]->x() - Boxes()[0]->geometry().right();
    const int left = Boxes()[0]->x();
    param.stories.isOn = false;
    param.hasObjects = false;
    Open();
    ASSERT_EQ(2u, Boxes().size());
    EXPECT_EQ(left, Boxes()[0]->x());
    EXPECT_EQ(gap, Boxes()[1]->x() - Boxes()[0]->geometry().right());
    EXPECT_LT(dialog->width(), wide);
}

TEST_F(ActivationWindow, TicksReachTheChoice) {
    Open();
    EXPECT_THAT(Lines(Box(1)), ElementsAre("Wind X", "Dead*", "Wind Y"));
    EXPECT_THAT(Lines(Box(2)), ElementsAre("i*", "mid", "j"));
    Box(1).findChild<QListWidget*>()->item(2)->setCheckState(Qt::Checked);
    Box(1).findChild<QListWidget*>()->item(1)->setCheckState(Qt::Unchecked);
    Press(Box(2), "All");
    Box(2).findChild<QListWidget*>()->item(1)->setCheckState(Qt::Unchecked);
    dialog->accept();
    EXPECT_THAT(param.loads.selected, ElementsAre(LoadChoice{.key = 3}));
    EXPECT_THAT(param.parts.selected, ElementsAre(0, 7));
}

TEST_F(ActivationWindow, AllAndNoneMeanWhatTheSearchShows) {
    Open();
    Search(Box(1), "wind");
    EXPECT_THAT(Lines(Box(1)), ElementsAre("Wind X", "Wind Y"));
    Press(Box(1), "All");
    EXPECT_THAT(Lines(Box(1)), ElementsAre("Wind X*", "Wind Y*"));
    // A tick in a narrowed list is that of the entry which is shown.
    Box(1).findChild<QListWidget*>()->item(1)->setCheckState(Qt::Unchecked);
    Search(Box(1), "");
    EXPECT_THAT(Lines(Box(1)), ElementsAre("Wind X*", "Dead*", "Wind Y"));
    Search(Box(1), "dead");
    Press(Box(1), "None");
    Search(Box(1), "");
    EXPECT_THAT(Lines(Box(1)), ElementsAre("Wind X*", "Dead", "Wind Y"));
    dialog->accept();
    EXPECT_THAT(param.loads.selected, ElementsAre(LoadChoice{.key = 2}));
}

TEST_F(ActivationWindow, NumbersAreTypedOrTakenAllOrNone) {
    Open();
    auto& numbers = *Box(0).findChild<QPlainTextEdit*>();
    EXPECT_EQ("11 12", numbers.toPlainText().toStdString());
    Press(Box(0), "All");
    EXPECT_EQ("11to13", numbers.toPlainText().toStdString());
    Press(Box(0), "None");
    EXPECT_TRUE(numbers.toPlainText().isEmpty());
    QTest::keyClicks(&numbers, "13");
    dialog->accept();
    EXPECT_THAT(param.selectedObjects, ElementsAre(13));
}

TEST_F(ActivationWindow, StaysOpenWhileTheNumbersAreWrong) {
    Open();
    Box(0).findChild<QPlainTextEdit*>()->setPlainText(QStringLiteral("99"));
    dialog->accept();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(1u, host.messages.shown.size());
    dialog->reject();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_THAT(param.selectedObjects, ElementsAre(11, 12));
}

// ---- tables of results ----

using ResultTableWindow = WindowFixture;

TEST_F(ResultTableWindow, AnotherLanguageKeepsTheTableAndAsksNobody) {
    window->OpenTable({TableSort::Result, 2});
    QCoreApplication::processEvents();
    const std::size_t dialogs = host.dialogs.shown.size();
    EXPECT_EQ("ResultActivation", host.dialogs.shown.back());
    const velda::CTBGrid* before = window->ActiveGrid()->Grid();
    const QString title = window->Area().Active()->Title();
    ASSERT_TRUE(window->UseLanguage(velda::Language::Korean));
    QCoreApplication::processEvents();
    EXPECT_EQ(before, window->ActiveGrid()->Grid());
    EXPECT_EQ(dialogs, host.dialogs.shown.size());
    EXPECT_NE(title, window->Area().Active()->Title());
}

/// A table of results in a window of its own.
class ResultGridWindow : public PostViewTest {
protected:
    void Show(int id, int tab) {
        UseResults();
        view.AddTable(id);
        view.Activate(
            {.hasObjects = true, .selectedObjects = {1, 2, 3, 4}, .hasLoads = true, .loads = {.selected = {{}}}});
        grid = view.GridOf(tab);
        widget.resize(900, 400);
        widget.SetGrid(grid);
        widget.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    }
    ~ResultGridWindow() override { widget.SetGrid(nullptr); }

    velda::CTBCore* grid = nullptr;
    GridWidget widget;
};

TEST_F(ResultGridWindow, ColumnsCannotBeDragged) {
    Show(2, 1);
    std::vector<velda::ColumnId> before;
    for (int col = 1; col <= grid->GetColCount(); ++col) before.push_back(grid->ColumnIdAt(col));
    const auto titleOf = [this](int col) { return QPoint(widget.Geometry().ColumnOf(col)->start + 20, 10); };
    DragMouse(*widget.viewport(), titleOf(2), titleOf(4));
    std::vector<velda::ColumnId> after;
    for (int col = 1; col <= grid->GetColCount(); ++col) after.push_back(grid->ColumnIdAt(col));
    EXPECT_EQ(before, after);
}

TEST_F(ResultGridWindow, TheStyleDialogOffersColumnsInSightUnderTheNamesOfTheirGroups) {
    Show(14, 19);
    // Titles that were taken anew do not stand twice.
    ASSERT_TRUE(view.UpdateLanguage());
    std::vector<std::string> titles;
    host.dialogs.users.push_back([&](velda::ModalDialog& shown) {
        const auto dialog = MakeStyleDialog(dynamic_cast<velda::CTBStyleDlg&>(shown), nullptr);
        const auto* table = dialog->findChild<QTableWidget*>();
        for (int row = 0; row < table->rowCount(); ++row)
            titles.push_back(table->verticalHeaderItem(row)->text().toStdString());
        return false;
    });
    view.OnCommand(CommandId::Style);
    EXPECT_THAT(titles,
                ElementsAre("Module", "Story", "Story Height", "Load Case", "P-Delta", "Allowable Ratio",
                            "Maximum Story Drift : Node", "Maximum Story Drift : Story Drift",
                            "Maximum Story Drift : Modified Story Drift", "Maximum Story Drift : Story Drift Ratio",
                            "Maximum Story Drift : Remark", "Drift at Center of Mass : Story Drift",
                            "Drift at Center of Mass : Modified Story Drift",
                            "Drift at Center of Mass : Story Drift Ratio", "Drift at Center of Mass : Remark"));
}

}  // namespace
}  // namespace zt
