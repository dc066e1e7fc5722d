#include "desktop/host/property_table.h"

#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QShortcut>
#include <QVBoxLayout>
#include <set>

#include "desktop/grid/qt_text.h"
#include "velda_base/host/application_host.h"
#include "velda_lib/msg_dll.h"

namespace zt {
namespace {

constexpr int kLeastHeight = 300;
constexpr int kRowMargin = 8;
constexpr int kLeastWidth = 380;

}  // namespace

// ---- model ----

PropertyTableModel::PropertyTableModel(PropertyDialog& block, std::size_t list, PropertyListEditor::Changed changed,
                                       QObject* parent)
    : QAbstractTableModel(parent),
      block_(block),
      list_(list),
      changed_(std::move(changed)),
      columns_(block.Lists()[list].columns) {}

int PropertyTableModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int PropertyTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant PropertyTableModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
    const std::vector<PropertyField> row = block_.Row(list_, static_cast<std::size_t>(index.row()));
    const auto column = static_cast<std::size_t>(index.column());
    return column < row.size() ? QVariant(ToQt(row[column].text)) : QVariant();
}

bool PropertyTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (isSilent_ || role != Qt::EditRole || !index.isValid()) return false;
    block_.SetCell(list_, static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()),
                   FromQt(value.toString()));
    changed_(velda::Outcome::Done());
    return true;
}

QVariant PropertyTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    return orientation == Qt::Horizontal ? QVariant(ToQt(columns_[static_cast<std::size_t>(section)]))
                                         : QVariant(section + 1);
}

Qt::ItemFlags PropertyTableModel::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

void PropertyTableModel::Follow() {
    const int rows = static_cast<int>(block_.RowCount(list_));
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
    if (rows > 0) emit dataChanged(index(0, 0), index(rows - 1, columnCount() - 1));
}

// ---- table ----

PropertyTable::PropertyTable(PropertyDialog& block, std::size_t list, Changed changed)
    : block_(block),
      list_(list),
      changed_(std::move(changed)),
      table_(new QTableView),
      model_(new PropertyTableModel(block, list, changed_, this)),
      add_(MakeButton("IDS_DESKTOP_ADD_ROW", &PropertyTable::AddRow)),
      remove_(MakeButton("IDS_DESKTOP_REMOVE_ROWS", &PropertyTable::RemoveRows)),
      paste_(MakeButton("IDS_DESKTOP_PASTE_ROWS", &PropertyTable::Paste)),
      import_(MakeButton("IDS_DESKTOP_IMPORT_ROWS", &PropertyTable::AskForFile)) {
    table_->setModel(model_);
    table_->setMinimumSize(kLeastWidth, kLeastHeight);
    table_->setTabKeyNavigation(false);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table_->horizontalHeader()->setHighlightSections(false);
    // Rows of one height need not be measured, however many there are.
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowMargin);
    MakeShortcut(QKeySequence::Copy, &PropertyTable::Copy);
    MakeShortcut(QKeySequence::Paste, &PropertyTable::Paste);
    MakeShortcut(QKeySequence::Delete, &PropertyTable::RemoveRows);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {add_, remove_, paste_, import_}) buttons->addWidget(button);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(table_, 1);
    layout->addLayout(buttons);
}

QPushButton* PropertyTable::MakeButton(std::string_view textKey, void (PropertyTable::*run)()) {
    auto* button = new QPushButton(Word(textKey));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, run);
    return button;
}

void PropertyTable::MakeShortcut(QKeySequence::StandardKey key, void (PropertyTable::*run)()) {
    auto* shortcut = new QShortcut(QKeySequence(key), table_);
    // In an open editor the keys are the editor's.
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, run);
}

bool PropertyTable::ShowRows(TypedText /*typedText*/) {
    model_->Follow();
    return false;
}

std::vector<QWidget*> PropertyTable::TabOrder() const { return {table_, add_, remove_, paste_, import_}; }

void PropertyTable::AddRow() {
    block_.AddRow(list_);
    changed_(velda::Outcome::Done());
    const QModelIndex first = model_->index(model_->rowCount() - 1, 0);
    table_->setCurrentIndex(first);
    table_->scrollTo(first);
    table_->setFocus();
}

void PropertyTable::RemoveRows() {
    std::set<int, std::greater<>> rows;
    for (const QModelIndex& index : table_->selectionModel()->selectedIndexes()) rows.insert(index.row());
    for (const int row : rows) block_.RemoveRow(list_, static_cast<std::size_t>(row));
    changed_(velda::Outcome::Done());
    if (rows.empty()) return;
    table_->setCurrentIndex(model_->index(std::min(*rows.rbegin(), model_->rowCount() - 1), 0));
}

void PropertyTable::Copy() {
    QModelIndexList cells = table_->selectionModel()->selectedIndexes();
    std::sort(cells.begin(), cells.end());
    QString text;
    for (const QModelIndex& cell : cells) {
        const bool endsRow = &cell == &cells.back() || (&cell)[1].row() != cell.row();
        text += cell.data(Qt::DisplayRole).toString() + QLatin1Char(endsRow ? '\n' : '\t');
    }
    if (!text.isEmpty()) velda::ApplicationHost::Current().GetClipboard().SetText(FromQt(text));
}

void PropertyTable::Paste() {
    const QModelIndex place = table_->currentIndex();
    const auto row = static_cast<std::size_t>(std::max(place.row(), 0));
    const auto column = static_cast<std::size_t>(std::max(place.column(), 0));
    changed_(block_.PasteRows(list_, row, column, velda::ApplicationHost::Current().GetClipboard().GetText()));
}

void PropertyTable::AskForFile() {
    const QString path = QFileDialog::getOpenFileName(this, Word("IDS_DESKTOP_IMPORT_ROWS").remove('&'), {},
                                                      Word("IDS_DESKTOP_TEXT_FILES"));
    if (!path.isEmpty()) ImportFile(path);
}

void PropertyTable::ImportFile(const QString& path) {
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        changed_(block_.ImportRows(list_, file.readAll().toStdString()));
    } else {
        changed_(velda::Outcome::Refused(velda::FormatText("IDS_DESKTOP_ROWS_NOT_READ", {FromQt(path)})));
    }
}

}  // namespace zt
