#include "velda_util/grid/table_dialogs.h"

#include <algorithm>

namespace velda {

std::vector<ColumnId> ColumnsInSight(const CTBGrid& table) {
    std::vector<ColumnId> ids;
    for (int col = 1; col <= table.GetColCount(); ++col) {
        if (!table.IsColumnHidden(col)) ids.push_back(table.ColumnIdAt(col));
    }
    return ids;
}

std::vector<ColumnId> CTBSortDlg::Columns() const {
    std::vector<ColumnId> ids = ColumnsInSight(table_);
    for (const STBSortItem& item : table_.SortInfo()) {
        if (std::find(ids.begin(), ids.end(), item.column) == ids.end()) ids.push_back(item.column);
    }
    return ids;
}

bool CTBStyleDlg::OnOK() {
    const std::string& name = table_.GetTableName();
    if (!TableRegistry::OfProcess().SetPrefInfo(name, items)) return false;
    static_cast<void>(CTBGrid::WriteToRegistry(name));
    const GridUpdateLock lock(table_);
    table_.ApplyColumnPreferences();
    return true;
}

bool CTBStyleCtrlEx::ShowStyleDlg() {
    if (!table_) return false;
    std::vector<CTBStyleDlg::Column> columns;
    for (const ColumnId id : ColumnsInSight(*table_)) columns.push_back({id, table_->Columns().Info(id).title});
    CTBStyleDlg dialog(*table_, std::move(columns));
    return DoModal(dialog);
}

}  // namespace velda
