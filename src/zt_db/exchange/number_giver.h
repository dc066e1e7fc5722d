#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace zt {

/// Gives records the numbers that users know them by: the number at the end of a name where it is free, otherwise the
/// next one above all others.
class NumberGiver {
public:
    /// A number that a model has already.
    void Take(std::uint32_t number);
    /// Numbers for names, in their order. Names that are numbers come first.
    std::vector<std::uint32_t> NumbersOf(const std::vector<std::string_view>& names);

private:
    std::uint32_t Give(std::uint32_t wanted);

    std::unordered_set<std::uint32_t> taken_;
    std::uint32_t last_ = 0;
};

}  // namespace zt
