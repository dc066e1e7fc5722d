#pragma once

#include <QWidget>

#include "zt_tb/post/story/story_profile.h"

namespace zt {

/// Draws values over the stories of a building, a curve for each load case.
class StoryPlot : public QWidget {
    Q_OBJECT

public:
    explicit StoryPlot(QWidget* parent = nullptr);

    /// Shows a profile from now on; the window hides with an empty one.
    void Show(StoryProfile profile);
    const StoryProfile& Profile() const { return profile_; }
    QSize sizeHint() const override { return {230, 400}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The values at both ends of the axis.
    struct Extent {
        double least = 0.0;
        double greatest = 0.0;
    };
    Extent ExtentOfValues() const;
    void PaintAxes(QPainter& painter, const QRectF& area, const Extent& extent) const;
    void PaintCurves(QPainter& painter, const QRectF& area, const Extent& extent) const;
    void PaintLegend(QPainter& painter, const QRectF& area) const;
    /// Where a value of a story stands.
    QPointF PlaceOf(const QRectF& area, const Extent& extent, std::size_t story, double value) const;
    QColor ColourOf(std::size_t curve) const;

    StoryProfile profile_;
};

}  // namespace zt
