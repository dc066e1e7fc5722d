#include "zt_cmd/named_numbers.h"

#include <algorithm>

#include "velda_lib/key_text.h"

namespace zt {

using velda::KeyText;

namespace {}  // namespace

std::string TextOf(NamedNumbers known, int number) {
    for (const NamedNumber& one : known) {
        if (one.number == number) return KeyText(one.textKey);
    }
    return std::to_string(number);
}

std::vector<std::string> TextsWith(NamedNumbers known, int number) {
    std::vector<std::string> texts;
    for (const NamedNumber& one : known) texts.push_back(KeyText(one.textKey));
    const std::string text = TextOf(known, number);
    if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
    return texts;
}

int NumberOf(NamedNumbers known, const std::string& text, int before) {
    for (const NamedNumber& one : known) {
        if (KeyText(one.textKey) == text) return one.number;
    }
    return before;
}

}  // namespace zt
