#include <algorithm>
#include <random>

#include "velda_lib/msg_dll.h"
#include "zt_db/child_process.h"
#include "zt_db/file/model_schema.h"
#include "zt_db/model_fixture.h"
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace zt {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using velda::FormatText;

class FileOpen : public ModelFileTest {
protected:
    void TearDown() override { BecomeStartingUser(); }

    /// Opening to work is refused, and every file of the folder is as before.
    void ExpectRefused(const testing::Matcher<std::string>& message, bool canOpenReadOnly) {
        const auto before = FolderContent(folder.Path());
        EXPECT_EQ(Open(), nullptr);
        EXPECT_THAT(report.message, message);
        EXPECT_EQ(report.canOpenReadOnly, canOpenReadOnly);
        EXPECT_EQ(FolderContent(folder.Path()), before);
    }
    void ExpectRefusedAsUnreadable(const std::string& message) {
        ExpectRefused(message, false);
        const auto before = FolderContent(folder.Path());
        EXPECT_EQ(Open(OpenMode::ReadOnly), nullptr);
        EXPECT_EQ(report.message, message);
        EXPECT_EQ(FolderContent(folder.Path()), before);
    }

    /// What is read of the file leaves it alone, takes no transactions, and makes a good model under another name.
    std::vector<std::string> RecordsReadOnly() {
        const auto before = FolderContent(folder.Path());
        std::unique_ptr<CDBDoc> doc = Open(OpenMode::ReadOnly);
        EXPECT_NE(doc, nullptr) << report.message;
        if (!doc) return {};
        EXPECT_TRUE(doc->IsReadOnly());
        EXPECT_FALSE(AddStandards(*doc));
        const std::vector<std::string> read = AllRecords(*doc);
        const TemporaryFolder other("rescued");
        const velda::Outcome saved = doc->SaveAs(other.File("rescued.ztm"));
        EXPECT_TRUE(saved) << saved.Reason();
        EXPECT_TRUE(AddStandards(*doc)) << doc->GetMDBCtrl()->GetCurrentDB()->GetLastReason();
        doc->GetMDBCtrl()->GetCurrentDB()->Undo();
        doc.reset();
        OpenReport again;
        doc = CDBDoc::Open(other.File("rescued.ztm"), OpenMode::Normal, again);
        EXPECT_NE(doc, nullptr) << again.message;
        EXPECT_EQ(doc ? AllRecords(*doc) : std::vector<std::string>{}, read);
        EXPECT_EQ(FolderContent(folder.Path()), before);
        return read;
    }

    static bool AddStandards(CDBDoc& doc) {
        CClassStnd& standards = *doc.GetMDBCtrl()->GetCurrentDB()->GetClass<CClassStnd>();
        return standards.TR_Add(standards.GetNewKey(), T_STND_D{}) == 1;
    }

    /// The records of the good file but for those of the given names, "PONT 1".
    std::vector<std::string> AllBut(const std::vector<std::string>& names) const {
        std::vector<std::string> kept = records;
        for (const std::string& name : names) {
            const auto removed = std::erase_if(kept, [&](const auto& text) { return text.starts_with(name + " ["); });
            EXPECT_EQ(removed, 1u) << name;
        }
        return kept;
    }

    std::string Text(const char* key, std::initializer_list<std::string> more = {}) const {
        std::vector<std::string> all{path};
        all.insert(all.end(), more);
        all.resize(3);
        return FormatText(key, {all[0], all[1], all[2]});
    }
};

// ---- a good file ----

TEST_F(FileOpen, AGoodFileIsReadWholeAndLeftAsItIs) {
    const auto before = FolderContent(folder.Path());
    ASSERT_THAT(before, testing::SizeIs(1));
    std::unique_ptr<CDBDoc> doc = Open();
    ASSERT_NE(doc, nullptr) << report.message;
    EXPECT_EQ(AllRecords(*doc), records);
    EXPECT_TRUE(report.message.empty());
    EXPECT_THAT(report.losses, IsEmpty());
    doc.reset();
    EXPECT_EQ(FolderContent(folder.Path()), before);
}

TEST_F(FileOpen, AGoodFileIsReadReadOnlyWithoutLosses) {
    EXPECT_EQ(RecordsReadOnly(), records);
    EXPECT_THAT(report.losses, IsEmpty());
    EXPECT_TRUE(report.message.empty());
}

TEST_F(FileOpen, AModelOpenedReadOnlyRefusesTransactionsAndSaysWhy) {
    const std::unique_ptr<CDBDoc> doc = Open(OpenMode::ReadOnly);
    ASSERT_NE(doc, nullptr);
    CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
    EXPECT_FALSE(AddStandards(*doc));
    EXPECT_EQ(database.GetLastReason(), FormatText("IDS_DB_REASON_READ_ONLY", {}));
    EXPECT_FALSE(database.GetClass<CClassMemb>()->TR_Del(1));
    EXPECT_FALSE(database.BeginGroup("group"));
    EXPECT_EQ(AllRecords(*doc), records);
}

TEST_F(FileOpen, CommittedTransactionsAreThereWhenTheFileIsOpenedAgain) {
    std::unique_ptr<CDBDoc> doc = Open();
    ASSERT_NE(doc, nullptr);
    ASSERT_TRUE(AddStandards(*doc));
    ASSERT_TRUE(doc->GetMDBCtrl()->GetCurrentDB()->GetClass<CClassMemb>()->TR_Del(1));
    const std::vector<std::string> changed = AllRecords(*doc);
    doc.reset();
    doc = Open();
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(AllRecords(*doc), changed);
    EXPECT_NE(changed, records);
}

// ---- an older file ----

TEST_F(FileOpen, AnOlderFileIsBroughtUpToDate) {
    RunSql(path,
           "DROP TABLE STND; ALTER TABLE MATL DROP COLUMN dampingRatio; ALTER TABLE THIK DROP COLUMN name;"
           "PRAGMA user_version = 0");
    std::unique_ptr<CDBDoc> doc = Open();
    ASSERT_NE(doc, nullptr) << report.message;
    EXPECT_EQ(report.formatVersion, 0);
    EXPECT_EQ(AllRecords(*doc), AllBut({"STND 1"}));
    ASSERT_TRUE(AddStandards(*doc));
    const std::vector<std::string> changed = AllRecords(*doc);
    doc.reset();
    doc = Open();
    ASSERT_NE(doc, nullptr) << report.message;
    EXPECT_EQ(report.formatVersion, kModelSchemaVersion);
    EXPECT_EQ(AllRecords(*doc), changed);
}

TEST_F(FileOpen, AnOlderFileIsReadReadOnlyWithoutBeingBroughtUpToDate) {
    RunSql(path, "DROP TABLE STND; ALTER TABLE MATL DROP COLUMN dampingRatio; PRAGMA user_version = 0");
    EXPECT_EQ(RecordsReadOnly(), AllBut({"STND 1"}));
    EXPECT_THAT(report.losses, IsEmpty());
}

/// The tables that files of a version had.
std::string TablesOfVersion(int version) {
    return ReadBytes(std::string(ZT_SOURCE_DIR) + "/tests/zt_db/schema_version_" + std::to_string(version) + ".sql");
}

TEST_F(FileOpen, AFileOfTheFirstVersionGetsTheTablesThatItLacks) {
    fs::remove(path);
    WriteBytes(path, "");
    RunSql(path, TablesOfVersion(1) +
                     "INSERT INTO PONT VALUES (7, 1, 2, 3, 0, 0, 70, 'N');"
                     "PRAGMA application_id = " +
                     std::to_string(kModelApplicationId) + "; PRAGMA user_version = 1");
    const auto node = [] { return std::string("PONT 7 [ x=1 y=2 z=3 plan=0 story=0 no=70 name=N ]"); };
    std::unique_ptr<CDBDoc> doc = Open();
    ASSERT_NE(doc, nullptr) << report.message;
    EXPECT_EQ(report.formatVersion, 1);
    EXPECT_THAT(AllRecords(*doc), ElementsAre(node()));
    ASSERT_TRUE(doc->GetMDBCtrl()->GetCurrentDB()->GetClass<CClassSpts>()->TR_Add(7, {.flags = "111000"}));
    doc.reset();
    doc = Open();
    ASSERT_NE(doc, nullptr) << report.message;
    EXPECT_EQ(report.formatVersion, kModelSchemaVersion);
    EXPECT_THAT(AllRecords(*doc), ElementsAre(node(), testing::StartsWith("SPTS 7 [ flags=111000")));
}

TEST_F(FileOpen, ASupportWithoutItsNodeIsAFaultAndIsLeftOutWhenOnlyReading) {
    RunSql(path, "INSERT INTO SPTS VALUES (99, '111111', '[0,0,0,0,0,0]', '[0,0,0]')");
    ExpectRefused(Text("IDS_DB_FILE_REFERENCE", {"SPTS 99", "PONT 99"}), true);
    EXPECT_EQ(RecordsReadOnly(), records);
    EXPECT_THAT(report.losses, testing::SizeIs(1));
}

// ---- no model file ----

TEST_F(FileOpen, AFileThatDoesNotExistIsNotMade) {
    fs::remove(path);
    ExpectRefusedAsUnreadable(Text("IDS_DB_FILE_NOT_FOUND"));
}

TEST_F(FileOpen, AFolderIsNoModel) {
    fs::remove(path);
    fs::create_directory(path);
    ExpectRefusedAsUnreadable(Text("IDS_DB_FILE_IS_FOLDER"));
}

TEST_F(FileOpen, AnEmptyFileIsNoModel) {
    WriteBytes(path, "");
    ExpectRefusedAsUnreadable(Text("IDS_DB_FILE_NOT_A_MODEL"));
}

TEST_F(FileOpen, ATextIsNoModel) {
    for (const std::size_t length : {1u, 15u, 100u, 5000u}) {
        WriteBytes(path, std::string(length, 'x'));
        ExpectRefusedAsUnreadable(Text("IDS_DB_FILE_NOT_A_MODEL"));
    }
}

TEST_F(FileOpen, ADatabaseOfAnotherProgramIsNoModel) {
    RunSql(path, "PRAGMA application_id = 0");
    ExpectRefusedAsUnreadable(Text("IDS_DB_FILE_NOT_A_MODEL"));
}

TEST_F(FileOpen, ANewerFileIsOnlyRead) {
    const std::string current = std::to_string(kModelSchemaVersion);
    const std::string newer = std::to_string(kModelSchemaVersion + 1);
    RunSql(path, "PRAGMA user_version = " + newer + "; ALTER TABLE THIK ADD COLUMN colour TEXT; CREATE TABLE NEWS (x)");
    ExpectRefused(Text("IDS_DB_FILE_NEWER", {newer, current}), true);
    EXPECT_EQ(report.formatVersion, kModelSchemaVersion + 1);
    EXPECT_EQ(RecordsReadOnly(), records);
    EXPECT_EQ(report.message, Text("IDS_DB_FILE_NEWER", {newer, current}));
}

// ---- damaged content ----

TEST_F(FileOpen, AMissingTableIsNamed) {
    RunSql(path, "DROP TABLE STND");
    const std::string message = Text("IDS_DB_FILE_NO_TABLE", {"STND"});
    ExpectRefused(message, true);
    EXPECT_EQ(RecordsReadOnly(), AllBut({"STND 1"}));
    EXPECT_THAT(report.losses, ElementsAre(message));
}

TEST_F(FileOpen, AViewIsNoTable) {
    RunSql(path, "DROP TABLE STND; CREATE VIEW STND AS SELECT 1 AS \"key\"");
    ExpectRefused(Text("IDS_DB_FILE_NO_TABLE", {"STND"}), true);
}

TEST_F(FileOpen, RecordsThatNeedAMissingTableGoWithIt) {
    RunSql(path, "DROP TABLE PONT");
    ExpectRefused(Text("IDS_DB_FILE_NO_TABLE", {"PONT"}), true);
    const std::vector<std::string> read = RecordsReadOnly();
    EXPECT_THAT(read, Not(Contains(testing::StartsWith("MEMB "))));
    EXPECT_THAT(read, Not(Contains(testing::StartsWith("MBTP "))));
    EXPECT_THAT(read, Contains(testing::AllOf(testing::StartsWith("NAME 1 "), HasSubstr("keys=[]"))));
}

TEST_F(FileOpen, MissingColumnsAreNamed) {
    RunSql(path, "ALTER TABLE MATL DROP COLUMN dampingRatio; ALTER TABLE STOR DROP COLUMN name");
    ExpectRefused(Text("IDS_DB_FILE_NO_COLUMN", {"MATL", "dampingRatio"}), true);
    const std::vector<std::string> read = RecordsReadOnly();
    EXPECT_THAT(report.losses, ElementsAre(Text("IDS_DB_FILE_NO_COLUMN", {"MATL", "dampingRatio"}),
                                           Text("IDS_DB_FILE_NO_COLUMN", {"STOR", "name"})));
    EXPECT_EQ(read.size(), records.size());
}

/// A value that the program would never have written, and what is lost by it.
struct BadValue {
    const char* name;
    const char* sql;
    const char* label;
    const char* column;
    std::vector<std::string> lost;
};

class FileWithBadValue : public FileOpen, public testing::WithParamInterface<BadValue> {};

TEST_P(FileWithBadValue, IsRefusedWithTheNameOfTheValueAndReadWithoutTheRecord) {
    RunSql(path, GetParam().sql);
    const std::string message = Text("IDS_DB_FILE_BAD_VALUE", {GetParam().label, GetParam().column});
    ExpectRefused(message, true);
    EXPECT_EQ(RecordsReadOnly(), AllBut(GetParam().lost));
    EXPECT_THAT(report.losses, Contains(message));
}

/// Makes a table that takes values of every kind.
const std::string kLoose =
    "ALTER TABLE STND RENAME TO OLD; CREATE TABLE STND (\"key\", concrete, steel, composite, load, seismic);"
    "INSERT INTO STND SELECT * FROM OLD; DROP TABLE OLD;";
const std::string kNumberForText = kLoose + "UPDATE STND SET steel = 7";
const std::string kNothingForText = kLoose + "UPDATE STND SET steel = NULL";
const std::string kBytesForText = kLoose + "UPDATE STND SET steel = x'00ff'";
const std::string kTextForReal =
    "ALTER TABLE MATL RENAME TO OLD; CREATE TABLE MATL AS SELECT * FROM OLD; DROP TABLE OLD;"
    "UPDATE MATL SET dampingRatio = 'much' WHERE \"key\" = 2";

INSTANTIATE_TEST_SUITE_P(
    Values, FileWithBadValue,
    testing::Values(
        BadValue{"NumberForText", kNumberForText.c_str(), "STND 1", "steel", {"STND 1"}},
        BadValue{"NothingForText", kNothingForText.c_str(), "STND 1", "steel", {"STND 1"}},
        BadValue{"BytesForText", kBytesForText.c_str(), "STND 1", "steel", {"STND 1"}},
        BadValue{"TextForReal", kTextForReal.c_str(), "MATL 2", "dampingRatio", {"MATL 2"}},
        BadValue{
            "Infinity", "UPDATE MATL SET dampingRatio = 9e999 WHERE \"key\" = 2", "MATL 2", "dampingRatio", {"MATL 2"}},
        BadValue{"TooLarge", "UPDATE SECT SET kind = 5000000000 WHERE \"key\" = 2", "SECT 2", "kind", {"SECT 2"}},
        BadValue{"NegativeKey", "UPDATE PREL SET memb = -1", "PREL 1", "memb", {"PREL 1"}},
        BadValue{"OpenList", "UPDATE LCOM SET items = '[[1,1,1.2]' WHERE \"key\" = 2", "LCOM 2", "items", {"LCOM 2"}},
        BadValue{"ListOfTexts", "UPDATE NAME SET keys = '[\"1\"]'", "NAME 1", "keys", {"NAME 1"}},
        BadValue{
            "ShortList", "UPDATE SECT SET base_size = '[1,2]' WHERE \"key\" = 2", "SECT 2", "base_size", {"SECT 2"}},
        BadValue{"NoList", "UPDATE MEMB SET nodes = '' WHERE \"key\" = 2", "MEMB 2", "nodes", {"MEMB 2", "PREL 1"}}),
    [](const auto& value) { return std::string(value.param.name); });

TEST_F(FileOpen, AKeyOutOfRangeIsNamed) {
    for (const char* key : {"-3", "0", "4294967296", "9223372036854775807"}) {
        const std::string insert = std::string("INSERT INTO MDUL (\"key\", name) VALUES (") + key + ", 'M')";
        RunSql(path, insert);
        const std::string message = Text("IDS_DB_FILE_BAD_KEY", {"MDUL", key});
        ExpectRefused(message, true);
        EXPECT_EQ(RecordsReadOnly(), records);
        EXPECT_THAT(report.losses, ElementsAre(message));
        RunSql(path, std::string("DELETE FROM MDUL WHERE \"key\" = ") + key);
    }
}

TEST_F(FileOpen, AKeyThatStandsTwiceIsNamed) {
    RunSql(path, kLoose + "INSERT INTO STND SELECT * FROM STND");
    const std::string message = Text("IDS_DB_FILE_BAD_KEY", {"STND", "1"});
    ExpectRefused(message, true);
    EXPECT_EQ(RecordsReadOnly(), records);
    EXPECT_THAT(report.losses, ElementsAre(message));
}

TEST_F(FileOpen, ADanglingReferenceIsNamedAndCleared) {
    RunSql(path, "UPDATE PONT SET story = 99 WHERE \"key\" = 3");
    const std::string message = Text("IDS_DB_FILE_REFERENCE", {"PONT 3", "STOR 99"});
    ExpectRefused(message, true);
    const std::vector<std::string> read = RecordsReadOnly();
    EXPECT_THAT(report.losses, ElementsAre(message));
    EXPECT_THAT(read, Contains(testing::AllOf(testing::StartsWith("PONT 3 "), HasSubstr(" story=0 "))));
    EXPECT_EQ(read.size(), records.size());
}

TEST_F(FileOpen, ADanglingReferenceInAListLeavesTheList) {
    RunSql(path, "UPDATE LCOM SET items = '[[1,1,1.2],[1,88,1],[10,77,1]]' WHERE \"key\" = 1");
    ExpectRefused(Text("IDS_DB_FILE_REFERENCE", {"LCOM 1", "STLD 88"}), true);
    EXPECT_THAT(RecordsReadOnly(),
                Contains(testing::AllOf(testing::StartsWith("LCOM 1 "), HasSubstr("items=[[1,1,1.2]]"))));
}

TEST_F(FileOpen, ARecordThatCannotExistWithoutAMissingOneIsLeftOutWithItsFollowers) {
    RunSql(path, "UPDATE MEMB SET nodes = '[1,77]' WHERE \"key\" = 2");
    const std::string message = Text("IDS_DB_FILE_REFERENCE", {"MEMB 2", "PONT 77"});
    ExpectRefused(message, true);
    EXPECT_EQ(RecordsReadOnly(), AllBut({"MEMB 2", "PREL 1"}));
    EXPECT_THAT(report.losses, ElementsAre(message, Text("IDS_DB_FILE_REFERENCE", {"PREL 1", "MEMB 2"})));
}

TEST_F(FileOpen, ANumberThatIsTakenIsNamed) {
    RunSql(path, "UPDATE PONT SET no = 11 WHERE \"key\" = 3");
    ExpectRefused(Text("IDS_DB_FILE_NUMBER_TWICE", {"PONT 1"}), true);
    const std::vector<std::string> read = RecordsReadOnly();
    EXPECT_THAT(report.losses, Contains(HasSubstr("has the number of another record")));
    EXPECT_LT(read.size(), records.size());
}

TEST_F(FileOpen, CombinationsThatContainThemselvesAreNamedAndOpened) {
    RunSql(path, "UPDATE LCOM SET items = '[[1,1,1.2],[10,2,1]]' WHERE \"key\" = 1");
    const std::string message = Text("IDS_DB_FILE_CONTAINS_ITSELF", {"LCOM 1"});
    ExpectRefused(message, true);
    const std::vector<std::string> read = RecordsReadOnly();
    EXPECT_THAT(report.losses, ElementsAre(message));
    EXPECT_THAT(read, Contains(testing::AllOf(testing::StartsWith("LCOM 1 "), HasSubstr("items=[[1,1,1.2]]"))));
    EXPECT_THAT(read, Contains(testing::AllOf(testing::StartsWith("LCOM 2 "), HasSubstr("items=[[10,1,1]]"))));
}

TEST_F(FileOpen, ATriggerInTheFileDoesNotRun) {
    RunSql(path, "CREATE TRIGGER spy AFTER INSERT ON STND BEGIN DELETE FROM MDUL; DELETE FROM LCOM; END");
    std::unique_ptr<CDBDoc> doc = Open();
    ASSERT_NE(doc, nullptr) << report.message;
    ASSERT_TRUE(AddStandards(*doc));
    doc.reset();
    doc = Open();
    ASSERT_NE(doc, nullptr) << report.message;
    EXPECT_EQ(AllRecords(*doc).size(), records.size() + 1);
}

// ---- damaged bytes ----

TEST_F(FileOpen, AFileThatIsCutOffAnywhereIsRefusedAndReadAsFarAsItGoes) {
    const std::string good = ReadBytes(path);
    bool someRead = false;
    for (std::size_t length = 1; length < good.size(); length += length < 200 ? 1 : 1021) {
        WriteBytes(path, good.substr(0, length));
        const auto before = FolderContent(folder.Path());
        EXPECT_EQ(Open(), nullptr) << length;
        EXPECT_THAT(report.message, AnyOf(Text("IDS_DB_FILE_CUT_OFF"), Text("IDS_DB_FILE_NOT_A_MODEL"))) << length;
        const bool offered = report.canOpenReadOnly;
        const std::unique_ptr<CDBDoc> doc = Open(OpenMode::ReadOnly);
        EXPECT_EQ(doc != nullptr, offered) << length << ' ' << report.message;
        if (doc) {
            EXPECT_THAT(report.losses, Not(IsEmpty())) << length;
            someRead = someRead || !AllRecords(*doc).empty();
        }
        EXPECT_EQ(FolderContent(folder.Path()), before) << length;
    }
    EXPECT_TRUE(someRead);
}

/// A header whose change counter is wrong is not believed, and would be put right by the next transaction.
TEST_F(FileOpen, AFileThatIsCutOffWithAWrongHeaderIsLeftAsItIs) {
    const std::string good = ReadBytes(path);
    constexpr std::size_t kChangeCounter = 24;
    WriteBytes(path, std::string(good).replace(kChangeCounter, 2, "\x05\x01").substr(0, good.size() / 4));
    ExpectRefused(AnyOf(Text("IDS_DB_FILE_CUT_OFF"), testing::StartsWith(Text("IDS_DB_FILE_DAMAGED"))), true);
}

TEST_F(FileOpen, ADamagedPageIsFoundAndTheRestIsRead) {
    const std::string good = ReadBytes(path);
    constexpr std::size_t kPage = 4096;
    ASSERT_EQ(good.size() % kPage, 0u);
    for (std::size_t page = 1; page < good.size() / kPage; ++page) {
        for (const char filler : {'\0', '\xAA', '\xFF'}) {
            WriteBytes(path, std::string(good).replace(page * kPage, kPage, kPage, filler));
            ExpectRefused(testing::StartsWith(Text("IDS_DB_FILE_DAMAGED")), true);
            const std::vector<std::string> read = RecordsReadOnly();
            EXPECT_THAT(report.losses, Not(IsEmpty()));
            EXPECT_LT(read.size(), records.size());
        }
    }
}

// Free pages hold no records, so that nothing is missing; but the next transaction would write over what is in use.
TEST_F(FileOpen, WrongFreePagesAreFoundBeforeTheyAreWrittenTo) {
    {
        const auto model = Open();
        ASSERT_NE(model, nullptr);
        CDataBase& database = *model->GetMDBCtrl()->GetCurrentDB();
        std::vector<std::uint32_t> keys;
        for (std::uint32_t key = 101; key <= 5000; ++key) keys.push_back(key);
        ASSERT_TRUE(database.GetClass<CClassThik>()->TR_Add(keys, std::vector<T_THIK_D>(keys.size())));
        ASSERT_TRUE(database.GetClass<CClassThik>()->TR_Del(keys));
    }
    ASSERT_NE(Open(), nullptr) << report.message;
    std::string bad = ReadBytes(path);
    constexpr std::size_t kPage = 4096;
    constexpr std::size_t kFirstFreePage = 32;
    const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(bad[at]); };
    const std::size_t trunk = (std::size_t{byteAt(kFirstFreePage + 2)} << 8) | byteAt(kFirstFreePage + 3);
    ASSERT_GT(trunk, 1u);
    bad.replace((trunk - 1) * kPage + 8, 4, std::string("\0\0\0\2", 4));
    WriteBytes(path, bad);
    ExpectRefused(testing::StartsWith(Text("IDS_DB_FILE_DAMAGED")), true);
    EXPECT_EQ(RecordsReadOnly(), records);
}

TEST_F(FileOpen, RandomlyChangedBytesNeverBreakTheProgramOrTheFile) {
    const std::string good = ReadBytes(path);
    std::mt19937 random(20240607);
    std::uniform_int_distribution<std::size_t> place(0, good.size() - 1);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int round = 0; round < 150; ++round) {
        std::string bad = good;
        for (int i = 0; i < 40; ++i)
            bad[round % 2 ? place(random) : place(random) % 4096] = static_cast<char>(byte(random));
        WriteBytes(path, bad);
        const auto before = FolderContent(folder.Path());
        const bool opened = Open() != nullptr;
        if (opened) continue;
        EXPECT_FALSE(report.message.empty()) << round;
        EXPECT_EQ(FolderContent(folder.Path()), before) << round;
        const bool offered = report.canOpenReadOnly;
        const bool read = Open(OpenMode::ReadOnly) != nullptr;
        EXPECT_TRUE(read || !offered) << round << ' ' << report.message;
        EXPECT_EQ(FolderContent(folder.Path()), before) << round;
    }
}

// ---- rights and locks ----

TEST_F(FileOpen, AWriteProtectedFileIsOnlyRead) {
    ASSERT_EQ(chmod(folder.Path().c_str(), 0777), 0);
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    BecomeOrdinaryUser();
    ExpectRefused(Text("IDS_DB_FILE_READ_ONLY"), true);
    EXPECT_EQ(RecordsReadOnly(), records);
}

TEST_F(FileOpen, AFileInAWriteProtectedFolderIsOnlyRead) {
    ASSERT_EQ(chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0555), 0);
    BecomeOrdinaryUser();
    ExpectRefused(Text("IDS_DB_FILE_FOLDER_READ_ONLY"), true);
    EXPECT_EQ(RecordsReadOnly(), records);
}

TEST_F(FileOpen, AFileThatMayNotBeReadIsRefused) {
    ASSERT_EQ(chmod(path.c_str(), 0000), 0);
    const auto before = FolderContent(folder.Path());
    BecomeOrdinaryUser();
    EXPECT_EQ(Open(), nullptr);
    EXPECT_EQ(report.message, Text("IDS_DB_FILE_CANNOT_OPEN"));
    EXPECT_EQ(Open(OpenMode::ReadOnly), nullptr);
    EXPECT_EQ(report.message, Text("IDS_DB_FILE_CANNOT_OPEN"));
    BecomeStartingUser();
    EXPECT_EQ(FolderContent(folder.Path()), before);
}

TEST_F(FileOpen, AFileThatAnotherProcessHasOpenIsRefused) {
    const ChildProcess holder([this](ChildProcess::Pipes& pipes) {
        OpenReport childReport;
        const std::unique_ptr<CDBDoc> doc = CDBDoc::Open(path, OpenMode::Normal, childReport);
        pipes.Send(doc ? 'o' : 'x');
        pipes.WaitForEnd();
    });
    ASSERT_EQ(holder.Receive(), 'o');
    const std::string before = ReadBytes(path);
    EXPECT_EQ(Open(), nullptr);
    EXPECT_EQ(report.message, Text("IDS_DB_FILE_LOCKED"));
    EXPECT_FALSE(report.canOpenReadOnly);
    EXPECT_EQ(Open(OpenMode::ReadOnly), nullptr);
    EXPECT_EQ(report.message, Text("IDS_DB_FILE_LOCKED"));
    EXPECT_EQ(ReadBytes(path), before);
}

TEST_F(FileOpen, AFileThatIsOpenInTheSameProcessIsRefused) {
    const std::unique_ptr<CDBDoc> first = Open();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(Open(), nullptr);
    EXPECT_EQ(report.message, Text("IDS_DB_FILE_LOCKED"));
    EXPECT_EQ(Open(OpenMode::ReadOnly), nullptr);
    EXPECT_EQ(report.message, Text("IDS_DB_FILE_LOCKED"));
    EXPECT_TRUE(AddStandards(*first));
}

TEST_F(FileOpen, AClosedFileIsFreeAgain) {
    Open().reset();
    EXPECT_NE(Open(), nullptr) << report.message;
}

TEST_F(FileOpen, AModelThatIsOnlyReadDoesNotKeepTheFile) {
    const std::unique_ptr<CDBDoc> reader = Open(OpenMode::ReadOnly);
    ASSERT_NE(reader, nullptr);
    EXPECT_NE(Open(), nullptr) << report.message;
}

// ---- a file whose program was killed ----

/// A file beside which the journal of a killed program stands.
class FileOfKilledProgram : public FileOpen {
protected:
    FileOfKilledProgram() {
        ChildProcess child([this](ChildProcess::Pipes& pipes) {
            OpenReport childReport;
            const std::unique_ptr<CDBDoc> doc = CDBDoc::Open(path, OpenMode::Normal, childReport);
            pipes.Send(doc && AddStandards(*doc) ? 'a' : 'x');
            pipes.WaitForEnd();
        });
        EXPECT_EQ(child.Receive(), 'a');
        child.Kill();
        EXPECT_GT(fs::file_size(path + "-wal"), 0u);
    }
};

TEST_F(FileOfKilledProgram, HoldsWhatWasCommitted) {
    std::unique_ptr<CDBDoc> doc = Open();
    ASSERT_NE(doc, nullptr) << report.message;
    EXPECT_EQ(AllRecords(*doc).size(), records.size() + 1);
    doc.reset();
    EXPECT_THAT(FolderContent(folder.Path()), testing::SizeIs(1));
}

TEST_F(FileOfKilledProgram, IsReadWithItsJournalAndLeftAsItIs) {
    EXPECT_EQ(RecordsReadOnly().size(), records.size() + 1);
    EXPECT_THAT(report.losses, IsEmpty());
}

TEST_F(FileOfKilledProgram, IsLeftAsItIsWhenItIsRefused) {
    const std::string journal = ReadBytes(path + "-wal");
    std::string bytes = ReadBytes(path);
    constexpr std::size_t kLastByteOfVersion = 63;
    bytes[kLastByteOfVersion] = 9;  // in a page that the journal does not hold
    WriteBytes(path, bytes);
    WriteBytes(path + "-wal", journal);
    const auto before = FolderContent(folder.Path());
    EXPECT_EQ(Open(), nullptr);
    EXPECT_EQ(report.message, Text("IDS_DB_FILE_NEWER", {"9", std::to_string(kModelSchemaVersion)}));
    EXPECT_EQ(FolderContent(folder.Path()), before);
}

TEST_F(FileOfKilledProgram, IsReadInAWriteProtectedFolderOrRefusedWithAReason) {
    ASSERT_EQ(chmod(folder.Path().c_str(), 0555), 0);
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    ASSERT_EQ(chmod((path + "-wal").c_str(), 0444), 0);
    BecomeOrdinaryUser();
    const auto before = FolderContent(folder.Path());
    const std::unique_ptr<CDBDoc> doc = Open(OpenMode::ReadOnly);
    if (doc) {
        EXPECT_EQ(AllRecords(*doc).size(), records.size() + 1);
    } else {
        EXPECT_FALSE(report.message.empty());
    }
    EXPECT_EQ(FolderContent(folder.Path()), before);
}

}  // namespace
}  // namespace zt
