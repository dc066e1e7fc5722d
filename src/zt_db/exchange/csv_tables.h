#pragma once

#include <tuple>

#include "zt_db/exchange/exchange_table.h"

namespace zt {

/// The files of a folder of plain tables. Units stand in the names of the columns; those told here are written.
namespace csv {

extern const ExchangeTable<ExchangeMaterial> kMaterials;
extern const ExchangeTable<ExchangeSection> kSections;
extern const ExchangeTable<ExchangeStorey> kStoreys;
extern const ExchangeTable<ExchangeNode> kNodes;
extern const ExchangeTable<ExchangeMember> kMembers;
extern const ExchangeTable<ExchangeSurface> kSurfaces;
extern const ExchangeTable<ExchangeOpening> kOpenings;
extern const ExchangeTable<ExchangeSupport> kSupports;
extern const ExchangeTable<ExchangeMass> kMasses;
extern const ExchangeTable<ExchangeDiaphragm> kDiaphragms;
extern const ExchangeTable<ExchangeLoadCase> kLoadCases;
extern const ExchangeTable<ExchangeCombination> kCombinations;
extern const ExchangeTable<ExchangeNodalLoad> kNodalLoads;
extern const ExchangeTable<ExchangeMemberLoad> kMemberLoads;
extern const ExchangeTable<ExchangeLineLoad> kLineLoads;
extern const ExchangeTable<ExchangePointLoad> kPointLoads;
extern const ExchangeTable<ExchangeSurfaceLoad> kAreaLoads;

/// All of them, in the order in which they are read and written.
inline auto Tables() {
    return std::tie(kMaterials, kSections, kStoreys, kNodes, kMembers, kSurfaces, kOpenings, kSupports, kMasses,
                    kDiaphragms, kLoadCases, kCombinations, kNodalLoads, kMemberLoads, kLineLoads, kPointLoads,
                    kAreaLoads);
}

}  // namespace csv
}  // namespace zt
