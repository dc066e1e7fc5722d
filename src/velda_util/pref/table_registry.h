#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velda_lib/outcome.h"
#include "velda_util/pref/preference_file.h"
#include "velda_util/pref/table_preferences.h"

namespace velda {

class CTBDataSrc;

/// Makes the source of a table of results for a tab of a kind; the argument tells apart the tabs of one class.
using DataSrcFactory = std::unique_ptr<CTBDataSrc> (*)(int kind, int argument);

/// The registered tables and the user's preferences of each. The file is read when preferences are first asked for, not
/// while tables register.
class TableRegistry {
public:
    explicit TableRegistry(PreferenceFile file = PreferenceFile()) : file_(std::move(file)) {}
    TableRegistry(const TableRegistry&) = delete;
    TableRegistry& operator=(const TableRegistry&) = delete;

    /// The registry of the process, in which table classes register at load time.
    static TableRegistry& OfProcess();

    /// Changes over to another file; what has not been written is forgotten.
    void UseFile(PreferenceFile file);

    /// Registers a table and returns the name to keep. Throws std::invalid_argument for an empty name, for no function,
    /// and for a name that is registered with another function.
    std::string RegisterTable(std::string_view name, DefaultPreferenceFunction defaults);
    /// Registers a table of results: the name of its class, the name of its preferences, which is returned, and what
    /// makes its source. The source tells the default preferences. Throws std::invalid_argument like the above, and for
    /// a class that is registered under another name.
    std::string RegisterTable(std::string_view className, std::string_view name, DataSrcFactory factory);
    /// What makes the sources of a class of result tables; null when none of this name is registered.
    DataSrcFactory FactoryOf(std::string_view className) const;
    /// Names of all tables, sorted by bytes.
    std::vector<std::string> RegisteredNames() const;

    /// Current preferences of the columns, by column id: those of the user when there is one for each column, else the
    /// defaults. Empty for an unknown name.
    std::vector<STBPrefItem> GetPrefInfo(std::string_view name);
    /// Replaces the preferences of the columns until they are written. A value out of range or an item of another
    /// column type leaves what stood there. False, and nothing done, for an unknown name or another number of columns.
    bool SetPrefInfo(std::string_view name, const std::vector<STBPrefItem>& items);
    /// Replaces the widths alone, by column id, in the same way.
    bool SetCurrColWithInPrefInfo(std::string_view name, const std::vector<int>& widths);

    /// How the user laid the table out; an empty layout for an unknown name.
    TableLayout GetLayout(std::string_view name);
    /// Replaces the layout until it is written. What does not fit the columns is left out. False for an unknown name.
    bool SetLayout(std::string_view name, const TableLayout& layout);

    /// Writes preferences and layout of a table to the user's file. When that is refused they stay in force in this
    /// process.
    Outcome WriteToRegistry(std::string_view name);

    /// What the user should know about the file, once; empty when there is nothing to tell.
    std::string TakeMessage();

private:
    struct Entry {
        DefaultPreferenceFunction defaults = nullptr;
        DataSrcFactory factory = nullptr;           // of a table of results, in place of the function
        std::optional<TablePreferences> changed{};  // set here and not written yet
    };

    std::string Add(std::string_view name, const Entry& entry);
    Entry* Find(std::string_view name);
    PreferenceFile& LoadedFile();
    TablePreferences Current(std::string_view name, const Entry& entry);

    std::map<std::string, Entry, std::less<>> entries_;
    std::map<std::string, std::string, std::less<>> classes_;  // names of result tables by those of their classes
    PreferenceFile file_;
    bool loaded_ = false;
};

}  // namespace velda
