#pragma once

#include <cstdint>
#include <string>

namespace velda {

/// Buttons of a message box.
enum class MessageButtons : std::uint8_t { Ok, OkCancel, YesNo, YesNoCancel };
enum class MessageAnswer : std::uint8_t { Ok, Cancel, Yes, No };

/// Whether a box with these buttons can be answered so.
constexpr bool CanAnswer(MessageButtons buttons, MessageAnswer answer) {
    switch (answer) {
        case MessageAnswer::Ok: return buttons == MessageButtons::Ok || buttons == MessageButtons::OkCancel;
        case MessageAnswer::Cancel:
            return buttons == MessageButtons::OkCancel || buttons == MessageButtons::YesNoCancel;
        default: return buttons == MessageButtons::YesNo || buttons == MessageButtons::YesNoCancel;
    }
}

/// Messages and questions that stop the user until they are answered.
class IMessageBox {
public:
    virtual ~IMessageBox() = default;
    virtual MessageAnswer Show(const std::string& text, MessageButtons buttons) = 0;
};

/// Shows a text in the message box of the current host.
MessageAnswer AfxMessageBox(const std::string& text, MessageButtons buttons = MessageButtons::Ok);

}  // namespace velda
