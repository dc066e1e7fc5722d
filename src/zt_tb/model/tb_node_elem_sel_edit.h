#pragma once

#include <cstdint>

#include "velda_base/host/edit.h"

namespace zt {

/// The edit control in which the user types a list of nodes or elements. Return confirms the list: the dialog is told
/// by a posted command and stays open.
class CTBNodeElemSelEdit : public velda::CEdit {
public:
    /// Notification code of the command that tells of a confirmed list.
    static constexpr std::uint16_t kListConfirmed = 0x200;

    using CEdit::CEdit;

    bool PreTranslateMessage(const velda::KeyMessage& message) override;
};

}  // namespace zt
