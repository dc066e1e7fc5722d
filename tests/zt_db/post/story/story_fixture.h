#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "zt_db/doc/mdb_ctrl.h"
#include "zt_db/post/memory_results.h"
#include "zt_db/post/post_ctrl.h"
#include "zt_db/post/story/story_result.h"
#include "zt_db/post/story/story_result_post.h"
#include "zt_db/test_support.h"

namespace zt {

/// A test with results that are made by hand. The model is in m and kN; results are in SI units. The building has two
/// bays of 6 m along X and one of 8 m along Y, three stories of 3 m, and a column at each of the six places of each
/// story: node 100 s + p is that of place p (1 to 6) at the top of story s, and 0 is the ground. Places 1 to 3 lie at
/// y = 0, 4 to 6 at y = 8.
class StoryTest : public ModelTest {
protected:
    int stories = 3;  ///< to be set before the model is built
    static constexpr int kPlaces = 6;
    static constexpr std::uint32_t kSeismic = 1;
    static constexpr std::uint32_t kGravityCase = 2;

    template <class Class>
    void Add(std::uint32_t key, const typename Class::Record& record) {
        ASSERT_TRUE(Records<Class>().TR_Add(key, record)) << Db().GetLastReason();
    }

    void BuildModel() {
        Add<CClassMdul>(1, {.name = "M"});
        for (int s = 0; s <= stories; ++s) {
            Add<CClassStor>(
                KeyOfStory(s),
                {.name = std::to_string(s) + "F", .mdul = 1, .level = 3.0 * s, .height = s == 0 ? 0.0 : 3.0});
        }
        Add<CClassMatl>(1, {.name = "C", .type = "C", .analysis = {{{.elasticity = 25000.0, .density = 2500.0}, {}}}});
        Add<CClassSect>(1, {.name = "S", .stiffness = {.area = 0.2, .iyy = 0.004, .izz = 0.001}});
        Add<CClassThik>(1, {.name = "T", .thickness = 0.1});
        for (const auto& [key, type] : std::map<std::uint32_t, std::string>{{1, "E"}, {2, "D"}, {3, "W"}, {4, "L"}}) {
            Add<CClassStld>(key, {.name = type + std::to_string(key), .type = type});
        }
        for (int s = 0; s <= stories; ++s) {
            for (int p = 1; p <= kPlaces; ++p) {
                Add<CClassPont>(No(s, p), {.x = 6.0 * ((p - 1) % 3),
                                           .y = p > 3 ? 8.0 : 0.0,
                                           .z = 0.0,
                                           .story = KeyOfStory(s),
                                           .no = No(s, p)});
                if (s == 0) continue;
                Add<CClassMemb>(No(s, p), {.type = MembType::Column,
                                           .no = No(s, p),
                                           .story = KeyOfStory(s),
                                           .prop = 1,
                                           .matl = 1,
                                           .nodes = {No(s - 1, p), No(s, p)}});
            }
        }
        Add<CClassActl>(1, {.selfWeightMass = 0});
    }
    static std::uint32_t No(int story, int place) { return static_cast<std::uint32_t>(100 * story + place + 1000); }
    static std::uint32_t KeyOfStory(int story) { return static_cast<std::uint32_t>(story + 1); }
    static std::size_t PlaceOf(int story, int place) { return static_cast<std::size_t>(kPlaces * story + place - 1); }
    /// Place in a list of records: the topmost story comes first.
    std::size_t At(int story) { return static_cast<std::size_t>(stories - story); }

    void PutHead(const ResultHead& head) { EXPECT_TRUE(results->PutHead(head)); }
    void PutResultCase(const ResultCase& loadCase) { EXPECT_TRUE(results->PutCase(loadCase)); }
    void PutArray(std::string_view name, std::size_t columns, std::span<const double> values) {
        EXPECT_TRUE(results->PutArray(name, columns, values));
    }
    void PutKeys(std::string_view name, std::span<const std::uint32_t> keys) {
        EXPECT_TRUE(results->PutKeys(name, keys));
    }
    template <class Record>
    void PutRecords(int kind, std::uint32_t key, std::string_view service, const std::vector<Record>& records) {
        EXPECT_TRUE(PutStoryRecords(*results, kind, key, service, records));
    }

    /// Begins results of the model that stands.
    void BeginResults() {
        results = std::make_shared<MemoryResults>();
        PutHead({.run = "r", .stations = 2});
        std::vector<std::uint32_t> nodes;
        std::vector<std::uint32_t> members;
        std::vector<std::uint32_t> ends;
        std::vector<double> ranges;
        for (int s = 0; s <= stories; ++s) {
            for (int p = 1; p <= kPlaces; ++p) {
                nodes.push_back(No(s, p));
                if (s == 0) continue;
                members.push_back(No(s, p));
                ends.insert(ends.end(), {No(s - 1, p), No(s, p)});
                ranges.insert(ranges.end(), {0.0, 1.0});
            }
        }
        PutKeys(ResultName::Nodes, nodes);
        PutKeys(ResultName::ElementMembers, members);
        PutKeys(ResultName::ElementEnds, ends);
        PutArray(ResultName::ElementRanges, 2, ranges);
    }
    using Plane = std::array<double, 2>;
    /// Stores six values a node, of which X and Y are given.
    void PutNodes(const std::string& name, const std::function<Plane(int story, int place)>& valueOf) {
        std::vector<double> values(6 * (PlaceOf(stories, kPlaces) + 1));
        for (int s = 0; s <= stories; ++s) {
            for (int p = 1; p <= kPlaces; ++p) {
                const Plane value = valueOf(s, p);
                std::copy(value.begin(), value.end(), values.begin() + static_cast<std::ptrdiff_t>(6 * PlaceOf(s, p)));
            }
        }
        PutArray(name, 6, values);
    }
    void PutCase(std::uint32_t key, const std::function<Plane(int story, int place)>& displacementOf) {
        PutResultCase({LoadCaseKind::Static, key, "case", "E"});
        PutNodes(CasePath(LoadCaseKind::Static, key, ResultName::Displacement), displacementOf);
    }
    /// Stores for each column its axial force (tension positive) and its shears along X and Y. Columns stand upright
    /// with local z along X and local y against Y.
    void PutForces(std::uint32_t key, const std::function<std::array<double, 3>(int story, int place)>& forceOf) {
        std::vector<double> values;
        for (int s = 1; s <= stories; ++s) {
            for (int p = 1; p <= kPlaces; ++p) {
                const auto [axial, x, y] = forceOf(s, p);
                for (int station = 0; station < 2; ++station) {
                    values.insert(values.end(), {axial, -y, x, 0.0, 0.0, 0.0});
                }
            }
        }
        PutArray(CasePath(LoadCaseKind::Static, key, ResultName::ElementForce), 6, values);
    }
    void UseResults() { doc->GetMDBCtrl()->SetResults(results); }

    CPostCtrl Control() { return {*doc->GetMDBCtrl(), *doc->GetUnitCtrl()}; }

    std::shared_ptr<MemoryResults> results;
};

}  // namespace zt
