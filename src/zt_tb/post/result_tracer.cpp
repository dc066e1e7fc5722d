#include "zt_tb/post/result_tracer.h"

#include <algorithm>

#include "zt_tb/post/id_range.h"

namespace zt {
namespace {

/// Checks whose findings name their load cases, that are about all, about none, and about spectra of the ES kind.
constexpr IdRange kByFinding[] = {{71, 71}, {73, 73}, {93, 98}, {100, 100}, {103, 103}};
constexpr int kAllLoads = 108;
constexpr int kNoLoad = 99;
constexpr int kEsSpectra = 116;

bool IsLoadOf(const CCheckerCtrl::TracedResult& result, const LoadChoice& load) {
    return result.loadKey == load.key && result.loadKind == load.kind;
}

}  // namespace

const CCheckerCtrl* TracingChecker() {
    CDBDoc* doc = CDBDoc::m_pDBDoc;
    return doc && doc->IsTracerMode() ? doc->GetChekCtrl() : nullptr;
}

void DropUntraced(std::vector<std::uint32_t>& numbers) {
    const CCheckerCtrl* checker = TracingChecker();
    if (!checker) return;
    std::erase_if(numbers, [checker](std::uint32_t number) { return !checker->ExistFilteredKey4Table(number); });
}

bool IsTraced(int checkMode, std::uint32_t story, const LoadChoice& load) {
    const CCheckerCtrl* checker = TracingChecker();
    if (!checker || CDBDoc::m_pDBDoc->GetCheckMode() != checkMode) return false;
    const std::vector<CCheckerCtrl::TracedResult> results = checker->GetCheckingResult();
    return std::any_of(results.begin(), results.end(),
                       [&](const auto& result) { return result.story == story && IsLoadOf(result, load); });
}

std::optional<std::vector<LoadChoice>> TracedLoads(const std::vector<LoadChoice>& offered) {
    const CCheckerCtrl* checker = TracingChecker();
    if (!checker) return std::nullopt;
    const int check = checker->GetCurrentSelectedCheckType();
    if (check == kAllLoads) return offered;
    std::vector<LoadChoice> traced;
    if (check == kNoLoad) return traced;
    if (check != kEsSpectra && !Contains(kByFinding, check)) return std::nullopt;
    const std::vector<CCheckerCtrl::TracedResult> results = checker->GetCheckingResult();
    for (const LoadChoice& load : offered) {
        const bool isFound =
            std::any_of(results.begin(), results.end(), [&](const auto& result) { return IsLoadOf(result, load); });
        if (check == kEsSpectra ? load.kind == LoadCaseKind::EsSpectrum : isFound) traced.push_back(load);
    }
    return traced;
}

}  // namespace zt
