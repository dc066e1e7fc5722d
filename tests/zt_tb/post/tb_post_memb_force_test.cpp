#include "zt_tb/post/tb_post_memb_force.h"

#include "zt_tb/post/fake_checker.h"
#include "zt_tb/post/force_tables.h"

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Tables of member forces over the portal: columns 11 and 12, beam 13 of 6 m at 4 m.
class MemberForceTables : public ForceTables {
protected:
    void PutType(std::uint32_t key, int type) {
        T_MEMB_D member;
        ASSERT_TRUE(Records<CClassMemb>().Get(key, member));
        member.type = type;
        ASSERT_TRUE(Records<CClassMemb>().TR_Modify(key, key, member)) << type;
    }
    /// The rows that a tab shows when the beam is a member of a type.
    template <class Source>
    int RowsWithType(int tab, int type) {
        doc->GetMDBCtrl()->SetResults(nullptr);
        PutType(kBeam, type);
        PutResults();
        Source& source = Open<Source>(tab);
        std::vector<std::uint32_t> keys = {13};
        source.FilterObjectKeys(keys);
        source.SetActiveParam(Choice(keys));
        return grid->GetRowCount();
    }

    static constexpr std::uint32_t kBeam = 203;
};

// ---- types of members ----

TEST_F(MemberForceTables, BeamsAreOfManyTypes) {
    for (const int type : {204, 201, 205, 240, 241, 242, 243, 251, 261, 262, 263}) {
        EXPECT_EQ(RowsWithType<CTBPostBeamForce>(66, type), 3) << type;
        EXPECT_EQ(grid->GetValueRowCol(1, 8), "0.19") << type;
    }
    for (const int type : {101, 206, 209, 210, 252}) {
        EXPECT_EQ(RowsWithType<CTBPostBeamForce>(66, type), 0) << type;
    }
}

TEST_F(MemberForceTables, BracesAreOfTwoTypes) {
    for (const int type : {206, 252}) EXPECT_EQ(RowsWithType<CTBPostBraceForce>(68, type), 2) << type;
    for (const int type : {101, 201, 251}) EXPECT_EQ(RowsWithType<CTBPostBraceForce>(68, type), 0) << type;
}

TEST_F(MemberForceTables, WallBeamsShowWhatBeamsShow) {
    EXPECT_EQ(RowsWithType<CTBPostWBeamForce>(69, 201), 0);
    ASSERT_EQ(RowsWithType<CTBPostWBeamForce>(69, 210), 3);
    EXPECT_THAT(Row(1), ElementsAre("13", "Tower : 2F", "4", "6", "i-End", "DL", "Analysis", "0.19", "0.192", "0.194",
                                    "0.193", "300001", "0"));
    EXPECT_THAT(Row(3),
                ElementsAre("", "", "", "", "j-End", "DL", "Analysis", "0.27", "0.272", "0.274", "0.273", "", ""));
}

TEST_F(MemberForceTables, WallColumnsShowWhatColumnsShow) {
    EXPECT_EQ(RowsWithType<CTBPostWColmForce>(70, 101), 0);
    ASSERT_EQ(RowsWithType<CTBPostWColmForce>(70, 209), 4);
    EXPECT_THAT(Row(1), ElementsAre("13", "Tower : 2F", "4", "Top", "DL", "Analysis", "0.27", "0.271", "0.272", "0.274",
                                    "0.275", "300001", "1"));
    EXPECT_THAT(Row(4), ElementsAre("", "", "", "Bottom", "DL", "Analysis", "0.19", "0.191", "0.192", "0.194", "0.195",
                                    "", ""));
}

TEST_F(MemberForceTables, OtherTypesAreDroppedBeforeListsAreFilled) {
    PutResults();
    TB_ACTIVE_PARAM param;
    EXPECT_TRUE(Open<CTBPostColmForce>(67).GetActiveParam(param));
    EXPECT_THAT(param.allObjects, ElementsAre(11, 12));
    EXPECT_THAT(param.selectedObjects, ElementsAre(11, 12));
    EXPECT_TRUE(param.stories.isOn);
    EXPECT_THAT(param.stories.names, ElementsAre("Tower : 2F"));
    EXPECT_TRUE(param.parts.isOn);
    EXPECT_THAT(param.parts.selected, ElementsAre(1, 3, 2, 0));
}

// ---- the story filter ----

/// The portal with a column 14 on the first story, and member 99 whose record cannot be read.
class MembersOfStories : public MemberForceTables {
protected:
    MembersOfStories() {
        Records<CClassMemb>().TR_Add(
            204, T_MEMB_D{.type = 101, .no = 14, .story = 1, .prop = 1, .matl = 1, .nodes = {102, 104}});
        PutResults();
    }
    static TB_ACTIVE_PARAM OfStories(std::vector<std::uint32_t> stories) {
        TB_ACTIVE_PARAM param = Choice({});
        param.hasObjects = false;
        param.stories = {.isOn = true, .selected = std::move(stories)};
        return param;
    }
};

TEST_F(MembersOfStories, AreChosenAmongAllMembersWhereNoObjectsAre) {
    CTBPostColmForce& source = Open<CTBPostColmForce>(67);
    source.SetActiveParam(OfStories({2}));
    EXPECT_THAT(Keys(source), ElementsAre(11, 12));
    // Not among those that the choice before has left.
    source.SetActiveParam(OfStories({1}));
    EXPECT_THAT(Keys(source), ElementsAre(14));
    source.SetActiveParam(OfStories({2, 1, 7}));
    EXPECT_THAT(Keys(source), ElementsAre(11, 12, 14));
}

TEST_F(MembersOfStories, AreNoneWhereNoStoryIsTicked) {
    CTBPostColmForce& source = Open<CTBPostColmForce>(67);
    source.SetActiveParam(OfStories({}));
    EXPECT_THAT(Keys(source), IsEmpty());
    EXPECT_EQ(grid->GetRowCount(), 0);
}

TEST_F(MembersOfStories, AreTheChosenOnesInTheirOrderWhereObjectsAreChosenToo) {
    CTBPostColmForce& source = Open<CTBPostColmForce>(67);
    TB_ACTIVE_PARAM param = Choice({99, 14, 12});
    param.stories = {.isOn = true, .selected = {1}};
    source.SetActiveParam(param);
    EXPECT_THAT(Keys(source), ElementsAre(99, 14));
    // A filter that is off drops nothing.
    param.stories = {.isOn = false, .selected = {1}};
    source.SetActiveParam(param);
    EXPECT_THAT(Keys(source), ElementsAre(99, 14, 12));
    param.hasObjects = false;
    param.selectedObjects = {11};
    source.SetActiveParam(param);
    EXPECT_THAT(Keys(source), ElementsAre(99, 14, 12));
}

// ---- findings of the model checker ----

class TracedMembers : public MemberForceTables {
protected:
    TracedMembers() {
        PutResults();
        checker.found = 12;
        doc->SetChekCtrl(&checker);
        doc->StartTracerMode();
        doc->SetTableID4Checker(kFilteredResultTable);
    }
    /// What a table that shows some columns leaves of the members 11, 12 and 13.
    std::vector<std::uint32_t> Filtered(std::vector<std::uint32_t> shown) {
        CTBPostColmForce& source = Open<CTBPostColmForce>(67);
        source.SetActiveParam(Choice(std::move(shown)));
        std::vector<std::uint32_t> keys = {11, 12, 13};
        source.FilterObjectKeys(keys);
        return keys;
    }
    FakeChecker checker;
};

TEST_F(TracedMembers, AreThoseThatWereFound) {
    EXPECT_THAT(Filtered({11}), ElementsAre(12));
    checker.found = 13;
    EXPECT_THAT(Filtered({11}), IsEmpty()) << "no column";
}

TEST_F(TracedMembers, AreAllAsLongAsTheTableShowsNone) {
    EXPECT_THAT(Filtered({}), ElementsAre(11, 12));
}

TEST_F(TracedMembers, AreShownAloneAsTheTableOpens) {
    EXPECT_THAT(Keys(Open<CTBPostColmForce>(67)), ElementsAre(12));
    EXPECT_THAT(Keys(Open<CTBPostBeamForce>(66)), IsEmpty());
}

TEST_F(TracedMembers, AreAllWhereAnotherTableIsTracedOrNone) {
    for (const int table : {0, kFilteredResultTable - 1}) {
        doc->SetTableID4Checker(table);
        EXPECT_THAT(Filtered({11}), ElementsAre(11, 12)) << table;
    }
    doc->SetTableID4Checker(kFilteredResultTable);
    doc->EndTracerMode();
    EXPECT_THAT(Filtered({11}), ElementsAre(11, 12));
}

TEST_F(TracedMembers, AreOfferedAlone) {
    CTBPostColmForce& source = Open<CTBPostColmForce>(67);
    source.SetActiveParam(Choice({11, 12}));
    TB_ACTIVE_PARAM param;
    source.GetActiveParam(param);
    EXPECT_THAT(param.allObjects, ElementsAre(12));
}

// ---- records that cannot be read ----

TEST_F(MemberForceTables, AMemberWithoutRecordSurvivesTheStoryFilterAndStaysEmpty) {
    PutResults();
    CTBPostBeamForce& source = Open<CTBPostBeamForce>(66);
    TB_ACTIVE_PARAM param = Choice({13, 99});
    param.stories.isOn = true;
    source.SetActiveParam(param);
    EXPECT_THAT(Keys(source), ElementsAre(99));
    ASSERT_EQ(grid->GetRowCount(), 3);
    for (int row = 1; row <= 3; ++row) EXPECT_THAT(Row(row), ::testing::Each(IsEmpty())) << row;
}

TEST_F(MemberForceTables, AMemberWithoutStoryStaysEmpty) {
    T_MEMB_D member;
    ASSERT_TRUE(Records<CClassMemb>().Get(kBeam, member));
    member.story = 0;
    ASSERT_TRUE(Records<CClassMemb>().TR_Modify(kBeam, kBeam, member));
    PutResults();
    Open<CTBPostBeamForce>(66).SetActiveParam(Choice({13}));
    ASSERT_EQ(grid->GetRowCount(), 3);
    EXPECT_THAT(Row(1), ::testing::Each(IsEmpty()));
}

TEST_F(MemberForceTables, APartThatIsNoneLeavesItsRowEmpty) {
    PutResults();
    CTBPostBeamForce& source = Open<CTBPostBeamForce>(66);
    TB_ACTIVE_PARAM param = Choice({13});
    param.parts.isOn = true;
    param.parts.selected = {8, 3, 18, -2};
    source.SetActiveParam(param);
    ASSERT_EQ(grid->GetRowCount(), 4);
    EXPECT_EQ(grid->GetValueRowCol(1, 5), "4/8");
    for (int row = 2; row <= 4; ++row) EXPECT_THAT(Row(row), ::testing::Each(IsEmpty())) << row;
}

TEST_F(MemberForceTables, RecordsOutOfRangeAreRefused) {
    PutResults();
    CTBPostBeamForce& source = Open<CTBPostBeamForce>(66);
    EXPECT_FALSE(source.SeekRec(1));
    source.SetActiveParam(Choice({13}, {{.key = kDead}, {.key = kWind}}));
    EXPECT_FALSE(source.SeekRec(0));
    EXPECT_TRUE(source.SeekRec(2));
    EXPECT_FALSE(source.SeekRec(3));
}

// ---- modules ----

TEST_F(MemberForceTables, OneModuleNeedsNoChoice) {
    PutResults();
    CTBPostBeamForce& source = Open<CTBPostBeamForce>(66);
    EXPECT_TRUE(source.HasModuleChoice());
    EXPECT_EQ(source.GetCurModuleKey(), 0u);
    EXPECT_EQ(grid->GetRowCount(), 0);
    source.OnEvent({velda::T_TB_EVENT_D::kClick, 1, 6});
    EXPECT_EQ(source.GetCurModuleKey(), 0u);
}

TEST_F(MemberForceTables, TheButtonMakesAModuleCurrent) {
    Records<CClassMdul>().TR_Add(2, {.name = "Annex"});
    PutResults();
    CTBPostBeamForce& source = Open<CTBPostBeamForce>(66);
    source.SetActiveParam(Choice({13}));
    ASSERT_EQ(grid->GetRowCount(), 4);
    host.menus.texts = {"Annex"};
    grid->ClickCell(1, 3);
    EXPECT_EQ(source.GetCurModuleKey(), 0u);
    source.OnEvent({velda::T_TB_EVENT_D::kClick + 1, 1, 6});
    source.OnEvent({velda::T_TB_EVENT_D::kClick, 2, 6});
    source.OnEvent({velda::T_TB_EVENT_D::kClick, 1, 3});
    EXPECT_EQ(source.GetCurModuleKey(), 0u);
    grid->ClickCell(1, 6);
    EXPECT_EQ(source.GetCurModuleKey(), 2u);
    EXPECT_THAT(Keys(source), IsEmpty());
    EXPECT_EQ(grid->GetRowCount(), 1);

    host.menus.texts = {"Tower"};
    grid->ClickCell(1, 3);
    grid->ClickCell(1, 6);
    EXPECT_EQ(source.GetCurModuleKey(), 1u);
    EXPECT_THAT(Keys(source), ElementsAre(13));
}

}  // namespace
}  // namespace zt
