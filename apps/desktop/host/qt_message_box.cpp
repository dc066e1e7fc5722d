#include "desktop/host/qt_message_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

using velda::MessageAnswer;

struct Button {
    MessageAnswer answer;
    std::string_view textKey;
    QMessageBox::ButtonRole role;
};

constexpr Button kButtons[] = {
    {MessageAnswer::Ok, "IDS_DESKTOP_OK", QMessageBox::AcceptRole},
    {MessageAnswer::Yes, "IDS_DESKTOP_YES", QMessageBox::YesRole},
    {MessageAnswer::No, "IDS_DESKTOP_NO", QMessageBox::NoRole},
    {MessageAnswer::Cancel, "IDS_DESKTOP_CANCEL", QMessageBox::RejectRole},
};

}  // namespace

MessageAnswer QtMessageBox::Show(const std::string& text, velda::MessageButtons buttons) {
    const bool asks = buttons != velda::MessageButtons::Ok;
    QMessageBox box(asks ? QMessageBox::Question : QMessageBox::Information, Word("IDS_DESKTOP_PROGRAM"), ToQt(text),
                    QMessageBox::NoButton, QApplication::activeWindow());
    // Closing the box gives the most careful answer: the last button that it has.
    MessageAnswer answer = MessageAnswer::Ok;
    for (const Button& button : kButtons) {
        if (!velda::CanAnswer(buttons, button.answer)) continue;
        QPushButton* push = box.addButton(Word(button.textKey), button.role);
        QObject::connect(push, &QPushButton::clicked, &box, [&answer, &button] { answer = button.answer; });
        answer = button.answer;
        box.setEscapeButton(push);
    }
    // A wait cursor of the work that asks would stay over the box.
    const bool covered = QGuiApplication::overrideCursor() != nullptr;
    if (covered) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    box.exec();
    if (covered) QGuiApplication::restoreOverrideCursor();
    return answer;
}

}  // namespace zt
