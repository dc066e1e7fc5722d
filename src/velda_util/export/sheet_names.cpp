#include "velda_util/export/sheet_names.h"

#include <cstddef>
#include <set>
#include <string_view>

#include "velda_util/text/unicode_text.h"

namespace velda {
namespace {

/// In units of UTF-16, as spreadsheet programs count.
constexpr std::size_t kMaxUnits = 31;
constexpr std::string_view kForbidden = "[]:*?/\\";

/// The beginning of a text that takes at most `units` units of UTF-16.
std::string_view Beginning(std::string_view text, std::size_t units) {
    std::size_t bytes = 0;
    while (bytes < text.size()) {
        const std::size_t length = FirstCharacterLength(text.substr(bytes));
        const std::size_t taken = length == 4 ? 2 : 1;
        if (taken > units) break;
        units -= taken;
        bytes += length;
    }
    return text.substr(0, bytes);
}

std::string AllowedName(const std::string& title) {
    std::string name = CleanUtf8(title);
    for (char& c : name) {
        const bool isControl = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
        if (isControl || kForbidden.find(c) != std::string_view::npos) c = '_';
    }
    name = Beginning(name, kMaxUnits);
    if (name.empty()) return "_";
    if (name.front() == '\'') name.front() = '_';
    if (name.back() == '\'') name.back() = '_';
    return name;
}

}  // namespace

std::vector<std::string> SheetNames(std::span<const std::string> titles) {
    // Spreadsheet programs keep this name for themselves.
    std::set<std::string> taken = {"history"};
    std::vector<std::string> names;
    for (const std::string& title : titles) {
        const std::string allowed = AllowedName(title);
        std::string name = allowed;
        for (int number = 2; !taken.insert(FoldCase(name)).second; ++number) {
            const std::string mark = " (" + std::to_string(number) + ")";
            name = std::string(Beginning(allowed, kMaxUnits - mark.size())) + mark;
        }
        names.push_back(std::move(name));
    }
    return names;
}

}  // namespace velda
