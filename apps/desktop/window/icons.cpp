#include "desktop/window/icons.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace zt {
namespace {

constexpr int kSize = 20;

/// Strokes on a square of 20 by 20, as words: "M x y" goes to a place, "L x y" draws a line to it.
struct Picture {
    std::string_view name;
    const char* strokes;
};
constexpr Picture kPictures[] = {
    {"new", "M 5 2 L 12 2 L 16 6 L 16 18 L 5 18 L 5 2 M 12 2 L 12 6 L 16 6"},
    {"open", "M 2 16 L 2 4 L 7 4 L 9 6 L 16 6 L 16 9 M 2 16 L 5 9 L 19 9 L 16 16 L 2 16"},
    {"save", "M 3 3 L 14 3 L 17 6 L 17 17 L 3 17 L 3 3 M 6 3 L 6 8 L 13 8 L 13 3 M 6 17 L 6 12 L 14 12 L 14 17"},
    {"export", "M 11 3 L 3 3 L 3 17 L 17 17 L 17 11 M 9 11 L 17 3 M 12 3 L 17 3 L 17 8"},
    {"print",
     "M 5 8 L 5 2 L 15 2 L 15 8 M 5 14 L 2 14 L 2 8 L 18 8 L 18 14 L 15 14 M 5 12 L 15 12 L 15 18 L 5 18 L 5 12"},
    {"undo", "M 7 3 L 3 7 L 7 11 M 3 7 L 13 7 L 16 9 L 17 12 L 16 15 L 13 17 L 7 17"},
    {"redo", "M 13 3 L 17 7 L 13 11 M 17 7 L 7 7 L 4 9 L 3 12 L 4 15 L 7 17 L 13 17"},
    {"copy", "M 7 7 L 17 7 L 17 18 L 7 18 L 7 7 M 13 7 L 13 2 L 3 2 L 3 13 L 7 13"},
    {"paste", "M 7 4 L 4 4 L 4 18 L 16 18 L 16 4 L 13 4 M 7 2 L 13 2 L 13 6 L 7 6 L 7 2 M 7 10 L 13 10 M 7 14 L 13 14"},
    {"find",
     "M 8 3 L 11 4 L 13 6 L 14 8.5 L 13 11 L 11 13 L 8 14 L 5 13 L 3 11 L 2 8.5 L 3 6 L 5 4 L 8 3 M 12 12.5 L 18 18"},
    {"split", "M 2 3 L 18 3 L 18 17 L 2 17 L 2 3 M 10 3 L 10 17"},
    {"table", "M 2 3 L 18 3 L 18 17 L 2 17 L 2 3 M 2 8 L 18 8 M 2 12.5 L 18 12.5 M 8 3 L 8 17"},
    {"filter", "M 2 4 L 18 4 L 12 11 L 12 17 L 8 15 L 8 11 L 2 4"},
    {"sort", "M 6 3 L 6 17 M 3 14 L 6 17 L 9 14 M 14 17 L 14 3 M 11 6 L 14 3 L 17 6"},
    {"model-bands",
     "M 3 6 L 3 3 L 6 3 M 10 3 L 13 3 M 13 7 L 13 9 M 3 10 L 3 13 L 6 13 M 9 9 L 17 12 L 13 13 L 12 17 L 9 9"},
    {"model-fit",
     "M 3 7 L 3 3 L 7 3 M 13 3 L 17 3 L 17 7 M 17 13 L 17 17 L 13 17 M 7 17 L 3 17 L 3 13 M 7 7 L 13 7 L 13 13 L 7 13 "
     "L 7 7"},
    {"model-plan", "M 3 3 L 17 3 L 17 17 L 3 17 L 3 3 M 10 3 L 10 17 M 3 10 L 17 10"},
    {"model-front", "M 4 17 L 4 3 L 16 3 L 16 17 M 4 10 L 16 10 M 2 17 L 18 17"},
    {"model-side", "M 7 17 L 7 3 L 13 3 L 13 17 M 7 8 L 13 8 M 7 13 L 13 13 M 5 17 L 15 17"},
    {"model-isometric", "M 10 2 L 17 6 L 17 14 L 10 18 L 3 14 L 3 6 L 10 2 M 3 6 L 10 10 L 17 6 M 10 10 L 10 18"},
    {"run", "M 5 3 L 16 10 L 5 17 L 5 3"},
    {"graph", "M 3 2 L 3 17 L 18 17 M 5 13 L 9 8 L 12 11 L 17 4"},
};

QPainterPath PathOf(const char* strokes) {
    QPainterPath path;
    const QStringList words = QString::fromLatin1(strokes).split(QLatin1Char(' '));
    for (qsizetype at = 0; at + 2 < words.size(); at += 3) {
        const QPointF point(words[at + 1].toDouble(), words[at + 2].toDouble());
        if (words[at] == QLatin1String("M")) {
            path.moveTo(point);
        } else {
            path.lineTo(point);
        }
    }
    return path;
}

void AddPictures(QIcon& icon, const QPainterPath& path, QIcon::Mode mode, const QColor& color) {
    for (const int scale : {1, 2}) {
        QPixmap pixmap(kSize * scale, kSize * scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        painter.translate(0.5, 0.5);
        painter.setPen(QPen(color, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(path);
        painter.end();
        icon.addPixmap(pixmap, mode);
    }
}

}  // namespace

QIcon IconOf(std::string_view name, const QColor& enabled, const QColor& disabled) {
    const auto found = std::find_if(std::begin(kPictures), std::end(kPictures),
                                    [&](const Picture& picture) { return picture.name == name; });
    if (found == std::end(kPictures)) return {};
    const QPainterPath path = PathOf(found->strokes);
    QIcon icon;
    AddPictures(icon, path, QIcon::Normal, enabled);
    AddPictures(icon, path, QIcon::Disabled, disabled);
    return icon;
}

}  // namespace zt
