#pragma once

namespace velda {

/// The cursor that tells the user to wait.
class IWaitCursor {
public:
    virtual ~IWaitCursor() = default;
    /// May be nested; the cursor is shown until each Begin has its End.
    virtual void Begin() = 0;
    virtual void End() = 0;
};

/// Shows the wait cursor of the current host as long as it lives.
class WaitCursor {
public:
    WaitCursor();
    ~WaitCursor() { cursor_.End(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    IWaitCursor& cursor_;
};

}  // namespace velda
