#include "zt_db/post/post_ctrl4dgn.h"

namespace zt {

bool CPostCtrl4Dgn::IsDesigned(std::uint32_t memb, std::string_view type) const {
    const CPostDataBase& database = control_.Database();
    T_PMEMB_D member;
    T_PMATL_D material;
    return database.IsDesigned(memb) && CClassPMemb(&database).Get(memb, member) &&
           CClassPMatl(&database).Get(member.matl, material) && material.type == type;
}

}  // namespace zt
