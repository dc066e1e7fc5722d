#include "desktop/host/property_window.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

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

/// Whether two lists of fields differ in more than texts and states, so that they need other editors.
bool NeedOtherEditors(const std::vector<PropertyField>& before, const std::vector<PropertyField>& now) {
    return !std::equal(before.begin(), before.end(), now.begin(), now.end(), [](const auto& a, const auto& b) {
        return a.label == b.label && a.kind == b.kind && a.choices == b.choices;
    });
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
      list_(new QListWidget),
      form_(new QFormLayout),
      picture_(new SectionPicture),
      results_(new QTableWidget(0, 2)),
      uses_(new QLabel),
      message_(new QLabel) {
    setWindowTitle(ToQt(block.GetTitle()));
    list_->setMinimumWidth(150);
    results_->horizontalHeader()->hide();
    results_->verticalHeader()->hide();
    results_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    results_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    uses_->setWordWrap(true);
    uses_->setForegroundRole(QPalette::PlaceholderText);
    message_->setWordWrap(true);
    auto* beside = new QVBoxLayout;
    beside->addWidget(picture_);
    beside->addWidget(results_, 1);
    auto* upper = new QHBoxLayout;
    upper->addWidget(list_, 1);
    upper->addLayout(form_, 2);
    upper->addLayout(beside, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(add_ = MakeButton("IDS_DESKTOP_ADD", &PropertyDialog::Add));
    buttons->addWidget(change_ = MakeButton("IDS_DESKTOP_CHANGE", &PropertyDialog::Change));
    buttons->addWidget(delete_ = MakeButton("IDS_DESKTOP_DELETE", &PropertyDialog::Delete));
    buttons->addStretch(1);
    auto* close = new QPushButton(Word("IDS_DESKTOP_CLOSE"));
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(upper, 1);
    layout->addWidget(uses_);
    layout->addWidget(message_);
    layout->addLayout(buttons);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(list_, &QListWidget::currentRowChanged, this, &PropertyWindow::Choose);
    ShowList();
    ShowFields();
}

QPushButton* PropertyWindow::MakeButton(std::string_view textKey, Action action) {
    auto* button = new QPushButton(Word(textKey));
    // Return ends the editing of a field and presses no button.
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, action] { Run(action); });
    return button;
}

QWidget* PropertyWindow::EditorOf(int field) const {
    QLayoutItem* item = field < form_->rowCount() ? form_->itemAt(field, QFormLayout::FieldRole) : nullptr;
    return item ? item->widget() : nullptr;
}

void PropertyWindow::Run(Action action) {
    const velda::Outcome outcome = (block_.*action)();
    message_->setText(ToQt(outcome.Reason()));
    ShowList();
    ShowFields();
}

void PropertyWindow::Choose(int row) {
    if (showing_ || row < 0) return;
    block_.Select(list_->item(row)->data(Qt::UserRole).toUInt());
    message_->clear();
    ShowFields();
}

void PropertyWindow::ShowList() {
    showing_ = true;
    list_->clear();
    auto* fresh = new QListWidgetItem(Word("IDS_DESKTOP_NEW_RECORD"), list_);
    fresh->setData(Qt::UserRole, 0u);
    list_->setCurrentItem(fresh);
    for (const PropertyDialog::Item& item : block_.Items()) {
        auto* line = new QListWidgetItem(QString::number(item.key) + QStringLiteral("  ") + ToQt(item.text), list_);
        line->setData(Qt::UserRole, item.key);
        if (item.key == block_.Current()) list_->setCurrentItem(line);
    }
    showing_ = false;
}

void PropertyWindow::ShowFields() {
    const std::vector<PropertyField> fields = block_.Fields();
    showing_ = true;
    if (NeedOtherEditors(shown_, fields)) MakeEditors(fields);
    ShowTexts(fields);
    showing_ = false;
    shown_ = fields;
    const bool exists = block_.Current() != 0;
    change_->setEnabled(exists);
    delete_->setEnabled(exists);
    const QString uses = ToQt(block_.Uses());
    uses_->setText(!exists          ? QString()
                   : uses.isEmpty() ? Word("IDS_DESKTOP_NOT_USED")
                                    : Word("IDS_DESKTOP_USED_BY") + ' ' + uses);
    ShowResults();
}

void PropertyWindow::MakeEditors(const std::vector<PropertyField>& fields) {
    // The editor that reports may be one of those that go.
    while (form_->rowCount() > 0) {
        const QFormLayout::TakeRowResult row = form_->takeRow(0);
        row.labelItem->widget()->deleteLater();
        row.fieldItem->widget()->hide();
        row.fieldItem->widget()->deleteLater();
        delete row.labelItem;
        delete row.fieldItem;
    }
    for (std::size_t at = 0; at < fields.size(); ++at) {
        if (fields[at].kind == PropertyField::Kind::Choice) {
            auto* box = new QComboBox;
            box->setMaxVisibleItems(20);
            for (const std::string& choice : fields[at].choices) box->addItem(ToQt(choice));
            connect(box, &QComboBox::textActivated, this, [this, at](const QString& text) { Type(at, text); });
            form_->addRow(ToQt(fields[at].label), box);
        } else {
            auto* edit = new QLineEdit;
            if (fields[at].kind == PropertyField::Kind::Number) edit->setAlignment(Qt::AlignRight);
            connect(edit, &QLineEdit::textEdited, this, [this, at](const QString& text) { Type(at, text); });
            form_->addRow(ToQt(fields[at].label), edit);
        }
    }
}

void PropertyWindow::ShowTexts(const std::vector<PropertyField>& fields) {
    for (std::size_t at = 0; at < fields.size(); ++at) {
        QWidget* editor = EditorOf(static_cast<int>(at));
        const QString text = ToQt(fields[at].text);
        editor->setEnabled(fields[at].enabled);
        if (auto* box = qobject_cast<QComboBox*>(editor)) box->setCurrentIndex(box->findText(text));
        auto* edit = qobject_cast<QLineEdit*>(editor);
        // What the user types stays as he types it.
        if (edit && !edit->hasFocus() && edit->text() != text) edit->setText(text);
    }
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
    picture_->Show(std::move(parts));
}

void PropertyWindow::Type(std::size_t field, const QString& text) {
    if (showing_) return;
    block_.SetField(field, FromQt(text));
    message_->clear();
    ShowFields();
}

}  // namespace zt
