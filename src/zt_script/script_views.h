#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "zt_tb/core/tb_view.h"

namespace zt {

/// The open views of a script, in the order in which they were opened. Commands work on the active one.
class ScriptViews {
public:
    /// Takes over a view and makes it the active one.
    void Open(std::unique_ptr<CTBView> view);
    /// Makes a view active, counted from 1; false when there is no such view.
    bool Activate(std::int64_t number);
    /// Closes the active view; the one that was opened last becomes active.
    void CloseActive();
    void CloseAll();
    bool IsEmpty() const { return views_.empty(); }

    /// Null when no view is open.
    CTBView* Active() const { return views_.empty() ? nullptr : views_[active_].view.get(); }
    /// All open views.
    std::vector<const CTBView*> All() const;
    /// The table in front in the active view; null when there is none.
    CTBCommonWnd* ActiveTable() const;

    /// Leaves the open rows of all views; false when one stays open.
    bool LeaveRows() const;

    /// Starts the count of redraws anew.
    void Mark();
    /// Redraws of the active table since the mark, or since it was made.
    std::uint64_t RedrawsSinceMark() const;

private:
    struct OpenView {
        std::unique_ptr<CTBView> view;
        std::vector<std::uint64_t> redraws{};  ///< of each tab, at the mark
    };
    std::vector<OpenView> views_;
    std::size_t active_ = 0;
};

}  // namespace zt
