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

}  // namespace zt
