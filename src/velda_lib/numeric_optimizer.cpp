#include "velda_lib/numeric_optimizer.h"

#include <algorithm>

#include "velda_lib/number_text.h"

namespace velda {
namespace {

/// Number of entries from `at` on that follow each other with the step of the first two.
std::size_t RunLength(const std::vector<std::uint32_t>& numbers, std::size_t at) {
    if (at + 1 >= numbers.size() || numbers[at + 1] <= numbers[at]) return 1;
    const std::uint32_t step = numbers[at + 1] - numbers[at];
    std::size_t end = at + 2;
    while (end < numbers.size() && numbers[end] > numbers[end - 1] && numbers[end] - numbers[end - 1] == step) ++end;
    return end - at;
}

}  // namespace

std::string CNumericOptimizer::OptimizeSortedArray(const std::vector<std::uint32_t>& sorted) {
    std::string text;
    for (std::size_t at = 0; at < sorted.size();) {
        const std::size_t run = RunLength(sorted, at);
        const std::uint32_t step = run > 1 ? sorted[at + 1] - sorted[at] : 1;
        const bool isRange = run >= (step == 1 ? 3u : 4u);
        if (!text.empty()) text += ' ';
        text += FormatLong(sorted[at]);
        if (isRange) text += "to" + FormatLong(sorted[at + run - 1]);
        if (isRange && step > 1) text += "by" + FormatLong(step);
        at += isRange ? run : 1;
    }
    return text;
}

NumberListResult CNumericOptimizer::SelectNumByStr(std::string_view text, std::vector<std::uint32_t>& numbers) {
    NumberListResult result = CStrParser::GetNodeList(text, numbers);
    if (result) std::sort(numbers.begin(), numbers.end());
    return result;
}

}  // namespace velda
