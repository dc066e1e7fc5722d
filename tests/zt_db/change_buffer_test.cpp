#include "zt_db/test_support.h"

namespace zt {
namespace {

using ChangeBuffer = ModelTest;
using Texts = std::vector<std::string>;

TEST_F(ChangeBuffer, IsEmptyBeforeTheFirstStep) {
    EXPECT_FALSE(Db().GetViewBuff()->HasChanges());
    EXPECT_FALSE(Db().GetViewBuff()->GetHeadPosition());
}

TEST_F(ChangeBuffer, AModificationIsAPairWithTheRecordAfterAndThenBefore) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(3, T_THIK_D{.name = "old", .thickness = 0.1}));
    ASSERT_TRUE(Records<CClassThik>().TR_Modify(3, 8, T_THIK_D{.name = "new", .thickness = 0.2}));
    const CViewBuff& buffer = *Db().GetViewBuff();
    POSITION position = buffer.GetHeadPosition();
    CDataThik after;
    CDataThik before;
    const std::uint64_t first = buffer.GetNext(position);
    EXPECT_EQ(static_cast<int>(first & 0xFFFFFFFFu), CClassThik::UR_THIK_MFD);
    ASSERT_TRUE(position);
    const std::uint64_t second = buffer.GetNext(position);
    EXPECT_EQ(static_cast<int>(second & 0xFFFFFFFFu), CClassThik::UR_THIK_MFS);
    EXPECT_FALSE(position);
    ASSERT_TRUE(buffer.ReadData(first, after));
    ASSERT_TRUE(buffer.ReadData(second, before));
    EXPECT_EQ(after.key, 8u);
    EXPECT_EQ(after.record.name, "new");
    EXPECT_EQ(before.key, 3u);
    EXPECT_EQ(before.record.name, "old");
}

TEST_F(ChangeBuffer, AWalkConsumesNothing) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(3, {}));
    EXPECT_EQ(Changes(), (Texts{"THIK ADD 3"}));
    EXPECT_EQ(Changes(), (Texts{"THIK ADD 3"}));
}

TEST_F(ChangeBuffer, HoldsTheLastStepOnly) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(3, {}));
    ASSERT_TRUE(Records<CClassMatl>().TR_Add(4, {}));
    EXPECT_EQ(Changes(), (Texts{"MATL ADD 4"}));
}

TEST_F(ChangeBuffer, RecordsComeInTheCurrentUnits) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(3, T_THIK_D{.thickness = 0.25}));
    SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, "kN"), CUnitCtrl::FindChoice(UnitQuantity::Length, "mm"));
    POSITION position = Db().GetViewBuff()->GetHeadPosition();
    CDataThik data;
    ASSERT_TRUE(Db().GetViewBuff()->ReadData(Db().GetViewBuff()->GetNext(position), data));
    EXPECT_DOUBLE_EQ(data.record.thickness, 250.0);
}

TEST_F(ChangeBuffer, AnEntryOfAnotherClassOrBufferLeavesTheObjectAlone) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(3, {}));
    POSITION position = Db().GetViewBuff()->GetHeadPosition();
    const std::uint64_t entry = Db().GetViewBuff()->GetNext(position);
    CDataMatl other;
    other.key = 99;
    EXPECT_FALSE(Db().GetViewBuff()->ReadData(entry, other));
    EXPECT_EQ(other.key, 99u);
    CDataThik data;
    EXPECT_FALSE(Db().GetViewBuff()->ReadData(entry + (std::uint64_t{5} << 32), data));
    EXPECT_FALSE(Db().GetViewBuff()->ReadData(entry + 1, data));
}

TEST_F(ChangeBuffer, ARecordWrittenUnderThePreviousUnitsIsBroughtToTheCurrentOnes) {
    CDataThik data;
    data.record.thickness = 0.3;
    SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, "kN"), CUnitCtrl::FindChoice(UnitQuantity::Length, "mm"));
    data.ConvertUnitPrev(doc->GetUnitCtrl());
    EXPECT_DOUBLE_EQ(data.record.thickness, 300.0);
}

}  // namespace
}  // namespace zt
