#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "velda_base/host/key.h"

namespace velda {

/// Reads a chord such as "Ctrl+Shift+C", in any case of letters and any order of modifiers; none for anything else.
std::optional<KeyChord> ParseKeyChord(std::string_view text);
/// The text of a chord, modifiers in the order Ctrl, Shift, Alt.
std::string KeyChordText(KeyChord chord);

}  // namespace velda
