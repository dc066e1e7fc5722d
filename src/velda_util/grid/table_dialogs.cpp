#include "velda_util/grid/table_dialogs.h"

namespace velda {

std::vector<ColumnId> CTBSortDlg::Columns() const {
    std::vector<ColumnId> ids;
    for (int col = 1; col <= table_.GetColCount(); ++col) {
        if (!table_.IsColumnHidden(col)) ids.push_back(table_.ColumnIdAt(col));
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
    CTBStyleDlg dialog(*table_);
    return DoModal(dialog);
}

}  // namespace velda
