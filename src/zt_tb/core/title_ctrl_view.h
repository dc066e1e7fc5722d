#pragma once

#include <string>
#include <utility>

#include "velda_base/host/frame.h"
#include "zt_db/doc/doc.h"

namespace zt {

/// A view with a window title of its own.
class CTitleCtrlView {
public:
    CTitleCtrlView() = default;
    CTitleCtrlView(const CTitleCtrlView&) = delete;
    CTitleCtrlView& operator=(const CTitleCtrlView&) = delete;
    virtual ~CTitleCtrlView() = default;

    const std::string& GetTitle() const { return title_; }
    /// The window that shows the view, which outlives its use; null for none. Its frame gets the title.
    void SetWindow(velda::CWnd* window) {
        window_ = window;
        ShowTitle();
    }
    velda::CWnd* GetWindow() const { return window_; }
    /// The frame that carries the view; null for none.
    velda::IFrame* GetParentFrame() const { return window_ ? window_->GetParentFrame() : nullptr; }

protected:
    void SetTitle(std::string title) {
        title_ = std::move(title);
        ShowTitle();
    }

private:
    void ShowTitle() {
        if (velda::IFrame* frame = GetParentFrame()) frame->SetTitle(title_);
    }

    std::string title_;
    velda::CWnd* window_ = nullptr;
};

/// A view of a document, with a title.
class CTBViewBase : public CTitleCtrlView, public CDBUpdateConnector {};

}  // namespace zt
