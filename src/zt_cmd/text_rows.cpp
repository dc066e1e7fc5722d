#include "zt_cmd/text_rows.h"

#include <sstream>

namespace zt {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

std::vector<std::string> Parts(std::string_view line, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream{std::string(line)};
    for (std::string part; std::getline(stream, part, separator);) {
        part = Trimmed(part);
        // Several blanks part two cells as one does.
        if (separator != ' ' || !part.empty()) parts.push_back(part);
    }
    while (!parts.empty() && parts.back().empty()) parts.pop_back();
    return parts;
}

char SeparatorOf(std::string_view line) {
    for (const char separator : {'\t', ';', ','}) {
        if (line.find(separator) != std::string_view::npos) return separator;
    }
    return ' ';
}

}  // namespace

std::vector<TextRow> TextRows(std::string_view text) {
    std::vector<TextRow> rows;
    std::istringstream stream{std::string(text)};
    std::size_t number = 0;
    for (std::string line; std::getline(stream, line);) {
        ++number;
        std::vector<std::string> cells = Parts(line, SeparatorOf(line));
        if (!cells.empty()) rows.push_back({number, std::move(cells)});
    }
    return rows;
}

}  // namespace zt
