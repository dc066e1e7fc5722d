#pragma once

#include "velda_base/host/modal_dialog.h"

namespace zt {

/// Shows the dialogs of the tables. One that it does not know counts as cancelled.
class QtDialogs final : public velda::IModalDialogs {
public:
    bool DoModal(velda::ModalDialog& dialog) override;
};

}  // namespace zt
