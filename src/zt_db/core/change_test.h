#pragma once

#include <algorithm>
#include <cstdint>

#include "zt_db/core/record_identity.h"
#include "zt_db/core/view_buff.h"

namespace zt {

/// Whether an entry of a change buffer tells of a record of a type.
template <class R>
bool TellsOf(std::uint64_t entry) {
    const int code = static_cast<int>(static_cast<std::uint32_t>(entry));
    const auto& codes = IdentityOf<R>::value.codes;
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

/// Whether a change touched a record of one of these types.
template <class... R>
bool Touches(const CViewBuff& buffer) {
    for (POSITION at = buffer.GetHeadPosition(); at;) {
        const std::uint64_t entry = buffer.GetNext(at);
        if ((TellsOf<R>(entry) || ...)) return true;
    }
    return false;
}

}  // namespace zt
