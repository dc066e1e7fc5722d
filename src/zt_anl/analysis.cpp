#include "zt_anl/analysis.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_anl/model/case_loads.h"
#include "zt_anl/model/dynamic_cases.h"
#include "zt_anl/model/model_reader.h"
#include "zt_anl/solve/history_solver.h"
#include "zt_anl/solve/load_masses.h"
#include "zt_anl/solve/modal_solver.h"
#include "zt_anl/solve/spectrum_solver.h"
#include "zt_anl/solve/static_solver.h"

namespace zt {
namespace {

using velda::FormatText;
using velda::Outcome;

/// One analysis from the reading of the model to its time histories.
class Analysis {
public:
    Analysis(const CDataBase& database, const AnalysisOptions& options, AnalysisResult& result, AnalysisLog& log)
        : database_(database),
          options_(options),
          result_(result),
          log_(log),
          stations_(std::max<std::size_t>(options.stations, 2)),
          solver_(structure_, stations_, log) {}

    Outcome Run() {
        for (const auto part : {&Analysis::Read, &Analysis::Assemble, &Analysis::Factorise, &Analysis::SolveCases,
                                &Analysis::SolveShapes, &Analysis::SolveSpectra, &Analysis::SolveHistories}) {
            if (Outcome outcome = (this->*part)(); !outcome) return outcome;
        }
        return Outcome::Done();
    }

private:
    bool Goes(AnalysisStep step, std::size_t done = 0, std::size_t of = 1) const {
        return !options_.progress || options_.progress(step, done, of);
    }
    static Outcome Stopped() { return Outcome::Refused(FormatText("IDS_ANL_STOPPED", {})); }

    Outcome Read() {
        if (!Goes(AnalysisStep::Read)) return Stopped();
        result_.stations = stations_;
        if (Outcome outcome = ReadFrameModel(database_, result_.model, log_); !outcome) return outcome;
        if (result_.model.spans.empty()) return Outcome::Refused(FormatText("IDS_ANL_NO_MEMBERS", {}));
        loads_ = ReadCaseLoads(database_, result_.model, log_);
        return Outcome::Done();
    }
    Outcome Assemble() {
        if (!Goes(AnalysisStep::Assemble)) return Stopped();
        return structure_.Build(result_.model, options_.shearDeformation, log_);
    }
    Outcome Factorise() {
        if (!Goes(AnalysisStep::Factor)) return Stopped();
        Outcome outcome = solver_.Prepare();
        if (!outcome || options_.secondOrder != SecondOrder::GivenLoads) return outcome;
        if (options_.secondOrderLoads.empty()) log_.Warn("IDS_ANL_NO_SECOND_ORDER_LOADS");
        return solver_.HoldAxialForces(SumOfCases(loads_, options_.secondOrderLoads));
    }
    Outcome SolveCases() {
        for (std::size_t i = 0; i < loads_.size(); ++i) {
            if (!Goes(AnalysisStep::Static, i, loads_.size())) return Stopped();
            result_.cases.push_back(solver_.Solve(loads_[i], options_.secondOrder == SecondOrder::EachCase));
        }
        return Outcome::Done();
    }
    Outcome SolveShapes() {
        if (!options_.modal) return Outcome::Done();
        if (!Goes(AnalysisStep::Modal)) return Stopped();
        AddMassesOfLoads();
        const SparseMatrix mass = structure_.Mass(options_.selfWeightMass, options_.consistentMass);
        if (result_.model.HasOneWayParts()) log_.Note("IDS_ANL_MODES_WITH_ALL");
        Outcome outcome = SolveModes(structure_, solver_.WholeFactor(), mass, options_.modes,
                                     WorkOf(AnalysisStep::Modal, 0, 1), result_.modal);
        if (outcome) TellMasses();
        return outcome;
    }
    void AddMassesOfLoads() {
        const std::vector<FrameMass> masses = MassesOfLoads(structure_, loads_, options_.massLoads);
        result_.model.masses.insert(result_.model.masses.end(), masses.begin(), masses.end());
    }
    Outcome SolveSpectra() {
        const std::vector<SpectrumCase> cases = ReadSpectrumCases(database_, log_);
        if (cases.empty() || LacksModes(cases)) return Outcome::Done();
        const std::vector<DrivingLoads> none;
        const ResponseShapes shapes(structure_, result_.modal, none, stations_);
        for (std::size_t i = 0; i < cases.size(); ++i) {
            const WorkGoes goes = WorkOf(AnalysisStep::Spectrum, i, cases.size());
            if (!SolveSpectrum(shapes, cases[i], goes, result_.spectra.emplace_back())) return Stopped();
        }
        return Outcome::Done();
    }
    Outcome SolveHistories() {
        const std::vector<HistoryCase> cases = ReadHistoryCases(database_, log_);
        if (LacksModes(cases)) return Outcome::Done();
        const HistorySolver solver(structure_, solver_.WholeFactor(), result_.modal, loads_, stations_);
        for (std::size_t i = 0; i < cases.size(); ++i) {
            const WorkGoes goes = WorkOf(AnalysisStep::History, i, cases.size());
            if (!solver.Solve(cases[i], goes, result_.histories.emplace_back())) return Stopped();
        }
        return Outcome::Done();
    }
    /// The progress within one of several parts of a step, in thousandths of a part.
    WorkGoes WorkOf(AnalysisStep step, std::size_t part, std::size_t parts) const {
        constexpr std::size_t kFine = 1000;
        return [this, step, part, parts](std::size_t done, std::size_t of) {
            return Goes(step, part * kFine + done * kFine / of, parts * kFine);
        };
    }
    /// Cases that stand on modes are left out when there are none.
    template <class Case>
    bool LacksModes(const std::vector<Case>& cases) {
        if (!result_.modal.modes.empty()) return false;
        for (const Case& each : cases) log_.Warn("IDS_ANL_CASE_WITHOUT_MODES", {each.record.name});
        return true;
    }
    void TellMasses() {
        const auto text = [&](std::size_t axis) {
            return velda::FormatDouble(std::round(result_.modal.totalMass[axis]) / 1000.0);
        };
        log_.Note("IDS_ANL_MASSES", {velda::FormatLong(static_cast<std::int64_t>(result_.modal.modes.size())), text(0),
                                     text(1), text(2)});
    }

    const CDataBase& database_;
    const AnalysisOptions& options_;
    AnalysisResult& result_;
    AnalysisLog& log_;
    std::size_t stations_;
    std::vector<CaseLoads> loads_;
    Structure structure_;
    StaticSolver solver_;
};

}  // namespace

Outcome Analyse(const CDataBase& database, const AnalysisOptions& options, AnalysisResult& result, AnalysisLog& log) {
    result = {};
    Outcome outcome = Analysis(database, options, result, log).Run();
    if (!outcome) result = {};
    return outcome;
}

}  // namespace zt
