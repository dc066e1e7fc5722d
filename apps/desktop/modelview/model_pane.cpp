#include "desktop/modelview/model_pane.h"

#include <QHBoxLayout>
#include <QSettings>
#include <QVBoxLayout>

#include "desktop/grid/qt_text.h"
#include "desktop/window/icons.h"

namespace zt {
namespace {

constexpr int kRowMargin = 4;
constexpr int kNameLength = 12;  ///< characters of a load case that are seen in any case
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
    layout->addWidget(MakeChoices());
    layout->addWidget(widget_, 1);
    setWidget(content);
    window.addDockWidget(Qt::RightDockWidgetArea, this);
    window.resizeDocks({this}, {widget_->sizeHint().width()}, Qt::Horizontal);
    hide();
}

// The window of the view goes before the view.
ModelPane::~ModelPane() {
    view_.onLoadCases = nullptr;
    delete widget_;
}

QWidget* ModelPane::MakeChoices() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(kRowMargin, 0, kRowMargin, kRowMargin);
    loads_ = new QComboBox;
    loads_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    loads_->setMinimumContentsLength(kNameLength);
    supports_ = new QCheckBox;
    supports_->setChecked(view_.ShowsSupports());
    layout->addWidget(loads_, 1);
    layout->addWidget(supports_);
    deformed_ = new QCheckBox;
    colours_ = new QCheckBox;
    for (QCheckBox* box : {deformed_, colours_}) {
        box->hide();
        layout->addWidget(box);
    }
    connect(deformed_, &QCheckBox::toggled, this, [this](bool on) {
        results_.ShowDeformed(on);
        results_.Follow(followed_);
    });
    connect(colours_, &QCheckBox::toggled, this, [this](bool on) {
        results_.ShowColours(on);
        results_.Follow(followed_);
    });
    connect(loads_, &QComboBox::activated, this, [this] { view_.ShowLoads(loads_->currentData().toUInt()); });
    connect(supports_, &QCheckBox::toggled, this, [this](bool on) { view_.ShowSupports(on); });
    view_.onLoadCases = [this] { ShowLoadCases(); };
    return row;
}

void ModelPane::ShowLoadCases() {
    loads_->clear();
    loads_->addItem(Word("IDS_DESKTOP_MODEL_NO_LOADS"), 0U);
    for (const LoadCaseName& loadCase : view_.LoadCases()) loads_->addItem(ToQt(loadCase.name), loadCase.key);
    loads_->setCurrentIndex(std::max(loads_->findData(view_.Loads().LoadCase()), 0));
}

void ModelPane::FollowResults(velda::CTBCore* grid) {
    followed_ = grid;
    deformed_->setVisible(grid != nullptr);
    colours_->setVisible(grid != nullptr);
    results_.Follow(grid);
}

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
    loads_->setToolTip(Word("IDS_DESKTOP_MODEL_LOADS"));
    loads_->setAccessibleName(loads_->toolTip());
    supports_->setText(Word("IDS_DESKTOP_MODEL_SUPPORTS"));
    deformed_->setText(Word("IDS_DESKTOP_MODEL_DEFORMED"));
    colours_->setText(Word("IDS_DESKTOP_MODEL_COLOURS"));
    colours_->setToolTip(Word("IDS_DESKTOP_MODEL_COLOURS_TIP"));
    ShowLoadCases();
    view_.Refresh();
}

void ModelPane::ShowIcons(const QColor& enabled, const QColor& disabled) {
    bands_->setIcon(IconOf("model-bands", enabled, disabled));
}

}  // namespace zt
