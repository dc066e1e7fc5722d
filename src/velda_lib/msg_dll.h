#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace velda {

/// Access to the language resource: every word that a user sees is looked up by key.
struct CMsgDll {
    using LoadStr = std::string (*)(std::string_view key, int);
    /// Text of a key in the current language; a key that the resource does not hold gives the key itself.
    static LoadStr pfuncLoadStr;
    /// The text without the quotes that surround it; a text that is not in quotes stays as it is.
    static std::string RemoveQuote(std::string_view text);
};

/// Text of `key` with its places "%1" to "%9" replaced by the arguments; "%%" gives a percent sign.
/// Translations may use the places in any order.
std::string FormatText(std::string_view key, std::initializer_list<std::string_view> arguments);

}  // namespace velda
