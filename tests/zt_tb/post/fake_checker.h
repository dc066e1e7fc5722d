#pragma once

#include "zt_db/doc/checker_ctrl.h"
#include "zt_db/records/load_case_kind.h"

namespace zt {

/// A checker that found node 2 and the wind, static case 3, on story 7, unless it is told otherwise.
class FakeChecker final : public CCheckerCtrl {
public:
    bool ExistFilteredKey4Table(std::uint32_t key) const override { return key == found; }
    int GetCurrentTracerKey2() const override { return key2; }
    int GetCurrentSelectedCheckType() const override { return check; }
    std::vector<TracedResult> GetCheckingResult() const override { return findings; }

    std::vector<TracedResult> findings = {{7, 3, LoadCaseKind::Static}};
    std::uint32_t found = 2;
    int key2 = 1;
    int check = 73;
};

}  // namespace zt
