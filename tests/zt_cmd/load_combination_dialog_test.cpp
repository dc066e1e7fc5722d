#include "zt_cmd/load_combination_dialog.h"

#include "zt_cmd/property_dialog_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::size_t kKind = 0;  ///< columns of the rows
constexpr std::size_t kCase = 1;
constexpr std::size_t kFactor = 2;

class LoadCombinationDialogTest : public PropertyDialogFixture {
protected:
    T_LCOM_D Written(std::uint32_t key) {
        T_LCOM_D record;
        EXPECT_TRUE(Db().GetClass<CClassLcom>()->Get(key, record));
        return record;
    }
    /// The texts of a row.
    static std::vector<std::string> Row(const PropertyDialog& dialog, std::size_t row) {
        std::vector<std::string> texts;
        const std::vector<PropertyField> fields = dialog.Row(0, row);
        for (const PropertyField& field : fields) texts.push_back(field.text);
        return texts;
    }
    static std::uint32_t KeyOf(const PropertyDialog& dialog, const std::string& text) {
        for (const PropertyDialog::Item& item : dialog.Items()) {
            if (item.text == text) return item.key;
        }
        return 0;
    }
};

TEST_F(LoadCombinationDialogTest, ShowsTheLoadCasesOfACombinationAsRows) {
    LoadCombinationDialog dialog(Db());
    EXPECT_EQ(dialog.RowCount(0), 0u);
    EXPECT_THAT(dialog.Lists().front().columns, ElementsAre("Kind", "Load case", "Factor"));
    dialog.Select(KeyOf(dialog, "1.2D+1.6L"));
    ASSERT_EQ(dialog.RowCount(0), 2u);
    EXPECT_THAT(Row(dialog, 0), ElementsAre("Static Load Case", "DL", "1.2"));
    EXPECT_THAT(Row(dialog, 1), ElementsAre("Static Load Case", "LL", "1.6"));
    EXPECT_THAT(dialog.Row(0, 0)[kCase].choices, ElementsAre("DL", "LL", "WX", "EX"));
}

TEST_F(LoadCombinationDialogTest, WritesAddedChangedAndRemovedRowsAsOneStep) {
    LoadCombinationDialog dialog(Db());
    const std::size_t steps = Steps();
    Set(dialog, "Name", "Envelope of all");
    Set(dialog, "Active", "No");
    Set(dialog, "Type", "Envelope");
    for (int row = 0; row < 3; ++row) dialog.AddRow(0);
    EXPECT_EQ(Row(dialog, 1)[kCase], "LL") << "the first that no other row has";
    dialog.SetCell(0, 0, kKind, "Load Combination");
    dialog.SetCell(0, 0, kCase, "D+L");
    dialog.SetCell(0, 0, kFactor, "1.1");
    dialog.RemoveRow(0, 1);
    dialog.SetCell(0, 1, kCase, "EX");
    ASSERT_TRUE(dialog.Add());
    EXPECT_EQ(Steps(), steps + 1);
    EXPECT_EQ(Db().GetUndoNames().front(), "Add Load Combination");
    const std::uint32_t service = KeyOf(dialog, "D+L");
    const T_LCOM_D expected{.name = "Envelope of all",
                            .active = 0,
                            .type = LoadCombinationType::Envelope,
                            .items = {{LoadCaseKind::Combination, service, 1.1}, {LoadCaseKind::Static, 4, 1.0}}};
    EXPECT_EQ(Written(dialog.Current()), expected);
    ASSERT_TRUE(dialog.Copy());
    EXPECT_EQ(Written(dialog.Current()).items, expected.items);
    EXPECT_EQ(Written(dialog.Current()).name, "Envelope of all (2)");
}

TEST_F(LoadCombinationDialogTest, KeepsWhatIsNoNumberInItsRowAndRefusesIt) {
    LoadCombinationDialog dialog(Db());
    dialog.Select(KeyOf(dialog, "1.2D+1.0L+1.0W"));
    dialog.SetCell(0, 2, kFactor, "one");
    dialog.SetCell(0, 1, kCase, "EX");
    dialog.SetCell(0, 7, kFactor, "2");
    EXPECT_EQ(dialog.Change().Reason(), "Row 3, Factor: \"one\" is not a number.");
    dialog.RemoveRow(0, 0);
    EXPECT_EQ(Row(dialog, 1)[kFactor], "one");
    EXPECT_THAT(dialog.Change().Reason(), HasSubstr("Row 2, Factor"));
    dialog.RemoveRow(0, 1);
    EXPECT_TRUE(dialog.Change());
    EXPECT_EQ(Written(dialog.Current()).items, (std::vector<T_LCOM_ITEM>{{LoadCaseKind::Static, 4, 1.0}}));
}

TEST_F(LoadCombinationDialogTest, RefusesACombinationThatWouldContainItselfAndNamesTheRing) {
    LoadCombinationDialog dialog(Db());
    dialog.Select(KeyOf(dialog, "1.2D+1.6L"));
    dialog.SetCell(0, 0, kKind, "Load Combination");
    EXPECT_NE(Row(dialog, 0)[kCase], "1.2D+1.6L") << "another than itself is offered first";
    dialog.SetCell(0, 0, kCase, "1.2D+1.6L");
    EXPECT_THAT(dialog.Change().Reason(), HasSubstr("would contain itself: 1.2D+1.6L > 1.2D+1.6L."));
    dialog.SetCell(0, 0, kCase, "D+L");
    ASSERT_TRUE(dialog.Change());
    dialog.Select(KeyOf(dialog, "D+L"));
    dialog.SetCell(0, 0, kKind, "Load Combination");
    dialog.SetCell(0, 0, kCase, "1.2D+1.6L");
    const std::size_t steps = Steps();
    EXPECT_THAT(dialog.Change().Reason(), HasSubstr("would contain itself: D+L > 1.2D+1.6L > D+L."));
    EXPECT_EQ(Steps(), steps);
    EXPECT_EQ(Row(dialog, 0)[kCase], "1.2D+1.6L") << "what was chosen stands until it is mended";
}

TEST_F(LoadCombinationDialogTest, RefusesARowWithoutALoadCase) {
    CDataBase& database = Db();
    const std::unique_ptr<CDBDoc> empty = CDBDoc::New();
    LoadCombinationDialog dialog(*empty->GetMDBCtrl()->GetCurrentDB());
    Set(dialog, "Name", "nothing");
    dialog.AddRow(0);
    EXPECT_EQ(dialog.Add().Reason(), "Row 1, Load case: choose one from the list.");
    dialog.RemoveRow(0, 0);
    EXPECT_TRUE(dialog.Add());
    EXPECT_EQ(database.GetClass<CClassLcom>()->GetCount(), 3);
}

TEST_F(LoadCombinationDialogTest, TakesSpectrumAndTimeHistoryCases) {
    ASSERT_TRUE(Db().GetClass<CClassSpfc>()->TR_Add(1, {.name = "KDS"}));
    ASSERT_TRUE(Db().GetClass<CClassSplc>()->TR_Add(std::vector<std::uint32_t>{1, 2},
                                                    {{.name = "RX", .spfc = 1}, {.name = "RY", .spfc = 1}}));
    ASSERT_TRUE(Db().GetClass<CClassThlc>()->TR_Add(7, {.name = "TH1"}));
    LoadCombinationDialog dialog(Db());
    Set(dialog, "Name", "seismic");
    dialog.AddRow(0);
    dialog.AddRow(0);
    dialog.SetCell(0, 0, kKind, "Response spectrum load case");
    EXPECT_THAT(dialog.Row(0, 0)[kCase].choices, ElementsAre("RX", "RY"));
    EXPECT_EQ(Row(dialog, 0)[kCase], "RX");
    dialog.SetCell(0, 0, kCase, "RY");
    dialog.SetCell(0, 1, kKind, "Time history load case");
    ASSERT_TRUE(dialog.Add());
    EXPECT_EQ(Written(dialog.Current()).items,
              (std::vector<T_LCOM_ITEM>{{LoadCaseKind::Spectrum, 2, 1.0}, {LoadCaseKind::TimeHistory, 7, 1.0}}));
    EXPECT_FALSE(Db().GetClass<CClassSplc>()->TR_Del(std::vector<std::uint32_t>{2}));
}

TEST_F(LoadCombinationDialogTest, KeepsNumbersThatHaveNoMeaningHere) {
    const T_LCOM_D other{.name = "other", .type = 5, .items = {{14, 3, 2.0}}};
    ASSERT_TRUE(Db().GetClass<CClassLcom>()->TR_Add(9, other));
    LoadCombinationDialog dialog(Db());
    dialog.Select(9);
    EXPECT_EQ(Get(dialog, "Type").text, "5");
    EXPECT_THAT(Get(dialog, "Type").choices, ElementsAre("Sum", "Envelope", "5"));
    EXPECT_THAT(Row(dialog, 0), ElementsAre("14", "3", "2"));
    EXPECT_FALSE(dialog.Row(0, 0)[kCase].enabled);
    dialog.SetCell(0, 0, kFactor, "3");
    ASSERT_TRUE(dialog.Change());
    EXPECT_EQ(Written(9).type, 5);
    EXPECT_EQ(Written(9).items, (std::vector<T_LCOM_ITEM>{{14, 3, 3.0}}));
}

TEST_F(LoadCombinationDialogTest, TellsLoadCasesOfOneNameApart) {
    ASSERT_TRUE(Db().GetClass<CClassStld>()->TR_Add(std::vector<std::uint32_t>{8, 9}, {{.name = "DL"}, {}}));
    LoadCombinationDialog dialog(Db());
    dialog.AddRow(0);
    EXPECT_THAT(dialog.Row(0, 0)[kCase].choices, ElementsAre("DL", "LL", "WX", "EX", "DL#8", "#9"));
    Set(dialog, "Name", "second");
    dialog.SetCell(0, 0, kCase, "DL#8");
    ASSERT_TRUE(dialog.Add());
    EXPECT_EQ(Written(dialog.Current()).items.front().key, 8u);
}

}  // namespace
}  // namespace zt
