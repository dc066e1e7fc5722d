#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "velda_base/host/headless_host.h"
#include "zt_tb/core/tb_view.h"

namespace zt {

/// The open views of a script, in the order in which they were opened, each in a frame of its own. Commands work on the
/// active one. A view goes when its frame is closed.
class ScriptViews {
public:
    /// The queue outlives the views.
    explicit ScriptViews(velda::HeadlessQueue& queue) : queue_(queue) {}

    /// Takes over a view and makes it the active one.
    void Open(std::unique_ptr<CTBView> view);
    /// Closes the views whose frames were closed.
    void DropClosed();
    /// Makes a view active, counted from 1; false when there is no such view.
    bool Activate(std::int64_t number);
    /// Closes the active view; the one that was opened last becomes active.
    void CloseActive();
    /// The window of the active view; null when no view is open.
    velda::HeadlessWindow* ActiveWindow() const { return views_.empty() ? nullptr : views_[active_].window.get(); }
    void CloseAll();
    bool IsEmpty() const { return views_.empty(); }

    /// Null when no view is open.
    CTBView* Active() const { return views_.empty() ? nullptr : views_[active_].view.get(); }
    /// All open views.
    std::vector<const CTBView*> All() const;
    /// The table in front in the active view, of records or of results; null when there is none.
    velda::CTBGrid* ActiveGrid() const;
    /// The same, when its rows are records of the model.
    CTBCommonWnd* ActiveTable() const;

    /// Leaves the open rows of all views; false when one stays open.
    bool LeaveRows() const;

    /// Starts the count of redraws anew.
    void Mark();
    /// Redraws of the active table since the mark, or since it was made.
    std::uint64_t RedrawsSinceMark() const;

private:
    /// The window that shows a view.
    class ViewWindow final : public velda::HeadlessWindow {
    public:
        ViewWindow(velda::HeadlessQueue& queue, CTBView& view) : HeadlessWindow(queue), view_(view) {}

    protected:
        void OnCommand(const velda::CommandMessage& command) override { view_.OnCommand(command.id); }
        void OnSize(int width, int height) override { view_.OnWindowPosChanging({0, 0, width, height}); }

    private:
        CTBView& view_;
    };
    struct OpenView {
        std::unique_ptr<velda::HeadlessFrame> frame;
        std::unique_ptr<ViewWindow> window;
        std::unique_ptr<CTBView> view;
        std::map<const velda::CTBGrid*, std::uint64_t> redraws{};  ///< of each table, at the mark
    };
    void Close(std::size_t at);

    velda::HeadlessQueue& queue_;
    std::vector<OpenView> views_;
    std::size_t active_ = 0;
};

}  // namespace zt
