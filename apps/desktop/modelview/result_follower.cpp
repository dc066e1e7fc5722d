#include "desktop/modelview/result_follower.h"

namespace zt {

void ResultFollower::Follow(velda::CTBCore* grid) {
    int row = 1;
    int col = 1;
    if (grid) grid->GetCurrentCell(row, col);
    row = std::max(row, 1);
    col = std::max(col, 1);
    Shown now{.grid = grid, .deformed = deformed_, .colours = colours_};
    if (grid && grid->GetDataSrc() && grid->RecCtrl().RecCount() > 0 && col <= grid->GetColCount()) {
        now.load = LoadOfRow(*grid, row);
        now.column = grid->ColumnIdAt(col);
        now.unit = grid->GetDataSrc()->GetUnitText(grid->Columns().Info(now.column).unitCode);
        now.records = grid->RecCtrl().RecCount();
    }
    if (now == shown_) return;
    shown_ = now;
    const bool hasRow = now.load && CDBDoc::m_pDBDoc;
    view_.ShowDeformed(deformed_ && hasRow ? DeformedShapeOf(*CDBDoc::m_pDBDoc->GetPostCtrl(), *now.load)
                                           : DeformedShape{});
    view_.ShowColours(colours_ && hasRow ? ColoursOfColumn(*grid, row, col) : ResultColours{});
}

}  // namespace zt
