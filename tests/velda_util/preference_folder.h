#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include "velda_util/pref/table_preferences.h"
#include <gtest/gtest.h>

namespace velda {

/// A test with a folder of its own, removed with it, in which preference files may stand.
class PreferenceFolderTest : public testing::Test {
protected:
    PreferenceFolderTest() {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::temp_directory_path() / (std::string("zt_pref_") + info->test_suite_name() + "_" +
                                                           info->name() + "_" + std::to_string(getpid()));
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        path = folder / "tables.conf";
    }
    ~PreferenceFolderTest() override {
        std::error_code error;
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
        std::filesystem::remove_all(folder, error);
    }

    static std::string Content(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    static void Fill(const std::filesystem::path& file, std::string_view bytes) {
        std::ofstream stream(file, std::ios::binary);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    static void WriteProtect(const std::filesystem::path& file) {
        using std::filesystem::perms;
        constexpr perms kWrite = perms::owner_write | perms::group_write | perms::others_write;
        std::filesystem::permissions(file, perms::all & ~kWrite);
    }
    std::set<std::string> FileNames() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) names.insert(entry.path().filename());
        return names;
    }

    std::filesystem::path folder;
    std::filesystem::path path;
};

/// Takes the rights of the administrator off the process, whom no write protection holds back.
class WithoutPrivileges {
public:
    WithoutPrivileges() : before_(geteuid()) {
        if (before_ == 0 && seteuid(65534) != 0) ADD_FAILURE() << "seteuid";
    }
    ~WithoutPrivileges() {
        if (before_ == 0 && seteuid(before_) != 0) ADD_FAILURE() << "seteuid";
    }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    uid_t before_;
};

/// Preferences of a table with two columns, the first of the given width.
inline TablePreferences TwoColumns(int width) { return {{{1, 2, 0, width}, {3, 2, 0, 80}}, {}}; }

}  // namespace velda
