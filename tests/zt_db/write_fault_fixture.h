#pragma once

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "zt_db/failing_vfs.h"
#include "zt_db/model_fixture.h"
#include <gmock/gmock.h>

namespace zt {

inline CDataBase& DatabaseOf(CDBDoc& doc) { return *doc.GetMDBCtrl()->GetCurrentDB(); }

/// Something that a user does to a model, after what came before it. It gives the reason when it is refused.
struct ModelOperation {
    const char* name;
    void (*prepare)(CDBDoc& doc);
    std::string (*run)(CDBDoc& doc);
};

/// Does an operation on a failing disk: once for each place at which the disk can fail.
class WriteFaultTest : public ModelFileTest {
protected:
    WriteFaultTest() : good(ReadBytes(path)) {}

    /// `next` gives the place of the fault that is tried after one.
    void FailEverywhere(const ModelOperation& operation, FileSafety safety, DiskFault fault, int (*next)(int)) {
        const std::vector<std::string> after = RecordsAfter(operation, safety);
        bool reached = true;
        for (int at = 1; reached && !HasFailure(); at = next(at)) {
            SCOPED_TRACE(testing::Message() << operation.name << ", fault at " << at);
            fault.atOperation = at;
            reached = FailOnce(operation, safety, fault, after);
        }
    }

    /// What a program that is killed at this moment would find in the file.
    std::vector<std::string> RecordsInFile() {
        const TemporaryFolder copy("copy");
        for (const char* ending : {"", "-wal", "-journal"}) {
            std::error_code error;
            std::filesystem::copy_file(path + ending, copy.File(std::string("model.ztm") + ending), error);
        }
        OpenReport copyReport;
        const auto doc = CDBDoc::Open(copy.File("model.ztm"), OpenMode::Normal, copyReport);
        EXPECT_NE(doc, nullptr) << copyReport.message;
        return doc ? AllRecords(*doc) : std::vector<std::string>{};
    }

    std::unique_ptr<CDBDoc> Prepared(const ModelOperation& operation, FileSafety safety) {
        WriteBytes(path, good);
        CInitCtrl settings;
        settings.fileSafety = safety;
        auto doc = CDBDoc::Open(path, OpenMode::Normal, report, settings);
        EXPECT_NE(doc, nullptr) << report.message;
        operation.prepare(*doc);
        return doc;
    }

    FailingVfs disk;
    std::string good;

private:
    std::vector<std::string> RecordsAfter(const ModelOperation& operation, FileSafety safety) {
        const auto doc = Prepared(operation, safety);
        EXPECT_EQ(operation.run(*doc), "");
        return AllRecords(*doc);
    }

    /// False when the operation ended without meeting the fault.
    bool FailOnce(const ModelOperation& operation, FileSafety safety, const DiskFault& fault,
                  const std::vector<std::string>& after) {
        std::unique_ptr<CDBDoc> doc = Prepared(operation, safety);
        const ModelState before = StateOf(*doc);
        disk.Arm(fault);
        const std::string reason = operation.run(*doc);
        disk.Disarm();
        const bool reached = disk.Operations() >= fault.atOperation;
        if (reason.empty()) {
            EXPECT_EQ(AllRecords(*doc), after);
            EXPECT_EQ(RecordsInFile(), after);
            return reached;
        }
        EXPECT_TRUE(reached);
        EXPECT_EQ(reason, ReasonOf(fault));
        EXPECT_EQ(StateOf(*doc), before);
        // When the disk fails to confirm what was written, it may be there all the same.
        if (safety == FileSafety::Full) {
            EXPECT_THAT(RecordsInFile(), testing::AnyOf(before.records, after));
        } else {
            EXPECT_EQ(RecordsInFile(), before.records);
        }
        EXPECT_EQ(operation.run(*doc), "");
        EXPECT_EQ(AllRecords(*doc), after);
        doc.reset();
        doc = Open();
        EXPECT_NE(doc, nullptr) << report.message;
        EXPECT_TRUE(doc && AllRecords(*doc) == after);
        return true;
    }

    std::string ReasonOf(const DiskFault& fault) const {
        return fault.result == SQLITE_FULL ? velda::FormatText("IDS_DB_FILE_FULL", {path})
                                           : velda::FormatText("IDS_DB_FILE_FAILED", {path, "disk I/O error"});
    }
};

/// Sections whose descriptions have the given length.
inline std::string AddSections(CDBDoc& doc, std::uint32_t firstKey, std::uint32_t count, std::size_t length) {
    std::vector<std::uint32_t> keys;
    std::vector<T_SECT_D> sections;
    for (std::uint32_t key = firstKey; key < firstKey + count; ++key) {
        keys.push_back(key);
        sections.emplace_back().description.assign(length, 'd');
    }
    CDataBase& database = DatabaseOf(doc);
    return database.GetClass<CClassSect>()->TR_Add(keys, sections) ? std::string{} : database.GetLastReason();
}

}  // namespace zt
