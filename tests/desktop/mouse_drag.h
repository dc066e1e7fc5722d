#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace zt {

/// Sends one event of the left button to a window.
inline void SendMouse(QWidget& window, QEvent::Type type, QPoint point) {
    const bool released = type == QEvent::MouseButtonRelease;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, QPointF(point), window.mapToGlobal(QPointF(point)), button,
                      released ? Qt::NoButton : Qt::LeftButton, {});
    QApplication::sendEvent(&window, &event);
}

/// Drags with the left button, over the point in the middle.
inline void DragMouse(QWidget& window, QPoint from, QPoint to) {
    SendMouse(window, QEvent::MouseButtonPress, from);
    SendMouse(window, QEvent::MouseMove, (from + to) / 2);
    SendMouse(window, QEvent::MouseMove, to);
    SendMouse(window, QEvent::MouseButtonRelease, to);
}

}  // namespace zt
