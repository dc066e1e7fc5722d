#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zt_db/records/load_case_kind.h"

namespace zt {

/// A load case as result tables know it: its key in the class of its kind, and what of its envelopes is meant.
struct LoadChoice {
    std::uint32_t key = 0;
    std::uint32_t kind = LoadCaseKind::Static;
    std::int16_t subKind = LoadCaseSubKind::Single;
    bool operator==(const LoadChoice&) const = default;
};

/// The number by which rows stand in the order of their load cases: by kind, then key; the least behind the greatest,
/// all behind the least. 0 for another sub-kind.
constexpr std::int64_t LoadOrder(std::uint32_t key, std::uint32_t kind, std::int16_t subKind) {
    constexpr std::int64_t kKind = 300'000;
    constexpr std::int64_t kMin = 100'000;
    constexpr std::int64_t kAll = 200'000;
    const std::int64_t order = static_cast<std::int64_t>(key) + static_cast<std::int64_t>(kind) * kKind;
    switch (subKind) {
        case LoadCaseSubKind::Max:
        case LoadCaseSubKind::Single: return order;
        case LoadCaseSubKind::Min: return order + kMin;
        case LoadCaseSubKind::All: return order + kAll;
        default: return 0;
    }
}

constexpr std::int64_t LoadOrder(const LoadChoice& load) { return LoadOrder(load.key, load.kind, load.subKind); }

/// Load cases that a user can choose among.
struct LoadChoiceList {
    std::string title{};  ///< empty for the usual one
    /// An empty selection starts from `defaults`; otherwise from what the kinds of the cases say.
    bool useDefaults = false;
    std::vector<std::string> names{};  ///< as long as `all`
    std::vector<LoadChoice> all{};
    std::vector<LoadChoice> selected{};
    std::vector<LoadChoice> defaults{};
};

}  // namespace zt
