#include "zt_cmd/property_dialog.h"

#include "velda_base/host/headless_host.h"
#include "zt_cmd/cmd_dialogs.h"
#include "zt_cmd/matl_dialog.h"
#include "zt_cmd/property_dialog_fixture.h"
#include "zt_cmd/sect_dialog.h"
#include "zt_cmd/thik_dialog.h"
#include "zt_db/library/matl_db.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class PropertyDialogTest : public PropertyDialogFixture {};

TEST_F(PropertyDialogTest, AddsChangesAndDeletesInOneStepEach) {
    CModelPropThikDlg dialog(Db());
    const std::size_t steps = Steps();
    const std::size_t count = dialog.Items().size();
    Set(dialog, "Name", "W300");
    Set(dialog, "In-plane", "0.3");
    ASSERT_TRUE(dialog.Add());
    EXPECT_EQ(Steps(), steps + 1);
    EXPECT_EQ(dialog.Items().size(), count + 1);
    EXPECT_EQ(dialog.Items().back().text, "W300");
    EXPECT_EQ(dialog.Current(), dialog.Items().back().key);
    Set(dialog, "In-plane", "0.35");
    ASSERT_TRUE(dialog.Change());
    T_THIK_D record;
    ASSERT_TRUE(Db().GetClass<CClassThik>()->Get(dialog.Current(), record));
    EXPECT_EQ(record.thickness, 0.35);
    ASSERT_TRUE(dialog.Delete());
    EXPECT_EQ(dialog.Current(), 0u);
    EXPECT_EQ(Steps(), steps + 3);
    EXPECT_EQ(Db().Undo(3), 3);
    EXPECT_EQ(dialog.Items().size(), count);
}

TEST_F(PropertyDialogTest, CopiesARecordUnderAFreeName) {
    CModelPropThikDlg dialog(Db());
    EXPECT_THAT(dialog.Copy().Reason(), HasSubstr("Choose a record"));
    const auto first = dialog.Items().front();
    const std::size_t steps = Steps();
    dialog.Select(first.key);
    for (const char* number : {" (2)", " (3)"}) {
        ASSERT_TRUE(dialog.Copy());
        EXPECT_EQ(Get(dialog, "Name").text, first.text + number);
        EXPECT_EQ(dialog.Current(), dialog.Items().back().key);
    }
    EXPECT_EQ(Steps(), steps + 2);
    Set(dialog, "Name", "W350");
    ASSERT_TRUE(dialog.Copy());
    EXPECT_EQ(dialog.Items().back().text, "W350") << "a free name stays";
    Set(dialog, "In-plane", "thick");
    EXPECT_FALSE(dialog.Copy());
    EXPECT_EQ(Get(dialog, "Name").text, "W350");
    EXPECT_EQ(Steps(), steps + 3);
}

TEST_F(PropertyDialogTest, HasNoRowsWhereItsRecordsHoldNoList) {
    CModelPropThikDlg dialog(Db());
    dialog.AddRow(0);
    dialog.SetCell(0, 0, 0, "x");
    dialog.RemoveRow(0, 0);
    EXPECT_THAT(dialog.Lists(), IsEmpty());
    EXPECT_EQ(dialog.RowCount(0), 0u);
    EXPECT_THAT(dialog.Row(0, 0), IsEmpty());
}

TEST_F(PropertyDialogTest, RefusesWhatDoesNotFitAndKeepsTheTypedText) {
    CModelPropThikDlg dialog(Db());
    const std::size_t steps = Steps();
    EXPECT_EQ(dialog.Add().Reason(), "The name is missing.");
    Set(dialog, "Name", dialog.Items().front().text);
    EXPECT_THAT(dialog.Add().Reason(), HasSubstr("is taken already"));
    Set(dialog, "Name", "other");
    Set(dialog, "In-plane", "thick");
    EXPECT_EQ(Get(dialog, "In-plane").text, "thick");
    EXPECT_THAT(dialog.Add().Reason(), HasSubstr("\"thick\" is not a number."));
    Set(dialog, "In-plane", "0");
    EXPECT_EQ(dialog.Add().Reason(), "A thickness must be greater than 0.");
    EXPECT_THAT(dialog.Change().Reason(), HasSubstr("Choose a record"));
    EXPECT_THAT(dialog.Delete().Reason(), HasSubstr("Choose a record"));
    EXPECT_EQ(Steps(), steps);
}

TEST_F(PropertyDialogTest, TellsWhatUsesARecordAndDoesNotDeleteIt) {
    CModelPropThikDlg dialog(Db());
    dialog.Select(dialog.Items().front().key);
    EXPECT_THAT(dialog.Uses(), StartsWith("Member ("));
    EXPECT_THAT(dialog.Delete().Reason(), Not(IsEmpty()));
    EXPECT_NE(dialog.Current(), 0u);
    Set(dialog, "Name", "unused");
    ASSERT_TRUE(dialog.Add());
    EXPECT_EQ(dialog.Uses(), "");
}

TEST_F(PropertyDialogTest, NamesTheFirstUsersAndCountsTheOthers) {
    CModelPropMatlDlg dialog(Db());
    dialog.Select(dialog.Items().front().key);
    const std::string uses = dialog.Uses();
    EXPECT_THAT(uses, StartsWith("Member ("));
    EXPECT_LE(std::count(uses.begin(), uses.end(), ','), 8);
}

TEST_F(PropertyDialogTest, TakesTheFiguresOfAGradeFromTheLibrary) {
    CModelPropMatlDlg dialog(Db());
    Set(dialog, "Type", "Steel");
    const PropertyField codes = Get(dialog, "Design code");
    EXPECT_EQ(codes.choices.front(), "None");
    ASSERT_THAT(codes.choices, testing::Contains("KDS 14 31 05"));
    EXPECT_TRUE(Get(dialog, "Elasticity").enabled) << "figures of the user's own";
    Set(dialog, "Design code", "KDS 14 31 05");
    Set(dialog, "Grade", "SS275");
    EXPECT_EQ(Get(dialog, "Elasticity").text, "210000");
    EXPECT_FALSE(Get(dialog, "Elasticity").enabled);
    EXPECT_EQ(Get(dialog, "Name").text, Get(dialog, "Grade").choices.front()) << "the first grade named the record";
    Set(dialog, "Name", "SS275");
    ASSERT_TRUE(dialog.Add());
    T_MATL_D record;
    ASSERT_TRUE(Db().GetClass<CClassMatl>()->Get(dialog.Current(), record));
    EXPECT_EQ(record.type, "S");
    EXPECT_EQ(record.analysis[0].codeName, "SS275");
}

TEST_F(PropertyDialogTest, ShowsTheThermalCoefficientOfAGradeInCurrentUnits) {
    T_UNIT_INDEX units;
    doc->GetUnitCtrl()->GetUnitIndexCurrent(units);
    units.temperature = CUnitCtrl::FindChoice(UnitQuantity::Temperature, "F");
    ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(units, 1));
    CModelPropMatlDlg dialog(Db());
    Set(dialog, "Type", "Steel");
    Set(dialog, "Design code", "KDS 14 31 05");
    EXPECT_NEAR(std::stod(Get(dialog, "Thermal").text), 1.2e-5 / 1.8, 1e-12);
}

TEST_F(PropertyDialogTest, HasTwoGroupsOfFiguresForAComposite) {
    CModelPropMatlDlg dialog(Db());
    Set(dialog, "Type", "RC");
    EXPECT_FALSE(Get(dialog, "Second design code").enabled);
    Set(dialog, "Type", "SRC");
    EXPECT_TRUE(Get(dialog, "Second design code").enabled);
    EXPECT_THAT(Get(dialog, "Second design code").choices, testing::Contains("KCI 2003"));
    EXPECT_THAT(Get(dialog, "Second design code").choices, testing::Contains("KDS 14 31 05"));
    Set(dialog, "Name", "SRC1");
    EXPECT_THAT(dialog.Add().Reason(), HasSubstr("elasticity"));
}

TEST_F(PropertyDialogTest, TakesASectionFromTheLibraryWithItsProperties) {
    CCMSectItemDlg dialog(Db());
    Set(dialog, "Source", "Library");
    Set(dialog, "Standard", "KS");
    Set(dialog, "Shape", "H Section");
    Set(dialog, "Section", "H-100x100x6x8");
    EXPECT_EQ(Get(dialog, "Name").text, "H-100x100x6x8");
    EXPECT_EQ(Get(dialog, "Height H").text, "0.1");
    EXPECT_FALSE(Get(dialog, "Height H").enabled);
    EXPECT_THAT(dialog.Picture(), Not(IsEmpty()));
    EXPECT_THAT(dialog.Results().front().label, StartsWith("Area ("));
    ASSERT_TRUE(dialog.Add());
    T_SECT_D record;
    ASSERT_TRUE(Db().GetClass<CClassSect>()->Get(dialog.Current(), record));
    EXPECT_EQ(record.base.sectName, "H-100x100x6x8");
    EXPECT_NEAR(record.stiffness.area, 2190.35e-6, 2190.35e-6 * 0.01);
}

TEST_F(PropertyDialogTest, ComputesASectionOfOwnSizesAndRefusesOneThatIsNone) {
    CCMSectItemDlg dialog(Db());
    Set(dialog, "Source", "Own sizes");
    Set(dialog, "Shape", "Solid Box");
    Set(dialog, "Name", "300x500");
    EXPECT_THAT(dialog.Add().Reason(), HasSubstr("no such shape"));
    EXPECT_THAT(dialog.Picture(), IsEmpty());
    Set(dialog, "Height H", "0.5");
    Set(dialog, "Width B", "0.3");
    EXPECT_EQ(dialog.Results().front().text, "0.15");
    ASSERT_TRUE(dialog.Add());
    T_SECT_D record;
    ASSERT_TRUE(Db().GetClass<CClassSect>()->Get(dialog.Current(), record));
    EXPECT_NEAR(record.stiffness.iyy, 0.3 * 0.5 * 0.5 * 0.5 / 12, 1e-9);
    EXPECT_NEAR(record.perimeterOut, 1.6, 1e-9);
}

TEST_F(PropertyDialogTest, TakesASectionByValues) {
    CCMSectItemDlg dialog(Db());
    Set(dialog, "Source", "Values");
    Set(dialog, "Name", "by values");
    EXPECT_THAT(dialog.Add().Reason(), HasSubstr("area"));
    Set(dialog, "Area", "0.01");
    EXPECT_THAT(dialog.Results(), IsEmpty());
    ASSERT_TRUE(dialog.Add());
}

TEST_F(PropertyDialogTest, EveryShapeHasItsSizesOnceAndEveryFieldALabel) {
    CCMSectItemDlg dialog(Db());
    for (const char* source : {"Own sizes", "Steel in concrete", "Combined"}) {
        Set(dialog, "Source", source);
        for (const std::string& shape : Get(dialog, "Shape").choices) {
            Set(dialog, "Shape", shape);
            EXPECT_EQ(Get(dialog, "Shape").text, shape);
            std::vector<std::string> labels;
            for (const PropertyField& field : dialog.Fields()) labels.push_back(field.label);
            std::sort(labels.begin(), labels.end());
            EXPECT_EQ(std::adjacent_find(labels.begin(), labels.end()), labels.end()) << shape;
            EXPECT_THAT(labels, testing::Each(Not(StartsWith("IDS_")))) << shape;
        }
    }
}

TEST_F(PropertyDialogTest, OpensByNameWithTheRecordInItsFields) {
    velda::HeadlessHost host;
    const velda::UseHost use(host);
    CmdDialogs dialogs;
    host.dialogs.users.push_back([](velda::ModalDialog& dialog) {
        EXPECT_EQ(dynamic_cast<PropertyDialog&>(dialog).Current(), 1u);
        return true;
    });
    EXPECT_EQ(dialogs.DoModal3("CModelPropThikDlg", 1, nullptr, nullptr), 1);
    EXPECT_EQ(dialogs.DoModal("CModelPropMatlDlg"), 0) << "cancelled";
    EXPECT_EQ(dialogs.DoModal("CCMSectItemDlg"), 0);
    EXPECT_EQ(dialogs.DoModal("Unknown"), 0);
    EXPECT_THAT(host.dialogs.shown, ElementsAre("CModelPropThikDlg", "CModelPropMatlDlg", "CCMSectItemDlg"));
    for (const char* name : {"LoadCaseDialog", "LoadCombinationDialog", "BeamLoadTypeDialog", "WallLoadTypeDialog",
                             "SlabLoadTypeDialog"}) {
        dialogs.DoModal(name);
        EXPECT_EQ(host.dialogs.shown.back(), name);
    }
    CDBDoc::m_pDBDoc = nullptr;
    EXPECT_EQ(dialogs.DoModal("CModelPropThikDlg"), 0);
}

}  // namespace
}  // namespace zt
