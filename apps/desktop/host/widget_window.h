#pragma once

#include <QPointer>
#include <QWidget>

#include "velda_base/host/window.h"

namespace zt {

/// What of a window belongs to the desktop.
class WidgetHolder {
public:
    virtual ~WidgetHolder() = default;
    /// Null when the widget is gone.
    virtual QWidget* Widget() const = 0;
};

/// A kind of window of the module that is a widget. The widget may go away before the window.
template <class Base>
class WidgetWindow : public Base, public WidgetHolder {
public:
    explicit WidgetWindow(QWidget* widget) : widget_(widget) {}

    QWidget* Widget() const override { return widget_; }
    void PostCommand(const velda::CommandMessage& command) override {
        // What waits goes with its context.
        QMetaObject::invokeMethod(
            &context_, [this, command] { OnCommand(command); }, Qt::QueuedConnection);
    }
    bool IsOpen() const override { return !widget_.isNull(); }
    velda::WindowRect GetClientRect() const override {
        return widget_ ? velda::WindowRect{0, 0, widget_->width(), widget_->height()} : velda::WindowRect{};
    }
    void MoveWindow(const velda::WindowRect& place) override {
        if (widget_) widget_->setGeometry(place.left, place.top, place.Width(), place.Height());
    }
    void RedrawNow() override {
        if (widget_) widget_->repaint();
    }
    void SetFocus() override {
        if (widget_) widget_->setFocus();
    }
    velda::IFrame* GetParentFrame() override { return nullptr; }

protected:
    /// A posted command has come.
    virtual void OnCommand(const velda::CommandMessage& /*command*/) {}
    QObject* Context() { return &context_; }

private:
    QPointer<QWidget> widget_;
    QObject context_;
};

}  // namespace zt
