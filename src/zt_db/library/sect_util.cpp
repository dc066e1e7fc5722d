#include "zt_db/library/sect_util.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "zt_db/library/plane_integrals.h"
#include "zt_db/library/sect_shape.h"
#include "zt_db/library/section_geometry.h"

namespace zt {
namespace {

std::optional<SectionGeometry> GeometryOf(const T_SECT_D& section) {
    switch (CSectUtil::GetSectTypeNo(section)) {
        case kSectDatabase:
        case kSectUser:
        case kSectTapered: return RegularGeometry(section.shape, section.base.size);
        case kSectComposite: return CompositeGeometry(section.shape, section.base.size);
        case kSectCombined: return CombinedGeometry(section.shape, section.base.size);
        default: return {};
    }
}

/// The greatest distance of a fibre from the centroid.
double Farthest(double low, double high, double centroid) { return std::max(high - centroid, centroid - low); }

template <class Names>
int IndexOf(const Names& names, std::string_view name) {
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

}  // namespace

int CSectUtil::GetSectTypeNo(const T_SECT_D& section) {
    switch (section.kind) {
        case 1: return section.base.dbName.empty() ? kSectUser : kSectDatabase;
        case 2: return kSectComposite;
        case 3: return kSectValue;
        case 4: return kSectCombined;
        case 5: return kSectTapered;
        default: return kSectNone;
    }
}

void CSectUtil::GetRegShapeNameList(std::vector<std::string>& names) {
    names.clear();
    for (const RegularShape& shape : RegularShapes()) names.emplace_back(shape.code);
}

void CSectUtil::GetSrcShapeNameList(std::vector<std::string>& names) {
    names.assign(CompositeShapeNames().begin(), CompositeShapeNames().end());
}

void CSectUtil::GetComShapeNameList(std::vector<std::string>& names) {
    names.assign(CombinedShapeNames().begin(), CombinedShapeNames().end());
}

int CSectUtil::GetShapeIndexFromNameReg(std::string_view shape) {
    const RegularShape* found = FindRegularShape(shape);
    return found ? static_cast<int>(found - RegularShapes().data()) : -1;
}

int CSectUtil::GetShapeIndexFromNameSrc(std::string_view shape) { return IndexOf(CompositeShapeNames(), shape); }
int CSectUtil::GetShapeIndexFromNameCom(std::string_view shape) { return IndexOf(CombinedShapeNames(), shape); }

T_SECT_STIFFNESS CSectUtil::GetProperStiffPosition(const T_SECT_D& section, int) {
    const auto geometry = GeometryOf(section);
    if (!geometry) return {};
    const PlaneMoments moments = MomentsOf(geometry->parts);
    return {moments.area,
            ShearArea(geometry->parts, BendingAxis::Z),
            ShearArea(geometry->parts, BendingAxis::Y),
            geometry->torsion,
            moments.iyy,
            moments.izz};
}

T_SECT_DESIGN CSectUtil::GetProperDesignPosition(const T_SECT_D& section, int) {
    const auto geometry = GeometryOf(section);
    if (!geometry) return {};
    const PlaneMoments moments = MomentsOf(geometry->parts);
    const SectionBounds bounds = BoundsOf(geometry->parts);
    T_SECT_DESIGN design;
    if (!geometry->walls.empty()) {
        const WarpingValues warping = WarpingOf(geometry->walls);
        design.ey = warping.shearCentre.y - moments.centroid.y;
        design.ez = warping.shearCentre.z - moments.centroid.z;
        design.cw = warping.cw;
    }
    design.wey = moments.iyy / Farthest(bounds.bottom, bounds.top, moments.centroid.z);
    design.wez = moments.izz / Farthest(bounds.left, bounds.right, moments.centroid.y);
    design.wpy = PlasticModulus(geometry->parts, BendingAxis::Y);
    design.wpz = PlasticModulus(geometry->parts, BendingAxis::Z);
    design.ry = std::sqrt(moments.iyy / moments.area);
    design.rz = std::sqrt(moments.izz / moments.area);
    design.j = geometry->torsion;
    design.rp = std::hypot(design.ry, design.rz);
    return design;
}

double CSectUtil::GetStandForPeriOut(const T_SECT_D& section) {
    const auto geometry = GeometryOf(section);
    return geometry ? PerimeterOf(geometry->parts, OutlineSide::Outer) : 0.0;
}

double CSectUtil::GetStandForPeriIn(const T_SECT_D& section) {
    const auto geometry = GeometryOf(section);
    return geometry ? PerimeterOf(geometry->parts, OutlineSide::Inner) : 0.0;
}

double CSectUtil::GetStandForYBar(const T_SECT_D& section) {
    const auto geometry = GeometryOf(section);
    return geometry ? MomentsOf(geometry->parts).centroid.y - BoundsOf(geometry->parts).left : 0.0;
}

double CSectUtil::GetStandForZBar(const T_SECT_D& section) {
    const auto geometry = GeometryOf(section);
    return geometry ? MomentsOf(geometry->parts).centroid.z - BoundsOf(geometry->parts).bottom : 0.0;
}

}  // namespace zt
