#include "zt_db/core/field_text.h"

#include <cmath>
#include <limits>

namespace zt {
namespace {

template <class Integer>
bool IntegerFromText(std::string_view text, Integer& value) {
    std::int64_t read = 0;
    if (!velda::ReadWholeLong(text, read)) return false;
    if (read < std::int64_t{std::numeric_limits<Integer>::min()}) return false;
    if (read > std::int64_t{std::numeric_limits<Integer>::max()}) return false;
    value = static_cast<Integer>(read);
    return true;
}

}  // namespace

void AppendQuoted(std::string& text, std::string_view value) {
    text += '"';
    for (const char c : value) {
        switch (c) {
            case '"': text += "\\\""; break;
            case '\\': text += "\\\\"; break;
            case '\n': text += "\\n"; break;
            case '\t': text += "\\t"; break;
            default: text += c;
        }
    }
    text += '"';
}

void ListReader::SkipBlanks() {
    while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t')) rest_.remove_prefix(1);
}

bool ListReader::Take(char wanted) {
    SkipBlanks();
    if (rest_.empty() || rest_.front() != wanted) return false;
    rest_.remove_prefix(1);
    return true;
}

bool ListReader::TakeNumber(std::string_view& number) {
    SkipBlanks();
    const std::size_t end = std::min(rest_.find_first_not_of("0123456789+-.eE"), rest_.size());
    number = rest_.substr(0, end);
    rest_.remove_prefix(end);
    return end > 0;
}

bool ListReader::TakeString(std::string& value) {
    if (!Take('"')) return false;
    value.clear();
    while (!rest_.empty()) {
        char c = rest_.front();
        rest_.remove_prefix(1);
        if (c == '"') return true;
        if (c == '\\') {
            if (rest_.empty()) return false;
            c = rest_.front();
            rest_.remove_prefix(1);
            if (c == 'n') c = '\n';
            if (c == 't') c = '\t';
        }
        value += c;
    }
    return false;
}

bool ListReader::AtEnd() {
    SkipBlanks();
    return rest_.empty();
}

bool ScalarFromText(std::string_view text, int& value) { return IntegerFromText(text, value); }

bool ScalarFromText(std::string_view text, std::uint32_t& value) { return IntegerFromText(text, value); }

bool ScalarFromText(std::string_view text, double& value) {
    double read = 0.0;
    if (!velda::ReadWholeDouble(text, read) || !std::isfinite(read)) return false;
    value = read;
    return true;
}

}  // namespace zt
