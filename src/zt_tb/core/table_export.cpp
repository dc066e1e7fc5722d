#include "zt_tb/core/table_export.h"

#include <algorithm>

namespace zt {

namespace {

/// The grid of a tab, or the one grid of a view without tabs; null where there is none.
velda::CTBGrid* GridOf(const CTBView& view, int tab) {
    if (const CMyGXTabWnd* tabs = view.GetTabWnd()) return dynamic_cast<velda::CTBGrid*>(tabs->GetPane(tab));
    return tab == 0 ? view.GetActiveGrid() : nullptr;
}

}  // namespace

void AddTable(velda::CGridExportToExcel& exporter, const CTBView& view, int tab) {
    velda::CTBGrid* grid = GridOf(view, tab);
    if (grid) exporter.AddGrid(*grid, view.GetTabWnd() ? view.GetTabLabel(tab) : view.GetTitle());
}

void AddAllTables(velda::CGridExportToExcel& exporter, const CTBView& view) {
    for (int tab = 0; tab < std::max(view.GetTabCount(), 1); ++tab) AddTable(exporter, view, tab);
}

}  // namespace zt
