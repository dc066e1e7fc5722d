#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/matl.h"
#include "zt_db/records/memb_type.h"
#include "zt_db/records/pont.h"
#include "zt_db/records/sect.h"
#include "zt_db/records/thik.h"

namespace zt {

struct T_MEMB_UNIT;

/// A member of the structure: column, beam, wall, slab and the rest, told apart by its type code.
struct T_MEMB_D {
    int type = MembType::Column;
    std::uint32_t no = 0;
    std::uint32_t story = 0;
    std::uint32_t prop = 0;  ///< section, or thickness for the types of UsesThickness
    std::uint32_t matl = 0;
    int plan = 0;
    double beta = 0.0;
    std::vector<std::uint32_t> nodes{};
    int tensionOnly = 0;
    int considerBending = 0;
    int divideFrame = 0;
    int slabLoadingType = 0;
    double slabLoadAngle = 0.0;
    int slabType = 0;

    static const T_MEMB_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_MEMB_D&) const = default;

    /// Whether the property of a member type is a thickness: walls, slabs and their kin.
    static constexpr bool UsesThickness(int type) { return PropertyOfMemberType(type) == MemberProperty::Thickness; }
    static const RecordIdentity* PropertyClass(const T_MEMB_D& member) {
        return UsesThickness(member.type) ? &IdentityOf<T_THIK_D>::value : &IdentityOf<T_SECT_D>::value;
    }
};

template <>
struct Fields<T_MEMB_D> {
    static constexpr auto list = std::tuple{
        Plain("type", &T_MEMB_D::type),
        Number("no", &T_MEMB_D::no),
        Refers<T_STOR_D>("story", &T_MEMB_D::story, IfGone::Refuse),
        RefersBy("prop", &T_MEMB_D::prop, &T_MEMB_D::PropertyClass, IfGone::Refuse),
        Refers<T_MATL_D>("matl", &T_MEMB_D::matl, IfGone::Refuse),
        Plain("plan", &T_MEMB_D::plan),
        Measured("beta", &T_MEMB_D::beta, Unit::Angle),
        Refers<T_PONT_D>("nodes", &T_MEMB_D::nodes, IfGone::Cascade),
        Plain("tensionOnly", &T_MEMB_D::tensionOnly),
        Plain("considerBending", &T_MEMB_D::considerBending),
        Plain("divideFrame", &T_MEMB_D::divideFrame),
        Plain("slabLoadingType", &T_MEMB_D::slabLoadingType),
        Measured("slabLoadAngle", &T_MEMB_D::slabLoadAngle, Unit::Angle),
        Plain("slabType", &T_MEMB_D::slabType),
    };
};

ZT_RECORD(MEMB, Memb)

class CClassMemb : public CClassOf<T_MEMB_D> {
public:
    ZT_CLASS_NAMES(MEMB)

    // The further arguments are part of the interface of this class; no value of theirs changes what is stored.
    int TR_Add(std::uint32_t key, const T_MEMB_D& record, int = 1, int = -1) { return CClassOf::TR_Add(key, record); }
    int TR_Add(const std::vector<std::uint32_t>& keys, const std::vector<T_MEMB_D>& records, int = 1, int = -1) {
        return CClassOf::TR_Add(keys, records);
    }
    int TR_Modify(std::uint32_t oldKey, std::uint32_t newKey, const T_MEMB_D& record, int = 1) {
        return CClassOf::TR_Modify(oldKey, newKey, record);
    }
    int TR_Modify(const std::vector<std::uint32_t>& oldKeys, const std::vector<std::uint32_t>& newKeys,
                  const std::vector<T_MEMB_D>& records, int = 1) {
        return CClassOf::TR_Modify(oldKeys, newKeys, records);
    }

    /// The user's number of a member, and the member with a number; 0 when there is none.
    std::uint32_t GetMembNoByKey(std::uint32_t key) const { return store_ ? store_->NumberOfKey(key) : 0; }
    std::uint32_t GetMembKeyByNo(std::uint32_t no) const { return store_ ? store_->KeyOfNumber(no) : 0; }
    /// The next free number.
    std::uint32_t GetNewNo() const { return store_ ? store_->NewNumber() : 1; }

    /// Code of the type of a member; 0 when the key does not exist.
    int GetType(std::uint32_t key) const;

    // The types are the same for every model, so that no database is needed for them.
    /// The codes of all member types, ascending.
    static int GetMembTypeList(std::vector<int>& types);
    /// Name of a member type in the current language; empty for a code that names no type.
    static std::string GetMembTypeName(int type);
};

}  // namespace zt
