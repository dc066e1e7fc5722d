#include "desktop/window/open_rows.h"

#include "velda_base/host/message_box.h"
#include "velda_lib/msg_dll.h"

namespace zt {
namespace {

std::string FindingsOf(const velda::CTBBrowserWnd& table) {
    std::string text;
    for (const velda::EditFinding& finding : table.Session().Findings()) {
        if (finding.message.empty()) continue;
        text += (text.empty() ? "" : "\n") + finding.message;
    }
    return text;
}

void DropRow(velda::CTBBrowserWnd& table) {
    // The first step drops the open editor, the next one the row.
    for (int step = 0; step < 2 && table.Session().IsRowOpen(); ++step) {
        table.DoCommand(velda::TableCommand::Cancel);
    }
}

bool LeaveOrDrop(velda::CTBGrid& grid) {
    if (grid.LeaveRow()) return true;
    auto* table = dynamic_cast<velda::CTBBrowserWnd*>(&grid);
    // A row that was lost meanwhile is no longer open.
    if (!table || !table->Session().IsRowOpen()) return true;
    const std::string question = velda::FormatText("IDS_DESKTOP_DROP_ROW", {FindingsOf(*table)});
    if (velda::AfxMessageBox(question, velda::MessageButtons::YesNo) != velda::MessageAnswer::Yes) return false;
    DropRow(*table);
    return !table->Session().IsRowOpen();
}

}  // namespace

bool LeaveOrDropRows(CTBView& view) {
    std::vector<velda::CTBGrid*> grids;
    view.GetAllGrid(grids);
    for (velda::CTBGrid* grid : grids) {
        if (!LeaveOrDrop(*grid)) return false;
    }
    return true;
}

}  // namespace zt
