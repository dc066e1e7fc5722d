#pragma once

#include <QImage>
#include <QWidget>

#include "zt_tb/modelview/model_mouse.h"

namespace zt {

/// The window of the model view: draws it, and hands the mouse and keys to it.
class ModelWidget : public QWidget {
    Q_OBJECT

public:
    /// The view outlives its window.
    explicit ModelWidget(ModelView& view, QWidget* parent = nullptr);
    ~ModelWidget() override;

    ModelMouse& Mouse() { return mouse_; }
    QSize sizeHint() const override { return {420, 420}; }
    QSize minimumSizeHint() const override { return {80, 80}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Has the picture drawn anew; that of the building only when that is another one.
    void Drop();
    /// Draws the picture of the model anew, with so many pixels of the screen in one of the window's.
    void PaintModel(double scale);

    ModelView& view_;
    ModelMouse mouse_;
    /// What the picture of the building was made of.
    struct Subject {
        Camera camera;
        std::uint64_t sceneRevision = 0;
        bool isMoving = false;
        bool operator==(const Subject&) const = default;
    };

    Subject subject_;
    QImage building_;  ///< without marks; null when it must be drawn anew
    QImage picture_;   ///< with marks; null when it must be drawn anew
};

}  // namespace zt
