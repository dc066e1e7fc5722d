#include "zt_db/write_fault_fixture.h"

namespace zt {
namespace {

namespace fs = std::filesystem;
using testing::Key;
using testing::UnorderedElementsAre;

void PrepareNothing(CDBDoc&) {}

void AddTwoSections(CDBDoc& doc) {
    ASSERT_EQ(AddSections(doc, 10, 1, 10), "");
    ASSERT_EQ(AddSections(doc, 20, 1, 10), "");
}

void AddAndTakeBack(CDBDoc& doc) {
    AddTwoSections(doc);
    ASSERT_EQ(DatabaseOf(doc).Undo(2), 2);
}

std::string RenameModule(CDBDoc& doc) {
    CClassMdul& modules = *DatabaseOf(doc).GetClass<CClassMdul>();
    T_MDUL_D module;
    module.name = "renamed";
    return modules.TR_Modify(1, 1, module) ? std::string{} : DatabaseOf(doc).GetLastReason();
}

std::string AddBatch(CDBDoc& doc) { return AddSections(doc, 100, 50, 300); }
std::string AddLargeBatch(CDBDoc& doc) { return AddSections(doc, 100, 80, 64'000); }

/// Takes nodes with all that stands on them, so that several tables change.
std::string DeleteNode(CDBDoc& doc) {
    return DatabaseOf(doc).GetClass<CClassPont>()->TR_Del(2) ? std::string{} : DatabaseOf(doc).GetLastReason();
}

std::string RunGroup(CDBDoc& doc) {
    CDataBase& database = DatabaseOf(doc);
    if (!database.BeginGroup("group")) return database.GetLastReason();
    for (std::string (*part)(CDBDoc&) : {&RenameModule, &AddBatch, &DeleteNode}) {
        const std::string reason = part(doc);
        if (reason.empty()) continue;
        database.CancelGroup();
        return reason;
    }
    return database.EndGroup() ? std::string{} : database.GetLastReason();
}

/// A group with another one within it that is cancelled.
std::string RunGroupAroundACancelledOne(CDBDoc& doc) {
    CDataBase& database = DatabaseOf(doc);
    if (!database.BeginGroup("group")) return database.GetLastReason();
    std::string reason = RenameModule(doc);
    if (reason.empty() && database.BeginGroup("inner")) {
        reason = AddBatch(doc);
        database.CancelGroup();
    }
    if (reason.empty()) reason = DeleteNode(doc);
    if (reason.empty()) return database.EndGroup() ? std::string{} : database.GetLastReason();
    database.CancelGroup();
    return reason;
}

void RunGroupBefore(CDBDoc& doc) { ASSERT_EQ(RunGroup(doc), ""); }

std::string UndoOne(CDBDoc& doc) { return DatabaseOf(doc).Undo() ? std::string{} : DatabaseOf(doc).GetLastReason(); }
std::string RedoOne(CDBDoc& doc) { return DatabaseOf(doc).Redo() ? std::string{} : DatabaseOf(doc).GetLastReason(); }

constexpr ModelOperation kOperations[] = {
    {"Transaction", &PrepareNothing, &RenameModule},
    {"LaterTransaction", &AddTwoSections, &RenameModule},
    {"Batch", &PrepareNothing, &AddBatch},
    {"Deletion", &AddTwoSections, &DeleteNode},
    {"Group", &AddTwoSections, &RunGroup},
    {"GroupInGroup", &AddTwoSections, &RunGroupAroundACancelledOne},
    {"Undo", &AddTwoSections, &UndoOne},
    {"UndoOfGroup", &RunGroupBefore, &UndoOne},
    {"Redo", &AddAndTakeBack, &RedoOne},
};

using WriteFaultParameters = std::tuple<ModelOperation, FileSafety, int, bool>;

class FileWriteFault : public WriteFaultTest, public testing::WithParamInterface<WriteFaultParameters> {};

std::string NameOf(const testing::TestParamInfo<WriteFaultParameters>& info) {
    const auto& [operation, safety, result, stays] = info.param;
    return std::string(operation.name) + (safety == FileSafety::Full ? "Safe" : "Normal") +
           (result == SQLITE_FULL ? "DiskFull" : "DiskFails") + (stays ? "ForLong" : "Once");
}

TEST_P(FileWriteFault, LeavesMemoryAndFileAsTheyWere) {
    const auto& [operation, safety, result, stays] = GetParam();
    FailEverywhere(operation, safety, {0, result, stays}, [](int at) { return at + 1; });
}

INSTANTIATE_TEST_SUITE_P(Operations, FileWriteFault,
                         testing::Combine(testing::ValuesIn(kOperations),
                                          testing::Values(FileSafety::Normal, FileSafety::Full),
                                          testing::Values(SQLITE_FULL, SQLITE_IOERR_WRITE), testing::Bool()),
                         &NameOf);

/// So large that the journal is brought into the file behind the commit.
class FileWriteFaultInLargeBatch : public WriteFaultTest {};

TEST_F(FileWriteFaultInLargeBatch, LeavesMemoryAndFileAsTheyWere) {
    for (const bool stays : {false, true}) {
        FailEverywhere({"LargeBatch", &PrepareNothing, &AddLargeBatch}, FileSafety::Normal, {0, SQLITE_FULL, stays},
                       [](int at) { return at + std::max(1, at / 3); });
    }
}

// ---- opening and saving ----

class FileSaveFault : public WriteFaultTest, public testing::WithParamInterface<std::tuple<int, bool>> {
protected:
    /// Saves a model of one section to `target` with the disk failing at each place in turn.
    void SaveWithFaults(const std::string& target) {
        const auto [result, stays] = GetParam();
        const auto before = FolderContent(folder.Path());
        bool saved = false;
        for (int at = 1; !saved && !HasFailure(); ++at) {
            SCOPED_TRACE(at);
            auto doc = CDBDoc::New();
            ASSERT_EQ(AddSections(*doc, 1, 20, 1000), "");
            const ModelState state = StateOf(*doc);
            disk.Arm({at, result, stays});
            const velda::Outcome outcome = doc->SaveAs(target);
            disk.Disarm();
            saved = static_cast<bool>(outcome);
            EXPECT_EQ(StateOf(*doc), state);
            if (!saved) ExpectNothingSaved(*doc, outcome.Reason(), target, before);
            EXPECT_EQ(AddSections(*doc, 100, 1, 10), "");
            if (saved) ExpectSaved(std::move(doc), target);
        }
        EXPECT_TRUE(saved);
    }

private:
    void ExpectNothingSaved(CDBDoc& doc, const std::string& reason, const std::string& target,
                            const std::map<std::string, std::string>& before) {
        const auto [result, stays] = GetParam();
        EXPECT_EQ(reason, result == SQLITE_FULL ? velda::FormatText("IDS_DB_FILE_FULL", {target})
                                                : velda::FormatText("IDS_DB_FILE_FAILED", {target, "disk I/O error"}));
        EXPECT_EQ(FolderContent(folder.Path()), before);
        EXPECT_EQ(doc.GetPath(), "");
    }
    void ExpectSaved(std::unique_ptr<CDBDoc> doc, const std::string& target) {
        const std::vector<std::string> changed = AllRecords(*doc);
        doc.reset();
        doc = CDBDoc::Open(target, OpenMode::Normal, report);
        ASSERT_NE(doc, nullptr) << report.message;
        EXPECT_EQ(AllRecords(*doc), changed);
    }
};

TEST_P(FileSaveFault, LeavesNothingBehind) { SaveWithFaults(folder.File("new.ztm")); }

TEST_P(FileSaveFault, LeavesTheFileThatWasToBeReplaced) { SaveWithFaults(path); }

TEST_P(FileSaveFault, LeavesAnOlderFileThatCannotBeBroughtUpToDate) {
    const auto [result, stays] = GetParam();
    RunSql(path,
           "PRAGMA locking_mode = EXCLUSIVE; DROP TABLE STND;"
           "ALTER TABLE MATL DROP COLUMN dampingRatio; PRAGMA user_version = 0;"
           "PRAGMA journal_mode = DELETE");
    const std::string older = ReadBytes(path);
    std::unique_ptr<CDBDoc> doc;
    for (int at = 1; !doc && !HasFailure(); ++at) {
        SCOPED_TRACE(at);
        WriteBytes(path, older);
        disk.Arm({at, result, stays});
        doc = Open();
        disk.Disarm();
        if (doc) break;
        EXPECT_FALSE(report.message.empty());
        EXPECT_TRUE(report.canOpenReadOnly);
        const auto read = Open(OpenMode::ReadOnly);
        ASSERT_NE(read, nullptr) << report.message;
        EXPECT_EQ(AllRecords(*read).size(), records.size() - 1);
        EXPECT_THAT(report.losses, testing::IsEmpty());
    }
    EXPECT_EQ(AllRecords(*doc).size(), records.size() - 1);
    EXPECT_EQ(RenameModule(*doc), "");
}

INSTANTIATE_TEST_SUITE_P(Faults, FileSaveFault,
                         testing::Combine(testing::Values(SQLITE_FULL, SQLITE_IOERR_WRITE), testing::Bool()));

// ---- inside a group ----

TEST_F(FileWriteFaultInLargeBatch, ClosingOnAFullDiskLosesNothing) {
    std::unique_ptr<CDBDoc> doc = Prepared({"", &AddTwoSections, nullptr}, FileSafety::Normal);
    const std::vector<std::string> changed = AllRecords(*doc);
    for (int at = 1; at <= 8; ++at) {
        disk.Arm({at, SQLITE_FULL, true});
        doc.reset();
        disk.Disarm();
        doc = Open();
        ASSERT_NE(doc, nullptr) << report.message;
        EXPECT_EQ(AllRecords(*doc), changed) << at;
    }
}

}  // namespace
}  // namespace zt
