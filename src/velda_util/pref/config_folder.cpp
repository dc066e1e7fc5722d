#include "velda_util/pref/config_folder.h"

#include <cstdlib>

namespace velda {
namespace {

namespace fs = std::filesystem;

constexpr const char* kProgramFolder = "zt_tb";

#if defined(_WIN32)
constexpr Platform kPlatform = Platform::Windows;
#elif defined(__APPLE__)
constexpr Platform kPlatform = Platform::MacOs;
#else
constexpr Platform kPlatform = Platform::Freedesktop;
#endif

fs::path BelowHome(EnvironmentReader environment, const char* folder) {
    const fs::path home = environment("HOME");
    return home.empty() ? fs::path() : home / folder;
}

}  // namespace

fs::path ConfigFolderOf(Platform platform, EnvironmentReader environment) {
    if (platform == Platform::Windows) return environment("APPDATA");
    if (platform == Platform::MacOs) return BelowHome(environment, "Library/Preferences");
    // A relative path would mean another folder after each change of the working folder.
    const fs::path own = environment("XDG_CONFIG_HOME");
    return own.is_absolute() ? own : BelowHome(environment, ".config");
}

fs::path ConfigFolder() {
    const fs::path folder = ConfigFolderOf(kPlatform, [](const char* variable) {
        const char* value = std::getenv(variable);
        return std::string(value ? value : "");
    });
    return folder.empty() ? folder : folder / kProgramFolder;
}

}  // namespace velda
