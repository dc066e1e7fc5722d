#pragma once

#include <QLabel>
#include <QStackedWidget>
#include <QTabBar>

#include "desktop/graph/story_plot.h"
#include "desktop/grid/grid_widget.h"
#include "desktop/window/filter_row.h"
#include "zt_tb/core/tb_view.h"

namespace zt {

/// The window of a view: the table in front, the filters of its columns above it, and the tabs of the view below. The
/// view outlives its use.
class TableHolder : public QWidget, public velda::TabStripHost {
    Q_OBJECT

public:
    explicit TableHolder(QWidget* parent = nullptr);
    ~TableHolder() override;

    /// Shows a view from now on; null for none.
    void SetView(CTBView* view);
    CTBView* View() const { return view_; }
    GridWidget& Grid() const { return *grid_; }
    FilterRow& Filters() const { return *filters_; }
    /// The plot beside a table of stories; hidden beside others.
    StoryPlot& Plot() const { return *plot_; }
    QTabBar& Tabs() const { return *tabs_; }
    /// The filters of all tables of the view, to be set again in a view that is made anew.
    ColumnFilters FilterTexts() const;
    void UseFilters(const ColumnFilters& filters);

    void OnTabsChanged() override;
    void OnTabSwitched(int tab) override;

signals:
    /// Another table of the view came to the front.
    void TableChanged();

private:
    void ShowTabs();
    void ShowTable();
    /// Draws what the table in front has to plot.
    void ShowPlot();
    /// Lets go of a table that the view no longer has.
    void ForgetLostTable();

    CTBView* view_ = nullptr;
    FilterRow* filters_;
    QStackedWidget* pages_;
    GridWidget* grid_;
    QLabel* missing_;
    StoryPlot* plot_;
    QTabBar* tabs_;
};

}  // namespace zt
