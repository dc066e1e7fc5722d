#pragma once

#include "velda_lib/outcome.h"
#include "zt_db/core/step.h"

namespace zt {

/// Where committed transactions are kept beside memory. A unit of work is begun, filled batch by batch and ended; what
/// is not ended is not kept.
class ModelStorage {
public:
    virtual ~ModelStorage() = default;
    virtual velda::Outcome Begin() = 0;
    /// Writes a batch whole, or, when it fails, leaves the unit of work as it was before.
    virtual velda::Outcome Write(const Batch& batch, Direction direction) = 0;
    virtual velda::Outcome Commit() = 0;
    virtual void Rollback() = 0;
};

}  // namespace zt
