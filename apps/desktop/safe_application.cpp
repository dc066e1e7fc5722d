#include "desktop/safe_application.h"

#include <exception>

#include "desktop/grid/qt_text.h"
#include "velda_base/host/message_box.h"

namespace zt {

bool SafeApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& failure) {
        Report(failure.what());
    } catch (...) {
        Report(FromQt(Word("IDS_DESKTOP_UNKNOWN_FAILURE")));
    }
    return false;
}

void SafeApplication::Report(const std::string& reason) {
    const QString text = ToQt(velda::FormatText("IDS_DESKTOP_HANDLER_FAILED", {reason}));
    emit HandlerFailed(text);
    // A window that fails as it is drawn would fail again behind its own message.
    if (shown_.contains(text)) return;
    shown_.insert(text);
    QMetaObject::invokeMethod(
        this, [text] { velda::AfxMessageBox(FromQt(text)); }, Qt::QueuedConnection);
}

}  // namespace zt
