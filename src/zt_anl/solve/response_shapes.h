#pragma once

#include <span>
#include <vector>

#include "zt_anl/analysis.h"
#include "zt_anl/solve/structure.h"
#include <Eigen/Dense>

namespace zt {

/// A static load case that drives, and what the modes leave of its displacements.
struct DrivingLoads {
    const CaseLoads* loads = nullptr;
    std::vector<NodeVector> remainder{};
};

/// The shapes that a response over time is a sum of, in columns: first the modes, then the static load cases that
/// drive. Values of nodes, supports and spans stand in rows.
class ResponseShapes {
public:
    /// What is given must outlive the shapes. There are at least two stations.
    ResponseShapes(const Structure& structure, const ModalResult& modal, const std::vector<DrivingLoads>& loads,
                   std::size_t stations);

    const FrameModel& Model() const { return structure_.Model(); }
    const ModalResult& Modal() const { return modal_; }
    Eigen::Index ModeCount() const { return modes_; }
    Eigen::MatrixXd Displacements(std::size_t node) const;
    Eigen::MatrixXd Reactions(std::size_t support) const;
    /// The sum of all reactions, with moments about the origin.
    Eigen::MatrixXd ReactionSum() const;
    /// Forces on an element at its ends, in local axes.
    Eigen::MatrixXd Ends(std::size_t span) const;
    /// Forces at the stations of a span, those of each station one below the other.
    Eigen::MatrixXd Stations(std::size_t span, const Eigen::MatrixXd& ends) const;
    std::size_t StationCount() const { return stations_; }

private:
    Eigen::Index Count() const { return modes_ + static_cast<Eigen::Index>(loads_.size()); }
    const std::vector<NodeVector>& ShapeOf(Eigen::Index column) const {
        return column < modes_ ? modal_.modes[static_cast<std::size_t>(column)].shape
                               : loads_[static_cast<std::size_t>(column - modes_)].remainder;
    }
    const CaseLoads* LoadsOf(Eigen::Index column) const {
        return column < modes_ ? nullptr : loads_[static_cast<std::size_t>(column - modes_)].loads;
    }
    void PutReactions();
    Eigen::MatrixXd TakenAtFreedoms() const;

    const Structure& structure_;
    const ModalResult& modal_;
    const std::vector<DrivingLoads>& loads_;
    std::size_t stations_;
    Eigen::Index modes_;
    Eigen::MatrixXd reactions_;  ///< six rows for each support
};

}  // namespace zt
