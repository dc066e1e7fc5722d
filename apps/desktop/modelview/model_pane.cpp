#include "desktop/modelview/model_pane.h"

#include <QSettings>
#include <QVBoxLayout>

#include "desktop/grid/qt_text.h"
#include "desktop/window/icons.h"

namespace zt {
namespace {

const QString kShown = QStringLiteral("window/model");

}  // namespace

ModelPane::ModelPane(QMainWindow& window) : QDockWidget(&window), widget_(new ModelWidget(view_)) {
    setObjectName(QStringLiteral("model"));
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    tools_ = new QToolBar;
    tools_->setIconSize({18, 18});
    bands_ = tools_->addAction(QString());
    bands_->setCheckable(true);
    connect(bands_, &QAction::toggled, this, [this](bool on) {
        widget_->Mouse().UseBands(on);
        widget_->setCursor(on ? Qt::CrossCursor : Qt::ArrowCursor);
    });
    tools_->addSeparator();
    connect(toggleViewAction(), &QAction::triggered, this, [this](bool shown) {
        if (shown) Open();
    });
    layout->addWidget(tools_);
    layout->addWidget(widget_, 1);
    setWidget(content);
    window.addDockWidget(Qt::RightDockWidgetArea, this);
    window.resizeDocks({this}, {widget_->sizeHint().width()}, Qt::Horizontal);
    hide();
}

// The window of the view goes before the view.
ModelPane::~ModelPane() { delete widget_; }

void ModelPane::ShowDocument(CDBDoc* doc) {
    view_.SetDocument(doc);
    if (!view_.Scene().IsEmpty() && QSettings().value(kShown, true).toBool()) show();
}

void ModelPane::Open() {
    show();
    raise();
    QSettings().setValue(kShown, true);
}

void ModelPane::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    QSettings().setValue(kShown, false);
}

void ModelPane::ShowTexts() {
    setWindowTitle(Word("IDS_DESKTOP_MODEL"));
    bands_->setText(Word("IDS_DESKTOP_MODEL_BANDS"));
    bands_->setToolTip(Word("IDS_DESKTOP_MODEL_BANDS"));
    view_.Refresh();
}

void ModelPane::ShowIcons(const QColor& enabled, const QColor& disabled) {
    bands_->setIcon(IconOf("model-bands", enabled, disabled));
}

}  // namespace zt
