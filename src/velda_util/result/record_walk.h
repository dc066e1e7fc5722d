#pragma once

#include <algorithm>
#include <optional>
#include <string>

#include "velda_base/host/application_host.h"
#include "velda_base/host/progress.h"

namespace velda {

/// Walks over many records in blocks, with a progress between them where there is more than one block.
/// `visit(first, last)` is called for each block, its last record included; false when the user cancels.
template <class Visit>
bool WalkInBlocks(const std::string& title, long count, Visit visit) {
    constexpr long kBlock = 32'768;
    const long blocks = (count + kBlock - 1) / kBlock;
    std::optional<Progress> progress;
    if (blocks > 1) progress.emplace(title, static_cast<int>(blocks));
    for (long block = 0; block < blocks; ++block) {
        visit(block * kBlock + 1, std::min(count, (block + 1) * kBlock));
        if (progress && !progress->Step(static_cast<int>(block + 1))) return false;
    }
    return true;
}

}  // namespace velda
