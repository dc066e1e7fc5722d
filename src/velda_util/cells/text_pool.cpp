#include "velda_util/cells/text_pool.h"

#include <functional>

namespace velda {

std::uint32_t TextPool::Put(std::string_view text) {
    if (recent_.empty()) recent_.resize(kRemembered);
    std::uint32_t& recent = recent_[std::hash<std::string_view>{}(text) % kRemembered];
    if (recent < Count() && Get(recent) == text) return recent;
    recent = static_cast<std::uint32_t>(Count());
    bytes_.append(text);
    starts_.push_back(bytes_.size());
    return recent;
}

std::size_t TextPool::MemoryBytes() const {
    return bytes_.capacity() + starts_.capacity() * sizeof(std::size_t) + recent_.capacity() * sizeof(std::uint32_t);
}

}  // namespace velda
