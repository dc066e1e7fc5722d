#include "zt_db/exchange/number_giver.h"

#include <algorithm>
#include <cstddef>

namespace zt {
namespace {

constexpr std::size_t kMostDigits = 8;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The number at the end of a name; 0 when there is none or too long a one.
std::uint32_t NumberAtEnd(std::string_view name) {
    std::size_t begin = name.size();
    while (begin > 0 && IsDigit(name[begin - 1])) --begin;
    if (name.size() - begin > kMostDigits) return 0;
    std::uint32_t number = 0;
    for (; begin < name.size(); ++begin) number = number * 10 + static_cast<std::uint32_t>(name[begin] - '0');
    return number;
}

}  // namespace

void NumberGiver::Take(std::uint32_t number) {
    taken_.insert(number);
    last_ = std::max(last_, number);
}

std::uint32_t NumberGiver::Give(std::uint32_t wanted) {
    if (wanted == 0 || taken_.contains(wanted)) return 0;
    Take(wanted);
    return wanted;
}

std::vector<std::uint32_t> NumberGiver::NumbersOf(const std::vector<std::string_view>& names) {
    std::vector<std::uint32_t> numbers(names.size(), 0);
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (std::all_of(names[i].begin(), names[i].end(), IsDigit)) numbers[i] = Give(NumberAtEnd(names[i]));
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (numbers[i] == 0) numbers[i] = Give(NumberAtEnd(names[i]));
    }
    for (std::uint32_t& number : numbers) {
        if (number == 0) number = Give(last_ + 1);
    }
    return numbers;
}

}  // namespace zt
