#include "velda_util/edit/key_chord.h"

#include <array>

#include "velda_lib/comp_func.h"

namespace velda {
namespace {

struct NamedKey {
    Key key;
    std::string_view name;
};
constexpr auto kNamedKeys = std::to_array<NamedKey>({
    {Key::F1, "F1"},         {Key::F2, "F2"},         {Key::F3, "F3"},
    {Key::F4, "F4"},         {Key::F5, "F5"},         {Key::F6, "F6"},
    {Key::F7, "F7"},         {Key::F8, "F8"},         {Key::F9, "F9"},
    {Key::F10, "F10"},       {Key::F11, "F11"},       {Key::F12, "F12"},
    {Key::Enter, "Enter"},   {Key::Tab, "Tab"},       {Key::Esc, "Esc"},
    {Key::Delete, "Delete"}, {Key::Insert, "Insert"}, {Key::Backspace, "Backspace"},
    {Key::Space, "Space"},   {Key::Up, "Up"},         {Key::Down, "Down"},
    {Key::Left, "Left"},     {Key::Right, "Right"},   {Key::Home, "Home"},
    {Key::End, "End"},       {Key::PgUp, "PgUp"},     {Key::PgDn, "PgDn"},
});

std::optional<Key> KeyOfName(std::string_view name) {
    for (const NamedKey& named : kNamedKeys) {
        if (CCompFunc::EqualNoCase(named.name, name)) return named.key;
    }
    if (name.size() != 1) return std::nullopt;
    const char c = name.front();
    if (c >= 'a' && c <= 'z') return static_cast<Key>(c - 'a' + 'A');
    if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) return static_cast<Key>(c);
    return std::nullopt;
}

std::string NameOfKey(Key key) {
    for (const NamedKey& named : kNamedKeys) {
        if (named.key == key) return std::string(named.name);
    }
    return {static_cast<char>(key)};
}

/// Sets the modifier of a name; false when there is none of that name or it was set before.
bool AddModifier(KeyChord& chord, std::string_view name) {
    bool* modifier = CCompFunc::EqualNoCase(name, "Ctrl")    ? &chord.ctrl
                     : CCompFunc::EqualNoCase(name, "Shift") ? &chord.shift
                     : CCompFunc::EqualNoCase(name, "Alt")   ? &chord.alt
                                                             : nullptr;
    if (modifier == nullptr || *modifier) return false;
    *modifier = true;
    return true;
}

}  // namespace

std::optional<KeyChord> ParseKeyChord(std::string_view text) {
    KeyChord chord;
    for (std::size_t plus = text.find('+'); plus != std::string_view::npos; plus = text.find('+')) {
        if (!AddModifier(chord, text.substr(0, plus))) return std::nullopt;
        text.remove_prefix(plus + 1);
    }
    const std::optional<Key> key = KeyOfName(text);
    if (!key) return std::nullopt;
    chord.key = *key;
    return chord;
}

std::string KeyChordText(KeyChord chord) {
    std::string text;
    if (chord.ctrl) text += "Ctrl+";
    if (chord.shift) text += "Shift+";
    if (chord.alt) text += "Alt+";
    return text + NameOfKey(chord.key);
}

}  // namespace velda
