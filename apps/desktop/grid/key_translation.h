#pragma once

#include <QKeyEvent>
#include <optional>

#include "velda_base/host/key.h"

namespace zt {

/// The chord of a key event; none for keys that tables do not know.
std::optional<velda::KeyChord> ChordOfEvent(const QKeyEvent& event);
/// Whether the event carries characters to be typed.
bool IsTyping(const QKeyEvent& event);

}  // namespace zt
