#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "velda_lib/outcome.h"
#include "zt_anl/analysis_log.h"
#include "zt_anl/model/frame_model.h"
#include "zt_db/core/database.h"
#include "zt_db/records/actl.h"

namespace zt {

/// The parts of an analysis, as its progress tells them.
enum class AnalysisStep { Read, Assemble, Factor, Static, Modal, Spectrum, History };

/// Asked between steps, and within long ones, with what is at work and how much of it is done; false stops the
/// analysis.
using AnalysisProgress = std::function<bool(AnalysisStep step, std::size_t done, std::size_t of)>;

struct AnalysisOptions {
    bool shearDeformation = true;
    bool modal = true;
    bool selfWeightMass = true;   ///< the masses of members count besides those of nodes
    bool consistentMass = false;  ///< masses of members follow the curves of their elements and are not lumped
    /// By which axial forces the deformed shape counts; a value of SecondOrder. The loads are those of
    /// SecondOrder::GivenLoads.
    int secondOrder = SecondOrder::None;
    std::vector<T_STLD_FACTOR> secondOrderLoads{};
    std::size_t modes = 12;
    /// Static load cases whose downward loads on nodes and members count as masses, with factors.
    std::vector<T_STLD_FACTOR> massLoads{};
    std::size_t stations = 9;  ///< along each element, its ends included; at least 2
    AnalysisProgress progress{};
};

/// What a model says of its own analysis; the defaults where it says nothing.
AnalysisOptions OptionsOf(const CDataBase& database);

/// What a section carries at a station: the forces and moments on its face that looks to end j, in local axes, so that
/// tension is positive: N, Vy, Vz, T, My, Mz.
struct StationForces {
    double position = 0.0;  ///< from end i, in m
    NodeVector forces{};
};

struct ElementForces {
    EndVector ends{};  ///< on the element at its ends, in local axes
    std::vector<StationForces> stations{};
};

/// The results of a static load case; in the order of the nodes, supports and spans of the model.
struct CaseResult {
    std::uint32_t stld = 0;  ///< key
    std::string name{};
    std::vector<NodeVector> displacements{};
    std::vector<NodeVector> reactions{};  ///< on the structure
    std::vector<ElementForces> elements{};
    Vector3 loadSum{};
    Vector3 reactionSum{};
    int rounds = 1;  ///< until what acts in one sense only and the axial forces settled
    bool hasSettled = true;
};

struct ModeResult {
    double frequency = 0.0;  ///< Hz
    double period = 0.0;     ///< s
    std::vector<NodeVector> shape{};
    NodeVector participation{};  ///< in moves along the global axes and in turns about them, through the centre of mass
    NodeVector effectiveMass{};  ///< kg and kg m2
};

struct ModalResult {
    std::vector<ModeResult> modes{};  ///< the longest period first; shapes have a modal mass of 1
    NodeVector totalMass{};           ///< that can move, in kg, and in kg m2 about the centre of mass
};

/// The results of a response spectrum load case: greatest magnitudes, without signs.
struct SpectrumResult {
    std::uint32_t splc = 0;  ///< key
    std::string name{};
    std::vector<NodeVector> displacements{};
    std::vector<NodeVector> reactions{};
    NodeVector reactionSum{};  ///< moments about the origin
    std::vector<ElementForces> elements{};
    std::vector<double> coordinates{};  ///< the peak of each mode, with its sign
    std::vector<double> correlation{};  ///< of the modes, row by row; empty where squares are added
};

/// The greatest and least value of each component over time, and when they came, in s.
struct NodeEnvelope {
    NodeVector max{};
    NodeVector maxTime{};
    NodeVector min{};
    NodeVector minTime{};
};

/// The results of a time-history load case. Displacements and velocities are relative to the ground; velocities and
/// accelerations are those of the modes.
struct HistoryResult {
    std::uint32_t thlc = 0;  ///< key
    std::string name{};
    double step = 0.0;      ///< s between two stored states
    std::size_t steps = 0;  ///< stored states, that at time 0 among them
    /// The modal coordinates and their second derivatives, for each state those of all modes.
    std::vector<double> coordinates{};
    std::vector<double> accelerations{};
    std::vector<Vector3> ground{};  ///< acceleration of the ground in each state, in m/s2
    /// What the modes leave of the static displacements by the load cases that drive, for each of these; and how much
    /// of each case acts, for each state those of all cases.
    std::vector<std::vector<NodeVector>> remainders{};
    std::vector<double> loadFactors{};
    std::vector<NodeEnvelope> displacements{};
    std::vector<NodeEnvelope> velocities{};
    std::vector<NodeEnvelope> relativeAccelerations{};
    std::vector<NodeEnvelope> absoluteAccelerations{};
    std::vector<NodeEnvelope> reactions{};              ///< in the order of the supports
    NodeEnvelope reactionSum{};                         ///< moments about the origin
    std::vector<std::vector<NodeEnvelope>> stations{};  ///< of each span, at its stations
};

struct AnalysisResult {
    FrameModel model{};
    std::size_t stations = 0;         ///< along each element
    std::vector<CaseResult> cases{};  ///< in the order of their keys
    ModalResult modal{};
    std::vector<SpectrumResult> spectra{};   ///< in the order of their keys
    std::vector<HistoryResult> histories{};  ///< in the order of their keys
};

/// Analyses a model: all its static load cases, its modes, and the response spectrum and time-history load cases that
/// stand on them. Refused, with the reason, when the model cannot be analysed or the progress stopped it.
velda::Outcome Analyse(const CDataBase& database, const AnalysisOptions& options, AnalysisResult& result,
                       AnalysisLog& log);

}  // namespace zt
