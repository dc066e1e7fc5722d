#pragma once

#include <vector>

#include "velda_lib/function_ref.h"
#include "zt_db/post/post_classes.h"

namespace zt {

/// A combination opened down to its load cases: a case, or the sum or envelope of parts.
struct CaseTree {
    double factor = 1.0;
    bool isEnvelope = false;
    int leaf = -1;  ///< place of a case; -1 for a node with parts
    std::vector<CaseTree> parts{};

    /// Whether it or a part of it is an envelope.
    bool HasEnvelope() const;
};

/// Opens a combination. `leafOf` gives the place of a case of a kind and a key, or -1 where it cannot be read. False
/// when that happens, and for combinations that are empty, missing or in a ring.
bool OpenCaseTree(const CPostDataBase& database, const T_PLCOM_D& combination,
                  velda::FunctionRef<int(int kind, std::uint32_t key)> leafOf, CaseTree& root);

}  // namespace zt
