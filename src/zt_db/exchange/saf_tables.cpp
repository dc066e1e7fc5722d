#include "zt_db/exchange/saf_tables.h"

namespace zt::saf {
namespace {

constexpr FixedValue kZero{"0", true};

/// Columns that identify or paint a row; nothing is said of them, and they are not written.
template <class T>
constexpr Column<T> Silent(std::string_view name) {
    return {{name, Need::Silent}, FixedValue{}};
}

constexpr Column<ExchangeMaterial> kMaterialColumns[] = {
    {{"Name", Need::Required}, &ExchangeMaterial::name},
    {{"Type"}, &ExchangeMaterial::kind},
    {{"Subtype"}, &ExchangeMaterial::subtype},
    {{"Quality"}, &ExchangeMaterial::quality},
    {{"Unit mass", Need::Optional, "kg/m3"}, &ExchangeMaterial::density},
    {{"E modulus", Need::Optional, "MPa"}, &ExchangeMaterial::elasticity},
    {{"G modulus", Need::Optional, "MPa"}, &ExchangeMaterial::shearModulus},
    {{"Poisson Coefficient"}, &ExchangeMaterial::poisson},
    {{"Thermal expansion", Need::Optional, "1/K"}, &ExchangeMaterial::thermal},
    {{"Design properties"}, &ExchangeMaterial::note},
    Silent<ExchangeMaterial>("Id"),
};

constexpr Column<ExchangeSection> kSectionColumns[] = {
    {{"Name", Need::Required}, &ExchangeSection::name},
    {{"Material", Need::Required}, &ExchangeSection::material},
    {{"Cross-section type", Need::Present}, &ExchangeSection::kind},
    {{"Shape"}, &ExchangeSection::shape},
    {{"Parameters", Need::Optional, "mm"}, &ExchangeSection::sizes},
    {{"Profile"}, &ExchangeSection::profile},
    {{"Form code"}, &ExchangeSection::formCode},
    Silent<ExchangeSection>("Description ID of the profile"),
    {{"A", Need::Optional, "m2"}, &ExchangeSection::area},
    {{"Iy", Need::Optional, "m4"}, &ExchangeSection::inertiaY},
    {{"Iz", Need::Optional, "m4"}, &ExchangeSection::inertiaZ},
    {{"It", Need::Optional, "m4"}, &ExchangeSection::torsion},
    {{"Iw", Need::Optional, "m6"}, &ExchangeSection::warping},
    {{"Wply", Need::Optional, "m3"}, &ExchangeSection::plasticY},
    {{"Wplz", Need::Optional, "m3"}, &ExchangeSection::plasticZ},
    Silent<ExchangeSection>("Id"),
};

constexpr Column<ExchangeStorey> kStoreyColumns[] = {
    {{"Name", Need::Required}, &ExchangeStorey::name},
    {{"Height level", Need::Required, "m"}, &ExchangeStorey::level},
    Silent<ExchangeStorey>("Id"),
};

constexpr Column<ExchangeNode> kNodeColumns[] = {
    {{"Name", Need::Required}, &ExchangeNode::name},
    {{"Coordinate X", Need::Required, "m"}, &ExchangeNode::x},
    {{"Coordinate Y", Need::Required, "m"}, &ExchangeNode::y},
    {{"Coordinate Z", Need::Required, "m"}, &ExchangeNode::z},
    Silent<ExchangeNode>("Id"),
};

constexpr Column<ExchangeMember> kMemberColumns[] = {
    {{"Name", Need::Required}, &ExchangeMember::name},
    {{"Type"}, &ExchangeMember::kind},
    {{"Cross section", Need::Required}, &ExchangeMember::section},
    {{"Arbitrary definition"}, FixedValue{}},
    {{"Nodes", Need::Required}, &ExchangeMember::nodes},
    {{"Segments"}, &ExchangeMember::segments},
    Silent<ExchangeMember>("Begin node"),
    Silent<ExchangeMember>("End node"),
    {{"Internal nodes"}, &ExchangeMember::innerNodes},
    {{"Length", Need::Optional, "m"}, &ExchangeMember::length},
    Silent<ExchangeMember>("Geometrical shape"),
    {{"LCS"}, &ExchangeMember::axes},
    {{"LCS Rotation", Need::Optional, "deg"}, &ExchangeMember::rotation},
    {{"Coordinate X", Need::Optional, "m"}, &ExchangeMember::axisX},
    {{"Coordinate Y", Need::Optional, "m"}, &ExchangeMember::axisY},
    {{"Coordinate Z", Need::Optional, "m"}, &ExchangeMember::axisZ},
    {{"System line"}, FixedValue{"Centre"}},
    Silent<ExchangeMember>("Structural Y Eccentricity of Beg Node"),
    Silent<ExchangeMember>("Structural Z Eccentricity of Beg Node"),
    Silent<ExchangeMember>("Structural Y Eccentricity of End Node"),
    Silent<ExchangeMember>("Structural Z Eccentricity of End Node"),
    {{"Analysis Y Eccentricity of Beg Node", Need::Optional, "mm"}, kZero},
    {{"Analysis Z Eccentricity of Beg Node", Need::Optional, "mm"}, kZero},
    {{"Analysis Y Eccentricity of End Node", Need::Optional, "mm"}, kZero},
    {{"Analysis Z Eccentricity of End Node", Need::Optional, "mm"}, kZero},
    {{"Layer"}, &ExchangeMember::layer},
    {{"Behaviour in analysis", Need::Optional, {}, "Behavior in analysis"}, &ExchangeMember::behaviour},
    Silent<ExchangeMember>("Color"),
    Silent<ExchangeMember>("Parent ID"),
    Silent<ExchangeMember>("Id"),
};

constexpr Column<ExchangeSurface> kSurfaceColumns[] = {
    {{"Name", Need::Required}, &ExchangeSurface::name},
    {{"Type"}, &ExchangeSurface::kind},
    {{"Material", Need::Required}, &ExchangeSurface::material},
    {{"Thickness type"}, &ExchangeSurface::thicknessKind},
    {{"Thickness", Need::Required, "mm"}, MeasuredText<ExchangeSurface>{&ExchangeSurface::thicknessText}},
    {{"System plane at"}, FixedValue{"Centre"}},
    {{"Nodes", Need::Required}, &ExchangeSurface::nodes},
    Silent<ExchangeSurface>("Internal nodes"),
    {{"Edges"}, &ExchangeSurface::edges},
    {{"Area", Need::Optional, "m2"}, &ExchangeSurface::area},
    Silent<ExchangeSurface>("Layer"),
    {{"LCS Type", Need::Quiet}, FixedValue{"x by vector"}},
    {{"Coordinate X", Need::Quiet, "m"}, FixedValue{"1", true}},
    {{"Coordinate Y", Need::Quiet, "m"}, kZero},
    {{"Coordinate Z", Need::Quiet, "m"}, kZero},
    {{"LCS Rotation", Need::Quiet, "deg"}, kZero},
    Silent<ExchangeSurface>("Structural Z Eccentricity"),
    {{"Analysis Z Eccentricity", Need::Optional, "mm"}, kZero},
    Silent<ExchangeSurface>("Shape"),
    {{"Behavior in analysis", Need::Optional, {}, "Behaviour in analysis"}, FixedValue{"Isotropic"}},
    Silent<ExchangeSurface>("Color"),
    Silent<ExchangeSurface>("Parent ID"),
    Silent<ExchangeSurface>("Id"),
};

constexpr Column<ExchangeOpening> kOpeningColumns[] = {
    {{"Name", Need::Required}, &ExchangeOpening::name},
    {{"2D Member", Need::Present}, &ExchangeOpening::surface},
    {{"Nodes", Need::Required}, &ExchangeOpening::nodes},
    {{"Edges"}, &ExchangeOpening::edges},
    {{"Area", Need::Optional, "m2"}, &ExchangeOpening::area},
    Silent<ExchangeOpening>("Parent ID"),
    Silent<ExchangeOpening>("Id"),
};

template <class T>
constexpr Column<T> Kind(std::string_view name, std::size_t index) {
    return {{name, Need::Present}, FreedomKindOf<T>{&T::freedoms, index}};
}
template <class T>
constexpr Column<T> Stiffness(std::string_view name, std::size_t index) {
    const std::string_view unit = index < 3 ? "MN/m" : "MNm/rad";
    return {{name, Need::Optional, unit}, FreedomNumberOf<T>{&T::freedoms, index, &ExchangeFreedom::stiffness}};
}
template <class T>
constexpr Column<T> Resistance(std::string_view name, std::size_t index) {
    const std::string_view unit = index < 3 ? "MN" : "MNm";
    return {{name, Need::Optional, unit}, FreedomNumberOf<T>{&T::freedoms, index, &ExchangeFreedom::resistance}};
}

constexpr Column<ExchangeSupport> kSupportColumns[] = {
    {{"Name", Need::Required}, &ExchangeSupport::name},
    Silent<ExchangeSupport>("Type"),
    {{"Boundary condition"}, &ExchangeSupport::boundary},
    {{"Node"}, &ExchangeSupport::node},
    {{"Member"}, &ExchangeSupport::member},
    {{"Coordinate system"}, &ExchangeSupport::axes},
    Silent<ExchangeSupport>("Origin"),
    Silent<ExchangeSupport>("Coordinate definition"),
    Silent<ExchangeSupport>("Position x"),
    Kind<ExchangeSupport>("ux", 0),
    Kind<ExchangeSupport>("uy", 1),
    Kind<ExchangeSupport>("uz", 2),
    Kind<ExchangeSupport>("fix", 3),
    Kind<ExchangeSupport>("fiy", 4),
    Kind<ExchangeSupport>("fiz", 5),
    Stiffness<ExchangeSupport>("Stiffness X", 0),
    Stiffness<ExchangeSupport>("Stiffness Y", 1),
    Stiffness<ExchangeSupport>("Stiffness Z", 2),
    Stiffness<ExchangeSupport>("Stiffness Fix", 3),
    Stiffness<ExchangeSupport>("Stiffness Fiy", 4),
    Stiffness<ExchangeSupport>("Stiffness Fiz", 5),
    Silent<ExchangeSupport>("Id"),
};

constexpr Column<ExchangeHinge> kHingeColumns[] = {
    {{"Name", Need::Required}, &ExchangeHinge::name},
    {{"Member", Need::Required}, &ExchangeHinge::member},
    {{"Position", Need::Required}, &ExchangeHinge::position},
    Kind<ExchangeHinge>("ux", 0),
    Kind<ExchangeHinge>("uy", 1),
    Kind<ExchangeHinge>("uz", 2),
    Kind<ExchangeHinge>("fix", 3),
    Kind<ExchangeHinge>("fiy", 4),
    Kind<ExchangeHinge>("fiz", 5),
    Stiffness<ExchangeHinge>("Stiffness X", 0),
    Stiffness<ExchangeHinge>("Stiffness Y", 1),
    Stiffness<ExchangeHinge>("Stiffness Z", 2),
    Stiffness<ExchangeHinge>("Stiffness Fix", 3),
    Stiffness<ExchangeHinge>("Stiffness Fiy", 4),
    Stiffness<ExchangeHinge>("Stiffness Fiz", 5),
    Silent<ExchangeHinge>("Parent ID"),
    Silent<ExchangeHinge>("Id"),
};

constexpr Column<ExchangeRigidLink> kRigidLinkColumns[] = {
    {{"Name", Need::Required}, &ExchangeRigidLink::name},
    {{"Nodes", Need::Required}, &ExchangeRigidLink::nodes},
    {{"Hinge position", Need::Optional}, &ExchangeRigidLink::hinges},
    Kind<ExchangeRigidLink>("ux", 0),
    Kind<ExchangeRigidLink>("uy", 1),
    Kind<ExchangeRigidLink>("uz", 2),
    Kind<ExchangeRigidLink>("fix", 3),
    Kind<ExchangeRigidLink>("fiy", 4),
    Kind<ExchangeRigidLink>("fiz", 5),
    Stiffness<ExchangeRigidLink>("Stiffness X", 0),
    Resistance<ExchangeRigidLink>("Resistance X", 0),
    Stiffness<ExchangeRigidLink>("Stiffness Y", 1),
    Resistance<ExchangeRigidLink>("Resistance Y", 1),
    Stiffness<ExchangeRigidLink>("Stiffness Z", 2),
    Resistance<ExchangeRigidLink>("Resistance Z", 2),
    Stiffness<ExchangeRigidLink>("Stiffness Fix", 3),
    Resistance<ExchangeRigidLink>("Resistance Fix", 3),
    Stiffness<ExchangeRigidLink>("Stiffness Fiy", 4),
    Resistance<ExchangeRigidLink>("Resistance Fiy", 4),
    Stiffness<ExchangeRigidLink>("Stiffness Fiz", 5),
    Resistance<ExchangeRigidLink>("Resistance Fiz", 5),
    Silent<ExchangeRigidLink>("Id"),
};

constexpr Column<ExchangeLoadGroup> kLoadGroupColumns[] = {
    {{"Name", Need::Required}, &ExchangeLoadGroup::name},
    {{"Load group type"}, &ExchangeLoadGroup::kind},
    {{"Relation"}, &ExchangeLoadGroup::relation},
    {{"Load type"}, &ExchangeLoadGroup::loadType},
    Silent<ExchangeLoadGroup>("Id"),
};

constexpr Column<ExchangeLoadCase> kLoadCaseColumns[] = {
    {{"Name", Need::Required}, &ExchangeLoadCase::name},
    {{"Description"}, &ExchangeLoadCase::description},
    {{"Action type", Need::Present}, &ExchangeLoadCase::action},
    {{"Load group"}, &ExchangeLoadCase::group},
    {{"Load type"}, &ExchangeLoadCase::loadType},
    {{"Duration"}, &ExchangeLoadCase::duration},
    Silent<ExchangeLoadCase>("Id"),
};

constexpr Column<ExchangeCombination> kCombinationColumns[] = {
    {{"Name", Need::Required}, &ExchangeCombination::name},
    {{"Description"}, &ExchangeCombination::description},
    {{"Category"}, &ExchangeCombination::category},
    {{"National standard"}, &ExchangeCombination::standard},
    {{"Type"}, &ExchangeCombination::kind},
    {{"Load factor #"}, RepeatedNumbers<ExchangeCombination>{&ExchangeCombination::factors}},
    {{"Multiplier #"}, RepeatedNumbers<ExchangeCombination>{&ExchangeCombination::multipliers}},
    {{"Load case name #"}, RepeatedTexts<ExchangeCombination>{&ExchangeCombination::cases}},
    Silent<ExchangeCombination>("Id"),
};

constexpr Column<ExchangePointLoad> PointValue(std::string_view unit) {
    return {{"Value", Need::Present, unit}, &ExchangePointLoad::value};
}

constexpr Column<ExchangePointLoad> kPointForceColumns[] = {
    {{"Name", Need::Required}, &ExchangePointLoad::name},
    {{"Type", Need::Quiet}, FixedValue{"Standard"}},
    {{"Direction", Need::Required}, &ExchangePointLoad::direction},
    {{"Force action", Need::Present}, &ExchangePointLoad::target},
    {{"Reference node"}, &ExchangePointLoad::node},
    {{"Reference member"}, &ExchangePointLoad::member},
    PointValue("kN"),
    {{"Vector (X;Y;Z)", Need::Optional, "kN"}, &ExchangePointLoad::vector},
    {{"Load case", Need::Required}, &ExchangePointLoad::loadCase},
    {{"Coordinate system"}, &ExchangePointLoad::axes},
    {{"Origin"}, &ExchangePointLoad::from},
    {{"Coordinate definition"}, &ExchangePointLoad::measure},
    {{"Position x", Need::Optional, "m"}, &ExchangePointLoad::position},
    {{"Repeat (n)"}, &ExchangePointLoad::repeat},
    {{"Delta x", Need::Optional, "m"}, &ExchangePointLoad::spacing},
    Silent<ExchangePointLoad>("Id"),
};

constexpr Column<ExchangePointLoad> kPointMomentColumns[] = {
    {{"Name", Need::Required}, &ExchangePointLoad::name},
    {{"Type", Need::Quiet}, FixedValue{"Standard"}},
    {{"Direction", Need::Required}, &ExchangePointLoad::direction},
    {{"Force action", Need::Present}, &ExchangePointLoad::target},
    {{"Reference node"}, &ExchangePointLoad::node},
    {{"Reference member"}, &ExchangePointLoad::member},
    PointValue("kNm"),
    {{"Load case", Need::Required}, &ExchangePointLoad::loadCase},
    {{"Coordinate system"}, &ExchangePointLoad::axes},
    {{"Origin"}, &ExchangePointLoad::from},
    {{"Coordinate definition"}, &ExchangePointLoad::measure},
    {{"Position x", Need::Optional, "m"}, &ExchangePointLoad::position},
    {{"Repeat (n)"}, &ExchangePointLoad::repeat},
    {{"Delta x", Need::Optional, "m"}, &ExchangePointLoad::spacing},
    Silent<ExchangePointLoad>("Id"),
};

constexpr Column<ExchangeLineLoad> LineValue(std::string_view name, MaybeNumber ExchangeLineLoad::*member,
                                             std::string_view unit) {
    return {{name, Need::Optional, unit}, member};
}

constexpr Column<ExchangeLineLoad> kLineForceColumns[] = {
    {{"Name", Need::Required}, &ExchangeLineLoad::name},
    {{"Type", Need::Quiet}, FixedValue{"Standard"}},
    {{"Force action", Need::Present}, &ExchangeLineLoad::target},
    {{"Distribution"}, &ExchangeLineLoad::distribution},
    {{"Direction", Need::Required}, &ExchangeLineLoad::direction},
    LineValue("Value 1", &ExchangeLineLoad::first, "kN/m"),
    LineValue("Value 2", &ExchangeLineLoad::second, "kN/m"),
    {{"Vector 1(X;Y;Z)", Need::Optional, "kN/m"}, &ExchangeLineLoad::firstVector},
    {{"Vector 2(X;Y;Z)", Need::Optional, "kN/m"}, &ExchangeLineLoad::secondVector},
    {{"Member"}, &ExchangeLineLoad::member},
    {{"Member Rib"}, FixedValue{}},
    {{"2D Member"}, &ExchangeLineLoad::surface},
    {{"2D Member Region"}, FixedValue{}},
    {{"2D Member Opening"}, FixedValue{}},
    {{"Edge"}, &ExchangeLineLoad::edge},
    {{"Internal edge"}, FixedValue{}},
    {{"Load case", Need::Required}, &ExchangeLineLoad::loadCase},
    {{"Coordinate system"}, &ExchangeLineLoad::axes},
    {{"Location"}, &ExchangeLineLoad::location},
    {{"Coordinate definition"}, &ExchangeLineLoad::measure},
    {{"Origin"}, &ExchangeLineLoad::from},
    {{"Extent"}, &ExchangeLineLoad::extent},
    {{"Start point", Need::Optional, "m"}, &ExchangeLineLoad::start},
    {{"End point", Need::Optional, "m"}, &ExchangeLineLoad::end},
    {{"Eccentricity ey", Need::Optional, "mm"}, kZero},
    {{"Eccentricity ez", Need::Optional, "mm"}, kZero},
    Silent<ExchangeLineLoad>("Parent ID"),
    Silent<ExchangeLineLoad>("Id"),
};

constexpr Column<ExchangeLineLoad> kLineMomentColumns[] = {
    {{"Name", Need::Required}, &ExchangeLineLoad::name},
    {{"Type", Need::Quiet}, FixedValue{"Standard"}},
    {{"Force action", Need::Present}, &ExchangeLineLoad::target},
    {{"Distribution"}, &ExchangeLineLoad::distribution},
    {{"Direction", Need::Required}, &ExchangeLineLoad::direction},
    LineValue("Value 1", &ExchangeLineLoad::first, "kNm/m"),
    LineValue("Value 2", &ExchangeLineLoad::second, "kNm/m"),
    {{"Member"}, &ExchangeLineLoad::member},
    {{"Member Rib"}, FixedValue{}},
    {{"2D Member"}, &ExchangeLineLoad::surface},
    {{"2D Member Region"}, FixedValue{}},
    {{"2D Member Opening"}, FixedValue{}},
    {{"Edge"}, &ExchangeLineLoad::edge},
    {{"Internal edge"}, FixedValue{}},
    {{"Load case", Need::Required}, &ExchangeLineLoad::loadCase},
    {{"Coordinate system"}, &ExchangeLineLoad::axes},
    {{"Location"}, &ExchangeLineLoad::location},
    {{"Coordinate definition"}, &ExchangeLineLoad::measure},
    {{"Origin"}, &ExchangeLineLoad::from},
    {{"Extent"}, &ExchangeLineLoad::extent},
    {{"Start point", Need::Optional, "m"}, &ExchangeLineLoad::start},
    {{"End point", Need::Optional, "m"}, &ExchangeLineLoad::end},
    Silent<ExchangeLineLoad>("Parent ID"),
    Silent<ExchangeLineLoad>("Id"),
};

constexpr Column<ExchangeSurfaceLoad> kSurfaceLoadColumns[] = {
    {{"Name", Need::Required}, &ExchangeSurfaceLoad::name},
    {{"Direction", Need::Required}, &ExchangeSurfaceLoad::direction},
    {{"Type", Need::Quiet}, FixedValue{"Standard"}},
    {{"Force action", Need::Present}, &ExchangeSurfaceLoad::target},
    {{"Value", Need::Required, "kN/m2"}, &ExchangeSurfaceLoad::value},
    {{"2D Member"}, &ExchangeSurfaceLoad::surface},
    {{"2D Member Region"}, FixedValue{}},
    {{"2D Member Distribution"}, FixedValue{}},
    {{"Load case", Need::Required}, &ExchangeSurfaceLoad::loadCase},
    {{"Coordinate system"}, &ExchangeSurfaceLoad::axes},
    {{"Location"}, &ExchangeSurfaceLoad::location},
    Silent<ExchangeSurfaceLoad>("Parent ID"),
    Silent<ExchangeSurfaceLoad>("Id"),
};

}  // namespace

const ExchangeTable<ExchangeMaterial> kMaterials{"StructuralMaterial", "", &ExchangeModel::materials, kMaterialColumns};
const ExchangeTable<ExchangeSection> kSections{"StructuralCrossSection", "", &ExchangeModel::sections, kSectionColumns};
const ExchangeTable<ExchangeStorey> kStoreys{"StructuralStorey", "StructuralStory", &ExchangeModel::storeys,
                                             kStoreyColumns};
const ExchangeTable<ExchangeNode> kNodes{"StructuralPointConnection", "", &ExchangeModel::nodes, kNodeColumns};
const ExchangeTable<ExchangeMember> kMembers{"StructuralCurveMember", "", &ExchangeModel::members, kMemberColumns};
const ExchangeTable<ExchangeSurface> kSurfaces{"StructuralSurfaceMember", "", &ExchangeModel::surfaces,
                                               kSurfaceColumns};
const ExchangeTable<ExchangeOpening> kOpenings{"StructuralSurfaceMemberOpening", "StructuralSurfaceMemberOpenin",
                                               &ExchangeModel::openings, kOpeningColumns};
const ExchangeTable<ExchangeSupport> kSupports{"StructuralPointSupport", "", &ExchangeModel::supports, kSupportColumns};
const ExchangeTable<ExchangeHinge> kHinges{"RelConnectsStructuralMember", "", &ExchangeModel::hinges, kHingeColumns};
const ExchangeTable<ExchangeRigidLink> kRigidLinks{"RelConnectsRigidLink", "", &ExchangeModel::rigidLinks,
                                                   kRigidLinkColumns};
const ExchangeTable<ExchangeLoadGroup> kLoadGroups{"StructuralLoadGroup", "", &ExchangeModel::loadGroups,
                                                   kLoadGroupColumns};
const ExchangeTable<ExchangeLoadCase> kLoadCases{"StructuralLoadCase", "", &ExchangeModel::loadCases, kLoadCaseColumns};
const ExchangeTable<ExchangeCombination> kCombinations{"StructuralLoadCombination", "", &ExchangeModel::combinations,
                                                       kCombinationColumns};
const ExchangeTable<ExchangePointLoad> kPointForces{"StructuralPointAction", "", &ExchangeModel::pointForces,
                                                    kPointForceColumns};
const ExchangeTable<ExchangePointLoad> kPointMoments{"StructuralPointMoment", "", &ExchangeModel::pointMoments,
                                                     kPointMomentColumns};
const ExchangeTable<ExchangeLineLoad> kLineForces{"StructuralCurveAction", "", &ExchangeModel::lineForces,
                                                  kLineForceColumns};
const ExchangeTable<ExchangeLineLoad> kLineMoments{"StructuralCurveMoment", "", &ExchangeModel::lineMoments,
                                                   kLineMomentColumns};
const ExchangeTable<ExchangeSurfaceLoad> kSurfaceLoads{"StructuralSurfaceAction", "", &ExchangeModel::surfaceLoads,
                                                       kSurfaceLoadColumns};

}  // namespace zt::saf
