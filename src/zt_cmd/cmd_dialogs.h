#pragma once

#include "velda_base/host/cmd_dialog.h"

namespace zt {

/// The property dialogs of the program by name, on the current document. Without a document, and for a name that is not
/// known, nothing is shown.
class CmdDialogs final : public velda::ICmdDialog {
public:
    /// Opens a dialog for a new record.
    int DoModal(std::string_view name) override { return DoModal3(name, 0, nullptr, nullptr); }
    /// Opens a dialog with a record in its fields.
    int DoModal3(std::string_view name, std::uint32_t key, void* first, void* second) override;
};

}  // namespace zt
