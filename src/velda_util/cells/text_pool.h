#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velda {

/// Texts of cells, each known by a number. A text that was put not long ago is kept once, so that the names of stories
/// and materials take little room; texts that hardly repeat cost no search.
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
    static constexpr std::size_t kRemembered = 4096;

    std::string bytes_;
    std::vector<std::size_t> starts_{0};  ///< by number, with the end of the last behind it
    std::vector<std::uint32_t> recent_;   ///< one number for each place of the hash of a text
};

}  // namespace velda
