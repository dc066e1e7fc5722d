#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>
#include <functional>
#include <memory>

#include "velda_base/host/modal_dialog.h"
#include "velda_util/grid/table_dialogs.h"
#include "zt_tb/core/tb_find_dlg.h"
#include "zt_tb/model/tb_display_dlg.h"

namespace zt {

/// The window of a dialog block: its controls above the two buttons. OK writes the controls into the block and asks it.
class BlockDialog : public QDialog {
    Q_OBJECT

public:
    BlockDialog(velda::ModalDialog& block, std::string_view titleKey, QWidget* parent);

    QVBoxLayout& Controls() { return *controls_; }
    QDialogButtonBox& Buttons() { return *buttons_; }
    /// Writes the controls into the block.
    void OnStore(std::function<void()> store) { store_ = std::move(store); }
    void accept() override;
    void reject() override;

private:
    velda::ModalDialog& block_;
    QVBoxLayout* controls_;
    QDialogButtonBox* buttons_;
    std::function<void()> store_ = [] {};
};

std::unique_ptr<BlockDialog> MakeFindDialog(CTBFindDlg& block, QWidget* parent);
std::unique_ptr<BlockDialog> MakeSortDialog(velda::CTBSortDlg& block, QWidget* parent);
std::unique_ptr<BlockDialog> MakeColorDialog(velda::CTBColorDlg& block, QWidget* parent);
std::unique_ptr<BlockDialog> MakeStyleDialog(velda::CTBStyleDlg& block, QWidget* parent);
std::unique_ptr<BlockDialog> MakeDisplayDialog(CTBDisplayDlg& block, QWidget* parent);

}  // namespace zt
