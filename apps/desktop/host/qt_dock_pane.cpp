#include "desktop/host/qt_dock_pane.h"

#include <QCloseEvent>
#include <QResizeEvent>
#include <QSettings>

namespace zt {
namespace {

/// What fills a pane; it tells the pane of its sizes.
class PaneContent final : public QWidget {
public:
    explicit PaneContent(velda::CDockViewBase& pane) : pane_(pane) {}
    QSize sizeHint() const override { return {420, 300}; }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        pane_.OnSize();
    }

private:
    velda::CDockViewBase& pane_;
};

/// The dock widget of a pane. The pane ends when the user closes it.
class PaneDock final : public QDockWidget {
public:
    PaneDock(const QString& title, QWidget* parent, velda::CDockViewBase& pane, const std::function<bool()>& mayClose)
        : QDockWidget(title, parent), pane_(pane), mayClose_(mayClose) {}

protected:
    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        if (mayClose_ && !mayClose_()) return;
        QDockWidget::closeEvent(event);
        pane_.CloseDockViewImpl();
    }

private:
    velda::CDockViewBase& pane_;
    const std::function<bool()>& mayClose_;
};

}  // namespace

QtDockPane::QtDockPane(QMainWindow& window, velda::CDockViewBase& pane, const QString& name, const QString& title)
    : WidgetWindow(new PaneContent(pane)), pane_(pane), dock_(new PaneDock(title, &window, pane, mayClose)) {
    dock_->setObjectName(name);
    dock_->setWidget(Widget());
    const auto area = QSettings().value(Setting(), Qt::RightDockWidgetArea).toInt();
    window.addDockWidget(static_cast<Qt::DockWidgetArea>(area), dock_);
    pane_.AttachWindow(this);
}

QtDockPane::~QtDockPane() {
    pane_.AttachWindow(nullptr);
    delete dock_;
}

QString QtDockPane::Setting() const { return QStringLiteral("panes/") + dock_->objectName(); }

void QtDockPane::Show(bool visible) {
    if (IsOpen()) dock_->setVisible(visible);
}

void QtDockPane::StoreState() {
    auto* window = IsOpen() ? qobject_cast<QMainWindow*>(dock_->parentWidget()) : nullptr;
    if (window && IsDocked()) QSettings().setValue(Setting(), static_cast<int>(window->dockWidgetArea(dock_)));
}

}  // namespace zt
