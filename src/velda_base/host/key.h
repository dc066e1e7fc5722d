#pragma once

#include <compare>
#include <cstdint>

namespace velda {

/// A key of the keyboard. Letters and digits have the value of their (capital) character.
enum class Key : std::uint8_t {
    Space = ' ',
    A = 'A',
    C = 'C',
    D = 'D',
    F = 'F',
    V = 'V',
    X = 'X',
    F1 = 128,
    F2,
    F3,
    F4,
    F5,
    F6,
    F7,
    F8,
    F9,
    F10,
    F11,
    F12,
    Enter,
    Tab,
    Esc,
    Delete,
    Insert,
    Backspace,
    Up,
    Down,
    Left,
    Right,
    Home,
    End,
    PgUp,
    PgDn,
};

/// A key with the modifiers that are held with it.
struct KeyChord {
    Key key = Key::Space;
    bool ctrl = false;
    bool shift = false;
    bool alt = false;

    constexpr auto operator<=>(const KeyChord&) const = default;
};

}  // namespace velda
