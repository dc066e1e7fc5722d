#include <cstdlib>

#include "zt_db/doc/doc.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/stor.h"
#include "zt_db/test_support.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

class SamplesTest : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string command = ZT_SOURCE_DIR "/samples/make '" + folder.Path().string() + "' '" ZT_ZTS "'";
        ASSERT_EQ(0, std::system(command.c_str()));
    }
    std::unique_ptr<CDBDoc> Open(const std::string& name) const {
        OpenReport report;
        auto doc = CDBDoc::Open(folder.File(name), OpenMode::ReadOnly, report);
        EXPECT_NE(nullptr, doc) << report.message;
        return doc;
    }
    static int Count(CDBDoc& doc, std::string_view mnemonic) {
        const CDataBase& db = *doc.GetMDBCtrl()->GetCurrentDB();
        return static_cast<int>(db.StoreAt(static_cast<std::uint16_t>(db.FindClass(mnemonic))).Count());
    }

    TemporaryFolder folder;
};

TEST_F(SamplesTest, AreMadeAnewFromTheirTables) {
    const auto office = Open("office_20_storeys.ztm");
    EXPECT_EQ(Count(*office, "MDUL"), 2);
    EXPECT_EQ(Count(*office, "STOR"), 25);
    EXPECT_EQ(Count(*office, "PONT"), 770);
    EXPECT_EQ(Count(*office, "MEMB"), 1771 + 504 + 20) << "lines, walls and slabs, openings";
    EXPECT_EQ(Count(*office, "SPTS"), 45);
    EXPECT_EQ(Count(*office, "SECT"), 5);
    const auto frame = Open("steel_frame_3_storeys.ztm");
    EXPECT_EQ(Count(*frame, "PONT"), 20);
    EXPECT_EQ(Count(*frame, "MEMB"), 27);
    const auto braced = Open("braced_frame_4_storeys.ztm");
    EXPECT_EQ(Count(*braced, "PONT"), 45);
    EXPECT_EQ(Count(*braced, "MEMB"), 116);
}

TEST_F(SamplesTest, StandOnSupportsAndCarryLoads) {
    for (const char* name : {"office_20_storeys.ztm", "steel_frame_3_storeys.ztm", "braced_frame_4_storeys.ztm"}) {
        const auto doc = Open(name);
        for (const char* loads : {"SPTS", "PTLD", "LNLD", "SWGT"})
            EXPECT_GT(Count(*doc, loads), 0) << name << ' ' << loads;
    }
}

TEST_F(SamplesTest, HaveSectionsWithAreas) {
    for (const char* name : {"office_20_storeys.ztm", "steel_frame_3_storeys.ztm", "braced_frame_4_storeys.ztm"}) {
        const auto doc = Open(name);
        const auto* sections = doc->GetMDBCtrl()->GetCurrentDB()->GetClass<CClassSect>();
        std::vector<std::uint32_t> keys;
        sections->GetKeyList(keys);
        for (const std::uint32_t key : keys) {
            T_SECT_D section;
            ASSERT_TRUE(sections->Get(key, section));
            EXPECT_GT(section.stiffness.area, 0.0) << name << ' ' << section.name;
        }
    }
}

}  // namespace
}  // namespace zt
