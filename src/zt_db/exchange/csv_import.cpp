#include "zt_db/exchange/csv_import.h"

#include <map>
#include <set>

#include "velda_lib/number_text.h"
#include "zt_db/exchange/csv_tables.h"
#include "zt_db/exchange/table_set.h"

namespace zt {
namespace {

constexpr std::string_view kDirections[] = {"X", "Y", "Z", "Mx", "My", "Mz"};

/// Brings what plain tables say in their own way into the form that other formats have.
class CsvForms {
public:
    CsvForms(TableContext& context, ExchangeModel& model) : report_(context.report), model_(model) {}

    void Apply() {
        for (ExchangeMember& member : model_.members) TakeMember(member);
        for (ExchangeSection& section : model_.sections) TakeSection(section);
        for (ExchangeSupport& support : model_.supports) support.name = support.node;
        AddMaterials();
        AddLoadCases();
        AddStoreys();
        SplitLoads();
    }

private:
    ExchangePlace PlaceOf(const ExchangeOrigin& origin, std::string column = {}) const {
        return {model_.sheets[origin.sheet], origin.row, std::move(column)};
    }

    void TakeMember(ExchangeMember& member) {
        member.nodes = {member.firstNode, member.lastNode};
        if (member.axisX || member.axisY || member.axisZ) member.axes = "z by vector";
        if (Comparable(member.behaviour) == "truss") member.behaviour = "Axial force only";
        if (member.section.empty() && member.area) member.section = SectionOf(member);
        if (member.material.empty() && member.elasticity) member.material = MaterialOf(member);
        AddHinge(member, member.startRelease, "Begin", "release_i");
        AddHinge(member, member.endRelease, "End", "release_j");
    }

    /// The section with the values that stand in a member's own row.
    std::string SectionOf(const ExchangeMember& member) {
        const std::vector<MaybeNumber> values = {member.area,    member.shearAreaY, member.shearAreaZ,
                                                 member.torsion, member.inertiaY,   member.inertiaZ};
        const auto [at, isNew] = sections_.try_emplace(values, NewName("S", sections_.size()));
        if (!isNew) return at->second;
        ExchangeSection section{.name = at->second, .kind = "General"};
        section.area = member.area;
        section.shearAreaY = member.shearAreaY;
        section.shearAreaZ = member.shearAreaZ;
        section.torsion = member.torsion;
        section.inertiaY = member.inertiaY;
        section.inertiaZ = member.inertiaZ;
        section.origin = member.origin;
        model_.sections.push_back(section);
        report_.Add(FindingLevel::Converted, PlaceOf(member.origin), "IDS_XCH_SECTION_FROM_MEMBER", {section.name});
        return section.name;
    }
    std::string MaterialOf(const ExchangeMember& member) {
        const std::vector<MaybeNumber> values = {member.elasticity, member.shearModulus, member.density};
        const auto [at, isNew] = materials_.try_emplace(values, NewName("M", materials_.size()));
        if (!isNew) return at->second;
        ExchangeMaterial material{.name = at->second};
        material.elasticity = member.elasticity;
        material.shearModulus = member.shearModulus;
        material.density = member.density;
        material.origin = member.origin;
        model_.materials.push_back(material);
        report_.Add(FindingLevel::Converted, PlaceOf(member.origin), "IDS_XCH_MATERIAL_FROM_MEMBER", {material.name});
        return material.name;
    }
    static std::string NewName(std::string_view letter, std::size_t count) {
        return std::string(letter) + velda::FormatLong(static_cast<std::int64_t>(count + 1));
    }

    void AddHinge(const ExchangeMember& member, const std::string& digits, std::string_view position,
                  const char* column) {
        if (digits.find_first_not_of('0') == std::string::npos) return;
        if (digits.size() != 6 || digits.find_first_not_of("01") != std::string::npos) {
            report_.Add(FindingLevel::Error, PlaceOf(member.origin, column), "IDS_XCH_WRONG_WORD", {digits});
            return;
        }
        ExchangeHinge hinge{.name = member.name + std::string(position), .member = member.name};
        hinge.position = position;
        for (std::size_t i = 0; i < 6; ++i) hinge.freedoms[i].kind = digits[i] == '1' ? "Free" : "Rigid";
        hinge.origin = member.origin;
        model_.hinges.push_back(hinge);
    }

    /// Sizes that stand in columns of their own become the sizes of a shape.
    static void TakeSection(ExchangeSection& section) {
        const std::string shape = Comparable(section.shape);
        if (!section.sizes.empty() || !section.depth || !section.width) return;
        if (shape.starts_with("rectangle")) {
            section.kind = "Parametric";
            section.shape = "Rectangle";
            section.sizes = {*section.depth, *section.width};
        } else if (shape == "i" && section.flangeThickness && section.webThickness) {
            section.kind = "Parametric";
            section.shape = "I rolled";
            section.sizes = {*section.depth, *section.width, *section.flangeThickness, *section.webThickness, 0.0};
        }
    }

    /// Materials that are named but not listed; such tables describe them elsewhere.
    void AddMaterials() {
        std::set<std::string> names{""};
        for (const ExchangeMaterial& material : model_.materials) names.insert(material.name);
        const auto need = [&](const std::string& name, const ExchangeOrigin& origin) {
            if (!names.insert(name).second) return;
            ExchangeMaterial material{.name = name};
            material.origin = origin;
            model_.materials.push_back(material);
            report_.Add(FindingLevel::Warning, PlaceOf(origin, "material"), "IDS_XCH_MATERIAL_NOT_LISTED", {name});
        };
        for (const ExchangeSection& section : model_.sections) need(section.material, section.origin);
        for (const ExchangeMember& member : model_.members) need(member.material, member.origin);
    }

    /// Without a table of load cases those that loads name are taken.
    void AddLoadCases() {
        if (!model_.loadCases.empty()) return;
        std::set<std::string> names;
        const auto need = [&](const auto& loads) {
            for (const auto& load : loads) {
                if (!names.insert(load.loadCase).second) continue;
                ExchangeLoadCase loadCase{.name = load.loadCase};
                loadCase.origin = load.origin;
                model_.loadCases.push_back(loadCase);
                report_.Add(FindingLevel::Converted, PlaceOf(load.origin, "load_case"), "IDS_XCH_LOAD_CASE_FROM_LOADS",
                            {load.loadCase});
            }
        };
        need(model_.nodalLoads);
        need(model_.memberLoads);
        need(model_.lineForces);
        need(model_.pointForces);
        need(model_.surfaceLoads);
    }

    /// Without a table of storeys those that nodes name are taken, each as high as its highest node.
    void AddStoreys() {
        if (!model_.storeys.empty()) return;
        std::map<std::string, ExchangeStorey> storeys;
        for (const ExchangeNode& node : model_.nodes) {
            if (node.storey.empty()) continue;
            ExchangeStorey& storey = storeys[node.storey];
            if (!storey.name.empty() && storey.level >= node.z) continue;
            storey.name = node.storey;
            storey.level = node.z;
            storey.origin = node.origin;
        }
        for (const auto& [name, storey] : storeys) {
            report_.Add(FindingLevel::Converted, PlaceOf(storey.origin, "storey"), "IDS_XCH_STOREY_FROM_NODES", {name});
            model_.storeys.push_back(storey);
        }
    }

    /// Makes a load of each value that is not 0.
    void SplitLoads() {
        for (const ExchangeNodalLoad& load : model_.nodalLoads) {
            for (std::size_t i = 0; i < load.values.size(); ++i) {
                if (load.values[i].value_or(0.0) == 0.0) continue;
                auto& list = i < 3 ? model_.pointForces : model_.pointMoments;
                ExchangePointLoad& one = list.emplace_back();
                one.direction = kDirections[i];
                one.target = "In node";
                one.node = load.node;
                one.value = load.values[i];
                one.loadCase = load.loadCase;
                one.axes = "Global";
                one.origin = load.origin;
            }
        }
        for (const ExchangeMemberLoad& load : model_.memberLoads) SplitMemberLoad(load);
        SplitSurfaceLoads();
        model_.nodalLoads.clear();
        model_.memberLoads.clear();
    }
    void SplitMemberLoad(const ExchangeMemberLoad& load) {
        for (std::size_t i = 0; i < 3; ++i) {
            if (load.values[i].value_or(0.0) == 0.0) continue;
            ExchangeLineLoad& one = model_.lineForces.emplace_back();
            one.direction = kDirections[i];
            one.target = "On beam";
            one.distribution = "Uniform";
            one.first = load.values[i];
            one.member = load.member;
            one.loadCase = load.loadCase;
            one.axes = load.axes;
            one.origin = load.origin;
        }
    }
    void SplitSurfaceLoads() {
        std::vector<ExchangeSurfaceLoad> loads;
        for (const ExchangeSurfaceLoad& load : model_.surfaceLoads) {
            for (std::size_t i = 0; i < 3; ++i) {
                if (load.values[i].value_or(0.0) == 0.0) continue;
                ExchangeSurfaceLoad& one = loads.emplace_back(load);
                one.direction = kDirections[i];
                one.value = load.values[i];
                one.target = "On 2D member";
                one.values = {};
            }
        }
        model_.surfaceLoads = std::move(loads);
    }

    ExchangeReport& report_;
    ExchangeModel& model_;
    std::map<std::vector<MaybeNumber>, std::string> sections_;
    std::map<std::vector<MaybeNumber>, std::string> materials_;
};

}  // namespace

bool ReadCsv(SheetSource& source, TableContext& context, ExchangeModel& model) {
    context.style = HeaderStyle::Suffix;
    if (SheetOf(csv::kNodes, source) == source.Names().size()) {
        context.report.Add(FindingLevel::Error, {}, "IDS_XCH_NO_SHEET", {std::string(csv::kNodes.name)});
        return false;
    }
    if (!ReadSheets(source, csv::Tables(), {}, context, model)) return false;
    CsvForms(context, model).Apply();
    return !context.report.HasErrors();
}

}  // namespace zt
