#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "velda_lib/outcome.h"
#include "velda_util/pref/preference_text.h"

namespace velda {

/// The file that keeps the preferences of all tables of a user. It may be shared by several processes. Nothing that is
/// wrong with it stops the program: tables without preferences use their defaults.
class PreferenceFile {
public:
    /// An empty path means that there is no place for the file.
    explicit PreferenceFile(const std::filesystem::path& path = DefaultPath());

    static std::filesystem::path DefaultPath();
    const std::filesystem::path& Path() const { return path_; }

    /// Reads the file. One that is damaged is set aside under another name.
    void Load();
    /// What the file held for a table when it was last read or written; none when it held nothing.
    std::optional<TablePreferences> Table(std::string_view name) const { return text_.Table(name); }
    /// Writes the preferences of one table. What other processes have written for other tables since stays.
    Outcome WriteTable(std::string_view name, const TablePreferences& preferences);

    /// What the user should know about the file, once; empty when there is nothing to tell.
    std::string TakeMessage();

private:
    Outcome Refresh();
    Outcome SetAside();
    Outcome Refusal(const char* key, const std::string& detail) const;

    std::filesystem::path path_;
    PreferenceText text_;
    std::string onDisk_;  // bytes of the file that stands in its place, as last seen; empty when none does
    std::string message_;
};

}  // namespace velda
