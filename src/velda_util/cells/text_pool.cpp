#include "velda_util/cells/text_pool.h"

#include <functional>

namespace velda {

std::size_t TextPool::PlaceOf(std::string_view text) const {
    const std::size_t mask = numbers_.size() - 1;
    std::size_t place = std::hash<std::string_view>{}(text)&mask;
    while (numbers_[place] != kFree && Get(numbers_[place]) != text) place = (place + 1) & mask;
    return place;
}

void TextPool::Grow() {
    constexpr std::size_t kFirstSize = 64;
    numbers_.assign(numbers_.empty() ? kFirstSize : numbers_.size() * 2, kFree);
    for (std::uint32_t number = 0; number < Count(); ++number) numbers_[PlaceOf(Get(number))] = number;
}

std::uint32_t TextPool::Put(std::string_view text) {
    if ((Count() + 1) * 2 > numbers_.size()) Grow();
    const std::size_t place = PlaceOf(text);
    if (numbers_[place] != kFree) return numbers_[place];
    const auto number = static_cast<std::uint32_t>(Count());
    bytes_.append(text);
    starts_.push_back(bytes_.size());
    numbers_[place] = number;
    return number;
}

std::size_t TextPool::MemoryBytes() const {
    return bytes_.capacity() + starts_.capacity() * sizeof(std::size_t) + numbers_.capacity() * sizeof(std::uint32_t);
}

}  // namespace velda
