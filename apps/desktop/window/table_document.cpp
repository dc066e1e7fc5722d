#include "desktop/window/table_document.h"

#include <algorithm>

#include "desktop/grid/qt_text.h"
#include "zt_tb/model/tb_pre_view.h"
#include "zt_tb/model/tb_prop_view.h"
#include "zt_tb/post/tb_post_view.h"

namespace zt {
namespace {

std::unique_ptr<CTBView> OpenProperties(int kind, velda::CWnd& window) {
    auto view = std::make_unique<CTBPropView>();
    view->SetWindow(&window);
    view->OpenProperties(kind);
    return view;
}

std::unique_ptr<CTBView> OpenTables(int kind, velda::CWnd& window) {
    auto view = std::make_unique<CTBPreView>();
    view->SetWindow(&window);
    view->SetTable(kind, nullptr);
    return view;
}

std::unique_ptr<CTBView> OpenResults(int kind, velda::CWnd& window) {
    auto view = std::make_unique<CTBPostView>();
    view->SetWindow(&window);
    view->AddTable(kind);
    return view;
}

constexpr std::unique_ptr<CTBView> (*kOpeners[])(int kind, velda::CWnd& window) = {&OpenTables, &OpenProperties,
                                                                                   &OpenResults};

}  // namespace

std::string TableDocument::Frame::GetTitle() const { return FromQt(owner_.title_); }

void TableDocument::Frame::SetTitle(const std::string& title) {
    owner_.title_ = ToQt(title);
    emit owner_.TitleChanged(owner_.title_);
}

void TableDocument::Frame::Close() {
    QMetaObject::invokeMethod(&owner_, &TableDocument::CloseRequested, Qt::QueuedConnection);
}

TableDocument::TableDocument(TableId id, QWidget* parent) : TableHolder(parent), id_(id) { MakeView(); }

void TableDocument::MakeView() {
    view_ = kOpeners[static_cast<std::size_t>(id_.sort)](id_.kind, frame_);
    SetView(view_.get());
}

void TableDocument::UseLanguage() {
    if (view_->UpdateLanguage()) {
        Grid().Refresh();
    } else {
        Reopen();
    }
}

void TableDocument::Reopen() {
    const int tab = view_->GetCurrentTab();
    velda::GridPosition cell;
    const bool hasCell = view_->GetActiveGrid() && view_->GetActiveGrid()->GetCurrentCell(cell.row, cell.column);
    const ColumnFilters filters = FilterTexts();
    SetView(nullptr);
    view_->OnDestroy();
    MakeView();
    UseFilters(filters);
    view_->SetCurrentTab(tab);
    if (hasCell && view_->GetActiveGrid()) view_->GetActiveGrid()->SetCurrentCell(cell.row, cell.column);
    Grid().Refresh();
}

TableDocument::~TableDocument() {
    SetView(nullptr);
    view_->OnDestroy();
}

bool TableDocument::Shows(TableId id) const {
    return id == id_ || (id.sort == TableSort::Property && id_.sort == TableSort::Property);
}

void TableDocument::BringToFront(TableId id) {
    if (id.sort != TableSort::Property || id_.sort != TableSort::Property) return;
    const auto tables = CTBPropView::Tables();
    const auto found = std::find_if(tables.begin(), tables.end(),
                                    [&](const CTBPropView::TableEntry& entry) { return entry.kind == id.kind; });
    if (found != tables.end()) view_->SetCurrentTab(static_cast<int>(found - tables.begin()));
}

}  // namespace zt
