#pragma once

#include <random>
#include <string>

namespace velda {

/// Damages bytes at random, the same way for the same seed.
class Damage {
public:
    explicit Damage(unsigned seed) : random_(seed) {}

    std::string Of(std::string bytes) {
        for (std::size_t count = 1 + Below(4); count > 0; --count) Once(bytes);
        return bytes;
    }

private:
    std::size_t Below(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_); }
    // Half of the bytes are such as the text is made of, so that lines stay readable but say something else.
    char Byte() {
        constexpr char kUsual[] = "0123456789-+. \n[]abcdelmnorux";
        return Below(2) == 0 ? kUsual[Below(sizeof kUsual - 1)] : static_cast<char>(Below(256));
    }
    void Once(std::string& bytes) {
        if (bytes.empty()) bytes = "[";
        const std::size_t at = Below(bytes.size());
        const std::size_t count = 1 + Below(30);
        switch (Below(6)) {
            case 0: bytes[at] = static_cast<char>(bytes[at] ^ (1 << Below(8))); break;
            case 1: bytes[at] = Byte(); break;
            case 2: bytes.insert(at, 1, Byte()); break;
            case 3: bytes.erase(at, count); break;
            case 4: bytes.insert(Below(bytes.size()), bytes.substr(at, count)); break;
            default: bytes.resize(at); break;
        }
    }

    std::mt19937 random_;
};

}  // namespace velda
