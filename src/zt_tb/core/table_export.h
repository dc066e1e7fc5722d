#pragma once

#include "velda_util/export/grid_export_to_excel.h"
#include "zt_tb/core/tb_view.h"

namespace zt {

/// Adds the table of a tab to an export, under the label of the tab; in a view of one grid that grid, under the title
/// of the view. A number outside the tabs, and a tab without a table, are passed over.
void AddTable(velda::CGridExportToExcel& exporter, const CTBView& view, int tab);
/// Adds the tables of all tabs in their order.
void AddAllTables(velda::CGridExportToExcel& exporter, const CTBView& view);

}  // namespace zt
