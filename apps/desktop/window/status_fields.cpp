#include "desktop/window/status_fields.h"

#include "desktop/grid/qt_text.h"
#include "velda_util/grid/selection_statistics.h"

namespace zt {
namespace {

struct QuantityEntry {
    UnitQuantity quantity;
    std::string_view textKey;
};
constexpr QuantityEntry kQuantities[] = {
    {UnitQuantity::Force, "IDS_DESKTOP_UNIT_FORCE"},
    {UnitQuantity::Length, "IDS_DESKTOP_UNIT_LENGTH"},
    {UnitQuantity::ModelLength, "IDS_DESKTOP_UNIT_MODEL_LENGTH"},
    {UnitQuantity::Mass, "IDS_DESKTOP_UNIT_MASS"},
    {UnitQuantity::Temperature, "IDS_DESKTOP_UNIT_TEMPERATURE"},
};

struct LanguageEntry {
    velda::Language language;
    const char* name;  ///< in the language itself
};
constexpr LanguageEntry kLanguages[] = {
    {velda::Language::English, "English"},
    {velda::Language::Korean, "\xED\x95\x9C\xEA\xB5\xAD\xEC\x96\xB4"},
};

QString UnitText(UnitQuantity quantity, int choice) {
    int count = 0;
    const QString label = ToQt(CUnitCtrl::Choices(quantity, count)[choice].label);
    // Kelvins are no degrees.
    const bool isDegree = quantity == UnitQuantity::Temperature && label != QLatin1String("K");
    return isDegree ? QChar(0x00B0) + label : label;
}

std::string NumberText(double value) { return FromQt(QString::number(value, 'g', 6)); }

QToolButton* MenuButton(QStatusBar& bar) {
    auto* button = new QToolButton;
    button->setAutoRaise(true);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(new QMenu(button));
    bar.addPermanentWidget(button);
    return button;
}

}  // namespace

StatusFields::StatusFields(QStatusBar& bar) : QObject(&bar), selection_(new QLabel) {
    bar.addPermanentWidget(selection_);
    units_ = MenuButton(bar);
    language_ = MenuButton(bar);
}

void StatusFields::ShowSelection(const GridWidget* table) {
    selection_->clear();
    if (!table || !table->Grid()) return;
    const velda::SelectionStatistics found = velda::StatisticsOf(*table->Grid());
    if (found.cells < 2) return;
    const std::string count = std::to_string(found.cells);
    selection_->setText(ToQt(
        found.numbers == 0
            ? velda::FormatText("IDS_DESKTOP_STATISTICS_COUNT", {count})
            : velda::FormatText("IDS_DESKTOP_STATISTICS", {count, NumberText(found.sum), NumberText(found.Mean()),
                                                           NumberText(found.minimum), NumberText(found.maximum)})));
}

void StatusFields::AddUnitMenu(UnitQuantity quantity, std::string_view textKey, const T_UNIT_INDEX& current) {
    QMenu* menu = units_->menu()->addMenu(Word(textKey));
    int count = 0;
    CUnitCtrl::Choices(quantity, count);
    for (int at = 0; at < count; ++at) {
        QAction* action = menu->addAction(UnitText(quantity, at));
        action->setCheckable(true);
        action->setChecked(CUnitCtrl::IndexOf(current, quantity) == at);
        connect(action, &QAction::triggered, this, [this, quantity, current, at] {
            T_UNIT_INDEX index = current;
            CUnitCtrl::IndexOf(index, quantity) = at;
            emit UnitsChosen(index);
        });
    }
}

void StatusFields::ShowUnits(const CUnitCtrl& units) {
    T_UNIT_INDEX current;
    units.GetUnitIndexCurrent(current);
    units_->menu()->clear();
    // The choice that led here may come from one of them.
    for (QMenu* old : units_->menu()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) old->deleteLater();
    QStringList labels;
    for (const QuantityEntry& entry : kQuantities) {
        AddUnitMenu(entry.quantity, entry.textKey, current);
        labels << UnitText(entry.quantity, CUnitCtrl::IndexOf(current, entry.quantity));
    }
    labels.removeDuplicates();
    units_->setText(labels.join(QStringLiteral(" · ")));
    units_->setToolTip(Word("IDS_DESKTOP_UNITS"));
}

void StatusFields::ShowLanguage() {
    language_->menu()->clear();
    for (const LanguageEntry& entry : kLanguages) {
        QAction* action = language_->menu()->addAction(QString::fromUtf8(entry.name));
        action->setCheckable(true);
        action->setChecked(entry.language == velda::CurrentLanguage());
        if (action->isChecked()) language_->setText(action->text());
        connect(action, &QAction::triggered, this, [this, &entry] { emit LanguageChosen(entry.language); });
    }
    language_->setToolTip(Word("IDS_DESKTOP_LANGUAGE"));
}

}  // namespace zt
