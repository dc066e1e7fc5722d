#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "zt_db/exchange/exchange_model.h"

namespace zt {

/// Turns a model whose vertical axis is another one so that Z points up. The turn keeps right-handed axes.
class AxisTurn {
public:
    /// From a text such as "Z vertical", "Y" or "-X vertical"; none when it names no axis.
    static std::optional<AxisTurn> FromText(std::string_view text);

    bool IsNone() const {
        return from_ == std::array<int, 3>{0, 1, 2} && sign_ == std::array<double, 3>{1.0, 1.0, 1.0};
    }
    /// Turns coordinates, axes, global freedoms and global loads of a model.
    void Apply(ExchangeModel& model) const;

private:
    template <class Value>
    void TurnVector(Value& x, Value& y, Value& z) const;
    void TurnFreedoms(SixFreedoms& freedoms) const;
    void TurnNumbers(std::vector<double>& vector) const;
    /// Turns a direction such as "X" or "Mz" and gives the sign of its values.
    double TurnDirection(std::string& direction) const;

    std::array<int, 3> from_{0, 1, 2};
    std::array<double, 3> sign_{1.0, 1.0, 1.0};
};

}  // namespace zt
