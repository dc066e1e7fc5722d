#pragma once

#include "zt_cmd/field_declaration.h"

namespace zt {

/// The points of a function, as a table: places in ascending order and the values there. `Points` is the list in a
/// record of class R, `Place` and `Number` are the members of its elements.
template <class R, auto Points, auto Place, auto Number>
struct FunctionPoints {
    using Point = std::remove_cvref_t<decltype((std::declval<R&>().*Points).front())>;

    std::string_view placeKey;
    std::string_view valueKey;
    std::optional<FieldLimits> valueLimits{};

    ListDeclaration<R> List() const {
        ListDeclaration<R> list = ListAt<R>(
            {}, [](auto& record) -> auto& { return record.*Points; },
            [](const R& record) { return Next(record.*Points); },
            [points = *this](std::size_t row) {
                return std::vector<FieldDeclaration<R>>{
                    NumberAt<R>(
                        points.placeKey,
                        Unit::Time, [row](auto& record) -> auto& { return (record.*Points)[row].*Place; }, kFromZero),
                    NumberAt<R>(
                        points.valueKey,
                        Unit::None, [row](auto& record) -> auto& { return (record.*Points)[row].*Number; },
                        points.valueLimits),
                };
            });
        list.isTable = true;
        return list;
    }

    /// Whether there are points, each behind the one before.
    velda::Outcome Check(const R& record) const {
        const std::vector<Point>& points = record.*Points;
        if (points.empty()) return velda::Outcome::Refused(velda::CMsgDll::pfuncLoadStr("IDS_CMD_NO_POINTS", 0));
        for (std::size_t row = 1; row < points.size(); ++row) {
            const double before = points[row - 1].*Place;
            const double here = points[row].*Place;
            if (here > before) continue;
            const std::string label =
                velda::FormatText("IDS_CMD_ROW_FIELD", {std::to_string(row + 1), FieldLabel(placeKey, Unit::Time)});
            return velda::Outcome::Refused(velda::FormatText(
                "IDS_CMD_NOT_BEHIND", {label, velda::FormatDouble(here), velda::FormatDouble(before)}));
        }
        return velda::Outcome::Done();
    }

private:
    /// The point of a new row: as far behind the last one as that is behind the one before.
    static Point Next(const std::vector<Point>& points) {
        constexpr double kFirstDistance = 0.1;
        Point next;
        if (points.empty()) return next;
        const double last = points.back().*Place;
        const double distance = points.size() < 2 ? kFirstDistance : last - points[points.size() - 2].*Place;
        next.*Place = last + (distance > 0.0 ? distance : kFirstDistance);
        return next;
    }
};

}  // namespace zt
