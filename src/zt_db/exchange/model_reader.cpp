#include "zt_db/exchange/model_reader.h"

#include <cmath>
#include <numbers>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "velda_lib/number_text.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/exchange/member_kinds.h"
#include "zt_db/exchange/section_shapes.h"
#include "zt_db/geometry/member_geometry.h"
#include "zt_db/records/matl_type.h"
#include "zt_db/records/record_list.h"

namespace zt {
namespace {

constexpr int kBrace = 206;
constexpr int kTrussWeb = 252;
constexpr int kOpening = 302;
constexpr std::string_view kAxes[] = {"X", "Y", "Z"};
constexpr std::string_view kMoments[] = {"Mx", "My", "Mz"};

using NameOfKey = std::unordered_map<std::uint32_t, std::string>;

std::string NumberText(std::uint64_t number) { return velda::FormatLong(static_cast<std::int64_t>(number)); }

/// Names that stand once in their list.
class UniqueNames {
public:
    std::string Take(const std::string& wanted, const std::string& instead) {
        std::string name = wanted.empty() ? instead : wanted;
        for (int i = 2; !taken_.insert(name).second; ++i) {
            name = (wanted.empty() ? instead : wanted) + " (" + NumberText(static_cast<std::uint64_t>(i)) + ")";
        }
        return name;
    }

private:
    std::unordered_set<std::string> taken_;
};

MaybeNumber Maybe(double value) { return value == 0.0 ? MaybeNumber{} : MaybeNumber{value}; }

class ModelReader {
public:
    ModelReader(const DB_CDataBase& database, ExchangeReport& report) : database_(database), report_(report) {}

    ExchangeModel Run() {
        ReadMaterials();
        ReadStories();
        ReadNodes();
        ReadSections();
        ReadMembers();
        ReadSupports();
        ReadLinksAndMasses();
        ReadLoadCases();
        ReadCombinations();
        ReadLoads();
        return std::move(model_);
    }

private:
    static std::string NameOf(const NameOfKey& names, std::uint32_t key) {
        const auto at = names.find(key);
        return at == names.end() ? std::string() : at->second;
    }

    void ReadMaterials();
    void ReadStories();
    void ReadNodes();
    void ReadSections();
    std::string SectionName(std::uint32_t section, std::uint32_t material);
    void ReadMembers();
    void AddLine(std::uint32_t key, const T_MEMB_D& record);
    void AddSurface(std::uint32_t key, const T_MEMB_D& record);
    void AddOpening(const T_MEMB_D& record);
    NameList NodeNames(const std::vector<std::uint32_t>& keys) const;
    void ReadSupports();
    void AddHinge(std::uint32_t member, const T_FRLS_D& record, bool atStart, bool both);
    void ReadLinksAndMasses();
    void ReadLoadCases();
    void ReadCombinations();
    void ReadLoads();
    template <class Load>
    void AddMemberLoad(const Load& load);
    void AddSlabLoad(std::uint32_t member, const T_SBLA_D& load);
    void CountLost();

    const DB_CDataBase& database_;
    ExchangeReport& report_;
    ExchangeModel model_;
    NameOfKey materials_;
    NameOfKey storeys_;
    NameOfKey nodes_;
    std::unordered_map<std::uint32_t, Vector3> places_;
    std::unordered_map<std::uint32_t, double> levels_;
    NameOfKey members_;
    NameOfKey surfaces_;
    std::unordered_map<std::uint32_t, double> thicknesses_;
    NameOfKey loadCases_;
    std::unordered_map<std::uint32_t, std::string> loadCaseTypes_;
    std::unordered_map<std::uint32_t, double> selfWeights_;
    std::unordered_map<std::uint32_t, T_SECT_D> sectionRecords_;
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::string> sectionNames_;  ///< by section and material
    std::set<std::uint32_t> usedSections_;
    UniqueNames sectionTexts_;
};

void ModelReader::ReadMaterials() {
    UniqueNames names;
    ForEachInOrder<CClassMatl>(database_, [&](std::uint32_t key, const T_MATL_D& record) {
        ExchangeMaterial material{.name = names.Take(record.name, "M" + NumberText(key))};
        materials_[key] = material.name;
        material.kind = record.type == MatlType::Steel      ? "Steel"
                        : record.type == MatlType::Concrete ? "Concrete"
                                                            : "Other";
        const T_MATL_ANALYSIS& values = record.analysis[0];
        material.quality = values.codeName.empty() ? material.name : values.codeName;
        material.elasticity = Maybe(values.elasticity);
        material.poisson = values.poisson;
        if (values.elasticity > 0.0) material.shearModulus = values.elasticity / (2.0 * (1.0 + values.poisson));
        material.thermal = Maybe(values.thermal);
        const double density = database_.Units().ToCurrent(Unit::FixedWeightDensity, values.density);
        material.density = Maybe(velda::RoundToShown(density));
        model_.materials.push_back(material);
    });
}

void ModelReader::ReadStories() {
    UniqueNames names;
    ForEachInOrder<CClassStor>(database_, [&](std::uint32_t key, const T_STOR_D& record) {
        ExchangeStorey storey{names.Take(record.name, "S" + NumberText(key)), record.level, record.height};
        T_MDUL_D module;
        if (database_.GetClass<CClassMdul>()->Get(record.mdul, module)) storey.module = module.name;
        storeys_[key] = storey.name;
        levels_[key] = record.level;
        model_.storeys.push_back(storey);
    });
}

void ModelReader::ReadNodes() {
    UniqueNames names;
    ForEachInOrder<CClassPont>(database_, [&](std::uint32_t key, const T_PONT_D& record) {
        const auto level = levels_.find(record.story);
        // The sum of two heights has digits that nobody meant.
        const double z = level == levels_.end() ? record.z : velda::RoundToShown(record.z + level->second);
        ExchangeNode node{names.Take(record.name, "N" + NumberText(record.no)), record.x, record.y, z, {}, {}};
        node.storey = NameOf(storeys_, record.story);
        nodes_[key] = node.name;
        places_[key] = {record.x, record.y, z};
        model_.nodes.push_back(node);
    });
}

void ModelReader::ReadSections() {
    ForEachInOrder<CClassSect>(database_,
                               [&](std::uint32_t key, const T_SECT_D& record) { sectionRecords_[key] = record; });
    ForEachInOrder<CClassThik>(
        database_, [&](std::uint32_t key, const T_THIK_D& record) { thicknesses_[key] = record.thickness; });
    // A section of the format carries its material: each pair of both that members have is a section.
    ForEachInOrder<CClassMemb>(database_, [&](std::uint32_t, const T_MEMB_D& record) {
        if (PropertyOfMemberType(record.type) == MemberProperty::Section) usedSections_.insert(record.prop);
    });
    std::map<std::uint32_t, std::set<std::uint32_t>> pairs;
    ForEachInOrder<CClassMemb>(database_, [&](std::uint32_t, const T_MEMB_D& record) {
        if (PropertyOfMemberType(record.type) == MemberProperty::Section) pairs[record.prop].insert(record.matl);
    });
    ForEachInOrder<CClassSect>(database_, [&](std::uint32_t key, const T_SECT_D&) {
        auto& materials = pairs[key];
        if (materials.empty() && !materials_.empty()) materials.insert(materials_.begin()->first);
        for (const std::uint32_t material : materials) SectionName(key, material);
    });
}

std::string ModelReader::SectionName(std::uint32_t section, std::uint32_t material) {
    std::string& name = sectionNames_[{section, material}];
    const auto record = sectionRecords_.find(section);
    if (!name.empty() || record == sectionRecords_.end()) return name;
    ExchangeSection text = SectionOfRecord(record->second);
    text.name = name = sectionTexts_.Take(record->second.name, "CS" + NumberText(section));
    text.material = NameOf(materials_, material);
    model_.sections.push_back(text);
    return name;
}

NameList ModelReader::NodeNames(const std::vector<std::uint32_t>& keys) const {
    NameList names;
    for (const std::uint32_t key : keys) names.push_back(NameOf(nodes_, key));
    return names;
}

/// Whether the nodes between the first and the last one lie on the line between these.
bool IsStraight(const std::vector<Vector3>& points) {
    constexpr double kTolerance = 1.0e-6;
    const Vector3 along = Minus(points.back(), points.front());
    const double length = Length(along);
    if (length == 0.0) return false;
    for (const Vector3& point : points) {
        if (Length(Cross(Minus(point, points.front()), along)) > kTolerance * length * length) return false;
    }
    return true;
}

void ModelReader::AddLine(std::uint32_t key, const T_MEMB_D& record) {
    constexpr double kDegree = std::numbers::pi / 180.0;
    ExchangeMember member{.name = "B" + NumberText(record.no)};
    members_[key] = member.name;
    member.kind = WordOfMemberType(record.type);
    if (member.kind.empty()) member.kind = CClassMemb::GetMembTypeName(record.type);
    member.section = SectionName(record.prop, record.matl);
    member.material = NameOf(materials_, record.matl);
    member.storey = NameOf(storeys_, record.story);
    member.nodes = NodeNames(record.nodes);
    std::vector<Vector3> points;
    for (const std::uint32_t node : record.nodes) points.push_back(places_[node]);
    if (points.size() > 2 && IsStraight(points)) {
        member.innerNodes.assign(member.nodes.begin() + 1, member.nodes.end() - 1);
        member.nodes = {member.nodes.front(), member.nodes.back()};
        points = {points.front(), points.back()};
    }
    member.firstNode = member.nodes.front();
    member.lastNode = member.nodes.back();
    member.segments.assign(member.nodes.size() - 1, "Line");
    double length = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i) length += Length(Minus(points[i], points[i - 1]));
    member.length = velda::RoundToShown(length);
    const Vector3 side = AxesOfLine(points[0], points[1]).z;
    member.axes = "z by vector";
    member.axisX = velda::RoundToShown(side[0]);
    member.axisY = velda::RoundToShown(side[1]);
    member.axisZ = velda::RoundToShown(side[2]);
    member.rotation = velda::RoundToShown(record.beta / kDegree) * kDegree;
    const bool bar = record.type == kBrace || record.type == kTrussWeb;
    member.behaviour = record.tensionOnly               ? "Tension only"
                       : bar && !record.considerBending ? "Axial force only"
                                                        : "Standard";
    model_.members.push_back(std::move(member));
}

void ModelReader::AddSurface(std::uint32_t key, const T_MEMB_D& record) {
    ExchangeSurface surface{.name = "S" + NumberText(record.no)};
    surfaces_[key] = surface.name;
    surface.kind = record.type == 202 ? "Wall" : "Plate";
    surface.material = NameOf(materials_, record.matl);
    surface.storey = NameOf(storeys_, record.story);
    surface.thicknessKind = "Constant";
    surface.thickness = thicknesses_[record.prop];
    surface.thicknessText = velda::FormatDouble(*surface.thickness);
    surface.nodes = NodeNames(record.nodes);
    surface.edges.assign(surface.nodes.size(), "Line");
    model_.surfaces.push_back(std::move(surface));
}

void ModelReader::AddOpening(const T_MEMB_D& record) {
    ExchangeOpening opening{.name = "O" + NumberText(record.no)};
    opening.nodes = NodeNames(record.nodes);
    opening.edges.assign(opening.nodes.size(), "Line");
    model_.openings.push_back(std::move(opening));
}

void ModelReader::ReadMembers() {
    std::uint64_t lost = 0;
    ForEachInOrder<CClassMemb>(database_, [&](std::uint32_t key, const T_MEMB_D& record) {
        if (record.type == kOpening && record.nodes.size() > 2) return AddOpening(record);
        const MemberProperty property = PropertyOfMemberType(record.type);
        if (property == MemberProperty::Section && record.nodes.size() > 1) return AddLine(key, record);
        if (property == MemberProperty::Thickness && record.nodes.size() > 2) return AddSurface(key, record);
        ++lost;
    });
    if (lost > 0) report_.Add(FindingLevel::LeftOut, {}, "IDS_XCH_MEMBERS_NOT_WRITTEN", {NumberText(lost)});
}

void ModelReader::AddHinge(std::uint32_t member, const T_FRLS_D& record, bool atStart, bool both) {
    const std::string& flags = atStart ? record.flagsI : record.flagsJ;
    const auto& values = atStart ? record.valuesI : record.valuesJ;
    const std::string name = NameOf(members_, member);
    if (name.empty() || flags.find('1') == std::string::npos) return;
    ExchangeHinge hinge{.name = "H" + NumberText(model_.hinges.size() + 1), .member = name};
    hinge.position = both ? "Both" : atStart ? "Begin" : "End";
    for (std::size_t i = 0; i < 6; ++i) {
        const bool spring = record.type == T_FRLS_D::kValue && values[i] != 0.0;
        hinge.freedoms[i].kind = flags[i] != '1' ? "Rigid" : spring ? "Flexible" : "Free";
        if (flags[i] == '1' && spring) hinge.freedoms[i].stiffness = values[i];
    }
    model_.hinges.push_back(hinge);
}

void ModelReader::ReadSupports() {
    ForEachInOrder<CClassSpts>(database_, [&](std::uint32_t key, const T_SPTS_D& record) {
        ExchangeSupport support{.name = "Sn" + NumberText(model_.supports.size() + 1), .boundary = "In node"};
        support.node = NameOf(nodes_, key);
        support.axes = "Global";
        for (std::size_t i = 0; i < 6; ++i) {
            const int sense = i < 3 ? record.compressionType[i] : T_SPTS_D::kNone;
            const bool spring = record.value[i] != 0.0;
            std::string& kind = support.freedoms[i].kind;
            kind = record.flags[i] == '1' ? "Rigid" : spring ? "Flexible" : "Free";
            if (sense == T_SPTS_D::kPositive) kind = spring ? "Flexible compression only" : "Compression only";
            if (sense == T_SPTS_D::kNegative) kind = spring ? "Flexible tension only" : "Tension only";
            support.freedoms[i].stiffness = Maybe(record.value[i]);
        }
        model_.supports.push_back(support);
    });
    ForEachInOrder<CClassFrls>(database_, [&](std::uint32_t key, const T_FRLS_D& record) {
        const bool both = record.flagsI == record.flagsJ && record.valuesI == record.valuesJ;
        AddHinge(key, record, true, both);
        if (!both) AddHinge(key, record, false, false);
    });
}

void ModelReader::ReadLinksAndMasses() {
    ForEachInOrder<CClassRigd>(database_, [&](std::uint32_t, const T_RIGD_D& record) {
        constexpr int kFloor = 110001;
        const std::string digits = velda::FormatZeroPadded(record.freedoms, 6);
        ExchangeDiaphragm diaphragm{.name = "D" + NumberText(model_.diaphragms.size() + 1)};
        diaphragm.kind = record.freedoms == kFloor ? "rigid_xy" : digits;
        diaphragm.master = NameOf(nodes_, record.master);
        diaphragm.nodes = NodeNames(record.slaves);
        for (const std::string& slave : diaphragm.nodes) {
            ExchangeRigidLink link{.name = "RL" + NumberText(model_.rigidLinks.size() + 1)};
            link.nodes = {diaphragm.master, slave};
            const bool whole = digits.find('0') == std::string::npos;
            link.hinges = whole ? "None" : "Both";
            for (std::size_t i = 0; i < 6; ++i) link.freedoms[i].kind = digits[i] == '1' ? "Rigid" : "Free";
            model_.rigidLinks.push_back(std::move(link));
        }
        model_.diaphragms.push_back(std::move(diaphragm));
    });
    ForEachInOrder<CClassPmas>(database_, [&](std::uint32_t key, const T_PMAS_D& record) {
        ExchangeMass mass{
            NameOf(nodes_, key), {record.mx, record.my, record.mz, record.rmx, record.rmy, record.rmz}, {}};
        model_.masses.push_back(mass);
    });
}

void ModelReader::ReadLoadCases() {
    ForEachInOrder<CClassSwgt>(database_, [&](std::uint32_t, const T_SWGT_D& record) {
        if (record.memb == 0) selfWeights_[record.stld] += record.z;
    });
    UniqueNames names;
    std::set<std::string> groups;
    ForEachInOrder<CClassStld>(database_, [&](std::uint32_t key, const T_STLD_D& record) {
        const LoadCaseWords words = WordsOfLoadCaseType(record.type);
        ExchangeLoadCase loadCase{.name = names.Take(record.name, "LC" + NumberText(key))};
        loadCase.description = record.description;
        loadCase.action = words.action;
        loadCase.loadType = words.loadType;
        const auto weight = selfWeights_.find(key);
        if (weight != selfWeights_.end()) {
            loadCase.selfWeightZ = weight->second;
            loadCase.loadType = "Self weight";
        }
        loadCase.group = "LG " + std::string(words.action);
        if (words.action == "Variable") loadCase.duration = "Short";
        if (groups.insert(loadCase.group).second) {
            model_.loadGroups.push_back({loadCase.group, std::string(words.action), "Standard", {}, {}});
            if (words.action == "Variable") model_.loadGroups.back().loadType = "Domestic";
        }
        loadCases_[key] = loadCase.name;
        loadCaseTypes_[key] = record.type;
        model_.loadCases.push_back(std::move(loadCase));
    });
}

void ModelReader::ReadCombinations() {
    UniqueNames names;
    NameOfKey combinations;
    ForEachInOrder<CClassLcom>(database_, [&](std::uint32_t key, const T_LCOM_D& record) {
        combinations[key] = names.Take(record.name, "CO" + NumberText(key));
    });
    ForEachInOrder<CClassLcom>(database_, [&](std::uint32_t key, const T_LCOM_D& record) {
        ExchangeCombination combination{.name = combinations[key], .description = record.description};
        combination.category = "Not defined";
        combination.kind = record.type == LoadCombinationType::Sum ? "Linear" : "Envelope";
        for (const T_LCOM_ITEM& item : record.items) {
            const NameOfKey& from = item.kind == LoadCaseKind::Static ? loadCases_ : combinations;
            if (NameOf(from, item.key).empty()) continue;
            combination.factors.emplace_back(item.factor);
            combination.multipliers.emplace_back(1.0);
            combination.cases.push_back(NameOf(from, item.key));
        }
        model_.combinations.push_back(std::move(combination));
    });
}

template <class Load>
void ModelReader::AddMemberLoad(const Load& load) {
    const std::string member = NameOf(members_, load.memb);
    const bool known = load.type >= LoadType::ConcentratedForces && load.type <= LoadType::UniformMoments &&
                       load.direction >= LoadDirection::LocalX && load.direction <= LoadDirection::GlobalZ;
    if (member.empty() || !known) {
        report_.Add(FindingLevel::LeftOut, {}, "IDS_XCH_LOAD_NOT_WRITTEN");
        return;
    }
    const bool local = load.direction <= LoadDirection::LocalZ;
    const auto axis =
        static_cast<std::size_t>(load.direction - (local ? LoadDirection::LocalX : LoadDirection::GlobalX));
    const bool moment = load.type == LoadType::ConcentratedMoments || load.type == LoadType::UniformMoments;
    const std::string direction(moment ? kMoments[axis] : kAxes[axis]);
    const std::string axes = local ? "Local" : "Global";
    if (load.type <= LoadType::ConcentratedMoments) {
        auto& list = moment ? model_.pointMoments : model_.pointForces;
        for (std::size_t i = 0; i < load.p.size(); ++i) {
            if (load.p[i] == 0.0) continue;
            ExchangePointLoad one{.name = (moment ? "M" : "F") + NumberText(list.size() + 1), .direction = direction};
            one.target = "On beam";
            one.member = member;
            one.value = load.p[i];
            one.loadCase = NameOf(loadCases_, load.stld);
            one.axes = axes;
            one.from = "From start";
            one.measure = "Relative";
            one.position = load.x[i];
            one.repeat = 1.0;
            list.push_back(std::move(one));
        }
        return;
    }
    auto& list = moment ? model_.lineMoments : model_.lineForces;
    for (std::size_t i = 1; i < load.p.size(); ++i) {
        if (load.x[i] <= load.x[i - 1] || (load.p[i - 1] == 0.0 && load.p[i] == 0.0)) continue;
        ExchangeLineLoad one{.name = (moment ? "LM" : "LF") + NumberText(list.size() + 1), .target = "On beam"};
        one.distribution = load.p[i - 1] == load.p[i] ? "Uniform" : "Trapez";
        one.direction = direction;
        one.first = load.p[i - 1];
        one.second = load.p[i];
        one.member = member;
        one.loadCase = NameOf(loadCases_, load.stld);
        one.axes = axes;
        one.location = load.projection ? "Projection" : "Length";
        one.measure = "Relative";
        one.from = "From start";
        one.extent = "Full";
        one.start = load.x[i - 1];
        one.end = load.x[i];
        list.push_back(std::move(one));
    }
}

void ModelReader::AddSlabLoad(std::uint32_t member, const T_SBLA_D& load) {
    const bool local = load.direction <= LoadDirection::LocalZ;
    const auto add = [&](double value, std::string_view type) {
        if (value == 0.0) return;
        const auto loadCase = std::find_if(model_.loadCases.begin(), model_.loadCases.end(), [&](const auto& one) {
            const LoadCaseWords words = WordsOfLoadCaseType(type);
            return one.action == words.action && (one.loadType == words.loadType || type == LoadCaseType::Dead);
        });
        if (loadCase == model_.loadCases.end() || NameOf(surfaces_, member).empty()) {
            report_.Add(FindingLevel::LeftOut, {}, "IDS_XCH_LOAD_NOT_WRITTEN");
            return;
        }
        ExchangeSurfaceLoad one{.name = "SF" + NumberText(model_.surfaceLoads.size() + 1), .direction = "Z"};
        one.target = "On 2D member";
        one.value = -value;
        one.values[2] = -value;
        one.surface = NameOf(surfaces_, member);
        one.loadCase = loadCase->name;
        one.axes = local ? "Local" : "Global";
        one.location = load.projection ? "Projection" : "Length";
        model_.surfaceLoads.push_back(std::move(one));
    };
    add(load.dl, LoadCaseType::Dead);
    add(load.ll, LoadCaseType::Live);
}

void ModelReader::ReadLoads() {
    ForEachInOrder<CClassPtld>(database_, [&](std::uint32_t, const T_PTLD_D& record) {
        const std::array<double, 6> values{record.fx, record.fy, record.fz, record.mx, record.my, record.mz};
        ExchangeNodalLoad nodal{NameOf(loadCases_, record.stld), NameOf(nodes_, record.node), {}, {}};
        for (std::size_t i = 0; i < values.size(); ++i) {
            nodal.values[i] = values[i];
            if (values[i] == 0.0) continue;
            auto& list = i < 3 ? model_.pointForces : model_.pointMoments;
            ExchangePointLoad one{.name = (i < 3 ? "F" : "M") + NumberText(list.size() + 1)};
            one.direction = i < 3 ? kAxes[i] : kMoments[i - 3];
            one.target = "In node";
            one.node = nodal.node;
            one.value = values[i];
            one.loadCase = nodal.loadCase;
            one.axes = "Global";
            list.push_back(std::move(one));
        }
        model_.nodalLoads.push_back(std::move(nodal));
    });
    ForEachInOrder<CClassLnld>(database_, [&](std::uint32_t, const T_LNLD_D& record) { AddMemberLoad(record); });
    ForEachInOrder<CClassCmld>(database_, [&](std::uint32_t, const T_CMLD_D& record) { AddMemberLoad(record); });
    ForEachInOrder<CClassSbla>(database_, [&](std::uint32_t key, const T_SBLA_D& record) { AddSlabLoad(key, record); });
    CountLost();
}

/// Records of classes that a model has no place for.
void ModelReader::CountLost() {
    for (const std::string_view mnemonic : {"NAME", "MBTP", "PREL", "STND", "BMLA", "BWLD"}) {
        const int index = database_.FindClass(mnemonic);
        if (index < 0) continue;
        const RecordStoreBase& store = database_.StoreAt(static_cast<std::uint16_t>(index));
        if (store.Count() == 0) continue;
        report_.Add(FindingLevel::LeftOut, {}, "IDS_XCH_CLASS_NOT_WRITTEN",
                    {store.DisplayName(), NumberText(store.Count())});
    }
}

}  // namespace

ExchangeModel ReadModel(const DB_CDataBase& database, ExchangeReport& report) {
    return ModelReader(database, report).Run();
}

}  // namespace zt
