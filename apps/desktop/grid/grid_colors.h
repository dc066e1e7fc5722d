#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>

namespace zt {

/// The colours of a table for a light or dark palette.
struct GridColors {
    QColor base;
    QColor text;
    QColor line;
    QColor header;
    QColor headerText;
    QColor headerSelected;
    QColor headerLine;
    QColor readOnly;
    QColor disabled;
    QColor disabledText;
    QColor rowInEdit;
    QColor selection;  ///< laid over the cells
    QColor current;    ///< frame of the current cell
    QColor finding;
    bool dark = false;

    static GridColors Of(const QPalette& palette);
    /// A colour of a style, whose numbers are blue-green-red.
    static QColor OfStyle(std::uint32_t color);
    /// The background that a style asks for; in a dark table light tints are as faint as they are in a light one.
    QColor InteriorOf(std::uint32_t color) const;
    /// Black or white, whichever can be read on a background.
    static QColor TextOn(const QColor& background);
    /// A colour of letters, made lighter or darker as far as it must be to be read on a background.
    static QColor Readable(const QColor& text, const QColor& background);
};

}  // namespace zt
