// A whole analysis of a building of 20 storeys, against the bare factorisation, back substitutions and iteration for
// modes on the same matrices.

#include "ratio_reporter.h"
#include "zt_anl/analysis.h"
#include "zt_anl/model/model_reader.h"
#include "zt_anl/solve/structure.h"
#include "zt_db/doc/doc.h"
#include "zt_db/records/member_load.h"
#include "zt_db/records/record_list.h"
#include <Eigen/Sparse>
#include <Spectra/SymGEigsShiftSolver.h>

namespace {

using namespace zt;

constexpr int kStoreys = 20;
constexpr int kBaysX = 12;
constexpr int kBaysY = 7;
constexpr int kCases = 10;
constexpr int kModes = 30;

/// A building with columns, beams along both axes, rigid floors, and loads on beams and floors.
class Building {
public:
    Building() : doc_(CDBDoc::New()) {
        doc_->MakeCurrent();
        AddProperties();
        for (int level = 0; level <= kStoreys; ++level) AddNodes(level);
        for (int level = 1; level <= kStoreys; ++level) AddFloor(level);
        for (std::uint32_t stld = 1; stld <= kCases; ++stld) AddLoads(stld);
    }
    CDataBase& Db() const { return *doc_->GetMDBCtrl()->GetCurrentDB(); }

private:
    template <class Class>
    void Add(std::uint32_t key, const typename Class::Record& record) {
        if (!Db().GetClass<Class>()->TR_Add(key, record)) throw std::runtime_error(Db().GetLastReason());
    }
    static std::uint32_t NodeAt(int x, int y, int level) {
        return static_cast<std::uint32_t>((level * (kBaysY + 1) + y) * (kBaysX + 1) + x + 1);
    }
    void AddProperties() {
        T_UNIT_INDEX index;
        doc_->GetUnitCtrl()->GetUnitIndexCurrent(index);
        index.force = CUnitCtrl::FindChoice(UnitQuantity::Force, "kN");
        index.length = CUnitCtrl::FindChoice(UnitQuantity::Length, "m");
        doc_->GetUnitCtrl()->SetUnitIndexCurrent(index, 1);
        T_MATL_D concrete;
        concrete.analysis[0].elasticity = 3.0e4;
        concrete.analysis[0].poisson = 0.2;
        concrete.analysis[0].density = 2500.0;
        Add<CClassMatl>(1, concrete);
        T_SECT_D column;
        column.stiffness = {0.36, 0.3, 0.3, 0.018, 0.0108, 0.0108};
        Add<CClassSect>(1, column);
        T_SECT_D beam;
        beam.stiffness = {0.24, 0.2, 0.2, 0.0075, 0.0072, 0.0032};
        Add<CClassSect>(2, beam);
        for (std::uint32_t stld = 1; stld <= kCases; ++stld) {
            Add<CClassStld>(stld, {.name = "C" + std::to_string(stld), .type = "U"});
        }
    }
    void AddNodes(int level) {
        for (int y = 0; y <= kBaysY; ++y) {
            for (int x = 0; x <= kBaysX; ++x) {
                T_PONT_D node;
                node.no = NodeAt(x, y, level);
                node.x = 7.0 * x;
                node.y = 6.5 * y;
                node.z = 3.5 * level;
                Add<CClassPont>(node.no, node);
                if (level == 0) Add<CClassSpts>(node.no, {.flags = "111111"});
            }
        }
    }
    void AddMember(std::uint32_t from, std::uint32_t to, int type) {
        T_MEMB_D member;
        member.type = type;
        member.no = nextMember_;
        member.prop = type == MembType::Column ? 1 : 2;
        member.matl = 1;
        member.nodes = {from, to};
        Add<CClassMemb>(nextMember_++, member);
    }
    void AddFloor(int level) {
        T_RIGD_D floor;
        floor.master = NodeAt(0, 0, level);
        floor.freedoms = 110001;
        for (int y = 0; y <= kBaysY; ++y) {
            for (int x = 0; x <= kBaysX; ++x) {
                const std::uint32_t node = NodeAt(x, y, level);
                AddMember(NodeAt(x, y, level - 1), node, MembType::Column);
                if (x > 0) AddMember(NodeAt(x - 1, y, level), node, kBeam);
                if (y > 0) AddMember(NodeAt(x, y - 1, level), node, kBeam);
                if (node != floor.master) floor.slaves.push_back(node);
            }
        }
        Add<CClassRigd>(static_cast<std::uint32_t>(level), floor);
    }
    void AddLoads(std::uint32_t stld) {
        for (int level = 1; level <= kStoreys; ++level) {
            T_PTLD_D load{.node = NodeAt(3, 3, level), .stld = stld};
            (stld % 2 == 0 ? load.fx : load.fy) = 10.0 * level;
            Add<CClassPtld>(nextLoad_++, load);
        }
        for (std::uint32_t member = 1; stld <= 2 && member < nextMember_; ++member) {
            T_LNLD_D load{
                .memb = member, .stld = stld, .type = LoadType::UniformLoads, .direction = LoadDirection::GlobalZ};
            load.x = {0.0, 1.0};
            load.p = {-20.0, -20.0};
            Add<CClassLnld>(nextLoad_++, load);
        }
    }

    static constexpr int kBeam = 201;
    std::unique_ptr<CDBDoc> doc_;
    std::uint32_t nextMember_ = 1;
    std::uint32_t nextLoad_ = 1;
};

Building& TheBuilding() {
    static Building building;
    return building;
}

void AnalyseOurs(benchmark::State& state) {
    AnalysisOptions options;
    options.modes = kModes;
    for (auto _ : state) {
        AnalysisResult result;
        AnalysisLog log;
        const velda::Outcome outcome = Analyse(TheBuilding().Db(), options, result, log);
        if (!outcome || result.modal.modes.size() != kModes) state.SkipWithError("the analysis was refused");
    }
}

/// The equations of the building, made before the clock runs.
struct Equations {
    SparseMatrix stiffness;
    SparseMatrix mass;
    Eigen::MatrixXd loads;
};

const Equations& TheEquations() {
    static const Equations equations = [] {
        FrameModel model;
        AnalysisLog log;
        Structure structure;
        if (!ReadFrameModel(TheBuilding().Db(), model, log) || !structure.Build(model, true, log)) {
            throw std::runtime_error("no equations");
        }
        const std::vector<CaseLoads> cases = ReadCaseLoads(TheBuilding().Db(), model, log);
        Equations made{structure.Stiffness(), structure.Mass(true), {}};
        made.loads.resize(made.stiffness.rows(), kCases);
        for (std::size_t i = 0; i < cases.size(); ++i) {
            made.loads.col(static_cast<Eigen::Index>(i)) = structure.LoadVector(cases[i]);
        }
        return made;
    }();
    return equations;
}

/// Solves with factors that are there already.
class Flexibility {
public:
    using Scalar = double;

    explicit Flexibility(const Factor& factor) : factor_(factor) {}
    Eigen::Index rows() const { return factor_.rows(); }
    Eigen::Index cols() const { return factor_.cols(); }
    void set_shift(double) {}
    void perform_op(const double* in, double* out) const {
        Eigen::Map<Eigen::VectorXd>(out, rows()) = factor_.solve(Eigen::Map<const Eigen::VectorXd>(in, rows()));
    }

private:
    const Factor& factor_;
};

class MassProduct {
public:
    using Scalar = double;

    explicit MassProduct(const SparseMatrix& mass) : mass_(mass) {}
    Eigen::Index rows() const { return mass_.rows(); }
    Eigen::Index cols() const { return mass_.cols(); }
    void perform_op(const double* in, double* out) const {
        Eigen::Map<Eigen::VectorXd>(out, rows()) = mass_ * Eigen::Map<const Eigen::VectorXd>(in, rows());
    }

private:
    const SparseMatrix& mass_;
};

void AnalysePeer(benchmark::State& state) {
    const Equations& equations = TheEquations();
    for (auto _ : state) {
        const Factor factor(equations.stiffness);
        for (Eigen::Index i = 0; i < kCases; ++i) {
            benchmark::DoNotOptimize(Eigen::VectorXd(factor.solve(equations.loads.col(i))));
        }
        Flexibility flexibility(factor);
        MassProduct mass(equations.mass);
        Spectra::SymGEigsShiftSolver<Flexibility, MassProduct, Spectra::GEigsMode::ShiftInvert> solver(
            flexibility, mass, kModes, 2 * kModes + 10, 0.0);
        solver.init();
        if (solver.compute(Spectra::SortRule::LargestMagn, 1000, 1.0e-12) != kModes) {
            state.SkipWithError("the iteration did not converge");
        }
        benchmark::DoNotOptimize(solver.eigenvectors());
    }
}

constexpr const char* kWork = "20 storeys, 10 cases, 30 modes";

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    const auto repeated = [](const char* name, auto* run) {
        benchmark::RegisterBenchmark((std::string(kWork) + name).c_str(), run)
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(5)
            ->Iterations(1)
            ->UseRealTime();
    };
    TheEquations();
    repeated("/ours", &AnalyseOurs);
    repeated("/peer", &AnalysePeer);
    return bench::RunAndReport({{kWork, 1.5}}, {}, 0) ? 0 : 1;
}
