#pragma once

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

/// The equations of a structure: its elements, its independent freedoms and which of them move. What is computed for
/// the moving ones stands in the order of the equations.
class Structure {
public:
    /// Refused when the supports or links contradict each other. The model must outlive the structure.
    velda::Outcome Build(const FrameModel& model, bool shearDeformation, AnalysisLog& log);

    const FrameModel& Model() const { return *model_; }
    const std::vector<FrameElement>& Elements() const { return elements_; }
    /// Takes the axial stiffness of an element away, or gives it back. The equations stay as they are.
    void SetSlack(std::size_t span, bool isSlack);
    std::size_t EquationCount() const { return moving_.size(); }

    /// The stiffness of the moving freedoms as the elements are now.
    SparseMatrix Stiffness() const;
    /// The masses of the moving freedoms: those of nodes, and half of each member at either end. Members bring no
    /// rotational masses.
    SparseMatrix Mass(bool selfWeight) const;
    /// Factorises a stiffness. Refused, with the node and the direction that can move freely, when it is singular.
    velda::Outcome Decompose(const SparseMatrix& stiffness, Factor& factor) const;

    /// The loads of the moving freedoms.
    Eigen::VectorXd LoadVector(const CaseLoads& loads) const;
    /// Displacements of all nodes from those of the equations.
    std::vector<NodeVector> Spread(const Eigen::VectorXd& solution) const;
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
    void AddElement(const FrameElement& element, const FrameSpan& span, Triplets& triplets) const;
    void AddOnNode(std::size_t node, std::size_t freedom, double value, Triplets& triplets) const;
    void FindStiffnessless(const std::vector<bool>& isMet);
    void NumberEquations(AnalysisLog& log);
    std::size_t CountLooseNodes() const;
    SparseMatrix Moving(const SparseMatrix& whole) const;
    NodeFreedom FreestOf(const SparseMatrix& stiffness) const;

    const FrameModel* model_ = nullptr;
    bool shearDeformation_ = true;
    Freedoms freedoms_;
    std::vector<FrameElement> elements_;
    std::vector<int> equationOf_;        ///< of each independent freedom; -1 for those that do not move
    std::vector<std::size_t> moving_;    ///< the independent freedom of each equation
    std::vector<bool> isStiffnessless_;  ///< independent freedoms that nothing holds
};

}  // namespace zt
