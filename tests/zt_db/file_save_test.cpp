#include "velda_lib/msg_dll.h"
#include "zt_db/child_process.h"
#include "zt_db/model_fixture.h"
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace zt {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::Key;
using testing::SizeIs;
using testing::UnorderedElementsAre;
using velda::FormatText;

/// A model in memory that is saved, beside a model file that is there already.
class FileSave : public ModelFileTest {
protected:
    FileSave() : doc(CDBDoc::New()) { AddMaterial("new"); }
    void TearDown() override { BecomeStartingUser(); }

    void AddMaterial(const std::string& name) {
        CClassMatl& materials = *doc->GetMDBCtrl()->GetCurrentDB()->GetClass<CClassMatl>();
        T_MATL_D material;
        material.name = name;
        ASSERT_TRUE(materials.TR_Add(materials.GetNewKey(), material))
            << doc->GetMDBCtrl()->GetCurrentDB()->GetLastReason();
    }

    /// Saving is refused, every file of the folder is as before, and the model lives where it lived.
    void ExpectRefused(const std::string& target, const std::string& reason) {
        const auto before = FolderContent(folder.Path());
        const std::string place = doc->GetPath();
        const ModelState state = StateOf(*doc);
        const velda::Outcome saved = doc->SaveAs(target);
        EXPECT_FALSE(saved);
        EXPECT_EQ(saved.Reason(), reason);
        EXPECT_EQ(FolderContent(folder.Path()), before);
        EXPECT_EQ(doc->GetPath(), place);
        EXPECT_EQ(StateOf(*doc), state);
        AddMaterial("after");
    }

    /// The file holds what the model holds, and nothing stays beside it when it is closed.
    void ExpectSaved(const std::string& target) {
        EXPECT_EQ(doc->GetPath(), target);
        const std::vector<std::string> saved = AllRecords(*doc);
        doc.reset();
        for (const char* ending : {".part", "-wal", "-shm", "-journal"})
            EXPECT_FALSE(fs::exists(target + ending)) << ending;
        doc = CDBDoc::Open(target, OpenMode::Normal, report);
        ASSERT_NE(doc, nullptr) << report.message;
        EXPECT_EQ(AllRecords(*doc), saved);
    }

    void Save(const std::string& target) {
        const velda::Outcome saved = doc->SaveAs(target);
        ASSERT_TRUE(saved) << saved.Reason();
    }

    std::unique_ptr<CDBDoc> doc;
};

TEST_F(FileSave, ATransactionAfterSavingIsInTheNewFile) {
    Save(folder.File("new.ztm"));
    AddMaterial("later");
    ExpectSaved(folder.File("new.ztm"));
}

TEST_F(FileSave, SavingUnderAnotherNameLeavesTheFirstFile) {
    doc = Open();
    ASSERT_NE(doc, nullptr);
    Save(folder.File("second.ztm"));
    AddMaterial("only in the second");
    ExpectSaved(folder.File("second.ztm"));
    doc = Open();
    ASSERT_NE(doc, nullptr) << report.message;
    EXPECT_EQ(AllRecords(*doc), records);
}

TEST_F(FileSave, AnExistingModelIsReplaced) {
    Save(path);
    ExpectSaved(path);
    EXPECT_THAT(AllRecords(*doc), SizeIs(1));
}

TEST_F(FileSave, AFileThatIsNoModelIsReplaced) {
    WriteBytes(path, "some text");
    Save(path);
    ExpectSaved(path);
}

TEST_F(FileSave, AJournalLeftBesideTheReplacedFileIsNotPlayedIntoTheNewOne) {
    ChildProcess child([this](ChildProcess::Pipes& pipes) {
        OpenReport childReport;
        const auto other = CDBDoc::Open(path, OpenMode::Normal, childReport);
        const bool changed = other && other->GetMDBCtrl()->GetCurrentDB()->GetClass<CClassMemb>()->TR_Del(1);
        pipes.Send(changed ? 'c' : 'x');
        pipes.WaitForEnd();
    });
    ASSERT_EQ(child.Receive(), 'c');
    child.Kill();
    ASSERT_GT(fs::file_size(path + "-wal"), 0u);
    Save(path);
    ExpectSaved(path);
}

TEST_F(FileSave, AStrangeJournalBesideTheReplacedFileGoes) {
    fs::remove(path);
    WriteBytes(path, "some text");
    WriteBytes(path + "-wal", "what no one needs any more");
    WriteBytes(path + "-journal", "nor this");
    Save(path);
    ExpectSaved(path);
}

TEST_F(FileSave, AJournalWithoutItsFileGoes) {
    const std::string target = folder.File("new.ztm");
    WriteBytes(target + "-wal", ReadBytes(path));
    WriteBytes(target + "-journal", ReadBytes(path));
    Save(target);
    ExpectSaved(target);
}

TEST_F(FileSave, SavingOntoItsOwnPathKeepsWorkingInTheFile) {
    Save(folder.File("new.ztm"));
    AddMaterial("before");
    Save(folder.File("new.ztm"));
    Save(folder.File("./new.ztm"));
    AddMaterial("after");
    EXPECT_EQ(doc->GetPath(), folder.File("new.ztm"));
    ExpectSaved(folder.File("new.ztm"));
    EXPECT_THAT(AllRecords(*doc), SizeIs(3));
}

TEST_F(FileSave, SavingIntoAFolderThatDoesNotExistIsRefused) {
    const std::string target = folder.File("nowhere/new.ztm");
    ExpectRefused(target, FormatText("IDS_DB_FILE_CANNOT_OPEN", {target}));
    EXPECT_FALSE(fs::exists(folder.File("nowhere")));
}

TEST_F(FileSave, SavingOntoAFolderIsRefused) {
    fs::create_directory(folder.File("new.ztm"));
    ExpectRefused(folder.File("new.ztm"), FormatText("IDS_DB_FILE_IS_FOLDER", {folder.File("new.ztm")}));
}

TEST_F(FileSave, SavingToNoNameIsRefused) {
    const auto before = FolderContent(fs::current_path());
    EXPECT_FALSE(doc->SaveAs(""));
    EXPECT_EQ(FolderContent(fs::current_path()), before);
    EXPECT_EQ(doc->GetPath(), "");
}

TEST_F(FileSave, SavingOntoAFileThatIsOpenElsewhereInTheProgramIsRefused) {
    const std::unique_ptr<CDBDoc> other = Open();
    ASSERT_NE(other, nullptr);
    ExpectRefused(path, FormatText("IDS_DB_FILE_LOCKED", {path}));
    EXPECT_TRUE(other->GetMDBCtrl()->GetCurrentDB()->GetClass<CClassMemb>()->TR_Del(1));
}

TEST_F(FileSave, SavingOntoAFileThatAnotherProcessHasOpenIsRefused) {
    const ChildProcess holder([this](ChildProcess::Pipes& pipes) {
        OpenReport childReport;
        const auto other = CDBDoc::Open(path, OpenMode::Normal, childReport);
        pipes.Send(other ? 'o' : 'x');
        pipes.WaitForEnd();
    });
    ASSERT_EQ(holder.Receive(), 'o');
    ExpectRefused(path, FormatText("IDS_DB_FILE_LOCKED", {path}));
}

TEST_F(FileSave, SavingOntoAWriteProtectedFileIsRefused) {
    ASSERT_EQ(chmod(folder.Path().c_str(), 0777), 0);
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    BecomeOrdinaryUser();
    ExpectRefused(path, FormatText("IDS_DB_FILE_READ_ONLY", {path}));
}

TEST_F(FileSave, SavingIntoAWriteProtectedFolderIsRefused) {
    ASSERT_EQ(chmod(folder.Path().c_str(), 0555), 0);
    BecomeOrdinaryUser();
    const std::string target = folder.File("new.ztm");
    ExpectRefused(target, FormatText("IDS_DB_FILE_CANNOT_OPEN", {target}));
}

TEST_F(FileSave, SavingWhileAGroupIsOpenIsRefused) {
    CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
    ASSERT_TRUE(database.BeginGroup("group"));
    const velda::Outcome saved = doc->SaveAs(folder.File("new.ztm"));
    EXPECT_EQ(saved.Reason(), FormatText("IDS_DB_REASON_GROUP_OPEN", {}));
    EXPECT_THAT(FolderContent(folder.Path()), UnorderedElementsAre(Key("model.ztm")));
    AddMaterial("in the group");
    ASSERT_TRUE(database.EndGroup());
    Save(folder.File("new.ztm"));
    ExpectSaved(folder.File("new.ztm"));
}

TEST_F(FileSave, HistoryStaysWhenAModelIsSaved) {
    CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
    AddMaterial("second");
    Save(folder.File("new.ztm"));
    EXPECT_THAT(database.GetUndoNames(), SizeIs(2));
    EXPECT_EQ(database.Undo(2), 2) << database.GetLastReason();
    ExpectSaved(folder.File("new.ztm"));
    EXPECT_THAT(AllRecords(*doc), IsEmpty());
}

class FileWithUnusualPath : public FileSave, public testing::WithParamInterface<const char*> {};

TEST_P(FileWithUnusualPath, IsSavedReadAndWorkedOn) {
    const std::string target = folder.File(GetParam());
    fs::create_directories(fs::path(target).parent_path());
    Save(target);
    AddMaterial("later");
    ExpectSaved(target);
    const std::vector<std::string> saved = AllRecords(*doc);
    doc.reset();
    doc = CDBDoc::Open(target, OpenMode::ReadOnly, report);
    ASSERT_NE(doc, nullptr) << report.message;
    EXPECT_EQ(AllRecords(*doc), saved);
}

INSTANTIATE_TEST_SUITE_P(Paths, FileWithUnusualPath,
                         testing::Values("two  blanks .ztm", "건물 모델.ztm", "건물/층 1.ztm", "what?.ztm",
                                         "a?mode=ro&immutable=1.ztm", "#1.ztm", "100%.ztm", "%41%2f.ztm", "it's.ztm",
                                         "a\"b.ztm", "file:x.ztm", ":memory:", "no_ending", "-wal", "a\nb.ztm"));

/// A relative path is taken in the current folder, also where it looks like something else.
TEST_F(FileSave, ARelativePathIsTakenInTheCurrentFolder) {
    const fs::path old = fs::current_path();
    fs::current_path(folder.Path());
    for (const char* name : {"new.ztm", ":memory:", "file:x.ztm"}) {
        Save(name);
        AddMaterial(name);
        ExpectSaved(name);
        EXPECT_TRUE(fs::is_regular_file(folder.File(name))) << name;
    }
    fs::current_path(old);
}

}  // namespace
}  // namespace zt
