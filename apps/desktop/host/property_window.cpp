#include "desktop/host/property_window.h"

#include <QHeaderView>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

constexpr int kListWidth = 210;
constexpr int kListDistance = 12;
constexpr int kPictureStretch = 3;
constexpr int kPictureSide = 220;
constexpr double kPictureMargin = 18.0;

SectionBounds BoundsOfParts(const std::vector<Outline>& parts) {
    SectionBounds bounds = parts.front().bounds;
    for (const Outline& part : parts) {
        bounds.left = std::min(bounds.left, part.bounds.left);
        bounds.right = std::max(bounds.right, part.bounds.right);
        bounds.bottom = std::min(bounds.bottom, part.bounds.bottom);
        bounds.top = std::max(bounds.top, part.bounds.top);
    }
    return bounds;
}

}  // namespace

// ---- picture ----

SectionPicture::SectionPicture(QWidget* parent) : QWidget(parent) { setMinimumSize(kPictureSide, kPictureSide); }

void SectionPicture::Show(std::vector<Outline> parts) {
    parts_ = std::move(parts);
    update();
}

void SectionPicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().base());
    if (parts_.empty()) return;
    const SectionBounds bounds = BoundsOfParts(parts_);
    const double wide = std::max(bounds.right - bounds.left, 1e-12);
    const double high = std::max(bounds.top - bounds.bottom, 1e-12);
    const double scale = std::min((width() - 2 * kPictureMargin) / wide, (height() - 2 * kPictureMargin) / high);
    const QPointF center(width() / 2.0, height() / 2.0);
    const auto place = [&](const SectionPoint& point) {
        return center + QPointF((point.y - (bounds.left + bounds.right) / 2) * scale,
                                -(point.z - (bounds.bottom + bounds.top) / 2) * scale);
    };
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor line = palette().color(QPalette::WindowText);
    for (const Outline& part : parts_) {
        QPolygonF polygon;
        for (const SectionPoint& point : part.points) polygon << place(point);
        QColor fill = part.weight < 0.0 ? palette().color(QPalette::Base) : accent;
        // Concrete counts for less than steel, and is drawn lighter.
        if (part.weight > 0.0) fill.setAlphaF(part.weight < 1.0 ? 0.2f : 0.45f);
        painter.setBrush(fill);
        painter.setPen(QPen(line, 1.2));
        painter.drawPolygon(polygon);
    }
    QColor axis = line;
    axis.setAlphaF(0.35f);
    painter.setPen(QPen(axis, 1, Qt::DashDotLine));
    painter.drawLine(QPointF(6, center.y()), QPointF(width() - 6, center.y()));
    painter.drawLine(QPointF(center.x(), 6), QPointF(center.x(), height() - 6));
}

// ---- window ----

PropertyWindow::PropertyWindow(PropertyDialog& block, QWidget* parent)
    : QDialog(parent),
      block_(block),
      upper_(new QHBoxLayout),
      list_(new QListWidget),
      form_(new QFormLayout),
      picture_(new SectionPicture),
      results_(new QTableWidget(0, 2)),
      uses_(new QLabel),
      message_(new QLabel) {
    setWindowTitle(ToQt(block.GetTitle()));
    list_->setMinimumWidth(kListWidth);
    results_->horizontalHeader()->hide();
    results_->verticalHeader()->hide();
    results_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    results_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    uses_->setWordWrap(true);
    uses_->setForegroundRole(QPalette::PlaceholderText);
    message_->setWordWrap(true);
    PlaceParts();
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(add_ = MakeButton("IDS_DESKTOP_ADD", &PropertyDialog::Add));
    buttons->addWidget(copy_ = MakeButton("IDS_DESKTOP_COPY_RECORD", &PropertyDialog::Copy));
    buttons->addWidget(change_ = MakeButton("IDS_DESKTOP_CHANGE", &PropertyDialog::Change));
    buttons->addWidget(delete_ = MakeButton("IDS_DESKTOP_DELETE", &PropertyDialog::Delete));
    buttons->addStretch(1);
    buttons->addWidget(close_ = MakeButton("IDS_DESKTOP_CLOSE"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(upper_, 1);
    layout->addWidget(uses_);
    layout->addWidget(message_);
    layout->addLayout(buttons);
    connect(close_, &QPushButton::clicked, this, &QDialog::accept);
    connect(list_, &QListWidget::currentRowChanged, this, &PropertyWindow::Choose);
    for (QWidget* part : {static_cast<QWidget*>(list_), static_cast<QWidget*>(add_), static_cast<QWidget*>(copy_),
                          static_cast<QWidget*>(delete_), static_cast<QWidget*>(uses_)}) {
        part->setVisible(!block.IsSingle());
    }
    ShowList();
    ShowFields(TypedText::Replace);
}

// The lists tell what is typed in them; they go while there is someone to hear it.
PropertyWindow::~PropertyWindow() { qDeleteAll(lists_); }

void PropertyWindow::PlaceParts() {
    auto* beside = new QVBoxLayout;
    beside->addWidget(picture_);
    beside->addWidget(results_, 1);
    auto* fields = new QVBoxLayout;
    fields->addLayout(form_);
    upper_->addWidget(list_, 2);
    upper_->addLayout(fields, 3);
    if (block_.IsSingle()) {
        // Where there are no records to choose from, the lists have a place of their own.
        auto* lists = new QVBoxLayout;
        MakeLists(*lists);
        upper_->addSpacing(kListDistance);
        upper_->addLayout(lists, 3);
    } else {
        MakeLists(*fields);
    }
    fields->addStretch(0);
    upper_->addLayout(beside);
}

void PropertyWindow::MakeLists(QVBoxLayout& layout) {
    const auto changed = [this](const velda::Outcome& outcome) { AfterTyping(outcome); };
    for (const PropertyDialog::ListInfo& list : block_.Lists()) {
        const std::size_t at = lists_.size();
        PropertyListEditor* editor = nullptr;
        if (list.isTable) {
            editor = new PropertyTable(block_, at, changed);
        } else {
            editor = new PropertyRows(block_, at, changed);
        }
        if (!list.title.empty()) layout.addWidget(new QLabel(ToQt(list.title)));
        layout.addWidget(editor, 1);
        lists_.push_back(editor);
    }
}

QPushButton* PropertyWindow::MakeButton(std::string_view textKey) {
    auto* button = new QPushButton(Word(textKey));
    // Return ends the editing of a field and presses no button.
    button->setAutoDefault(false);
    return button;
}

QPushButton* PropertyWindow::MakeButton(std::string_view textKey, Action action) {
    QPushButton* button = MakeButton(textKey);
    connect(button, &QPushButton::clicked, this, [this, action] { Run(action); });
    return button;
}

QWidget* PropertyWindow::EditorOf(int field) const {
    QLayoutItem* item =
        field >= 0 && field < form_->rowCount() ? form_->itemAt(field, QFormLayout::FieldRole) : nullptr;
    return item ? item->widget() : nullptr;
}

void PropertyWindow::Run(Action action) {
    const velda::Outcome outcome = (block_.*action)();
    message_->setText(ToQt(outcome.Reason()));
    ShowList();
    // A refusal leaves what was typed.
    ShowFields(outcome ? TypedText::Replace : TypedText::Keep);
}

void PropertyWindow::Choose(int row) {
    if (showing_ || row < 0) return;
    block_.Select(list_->item(row)->data(Qt::UserRole).toUInt());
    message_->clear();
    ShowFields(TypedText::Replace);
}

void PropertyWindow::ShowList() {
    showing_ = true;
    list_->clear();
    auto* fresh = new QListWidgetItem(Word("IDS_DESKTOP_NEW_RECORD"), list_);
    fresh->setData(Qt::UserRole, 0u);
    list_->setCurrentItem(fresh);
    for (const PropertyDialog::Item& item : block_.Items()) {
        const QString key = block_.ListsKeys() ? QString::number(item.key) + QStringLiteral("  ") : QString();
        auto* line = new QListWidgetItem(key + ToQt(item.text), list_);
        line->setData(Qt::UserRole, item.key);
        if (item.key == block_.Current()) list_->setCurrentItem(line);
    }
    showing_ = false;
}

void PropertyWindow::ShowFields(TypedText typedText) {
    const std::vector<PropertyField> fields = block_.Fields();
    showing_ = true;
    bool areOthers = NeedOtherEditors(shown_, fields);
    if (areOthers) MakeEditors(fields);
    const TypedText inFields = areOthers ? TypedText::Replace : typedText;
    for (std::size_t at = 0; at < fields.size(); ++at) {
        ShowInEditor(*EditorOf(static_cast<int>(at)), fields[at], inFields);
    }
    for (PropertyListEditor* list : lists_) areOthers = list->ShowRows(typedText) || areOthers;
    if (areOthers) OrderTabs();
    showing_ = false;
    shown_ = fields;
    const bool exists = block_.Current() != 0;
    copy_->setEnabled(exists);
    change_->setEnabled(exists);
    delete_->setEnabled(exists);
    if (block_.IsSingle()) return ShowResults();
    const QString uses = ToQt(block_.Uses());
    uses_->setText(!exists          ? QString()
                   : uses.isEmpty() ? Word("IDS_DESKTOP_NOT_USED")
                                    : Word("IDS_DESKTOP_USED_BY") + ' ' + uses);
    ShowResults();
}

void PropertyWindow::MakeEditors(const std::vector<PropertyField>& fields) {
    int focused = -1;
    // The editor that reports may be one of those that go.
    while (form_->rowCount() > 0) {
        const int last = form_->rowCount() - 1;
        if (EditorOf(last)->hasFocus()) focused = last;
        const QFormLayout::TakeRowResult row = form_->takeRow(last);
        row.labelItem->widget()->deleteLater();
        row.fieldItem->widget()->hide();
        row.fieldItem->widget()->deleteLater();
        delete row.labelItem;
        delete row.fieldItem;
    }
    for (std::size_t at = 0; at < fields.size(); ++at) {
        QWidget* editor = MakePropertyEditor(fields[at], [this, at](const QString& text) { Type(at, text); });
        form_->addRow(ToQt(fields[at].label), editor);
    }
    QWidget* editor = EditorOf(focused);
    if (!editor) return;
    // A layout shows its widgets later, and what is not shown takes no focus.
    editor->show();
    editor->setFocus();
}

void PropertyWindow::ShowResults() {
    const std::vector<PropertyDialog::Value> values = block_.Results();
    results_->setRowCount(static_cast<int>(values.size()));
    for (int row = 0; row < results_->rowCount(); ++row) {
        const PropertyDialog::Value& value = values[static_cast<std::size_t>(row)];
        results_->setItem(row, 0, new QTableWidgetItem(ToQt(value.label)));
        auto* number = new QTableWidgetItem(ToQt(value.text));
        number->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        results_->setItem(row, 1, number);
    }
    std::vector<Outline> parts = block_.Picture();
    const bool hasPicture = !values.empty() || !parts.empty();
    results_->setVisible(hasPicture);
    picture_->setVisible(hasPicture);
    upper_->setStretch(upper_->count() - 1, hasPicture ? kPictureStretch : 0);
    picture_->Show(std::move(parts));
}

void PropertyWindow::OrderTabs() {
    std::vector<QWidget*> order{list_};
    for (int at = 0; at < form_->rowCount(); ++at) order.push_back(EditorOf(at));
    for (const PropertyListEditor* list : lists_) {
        const std::vector<QWidget*> ofList = list->TabOrder();
        order.insert(order.end(), ofList.begin(), ofList.end());
    }
    order.insert(order.end(), {results_, add_, copy_, change_, delete_, close_});
    for (std::size_t at = 1; at < order.size(); ++at) setTabOrder(order[at - 1], order[at]);
}

void PropertyWindow::Type(std::size_t field, const QString& text) {
    if (showing_) return;
    block_.SetField(field, FromQt(text));
    AfterTyping(velda::Outcome::Done());
}

void PropertyWindow::AfterTyping(const velda::Outcome& outcome) {
    message_->setText(ToQt(outcome.Reason()));
    ShowFields(TypedText::Keep);
}

}  // namespace zt
