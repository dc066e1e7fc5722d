#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "velda_lib/outcome.h"
#include "zt_db/core/step.h"

namespace zt {

class DB_CDataBase;
class RecordStoreBase;

/// Builds the batch of a transaction from what was asked for: checks keys and numbers, brings records to SI units,
/// gives numbers to records without one, and adds what follows in other records. The database is not changed. The
/// records in `records` stand in the order of the keys.

velda::Outcome PlanAdd(const DB_CDataBase& database, std::uint16_t classIndex, const std::vector<std::uint32_t>& keys,
                       std::unique_ptr<ImageList> records, Batch& batch);

/// Deletes records, and with them every record that cannot exist without one of them; clears references that may be
/// none. Refused while a record that stays needs one of them.
velda::Outcome PlanDelete(const DB_CDataBase& database, std::uint16_t classIndex,
                          const std::vector<std::uint32_t>& keys, Batch& batch);

/// Replaces records; where a key changes, references to it in other records follow.
velda::Outcome PlanModify(const DB_CDataBase& database, std::uint16_t classIndex,
                          const std::vector<std::uint32_t>& oldKeys, const std::vector<std::uint32_t>& newKeys,
                          std::unique_ptr<ImageList> records, Batch& batch);

/// Whether every reference of the records that a batch leaves behind is none or leads to a record, and no record
/// contains itself. For a batch that has been applied.
velda::Outcome CheckReferences(const DB_CDataBase& database, const Batch& batch);

/// The shortest way on which a record reaches itself through references to its own class: its key, those between, and
/// its key again. Empty when it does not.
std::vector<std::uint32_t> RingOf(const RecordStoreBase& store, std::uint32_t key);

}  // namespace zt
