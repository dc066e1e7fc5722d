#include <QTemporaryDir>
#include <QTest>

#include "desktop/window/main_window.h"
#include "velda_util/pref/table_registry.h"
#include "zt_db/records/thik.h"
#include "zt_db/sample/sample_building.h"
#include "zt_tb/model/tb_prop_view.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

/// A user at the keyboard before the sample office.
class KeyboardWalk : public ::testing::Test {
protected:
    void SetUp() override {
        velda::TableRegistry::OfProcess().UseFile(velda::PreferenceFile(folder.filePath("preferences").toStdString()));
        auto doc = CDBDoc::New();
        ASSERT_TRUE(BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), "office"));
        window = std::make_unique<MainWindow>(std::move(doc));
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        window->OpenTable({TableSort::Property, CTBPropView::kThickness});
        grid = window->ActiveGrid();
        ASSERT_NE(nullptr, grid);
        grid->setFocus();
    }
    T_THIK_D Record(std::uint32_t key) {
        T_THIK_D record;
        window->Document().GetMDBCtrl()->GetCurrentDB()->GetClass<CClassThik>()->Get(key, record);
        return record;
    }
    std::pair<int, int> Current() const {
        int row = 0;
        int col = 0;
        grid->Grid()->GetCurrentCell(row, col);
        return {row, col};
    }
    /// Keys go to what has the focus, as those of a keyboard do.
    static void Press(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        ASSERT_NE(nullptr, QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    static void Type(const char* text) {
        for (; *text; ++text) QTest::keyClick(QApplication::focusWidget(), *text);
    }

    QTemporaryDir folder;
    std::unique_ptr<MainWindow> window;
    GridWidget* grid = nullptr;
};

TEST_F(KeyboardWalk, NamesAndMeasuresAPlateAndTakesItBack) {
    const T_THIK_D before = Record(1);
    Press(Qt::Key_Home, Qt::ControlModifier);
    while (Current().second < 2) Press(Qt::Key_Right);
    Type("Core");
    EXPECT_EQ(before.name, Record(1).name) << "not written while the row is open";
    Press(Qt::Key_Tab);
    EXPECT_EQ(std::pair(1, 3), Current());
    Type("0.45");
    Press(Qt::Key_Return);
    EXPECT_EQ("Core", Record(1).name);
    EXPECT_EQ(0.45, Record(1).thickness);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(before.name, Record(1).name);
    EXPECT_EQ(before.thickness, Record(1).thickness);
}

TEST_F(KeyboardWalk, EscapeDropsWhatWasTyped) {
    const T_THIK_D before = Record(1);
    ASSERT_TRUE(grid->Grid()->SetCurrentCell(1, 3));
    grid->Refresh();
    Type("9");
    Press(Qt::Key_Escape);
    Press(Qt::Key_Escape);
    Press(Qt::Key_Down);
    EXPECT_EQ(before.thickness, Record(1).thickness);
    EXPECT_EQ(2, Current().first);
}

}  // namespace
}  // namespace zt
