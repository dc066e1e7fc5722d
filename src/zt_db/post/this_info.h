#pragma once

#include "zt_db/post/post_ctrl.h"

namespace zt {

/// Six values and the times, in s, at which they came.
struct T_TIMED_D {
    std::array<double, 6> value{};
    std::array<double, 6> time{};
};

/// Reads the extremes of the time-history case that a control has opened: for sub-kind max the greatest values, for min
/// the least, for all those of greater magnitude, each with its time. Values are in the user's current units. A reader
/// returns 0 when there is no such result.
class CThisInfo {
public:
    explicit CThisInfo(const CPostCtrl& control) : control_(control) {}

    int GetDispWithTime(std::uint32_t node, int subKind, T_TIMED_D& values) const;
    int GetVeloWithTime(std::uint32_t node, int subKind, T_TIMED_D& values) const;
    /// Accelerations against a resting frame, and against the moving ground.
    int GetAcclWithTime(std::uint32_t node, int subKind, T_TIMED_D& values) const;
    int GetRAcclWithTime(std::uint32_t node, int subKind, T_TIMED_D& values) const;
    int GetReacWithTime(std::uint32_t node, int subKind, T_TIMED_D& values) const;
    /// Of end i of a link.
    int GetElnkWithTime(std::uint32_t link, int subKind, T_TIMED_D& values) const;

    /// The stored states of the case; 0 when there are none, and the time of one, from 0.
    std::size_t GetStateCount() const;
    double GetTimeOfState(std::size_t state) const;
    /// The displacements of a node in a state, as the sum of its modes and of what they leave out.
    int GetDispOfState(std::uint32_t node, std::size_t state, T_DISP_D& displacement) const;

private:
    int Read(std::string_view quantity, std::uint32_t place, const std::array<int, 6>& units, int subKind,
             T_TIMED_D& values) const;
    void AddRemainders(std::uint32_t place, std::size_t state, T_DISP_D& sum) const;
    ResultArray ArrayOf(std::string_view quantity, std::string_view suffix = {}) const;

    const CPostCtrl& control_;
};

}  // namespace zt
