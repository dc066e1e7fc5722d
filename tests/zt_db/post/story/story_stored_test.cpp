#include "zt_db/post/story/story_fixture.h"

namespace zt {
namespace {

constexpr int kStatic = LoadCaseKind::Static;

TEST(StoryRows, ARecordComesBackFromItsRow) {
    T_STSIC_D record;
    record.head = {.seq = 3, .mdul = 1, .story = 7, .level = 9.5, .height = 3.5, .direction = 1};
    record.part[1].method[0].stiffness = 1.25e6;
    record.part[1].method[1].angleStatus = StoryStatus::Irregular;
    const std::vector<double> row = RowOfRecord(record);
    EXPECT_DOUBLE_EQ(row[0], 3.0);
    EXPECT_DOUBLE_EQ(row[2], 7.0);
    T_STSIC_D back;
    ASSERT_TRUE(RecordOfRow(std::span<const double>(row), back));
    EXPECT_EQ(RowOfRecord(back), row);
    EXPECT_DOUBLE_EQ(back.part[1].method[0].stiffness, 1.25e6);
}

TEST(StoryRows, ARowOfAnotherLengthIsRefused) {
    std::vector<double> row = RowOfRecord(T_STSWT_D{});
    T_STSWT_D record;
    row.push_back(0.0);
    EXPECT_FALSE(RecordOfRow(std::span<const double>(row), record));
    row.resize(row.size() - 2);
    EXPECT_FALSE(RecordOfRow(std::span<const double>(row), record));
}

class StoredStories : public StoryTest {
protected:
    StoredStories() {
        BuildModel();
        BeginResults();
        PutCase(kSeismic, [](int s, int) { return Plane{1e-3 * s, 0.0}; });
        UseResults();
    }
};

TEST_F(StoredStories, StoredRecordsAreServedInTheCurrentUnits) {
    std::vector<T_STCIC_D> given(2);
    given[0].head.story = 4;
    given[0].part[0] = {.strength = 5.0e5, .upperStrength = 4.0e5, .ratio = 1.25, .status = 0, .hide = 0};
    PutRecords(kStatic, kSeismic, "CIC", given);
    const CPostCtrl control = Control();
    std::vector<T_STCIC_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetCIC(kStatic, kSeismic, records));
    ASSERT_EQ(records.size(), 2u);
    EXPECT_DOUBLE_EQ(records[0].part[0].strength, 500.0);  // kN
    EXPECT_DOUBLE_EQ(records[0].part[0].ratio, 1.25);
    EXPECT_EQ(records[0].head.story, 4u);
}

TEST_F(StoredStories, StoredRecordsNeedNoCaseOfThisSolver) {
    std::vector<T_STDFTTH_D> given(3);
    given[1].part[0] = {.inUse = 1, .node = 5, .time = 1.5, .drift = 0.01};
    PutRecords(LoadCaseKind::NonlinearCase, 2, "DFT4THNC", given);
    PutRecords(LoadCaseKind::Pushover, 1, "DFT4PV/4", given);
    const CPostCtrl control = Control();
    const CStoryResult service(control);
    std::vector<T_STDFTTH_D> records;
    ASSERT_TRUE(service.GetDFT4THNC(LoadCaseKind::NonlinearCase, 2, records));
    EXPECT_DOUBLE_EQ(records[1].part[0].drift, 0.01);
    EXPECT_TRUE(service.GetDFT4PV(LoadCaseKind::Pushover, 1, 4, records));
    EXPECT_FALSE(service.GetDFT4PV(LoadCaseKind::Pushover, 1, 5, records));
    EXPECT_TRUE(records.empty());
    EXPECT_FALSE(service.GetDFT4THNC(LoadCaseKind::NonlinearCase, 3, records));
    std::vector<T_STSHRTH_D> shears(2);
    EXPECT_FALSE(service.GetSHR4THNC(LoadCaseKind::NonlinearCase, 2, shears));
    EXPECT_TRUE(shears.empty());
}

TEST_F(StoredStories, ArraysOfAnotherShapeAreNotRecords) {
    PutArray(StoryPath(kStatic, kSeismic, "DSP"), 3, std::array{1.0, 2.0, 3.0});
    const CPostCtrl control = Control();
    std::vector<T_STDSP_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetDSP(kStatic, kSeismic, records));
    EXPECT_NEAR(records[At(3)].part[0].maximum, 0.003, 1e-15) << "computed instead";
}

TEST_F(StoredStories, WhatWasComputedAndStoredIsServedAsItWas) {
    const CPostCtrl control = Control();
    const CStoryResultPost service(control);
    std::vector<T_STDSP_D> computed;
    ASSERT_TRUE(service.GetDSP(kStatic, kSeismic, computed));  // in m, as they are stored
    PutRecords(kStatic, kSeismic, "DSP", computed);
    std::vector<T_STDSP_D> stored;
    ASSERT_TRUE(service.GetDSP(kStatic, kSeismic, stored));
    ASSERT_EQ(stored.size(), computed.size());
    for (std::size_t i = 0; i < stored.size(); ++i) EXPECT_EQ(RowOfRecord(stored[i]), RowOfRecord(computed[i]));
}

}  // namespace
}  // namespace zt
