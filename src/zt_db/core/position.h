#pragma once

#include <cstddef>
#include <cstdint>

namespace zt {

/// A place in an iteration; null before the start and after the end.
class POSITION {
public:
    constexpr POSITION() = default;
    constexpr POSITION(std::nullptr_t) {}  // NOLINT: null is written as nullptr
    static constexpr POSITION At(std::uint64_t place) {
        POSITION position;
        position.place_ = place + 1;
        return position;
    }

    constexpr explicit operator bool() const { return place_ != 0; }
    /// The place; only for a position that is not null.
    constexpr std::uint64_t Place() const { return place_ - 1; }
    constexpr bool operator==(const POSITION&) const = default;

private:
    std::uint64_t place_ = 0;
};

}  // namespace zt
