#pragma once

#include <optional>
#include <string>

#include "velda_base/host/cmd_dialog.h"
#include "velda_util/grid/grid_host.h"

namespace zt {

/// The surroundings of the tables of a script: keeps what they tell, their clipboard, and the dialogs that they open,
/// which are cancelled at once.
class ScriptHost final : public velda::GridHost, public velda::ICmdDialog {
public:
    struct OpenedDialog {
        std::string name;
        std::uint32_t key = 0;
    };

    ScriptHost() : before_(Instance()) { SetInstance(this); }
    ~ScriptHost() override { SetInstance(before_); }
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;

    void OnWarning(const std::string& text) override { warning_ = text; }
    void OnMessage(const std::string& text) override { message_ = text; }
    int DoModal(std::string_view name) override { return DoModal3(name, 0, nullptr, nullptr); }
    int DoModal3(std::string_view name, std::uint32_t key, void* /*first*/, void* /*second*/) override {
        dialog_ = OpenedDialog{std::string(name), key};
        return 0;
    }

    /// The last warning, message and dialog since ForgetTold; none when there was none.
    const std::optional<std::string>& Warning() const { return warning_; }
    const std::optional<std::string>& Message() const { return message_; }
    const std::optional<OpenedDialog>& Dialog() const { return dialog_; }
    void ForgetTold() {
        warning_.reset();
        message_.reset();
        dialog_.reset();
    }

private:
    velda::ICmdDialog* before_;
    std::optional<std::string> warning_;
    std::optional<std::string> message_;
    std::optional<OpenedDialog> dialog_;
};

}  // namespace zt
