#pragma once

#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QToolButton>

#include "desktop/grid/grid_widget.h"
#include "velda_lib/language.h"
#include "zt_db/units/unit_ctrl.h"

namespace zt {

/// What stands at the right of the status bar: the numbers of the selection, the language, the units.
class StatusFields : public QObject {
    Q_OBJECT

public:
    explicit StatusFields(QStatusBar& bar);

    /// Shows count, sum, mean, minimum and maximum of the selected cells; nothing for null.
    void ShowSelection(const GridWidget* table);
    /// Shows the units of a control, and offers the others.
    void ShowUnits(const CUnitCtrl& units);
    void ShowLanguage();

    QLabel& Selection() { return *selection_; }
    QMenu& UnitMenu() { return *units_->menu(); }
    QMenu& LanguageMenu() { return *language_->menu(); }
    QToolButton& Units() { return *units_; }

signals:
    void UnitsChosen(const zt::T_UNIT_INDEX& index);
    void LanguageChosen(velda::Language language);

private:
    void AddUnitMenu(UnitQuantity quantity, std::string_view textKey, const T_UNIT_INDEX& current);

    QLabel* selection_;
    QToolButton* language_;
    QToolButton* units_;
};

}  // namespace zt
