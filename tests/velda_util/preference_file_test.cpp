#include "velda_util/pref/preference_file.h"

#include <signal.h>

#include <chrono>
#include <cstdlib>
#include <map>

#include "velda_util/pref/config_folder.h"
#include "velda_util/preference_folder.h"
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace velda {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using Names = std::set<std::string>;

class PreferenceFileTest : public PreferenceFolderTest {
protected:
    PreferenceFile Loaded() const {
        PreferenceFile file(path);
        file.Load();
        return file;
    }
    std::optional<TablePreferences> Kept(std::string_view name) const { return Loaded().Table(name); }
    void Write(const char* name, int width) const {
        ASSERT_TRUE(PreferenceFile(path).WriteTable(name, TwoColumns(width)));
    }
    std::string Damaged(const char* name, int width) const {
        PreferenceText text;
        text.SetTable(name, TwoColumns(width));
        return text.Bytes() + "x";
    }
};

fs::path FolderWith(Platform platform, const std::map<std::string, std::string>& environment) {
    return ConfigFolderOf(platform, [&](const char* variable) {
        const auto place = environment.find(variable);
        return place == environment.end() ? std::string() : place->second;
    });
}

TEST(ConfigFolder, IsThatOfThePlatform) {
    EXPECT_EQ(FolderWith(Platform::Freedesktop, {{"HOME", "/home/a"}}), "/home/a/.config");
    EXPECT_EQ(FolderWith(Platform::Freedesktop, {{"HOME", "/home/a"}, {"XDG_CONFIG_HOME", "/etc/a"}}), "/etc/a");
    EXPECT_EQ(FolderWith(Platform::MacOs, {{"HOME", "/Users/a"}, {"XDG_CONFIG_HOME", "/etc/a"}}),
              "/Users/a/Library/Preferences");
    EXPECT_EQ(FolderWith(Platform::Windows, {{"APPDATA", "C:\\a"}, {"HOME", "/home/a"}}), "C:\\a");
}

TEST(ConfigFolder, ARelativeFolderIsPassedOver) {
    EXPECT_EQ(FolderWith(Platform::Freedesktop, {{"HOME", "/home/a"}, {"XDG_CONFIG_HOME", "settings"}}),
              "/home/a/.config");
}

TEST(ConfigFolder, AnEnvironmentThatTellsNothingGivesNone) {
    for (const Platform platform : {Platform::Freedesktop, Platform::MacOs, Platform::Windows}) {
        EXPECT_EQ(FolderWith(platform, {}), "");
    }
}

TEST_F(PreferenceFileTest, StandsInTheFolderOfTheProgramUnlessToldOtherwise) {
    const char* before = getenv("XDG_CONFIG_HOME");
    const std::string kept = before ? before : "";
    setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
    EXPECT_EQ(PreferenceFile().Path(), folder / "zt_tb" / "tables.conf");
    before ? setenv("XDG_CONFIG_HOME", kept.c_str(), 1) : unsetenv("XDG_CONFIG_HOME");
}

TEST_F(PreferenceFileTest, AFileThatIsMissingIsNoFault) {
    path = folder / "not" / "there" / "tables.conf";
    PreferenceFile file = Loaded();
    EXPECT_EQ(file.Table("TBThik"), std::nullopt);
    EXPECT_EQ(file.TakeMessage(), "");
    EXPECT_EQ(FileNames(), Names());
}

TEST_F(PreferenceFileTest, WritingMakesTheFolders) {
    path = folder / "not" / "there" / "tables.conf";
    Write("TBThik", 50);
    EXPECT_EQ(Kept("TBThik"), TwoColumns(50));
}

TEST_F(PreferenceFileTest, WritingLeavesNoOtherFiles) {
    Write("TBThik", 50);
    Write("TBThik", 60);
    EXPECT_EQ(FileNames(), Names{"tables.conf"});
    EXPECT_EQ(Kept("TBThik"), TwoColumns(60));
}

TEST_F(PreferenceFileTest, WhatIsWrittenAlreadyIsNotWrittenAgain) {
    Write("TBThik", 50);
    const auto before = fs::file_time_type() + std::chrono::hours(1);
    fs::last_write_time(path, before);
    Write("TBThik", 50);
    EXPECT_EQ(fs::last_write_time(path), before);
}

TEST_F(PreferenceFileTest, TwoThatWriteByTurnsKeepTheTablesOfEachOther) {
    PreferenceFile a = Loaded();
    PreferenceFile b = Loaded();
    for (int round = 1; round <= 5; ++round) {
        ASSERT_TRUE(a.WriteTable("TBMine", TwoColumns(round)));
        ASSERT_TRUE(b.WriteTable("TBYours", TwoColumns(100 + round)));
        EXPECT_EQ(Kept("TBMine"), TwoColumns(round));
        EXPECT_EQ(Kept("TBYours"), TwoColumns(100 + round));
    }
    EXPECT_EQ(a.Table("TBYours"), TwoColumns(104));
    EXPECT_EQ(b.Table("TBMine"), TwoColumns(5));
}

TEST_F(PreferenceFileTest, TheLastWriterOfATableWins) {
    PreferenceFile a = Loaded();
    PreferenceFile b = Loaded();
    ASSERT_TRUE(a.WriteTable("TBThik", TwoColumns(1)));
    ASSERT_TRUE(b.WriteTable("TBThik", TwoColumns(2)));
    EXPECT_EQ(Kept("TBThik"), TwoColumns(2));
    ASSERT_TRUE(a.WriteTable("TBThik", TwoColumns(1)));
    EXPECT_EQ(Kept("TBThik"), TwoColumns(1));
}

TEST_F(PreferenceFileTest, ProcessesThatWriteAtTheSameTimeLoseNothing) {
    constexpr int kProcesses = 4;
    constexpr int kTables = 20;
    std::vector<pid_t> children;
    for (int process = 0; process < kProcesses; ++process) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            bool written = true;
            PreferenceFile file(path);
            for (int table = 0; table < kTables; ++table) {
                const std::string name = std::to_string(process) + "_" + std::to_string(table);
                written = file.WriteTable(name, TwoColumns(table)) && written;
            }
            _exit(written ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const PreferenceFile file = Loaded();
    for (int process = 0; process < kProcesses; ++process) {
        for (int table = 0; table < kTables; ++table) {
            EXPECT_EQ(file.Table(std::to_string(process) + "_" + std::to_string(table)), TwoColumns(table));
        }
    }
    EXPECT_EQ(FileNames(), Names{"tables.conf"});
}

TEST_F(PreferenceFileTest, ADamagedFileIsSetAsideWithOneMessage) {
    const std::string bytes = Damaged("TBThik", 50);
    Fill(path, bytes);
    PreferenceFile file = Loaded();
    EXPECT_EQ(file.Table("TBThik"), std::nullopt);
    EXPECT_EQ(FileNames(), Names{"tables.conf.damaged"});
    EXPECT_EQ(Content(path.string() + ".damaged"), bytes);
    EXPECT_EQ(file.TakeMessage(), "The table settings in \"" + path.string() +
                                      "\" were damaged. The damaged file is kept as \"" + path.string() +
                                      ".damaged\".");
    EXPECT_EQ(file.TakeMessage(), "");
}

TEST_F(PreferenceFileTest, DamagedFilesAreNumbered) {
    for (const char* bytes : {"first", "second", "third"}) {
        Fill(path, bytes);
        EXPECT_THAT(Loaded().TakeMessage(), HasSubstr("tables.conf.damaged"));
    }
    EXPECT_EQ(FileNames(), (Names{"tables.conf.damaged", "tables.conf.damaged.2", "tables.conf.damaged.3"}));
    EXPECT_EQ(Content(path.string() + ".damaged"), "first");
    EXPECT_EQ(Content(path.string() + ".damaged.2"), "second");
    EXPECT_EQ(Content(path.string() + ".damaged.3"), "third");
}

TEST_F(PreferenceFileTest, AnEmptyFileIsADamagedOne) {
    Fill(path, "");
    EXPECT_THAT(Loaded().TakeMessage(), HasSubstr("were damaged"));
}

TEST_F(PreferenceFileTest, AFileOfAbsurdSizeIsADamagedOne) {
    Write("TBThik", 50);
    fs::resize_file(path, std::uintmax_t{1} << 40);  // a hole, which takes no room
    EXPECT_THAT(Loaded().TakeMessage(), HasSubstr("were damaged"));
}

TEST_F(PreferenceFileTest, AFileDamagedWhileTheProgramRunsIsRestoredByTheNextWriting) {
    Write("TBOther", 70);
    PreferenceFile file = Loaded();
    Fill(path, Damaged("TBOther", 71));
    EXPECT_TRUE(file.WriteTable("TBThik", TwoColumns(50)));
    EXPECT_THAT(file.TakeMessage(), HasSubstr("were damaged"));
    EXPECT_EQ(FileNames(), (Names{"tables.conf", "tables.conf.damaged"}));
    EXPECT_EQ(Kept("TBThik"), TwoColumns(50));
    EXPECT_EQ(Kept("TBOther"), TwoColumns(70));
}

TEST_F(PreferenceFileTest, AFileDamagedAndMendedByTheSameWritingIsThereAgain) {
    PreferenceFile file(path);
    ASSERT_TRUE(file.WriteTable("TBThik", TwoColumns(50)));
    Fill(path, "damage");
    ASSERT_TRUE(file.WriteTable("TBThik", TwoColumns(50)));
    EXPECT_EQ(Kept("TBThik"), TwoColumns(50));
}

TEST_F(PreferenceFileTest, AFileRemovedWhileTheProgramRunsIsNotBroughtBack) {
    Write("TBOther", 70);
    PreferenceFile file = Loaded();
    fs::remove(path);
    ASSERT_TRUE(file.WriteTable("TBThik", TwoColumns(50)));
    EXPECT_EQ(Kept("TBThik"), TwoColumns(50));
    EXPECT_EQ(Kept("TBOther"), std::nullopt);
}

TEST_F(PreferenceFileTest, AFileOfALaterMajorVersionIsLeftAlone) {
    const std::string bytes = WithChecksumLine("zt_tb tables 2.0\n[table TBThik]\ncolumn 1 2 0 45\n");
    Fill(path, bytes);
    PreferenceFile file = Loaded();
    EXPECT_EQ(file.Table("TBThik"), std::nullopt);
    EXPECT_THAT(file.TakeMessage(), HasSubstr("newer version"));
    EXPECT_THAT(file.WriteTable("TBThik", TwoColumns(50)).Reason(), HasSubstr("newer version"));
    EXPECT_EQ(Content(path), bytes);
    EXPECT_EQ(FileNames(), Names{"tables.conf"});
}

TEST_F(PreferenceFileTest, AWriteProtectedFolderIsReadAndRefusedForWriting) {
    Write("TBThik", 50);
    WriteProtect(folder);
    WriteProtect(path);
    const WithoutPrivileges user;
    PreferenceFile file = Loaded();
    EXPECT_EQ(file.TakeMessage(), "");
    const Outcome outcome = file.WriteTable("TBThik", TwoColumns(60));
    EXPECT_FALSE(outcome);
    EXPECT_THAT(outcome.Reason(), HasSubstr("cannot be written to \"" + path.string() + "\" (Permission denied)"));
    EXPECT_EQ(file.Table("TBThik"), TwoColumns(50));
    EXPECT_EQ(FileNames(), Names{"tables.conf"});
}

TEST_F(PreferenceFileTest, ADamagedFileInAWriteProtectedFolderStays) {
    Fill(path, "damage");
    WriteProtect(folder);
    WriteProtect(path);
    const WithoutPrivileges user;
    PreferenceFile file = Loaded();
    EXPECT_THAT(file.TakeMessage(), HasSubstr("cannot be renamed (Permission denied)"));
    EXPECT_FALSE(file.WriteTable("TBThik", TwoColumns(60)));
    EXPECT_EQ(Content(path), "damage");
}

TEST_F(PreferenceFileTest, AFolderThatCannotBeMadeRefusesWriting) {
    WriteProtect(folder);
    const WithoutPrivileges user;
    PreferenceFile file(folder / "zt_tb" / "tables.conf");
    file.Load();
    EXPECT_EQ(file.TakeMessage(), "");
    EXPECT_THAT(file.WriteTable("TBThik", TwoColumns(60)).Reason(), HasSubstr("cannot be written"));
}

TEST_F(PreferenceFileTest, AFileThatMayNotBeReadIsNotReplaced) {
    Write("TBThik", 50);
    const std::string bytes = Content(path);
    fs::permissions(path, fs::perms::none);
    fs::permissions(folder, fs::perms::all);
    {
        const WithoutPrivileges user;
        PreferenceFile file = Loaded();
        EXPECT_THAT(file.TakeMessage(), HasSubstr("cannot be read (Permission denied)"));
        EXPECT_THAT(file.WriteTable("TBThik", TwoColumns(60)).Reason(), HasSubstr("cannot be read"));
    }
    fs::permissions(path, fs::perms::owner_all);
    EXPECT_EQ(Content(path), bytes);
}

TEST_F(PreferenceFileTest, WhatIsNoFileIsLeftAlone) {
    fs::create_directory(path);
    EXPECT_THAT(Loaded().TakeMessage(), HasSubstr("Is a directory"));
    EXPECT_FALSE(PreferenceFile(path).WriteTable("TBThik", TwoColumns(60)));
    fs::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_THAT(Loaded().TakeMessage(), HasSubstr("cannot be read"));
    EXPECT_FALSE(PreferenceFile(path).WriteTable("TBThik", TwoColumns(60)));
    EXPECT_TRUE(fs::is_fifo(path));
}

TEST_F(PreferenceFileTest, AFileInThePlaceOfTheFolderRefusesWriting) {
    Fill(folder / "zt_tb", "a file");
    PreferenceFile file(folder / "zt_tb" / "tables.conf");
    file.Load();
    EXPECT_THAT(file.TakeMessage(), HasSubstr("cannot be read"));
    EXPECT_THAT(file.WriteTable("TBThik", TwoColumns(60)).Reason(), HasSubstr("cannot be written"));
}

TEST_F(PreferenceFileTest, WithoutAPlaceNothingIsReadAndWritingIsRefused) {
    PreferenceFile file{fs::path()};
    file.Load();
    EXPECT_EQ(file.TakeMessage(), "");
    EXPECT_EQ(file.Table("TBThik"), std::nullopt);
    EXPECT_THAT(file.WriteTable("TBThik", TwoColumns(60)).Reason(), HasSubstr("no folder"));
}

/// Lets no file grow above a size, as a full disk would.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes) : handler_(signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        signal(SIGXFSZ, handler_);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit before_{};
    sighandler_t handler_;
};

TEST_F(PreferenceFileTest, AWritingThatBreaksOffLeavesTheOldFile) {
    Write("TBThik", 50);
    PreferenceFile file = Loaded();
    Outcome outcome = Outcome::Done();
    {
        const SmallDisk disk(40);
        outcome = file.WriteTable("TBThik", TwoColumns(60));
    }
    EXPECT_THAT(outcome.Reason(), HasSubstr("cannot be written"));
    EXPECT_EQ(FileNames(), Names{"tables.conf"});
    EXPECT_EQ(Kept("TBThik"), TwoColumns(50));
    EXPECT_EQ(file.Table("TBThik"), TwoColumns(50));
}

TEST_F(PreferenceFileTest, ALinkStaysALink) {
    fs::create_directory(folder / "elsewhere");
    const fs::path target = folder / "elsewhere" / "mine.conf";
    Fill(target, PreferenceText().Bytes());
    fs::create_symlink(target, path);
    Write("TBThik", 50);
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_THAT(Content(target), HasSubstr("column 1 2 0 50"));
}

TEST_F(PreferenceFileTest, StaysTheSameWhenTheWorkingFolderChanges) {
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    PreferenceFile file("tables.conf");
    fs::current_path(before);
    EXPECT_EQ(file.Path(), path);
}

}  // namespace
}  // namespace velda
