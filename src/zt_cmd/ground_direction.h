#pragma once

#include "zt_cmd/named_numbers.h"
#include "zt_db/records/splc.h"

namespace zt {

/// The directions of a ground motion and their names.
inline constexpr NamedNumber kGroundDirections[] = {
    {GroundDirection::Horizontal, "IDS_CMD_GROUND_HORIZONTAL"},
    {GroundDirection::Vertical, "IDS_CMD_GROUND_VERTICAL"},
};

}  // namespace zt
