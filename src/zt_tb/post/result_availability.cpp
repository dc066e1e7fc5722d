#include "zt_tb/post/result_availability.h"

#include <algorithm>

#include "zt_db/post/post_classes.h"
#include "zt_tb/post/result_sources.h"

namespace zt {
namespace {

/// What of the results a table needs.
enum class Needs : std::uint8_t { Cases, Histories, Nonlinear, Pushover, Spectra, Modes, Links };

struct Need {
    Needs needs;
    IdRange ids;
};
constexpr Need kNeeds[] = {
    {Needs::Links, {9, 9}},       {Needs::Modes, {10, 10}},     {Needs::Histories, {27, 27}},
    {Needs::Nonlinear, {28, 28}}, {Needs::Histories, {30, 31}}, {Needs::Nonlinear, {32, 32}},
    {Needs::Spectra, {36, 36}},   {Needs::Histories, {55, 57}}, {Needs::Nonlinear, {58, 60}},
    {Needs::Histories, {61, 62}}, {Needs::Nonlinear, {63, 64}}, {Needs::Pushover, {65, 81}},
    {Needs::Nonlinear, {82, 90}},
};

Needs NeedsOf(int id) {
    const auto found =
        std::find_if(std::begin(kNeeds), std::end(kNeeds), [id](const Need& need) { return need.ids.Holds(id); });
    return found == std::end(kNeeds) ? Needs::Cases : found->needs;
}

bool HasCases(const CPostDataBase& results, std::initializer_list<int> kinds) {
    const auto& cases = results.Results()->Cases();
    return std::any_of(cases.begin(), cases.end(), [&](const ResultCase& one) {
        return std::find(kinds.begin(), kinds.end(), one.kind) != kinds.end();
    });
}

bool Has(Needs needs, const CPostDataBase& results) {
    switch (needs) {
        case Needs::Histories: return HasCases(results, {LoadCaseKind::TimeHistory});
        case Needs::Nonlinear: return HasCases(results, {LoadCaseKind::NonlinearLoad, LoadCaseKind::NonlinearCase});
        case Needs::Pushover: return HasCases(results, {LoadCaseKind::Pushover});
        case Needs::Spectra: return HasCases(results, {LoadCaseKind::Spectrum, LoadCaseKind::EsSpectrum});
        case Needs::Modes: return CClassPEigv(&results).GetNumEigv() > 0;
        case Needs::Links: return !results.Links().empty();
        default: return !results.Results()->Cases().empty();
    }
}

bool HasSource(const ResultTableEntry& table) {
    const std::vector<int> tabs = TabsOf(table);
    return std::any_of(tabs.begin(), tabs.end(),
                       [](int tab) { return HasResultSource(FindResultTab(tab)->className); });
}

}  // namespace

std::string_view WhyNothingToShow(const ResultTableEntry& table, const CPostDataBase& results) {
    if (!HasSource(table)) return "IDS_TB_RESULTS_NO_TABLE_YET";
    if (IsModelTable(table.id)) return {};
    if (!results.Results()) return "IDS_TB_RESULTS_NOT_ANALYSED";
    return Has(NeedsOf(table.id), results) ? std::string_view() : "IDS_TB_RESULTS_NO_SUCH_CASES";
}

}  // namespace zt
