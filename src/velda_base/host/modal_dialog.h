#pragma once

#include <string_view>

namespace velda {

/// A modal dialog without its looks: the data of its controls and what its buttons do. The host shows it.
class ModalDialog {
public:
    ModalDialog() = default;
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;
    virtual ~ModalDialog() = default;

    /// Under which the host knows the dialog.
    virtual std::string_view GetName() const = 0;
    /// The dialog opens: fills the controls.
    virtual void OnInitDialog() {}
    /// The OK button. False when the dialog stays open.
    virtual bool OnOK() { return true; }
    virtual void OnCancel() {}
};

/// Shows modal dialogs.
class IModalDialogs {
public:
    virtual ~IModalDialogs() = default;
    /// Shows a dialog until it is closed, and calls its operations meanwhile. True when it was closed by OK.
    virtual bool DoModal(ModalDialog& dialog) = 0;
};

/// Shows a dialog on the current host.
bool DoModal(ModalDialog& dialog);

}  // namespace velda
