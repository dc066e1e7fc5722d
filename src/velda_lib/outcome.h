#pragma once

#include <string>
#include <utility>

namespace velda {

/// Result of an operation that may be refused: done, or refused with a reason that a host can show to the user.
class [[nodiscard]] Outcome {
public:
    static Outcome Done() { return Outcome{}; }
    static Outcome Refused(std::string reason) { return Outcome{std::move(reason)}; }

    explicit operator bool() const { return done_; }
    /// Why the operation was refused; empty when it was done.
    const std::string& Reason() const { return reason_; }

private:
    Outcome() = default;
    explicit Outcome(std::string reason) : done_(false), reason_(std::move(reason)) {}

    bool done_ = true;
    std::string reason_;
};

}  // namespace velda
