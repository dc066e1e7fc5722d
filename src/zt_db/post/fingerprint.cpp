#include "zt_db/post/fingerprint.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <random>
#include <string_view>

namespace zt {
namespace {

/// Two sums of 64 bits over everything that is written, by the function of Fowler, Noll and Vo with two bases.
class Digest : public RowWriter {
public:
    void Integer(int column, std::int64_t value) override {
        Word(static_cast<std::uint64_t>(column));
        Word(static_cast<std::uint64_t>(value));
    }
    void Real(int column, double value) override { Integer(column, std::bit_cast<std::int64_t>(value)); }
    void Text(int column, std::string_view value) override {
        Integer(column, static_cast<std::int64_t>(value.size()));
        for (const char c : value) Byte(static_cast<unsigned char>(c));
    }

    std::string Hexadecimal() const {
        std::string text;
        for (const std::uint64_t sum : sums_) {
            for (int shift = 60; shift >= 0; shift -= 4) text += "0123456789abcdef"[(sum >> shift) & 15];
        }
        return text;
    }

private:
    void Word(std::uint64_t word) {
        for (int shift = 0; shift < 64; shift += 8) Byte(static_cast<unsigned char>(word >> shift));
    }
    void Byte(unsigned char byte) {
        constexpr std::uint64_t kPrime = 0x100000001b3;
        for (std::uint64_t& sum : sums_) sum = (sum ^ byte) * kPrime;
        sums_[1] = std::rotl(sums_[1], 23);
    }

    std::array<std::uint64_t, 2> sums_{0xcbf29ce484222325, 0x6c62272e07bb0142};
};

}  // namespace

bool ResultsDependOn(const RecordStoreBase& store) {
    constexpr std::array<std::string_view, 8> kOthers = {"RSLT", "NAME", "LCOM", "RSTP",
                                                         "STND", "MBTP", "PREL", "MCTL"};
    return std::find(kOthers.begin(), kOthers.end(), store.Identity().mnemonic) == kOthers.end();
}

std::string FingerprintOf(const CDataBase& database) {
    Digest digest;
    for (std::uint16_t i = 0; i < database.ClassCount(); ++i) {
        const RecordStoreBase& store = database.StoreAt(i);
        if (store.Count() == 0 || !ResultsDependOn(store)) continue;
        digest.Text(-1, store.Identity().mnemonic);
        const auto images = store.NewImages();
        for (const std::uint32_t key : store.SortedKeys()) {
            digest.Integer(-1, key);
            images->WriteRow(store.CopyTo(key, *images), digest);
        }
    }
    return digest.Hexadecimal();
}

std::string NewRunName() {
    std::random_device device;
    Digest digest;
    digest.Integer(0, std::chrono::system_clock::now().time_since_epoch().count());
    digest.Integer(1, static_cast<std::int64_t>(device()));
    return digest.Hexadecimal().substr(0, 16);
}

}  // namespace zt
