#pragma once

#include <string>
#include <utility>
#include <vector>

#include "velda_util/cells/row_sort.h"
#include "velda_util/grid/gx_grid_core.h"
#include "velda_util/grid/table_dialogs.h"

namespace velda {

/// The columns whose look the user can choose.
class CTBStyleCtrl {
public:
    explicit CTBStyleCtrl(CTBGrid& grid) : grid_(grid) {}
    void Clear() { columns_.clear(); }
    /// Offers a field, under a title.
    void AddCol(std::string title, ColumnType /*type*/, int fieldNo) {
        columns_.push_back({fieldNo - 1, std::move(title)});
    }
    /// Lets the user choose the look; false when he cancels.
    bool ShowStyleDlg() {
        CTBStyleDlg dialog(grid_, columns_);
        return DoModal(dialog);
    }

private:
    CTBGrid& grid_;
    std::vector<CTBStyleDlg::Column> columns_;
};

/// Columns that are there for the program and not for the user.
class CTBVisibleCtrl {
public:
    explicit CTBVisibleCtrl(CGXGridCore& grid) : grid_(grid) {}
    void HideColsByIntend(int firstCol, int lastCol, bool hide) { grid_.HideColsByIntend(firstCol, lastCol, hide); }

private:
    CGXGridCore& grid_;
};

/// Which keys do something in a result grid.
class CTBKeyCtrl {
public:
    void EnableDeleteKey(bool enable) { deletes_ = enable; }
    bool IsDeleteKeyEnabled() const { return deletes_; }

private:
    bool deletes_ = true;
};

}  // namespace velda
