#pragma once

#include <tuple>

#include "zt_db/exchange/exchange_table.h"

namespace zt {

/// The sheets of the open Structural Analysis Format (saf.guide), versions 2.1 and 2.2, that a model has a place for.
/// The names of columns are those of version 2.2; names of 2.1 stand as other names.
namespace saf {

extern const ExchangeTable<ExchangeMaterial> kMaterials;
extern const ExchangeTable<ExchangeSection> kSections;
extern const ExchangeTable<ExchangeStorey> kStoreys;
extern const ExchangeTable<ExchangeNode> kNodes;
extern const ExchangeTable<ExchangeMember> kMembers;
extern const ExchangeTable<ExchangeSurface> kSurfaces;
extern const ExchangeTable<ExchangeOpening> kOpenings;
extern const ExchangeTable<ExchangeSupport> kSupports;
extern const ExchangeTable<ExchangeHinge> kHinges;
extern const ExchangeTable<ExchangeRigidLink> kRigidLinks;
extern const ExchangeTable<ExchangeLoadGroup> kLoadGroups;
extern const ExchangeTable<ExchangeLoadCase> kLoadCases;
extern const ExchangeTable<ExchangeCombination> kCombinations;
extern const ExchangeTable<ExchangePointLoad> kPointForces;
extern const ExchangeTable<ExchangePointLoad> kPointMoments;
extern const ExchangeTable<ExchangeLineLoad> kLineForces;
extern const ExchangeTable<ExchangeLineLoad> kLineMoments;
extern const ExchangeTable<ExchangeSurfaceLoad> kSurfaceLoads;

/// All of them, in the order in which they are read and written.
inline auto Tables() {
    return std::tie(kMaterials, kSections, kStoreys, kNodes, kMembers, kSurfaces, kOpenings, kSupports, kHinges,
                    kRigidLinks, kLoadGroups, kLoadCases, kCombinations, kPointForces, kPointMoments, kLineForces,
                    kLineMoments, kSurfaceLoads);
}

}  // namespace saf
}  // namespace zt
