#include "desktop/host/dialogs.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <algorithm>

#include "desktop/grid/grid_colors.h"
#include "desktop/grid/qt_text.h"

namespace zt {

BlockDialog::BlockDialog(velda::ModalDialog& block, std::string_view titleKey, QWidget* parent)
    : QDialog(parent), block_(block) {
    setWindowTitle(Word(titleKey));
    auto* outer = new QVBoxLayout(this);
    controls_ = new QVBoxLayout;
    outer->addLayout(controls_);
    buttons_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons_->button(QDialogButtonBox::Ok)->setText(Word("IDS_DESKTOP_OK"));
    buttons_->button(QDialogButtonBox::Cancel)->setText(Word("IDS_DESKTOP_CANCEL"));
    outer->addWidget(buttons_);
    connect(buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void BlockDialog::accept() {
    store_();
    if (block_.OnOK()) QDialog::accept();
}

void BlockDialog::reject() {
    block_.OnCancel();
    QDialog::reject();
}

// ---- find ----

std::unique_ptr<BlockDialog> MakeFindDialog(CTBFindDlg& block, QWidget* parent) {
    auto dialog = std::make_unique<BlockDialog>(block, "IDS_DESKTOP_FIND_TITLE", parent);
    auto* form = new QFormLayout;
    auto* text = new QLineEdit(ToQt(block.text));
    auto* matchCase = new QCheckBox(Word("IDS_DESKTOP_FIND_CASE"));
    auto* allColumns = new QCheckBox(Word("IDS_DESKTOP_FIND_ALL_COLUMNS"));
    auto* backward = new QRadioButton(Word("IDS_DESKTOP_FIND_BACKWARD"));
    auto* forward = new QRadioButton(Word("IDS_DESKTOP_FIND_FORWARD"));
    matchCase->setChecked(block.matchCase);
    allColumns->setChecked(block.allColumns);
    (block.direction == 0 ? backward : forward)->setChecked(true);
    form->addRow(Word("IDS_DESKTOP_FIND_TEXT"), text);
    for (QWidget* control : std::initializer_list<QWidget*>{matchCase, allColumns, forward, backward}) {
        form->addRow(control);
    }
    dialog->Controls().addLayout(form);
    QPushButton* find = dialog->Buttons().button(QDialogButtonBox::Ok);
    find->setText(Word("IDS_DESKTOP_FIND_BUTTON"));
    find->setEnabled(block.IsFindEnabled());
    QObject::connect(text, &QLineEdit::textChanged, dialog.get(), [&block, find](const QString& typed) {
        block.text = FromQt(typed);
        find->setEnabled(block.IsFindEnabled());
    });
    dialog->OnStore([=, &block] {
        block.matchCase = matchCase->isChecked();
        block.allColumns = allColumns->isChecked();
        block.direction = forward->isChecked() ? 1 : 0;
    });
    text->selectAll();
    return dialog;
}

// ---- sort ----

namespace {

constexpr int kSortLevels = 3;

struct SortLevel {
    QComboBox* column;
    QComboBox* order;
};

SortLevel AddSortLevel(QFormLayout& form, const velda::CTBSortDlg& block, int level) {
    const SortLevel made{new QComboBox, new QComboBox};
    made.column->addItem(Word("IDS_DESKTOP_SORT_NONE"), velda::kNoColumn);
    for (const velda::ColumnId id : block.Columns()) made.column->addItem(ToQt(block.TitleOf(id)), id);
    made.order->addItems({Word("IDS_DESKTOP_SORT_ASCENDING"), Word("IDS_DESKTOP_SORT_DESCENDING")});
    if (level < static_cast<int>(block.items.size())) {
        const velda::STBSortItem& item = block.items[static_cast<std::size_t>(level)];
        made.column->setCurrentIndex(std::max(0, made.column->findData(item.column)));
        made.order->setCurrentIndex(item.order);
    }
    auto* line = new QHBoxLayout;
    line->addWidget(made.column, 1);
    line->addWidget(made.order);
    form.addRow(Word(level == 0 ? "IDS_DESKTOP_SORT_BY" : "IDS_DESKTOP_SORT_THEN"), line);
    return made;
}

}  // namespace

std::unique_ptr<BlockDialog> MakeSortDialog(velda::CTBSortDlg& block, QWidget* parent) {
    auto dialog = std::make_unique<BlockDialog>(block, "IDS_DESKTOP_SORT_TITLE", parent);
    auto* form = new QFormLayout;
    std::vector<SortLevel> levels;
    for (int level = 0; level < kSortLevels; ++level) levels.push_back(AddSortLevel(*form, block, level));
    dialog->Controls().addLayout(form);
    dialog->OnStore([levels, &block] {
        block.items.clear();
        for (const SortLevel& level : levels) {
            const int column = level.column->currentData().toInt();
            if (column != velda::kNoColumn) block.items.push_back({column, 0, level.order->currentIndex()});
        }
    });
    return dialog;
}

// ---- colours ----

namespace {

/// A colour of all tables with its name.
struct ColorEntry {
    std::string_view textKey;
    std::uint32_t velda::STBColorSet::*color;
};
constexpr ColorEntry kColors[] = {
    {"IDS_DESKTOP_COLOR_TEXT", &velda::STBColorSet::text},
    {"IDS_DESKTOP_COLOR_BACKGROUND", &velda::STBColorSet::background},
    {"IDS_DESKTOP_COLOR_HEADER", &velda::STBColorSet::header},
    {"IDS_DESKTOP_COLOR_READ_ONLY", &velda::STBColorSet::readOnly},
    {"IDS_DESKTOP_COLOR_ROW_IN_EDIT", &velda::STBColorSet::rowInEdit},
};

std::uint32_t StyleColorOf(const QColor& color) {
    return static_cast<std::uint32_t>(color.blue() << 16 | color.green() << 8 | color.red());
}

void ShowColor(QPushButton& button, std::uint32_t color) {
    QPixmap picture(32, 16);
    picture.fill(GridColors::OfStyle(color));
    button.setIcon(QIcon(picture));
}

}  // namespace

std::unique_ptr<BlockDialog> MakeColorDialog(velda::CTBColorDlg& block, QWidget* parent) {
    auto dialog = std::make_unique<BlockDialog>(block, "IDS_DESKTOP_COLOR_TITLE", parent);
    auto* form = new QFormLayout;
    for (const ColorEntry& entry : kColors) {
        auto* button = new QPushButton;
        ShowColor(*button, block.colors.*entry.color);
        QObject::connect(button, &QPushButton::clicked, dialog.get(), [button, &block, &entry] {
            const QColor chosen =
                QColorDialog::getColor(GridColors::OfStyle(block.colors.*entry.color), button, Word(entry.textKey));
            if (!chosen.isValid()) return;
            block.colors.*entry.color = StyleColorOf(chosen);
            ShowColor(*button, block.colors.*entry.color);
        });
        form->addRow(Word(entry.textKey), button);
    }
    dialog->Controls().addLayout(form);
    return dialog;
}

// ---- columns ----

std::unique_ptr<BlockDialog> MakeStyleDialog(velda::CTBStyleDlg& block, QWidget* parent) {
    auto dialog = std::make_unique<BlockDialog>(block, "IDS_DESKTOP_STYLE_TITLE", parent);
    auto* table = new QTableWidget(static_cast<int>(block.Columns().size()), 2);
    table->setHorizontalHeaderLabels({Word("IDS_DESKTOP_STYLE_PLACES"), Word("IDS_DESKTOP_STYLE_WIDTH")});
    const auto addSpin = [&](int row, int column, int value, int largest) {
        auto* spin = new QSpinBox;
        spin->setRange(0, largest);
        spin->setValue(value);
        table->setCellWidget(row, column, spin);
        return spin;
    };
    QStringList titles;
    for (int row = 0; row < table->rowCount(); ++row) {
        const velda::CTBStyleDlg::Column& column = block.Columns()[static_cast<std::size_t>(row)];
        const velda::STBPrefItem& item = block.items[static_cast<std::size_t>(column.id)];
        titles << ToQt(column.title);
        constexpr int kDouble = 2;
        addSpin(row, 0, item.decimalPlaces, velda::kMaxDecimalPlaces)->setEnabled(item.columnType == kDouble);
        addSpin(row, 1, item.columnWidth, velda::kMaxColumnWidth);
    }
    table->setVerticalHeaderLabels(titles);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    dialog->Controls().addWidget(table);
    // Numbers stay readable beside long titles.
    constexpr int kNumberWidth = 100;
    constexpr int kAround = 60;
    dialog->resize(std::max(420, table->verticalHeader()->sizeHint().width() + 2 * kNumberWidth + kAround), 360);
    dialog->OnStore([table, &block] {
        const auto value = [&](int row, int column) {
            return qobject_cast<QSpinBox*>(table->cellWidget(row, column))->value();
        };
        for (int row = 0; row < table->rowCount(); ++row) {
            const velda::ColumnId column = block.Columns()[static_cast<std::size_t>(row)].id;
            velda::STBPrefItem& item = block.items[static_cast<std::size_t>(column)];
            item.decimalPlaces = value(row, 0);
            item.columnWidth = value(row, 1);
        }
    });
    return dialog;
}

// ---- shown tables ----

std::unique_ptr<BlockDialog> MakeDisplayDialog(CTBDisplayDlg& block, QWidget* parent) {
    auto dialog = std::make_unique<BlockDialog>(block, "IDS_TB_PREVIEW_DISPLAY_TABLES", parent);
    auto* list = new QListWidget;
    for (const auto& item : block.Page().Items()) {
        auto* line = new QListWidgetItem(ToQt(item.name), list);
        line->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        line->setCheckState(item.isShown ? Qt::Checked : Qt::Unchecked);
    }
    auto* pages = new QTabWidget;
    pages->addTab(list, ToQt(block.Page().GetTitle()));
    dialog->Controls().addWidget(pages);
    dialog->OnStore([list, &block] {
        int row = 0;
        for (auto& item : block.Page().Items()) item.isShown = list->item(row++)->checkState() == Qt::Checked;
    });
    dialog->resize(340, 460);
    return dialog;
}

}  // namespace zt
