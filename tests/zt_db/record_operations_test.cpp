// The operations that single record classes have beyond those of all: what a table asks of stories, groups, load cases,
// properties, member types and nodes.

#include <set>

#include "velda_lib/comp_func.h"
#include "velda_lib/language.h"
#include "zt_db/test_support.h"

namespace zt {
namespace {

using Keys = std::vector<std::uint32_t>;
using Names = std::vector<std::string>;

/// Gives the tests back the language that they start with.
class MemberTypeNames : public testing::Test {
protected:
    ~MemberTypeNames() override { velda::SetCurrentLanguage(velda::Language::English); }
};

/// A model with two modules; the stories of the first are not in the order of their levels.
class RecordOperations : public ModelTest {
protected:
    RecordOperations() {
        EXPECT_TRUE(
            Records<CClassMdul>().TR_Add(Keys{4, 9}, std::vector<T_MDUL_D>{{.name = "Tower"}, {.name = "Podium"}}));
        EXPECT_TRUE(Records<CClassStor>().TR_Add(Keys{1, 2, 3, 11, 12},
                                                 std::vector<T_STOR_D>{{.name = "2F", .mdul = 4, .level = 7.2},
                                                                       {.name = "B1", .mdul = 4, .level = -3.0},
                                                                       {.name = "1F", .mdul = 4, .level = 3.6},
                                                                       {.name = "1F", .mdul = 9, .level = 4.5},
                                                                       {.name = "지붕층", .mdul = 9, .level = 9.0}}));
    }
    void UseMillimetres() {
        SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, "kN"), CUnitCtrl::FindChoice(UnitQuantity::Length, "mm"));
    }
};

// ---- modules and stories

TEST_F(RecordOperations, AModuleIsFoundByItsName) {
    const auto& modules = Records<CClassMdul>();
    EXPECT_EQ(modules.GetKey("Tower"), 4u);
    EXPECT_EQ(modules.GetKey("Podium"), 9u);
    EXPECT_EQ(modules.GetKey("Annex"), 0u);
    EXPECT_EQ(modules.GetKey(""), 0u);
}

TEST_F(RecordOperations, NamesAreFoundWithRegardToCaseAndAsAWhole) {
    EXPECT_EQ(Records<CClassMdul>().GetKey("tower"), 0u);
    EXPECT_EQ(Records<CClassMdul>().GetKey("Tow"), 0u);
    EXPECT_EQ(Records<CClassMdul>().GetKey("Tower "), 0u);
    EXPECT_EQ(Records<CClassStor>().GetKey("1f", 4), 0u);
}

TEST_F(RecordOperations, AnEmptyNameFindsARecordWithoutName) {
    ASSERT_TRUE(Records<CClassStor>().TR_Add(13, {.mdul = 9}));
    EXPECT_EQ(Records<CClassStor>().GetKey("", 9), 13u);
    EXPECT_EQ(Records<CClassStor>().GetKey("", 4), 0u);
}

TEST_F(RecordOperations, OfSeveralRecordsWithOneNameTheSmallestKeyIsFound) {
    auto& modules = Records<CClassMdul>();
    ASSERT_TRUE(modules.TR_Add(Keys{20, 2, 30}, std::vector<T_MDUL_D>(3, {.name = "Tower"})));
    EXPECT_EQ(modules.GetKey("Tower"), 2u);
    ASSERT_TRUE(modules.TR_Del(2));
    EXPECT_EQ(modules.GetKey("Tower"), 4u);
}

TEST_F(RecordOperations, AStoryIsFoundByItsNameWithinItsModule) {
    const auto& stories = Records<CClassStor>();
    EXPECT_EQ(stories.GetKey("1F", 4), 3u);
    EXPECT_EQ(stories.GetKey("1F", 9), 11u);
    EXPECT_EQ(stories.GetKey("지붕층", 9), 12u);
    EXPECT_EQ(stories.GetKey("지붕층", 4), 0u);
    EXPECT_EQ(stories.GetKey("3F", 4), 0u);
    EXPECT_EQ(stories.GetKey("1F", 5), 0u);
}

TEST_F(RecordOperations, AStoryWithoutModuleIsFoundInNone) {
    auto& stories = Records<CClassStor>();
    ASSERT_TRUE(stories.TR_Add(13, {.name = "Yard"}));
    EXPECT_EQ(stories.GetKey("Yard", 0), 0u);
    Keys keys{77};
    EXPECT_FALSE(stories.GetKeyListReverse(keys, 0));
    EXPECT_TRUE(keys.empty());
}

TEST_F(RecordOperations, TheReverseListHasTheStoriesOfOneModuleTheTopmostFirst) {
    const auto& stories = Records<CClassStor>();
    Keys keys{77};
    EXPECT_TRUE(stories.GetKeyListReverse(keys, 4));
    EXPECT_EQ(keys, (Keys{1, 3, 2}));
    EXPECT_TRUE(stories.GetKeyListReverse(keys, 9));
    EXPECT_EQ(keys, (Keys{12, 11}));
}

TEST_F(RecordOperations, TheReverseListOfAModuleWithoutStoriesIsEmpty) {
    ASSERT_TRUE(Records<CClassMdul>().TR_Add(10, {.name = "Annex"}));
    for (const std::uint32_t module : {10u, 99u}) {
        Keys keys{77};
        EXPECT_FALSE(Records<CClassStor>().GetKeyListReverse(keys, module)) << module;
        EXPECT_TRUE(keys.empty()) << module;
    }
}

TEST_F(RecordOperations, InTheReverseListTheLargerKeyComesFirstOnOneLevel) {
    auto& stories = Records<CClassStor>();
    ASSERT_TRUE(stories.TR_Add(Keys{8, 5}, std::vector<T_STOR_D>(2, {.mdul = 4, .level = 3.6})));
    Keys keys;
    EXPECT_TRUE(stories.GetKeyListReverse(keys, 4));
    EXPECT_EQ(keys, (Keys{1, 8, 5, 3, 2}));
}

TEST_F(RecordOperations, TheTopLevelOfAStoryIsItsLevelInCurrentUnits) {
    const auto& stories = Records<CClassStor>();
    double level = 0.0;
    EXPECT_TRUE(stories.GetStorTopLevel(3, level));
    EXPECT_EQ(level, 3.6);
    EXPECT_TRUE(stories.GetStorTopLevel(2, level));
    EXPECT_EQ(level, -3.0);
    UseMillimetres();
    EXPECT_TRUE(stories.GetStorTopLevel(3, level));
    EXPECT_DOUBLE_EQ(level, 3600.0);
}

TEST_F(RecordOperations, TheTopLevelOfAMissingStoryLeavesTheOutputAlone) {
    double level = 5.5;
    EXPECT_FALSE(Records<CClassStor>().GetStorTopLevel(99, level));
    EXPECT_FALSE(Records<CClassStor>().GetStorTopLevel(0, level));
    EXPECT_EQ(level, 5.5);
}

// ---- nodes

TEST_F(RecordOperations, APositionInSpaceHasItsHeightFromTheTopLevelOfTheStory) {
    auto& nodes = Records<CClassPont>();
    ASSERT_TRUE(Records<CClassStor>().TR_Add(15, {.name = "3F", .mdul = 4, .level = 10.0}));
    ASSERT_TRUE(nodes.TR_Add(6, {.x = 1.5, .y = -2.0, .z = 3.0, .plan = 7, .story = 15, .no = 60, .name = "A"}));
    T_PONT_D copy;
    EXPECT_TRUE(nodes.Get3DPos(6, copy));
    EXPECT_EQ(copy, (T_PONT_D{.x = 1.5, .y = -2.0, .z = 13.0, .plan = 7, .story = 15, .no = 60, .name = "A"}));
    T_PONT_D stored;
    ASSERT_TRUE(nodes.Get(6, stored));
    EXPECT_EQ(stored.z, 3.0);
}

TEST_F(RecordOperations, APositionInSpaceIsInCurrentUnits) {
    auto& nodes = Records<CClassPont>();
    ASSERT_TRUE(nodes.TR_Add(6, {.x = 1.5, .z = -0.5, .story = 1}));
    UseMillimetres();
    T_PONT_D copy;
    EXPECT_TRUE(nodes.Get3DPos(6, copy));
    EXPECT_DOUBLE_EQ(copy.x, 1500.0);
    EXPECT_DOUBLE_EQ(copy.z, 6700.0);
}

TEST_F(RecordOperations, APositionInSpaceFollowsItsStory) {
    ASSERT_TRUE(Records<CClassPont>().TR_Add(6, {.z = 0.5, .story = 1}));
    ASSERT_TRUE(Records<CClassStor>().TR_Modify(1, 1, {.name = "2F", .mdul = 4, .level = 8.0}));
    T_PONT_D copy;
    EXPECT_TRUE(Records<CClassPont>().Get3DPos(6, copy));
    EXPECT_EQ(copy.z, 8.5);
}

TEST_F(RecordOperations, APositionInSpaceWithoutStoryCountsFromZero) {
    ASSERT_TRUE(Records<CClassPont>().TR_Add(6, {.z = 3.0}));
    T_PONT_D copy;
    EXPECT_TRUE(Records<CClassPont>().Get3DPos(6, copy));
    EXPECT_EQ(copy.z, 3.0);
}

TEST_F(RecordOperations, AMissingNodeHasNoPositionInSpace) {
    T_PONT_D copy{.z = 9.0};
    EXPECT_FALSE(Records<CClassPont>().Get3DPos(6, copy));
    EXPECT_FALSE(Records<CClassPont>().Get3DPos(0, copy));
    EXPECT_EQ(copy, (T_PONT_D{.z = 9.0}));
}

// ---- named groups

TEST_F(RecordOperations, GroupsAreListedByTypeInTheOrderOfTheirKeys) {
    auto& groups = Records<CClassName>();
    ASSERT_TRUE(groups.TR_Add(
        Keys{8, 3, 5, 6},
        std::vector<T_NAME_D>{
            {.name = "Top"}, {.name = "기초 절점"}, {.name = "Top", .type = 201}, {.name = "Edge", .type = 201}}));
    Keys keys{77};
    Names names{"old"};
    EXPECT_TRUE(groups.GetList(T_NAME_D::kNodeGroup, keys, names));
    EXPECT_EQ(keys, (Keys{3, 8}));
    EXPECT_EQ(names, (Names{"기초 절점", "Top"}));
    EXPECT_TRUE(groups.GetList(201, keys, names));
    EXPECT_EQ(keys, (Keys{5, 6}));
    EXPECT_EQ(names, (Names{"Top", "Edge"}));
    EXPECT_FALSE(groups.GetList(202, keys, names));
    EXPECT_TRUE(keys.empty());
    EXPECT_TRUE(names.empty());
}

TEST_F(RecordOperations, AGroupIsFoundByItsNameWithinItsType) {
    auto& groups = Records<CClassName>();
    ASSERT_TRUE(groups.TR_Add(
        Keys{8, 5, 2},
        std::vector<T_NAME_D>{{.name = "Top"}, {.name = "Top", .type = 201}, {.name = "Edge", .type = 201}}));
    EXPECT_EQ(groups.GetKey("Top", T_NAME_D::kNodeGroup), 8u);
    EXPECT_EQ(groups.GetKey("Top", 201), 5u);
    EXPECT_EQ(groups.GetKey("Edge", T_NAME_D::kNodeGroup), 0u);
    EXPECT_EQ(groups.GetKey("Top", 202), 0u);
    EXPECT_EQ(groups.GetKey("TOP", 201), 0u);
}

// ---- load cases

TEST_F(RecordOperations, ALoadCaseIsFoundByItsName) {
    auto& loads = Records<CClassStld>();
    ASSERT_TRUE(loads.TR_Add(Keys{7, 3}, std::vector<T_STLD_D>{{.name = "DL", .type = "D"}, {.name = "활하중"}}));
    EXPECT_EQ(loads.GetKey("DL"), 7u);
    EXPECT_EQ(loads.GetKey("활하중"), 3u);
    EXPECT_EQ(loads.GetKey("D"), 0u);
    EXPECT_EQ(loads.GetKey("dl"), 0u);
}

TEST_F(RecordOperations, LoadCasesAreListedByKeyWhateverTheFlags) {
    auto& loads = Records<CClassStld>();
    Keys keys{77};
    EXPECT_FALSE(loads.GetKeyList(keys, 1, 1));
    EXPECT_TRUE(keys.empty());
    ASSERT_TRUE(loads.TR_Add(Keys{7, 3, 5}, std::vector<T_STLD_D>(3)));
    for (const int active : {0, 1}) {
        for (const int ordered : {0, 1}) {
            keys = {77};
            EXPECT_TRUE(loads.GetKeyList(keys, active, ordered));
            EXPECT_EQ(keys, (Keys{3, 5, 7})) << active << ordered;
        }
    }
    EXPECT_TRUE(loads.GetKeyList(keys));
}

// ---- properties by member type

TEST_F(RecordOperations, EveryMemberTypeHasSectionsOrThicknessesOrNeither) {
    auto& sections = Records<CClassSect>();
    auto& thicknesses = Records<CClassThik>();
    ASSERT_TRUE(sections.TR_Add(Keys{5, 2}, std::vector<T_SECT_D>(2)));
    ASSERT_TRUE(thicknesses.TR_Add(Keys{9, 1, 4}, std::vector<T_THIK_D>(3)));
    const std::set<int> framed{101, 201, 205, 206, 207, 251, 252, 261, 262, 263};
    const std::set<int> flat{202, 216, 217, 218, 219, 301, 314, 315, 316};
    std::vector<int> types;
    ASSERT_TRUE(CClassMemb::GetMembTypeList(types));
    types.insert(types.end(), {0, -1, 1, 100, 203, 999});
    for (const int type : types) {
        Keys keys{77};
        EXPECT_EQ(sections.GetKeyListByMembType(keys, type, 1, 0), framed.count(type)) << type;
        EXPECT_EQ(keys, framed.count(type) ? (Keys{2, 5}) : Keys{}) << type;
        keys = {77};
        EXPECT_EQ(thicknesses.GetKeyListByMembType(keys, type, 1), flat.count(type)) << type;
        EXPECT_EQ(keys, flat.count(type) ? (Keys{1, 4, 9}) : Keys{}) << type;
        EXPECT_EQ(T_MEMB_D::UsesThickness(type), flat.count(type) == 1) << type;
    }
}

TEST_F(RecordOperations, WithoutPropertiesTheListOfAMemberTypeIsEmpty) {
    Keys keys{77};
    EXPECT_FALSE(Records<CClassSect>().GetKeyListByMembType(keys, 201, 1, 0));
    EXPECT_TRUE(keys.empty());
    keys = {77};
    EXPECT_FALSE(Records<CClassThik>().GetKeyListByMembType(keys, 202, 1));
    EXPECT_TRUE(keys.empty());
}

// ---- member types

TEST_F(MemberTypeNames, TheListHasEveryCodeAscending) {
    std::vector<int> types{77};
    EXPECT_TRUE(CClassMemb::GetMembTypeList(types));
    EXPECT_EQ(types, (std::vector<int>{101, 103, 104, 200, 201, 202, 205, 206, 207, 215, 216, 217, 218, 219,
                                       251, 252, 261, 262, 263, 300, 301, 302, 310, 314, 315, 316, 701, 702}));
}

TEST_F(MemberTypeNames, FollowTheLanguage) {
    EXPECT_EQ(CClassMemb::GetMembTypeName(101), "Column");
    EXPECT_EQ(CClassMemb::GetMembTypeName(205), "Sub-Beam");
    EXPECT_EQ(CClassMemb::GetMembTypeName(300), "Area");
    velda::SetCurrentLanguage(velda::Language::Korean);
    EXPECT_EQ(CClassMemb::GetMembTypeName(101), "기둥");
    EXPECT_EQ(CClassMemb::GetMembTypeName(205), "작은보");
    EXPECT_EQ(CClassMemb::GetMembTypeName(300), "면");
}

TEST_F(MemberTypeNames, AreEmptyForCodesThatNameNoType) {
    for (const int type : {0, -101, 100, 102, 203, 703}) EXPECT_EQ(CClassMemb::GetMembTypeName(type), "") << type;
}

TEST_F(MemberTypeNames, TellEveryTypeFromEveryOtherWithoutRegardToCase) {
    std::vector<int> types;
    CClassMemb::GetMembTypeList(types);
    for (const auto language : {velda::Language::English, velda::Language::Korean}) {
        velda::SetCurrentLanguage(language);
        for (std::size_t i = 0; i < types.size(); ++i) {
            const std::string name = CClassMemb::GetMembTypeName(types[i]);
            EXPECT_FALSE(name.empty()) << types[i];
            EXPECT_NE(name.substr(0, 4), "IDS_") << types[i];
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_FALSE(velda::CCompFunc::EqualNoCase(name, CClassMemb::GetMembTypeName(types[j])))
                    << types[i] << " and " << types[j] << ": " << name;
            }
        }
    }
}

// ---- what belongs to a member

TEST_F(RecordOperations, OptionsAndDesignElementsKnowTheirMember) {
    ASSERT_TRUE(Records<CClassMemb>().TR_Add(Keys{21, 22}, std::vector<T_MEMB_D>(2)));
    auto& options = Records<CClassMbtp>();
    auto& elements = Records<CClassPrel>();
    ASSERT_TRUE(options.TR_Add(5, {.memb = 22}));
    ASSERT_TRUE(elements.TR_Add(Keys{6, 7}, std::vector<T_PREL_D>{{.memb = 21}, {.memb = 21, .part = 2}}));
    EXPECT_EQ(options.GetMembKbyMbtpK(5), 22u);
    EXPECT_EQ(elements.GetMembKOfPrel(6), 21u);
    EXPECT_EQ(elements.GetMembKOfPrel(7), 21u);
    EXPECT_EQ(options.GetMembKbyMbtpK(6), 0u);
    EXPECT_EQ(elements.GetMembKOfPrel(5), 0u);
}

TEST_F(RecordOperations, OptionsAndDesignElementsOfADeletedMemberHaveNone) {
    ASSERT_TRUE(Records<CClassMemb>().TR_Add(21, {}));
    ASSERT_TRUE(Records<CClassMbtp>().TR_Add(5, {.memb = 21}));
    ASSERT_TRUE(Records<CClassPrel>().TR_Add(6, {.memb = 21}));
    ASSERT_TRUE(Records<CClassMemb>().TR_Del(21));
    EXPECT_EQ(Records<CClassMbtp>().GetMembKbyMbtpK(5), 0u);
    EXPECT_EQ(Records<CClassPrel>().GetMembKOfPrel(6), 0u);
}

// ---- handles

TEST_F(RecordOperations, AHandleOnTheStackSeesTheSameOnceItIsConnected) {
    ASSERT_TRUE(Records<CClassPont>().TR_Add(6, {.z = 0.5, .story = 3}));
    CClassStor stories;
    stories.ConnectToDB(&Db());
    EXPECT_EQ(stories.GetKey("1F", 9), 11u);
    CClassPont nodes;
    nodes.ConnectToDB(&Db());
    T_PONT_D copy;
    EXPECT_TRUE(nodes.Get3DPos(6, copy));
    EXPECT_DOUBLE_EQ(copy.z, 4.1);
    nodes.ConnectToDB(nullptr);
    EXPECT_FALSE(nodes.Get3DPos(6, copy));
}

TEST(DisconnectedHandle, FindsNoRecordByName) {
    EXPECT_EQ(CClassMdul().GetKey(""), 0u);
    EXPECT_EQ(CClassStor().GetKey("", 1), 0u);
    EXPECT_EQ(CClassName().GetKey("", T_NAME_D::kNodeGroup), 0u);
    EXPECT_EQ(CClassStld().GetKey(""), 0u);
}

TEST(DisconnectedHandle, GivesEmptyLists) {
    const auto isEmpty = [](auto list) {
        Keys keys{77};
        return list(keys) == 0 && keys.empty();
    };
    EXPECT_TRUE(isEmpty([](Keys& keys) { return CClassStor().GetKeyListReverse(keys, 1); }));
    EXPECT_TRUE(isEmpty([](Keys& keys) { return CClassStld().GetKeyList(keys, 1, 1); }));
    EXPECT_TRUE(isEmpty([](Keys& keys) { return CClassSect().GetKeyListByMembType(keys, 101, 1, 0); }));
    EXPECT_TRUE(isEmpty([](Keys& keys) { return CClassThik().GetKeyListByMembType(keys, 202, 1); }));
    EXPECT_TRUE(isEmpty([](Keys& keys) {
        Names names{"old"};
        return CClassName().GetList(T_NAME_D::kNodeGroup, keys, names) || !names.empty();
    }));
}

TEST(DisconnectedHandle, ReadsNothing) {
    double level = 5.5;
    EXPECT_FALSE(CClassStor().GetStorTopLevel(1, level));
    EXPECT_EQ(level, 5.5);
    T_PONT_D copy{.z = 9.0};
    EXPECT_FALSE(CClassPont().Get3DPos(1, copy));
    EXPECT_EQ(copy.z, 9.0);
    EXPECT_EQ(CClassMbtp().GetMembKbyMbtpK(1), 0u);
    EXPECT_EQ(CClassPrel().GetMembKOfPrel(1), 0u);
}

}  // namespace
}  // namespace zt
