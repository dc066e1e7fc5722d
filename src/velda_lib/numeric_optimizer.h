#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "velda_lib/str_parser.h"

namespace velda {

/// Number lists in the short form that users read: "1to5 8 20to40by5".
struct CNumericOptimizer {
    /// Range text of ascending numbers. Three or more neighbours, or four or more with one larger step, become a range.
    static std::string OptimizeSortedArray(const std::vector<std::uint32_t>& sorted);
    /// The inverse: the numbers of a range text, ascending. A bad token leaves `numbers` alone.
    static NumberListResult SelectNumByStr(std::string_view text, std::vector<std::uint32_t>& numbers);
};

}  // namespace velda
