#include "zt_anl/analysis_log.h"

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace zt {

std::string LogLine::Text() const {
    const auto value = [&](std::size_t i) { return i < values.size() ? std::string_view(values[i]) : ""; };
    return velda::FormatText(key, {value(0), value(1), value(2), value(3), value(4), value(5), value(6)});
}

void AnalysisLog::Note(std::string_view key, std::vector<std::string> values) {
    lines_.push_back({LogLevel::Note, std::string(key), std::move(values)});
}

void AnalysisLog::Warn(std::string_view key, std::vector<std::string> values) {
    if (++warnings_[std::string(key)] > kMostOfOneKind) return;
    lines_.push_back({LogLevel::Warning, std::string(key), std::move(values)});
}

bool AnalysisLog::Has(std::string_view key) const {
    return std::any_of(lines_.begin(), lines_.end(), [&](const LogLine& line) { return line.key == key; });
}

std::uint64_t AnalysisLog::Warnings() const {
    std::uint64_t count = 0;
    for (const auto& [key, times] : warnings_) count += times;
    return count;
}

std::string AnalysisLog::Text() const {
    std::string text;
    for (const LogLine& line : lines_) {
        text += line.level == LogLevel::Warning ? velda::FormatText("IDS_ANL_WARNING", {line.Text()}) : line.Text();
        text += '\n';
    }
    for (const auto& [key, times] : warnings_) {
        if (times <= kMostOfOneKind) continue;
        text += velda::FormatText("IDS_ANL_MORE_OF_ONE_KIND", {velda::FormatLong(times - kMostOfOneKind)}) + '\n';
    }
    return text;
}

}  // namespace zt
