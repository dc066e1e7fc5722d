#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velda {

/// What is wrong with a token of a number list.
enum class NumberListFault {
    None,
    NotANumber,  ///< neither a number from 1 up nor a range of such numbers
    Backwards,   ///< a range whose last number lies below its first
    ZeroStep,    ///< a range with a step of 0
    TooMany,     ///< the list names more than CStrParser::kMaxNumbers numbers, repeated ones included
};

/// Result of reading a number list: true, or the first token that could not be read and why.
struct NumberListResult {
    NumberListFault fault = NumberListFault::None;
    std::string badToken;
    explicit operator bool() const { return fault == NumberListFault::None; }
};

/// Readers of texts that users type.
struct CStrParser {
    static constexpr std::size_t kMaxNumbers = 10'000'000;

    /// Reads numbers and ranges, separated by blanks or commas: "1 3to7 10-12 20to40by5".
    /// Each number comes once, in the order of its first appearance. A bad token leaves `numbers` alone.
    static NumberListResult GetNodeList(std::string_view text, std::vector<std::uint32_t>& numbers);
};

}  // namespace velda
