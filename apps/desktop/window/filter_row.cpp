#include "desktop/window/filter_row.h"

#include <QScrollBar>

#include "desktop/grid/qt_text.h"

namespace zt {

FilterRow::FilterRow(GridWidget& grid, QWidget* parent) : QWidget(parent), grid_(grid), scrolled_(new QWidget(this)) {
    const QLineEdit sample;
    setFixedHeight(sample.sizeHint().height());
    connect(&grid_, &GridWidget::Refreshed, this, &FilterRow::LayOut);
}

velda::CTBBrowserWndEx* FilterRow::Table() const { return dynamic_cast<velda::CTBBrowserWndEx*>(grid_.Grid()); }

QLineEdit* FilterRow::EditOf(velda::ColumnId column) const {
    const auto found = edits_.find(column);
    return found == edits_.end() || found->second->isHidden() ? nullptr : found->second;
}

QLineEdit* FilterRow::MakeEdit(velda::ColumnId column) {
    auto* edit = new QLineEdit(this);
    edit->setPlaceholderText(Word("IDS_DESKTOP_FILTER"));
    edit->setClearButtonEnabled(true);
    edit->setText(ToQt(Table()->FilterTextOf(column)));
    connect(edit, &QLineEdit::editingFinished, this, [this, column, edit] { Apply(column, *edit); });
    connect(edit, &QLineEdit::textChanged, this, [this, column, edit](const QString& text) {
        if (text.isEmpty()) Apply(column, *edit);
    });
    return edit;
}

void FilterRow::Apply(velda::ColumnId column, QLineEdit& edit) {
    velda::CTBBrowserWndEx* table = Table();
    const std::string text = FromQt(edit.text());
    if (!table || table != shown_ || table->FilterTextOf(column) == text) return;
    if (!table->FilterColumn(column, text)) {
        const QSignalBlocker quiet(edit);
        edit.setText(ToQt(table->FilterTextOf(column)));
    }
    grid_.Refresh();
    emit Filtered();
}

void FilterRow::Clear() {
    if (velda::CTBBrowserWndEx* table = Table()) table->RemoveFilter();
    for (const auto& [column, edit] : edits_) {
        const QSignalBlocker quiet(edit);
        edit->clear();
    }
    grid_.Refresh();
    emit Filtered();
}

void FilterRow::LayOut() {
    if (grid_.Grid() != shown_) {
        for (const auto& [column, edit] : edits_) delete edit;
        edits_.clear();
        shown_ = grid_.Grid();
    }
    if (!isVisible() || !Table()) return;
    const GridGeometry geometry = grid_.Geometry();
    const int left = grid_.viewport()->x() + geometry.ScrolledLeft();
    scrolled_->setGeometry(left, 0, std::max(0, grid_.viewport()->width() - geometry.ScrolledLeft()), height());
    for (const auto& [column, edit] : edits_) edit->hide();
    for (const GridGeometry::Column& column : geometry.Columns()) {
        const velda::ColumnId id = shown_->ColumnIdAt(column.number);
        QLineEdit*& edit = edits_[id];
        if (!edit) edit = MakeEdit(id);
        QWidget* holder = column.frozen ? static_cast<QWidget*>(this) : scrolled_;
        if (edit->parentWidget() != holder) edit->setParent(holder);
        const int start = column.frozen ? grid_.viewport()->x() + column.start : column.start - geometry.ScrolledLeft();
        edit->setGeometry(start, 0, column.size, height());
        edit->show();
    }
}

void FilterRow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    LayOut();
}

}  // namespace zt
