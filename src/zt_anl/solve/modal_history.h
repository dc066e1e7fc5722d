#pragma once

#include <vector>

#include "zt_anl/analysis.h"
#include "zt_anl/model/case_loads.h"
#include "zt_anl/model/dynamic_cases.h"
#include <Eigen/Dense>

namespace zt {

/// The modes over time, one column for each stored state.
struct ModalHistory {
    double step = 0.0;
    Eigen::MatrixXd coordinates{};
    Eigen::MatrixXd speeds{};
    Eigen::MatrixXd accelerations{};
    Eigen::MatrixXd ground{};  ///< acceleration along the global axes
    Eigen::MatrixXd loads{};   ///< factors of the static load cases that drive, in the order of DrivingCases
};

/// The static load cases that drive a history, each once.
std::vector<std::uint32_t> DrivingCases(const T_THLC_D& record);

/// Integrates the modes of a structure that is at rest at time 0. The integration is exact for loads that run linearly
/// between the points of their functions, wherever these lie between states. `nodal` has the loads of each driving case
/// on the nodes.
ModalHistory IntegrateModes(const ModalResult& modal, const HistoryCase& of,
                            const std::vector<std::vector<NodeVector>>& nodal);

/// The work of forces on nodes on the displacements of a shape.
double WorkOn(const std::vector<NodeVector>& shape, const std::vector<NodeVector>& forces);

}  // namespace zt
