#pragma once

#include <cstdint>

#include "velda_base/host/window.h"

namespace velda {

/// The window of a docking pane.
class IDockPane : public CWnd {
public:
    virtual bool IsDocked() const = 0;
    virtual bool IsVisible() const = 0;
    virtual void Show(bool visible) = 0;
    /// Keeps place and size for the next time.
    virtual void StoreState() = 0;
};

/// A docking pane of the main window. Panes are known by an identifier each.
class CDockViewBase {
public:
    /// The identifier of a pane that has none.
    static constexpr std::uint32_t kNoId = 0xFFFFFFFFu;

    CDockViewBase() = default;
    CDockViewBase(const CDockViewBase&) = delete;
    CDockViewBase& operator=(const CDockViewBase&) = delete;
    virtual ~CDockViewBase();

    /// Null when no pane has the identifier.
    static CDockViewBase* GetDockViewFromID(std::uint32_t id);
    /// Registers a pane. False for kNoId and for an identifier that another pane has.
    static bool SetDockViewWithID(std::uint32_t id, CDockViewBase* pane);
    /// Shows the pane of an identifier; false when there is none or its window is gone.
    static bool ShowDockView(std::uint32_t id);
    static bool CloseDockView(std::uint32_t id);
    static void CloseDockViewAll();

    /// The window that the host made for the pane; null when it goes away. It outlives its use.
    void AttachWindow(IDockPane* window) { window_ = window; }
    /// Whether the window exists.
    bool HasWindow() const { return window_ && window_->IsOpen(); }
    bool IsVisible() const { return HasWindow() && window_->IsVisible(); }
    /// Hides the pane, where it is docked and visible, and keeps its state. False when its window does not exist.
    virtual bool CloseDockViewImpl();
    /// The window has another size.
    virtual void OnSize() {}

protected:
    /// The pane has been hidden and its state is kept.
    virtual void OnClosed() {}
    IDockPane* Window() const { return window_; }

private:
    IDockPane* window_ = nullptr;
};

}  // namespace velda
