#include "zt_db/records/stor.h"

namespace zt {
namespace {

/// A story that stands in no module is in none with key 0 either.
bool StandsIn(const T_STOR_D& story, std::uint32_t moduleKey) { return moduleKey != 0 && story.mdul == moduleKey; }

}  // namespace

ZT_DEFINE_RECORD(MDUL)
ZT_DEFINE_RECORD(STOR)

std::uint32_t CClassMdul::GetKey(std::string_view name) const { return KeyOfName(name); }

std::uint32_t CClassStor::GetKey(std::string_view name, std::uint32_t moduleKey) const {
    return KeyOfName(name, [moduleKey](const T_STOR_D& story) { return StandsIn(story, moduleKey); });
}

int CClassStor::GetKeyListReverse(std::vector<std::uint32_t>& keys, std::uint32_t moduleKey) const {
    keys = KeysWhere([moduleKey](const T_STOR_D& story) { return StandsIn(story, moduleKey); });
    std::stable_sort(keys.begin(), keys.end(),
                     [this](std::uint32_t a, std::uint32_t b) { return Stored(a)->level < Stored(b)->level; });
    std::reverse(keys.begin(), keys.end());
    return keys.empty() ? 0 : 1;
}

int CClassStor::GetStorTopLevel(std::uint32_t storyKey, double& level) const {
    T_STOR_D story;
    if (!Get(storyKey, story)) return 0;
    level = story.level;
    return 1;
}

}  // namespace zt
