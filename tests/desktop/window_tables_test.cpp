#include <QStatusBar>

#include "desktop/grid/qt_text.h"
#include "desktop/window/system_look.h"
#include "desktop/window_fixture.h"
#include "zt_db/records/thik.h"
#include "zt_tb/model/table_kinds.h"

namespace zt {
namespace {

using WindowTablesTest = WindowFixture;

TEST_F(WindowTablesTest, OpensATableFromTheTree) {
    window->Area().Remove(window->Area().Active());
    Click(window->Tree().ItemOf({TableSort::Property, kThickness}));
    ASSERT_EQ(1u, window->Area().Documents().size());
    EXPECT_EQ(2, window->ActiveGrid()->Grid()->RowCount());
}

TEST_F(WindowTablesTest, BringsAnOpenTableToTheFront) {
    window->OpenTable({TableSort::Model, kTablePont});
    EXPECT_EQ(2u, window->Area().Documents().size());
    Click(window->Tree().ItemOf({TableSort::Property, kThickness}));
    EXPECT_EQ(2u, window->Area().Documents().size());
    EXPECT_EQ(grid, window->ActiveGrid());
}

TEST_F(WindowTablesTest, GreysTablesThatDoNotExist) {
    QTreeWidgetItem* item = window->Tree().ItemOf({TableSort::Model, kTableSkew});
    ASSERT_NE(nullptr, item);
    EXPECT_FALSE(item->toolTip(0).isEmpty());
    Click(item);
    EXPECT_EQ(1u, window->Area().Documents().size());
}

TEST_F(WindowTablesTest, ShowsEachKindInTheTree) {
    for (const TableKindEntry& entry : TableKinds()) {
        // The materials stand among the properties.
        if (entry.kind == kTableNone || entry.kind == kTableMatl) continue;
        EXPECT_NE(nullptr, window->Tree().ItemOf({TableSort::Model, entry.kind})) << entry.kind;
    }
}

TEST_F(WindowTablesTest, TellsAGroupByItsTablesWhereItIsTitledLikeOneOfThem) {
    EXPECT_EQ("Node + Member", window->Tree().ItemOf({TableSort::Model, kTablePontMemb})->text(0));
    EXPECT_EQ("Member", window->Tree().ItemOf({TableSort::Model, kTableMemb})->text(0));
}

TEST_F(WindowTablesTest, FiltersTheTreeByName) {
    window->Tree().Filter().setText("thick");
    EXPECT_FALSE(window->Tree().ItemOf({TableSort::Property, kThickness})->isHidden());
    EXPECT_TRUE(window->Tree().ItemOf({TableSort::Model, kTableSkew})->isHidden());
}

TEST_F(WindowTablesTest, ShowsTheTabsOfAViewBelowIt) {
    TableDocument& document = *window->Area().Active();
    ASSERT_EQ(3, document.Tabs().count());
    EXPECT_TRUE(document.Tabs().isVisible());
    document.Tabs().setCurrentIndex(0);
    EXPECT_EQ(0, document.View()->GetCurrentTab());
    EXPECT_EQ(document.View()->GetActiveGrid(), document.Grid().Grid());
}

TEST_F(WindowTablesTest, LocksTheColumnUnderTheMenu) {
    velda::CTBGrid& table = *grid->Grid();
    table.SetColWidth(2, 80);
    table.SetColWidth(3, 2000);
    const auto lockAt = [&](int xBehindHeaders) {
        host.menus.choices = {CommandId::LockColumns};
        emit grid->customContextMenuRequested({grid->Geometry().RowHeaderWidth() + xBehindHeaders, 60});
    };
    GoTo(1, 3);
    grid->ScrollBy(0, -2000);
    lockAt(60);
    EXPECT_TRUE(table.Columns().IsLocked(table.ColumnIdAt(2)));
    EXPECT_FALSE(table.Columns().IsLocked(table.ColumnIdAt(3)));
    table.SetColLocked(2, false);
    GoTo(1, 2);
    grid->ScrollBy(0, 200);
    lockAt(20);
    EXPECT_TRUE(table.Columns().IsLocked(table.ColumnIdAt(3)));
    EXPECT_FALSE(table.Columns().IsLocked(table.ColumnIdAt(2)));
}

TEST_F(WindowTablesTest, ShowsTwoTablesSideBySide) {
    EXPECT_FALSE(window->CanSplit()) << "one table alone";
    window->OpenTable({TableSort::Model, kTablePont});
    window->Split();
    EXPECT_TRUE(window->Area().IsSplit());
    window->Split();
    EXPECT_FALSE(window->Area().IsSplit());
    EXPECT_EQ(2u, window->Area().Documents().size());
}

TEST_F(WindowTablesTest, DisablesTableCommandsWithoutATable) {
    EXPECT_TRUE(window->ActionOf("filter")->isEnabled());
    window->OpenTable({TableSort::Model, kTableSkew});
    ASSERT_FALSE(window->HasTable());
    QTRY_VERIFY_WITH_TIMEOUT(!window->ActionOf("filter")->isEnabled(), 5000);
}

TEST_F(WindowTablesTest, TitlesTablesAnewInAnotherLanguage) {
    const QString title = window->Area().Active()->Title();
    const std::string header = HeaderOf(2);
    ASSERT_TRUE(window->UseLanguage(velda::Language::Korean));
    EXPECT_NE(title, window->Area().Active()->Title());
    EXPECT_NE(header, HeaderOf(2));
    EXPECT_EQ(Word("IDS_DESKTOP_SAVE"), window->ActionOf("save")->text());
    EXPECT_EQ(2, window->Area().Active()->Tabs().currentIndex()) << "the same tab stays in front";
}

TEST_F(WindowTablesTest, KeepsTheFiltersInAnotherLanguage) {
    auto& table = dynamic_cast<velda::CTBBrowserWndEx&>(*grid->Grid());
    const velda::ColumnId name = table.ColumnIdAt(2);
    ASSERT_TRUE(table.FilterColumn(name, "W200"));
    ASSERT_EQ(1, table.RowCount());
    ASSERT_TRUE(window->UseLanguage(velda::Language::Korean));
    auto& anew = dynamic_cast<velda::CTBBrowserWndEx&>(*window->ActiveGrid()->Grid());
    EXPECT_EQ("W200", anew.FilterTextOf(name));
    EXPECT_EQ(1, anew.RowCount());
}

TEST(SystemLookTest, ReadsTheNumberOfThePortal) {
    EXPECT_EQ(true, SystemLook::DarkOf(1u));
    EXPECT_EQ(false, SystemLook::DarkOf(2u));
    EXPECT_EQ(std::nullopt, SystemLook::DarkOf(0u)) << "no preference";
    EXPECT_EQ(std::nullopt, SystemLook::DarkOf(QStringLiteral("dark")));
    const QVariant wrapped = QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(1u))));
    EXPECT_EQ(true, SystemLook::DarkOf(wrapped));
}

TEST_F(WindowTablesTest, RewritesHeadersInOtherUnits) {
    const std::string before = HeaderOf(3);
    T_UNIT_INDEX index;
    window->Document().GetUnitCtrl()->GetUnitIndexCurrent(index);
    index.length = CUnitCtrl::FindChoice(UnitQuantity::Length, "mm");
    index.modelLength = CUnitCtrl::FindChoice(UnitQuantity::ModelLength, "mm");
    ASSERT_TRUE(window->UseUnits(index));
    EXPECT_NE(before, HeaderOf(3));
    EXPECT_NE(std::string::npos, HeaderOf(3).find("mm"));
    EXPECT_TRUE(window->Fields().Units().text().contains("mm"));
}

TEST_F(WindowTablesTest, SwitchesUnitsFromTheMenu) {
    const std::string before = HeaderOf(3);
    for (QAction* quantity : window->Fields().UnitMenu().actions()) {
        for (QAction* unit : quantity->menu()->actions()) {
            if (unit->text() == "mm") {
                unit->trigger();
                break;
            }
        }
        if (HeaderOf(3) != before) break;
    }
    EXPECT_NE(std::string::npos, HeaderOf(3).find("mm"));
}

TEST_F(WindowTablesTest, ClosesATableThatAsksForIt) {
    window->Area().Active()->View()->GetParentFrame()->Close();
    EXPECT_EQ(1u, window->Area().Documents().size()) << "not while the view is at work";
    QTRY_VERIFY_WITH_TIMEOUT(window->Area().Documents().empty(), 5000);
}

TEST_F(WindowTablesTest, NamesTheStepsThatCanBeUndone) {
    for (const char* text : {"0.35", "0.36"}) {
        GoTo(1, 3);
        QTest::keyClicks(KeyTarget(), text);
        QTest::keyClick(KeyTarget(), Qt::Key_Return);
    }
    ASSERT_TRUE(grid->Browser()->LeaveRow());
    const auto names = window->Document().GetMDBCtrl()->GetCurrentDB()->GetUndoNames();
    emit window->UndoMenu().aboutToShow();
    const QList<QAction*> steps = window->UndoMenu().actions();
    ASSERT_EQ(names.size(), static_cast<std::size_t>(steps.size()));
    EXPECT_EQ(ToQt(names[0]), steps[0]->text());
    steps[1]->trigger();
    EXPECT_EQ(names.size() - 2, window->Document().GetMDBCtrl()->GetCurrentDB()->GetUndoNames().size());
}

TEST_F(WindowTablesTest, TellsTheNumbersOfTheSelection) {
    EXPECT_TRUE(window->Fields().Selection().text().isEmpty());
    grid->Grid()->SelectRange(velda::PositionRange::Of({1, 3}, {2, 3}));
    grid->Refresh();
    QTRY_VERIFY_WITH_TIMEOUT(!window->Fields().Selection().text().isEmpty(), 5000);
    const QString text = window->Fields().Selection().text();
    EXPECT_TRUE(text.contains("Cells: 2"));
    EXPECT_TRUE(text.contains("Sum:"));
}

TEST_F(WindowTablesTest, FiltersAColumnByTheRowAboveIt) {
    window->ToggleFilter();
    FilterRow& filters = window->Area().Active()->Filters();
    QLineEdit* edit = filters.EditOf(grid->Grid()->ColumnIdAt(2));
    ASSERT_NE(nullptr, edit);
    QTest::keyClicks(edit, "w200");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(1, grid->Browser()->RecordRowCount());
    window->ToggleFilter();
    EXPECT_EQ(2, grid->Browser()->RecordRowCount()) << "without the row there are no filters";
}

TEST_F(WindowTablesTest, PutsFilterEditsOverTheirColumns) {
    window->ToggleFilter();
    FilterRow& filters = window->Area().Active()->Filters();
    const GridGeometry geometry = grid->Geometry();
    for (const GridGeometry::Column& column : geometry.Columns()) {
        const QLineEdit* edit = filters.EditOf(grid->Grid()->ColumnIdAt(column.number));
        ASSERT_NE(nullptr, edit);
        const int left = grid->viewport()->mapTo(window.get(), QPoint(column.start, 0)).x();
        EXPECT_EQ(left, edit->mapTo(window.get(), QPoint()).x()) << column.number;
        EXPECT_EQ(column.size, edit->width());
    }
}

TEST_F(WindowTablesTest, CountsWhatItFindsAndGoesToIt) {
    GoTo(1, 3);
    window->OpenFind();
    QTest::keyClicks(&window->Finder().Text(), "w200");
    QTRY_COMPARE_WITH_TIMEOUT(window->Finder().Count().text(), ToQt(velda::FormatText("IDS_DESKTOP_FIND_COUNT", {"1"})),
                              5000);
    QTest::keyClick(&window->Finder().Text(), Qt::Key_Return);
    int row = 0;
    int col = 0;
    ASSERT_TRUE(grid->Grid()->GetCurrentCell(row, col));
    EXPECT_EQ(2, col);
}

}  // namespace
}  // namespace zt
