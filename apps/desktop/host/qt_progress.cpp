#include "desktop/host/qt_progress.h"

#include <QApplication>

#include "desktop/grid/qt_text.h"

namespace zt {

void QtProgress::Begin(const std::string& title, int steps) {
    dialog_ = std::make_unique<QProgressDialog>(ToQt(title), Word("IDS_DESKTOP_CANCEL"), 0, steps,
                                                QApplication::activeWindow());
    dialog_->setWindowTitle(Word("IDS_DESKTOP_PROGRAM"));
    // The windows behind it take no input, so that nothing changes under the work.
    dialog_->setWindowModality(Qt::ApplicationModal);
    dialog_->setAutoReset(false);
    dialog_->setAutoClose(false);
}

bool QtProgress::Step(int done) {
    if (!dialog_) return true;
    dialog_->setValue(done);
    return !dialog_->wasCanceled();
}

}  // namespace zt
