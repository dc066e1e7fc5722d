#include "zt_tb/support/number_tables.h"

namespace zt {
namespace {

class DeletedMapsTest : public TableTest {
protected:
    DeletedMapsTest() {
        AddNode(1, 101);
        AddNode(2, 102);
        AddNode(3, 103);
        AddMember(4, 21, {1, 2});
        AddMember(5, 22, {2, 3});
        T_MBTP_D options;
        options.memb = 4;
        Add<CClassMbtp>(8, options);
        options.memb = 5;
        Add<CClassMbtp>(9, options);
    }

    PartTable table;
};

TEST_F(DeletedMapsTest, KeepTheNumbersOfDeletedNodes) {
    ASSERT_TRUE(Records<CClassPont>().TR_Del(1));
    table.MakeDeletedPontMap(Buffer());
    EXPECT_TRUE(table.IsDeletedPont(1));
    EXPECT_EQ(101u, table.GetPontNoByDeletedKey(1));
    EXPECT_FALSE(table.IsDeletedPont(2));
    EXPECT_EQ(0u, table.GetPontNoByDeletedKey(2));
}

TEST_F(DeletedMapsTest, KeepTheNumbersOfDeletedMembersAndWhoseTheirDataWere) {
    ASSERT_TRUE(Records<CClassMemb>().TR_Del(4));
    table.MakeDeletedMembMap(Buffer());
    EXPECT_TRUE(table.IsDeletedMemb(4));
    EXPECT_EQ(21u, table.GetMembNoByDeletedKey(4));
    EXPECT_EQ(4u, table.GetDeletedMembKByMbtpK(8));
    EXPECT_FALSE(table.IsDeletedMemb(5));
    EXPECT_EQ(0u, table.GetMembNoByDeletedKey(5));
    EXPECT_EQ(0u, table.GetDeletedMembKByMbtpK(9));
}

TEST_F(DeletedMapsTest, HoldMembersThatGoWithTheirNode) {
    ASSERT_TRUE(Records<CClassPont>().TR_Del(2));
    table.MakeDeletedMembMap(Buffer());
    EXPECT_EQ(21u, table.GetMembNoByDeletedKey(4));
    EXPECT_EQ(22u, table.GetMembNoByDeletedKey(5));
    EXPECT_EQ(4u, table.GetDeletedMembKByMbtpK(8));
    EXPECT_EQ(5u, table.GetDeletedMembKByMbtpK(9));
}

TEST_F(DeletedMapsTest, DoNotHoldDataWhoseMemberStays) {
    ASSERT_TRUE(Records<CClassMbtp>().TR_Del(8));
    table.MakeDeletedMembMap(Buffer());
    EXPECT_EQ(0u, table.GetDeletedMembKByMbtpK(8));
}

TEST_F(DeletedMapsTest, AnUndoneAdditionIsADeletion) {
    AddNode(6, 106);
    ASSERT_TRUE(Db().Undo());
    table.MakeDeletedPontMap(Buffer());
    EXPECT_EQ(106u, table.GetPontNoByDeletedKey(6));
}

TEST_F(DeletedMapsTest, AreEmptyAfterChangesWithoutDeletion) {
    Renumber<CClassPont>({{1, 201}});
    table.MakeDeletedPontMap(Buffer());
    table.MakeDeletedMembMap(Buffer());
    EXPECT_FALSE(table.IsDeletedPont(1));
    EXPECT_FALSE(table.IsDeletedMemb(4));
}

TEST_F(DeletedMapsTest, AreEmptyBeforeTheyAreMadeAndAfterTheyAreRemoved) {
    EXPECT_FALSE(table.IsDeletedPont(1));
    EXPECT_FALSE(table.IsDeletedMemb(4));
    EXPECT_EQ(0u, table.GetPontNoByDeletedKey(1));
    EXPECT_EQ(0u, table.GetMembNoByDeletedKey(4));
    EXPECT_EQ(0u, table.GetDeletedMembKByMbtpK(8));
    ASSERT_TRUE(Records<CClassPont>().TR_Del(1));
    table.MakeDeletedPontMap(Buffer());
    table.MakeDeletedMembMap(Buffer());
    ASSERT_TRUE(table.IsDeletedPont(1));
    ASSERT_TRUE(table.IsDeletedMemb(4));
    ASSERT_EQ(4u, table.GetDeletedMembKByMbtpK(8));
    table.RemoveAllDeletedPontMap();
    EXPECT_FALSE(table.IsDeletedPont(1));
    EXPECT_TRUE(table.IsDeletedMemb(4)) << "the maps of members stand apart";
    table.RemoveAllDeletedMembMap();
    EXPECT_FALSE(table.IsDeletedMemb(4));
    EXPECT_EQ(0u, table.GetDeletedMembKByMbtpK(8));
}

TEST_F(DeletedMapsTest, AreMadeAnewForEachChange) {
    ASSERT_TRUE(Records<CClassMemb>().TR_Del(4));
    table.MakeDeletedMembMap(Buffer());
    ASSERT_TRUE(Records<CClassMemb>().TR_Del(5));
    table.MakeDeletedMembMap(Buffer());
    EXPECT_FALSE(table.IsDeletedMemb(4));
    EXPECT_TRUE(table.IsDeletedMemb(5));
    EXPECT_EQ(0u, table.GetDeletedMembKByMbtpK(8));
}

}  // namespace
}  // namespace zt
