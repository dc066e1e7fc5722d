#pragma once

#include <cstdlib>
#include <string>

namespace zt {

/// What the surroundings of the program say about it.
struct CProduct {
    /// A switch of the environment that turns on what is under trial; empty when it is not set.
    static std::string GetTestEnvValue(const char* name) {
        const char* value = std::getenv(name);
        return value ? value : "";
    }
    static bool IsSwitchedOn(const char* name) { return GetTestEnvValue(name) == "yes"; }
};

}  // namespace zt
