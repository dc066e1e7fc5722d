#include "desktop/grid/number_font.h"

#include <algorithm>
#include <numeric>

namespace zt {

NumberFont::NumberFont(const QFont& font) : font_(QRawFont::fromFont(font)) {
    const QString letters = QStringLiteral("0123456789.-+");
    const QList<quint32> glyphs = font_.glyphIndexesForString(letters);
    const QList<QPointF> widths = font_.advancesForGlyphIndexes(glyphs);
    for (qsizetype at = 0; at < letters.size() && at < glyphs.size(); ++at) {
        letters_[letters[at].unicode()] = {glyphs[at], widths[at].x()};
    }
}

bool NumberFont::CanDraw(const QString& text) const {
    return std::all_of(text.begin(), text.end(),
                       [this](QChar letter) { return letter.unicode() < 0x80 && Of(letter).glyph != 0; });
}

double NumberFont::Width(const QString& text) const {
    return std::accumulate(text.begin(), text.end(), 0.0,
                           [this](double sum, QChar letter) { return sum + Of(letter).width; });
}

void NumberFont::Draw(QPainter& painter, QPointF place, const QString& text) const {
    QList<quint32> glyphs;
    QList<QPointF> places;
    glyphs.reserve(text.size());
    places.reserve(text.size());
    double x = 0.0;
    for (const QChar letter : text) {
        glyphs.append(Of(letter).glyph);
        places.append({x, 0.0});
        x += Of(letter).width;
    }
    QGlyphRun run;
    run.setRawFont(font_);
    run.setGlyphIndexes(glyphs);
    run.setPositions(places);
    painter.drawGlyphRun(place, run);
}

}  // namespace zt
