#include "zt_db/sample/sample_building.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/msg_dll.h"
#include "zt_db/records/record_list.h"

namespace zt {
namespace {

using velda::Outcome;

/// Adds the records of a building. Sizes are in SI units; records are handed over in the current ones.
class SampleBuilder {
public:
    SampleBuilder(CDataBase& database, const SampleBuilding& building) : database_(database), building_(building) {}

    bool Build() {
        return AddProperties() && AddStories() && AddNodes() && AddMembers() && AddLoads() && AddSupports() &&
               AddBeamLoads() && AddGroupsAndStandards();
    }

private:
    enum Material : std::uint32_t { kConcrete = 1, kSteel };
    enum SectionKey : std::uint32_t { kColumn = 1, kBeam };
    enum ThicknessKey : std::uint32_t { kWall = 1, kSlab };
    enum LoadCase : std::uint32_t { kDead = 1, kLive, kWind, kEarthquake };
    enum Combination : std::uint32_t { kGravity = 1, kGravityWind, kService };

    template <class Class>
    bool Put(std::uint32_t key, typename Class::Record record) {
        RecordToCurrent(record, database_.Units());
        return database_.GetClass<Class>()->TR_Add(key, record) != 0;
    }
    template <class Class>
    bool PutAll(std::vector<typename Class::Record>& records) {
        std::vector<std::uint32_t> keys(records.size());
        for (std::size_t i = 0; i < records.size(); ++i) {
            keys[i] = static_cast<std::uint32_t>(i + 1);
            RecordToCurrent(records[i], database_.Units());
        }
        return database_.GetClass<Class>()->TR_Add(keys, records) != 0;
    }

    bool AddProperties() {
        // Moduli and densities of concrete C30 (KDS 14 20 10) and steel SM355 (KDS 14 31 05).
        T_MATL_D concrete{.name = "C30", .type = "C", .dampingRatio = 0.05};
        concrete.analysis[0] = Analysis(27537.0, 0.18, 1.0e-5, 2400.0, "KDS 14 20 10", "C30");
        T_MATL_D steel{.name = "SM355", .type = "S", .dampingRatio = 0.02};
        steel.analysis[0] = Analysis(210000.0, 0.3, 1.2e-5, 7850.0, "KDS 14 31 05", "SM355");
        return Put<CClassMatl>(kConcrete, concrete) && Put<CClassMatl>(kSteel, steel) &&
               Put<CClassSect>(kColumn, Rectangle("C600x600", 0.6, 0.6)) &&
               Put<CClassSect>(kBeam, Rectangle("B400x700", 0.4, 0.7)) &&
               Put<CClassThik>(kWall, {.name = "W200", .thickness = 0.2}) &&
               Put<CClassThik>(kSlab, {.name = "S150", .thickness = 0.15});
    }

    // Elasticity in N/mm2, density in kgf/m3, as the record keeps them in its own fixed units.
    T_MATL_ANALYSIS Analysis(double elasticity, double poisson, double thermal, double density, const char* code,
                             const char* grade) const {
        const CUnitCtrl& units = database_.Units();
        return {units.ToBase(Unit::FixedStress, elasticity),     poisson, thermal,
                units.ToBase(Unit::FixedWeightDensity, density), code,    grade};
    }

    /// Values of a solid rectangle of width b and depth h. Torsion constant: Roark, formulas for stress and strain,
    /// table 10.1; shear areas 5/6 of the area.
    static T_SECT_D Rectangle(const char* name, double b, double h) {
        T_SECT_D section{.name = name, .kind = 1, .type = 1, .shape = "Solid Rectangle"};
        section.base.size[0] = h;
        section.base.size[1] = b;
        const double area = b * h;
        const double longer = std::max(b, h) / 2.0;
        const double shorter = std::min(b, h) / 2.0;
        const double ratio = shorter / longer;
        section.stiffness = {
            area,
            area * 5.0 / 6.0,
            area * 5.0 / 6.0,
            longer * std::pow(shorter, 3) * (16.0 / 3.0 - 3.36 * ratio * (1.0 - std::pow(ratio, 4) / 12.0)),
            b * std::pow(h, 3) / 12.0,
            h * std::pow(b, 3) / 12.0};
        section.perimeterOut = 2.0 * (b + h);
        return section;
    }

    bool AddStories() {
        bool good = Put<CClassMdul>(1, {.name = "Main"});
        std::vector<T_STOR_D> stories;
        for (int i = 0; i <= building_.stories; ++i) {
            T_STOR_D story{.name = i == 0 ? "Base" : std::to_string(i) + "F", .mdul = 1};
            story.level = i * building_.storyHeight;
            story.height = i == 0 ? 0.0 : building_.storyHeight;
            stories.push_back(story);
        }
        return good && PutAll<CClassStor>(stories);
    }

    std::uint32_t NodeKey(int i, int j, int story) const {
        const int perFloor = (building_.baysX + 1) * (building_.baysY + 1);
        return static_cast<std::uint32_t>(story * perFloor + j * (building_.baysX + 1) + i + 1);
    }
    static std::uint32_t StoryKey(int story) { return static_cast<std::uint32_t>(story + 1); }

    bool AddNodes() {
        std::vector<T_PONT_D> nodes;
        for (int story = 0; story <= building_.stories; ++story) {
            for (int j = 0; j <= building_.baysY; ++j) {
                for (int i = 0; i <= building_.baysX; ++i) {
                    T_PONT_D node{.x = i * building_.bayX, .y = j * building_.bayY, .story = StoryKey(story)};
                    node.plan = story;
                    node.no = NodeKey(i, j, story);
                    nodes.push_back(node);
                }
            }
        }
        return PutAll<CClassPont>(nodes);
    }

    void AddMember(int type, int story, std::uint32_t property, std::vector<std::uint32_t> nodes) {
        T_MEMB_D member{.type = type, .story = StoryKey(story), .prop = property, .matl = kConcrete, .plan = story};
        member.no = static_cast<std::uint32_t>(members_.size() + 1);
        member.nodes = std::move(nodes);
        members_.push_back(std::move(member));
    }

    bool AddMembers() {
        for (int story = 1; story <= building_.stories; ++story) {
            for (int j = 0; j <= building_.baysY; ++j) {
                for (int i = 0; i <= building_.baysX; ++i) AddMembersAt(i, j, story);
            }
            AddMember(202, story, kWall,
                      {NodeKey(0, 0, story - 1), NodeKey(0, 1, story - 1), NodeKey(0, 1, story), NodeKey(0, 0, story)});
        }
        return PutAll<CClassMemb>(members_);
    }

    void AddMembersAt(int i, int j, int story) {
        AddMember(101, story, kColumn, {NodeKey(i, j, story - 1), NodeKey(i, j, story)});
        const bool hasX = i < building_.baysX;
        const bool hasY = j < building_.baysY;
        if (hasX) AddMember(201, story, kBeam, {NodeKey(i, j, story), NodeKey(i + 1, j, story)});
        if (hasY) AddMember(201, story, kBeam, {NodeKey(i, j, story), NodeKey(i, j + 1, story)});
        if (hasX && hasY) {
            AddMember(301, story, kSlab,
                      {NodeKey(i, j, story), NodeKey(i + 1, j, story), NodeKey(i + 1, j + 1, story),
                       NodeKey(i, j + 1, story)});
        }
    }

    bool AddLoads() {
        const auto with = [](std::uint32_t loadCase, double factor) {
            return T_LCOM_ITEM{LoadCaseKind::Static, loadCase, factor};
        };
        const T_LCOM_D gravity{.name = "1.2D+1.6L", .items = {with(kDead, 1.2), with(kLive, 1.6)}};
        const T_LCOM_D wind{.name = "1.2D+1.0L+1.0W", .items = {with(kDead, 1.2), with(kLive, 1.0), with(kWind, 1.0)}};
        const T_LCOM_D service{.name = "D+L", .items = {with(kDead, 1.0), with(kLive, 1.0)}};
        return Put<CClassStld>(kDead, {.name = "DL", .type = "D", .description = "Dead load"}) &&
               Put<CClassStld>(kLive, {.name = "LL", .type = "L", .description = "Live load"}) &&
               Put<CClassStld>(kWind, {.name = "WX", .type = "W", .description = "Wind in X"}) &&
               Put<CClassStld>(kEarthquake, {.name = "EX", .type = "E", .description = "Earthquake in X"}) &&
               Put<CClassLcom>(kGravity, gravity) && Put<CClassLcom>(kGravityWind, wind) &&
               Put<CClassLcom>(kService, service);
    }

    /// The columns stand in fixed footings.
    bool AddSupports() {
        std::vector<T_SPTS_D> supports(NodeKey(0, 0, 1) - 1, {.flags = "111111"});
        return PutAll<CClassSpts>(supports);
    }

    /// Partitions on the beams: a block wall of 190 mm with plaster, 3 m high, at 2.5 kN/m2.
    bool AddBeamLoads() {
        constexpr double kPartition = -7500.0;
        std::vector<T_LNLD_D> loads;
        for (std::uint32_t key = 1; key <= members_.size(); ++key) {
            if (members_[key - 1].type != 201) continue;
            loads.push_back({.memb = key, .stld = kDead, .x = {0.0, 1.0}, .p = {kPartition, kPartition}});
        }
        return PutAll<CClassLnld>(loads);
    }

    bool AddGroupsAndStandards() {
        T_NAME_D base{.name = "Base nodes", .type = T_NAME_D::kNodeGroup};
        for (std::uint32_t key = 1; key < NodeKey(0, 0, 1); ++key) base.keys.push_back(key);
        const T_STND_D standards{
            .concrete = "KDS 14 20 00", .steel = "KDS 14 31 00", .load = "KDS 41 12 00", .seismic = "KDS 41 17 00"};
        return Put<CClassName>(1, base) && Put<CClassStnd>(1, standards);
    }

    CDataBase& database_;
    const SampleBuilding& building_;
    std::vector<T_MEMB_D> members_;
};

}  // namespace

const std::vector<SampleBuilding>& SampleBuildings() {
    static const std::vector<SampleBuilding> buildings = {
        {"small", 1, 1, 2},
        {"office", 4, 3, 5},
        {"tower", 8, 6, 40},
        {"district", 60, 40, 30},
    };
    return buildings;
}

Outcome BuildSample(CDataBase& database, std::string_view name) {
    for (const SampleBuilding& building : SampleBuildings()) {
        if (building.name != name) continue;
        if (database.GetClass<CClassPont>()->GetCount() > 0) {
            return Outcome::Refused(velda::FormatText("IDS_DB_REASON_NOT_EMPTY", {}));
        }
        if (!database.BeginGroup(velda::FormatText("IDS_DB_STEP_SAMPLE", {name}))) {
            return Outcome::Refused(database.GetLastReason());
        }
        if (SampleBuilder(database, building).Build()) {
            return database.EndGroup() ? Outcome::Done() : Outcome::Refused(database.GetLastReason());
        }
        const std::string reason = database.GetLastReason();
        database.CancelGroup();
        return Outcome::Refused(reason);
    }
    return Outcome::Refused(velda::FormatText("IDS_DB_REASON_NO_SAMPLE", {name}));
}

}  // namespace zt
