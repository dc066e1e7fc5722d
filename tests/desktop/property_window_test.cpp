#include "desktop/host/property_window.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QTimer>

#include "desktop/grid/qt_text.h"
#include "desktop/host/qt_host.h"
#include "desktop/window_fixture.h"
#include "zt_cmd/analysis_control_dialog.h"
#include "zt_cmd/load_case_dialog.h"
#include "zt_cmd/load_combination_dialog.h"
#include "zt_cmd/load_type_dialogs.h"
#include "zt_cmd/sect_dialog.h"
#include "zt_cmd/thik_dialog.h"
#include "zt_cmd/time_history_dialogs.h"

namespace zt {
namespace {

class PropertyWindowTest : public WindowFixture {
protected:
    CDataBase& Db() { return *window->Document().GetMDBCtrl()->GetCurrentDB(); }
    /// Chooses a text of a box as a user does.
    static void ChooseIn(QWidget* editor, const QString& text) {
        auto* box = qobject_cast<QComboBox*>(editor);
        ASSERT_NE(nullptr, box);
        ASSERT_GE(box->findText(text), 0);
        box->setCurrentIndex(box->findText(text));
        emit box->textActivated(text);
    }
    /// Waits until a window has the keyboard.
    static void Activate(QWidget& dialog) {
        dialog.show();
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
    static QWidget* FocusAfterTab(QWidget* from) {
        from->setFocus();
        QTest::keyClick(from, Qt::Key_Tab);
        return QApplication::focusWidget();
    }
};

TEST_F(PropertyWindowTest, AddsWhatIsTypedAndShowsItInTheTable) {
    CModelPropThikDlg block(Db());
    PropertyWindow dialog(block, nullptr);
    dialog.show();
    const int rows = grid->Grid()->RowCount();
    QTest::keyClicks(dialog.EditorOf(0), "W350");
    QTest::keyClicks(dialog.EditorOf(1), "x");
    dialog.AddButton().click();
    EXPECT_FALSE(dialog.Message().isEmpty());
    auto* thickness = qobject_cast<QLineEdit*>(dialog.EditorOf(1));
    thickness->selectAll();
    QTest::keyClicks(thickness, "0.35");
    dialog.AddButton().click();
    EXPECT_TRUE(dialog.Message().isEmpty());
    EXPECT_EQ(dialog.List().count(), rows + 2) << "the records and the new one";
    EXPECT_EQ(grid->Grid()->RowCount(), rows + 1);
    EXPECT_TRUE(dialog.DeleteButton().isEnabled());
}

TEST_F(PropertyWindowTest, ShowsTheRecordThatIsChosen) {
    CModelPropThikDlg block(Db());
    PropertyWindow dialog(block, nullptr);
    EXPECT_FALSE(dialog.ChangeButton().isEnabled());
    dialog.List().setCurrentRow(1);
    EXPECT_EQ(qobject_cast<QLineEdit*>(dialog.EditorOf(0))->text(), QStringLiteral("W200"));
    EXPECT_TRUE(dialog.ChangeButton().isEnabled());
}

TEST_F(PropertyWindowTest, ChangesItsFieldsWithTheSourceOfASection) {
    CCMSectItemDlg block(Db());
    PropertyWindow dialog(block, nullptr);
    dialog.show();
    auto* source = qobject_cast<QComboBox*>(dialog.EditorOf(1));
    ASSERT_NE(nullptr, source);
    source->setCurrentIndex(0);
    emit source->textActivated(source->currentText());
    EXPECT_EQ(block.Fields().size(), 12u) << "name, source, standard, shape, section and seven sizes";
    for (int field = 0; field < static_cast<int>(block.Fields().size()); ++field) {
        EXPECT_NE(nullptr, dialog.EditorOf(field)) << field;
    }
    EXPECT_TRUE(dialog.findChild<SectionPicture*>()->isVisible());
}

TEST_F(PropertyWindowTest, CopiesTheRecordAndShowsItsNewNameWhereTheFocusIs) {
    LoadCaseDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    Activate(dialog);
    EXPECT_FALSE(dialog.CopyButton().isEnabled());
    dialog.List().setCurrentRow(1);
    dialog.EditorOf(0)->setFocus();
    dialog.CopyButton().click();
    EXPECT_EQ(qobject_cast<QLineEdit*>(dialog.EditorOf(0))->text(), QStringLiteral("DL (2)"));
    EXPECT_EQ(dialog.List().currentItem()->text(), QStringLiteral("5  DL (2) (D), Dead load"));
}

TEST_F(PropertyWindowTest, KeepsWhatWasTypedWhenItIsRefused) {
    LoadCaseDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    Activate(dialog);
    dialog.EditorOf(0)->setFocus();
    QTest::keyClicks(dialog.EditorOf(0), "LL");
    dialog.AddButton().click();
    EXPECT_EQ(dialog.Message(), QStringLiteral("The name \"LL\" is taken already."));
    EXPECT_EQ(qobject_cast<QLineEdit*>(dialog.EditorOf(0))->text(), QStringLiteral("LL"));
    dialog.List().setCurrentRow(3);
    dialog.DeleteButton().click();
    EXPECT_TRUE(dialog.Message().contains(QStringLiteral("Load Combination 2"))) << FromQt(dialog.Message());
}

TEST_F(PropertyWindowTest, TakesAnyTextWhereChoicesAreSuggested) {
    LoadCaseDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    Activate(dialog);
    auto* type = qobject_cast<QComboBox*>(dialog.EditorOf(1));
    ASSERT_NE(nullptr, type);
    type->setFocus();
    QTest::keyClicks(type, "EV");
    EXPECT_EQ(type->currentText(), QStringLiteral("EV")) << "no choice is put in its place";
    EXPECT_EQ(block.Fields()[1].text, "EV");
    ChooseIn(type, QStringLiteral("S - Snow load"));
    EXPECT_EQ(block.Fields()[1].text, "S - Snow load");
    dialog.List().setCurrentRow(2);
    EXPECT_EQ(type->currentText(), QStringLiteral("L - Live load"));
}

TEST_F(PropertyWindowTest, EditsTheRowsOfACombination) {
    LoadCombinationDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    Activate(dialog);
    ASSERT_NE(nullptr, dialog.Rows());
    PropertyRows& rows = *dialog.Rows();
    EXPECT_EQ(nullptr, rows.EditorOf(0, 0));
    dialog.List().setCurrentRow(1);
    ASSERT_NE(nullptr, rows.EditorOf(1, 2));
    EXPECT_EQ(nullptr, rows.EditorOf(2, 0));
    rows.AddButton().click();
    EXPECT_EQ(QApplication::focusWidget(), rows.EditorOf(2, 0)) << "the new row is edited";
    ChooseIn(rows.EditorOf(2, 0), QStringLiteral("Load Combination"));
    EXPECT_EQ(qobject_cast<QComboBox*>(rows.EditorOf(2, 1))->findText(QStringLiteral("WX")), -1)
        << "the cases are those of the kind";
    ChooseIn(rows.EditorOf(2, 1), QStringLiteral("D+L"));
    auto* factor = qobject_cast<QLineEdit*>(rows.EditorOf(2, 2));
    factor->setFocus();
    factor->selectAll();
    QTest::keyClicks(factor, "0.5");
    EXPECT_EQ(factor->text(), QStringLiteral("0.5"));
    rows.RemoveButton(0)->click();
    EXPECT_EQ(QApplication::focusWidget(), rows.RemoveButton(0));
    dialog.ChangeButton().click();
    EXPECT_TRUE(dialog.Message().isEmpty()) << FromQt(dialog.Message());
    T_LCOM_D written;
    ASSERT_TRUE(Db().GetClass<CClassLcom>()->Get(block.Current(), written));
    const T_LCOM_ITEM live{LoadCaseKind::Static, 2, 1.6};
    const T_LCOM_ITEM service{LoadCaseKind::Combination, 3, 0.5};
    EXPECT_EQ(written.items, (std::vector<T_LCOM_ITEM>{live, service}));
    rows.RemoveButton(1)->click();
    rows.RemoveButton(0)->click();
    EXPECT_EQ(QApplication::focusWidget(), &rows.AddButton());
}

TEST_F(PropertyWindowTest, GoesThroughFieldsRowsAndButtonsWithTheTabKey) {
    LoadCombinationDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    Activate(dialog);
    dialog.List().setCurrentRow(1);
    PropertyRows& rows = *dialog.Rows();
    EXPECT_EQ(FocusAfterTab(&dialog.List()), dialog.EditorOf(0));
    EXPECT_EQ(FocusAfterTab(dialog.EditorOf(3)), rows.EditorOf(0, 0));
    EXPECT_EQ(FocusAfterTab(rows.EditorOf(0, 2)), rows.RemoveButton(0));
    EXPECT_EQ(FocusAfterTab(rows.RemoveButton(0)), rows.EditorOf(1, 0));
    EXPECT_EQ(FocusAfterTab(rows.RemoveButton(1)), &rows.AddButton());
    EXPECT_EQ(FocusAfterTab(&rows.AddButton()), &dialog.AddButton());
    EXPECT_EQ(rows.EditorOf(1, 2)->accessibleName(), QStringLiteral("Row 2, Factor"));
}

TEST_F(PropertyWindowTest, StaysOpenWhenReturnIsPressedInAField) {
    LoadCaseDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    Activate(dialog);
    dialog.EditorOf(0)->setFocus();
    QTest::keyClick(dialog.EditorOf(0), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(dialog.EditorOf(0), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(PropertyWindowTest, KeepsTheFocusInAFieldWhoseChoiceBringsOtherFields) {
    CCMSectItemDlg block(Db());
    PropertyWindow dialog(block, nullptr);
    Activate(dialog);
    dialog.EditorOf(1)->setFocus();
    ChooseIn(dialog.EditorOf(1), QStringLiteral("Values"));
    EXPECT_EQ(QApplication::focusWidget(), dialog.EditorOf(1));
    QApplication::processEvents();
    EXPECT_EQ(FocusAfterTab(dialog.EditorOf(1)), dialog.EditorOf(2));
}

TEST_F(PropertyWindowTest, ListsRecordsWithoutKeysWhereUsersKnowThemByTheirPlaces) {
    ASSERT_TRUE(Db().GetClass<CClassSltp>()->TR_Add(40, {.dl = 4.5}));
    SlabLoadTypeDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    EXPECT_TRUE(dialog.List().item(1)->text().startsWith(QStringLiteral("Slab Load 1")));
}

TEST_F(PropertyWindowTest, ShowsASingleRecordWithoutListAndButtonsOfRecords) {
    AnalysisControlDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    Activate(dialog);
    EXPECT_FALSE(dialog.List().isVisible());
    for (const QPushButton* button : {&dialog.AddButton(), &dialog.CopyButton(), &dialog.DeleteButton()}) {
        EXPECT_FALSE(button->isVisible());
    }
    ASSERT_NE(nullptr, dialog.Rows(1));
    EXPECT_EQ(nullptr, dialog.Rows(2));
    EXPECT_EQ(nullptr, dialog.Table(1));
    dialog.Rows(1)->AddButton().click();
    EXPECT_EQ(nullptr, dialog.Rows(0)->EditorOf(0, 0)) << "the other list stays as it is";
    ASSERT_NE(nullptr, dialog.Rows(1)->EditorOf(0, 0));
    auto* modes = qobject_cast<QLineEdit*>(dialog.EditorOf(0));
    modes->selectAll();
    QTest::keyClicks(modes, "20");
    dialog.ChangeButton().click();
    EXPECT_TRUE(dialog.Message().isEmpty()) << FromQt(dialog.Message());
    T_ACTL_D written;
    ASSERT_TRUE(Db().GetClass<CClassActl>()->Get(T_ACTL_D::kKey, written));
    EXPECT_EQ(written.modes, 20);
    EXPECT_EQ(written.secondOrderLoads.size(), 1u);
}

TEST_F(PropertyWindowTest, EditsPointsInATable) {
    TimeFunctionDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    Activate(dialog);
    PropertyTable* points = dialog.Table();
    ASSERT_NE(nullptr, points);
    QTest::keyClicks(dialog.EditorOf(0), "Pulse");
    points->AddButton().click();
    points->AddButton().click();
    const QAbstractItemModel& model = *points->Table().model();
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(points->Table().currentIndex().row(), 1) << "the new row is edited";
    points->Table().setCurrentIndex(model.index(1, 1));
    QTest::keyClicks(points->Table().viewport(), "5");
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(nullptr, editor) << "typing opens the cell";
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(model.index(1, 1).data().toString(), QStringLiteral("5"));
    dialog.AddButton().click();
    EXPECT_TRUE(dialog.Message().isEmpty()) << FromQt(dialog.Message());
    T_THFC_D written;
    ASSERT_TRUE(Db().GetClass<CClassThfc>()->Get(block.Current(), written));
    EXPECT_EQ(written.points, (std::vector<T_THFC_POINT>{{0.0, 0.0}, {0.1, 5.0}}));
}

TEST_F(PropertyWindowTest, DropsACellThatIsOpenWhenItGoes) {
    TimeFunctionDialog block(Db());
    ASSERT_TRUE(block.ImportRows(0, "0 1"));
    {
        PropertyWindow dialog(block, nullptr);
        Activate(dialog);
        PropertyTable& points = *dialog.Table();
        points.Table().setFocus();
        points.Table().setCurrentIndex(points.Table().model()->index(0, 1));
        QTest::keyClicks(points.Table().viewport(), "5");
        ASSERT_NE(nullptr, qobject_cast<QLineEdit*>(QApplication::focusWidget()));
    }
    EXPECT_EQ(block.Row(0, 0)[1].text, "1");
}

TEST_F(PropertyWindowTest, PastesCopiesAndRemovesRowsOfATable) {
    TimeFunctionDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    Activate(dialog);
    PropertyTable& points = *dialog.Table();
    std::string text;
    for (int row = 0; row < 1559; ++row) text += std::to_string(row) + "\t" + std::to_string(-row) + "\n";
    host.clipboard.SetText(text);
    points.Table().setFocus();
    QTest::keyClick(&points.Table(), Qt::Key_V, Qt::ControlModifier);
    const QAbstractItemModel& model = *points.Table().model();
    ASSERT_EQ(model.rowCount(), 1559);
    points.Table().selectRow(7);
    QTest::keyClick(&points.Table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(host.clipboard.GetText(), "7\t-7\n");
    QTest::keyClick(&points.Table(), Qt::Key_Delete);
    ASSERT_EQ(model.rowCount(), 1558);
    EXPECT_EQ(model.index(7, 0).data().toString(), QStringLiteral("8"));
    EXPECT_EQ(points.Table().currentIndex().row(), 7);
    host.clipboard.SetText("1\t2\t3\n");
    points.PasteButton().click();
    EXPECT_TRUE(dialog.Message().startsWith(QStringLiteral("Line 1: "))) << FromQt(dialog.Message());
    points.Table().selectAll();
    points.RemoveButton().click();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(PropertyWindowTest, TakesPointsFromAFileAndTellsWhyNot) {
    TimeFunctionDialog block(Db());
    PropertyWindow dialog(block, nullptr);
    const QString path = folder.filePath("motion.csv");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("time,value\n0,0\n0.02,0.1\n");
    file.close();
    dialog.Table()->ImportFile(path);
    EXPECT_EQ(dialog.Table()->Table().model()->rowCount(), 2);
    dialog.Table()->ImportFile(folder.filePath("missing.csv"));
    EXPECT_TRUE(dialog.Message().contains(QStringLiteral("missing.csv")));
    EXPECT_EQ(dialog.Table()->Table().model()->rowCount(), 2);
}

TEST_F(PropertyWindowTest, OpensFromTheMenuOfLoads) {
    QtHost real;
    const velda::UseHost useReal(real);
    QString title;
    QTimer::singleShot(0, window.get(), [&] {
        auto* dialog = qobject_cast<PropertyWindow*>(QApplication::activeModalWidget());
        if (!dialog) return;
        title = dialog->windowTitle();
        dialog->reject();
    });
    const QList<QAction*> menus = window->menuBar()->actions();
    const auto loads = std::find_if(menus.begin(), menus.end(),
                                    [](const QAction* menu) { return menu->text() == QStringLiteral("&Loads"); });
    ASSERT_NE(loads, menus.end());
    (*loads)->menu()->actions().at(1)->trigger();
    EXPECT_EQ(title, QStringLiteral("Load combinations"));
}

}  // namespace
}  // namespace zt
