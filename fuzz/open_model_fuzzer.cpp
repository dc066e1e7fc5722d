#include <sqlite3.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>

#include "fuzz_support.h"
#include "zt_db/doc/doc.h"
#include "zt_db/record_texts.h"
#include "zt_script/script_runner.h"

// An input that begins as a database file is opened as it is. Any other is run as SQL on a good model file, which leads
// to files that are sound as such and hold strange tables and values.

namespace {

using zt::CDBDoc;
using zt::Require;

constexpr const char* kGoodModel = R"(
record add MDUL 1 name="M"
record add STOR 1 name="1F" mdul=1 height=3.6
record add STOR 2 name="2F" mdul=1 level=3.6 height=3.6
record add PONT 1 story=1
record add PONT 2 story=1 x=6
record add PONT 3 story=2 x=6 y=6
record add MATL 1 name="C30"
record add SECT 1 name="400x600"
record add THIK 1 thickness=0.2
record add MEMB 1 story=1 prop=1 matl=1 nodes=[1,2]
record add MEMB 2 type=301 story=1 prop=1 matl=1 nodes=[1,2,3]
record add STLD 1 name="DL" type="D"
record add LCOM 1 name="C1" items=[[1,1,1.2]]
record add LCOM 2 name="C2" items=[[10,1,1.0]]
record add NAME 1 name="group" keys=[1,2]
record add NAME 2 name="members" type=1 keys=[1,2]
record add MBTP 1 memb=1
record add PREL 1 memb=2
record add STND 1 concrete="GB50010"
model save good.ztm
)";

std::string PathOf(const char* name) { return (zt::FuzzFolder() / name).string(); }

std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

const std::string& GoodModel() {
    static const std::string bytes = [] {
        std::filesystem::current_path(zt::FuzzFolder());
        std::ostringstream output;
        const zt::ScriptCount count = zt::ScriptRunner(output).RunText("good", kGoodModel);
        Require(count.ExitStatus() == 0, output.str().c_str());
        return ReadBytes(PathOf("good.ztm"));
    }();
    return bytes;
}

int MayRun(void*, int action, const char*, const char*, const char*, const char*) {
    return action == SQLITE_ATTACH || action == SQLITE_DETACH ? SQLITE_DENY : SQLITE_OK;
}

/// Other journals would stand beside the file, and are not what is looked at here.
int IsLasting(void*, int action, const char* name, const char*, const char*, const char*) {
    const std::string pragma = name ? name : "";
    if (action == SQLITE_PRAGMA && (pragma == "journal_mode" || pragma == "locking_mode")) return SQLITE_DENY;
    return MayRun(nullptr, action, nullptr, nullptr, nullptr, nullptr);
}

void RunSql(const std::string& path, const std::string& sql) {
    constexpr int kSteps = 20'000;
    sqlite3* db = nullptr;
    sqlite3_open(path.c_str(), &db);
    sqlite3_exec(db, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
    sqlite3_set_authorizer(db, &IsLasting, nullptr);
    sqlite3_progress_handler(
        db, kSteps, [](void*) { return 1; }, nullptr);
    sqlite3_limit(db, SQLITE_LIMIT_LENGTH, 100'000);
    for (std::size_t at = 0; at < sql.size();) {
        const std::size_t end = std::min(sql.find(';', at), sql.size());
        sqlite3_exec(db, sql.substr(at, end - at).c_str(), nullptr, nullptr, nullptr);
        at = end + 1;
    }
    if (sqlite3_get_autocommit(db) == 0) sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(db);
}

std::size_t FileCount() {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(zt::FuzzFolder()), {}));
}

/// The model can be saved, and what is saved is a good file with the same records.
void CheckSave(CDBDoc& doc) {
    const std::vector<std::string> records = zt::AllRecords(doc);
    const std::string path = PathOf("copy.ztm");
    const velda::Outcome saved = doc.SaveAs(path);
    Require(static_cast<bool>(saved), saved.Reason().c_str());
    std::filesystem::copy_file(path, PathOf("reopened.ztm"));
    zt::OpenReport report;
    const auto again = CDBDoc::Open(PathOf("reopened.ztm"), zt::OpenMode::Normal, report);
    Require(again != nullptr, report.message.c_str());
    Require(zt::AllRecords(*again) == records, "a saved model holds the same records");
}

/// Deletes and rewrites what it can; undo brings everything back.
void CheckWork(CDBDoc& doc) {
    zt::CDataBase& database = *doc.GetMDBCtrl()->GetCurrentDB();
    const std::vector<std::string> records = zt::AllRecords(doc);
    int steps = 0;
    for (std::uint16_t i = 0; i < database.ClassCount(); ++i) {
        const zt::RecordStoreBase& store = database.StoreAt(i);
        if (store.Count() == 0) continue;
        const std::uint32_t key = store.SortedKeys().back();
        std::unique_ptr<zt::ImageList> images = store.NewImages();
        images->ToCurrent(store.CopyTo(key, *images), database.Units());
        steps += database.Modify(i, {key}, {store.NewKey()}, std::move(images));
        steps += database.Delete(i, {store.SortedKeys().front()});
    }
    while (steps > 0 && database.Undo()) --steps;
    // A strange table may refuse what it held before.
    Require(steps > 0 || zt::AllRecords(doc) == records, "undo brings everything back");
    Require(steps == 0 || !database.GetLastReason().empty(), "a refused undo has a reason");
}

std::unique_ptr<CDBDoc> OpenReadOnly(const std::string& path, bool mustWork) {
    const std::string before = ReadBytes(path);
    zt::OpenReport report;
    auto doc = CDBDoc::Open(path, zt::OpenMode::ReadOnly, report);
    Require(doc || !report.message.empty(), "a file that is not opened has a reason");
    Require(doc || !mustWork, "what is offered read-only can be read");
    Require(ReadBytes(path) == before && FileCount() == 1, "a file that is read stays as it is");
    return doc;
}

void OpenToWork(const std::string& path) {
    const std::string before = ReadBytes(path);
    zt::OpenReport report;
    auto doc = CDBDoc::Open(path, zt::OpenMode::Normal, report);
    if (!doc) {
        Require(!report.message.empty(), "a file that is not opened has a reason");
        Require(ReadBytes(path) == before && FileCount() == 1, "a file that is refused stays as it is");
        doc = OpenReadOnly(path, report.canOpenReadOnly);
        if (!doc) return;
        CheckSave(*doc);
        CheckWork(*doc);
        return;
    }
    Require(report.losses.empty(), "nothing is lost in a file that is opened to work");
    const std::vector<std::string> records = zt::AllRecords(*doc);
    CheckWork(*doc);
    CheckSave(*doc);
    doc.reset();
    zt::EmptyFuzzFolder();
    WriteBytes(path, before);
    doc = OpenReadOnly(path, true);
    Require(zt::AllRecords(*doc) == records, "a good file gives the same records when it is only read");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::string& good = GoodModel();
    zt::EmptyFuzzFolder();
    const std::string path = PathOf("model.ztm");
    if (input.starts_with("SQLite format")) {
        WriteBytes(path, input);
    } else {
        WriteBytes(path, good);
        RunSql(path, input);
    }
    OpenToWork(path);
    zt::EmptyFuzzFolder();
    return 0;
}
