#pragma once

#include <deque>
#include <functional>

#include "velda_base/host/window.h"
#include "velda_lib/function_ref.h"

namespace velda {

/// What was posted to the windows of a host without a screen. All of its windows share one queue, so that things are
/// delivered in the order in which they were posted.
class HeadlessQueue {
public:
    /// Runs a handler and then delivers what waits. When a handler is at work already nothing is delivered before that
    /// one has returned. What waits when a handler throws stays for the next time.
    void Run(FunctionRef<void()> handler);
    /// Delivers what waits, and what is posted meanwhile. Does nothing while a handler is at work.
    void Deliver();

    /// Keeps a handler for later, on behalf of a window.
    void Post(const CWnd& window, std::function<void()> handler);
    /// Drops what waits for a window that goes away.
    void Forget(const CWnd& window);

private:
    struct Posted {
        const CWnd* window;
        std::function<void()> handler;
    };
    void RunAlone(FunctionRef<void()> handler);

    std::deque<Posted> posted_;
    /// Handlers at work, one within the other.
    int depth_ = 0;
};

}  // namespace velda
