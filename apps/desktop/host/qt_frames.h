#pragma once

#include "desktop/host/widget_window.h"
#include "velda_base/host/frame.h"

namespace zt {

/// A frame that is a widget within another one, such as what a docking pane carries.
class QtChildFrame final : public WidgetWindow<velda::IFrame> {
public:
    explicit QtChildFrame(QWidget& parent);
    ~QtChildFrame() override { delete Widget(); }

    std::string GetTitle() const override;
    void SetTitle(const std::string& title) override;
    void Activate() override;
    void Close() override;
    IFrame* GetParentFrame() override { return this; }
};

class QtFrames final : public velda::IFrames {
public:
    std::unique_ptr<velda::IFrame> CreateChildFrame(velda::CWnd& parent) override;
};

}  // namespace zt
