#include "desktop/host/qt_frames.h"

#include "desktop/grid/qt_text.h"

namespace zt {

QtChildFrame::QtChildFrame(QWidget& parent) : WidgetWindow(new QWidget(&parent)) {
    Widget()->setGeometry(parent.rect());
    Widget()->show();
}

std::string QtChildFrame::GetTitle() const { return Widget() ? FromQt(Widget()->windowTitle()) : std::string(); }

void QtChildFrame::SetTitle(const std::string& title) {
    if (Widget()) Widget()->setWindowTitle(ToQt(title));
}

void QtChildFrame::Activate() {
    if (!Widget()) return;
    Widget()->raise();
    Widget()->setFocus();
}

void QtChildFrame::Close() {
    if (Widget()) Widget()->deleteLater();
}

std::unique_ptr<velda::IFrame> QtFrames::CreateChildFrame(velda::CWnd& parent) {
    auto* holder = dynamic_cast<WidgetHolder*>(&parent);
    if (!holder || !holder->Widget()) return nullptr;
    return std::make_unique<QtChildFrame>(*holder->Widget());
}

}  // namespace zt
