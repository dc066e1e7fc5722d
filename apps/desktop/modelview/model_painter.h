#pragma once

#include <QPainter>

#include "desktop/modelview/model_colors.h"
#include "zt_tb/modelview/model_mouse.h"
#include "zt_tb/modelview/scene_picture.h"

namespace zt {

/// Draws pictures of the model.
class ModelPainter {
public:
    ModelPainter(QPainter& painter, const ModelColors& colors) : painter_(painter), colors_(colors) {}

    /// Draws what a view shows: the building, its levels, what is highlighted and selected, legend and axes.
    void Paint(const ModelView& view, bool isMoving);
    void PaintBand(const SelectionBand& band);

private:
    void PaintSlice(const ScenePicture& picture, const PictureSlice& slice);
    void PaintFace(const ScenePicture& picture, const FaceShape& face, const QBrush& brush);
    void PaintLines(const std::vector<LineStroke>& lines, const QColor& color, double width);
    void PaintNodes(const std::vector<Point2>& nodes, const QColor& color, double size);
    void PaintSupports(const std::vector<SupportMark>& supports);
    void PaintLevels(const std::vector<LevelMark>& levels);
    void PaintMarks(const ScenePicture& picture, const PictureMarks& marks, const QColor& color);
    void PaintAxes(const Camera& camera);
    void PaintLegend(const ModelScene& scene, const Camera& camera);
    double WidthOf(DrawnKind kind) const;

    QPainter& painter_;
    const ModelColors& colors_;
    bool isDense_ = false;  ///< so many lines that all are as thin as can be
};

}  // namespace zt
