#pragma once

#include <optional>
#include <string>

#include "velda_base/host/headless_host.h"
#include "velda_util/grid/grid_host.h"

namespace zt {

/// The surroundings of a script: keeps what tables and views tell and ask, and answers as the script said before. The
/// property dialogs of the application are cancelled at once.
class ScriptHost final : public velda::GridHost, public velda::ICmdDialog, public velda::HeadlessHost {
public:
    struct OpenedDialog {
        std::string name;
        std::uint32_t key = 0;
    };

    ScriptHost() { cmdDialog = this; }

    void OnWarning(const std::string& text) override { warning_ = text; }
    void OnMessage(const std::string& text) override { message_ = text; }
    int DoModal(std::string_view name) override { return DoModal3(name, 0, nullptr, nullptr); }
    int DoModal3(std::string_view name, std::uint32_t key, void* /*first*/, void* /*second*/) override {
        dialog_ = OpenedDialog{std::string(name), key};
        return 0;
    }

    /// The last warning, message or message box, and dialog since ForgetTold; none when there was none.
    const std::optional<std::string>& Warning() const { return warning_; }
    std::optional<std::string> Message() const {
        return messages.shown.empty() ? message_ : std::optional(messages.shown.back());
    }
    std::optional<OpenedDialog> Dialog() const {
        return dialogs.shown.empty() ? dialog_ : OpenedDialog{dialogs.shown.back()};
    }
    void ForgetTold() {
        warning_.reset();
        message_.reset();
        dialog_.reset();
        messages.shown.clear();
        dialogs.shown.clear();
        mainFrame.sent.clear();
        mainFrame.posted.clear();
    }

private:
    velda::UseHost use_{*this};
    std::optional<std::string> warning_;
    std::optional<std::string> message_;
    std::optional<OpenedDialog> dialog_;
};

}  // namespace zt
