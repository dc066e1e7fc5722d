#include "zt_tb/core/tb_find_dlg.h"

namespace zt {

void CTBFindDlg::OnInitDialog() {
    const velda::STBFindStruct& find = velda::CTBGrid::m_Find;
    text = find.text;
    matchCase = find.matchCase;
    allColumns = !find.onlyCurrentColumn;
    direction = find.direction;
}

bool CTBFindDlg::OnOK() {
    if (!IsFindEnabled()) return false;
    velda::STBFindStruct& find = velda::CTBGrid::m_Find;
    find.text = text;
    find.matchCase = matchCase;
    find.onlyCurrentColumn = !allColumns;
    find.direction = direction;
    table_.FindNext(find);
    return true;
}

}  // namespace zt
