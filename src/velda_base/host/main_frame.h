#pragma once

#include <cstdint>

#include "velda_base/host/window.h"

namespace velda {

/// The main frame of the application.
class I_MainFrameBase : public CWnd {
public:
    /// Runs a command before this returns. PostCommand leaves it for later.
    virtual void SendCommand(const CommandMessage& command) = 0;
    /// Whether a button of the tool bars is pressed in.
    virtual bool IsToolButtonChecked(std::uint16_t id) const = 0;
    virtual void CheckToolButton(std::uint16_t id, bool checked) = 0;
};

}  // namespace velda
