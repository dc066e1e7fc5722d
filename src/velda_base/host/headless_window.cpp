#include "velda_base/host/headless_window.h"

namespace velda {

void HeadlessWindow::PostCommand(const CommandMessage& command) {
    queue_.Post(*this, [this, command] { OnCommand(command); });
}

void HeadlessWindow::SendKey(Control& focus, const KeyMessage& message) {
    queue_.Run([&] {
        if (!focus.PreTranslateMessage(message)) OnKey(message);
    });
}

}  // namespace velda
