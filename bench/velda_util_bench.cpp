// The rows of a record browser against what a careful developer writes by hand: an array of structures with a sorted
// order and a hash of the keys, without texts, columns or widths. A million nodes in nine columns, sorted by level and
// number.

#include <cmath>
#include <functional>
#include <numeric>
#include <unordered_map>

#include "ratio_reporter.h"
#include "velda_util/rows/record_rows.h"

namespace {

using namespace velda;

constexpr std::uint32_t kRows = 1'000'000;
constexpr std::uint32_t kBatch = 10'000;
constexpr long kScale = 100'000;

std::uint64_t Mix(std::uint64_t v) {
    v += 0x9e3779b97f4a7c15ull;
    v = (v ^ (v >> 30)) * 0xbf58476d1ce4e5b9ull;
    v = (v ^ (v >> 27)) * 0x94d049bb133111ebull;
    return v ^ (v >> 31);
}

/// The peer's row, and the source of ours.
struct Node {
    std::uint32_t key = 0;
    std::int32_t number = 0;
    std::uint16_t story = 0;
    std::uint16_t plan = 0;
    double level = 0.0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    std::string name;
};

constexpr std::uint32_t kFirstKey = 100'000;
constexpr std::uint64_t kStories = 200;

double Coordinate(std::uint64_t seed) { return std::round(static_cast<double>(Mix(seed) % 1'000'000'000)) / 1e6; }

Node MakeNode(std::uint32_t i) {
    Node node;
    node.key = kFirstKey + i;
    node.number = static_cast<std::int32_t>(2 * (i + 1));
    node.story = static_cast<std::uint16_t>(Mix(i) % kStories);
    node.plan = static_cast<std::uint16_t>(Mix(i + 77) % 24);
    node.level = (node.story + 1) * 3.3;
    node.x = Coordinate(i * 3u + 1);
    node.y = Coordinate(i * 5u + 2);
    node.z = node.level;
    node.name = "N" + std::to_string(1'000'000 + i);
    return node;
}

const std::vector<Node>& Nodes() {
    static const std::vector<Node> nodes = [] {
        std::vector<Node> made;
        for (std::uint32_t i = 0; i < kRows; ++i) made.push_back(MakeNode(i));
        return made;
    }();
    return nodes;
}

/// The keys of one batch: every hundredth node.
std::vector<std::uint32_t> BatchKeys(std::uint32_t rows = kRows) {
    std::vector<std::uint32_t> keys;
    for (std::uint32_t i = 0; i < kBatch; ++i) keys.push_back(kFirstKey + i * (rows / kBatch) + 1);
    return keys;
}

// ---- ours ----

enum Column { kKey, kNumber, kStory, kLevel, kX, kY, kZ, kName, kPlan };

class OurTable {
public:
    OurTable() {
        using enum ColumnType;
        rows.Configure({Long, Long, String, Double, Double, Double, Double, String, String}, kKey,
                       {{kLevel, 0, 0}, {kNumber, 0, 0}});
        for (std::uint64_t story = 0; story < kStories; ++story) stories_.push_back(std::to_string(story + 1) + "F");
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
        data.StoreText(row, kStory, stories_[node.story], false);
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
    std::vector<std::string> stories_;
    std::string plans_[2] = {"A", "B"};
};

// ---- peer ----

class PeerTable {
public:
    auto Less() const {
        return [this](std::uint32_t a, std::uint32_t b) {
            return rows[a].level != rows[b].level ? rows[a].level < rows[b].level : rows[a].number < rows[b].number;
        };
    }
    void Fill(std::uint32_t count) {
        rows.clear();
        byKey.clear();
        order.clear();
        rows.reserve(count);
        byKey.reserve(count);
        for (std::uint32_t i = 0; i < count; ++i) {
            byKey.emplace(Nodes()[i].key, i);
            rows.push_back(Nodes()[i]);
        }
        order.resize(count);
        std::iota(order.begin(), order.end(), 0u);
        std::sort(order.begin(), order.end(), Less());
    }
    void MoveBatch(std::span<const std::uint32_t> keys) {
        std::vector<char> mark(rows.size());
        std::vector<std::uint32_t> moved;
        for (const std::uint32_t key : keys) {
            const std::uint32_t id = byKey.at(key);
            rows[id].story = static_cast<std::uint16_t>((rows[id].story + 71) % kStories);
            rows[id].level = (rows[id].story + 1) * 3.3;
            mark[id] = 1;
            moved.push_back(id);
        }
        std::erase_if(order, [&](std::uint32_t id) { return mark[id] != 0; });
        Join(moved);
    }
    void DeleteBatch(std::span<const std::uint32_t> keys) {
        std::vector<char> mark(rows.size());
        for (const std::uint32_t key : keys) {
            mark[byKey.at(key)] = 1;
            byKey.erase(key);
        }
        std::erase_if(order, [&](std::uint32_t id) { return mark[id] != 0; });
    }
    void InsertBatch(std::span<const std::uint32_t> keys) {
        std::vector<std::uint32_t> fresh;
        for (const std::uint32_t key : keys) {
            byKey.emplace(key, static_cast<std::uint32_t>(rows.size()));
            fresh.push_back(static_cast<std::uint32_t>(rows.size()));
            rows.push_back(Nodes()[key - kFirstKey]);
        }
        Join(fresh);
    }
    void SortByX() {
        std::sort(order.begin(), order.end(),
                  [this](std::uint32_t a, std::uint32_t b) { return rows[a].x < rows[b].x; });
    }
    void SortByLevel() { std::sort(order.begin(), order.end(), Less()); }

private:
    void Join(std::vector<std::uint32_t>& fresh) {
        std::sort(fresh.begin(), fresh.end(), Less());
        std::vector<std::uint32_t> merged(order.size() + fresh.size());
        std::merge(order.begin(), order.end(), fresh.begin(), fresh.end(), merged.begin(), Less());
        order.swap(merged);
    }

    std::vector<Node> rows;
    std::vector<std::uint32_t> order;
    std::unordered_map<std::uint32_t, std::uint32_t> byKey;
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
