#include "zt_db/exchange/axis_turn.h"

#include "zt_db/exchange/table_reader.h"

namespace zt {
namespace {

bool IsLocal(const std::string& axes) { return Comparable(axes) == "local"; }

/// Scales a value that may be missing.
void Scale(MaybeNumber& number, double factor) {
    if (number) number = *number * factor;
}
void Scale(double& number, double factor) { number *= factor; }

}  // namespace

std::optional<AxisTurn> AxisTurn::FromText(std::string_view text) {
    const std::string word = Comparable(text);
    const bool minus = word.starts_with('-') || word.starts_with("minus");
    const std::string axis = word.substr(word.starts_with('-') ? 1 : minus ? 5 : 0, 1);
    AxisTurn turn;
    if (axis == "x") {
        turn.from_ = {1, 2, 0};
    } else if (axis == "y") {
        turn.from_ = {2, 0, 1};
    } else if (axis != "z") {
        return std::nullopt;
    }
    if (minus) turn.sign_ = {1.0, -1.0, -1.0};
    return turn;
}

template <class Value>
void AxisTurn::TurnVector(Value& x, Value& y, Value& z) const {
    const std::array<Value, 3> old{x, y, z};
    const std::array<Value*, 3> turned{&x, &y, &z};
    for (std::size_t i = 0; i < 3; ++i) {
        *turned[i] = old[static_cast<std::size_t>(from_[i])];
        Scale(*turned[i], sign_[i]);
    }
}

void AxisTurn::TurnFreedoms(SixFreedoms& freedoms) const {
    const SixFreedoms old = freedoms;
    for (std::size_t i = 0; i < 3; ++i) {
        freedoms[i] = old[static_cast<std::size_t>(from_[i])];
        freedoms[i + 3] = old[static_cast<std::size_t>(from_[i]) + 3];
    }
}

void AxisTurn::TurnNumbers(std::vector<double>& vector) const {
    if (vector.size() == 3) TurnVector(vector[0], vector[1], vector[2]);
}

double AxisTurn::TurnDirection(std::string& direction) const {
    constexpr std::string_view kAxes = "XYZ";
    if (direction.empty() || direction.size() > 2) return 1.0;
    const char last = static_cast<char>(direction.back() & ~0x20);
    for (std::size_t i = 0; i < 3; ++i) {
        if (kAxes[static_cast<std::size_t>(from_[i])] != last) continue;
        direction =
            direction.size() == 2 ? std::string("M") + static_cast<char>(kAxes[i] | 0x20) : std::string(1, kAxes[i]);
        return sign_[i];
    }
    return 1.0;
}

void AxisTurn::Apply(ExchangeModel& model) const {
    if (IsNone()) return;
    for (ExchangeNode& node : model.nodes) TurnVector(node.x, node.y, node.z);
    for (ExchangeMember& member : model.members) TurnVector(member.axisX, member.axisY, member.axisZ);
    for (ExchangeSupport& support : model.supports) {
        if (!IsLocal(support.axes)) TurnFreedoms(support.freedoms);
    }
    for (auto* loads : {&model.pointForces, &model.pointMoments}) {
        for (ExchangePointLoad& load : *loads) {
            if (IsLocal(load.axes)) continue;
            TurnNumbers(load.vector);
            Scale(load.value, TurnDirection(load.direction));
        }
    }
    for (auto* loads : {&model.lineForces, &model.lineMoments}) {
        for (ExchangeLineLoad& load : *loads) {
            if (IsLocal(load.axes)) continue;
            TurnNumbers(load.firstVector);
            TurnNumbers(load.secondVector);
            const double sign = TurnDirection(load.direction);
            Scale(load.first, sign);
            Scale(load.second, sign);
        }
    }
    for (ExchangeSurfaceLoad& load : model.surfaceLoads) {
        if (!IsLocal(load.axes)) Scale(load.value, TurnDirection(load.direction));
    }
}

}  // namespace zt
