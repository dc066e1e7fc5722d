#pragma once

#include <memory>
#include <string>

#include "velda_base/host/window.h"

namespace velda {

/// A window with a title that carries a view. It is its own parent frame.
class IFrame : public CWnd {
public:
    virtual std::string GetTitle() const = 0;
    virtual void SetTitle(const std::string& title) = 0;
    /// Brings the frame to the front.
    virtual void Activate() = 0;
    /// Closes the frame, and with it what it carries.
    virtual void Close() = 0;
};

/// Makes frames.
class IFrames {
public:
    virtual ~IFrames() = default;
    /// A visible frame as the child of a window, in its client rectangle. Null when it cannot be made.
    virtual std::unique_ptr<IFrame> CreateChildFrame(CWnd& parent) = 0;
};

}  // namespace velda
