#include "desktop/modelview/model_widget.h"

#include <QMouseEvent>
#include <QWheelEvent>
#include <optional>

#include "desktop/grid/qt_text.h"
#include "desktop/modelview/model_painter.h"

namespace zt {
namespace {

constexpr double kNotch = 120.0;  ///< the toolkit's measure of a notch of the wheel

std::optional<MouseButton> ButtonOf(const QMouseEvent& event) {
    switch (event.button()) {
        case Qt::LeftButton: return MouseButton::Left;
        case Qt::MiddleButton: return MouseButton::Middle;
        case Qt::RightButton: return MouseButton::Right;
        default: return std::nullopt;
    }
}

Point2 PlaceOf(const QPointF& position) { return {position.x(), position.y()}; }

}  // namespace

ModelWidget::ModelWidget(ModelView& view, QWidget* parent) : QWidget(parent), view_(view), mouse_(view) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    view_.onChanged = [this] { Drop(); };
}

ModelWidget::~ModelWidget() { view_.onChanged = nullptr; }

void ModelWidget::Drop() {
    picture_ = {};
    update();
}

void ModelWidget::PaintModel(double scale) {
    const ModelColors colors = ModelColors::Of(palette());
    const Subject subject{view_.View(), view_.SceneRevision(), mouse_.IsMovingModel()};
    if (building_.isNull() || building_.devicePixelRatio() != scale || subject != subject_) {
        subject_ = subject;
        building_ = QImage(size() * scale, QImage::Format_ARGB32_Premultiplied);
        building_.setDevicePixelRatio(scale);
        building_.fill(colors.background);
        ModelPainter(building_, font(), colors).PaintBuilding(view_, subject.isMoving);
    }
    picture_ = building_;
    ModelPainter(picture_, font(), colors).PaintMarks(view_);
}

void ModelWidget::paintEvent(QPaintEvent* /*event*/) {
    // What is drawn over the model, such as a band, does not have it drawn anew.
    QPainter painter(this);
    const double scale = painter.deviceTransform().m11();
    if (picture_.isNull() || picture_.devicePixelRatio() != scale) PaintModel(scale);
    painter.drawImage(0, 0, picture_);
    if (const auto band = mouse_.Band()) ModelPainter::PaintBand(painter, *band, ModelColors::Of(palette()));
}

void ModelWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    view_.SetSize(width(), height());
}

void ModelWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
    building_ = {};
    Drop();
}

void ModelWidget::mousePressEvent(QMouseEvent* event) {
    const Qt::KeyboardModifiers keys = event->modifiers();
    if (const auto button = ButtonOf(*event)) {
        mouse_.Press(*button, {keys.testFlag(Qt::ShiftModifier), keys.testFlag(Qt::ControlModifier)},
                     PlaceOf(event->position()));
    }
}

void ModelWidget::mouseMoveEvent(QMouseEvent* event) {
    mouse_.Move(PlaceOf(event->position()));
    if (mouse_.Band()) update();
}

void ModelWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (const auto button = ButtonOf(*event)) mouse_.Release(*button, PlaceOf(event->position()));
    update();
}

void ModelWidget::wheelEvent(QWheelEvent* event) {
    mouse_.Wheel(PlaceOf(event->position()), event->angleDelta().y() / kNotch);
    event->accept();
}

void ModelWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F && event->modifiers() == Qt::NoModifier) {
        view_.Fit();
    } else if (event->key() == Qt::Key_Escape) {
        if (!mouse_.Cancel()) view_.ClearSelection();
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace zt
