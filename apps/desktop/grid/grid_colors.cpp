#include "desktop/grid/grid_colors.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "velda_util/grid/tb_grid.h"

namespace zt {
namespace {

/// The contrast that small letters need.
constexpr double kContrast = 4.5;

QColor Mixed(const QColor& a, const QColor& b, double share) {
    const auto mix = [share](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * share)); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

/// How bright each of the 256 steps of a colour is.
std::array<double, 256> LinearSteps() {
    std::array<double, 256> steps{};
    for (std::size_t at = 0; at < steps.size(); ++at) {
        const double c = static_cast<double>(at) / 255.0;
        steps[at] = c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    }
    return steps;
}

double Luminance(const QColor& color) {
    static const std::array<double, 256> linear = LinearSteps();
    const auto of = [](int step) { return linear[static_cast<std::size_t>(step)]; };
    return 0.2126 * of(color.red()) + 0.7152 * of(color.green()) + 0.0722 * of(color.blue());
}

/// White letters are read better than black ones there.
bool IsDark(const QColor& color) { return Luminance(color) < 0.18; }

double Contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace

QColor GridColors::OfStyle(std::uint32_t color) {
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF), static_cast<int>(color >> 16 & 0xFF)};
}

QColor GridColors::InteriorOf(std::uint32_t color) const {
    constexpr double kTint = 0.3;
    constexpr double kShare = 0.25;
    const QColor given = OfStyle(color);
    return dark && Luminance(given) > kTint ? Mixed(base, given, kShare) : given;
}

QColor GridColors::TextOn(const QColor& background) { return IsDark(background) ? Qt::white : Qt::black; }

QColor GridColors::Readable(const QColor& text, const QColor& background) {
    const QColor end = TextOn(background);
    QColor color = text;
    for (int tenth = 1; tenth <= 10 && Contrast(color, background) < kContrast; ++tenth) {
        color = Mixed(text, end, tenth / 10.0);
    }
    return color;
}

GridColors GridColors::Of(const QPalette& palette) {
    const velda::STBColorSet& light = velda::CTBGrid::m_Color;
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    GridColors colors;
    colors.dark = IsDark(palette.color(QPalette::Base));
    colors.base = colors.dark ? palette.color(QPalette::Base) : OfStyle(light.background);
    colors.text = colors.dark ? palette.color(QPalette::Text) : OfStyle(light.text);
    const auto tint = [&](const QColor& color, double share) { return Mixed(colors.base, color, share); };
    colors.header = colors.dark ? tint(colors.text, 0.10) : OfStyle(light.header);
    colors.readOnly = colors.dark ? tint(colors.text, 0.05) : OfStyle(light.readOnly);
    colors.rowInEdit = colors.dark ? tint(QColor(255, 210, 60), 0.16) : OfStyle(light.rowInEdit);
    colors.line = tint(colors.text, 0.16);
    colors.headerLine = Mixed(colors.header, colors.text, 0.22);
    colors.headerText = Readable(palette.color(QPalette::WindowText), colors.header);
    colors.headerSelected = Mixed(colors.header, highlight, 0.35);
    colors.disabled = Mixed(colors.readOnly, colors.text, 0.04);
    colors.disabledText = Readable(Mixed(colors.base, colors.text, 0.55), colors.disabled);
    colors.selection = highlight;
    colors.selection.setAlphaF(colors.dark ? 0.35F : 0.18F);
    colors.current = colors.dark ? Mixed(highlight, Qt::white, 0.30) : highlight;
    colors.finding = QColor(220, 38, 38);
    return colors;
}

}  // namespace zt
