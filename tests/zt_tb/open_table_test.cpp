#include "zt_tb/model/open_table.h"

#include "velda_lib/language.h"
#include "zt_db/doc/doc.h"
#include "zt_db/sample/sample_building.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

class OpenTableTest : public ::testing::Test {
protected:
    void SetUp() override {
        velda::SetCurrentLanguage(velda::Language::English);
        ASSERT_TRUE(BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), "small"));
        doc->MakeCurrent();
    }
    void TearDown() override { CDBDoc::m_pDBDoc = nullptr; }

    std::unique_ptr<CDBDoc> doc = CDBDoc::New();
};

TEST_F(OpenTableTest, FindsATableByItsMnemonicAndByItsTitle) {
    for (const char* name : {"THIK", "Thickness"}) {
        const auto view = OpenTable(name);
        ASSERT_NE(nullptr, view) << name;
        EXPECT_GT(view->GetActiveGrid()->RowCount(), 0) << name;
    }
}

TEST_F(OpenTableTest, FindsNothingForAnotherName) {
    for (const char* name : {"", "thik", "NONE", "0", "999"}) EXPECT_EQ(nullptr, OpenTable(name)) << name;
}

TEST_F(OpenTableTest, OpensEachTableThatExists) {
    const std::vector<std::string_view> names = ExistingTables();
    EXPECT_THAT(names, testing::Contains("THIK"));
    for (const std::string_view name : names) {
        const auto view = OpenTable(std::string(name));
        ASSERT_NE(nullptr, view) << name;
        EXPECT_NE(nullptr, view->GetActiveGrid()) << name;
    }
}

}  // namespace
}  // namespace zt
