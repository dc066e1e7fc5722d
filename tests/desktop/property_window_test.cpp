#include "desktop/host/property_window.h"

#include <QComboBox>
#include <QLineEdit>

#include "desktop/window_fixture.h"
#include "zt_cmd/sect_dialog.h"
#include "zt_cmd/thik_dialog.h"

namespace zt {
namespace {

class PropertyWindowTest : public WindowFixture {
protected:
    CDataBase& Db() { return *window->Document().GetMDBCtrl()->GetCurrentDB(); }
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

}  // namespace
}  // namespace zt
