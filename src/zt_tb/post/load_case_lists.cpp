#include "zt_tb/post/load_case_lists.h"

#include <algorithm>
#include <array>

#include "velda_lib/key_text.h"
#include "zt_db/post/product.h"
#include "zt_tb/post/result_catalogue.h"

namespace zt {

using velda::KeyText;

namespace {

using Keys = std::vector<std::uint32_t>;
using KeySpan = std::span<const std::uint32_t>;

bool ShowsTransferGirders() { return CProduct::IsSwitchedOn("TransferLcom"); }

void Add(std::uint32_t key, int kind, int subKind, std::string name, LoadChoiceList& list, bool isDefault) {
    const LoadChoice choice{key, static_cast<std::uint32_t>(kind), static_cast<std::int16_t>(subKind)};
    list.names.push_back(std::move(name));
    list.all.push_back(choice);
    if (isDefault) list.defaults.push_back(choice);
}

/// Cases without envelopes, by the names of their class.
template <class Class>
void AddSingles(const Class& cases, int kind, KeySpan keys, LoadChoiceList& list, bool isDefault,
                std::string_view suffix = {}) {
    for (const std::uint32_t key : keys) {
        Add(key, kind, LoadCaseSubKind::Single, cases.GetDisplayName(key).append(suffix), list, isDefault);
    }
}

/// What of a case with envelopes an entry means, and the text key behind its name.
struct Part {
    int subKind;
    std::string_view suffixKey;
};
using Parts = std::span<const Part>;

constexpr Part kPtParts[] = {{LoadCaseSubKind::All, "IDS_TB_POSTVIEW__all_"},
                             {LoadCaseSubKind::Max, "IDS_TB_POSTVIEW__max_"},
                             {LoadCaseSubKind::Min, "IDS_TB_POSTVIEW__min_"}};
constexpr Part kSettlementParts[] = {{LoadCaseSubKind::All, "IDS_TB_POSTVIEW__SM_all_"},
                                     {LoadCaseSubKind::Max, "IDS_TB_POSTVIEW__SM_max_"},
                                     {LoadCaseSubKind::Min, "IDS_TB_POSTVIEW__SM_min_"}};
constexpr Part kPushoverParts[] = {{LoadCaseSubKind::All, "IDS_TB_RESULTVIEW__PO_all_"},
                                   {LoadCaseSubKind::Max, "IDS_TB_RESULTVIEW__PO_max_"},
                                   {LoadCaseSubKind::Min, "IDS_TB_RESULTVIEW__PO_min_"}};
constexpr Part kHistoryAll = {LoadCaseSubKind::All, "IDS_TB_RESULTVIEW__TH_all_"};
constexpr Part kHistoryMax = {LoadCaseSubKind::Max, "IDS_TB_RESULTVIEW__TH_max_"};
constexpr Part kHistoryMin = {LoadCaseSubKind::Min, "IDS_TB_RESULTVIEW__TH_min_"};
constexpr Part kHistoryCaseParts[] = {kHistoryMax, kHistoryMin, kHistoryAll};
constexpr Part kHistoryLoadParts[] = {kHistoryAll, kHistoryMax, kHistoryMin};

/// The parts of each case of a class. `opening` stands between the name and the text of the part.
template <class Class>
void AddParts(const Class& cases, int kind, Parts parts, LoadChoiceList& list, bool isDefault,
              std::string_view opening = {}) {
    Keys keys;
    std::vector<std::string> names;
    cases.GetList(keys, names);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        for (const Part& part : parts) {
            const std::string before = names[i] + std::string(opening);
            Add(keys[i], kind, part.subKind, before + KeyText(part.suffixKey), list, isDefault);
        }
    }
}

// ---- what is left out ----

/// Types of static cases that no result table shows, by the text keys of their codes.
constexpr std::string_view kConstructionStage = "IDS_TB_POSTVIEW_CS";
constexpr std::string_view kHiddenTypes[] = {
    kConstructionStage,
    "IDS_TB_POSTVIEW_STLD_TYPE_EP",
    "IDS_TB_POSTVIEW_STLD_TYPE_WP",
    "IDS_TB_POSTVIEW_STLD_TYPE_GWU",
    "IDS_TB_POSTVIEW_STLD_TYPE_GWE",
    "IDS_TB_POSTVIEW_STLD_TYPE_NWU",
    "IDS_TB_POSTVIEW_STLD_TYPE_NWL",
    "IDS_TB_POSTVIEW_STLD_TYPE_NWE",
    "IDS_TB_POSTVIEW_STLD_TYPE_WDL",
    "IDS_TB_POSTVIEW_STLD_TYPE_WWL",
    "IDS_TB_POSTVIEW_STLD_TYPE_NDL",
    "IDS_TB_POSTVIEW_STLD_TYPE_NWN",
};

bool IsHiddenCase(const CClassPStld& cases, std::uint32_t key, const T_PSTLD_D& record) {
    const bool isOfGirder = key == cases.GetDeadCaseKey4TG() || key == cases.GetLiveCaseKey4TG();
    return (isOfGirder && !ShowsTransferGirders()) ||
           std::any_of(std::begin(kHiddenTypes), std::end(kHiddenTypes),
                       [&](std::string_view typeKey) { return record.type == KeyText(typeKey); });
}

/// Combinations of civil defence, and those of transfer girders where these are not asked for.
bool IsInternal(const CPostDataBase& database, const T_PLCOM_D& combination) {
    if (combination.type == LoadCombinationType::CivilDefence) return true;
    if (combination.type != LoadCombinationType::TransferGirder || ShowsTransferGirders()) return false;
    const std::uint32_t dead = CClassPStld(&database).GetDeadCaseKey4TG();
    return dead != 0 &&
           std::any_of(combination.items.begin(), combination.items.end(), [dead](const T_LCOM_ITEM& item) {
               return item.kind == LoadCaseKind::Static && item.key == dead;
           });
}

// ---- combinations ----

/// A combination that is active; with envelopes its greatest and its least, and its whole where that is asked for.
void AddCombination(const CPostDataBase& database, std::uint32_t key, bool withWhole, LoadChoiceList& list,
                    bool isDefault) {
    const CClassPLcom combinations(&database);
    T_PLCOM_D combination;
    if (!combinations.Get(key, combination) || !combination.active) return;
    if (!combinations.IsMaxMinComb(combination)) {
        Add(key, LoadCaseKind::Combination, LoadCaseSubKind::Single, combination.name, list, isDefault);
        return;
    }
    for (const Part& part : Parts(kPtParts).subspan(withWhole ? 0 : 1)) {
        Add(key, LoadCaseKind::Combination, part.subKind, combination.name + "(" + KeyText(part.suffixKey), list,
            isDefault);
    }
}

bool UsesCombinations(const CPostDataBase& database) {
    T_LCCT_D control;
    CClassLcct(&database).Get(control);
    return control.useCombinations != 0;
}

// Kinds that items of combinations name for other combinations and for cases of the ES kind. Combinations that the
// design makes have numbers of their own for them, which stand first.
constexpr int kNestedKinds[] = {7, 8, LoadCaseKind::Combination};
constexpr int kEsKinds[] = {14, 20, LoadCaseKind::EsSpectrum, LoadCaseKind::EsStatic, LoadCaseKind::EsCombination};

bool IsOneOf(int kind, std::span<const int> kinds) {
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

/// `visited` are the combinations that were looked at, since references by other numbers may run in a ring.
bool HoldsEs(const CClassPLcom& combinations, std::uint32_t key, Keys& visited) {
    T_PLCOM_D combination;
    if (std::find(visited.begin(), visited.end(), key) != visited.end() || !combinations.Get(key, combination)) {
        return false;
    }
    visited.push_back(key);
    return std::any_of(combination.items.begin(), combination.items.end(), [&](const T_LCOM_ITEM& item) {
        return IsOneOf(item.kind, kEsKinds) ||
               (IsOneOf(item.kind, kNestedKinds) && HoldsEs(combinations, item.key, visited));
    });
}

// ---- the tables ----

using Lister = LoadCaseLister;
using List = LoadChoiceList;

void FullList(const Lister& lister, List& list) {
    lister.GetAllStld(list);
    lister.GetAllEsst(list);
    lister.GetAllSplc(list);
    lister.GetAllPtlc(list);
    lister.GetAllEspc(list);
    lister.GetAllSmlc(list);
}

void FullListAndCombinations(const Lister& lister, List& list) {
    FullList(lister, list);
    lister.GetAllLcomWithoutInbang(list);
}

void TorsionalAmplification(const Lister& lister, List& list) {
    lister.GetAllSeisWithoutES(list, true);
    lister.GetESCombinedLcom(list, true);
    lister.GetREKCombinedLcom(list, true);
}

void DeadAndLive(const Lister& lister, List& list) {
    lister.GetPartStld(LoadCaseType::Dead, list, true);
    lister.GetPartStld(LoadCaseType::Live, list);
}

void EarthquakeAndSpectra(const Lister& lister, List& list) {
    lister.GetPartStld(LoadCaseType::Earthquake, list, true);
    lister.GetAllSplc(list, true);
}

void WithoutSeismicSpectra(const Lister& lister, List& list) {
    lister.GetAllStld(list);
    lister.GetAllSplc(list, false, false);
    lister.GetAllLcomWithoutInbang(list);
}

void StaticAndSpectra(const Lister& lister, List& list) {
    lister.GetAllStld(list);
    lister.GetAllEsst(list);
    lister.GetAllSplc(list, false, false);
    lister.GetAllEspc(list);
    lister.GetAllLcomWithoutInbang(list);
}

void StoryLoads(const Lister& lister, List& list) {
    for (const std::string_view type :
         {LoadCaseType::Dead, LoadCaseType::Live, LoadCaseType::Wind, LoadCaseType::Earthquake}) {
        lister.GetPartStld(type, list);
    }
}

/// Temperature cases stand behind all other cases.
void MemberForces(const Lister& lister, List& list) {
    lister.GetAllStldWithoutSType(LoadCaseType::Temperature, list);
    lister.GetAllEsst(list);
    lister.GetAllSplc(list);
    lister.GetAllPtlc(list);
    lister.GetAllEspc(list);
    lister.GetAllSmlc(list);
    lister.GetPartStld(LoadCaseType::Temperature, list);
    lister.GetAllLcomWithoutInbang(list);
}

/// Which cases a table offers.
struct LoadRule {
    std::array<IdRange, 6> ids;
    void (*fill)(const Lister& lister, List& list);
    bool useDefaults = false;
    std::string_view titleKey{};  ///< empty for the usual title
};

constexpr std::string_view kHistoryCases = "IDS_TB_RESULTVIEW_TimeHistory_Load_Cases";
constexpr std::string_view kHistoryData = "IDS_TB_RESULTVIEW_TimeHistory_Load_Datas";
constexpr std::string_view kNonlinearCases = "IDS_TB_RESULTVIEW_THNL_Load_Cases";
constexpr std::string_view kNonlinearData = "IDS_TB_RESULTVIEW_THNL_Load_Datas";
constexpr std::string_view kPushoverCases = "IDS_TB_RESULTVIEW_PSOV_Load_Cases";
constexpr std::string_view kStaticCases = "IDS_TB_RESULTVIEW_Static_Load_Cases";

constexpr LoadRule kRules[] = {
    {{{{17, 17}}}, &TorsionalAmplification, true},
    {{{{21, 21}}}, [](const Lister& lister, List& list) { lister.GetLoadcase4StTIC(list); }},
    {{{{19, 19}}}, &DeadAndLive, true},
    {{{{15, 15}}}, [](const Lister& lister, List& list) { lister.GetWindSeis(list, {.wind = true}); }, true},
    {{{{24, 24}}},
     [](const Lister& lister, List& list) {
         lister.GetWindSeis(list, {.offersWind = false, .seismic = true, .spectra = true});
     },
     true},
    {{{{13, 13}, {16, 16}, {18, 18}, {20, 20}, {22, 23}}},
     [](const Lister& lister, List& list) { lister.GetWindSeis(list, {.seismic = true, .spectra = true}); },
     true},
    {{{{14, 14}}}, [](const Lister& lister, List& list) { lister.GetDrftAng(list); }, true},
    {{{{34, 34}, {29, 29}, {38, 38}}}, &EarthquakeAndSpectra, true},
    {{{{36, 36}}}, [](const Lister& lister, List& list) { lister.GetAllSplc(list, true); }, true},
    {{{{30, 30}}}, [](const Lister& lister, List& list) { lister.GetAllThld(list); }, false, kHistoryCases},
    {{{{31, 31}}}, [](const Lister& lister, List& list) { lister.GetAllThld(list); }, false, kHistoryData},
    {{{{27, 27}}}, [](const Lister& lister, List& list) { lister.GetAllThlc(list); }, false, kHistoryCases},
    {{{{28, 28}}}, [](const Lister& lister, List& list) { lister.GetAllThnc(list); }, false, kNonlinearCases},
    {{{{32, 32}}},
     [](const Lister& lister, List& list) { lister.GetAllThnc(list, false, true); },
     false,
     kNonlinearData},
    {{{{57, 57}, {61, 62}}}, [](const Lister& lister, List& list) { lister.GetAllThlc(list, true); }, true},
    {{{{60, 60}, {63, 64}, {82, 90}}}, [](const Lister& lister, List& list) { lister.GetAllThnc(list, true); }, true},
    {{{{69, 69}}}, [](const Lister& lister, List& list) { lister.GetMinMaxAllPolc(list, true); }},
    {{{{67, 68}, {70, 71}}}, [](const Lister& lister, List& list) { lister.GetAllPolc(list, true); }},
    {{{{42, 42}}}, &WithoutSeismicSpectra},
    {{{{25, 26}, {41, 41}}}, &StaticAndSpectra},
    {{{{46, 46}}}, &StoryLoads, false, kStaticCases},
    {{{{7, 9}, {11, 12}}}, &FullList},
    {{{{48, 48}, {54, 54}}}, &MemberForces},
    {{{{55, 56}}}, [](const Lister& lister, List& list) { lister.GetAllThlc(list); }},
    {{{{58, 59}}}, [](const Lister& lister, List& list) { lister.GetAllThnc(list); }},
    {{{{65, 66}}}, [](const Lister& lister, List& list) { lister.GetAllPolc(list); }, false, kPushoverCases},
    {{{{72, 81}}}, [](const Lister& lister, List& list) { lister.GetAllPolc(list, true); }, false, kPushoverCases},
};
constexpr LoadRule kOtherTables = {{}, &FullListAndCombinations};

const LoadRule& RuleOf(int id, int tab) {
    constexpr int kStoryQuery = 43;
    constexpr int kStoryLoad = 46;
    const int ruling = id == kStoryQuery && ShowsStoryLoads(tab) ? kStoryLoad : id;
    const auto* found = std::find_if(std::begin(kRules), std::end(kRules),
                                     [&](const LoadRule& rule) { return Contains(rule.ids, ruling); });
    return found == std::end(kRules) ? kOtherTables : *found;
}

}  // namespace

void LoadCaseLister::GetAllLoadcaseForActiveNew(int id, int tab, LoadChoiceList& list) const {
    const LoadRule& rule = RuleOf(id, tab);
    list = {.title = rule.titleKey.empty() ? std::string{} : KeyText(rule.titleKey),
            .useDefaults = rule.useDefaults,
            .selected = std::move(list.selected)};
    rule.fill(*this, list);
}

// ---- static cases ----

void LoadCaseLister::GetAllStld(LoadChoiceList& list, bool isDefault) const {
    GetAllStldWithoutSType({}, list, isDefault);
}

void LoadCaseLister::GetAllStldWithoutSType(std::string_view type, LoadChoiceList& list, bool isDefault) const {
    const CClassPStld cases(&database_);
    Keys keys;
    cases.GetKeyList(keys, 1, 1);
    std::erase_if(keys, [&](std::uint32_t key) {
        T_PSTLD_D record;
        return !cases.Get(key, record) || (!type.empty() && record.type == type) || IsHiddenCase(cases, key, record);
    });
    GetActiveParam_ST(keys, list, isDefault);
}

void LoadCaseLister::GetPartStld(std::string_view type, LoadChoiceList& list, bool isDefault) const {
    if (type != KeyText(kConstructionStage)) {
        GetActiveParam_ST(CClassPStld(&database_).KeysOfType(type), list, isDefault);
    }
}

void LoadCaseLister::GetAllSeisWithoutES(LoadChoiceList& list, bool isDefault) const {
    Keys keys;
    CClassPStld(&database_).GetKeyList(keys, 0, 1);
    std::erase_if(keys, [this](std::uint32_t key) { return CClassPEsst(&database_).Exist(key) != 0; });
    GetActiveParam_ST(keys, list, isDefault);
}

void LoadCaseLister::GetAllEsst(LoadChoiceList& list, bool isDefault) const {
    const CClassPEsst cases(&database_);
    AddSingles(cases, LoadCaseKind::EsStatic, cases.Keys(), list, isDefault, "(ELS)");
}

// ---- spectrum cases ----

Keys LoadCaseLister::SpectrumCases(bool withSeismic) const {
    const CClassPSplc cases(&database_);
    Keys keys = cases.Keys();
    std::erase_if(keys, [&](std::uint32_t key) {
        T_PSPLC_D record;
        return !withSeismic && cases.Get(key, record) && record.type == T_PSPLC_D::kSeismicOnly;
    });
    return keys;
}

void LoadCaseLister::GetAllSplc(LoadChoiceList& list, bool isDefault, bool withSeismic) const {
    GetActiveParam_RS(SpectrumCases(withSeismic), list, isDefault);
}

void LoadCaseLister::GetAllSplcWithoutES(LoadChoiceList& list, bool isDefault, bool withSeismic) const {
    Keys keys = SpectrumCases(withSeismic);
    std::erase_if(keys, [this](std::uint32_t key) { return CClassPEspc(&database_).Exist(key) != 0; });
    GetActiveParam_RS(keys, list, isDefault);
}

void LoadCaseLister::GetAllEspc(LoadChoiceList& list, bool isDefault) const {
    const CClassPEspc cases(&database_);
    AddSingles(cases, LoadCaseKind::EsSpectrum, cases.Keys(), list, isDefault);
}

// ---- cases with envelopes ----

void LoadCaseLister::GetAllPtlc(LoadChoiceList& list, bool isDefault) const {
    AddParts(CClassPPtlc(&database_), LoadCaseKind::Pt, kPtParts, list, isDefault, KeyText("IDS_TB_POSTVIEW__PTLC_PT"));
}

void LoadCaseLister::GetAllSmlc(LoadChoiceList& list, bool isDefault) const {
    AddParts(CClassPSmlc(&database_), LoadCaseKind::Settlement, kSettlementParts, list, isDefault);
}

void LoadCaseLister::GetAllThlc(LoadChoiceList& list, bool isDefault) const {
    AddParts(CClassPThlc(&database_), LoadCaseKind::TimeHistory, kHistoryCaseParts, list, isDefault);
}

void LoadCaseLister::GetAllThld(LoadChoiceList& list, bool isDefault) const {
    AddParts(CClassPThld(&database_), LoadCaseKind::TimeHistory, kHistoryLoadParts, list, isDefault);
}

void LoadCaseLister::GetAllThnl(LoadChoiceList& list, bool isDefault) const {
    AddParts(CClassPThnl(&database_), LoadCaseKind::NonlinearLoad, kHistoryLoadParts, list, isDefault);
}

void LoadCaseLister::GetAllThnc(LoadChoiceList& list, bool isDefault, bool dataOnly) const {
    const Parts parts = dataOnly ? Parts(&kHistoryAll, 1) : Parts(kHistoryCaseParts);
    AddParts(CClassPThnc(&database_), LoadCaseKind::NonlinearCase, parts, list, isDefault);
}

void LoadCaseLister::GetSingleThldMax(LoadChoiceList& list, bool isDefault) const {
    AddParts(CClassPThld(&database_), LoadCaseKind::TimeHistory, {&kHistoryMax, 1}, list, isDefault);
}

void LoadCaseLister::GetSingleThnlMax(LoadChoiceList& list, bool isDefault) const {
    AddParts(CClassPThnl(&database_), LoadCaseKind::NonlinearLoad, {&kHistoryMax, 1}, list, isDefault);
}

void LoadCaseLister::GetAllPolc(LoadChoiceList& list, bool isDefault) const {
    const CClassPPolc cases(&database_);
    for (const std::uint32_t key : cases.Keys()) {
        Add(key, LoadCaseKind::Pushover, LoadCaseSubKind::All, cases.GetDisplayName(key), list, isDefault);
    }
}

void LoadCaseLister::GetMinMaxAllPolc(LoadChoiceList& list, bool isDefault) const {
    AddParts(CClassPPolc(&database_), LoadCaseKind::Pushover, kPushoverParts, list, isDefault);
}

// ---- combinations ----

void LoadCaseLister::GetAllLcom(LoadChoiceList& list, bool isDefault) const {
    if (!UsesCombinations(database_)) return;
    for (const std::uint32_t key : CClassPLcom(&database_).Keys())
        AddCombination(database_, key, false, list, isDefault);
}

void LoadCaseLister::GetAllLcomWithoutInbang(LoadChoiceList& list, bool isDefault) const {
    if (!UsesCombinations(database_)) return;
    const CClassPLcom combinations(&database_);
    for (const std::uint32_t key : combinations.Keys()) {
        T_PLCOM_D combination;
        if (!combinations.Get(key, combination) || IsInternal(database_, combination)) continue;
        AddCombination(database_, key, false, list, isDefault);
    }
}

void LoadCaseLister::GetPartLcom(KeySpan keys, LoadChoiceList& list, bool isDefault) const {
    if (!UsesCombinations(database_)) return;
    for (const std::uint32_t key : keys) AddCombination(database_, key, true, list, isDefault);
}

void LoadCaseLister::GetESCombinedLcom(LoadChoiceList& list, bool isDefault) const {
    GetActiveParam_ECLC(CClassPEclc(&database_).Keys(), list, isDefault);
}

void LoadCaseLister::GetREKCombinedLcom(LoadChoiceList& list, bool isDefault) const { AddRek(list, isDefault, true); }

void LoadCaseLister::GetREKCombinedLcomWithoutES(LoadChoiceList& list, bool isDefault) const {
    AddRek(list, isDefault, false);
}

void LoadCaseLister::AddRek(LoadChoiceList& list, bool isDefault, bool withEs) const {
    Keys keys;
    std::vector<std::string> names;
    CClassPLcom(&database_).GetREKCombinedList(keys, names);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!withEs && IsExistES(keys[i])) continue;
        Add(keys[i], LoadCaseKind::Combination, LoadCaseSubKind::Single, names[i], list, isDefault);
    }
}

bool LoadCaseLister::IsExistES(std::uint32_t key) const {
    Keys visited;
    return HoldsEs(CClassPLcom(&database_), key, visited);
}

// ---- cases by their keys ----

void LoadCaseLister::GetActiveParam_ST(KeySpan keys, LoadChoiceList& list, bool isDefault) const {
    AddSingles(CClassPStld(&database_), LoadCaseKind::Static, keys, list, isDefault);
}

void LoadCaseLister::GetActiveParam_RS(KeySpan keys, LoadChoiceList& list, bool isDefault) const {
    AddSingles(CClassPSplc(&database_), LoadCaseKind::Spectrum, keys, list, isDefault);
}

void LoadCaseLister::GetActiveParam_ECLC(KeySpan keys, LoadChoiceList& list, bool isDefault) const {
    for (const std::uint32_t key : keys) {
        T_PLCOM_D combination;
        if (!control_.MakeLoadComb(LoadCaseKind::EsCombination, key, combination)) continue;
        Add(key, LoadCaseKind::EsCombination, LoadCaseSubKind::Single, combination.name, list, isDefault);
    }
}

void LoadCaseLister::GetActiveParam_STRN(KeySpan keys, LoadChoiceList& list, bool isDefault) const {
    for (const std::uint32_t key : keys) {
        T_PLCOM_D combination;
        if (!CClassPLcom(&database_).Get(key, combination)) continue;
        Add(key, LoadCaseKind::Combination, LoadCaseSubKind::Single, combination.name, list, isDefault);
    }
}

// ---- what tables of stories offer ----

void LoadCaseLister::GetLoadcase4StTIC(LoadChoiceList& list) const {
    Keys spectra;
    Keys seismic;
    Keys esCombinations;
    Keys combinations;
    CStoryResultPost(control_).GetLoadCaseKeyList4StTIC(spectra, seismic, esCombinations, combinations);
    GetActiveParam_RS(spectra, list, true);
    GetActiveParam_ST(seismic, list, true);
    GetActiveParam_ECLC(esCombinations, list, true);
    GetActiveParam_STRN(combinations, list, true);
}

void LoadCaseLister::GetWindSeis(LoadChoiceList& list, WindSeisDefaults defaults) const {
    Keys wind;
    Keys seismic;
    Keys spectra;
    CStoryResultPost(control_).GetLoadCaseKeyList4WindSeis(wind, seismic, spectra);
    if (defaults.offersWind) GetActiveParam_ST(wind, list, defaults.wind);
    GetActiveParam_ST(seismic, list, defaults.seismic);
    GetActiveParam_RS(spectra, list, defaults.spectra);
}

void LoadCaseLister::GetDrftAng(LoadChoiceList& list) const {
    const CStoryResultPost stories(control_);
    Keys wind;
    Keys seismic;
    Keys spectra;
    if (stories.ExistPEclcLoadCase()) {
        stories.GetLoadCaseKeyList4ECLC(seismic);
        GetActiveParam_ECLC(seismic, list, true);
        return;
    }
    stories.GetLoadCaseKeyList4DrftAng(wind, seismic, spectra);
    GetActiveParam_ST(wind, list);
    GetActiveParam_ST(seismic, list, true);
    GetActiveParam_RS(spectra, list, true);
}

}  // namespace zt
