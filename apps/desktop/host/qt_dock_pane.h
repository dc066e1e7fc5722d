#pragma once

#include <QDockWidget>
#include <QMainWindow>
#include <functional>

#include "desktop/host/widget_window.h"
#include "velda_base/host/dock_view_base.h"

namespace zt {

/// The window of a docking pane: a dock widget of the main window, told of its sizes. Its place is kept for the user
/// under the name of the pane.
class QtDockPane final : public WidgetWindow<velda::IDockPane> {
public:
    /// The pane outlives its window.
    QtDockPane(QMainWindow& window, velda::CDockViewBase& pane, const QString& name, const QString& title);
    ~QtDockPane() override;

    QDockWidget& Dock() { return *dock_; }
    bool IsDocked() const override { return IsOpen() && !dock_->isFloating(); }
    bool IsVisible() const override { return IsOpen() && !dock_->isHidden(); }
    void Show(bool visible) override;
    void StoreState() override;
    void SetTitle(const QString& title) { dock_->setWindowTitle(title); }

    /// Whether the user may close the pane now; he may when nothing is set.
    std::function<bool()> mayClose;

private:
    QString Setting() const;

    velda::CDockViewBase& pane_;
    QPointer<QDockWidget> dock_;
};

}  // namespace zt
