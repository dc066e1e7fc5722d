#pragma once

#include <string_view>
#include <vector>

#include "velda_lib/outcome.h"
#include "zt_db/core/database.h"

namespace zt {

/// A concrete frame building with a core wall and slabs: a regular grid of columns, beams on every floor.
struct SampleBuilding {
    std::string_view name;
    int baysX;
    int baysY;
    int stories;
    double bayX = 8.0;  ///< spans and story height in m
    double bayY = 7.0;
    double storyHeight = 3.6;
};

/// The sample buildings by name.
const std::vector<SampleBuilding>& SampleBuildings();

/// Adds a sample building to an empty model, as one step. Refused for a name that no sample has and in a model that
/// holds nodes already.
velda::Outcome BuildSample(CDataBase& database, std::string_view name);

}  // namespace zt
