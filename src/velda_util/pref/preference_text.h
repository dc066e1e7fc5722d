#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velda_util/pref/table_preferences.h"

namespace velda {

/// The preferences of all tables as the text of a file:
///
///     zt_tb tables 1.0
///     [table TBThik]
///     column 1 2 0 45
///     column 3 2 0 80
///     order 1 0
///     hidden 0
///     locked 1
///     checksum 0123456789abcdef
///
/// Every line ends with a line feed. A later minor version adds sections and keys only; whatever this version does not
/// know stays as it stands. Every later version keeps the form of the first and the last line.
class PreferenceText {
public:
    enum class Fault {
        None,
        Damaged,  ///< cut, changed, or no preferences at all
        Newer,    ///< whole, but of a later major version
    };

    /// Takes the bytes of a file; with a fault the text stays as it was.
    Fault Read(std::string_view bytes);
    std::string Bytes() const;

    /// What stands under a table name, unchecked but for the form: what is no number is given as -1. None when nothing
    /// stands there.
    std::optional<TablePreferences> Table(std::string_view name) const;
    /// Replaces what this version knows of a table.
    void SetTable(std::string_view name, const TablePreferences& preferences);

private:
    struct Section {
        std::string header;  // whole line; empty for what stands above the first section
        std::vector<std::string> lines;
    };

    Section& SectionOf(std::string_view name);

    int minorVersion_ = 0;
    std::vector<Section> sections_;
};

/// Lines with their checksum line behind them.
std::string WithChecksumLine(std::string lines);

}  // namespace velda
