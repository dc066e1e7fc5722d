#pragma once

#include <QLineEdit>
#include <map>

#include "desktop/grid/grid_widget.h"
#include "velda_util/grid/tb_browser_wnd_ex.h"

namespace zt {

/// Filter texts of the tables of a view, in the order of its tabs, by column.
using ColumnFilters = std::vector<std::map<velda::ColumnId, std::string>>;

/// A line of edits above a table, one over each shown column, that filter the table. It scrolls with the columns.
class FilterRow : public QWidget {
    Q_OBJECT

public:
    explicit FilterRow(GridWidget& grid, QWidget* parent = nullptr);

    /// Puts the edits over the columns as they stand now.
    void LayOut();
    /// Null when the column is not shown.
    QLineEdit* EditOf(velda::ColumnId column) const;
    /// Takes the filters of all columns away.
    void Clear();

signals:
    /// The filter of a column has changed the rows that are shown.
    void Filtered();

protected:
    void showEvent(QShowEvent* event) override;

private:
    velda::CTBBrowserWndEx* Table() const;
    QLineEdit* MakeEdit(velda::ColumnId column);
    void Apply(velda::ColumnId column, QLineEdit& edit);

    GridWidget& grid_;
    QWidget* scrolled_;  ///< holds the edits that scroll, so that they do not cover the frozen ones
    std::map<velda::ColumnId, QLineEdit*> edits_;
    const velda::CTBGrid* shown_ = nullptr;
};

}  // namespace zt
