#include "zt_anl/element/station_forces.h"

#include <algorithm>
#include <cmath>

namespace zt {
namespace {

/// Adds what a force and a moment at a distance before the station give to the sum there.
void AddAt(NodeVector& sum, double before, const Vector3& force, const Vector3& moment) {
    for (std::size_t i = 0; i < 3; ++i) {
        sum[i] += force[i];
        sum[3 + i] += moment[i];
    }
    sum[4] += before * force[2];
    sum[5] -= before * force[1];
}

/// Adds the part of a load that lies before a station.
void AddLoad(NodeVector& sum, const SpanLoad& load, double station, double length) {
    const auto add = [&](double at, const Vector3& value) {
        load.isMoment ? AddAt(sum, station - at, {}, value) : AddAt(sum, station - at, value, {});
    };
    const double from = load.from * length;
    if (load.isSingle) {
        if (from < station) add(from, load.first);
        return;
    }
    const double to = load.to * length;
    const double end = std::min(to, station);
    if (end <= from) return;
    const double way = (end - from) / (to - from);
    Vector3 last{};
    for (std::size_t i = 0; i < 3; ++i) last[i] = std::lerp(load.first[i], load.last[i], way);
    for (const auto& [at, value] : SinglesOf(end - from, load.first, last)) add(from + at, value);
}

/// Adds the moments of the axial force on the deflections.
void AddDeflection(const FrameElement& element, const Vector12& ownEnds, std::vector<StationForces>& stations) {
    const double length = stations.back().position;
    const auto begin = element.Deflection(0.0, ownEnds);
    for (StationForces& station : stations) {
        const auto here = element.Deflection(station.position / length, ownEnds);
        station.forces[4] -= element.AxialForce() * (here[1] - begin[1]);
        station.forces[5] += element.AxialForce() * (here[0] - begin[0]);
    }
}

}  // namespace

std::vector<StationForces> ForcesAtStations(const FrameSpan& span, const FrameElement& element, const EndVector& ends,
                                            const Vector12& displacements, std::span<const SpanLoad> loads,
                                            std::size_t stations) {
    std::vector<StationForces> all;
    for (std::size_t i = 0; i < stations; ++i) {
        StationForces station{.position = span.length * static_cast<double>(i) / static_cast<double>(stations - 1)};
        NodeVector sum{};
        AddAt(sum, station.position, {ends[0], ends[1], ends[2]}, {ends[3], ends[4], ends[5]});
        for (const SpanLoad& load : loads) AddLoad(sum, load, station.position, span.length);
        for (std::size_t k = 0; k < kFreedoms; ++k) station.forces[k] = -sum[k];
        all.push_back(station);
    }
    if (element.AxialForce() != 0.0) AddDeflection(element, element.OwnEnds(displacements, loads), all);
    return all;
}

}  // namespace zt
