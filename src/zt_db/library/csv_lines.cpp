#include "zt_db/library/csv_lines.h"

#include <algorithm>

namespace zt {

namespace {
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
}

CsvLines::CsvLines(std::string_view bytes) : rest_(bytes) {
    if (rest_.starts_with(kByteOrderMark)) rest_.remove_prefix(kByteOrderMark.size());
}

std::string_view CsvLines::TakeLine() {
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    ++line_;
    return line;
}

/// Reads from behind an opening quote to behind the closing one.
bool CsvLines::ReadQuoted(std::string_view text, std::size_t& at, std::string& value) {
    for (; at < text.size(); ++at) {
        if (text[at] != '"') {
            value += text[at];
        } else if (text.substr(at + 1).starts_with('"')) {
            value += text[at++];
        } else {
            ++at;
            return true;
        }
    }
    return false;
}

CsvLines::Result CsvLines::Next(std::vector<std::string>& values) {
    std::string_view line;
    while (line.empty()) {
        if (rest_.empty()) return Result::End;
        line = TakeLine();
    }
    std::size_t count = 0;
    for (std::size_t at = 0;; ++at) {
        if (values.size() <= count) values.emplace_back();
        std::string& value = values[count++];
        value.clear();
        bool whole = true;
        if (line.substr(at).starts_with('"')) whole = ReadQuoted(line, ++at, value);
        const std::size_t end = std::min(line.find(',', at), line.size());
        value += line.substr(at, end - at);
        at = end;
        if (at < line.size() && whole) continue;
        values.resize(count);
        return whole ? Result::Line : Result::OpenQuote;
    }
}

}  // namespace zt
