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

/// Reads from behind an opening quote to the next comma.
bool CsvLines::ReadQuoted(std::string_view line, std::size_t& at, std::string_view& value) {
    std::string& text = unquoted_.emplace_back();
    bool closed = false;
    for (; at < line.size() && !closed; ++at) {
        if (line[at] != '"') {
            text += line[at];
        } else if (line.substr(at + 1).starts_with('"')) {
            text += line[at++];
        } else {
            closed = true;
        }
    }
    const std::size_t end = std::min(line.find(',', at), line.size());
    text += line.substr(at, end - at);
    at = end;
    value = text;
    return closed;
}

CsvLines::Result CsvLines::Next(std::vector<std::string_view>& values) {
    std::string_view line;
    while (line.empty()) {
        if (rest_.empty()) return Result::End;
        line = TakeLine();
    }
    values.clear();
    unquoted_.clear();
    for (std::size_t at = 0;; ++at) {
        std::string_view& value = values.emplace_back();
        if (line.substr(at).starts_with('"')) {
            if (!ReadQuoted(line, ++at, value)) return Result::OpenQuote;
        } else {
            const std::size_t end = std::min(line.find(',', at), line.size());
            value = line.substr(at, end - at);
            at = end;
        }
        if (at >= line.size()) return Result::Line;
    }
}

}  // namespace zt
