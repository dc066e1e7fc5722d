#pragma once

#include <filesystem>
#include <string>

#include "velda_lib/function_ref.h"

namespace velda {

/// Families of platforms by where they keep the settings of a user.
enum class Platform { Freedesktop, MacOs, Windows };

/// The value of an environment variable; empty when it is not set.
using EnvironmentReader = FunctionRef<std::string(const char* variable)>;

/// The folder that a platform gives to the settings of a user; empty when the environment does not tell.
std::filesystem::path ConfigFolderOf(Platform platform, EnvironmentReader environment);

/// The folder of this program's settings for the user who runs it; empty when the environment does not tell.
std::filesystem::path ConfigFolder();

}  // namespace velda
