#pragma once

#include "zt_db/post/memory_results.h"
#include "zt_db/post/post_ctrl.h"
#include "zt_db/test_support.h"

namespace zt {

/// A portal of two columns (11 and 12) and a beam (13) on the nodes 1 to 4, in m and kN, with two static cases.
class PortalTest : public ModelTest {
protected:
    enum Case : std::uint32_t { kDead = 1, kWind = 2, kSpectrum = 5, kHistory = 6 };

    PortalTest() {
        Records<CClassMdul>().TR_Add(1, {.name = "Tower"});
        Records<CClassStor>().TR_Add(
            {1, 2}, {{.name = "1F", .mdul = 1, .level = 0.0}, {.name = "2F", .mdul = 1, .level = 4.0, .height = 4.0}});
        Records<CClassPont>().TR_Add({101, 102, 103, 104}, {{.x = 0.0, .story = 1, .no = 1},
                                                            {.x = 6.0, .story = 1, .no = 2},
                                                            {.x = 0.0, .story = 2, .no = 3},
                                                            {.x = 6.0, .story = 2, .no = 4}});
        Records<CClassSect>().TR_Add(1, T_SECT_D{.name = "S"});
        Records<CClassMatl>().TR_Add(1, T_MATL_D{.name = "M"});
        const auto member = [](int type, std::uint32_t no, std::vector<std::uint32_t> nodes) {
            return T_MEMB_D{.type = type, .no = no, .story = 2, .prop = 1, .matl = 1, .nodes = std::move(nodes)};
        };
        Records<CClassMemb>().TR_Add(std::vector<std::uint32_t>{201, 202, 203},
                                     std::vector<T_MEMB_D>{member(101, 11, {101, 103}), member(101, 12, {104, 102}),
                                                           member(201, 13, {103, 104})});
        Records<CClassStld>().TR_Add({kDead, kWind}, {{.name = "DL", .type = "D"}, {.name = "WX", .type = "W"}});
        Records<CClassSplc>().TR_Add(kSpectrum, T_SPLC_D{.name = "RX"});
        Records<CClassThlc>().TR_Add(kHistory, T_THLC_D{.name = "EQ"});
    }

    /// What each node and each station of the portal has in a case: `scale` times its place, from 1, plus its
    /// component.
    static std::vector<double> Values(std::size_t rows, double scale) {
        std::vector<double> values;
        for (std::size_t row = 0; row < rows; ++row) {
            for (std::size_t i = 0; i < 6; ++i) {
                values.push_back(scale * static_cast<double>(row + 1) + static_cast<double>(i));
            }
        }
        return values;
    }

    static velda::Outcome PutModel(ResultSink& sink) {
        const auto put = [&](std::string_view name, std::vector<std::uint32_t> keys) {
            EXPECT_TRUE(sink.PutKeys(name, keys));
        };
        put(ResultName::Nodes, {1, 2, 3, 4});
        put(ResultName::Supports, {1, 2});
        put(ResultName::ElementMembers, {11, 12, 13});
        put(ResultName::ElementEnds, {1, 3, 4, 2, 3, 4});
        return sink.PutArray(ResultName::ElementRanges, 2, std::vector<double>{0, 1, 0, 1, 0, 1});
    }
    static velda::Outcome PutCase(ResultSink& sink, int kind, std::uint32_t key, const std::string& name,
                                  double scale) {
        EXPECT_TRUE(sink.PutCase({kind, key, name, ""}));
        EXPECT_TRUE(sink.PutArray(CasePath(kind, key, ResultName::Displacement), 6, Values(4, scale)));
        EXPECT_TRUE(sink.PutArray(CasePath(kind, key, ResultName::Reaction), 6, Values(2, scale)));
        return sink.PutArray(CasePath(kind, key, ResultName::ElementForce), 6, Values(3 * 9, scale));
    }
    static velda::Outcome PutHistory(ResultSink& sink) {
        constexpr int kKind = LoadCaseKind::TimeHistory;
        EXPECT_TRUE(sink.PutCase({kKind, kHistory, "EQ", ""}));
        EXPECT_TRUE(sink.PutArray(CasePath(kKind, kHistory, "displacement_max"), 6, Values(4, 2.0)));
        EXPECT_TRUE(sink.PutArray(CasePath(kKind, kHistory, "displacement_min"), 6, Values(4, -50.0)));
        EXPECT_TRUE(sink.PutArray(CasePath(kKind, kHistory, "displacement_max_time"), 6, Values(4, 0.5)));
        return sink.PutArray(CasePath(kKind, kHistory, "displacement_min_time"), 6, Values(4, 0.25));
    }
    static velda::Outcome PutAll(ResultSink& sink) {
        EXPECT_TRUE(PutModel(sink));
        EXPECT_TRUE(PutCase(sink, LoadCaseKind::Static, kDead, "DL", 10.0));
        EXPECT_TRUE(PutCase(sink, LoadCaseKind::Static, kWind, "WX", 100.0));
        EXPECT_TRUE(PutCase(sink, LoadCaseKind::Spectrum, kSpectrum, "RX", 1000.0));
        EXPECT_TRUE(PutHistory(sink));
        const std::vector<double> frequencies = {0.5, 1e-9, 2.0, 1e-8};
        const std::vector<double> effective = {80, 0, 0, 0, 40, 0, 0, 60, 0, 20, 0, 5};
        EXPECT_TRUE(sink.PutArray(ResultName::Frequency, 2, frequencies));
        EXPECT_TRUE(sink.PutArray(ResultName::EffectiveMass, 6, effective));
        EXPECT_TRUE(sink.PutArray(ResultName::TotalMass, 6, std::vector<double>{100, 100, 0, 50, 50, 10}));
        EXPECT_TRUE(sink.PutArray("modal/shape/1", 6, Values(4, 1.0)));
        EXPECT_TRUE(sink.PutArray("modal/shape/2", 6, Values(4, -1.0)));
        const std::vector<double> coordinates = {0.0, 0.0, 2.0, 0.5};
        EXPECT_TRUE(
            sink.PutArray(CasePath(LoadCaseKind::TimeHistory, kHistory, ResultName::Coordinate), 2, coordinates));
        return sink.PutArray(CasePath(LoadCaseKind::TimeHistory, kHistory, ResultName::Step), 1, std::vector{0.02});
    }

    CPostCtrl& Post() { return *doc->GetPostCtrl(); }
    double DxOf(std::uint32_t node, int which = 0) {
        T_DISP_D values[3];
        EXPECT_TRUE(Post().GetDisp(node, &values[0], &values[1], &values[2]));
        return values[which].value[0];
    }
};

/// The portal with its results in memory.
class PortalResultsTest : public PortalTest {
protected:
    PortalResultsTest() {
        auto results = std::make_shared<MemoryResults>();
        EXPECT_TRUE(PutAll(*results));
        doc->GetMDBCtrl()->SetResults(results);
    }
};

}  // namespace zt
