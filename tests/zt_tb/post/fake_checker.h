#pragma once

#include "zt_db/doc/checker_ctrl.h"
#include "zt_db/records/load_case_kind.h"

namespace zt {

/// A checker that found an object, node 2 at first, and the wind on story 7.
class FakeChecker final : public CCheckerCtrl {
public:
    bool ExistFilteredKey4Table(std::uint32_t key) const override { return key == object; }
    int GetCurrentTracerKey2() const override { return 1; }
    int GetCurrentSelectedCheckType() const override { return check; }
    std::vector<TracedResult> GetCheckingResult() const override { return findings; }

    std::uint32_t object = 2;
    int check = 73;
    std::vector<TracedResult> findings = {{7, 3, LoadCaseKind::Static}};
};

}  // namespace zt
