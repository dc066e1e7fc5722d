#include "desktop/grid/key_translation.h"

#include <algorithm>
#include <array>

namespace zt {
namespace {

struct KeyPair {
    int qt;
    velda::Key key;
};
constexpr auto kKeys = std::to_array<KeyPair>({
    {Qt::Key_Space, velda::Key::Space},
    {Qt::Key_Return, velda::Key::Enter},
    {Qt::Key_Enter, velda::Key::Enter},
    {Qt::Key_Tab, velda::Key::Tab},
    {Qt::Key_Backtab, velda::Key::Tab},
    {Qt::Key_Escape, velda::Key::Esc},
    {Qt::Key_Delete, velda::Key::Delete},
    {Qt::Key_Insert, velda::Key::Insert},
    {Qt::Key_Backspace, velda::Key::Backspace},
    {Qt::Key_Up, velda::Key::Up},
    {Qt::Key_Down, velda::Key::Down},
    {Qt::Key_Left, velda::Key::Left},
    {Qt::Key_Right, velda::Key::Right},
    {Qt::Key_Home, velda::Key::Home},
    {Qt::Key_End, velda::Key::End},
    {Qt::Key_PageUp, velda::Key::PgUp},
    {Qt::Key_PageDown, velda::Key::PgDn},
});

std::optional<velda::Key> KeyOf(int qt) {
    const bool isLetterOrDigit = (qt >= Qt::Key_A && qt <= Qt::Key_Z) || (qt >= Qt::Key_0 && qt <= Qt::Key_9);
    if (isLetterOrDigit) return static_cast<velda::Key>(qt);
    if (qt >= Qt::Key_F1 && qt <= Qt::Key_F12) {
        return static_cast<velda::Key>(static_cast<int>(velda::Key::F1) + qt - Qt::Key_F1);
    }
    const auto found = std::find_if(kKeys.begin(), kKeys.end(), [qt](const KeyPair& pair) { return pair.qt == qt; });
    return found == kKeys.end() ? std::nullopt : std::optional(found->key);
}

}  // namespace

std::optional<velda::KeyChord> ChordOfEvent(const QKeyEvent& event) {
    const std::optional<velda::Key> key = KeyOf(event.key());
    if (!key) return std::nullopt;
    const Qt::KeyboardModifiers held = event.modifiers();
    return velda::KeyChord{*key, held.testFlag(Qt::ControlModifier),
                           held.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab,
                           held.testFlag(Qt::AltModifier)};
}

bool IsTyping(const QKeyEvent& event) {
    // Right Alt on many keyboards comes as Ctrl and Alt together with a character.
    const Qt::KeyboardModifiers held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const bool isCommand = held == Qt::ControlModifier || held == Qt::AltModifier;
    return !isCommand && !event.text().isEmpty() && event.text().front().isPrint();
}

}  // namespace zt
