#include "velda_base/host/headless_queue.h"

#include <utility>

namespace velda {
namespace {

/// Counts a handler for as long as it is at work, also when it throws.
class HandlerAtWork {
public:
    explicit HandlerAtWork(int& depth) : depth_(depth) { ++depth_; }
    HandlerAtWork(const HandlerAtWork&) = delete;
    HandlerAtWork& operator=(const HandlerAtWork&) = delete;
    ~HandlerAtWork() { --depth_; }

private:
    int& depth_;
};

}  // namespace

void HeadlessQueue::Run(FunctionRef<void()> handler) {
    RunAlone(handler);
    Deliver();
}

void HeadlessQueue::Deliver() {
    if (depth_ > 0) return;
    while (!posted_.empty()) {
        const Posted next = std::move(posted_.front());
        posted_.pop_front();
        RunAlone(next.handler);
    }
}

void HeadlessQueue::Post(const CWnd& window, std::function<void()> handler) {
    posted_.push_back({&window, std::move(handler)});
}

void HeadlessQueue::Forget(const CWnd& window) {
    std::erase_if(posted_, [&](const Posted& posted) { return posted.window == &window; });
}

void HeadlessQueue::RunAlone(FunctionRef<void()> handler) {
    const HandlerAtWork atWork(depth_);
    handler();
}

}  // namespace velda
