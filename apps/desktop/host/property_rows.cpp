#include "desktop/host/property_rows.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/grid/qt_text.h"
#include "velda_lib/msg_dll.h"

namespace zt {
namespace {

/// Rows that are in sight without scrolling.
constexpr int kVisibleRows = 6;
/// Long names of load cases do not make the window wider than this.
constexpr int kWidest = 640;

}  // namespace

PropertyRows::PropertyRows(PropertyDialog& block, std::size_t list, Changed changed)
    : block_(block),
      list_(list),
      changed_(std::move(changed)),
      area_(new QScrollArea),
      add_(new QPushButton(Word("IDS_DESKTOP_ADD_ROW"))) {
    area_->setWidgetResizable(true);
    area_->setFocusPolicy(Qt::NoFocus);
    add_->setAutoDefault(false);
    connect(add_, &QPushButton::clicked, this, &PropertyRows::AddRow);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(area_, 1);
    layout->addWidget(add_, 0, Qt::AlignLeft);
    MakeLines({});
    area_->setMinimumHeight((kVisibleRows + 1) * (add_->sizeHint().height() + layout->spacing()));
}

std::vector<PropertyRows::Fields> PropertyRows::Rows() const {
    std::vector<Fields> rows;
    for (std::size_t row = 0; row < block_.RowCount(list_); ++row) rows.push_back(block_.Row(list_, row));
    return rows;
}

bool PropertyRows::ShowRows(TypedText typedText) {
    const std::vector<Fields> rows = Rows();
    const bool areOthers = rows.size() != lines_.size();
    if (areOthers) MakeLines(rows);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            ShowInEditor(*lines_[row].editors[column], rows[row][column], typedText);
        }
    }
    const int frame = 2 * area_->frameWidth() + area_->verticalScrollBar()->sizeHint().width();
    area_->setMinimumWidth(std::min(area_->widget()->minimumSizeHint().width() + frame, kWidest));
    return areOthers;
}

void PropertyRows::MakeLines(const std::vector<Fields>& rows) {
    // The button that reports may be one of those that go.
    if (QWidget* old = area_->takeWidget()) {
        old->hide();
        old->deleteLater();
    }
    lines_.clear();
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    int column = 0;
    const std::vector<PropertyDialog::ListInfo> lists = block_.Lists();
    for (const std::string& title : lists[list_].columns) grid->addWidget(new QLabel(ToQt(title)), 0, column++);
    for (const Fields& fields : rows) {
        const int row = static_cast<int>(lines_.size());
        lines_.push_back(MakeLine(row, fields));
        int at = 0;
        for (QWidget* editor : lines_.back().editors) grid->addWidget(editor, row + 1, at++);
        grid->addWidget(lines_.back().remove, row + 1, at);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    area_->setWidget(page);
}

PropertyRows::Line PropertyRows::MakeLine(int row, const Fields& fields) {
    Line line{{}, new QPushButton(Word("IDS_DESKTOP_REMOVE_ROW"))};
    line.remove->setAutoDefault(false);
    connect(line.remove, &QPushButton::clicked, this, [this, row] { RemoveRow(row); });
    for (const PropertyField& field : fields) {
        const std::size_t column = line.editors.size();
        line.editors.push_back(MakePropertyEditor(field, [this, row, column](const QString& text) {
            block_.SetCell(list_, static_cast<std::size_t>(row), column, FromQt(text));
            Tell();
        }));
        const std::string name = velda::FormatText("IDS_CMD_ROW_FIELD", {std::to_string(row + 1), field.label});
        line.editors.back()->setAccessibleName(ToQt(name));
    }
    return line;
}

QWidget* PropertyRows::EditorOf(int row, int column) const {
    const auto at = static_cast<std::size_t>(row);
    const auto place = static_cast<std::size_t>(column);
    return at < lines_.size() && place < lines_[at].editors.size() ? lines_[at].editors[place] : nullptr;
}

QPushButton* PropertyRows::RemoveButton(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return at < lines_.size() ? lines_[at].remove : nullptr;
}

std::vector<QWidget*> PropertyRows::TabOrder() const {
    std::vector<QWidget*> order;
    for (const Line& line : lines_) {
        order.insert(order.end(), line.editors.begin(), line.editors.end());
        order.push_back(line.remove);
    }
    order.push_back(add_);
    return order;
}

void PropertyRows::AddRow() {
    block_.AddRow(list_);
    Tell();
    QWidget* editor = EditorOf(static_cast<int>(lines_.size()) - 1, 0);
    if (!editor) return;
    editor->setFocus();
    // The page has its new height when the layout is done.
    QTimer::singleShot(0, this, [this] {
        if (!lines_.empty()) area_->ensureWidgetVisible(lines_.back().remove);
    });
}

void PropertyRows::RemoveRow(int row) {
    block_.RemoveRow(list_, static_cast<std::size_t>(row));
    Tell();
    QPushButton* next = RemoveButton(std::min(row, static_cast<int>(lines_.size()) - 1));
    (next ? next : add_)->setFocus();
}

}  // namespace zt
