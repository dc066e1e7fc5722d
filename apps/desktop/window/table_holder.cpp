#include "desktop/window/table_holder.h"

#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/grid/qt_text.h"

namespace zt {

TableHolder::TableHolder(QWidget* parent) : QWidget(parent) {
    pages_ = new QStackedWidget;
    grid_ = new GridWidget;
    missing_ = new QLabel;
    missing_->setAlignment(Qt::AlignCenter);
    missing_->setForegroundRole(QPalette::PlaceholderText);
    missing_->setFocusPolicy(Qt::StrongFocus);
    pages_->addWidget(grid_);
    pages_->addWidget(missing_);
    filters_ = new FilterRow(*grid_);
    filters_->hide();
    tabs_ = new QTabBar;
    tabs_->setShape(QTabBar::RoundedSouth);
    tabs_->setDrawBase(false);
    tabs_->setExpanding(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(filters_);
    plot_ = new StoryPlot;
    auto* beside = new QSplitter;
    beside->addWidget(pages_);
    beside->addWidget(plot_);
    beside->setStretchFactor(0, 1);
    beside->setStretchFactor(1, 0);
    beside->setChildrenCollapsible(false);
    layout->addWidget(beside, 1);
    layout->addWidget(tabs_);

    connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) {
        if (view_) view_->SetCurrentTab(tab);
    });
    connect(grid_, &GridWidget::Refreshed, this, &TableHolder::ShowPlot);
    // A point of a scroll area's menu is one of its viewport.
    grid_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(grid_, &QWidget::customContextMenuRequested, this, [this](QPoint point) {
        if (view_) view_->OnContextMenu({point.x(), point.y()});
    });
}

// The window of the table goes last and tells of it.
TableHolder::~TableHolder() {
    SetView(nullptr);
    grid_->disconnect(this);
}

void TableHolder::ShowPlot() {
    const auto* results = dynamic_cast<const velda::CTBCore*>(grid_->Grid());
    plot_->Show(results ? ProfileOf(*results) : StoryProfile{});
}

void TableHolder::SetView(CTBView* view) {
    if (view_ && view_->GetTabWnd()) view_->GetTabWnd()->SetHost(nullptr);
    ForgetLostTable();
    view_ = view;
    if (view_ && view_->GetTabWnd()) view_->GetTabWnd()->SetHost(this);
    ShowTabs();
    ShowTable();
}

ColumnFilters TableHolder::FilterTexts() const {
    ColumnFilters filters;
    std::vector<velda::CTBGrid*> grids;
    if (view_) view_->GetAllGrid(grids);
    for (const velda::CTBGrid* grid : grids) {
        const auto* table = dynamic_cast<const velda::CTBBrowserWndEx*>(grid);
        auto& texts = filters.emplace_back();
        for (int col = 1; table && col <= table->GetColCount(); ++col) {
            const velda::ColumnId column = table->ColumnIdAt(col);
            if (const std::string text = table->FilterTextOf(column); !text.empty()) texts[column] = text;
        }
    }
    return filters;
}

void TableHolder::UseFilters(const ColumnFilters& filters) {
    std::vector<velda::CTBGrid*> grids;
    if (view_) view_->GetAllGrid(grids);
    for (std::size_t at = 0; at < grids.size() && at < filters.size(); ++at) {
        auto* table = dynamic_cast<velda::CTBBrowserWndEx*>(grids[at]);
        for (const auto& [column, text] : filters[at]) {
            if (table) table->FilterColumn(column, text);
        }
    }
}

void TableHolder::ForgetLostTable() {
    std::vector<velda::CTBGrid*> grids;
    if (view_) view_->GetAllGrid(grids);
    if (std::find(grids.begin(), grids.end(), grid_->Grid()) == grids.end()) grid_->ForgetGrid();
}

void TableHolder::ShowTabs() {
    const QSignalBlocker quiet(tabs_);
    const int count = view_ ? view_->GetTabCount() : 0;
    while (tabs_->count() > count) tabs_->removeTab(tabs_->count() - 1);
    while (tabs_->count() < count) tabs_->addTab({});
    for (int tab = 0; tab < count; ++tab) tabs_->setTabText(tab, ToQt(view_->GetTabLabel(tab)));
    if (count > 0) tabs_->setCurrentIndex(view_->GetCurrentTab());
    tabs_->setVisible(count > 1);
}

void TableHolder::ShowTable() {
    velda::CTBGrid* grid = view_ ? view_->GetActiveGrid() : nullptr;
    if (grid != grid_->Grid()) grid_->SetGrid(grid);
    missing_->setText(Word("IDS_DESKTOP_NOT_THERE_YET"));
    QWidget* page = grid ? static_cast<QWidget*>(grid_) : missing_;
    pages_->setCurrentWidget(page);
    setFocusProxy(page);
    filters_->LayOut();
    ShowPlot();
    if (view_) emit TableChanged();
}

void TableHolder::OnTabsChanged() {
    ForgetLostTable();
    ShowTabs();
    ShowTable();
}

void TableHolder::OnTabSwitched(int tab) {
    const QSignalBlocker quiet(tabs_);
    tabs_->setCurrentIndex(tab);
    ShowTable();
}

}  // namespace zt
