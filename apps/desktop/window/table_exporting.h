#pragma once

#include <QString>
#include <vector>

#include "velda_lib/outcome.h"
#include "velda_util/grid/tb_grid.h"

namespace zt {

/// A table and the title of its sheet.
struct TableToExport {
    const velda::CTBGrid* grid;
    std::string title;
};

/// Writes tables to a file with a progress bar. `stopped` tells that the user cancelled, and there is no file then.
velda::Outcome ExportTables(const std::vector<TableToExport>& tables, const QString& path, bool& stopped);

}  // namespace zt
