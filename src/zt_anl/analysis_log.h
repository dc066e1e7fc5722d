#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zt {

/// How much a line of the log matters.
enum class LogLevel { Note, Warning };

/// A line of the log as a text key with values.
struct LogLine {
    LogLevel level = LogLevel::Note;
    std::string key{};
    std::vector<std::string> values{};

    /// In the current language.
    std::string Text() const;
};

/// What an analysis has to say besides its results. Of warnings of one kind only the first ones are held; the others
/// are counted.
class AnalysisLog {
public:
    static constexpr std::uint32_t kMostOfOneKind = 20;

    void Note(std::string_view key, std::vector<std::string> values = {});
    void Warn(std::string_view key, std::vector<std::string> values = {});

    const std::vector<LogLine>& Lines() const { return lines_; }
    /// Whether a line of a key stands in the log.
    bool Has(std::string_view key) const;
    /// Warnings, those that are only counted included.
    std::uint64_t Warnings() const;
    /// The whole log in the current language, one line for each entry.
    std::string Text() const;

private:
    std::vector<LogLine> lines_;
    std::map<std::string, std::uint32_t, std::less<>> warnings_;
};

}  // namespace zt
