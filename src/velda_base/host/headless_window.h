#pragma once

#include "velda_base/host/control.h"
#include "velda_base/host/headless_queue.h"
#include "velda_base/host/window.h"

namespace velda {

/// A window without a screen, for scripts and tests.
class HeadlessWindow : public CWnd {
public:
    /// The queue outlives the window.
    explicit HeadlessWindow(HeadlessQueue& queue) : queue_(queue) {}
    ~HeadlessWindow() override { queue_.Forget(*this); }

    void PostCommand(const CommandMessage& command) override;
    /// Gives a message to the control that has the focus, and to the window when the control does not handle it. Then
    /// what was posted is delivered.
    void SendKey(Control& focus, const KeyMessage& message);

protected:
    /// A posted command has come.
    virtual void OnCommand(const CommandMessage& /*command*/) {}
    /// A key that the control with the focus did not handle.
    virtual void OnKey(const KeyMessage& /*message*/) {}

private:
    HeadlessQueue& queue_;
};

}  // namespace velda
