#include "desktop/window/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

constexpr int kRowsAtOnce = 2000;

/// The text that a search looks at: whole numbers, and the names of listed keys.
std::string SearchedText(const velda::CTBGrid& grid, int row, int col) {
    const velda::CGXStyle& style = grid.StyleOf(row, col);
    const bool isNumber = style.GetValueType() == velda::ValueType::Numeric && !style.IncludeChoiceList();
    return isNumber ? grid.GetValueRowCol(row, col) : grid.GetShownText(row, col);
}

QToolButton* ArrowButton(Qt::ArrowType arrow) {
    auto* button = new QToolButton;
    button->setAutoRaise(true);
    button->setArrowType(arrow);
    return button;
}

}  // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      text_(new QLineEdit),
      previous_(ArrowButton(Qt::UpArrow)),
      next_(ArrowButton(Qt::DownArrow)),
      close_(new QToolButton),
      matchCase_(new QCheckBox),
      count_(new QLabel) {
    text_->setClearButtonEnabled(true);
    text_->setMaximumWidth(320);
    close_->setAutoRaise(true);
    close_->setText(QStringLiteral("\u2715"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(text_, 2);
    layout->addWidget(previous_);
    layout->addWidget(next_);
    layout->addWidget(matchCase_);
    layout->addWidget(count_, 1);
    layout->addWidget(close_);
    setFocusProxy(text_);
    ShowTexts();

    counting_.setInterval(0);
    connect(&counting_, &QTimer::timeout, this, &FindBar::CountOn);
    connect(text_, &QLineEdit::textChanged, this, &FindBar::StartCount);
    connect(matchCase_, &QCheckBox::toggled, this, &FindBar::StartCount);
    connect(previous_, &QToolButton::clicked, this, &FindBar::FindPrevious);
    connect(next_, &QToolButton::clicked, this, &FindBar::FindNext);
    connect(close_, &QToolButton::clicked, this, &QWidget::hide);
}

void FindBar::ShowTexts() {
    text_->setPlaceholderText(Word("IDS_DESKTOP_FIND_TEXT"));
    matchCase_->setText(Word("IDS_DESKTOP_FIND_CASE"));
    previous_->setToolTip(Word("IDS_DESKTOP_FIND_PREVIOUS").remove('&'));
    next_->setToolTip(Word("IDS_DESKTOP_FIND_NEXT").remove('&'));
    close_->setToolTip(Word("IDS_DESKTOP_CLOSE"));
    StartCount();
}

void FindBar::SetTable(GridWidget* table) {
    if (table_ == table && !isVisible()) return;
    table_ = table;
    StartCount();
}

void FindBar::Open() {
    show();
    text_->setFocus();
    text_->selectAll();
    StartCount();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        if (table_) table_->setFocus();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Find(event->modifiers() & Qt::ShiftModifier ? 0 : 1);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void FindBar::Find(int direction) {
    if (!table_ || !table_->Grid() || text_->text().isEmpty()) return;
    velda::STBFindStruct& find = velda::CTBGrid::m_Find;
    find.text = FromQt(text_->text());
    find.matchCase = matchCase_->isChecked();
    find.onlyCurrentColumn = false;
    find.direction = direction;
    table_->Grid()->FindNext(find);
    table_->Refresh();
}

void FindBar::StartCount() {
    counting_.stop();
    count_->clear();
    if (!table_ || !table_->Grid() || text_->text().isEmpty()) return;
    matcher_.emplace(FromQt(text_->text()), matchCase_->isChecked());
    nextRow_ = 1;
    found_ = 0;
    counting_.start();
}

void FindBar::CountOn() {
    const velda::CTBGrid* grid = table_ ? table_->Grid() : nullptr;
    const int rows = grid ? grid->RowCount() - (grid->HasAppendRow() ? 1 : 0) : 0;
    const int last = std::min(rows, nextRow_ + kRowsAtOnce - 1);
    for (; nextRow_ <= last; ++nextRow_) {
        for (int col = 1; col <= grid->GetColCount(); ++col) {
            if (!grid->IsColumnHidden(col) && matcher_->IsIn(SearchedText(*grid, nextRow_, col))) ++found_;
        }
    }
    if (nextRow_ <= rows) return;
    counting_.stop();
    count_->setText(ToQt(velda::FormatText("IDS_DESKTOP_FIND_COUNT", {std::to_string(found_)})));
}

}  // namespace zt
