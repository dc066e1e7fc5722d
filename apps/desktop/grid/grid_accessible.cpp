#include "desktop/grid/grid_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>
#include <deque>
#include <utility>

#include "desktop/grid/grid_widget.h"
#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

/// Cells that screen readers have looked at lately. A table may have more cells than memory could hold.
constexpr std::size_t kKeptCells = 256;

/// A place in a table as screen readers count: row 0 and column 0 are the headers, hidden columns do not count.
struct Place {
    int row = 0;
    int column = 0;
    bool operator==(const Place&) const = default;
};

/// The table as screen readers see it.
class TableView {
public:
    explicit TableView(const GridWidget* widget) : widget_(widget) {}

    velda::CTBGrid* Grid() const { return widget_ ? widget_->Grid() : nullptr; }
    int Rows() const { return Grid() ? Grid()->RowCount() : 0; }
    int Columns() const {
        int shown = 0;
        for (int col = 1; Grid() && col <= Grid()->GetColCount(); ++col) shown += Grid()->IsColumnHidden(col) ? 0 : 1;
        return shown;
    }
    /// Grid column of the n-th shown one, from 1; 0 for none.
    int GridColumn(int shown) const {
        for (int col = 1; Grid() && col <= Grid()->GetColCount(); ++col) {
            if (!Grid()->IsColumnHidden(col) && --shown == 0) return col;
        }
        return 0;
    }
    int ShownColumn(int gridColumn) const {
        int shown = 0;
        for (int col = 1; Grid() && col <= gridColumn; ++col) shown += Grid()->IsColumnHidden(col) ? 0 : 1;
        return shown;
    }
    bool Holds(Place place) const {
        return place.row >= 0 && place.row <= Rows() && place.column >= 0 && place.column <= Columns();
    }
    QString Title(int shown) const {
        const int col = GridColumn(shown);
        if (col == 0) return {};
        return ToQt(Grid()->Header().ColumnTitle(static_cast<std::uint32_t>(Grid()->ColumnIdAt(col))));
    }
    QString Text(Place place) const {
        if (!Holds(place)) return {};
        if (place.row == 0) return Title(place.column);
        if (place.column == 0) return QString::number(place.row);
        return ToQt(Grid()->GetShownText(place.row, GridColumn(place.column)));
    }
    Place Current() const {
        velda::GridPosition current;
        if (!Grid() || !Grid()->GetCurrentCell(current.row, current.column)) return {};
        return {current.row, ShownColumn(current.column)};
    }
    bool IsSelected(Place place) const {
        if (!Holds(place) || place.row == 0 || place.column == 0) return false;
        return Grid()->Selected().Contains({place.row, GridColumn(place.column)}) || Current() == place;
    }
    QRect Rect(Place place) const {
        if (!Holds(place)) return {};
        const GridGeometry geometry = widget_->Geometry();
        const GridGeometry::Column* column = geometry.ColumnOf(GridColumn(place.column));
        const GridBand* row = geometry.RowOf(place.row);
        QRect rect(0, 0, geometry.RowHeaderWidth(), geometry.HeaderHeight());
        if ((place.column > 0 && !column) || (place.row > 0 && !row)) return {};
        if (column) rect = QRect(column->start, rect.top(), column->size, rect.height());
        if (row) rect = QRect(rect.left(), row->start, rect.width(), row->size);
        return {widget_->viewport()->mapToGlobal(rect.topLeft()), rect.size()};
    }

private:
    const GridWidget* widget_;
};

class GridAccessible;

/// A cell for as long as a screen reader looks at it.
class CellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    CellAccessible(GridWidget* widget, Place place) : widget_(widget), place_(place) {}

    Place At() const { return place_; }

    bool isValid() const override { return widget_ && View().Holds(place_); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return widget_ ? widget_->window()->windowHandle() : nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(widget_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name || kind == QAccessible::Value ? View().Text(place_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override { return View().Rect(place_); }
    QAccessible::Role role() const override {
        if (place_.row == 0) return QAccessible::ColumnHeader;
        return place_.column == 0 ? QAccessible::RowHeader : QAccessible::Cell;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.invisible = View().Rect(place_).isEmpty();
        if (place_.row == 0 || place_.column == 0) return state;
        const velda::CTBGrid& grid = *View().Grid();
        const int col = View().GridColumn(place_.column);
        state.selectable = true;
        state.selected = View().IsSelected(place_);
        state.focusable = grid.IsEnabled(place_.row, col);
        state.focused = state.active = View().Current() == place_;
        state.disabled = !grid.IsEnabled(place_.row, col);
        state.readOnly = grid.IsReadOnly(place_.row, col);
        state.editable = !state.readOnly && !state.disabled;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this) : nullptr;
    }

    bool isSelected() const override { return View().IsSelected(place_); }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {Neighbour({0, place_.column})}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {Neighbour({place_.row, 0})}; }
    int columnIndex() const override { return place_.column - 1; }
    int rowIndex() const override { return place_.row - 1; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

private:
    TableView View() const { return TableView(widget_); }
    QAccessibleInterface* Neighbour(Place place) const;

    QPointer<GridWidget> widget_;
    Place place_;
};

/// A table. Its cells come into being when they are asked for.
class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridAccessible(GridWidget* widget) : QAccessibleWidget(widget, QAccessible::Table) {}
    ~GridAccessible() override {
        for (const auto& [place, id] : kept_) QAccessible::deleteAccessibleInterface(id);
    }

    QAccessibleInterface* CellAt(Place place) const {
        if (!View().Holds(place)) return nullptr;
        const auto found =
            std::find_if(kept_.begin(), kept_.end(), [&](const auto& kept) { return kept.first == place; });
        if (found != kept_.end()) return QAccessible::accessibleInterface(found->second);
        if (kept_.size() == kKeptCells) {
            QAccessible::deleteAccessibleInterface(kept_.front().second);
            kept_.pop_front();
        }
        auto* cell = new CellAccessible(Widget(), place);
        kept_.emplace_back(place, QAccessible::registerAccessibleInterface(cell));
        return cell;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name && View().Grid()) return ToQt(View().Grid()->GetTableName());
        return QAccessibleWidget::text(kind);
    }

    int childCount() const override { return (View().Rows() + 1) * (View().Columns() + 1); }
    QAccessibleInterface* child(int index) const override {
        const int width = View().Columns() + 1;
        return index < 0 ? nullptr : CellAt({index / width, index % width});
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* cell = dynamic_cast<const CellAccessible*>(child);
        return cell ? cell->At().row * (View().Columns() + 1) + cell->At().column : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        if (!View().Grid()) return nullptr;
        const GridGeometry::Hit hit = Widget()->Geometry().At(Widget()->viewport()->mapFromGlobal(QPoint(x, y)));
        if (hit.part == GridGeometry::Part::Nothing) return nullptr;
        return CellAt({hit.position.row, hit.position.column > 0 ? View().ShownColumn(hit.position.column) : 0});
    }
    QAccessibleInterface* focusChild() const override {
        return View().Current() == Place{} ? nullptr : CellAt(View().Current());
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        return row < 0 || column < 0 ? nullptr : CellAt({row + 1, column + 1});
    }
    int rowCount() const override { return View().Rows(); }
    int columnCount() const override { return View().Columns(); }
    QString columnDescription(int column) const override { return View().Title(column + 1); }
    QString rowDescription(int row) const override { return View().Text({row + 1, 0}); }

    // Lists hold what is in sight; a selection may be as large as the table.
    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> cells;
        for (const int row : RowsInSight()) {
            for (int column = 1; column <= View().Columns(); ++column) {
                if (View().IsSelected({row, column})) cells.append(CellAt({row, column}));
            }
        }
        return cells;
    }
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<int> selectedRows() const override {
        QList<int> rows;
        for (const int row : RowsInSight()) {
            if (isRowSelected(row - 1)) rows.append(row - 1);
        }
        return rows;
    }
    int selectedRowCount() const override {
        int count = 0;
        if (!View().Grid()) return count;
        for (const auto& span : View().Grid()->Selected().WholeRows(*View().Grid()))
            count += span.last - span.first + 1;
        return count;
    }
    QList<int> selectedColumns() const override {
        QList<int> columns;
        for (int column = 0; column < columnCount(); ++column) {
            if (isColumnSelected(column)) columns.append(column);
        }
        return columns;
    }
    int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
    bool isRowSelected(int row) const override {
        return HasRange([row](const auto& r) { return r.HoldsWholeRows() && r.top <= row + 1 && row + 1 <= r.bottom; });
    }
    bool isColumnSelected(int column) const override {
        const int col = View().GridColumn(column + 1);
        return HasRange([col](const auto& r) { return r.HoldsWholeColumns() && r.left <= col && col <= r.right; });
    }
    bool selectRow(int row) override { return Select(velda::PositionRange::Rows(row + 1, row + 1), Place{row + 1, 1}); }
    bool selectColumn(int column) override {
        const int col = View().GridColumn(column + 1);
        return Select(velda::PositionRange::Columns(col, col), Place{0, column + 1});
    }
    bool unselectRow(int row) override { return isRowSelected(row) && Unselect(); }
    bool unselectColumn(int column) override { return isColumnSelected(column) && Unselect(); }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

private:
    GridWidget* Widget() const { return static_cast<GridWidget*>(widget()); }
    TableView View() const { return TableView(Widget()); }
    std::vector<int> RowsInSight() const {
        std::vector<int> rows;
        if (!View().Grid()) return rows;
        const GridGeometry geometry = Widget()->Geometry();
        for (const GridBand& row : geometry.Rows()) rows.push_back(row.number);
        return rows;
    }
    template <class Predicate>
    bool HasRange(Predicate predicate) const {
        if (!View().Grid()) return false;
        const auto& ranges = View().Grid()->Selected().Ranges();
        return std::any_of(ranges.begin(), ranges.end(), predicate);
    }
    bool Select(velda::PositionRange range, Place place) {
        if (!View().Holds(place)) return false;
        View().Grid()->SelectRange(range);
        Widget()->Refresh();
        return true;
    }
    bool Unselect() {
        View().Grid()->ClearSelection();
        Widget()->Refresh();
        return true;
    }

    mutable std::deque<std::pair<Place, QAccessible::Id>> kept_;
};

QAccessibleInterface* CellAccessible::Neighbour(Place place) const {
    const auto* table = dynamic_cast<const GridAccessible*>(parent());
    return table ? table->CellAt(place) : nullptr;
}

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
    auto* widget = qobject_cast<GridWidget*>(object);
    return widget ? new GridAccessible(widget) : nullptr;
}

}  // namespace

void InstallGridAccessibility() { QAccessible::installFactory(&MakeInterface); }

void TellCurrentCell(GridWidget& widget) {
    if (!QAccessible::isActive()) return;
    auto* table = dynamic_cast<GridAccessible*>(QAccessible::queryAccessibleInterface(&widget));
    QAccessibleInterface* cell = table ? table->focusChild() : nullptr;
    if (!cell) return;
    QAccessibleEvent event(&widget, QAccessible::Focus);
    event.setChild(table->indexOfChild(cell));
    QAccessible::updateAccessibility(&event);
}

}  // namespace zt
