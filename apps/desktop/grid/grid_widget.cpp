#include "desktop/grid/grid_widget.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/grid/grid_accessible.h"
#include "desktop/grid/grid_painter.h"
#include "desktop/grid/key_translation.h"
#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

constexpr double kSmallestZoom = 0.5;
constexpr double kLargestZoom = 3.0;
constexpr double kZoomStep = 0.1;
constexpr int kWheelRows = 3;
constexpr int kWheelNotch = 120;
constexpr int kScrollStep = 20;
constexpr int kDragInterval = 50;
/// Rows that are looked at, besides those in sight, when a column is fitted.
constexpr int kSampledRows = 200;
constexpr int kLargestFit = 600;
/// Pixels of a row header beside its number: the pencil and the margins.
constexpr int kRowHeaderMargins = 26;

velda::PositionRange LastRange(const velda::CTBGrid& grid) {
    const auto& ranges = grid.Selected().Ranges();
    return ranges.empty() ? velda::PositionRange{} : ranges.back();
}

}  // namespace

GridWidget::GridWidget(QWidget* parent) : QAbstractScrollArea(parent) {
    InstallGridAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setFrameShape(QFrame::NoFrame);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    list_ = new ChoicePopup(viewport());
    editor_ =
        new CellEditor(viewport(), [this](QKeyEvent& event) { return HandleKey(event) || HandleListTyping(event); });
    connect(list_, &ChoicePopup::Picked, this, &GridWidget::PickFromList);
    connect(editor_, &CellEditor::Typed, this, [this](const QString& text) {
        if (IsCellOpen()) browser_->ChangeEditorText(FromQt(text));
        Refresh();
    });
}

GridWidget::~GridWidget() { SetGrid(nullptr); }

void GridWidget::SetGrid(velda::CTBGrid* grid) {
    if (grid_) grid_->SetHost(nullptr);
    grid_ = grid;
    browser_ = dynamic_cast<velda::CTBBrowserWnd*>(grid);
    scroll_.topRow = 1;
    scroll_.left = 0;
    shownCurrent_ = {};
    if (grid_) grid_->SetHost(this);
    Refresh();
}

void GridWidget::ForgetGrid() {
    grid_ = nullptr;
    SetGrid(nullptr);
}

// ---- what is seen ----

QFont GridWidget::HeaderFont() const {
    return GridPainter::CellFont(font(), grid_->Styles().StandardStyle(), scroll_.zoom);
}

GridGeometry GridWidget::Geometry() const {
    const QFontMetrics metrics(HeaderFont());
    const auto digits = QString::number(grid_->RowCount()).size();
    const int numbers = metrics.horizontalAdvance(QLatin1Char('0')) * std::max(3, static_cast<int>(digits));
    const GridGeometry::Measures measures{numbers + GridGeometry::Scaled(kRowHeaderMargins, scroll_.zoom),
                                          metrics.height() + 4};
    return {*grid_, scroll_, viewport()->size(), measures};
}

void GridWidget::SetZoom(double zoom) {
    scroll_.zoom = std::clamp(zoom, kSmallestZoom, kLargestZoom);
    if (grid_) Refresh();
}

void GridWidget::ShowCell(velda::GridPosition cell) {
    if (!cell.IsValid()) return;
    const GridGeometry geometry = Geometry();
    if (cell.row < scroll_.topRow) scroll_.topRow = cell.row;
    scroll_.topRow = std::max(scroll_.topRow, geometry.TopRowFor(cell.row));
    scroll_.left = geometry.LeftFor(cell.column);
}

void GridWidget::ScrollBy(int rows, int pixels) {
    verticalScrollBar()->setValue(verticalScrollBar()->value() + rows);
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + pixels);
}

int GridWidget::WidestText(int col) const {
    int widest = 0;
    const auto measure = [&](int row) {
        const velda::CGXStyle style = grid_->StyleOf(row, col);
        if (style.IsCheckBox()) return;
        const QFontMetrics metrics(GridPainter::CellFont(font(), style, 1.0));
        const int arrow = style.HasList() ? GridPainter::ArrowWidth(1.0) : 0;
        widest = std::max(widest, metrics.horizontalAdvance(ToQt(grid_->GetShownText(row, col))) + arrow);
    };
    const GridGeometry geometry = Geometry();
    for (const GridBand& row : geometry.Rows()) measure(row.number);
    const int rows = grid_->RowCount();
    const int samples = std::min(rows, kSampledRows);
    for (int at = 0; at < samples; ++at) {
        measure(1 + static_cast<int>(static_cast<long long>(rows) * at / samples));
    }
    return widest;
}

void GridWidget::FitColumn(int col) {
    const auto id = static_cast<std::uint32_t>(grid_->ColumnIdAt(col));
    const velda::CGXStyle& style = grid_->Styles().ResolveHeader(grid_->Header().RowCount() - 1, id);
    const QFontMetrics metrics(GridPainter::CellFont(font(), style, 1.0));
    const int title = metrics.horizontalAdvance(ToQt(grid_->Header().ColumnTitle(id)));
    const int width = std::max(title, WidestText(col)) + 2 * GridPainter::Padding(1.0) + 3;
    grid_->SetColWidth(col, std::clamp(width, 2 * GridPainter::Padding(1.0), kLargestFit));
    Refresh();
}

void GridWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    if (!grid_) {
        painter.fillRect(event->rect(), palette().window());
        return;
    }
    const GridGeometry geometry = Geometry();
    const GridColors colors = GridColors::Of(palette());
    GridPainter(painter, *grid_, geometry, colors, font(), scroll_.zoom).Paint(event->rect(), mouse_.Mark());
}

QString GridWidget::TipAt(QPoint point) const {
    if (!grid_) return {};
    const GridGeometry::Hit hit = Geometry().At(point);
    const bool isCell = hit.part == GridGeometry::Part::Cell;
    if (!isCell && hit.part != GridGeometry::Part::RowHeader) return {};
    const velda::RowId row = grid_->RowIdAt(hit.position.row);
    const velda::ColumnId column = isCell ? grid_->ColumnIdAt(hit.position.column) : velda::kNoColumn;
    if (browser_) {
        for (const velda::EditFinding& finding : browser_->Session().Findings()) {
            if (finding.row == row && finding.column == column) return ToQt(finding.message);
        }
    }
    return isCell ? ToQt(grid_->StyleOf(hit.position.row, hit.position.column).GetToolTip()) : QString();
}

// ---- taking over what the engine holds ----

void GridWidget::Refresh() {
    redrawWaits_ = false;
    viewport()->update();
    if (!grid_) {
        editor_->Leave();
        list_->hide();
        verticalScrollBar()->setRange(1, 1);
        horizontalScrollBar()->setRange(0, 0);
        emit Refreshed();
        return;
    }
    FollowCurrentCell();
    UpdateScrollBars();
    FollowEditor(Geometry());
    emit Refreshed();
}

void GridWidget::FollowCurrentCell() {
    const velda::CellId current = grid_->CurrentCellId();
    if (current == shownCurrent_) return;
    shownCurrent_ = current;
    velda::GridPosition position;
    if (grid_->GetCurrentCell(position.row, position.column)) {
        ShowCell(position);
        TellCurrentCell(*this);
    }
    emit CurrentCellChanged();
}

void GridWidget::UpdateScrollBars() {
    const bool before = std::exchange(settingBars_, true);
    // The bars come and go with their ranges, and the window changes with them.
    horizontalScrollBar()->setRange(0, Geometry().LargestLeft());
    verticalScrollBar()->setRange(1, std::max(1, Geometry().LargestTopRow()));
    horizontalScrollBar()->setRange(0, Geometry().LargestLeft());
    const GridGeometry geometry = Geometry();
    const int largestTop = std::max(1, geometry.LargestTopRow());
    const int rows = geometry.FullRows();
    grid_->SetPageRows(rows);
    scroll_.topRow = std::clamp(scroll_.topRow, 1, largestTop);
    scroll_.left = std::clamp(scroll_.left, 0, geometry.LargestLeft());
    verticalScrollBar()->setRange(1, largestTop);
    verticalScrollBar()->setPageStep(rows);
    verticalScrollBar()->setValue(scroll_.topRow);
    horizontalScrollBar()->setPageStep(geometry.ScrolledArea().width());
    horizontalScrollBar()->setSingleStep(kScrollStep);
    horizontalScrollBar()->setValue(scroll_.left);
    grid_->SetTopLeft({scroll_.topRow, Geometry().FirstScrolledColumn()});
    settingBars_ = before;
}

void GridWidget::FollowEditor(const GridGeometry& geometry) {
    QRect place;
    velda::GridPosition cell;
    if (IsCellOpen()) {
        const velda::CellId id = browser_->Session().Cell();
        cell = {browser_->PositionOfRow(id.row), browser_->PositionOfColumn(id.column)};
        place = geometry.CellRect(cell.row, cell.column) & geometry.CellArea();
    }
    if (place.isEmpty()) {
        // The focus comes back here and does not wander to the next window.
        if (editor_->hasFocus()) setFocus();
        list_->hide();
        editor_->Leave();
        return;
    }
    const velda::CGXStyle& style = browser_->StyleOf(cell.row, cell.column);
    editor_->Follow(*browser_, place.adjusted(1, 1, -2, -2), GridPainter::CellFont(font(), style, scroll_.zoom));
    editor_->setToolTip(TipAt(place.center()));
    if (hasFocus() && !isComposing_) editor_->setFocus();
    FollowList(place);
}

void GridWidget::FollowList(const QRect& cell) {
    if (!browser_->IsListOpen()) {
        list_->hide();
        return;
    }
    const velda::CellId id = browser_->Session().Cell();
    const int row = browser_->PositionOfRow(id.row);
    const int col = browser_->PositionOfColumn(id.column);
    const bool several = browser_->StyleOf(row, col).GetControl() == velda::ControlKind::CheckListComboBox;
    list_->setFont(editor_->font());
    list_->ShowFor(cell, browser_->ChoicesOf(row, col), browser_->Session().EditorText(), several);
}

void GridWidget::PickFromList(int line) {
    if (!IsCellOpen()) return;
    const velda::CellId cell = browser_->Session().Cell();
    const int row = browser_->PositionOfRow(cell.row);
    const int col = browser_->PositionOfColumn(cell.column);
    const auto index = static_cast<std::size_t>(line);
    if (browser_->StyleOf(row, col).GetControl() == velda::ControlKind::CheckListComboBox) {
        browser_->ChangeEditorText(list_->Toggled(index));
    } else if (browser_->ChangeEditorText(std::string(list_->Choices().Key(index)))) {
        browser_->AcceptEditor();
    }
    Refresh();
}

void GridWidget::OnRedraw() {
    viewport()->update();
    // The engine may be in the middle of a change.
    if (std::exchange(redrawWaits_, true)) return;
    QTimer::singleShot(0, this, [this] {
        if (redrawWaits_) Refresh();
    });
}

void GridWidget::OnWarning(const std::string& text) { emit Warned(ToQt(text)); }

void GridWidget::OnMessage(const std::string& text) { emit Told(ToQt(text)); }

void GridWidget::OnTopLeft(velda::GridPosition cell) {
    if (!grid_ || settingBars_) return;
    scroll_.topRow = cell.row;
    scroll_.left = Geometry().LeftOf(cell.column);
    OnRedraw();
}

std::optional<velda::GridPosition> GridWidget::CellUnder(const velda::CGXGridCore& grid,
                                                         velda::WindowPoint point) const {
    if (&grid != grid_) return grid.HitTest(point);
    const GridGeometry::Hit hit = Geometry().At({point.x, point.y});
    const bool isCell = hit.part == GridGeometry::Part::Cell || hit.part == GridGeometry::Part::ColumnHeader;
    return isCell ? std::optional(hit.position) : std::nullopt;
}

void GridWidget::SetClipboardText(std::string text) { QGuiApplication::clipboard()->setText(ToQt(text)); }

std::string GridWidget::GetClipboardText() { return FromQt(QGuiApplication::clipboard()->text()); }

// ---- keys ----

bool GridWidget::HandleKey(const QKeyEvent& event) {
    const auto chord = ChordOfEvent(event);
    if (!grid_ || !chord) return false;
    const auto command = grid_->CommandOf(*chord);
    if (!command) return false;
    const velda::PositionRange before = LastRange(*grid_);
    // What was told of a text that is dropped no longer holds.
    if (*command == velda::TableCommand::Cancel) emit Told({});
    if (*command == velda::TableCommand::Find) {
        emit FindRequested();
    } else {
        grid_->ProcessKey(*chord);
    }
    FollowSelection(before);
    Refresh();
    return true;
}

bool GridWidget::HandleListTyping(const QKeyEvent& event) {
    if (!browser_ || !browser_->IsListOpen() || !IsTyping(event)) return false;
    browser_->TypeText(FromQt(event.text()));
    Refresh();
    return true;
}

void GridWidget::FollowSelection(velda::PositionRange before) {
    const velda::PositionRange range = LastRange(*grid_);
    velda::GridPosition current;
    if (range == before || range.HoldsWholeRows() || range.HoldsWholeColumns()) return;
    if (!grid_->GetCurrentCell(current.row, current.column)) return;
    ShowCell(
        {range.top == current.row ? range.bottom : range.top, range.left == current.column ? range.right : range.left});
}

void GridWidget::keyPressEvent(QKeyEvent* event) {
    if (!grid_ || HandleKey(*event)) return;
    if (!browser_ || !IsTyping(*event)) {
        event->ignore();
        return;
    }
    FollowCurrentCell();
    velda::GridPosition current;
    if (grid_->GetCurrentCell(current.row, current.column)) ShowCell(current);
    browser_->TypeText(FromQt(event->text()));
    Refresh();
}

void GridWidget::inputMethodEvent(QInputMethodEvent* event) {
    const bool carriesText = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    if (!browser_ || (!carriesText && !isComposing_)) {
        event->ignore();
        return;
    }
    // The focus stays here until the first syllable is complete: a change of the focus would end its composition.
    isComposing_ = true;
    if (!IsCellOpen()) browser_->TypeText({});
    Refresh();
    if (editor_->isVisible()) QCoreApplication::sendEvent(editor_, event);
    isComposing_ = !event->preeditString().isEmpty();
    Refresh();
}

QVariant GridWidget::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (editor_->isVisible() && query != Qt::ImEnabled) {
        QVariant answer = editor_->inputMethodQuery(query);
        if (query == Qt::ImCursorRectangle) answer = answer.toRectF().translated(editor_->mapTo(this, QPoint()));
        return answer;
    }
    if (query == Qt::ImEnabled) return browser_ != nullptr;
    velda::GridPosition current;
    if (query == Qt::ImCursorRectangle && grid_ && grid_->GetCurrentCell(current.row, current.column)) {
        return QRectF(Geometry().CellRect(current.row, current.column)).translated(viewport()->pos());
    }
    return QAbstractScrollArea::inputMethodQuery(query);
}

// ---- other events ----

bool GridWidget::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && grid_) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const auto chord = ChordOfEvent(key);
        if ((browser_ && IsTyping(key)) || (chord && grid_->CommandOf(*chord))) event->accept();
    }
    return QAbstractScrollArea::event(event);
}

bool GridWidget::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        const QString tip = TipAt(help.pos());
        if (tip.isEmpty()) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help.globalPos(), tip, viewport());
        }
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void GridWidget::resizeEvent(QResizeEvent* /*event*/) {
    if (grid_) Refresh();
}

void GridWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    const bool isLook = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (isLook && grid_) Refresh();
}

void GridWidget::scrollContentsBy(int /*dx*/, int /*dy*/) {
    if (!grid_ || settingBars_) return;
    scroll_.topRow = verticalScrollBar()->value();
    scroll_.left = horizontalScrollBar()->value();
    Refresh();
}

void GridWidget::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier) {
        SetZoom(scroll_.zoom + (event->angleDelta().y() > 0 ? kZoomStep : -kZoomStep));
        return;
    }
    wheelAngle_ += event->angleDelta().y() * kWheelRows;
    const int rows = wheelAngle_ / kWheelNotch;
    wheelAngle_ -= rows * kWheelNotch;
    ScrollBy(-rows, -event->angleDelta().x() / 2);
    event->accept();
}

void GridWidget::mousePressEvent(QMouseEvent* event) {
    mouse_.Press(*event);
    if (mouse_.IsScrolling()) dragTimer_.start(kDragInterval, this);
}

void GridWidget::mouseMoveEvent(QMouseEvent* event) { mouse_.Move(*event); }

void GridWidget::mouseReleaseEvent(QMouseEvent* event) {
    dragTimer_.stop();
    mouse_.Release(*event);
}

void GridWidget::mouseDoubleClickEvent(QMouseEvent* event) { mouse_.DoubleClick(*event); }

void GridWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() == dragTimer_.timerId()) {
        mouse_.Tick();
    } else {
        QAbstractScrollArea::timerEvent(event);
    }
}

void GridWidget::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    if (grid_) Refresh();
}

}  // namespace zt
