#include "desktop/graph/qt_graph_view.h"

#include "desktop/grid/qt_text.h"

namespace zt {

QtGraphView::~QtGraphView() {
    for (auto& [title, window] : windows_) delete window.data();
}

velda::CGraphFuncView* QtGraphView::GetView(const std::string& title) {
    QPointer<GraphWindow>& window = windows_[title];
    if (!window) {
        window = new GraphWindow(ToQt(title), parent_);
        window->setWindowFlag(Qt::Window);
        window->resize(820, 520);
    }
    window->show();
    window->raise();
    return window.data();
}

}  // namespace zt
