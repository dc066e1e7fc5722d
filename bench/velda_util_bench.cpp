// The rows of a record browser against a table that is written by hand (node_peer.h).

#include <functional>

#include "node_peer.h"
#include "ratio_reporter.h"
#include "velda_util/rows/record_rows.h"

namespace {

using namespace velda;
using namespace bench;

// ---- ours ----

enum Column { kKey, kNumber, kStory, kLevel, kX, kY, kZ, kName, kPlan };

class OurTable {
public:
    OurTable() {
        using enum ColumnType;
        rows.Configure({Long, Long, String, Double, Double, Double, Double, String, String}, kKey,
                       {{kLevel, 0, 0}, {kNumber, 0, 0}});
    }
    void Fill(std::uint32_t count) {
        changed.assign(Nodes().begin(), Nodes().begin() + count);
        std::vector<std::uint32_t> keys(count);
        std::iota(keys.begin(), keys.end(), kFirstKey);
        rows.Fill(keys, Writer());
    }
    /// Sends the nodes of a batch to other stories.
    void MoveBatch(std::span<const std::uint32_t> keys) {
        for (const std::uint32_t key : keys) {
            Node& node = changed[key - kFirstKey];
            node.story = static_cast<std::uint16_t>((node.story + 71) % kStories);
            node.level = (node.story + 1) * 3.3;
        }
        Replay(keys, keys);
    }
    void Replay(std::span<const std::uint32_t> gone, std::span<const std::uint32_t> come) {
        rows.Replay(gone, come, Writer());
        rows.Data().RecycleRows();
    }
    void Write(std::uint32_t key, CGXData& data, RowId row) const {
        const Node& node = changed[key - kFirstKey];
        data.StoreNumber(row, kKey, node.key);
        data.StoreNumber(row, kNumber, node.number);
        data.StoreText(row, kStory, StoryName(node.story), false);
        data.StoreNumber(row, kLevel, node.level);
        data.StoreNumber(row, kX, node.x);
        data.StoreNumber(row, kY, node.y);
        data.StoreNumber(row, kZ, node.z);
        data.StoreText(row, kName, node.name, false);
        data.StoreText(row, kPlan, plans_[node.plan % 2], false);
    }
    std::function<void(std::uint32_t, CGXData&, RowId)> Writer() {
        return [this](std::uint32_t key, CGXData& data, RowId row) { Write(key, data, row); };
    }

    RecordRows rows;
    std::vector<Node> changed;

private:
    std::string plans_[2] = {"A", "B"};
};

// ---- the work ----

template <class Table>
void Fill(benchmark::State& state) {
    Nodes();
    for (auto _ : state) {
        Table table;
        table.Fill(kRows);
        state.PauseTiming();
        { const Table gone = std::move(table); }
        state.ResumeTiming();
    }
}

template <class Table>
void Move(benchmark::State& state) {
    Table table;
    table.Fill(kRows);
    const auto keys = BatchKeys();
    for (auto _ : state) table.MoveBatch(keys);
}

/// Runs `work` inside or outside the measured time.
template <class Work>
void Run(benchmark::State& state, bool timed, Work work) {
    if (!timed) state.PauseTiming();
    work();
    if (!timed) state.ResumeTiming();
}

void DeleteAndInsertOurs(benchmark::State& state, bool timeInsert) {
    OurTable table;
    table.Fill(kRows);
    const auto keys = BatchKeys();
    for (auto _ : state) {
        Run(state, !timeInsert, [&] { table.Replay(keys, {}); });
        Run(state, timeInsert, [&] { table.Replay({}, keys); });
    }
}

void DeleteAndInsertPeer(benchmark::State& state, bool timeInsert) {
    PeerTable table;
    table.Fill(kRows);
    const auto keys = BatchKeys();
    for (auto _ : state) {
        Run(state, !timeInsert, [&] { table.DeleteBatch(keys); });
        Run(state, timeInsert, [&] { table.InsertBatch(keys); });
    }
}

void SortOurs(benchmark::State& state) {
    OurTable table;
    table.Fill(kRows);
    for (auto _ : state) {
        table.rows.SetSort({{kX, 0, 0}});
        table.rows.SortTable();
        state.PauseTiming();
        table.rows.SetSort({{kLevel, 0, 0}, {kNumber, 0, 0}});
        table.rows.SortTable();
        state.ResumeTiming();
    }
}

void SortPeer(benchmark::State& state) {
    PeerTable table;
    table.Fill(kRows);
    for (auto _ : state) {
        table.SortByX();
        state.PauseTiming();
        table.SortByLevel();
        state.ResumeTiming();
    }
}

void ScaleFill(benchmark::State& state) {
    for (auto _ : state) {
        OurTable table;
        table.Fill(static_cast<std::uint32_t>(state.range(0)));
    }
}

void ScaleReplay(benchmark::State& state) {
    const auto rows = static_cast<std::uint32_t>(state.range(0));
    OurTable table;
    table.Fill(rows);
    std::vector<std::uint32_t> keys;
    for (std::uint32_t i = 0; i < rows; i += 10) keys.push_back(kFirstKey + i);
    for (auto _ : state) table.MoveBatch(keys);
}

void RegisterAll() {
    using benchmark::RegisterBenchmark;
    const auto repeated = [](auto* registered, int iterations) {
        registered->Unit(benchmark::kMillisecond)->Repetitions(5)->Iterations(iterations)->UseRealTime();
    };
    repeated(RegisterBenchmark("open a table/ours", &Fill<OurTable>), 1);
    repeated(RegisterBenchmark("open a table/peer", &Fill<PeerTable>), 1);
    repeated(RegisterBenchmark("replay 10,000 moves/ours", &Move<OurTable>), 10);
    repeated(RegisterBenchmark("replay 10,000 moves/peer", &Move<PeerTable>), 10);
    repeated(RegisterBenchmark("replay 10,000 inserts/ours", &DeleteAndInsertOurs, true), 5);
    repeated(RegisterBenchmark("replay 10,000 inserts/peer", &DeleteAndInsertPeer, true), 5);
    repeated(RegisterBenchmark("replay 10,000 deletes/ours", &DeleteAndInsertOurs, false), 5);
    repeated(RegisterBenchmark("replay 10,000 deletes/peer", &DeleteAndInsertPeer, false), 5);
    repeated(RegisterBenchmark("sort by a double/ours", &SortOurs), 2);
    repeated(RegisterBenchmark("sort by a double/peer", &SortPeer), 2);
    for (const long n : {kScale, 2 * kScale, 4 * kScale}) {
        repeated(RegisterBenchmark("fill/scale", &ScaleFill)->Arg(n), 2);
        repeated(RegisterBenchmark("replay a tenth/scale", &ScaleReplay)->Arg(n), 4);
    }
}

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    RegisterAll();
    const bool kept = bench::RunAndReport({{"open a table", 1.5},
                                           {"replay 10,000 moves", 1.5},
                                           {"replay 10,000 inserts", 1.5},
                                           {"replay 10,000 deletes", 1.5},
                                           {"sort by a double", 1.2}},
                                          {"fill", "replay a tenth"}, kScale);
    OurTable table;
    table.Fill(kRows);
    std::cout << "\nmemory of a row among " << kRows << ": " << table.rows.MemoryBytes() / kRows << " bytes\n";
    return kept ? 0 : 1;
}
