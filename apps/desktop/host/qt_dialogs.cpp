#include "desktop/host/qt_dialogs.h"

#include <QApplication>
#include <memory>

#include "desktop/host/dialogs.h"

namespace zt {
namespace {

/// The window of a dialog when it is of this class; null otherwise.
template <class Dialog, std::unique_ptr<BlockDialog> (*make)(Dialog&, QWidget*)>
std::unique_ptr<BlockDialog> MakeFor(velda::ModalDialog& dialog) {
    auto* block = dynamic_cast<Dialog*>(&dialog);
    return block ? make(*block, QApplication::activeWindow()) : nullptr;
}

using Maker = std::unique_ptr<BlockDialog> (*)(velda::ModalDialog& dialog);
constexpr Maker kMakers[] = {
    &MakeFor<CTBFindDlg, &MakeFindDialog>,          &MakeFor<velda::CTBSortDlg, &MakeSortDialog>,
    &MakeFor<velda::CTBColorDlg, &MakeColorDialog>, &MakeFor<velda::CTBStyleDlg, &MakeStyleDialog>,
    &MakeFor<CTBDisplayDlg, &MakeDisplayDialog>,
};

}  // namespace

bool QtDialogs::DoModal(velda::ModalDialog& dialog) {
    dialog.OnInitDialog();
    for (const Maker make : kMakers) {
        if (const std::unique_ptr<BlockDialog> shown = make(dialog)) return shown->exec() == QDialog::Accepted;
    }
    dialog.OnCancel();
    return false;
}

}  // namespace zt
