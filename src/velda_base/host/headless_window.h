#pragma once

#include "velda_base/host/control.h"
#include "velda_base/host/headless_queue.h"
#include "velda_base/host/window.h"

namespace velda {

/// A kind of window without a screen, for scripts and tests: it counts what it is asked for.
template <class Base>
class HeadlessWindowOf : public Base {
public:
    /// The queue outlives the window.
    explicit HeadlessWindowOf(HeadlessQueue& queue) : queue_(queue) {}
    ~HeadlessWindowOf() override { queue_.Forget(*this); }

    void PostCommand(const CommandMessage& command) override {
        queue_.Post(*this, [this, command] { OnCommand(command); });
    }
    bool IsOpen() const override { return open_; }
    WindowRect GetClientRect() const override { return {0, 0, place_.Width(), place_.Height()}; }
    void MoveWindow(const WindowRect& place) override {
        place_ = place;
        OnSize(place.Width(), place.Height());
    }
    void RedrawNow() override { ++redraws_; }
    void SetFocus() override { ++focuses_; }
    IFrame* GetParentFrame() override { return frame_; }

    /// Gives a message to the control that has the focus, and to the window when the control does not handle it. Then
    /// what was posted is delivered.
    void SendKey(Control& focus, const KeyMessage& message) {
        queue_.Run([&] {
            if (!focus.PreTranslateMessage(message)) OnKey(message);
        });
    }

    void SetParentFrame(IFrame* frame) { frame_ = frame; }
    /// The window goes away, though the object stays.
    void Destroy() { open_ = false; }
    const WindowRect& Place() const { return place_; }
    int RedrawCount() const { return redraws_; }
    /// How often the window got the focus.
    int FocusCount() const { return focuses_; }

protected:
    /// A posted command has come.
    virtual void OnCommand(const CommandMessage& /*command*/) {}
    /// A key that the control with the focus did not handle.
    virtual void OnKey(const KeyMessage& /*message*/) {}
    /// The window has another size.
    virtual void OnSize(int /*width*/, int /*height*/) {}
    HeadlessQueue& Queue() { return queue_; }

private:
    HeadlessQueue& queue_;
    IFrame* frame_ = nullptr;
    WindowRect place_{0, 0, 800, 600};
    bool open_ = true;
    int redraws_ = 0;
    int focuses_ = 0;
};

class HeadlessWindow : public HeadlessWindowOf<CWnd> {
public:
    using HeadlessWindowOf::HeadlessWindowOf;
};

}  // namespace velda
