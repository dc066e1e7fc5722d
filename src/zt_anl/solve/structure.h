#pragma once

#include <array>
#include <vector>

#include "velda_lib/outcome.h"
#include "zt_anl/analysis_log.h"
#include "zt_anl/element/frame_element.h"
#include "zt_anl/model/case_loads.h"
#include "zt_anl/model/frame_model.h"
#include "zt_anl/solve/freedoms.h"
#include <Eigen/Sparse>

namespace zt {

using SparseMatrix = Eigen::SparseMatrix<double>;
using Factor = Eigen::SimplicialLDLT<SparseMatrix>;

/// What of a structure changes while its loads are solved.
struct StructureState {
    std::vector<AxialState> axial{};             ///< of each element
    std::vector<std::array<bool, 3>> isLetGo{};  ///< displacements that a support of one sense does not hold now
    bool operator==(const StructureState&) const = default;
};

/// The equations of a structure: its elements, its independent freedoms and which of them move. What is computed for
/// the moving ones stands in the order of the equations.
class Structure {
public:
    /// Refused when the supports or links contradict each other. The model must outlive the structure.
    velda::Outcome Build(const FrameModel& model, bool shearDeformation, AnalysisLog& log);

    const FrameModel& Model() const { return *model_; }
    const std::vector<FrameElement>& Elements() const { return elements_; }
    const StructureState& State() const { return state_; }
    /// Makes the elements and supports act as a state tells. Supports that let go add equations.
    void SetState(const StructureState& state);
    std::size_t EquationCount() const { return moving_.size(); }

    /// The stiffness of the moving freedoms as the elements are now.
    SparseMatrix Stiffness() const;
    /// The masses of the moving freedoms: those of nodes, and half of each member at either end. Members bring no
    /// rotational masses. Consistent masses of members follow the curves of their elements instead.
    SparseMatrix Mass(bool selfWeight, bool consistent = false) const;
    /// Factorises a stiffness. Refused, with the node and the direction that can move freely, when it is not positive
    /// definite.
    velda::Outcome Decompose(const SparseMatrix& stiffness, Factor& factor) const;

    /// The freedom that moves most when the structure gives way.
    NodeFreedom FreestOf(const SparseMatrix& stiffness) const;

    /// The loads of the moving freedoms, with what the moves of supports give them.
    Eigen::VectorXd LoadVector(const CaseLoads& loads) const;
    /// Displacements of all nodes from those of the equations, and of the supports that move.
    std::vector<NodeVector> Spread(const Eigen::VectorXd& solution, const CaseLoads& loads = {}) const;
    /// How far the ground of each support moves.
    std::vector<NodeVector> GroundMoves(const CaseLoads& loads) const;
    /// The spring of a support as it acts now.
    double SpringOf(std::size_t support, std::size_t freedom) const;
    bool IsLetGo(std::size_t support, std::size_t freedom) const {
        return freedom < 3 && state_.isLetGo[support][freedom];
    }
    /// What a rigid motion by 1 is to the equations: along a global axis, or about one through the origin.
    Eigen::VectorXd RigidMove(std::size_t motion) const;
    /// Forces in all independent freedoms which are sums of forces on nodes.
    Eigen::VectorXd Gather(const std::vector<NodeVector>& forces) const;
    /// Whether nothing holds or moves a freedom of a node, so that loads on it are left out.
    bool IsLoose(std::size_t node, std::size_t freedom) const;
    const Freedoms& NodeFreedoms() const { return freedoms_; }

    /// Loads on the nodes of an element by its loads, in global axes, added to those of the nodes.
    std::vector<NodeVector> NodalLoads(const CaseLoads& loads) const;
    Vector12 EndDisplacements(const std::vector<NodeVector>& displacements, std::size_t span) const;

private:
    using Triplets = std::vector<Eigen::Triplet<double>>;

    SparseMatrix WholeStiffness() const;
    void AddElement(const Matrix12& values, const FrameSpan& span, Triplets& triplets) const;
    SparseMatrix WholeOf(const Triplets& triplets) const;
    void AddOnNode(std::size_t node, std::size_t freedom, double value, Triplets& triplets) const;
    void FindStiffnessless();
    void NumberEquations();
    void TellEquations(AnalysisLog& log) const;
    Eigen::VectorXd HeldMoves(const CaseLoads& loads) const;
    std::size_t CountLooseNodes() const;
    void AddMassesOfMembers(bool consistent, Triplets& triplets) const;
    SparseMatrix Moving(const SparseMatrix& whole) const;

    const FrameModel* model_ = nullptr;
    bool shearDeformation_ = true;
    Freedoms freedoms_;
    std::vector<FrameElement> elements_;
    StructureState state_;
    std::vector<bool> isMet_;            ///< nodes that an element meets
    std::vector<int> equationOf_;        ///< of each independent freedom; -1 for those that do not move
    std::vector<std::size_t> moving_;    ///< the independent freedom of each equation
    std::vector<bool> isStiffnessless_;  ///< independent freedoms that nothing holds
};

}  // namespace zt
