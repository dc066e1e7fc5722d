#include "desktop/grid/cell_picture.h"

#include <QSvgRenderer>
#include <map>
#include <memory>

namespace zt {
namespace {

/// Pictures as they were read, by where their file stands in memory and by ink.
using Renderers = std::map<std::pair<const char*, QRgb>, std::unique_ptr<QSvgRenderer>>;

QSvgRenderer& RendererOf(std::string_view svg, const QColor& ink) {
    static Renderers renderers;
    std::unique_ptr<QSvgRenderer>& renderer = renderers[{svg.data(), ink.rgb()}];
    if (!renderer) {
        QByteArray file(svg.data(), static_cast<qsizetype>(svg.size()));
        file.replace("currentColor", ink.name().toLatin1());
        renderer = std::make_unique<QSvgRenderer>(file);
    }
    return *renderer;
}

}  // namespace

void DrawCellPicture(QPainter& painter, const QRectF& square, std::string_view svg, const QColor& ink) {
    QSvgRenderer& renderer = RendererOf(svg, ink);
    if (!renderer.isValid()) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, square);
    painter.restore();
}

}  // namespace zt
