#include "desktop/modelview/model_colors.h"

#include "desktop/grid/grid_colors.h"

namespace zt {
namespace {

/// The share of the background in the colour of what lies farthest away.
constexpr float kMostHaze = 0.55F;

QColor Mixed(const QColor& a, const QColor& b, float share) {
    const auto mix = [share](float x, float y) { return x + (y - x) * share; };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()), mix(a.blueF(), b.blueF()));
}

}  // namespace

ModelColors ModelColors::Of(const QPalette& palette) {
    const GridColors grid = GridColors::Of(palette);
    ModelColors colors;
    colors.background = palette.color(QPalette::Base);
    colors.text = palette.color(QPalette::Text);
    colors.faint = Mixed(colors.background, colors.text, 0.55F);
    colors.selected = grid.current;
    if (grid.dark) {
        colors.node = "#aab1bb";
        colors.support = "#8fbf9f";
        colors.force = "#ff8f86";
        colors.moment = "#d59bf0";
        colors.highlighted = "#ff9f43";
        colors.axes = {"#e06c6c", "#6fbf73", "#6ea8e8"};
        colors.kinds = {"#8fa8c8", "#6fb7a8", "#c79bd1", "#b0957a", "#8c98a8", "#8c98a8", "#9a9a9a"};
        colors.steps = {"#840aa4", "#a41f98", "#bf3984", "#d5546e", "#e76f5a",
                        "#f58d46", "#fcae33", "#fbd225", "#f0f921"};
        colors.noValue = "#767c84";
    } else {
        colors.node = "#5a6470";
        colors.support = "#3f7d55";
        colors.force = "#c62828";
        colors.moment = "#8e24aa";
        colors.highlighted = "#e8710a";
        colors.axes = {"#c93c3c", "#3a8f40", "#2f6fc0"};
        colors.kinds = {"#3d5a80", "#2a8276", "#8e5a9e", "#a07a52", "#7d8a9c", "#7d8a9c", "#767676"};
        colors.steps = {"#0d0887", "#3f049c", "#6701a6", "#8d0fa2", "#ad2792",
                        "#c7437c", "#de6065", "#ef7e4f", "#fba03a"};
        colors.noValue = "#a9aeb5";
    }
    return colors;
}

QColor ModelColors::AtDepth(const QColor& color, double nearness) const {
    return Mixed(color, background, kMostHaze * (1.0F - static_cast<float>(nearness)));
}

}  // namespace zt
