#pragma once

#include <string>

namespace velda {

/// The clipboard of the desktop, as far as it holds text.
class IClipboard {
public:
    virtual ~IClipboard() = default;
    virtual void SetText(std::string text) = 0;
    /// Empty when the clipboard holds no text.
    virtual std::string GetText() = 0;
};

}  // namespace velda
