#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velda {

/// Texts that many cells share, each kept once and known by a number.
class TextPool {
public:
    std::uint32_t Put(std::string_view text);
    /// The text of a number that Put gave; valid until the next Put.
    std::string_view Get(std::uint32_t number) const {
        return {bytes_.data() + starts_[number], starts_[number + 1] - starts_[number]};
    }
    std::size_t Count() const { return starts_.size() - 1; }
    std::size_t MemoryBytes() const;

private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFFu;

    std::size_t PlaceOf(std::string_view text) const;
    void Grow();

    std::string bytes_;
    std::vector<std::size_t> starts_{0};  ///< by number, with the end of the last behind it
    std::vector<std::uint32_t> numbers_;  ///< open addressing by the hash of the text
};

}  // namespace velda
