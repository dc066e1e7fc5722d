#pragma once

#include <vector>

#include "velda_base/host/headless_window.h"
#include "zt_tb/model/tb_node_elem_sel_edit.h"

namespace zt {

/// The edit control of a script, in a window that keeps what it is told.
class ScriptControl {
public:
    /// A control without a parent stands in the window all the same, but knows nobody to tell.
    ScriptControl(std::uint16_t id, bool hasParent) : edit_(hasParent ? &window_ : nullptr, id) {}

    /// Presses a key while the control has the focus. What the window was told before is forgotten.
    void PressKey(velda::KeyChord chord) {
        window_.commands.clear();
        window_.SendKey(edit_, {velda::KeyMessage::Kind::Down, chord});
    }
    /// The commands that came with the last key.
    const std::vector<velda::CommandMessage>& Commands() const { return window_.commands; }

private:
    class Window final : public velda::HeadlessWindow {
    public:
        using HeadlessWindow::HeadlessWindow;
        std::vector<velda::CommandMessage> commands;

    protected:
        void OnCommand(const velda::CommandMessage& command) override { commands.push_back(command); }
    };

    velda::HeadlessQueue queue_;
    Window window_{queue_};
    CTBNodeElemSelEdit edit_;
};

}  // namespace zt
