#include "zt_db/exchange/model_writer.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_db/exchange/member_kinds.h"
#include "zt_db/exchange/number_giver.h"
#include "zt_db/exchange/record_batch.h"
#include "zt_db/exchange/story_levels.h"
#include "zt_db/exchange/table_reader.h"
#include "zt_db/exchange/written_model.h"
#include "zt_db/records/matl_type.h"
#include "zt_db/records/record_list.h"

namespace zt {
namespace {

constexpr int kOpening = 302;
constexpr int kBrace = 206;
constexpr int kTrussWeb = 252;
/// A plastic modulus is at most this many metres times the area; greater ones are in another unit than the file says.
constexpr double kMostModulusArm = 10.0;
/// Shear moduli may differ this much from what elasticity and Poisson's ratio give.
constexpr double kShearTolerance = 0.01;

/// A name with a number behind it that nothing else has.
template <class Taken>
std::string FreeName(const std::string& name, Taken taken) {
    for (std::int64_t i = 2;; ++i) {
        std::string other = name + " (" + velda::FormatLong(i) + ")";
        if (!taken(other)) return other;
    }
}

class ModelWriter {
public:
    ModelWriter(DB_CDataBase& database, const ExchangeModel& model, const ProfileLookup& lookup, ExchangeReport& report)
        : database_(database), model_(model), lookup_(lookup), written_{database, model, report} {}

    bool Run() {
        return WriteMaterials() && WriteSections() && WriteStoreys() && WriteNodes() && WriteMembers() &&
               WriteLoadCases() && WriteCombinations() && WriteSupports(written_) && WriteLoads(written_);
    }

private:
    /// Adds a named record, or finds the one that is there already.
    template <class Class>
    std::uint32_t Put(RecordBatch<Class>& batch, const KnownRecords<Class>& known, typename Class::Record record,
                      const ExchangeOrigin& origin) {
        written_.CountKept(origin);
        if (const std::uint32_t key = known.Find(record)) {
            written_.Tell(FindingLevel::Note, origin, "IDS_XCH_REUSED", record.name);
            return key;
        }
        if (known.Has(record.name)) {
            const std::string other = FreeName(record.name, [&](const auto& name) { return known.Has(name); });
            written_.Tell(FindingLevel::Converted, origin, "IDS_XCH_NAME_TAKEN", other);
            record.name = other;
        }
        return batch.Add(std::move(record));
    }
    template <class Record>
    static std::string NameOf(const Record& record) {
        return record.name;
    }

    bool WriteMaterials();
    T_MATL_D RecordOf(const ExchangeMaterial& material);
    bool WriteSections();
    void CheckSection(const ExchangeSection& section, T_SECT_D& record);
    bool WriteStoreys();
    std::uint32_t ModuleOf(const std::string& name);
    std::uint32_t Module();
    void UseStoriesOfModel();
    bool WriteNodes();
    std::size_t StoryOf(const std::string& storey, double z) const;
    bool WriteMembers();
    void AddMember(const ExchangeMember& member, T_MEMB_D& record);
    void AddSurface(const ExchangeSurface& surface, T_MEMB_D& record);
    void AddOpening(const ExchangeOpening& opening, T_MEMB_D& record);
    std::vector<std::string> NodesAlong(const ExchangeMember& member) const;
    double AngleOf(const ExchangeMember& member, const Vector3& from, const Vector3& to);
    void TakeBehaviour(const ExchangeMember& member, T_MEMB_D& record);
    std::uint32_t MaterialOf(const ExchangeMember& member) const;
    std::uint32_t ThicknessOf(const ExchangeSurface& surface);
    double ThicknessIn(const ExchangeSurface& surface);
    void TakeNodes(const NameList& nodes, const std::string& storey, T_MEMB_D& record);
    void TellArcs(const NameList& segments, const ExchangeOrigin& origin, const char* column);
    bool WriteLoadCases();
    bool WriteCombinations();
    std::vector<std::size_t> CombinationOrder(const KeyOfName& places) const;
    T_LCOM_D RecordOf(const ExchangeCombination& combination, const KeyOfName& written);

    DB_CDataBase& database_;
    const ExchangeModel& model_;
    const ProfileLookup& lookup_;
    WrittenModel written_;
    std::unordered_map<std::string, std::string> sectionMaterials_;
    std::vector<ExchangeStorey> storeys_;
    StoryLevels levels_{{}};
    std::unordered_map<std::string, std::uint32_t> thicknesses_;
    RecordBatch<CClassThik>* thicknessBatch_ = nullptr;
    const KnownRecords<CClassThik>* knownThicknesses_ = nullptr;
};

T_MATL_D ModelWriter::RecordOf(const ExchangeMaterial& material) {
    const std::string kind = Comparable(material.kind);
    T_MATL_D record{.name = material.name, .type = std::string(MatlType::User)};
    if (kind.starts_with("steel")) record.type = "S";
    if (kind.starts_with("concrete")) record.type = "C";
    const CUnitCtrl& units = database_.Units();
    T_MATL_ANALYSIS& values = record.analysis[0];
    values.elasticity = material.elasticity.value_or(0.0);
    values.poisson = material.poisson.value_or(0.0);
    if (!material.poisson && material.elasticity && material.shearModulus.value_or(0.0) > 0.0) {
        values.poisson = *material.elasticity / (2.0 * *material.shearModulus) - 1.0;
    }
    values.thermal = material.thermal.value_or(0.0);
    values.density = units.ToBase(Unit::FixedWeightDensity, material.density.value_or(0.0));
    values.codeName = material.quality;
    if (!material.elasticity || !material.density) {
        written_.Tell(FindingLevel::Warning, material.origin, "IDS_XCH_MATERIAL_INCOMPLETE", material.name);
    } else if (material.shearModulus && *material.shearModulus > 0.0) {
        const double usual = *material.elasticity / (2.0 * (1.0 + values.poisson));
        if (std::abs(usual - *material.shearModulus) > kShearTolerance * *material.shearModulus) {
            written_.Tell(FindingLevel::Warning, material.origin, "IDS_XCH_SHEAR_MODULUS", material.name);
        }
    }
    return record;
}

bool ModelWriter::WriteMaterials() {
    RecordBatch<CClassMatl> batch(database_);
    const KnownRecords<CClassMatl> known(database_, NameOf<T_MATL_D>);
    for (const ExchangeMaterial& material : model_.materials) {
        written_.materials[material.name] = Put(batch, known, RecordOf(material), material.origin);
    }
    return batch.Write();
}

void ModelWriter::CheckSection(const ExchangeSection& section, T_SECT_D& record) {
    for (double* modulus : {&record.design.wpy, &record.design.wpz}) {
        if (*modulus <= kMostModulusArm * record.stiffness.area || record.stiffness.area == 0.0) continue;
        written_.Tell(FindingLevel::Warning, section.origin, "IDS_XCH_MODULUS_DOUBTFUL", velda::FormatDouble(*modulus));
        *modulus = 0.0;
    }
    const bool known = lookup_ && (record.kind == 1 || !record.base.sectName.empty()) && lookup_(record);
    if (!known && record.stiffness.area == 0.0) {
        written_.Tell(FindingLevel::Warning, section.origin, "IDS_XCH_SECTION_WITHOUT_VALUES", section.name);
    }
    if (!known && record.kind != 1 && !record.base.dbName.empty()) {
        written_.Tell(FindingLevel::Converted, section.origin, "IDS_XCH_SHAPE_UNKNOWN", section.shape);
    }
}

bool ModelWriter::WriteSections() {
    RecordBatch<CClassSect> batch(database_);
    const KnownRecords<CClassSect> known(database_, NameOf<T_SECT_D>);
    for (const ExchangeSection& section : model_.sections) {
        T_SECT_D record = RecordOfSection(section);
        CheckSection(section, record);
        written_.sections[section.name] = Put(batch, known, std::move(record), section.origin);
        sectionMaterials_[section.name] = section.material;
    }
    return batch.Write();
}

/// The first module; a new one where the model has none. 0 when it was refused.
std::uint32_t ModelWriter::Module() {
    std::vector<std::uint32_t> keys;
    if (database_.GetClass<CClassMdul>()->GetKeyList(keys)) return keys.front();
    RecordBatch<CClassMdul> batch(database_);
    const std::uint32_t key = batch.Add({.name = "Main"});
    return batch.Write() ? key : 0;
}

std::uint32_t ModelWriter::ModuleOf(const std::string& name) {
    if (name.empty()) return Module();
    if (const std::uint32_t key = database_.GetClass<CClassMdul>()->GetKey(name)) return key;
    RecordBatch<CClassMdul> batch(database_);
    const std::uint32_t key = batch.Add({.name = name});
    return batch.Write() ? key : 0;
}

void ModelWriter::UseStoriesOfModel() {
    std::vector<std::uint32_t> keys;
    database_.GetClass<CClassStor>()->GetKeyList(keys);
    std::vector<ExchangeLevel> levels;
    for (const std::uint32_t key : keys) {
        T_STOR_D record;
        database_.GetClass<CClassStor>()->Get(key, record);
        levels.push_back({database_.Units().ToBase(Unit::Length, record.level), key});
    }
    levels_ = StoryLevels(std::move(levels));
}

bool ModelWriter::WriteStoreys() {
    storeys_ = model_.storeys;
    if (storeys_.empty()) UseStoriesOfModel();
    if (!levels_.Empty()) return true;
    if (storeys_.empty()) {
        storeys_ = StoreysFromColumns(model_);
        written_.report.Add(FindingLevel::Converted, {}, "IDS_XCH_STOREYS_FROM_COLUMNS",
                            {velda::FormatLong(static_cast<std::int64_t>(storeys_.size()))});
    }
    FillHeights(storeys_);
    RecordBatch<CClassStor> batch(database_);
    const KnownRecords<CClassStor> known(database_, NameOf<T_STOR_D>);
    std::vector<ExchangeLevel> levels;
    for (const ExchangeStorey& storey : storeys_) {
        const std::uint32_t module = ModuleOf(storey.module);
        if (module == 0) return false;
        T_STOR_D record{.name = storey.name, .mdul = module, .level = storey.level, .height = *storey.height};
        levels.push_back({storey.level, Put(batch, known, std::move(record), storey.origin)});
        written_.storeys[storey.name] = levels.back().key;
    }
    levels_ = StoryLevels(std::move(levels));
    return batch.Write();
}

std::size_t ModelWriter::StoryOf(const std::string& storey, double z) const {
    const auto named = written_.storeys.find(storey);
    return named == written_.storeys.end() ? levels_.PlaceOfHeight(z) : levels_.PlaceOfKey(named->second);
}

bool ModelWriter::WriteNodes() {
    RecordBatch<CClassPont> batch(database_);
    const KnownRecords<CClassPont> known(database_, NameOf<T_PONT_D>);
    NumberGiver giver;
    std::vector<std::uint32_t> keys;
    database_.GetClass<CClassPont>()->GetKeyList(keys);
    for (const std::uint32_t key : keys) giver.Take(database_.GetClass<CClassPont>()->GetPontNoByKey(key));
    std::vector<std::string_view> names;
    for (const ExchangeNode& node : model_.nodes) names.push_back(node.name);
    const std::vector<std::uint32_t> numbers = giver.NumbersOf(names);
    for (std::size_t i = 0; i < model_.nodes.size(); ++i) {
        const ExchangeNode& node = model_.nodes[i];
        const std::size_t place = StoryOf(node.storey, node.z);
        T_PONT_D record{.x = node.x, .y = node.y, .z = HeightAbove(node.z, levels_.At(place).level)};
        record.plan = static_cast<int>(place);
        record.story = levels_.At(place).key;
        record.no = numbers[i];
        record.name = node.name;
        written_.places[node.name] = {node.x, node.y, node.z};
        written_.nodes[node.name] = Put(batch, known, std::move(record), node.origin);
    }
    return batch.Write();
}

/// The nodes of a member from its first to its last one, those between in the order in which they lie along it.
std::vector<std::string> ModelWriter::NodesAlong(const ExchangeMember& member) const {
    std::vector<std::string> nodes = member.nodes;
    if (member.innerNodes.empty() || nodes.size() != 2) return nodes;
    const Vector3 start = written_.places.at(nodes.front());
    const Vector3 along = Minus(written_.places.at(nodes.back()), start);
    std::vector<std::string> inner;
    for (const std::string& node : member.innerNodes) {
        if (node != nodes.front() && node != nodes.back()) inner.push_back(node);
    }
    const auto position = [&](const std::string& node) { return Dot(Minus(written_.places.at(node), start), along); };
    std::stable_sort(inner.begin(), inner.end(),
                     [&](const std::string& a, const std::string& b) { return position(a) < position(b); });
    nodes.insert(nodes.begin() + 1, inner.begin(), inner.end());
    return nodes;
}

double ModelWriter::AngleOf(const ExchangeMember& member, const Vector3& from, const Vector3& to) {
    const std::string axes = Comparable(member.axes);
    const MemberAxes own = AxesOfLine(from, to);
    Vector3 side{member.axisX.value_or(0.0), member.axisY.value_or(0.0), member.axisZ.value_or(0.0)};
    double angle = 0.0;
    if (axes.ends_with("point")) side = Minus(side, from);
    if (axes.starts_with('y')) angle = AngleOfLocalY(own, side);
    if (axes.starts_with('z')) angle = AngleOfLocalZ(own, side);
    return CleanAngle(angle + member.rotation.value_or(0.0));
}

void ModelWriter::TakeBehaviour(const ExchangeMember& member, T_MEMB_D& record) {
    const std::string behaviour = Comparable(member.behaviour);
    const bool usual = behaviour.empty() || behaviour == "standard" || behaviour == "frame";
    if (record.type == kBrace || record.type == kTrussWeb) {
        record.considerBending = usual ? 1 : 0;
        record.tensionOnly = behaviour == "tensiononly" ? 1 : 0;
        if (usual || record.tensionOnly || behaviour == "axialforceonly") return;
    }
    if (!usual) written_.Tell(FindingLevel::Note, member.origin, "IDS_XCH_BEHAVIOUR_NOT_KEPT", member.behaviour);
}

std::uint32_t ModelWriter::MaterialOf(const ExchangeMember& member) const {
    const auto ofSection = sectionMaterials_.find(member.section);
    const std::string& name =
        member.material.empty() && ofSection != sectionMaterials_.end() ? ofSection->second : member.material;
    const auto at = written_.materials.find(name);
    return at == written_.materials.end() ? 0 : at->second;
}

void ModelWriter::TakeNodes(const NameList& nodes, const std::string& storey, T_MEMB_D& record) {
    double top = written_.places.at(nodes.front())[2];
    for (const std::string& node : nodes) {
        record.nodes.push_back(written_.nodes.at(node));
        top = std::max(top, written_.places.at(node)[2]);
    }
    const std::size_t place = StoryOf(storey, top);
    record.story = levels_.At(place).key;
    record.plan = static_cast<int>(place);
}

void ModelWriter::TellArcs(const NameList& segments, const ExchangeOrigin& origin, const char* column) {
    for (const std::string& segment : segments) {
        if (Comparable(segment) == "line") continue;
        written_.Tell(FindingLevel::Converted, origin, "IDS_XCH_CURVE_STRAIGHTENED", segment, column);
        return;
    }
}

void ModelWriter::AddMember(const ExchangeMember& member, T_MEMB_D& record) {
    const std::vector<std::string> nodes = NodesAlong(member);
    const Vector3& from = written_.places.at(nodes.front());
    const Vector3& to = written_.places.at(nodes[nodes.size() == 2               ? 1
                                                 : nodes.back() == nodes.front() ? 1
                                                                                 : nodes.size() - 1]);
    record.type = MemberTypeOfWord(member.kind);
    if (record.type == 0) {
        record.type = MemberTypeOfLie(LieOfLine(from, to));
        written_.Tell(FindingLevel::Converted, member.origin, "IDS_XCH_TYPE_FROM_GEOMETRY",
                      CClassMemb::GetMembTypeName(record.type));
    }
    record.prop = written_.sections.at(member.section);
    record.matl = MaterialOf(member);
    record.beta = AngleOf(member, from, to);
    TakeNodes(nodes, member.storey, record);
    TakeBehaviour(member, record);
    TellArcs(member.segments, member.origin, "Segments");
}

/// The thickness of a surface; the mean of several ones.
double ModelWriter::ThicknessIn(const ExchangeSurface& surface) {
    if (surface.thickness) return *surface.thickness;
    const NameList items = SplitList(surface.thicknessText);
    double sum = 0.0;
    for (const std::string& item : items) sum += velda::wtof(std::string_view(item).substr(item.rfind(':') + 1));
    if (items.size() > 1) {
        written_.Tell(FindingLevel::Converted, surface.origin, "IDS_XCH_THICKNESS_MEAN", surface.name, "Thickness");
    }
    return items.empty() ? 0.0 : velda::RoundToShown(sum / static_cast<double>(items.size()));
}

std::uint32_t ModelWriter::ThicknessOf(const ExchangeSurface& surface) {
    constexpr double kMillimetre = 1000.0;
    const double thickness = ThicknessIn(surface);
    if (!(thickness > 0.0)) {
        written_.Tell(FindingLevel::Warning, surface.origin, "IDS_XCH_NO_THICKNESS", surface.name, "Thickness");
    }
    const std::string name = "T" + velda::FormatDouble(velda::RoundToShown(thickness * kMillimetre));
    const auto [at, isNew] = thicknesses_.try_emplace(name, 0);
    if (isNew) {
        at->second = Put(*thicknessBatch_, *knownThicknesses_, {.name = name, .thickness = thickness}, {});
    }
    return at->second;
}

void ModelWriter::AddSurface(const ExchangeSurface& surface, T_MEMB_D& record) {
    TakeNodes(surface.nodes, surface.storey, record);
    Vector3 normal{};
    for (std::size_t i = 2; i < surface.nodes.size() && Length(normal) == 0.0; ++i) {
        const Vector3& a = written_.places.at(surface.nodes[0]);
        normal =
            Cross(Minus(written_.places.at(surface.nodes[i - 1]), a), Minus(written_.places.at(surface.nodes[i]), a));
    }
    constexpr double kUpright = 0.1;
    record.type = SurfaceTypeOf(surface.kind, std::abs(normal[2]) < kUpright * Length(normal));
    record.prop = ThicknessOf(surface);
    record.matl = written_.materials.at(surface.material);
    TellArcs(surface.edges, surface.origin, "Edges");
}

void ModelWriter::AddOpening(const ExchangeOpening& opening, T_MEMB_D& record) {
    record.type = kOpening;
    TakeNodes(opening.nodes, {}, record);
    TellArcs(opening.edges, opening.origin, "Edges");
    if (!opening.surface.empty()) {
        written_.Tell(FindingLevel::Note, opening.origin, "IDS_XCH_OPENING_SURFACE", opening.surface, "2D Member");
    }
}

/// Members are known by their type and their nodes, since they have no names.
std::string MemberText(const T_MEMB_D& member) {
    std::string text = velda::FormatLong(member.type);
    for (const std::uint32_t node : member.nodes) text += ' ' + velda::FormatLong(node);
    return text;
}

bool ModelWriter::WriteMembers() {
    RecordBatch<CClassThik> thicknesses(database_);
    const KnownRecords<CClassThik> knownThicknesses(database_, NameOf<T_THIK_D>);
    thicknessBatch_ = &thicknesses;
    knownThicknesses_ = &knownThicknesses;
    RecordBatch<CClassMemb> batch(database_);
    const KnownRecords<CClassMemb> known(database_, MemberText);
    NumberGiver giver;
    std::vector<std::uint32_t> keys;
    database_.GetClass<CClassMemb>()->GetKeyList(keys);
    for (const std::uint32_t key : keys) giver.Take(database_.GetClass<CClassMemb>()->GetMembNoByKey(key));
    std::vector<std::string_view> names;
    for (const auto& member : model_.members) names.push_back(member.name);
    for (const auto& surface : model_.surfaces) names.push_back(surface.name);
    for (const auto& opening : model_.openings) names.push_back(opening.name);
    const std::vector<std::uint32_t> numbers = giver.NumbersOf(names);
    std::size_t next = 0;
    const auto put = [&](const auto& source, auto add) {
        T_MEMB_D record;
        record.no = numbers[next++];
        (this->*add)(source, record);
        written_.CountKept(source.origin);
        WrittenMember member{known.Find(record), record.type};
        member.hasInnerNodes = record.nodes.size() > 2;
        if (member.key != 0) written_.Tell(FindingLevel::Note, source.origin, "IDS_XCH_REUSED", source.name);
        if (member.key == 0) member.key = batch.Add(std::move(record));
        return member;
    };
    for (const auto& member : model_.members) {
        WrittenMember& entry = written_.members[member.name] = put(member, &ModelWriter::AddMember);
        for (std::size_t i = 1; i < member.nodes.size(); ++i) {
            entry.length += Length(Minus(written_.places.at(member.nodes[i]), written_.places.at(member.nodes[i - 1])));
        }
    }
    for (const auto& surface : model_.surfaces) {
        written_.surfaces[surface.name] = put(surface, &ModelWriter::AddSurface);
    }
    for (const auto& opening : model_.openings) put(opening, &ModelWriter::AddOpening);
    return thicknesses.Write() && batch.Write();
}

bool ModelWriter::WriteLoadCases() {
    RecordBatch<CClassStld> batch(database_);
    const KnownRecords<CClassStld> known(database_, NameOf<T_STLD_D>);
    std::unordered_map<std::string, std::string> groups;
    for (const ExchangeLoadGroup& group : model_.loadGroups) {
        groups[group.name] = group.kind == "Seismic" ? group.kind : group.loadType;
    }
    if (!model_.loadGroups.empty()) {
        written_.report.Add(FindingLevel::LeftOut, PlaceOf(model_, {model_.loadGroups.front().origin.sheet, 0}),
                            "IDS_XCH_LOAD_GROUPS_NOT_KEPT");
    }
    for (const ExchangeLoadCase& loadCase : model_.loadCases) {
        T_STLD_D record{.name = loadCase.name};
        record.type = LoadCaseTypeOf(loadCase.action, loadCase.loadType, groups[loadCase.group]);
        record.description = loadCase.description;
        written_.loadCaseTypes[loadCase.name] = record.type;
        written_.loadCases[loadCase.name] = Put(batch, known, std::move(record), loadCase.origin);
    }
    return batch.Write();
}

/// Combinations behind those that they contain.
std::vector<std::size_t> ModelWriter::CombinationOrder(const KeyOfName& places) const {
    std::vector<std::size_t> order;
    std::vector<bool> done(model_.combinations.size(), false);
    for (std::size_t i = 0; i < done.size(); ++i) {
        std::vector<std::pair<std::size_t, std::size_t>> way{{i, 0}};
        while (!way.empty()) {
            auto& [at, next] = way.back();
            const NameList& cases = model_.combinations[at].cases;
            if (done[at] || next == cases.size()) {
                if (!done[at]) order.push_back(at);
                done[at] = true;
                way.pop_back();
                continue;
            }
            const std::string& name = cases[next++];
            const auto inner = written_.loadCases.contains(name) ? places.end() : places.find(name);
            if (inner != places.end()) way.emplace_back(inner->second, 0);
        }
    }
    return order;
}

T_LCOM_D ModelWriter::RecordOf(const ExchangeCombination& combination, const KeyOfName& written) {
    const std::string kind = Comparable(combination.kind);
    const bool rule = kind == "envelope" || Comparable(combination.category) == "accordingnationalstandard";
    const int type = rule ? LoadCombinationType::Envelope : LoadCombinationType::Sum;
    T_LCOM_D record{.name = combination.name, .type = type, .description = combination.description};
    if (rule)
        written_.Tell(FindingLevel::Converted, combination.origin, "IDS_XCH_COMBINATION_RULE", combination.standard);
    for (std::size_t i = 0; i < combination.cases.size(); ++i) {
        const std::string& name = combination.cases[i];
        if (name.empty()) continue;
        const auto factor = [&](const std::vector<MaybeNumber>& list) {
            return i < list.size() ? list[i].value_or(1.0) : 1.0;
        };
        T_LCOM_ITEM item{LoadCaseKind::Static, 0, factor(combination.factors) * factor(combination.multipliers)};
        const auto loadCase = written_.loadCases.find(name);
        item.kind = loadCase == written_.loadCases.end() ? LoadCaseKind::Combination : LoadCaseKind::Static;
        item.key = item.kind == LoadCaseKind::Static ? loadCase->second : written.at(name);
        record.items.push_back(item);
    }
    return record;
}

bool ModelWriter::WriteCombinations() {
    const KnownRecords<CClassLcom> known(database_, NameOf<T_LCOM_D>);
    RecordBatch<CClassLcom> batch(database_);
    KeyOfName places;
    for (std::size_t i = 0; i < model_.combinations.size(); ++i) {
        places[model_.combinations[i].name] = static_cast<std::uint32_t>(i);
    }
    KeyOfName written;
    for (const std::size_t i : CombinationOrder(places)) {
        const ExchangeCombination& combination = model_.combinations[i];
        written[combination.name] = Put(batch, known, RecordOf(combination, written), combination.origin);
    }
    return batch.Write();
}

}  // namespace

bool WriteModel(DB_CDataBase& database, const ExchangeModel& model, const std::string& stepName,
                const ProfileLookup& lookup, ExchangeReport& report) {
    const auto refuse = [&] {
        report.Add(FindingLevel::Error, {}, "IDS_XCH_DATABASE_REFUSED", {database.GetLastReason()});
        return false;
    };
    if (!database.BeginGroup(stepName)) return refuse();
    if (ModelWriter(database, model, lookup, report).Run()) return database.EndGroup() != 0 || refuse();
    refuse();
    database.CancelGroup();
    return false;
}

}  // namespace zt
