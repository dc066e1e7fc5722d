#include "velda_lib/str_parser.h"

#include <charconv>

#include "velda_lib/comp_func.h"
#include "velda_lib/flat_index.h"

namespace velda {
namespace {

struct Range {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::uint32_t step = 1;
};

/// Takes a number off the front of `text`; false when none stands there or it does not fit 32 bits.
bool TakeNumber(std::string_view& text, std::uint32_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{}) return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

bool TakeWord(std::string_view& text, std::string_view word) {
    if (!CCompFunc::EqualNoCase(text.substr(0, word.size()), word)) return false;
    text.remove_prefix(word.size());
    return true;
}

NumberListFault ReadToken(std::string_view token, Range& range) {
    if (!TakeNumber(token, range.first) || range.first == 0) return NumberListFault::NotANumber;
    range.last = range.first;
    if (TakeWord(token, "to") || TakeWord(token, "-")) {
        if (!TakeNumber(token, range.last)) return NumberListFault::NotANumber;
        if (TakeWord(token, "by") && !TakeNumber(token, range.step)) return NumberListFault::NotANumber;
    }
    if (!token.empty()) return NumberListFault::NotANumber;
    if (range.last < range.first) return NumberListFault::Backwards;
    return range.step == 0 ? NumberListFault::ZeroStep : NumberListFault::None;
}

/// The numbers of a list as they are met, each once.
class NumberCollector {
public:
    NumberListFault Add(const Range& range) {
        const std::uint64_t count = (std::uint64_t{range.last} - range.first) / range.step + 1;
        named_ += count;
        if (named_ > CStrParser::kMaxNumbers) return NumberListFault::TooMany;
        for (std::uint64_t i = 0; i < count; ++i) {
            const auto number = static_cast<std::uint32_t>(range.first + i * range.step);
            if (seen_.Put(number, 0)) numbers_.push_back(number);
        }
        return NumberListFault::None;
    }
    std::vector<std::uint32_t> Take() { return std::move(numbers_); }

private:
    FlatIndex seen_;
    std::vector<std::uint32_t> numbers_;
    std::uint64_t named_ = 0;
};

}  // namespace

NumberListResult CStrParser::GetNodeList(std::string_view text, std::vector<std::uint32_t>& numbers) {
    constexpr std::string_view kSeparators = " ,\t\r\n";
    NumberCollector collector;
    for (std::size_t at = text.find_first_not_of(kSeparators); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(kSeparators, at), text.size());
        const std::string_view token = text.substr(at, end - at);
        Range range;
        NumberListFault fault = ReadToken(token, range);
        if (fault == NumberListFault::None) fault = collector.Add(range);
        if (fault != NumberListFault::None) return {fault, std::string(token)};
        at = text.find_first_not_of(kSeparators, end);
    }
    numbers = collector.Take();
    return {};
}

}  // namespace velda
