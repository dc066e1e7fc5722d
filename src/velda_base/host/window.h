#pragma once

#include "velda_base/host/message.h"

namespace velda {

/// A window of the host, as far as the module asks something of it.
class CWnd {
public:
    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    virtual ~CWnd() = default;

    /// Leaves a command for the window. It is delivered after the handler at work has returned, never within this call.
    virtual void PostCommand(const CommandMessage& command) = 0;
};

}  // namespace velda
