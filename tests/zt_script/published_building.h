#pragma once

#include <string>

#include "zt_db/records/actl.h"

namespace zt {

/// A building whose results were published.
struct PublishedBuilding {
    std::string name{};           ///< of the folders of its model and of its figures
    std::string force = "kN";     ///< what its figures are in
    std::string length = "m";     ///< likewise
    std::string moment = "kNm";   ///< behind the names of columns of moments
    int digits = 8;               ///< that count in a figure
    double share = 0.0;           ///< by which its solver differs from ours, of the greatest figure of a kind
    bool hasSelfWeight = false;   ///< in its first load case; its tables do not tell
    bool turnsVerticals = false;  ///< local axes of its vertical members are turned by half a turn against ours
    T_ACTL_D control{};
};

/// How the frames were computed: beams without shear deformation, masses of nodes only.
inline T_ACTL_D PlainBeams() {
    return {.shearDeformation = 0, .selfWeightMass = 0, .massLoads = {}, .secondOrderLoads = {}};
}

inline PublishedBuilding BracedFrame() { return {.name = "braced_frame_4story_3d", .control = PlainBeams()}; }
inline PublishedBuilding SteelFrame() { return {.name = "steel_frame_3story_la", .control = PlainBeams()}; }
inline PublishedBuilding ConcreteFrame() { return {.name = "rc_plane_frame_3story_modal", .control = PlainBeams()}; }
inline PublishedBuilding PublishedConcreteFrame() {
    PublishedBuilding building = ConcreteFrame();
    building.digits = 6;
    return building;
}
/// Its source has another formulation of the second order and tells to compare within 0.2 percent.
inline PublishedBuilding SetbackTower() {
    return {.name = "setback_tower_3d",
            .force = "kip",
            .length = "in",
            .moment = "kip_in",
            .digits = 6,
            .share = 2.0e-3,
            .hasSelfWeight = true,
            .turnsVerticals = true,
            .control = {.modes = 4,
                        .consistentMass = 1,
                        .massLoads = {},
                        .secondOrder = SecondOrder::GivenLoads,
                        .secondOrderLoads = {{1, 1.0}}}};
}

}  // namespace zt
