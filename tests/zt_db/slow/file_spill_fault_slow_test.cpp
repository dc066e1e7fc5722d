#include "zt_db/write_fault_fixture.h"

namespace zt {
namespace {

constexpr std::size_t kDescription = 1'000'000;

/// Larger than the page cache, so that the file is written to before the commit.
std::string AddHugeBatch(CDBDoc& doc) { return AddSections(doc, 1000, 90, kDescription); }

std::string AddHugeBatchInGroup(CDBDoc& doc) {
    CDataBase& database = DatabaseOf(doc);
    if (!database.BeginGroup("group")) return database.GetLastReason();
    std::string reason = AddSections(doc, 10, 1, 10);
    if (reason.empty()) reason = AddHugeBatch(doc);
    if (!reason.empty()) {
        database.CancelGroup();
        return reason;
    }
    return database.EndGroup() ? std::string{} : database.GetLastReason();
}

class FileSpillFault : public WriteFaultTest {};

int MuchLater(int at) { return at * 3 + 1; }

TEST_F(FileSpillFault, InABatchLeavesMemoryAndFileAsTheyWere) {
    FailEverywhere({"HugeBatch", [](CDBDoc&) {}, &AddHugeBatch}, FileSafety::Normal, {0, SQLITE_FULL, true},
                   &MuchLater);
}

TEST_F(FileSpillFault, InAGroupLeavesMemoryAndFileAsTheyWere) {
    FailEverywhere({"HugeBatchInGroup", [](CDBDoc&) {}, &AddHugeBatchInGroup}, FileSafety::Normal,
                   {0, SQLITE_FULL, false}, &MuchLater);
}

/// Whoever goes on in a group after a failure either gets all that was not refused, or is told that nothing can be
/// kept.
TEST_F(FileSpillFault, AGroupThatGoesOnAfterAFailureIsKeptAsMemoryHasIt) {
    for (const int result : {SQLITE_FULL, SQLITE_IOERR_WRITE}) {
        std::unique_ptr<CDBDoc> doc = Prepared({"", [](CDBDoc&) {}, nullptr}, FileSafety::Normal);
        CDataBase& database = DatabaseOf(*doc);
        const ModelState before = StateOf(*doc);
        ASSERT_TRUE(database.BeginGroup("group"));
        ASSERT_EQ(AddSections(*doc, 10, 1, 10), "");
        const std::vector<std::string> inGroup = AllRecords(*doc);
        disk.Arm({5, result, false});
        EXPECT_NE(AddHugeBatch(*doc), "");
        disk.Disarm();
        EXPECT_EQ(AllRecords(*doc), inGroup);
        if (database.EndGroup()) {
            EXPECT_EQ(AllRecords(*doc), inGroup);
        } else {
            EXPECT_NE(database.GetLastReason(), "");
            EXPECT_EQ(StateOf(*doc), before);
        }
        EXPECT_EQ(RecordsInFile(), AllRecords(*doc));
        EXPECT_EQ(AddSections(*doc, 20, 1, 10), "");
        EXPECT_EQ(RecordsInFile(), AllRecords(*doc));
    }
}

}  // namespace
}  // namespace zt
