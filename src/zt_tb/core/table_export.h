#pragma once

#include "velda_util/export/grid_export_to_excel.h"
#include "zt_tb/core/tb_view.h"

namespace zt {

/// Adds the table of a tab to an export, under the label of the tab. A number outside the tabs is passed over.
void AddTable(velda::CGridExportToExcel& exporter, const CTBView& view, int tab);
/// Adds the tables of all tabs in their order.
void AddAllTables(velda::CGridExportToExcel& exporter, const CTBView& view);

}  // namespace zt
