#include "zt_db/exchange/model_check.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

#include "velda_lib/number_text.h"
#include "zt_db/exchange/table_reader.h"

namespace zt {
namespace {

using Names = std::unordered_map<std::string, std::size_t>;

/// Unit mass and stiffness beyond which a structural material is a slip of units: kg/m3, Pa.
constexpr double kMostDensity = 30'000.0;
constexpr double kMostElasticity = 1.0e12;
/// Lengths that a file tells besides may differ by rounding.
constexpr double kLengthTolerance = 1.0e-3;

class ModelCheck {
public:
    ModelCheck(const ExchangeModel& model, ExchangeReport& report) : model_(model), report_(report) {}

    bool Run() {
        NameAll();
        CheckProperties();
        CheckMembers();
        CheckSurfaces();
        CheckConnections();
        CheckCombinations();
        CheckLoads();
        return !report_.HasErrors();
    }

private:
    void Error(const ExchangeOrigin& origin, const char* column, std::string_view key, std::string value) {
        report_.Add(FindingLevel::Error, PlaceOf(model_, origin, column), key, {std::move(value)});
    }
    void Warn(const ExchangeOrigin& origin, const char* column, std::string_view key, std::string value = {}) {
        report_.Add(FindingLevel::Warning, PlaceOf(model_, origin, column), key, {std::move(value)});
    }

    template <class T>
    Names NamesOf(const std::vector<T>& list) {
        Names names;
        names.reserve(list.size());
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (!names.try_emplace(list[i].name, i).second)
                Error(list[i].origin, "Name", "IDS_XCH_NAME_TWICE", list[i].name);
        }
        return names;
    }
    void NameAll() {
        if (model_.nodes.empty()) report_.Add(FindingLevel::Error, {}, "IDS_XCH_NO_NODES");
        materials_ = NamesOf(model_.materials);
        sections_ = NamesOf(model_.sections);
        storeys_ = NamesOf(model_.storeys);
        nodes_ = NamesOf(model_.nodes);
        members_ = NamesOf(model_.members);
        surfaces_ = NamesOf(model_.surfaces);
        loadGroups_ = NamesOf(model_.loadGroups);
        loadCases_ = NamesOf(model_.loadCases);
        combinations_ = NamesOf(model_.combinations);
        NamesOf(model_.openings);
        NamesOf(model_.diaphragms);
    }

    /// Whether a name exists; an empty one is none, and allowed where `optional` is set.
    bool Refers(const Names& names, const std::string& name, const ExchangeOrigin& origin, const char* column,
                bool optional = false) {
        if (name.empty() && optional) return true;
        if (names.contains(name)) return true;
        Error(origin, column, "IDS_XCH_REFERENCE_DANGLING", name);
        return false;
    }
    bool RefersAll(const NameList& list, const ExchangeOrigin& origin, const char* column) {
        bool good = true;
        for (const std::string& name : list) good = Refers(nodes_, name, origin, column) && good;
        return good;
    }

    void CheckProperties() {
        for (const ExchangeMaterial& material : model_.materials) {
            if (material.elasticity && !(*material.elasticity > 0.0 && *material.elasticity <= kMostElasticity)) {
                Warn(material.origin, "E", "IDS_XCH_VALUE_DOUBTFUL", velda::FormatDouble(*material.elasticity / 1.0e6));
            }
            if (material.density && !(*material.density >= 0.0 && *material.density <= kMostDensity)) {
                Warn(material.origin, "density", "IDS_XCH_VALUE_DOUBTFUL", velda::FormatDouble(*material.density));
            }
        }
        for (const ExchangeSection& section : model_.sections) {
            Refers(materials_, section.material, section.origin, "Material", true);
        }
        for (const ExchangeNode& node : model_.nodes) Refers(storeys_, node.storey, node.origin, "storey", true);
    }

    void CheckMembers() {
        for (const ExchangeMember& member : model_.members) {
            Refers(sections_, member.section, member.origin, "Cross section");
            Refers(materials_, member.material, member.origin, "Material", true);
            Refers(storeys_, member.storey, member.origin, "storey", true);
            const bool known = RefersAll(member.nodes, member.origin, "Nodes");
            if (!RefersAll(member.innerNodes, member.origin, "Internal nodes") || !known) continue;
            if (member.nodes.size() < 2) {
                Error(member.origin, "Nodes", "IDS_XCH_TOO_FEW_NODES", "2");
            } else {
                CheckLength(member);
            }
        }
    }
    void CheckLength(const ExchangeMember& member) {
        double length = 0.0;
        for (std::size_t i = 1; i < member.nodes.size(); ++i) length += Distance(member.nodes[i - 1], member.nodes[i]);
        if (length <= 0.0) Warn(member.origin, "Nodes", "IDS_XCH_NO_LENGTH", member.name);
        const bool straight = std::all_of(member.segments.begin(), member.segments.end(),
                                          [](const std::string& segment) { return Comparable(segment) == "line"; });
        if (!straight || !member.length) return;
        const double tolerance = std::max(kLengthTolerance, kLengthTolerance * length);
        if (std::abs(*member.length - length) > tolerance) {
            Warn(member.origin, "Length", "IDS_XCH_LENGTH_DIFFERS", velda::FormatDouble(*member.length));
        }
    }
    double Distance(const std::string& from, const std::string& to) const {
        const ExchangeNode& a = model_.nodes[nodes_.at(from)];
        const ExchangeNode& b = model_.nodes[nodes_.at(to)];
        return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
    }

    void CheckSurfaces() {
        for (const ExchangeSurface& surface : model_.surfaces) {
            Refers(materials_, surface.material, surface.origin, "Material");
            Refers(storeys_, surface.storey, surface.origin, "storey", true);
            RefersAll(surface.nodes, surface.origin, "Nodes");
            if (surface.nodes.size() < 3) Error(surface.origin, "Nodes", "IDS_XCH_TOO_FEW_NODES", "3");
            CheckThickness(surface);
        }
        for (const ExchangeOpening& opening : model_.openings) {
            Refers(surfaces_, opening.surface, opening.origin, "2D Member", true);
            RefersAll(opening.nodes, opening.origin, "Nodes");
            if (opening.nodes.size() < 3) Error(opening.origin, "Nodes", "IDS_XCH_TOO_FEW_NODES", "3");
        }
    }
    /// Thicknesses at several nodes name nodes.
    void CheckThickness(const ExchangeSurface& surface) {
        for (const std::string& item : SplitList(surface.thicknessText)) {
            const std::size_t colon = item.rfind(':');
            if (colon != std::string::npos) {
                Refers(nodes_, item.substr(0, colon), surface.origin, "Thickness");
            }
        }
    }

    void CheckConnections() {
        for (const ExchangeSupport& support : model_.supports) {
            Refers(nodes_, support.node, support.origin, "Node", !support.member.empty());
            Refers(members_, support.member, support.origin, "Member", true);
        }
        for (const ExchangeHinge& hinge : model_.hinges) Refers(members_, hinge.member, hinge.origin, "Member");
        for (const ExchangeRigidLink& link : model_.rigidLinks) {
            RefersAll(link.nodes, link.origin, "Nodes");
            if (link.nodes.size() < 2) Error(link.origin, "Nodes", "IDS_XCH_TOO_FEW_NODES", "2");
        }
        for (const ExchangeDiaphragm& diaphragm : model_.diaphragms) {
            Refers(storeys_, diaphragm.storey, diaphragm.origin, "storey", true);
            Refers(nodes_, diaphragm.master, diaphragm.origin, "master_node");
            RefersAll(diaphragm.nodes, diaphragm.origin, "slave_nodes");
        }
        for (const ExchangeMass& mass : model_.masses) Refers(nodes_, mass.node, mass.origin, "node");
    }

    void CheckCombinations() {
        for (const ExchangeLoadCase& loadCase : model_.loadCases) {
            Refers(loadGroups_, loadCase.group, loadCase.origin, "Load group", true);
        }
        for (const ExchangeCombination& combination : model_.combinations) {
            for (const std::string& name : combination.cases) {
                if (!combinations_.contains(name)) Refers(loadCases_, name, combination.origin, "Load case name", true);
            }
        }
        states_.assign(model_.combinations.size(), State::Unseen);
        for (std::size_t i = 0; i < model_.combinations.size(); ++i) Visit(i);
    }
    /// Walks into the combinations of a combination; one that is met on its own way contains itself.
    void Visit(std::size_t index) {
        std::vector<std::pair<std::size_t, std::size_t>> way{{index, 0}};
        if (states_[index] != State::Unseen) return;
        states_[index] = State::OnWay;
        while (!way.empty()) {
            auto& [at, next] = way.back();
            const ExchangeCombination& combination = model_.combinations[at];
            if (next == combination.cases.size()) {
                states_[at] = State::Done;
                way.pop_back();
                continue;
            }
            const std::string& name = combination.cases[next++];
            const auto inner = loadCases_.contains(name) ? combinations_.end() : combinations_.find(name);
            if (inner == combinations_.end()) continue;
            if (states_[inner->second] == State::OnWay) {
                Error(combination.origin, "Load case name", "IDS_XCH_COMBINATION_CYCLE", name);
            } else if (states_[inner->second] == State::Unseen) {
                states_[inner->second] = State::OnWay;
                way.emplace_back(inner->second, 0);
            }
        }
    }

    void CheckLoads() {
        for (const auto* loads : {&model_.pointForces, &model_.pointMoments}) {
            for (const ExchangePointLoad& load : *loads) {
                Refers(loadCases_, load.loadCase, load.origin, "Load case");
                Refers(nodes_, load.node, load.origin, "Reference node", !load.member.empty());
                Refers(members_, load.member, load.origin, "Reference member", true);
            }
        }
        for (const auto* loads : {&model_.lineForces, &model_.lineMoments}) {
            for (const ExchangeLineLoad& load : *loads) {
                Refers(loadCases_, load.loadCase, load.origin, "Load case");
                Refers(members_, load.member, load.origin, "Member", true);
                Refers(surfaces_, load.surface, load.origin, "2D Member", true);
            }
        }
        for (const ExchangeSurfaceLoad& load : model_.surfaceLoads) {
            Refers(loadCases_, load.loadCase, load.origin, "Load case");
            Refers(surfaces_, load.surface, load.origin, "2D Member", true);
        }
    }

    enum class State { Unseen, OnWay, Done };

    const ExchangeModel& model_;
    ExchangeReport& report_;
    Names materials_;
    Names sections_;
    Names storeys_;
    Names nodes_;
    Names members_;
    Names surfaces_;
    Names loadGroups_;
    Names loadCases_;
    Names combinations_;
    std::vector<State> states_;
};

}  // namespace

ExchangePlace PlaceOf(const ExchangeModel& model, const ExchangeOrigin& origin, std::string column) {
    if (origin.sheet >= model.sheets.size()) return {};
    return {model.sheets[origin.sheet], origin.row, std::move(column)};
}

bool CheckModel(const ExchangeModel& model, ExchangeReport& report) { return ModelCheck(model, report).Run(); }

}  // namespace zt
