#pragma once

#include <Qt>

#include "velda_util/style/gx_style.h"

namespace zt {

/// How a cell's text stands in it, on the screen and on paper.
Qt::Alignment AlignmentOf(const velda::CGXStyle& style);

}  // namespace zt
