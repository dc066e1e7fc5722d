// A table of records that hang on others - loads on nodes - as the model grows: opened, pasted into, and replayed when
// the nodes are renumbered, moved to other stories, deleted and brought back.

#include "node_table.h"
#include "ratio_reporter.h"
#include "zt_db/records/load.h"
#include "zt_tb/boundary_load/tb_ptld.h"

namespace {

using namespace bench;

constexpr long kLeast = 25'000;

/// A model of nodes with one load each, and their open table.
class LoadModel {
public:
    explicit LoadModel(std::uint32_t count) : nodes_(count) {
        nodes_.Db().GetClass<zt::CClassStld>()->TR_Add(1, zt::T_STLD_D{"DL", "D", {}});
        std::vector<zt::T_PTLD_D> loads;
        for (std::uint32_t i = 0; i < count; ++i) {
            keys_.push_back(i + 1);
            loads.push_back({.node = Nodes()[i].key, .stld = 1, .fz = -1.0 * i});
        }
        nodes_.Db().GetClass<zt::CClassPtld>()->TR_Add(keys_, loads);
        auto table = std::make_unique<zt::CTBPtld>();
        table_ = table.get();
        view_.AddWorksheet(std::move(table), "Loads");
        table_->Initialize(&view_);
        table_->MakeItemEx(nullptr, -2, 0);
    }
    zt::CTBPtld& Table() { return *table_; }
    CDataBase& Db() { return nodes_.Db(); }
    void Replay() {
        zt::T_UPDATE_HINT hint;
        table_->UpdateBuffer(&hint);
    }
    /// Gives every tenth node another record.
    template <class Change>
    void ChangeNodes(Change change) {
        std::vector<std::uint32_t> keys;
        std::vector<zt::T_PONT_D> records;
        for (std::size_t i = 0; i < keys_.size(); i += 10) {
            keys.push_back(Nodes()[i].key);
            nodes_.Nodes_().Get(keys.back(), records.emplace_back());
            change(records.back());
        }
        nodes_.Nodes_().TR_Modify(keys, keys, records);
    }
    std::vector<std::uint32_t> NodesToDelete() const {
        std::vector<std::uint32_t> keys;
        for (std::size_t i = 0; i < keys_.size(); i += 10) keys.push_back(Nodes()[i].key);
        return keys;
    }

private:
    OurModel nodes_;
    std::vector<std::uint32_t> keys_;
    NodeView view_;
    zt::CTBPtld* table_ = nullptr;
};

struct Work {
    const char* name;
    void (*run)(LoadModel& model, int round);
};

constexpr Work kWorks[] = {
    {"open the loads", [](LoadModel& model, int) { model.Table().MakeItemEx(nullptr, -2, 0); }},
    {"paste a tenth of loads",
     [](LoadModel& model, int) {
         std::string text;
         for (const std::uint32_t key : model.NodesToDelete()) {
             text +=
                 std::to_string(model.Table().GetObjectNo(zt::ObjectKind::Node, key)) + "\t\tDL\t1\t2\t3\t0\t0\t0\n";
         }
         model.Table().SetCurrentCell(model.Table().RowCount(), 2);
         model.Table().PasteText(text);
         model.Db().Undo();
         model.Replay();
     }},
    {"renumber a tenth of the nodes",
     [](LoadModel& model, int round) {
         const std::uint32_t shift = round % 2 == 0 ? 100'000'000 : -100'000'000;
         model.ChangeNodes([shift](zt::T_PONT_D& node) { node.no += shift; });
         model.Replay();
     }},
    {"move a tenth to other stories",
     [](LoadModel& model, int) {
         model.ChangeNodes([](zt::T_PONT_D& node) { node.story = node.story % kStoryCount + kFirstStory; });
         model.Replay();
     }},
    {"delete a tenth of the nodes and undo",
     [](LoadModel& model, int) {
         model.Db().GetClass<zt::CClassPont>()->TR_Del(model.NodesToDelete());
         model.Replay();
         model.Db().Undo();
         model.Replay();
     }},
    {"detail of a tenth", [](LoadModel& model, int) { model.Table().PreFilterRecord(model.NodesToDelete()); }},
};

void Run(benchmark::State& state, const Work& work) {
    LoadModel model(static_cast<std::uint32_t>(state.range(0)));
    int round = 0;
    for (auto _ : state) work.run(model, round++);
}

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    std::vector<std::string> growing;
    for (const Work& work : kWorks) {
        growing.emplace_back(work.name);
        const std::string name = growing.back() + "/scale";
        for (const long n : {kLeast, 2 * kLeast, 4 * kLeast}) {
            benchmark::RegisterBenchmark(name.c_str(), [&work](benchmark::State& state) { Run(state, work); })
                ->Arg(n)
                ->Unit(benchmark::kMillisecond)
                ->Repetitions(3)
                ->Iterations(2)
                ->UseRealTime();
        }
    }
    return bench::RunAndReport({}, growing, kLeast) ? 0 : 1;
}
