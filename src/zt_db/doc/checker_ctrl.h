#pragma once

#include <cstdint>
#include <vector>

namespace zt {

/// What tables ask the model checker while a finding of it is traced. The checker stands above and is given to the
/// document.
class CCheckerCtrl {
public:
    /// The load case of a finding in results, and the story; 0 where a finding names none.
    struct TracedResult {
        std::uint32_t story = 0;
        std::uint32_t loadKey = 0;
        std::uint32_t loadKind = 0;
    };

    virtual ~CCheckerCtrl() = default;
    /// Whether tables that narrow themselves to the findings show an object, by its number.
    virtual bool ExistFilteredKey4Table(std::uint32_t key) const = 0;
    /// The second number that the traced finding is known by.
    virtual int GetCurrentTracerKey2() const = 0;
    /// The check whose findings are shown.
    virtual int GetCurrentSelectedCheckType() const = 0;
    /// What the findings of the shown check say of results.
    virtual std::vector<TracedResult> GetCheckingResult() const = 0;
};

/// The table that narrows itself to the objects that were found.
inline constexpr int kFilteredResultTable = 33789;

}  // namespace zt
