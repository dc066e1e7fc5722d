#include "velda_lib/msg_dll.h"

#include "velda_lib/language.h"

namespace velda {
namespace {

std::string LoadFromResource(std::string_view key, int) {
    return std::string(CatalogOf(CurrentLanguage()).Find(key).value_or(key));
}

}  // namespace

CMsgDll::LoadStr CMsgDll::pfuncLoadStr = &LoadFromResource;

std::string CMsgDll::RemoveQuote(std::string_view text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return std::string(quoted ? text.substr(1, text.size() - 2) : text);
}

std::string FormatText(std::string_view key, std::initializer_list<std::string_view> arguments) {
    const std::string pattern = CMsgDll::pfuncLoadStr(key, 0);
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char next = i + 1 < pattern.size() ? pattern[i + 1] : '\0';
        if (pattern[i] != '%' || (next != '%' && (next < '1' || next > '9'))) {
            text += pattern[i];
            continue;
        }
        ++i;
        const std::size_t index = next == '%' ? 0 : static_cast<std::size_t>(next - '1');
        if (next == '%') {
            text += '%';
        } else if (index < arguments.size()) {
            text += arguments.begin()[index];
        }
    }
    return text;
}

}  // namespace velda
