#pragma once

#include <QImage>
#include <QPainter>

#include "desktop/modelview/model_colors.h"
#include "zt_tb/modelview/load_picture.h"
#include "zt_tb/modelview/model_mouse.h"
#include "zt_tb/modelview/scene_picture.h"

namespace zt {

/// Draws a picture of the model on an image of 32 bits a pixel.
class ModelPainter {
public:
    ModelPainter(QImage& image, const QFont& font, const ModelColors& colors);

    /// Draws the building with its levels, supports and loads.
    void PaintBuilding(const ModelView& view, bool isMoving);
    /// Draws over it what is highlighted and selected, axes and legends.
    void PaintMarks(const ModelView& view);
    /// Draws a band over the picture.
    static void PaintBand(QPainter& painter, const SelectionBand& band, const ModelColors& colors);

private:
    /// The model as it stands, faintly, behind a deformed one.
    void PaintUndeformed(const ModelView& view, PictureDetail detail);
    QColor ColorOf(std::size_t group, double nearness) const;
    void PaintSlice(const ScenePicture& picture, const PictureSlice& slice);
    void PaintFace(const ScenePicture& picture, const FaceShape& face, const QBrush& brush);
    void PaintLines(const std::vector<LineStroke>& lines, const QColor& color, double width,
                    Qt::PenStyle style = Qt::SolidLine);
    void PaintNodes(const std::vector<Point2>& nodes, const QColor& color, double size);
    void PaintSupports(const SupportSymbols& supports);
    void PaintLoads(const SceneProjection& projection, const ModelView& view);
    void PaintShapes(const LoadShapes& shapes, const QColor& color);
    void PaintLabels(const std::vector<LoadLabel>& labels);
    void PaintLoadLegend(const ModelView& view, double top);
    /// Tells of a deformed shape in the upper right corner; gives where more can stand.
    double PaintDeformationText(const ModelView& view);
    void PaintColorLegend(const SceneColors& values, const Camera& camera);
    void PaintSelfWeight(const Camera& camera, const Vec3& factors, const QPointF& place);
    void PaintLevels(const std::vector<LevelMark>& levels);
    void PaintMarked(ScenePicture& picture, const PickedKeys& keys, const QColor& color);
    void PaintAxes(const Camera& camera);
    void PaintLegend(const ModelScene& scene, const Camera& camera);
    double WidthOf(std::size_t group) const;

    QImage& image_;
    QPainter painter_;
    const ModelColors& colors_;
    bool isMoving_ = false;
    bool hasValues_ = false;  ///< groups are steps of colour
    bool isDense_ = false;    ///< so many lines that all are as thin as can be
};

}  // namespace zt
