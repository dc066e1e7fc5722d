#pragma once

#include <string>

namespace velda {

/// A bar that shows how far a long work is, with a button to cancel it.
class IProgress {
public:
    virtual ~IProgress() = default;
    virtual void Begin(const std::string& title, int steps) = 0;
    /// So many steps are done. False when the user has cancelled the work.
    virtual bool Step(int done) = 0;
    virtual void End() = 0;
};

/// Shows the progress of one work as long as it lives.
class Progress {
public:
    Progress(const std::string& title, int steps);
    ~Progress() { progress_.End(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    bool Step(int done) { return progress_.Step(done); }

private:
    IProgress& progress_;
};

}  // namespace velda
