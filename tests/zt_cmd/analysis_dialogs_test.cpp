#include "velda_base/host/headless_host.h"
#include "zt_cmd/analysis_control_dialog.h"
#include "zt_cmd/cmd_dialogs.h"
#include "zt_cmd/drift_restriction_dialog.h"
#include "zt_cmd/property_dialog_fixture.h"
#include "zt_cmd/spectrum_dialogs.h"
#include "zt_cmd/time_history_dialogs.h"
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

class AnalysisDialogsTest : public PropertyDialogFixture {
protected:
    template <class Class>
    typename Class::Record Written(std::uint32_t key) {
        typename Class::Record record;
        EXPECT_TRUE(Db().GetClass<Class>()->Get(key, record));
        return record;
    }
    template <class Class>
    bool Has(std::uint32_t key) {
        typename Class::Record record;
        return Db().GetClass<Class>()->Get(key, record) != 0;
    }
    /// The texts of a row.
    static std::vector<std::string> Row(const PropertyDialog& dialog, std::size_t list, std::size_t row) {
        std::vector<std::string> texts;
        for (const PropertyField& field : dialog.Row(list, row)) texts.push_back(field.text);
        return texts;
    }
    /// The reason for a text in a field of a record that is fine without it.
    static std::string ReasonFor(PropertyDialog& dialog, const std::string& label, const std::string& text) {
        const std::string before = Get(dialog, label).text;
        Set(dialog, label, text);
        EXPECT_EQ(Get(dialog, label).text, text) << "the text stands until it is mended";
        const std::string reason = dialog.Current() == 0 ? dialog.Add().Reason() : dialog.Change().Reason();
        Set(dialog, label, before);
        return reason;
    }
    void AddSpectrum(std::uint32_t key) {
        ASSERT_TRUE(Db().GetClass<CClassSpfc>()->TR_Add(key, {.name = "KDS S2", .points = {{0.0, 0.4}, {1.0, 0.2}}}));
    }
    void AddFunction(std::uint32_t key) {
        ASSERT_TRUE(Db().GetClass<CClassThfc>()->TR_Add(key, {.name = "Pulse", .points = {{0.0, 0.0}, {1.0, 0.3}}}));
    }
};

// ---- analysis control ----

TEST_F(AnalysisDialogsTest, ControlShowsTheDefaultsOfAModelWithoutIt) {
    const AnalysisControlDialog dialog(Db());
    EXPECT_TRUE(dialog.IsSingle());
    ASSERT_EQ(dialog.Items().size(), 1u);
    EXPECT_EQ(dialog.Items().front().key, T_ACTL_D::kKey);
    EXPECT_EQ(dialog.Current(), T_ACTL_D::kKey);
    std::vector<std::string> texts;
    for (const PropertyField& field : dialog.Fields()) texts.push_back(field.text);
    EXPECT_THAT(texts, ElementsAre("12", "90", "Yes", "Yes", "Lumped", "None"));
    EXPECT_FALSE(Has<CClassActl>(T_ACTL_D::kKey)) << "showing writes nothing";
}

TEST_F(AnalysisDialogsTest, ControlIsWrittenAndChangedAsOneNamedStepEach) {
    AnalysisControlDialog dialog(Db());
    const std::size_t steps = Steps();
    Set(dialog, "Number of modes", "30");
    Set(dialog, "P-Delta", "By the axial forces of given loads");
    dialog.AddRow(0);
    dialog.AddRow(0);
    dialog.SetCell(0, 1, 1, "0.25");
    dialog.AddRow(1);
    EXPECT_EQ(Row(dialog, 0, 1), (std::vector<std::string>{"LL", "0.25"})) << "the first that no other row has";
    ASSERT_TRUE(dialog.Change());
    EXPECT_EQ(Db().GetUndoNames().front(), "Add Analysis control");
    const T_ACTL_D expected{.modes = 30,
                            .massLoads = {{1, 1.0}, {2, 0.25}},
                            .secondOrder = SecondOrder::GivenLoads,
                            .secondOrderLoads = {{1, 1.0}}};
    EXPECT_EQ(Written<CClassActl>(T_ACTL_D::kKey), expected);
    Set(dialog, "Mass matrix", "Consistent");
    ASSERT_TRUE(dialog.Change());
    EXPECT_EQ(Steps(), steps + 2);
    EXPECT_EQ(Written<CClassActl>(T_ACTL_D::kKey).consistentMass, 1);
    EXPECT_EQ(AnalysisControlDialog(Db()).RowCount(0), 2u) << "another dialog shows what is written";
    EXPECT_EQ(Db().Undo(2), 2);
    EXPECT_FALSE(Has<CClassActl>(T_ACTL_D::kKey));
}

TEST_F(AnalysisDialogsTest, ControlNamesTheLimitThatANumberBreaks) {
    AnalysisControlDialog dialog(Db());
    const std::size_t steps = Steps();
    EXPECT_EQ(ReasonFor(dialog, "Number of modes", "0"),
              "Number of modes: 0 does not fit; it must be a whole number from 1 to 1000.");
    EXPECT_THAT(ReasonFor(dialog, "Number of modes", "1001"), HasSubstr("from 1 to 1000"));
    EXPECT_THAT(ReasonFor(dialog, "Number of modes", "2.5"), HasSubstr("a whole number"));
    EXPECT_THAT(ReasonFor(dialog, "Mass that", "100.5"), HasSubstr("it must lie from 0 to 100."));
    EXPECT_THAT(ReasonFor(dialog, "Mass that", "all"), HasSubstr("\"all\" is not a number."));
    EXPECT_EQ(Steps(), steps);
    for (const char* fits : {"1", "1000"}) {
        Set(dialog, "Number of modes", fits);
        EXPECT_TRUE(dialog.Change()) << fits;
    }
}

TEST_F(AnalysisDialogsTest, ControlNamesTheListOfARowThatDoesNotFit) {
    AnalysisControlDialog dialog(Db());
    dialog.AddRow(1);
    dialog.SetCell(1, 0, 1, "half");
    EXPECT_EQ(dialog.Change().Reason(), "Loads of the P-Delta analysis, Row 1, Factor: \"half\" is not a number.");
    EXPECT_EQ(dialog.RowCount(0), 0u);
    dialog.RemoveRow(1, 0);
    Set(dialog, "P-Delta", "By the axial forces of given loads");
    EXPECT_THAT(dialog.Change().Reason(), HasSubstr("needs at least one load"));
}

TEST_F(AnalysisDialogsTest, SingleRecordsAreNeitherAddedCopiedNorDeleted) {
    AnalysisControlDialog control(Db());
    DriftRestrictionDialog drift(Db());
    for (PropertyDialog* dialog : {static_cast<PropertyDialog*>(&control), static_cast<PropertyDialog*>(&drift)}) {
        dialog->Select(77);
        EXPECT_EQ(dialog->Current(), 1u);
        for (const velda::Outcome& outcome : {dialog->Add(), dialog->Copy(), dialog->Delete()}) {
            EXPECT_THAT(outcome.Reason(), HasSubstr("can only be changed"));
        }
    }
}

TEST_F(AnalysisDialogsTest, ALoadCaseOfTheControlIsNotDeleted) {
    AnalysisControlDialog dialog(Db());
    dialog.AddRow(0);
    dialog.SetCell(0, 0, 0, "EX");
    ASSERT_TRUE(dialog.Change());
    EXPECT_FALSE(Db().GetClass<CClassStld>()->TR_Del(std::vector<std::uint32_t>{4}));
    EXPECT_THAT(Db().GetLastReason(), HasSubstr("Analysis control"));
}

// ---- story drift restriction ----

TEST_F(AnalysisDialogsTest, DriftRestrictionTakesFactorsLoadsAndBetas) {
    DriftRestrictionDialog dialog(Db());
    Set(dialog, "Story drift", "At the center of mass");
    Set(dialog, "Overturning", "Reduced from the top downwards");
    Set(dialog, "Deflection", "4.5");
    Set(dialog, "Importance", "1.2");
    Set(dialog, "Response", "5");
    Set(dialog, "Allowable", "0.02");
    dialog.AddRow(0);
    dialog.SetCell(0, 0, 0, "Load Combination");
    dialog.SetCell(0, 0, 1, "D+L");
    dialog.AddRow(1);
    dialog.AddRow(1);
    EXPECT_NE(Row(dialog, 1, 0).front(), Row(dialog, 1, 1).front());
    dialog.SetCell(1, 1, 1, "0.8");
    ASSERT_TRUE(dialog.Change());
    const T_RSTP_D written = Written<CClassRstp>(T_RSTP_D::kKey);
    EXPECT_EQ(written.driftMethod, DriftMethod::CenterOfMass);
    EXPECT_EQ(written.overturningMethod, 1);
    EXPECT_EQ(std::vector({written.amplification, written.importance, written.responseFactor, written.allowableRatio}),
              std::vector({4.5, 1.2, 5.0, 0.02}));
    EXPECT_EQ(written.verticalLoads, (std::vector<T_LCOM_ITEM>{{LoadCaseKind::Combination, 3, 1.0}}));
    ASSERT_EQ(written.betas.size(), 2u);
    EXPECT_EQ(written.betas[1].beta, 0.8);
}

TEST_F(AnalysisDialogsTest, DriftRestrictionRefusesWhatIsNotAboveZeroAndAStoryTwice) {
    DriftRestrictionDialog dialog(Db());
    for (const char* label : {"Deflection", "Importance", "Response", "Allowable"}) {
        EXPECT_THAT(ReasonFor(dialog, label, "0"), HasSubstr("0 does not fit; it must be greater than 0.")) << label;
    }
    dialog.AddRow(1);
    dialog.AddRow(1);
    dialog.SetCell(1, 1, 0, Row(dialog, 1, 0).front());
    EXPECT_EQ(dialog.Change().Reason(), "Rows 1 and 2 have the same story.");
    dialog.RemoveRow(1, 0);
    dialog.SetCell(1, 0, 1, "-1");
    EXPECT_THAT(dialog.Change().Reason(), AllOf(HasSubstr("Row 1, Beta: -1"), HasSubstr("greater than 0")));
}

// ---- spectra ----

TEST_F(AnalysisDialogsTest, SpectraAreAddedWithTheirPointsAsOneStep) {
    SpectrumDialog dialog(Db());
    const std::size_t steps = Steps();
    EXPECT_THAT(dialog.Lists().front().columns, ElementsAre("Period (sec)", "Acceleration (g)"));
    EXPECT_TRUE(dialog.Lists().front().isTable);
    Set(dialog, "Name", "KDS");
    EXPECT_EQ(dialog.Add().Reason(), "The function has no points.");
    for (int row = 0; row < 4; ++row) dialog.AddRow(0);
    EXPECT_EQ(Row(dialog, 0, 0).front(), "0");
    EXPECT_EQ(Row(dialog, 0, 2).front(), "0.2") << "new points keep their distance";
    dialog.SetCell(0, 1, 1, "0.5");
    dialog.RemoveRow(0, 3);
    ASSERT_TRUE(dialog.Add());
    EXPECT_EQ(Steps(), steps + 1);
    EXPECT_EQ(Db().GetUndoNames().front(), "Add Response spectrum");
    const T_SPFC_D expected{.name = "KDS", .points = {{0.0, 0.0}, {0.1, 0.5}, {0.2, 0.0}}};
    EXPECT_EQ(Written<CClassSpfc>(dialog.Current()), expected);
}

TEST_F(AnalysisDialogsTest, SpectraRefusePointsOutOfOrderAndNegativeNumbers) {
    SpectrumDialog dialog(Db());
    Set(dialog, "Name", "KDS");
    ASSERT_TRUE(dialog.PasteRows(0, 0, 0, "0 1\n0.5 2\n0.5 1\n"));
    EXPECT_EQ(dialog.Add().Reason(), "Row 3, Period (sec): 0.5 must be greater than 0.5 in the row before.");
    dialog.SetCell(0, 2, 0, "-1");
    EXPECT_EQ(dialog.Add().Reason(), "Row 3, Period (sec): -1 does not fit; it must be at least 0.");
    dialog.SetCell(0, 2, 0, "0.6");
    dialog.SetCell(0, 0, 1, "-0.1");
    EXPECT_THAT(dialog.Add().Reason(), HasSubstr("Row 1, Acceleration (g): -0.1"));
    dialog.SetCell(0, 0, 1, "0");
    EXPECT_TRUE(dialog.Add());
}

TEST_F(AnalysisDialogsTest, SpectraInUseAreNotDeleted) {
    AddSpectrum(5);
    ASSERT_TRUE(Db().GetClass<CClassSplc>()->TR_Add(1, {.name = "RX", .spfc = 5}));
    SpectrumDialog dialog(Db());
    dialog.Select(5);
    EXPECT_THAT(dialog.Uses(), HasSubstr("Response spectrum load case (1): 1"));
    EXPECT_THAT(dialog.Delete().Reason(), HasSubstr("Response spectrum load case"));
    EXPECT_TRUE(Has<CClassSpfc>(5));
}

TEST_F(AnalysisDialogsTest, SpectrumCasesHaveDefaultsAndOpenTheAngleForHorizontalMotion) {
    AddSpectrum(5);
    SpectrumCaseDialog dialog(Db());
    Set(dialog, "Name", "RX");
    EXPECT_EQ(dialog.Add().Reason(), "Response spectrum: choose one from the list.");
    Set(dialog, "Response spectrum", "KDS S2");
    Set(dialog, "Angle", "90");
    EXPECT_TRUE(Get(dialog, "Angle").enabled);
    ASSERT_TRUE(dialog.Add());
    EXPECT_EQ(Db().GetUndoNames().front(), "Add Response spectrum load case");
    const T_SPLC_D expected{.name = "RX", .spfc = 5, .angle = 90.0};
    EXPECT_EQ(Written<CClassSplc>(dialog.Current()), expected);
    Set(dialog, "Direction", "Ground, vertical");
    EXPECT_FALSE(Get(dialog, "Angle").enabled);
    Set(dialog, "Combination", "SRSS (square root of the sum of squares)");
    Set(dialog, "Use", "Seismic checks only");
    Set(dialog, "Scale", "0.7");
    ASSERT_TRUE(dialog.Change());
    const T_SPLC_D changed = Written<CClassSplc>(dialog.Current());
    EXPECT_EQ(changed.direction, GroundDirection::Vertical);
    EXPECT_EQ(changed.combination, ModeCombination::Srss);
    EXPECT_EQ(changed.type, T_SPLC_D::kSeismicOnly);
    EXPECT_EQ(changed.scale, 0.7);
}

TEST_F(AnalysisDialogsTest, SpectrumCasesNameTheirLimits) {
    AddSpectrum(5);
    SpectrumCaseDialog dialog(Db());
    Set(dialog, "Name", "RX");
    Set(dialog, "Response spectrum", "KDS S2");
    EXPECT_THAT(ReasonFor(dialog, "Damping", "5"),
                HasSubstr("Damping ratio: 5 does not fit; it must lie from 0 to 1."));
    EXPECT_THAT(ReasonFor(dialog, "Scale", "0"), HasSubstr("greater than 0"));
    EXPECT_TRUE(dialog.Add());
}

// ---- time histories ----

TEST_F(AnalysisDialogsTest, TimeFunctionsTakeThousandsOfRowsFromAText) {
    TimeFunctionDialog dialog(Db());
    Set(dialog, "Name", "El Centro");
    std::string text = "Ground motion of a station\ntime, acceleration\n";
    for (int row = 0; row < 1559; ++row) text += std::to_string(row * 0.02) + ", -0.5\n";
    dialog.AddRow(0);
    ASSERT_TRUE(dialog.ImportRows(0, text));
    EXPECT_EQ(dialog.RowCount(0), 1559u) << "the row that was there is gone";
    ASSERT_TRUE(dialog.Add());
    const T_THFC_D written = Written<CClassThfc>(dialog.Current());
    EXPECT_EQ(written.points.size(), 1559u);
    EXPECT_EQ(written.points.back(), (T_THFC_POINT{31.16, -0.5}));
    EXPECT_EQ(Db().GetUndoNames().front(), "Add Time function");
}

TEST_F(AnalysisDialogsTest, ATextThatDoesNotFitIsRefusedByItsLineAndChangesNothing) {
    TimeFunctionDialog dialog(Db());
    ASSERT_TRUE(dialog.ImportRows(0, "0 1\n1 2\n"));
    EXPECT_EQ(dialog.ImportRows(0, "0;1\n\n0.5;x\n").Reason(), "Line 3: \"x\" is not a number.");
    EXPECT_EQ(dialog.ImportRows(0, "0 1\n1 2 3\n").Reason(), "Line 2: it must have 2 numbers.");
    EXPECT_EQ(dialog.ImportRows(0, "time value\n").Reason(), "The text has no rows of numbers.");
    EXPECT_EQ(dialog.PasteRows(0, 0, 1, "5\n6\t7\n").Reason(),
              "Line 2: there are more values than the 1 columns from here on.");
    EXPECT_EQ(Row(dialog, 0, 0), (std::vector<std::string>{"0", "1"}));
    EXPECT_EQ(dialog.RowCount(0), 2u);
}

TEST_F(AnalysisDialogsTest, APasteBeginsAtItsCellAndAddsTheRowsThatAreMissing) {
    TimeFunctionDialog dialog(Db());
    Set(dialog, "Name", "f");
    ASSERT_TRUE(dialog.ImportRows(0, "0\t1\n1\t2\n"));
    ASSERT_TRUE(dialog.PasteRows(0, 1, 1, "8\r\nnine\r\n"));
    EXPECT_EQ(Row(dialog, 0, 1), (std::vector<std::string>{"1", "8"}));
    EXPECT_EQ(Row(dialog, 0, 2), (std::vector<std::string>{"2", "nine"}));
    EXPECT_THAT(dialog.Add().Reason(), HasSubstr("Row 3, Value (g for ground): \"nine\" is not a number."));
}

TEST_F(AnalysisDialogsTest, TimeHistoryCasesDriveTheGroundOrALoadCase) {
    AddFunction(3);
    TimeHistoryCaseDialog dialog(Db());
    Set(dialog, "Name", "TH1");
    dialog.AddRow(0);
    dialog.AddRow(0);
    EXPECT_THAT(Row(dialog, 0, 0), ElementsAre("Pulse", "Ground, horizontal", "0", "1", "0"));
    EXPECT_THAT(dialog.Row(0, 0)[1].choices, AllOf(Contains("Ground, vertical"), Contains("Loads of EX")));
    dialog.SetCell(0, 0, 2, "90");
    dialog.SetCell(0, 1, 1, "Loads of EX");
    dialog.SetCell(0, 1, 3, "-2");
    dialog.SetCell(0, 1, 4, "0.5");
    EXPECT_TRUE(dialog.Row(0, 0)[2].enabled);
    EXPECT_FALSE(dialog.Row(0, 1)[2].enabled);
    ASSERT_TRUE(dialog.Add());
    const T_THLC_D written = Written<CClassThlc>(dialog.Current());
    EXPECT_EQ(written.items, (std::vector<T_THLC_ITEM>{{.thfc = 3, .angle = 90.0},
                                                       {.thfc = 3, .stld = 4, .scale = -2.0, .arrival = 0.5}}));
    dialog.SetCell(0, 1, 1, "Ground, vertical");
    ASSERT_TRUE(dialog.Change());
    EXPECT_EQ(Written<CClassThlc>(dialog.Current()).items[1].stld, 0u);
    EXPECT_EQ(Written<CClassThlc>(dialog.Current()).items[1].direction, GroundDirection::Vertical);
}

TEST_F(AnalysisDialogsTest, TimeHistoryCasesNameTheirLimits) {
    AddFunction(3);
    TimeHistoryCaseDialog dialog(Db());
    Set(dialog, "Name", "TH1");
    dialog.AddRow(0);
    EXPECT_THAT(ReasonFor(dialog, "Damping", "1.01"), HasSubstr("from 0 to 1"));
    EXPECT_THAT(ReasonFor(dialog, "Time step", "0"), HasSubstr("Time step (sec): 0 does not fit; it must be greater"));
    EXPECT_EQ(ReasonFor(dialog, "Duration", "0.01"), "Duration (sec): 0.01 is shorter than the time step 0.02.");
    dialog.SetCell(0, 0, 4, "-1");
    EXPECT_EQ(dialog.Add().Reason(), "Row 1, Arrival (sec): -1 does not fit; it must be at least 0.");
    dialog.SetCell(0, 0, 4, "0");
    Set(dialog, "Duration", "0.02");
    EXPECT_TRUE(dialog.Add());
}

TEST_F(AnalysisDialogsTest, TimeHistoryCasesNeedAFunctionInEachRow) {
    TimeHistoryCaseDialog dialog(Db());
    Set(dialog, "Name", "TH1");
    dialog.AddRow(0);
    EXPECT_EQ(dialog.Add().Reason(), "Row 1, Function: choose one from the list.");
}

TEST_F(AnalysisDialogsTest, AFunctionInUseIsNotDeleted) {
    AddFunction(3);
    ASSERT_TRUE(Db().GetClass<CClassThlc>()->TR_Add(1, {.name = "TH1", .items = {{.thfc = 3}}}));
    TimeFunctionDialog dialog(Db());
    dialog.Select(3);
    EXPECT_THAT(dialog.Uses(), HasSubstr("Time history load case (1): 1"));
    EXPECT_THAT(dialog.Delete().Reason(), Not(IsEmpty()));
    EXPECT_TRUE(Has<CClassThfc>(3));
}

// ---- what they share ----

TEST_F(AnalysisDialogsTest, RecordsFromElsewhereAreHeldToTheLimitsWhenTheyAreChanged) {
    ASSERT_TRUE(Db().GetClass<CClassActl>()->TR_Add(T_ACTL_D::kKey, {.modes = 0}));
    AnalysisControlDialog dialog(Db());
    EXPECT_THAT(dialog.Change().Reason(), HasSubstr("Number of modes: 0 does not fit"));
    Set(dialog, "Number of modes", "5");
    EXPECT_TRUE(dialog.Change());
}

TEST_F(AnalysisDialogsTest, OpenByNameAndHaveTextsInBothLanguages) {
    velda::HeadlessHost host;
    const velda::UseHost use(host);
    for (const velda::Language language : {velda::Language::English, velda::Language::Korean}) {
        velda::SetCurrentLanguage(language);
        for (const char* name : {"AnalysisControlDialog", "DriftRestrictionDialog", "SpectrumDialog",
                                 "SpectrumCaseDialog", "TimeFunctionDialog", "TimeHistoryCaseDialog"}) {
            std::vector<std::string> texts;
            host.dialogs.users.push_back([&](velda::ModalDialog& shown) {
                auto& dialog = dynamic_cast<PropertyDialog&>(shown);
                texts.push_back(dialog.GetTitle());
                for (const PropertyField& field : dialog.Fields()) {
                    texts.push_back(field.label);
                    texts.insert(texts.end(), field.choices.begin(), field.choices.end());
                }
                for (const PropertyDialog::ListInfo& list : dialog.Lists()) {
                    texts.push_back(list.title);
                    texts.insert(texts.end(), list.columns.begin(), list.columns.end());
                }
                return false;
            });
            CmdDialogs().DoModal(name);
            EXPECT_THAT(texts, AllOf(Not(IsEmpty()), Each(Not(HasSubstr("IDS_"))))) << name;
        }
    }
}

}  // namespace
}  // namespace zt
