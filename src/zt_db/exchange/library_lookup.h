#pragma once

#include "zt_db/records/sect.h"

namespace zt {

/// Completes a section in SI units: a profile by its name from the section library, where the area that the file gives
/// is not another one; and the values of a shape from its sizes. False when neither is known.
bool CompleteFromLibrary(T_SECT_D& section);

}  // namespace zt
