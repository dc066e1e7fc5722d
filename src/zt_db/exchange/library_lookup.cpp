#include "zt_db/exchange/library_lookup.h"

#include <cmath>

#include "zt_db/library/library.h"
#include "zt_db/library/sect_shape.h"
#include "zt_db/library/sect_util.h"
#include "zt_db/library/steel_data_tool.h"

namespace zt {
namespace {

constexpr int kRegular = 1;
constexpr double kMillimetre = 1e-3;
/// How far the area of a file may be from that of the library for the same profile.
constexpr double kSameArea = 0.03;

/// Profiles are written with blanks and in letters of any size.
const LibrarySection* FindProfile(const std::string& name) {
    const std::string wanted = FoldedForSearch(name);
    for (const LibrarySection& section : Library::Current()->Rows<LibrarySection>()) {
        if (FoldedForSearch(section.name) == wanted) return &section;
    }
    return nullptr;
}

bool TakeProfile(T_SECT_D& section) {
    const auto library = Library::Current();
    const LibrarySection* profile = FindProfile(section.base.sectName);
    if (!profile) return false;
    const double area = profile->area * kMillimetre * kMillimetre;
    const double given = section.stiffness.area;
    if (given > 0.0 && std::abs(given - area) > kSameArea * area) return false;
    section.kind = kRegular;
    section.type = kRegular;
    const RegularShape* shape = FindRegularShape(profile->shape);
    section.shape = shape ? shape->name : profile->shape;
    section.base.dbName = profile->standard;
    section.base.sectName = profile->name;
    for (std::size_t at = 0; at < section.base.size.size(); ++at) {
        section.base.size[at] = profile->size[at] * kMillimetre;
    }
    return true;
}

}  // namespace

bool CompleteFromLibrary(T_SECT_D& section) {
    const bool isProfile = !section.base.sectName.empty() && TakeProfile(section);
    if (!isProfile && section.kind != kRegular) return false;
    const T_SECT_STIFFNESS computed = CSectUtil::GetProperStiffPosition(section, 0);
    if (computed.area <= 0.0) return false;
    // What the file gives stands above what follows from the sizes.
    if (section.stiffness.area == 0.0) section.stiffness = computed;
    if (section.stiffness.asy == 0.0) section.stiffness.asy = computed.asy;
    if (section.stiffness.asz == 0.0) section.stiffness.asz = computed.asz;
    const T_SECT_DESIGN design = CSectUtil::GetProperDesignPosition(section, 0);
    if (section.design.wey == 0.0) section.design = design;
    if (section.perimeterOut == 0.0) section.perimeterOut = CSectUtil::GetStandForPeriOut(section);
    if (section.perimeterIn == 0.0) section.perimeterIn = CSectUtil::GetStandForPeriIn(section);
    return true;
}

}  // namespace zt
