#include "zt_anl/model/rigid_parts.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "zt_anl/model/vector_math.h"

namespace zt {
namespace {

/// One load of a span, parted between the element and its rigid lengths. Distances count from the outer end of the
/// rigid length at end i.
class WholeSpanLoad {
public:
    WholeSpanLoad(const FrameModel& model, const SpanLoad& load, CaseLoads& loads)
        : span_(model.spans[load.span]), load_(load), loads_(loads) {}

    void Put() {
        const double whole = span_.WholeLength();
        const double from = load_.from * whole;
        const double to = load_.to * whole;
        const std::array<double, 4> cuts{0.0, span_.rigid[0], whole - span_.rigid[1], whole};
        if (load_.isSingle) {
            if (from < cuts[1]) return PutOnNode(0, from, load_.first);
            if (from > cuts[2]) return PutOnNode(1, from, load_.first);
            return PutOnElement(from, from);
        }
        PutStretch(0, std::max(from, cuts[0]), std::min(to, cuts[1]));
        if (std::max(from, cuts[1]) < std::min(to, cuts[2])) {
            PutOnElement(std::max(from, cuts[1]), std::min(to, cuts[2]));
        }
        PutStretch(1, std::max(from, cuts[2]), std::min(to, cuts[3]));
    }

private:
    Vector3 ValueAt(double distance) const {
        const double whole = span_.WholeLength();
        const double run = (load_.to - load_.from) * whole;
        const double way = run > 0.0 ? (distance - load_.from * whole) / run : 0.0;
        Vector3 value{};
        for (std::size_t i = 0; i < 3; ++i) value[i] = std::lerp(load_.first[i], load_.last[i], way);
        return value;
    }
    void PutOnElement(double from, double to) {
        SpanLoad part = load_;
        part.from = std::clamp((from - span_.rigid[0]) / span_.length, 0.0, 1.0);
        part.to = std::clamp((to - span_.rigid[0]) / span_.length, 0.0, 1.0);
        part.first = ValueAt(from);
        part.last = ValueAt(to);
        loads_.spans.push_back(part);
    }
    void PutStretch(std::size_t end, double from, double to) {
        if (to <= from) return;
        for (const auto& [at, value] : SinglesOf(to - from, ValueAt(from), ValueAt(to))) {
            PutOnNode(end, from + at, value);
        }
    }
    void PutOnNode(std::size_t end, double distance, const Vector3& local) {
        const Vector3 value = GlobalOf(span_.axes, local);
        NodeVector& node = loads_.nodal[span_.ends[end]];
        const double fromEnd = distance - span_.rigid[0] - (end == 0 ? 0.0 : span_.length);
        const Vector3 moment = Cross(Plus(span_.arms[end], Times(span_.axes.x, fromEnd)), value);
        for (std::size_t i = 0; i < 3; ++i) {
            node[(load_.isMoment ? 3 : 0) + i] += value[i];
            if (!load_.isMoment) node[3 + i] += moment[i];
        }
    }

    const FrameSpan& span_;
    const SpanLoad& load_;
    CaseLoads& loads_;
};

}  // namespace

void PutOnWholeSpan(const FrameModel& model, const SpanLoad& load, CaseLoads& loads) {
    WholeSpanLoad(model, load, loads).Put();
}

}  // namespace zt
