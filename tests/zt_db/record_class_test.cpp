#include <algorithm>
#include <random>
#include <set>

#include "zt_db/test_support.h"

namespace zt {
namespace {

using RecordClass = ModelTest;
using Keys = std::vector<std::uint32_t>;

TEST_F(RecordClass, GetReadsARecordAndLeavesTheOutputAloneWhenTheKeyIsMissing) {
    auto& thik = Records<CClassThik>();
    ASSERT_TRUE(thik.TR_Add(3, {.name = "W200", .thickness = 0.2}));
    T_THIK_D record{.name = "untouched"};
    EXPECT_FALSE(thik.Get(4, record));
    EXPECT_EQ(record.name, "untouched");
    EXPECT_TRUE(thik.Get(3, record));
    EXPECT_EQ(record.name, "W200");
    EXPECT_EQ(record.thickness, 0.2);
}

TEST_F(RecordClass, ExistCountAndKeyList) {
    auto& thik = Records<CClassThik>();
    Keys keys{77};
    EXPECT_FALSE(thik.GetKeyList(keys));
    EXPECT_TRUE(keys.empty());
    EXPECT_EQ(thik.GetNewKey(), 1u);
    ASSERT_TRUE(thik.TR_Add(Keys{9, 2, 5}, std::vector<T_THIK_D>(3)));
    EXPECT_EQ(thik.GetCount(), 3);
    EXPECT_TRUE(thik.Exist(5));
    EXPECT_FALSE(thik.Exist(6));
    EXPECT_FALSE(thik.Exist(0));
    EXPECT_TRUE(thik.GetKeyList(keys));
    EXPECT_EQ(keys, (Keys{2, 5, 9}));
    EXPECT_EQ(thik.GetNewKey(), 10u);
}

TEST_F(RecordClass, TheNextFreeKeyFollowsTheLargestThatIsLeft) {
    auto& thik = Records<CClassThik>();
    ASSERT_TRUE(thik.TR_Add(Keys{1, 2, 500}, std::vector<T_THIK_D>(3)));
    ASSERT_TRUE(thik.TR_Del(500));
    EXPECT_EQ(thik.GetNewKey(), 3u);
    ASSERT_TRUE(thik.TR_Del(Keys{1, 2}));
    EXPECT_EQ(thik.GetNewKey(), 1u);
}

TEST_F(RecordClass, TheNextFreeKeyStaysWithinSignedNumbers) {
    auto& thik = Records<CClassThik>();
    ASSERT_TRUE(thik.TR_Add(Keys{1, 2, 4294967295u}, std::vector<T_THIK_D>(3)));
    EXPECT_EQ(thik.GetNewKey(), 3u);
}

TEST_F(RecordClass, AnIterationMeetsEveryRecordOnceAndItsPositionBecomesNullAfterTheLast) {
    auto& thik = Records<CClassThik>();
    EXPECT_FALSE(thik.DB_GetStart());
    EXPECT_TRUE(thik.DB_GetStart() == nullptr);
    Keys keys;
    for (std::uint32_t key = 1; key <= 3000; ++key) keys.push_back(key);
    ASSERT_TRUE(thik.TR_Add(keys, std::vector<T_THIK_D>(keys.size())));
    ASSERT_TRUE(thik.TR_Del(Keys{1, 1500, 3000}));
    Keys met;
    for (POSITION position = thik.DB_GetStart(); position;) {
        std::uint32_t key = 0;
        T_THIK_D record;
        thik.GetNextData(position, key, record);
        met.push_back(key);
    }
    EXPECT_EQ(met.size(), 2997u);
    EXPECT_EQ(std::set<std::uint32_t>(met.begin(), met.end()).size(), 2997u);
}

TEST_F(RecordClass, TheOrderOfAnIterationIsNotThatOfTheKeys) {
    auto& thik = Records<CClassThik>();
    ASSERT_TRUE(thik.TR_Add(Keys{1, 2, 3, 4}, std::vector<T_THIK_D>(4)));
    Keys met;
    for (POSITION position = thik.DB_GetStart(); position;) {
        T_THIK_D record;
        thik.GetNextData(position, met.emplace_back(), record);
    }
    EXPECT_FALSE(std::is_sorted(met.begin(), met.end()));
}

TEST_F(RecordClass, AHandleOnTheStackSeesTheSameRecords) {
    CClassThik handle;
    EXPECT_EQ(handle.GetCount(), 0);
    EXPECT_FALSE(handle.TR_Add(1, {}));
    handle.ConnectToDB(&Db());
    ASSERT_TRUE(handle.TR_Add(1, {.name = "A"}));
    EXPECT_TRUE(Records<CClassThik>().Exist(1));
    handle.ConnectToDB(nullptr);
    EXPECT_FALSE(handle.Exist(1));
    EXPECT_FALSE(handle.DB_GetStart());
}

TEST_F(RecordClass, TheDatabaseOwnsOneHandleForEachClassIdentifier) {
    EXPECT_EQ(Db().GetClass(CClassThik::m_nClassID), &Records<CClassThik>());
    EXPECT_EQ(Db().GetClass(0), nullptr);
    EXPECT_EQ(Db().GetClass(-5), nullptr);
    EXPECT_EQ(Db().GetClass(1 << 30), nullptr);
}

TEST(RecordIdentities, IdentifiersAndChangeCodesAreDistinctOverAllClasses) {
    std::set<int> identifiers;
    std::set<int> codes;
    std::size_t classes = 0;
    std::apply(
        [&]<class... Class>(const Class&...) {
            (identifiers.insert(Class::m_nClassID), ...);
            (codes.insert(std::begin(IdentityOf<typename Class::Record>::value.codes),
                          std::end(IdentityOf<typename Class::Record>::value.codes)),
             ...);
            classes = sizeof...(Class);
        },
        RecordClassList{});
    EXPECT_EQ(identifiers.size(), classes);
    EXPECT_EQ(codes.size(), classes * 4);
    EXPECT_FALSE(codes.contains(0));
    EXPECT_EQ(CClassThik::UR_THIK_MFS - CClassThik::UR_THIK_ADD, 3);
}

TEST_F(RecordClass, UserNumbersLeadToKeysAndBack) {
    auto& nodes = Records<CClassPont>();
    ASSERT_TRUE(nodes.TR_Add(Keys{10, 20}, {T_PONT_D{.no = 7}, T_PONT_D{.no = 3}}));
    EXPECT_EQ(nodes.GetPontNoByKey(10), 7u);
    EXPECT_EQ(nodes.GetPontKeyByNo(3), 20u);
    EXPECT_EQ(nodes.GetPontKeyByNo(99), 0u);
    EXPECT_EQ(nodes.GetPontNoByKey(99), 0u);
    EXPECT_EQ(nodes.GetNewNo(), 8u);
    ASSERT_TRUE(nodes.TR_Del(10));
    EXPECT_EQ(nodes.GetNewNo(), 4u);
    EXPECT_EQ(nodes.GetPontKeyByNo(7), 0u);
}

TEST_F(RecordClass, ARecordWithoutNumberIsGivenTheNextAndKeepsItWhenModified) {
    auto& nodes = Records<CClassPont>();
    ASSERT_TRUE(nodes.TR_Add(Keys{1, 2, 3}, {T_PONT_D{}, T_PONT_D{.no = 1}, T_PONT_D{}}));
    EXPECT_EQ(nodes.GetPontNoByKey(2), 1u);
    EXPECT_EQ(nodes.GetPontNoByKey(1), 2u);
    EXPECT_EQ(nodes.GetPontNoByKey(3), 3u);
    ASSERT_TRUE(nodes.TR_Modify(1, 1, T_PONT_D{.x = 5.0}));
    EXPECT_EQ(nodes.GetPontNoByKey(1), 2u);
}

TEST_F(RecordClass, MembersTakeTheFurtherArgumentsOfTheirTransactions) {
    auto& members = Records<CClassMemb>();
    ASSERT_TRUE(members.TR_Add(1, T_MEMB_D{.type = 201}, 1, -1));
    ASSERT_TRUE(members.TR_Add(Keys{2}, std::vector<T_MEMB_D>(1), 1, -1));
    ASSERT_TRUE(members.TR_Modify(1, 1, T_MEMB_D{.type = 202}, 1));
    T_MEMB_D record;
    ASSERT_TRUE(members.Get(1, record));
    EXPECT_EQ(record.type, 202);
    EXPECT_EQ(members.GetMembNoByKey(1), 1u);
    EXPECT_EQ(members.GetNewNo(), 3u);
}

TEST(RecordDefaults, InitializeGivesTheDefaultContent) {
    T_THIK_D record{.name = "x", .thickness = 3.0};
    record.Initialize();
    EXPECT_EQ(record, T_THIK_D{});
}

TEST(RecordUnits, UnitCodesStandInFieldOrder) {
    EXPECT_EQ(T_THIK_D::unit[0], Unit::Length);
    EXPECT_EQ(T_PONT_D::unit[2], Unit::Length);
    EXPECT_EQ(T_MEMB_D::unit[0], Unit::Angle);
    EXPECT_EQ(T_MATL_ANALYSIS::unit[1], Unit::None);
    EXPECT_EQ(T_MATL_ANALYSIS::unit[2], Unit::ThermalCoefficient);
    EXPECT_EQ(T_SECT_STIFFNESS::unit[5], Unit::Inertia);
    EXPECT_EQ(T_SECT_DESIGN::unit[8], Unit::WarpingConstant);
    EXPECT_THROW((void)T_THIK_D::unit[9], std::out_of_range);
}

}  // namespace
}  // namespace zt
