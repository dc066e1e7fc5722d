#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/load_case_kind.h"
#include "zt_db/records/splc.h"
#include "zt_db/records/stld.h"
#include "zt_db/records/thlc.h"

namespace zt {

struct T_LCOM_D;

/// One load case of a combination.
struct T_LCOM_ITEM {
    int kind = LoadCaseKind::Static;
    std::uint32_t key = 0;
    double factor = 1.0;
    bool operator==(const T_LCOM_ITEM&) const = default;

    /// The class of the load case; null for kinds whose cases are no records of the model.
    static const RecordIdentity* CaseClass(const T_LCOM_ITEM& item) {
        switch (item.kind) {
            case LoadCaseKind::Static: return &IdentityOf<T_STLD_D>::value;
            case LoadCaseKind::Combination: return &IdentityOf<T_LCOM_D>::value;
            case LoadCaseKind::Spectrum: return &IdentityOf<T_SPLC_D>::value;
            case LoadCaseKind::TimeHistory: return &IdentityOf<T_THLC_D>::value;
            default: return nullptr;
        }
    }
};

template <>
struct Fields<T_LCOM_ITEM> {
    static constexpr auto list = std::tuple{
        Plain("kind", &T_LCOM_ITEM::kind),
        RefersBy("key", &T_LCOM_ITEM::key, &T_LCOM_ITEM::CaseClass, IfGone::Refuse),
        Plain("factor", &T_LCOM_ITEM::factor),
    };
};

/// What a combination makes of its load cases: their sum, or the greatest and least of them.
namespace LoadCombinationType {
inline constexpr int Sum = 0;
inline constexpr int Envelope = 1;
// Sums that the design makes for its own use.
inline constexpr int TransferGirder = 2;
inline constexpr int CivilDefence = 5;
}  // namespace LoadCombinationType

struct T_LCOM_UNIT;

/// A load combination: load cases and other combinations with factors.
struct T_LCOM_D {
    std::string name{};
    int active = 1;
    int type = LoadCombinationType::Sum;
    std::vector<T_LCOM_ITEM> items{};
    std::string description{};

    static const T_LCOM_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_LCOM_D&) const = default;
};

template <>
struct Fields<T_LCOM_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_LCOM_D::name),   Plain("active", &T_LCOM_D::active),           Plain("type", &T_LCOM_D::type),
        Plain("items", &T_LCOM_D::items), Plain("description", &T_LCOM_D::description),
    };
};

ZT_RECORD(LCOM, Lcom)
ZT_PLAIN_CLASS(LCOM, Lcom)

}  // namespace zt
