#pragma once

#include <cstdint>

#include "velda_base/host/key.h"

namespace velda {

class Control;

/// A key that went down or up.
struct KeyMessage {
    enum class Kind : std::uint8_t { Down, Up };

    Kind kind = Kind::Down;
    KeyChord chord;
};

/// A command for a window: which control sent it, and why.
struct CommandMessage {
    /// Identifier of the control.
    std::uint16_t id = 0;
    /// Notification code: what happened in the control.
    std::uint16_t code = 0;
    /// The control that sent it. It must live until the command is delivered.
    Control* control = nullptr;

    /// The identifier in the low word and the notification code in the high word.
    constexpr std::uint32_t Words() const { return static_cast<std::uint32_t>(code) << 16 | id; }

    bool operator==(const CommandMessage&) const = default;
};

}  // namespace velda
