#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/load_case_type.h"

namespace zt {

struct T_STLD_UNIT;

/// A static load case; the type is a short code, one of LoadCaseType or of the user's own.
struct T_STLD_D {
    std::string name{};
    std::string type{};
    std::string description{};

    static const T_STLD_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_STLD_D&) const = default;
};

template <>
struct Fields<T_STLD_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_STLD_D::name),
        Plain("type", &T_STLD_D::type),
        Plain("description", &T_STLD_D::description),
    };
};

ZT_RECORD(STLD, Stld)

class CClassStld : public CClassOf<T_STLD_D> {
public:
    ZT_CLASS_NAMES(STLD)

    /// The load case of a name, the smallest key where several have it; 0 when there is none.
    std::uint32_t GetKey(std::string_view name) const;

    using CClassOf::GetKeyList;
    /// All load cases, in the order of their keys. The further arguments ask for active cases only and for an order;
    /// every static load case is active and the keys are always ordered, so that they change nothing.
    int GetKeyList(std::vector<std::uint32_t>& keys, int, int) const { return GetKeyList(keys); }
};

struct T_LCOM_D;

/// Kinds of load cases, the numbers that stand beside a load-case key.
namespace LoadCaseKind {
inline constexpr int Static = 1;
inline constexpr int Combination = 10;
}  // namespace LoadCaseKind

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
