#pragma once

#include <string>
#include <string_view>

#include "velda_util/style/gx_style.h"

namespace velda {

/// What a cell with this text and style shows: a number rounded to the places of its fixed format, the state of a check
/// box as "1" or "0", the shown column of a tabbed list for its key. Any other text is shown as it stands.
std::string DisplayText(std::string_view text, const CGXStyle& style);

/// A number with exactly `places` decimal places, rounded half away from zero in its decimal digits, never "-0". A text
/// that is no number, or one that no double can hold, comes back as it stands.
std::string RoundedText(std::string_view text, int places);

}  // namespace velda
