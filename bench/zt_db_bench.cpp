// The model database against what a careful developer writes by hand: a hash map of records for reading, prepared
// SQLite statements for writing and opening.

#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <numeric>
#include <random>
#include <unordered_map>

#include "ratio_reporter.h"
#include "zt_db/doc/doc.h"
#include "zt_db/records/record_list.h"

namespace {

using namespace zt;
using Keys = std::vector<std::uint32_t>;
namespace fs = std::filesystem;

constexpr std::uint32_t kMembers = 100'000;
constexpr std::uint32_t kBatch = 10'000;
constexpr std::uint32_t kNodesInFile = 1'000'000;
constexpr long kScale = 50'000;

fs::path Folder() {
    static const fs::path folder = [] {
        fs::path path = fs::temp_directory_path() / ("zt_db_bench_" + std::to_string(::getpid()));
        fs::create_directories(path);
        return path;
    }();
    return folder;
}

Keys KeysTo(std::uint32_t count) {
    Keys keys(count);
    std::iota(keys.begin(), keys.end(), 1u);
    return keys;
}

T_PONT_D NodeAt(std::uint32_t key) { return T_PONT_D{.x = 0.1 * key, .y = 0.2 * key, .z = 0.3, .plan = 1, .no = key}; }

std::vector<T_PONT_D> Nodes(std::uint32_t count) {
    std::vector<T_PONT_D> nodes;
    for (std::uint32_t key = 1; key <= count; ++key) nodes.push_back(NodeAt(key));
    return nodes;
}

std::unique_ptr<CDBDoc> NodeModel(std::uint32_t count) {
    auto doc = CDBDoc::New();
    doc->MakeCurrent();
    doc->GetMDBCtrl()->GetCurrentDB()->GetClass<CClassPont>()->TR_Add(KeysTo(count), Nodes(count));
    return doc;
}

CDataBase& DatabaseOf(CDBDoc& doc) { return *doc.GetMDBCtrl()->GetCurrentDB(); }

// ---- reading ----

/// The same members in a model and in a hash map.
struct MemberData {
    MemberData() : doc(NodeModel(kMembers + 1)) {
        std::vector<T_MEMB_D> records;
        for (std::uint32_t key = 1; key <= kMembers; ++key) {
            records.push_back(T_MEMB_D{.type = 201, .no = key, .beta = 30.0, .nodes = {key, key + 1}});
            map[key] = records.back();
        }
        members = DatabaseOf(*doc).GetClass<CClassMemb>();
        members->TR_Add(KeysTo(kMembers), records);
        order = KeysTo(kMembers);
        std::shuffle(order.begin(), order.end(), std::mt19937(3));
    }
    std::unique_ptr<CDBDoc> doc;
    CClassMemb* members;
    std::unordered_map<std::uint32_t, T_MEMB_D> map;
    Keys order;
};

MemberData& Members() {
    static MemberData data;
    return data;
}

void GetOurs(benchmark::State& state) {
    MemberData& data = Members();
    T_MEMB_D record;
    for (auto _ : state) {
        for (const std::uint32_t key : data.order) benchmark::DoNotOptimize(data.members->Get(key, record));
    }
}

void GetPeer(benchmark::State& state) {
    MemberData& data = Members();
    T_MEMB_D record;
    for (auto _ : state) {
        for (const std::uint32_t key : data.order) {
            const auto found = data.map.find(key);
            if (found != data.map.end()) record = found->second;
            benchmark::DoNotOptimize(record);
        }
    }
}

void IterateOurs(benchmark::State& state) {
    MemberData& data = Members();
    T_MEMB_D record;
    for (auto _ : state) {
        std::uint32_t key = 0;
        for (POSITION position = data.members->DB_GetStart(); position;) {
            data.members->GetNextData(position, key, record);
            benchmark::DoNotOptimize(record);
        }
    }
}

void IteratePeer(benchmark::State& state) {
    MemberData& data = Members();
    T_MEMB_D record;
    for (auto _ : state) {
        for (const auto& [key, stored] : data.map) {
            record = stored;
            benchmark::DoNotOptimize(record);
        }
    }
}

// ---- writing ----

/// A table of nodes in a file of its own, written by prepared statements.
class RawFile {
public:
    explicit RawFile(const fs::path& path) {
        sqlite3_open(path.c_str(), &db_);
        Execute(
            "PRAGMA locking_mode = EXCLUSIVE; PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;"
            "PRAGMA cache_size = -65536;"
            "CREATE TABLE PONT (\"key\" INTEGER PRIMARY KEY, x REAL NOT NULL, y REAL NOT NULL, z REAL NOT NULL, "
            "\"plan\" INTEGER NOT NULL, story INTEGER NOT NULL, no INTEGER NOT NULL, name TEXT NOT NULL) STRICT");
        Prepare(insert_, "INSERT INTO PONT VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)");
        Prepare(update_,
                "UPDATE PONT SET x = ?2, y = ?3, z = ?4, \"plan\" = ?5, story = ?6, no = ?7, name = ?8 "
                "WHERE \"key\" = ?1");
        Prepare(begin_, "BEGIN IMMEDIATE");
        Prepare(commit_, "COMMIT");
    }
    ~RawFile() {
        for (sqlite3_stmt* statement : {insert_, update_, begin_, commit_}) sqlite3_finalize(statement);
        sqlite3_close(db_);
    }
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;

    void Insert(const std::vector<T_PONT_D>& nodes) { Write(insert_, nodes); }
    void Update(const std::vector<T_PONT_D>& nodes) { Write(update_, nodes); }

private:
    void Execute(const char* sql) { sqlite3_exec(db_, sql, nullptr, nullptr, nullptr); }
    void Prepare(sqlite3_stmt*& statement, const char* sql) { sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr); }
    static void Run(sqlite3_stmt* statement) {
        sqlite3_step(statement);
        sqlite3_reset(statement);
    }
    void Write(sqlite3_stmt* statement, const std::vector<T_PONT_D>& nodes) {
        Run(begin_);
        std::uint32_t key = 0;
        for (const T_PONT_D& node : nodes) {
            sqlite3_bind_int64(statement, 1, ++key);
            sqlite3_bind_double(statement, 2, node.x);
            sqlite3_bind_double(statement, 3, node.y);
            sqlite3_bind_double(statement, 4, node.z);
            sqlite3_bind_int64(statement, 5, node.plan);
            sqlite3_bind_int64(statement, 6, node.story);
            sqlite3_bind_int64(statement, 7, node.no);
            sqlite3_bind_text(statement, 8, node.name.data(), static_cast<int>(node.name.size()), SQLITE_STATIC);
            Run(statement);
        }
        Run(commit_);
    }

    sqlite3* db_ = nullptr;
    sqlite3_stmt* insert_ = nullptr;
    sqlite3_stmt* update_ = nullptr;
    sqlite3_stmt* begin_ = nullptr;
    sqlite3_stmt* commit_ = nullptr;
};

std::unique_ptr<CDBDoc> FileModel(const fs::path& path, std::uint32_t count) {
    auto doc = NodeModel(count);
    const velda::Outcome saved = doc->SaveAs(path.string());
    if (!saved) std::cerr << saved.Reason() << '\n';
    return doc;
}

/// Both directions of a change, so that each round really changes every record.
std::vector<std::vector<T_PONT_D>> TwoStates(std::uint32_t count) {
    std::vector<std::vector<T_PONT_D>> states(2, Nodes(count));
    for (T_PONT_D& node : states[1]) node.x += 1.0;
    return states;
}

void ModifyOurs(benchmark::State& state, std::uint32_t count) {
    const auto doc = FileModel(Folder() / "modify_ours.ztm", kBatch);
    CClassPont& nodes = *DatabaseOf(*doc).GetClass<CClassPont>();
    const Keys keys = KeysTo(count);
    const auto states = TwoStates(count);
    std::size_t round = 0;
    for (auto _ : state) nodes.TR_Modify(keys, keys, states[++round % 2]);
}

void ModifyPeer(benchmark::State& state, std::uint32_t count) {
    fs::remove(Folder() / "modify_peer.db");
    RawFile file(Folder() / "modify_peer.db");
    file.Insert(Nodes(kBatch));
    const auto states = TwoStates(count);
    std::size_t round = 0;
    for (auto _ : state) file.Update(states[++round % 2]);
}

// ---- opening ----

const std::string& LargeFile() {
    static const std::string path = [] {
        const std::string file = (Folder() / "large.ztm").string();
        FileModel(file, kNodesInFile);
        return file;
    }();
    return path;
}

void OpenOurs(benchmark::State& state) {
    const std::string& path = LargeFile();
    for (auto _ : state) {
        OpenReport report;
        auto doc = CDBDoc::Open(path, OpenMode::Normal, report);
        if (!doc) state.SkipWithError(report.message.c_str());
        state.PauseTiming();
        doc.reset();
        state.ResumeTiming();
    }
}

void OpenPeer(benchmark::State& state) {
    const std::string& path = LargeFile();
    for (auto _ : state) {
        sqlite3* db = nullptr;
        sqlite3_stmt* select = nullptr;
        sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        sqlite3_prepare_v2(db, "SELECT \"key\", x, y, z, \"plan\", story, no, name FROM PONT", -1, &select, nullptr);
        Keys keys;
        std::vector<T_PONT_D> nodes;
        while (sqlite3_step(select) == SQLITE_ROW) {
            keys.push_back(static_cast<std::uint32_t>(sqlite3_column_int64(select, 0)));
            T_PONT_D& node = nodes.emplace_back();
            node.x = sqlite3_column_double(select, 1);
            node.y = sqlite3_column_double(select, 2);
            node.z = sqlite3_column_double(select, 3);
            node.plan = sqlite3_column_int(select, 4);
            node.story = static_cast<std::uint32_t>(sqlite3_column_int64(select, 5));
            node.no = static_cast<std::uint32_t>(sqlite3_column_int64(select, 6));
            node.name = reinterpret_cast<const char*>(sqlite3_column_text(select, 7));
        }
        benchmark::DoNotOptimize(nodes);
        state.PauseTiming();
        sqlite3_finalize(select);
        sqlite3_close(db);
        nodes = {};
        state.ResumeTiming();
    }
}

// ---- growth ----

void ScaleAdd(benchmark::State& state) {
    const auto count = static_cast<std::uint32_t>(state.range(0));
    const Keys keys = KeysTo(count);
    const auto records = Nodes(count);
    for (auto _ : state) {
        state.PauseTiming();
        auto doc = FileModel(Folder() / "scale.ztm", 0);
        state.ResumeTiming();
        DatabaseOf(*doc).GetClass<CClassPont>()->TR_Add(keys, records);
        state.PauseTiming();
        doc.reset();
        state.ResumeTiming();
    }
}

void ScaleDeleteAndUndo(benchmark::State& state, bool timeUndo) {
    const auto count = static_cast<std::uint32_t>(state.range(0));
    const auto doc = FileModel(Folder() / "scale.ztm", count);
    CDataBase& database = DatabaseOf(*doc);
    const Keys keys = KeysTo(count);
    for (auto _ : state) {
        if (timeUndo) state.PauseTiming();
        database.GetClass<CClassPont>()->TR_Del(keys);
        if (timeUndo) state.ResumeTiming();
        if (!timeUndo) state.PauseTiming();
        database.Undo();
        if (!timeUndo) state.ResumeTiming();
    }
}

void ScaleOpen(benchmark::State& state) {
    const std::string path = (Folder() / "scale_open.ztm").string();
    FileModel(path, static_cast<std::uint32_t>(state.range(0)));
    for (auto _ : state) {
        OpenReport report;
        benchmark::DoNotOptimize(CDBDoc::Open(path, OpenMode::Normal, report));
    }
}

void PrintMemory() {
    const auto doc = NodeModel(kNodesInFile);
    const RecordStoreBase& store = DatabaseOf(*doc).StoreAt(0);
    std::cout << "\nmemory of a node among " << kNodesInFile << ": " << store.MemoryBytes() / kNodesInFile
              << " bytes (record " << sizeof(T_PONT_D) << ")\n";
}

void RegisterAll() {
    using benchmark::RegisterBenchmark;
    const auto repeated = [](auto* registered) {
        registered->Unit(benchmark::kMicrosecond)->Repetitions(5)->UseRealTime();
    };
    repeated(RegisterBenchmark("get a member/ours", &GetOurs));
    repeated(RegisterBenchmark("get a member/peer", &GetPeer));
    repeated(RegisterBenchmark("iterate members/ours", &IterateOurs));
    repeated(RegisterBenchmark("iterate members/peer", &IteratePeer));
    repeated(RegisterBenchmark("modify 10,000 in a file/ours", &ModifyOurs, kBatch));
    repeated(RegisterBenchmark("modify 10,000 in a file/peer", &ModifyPeer, kBatch));
    repeated(RegisterBenchmark("modify one in a file/ours", &ModifyOurs, 1u)->Iterations(5000));
    repeated(RegisterBenchmark("modify one in a file/peer", &ModifyPeer, 1u)->Iterations(5000));
    repeated(RegisterBenchmark("open 1,000,000 nodes/ours", &OpenOurs)->Iterations(1));
    repeated(RegisterBenchmark("open 1,000,000 nodes/peer", &OpenPeer)->Iterations(1));
    for (const long n : {kScale, 2 * kScale, 4 * kScale}) {
        repeated(RegisterBenchmark("add a batch/scale", &ScaleAdd)->Arg(n)->Iterations(2));
        repeated(RegisterBenchmark("delete a batch/scale", &ScaleDeleteAndUndo, false)->Arg(n)->Iterations(2));
        repeated(RegisterBenchmark("undo a batch/scale", &ScaleDeleteAndUndo, true)->Arg(n)->Iterations(2));
        repeated(RegisterBenchmark("open/scale", &ScaleOpen)->Arg(n)->Iterations(2));
    }
}

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    RegisterAll();
    const bool kept = bench::RunAndReport({{"get a member", 2.5},
                                           {"iterate members", 2.0},
                                           {"modify 10,000 in a file", 1.5},
                                           {"modify one in a file", 1.5},
                                           {"open 1,000,000 nodes", 1.3}},
                                          {"add a batch", "delete a batch", "undo a batch", "open"}, kScale);
    PrintMemory();
    fs::remove_all(Folder());
    return kept ? 0 : 1;
}
