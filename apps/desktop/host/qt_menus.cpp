#include "desktop/host/qt_menus.h"

#include <QCursor>

#include "desktop/grid/qt_text.h"
#include "desktop/host/widget_window.h"

namespace zt {

void FillMenu(QMenu& menu, const velda::CMenu& items) {
    for (const velda::MenuItem& item : items.Items()) {
        if (item.IsSeparator()) {
            menu.addSeparator();
            continue;
        }
        QAction* action = menu.addAction(ToQt(item.text));
        action->setEnabled(item.enabled);
        action->setData(item.id);
    }
}

int QtMenus::Track(const velda::CMenu& menu, velda::CWnd* window, velda::WindowPoint place) {
    auto* holder = dynamic_cast<WidgetHolder*>(window);
    QWidget* widget = holder ? holder->Widget() : nullptr;
    QMenu shown;
    FillMenu(shown, menu);
    const QAction* chosen = shown.exec(widget ? widget->mapToGlobal(QPoint(place.x, place.y)) : QCursor::pos());
    return chosen ? chosen->data().toInt() : 0;
}

}  // namespace zt
