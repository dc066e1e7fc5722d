#include "zt_tb/post/tb_active_new_dlg.h"

#include <map>

#include "velda_base/host/headless_host.h"
#include "zt_db/post/post_fixture.h"
#include "zt_tb/post/fake_checker.h"
#include "zt_tb/post/load_case_lists.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Optional;

/// The activation dialog on the portal: columns 11 and 12, beam 13, nodes 1 to 4.
class ActiveNewDlg : public PortalResultsTest {
protected:
    ActiveNewDlg() {
        param.hasObjects = true;
        param.objectDomain = KeyDomain::Members;
        param.allObjects = {13, 11, 12};
        param.selectedObjects = {12, 11};
    }

    static TB_ACTIVE_PARAM ParamWithLoads(const std::vector<int>& kinds) {
        TB_ACTIVE_PARAM param;
        param.hasLoads = true;
        for (const int kind : kinds) {
            param.loads.names.push_back(std::to_string(kind));
            param.loads.all.push_back({1, static_cast<std::uint32_t>(kind), LoadCaseSubKind::All});
        }
        return param;
    }
    CTBActiveNewDlg& Open() {
        dialog = std::make_unique<CTBActiveNewDlg>(param, *doc->GetMDBCtrl()->GetDBPost());
        dialog->OnInitDialog();
        return *dialog;
    }
    static std::vector<std::string> Ticked(const CTBActiveNewDlg& opened, ActiveSection section) {
        std::vector<std::string> names;
        for (const auto& item : opened.Items(section)) {
            if (item.isTicked) names.push_back(item.name);
        }
        return names;
    }
    /// Types numbers and presses OK; gives the message.
    std::string Refusal(const std::string& text) {
        CTBActiveNewDlg& opened = Open();
        opened.objectText = text;
        host.messages.shown.clear();
        EXPECT_FALSE(opened.OnOK()) << text;
        EXPECT_THAT(param.selectedObjects, ElementsAre(12, 11)) << text;
        return host.messages.shown.empty() ? "" : host.messages.shown.back();
    }

    velda::HeadlessHost host;
    velda::UseHost use{host};
    TB_ACTIVE_PARAM param;
    std::unique_ptr<CTBActiveNewDlg> dialog;
};

using ActiveQuery = ActiveNewDlg;

// ---- sections ----

TEST_F(ActiveNewDlg, ShowsTheSectionsThatAreOnInTheirOrder) {
    EXPECT_THAT(Open().Sections(), ElementsAre(ActiveSection::Objects));
    param.last.isOn = true;
    param.steps.isOn = true;
    param.parts.isOn = true;
    param.hasLoads = true;
    param.stories.isOn = true;
    param.kinds.isOn = true;
    EXPECT_THAT(Open().Sections(),
                ElementsAre(ActiveSection::Objects, ActiveSection::Kinds, ActiveSection::Stories, ActiveSection::Loads,
                            ActiveSection::Parts, ActiveSection::Steps, ActiveSection::Last));
    param = {};
    EXPECT_THAT(Open().Sections(), IsEmpty());
}

TEST_F(ActiveNewDlg, TitlesSectionsWithABlankBefore) {
    CTBActiveNewDlg& opened = Open();
    EXPECT_EQ(opened.TitleOf(ActiveSection::Loads), " Load Cases");
    EXPECT_EQ(opened.TitleOf(ActiveSection::Last), "");
    param.loads.title = "Pushover Load Cases";
    param.last.title = "Rest";
    EXPECT_EQ(opened.TitleOf(ActiveSection::Loads), " Pushover Load Cases");
    EXPECT_EQ(opened.TitleOf(ActiveSection::Last), " Rest");
}

TEST_F(ActiveNewDlg, TellsWhatTheObjectsAre) {
    std::vector<std::uint32_t> domains;
    for (const auto& kind : CTBActiveNewDlg::ObjectKinds()) domains.push_back(kind.domain);
    EXPECT_THAT(domains, ElementsAre(0, 1, 3));
    EXPECT_THAT(Open().CurrentObjectKind(), Optional(2u));
    param.objectDomain = KeyDomain::Nodes;
    EXPECT_THAT(Open().CurrentObjectKind(), Optional(1u));
    param.objectDomain = KeyDomain::Elements;
    EXPECT_EQ(Open().CurrentObjectKind(), std::nullopt);
}

// ---- objects ----

TEST_F(ActiveNewDlg, ShowsObjectsAsRangesAndTakesThemBack) {
    param.selectedObjects = {13, 12, 11};
    CTBActiveNewDlg& opened = Open();
    EXPECT_EQ(opened.objectText, "11to13");
    opened.objectText = "13, 11-12 11";
    EXPECT_TRUE(opened.OnOK());
    EXPECT_THAT(param.selectedObjects, ElementsAre(11, 12, 13));
}

TEST_F(ActiveNewDlg, TakesAllObjectsOrNone) {
    CTBActiveNewDlg& opened = Open();
    opened.SelectAllObjects();
    EXPECT_EQ(opened.objectText, "11to13");
    opened.SelectNoObject();
    EXPECT_TRUE(opened.OnOK());
    EXPECT_THAT(param.selectedObjects, IsEmpty());
}

TEST_F(ActiveNewDlg, RefusesTextsThatAreNoNumbersByTheFirstBadWord) {
    EXPECT_THAT(Refusal("11 beam 12 column"), HasSubstr("\"beam\""));
    EXPECT_THAT(Refusal("12to11"), HasSubstr("\"12to11\" runs backwards"));
    EXPECT_THAT(Refusal("11to13by0"), HasSubstr("step of 0"));
    EXPECT_THAT(Refusal("1to4000000000"), HasSubstr("10000000"));
    EXPECT_THAT(Refusal("-11"), HasSubstr("\"-11\""));
    EXPECT_THAT(Refusal("0"), HasSubstr("\"0\""));
    EXPECT_THAT(Refusal("99999999999"), HasSubstr("\"99999999999\""));
}

TEST_F(ActiveNewDlg, RefusesObjectsThatTheTableDoesNotShow) {
    EXPECT_EQ(Refusal("11to14 20"), "There is no member 14 to show in this table.");
    param.objectDomain = KeyDomain::Nodes;
    EXPECT_EQ(Refusal("10"), "There is no node 10 to show in this table.");
    param.objectDomain = KeyDomain::Elements;
    EXPECT_EQ(Refusal("10"), "There is no element 10 to show in this table.");
}

TEST_F(ActiveNewDlg, TakesNothingAtAllWhileTheNumbersCannotBeRead) {
    param.parts = {.isOn = true, .names = {"i", "j"}, .keys = {0, 7}, .selected = {0}};
    CTBActiveNewDlg& opened = Open();
    opened.Tick(ActiveSection::Parts, 1, true);
    opened.objectText = "x";
    EXPECT_FALSE(opened.OnOK());
    EXPECT_THAT(param.parts.selected, ElementsAre(0));
    opened.objectText = "11";
    EXPECT_TRUE(opened.OnOK());
    EXPECT_THAT(param.parts.selected, ElementsAre(0, 7));
}

TEST_F(ActiveNewDlg, ReadsNoNumbersWhereTheSectionIsOff) {
    param.hasObjects = false;
    CTBActiveNewDlg& opened = Open();
    opened.objectText = "nonsense";
    EXPECT_TRUE(opened.OnOK());
    EXPECT_THAT(param.selectedObjects, ElementsAre(12, 11));
}

TEST_F(ActiveNewDlg, ChangesNothingWhenItIsCancelled) {
    param.kinds = {.isOn = true, .names = {"A", "B"}, .keys = {1, 2}, .selected = {1}};
    host.dialogs.users.push_back([](velda::ModalDialog& shown) {
        auto& opened = dynamic_cast<CTBActiveNewDlg&>(shown);
        opened.objectText = "13";
        opened.Tick(ActiveSection::Kinds, 1, true);
        return false;
    });
    CTBActiveNewDlg opened(param, *doc->GetMDBCtrl()->GetDBPost());
    EXPECT_FALSE(velda::DoModal(opened));
    EXPECT_THAT(host.dialogs.shown, ElementsAre("ResultActivation"));
    EXPECT_THAT(param.selectedObjects, ElementsAre(12, 11));
    EXPECT_THAT(param.kinds.selected, ElementsAre(1));
}

// ---- lists ----

TEST_F(ActiveNewDlg, TicksWhatIsSelectedAndTakesTicksInTheOrderOfTheList) {
    param.steps = {.isOn = true, .names = {"1", "2", "3"}, .keys = {1, 2, 3}, .selected = {3, 2, 9}};
    CTBActiveNewDlg& opened = Open();
    EXPECT_THAT(Ticked(opened, ActiveSection::Steps), ElementsAre("2", "3"));
    opened.Tick(ActiveSection::Steps, 0, true);
    EXPECT_TRUE(opened.OnOK());
    EXPECT_THAT(param.steps.selected, ElementsAre(1, 2, 3));
}

TEST_F(ActiveNewDlg, LeavesListsThatAreOffAlone) {
    param.stories = {.isOn = false, .names = {"A"}, .keys = {1}, .selected = {1, 5}};
    CTBActiveNewDlg& opened = Open();
    opened.Tick(ActiveSection::Stories, 0, false);
    EXPECT_TRUE(opened.OnOK());
    EXPECT_THAT(param.stories.selected, ElementsAre(1, 5));
}

TEST_F(ActiveNewDlg, FindsEntriesByAPartOfTheirNameAndTicksThoseOnly) {
    param.kinds = {.isOn = true, .names = {"Wind X", "Dead", "WIND Y", "\xED\x92\x8D"}, .keys = {1, 2, 3, 4}};
    CTBActiveNewDlg& opened = Open();
    EXPECT_THAT(opened.Found(ActiveSection::Kinds), ElementsAre(0, 1, 2, 3));
    opened.SetSearch(ActiveSection::Kinds, "wInD");
    EXPECT_THAT(opened.Found(ActiveSection::Kinds), ElementsAre(0, 2));
    opened.TickFound(ActiveSection::Kinds, true);
    EXPECT_THAT(Ticked(opened, ActiveSection::Kinds), ElementsAre("Wind X", "WIND Y"));
    opened.SetSearch(ActiveSection::Kinds, "x");
    opened.TickFound(ActiveSection::Kinds, false);
    EXPECT_THAT(Ticked(opened, ActiveSection::Kinds), ElementsAre("WIND Y"));
    opened.SetSearch(ActiveSection::Kinds, "none of them");
    EXPECT_THAT(opened.Found(ActiveSection::Kinds), IsEmpty());
    EXPECT_TRUE(opened.OnOK());
    EXPECT_THAT(param.kinds.selected, ElementsAre(3));
}

TEST_F(ActiveNewDlg, OpensAgainWithoutTheTicksOfBefore) {
    param.kinds = {.isOn = true, .names = {"A"}, .keys = {1}};
    CTBActiveNewDlg& opened = Open();
    opened.TickFound(ActiveSection::Kinds, true);
    opened.OnInitDialog();
    EXPECT_EQ(opened.Items(ActiveSection::Kinds).size(), 1u);
    EXPECT_THAT(Ticked(opened, ActiveSection::Kinds), IsEmpty());
}

TEST_F(ActiveNewDlg, RefusesATickOnAnEntryThatIsNotThere) {
    EXPECT_THROW(Open().Tick(ActiveSection::Kinds, 0, true), std::out_of_range);
}

// ---- load cases ----

TEST_F(ActiveNewDlg, TicksCasesOfMostKindsWhereNoneIsSelected) {
    param = ParamWithLoads({1, 4, 5, 8, 9, 10, 16, 17, 18, 26, 28, 29, 30});
    EXPECT_THAT(Ticked(Open(), ActiveSection::Loads), ElementsAre("1", "4", "5", "8", "9", "16", "17", "26", "29"));
}

TEST_F(ActiveNewDlg, TicksTheDefaultsWhereTheTableHasSome) {
    param = ParamWithLoads({1, 4, 10});
    param.loads.useDefaults = true;
    param.loads.defaults = {param.loads.all[2]};
    EXPECT_THAT(Ticked(Open(), ActiveSection::Loads), ElementsAre("10"));
    param.loads.defaults.clear();
    EXPECT_THAT(Ticked(Open(), ActiveSection::Loads), IsEmpty());
}

TEST_F(ActiveNewDlg, PassesOverTheDefaultsWhereACaseIsSelected) {
    param = ParamWithLoads({1, 4, 10});
    param.loads.useDefaults = true;
    param.loads.defaults = {param.loads.all[2]};
    param.loads.selected = {param.loads.all[1]};
    EXPECT_THAT(Ticked(Open(), ActiveSection::Loads), ElementsAre("4"));
}

TEST_F(ActiveNewDlg, TicksTheGreatestOfACombinationAloneAfterItWasChosenAlone) {
    Records<CClassLcom>().TR_Add(
        1, T_LCOM_D{.name = "ENV", .type = LoadCombinationType::Envelope, .items = {{1, kDead, 1.0}}});
    param = {.hasLoads = true};
    const CPostDataBase& database = *doc->GetMDBCtrl()->GetDBPost();
    LoadCaseLister(database, Post()).GetAllLcom(param.loads);
    CTBActiveNewDlg& opened = Open();
    EXPECT_THAT(Ticked(opened, ActiveSection::Loads), IsEmpty());
    opened.Tick(ActiveSection::Loads, 0, true);
    EXPECT_TRUE(opened.OnOK());
    EXPECT_THAT(param.loads.selected, ElementsAre(LoadChoice{1, LoadCaseKind::Combination, LoadCaseSubKind::Max}));
    EXPECT_THAT(Ticked(Open(), ActiveSection::Loads), ElementsAre("ENV(max)"));
}

// ---- traced findings ----

/// The dialog while a finding of the model checker is traced.
class ActiveNewDlgTraced : public ActiveNewDlg {
protected:
    ActiveNewDlgTraced() {
        doc->SetChekCtrl(&checker);
        doc->StartTracerMode();
    }
    ~ActiveNewDlgTraced() override { doc->SetChekCtrl(nullptr); }

    FakeChecker checker;
};

TEST_F(ActiveNewDlgTraced, NarrowsTheObjectsToThoseThatWereFoundInEveryTable) {
    checker.found = 12;
    for (const int table : {0, kFilteredResultTable}) {
        doc->SetTableID4Checker(table);
        EXPECT_EQ("12", Open().objectText) << table;
    }
    checker.found = 13;
    EXPECT_EQ("", Open().objectText) << "not among those that are shown";
    doc->EndTracerMode();
    EXPECT_EQ("11 12", Open().objectText);
}

TEST_F(ActiveNewDlgTraced, TicksTheLoadCasesThatTheCheckIsAbout) {
    param.hasLoads = true;
    param.loads.names = {"DL", "third", "third spectrum", "ES"};
    param.loads.all = {{.key = 1}, {.key = 3}, {3, LoadCaseKind::Spectrum}, {4, LoadCaseKind::EsSpectrum}};
    param.loads.selected = {param.loads.all[0]};
    const std::vector<std::string> shown{"DL"};
    const std::vector<std::string> all = param.loads.names;
    std::map<int, std::vector<std::string>> expected = {{108, all}, {99, {}}, {116, {"ES"}}};
    for (const int check : {71, 73, 93, 94, 95, 96, 97, 98, 100, 103}) expected[check] = {"third"};
    for (const int check : {0, 70, 72, 92, 101, 102, 104, 107, 115, 117}) expected[check] = shown;
    for (const auto& [check, names] : expected) {
        checker.check = check;
        EXPECT_EQ(names, Ticked(Open(), ActiveSection::Loads)) << check;
    }
}

TEST_F(ActiveNewDlgTraced, TicksTheDefaultsWhereTheCheckSaysNothingAndNothingIsShown) {
    param.hasLoads = true;
    param.loads = {.useDefaults = true, .names = {"A", "B"}, .all = {{.key = 1}, {.key = 3}}, .defaults = {{.key = 1}}};
    checker.check = 72;
    EXPECT_THAT(Ticked(Open(), ActiveSection::Loads), ElementsAre("A"));
    checker.check = 99;
    EXPECT_THAT(Ticked(Open(), ActiveSection::Loads), IsEmpty());
}

// ---- queries ----

std::vector<std::string> NamesOf(const std::vector<ObjectQuery::Choice>& choices) {
    std::vector<std::string> names;
    for (const auto& choice : choices) names.push_back(choice.name);
    return names;
}

TEST_F(ActiveQuery, OffersTheValuesOfMembersAndPicksThem) {
    CTBActiveNewDlg& opened = Open();
    EXPECT_EQ(opened.Query(), QueryKind::MemberType);
    EXPECT_THAT(NamesOf(opened.QueryChoices()), ElementsAre("Column", "Beam"));
    opened.Pick(opened.QueryChoices()[0].key);
    EXPECT_EQ(opened.objectText, "11 12");
    opened.SetQuery(QueryKind::Material);
    EXPECT_THAT(NamesOf(opened.QueryChoices()), ElementsAre("M"));
    opened.SetQuery(QueryKind::Section);
    EXPECT_THAT(NamesOf(opened.QueryChoices()), ElementsAre("S"));
    opened.SetQuery(QueryKind::Thickness);
    EXPECT_THAT(opened.QueryChoices(), IsEmpty());
    opened.SetQuery(QueryKind::Story);
    EXPECT_THAT(NamesOf(opened.QueryChoices()), ElementsAre("Tower : 2F"));
    opened.Pick(2);
    EXPECT_EQ(opened.objectText, "11to13");
}

TEST_F(ActiveQuery, OffersOnlyWhatTheTableCanShow) {
    param.allObjects = {13};
    CTBActiveNewDlg& opened = Open();
    EXPECT_THAT(NamesOf(opened.QueryChoices()), ElementsAre("Beam"));
    opened.Pick(101);
    EXPECT_EQ(opened.objectText, "");
    opened.Pick(0);
    EXPECT_EQ(opened.objectText, "");
}

TEST_F(ActiveQuery, PicksNodesByTheirMembersAndTheirOwnStory) {
    param.objectDomain = KeyDomain::Nodes;
    param.allObjects = {4, 3, 2, 1};
    CTBActiveNewDlg& opened = Open();
    opened.Pick(201);
    EXPECT_EQ(opened.objectText, "3 4");
    opened.SetQuery(QueryKind::Story);
    EXPECT_THAT(NamesOf(opened.QueryChoices()), ElementsAre("Tower : 2F", "Tower : 1F"));
    opened.Pick(1);
    EXPECT_EQ(opened.objectText, "1 2");
}

TEST_F(ActiveQuery, PicksElementsByTheirMember) {
    param.objectDomain = KeyDomain::Elements;
    param.allObjects = {1, 2, 3, 99};
    CTBActiveNewDlg& opened = Open();
    opened.Pick(101);
    EXPECT_EQ(opened.objectText, "1 2");
}

TEST_F(ActiveQuery, HasNothingForTablesOfStories) {
    param.objectDomain = KeyDomain::None;
    EXPECT_THAT(Open().QueryChoices(), IsEmpty());
}

class ActiveQueryWithoutResults : public PortalTest {};

TEST_F(ActiveQueryWithoutResults, PicksMembersByThicknessAndByBracesOfBothKinds) {
    Records<CClassThik>().TR_Add(7, T_THIK_D{.name = "W200"});
    const auto member = [](int type, std::uint32_t no, std::uint32_t prop) {
        return T_MEMB_D{.type = type, .no = no, .story = 2, .prop = prop, .matl = 1, .nodes = {101, 104}};
    };
    Records<CClassMemb>().TR_Add(
        std::vector<std::uint32_t>{301, 302, 303},
        std::vector<T_MEMB_D>{member(MembType::Wall, 21, 7), member(MembType::Brace, 22, 1), member(252, 23, 1)});
    const std::vector<std::uint32_t> all = {11, 21, 22, 23};
    const ObjectQuery query(*doc->GetMDBCtrl()->GetDBPre(), KeyDomain::Members, all);
    EXPECT_THAT(NamesOf(query.Choices(QueryKind::Thickness)), ElementsAre("W200"));
    EXPECT_THAT(query.Objects(QueryKind::Thickness, 7), ElementsAre(21));
    EXPECT_THAT(NamesOf(query.Choices(QueryKind::MemberType)), ElementsAre("Column", "Wall", "Brace/Truss"));
    EXPECT_THAT(query.Objects(QueryKind::MemberType, 206), ElementsAre(22, 23));
}

}  // namespace
}  // namespace zt
