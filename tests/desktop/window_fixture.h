#pragma once

#include <QTemporaryDir>
#include <QTest>

#include "desktop/window/main_window.h"
#include "velda_base/host/headless_host.h"
#include "velda_lib/language.h"
#include "velda_util/pref/table_registry.h"
#include "zt_db/sample/sample_building.h"
#include <gtest/gtest.h>

namespace zt {

/// The main window with a sample building, preferences of its own, and a host that answers as the test says.
class WindowFixture : public ::testing::Test {
protected:
    static constexpr int kThickness = 3;

    void SetUp() override {
        velda::SetCurrentLanguage(velda::Language::English);
        velda::TableRegistry::OfProcess().UseFile(velda::PreferenceFile(folder.filePath("preferences").toStdString()));
        auto doc = CDBDoc::New();
        ASSERT_TRUE(BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), "office"));
        window = std::make_unique<MainWindow>(std::move(doc));
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        window->OpenTable({TableSort::Property, kThickness});
        grid = window->ActiveGrid();
        ASSERT_NE(nullptr, grid->Grid());
    }
    void TearDown() override {
        window.reset();
        velda::SetCurrentLanguage(velda::Language::English);
    }
    void GoTo(int row, int col) {
        ASSERT_TRUE(grid->Grid()->SetCurrentCell(row, col));
        grid->Refresh();
    }
    QWidget* KeyTarget() {
        auto* editor = grid->findChild<CellEditor*>();
        return editor->isVisible() ? static_cast<QWidget*>(editor) : grid;
    }
    /// Leaves the row open with a text that is no number.
    void TypeWrongText() {
        GoTo(1, 3);
        QTest::keyClicks(KeyTarget(), "a");
        QTest::keyClick(KeyTarget(), Qt::Key_Return);
        ASSERT_TRUE(grid->Browser()->Session().IsCellOpen());
    }
    void Click(QTreeWidgetItem* item) {
        QTreeWidget& tree = window->Tree().Tree();
        item->parent()->setExpanded(true);
        tree.scrollToItem(item);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(item).center());
    }
    std::string HeaderOf(int col) {
        return grid->Grid()->Header().ColumnTitle(static_cast<std::uint32_t>(grid->Grid()->ColumnIdAt(col)));
    }

    QTemporaryDir folder;
    velda::HeadlessHost host;
    velda::UseHost use{host};
    std::unique_ptr<MainWindow> window;
    GridWidget* grid = nullptr;
};

}  // namespace zt
