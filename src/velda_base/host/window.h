#pragma once

#include "velda_base/host/message.h"

namespace velda {

class IFrame;

/// A place in a window, in pixels from its upper left corner.
struct WindowPoint {
    int x = 0;
    int y = 0;
    bool operator==(const WindowPoint&) const = default;
};

/// A rectangle in pixels; right and bottom lie outside.
struct WindowRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
    bool operator==(const WindowRect&) const = default;
};

/// A window of the host, as far as the module asks something of it.
class CWnd {
public:
    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    virtual ~CWnd() = default;

    /// Leaves a command for the window. It is delivered after the handler at work has returned, never within this call.
    virtual void PostCommand(const CommandMessage& command) = 0;
    /// Whether the window exists on the screen; it may have been closed by the user.
    virtual bool IsOpen() const = 0;
    /// What of the window can be drawn on, from (0, 0).
    virtual WindowRect GetClientRect() const = 0;
    /// Puts the window to a place within its parent.
    virtual void MoveWindow(const WindowRect& place) = 0;
    /// Draws the window before this returns.
    virtual void RedrawNow() = 0;
    virtual void SetFocus() = 0;
    /// The frame that carries the window; null for none.
    virtual IFrame* GetParentFrame() = 0;
};

}  // namespace velda
