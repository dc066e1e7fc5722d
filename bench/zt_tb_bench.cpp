// A whole table on a model database against a table that is written by hand (node_peer.h): filled, replayed, edited,
// searched, sorted, pasted into. What the database does for itself is measured in zt_db_bench and left out here, but
// for the edit and the paste, which are measured from the key to the last row in its place.

#include "node_table.h"
#include "ratio_reporter.h"

namespace {

using namespace bench;
OurModel& OpenModel() {
    static std::unique_ptr<OurModel> model = [] {
        auto made = std::make_unique<OurModel>(kRows);
        made->Open();
        return made;
    }();
    return *model;
}

/// What is pasted: story, x, y, z, plan of a batch of rows.
std::string PasteText(std::uint32_t seed) {
    std::string text;
    for (std::uint32_t i = 0; i < kBatch; ++i) {
        const Node node = MakeNode(i * 37 + seed);
        text += StoryName(node.story) + "\t" + velda::FormatDouble(node.x) + "\t" + velda::FormatDouble(node.y) + "\t" +
                velda::FormatDouble(node.z) + "\t" + std::to_string(node.plan) + "\n";
    }
    return text;
}
constexpr int kPasteRow = 500'001;

// ---- ours ----

void OpenOurs(benchmark::State& state) {
    OurModel& model = OpenModel();
    for (auto _ : state) model.Open();
}

void MoveOurs(benchmark::State& state) {
    OurModel& model = OpenModel();
    const auto keys = BatchKeys();
    for (auto _ : state) {
        state.PauseTiming();
        model.Apart([&] { model.MoveStories(keys); });
        state.ResumeTiming();
        model.Replay();
    }
}

void DeleteAndInsertOurs(benchmark::State& state, bool timeInsert) {
    OurModel& model = OpenModel();
    const auto keys = BatchKeys();
    for (auto _ : state) {
        state.PauseTiming();
        model.Apart([&] { model.Nodes_().TR_Del(keys); });
        if (!timeInsert) state.ResumeTiming();
        model.Replay();
        if (!timeInsert) state.PauseTiming();
        model.Apart([&] { model.Db().Undo(); });
        if (timeInsert) state.ResumeTiming();
        model.Replay();
        if (!timeInsert) state.ResumeTiming();
    }
}

void EditOurs(benchmark::State& state) {
    OurModel& model = OpenModel();
    std::uint32_t seed = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const int row = model.Table().RowOfKey(kFirstKey + static_cast<std::uint32_t>(Mix(++seed) % kRows));
        const std::string story = StoryName(Mix(seed + 7) % kStories);
        state.ResumeTiming();
        const bool done = model.Table().EditCell(row, 3, story) && model.Table().LeaveRow();
        if (!done) state.SkipWithError("the edit was refused");
    }
}

void SortOurs(benchmark::State& state) {
    OurModel& model = OpenModel();
    for (auto _ : state) {
        model.Table().Sort({{4, 0, 0}});
        state.PauseTiming();
        model.Table().Sort({{3, 0, 0}, {1, 0, 0}});
        state.ResumeTiming();
    }
}

std::string LastName() {
    OurModel& model = OpenModel();
    return model.Table().GetValueRowCol(static_cast<int>(kRows), 8);
}

void FindOurs(benchmark::State& state) {
    OurModel& model = OpenModel();
    velda::STBFindStruct find;
    find.text = LastName();
    for (auto _ : state) {
        model.Table().SetCurrentCell(1, 2);
        find.currentRow = 0;
        if (!model.Table().Find(find)) state.SkipWithError("not found");
    }
}

void PasteOurs(benchmark::State& state) {
    OurModel& model = OpenModel();
    std::uint32_t seed = 1;
    for (auto _ : state) {
        state.PauseTiming();
        const std::string text = PasteText(seed++);
        model.Table().SetCurrentCell(kPasteRow, 3);
        state.ResumeTiming();
        if (!model.Table().PasteText(text)) state.SkipWithError("the paste was refused");
    }
}

// ---- peer ----

PeerTable& OpenPeer() {
    static PeerTable table = [] {
        PeerTable made;
        made.Fill(kRows);
        return made;
    }();
    return table;
}

void OpenPeerTable(benchmark::State& state) {
    Nodes();
    for (auto _ : state) {
        PeerTable table;
        table.Fill(kRows);
        state.PauseTiming();
        { const PeerTable gone = std::move(table); }
        state.ResumeTiming();
    }
}

void MovePeer(benchmark::State& state) {
    const auto keys = BatchKeys();
    for (auto _ : state) OpenPeer().MoveBatch(keys);
}

void DeleteAndInsertPeer(benchmark::State& state, bool timeInsert) {
    const auto keys = BatchKeys();
    for (auto _ : state) {
        if (timeInsert) state.PauseTiming();
        OpenPeer().DeleteBatch(keys);
        if (timeInsert) {
            state.ResumeTiming();
        } else {
            state.PauseTiming();
        }
        OpenPeer().InsertBatch(keys);
        if (!timeInsert) state.ResumeTiming();
    }
}

void EditPeer(benchmark::State& state) {
    std::uint32_t seed = 0;
    for (auto _ : state) OpenPeer().Edit(kFirstKey + static_cast<std::uint32_t>(Mix(++seed) % kRows));
}

void SortPeer(benchmark::State& state) {
    for (auto _ : state) {
        OpenPeer().SortByX();
        state.PauseTiming();
        OpenPeer().SortByLevel();
        state.ResumeTiming();
    }
}

void FindPeer(benchmark::State& state) {
    const std::string text = LastName();
    for (auto _ : state) benchmark::DoNotOptimize(OpenPeer().Find(text));
}

void PastePeer(benchmark::State& state) {
    std::uint32_t seed = 1;
    for (auto _ : state) {
        state.PauseTiming();
        const std::string text = PasteText(seed++);
        state.ResumeTiming();
        OpenPeer().Paste(text, static_cast<std::size_t>(kPasteRow - 1));
    }
}

// ---- growth ----

void ScaleOpen(benchmark::State& state) {
    OurModel model(static_cast<std::uint32_t>(state.range(0)));
    for (auto _ : state) model.Open();
}

void ScaleReplay(benchmark::State& state) {
    const auto rows = static_cast<std::uint32_t>(state.range(0));
    OurModel model(rows);
    model.Open();
    std::vector<std::uint32_t> keys;
    for (std::uint32_t i = 0; i < rows; i += 10) keys.push_back(kFirstKey + i);
    for (auto _ : state) {
        state.PauseTiming();
        model.Apart([&] { model.MoveStories(keys); });
        state.ResumeTiming();
        model.Replay();
    }
}

void ScalePaste(benchmark::State& state) {
    const auto rows = static_cast<int>(state.range(0));
    OurModel model(static_cast<std::uint32_t>(rows));
    model.Open();
    std::string text;
    for (int i = 0; i < rows / 10; ++i) text += std::to_string(i) + ".5\t" + std::to_string(i) + ".25\n";
    for (auto _ : state) {
        model.Table().SetCurrentCell(1, 5);
        model.Table().PasteText(text);
    }
}

/// A command on a table of a certain size.
struct BulkWork {
    const char* name;
    void (*run)(OurModel& model, int round);
};
constexpr BulkWork kBulkWorks[] = {
    {"filter and back",
     [](OurModel& model, int) {
         model.Table().FilterColumn(2, "1F");
         model.Table().RemoveFilter();
     }},
    {"sort and back",
     [](OurModel& model, int) {
         model.Table().Sort({{4, 0, 0}});
         model.Table().Sort({{3, 0, 0}, {1, 0, 0}});
     }},
    {"find in vain",
     [](OurModel& model, int) {
         velda::STBFindStruct find;
         find.text = "nowhere";
         model.Table().Find(find);
     }},
    {"fill down",
     [](OurModel& model, int) {
         model.Table().SelectRange({1, 9, model.Table().RecordRowCount(), 9});
         model.Table().FillDown();
     }},
    {"replace",
     [](OurModel& model, int round) {
         model.Table().SelectRange({1, 3, model.Table().RecordRowCount(), 3});
         const bool there = round % 2 == 0;
         model.Table().Replace({.text = there ? "2F" : "3F", .replacement = there ? "3F" : "2F"});
     }},
    {"delete and undo",
     [](OurModel& model, int) {
         model.Table().SelectRange(velda::PositionRange::Rows(1, model.Table().RecordRowCount() / 10));
         model.Table().DoCommand(velda::TableCommand::DeleteRows);
         model.Db().Undo();
     }},
    {"copy",
     [](OurModel& model, int) {
         model.Table().SelectRange(velda::PositionRange::All());
         model.Table().Copy(true);
     }},
};

void ScaleWork(benchmark::State& state, const BulkWork& work) {
    OurModel model(static_cast<std::uint32_t>(state.range(0)));
    model.Open();
    int round = 0;
    for (auto _ : state) work.run(model, round++);
}

void RegisterAll() {
    using benchmark::RegisterBenchmark;
    const auto repeated = [](auto* registered, int iterations) {
        registered->Unit(benchmark::kMillisecond)->Repetitions(5)->Iterations(iterations)->UseRealTime();
    };
    const auto pair = [&](const std::string& work, auto* ours, auto* peer, int iterations) {
        repeated(RegisterBenchmark((work + "/ours").c_str(), ours), iterations);
        repeated(RegisterBenchmark((work + "/peer").c_str(), peer), iterations);
    };
    pair("open a table", &OpenOurs, &OpenPeerTable, 1);
    pair("replay 10,000 moves", &MoveOurs, &MovePeer, 5);
    repeated(RegisterBenchmark("replay 10,000 inserts/ours", &DeleteAndInsertOurs, true), 5);
    repeated(RegisterBenchmark("replay 10,000 inserts/peer", &DeleteAndInsertPeer, true), 5);
    repeated(RegisterBenchmark("replay 10,000 deletes/ours", &DeleteAndInsertOurs, false), 5);
    repeated(RegisterBenchmark("replay 10,000 deletes/peer", &DeleteAndInsertPeer, false), 5);
    pair("one edit", &EditOurs, &EditPeer, 50);
    pair("sort by a double", &SortOurs, &SortPeer, 2);
    pair("find in the last row", &FindOurs, &FindPeer, 2);
    pair("paste 10,000 rows", &PasteOurs, &PastePeer, 3);
    for (const long n : {kScale, 2 * kScale, 4 * kScale}) {
        repeated(RegisterBenchmark("open/scale", &ScaleOpen)->Arg(n), 2);
        repeated(RegisterBenchmark("replay a tenth/scale", &ScaleReplay)->Arg(n), 3);
        repeated(RegisterBenchmark("paste a tenth/scale", &ScalePaste)->Arg(n), 2);
        for (const BulkWork& work : kBulkWorks) {
            const std::string name = std::string(work.name) + "/scale";
            repeated(RegisterBenchmark(name.c_str(), [&work](benchmark::State& s) { ScaleWork(s, work); })->Arg(n), 2);
        }
    }
}

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    RegisterAll();
    std::vector<std::string> growing{"open", "replay a tenth", "paste a tenth"};
    for (const BulkWork& work : kBulkWorks) growing.emplace_back(work.name);
    const bool kept = bench::RunAndReport({{"open a table", 1.5},
                                           {"replay 10,000 moves", 1.5},
                                           {"replay 10,000 inserts", 1.5},
                                           {"replay 10,000 deletes", 1.5},
                                           {"one edit", 1.0},
                                           {"sort by a double", 1.2},
                                           {"find in the last row", 1.0},
                                           {"paste 10,000 rows", 3.0}},
                                          growing, kScale);
    std::cout << "\nmemory of a row among " << kRows << ": " << OpenModel().Table().MemoryBytes() / kRows << " bytes\n";
    return kept ? 0 : 1;
}
