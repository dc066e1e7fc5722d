#include "zt_tb/core/declare_columns.h"

#include <algorithm>

#include "velda_lib/comp_func.h"
#include "velda_lib/msg_dll.h"

namespace zt {

std::string TextOfCode(std::span<const CodedText> codes, int code) {
    const auto found =
        std::find_if(codes.begin(), codes.end(), [&](const CodedText& text) { return text.code == code; });
    return found == codes.end() ? std::string() : velda::CMsgDll::pfuncLoadStr(found->textKey, 0);
}

int CodeOfText(std::span<const CodedText> codes, std::string_view text) {
    constexpr int kUnknown = -1;
    const auto found = std::find_if(codes.begin(), codes.end(), [&](const CodedText& coded) {
        return velda::CCompFunc::EqualNoCase(velda::CMsgDll::pfuncLoadStr(coded.textKey, 0), text);
    });
    return found == codes.end() ? kUnknown : found->code;
}

std::string LinesOfCodes(std::span<const CodedText> codes) {
    std::string lines;
    for (const CodedText& coded : codes) lines += velda::CMsgDll::pfuncLoadStr(coded.textKey, 0) + "\n";
    return lines;
}

std::string FlagLines(std::span<const std::string_view> nameKeys) {
    std::string lines;
    for (const std::string_view key : nameKeys) lines += "\n" + velda::CMsgDll::pfuncLoadStr(key, 0);
    return lines;
}

std::string ReadFlags(std::string_view text, std::size_t count) {
    std::string flags(count - std::min(count, text.size()), '0');
    for (const char digit : text.substr(0, count)) flags += digit == '0' ? '0' : '1';
    return flags;
}

}  // namespace zt
