#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace zt {

/// Counts what of the program is used, for as long as it runs.
class IUsageCounter {
public:
    static IUsageCounter& Current() {
        static IUsageCounter counter;
        return counter;
    }
    void Use(std::string_view key, int times) { counts_[std::string(key)] += times; }
    /// 0 for what was never used.
    int CountOf(std::string_view key) const {
        const auto found = counts_.find(key);
        return found == counts_.end() ? 0 : found->second;
    }

private:
    std::map<std::string, int, std::less<>> counts_;
};

}  // namespace zt
