#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "zt_db/records/memb_type.h"

namespace zt {

/// What members look alike in the model view.
enum class DrawnKind { Column, Beam, Brace, Wall, Slab, Opening, Other };
inline constexpr std::size_t kDrawnKinds = 7;

/// Text key of a kind's name in the legend.
constexpr std::string_view DrawnKindName(DrawnKind kind) {
    constexpr std::string_view kNames[kDrawnKinds] = {
        "IDS_TB_MEMB_TYPE_COLUMN", "IDS_TB_MEMB_TYPE_BEAM",         "IDS_TB_MEMB_TYPE_BREACE", "IDS_TB_MEMB_TYPE_WALL",
        "IDS_TB_MEMB_TYPE_SLAB",   "IDS_TB_MEMB_TYPE_OPENING_SLAB", "IDS_MODEL_VIEW_OTHER"};
    return kNames[static_cast<std::size_t>(kind)];
}

/// The kind of a member type.
constexpr DrawnKind DrawnKindOf(int type) {
    if (std::find(std::begin(kSlabTypes), std::end(kSlabTypes), type) != std::end(kSlabTypes)) return DrawnKind::Slab;
    switch (type) {
        case 101:
        case 207: return DrawnKind::Column;
        case 201:
        case 205:
        case 251:
        case 261:
        case 262:
        case 263: return DrawnKind::Beam;
        case 206:
        case 252: return DrawnKind::Brace;
        case 202:
        case 216:
        case 217:
        case 218:
        case 219: return DrawnKind::Wall;
        case 302: return DrawnKind::Opening;
        default: return DrawnKind::Other;
    }
}

}  // namespace zt
