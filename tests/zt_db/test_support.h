#pragma once

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "zt_db/doc/doc.h"
#include "zt_db/records/record_list.h"
#include <gtest/gtest.h>

namespace zt {

/// A test with an open model in memory, in m, kN and degrees Celsius.
class ModelTest : public testing::Test {
protected:
    ModelTest() { Use(CDBDoc::New()); }

    void Use(std::unique_ptr<CDBDoc> newDoc) {
        doc = std::move(newDoc);
        doc->MakeCurrent();
    }
    CDataBase& Db() { return *doc->GetMDBCtrl()->GetCurrentDB(); }
    template <class Class>
    Class& Records() {
        return *Db().GetClass<Class>();
    }

    void SetUnits(int force, int length) {
        T_UNIT_INDEX index;
        doc->GetUnitCtrl()->GetUnitIndexCurrent(index);
        index.force = force;
        index.length = length;
        ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(index, 1));
    }

    /// The entries of the change buffer as "THIK MFD 3".
    std::vector<std::string> Changes() {
        std::vector<std::string> texts;
        const CViewBuff& buffer = *Db().GetViewBuff();
        for (POSITION position = buffer.GetHeadPosition(); position;)
            texts.push_back(EntryText(buffer.GetNext(position)));
        return texts;
    }

    std::unique_ptr<CDBDoc> doc;

private:
    template <class Class>
    static bool DescribeEntry(const CViewBuff& buffer, std::uint64_t entry, std::string& text) {
        using Record = typename Class::Record;
        constexpr const char* kKinds[] = {" ADD ", " DEL ", " MFD ", " MFS "};
        CDataOf<Record> data;
        if (!buffer.ReadData(entry, data)) return false;
        for (std::size_t kind = 0; kind < kChangeEntryKinds; ++kind) {
            if (static_cast<std::uint32_t>(IdentityOf<Record>::value.codes[kind]) ==
                static_cast<std::uint32_t>(entry)) {
                text = std::string(Class::kMnemonic) + kKinds[kind] + std::to_string(data.key);
            }
        }
        return true;
    }
    std::string EntryText(std::uint64_t entry) {
        std::string text;
        std::apply(
            [&]<class... Class>(const Class&...) {
                (void)(false || ... || DescribeEntry<Class>(*Db().GetViewBuff(), entry, text));
            },
            RecordClassList{});
        return text;
    }
};

/// A folder of its own for each test, removed with it.
class TemporaryFolder {
public:
    explicit TemporaryFolder(const std::string& use = "") {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        path_ =
            std::filesystem::temp_directory_path() / ("zt_" + use + NameOf(info) + "_" + std::to_string(::getpid()));
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string File(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& Path() const { return path_; }

private:
    /// The name of a test with parameters holds slashes.
    static std::string NameOf(const testing::TestInfo* info) {
        std::string name = info ? info->name() : "test";
        std::replace(name.begin(), name.end(), '/', '_');
        return name;
    }
    std::filesystem::path path_;
};

}  // namespace zt
