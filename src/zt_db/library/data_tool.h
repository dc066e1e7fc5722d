#pragma once

#include <span>
#include <string>

#include "velda_lib/number_text.h"

namespace zt {

/// Lists as choice lists show them.
struct CDB_DataTool {
    /// The entries, each followed by an end of line.
    static std::string ConvertArrayToString(std::span<const std::string> entries) {
        std::string lines;
        for (const std::string& entry : entries) (lines += entry) += '\n';
        return lines;
    }
    static std::string ConvertArrayToString(std::span<const double> entries) {
        std::string lines;
        for (const double entry : entries) (lines += velda::FormatDouble(entry)) += '\n';
        return lines;
    }
};

}  // namespace zt
