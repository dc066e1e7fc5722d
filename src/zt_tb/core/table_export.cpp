#include "zt_tb/core/table_export.h"

namespace zt {

void AddTable(velda::CGridExportToExcel& exporter, const CTBView& view, int tab) {
    std::vector<velda::CTBGrid*> grids;
    if (tab < 0 || tab >= view.GetAllGrid(grids)) return;
    exporter.AddGrid(*grids[static_cast<std::size_t>(tab)], view.GetTabLabel(tab));
}

void AddAllTables(velda::CGridExportToExcel& exporter, const CTBView& view) {
    for (int tab = 0; tab < view.GetTabCount(); ++tab) AddTable(exporter, view, tab);
}

}  // namespace zt
