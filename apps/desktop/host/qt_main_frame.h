#pragma once

#include <functional>
#include <set>

#include "desktop/host/widget_window.h"
#include "velda_base/host/main_frame.h"

namespace zt {

/// The main window as the module sees it.
class QtMainFrame final : public WidgetWindow<velda::I_MainFrameBase> {
public:
    using Handler = std::function<void(std::uint16_t id)>;
    /// Commands, sent or posted, come to the handler.
    QtMainFrame(QWidget& window, Handler handler) : WidgetWindow(&window), handler_(std::move(handler)) {}

    void SendCommand(const velda::CommandMessage& command) override { handler_(command.id); }
    bool IsToolButtonChecked(std::uint16_t id) const override { return checked_.contains(id); }
    void CheckToolButton(std::uint16_t id, bool checked) override {
        if (checked) {
            checked_.insert(id);
        } else {
            checked_.erase(id);
        }
    }

protected:
    void OnCommand(const velda::CommandMessage& command) override { handler_(command.id); }

private:
    Handler handler_;
    std::set<std::uint16_t> checked_;
};

}  // namespace zt
