#include "zt_tb/core/tb_common_wnd.h"

#include "zt_tb/core/discard_results.h"

namespace zt {

CDataBase* CTBCommonWnd::GetDB() {
    CDBDoc* doc = CDBDoc::m_pDBDoc;
    return doc && doc->GetMDBCtrl() ? doc->GetMDBCtrl()->GetCurrentDB() : nullptr;
}

void CTBCommonWnd::OnAfterOpen() {
    CTBCommon::OnAfterOpen();
    if (runMode_ != kDetail) return;
    EnableInsertRowByPressingKey(false);
    EnableAppendRow(false);
}

bool CTBCommonWnd::SetCurrentCell(int row, int col, int flags) {
    if (CTBCommon::SetCurrentCell(row, col, flags)) return true;
    const int last = RowCount();
    if (last >= row || last < 1) return false;
    return CTBCommon::SetCurrentCell(last, col, flags) || SetLeftValidCell(last, col) || SetRightValidCell(last, col);
}

bool CTBCommonWnd::OnLockedEdit() { return AskToDiscardResults(); }

bool CTBCommonWnd::CanSaveData() {
    const CDataBase* db = GetDB();
    return CTBCommon::CanSaveData() && db && !db->IsReadOnly();
}

std::string CTBCommonWnd::GetRefusalReason() const {
    const CDataBase* db = GetDB();
    return db ? db->GetLastReason() : std::string();
}

bool CTBCommonWnd::BeginStep(const std::string& name) { return GetDB() && GetDB()->BeginGroup(name); }

bool CTBCommonWnd::EndStep() { return GetDB() && GetDB()->EndGroup(); }

void CTBCommonWnd::CancelStep() {
    if (CDataBase* db = GetDB()) db->CancelGroup();
}

std::string CTBCommonWnd::GetUnitText(velda::ColumnId column) const {
    std::string text;
    CUnitCtrl::GetUnitSystem(Columns().Info(column).unitCode, text);
    return text;
}

}  // namespace zt
