#include "zt_tb/post/result_availability.h"

#include <set>

#include "zt_db/post/post_fixture.h"

namespace zt {
namespace {

constexpr std::string_view kNotAnalysed = "IDS_TB_RESULTS_NOT_ANALYSED";
constexpr std::string_view kNoCases = "IDS_TB_RESULTS_NO_SUCH_CASES";
constexpr std::string_view kNoTable = "IDS_TB_RESULTS_NO_TABLE_YET";

class ResultAvailability : public PortalTest {
protected:
    using Kinds = std::vector<int>;

    /// Makes results of one case of each kind.
    std::shared_ptr<MemoryResults> PutCases(const Kinds& kinds) {
        auto results = std::make_shared<MemoryResults>();
        EXPECT_TRUE(PutModel(*results));
        for (const int kind : kinds) EXPECT_TRUE(results->PutCase({kind, 1, "case", ""}));
        doc->GetMDBCtrl()->SetResults(results);
        return results;
    }
    std::string_view Why(int id) const {
        return WhyNothingToShow(*FindResultTable(id), *doc->GetMDBCtrl()->GetDBPost());
    }
    /// The tables that have something to show, of those with a source.
    std::set<int> Bright() const {
        std::set<int> bright;
        for (const ResultTableEntry& table : ResultTables()) {
            if (Why(table.id).empty()) bright.insert(table.id);
        }
        return bright;
    }
};

TEST_F(ResultAvailability, IsNoneForTablesThatDoNotExist) {
    // Mode shapes, story shears, and design tables without any source.
    for (const int id : {4, 10, 13, 91, 95}) EXPECT_EQ(Why(id), kNoTable) << id;
    PutCases({LoadCaseKind::Static});
    for (const int id : {4, 10, 13, 91, 95}) EXPECT_EQ(Why(id), kNoTable) << id;
}

TEST_F(ResultAvailability, BeginsWithResults) {
    for (const int id : {2, 3, 8, 9, 14, 15, 27, 28, 48, 54, 70}) EXPECT_EQ(Why(id), kNotAnalysed) << id;
    EXPECT_EQ(Bright(), std::set<int>());
    PutCases({});
    for (const int id : {2, 3, 8, 9, 14, 15, 27, 28, 48, 54, 70}) EXPECT_EQ(Why(id), kNoCases) << id;
}

TEST_F(ResultAvailability, HangsOnTheKindsOfCases) {
    const std::set<int> always = {1, 2, 3, 8, 14, 15, 48, 54};
    const auto with = [&](std::set<int> more) {
        more.insert(always.begin(), always.end());
        return more;
    };
    const std::pair<int, std::set<int>> kinds[] = {
        {LoadCaseKind::Static, {}},          {LoadCaseKind::Spectrum, {}},   {LoadCaseKind::Combination, {}},
        {LoadCaseKind::TimeHistory, {27}},   {LoadCaseKind::Pushover, {70}}, {LoadCaseKind::NonlinearLoad, {28}},
        {LoadCaseKind::NonlinearCase, {28}}, {LoadCaseKind::EsSpectrum, {}},
    };
    for (const auto& [kind, more] : kinds) {
        PutCases({kind});
        EXPECT_EQ(Bright(), with(more)) << kind;
    }
    PutCases({LoadCaseKind::NonlinearCase, LoadCaseKind::Pushover, LoadCaseKind::TimeHistory});
    EXPECT_EQ(Bright(), with({27, 28, 70}));
}

TEST_F(ResultAvailability, OfLinksHangsOnLinks) {
    const auto results = PutCases({LoadCaseKind::Static});
    EXPECT_EQ(Why(9), kNoCases);
    ASSERT_TRUE(results->PutKeys(ResultName::Links, std::vector<std::uint32_t>{7}));
    doc->GetMDBCtrl()->SetResults(results);
    EXPECT_EQ(Why(9), "");
}

}  // namespace
}  // namespace zt
