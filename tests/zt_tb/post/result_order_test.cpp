#include <algorithm>
#include <numeric>
#include <random>

#include "zt_tb/post/force_tables.h"
#include "zt_tb/post/story/story_table_fixture.h"
#include "zt_tb/post/story/tb_post_st_disp.h"
#include "zt_tb/post/story/tb_post_st_drft_th.h"
#include "zt_tb/post/tb_post_memb_force.h"
#include "zt_tb/post/tb_post_node.h"

namespace zt {
namespace {

constexpr int kCases = 60;

/// The records in the order of the fields that a table opens with, found by reading each of them; equal ones as they
/// are numbered.
std::vector<std::uint32_t> OrderByReading(CTBPostDS& source) {
    const velda::CTBCore& grid = *source.Grid();
    const auto slotOf = [&](int fieldNo) { return static_cast<std::size_t>(grid.RecHdr().SlotOf(fieldNo, 1)); };
    const std::size_t load = slotOf(source.Declaration().loadOrderField);
    const std::size_t object = slotOf(source.Declaration().objectField);
    std::vector<std::pair<double, double>> keys;
    velda::RecordCells cells;
    for (long record = 1; record <= grid.RecCtrl().RecCount(); ++record) {
        cells.Reset(grid.RecHdr());
        EXPECT_TRUE(source.SeekRec(record));
        source.GetRecTexts(cells);
        keys.emplace_back(cells.At(load).number, cells.At(object).number);
    }
    std::vector<std::uint32_t> order(keys.size());
    std::iota(order.begin(), order.end(), 1u);
    std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return keys[a - 1] < keys[b - 1]; });
    return order;
}

std::vector<std::uint32_t> Listed(const velda::RecordOrder& order) {
    std::vector<std::uint32_t> records(order.Count());
    for (std::uint32_t place = 1; place <= order.Count(); ++place) records[place - 1] = order.RecordAt(place);
    return records;
}

/// How often the order was known without reading, and how often it was not.
struct Tally {
    int known = 0;
    int read = 0;

    /// Holds the order of a table against that by reading.
    void Take(CTBPostDS& source) {
        const std::vector<std::uint32_t> expected = OrderByReading(source);
        velda::RecordOrder order;
        const bool isKnown = source.GetOrder(source.Grid()->SortInfo(), order);
        ++(isKnown ? known : read);
        if (isKnown) {
            EXPECT_EQ(expected, Listed(order));
        }
        EXPECT_EQ(expected, Listed(source.Grid()->RecCtrl().Order())) << "as it is shown";
    }
};

class Chance {
public:
    int Below(int count) { return std::uniform_int_distribution(0, count - 1)(engine_); }
    /// Some of the numbers from 1 to a last one, mostly ascending.
    std::vector<std::uint32_t> Some(std::uint32_t first, std::uint32_t last) {
        std::vector<std::uint32_t> numbers;
        for (std::uint32_t number = first; number <= last; ++number) {
            if (Below(4) != 0) numbers.push_back(number);
        }
        if (Below(3) == 0) std::shuffle(numbers.begin(), numbers.end(), engine_);
        return numbers;
    }
    /// Load cases of several kinds, in any order, some of them twice in different envelopes.
    std::vector<LoadChoice> Loads(std::initializer_list<std::uint32_t> kinds, std::uint32_t lastKey) {
        std::vector<LoadChoice> loads;
        for (const std::uint32_t kind : kinds) {
            for (std::uint32_t key = 1; key <= lastKey; ++key) {
                for (const std::int16_t subKind : kSubKinds) {
                    if (Below(6) == 0) loads.push_back({key, kind, subKind});
                }
            }
        }
        std::shuffle(loads.begin(), loads.end(), engine_);
        return loads;
    }

private:
    static constexpr std::int16_t kSubKinds[] = {LoadCaseSubKind::Single, LoadCaseSubKind::Max, LoadCaseSubKind::Min,
                                                 LoadCaseSubKind::All};
    std::mt19937 engine_{20};
};

using OpeningOrder = ForceTables;
using OpeningOrderOfStories = StoryTableTest;

TEST_F(OpeningOrder, OfNodesIsThatOfReading) {
    PutResults();
    Chance chance;
    Tally tally;
    for (int i = 0; i < kCases; ++i) {
        CTBPostDS& displacements = Open<CTBPostDisp>(1);
        const TB_ACTIVE_PARAM param = Choice(chance.Some(1, 4), chance.Loads({1, 4, 5, 10}, 2));
        displacements.SetActiveParam(param);
        tally.Take(displacements);
        CTBPostDS& reactions = Open<CTBPostReac>(2);
        reactions.SetActiveParam(param);
        tally.Take(reactions);
    }
    EXPECT_GT(tally.known, kCases / 4);
    EXPECT_GT(tally.read, kCases / 4);
}

TEST_F(OpeningOrder, OfNodesInSeveralStepsIsThatOfReading) {
    PutResults();
    Chance chance;
    Tally tally;
    for (int i = 0; i < kCases; ++i) {
        CTBPostDS& source = Open<CTBPostDisp>(1);
        source.SetStepListOff(true);
        TB_ACTIVE_PARAM param = Choice({1, 2, 4}, chance.Loads({1, 4}, 1));
        param.steps = {.isOn = true,
                       .selected = i % 2 == 0 ? std::vector<std::int16_t>{3, 1} : std::vector<std::int16_t>{3}};
        source.SetActiveParam(param);
        EXPECT_EQ(source.Rows().size(), param.loads.selected.size() * param.steps.selected.size());
        tally.Take(source);
    }
    EXPECT_GT(tally.known, kCases / 4);
    EXPECT_GT(tally.read, kCases / 4);
}

TEST_F(OpeningOrder, OfMembersInSeveralPartsIsThatOfReading) {
    PutResults();
    Chance chance;
    Tally tally;
    for (int i = 0; i < kCases; ++i) {
        CTBPostDS& source = Open<CTBPostColmForce>(67);
        source.SetActiveParam(Choice(chance.Some(11, 12), chance.Loads({1, 4}, 3)));
        tally.Take(source);
    }
    EXPECT_GT(tally.known, kCases / 4);
    EXPECT_GT(tally.read, kCases / 8);
}

TEST_F(OpeningOrderOfStories, IsThatOfReading) {
    std::vector<T_STDSP_D> records;
    for (const int story : {3, 2, 1}) records.push_back(RecordOf<T_STDSP_D>(story));
    PutRecords(LoadCaseKind::Static, 1, "DSP", records);
    // Other services number their stories in another order, or have fewer of them.
    std::reverse(records.begin(), records.end());
    PutRecords(LoadCaseKind::Static, 2, "DSP", records);
    records.pop_back();
    PutRecords(LoadCaseKind::Static, 3, "DSP", records);
    Chance chance;
    Tally tally;
    for (int i = 0; i < kCases; ++i) {
        CTBPostDS& source = Open<CTBPostStDisp>(0);
        source.SetActiveParam(Loads(chance.Loads({1}, i % 3 == 0 ? 3 : 1)));
        tally.Take(source);
        grids.clear();
    }
    EXPECT_GT(tally.known, kCases / 8);
    EXPECT_GT(tally.read, kCases / 8);
}

TEST_F(OpeningOrderOfStories, OfPushoverStepsIsThatOfReading) {
    for (const std::uint32_t key : {1u, 2u, 3u}) {
        for (const int step : {1, 2, 3}) {
            std::vector<T_STDFTTH_D> records;
            for (const int story : {3, 2, 1}) records.push_back(RecordOf<T_STDFTTH_D>(story));
            PutRecords(LoadCaseKind::Pushover, key, "DFT4PV/" + std::to_string(step), records);
        }
    }
    Chance chance;
    Tally tally;
    for (int i = 0; i < kCases; ++i) {
        auto& source = Open<CTBPostStDrftPO>();
        source.SetStepListOff(true);
        std::vector<LoadChoice> loads;
        for (const std::uint32_t key : chance.Some(1, 3)) {
            loads.push_back({key, LoadCaseKind::Pushover, LoadCaseSubKind::All});
        }
        TB_ACTIVE_PARAM param = Loads(loads);
        param.steps = {.isOn = true, .names = {"1", "2", "3"}, .keys = {1, 2, 3}, .selected = {}};
        for (const std::uint32_t step : chance.Some(1, 3)) {
            param.steps.selected.push_back(static_cast<std::int16_t>(step));
        }
        source.SetActiveParam(param);
        tally.Take(source);
        grids.clear();
    }
    EXPECT_EQ(tally.read, kCases) << "records of a case stand step by step";
}

}  // namespace
}  // namespace zt
