#pragma once

#include <string>

#include "velda_lib/outcome.h"
#include "zt_tb/core/tb_view.h"

namespace zt {

/// Prints the table in front of a view into a PDF file. Works in a program without windows and without a display too.
velda::Outcome WritePdf(CTBView& view, const std::string& path);

}  // namespace zt
