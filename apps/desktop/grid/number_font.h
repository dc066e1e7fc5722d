#pragma once

#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>
#include <array>

namespace zt {

/// Draws numbers letter by letter. Digits and their signs join with nothing, so that the costly part of drawing texts,
/// finding how letters join, can be left out.
class NumberFont {
public:
    NumberFont() = default;
    explicit NumberFont(const QFont& font);

    /// Whether a text has digits, signs and points only, so that it can be drawn here.
    bool CanDraw(const QString& text) const;
    double Width(const QString& text) const;
    /// Draws a text from a place on the base line.
    void Draw(QPainter& painter, QPointF place, const QString& text) const;

private:
    struct Letter {
        quint32 glyph = 0;  ///< 0 for a letter that is not drawn here
        double width = 0.0;
    };
    const Letter& Of(QChar letter) const { return letters_[letter.unicode() & 0x7F]; }

    QRawFont font_;
    std::array<Letter, 128> letters_{};
};

}  // namespace zt
