#include "zt_cmd/load_case_dialog.h"
#include "zt_cmd/load_type_dialogs.h"
#include "zt_cmd/property_dialog_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

using LoadCaseDialogTest = PropertyDialogFixture;
using LoadTypeDialogsTest = PropertyDialogFixture;

template <class Class>
typename Class::Record RecordAt(CDataBase& database, std::uint32_t key) {
    typename Class::Record record;
    EXPECT_TRUE(database.GetClass<Class>()->Get(key, record));
    return record;
}

std::vector<std::string> TextsOf(const PropertyDialog& dialog) {
    std::vector<std::string> texts;
    for (const PropertyDialog::Item& item : dialog.Items()) texts.push_back(item.text);
    return texts;
}

TEST_F(LoadCaseDialogTest, ListsLoadCasesWithTypeAndDescription) {
    LoadCaseDialog dialog(Db());
    EXPECT_THAT(TextsOf(dialog),
                ElementsAre("DL (D), Dead load", "LL (L), Live load", "WX (W), Wind in X", "EX (E), Earthquake in X"));
    ASSERT_TRUE(Db().GetClass<CClassStld>()->TR_Add(9, {.name = "bare"}));
    EXPECT_EQ(TextsOf(dialog).back(), "bare");
}

TEST_F(LoadCaseDialogTest, AddsCopiesChangesAndDeletesInOneNamedStepEach) {
    LoadCaseDialog dialog(Db());
    const std::size_t steps = Steps();
    Set(dialog, "Name", "SL");
    Set(dialog, "Type", "S - Snow load");
    Set(dialog, "Description", "Snow on the roof");
    ASSERT_TRUE(dialog.Add());
    EXPECT_EQ(Db().GetUndoNames().front(), "Add Static Load Case");
    const T_STLD_D expected{.name = "SL", .type = "S", .description = "Snow on the roof"};
    EXPECT_EQ(RecordAt<CClassStld>(Db(), dialog.Current()), expected);
    ASSERT_TRUE(dialog.Copy());
    EXPECT_EQ(TextsOf(dialog).back(), "SL (2) (S), Snow on the roof");
    Set(dialog, "Name", "SL2");
    ASSERT_TRUE(dialog.Change());
    EXPECT_EQ(TextsOf(dialog).back(), "SL2 (S), Snow on the roof");
    ASSERT_TRUE(dialog.Delete());
    EXPECT_EQ(Steps(), steps + 4);
    EXPECT_EQ(Db().Undo(4), 4);
    EXPECT_EQ(dialog.Items().size(), 4u);
}

TEST_F(LoadCaseDialogTest, TakesAKnownTypeByItsNameOrCodeAndAnyOther) {
    LoadCaseDialog dialog(Db());
    EXPECT_EQ(Get(dialog, "Type").kind, PropertyField::Kind::Suggestion);
    EXPECT_THAT(Get(dialog, "Type").choices, Contains("W - Wind load"));
    for (const auto& [text, type, shown] :
         {std::tuple("EP - Earth pressure", "EP", "EP - Earth pressure"), std::tuple("D", "D", "D - Dead load"),
          std::tuple("CLV", "CLV", "CLV"), std::tuple("", "", "")}) {
        Set(dialog, "Name", std::string("case ") + type);
        Set(dialog, "Type", text);
        ASSERT_TRUE(dialog.Add());
        EXPECT_EQ(RecordAt<CClassStld>(Db(), dialog.Current()).type, type);
        EXPECT_EQ(Get(dialog, "Type").text, shown);
    }
}

TEST_F(LoadCaseDialogTest, NamesItsTypesInBothLanguages) {
    for (const velda::Language language : {velda::Language::English, velda::Language::Korean}) {
        velda::SetCurrentLanguage(language);
        const std::vector<std::string> types = LoadCaseDialog(Db()).Fields()[1].choices;
        EXPECT_THAT(types, AllOf(Not(IsEmpty()), Each(Not(HasSubstr("IDS_")))));
    }
    EXPECT_EQ(LoadCaseDialog(Db()).Fields()[1].choices.front(), "D - 고정하중");
}

TEST_F(LoadCaseDialogTest, RefusesANameThatIsMissingOrThatOfAnotherLoadCase) {
    LoadCaseDialog dialog(Db());
    const std::size_t steps = Steps();
    EXPECT_EQ(dialog.Add().Reason(), "The name is missing.");
    Set(dialog, "Name", "  ");
    EXPECT_EQ(dialog.Add().Reason(), "The name is missing.");
    Set(dialog, "Name", "LL");
    EXPECT_EQ(dialog.Add().Reason(), "The name \"LL\" is taken already.");
    dialog.Select(dialog.Items().front().key);
    Set(dialog, "Name", "LL");
    EXPECT_EQ(dialog.Change().Reason(), "The name \"LL\" is taken already.");
    Set(dialog, "Name", "DL");
    EXPECT_TRUE(dialog.Change()) << "its own name";
    EXPECT_LE(Steps(), steps + 1);
}

TEST_F(LoadCaseDialogTest, DoesNotDeleteALoadCaseInUseAndNamesItsUser) {
    LoadCaseDialog dialog(Db());
    dialog.Select(dialog.Items()[2].key);
    EXPECT_THAT(dialog.Uses(), HasSubstr("Load Combination (1): 2"));
    EXPECT_THAT(dialog.Delete().Reason(), HasSubstr("Load Combination 2"));
    EXPECT_EQ(dialog.Items().size(), 4u);
}

TEST_F(LoadTypeDialogsTest, WriteTheDeadLoadInCurrentUnits) {
    T_UNIT_INDEX units;
    doc->GetUnitCtrl()->GetUnitIndexCurrent(units);
    units.force = CUnitCtrl::FindChoice(UnitQuantity::Force, "N");
    ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(units, 1));
    BeamLoadTypeDialog dialog(Db());
    Set(dialog, "Name", "Parapet");
    Set(dialog, "Dead Load (N/m²)", "2500");
    Set(dialog, "Description", "1.2 m high");
    ASSERT_TRUE(dialog.Add());
    EXPECT_EQ(Db().GetUndoNames().front(), "Add Beam Load Type");
    units.force = CUnitCtrl::FindChoice(UnitQuantity::Force, "kN");
    ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(units, 1));
    const T_BLTP_D record = RecordAt<CClassBltp>(Db(), dialog.Current());
    EXPECT_DOUBLE_EQ(record.dl, 2.5);
    EXPECT_EQ(record.description, "1.2 m high");
}

TEST_F(LoadTypeDialogsTest, RefuseNamesThatAreMissingOrTaken) {
    WallLoadTypeDialog dialog(Db());
    EXPECT_EQ(dialog.Add().Reason(), "The name is missing.");
    Set(dialog, "Name", "Block wall");
    ASSERT_TRUE(dialog.Add());
    EXPECT_EQ(dialog.Add().Reason(), "The name \"Block wall\" is taken already.");
    ASSERT_TRUE(dialog.Delete());
}

TEST_F(LoadTypeDialogsTest, CallSlabLoadTypesByTheirPlaces) {
    ASSERT_TRUE(Db().GetClass<CClassSltp>()->TR_Del([&] {
        std::vector<std::uint32_t> keys;
        Db().GetClass<CClassSltp>()->GetKeyList(keys);
        return keys;
    }()));
    ASSERT_TRUE(Db().GetClass<CClassSltp>()->TR_Add(std::vector<std::uint32_t>{7, 3},
                                                    {{.dl = 5.0, .description = "Roof"}, {.dl = 4.0, .ll = 2.5}}));
    SlabLoadTypeDialog dialog(Db());
    EXPECT_FALSE(dialog.ListsKeys());
    EXPECT_THAT(TextsOf(dialog), ElementsAre("Slab Load 1", "Slab Load 2, Roof"));
    dialog.Select(3);
    EXPECT_EQ(Get(dialog, "Dead Load").text, "4");
    EXPECT_THAT(dialog.Fields()[1].label, StartsWith("Live Load ("));
    Set(dialog, "Live Load", "3");
    ASSERT_TRUE(dialog.Copy());
    EXPECT_EQ(TextsOf(dialog).back(), "Slab Load 3");
    EXPECT_EQ(RecordAt<CClassSltp>(Db(), 3).ll, 2.5);
    EXPECT_EQ(RecordAt<CClassSltp>(Db(), dialog.Current()).ll, 3.0);
    Set(dialog, "Live Load", "much");
    EXPECT_THAT(dialog.Change().Reason(), HasSubstr("\"much\" is not a number."));
}

}  // namespace
}  // namespace zt
