#include "desktop/host/qt_dialogs.h"

#include <QApplication>
#include <memory>

#include "desktop/host/activation_dialog.h"
#include "desktop/host/dialogs.h"
#include "desktop/host/drift_limits_dialog.h"
#include "desktop/host/property_window.h"

namespace zt {
namespace {

std::unique_ptr<QDialog> MakePropertyWindow(PropertyDialog& block, QWidget* parent) {
    return std::make_unique<PropertyWindow>(block, parent);
}

/// The window of a dialog when it is of this class; null otherwise.
template <class Dialog, auto make>
std::unique_ptr<QDialog> MakeFor(velda::ModalDialog& dialog) {
    auto* block = dynamic_cast<Dialog*>(&dialog);
    return block ? make(*block, QApplication::activeWindow()) : nullptr;
}

using Maker = std::unique_ptr<QDialog> (*)(velda::ModalDialog& dialog);
constexpr Maker kMakers[] = {
    &MakeFor<CTBFindDlg, &MakeFindDialog>,
    &MakeFor<velda::CTBSortDlg, &MakeSortDialog>,
    &MakeFor<velda::CTBColorDlg, &MakeColorDialog>,
    &MakeFor<velda::CTBStyleDlg, &MakeStyleDialog>,
    &MakeFor<CTBDisplayDlg, &MakeDisplayDialog>,
    &MakeFor<PropertyDialog, &MakePropertyWindow>,
    &MakeFor<CTBActiveNewDlg, &MakeActivationDialog>,
    &MakeFor<CTBSetRMFMiniDlg, &MakeDriftLimitsDialog>,
};

}  // namespace

bool QtDialogs::DoModal(velda::ModalDialog& dialog) {
    dialog.OnInitDialog();
    for (const Maker make : kMakers) {
        if (const std::unique_ptr<QDialog> shown = make(dialog)) return shown->exec() == QDialog::Accepted;
    }
    dialog.OnCancel();
    return false;
}

}  // namespace zt
