#include "zt_anl/store_results.h"

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "zt_db/post/result_keeper.h"
#include "zt_db/records/load_case_kind.h"

namespace zt {
namespace {

using velda::Outcome;

constexpr const char* kSolver = "zt_anl";

/// Hands the parts of a result to a sink until it refuses one.
class ResultWriter {
public:
    ResultWriter(const AnalysisResult& result, ResultSink& sink) : result_(result), sink_(sink) {}

    Outcome Write() {
        WriteModel();
        if (!result_.modal.modes.empty()) WriteModes();
        for (const CaseResult& one : result_.cases) WriteCase(one);
        for (const SpectrumResult& one : result_.spectra) WriteSpectrum(one);
        for (const HistoryResult& one : result_.histories) WriteHistory(one);
        return outcome_;
    }

private:
    void Keys(std::string_view name, const std::vector<std::uint32_t>& keys) {
        if (outcome_) outcome_ = sink_.PutKeys(name, keys);
    }
    void Numbers(std::string_view name, std::size_t columns, std::span<const double> values) {
        if (outcome_ && !values.empty()) outcome_ = sink_.PutArray(name, columns, values);
    }
    void Case(int kind, std::uint32_t key, const std::string& name) {
        if (outcome_) outcome_ = sink_.PutCase({kind, key, name, {}});
        kind_ = kind;
        key_ = key;
    }
    /// An array of the case that was put last.
    void OfCase(std::string_view quantity, std::size_t columns, std::span<const double> values,
                std::string_view suffix = {}) {
        Numbers(CasePath(kind_, key_, quantity, suffix), columns, values);
    }
    /// Vectors of one length that lie one behind the other.
    template <class Row>
    static std::span<const double> Rows(const std::vector<Row>& rows) {
        return rows.empty() ? std::span<const double>()
                            : std::span<const double>(rows.front().data(), rows.size() * std::tuple_size_v<Row>);
    }

    void WriteModel() {
        std::vector<std::uint32_t> nodes;
        for (const FrameNode& node : result_.model.nodes) nodes.push_back(node.no);
        std::vector<std::uint32_t> supports;
        for (const FrameSupport& support : result_.model.supports) supports.push_back(nodes[support.node]);
        std::vector<std::uint32_t> members;
        std::vector<std::uint32_t> ends;
        std::vector<double> ranges;
        for (const FrameSpan& span : result_.model.spans) {
            members.push_back(span.no);
            for (const std::size_t end : span.ends) ends.push_back(nodes[end]);
            ranges.insert(ranges.end(), {span.start, span.end});
        }
        Keys(ResultName::Nodes, nodes);
        Keys(ResultName::Supports, supports);
        Keys(ResultName::ElementMembers, members);
        Keys(ResultName::ElementEnds, ends);
        Numbers(ResultName::ElementRanges, 2, ranges);
    }

    void WriteModes() {
        std::vector<double> frequencies;
        std::vector<NodeVector> participation;
        std::vector<NodeVector> effective;
        for (std::size_t i = 0; i < result_.modal.modes.size(); ++i) {
            const ModeResult& mode = result_.modal.modes[i];
            frequencies.push_back(mode.frequency);
            participation.push_back(mode.participation);
            effective.push_back(mode.effectiveMass);
            Numbers(std::string(ResultName::Shape) + std::to_string(i + 1), kFreedoms, Rows(mode.shape));
        }
        Numbers(ResultName::Frequency, 1, frequencies);
        Numbers(ResultName::Participation, kFreedoms, Rows(participation));
        Numbers(ResultName::EffectiveMass, kFreedoms, Rows(effective));
        Numbers(ResultName::TotalMass, kFreedoms, result_.modal.totalMass);
    }

    void WriteForces(const std::vector<ElementForces>& elements) {
        std::vector<NodeVector> rows;
        for (const ElementForces& element : elements) {
            for (const StationForces& station : element.stations) rows.push_back(station.forces);
        }
        OfCase(ResultName::ElementForce, kFreedoms, Rows(rows));
    }

    void WriteCase(const CaseResult& one) {
        Case(LoadCaseKind::Static, one.stld, one.name);
        OfCase(ResultName::Displacement, kFreedoms, Rows(one.displacements));
        OfCase(ResultName::Reaction, kFreedoms, Rows(one.reactions));
        OfCase(ResultName::LoadSum, 3, one.loadSum);
        WriteForces(one.elements);
    }

    void WriteSpectrum(const SpectrumResult& one) {
        Case(LoadCaseKind::Spectrum, one.splc, one.name);
        OfCase(ResultName::Displacement, kFreedoms, Rows(one.displacements));
        OfCase(ResultName::Reaction, kFreedoms, Rows(one.reactions));
        OfCase(ResultName::ReactionSum, kFreedoms, one.reactionSum);
        OfCase(ResultName::ModalCoordinate, one.coordinates.size(), one.coordinates);
        OfCase(ResultName::ModalCorrelation, one.coordinates.size(), one.correlation);
        WriteForces(one.elements);
    }

    void WriteEnvelopes(std::string_view quantity, const std::vector<NodeEnvelope>& envelopes) {
        struct Part {
            NodeVector NodeEnvelope::*values;
            std::string_view suffix;
        };
        constexpr Part kParts[] = {{&NodeEnvelope::max, ResultName::Max},
                                   {&NodeEnvelope::maxTime, ResultName::MaxTime},
                                   {&NodeEnvelope::min, ResultName::Min},
                                   {&NodeEnvelope::minTime, ResultName::MinTime}};
        std::vector<NodeVector> rows(envelopes.size());
        for (const Part& part : kParts) {
            std::transform(envelopes.begin(), envelopes.end(), rows.begin(),
                           [&](const NodeEnvelope& envelope) { return envelope.*part.values; });
            OfCase(quantity, kFreedoms, Rows(rows), part.suffix);
        }
    }

    void WriteHistory(const HistoryResult& one) {
        Case(LoadCaseKind::TimeHistory, one.thlc, one.name);
        const std::size_t modes = one.steps > 0 ? one.coordinates.size() / one.steps : 0;
        OfCase(ResultName::Step, 1, std::span(&one.step, 1));
        OfCase(ResultName::Coordinate, modes, one.coordinates);
        OfCase(ResultName::CoordinateAcceleration, modes, one.accelerations);
        OfCase(ResultName::Ground, 3, Rows(one.ground));
        OfCase(ResultName::LoadFactor, one.remainders.size(), one.loadFactors);
        for (std::size_t i = 0; i < one.remainders.size(); ++i) {
            OfCase(ResultName::Remainder, kFreedoms, Rows(one.remainders[i]), std::to_string(i + 1));
        }
        WriteEnvelopes(ResultName::Displacement, one.displacements);
        WriteEnvelopes(ResultName::Velocity, one.velocities);
        WriteEnvelopes(ResultName::RelativeAcceleration, one.relativeAccelerations);
        WriteEnvelopes(ResultName::AbsoluteAcceleration, one.absoluteAccelerations);
        WriteEnvelopes(ResultName::Reaction, one.reactions);
        WriteEnvelopes(ResultName::ReactionSum, {one.reactionSum});
        std::vector<NodeEnvelope> stations;
        for (const auto& span : one.stations) stations.insert(stations.end(), span.begin(), span.end());
        WriteEnvelopes(ResultName::ElementForce, stations);
    }

    const AnalysisResult& result_;
    ResultSink& sink_;
    Outcome outcome_ = Outcome::Done();
    int kind_ = 0;
    std::uint32_t key_ = 0;
};

}  // namespace

Outcome WriteResults(const AnalysisResult& result, ResultSink& sink) { return ResultWriter(result, sink).Write(); }

Outcome StoreResults(const AnalysisResult& result, CDBDoc& doc) {
    return doc.GetResults().Keep(velda::FormatText("IDS_DB_STEP_ANALYSIS", {}), kSolver,
                                 static_cast<std::uint32_t>(result.stations),
                                 [&](ResultSink& sink) { return WriteResults(result, sink); });
}

}  // namespace zt
