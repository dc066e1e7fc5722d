#include "zt_tb/modelview/support_symbols.h"

#include <cmath>

namespace zt {
namespace {

constexpr Vec3 kAxes[] = {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};
/// An axis whose unit looks shorter than this is looked along.
constexpr double kLookedAlong = 0.2;
/// Shares of the size of a symbol.
constexpr double kPlateHeight = 0.7;
constexpr double kBar = 0.35;
constexpr double kTurnStart = 1.3;
constexpr double kTurnGap = 0.3;
constexpr double kSpring = 1.4;
constexpr double kSquare = 0.2;

/// The marks of one way of a support, from its node away against the axis.
class WayMarks {
public:
    WayMarks(SupportSymbols& symbols, Point2 node, Point2 axis, double size)
        : symbols_(symbols), node_(node), way_{-axis.x * size, -axis.y * size} {
        const double length = std::hypot(way_.x, way_.y);
        across_ = {-way_.y * kBar * size / length, way_.x * kBar * size / length};
    }

    void AddHeld(bool isTurn) {
        const double end = isTurn ? kTurnStart + kTurnGap : 1.0;
        symbols_.lines.push_back({node_, At(end)});
        AddBars(end, isTurn);
    }
    void AddSpring(bool isTurn) {
        constexpr int kTeeth = 6;
        Point2 last = At(0.2);
        symbols_.lines.push_back({node_, last});
        for (int tooth = 1; tooth <= kTeeth; ++tooth) {
            const double side = tooth == kTeeth ? 0.0 : tooth % 2 != 0 ? 0.7 : -0.7;
            const Point2 next = Aside(At(0.2 + (kSpring - 0.4) * tooth / kTeeth), side);
            symbols_.lines.push_back({last, next});
            last = next;
        }
        symbols_.lines.push_back({last, At(kSpring)});
        AddBars(kSpring, isTurn);
    }

private:
    Point2 At(double share) const { return {node_.x + way_.x * share, node_.y + way_.y * share}; }
    Point2 Aside(Point2 place, double side) const { return {place.x + across_.x * side, place.y + across_.y * side}; }
    void AddBars(double end, bool isTurn) {
        AddBar(end);
        if (isTurn) AddBar(end - kTurnGap);
    }
    void AddBar(double at) { symbols_.lines.push_back({Aside(At(at), 1.0), Aside(At(at), -1.0)}); }

    SupportSymbols& symbols_;
    Point2 node_;
    Point2 way_;
    Point2 across_;
};

bool AreAll(const SceneSupport& support, std::size_t first, std::size_t end, Hold hold) {
    return std::all_of(support.ways.begin() + static_cast<std::ptrdiff_t>(first),
                       support.ways.begin() + static_cast<std::ptrdiff_t>(end),
                       [hold](Hold way) { return way == hold; });
}

void AddWay(SupportSymbols& symbols, const SceneSupport& support, std::size_t way, Point2 node, Point2 axis,
            double size) {
    const Hold hold = support.ways[way];
    if (hold == Hold::Free) return;
    if (std::hypot(axis.x, axis.y) < kLookedAlong) {
        const double half = kSquare * size;
        symbols.plates.push_back({node.x - half, node.y - half, node.x + half, node.y + half});
        return;
    }
    WayMarks marks(symbols, node, axis, size);
    const bool isTurn = way >= 3;
    hold == Hold::Held ? marks.AddHeld(isTurn) : marks.AddSpring(isTurn);
}

}  // namespace

void AddSupport(SupportSymbols& symbols, const SceneSupport& support, Point2 node, const Camera& camera, double size) {
    const double half = 0.5 * size;
    if (AreAll(support, 0, 6, Hold::Held)) {
        symbols.plates.push_back({node.x - half, node.y, node.x + half, node.y + kPlateHeight * size});
        return;
    }
    if (AreAll(support, 0, 3, Hold::Held) && AreAll(support, 3, 6, Hold::Free)) {
        symbols.triangles.push_back({node, {node.x - half, node.y + size}, {node.x + half, node.y + size}});
        return;
    }
    for (std::size_t way = 0; way < support.ways.size(); ++way) {
        AddWay(symbols, support, way, node, camera.Direction(kAxes[way % 3]), size);
    }
}

}  // namespace zt
