#pragma once

#include "velda_base/host/dock_view_base.h"
#include "velda_base/host/headless_window.h"

namespace velda {

/// The window of a docking pane without a screen.
class HeadlessDockPane final : public HeadlessWindowOf<IDockPane> {
public:
    /// The pane is told of sizes.
    HeadlessDockPane(HeadlessQueue& queue, CDockViewBase& pane) : HeadlessWindowOf(queue), pane_(pane) {
        pane_.AttachWindow(this);
    }
    ~HeadlessDockPane() override { pane_.AttachWindow(nullptr); }

    bool IsDocked() const override { return docked; }
    bool IsVisible() const override { return visible_; }
    void Show(bool visible) override { visible_ = visible; }
    void StoreState() override { ++stored; }

    bool docked = true;
    int stored = 0;  ///< how often the state was kept

protected:
    void OnSize(int /*width*/, int /*height*/) override { pane_.OnSize(); }

private:
    CDockViewBase& pane_;
    bool visible_ = true;
};

}  // namespace velda
