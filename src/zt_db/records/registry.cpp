#include "zt_db/records/registry.h"

#include "zt_db/records/record_list.h"

namespace zt {
namespace {

constexpr std::size_t kClassCount = std::tuple_size_v<RecordClassList>;

// Distinct from each other, and from small numbers that a caller might pass by mistake.
constexpr int kFirstClassId = 101;
constexpr int kFirstChangeCode = 100001;

/// Calls `visit.operator()<Class>(index)` for each record class.
template <class Visit>
void ForEachClass(Visit visit) {
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        (visit.template operator()<std::tuple_element_t<I, RecordClassList>>(static_cast<int>(I)), ...);
    }
    (std::make_index_sequence<kClassCount>{});
}

bool AssignIdentities() {
    ForEachClass([]<class Class>(int index) {
        RecordIdentity& identity = IdentityOf<typename Class::Record>::value;
        identity.index = index;
        identity.classId = kFirstClassId + index;
        identity.mnemonic = Class::kMnemonic;
        for (int kind = 0; kind < static_cast<int>(kChangeEntryKinds); ++kind) {
            identity.codes[kind] = kFirstChangeCode + index * static_cast<int>(kChangeEntryKinds) + kind;
        }
    });
    return true;
}

[[maybe_unused]] const bool g_assigned = AssignIdentities();

}  // namespace

std::vector<std::unique_ptr<RecordStoreBase>> MakeRecordStores() {
    std::vector<std::unique_ptr<RecordStoreBase>> stores;
    ForEachClass([&]<class Class>(int) { stores.push_back(std::make_unique<RecordStore<typename Class::Record>>()); });
    return stores;
}

std::vector<std::unique_ptr<DB_CDataClass>> MakeRecordClasses() {
    std::vector<std::unique_ptr<DB_CDataClass>> classes;
    ForEachClass([&]<class Class>(int) { classes.push_back(std::make_unique<Class>()); });
    return classes;
}

int ClassIndexOfId(int classId) {
    const int index = classId - kFirstClassId;
    return index >= 0 && index < static_cast<int>(kClassCount) ? index : -1;
}

int NodeClassIndex() { return IdentityOf<T_PONT_D>::value.index; }
int MemberClassIndex() { return IdentityOf<T_MEMB_D>::value.index; }

}  // namespace zt
