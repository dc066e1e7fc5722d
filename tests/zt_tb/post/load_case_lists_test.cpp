#include "zt_tb/post/load_case_lists.h"

#include "velda_lib/language.h"
#include "zt_db/post/post_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::Not;

using Lines = std::vector<std::string>;

/// The entries of a list as "name kind/sub-kind", a star behind those that are default.
Lines LinesOf(const LoadChoiceList& list) {
    Lines lines;
    EXPECT_EQ(list.names.size(), list.all.size());
    for (std::size_t i = 0; i < list.names.size(); ++i) {
        const LoadChoice& choice = list.all[i];
        const bool isDefault = std::find(list.defaults.begin(), list.defaults.end(), choice) != list.defaults.end();
        lines.push_back(list.names[i] + " " + std::to_string(choice.kind) + "/" + std::to_string(choice.subKind) +
                        (isDefault ? "*" : ""));
    }
    return lines;
}

Lines Joined(std::initializer_list<Lines> parts) {
    Lines all;
    for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

Lines Default(Lines lines) {
    for (std::string& line : lines) line += "*";
    return lines;
}

const Lines kStatic = {"DL 1/2", "WX 1/2", "LL 1/2", "EX 1/2", "TX 1/2"};
const Lines kStaticWithoutTemperature = {"DL 1/2", "WX 1/2", "LL 1/2", "EX 1/2"};
const Lines kEsStatic = {"ES1(ELS) 26/2"};
const Lines kSpectra = {"RX 4/2", "RS 4/2"};
const Lines kSpectraWithoutSeismic = {"RX 4/2"};
const Lines kPt = {"PT1(PT:all) 18/0", "PT1(PT:max) 18/1", "PT1(PT:min) 18/-1"};
const Lines kEsSpectra = {"ES2 16/2"};
const Lines kSettlement = {"SM1(SM:all) 9/0", "SM1(SM:max) 9/1", "SM1(SM:min) 9/-1"};
const Lines kHistoryCases = {"EQ(TH:max) 5/1", "EQ(TH:min) 5/-1", "EQ(TH:all) 5/0"};
const Lines kHistoryLoads = {"EQ(TH:all) 5/0", "EQ(TH:max) 5/1", "EQ(TH:min) 5/-1"};
const Lines kNonlinearCases = {"NC1(TH:max) 29/1", "NC1(TH:min) 29/-1", "NC1(TH:all) 29/0"};
const Lines kPushover = {"PO1 17/0", "PO2 17/0"};

const Lines kFull = Joined({kStatic, kEsStatic, kSpectra, kPt, kEsSpectra, kSettlement});

/// A model with static cases of all sorts and combinations, without results.
class LoadListModel : public PortalTest {
protected:
    enum Key : std::uint32_t { kSum = 1, kEnvelope, kInactive, kCivilDefence, kGirder, kNested, kHoldsAll };

    LoadListModel() {
        Records<CClassStld>().TR_Add({3, 4, 5, 6, 7}, {{.name = "LL", .type = "L"},
                                                       {.name = "EX", .type = "E"},
                                                       {.name = "TX", .type = "T"},
                                                       {.name = "SOIL", .type = "EP"},
                                                       {.name = "STAGE", .type = "CS"}});
        Records<CClassSplc>().TR_Add(8, T_SPLC_D{.name = "RS", .type = T_SPLC_D::kSeismicOnly});
        const std::vector<T_LCOM_ITEM> statics = {{1, 1, 1.2}, {1, 2, 1.0}};
        const std::vector<T_LCOM_ITEM> spectrum = {{4, kSpectrum, 1.0}};
        Records<CClassLcom>().TR_Add(
            {kSum, kEnvelope, kInactive, kCivilDefence, kGirder},
            {{.name = "SUM", .items = statics},
             {.name = "ENV", .type = LoadCombinationType::Envelope, .items = statics},
             {.name = "OFF", .active = 0, .items = statics},
             {.name = "SHELTER", .type = LoadCombinationType::CivilDefence, .items = statics},
             {.name = "GIRDER", .type = LoadCombinationType::TransferGirder, .items = statics}});
    }

    LoadCaseLister Lister() { return {*database, Post()}; }
    LoadChoiceList ListOf(int id, int tab = 0) {
        LoadChoiceList list;
        Lister().GetAllLoadcaseForActiveNew(id, tab, list);
        return list;
    }
    /// Expects the entries, the mark of defaults and the title of each of some tables.
    void ExpectTables(std::initializer_list<int> ids, const Lines& lines, bool useDefaults,
                      const std::string& title = {}) {
        for (const int id : ids) {
            const LoadChoiceList list = ListOf(id);
            EXPECT_THAT(LinesOf(list), ElementsAreArray(lines)) << id;
            EXPECT_EQ(list.useDefaults, useDefaults) << id;
            EXPECT_EQ(list.title, title) << id;
        }
    }
    template <class... Argument>
    Lines LinesBy(void (LoadCaseLister::*operation)(LoadChoiceList&, Argument...) const, Argument... arguments) {
        LoadChoiceList list;
        (Lister().*operation)(list, arguments...);
        return LinesOf(list);
    }

    const CPostDataBase* database = doc->GetMDBCtrl()->GetDBPre();
};

/// The same with results of cases of all kinds.
class LoadLists : public LoadListModel {
protected:
    LoadLists() {
        Records<CClassLcom>().TR_Add(kHoldsAll, T_LCOM_D{.name = "ALL", .items = {{10, kEnvelope, 1.0}}});
        UseResults({});
    }
    void UseResults(std::initializer_list<ResultCase> more) {
        auto results = std::make_shared<MemoryResults>();
        EXPECT_TRUE(PutAll(*results));
        std::vector<ResultCase> cases = {
            {1, 3, "LL", ""},   {1, 4, "EX", ""},   {1, 5, "TX", ""},   {1, 6, "SOIL", ""}, {1, 7, "STAGE", ""},
            {4, 8, "RS", ""},   {9, 1, "SM1", ""},  {16, 2, "ES2", ""}, {17, 1, "PO1", ""}, {17, 2, "PO2", ""},
            {18, 1, "PT1", ""}, {26, 1, "ES1", ""}, {28, 1, "NL1", ""}, {29, 1, "NC1", ""}};
        cases.insert(cases.end(), more);
        for (const ResultCase& one : cases) EXPECT_TRUE(results->PutCase(one));
        doc->GetMDBCtrl()->SetResults(results);
        database = doc->GetMDBCtrl()->GetDBPost();
    }
};

// ---- rules ----

TEST_F(LoadLists, OfferEverythingToTablesWithoutARuleOfTheirOwn) {
    const Lines all = Joined(
        {kFull, {"SUM 10/2", "ENV(max) 10/1", "ENV(min) 10/-1", "GIRDER 10/2"}, {"ALL(max) 10/1", "ALL(min) 10/-1"}});
    ExpectTables({0, 1, 2, 3, 10, 33, 44, 47, 49, 91, 95, 96, 200}, all, false);
}

TEST_F(LoadLists, OfferNoCombinationsToTablesOfWholeFloorsAndLinks) { ExpectTables({7, 8, 9, 11, 12}, kFull, false); }

TEST_F(LoadLists, OfferEarthquakesToTheTorsionalAmplification) {
    // EX has no twin of the ES kind, and there are neither ES combinations nor those of both directions.
    ExpectTables({17}, {"EX 1/2*"}, true);
}

TEST_F(LoadLists, OfferEarthquakesOnceWhereTheyHaveATwin) {
    UseResults({{26, 4, "EX", ""}, {30, 1, "EC1", ""}});
    ExpectTables({17}, {"EC1 30/2*"}, true);
}

TEST_F(LoadLists, OfferEarthquakesToTheCheckOfTorsionalIrregularity) {
    UseResults({{30, 1, "EC1", ""}});
    Records<CClassLcom>().TR_Add(kNested, T_LCOM_D{.name = "EQ+", .items = {{1, 1, 1.0}, {4, kSpectrum, 1.0}}});
    ExpectTables({21}, {"RX 4/2*", "RS 4/2*", "EX 1/2*", "EC1 30/2*", "EQ+ 10/2*"}, false);
}

TEST_F(LoadLists, OfferDeadAndLiveToAxialForces) { ExpectTables({19}, {"DL 1/2*", "LL 1/2"}, true); }

TEST_F(LoadLists, OfferWindAndEarthquakesToStories) {
    ExpectTables({15}, {"WX 1/2*", "EX 1/2", "RX 4/2", "RS 4/2"}, true);
    ExpectTables({13, 16, 18, 20, 22, 23}, {"WX 1/2", "EX 1/2*", "RX 4/2*", "RS 4/2*"}, true);
    ExpectTables({24}, {"EX 1/2*", "RX 4/2*", "RS 4/2*"}, true);
}

TEST_F(LoadLists, OfferEsCombinationsAloneToDriftAnglesWhereThereAreAny) {
    ExpectTables({14}, {"WX 1/2", "EX 1/2*", "RX 4/2*", "RS 4/2*"}, true);
    UseResults({{30, 1, "EC1", ""}, {30, 2, "EC2", ""}});
    ExpectTables({14}, {"EC1 30/2*", "EC2 30/2*"}, true);
}

TEST_F(LoadLists, OfferEarthquakesAndSpectraToShears) {
    ExpectTables({29, 34, 38}, {"EX 1/2*", "RX 4/2*", "RS 4/2*"}, true);
    ExpectTables({36}, Default(kSpectra), true);
}

TEST_F(LoadLists, OfferHistories) {
    ExpectTables({30}, kHistoryLoads, false, "Time History Load Cases");
    ExpectTables({31}, kHistoryLoads, false, "Time History Load Data");
    ExpectTables({27}, kHistoryCases, false, "Time History Load Cases");
    ExpectTables({55, 56}, kHistoryCases, false);
    ExpectTables({57, 61, 62}, Default(kHistoryCases), true);
}

TEST_F(LoadLists, OfferNonlinearHistories) {
    ExpectTables({28}, kNonlinearCases, false, "Nonlinear Time History Load Cases");
    ExpectTables({32}, {"NC1(TH:all) 29/0"}, false, "Nonlinear Time History Load Data");
    ExpectTables({58, 59}, kNonlinearCases, false);
    ExpectTables({60, 63, 64, 82, 83, 84, 85, 86, 87, 88, 89, 90}, Default(kNonlinearCases), true);
}

TEST_F(LoadLists, OfferPushoverCases) {
    ExpectTables({67, 68, 70, 71}, Default(kPushover), false);
    ExpectTables({65, 66}, kPushover, false, "Pushover Load Cases");
    ExpectTables({72, 73, 74, 75, 76, 77, 78, 79, 80, 81}, Default(kPushover), false, "Pushover Load Cases");
    ExpectTables({69},
                 {"PO1(PO:all) 17/0*", "PO1(PO:max) 17/1*", "PO1(PO:min) 17/-1*", "PO2(PO:all) 17/0*",
                  "PO2(PO:max) 17/1*", "PO2(PO:min) 17/-1*"},
                 false);
}

TEST_F(LoadLists, OfferNoSeismicSpectraToSomeTables) {
    const Lines combinations = LinesBy(&LoadCaseLister::GetAllLcomWithoutInbang, false);
    ExpectTables({42}, Joined({kStatic, kSpectraWithoutSeismic, combinations}), false);
    ExpectTables({25, 26, 41}, Joined({kStatic, kEsStatic, kSpectraWithoutSeismic, kEsSpectra, combinations}), false);
}

TEST_F(LoadLists, PutTemperaturesBehindTheCasesOfMemberForces) {
    const Lines combinations = LinesBy(&LoadCaseLister::GetAllLcomWithoutInbang, false);
    ExpectTables(
        {48, 54},
        Joined(
            {kStaticWithoutTemperature, kEsStatic, kSpectra, kPt, kEsSpectra, kSettlement, {"TX 1/2"}, combinations}),
        false);
}

TEST_F(LoadLists, OfferStaticCasesToStoryLoads) {
    const Lines loads = {"DL 1/2", "LL 1/2", "WX 1/2", "EX 1/2"};
    ExpectTables({46}, loads, false, "Static Load Cases");
    for (const int tab : {60, 63, 64, 65}) {
        const LoadChoiceList list = ListOf(43, tab);
        EXPECT_THAT(LinesOf(list), ElementsAreArray(loads)) << tab;
        EXPECT_EQ(list.title, "Static Load Cases");
    }
    for (const int tab : {61, 62, 66}) {
        const LoadChoiceList list = ListOf(43, tab);
        EXPECT_EQ(LinesOf(list), LinesOf(ListOf(2))) << tab;
        EXPECT_EQ(list.title, "");
    }
}

TEST_F(LoadLists, ReplaceWhatWasThereButTheSelection) {
    LoadChoiceList list{.title = "old",
                        .useDefaults = true,
                        .names = {"old"},
                        .all = {{99, 1, 2}},
                        .selected = {{1, 1, 2}},
                        .defaults = {{99, 1, 2}}};
    Lister().GetAllLoadcaseForActiveNew(55, 71, list);
    EXPECT_THAT(LinesOf(list), ElementsAreArray(kHistoryCases));
    EXPECT_EQ(list.title, "");
    EXPECT_FALSE(list.useDefaults);
    EXPECT_THAT(list.defaults, IsEmpty());
    EXPECT_THAT(list.selected, ElementsAre(LoadChoice{1, 1, 2}));
}

// ---- single lists ----

TEST_F(LoadLists, LeaveOutStaticCasesOfHiddenTypesInEveryLanguage) {
    velda::SetCurrentLanguage(velda::Language::Korean);
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetAllStld, false), ElementsAreArray(kStatic));
    velda::SetCurrentLanguage(velda::Language::English);
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetAllStld, true), ElementsAreArray(Default(kStatic)));
}

TEST_F(LoadLists, GiveCasesOfOneTypeEvenWhereItIsHiddenButNoConstructionStages) {
    LoadChoiceList list;
    Lister().GetPartStld("EP", list);
    Lister().GetPartStld("CS", list);
    Lister().GetPartStld("NONE", list);
    EXPECT_THAT(LinesOf(list), ElementsAre("SOIL 1/2"));
}

TEST_F(LoadLists, LeaveOutCasesThatHaveATwin) {
    UseResults({{16, kSpectrum, "RX", ""}});
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetAllSplcWithoutES, false, true), ElementsAre("RS 4/2"));
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetAllSplcWithoutES, false, false), IsEmpty());
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetAllSplc, false, true), ElementsAreArray(kSpectra));
}

TEST_F(LoadLists, GiveTheGreatestOfHistoriesAlone) {
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetSingleThldMax, true), ElementsAre("EQ(TH:max) 5/1*"));
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetSingleThnlMax, false), ElementsAre("NL1(TH:max) 28/1"));
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetAllThnl, false),
                ElementsAre("NL1(TH:all) 28/0", "NL1(TH:max) 28/1", "NL1(TH:min) 28/-1"));
}

TEST_F(LoadLists, SplitCombinationsThatHaveEnvelopes) {
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetAllLcom, false),
                ElementsAre("SUM 10/2", "ENV(max) 10/1", "ENV(min) 10/-1", "SHELTER 10/2", "GIRDER 10/2",
                            "ALL(max) 10/1", "ALL(min) 10/-1"));
}

TEST_F(LoadLists, HideCombinationsOfCivilDefenceInEveryTable) {
    for (int id = 1; id <= 96; ++id) EXPECT_THAT(ListOf(id).names, Not(Contains("SHELTER"))) << id;
    EXPECT_THAT(ListOf(2).names, Not(Contains("OFF")));
    // Without a dead case of the girder there is nothing to hide.
    EXPECT_THAT(ListOf(2).names, Contains("GIRDER"));
}

TEST_F(LoadLists, GiveChosenCombinationsWithTheirWhole) {
    LoadChoiceList list;
    const std::vector<std::uint32_t> keys = {kEnvelope, kSum, kInactive, 99};
    Lister().GetPartLcom(keys, list);
    EXPECT_THAT(LinesOf(list), ElementsAre("ENV(all) 10/0", "ENV(max) 10/1", "ENV(min) 10/-1", "SUM 10/2"));
}

TEST_F(LoadLists, KnowCombinationsOfEsCasesThroughOthers) {
    Records<CClassLcom>().TR_Add({20, 21, 22, 23}, {{.name = "ES", .items = {{14, 1, 1.0}}},
                                                    {.name = "NESTED", .items = {{1, 1, 1.0}, {7, 20, 1.0}}},
                                                    {.name = "OWN", .items = {{10, 21, 1.0}}},
                                                    {.name = "RING", .items = {{8, 23, 1.0}, {20, 1, 1.0}}}});
    Records<CClassLcom>().TR_Add(24, T_LCOM_D{.name = "EMPTY RING", .items = {{8, 24, 1.0}}});
    for (const std::uint32_t key : {20u, 21u, 22u, 23u}) EXPECT_TRUE(Lister().IsExistES(key)) << key;
    for (const std::uint32_t key : {std::uint32_t{kSum}, 24u, 99u}) EXPECT_FALSE(Lister().IsExistES(key)) << key;
}

TEST_F(LoadLists, PassOverKeysWithoutACase) {
    LoadChoiceList list;
    const std::vector<std::uint32_t> keys = {99};
    Lister().GetActiveParam_ECLC(keys, list);
    Lister().GetActiveParam_STRN(keys, list);
    EXPECT_THAT(list.names, IsEmpty());
}

TEST_F(LoadLists, HaveNoCombinationsOfBothDirectionsYet) {
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetREKCombinedLcom, true), IsEmpty());
    EXPECT_THAT(LinesBy(&LoadCaseLister::GetREKCombinedLcomWithoutES, true), IsEmpty());
}

// ---- without results ----

TEST_F(LoadListModel, OfferTheCasesOfTheModelToTablesThatStandBeforeAnyAnalysis) {
    ExpectTables({46}, {"DL 1/2", "LL 1/2", "WX 1/2", "EX 1/2"}, false, "Static Load Cases");
    EXPECT_EQ(LinesOf(ListOf(43, 60)), LinesOf(ListOf(46)));
}

TEST_F(LoadListModel, OfferNothingOfResultsThatAreNotThere) {
    database = doc->GetMDBCtrl()->GetDBPost();
    for (int id = 1; id <= 96; ++id) EXPECT_THAT(ListOf(id).names, IsEmpty()) << id;
}

}  // namespace
}  // namespace zt
