#pragma once

#include <string>

namespace velda {

/// What a grid tells its surroundings and asks of them. The window that shows a grid implements it; a grid without one
/// uses the operations here.
class GridHost {
public:
    virtual ~GridHost() = default;

    /// What the grid shows has changed.
    virtual void OnRedraw() {}
    /// Something that the user entered was refused; the text says why.
    virtual void OnWarning(const std::string& /*text*/) {}
    /// Something that the user should know: the end of a search, the report of a paste, an edit that was lost.
    virtual void OnMessage(const std::string& /*text*/) {}

    virtual void SetClipboardText(std::string text) { clipboard_ = std::move(text); }
    virtual std::string GetClipboardText() { return clipboard_; }

private:
    std::string clipboard_;
};

}  // namespace velda
