#include "zt_db/exchange/csv_tables.h"

namespace zt::csv {
namespace {

constexpr Column<ExchangeMaterial> kMaterialColumns[] = {
    {{"material", Need::Required, {}, "name"}, &ExchangeMaterial::name},
    {{"type"}, &ExchangeMaterial::kind},
    {{"E", Need::Optional, "MPa"}, &ExchangeMaterial::elasticity},
    {{"G", Need::Optional, "MPa"}, &ExchangeMaterial::shearModulus},
    {{"poisson"}, &ExchangeMaterial::poisson},
    {{"density", Need::Optional, "kg/m3"}, &ExchangeMaterial::density},
    {{"thermal", Need::Optional, "1/K"}, &ExchangeMaterial::thermal},
    {{"strength", Need::Optional, "MPa"}, &ExchangeMaterial::strength},
    {{"grade"}, &ExchangeMaterial::quality},
    {{"note"}, &ExchangeMaterial::note},
};

constexpr Column<ExchangeSection> kSectionColumns[] = {
    {{"section", Need::Required, {}, "name"}, &ExchangeSection::name},
    {{"kind"}, &ExchangeSection::kind},
    {{"shape"}, &ExchangeSection::shape},
    {{"sizes", Need::Optional, "m"}, &ExchangeSection::sizes},
    {{"profile"}, &ExchangeSection::profile},
    {{"form_code"}, &ExchangeSection::formCode},
    {{"material"}, &ExchangeSection::material},
    {{"A", Need::Optional, "m2", "Ax"}, &ExchangeSection::area},
    {{"shear_area_y", Need::Optional, "m2"}, &ExchangeSection::shearAreaY},
    {{"shear_area_z", Need::Optional, "m2"}, &ExchangeSection::shearAreaZ},
    {{"Iy", Need::Optional, "m4"}, &ExchangeSection::inertiaY},
    {{"Iz", Need::Optional, "m4"}, &ExchangeSection::inertiaZ},
    {{"J", Need::Optional, "m4"}, &ExchangeSection::torsion},
    {{"Cw", Need::Optional, "m6"}, &ExchangeSection::warping},
    {{"Wpy", Need::Optional, "m3"}, &ExchangeSection::plasticY},
    {{"Wpz", Need::Optional, "m3"}, &ExchangeSection::plasticZ},
    {{"depth", Need::Optional, "m", "d"}, &ExchangeSection::depth},
    {{"width", Need::Optional, "m", "bf"}, &ExchangeSection::width},
    {{"flange", Need::Optional, "m", "tf"}, &ExchangeSection::flangeThickness},
    {{"web", Need::Optional, "m", "tw"}, &ExchangeSection::webThickness},
};

constexpr Column<ExchangeStorey> kStoreyColumns[] = {
    {{"storey", Need::Required, {}, "story|name"}, &ExchangeStorey::name},
    {{"elevation", Need::Required, "m", "level"}, &ExchangeStorey::level},
    {{"height", Need::Optional, "m"}, &ExchangeStorey::height},
    {{"module", Need::Optional}, &ExchangeStorey::module},
};

constexpr Column<ExchangeNode> kNodeColumns[] = {
    {{"node", Need::Required, {}, "name"}, &ExchangeNode::name},
    {{"x", Need::Required, "m"}, &ExchangeNode::x},
    {{"y", Need::Required, "m"}, &ExchangeNode::y},
    {{"z", Need::Required, "m"}, &ExchangeNode::z},
    {{"storey", Need::Optional, {}, "story"}, &ExchangeNode::storey},
};

constexpr Column<ExchangeMember> kMemberColumns[] = {
    {{"member", Need::Required, {}, "name"}, &ExchangeMember::name},
    {{"node_i", Need::Required}, &ExchangeMember::firstNode},
    {{"node_j", Need::Required}, &ExchangeMember::lastNode},
    {{"intermediate_nodes"}, &ExchangeMember::innerNodes},
    {{"kind", Need::Optional, {}, "type"}, &ExchangeMember::kind},
    {{"section"}, &ExchangeMember::section},
    {{"material"}, &ExchangeMember::material},
    {{"zaxis_x", Need::Optional, {}, "axis_x"}, &ExchangeMember::axisX},
    {{"zaxis_y", Need::Optional, {}, "axis_y"}, &ExchangeMember::axisY},
    {{"zaxis_z", Need::Optional, {}, "axis_z"}, &ExchangeMember::axisZ},
    {{"roll", Need::Optional, "deg"}, &ExchangeMember::rotation},
    {{"release_i"}, &ExchangeMember::startRelease},
    {{"release_j"}, &ExchangeMember::endRelease},
    {{"behaviour"}, &ExchangeMember::behaviour},
    {{"storey", Need::Optional, {}, "story"}, &ExchangeMember::storey},
    {{"A", Need::Silent, "m2", "Ax"}, &ExchangeMember::area},
    {{"shear_area_y", Need::Silent, "m2"}, &ExchangeMember::shearAreaY},
    {{"shear_area_z", Need::Silent, "m2"}, &ExchangeMember::shearAreaZ},
    {{"J", Need::Silent, "m4"}, &ExchangeMember::torsion},
    {{"Iy", Need::Silent, "m4"}, &ExchangeMember::inertiaY},
    {{"Iz", Need::Silent, "m4"}, &ExchangeMember::inertiaZ},
    {{"E", Need::Silent, "MPa"}, &ExchangeMember::elasticity},
    {{"G", Need::Silent, "MPa"}, &ExchangeMember::shearModulus},
    {{"mass_density", Need::Silent, "kg/m3"}, &ExchangeMember::density},
    {{"rigid_end_i", Need::Optional, "m"}, FixedValue{"0", true}},
    {{"rigid_end_j", Need::Optional, "m"}, FixedValue{"0", true}},
};

constexpr Column<ExchangeSurface> kSurfaceColumns[] = {
    {{"surface", Need::Required, {}, "name"}, &ExchangeSurface::name},
    {{"kind", Need::Optional, {}, "type"}, &ExchangeSurface::kind},
    {{"thickness", Need::Required, "m"}, &ExchangeSurface::thickness},
    {{"material", Need::Required}, &ExchangeSurface::material},
    {{"nodes", Need::Required}, &ExchangeSurface::nodes},
    {{"area", Need::Optional, "m2"}, &ExchangeSurface::area},
    {{"storey", Need::Optional, {}, "story"}, &ExchangeSurface::storey},
};

constexpr Column<ExchangeOpening> kOpeningColumns[] = {
    {{"opening", Need::Required, {}, "name"}, &ExchangeOpening::name},
    {{"surface"}, &ExchangeOpening::surface},
    {{"nodes", Need::Required}, &ExchangeOpening::nodes},
};

constexpr Column<ExchangeSupport> Held(std::string_view name, std::size_t index) {
    return {{name, Need::Required}, FreedomKindOf<ExchangeSupport>{&ExchangeSupport::freedoms, index}};
}
constexpr Column<ExchangeSupport> Spring(std::string_view name, std::size_t index, std::string_view unit) {
    return {{name, Need::Optional, unit},
            FreedomNumberOf<ExchangeSupport>{&ExchangeSupport::freedoms, index, &ExchangeFreedom::stiffness}};
}

constexpr Column<ExchangeSupport> kSupportColumns[] = {
    {{"node", Need::Required}, &ExchangeSupport::node},
    Held("ux", 0),
    Held("uy", 1),
    Held("uz", 2),
    Held("rx", 3),
    Held("ry", 4),
    Held("rz", 5),
    Spring("kx", 0, "kN/m"),
    Spring("ky", 1, "kN/m"),
    Spring("kz", 2, "kN/m"),
    Spring("krx", 3, "kNm/rad"),
    Spring("kry", 4, "kNm/rad"),
    Spring("krz", 5, "kNm/rad"),
};

template <class T>
constexpr Column<T> OneOf(std::string_view name, std::size_t index, std::string_view unit) {
    return {{name, Need::Optional, unit}, OneOfSix<T>{&T::values, index}};
}

constexpr Column<ExchangeMass> kMassColumns[] = {
    {{"node", Need::Required}, &ExchangeMass::node},
    OneOf<ExchangeMass>("mx", 0, "t"),
    OneOf<ExchangeMass>("my", 1, "t"),
    OneOf<ExchangeMass>("mz", 2, "t"),
    OneOf<ExchangeMass>("Ixx", 3, "t*m2"),
    OneOf<ExchangeMass>("Iyy", 4, "t*m2"),
    OneOf<ExchangeMass>("Izz", 5, "t*m2"),
};

constexpr Column<ExchangeDiaphragm> kDiaphragmColumns[] = {
    {{"diaphragm", Need::Required, {}, "name"}, &ExchangeDiaphragm::name},
    {{"storey", Need::Optional, {}, "story"}, &ExchangeDiaphragm::storey},
    {{"type"}, &ExchangeDiaphragm::kind},
    {{"master_node", Need::Required}, &ExchangeDiaphragm::master},
    {{"slave_nodes", Need::Required}, &ExchangeDiaphragm::nodes},
};

constexpr Column<ExchangeLoadCase> kLoadCaseColumns[] = {
    {{"load_case", Need::Required, {}, "name"}, &ExchangeLoadCase::name},
    {{"type"}, &ExchangeLoadCase::action},
    {{"source"}, &ExchangeLoadCase::loadType},
    {{"self_weight_z"}, &ExchangeLoadCase::selfWeightZ},
    {{"note", Need::Optional, {}, "description"}, &ExchangeLoadCase::description},
};

constexpr Column<ExchangeCombination> kCombinationColumns[] = {
    {{"combination", Need::Required, {}, "name"}, &ExchangeCombination::name},
    {{"type"}, &ExchangeCombination::kind},
    {{"note", Need::Optional, {}, "description"}, &ExchangeCombination::description},
    {{"factor_#"}, RepeatedNumbers<ExchangeCombination>{&ExchangeCombination::factors}},
    {{"load_case_#"}, RepeatedTexts<ExchangeCombination>{&ExchangeCombination::cases}},
};

constexpr Column<ExchangeNodalLoad> kNodalLoadColumns[] = {
    {{"load_case", Need::Required}, &ExchangeNodalLoad::loadCase},
    {{"node", Need::Required}, &ExchangeNodalLoad::node},
    OneOf<ExchangeNodalLoad>("Fx", 0, "kN"),
    OneOf<ExchangeNodalLoad>("Fy", 1, "kN"),
    OneOf<ExchangeNodalLoad>("Fz", 2, "kN"),
    OneOf<ExchangeNodalLoad>("Mx", 3, "kNm"),
    OneOf<ExchangeNodalLoad>("My", 4, "kNm"),
    OneOf<ExchangeNodalLoad>("Mz", 5, "kNm"),
};

constexpr Column<ExchangeMemberLoad> kMemberLoadColumns[] = {
    {{"load_case", Need::Required}, &ExchangeMemberLoad::loadCase},
    {{"member", Need::Required}, &ExchangeMemberLoad::member},
    OneOf<ExchangeMemberLoad>("qx", 0, "kN/m"),
    OneOf<ExchangeMemberLoad>("qy", 1, "kN/m"),
    OneOf<ExchangeMemberLoad>("qz", 2, "kN/m"),
    {{"axes"}, &ExchangeMemberLoad::axes},
};

constexpr Column<ExchangeLineLoad> kLineLoadColumns[] = {
    {{"load_case", Need::Required}, &ExchangeLineLoad::loadCase},
    {{"member", Need::Required}, &ExchangeLineLoad::member},
    {{"direction", Need::Required}, &ExchangeLineLoad::direction},
    {{"q1", Need::Required, "kN/m"}, &ExchangeLineLoad::first},
    {{"q2", Need::Optional, "kN/m"}, &ExchangeLineLoad::second},
    {{"start", Need::Optional, "m"}, &ExchangeLineLoad::start},
    {{"end", Need::Optional, "m"}, &ExchangeLineLoad::end},
    {{"measure"}, &ExchangeLineLoad::measure},
    {{"axes"}, &ExchangeLineLoad::axes},
    {{"location"}, &ExchangeLineLoad::location},
};

constexpr Column<ExchangePointLoad> kPointLoadColumns[] = {
    {{"load_case", Need::Required}, &ExchangePointLoad::loadCase},
    {{"member", Need::Required}, &ExchangePointLoad::member},
    {{"direction", Need::Required}, &ExchangePointLoad::direction},
    {{"P", Need::Required, "kN"}, &ExchangePointLoad::value},
    {{"position", Need::Required, "m"}, &ExchangePointLoad::position},
    {{"measure"}, &ExchangePointLoad::measure},
    {{"axes"}, &ExchangePointLoad::axes},
};

constexpr Column<ExchangeSurfaceLoad> kAreaLoadColumns[] = {
    {{"load_case", Need::Required}, &ExchangeSurfaceLoad::loadCase},
    {{"surface", Need::Required}, &ExchangeSurfaceLoad::surface},
    OneOf<ExchangeSurfaceLoad>("px", 0, "kN/m2"),
    OneOf<ExchangeSurfaceLoad>("py", 1, "kN/m2"),
    OneOf<ExchangeSurfaceLoad>("pz", 2, "kN/m2"),
    {{"axes"}, &ExchangeSurfaceLoad::axes},
};

}  // namespace

const ExchangeTable<ExchangeMaterial> kMaterials{"materials", "", &ExchangeModel::materials, kMaterialColumns};
const ExchangeTable<ExchangeSection> kSections{"sections", "", &ExchangeModel::sections, kSectionColumns};
const ExchangeTable<ExchangeStorey> kStoreys{"storeys", "stories", &ExchangeModel::storeys, kStoreyColumns};
const ExchangeTable<ExchangeNode> kNodes{"nodes", "", &ExchangeModel::nodes, kNodeColumns};
const ExchangeTable<ExchangeMember> kMembers{"members", "", &ExchangeModel::members, kMemberColumns};
const ExchangeTable<ExchangeSurface> kSurfaces{"surfaces", "", &ExchangeModel::surfaces, kSurfaceColumns};
const ExchangeTable<ExchangeOpening> kOpenings{"openings", "", &ExchangeModel::openings, kOpeningColumns};
const ExchangeTable<ExchangeSupport> kSupports{"supports", "", &ExchangeModel::supports, kSupportColumns};
const ExchangeTable<ExchangeMass> kMasses{"masses", "", &ExchangeModel::masses, kMassColumns};
const ExchangeTable<ExchangeDiaphragm> kDiaphragms{"diaphragms", "", &ExchangeModel::diaphragms, kDiaphragmColumns};
const ExchangeTable<ExchangeLoadCase> kLoadCases{"load_cases", "", &ExchangeModel::loadCases, kLoadCaseColumns};
const ExchangeTable<ExchangeCombination> kCombinations{"combinations", "", &ExchangeModel::combinations,
                                                       kCombinationColumns};
const ExchangeTable<ExchangeNodalLoad> kNodalLoads{"loads_nodal", "", &ExchangeModel::nodalLoads, kNodalLoadColumns};
const ExchangeTable<ExchangeMemberLoad> kMemberLoads{"loads_member_uniform", "", &ExchangeModel::memberLoads,
                                                     kMemberLoadColumns};
const ExchangeTable<ExchangeLineLoad> kLineLoads{"loads_member_linear", "", &ExchangeModel::lineForces,
                                                 kLineLoadColumns};
const ExchangeTable<ExchangePointLoad> kPointLoads{"loads_member_point", "", &ExchangeModel::pointForces,
                                                   kPointLoadColumns};
const ExchangeTable<ExchangeSurfaceLoad> kAreaLoads{"loads_area", "", &ExchangeModel::surfaceLoads, kAreaLoadColumns};

}  // namespace zt::csv
