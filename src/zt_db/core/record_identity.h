#pragma once

#include <cstddef>
#include <string_view>

namespace zt {

/// The four kinds of entries in the change buffer, in the order of their change codes.
enum class ChangeEntry { Add, Delete, ModifiedAfter, ModifiedBefore };
inline constexpr std::size_t kChangeEntryKinds = 4;

/// What a record class is known by. The numbers are assigned at start-up from the list of record classes.
struct RecordIdentity {
    int index = -1;   ///< place in the list of record classes
    int classId = 0;  ///< identifier for DB_CDataBase::GetClass
    int codes[kChangeEntryKinds] = {0, 0, 0, 0};
    std::string_view mnemonic;  ///< "PONT"
};

/// The identity of the class that holds records of type R; R may be an incomplete type.
template <class R>
struct IdentityOf {
    static inline RecordIdentity value;
};

}  // namespace zt
