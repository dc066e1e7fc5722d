#include "desktop/window/docked_table.h"

#include <QVBoxLayout>

#include "desktop/grid/qt_text.h"
#include "desktop/window/open_rows.h"
#include "zt_tb/model/tb_pre_view.h"

namespace zt {
namespace {

/// Panes of table kinds are numbered behind this identifier.
constexpr std::uint32_t kFirstPane = 34000;
/// The frame stands out over the pane at the right and below by its border, which a widget does not have.
constexpr int kFrameBorder = 4;

}  // namespace

DockedTable::DockedTable(QMainWindow& window, int kind)
    : pane_(window, *this, QStringLiteral("table%1").arg(kind), ToQt(CTBPreView::GetTableName(kind))) {
    SetInitData(kFirstPane + static_cast<std::uint32_t>(kind), &kind);
    pane_.mayClose = [this] { return !GetCurrentView() || LeaveOrDropRows(*GetCurrentView()); };
}

DockedTable::~DockedTable() {
    delete holder_;
    OnDestroy();
}

bool DockedTable::Open() {
    ShowDockView();
    return GetOrCreateView() != nullptr;
}

void DockedTable::Reopen() {
    if (!IsOpen()) return;
    const bool visible = pane_.IsVisible();
    const ColumnFilters filters = holder_->FilterTexts();
    CloseDockViewImpl();
    GetOrCreateView();
    holder_->UseFilters(filters);
    pane_.Show(visible);
    pane_.SetTitle(ToQt(CTBPreView::GetTableName(GetTableKind())));
}

void DockedTable::OnAfterCreateView() {
    QWidget* frame = dynamic_cast<WidgetHolder&>(*GetCurrentView()->GetWindow()).Widget();
    holder_ = new TableHolder(frame);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, kFrameBorder, kFrameBorder);
    layout->addWidget(holder_);
    // A view that closes its frame ends what the pane shows.
    QObject::connect(frame, &QObject::destroyed, &pane_.Dock(), [this] {
        if (GetCurrentView() && !GetCurrentView()->GetWindow()->IsOpen()) CloseDockViewImpl();
    });
    CDockView_PreTable::OnAfterCreateView();
    holder_->SetView(GetCurrentView());
    if (onOpened) onOpened(*holder_);
}

void DockedTable::OnClosed() {
    if (onClosing) onClosing();
    delete holder_;
    CDockView_PreTable::OnClosed();
}

}  // namespace zt
