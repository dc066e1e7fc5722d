#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace velda {

/// What a cell holds, in 8 bytes: nothing, a number, a text of up to 6 bytes, or the number of a longer text in a pool.
/// Numbers stand as they are; the rest uses bit patterns that no number has (negative quiet NaNs).
class CellValue {
public:
    constexpr CellValue() = default;
    /// `value` must be no NaN.
    static constexpr CellValue OfNumber(double value) { return CellValue(std::bit_cast<std::uint64_t>(value)); }
    static constexpr CellValue OfPooled(std::uint32_t number) { return CellValue(kPooled | number); }
    /// A short text; none when it is too long or holds a zero byte.
    static std::optional<CellValue> OfShort(std::string_view text) {
        if (text.size() > kShortBytes || text.find('\0') != std::string_view::npos) return std::nullopt;
        std::uint64_t bits = 0;
        for (const char c : text) bits = (bits << 8) | static_cast<unsigned char>(c);
        return CellValue(kShort | bits);
    }

    constexpr bool IsEmpty() const { return bits_ == kShort; }
    constexpr bool IsNumber() const { return bits_ < kShort; }
    constexpr bool IsPooled() const { return (bits_ & kTagMask) == kPooled; }

    constexpr double Number() const { return std::bit_cast<double>(bits_); }
    constexpr std::uint32_t PoolNumber() const { return static_cast<std::uint32_t>(bits_); }
    /// Writes a short text to `bytes`, which has room for 6; returns its length.
    std::size_t ShortText(char* bytes) const {
        std::size_t size = 0;
        for (int shift = 40; shift >= 0; shift -= 8) {
            const char c = static_cast<char>((bits_ >> shift) & 0xFF);
            if (c != '\0') bytes[size++] = c;
        }
        return size;
    }

    constexpr bool operator==(const CellValue&) const = default;

    static constexpr std::size_t kShortBytes = 6;

private:
    // Above every number: the largest pattern of a number that is no NaN is that of minus infinity, 0xFFF0...
    static constexpr std::uint64_t kShort = 0xFFFC000000000000ull;
    static constexpr std::uint64_t kPooled = 0xFFFD000000000000ull;
    static constexpr std::uint64_t kTagMask = 0xFFFF000000000000ull;

    explicit constexpr CellValue(std::uint64_t bits) : bits_(bits) {}
    std::uint64_t bits_ = kShort;
};
static_assert(sizeof(CellValue) == 8);

}  // namespace velda
