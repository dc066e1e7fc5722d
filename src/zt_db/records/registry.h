#pragma once

#include <memory>
#include <vector>

#include "zt_db/core/data_class.h"

namespace zt {

/// One empty store, and one unconnected handle, for each record class, in the order of the list of classes.
std::vector<std::unique_ptr<RecordStoreBase>> MakeRecordStores();
std::vector<std::unique_ptr<DB_CDataClass>> MakeRecordClasses();

/// Index of a class in the list by its identifier; -1 when there is none.
int ClassIndexOfId(int classId);

int NodeClassIndex();
int MemberClassIndex();

}  // namespace zt
