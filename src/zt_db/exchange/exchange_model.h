#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zt {

/// A model on its way from or to a file: plain structures that refer to each other by name, in SI units (m, kg, s, N,
/// Pa, rad; degrees of temperature as differences). Names are unique in their list. Global Z points up.
///
/// Every structure knows the place in the file that it came from, so that whatever is found later can be told there.
struct ExchangeOrigin {
    static constexpr std::uint32_t kNone = 0xFFFFFFFFu;
    std::uint32_t sheet = kNone;  ///< index into ExchangeModel::sheets; kNone when it came from no file
    std::uint32_t row = 0;
};

using NameList = std::vector<std::string>;
using MaybeNumber = std::optional<double>;
using SixValues = std::array<MaybeNumber, 6>;  ///< along and about X, Y, Z

struct ExchangeMaterial {
    std::string name{};
    std::string kind{};  ///< Concrete, Steel, Timber, ...
    std::string subtype{};
    std::string quality{};
    MaybeNumber density{};
    MaybeNumber elasticity{};
    MaybeNumber shearModulus{};
    MaybeNumber poisson{};
    MaybeNumber thermal{};
    MaybeNumber strength{};
    std::string note{};
    ExchangeOrigin origin{};
};

/// A section: by the sizes of a shape, by the name of a manufactured profile, or by its values alone.
struct ExchangeSection {
    std::string name{};
    std::string material{};
    std::string kind{};  ///< Parametric, Manufactured, Compound, General
    std::string shape{};
    std::vector<double> sizes{};  ///< in the order that the shape has
    std::string profile{};
    std::string formCode{};
    MaybeNumber area{};
    MaybeNumber shearAreaY{};
    MaybeNumber shearAreaZ{};
    MaybeNumber inertiaY{};
    MaybeNumber inertiaZ{};
    MaybeNumber torsion{};
    MaybeNumber warping{};
    MaybeNumber plasticY{};
    MaybeNumber plasticZ{};
    MaybeNumber width{};
    MaybeNumber depth{};
    MaybeNumber flangeThickness{};
    MaybeNumber webThickness{};
    ExchangeOrigin origin{};
};

struct ExchangeStorey {
    std::string name{};
    double level = 0.0;
    MaybeNumber height{};
    std::string module{};  ///< the part of the building; empty for the first one
    ExchangeOrigin origin{};
};

struct ExchangeNode {
    std::string name{};
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    std::string storey{};
    ExchangeOrigin origin{};
};

/// A member along a line: column, beam, brace.
struct ExchangeMember {
    std::string name{};
    std::string kind{};
    std::string section{};
    std::string material{};  ///< that of the section where it is empty
    NameList nodes{};
    NameList segments{};
    NameList innerNodes{};
    std::string firstNode{};
    std::string lastNode{};
    MaybeNumber length{};
    std::string axes{};  ///< "y by vector", "z by point" and so on
    MaybeNumber axisX{};
    MaybeNumber axisY{};
    MaybeNumber axisZ{};
    MaybeNumber rotation{};
    std::string behaviour{};
    std::string storey{};
    std::string layer{};
    std::string startRelease{};  ///< six digits, 1 for a freedom that is released
    std::string endRelease{};
    MaybeNumber area{};
    MaybeNumber shearAreaY{};
    MaybeNumber shearAreaZ{};
    MaybeNumber torsion{};
    MaybeNumber inertiaY{};
    MaybeNumber inertiaZ{};
    MaybeNumber elasticity{};
    MaybeNumber shearModulus{};
    MaybeNumber density{};
    ExchangeOrigin origin{};
};

/// A wall or a slab.
struct ExchangeSurface {
    std::string name{};
    std::string kind{};
    std::string material{};
    std::string thicknessKind{};
    std::string thicknessText{};  ///< a number, or "node:number" for several nodes
    MaybeNumber thickness{};
    NameList nodes{};
    NameList edges{};
    MaybeNumber area{};
    std::string storey{};
    ExchangeOrigin origin{};
};

struct ExchangeOpening {
    std::string name{};
    std::string surface{};
    NameList nodes{};
    NameList edges{};
    MaybeNumber area{};
    ExchangeOrigin origin{};
};

/// How one freedom of a support, a release or a link is held.
struct ExchangeFreedom {
    std::string kind{};  ///< Free, Rigid, Flexible, Compression only, ...; or 1 for held and 0 for free
    MaybeNumber stiffness{};
    MaybeNumber resistance{};
};
using SixFreedoms = std::array<ExchangeFreedom, 6>;  ///< ux, uy, uz, rx, ry, rz

struct ExchangeSupport {
    std::string name{};
    std::string boundary{};
    std::string node{};
    std::string member{};
    std::string axes{};
    SixFreedoms freedoms{};
    ExchangeOrigin origin{};
};

/// Releases at the ends of a member, in its own axes.
struct ExchangeHinge {
    std::string name{};
    std::string member{};
    std::string position{};  ///< Begin, End, Both
    SixFreedoms freedoms{};
    ExchangeOrigin origin{};
};

struct ExchangeRigidLink {
    std::string name{};
    NameList nodes{};
    std::string hinges{};
    SixFreedoms freedoms{};
    ExchangeOrigin origin{};
};

struct ExchangeLoadGroup {
    std::string name{};
    std::string kind{};
    std::string relation{};
    std::string loadType{};
    ExchangeOrigin origin{};
};

struct ExchangeLoadCase {
    std::string name{};
    std::string description{};
    std::string action{};  ///< Permanent, Variable, Accidental
    std::string group{};
    std::string loadType{};
    std::string duration{};
    MaybeNumber selfWeightZ{};  ///< factor of the self weight in Z; negative is downward
    ExchangeOrigin origin{};
};

struct ExchangeCombination {
    std::string name{};
    std::string description{};
    std::string category{};
    std::string standard{};
    std::string kind{};  ///< Linear, Envelope, Nonlinear
    std::vector<MaybeNumber> factors{};
    std::vector<MaybeNumber> multipliers{};
    NameList cases{};
    ExchangeOrigin origin{};
};

/// A force or a moment at a node or on a member.
struct ExchangePointLoad {
    std::string name{};
    std::string direction{};  ///< X, Y, Z, Mx, My, Mz or Vector
    std::string target{};     ///< "In node" or "On beam"
    std::string node{};
    std::string member{};
    MaybeNumber value{};
    std::vector<double> vector{};
    std::string loadCase{};
    std::string axes{};
    std::string from{};
    std::string measure{};
    MaybeNumber position{};
    MaybeNumber repeat{};
    MaybeNumber spacing{};
    ExchangeOrigin origin{};
};

/// All forces and moments of a load case at a node, as tables of plain text have them.
struct ExchangeNodalLoad {
    std::string loadCase{};
    std::string node{};
    SixValues values{};
    ExchangeOrigin origin{};
};

/// A force or a moment along a member or the edge of a surface.
struct ExchangeLineLoad {
    std::string name{};
    std::string target{};
    std::string distribution{};
    std::string direction{};
    MaybeNumber first{};
    MaybeNumber second{};
    std::vector<double> firstVector{};
    std::vector<double> secondVector{};
    std::string member{};
    std::string surface{};
    MaybeNumber edge{};
    std::string loadCase{};
    std::string axes{};
    std::string location{};
    std::string measure{};
    std::string from{};
    std::string extent{};
    MaybeNumber start{};
    MaybeNumber end{};
    ExchangeOrigin origin{};
};

/// Loads along a whole member in all three directions, as tables of plain text have them.
struct ExchangeMemberLoad {
    std::string loadCase{};
    std::string member{};
    std::string axes{};
    SixValues values{};  ///< of which the first three count
    ExchangeOrigin origin{};
};

struct ExchangeSurfaceLoad {
    std::string name{};
    std::string direction{};
    std::string target{};
    MaybeNumber value{};
    SixValues values{};
    std::string surface{};
    std::string loadCase{};
    std::string axes{};
    std::string location{};
    ExchangeOrigin origin{};
};

struct ExchangeMass {
    std::string node{};
    SixValues values{};
    ExchangeOrigin origin{};
};

/// Nodes that move together with a first one.
struct ExchangeDiaphragm {
    std::string name{};
    std::string storey{};
    std::string kind{};
    std::string master{};
    NameList nodes{};
    ExchangeOrigin origin{};
};

/// A setting of the whole file: "System of units" is "Metric".
struct ExchangeSetting {
    std::string name{};
    std::string value{};
};

struct ExchangeModel {
    std::vector<std::string> sheets{};  ///< names of the sheets that were read
    std::vector<ExchangeSetting> settings{};
    std::vector<ExchangeMaterial> materials{};
    std::vector<ExchangeSection> sections{};
    std::vector<ExchangeStorey> storeys{};
    std::vector<ExchangeNode> nodes{};
    std::vector<ExchangeMember> members{};
    std::vector<ExchangeSurface> surfaces{};
    std::vector<ExchangeOpening> openings{};
    std::vector<ExchangeSupport> supports{};
    std::vector<ExchangeHinge> hinges{};
    std::vector<ExchangeRigidLink> rigidLinks{};
    std::vector<ExchangeLoadGroup> loadGroups{};
    std::vector<ExchangeLoadCase> loadCases{};
    std::vector<ExchangeCombination> combinations{};
    std::vector<ExchangePointLoad> pointForces{};
    std::vector<ExchangePointLoad> pointMoments{};
    std::vector<ExchangeNodalLoad> nodalLoads{};
    std::vector<ExchangeMemberLoad> memberLoads{};
    std::vector<ExchangeLineLoad> lineForces{};
    std::vector<ExchangeLineLoad> lineMoments{};
    std::vector<ExchangeSurfaceLoad> surfaceLoads{};
    std::vector<ExchangeMass> masses{};
    std::vector<ExchangeDiaphragm> diaphragms{};
};

}  // namespace zt
