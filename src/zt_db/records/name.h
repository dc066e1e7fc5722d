#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/memb.h"

namespace zt {

struct T_NAME_UNIT;

/// A named group of nodes (type 100) or of members (every other type).
struct T_NAME_D {
    static constexpr int kNodeGroup = 100;

    std::string name{};
    int type = kNodeGroup;
    std::vector<std::uint32_t> keys{};

    static const T_NAME_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_NAME_D&) const = default;

    static const RecordIdentity* ItemClass(const T_NAME_D& group) {
        return group.type == kNodeGroup ? &IdentityOf<T_PONT_D>::value : &IdentityOf<T_MEMB_D>::value;
    }
};

template <>
struct Fields<T_NAME_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_NAME_D::name),
        Plain("type", &T_NAME_D::type),
        RefersBy("keys", &T_NAME_D::keys, &T_NAME_D::ItemClass, IfGone::Clear),
    };
};

ZT_RECORD(NAME, Name)

class CClassName : public CClassOf<T_NAME_D> {
public:
    ZT_CLASS_NAMES(NAME)

    /// Keys and names of the groups of a type, in the order of the keys; false when there are none.
    int GetList(int type, std::vector<std::uint32_t>& keys, std::vector<std::string>& names) const;
    /// The group of a name and a type, the smallest key where several have it; 0 when there is none.
    std::uint32_t GetKey(std::string_view name, int type) const;
};

}  // namespace zt
