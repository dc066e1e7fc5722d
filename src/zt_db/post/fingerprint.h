#pragma once

#include <string>

#include "zt_db/core/database.h"

namespace zt {

/// Whether results depend on the records of a class. Those that only name, group or combine what there is may change
/// while results stay current.
bool ResultsDependOn(const RecordStoreBase& store);

/// The state of a model as far as results depend on it, as 32 hexadecimal digits: equal for equal records, whatever the
/// order in which they came. Time grows with the size of the model.
std::string FingerprintOf(const CDataBase& database);

/// An identification that no other run has: 16 hexadecimal digits.
std::string NewRunName();

}  // namespace zt
