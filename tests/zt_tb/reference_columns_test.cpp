#include <functional>

#include "velda_lib/language.h"
#include "zt_db/records/load.h"
#include "zt_db/records/name.h"
#include "zt_tb/support/number_tables.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::ElementsAre;
using velda::CGXStyle;
using velda::ControlKind;

constexpr int kBeam = 201;
constexpr int kWall = 202;

class ReferenceColumnsTest : public TableTest {
protected:
    ReferenceColumnsTest() {
        AddMember(1, 11);
        AddMember(2, 12);
        AddPart(1, 1);
        AddPart(2, 2);
        view = std::make_unique<OneTableView<PartTable>>(*doc);
    }
    ~ReferenceColumnsTest() override {
        view.reset();
        velda::SetCurrentLanguage(velda::Language::English);
    }

    PartTable& Table() { return *view->table; }
    const CGXStyle& StyleOf(int row) { return Table().StyleOf(row, PartTable::kChoiceCol); }
    const std::string& Lines() { return StyleOf(1).GetChoiceList(); }
    void ExpectKeyList(const std::string& lines, const std::string& third) {
        const CGXStyle style = StyleOf(1);
        EXPECT_EQ(ControlKind::TabbedDropDownList, style.GetControl());
        EXPECT_EQ(lines, style.GetChoiceList());
        EXPECT_EQ("0", style.GetKeyColumn());
        EXPECT_EQ("1", style.GetTextColumn());
        EXPECT_EQ(third, style.GetThirdAttribute());
        EXPECT_EQ("0", style.GetFourthAttribute());
        EXPECT_FALSE(style.IncludeValue());
        EXPECT_EQ(style, StyleOf(Table().GetRowCount())) << "the append row too";
    }
    void ExpectNameList(const std::string& lines, int row = 1) {
        const CGXStyle style = StyleOf(row);
        EXPECT_EQ(ControlKind::TabbedDropDownList, style.GetControl());
        EXPECT_EQ(lines, style.GetChoiceList());
        EXPECT_EQ("0", style.GetKeyColumn());
        EXPECT_EQ("0", style.GetTextColumn());
        EXPECT_EQ("1", style.GetThirdAttribute());
        EXPECT_FALSE(style.IncludeFourthAttribute());
        EXPECT_EQ(velda::ValueType::String, style.GetValueType());
        EXPECT_EQ(velda::HorizontalAlignment::Left, style.GetHorizontalAlignment());
        EXPECT_TRUE(style.IncludeValue());
        EXPECT_EQ("", style.GetValue());
    }

    std::unique_ptr<OneTableView<PartTable>> view;
};

TEST_F(ReferenceColumnsTest, MaterialsByKeyAndName) {
    AddNamed<CClassMatl>(5, "SS275");
    AddNamed<CClassMatl>(2, "C24");
    Table().SetMatlColumn(PartTable::kChoiceCol);
    ExpectKeyList("2\tC24\n5\tSS275\n", "1");
}

TEST_F(ReferenceColumnsTest, SectionsThatMembersOfATypeCanHave) {
    AddNamed<CClassSect>(3, "B1");
    AddNamed<CClassSect>(4, "B2");
    Table().SetSectColumn(PartTable::kChoiceCol, kBeam);
    ExpectKeyList("3\tB1\n4\tB2\n", "1");
}

TEST_F(ReferenceColumnsTest, ThicknessesThatMembersOfATypeCanHave) {
    AddNamed<CClassThik>(6, "W200");
    Table().SetThikColumn(PartTable::kChoiceCol, kWall);
    ExpectKeyList("6\tW200\n", "0");
}

TEST_F(ReferenceColumnsTest, KeyListsLeaveTheValueTypeOfTheColumn) {
    AddNamed<CClassMatl>(2, "C24");
    const CGXStyle before = Table().StyleOf(1, PartTable::kMemberCol);
    Table().SetMatlColumn(PartTable::kMemberCol);
    const CGXStyle& style = Table().StyleOf(1, PartTable::kMemberCol);
    EXPECT_EQ(ControlKind::TabbedDropDownList, style.GetControl());
    EXPECT_EQ(before.GetValueType(), style.GetValueType());
    EXPECT_EQ(before.GetHorizontalAlignment(), style.GetHorizontalAlignment());
}

TEST_F(ReferenceColumnsTest, WithoutPropertiesTheColumnStaysAsItIs) {
    const CGXStyle before = StyleOf(1);
    Table().SetMatlColumn(PartTable::kChoiceCol);
    Table().SetSectColumn(PartTable::kChoiceCol, kBeam);
    Table().SetThikColumn(PartTable::kChoiceCol, kWall);
    EXPECT_EQ(before, StyleOf(1));
}

TEST_F(ReferenceColumnsTest, ATypeWithoutThatPropertyLeavesTheColumnAsItIs) {
    AddNamed<CClassSect>(3, "B1");
    AddNamed<CClassThik>(6, "W200");
    const CGXStyle before = StyleOf(1);
    Table().SetSectColumn(PartTable::kChoiceCol, kWall);
    Table().SetThikColumn(PartTable::kChoiceCol, kBeam);
    EXPECT_EQ(before, StyleOf(1));
}

TEST_F(ReferenceColumnsTest, TheListKeepsItsLinesWhenTheLastMaterialGoes) {
    AddNamed<CClassMatl>(2, "C24");
    Table().SetMatlColumn(PartTable::kChoiceCol);
    ASSERT_TRUE(Records<CClassMatl>().TR_Del(2));
    Table().SetMatlColumn(PartTable::kChoiceCol);
    EXPECT_EQ("2\tC24\n", Lines());
}

TEST_F(ReferenceColumnsTest, NodeGroupsBehindNone) {
    AddGroup(7, "Base", 100);
    AddGroup(8, "Beams", kBeam);
    AddGroup(9, "Roof", 100);
    Table().SetPontNameColumn(PartTable::kChoiceCol);
    ExpectNameList("None\nBase\nRoof\n");
}

TEST_F(ReferenceColumnsTest, MemberGroupsOfATypeBehindNone) {
    AddGroup(7, "Base", 100);
    AddGroup(8, "Beams", kBeam);
    Table().SetMembNameColumn(0, PartTable::kChoiceCol, kBeam);
    ExpectNameList("None\nBeams\n");
    ExpectNameList("None\nBeams\n", Table().GetRowCount());
}

TEST_F(ReferenceColumnsTest, ARowTakesAListOfItsOwn) {
    AddGroup(8, "Beams", kBeam);
    const CGXStyle before = StyleOf(1);
    Table().SetMembNameColumn(2, PartTable::kChoiceCol, kBeam);
    EXPECT_EQ(before, StyleOf(1));
    ExpectNameList("None\nBeams\n", 2);
}

TEST_F(ReferenceColumnsTest, WithoutGroupsNoneIsTheOnlyLine) {
    Table().SetPontNameColumn(PartTable::kChoiceCol);
    ExpectNameList("None\n");
    Table().SetMembNameColumn(0, PartTable::kChoiceCol, kBeam);
    ExpectNameList("None\n");
}

TEST_F(ReferenceColumnsTest, NoneIsTheWordOfTheLanguage) {
    velda::SetCurrentLanguage(velda::Language::Korean);
    Table().SetPontNameColumn(PartTable::kChoiceCol);
    ExpectNameList("없음\n");
}

TEST_F(ReferenceColumnsTest, StaticLoadCases) {
    AddLoadCase(2, "LL", "L");
    AddLoadCase(1, "DL", "D");
    Table().SetStldNameColumn(PartTable::kChoiceCol);
    ExpectNameList("DL\nLL\n");
}

TEST_F(ReferenceColumnsTest, WithoutLoadCasesTheListIsEmpty) {
    Table().SetStldNameColumn(PartTable::kChoiceCol);
    ExpectNameList("");
}

TEST_F(ReferenceColumnsTest, LoadCasesOfTheTypesInAMask) {
    AddLoadCase(1, "DL", "D");
    AddLoadCase(2, "LL", "L");
    AddLoadCase(3, "LR", "LR");
    AddLoadCase(4, "WX", "W");
    AddLoadCase(5, "other", "d");
    Table().SetPartialStldNameColumn(PartTable::kChoiceCol, 0x2);
    ExpectNameList("LL\nLR\n");
    Table().SetPartialStldNameColumn(PartTable::kChoiceCol, 0x1 | 0x4);
    ExpectNameList("DL\nWX\n");
    Table().SetPartialStldNameColumn(PartTable::kChoiceCol, 0);
    ExpectNameList("");
}

TEST_F(ReferenceColumnsTest, WithoutLoadCasesAPartOfThemLeavesTheColumnAsItIs) {
    const CGXStyle before = StyleOf(1);
    Table().SetPartialStldNameColumn(PartTable::kChoiceCol, 0xFFFFFFFF);
    EXPECT_EQ(before, StyleOf(1));
}

TEST_F(ReferenceColumnsTest, EveryTypeOfLoadCasesHasItsBit) {
    const std::vector<std::pair<std::uint32_t, std::string>> known = {
        {0x1, "D"},     {0x2, "L"},     {0x2, "LR"},       {0x4, "W"},        {0x8, "E"},
        {0x10, "EVT"},  {0x20, "T"},    {0x40, "EP"},      {0x80, "WP"},      {0x100, "EH"},
        {0x200, "EV"},  {0x400, "WH"},  {0x800, "WV"},     {0x1000, "BS"},    {0x1000, "US"},
        {0x2000, "TU"}, {0x4000, "TD"}, {0x200000, "CLV"}, {0x200000, "CLR"}, {0x200000, "CLH"},
    };
    std::uint32_t key = 0;
    for (const auto& [bit, type] : known) AddLoadCase(++key, type, type);
    AddLoadCase(++key, "USER", "USER");
    for (int bit = 0; bit < 32; ++bit) {
        std::string lines;
        for (const auto& [typeBit, type] : known) {
            if (typeBit == 1u << bit) lines += type + "\n";
        }
        Table().SetPartialStldNameColumn(PartTable::kChoiceCol, 1u << bit);
        EXPECT_EQ(lines, Lines()) << bit;
    }
}

TEST_F(ReferenceColumnsTest, StoriesOfOneModuleFromTheTop) {
    AddNamed<CClassMdul>(1, "Tower");
    AddStory(1, "1F", 1, 3.6);
    AddStory(2, "RF", 1, 10.8);
    AddStory(3, "2F", 1, 7.2);
    Table().SetStorColumn(PartTable::kChoiceCol);
    ExpectNameList("RF\n2F\n1F\n");
}

TEST_F(ReferenceColumnsTest, StoriesOfSeveralModulesWithTheNamesOfTheirModules) {
    AddNamed<CClassMdul>(2, "Podium");
    AddNamed<CClassMdul>(1, "Tower");
    AddStory(1, "1F", 2, 3.6);
    AddStory(2, "1F", 1, 3.6);
    AddStory(3, "2F", 1, 7.2);
    Table().SetStorColumn(PartTable::kChoiceCol);
    ExpectNameList("Tower : 2F\nTower : 1F\nPodium : 1F\n");
}

TEST_F(ReferenceColumnsTest, EveryStoryLineIsReadAsItsStory) {
    AddNamed<CClassMdul>(1, "Tower");
    AddNamed<CClassMdul>(2, "Podium");
    AddStory(1, "1F", 2, 3.6);
    AddStory(2, "1F", 1, 3.6);
    Table().SetStorColumn(PartTable::kChoiceCol);
    const velda::ChoiceList choices = Table().ChoicesOf(1, PartTable::kChoiceCol);
    ASSERT_EQ(2u, choices.Count());
    EXPECT_EQ(2u, CTBCommonWnd::GetStorKey(choices.Key(0)));
    EXPECT_EQ(1u, CTBCommonWnd::GetStorKey(choices.Key(1)));
}

TEST_F(ReferenceColumnsTest, WithoutStoriesTheListIsEmpty) {
    Table().SetStorColumn(PartTable::kChoiceCol);
    ExpectNameList("");
}

TEST_F(ReferenceColumnsTest, YesAndNo) {
    Table().SetYesNoColumn(PartTable::kChoiceCol);
    ExpectNameList("Yes\nNo");
    velda::SetCurrentLanguage(velda::Language::Korean);
    Table().SetYesNoColumn(PartTable::kChoiceCol);
    ExpectNameList("Yes\nNo");
}

TEST_F(ReferenceColumnsTest, WithoutAModelListsHoldNoNamesAndKeyListsStay) {
    const CGXStyle before = StyleOf(1);
    CDBDoc::m_pDBDoc = nullptr;
    Table().SetMatlColumn(PartTable::kChoiceCol);
    Table().SetSectColumn(PartTable::kChoiceCol, kBeam);
    Table().SetThikColumn(PartTable::kChoiceCol, kWall);
    Table().SetPartialStldNameColumn(PartTable::kChoiceCol, 1);
    EXPECT_EQ(before, StyleOf(1));
    Table().SetPontNameColumn(PartTable::kChoiceCol);
    ExpectNameList("None\n");
    Table().SetStldNameColumn(PartTable::kChoiceCol);
    ExpectNameList("");
    Table().SetStorColumn(PartTable::kChoiceCol);
    ExpectNameList("");
    CDBDoc::m_pDBDoc = doc.get();
}

TEST_F(ReferenceColumnsTest, AColumnThatDoesNotExistIsPassedOver) {
    AddGroup(7, "Base", 100);
    const CGXStyle before = StyleOf(1);
    Table().SetPontNameColumn(0);
    Table().SetPontNameColumn(99);
    Table().SetPontNameColumn(-1);
    Table().SetMembNameColumn(99, PartTable::kChoiceCol, 100);
    EXPECT_EQ(before, StyleOf(1));
}

TEST_F(ReferenceColumnsTest, TheListIsThatOfTheGridColumnWhereverItWasMoved) {
    AddGroup(7, "Base", 100);
    ASSERT_TRUE(Table().MoveColumn(PartTable::kChoiceCol, 1));
    Table().SetPontNameColumn(1);
    EXPECT_EQ("None\nBase\n", Table().StyleOf(1, 1).GetChoiceList());
}

// ---- the current cell

/// A table that keeps how its current cell was set.
class WatchedTable : public PartTable {
public:
    using Call = std::vector<int>;
    bool SetCurrentCell(int row, int col, int flags = 0) override {
        calls.push_back({row, col, flags});
        return PartTable::SetCurrentCell(row, col, flags);
    }
    std::vector<Call> calls;
};

class CurrentReferenceTest : public ReferenceColumnsTest {
protected:
    CurrentReferenceTest() : watched(*doc) {
        Watched().SetCurrentCell(2, PartTable::kChoiceCol);
        Watched().calls.clear();
    }
    ~CurrentReferenceTest() override { watched.DisconnectFromDoc(); }
    WatchedTable& Watched() { return *watched.table; }

    OneTableView<WatchedTable> watched;
};

TEST_F(CurrentReferenceTest, ACurrentCellInTheColumnIsSetAgain) {
    AddNamed<CClassMatl>(2, "C24");
    AddNamed<CClassSect>(3, "B1");
    AddNamed<CClassThik>(6, "W200");
    AddLoadCase(1, "DL", "D");
    const std::vector<std::function<void()>> setters = {
        [&] { Watched().SetMatlColumn(PartTable::kChoiceCol); },
        [&] { Watched().SetSectColumn(PartTable::kChoiceCol, kBeam); },
        [&] { Watched().SetThikColumn(PartTable::kChoiceCol, kWall); },
        [&] { Watched().SetPontNameColumn(PartTable::kChoiceCol); },
        [&] { Watched().SetMembNameColumn(0, PartTable::kChoiceCol, kBeam); },
        [&] { Watched().SetStldNameColumn(PartTable::kChoiceCol); },
        [&] { Watched().SetPartialStldNameColumn(PartTable::kChoiceCol, 1); },
        [&] { Watched().SetStorColumn(PartTable::kChoiceCol); },
        [&] { Watched().SetYesNoColumn(PartTable::kChoiceCol); },
    };
    for (std::size_t at = 0; at < setters.size(); ++at) {
        Watched().calls.clear();
        setters[at]();
        EXPECT_THAT(Watched().calls, ElementsAre(ElementsAre(2, PartTable::kChoiceCol, 10))) << at;
    }
}

TEST_F(CurrentReferenceTest, ACurrentCellInAnotherColumnIsLeftAlone) {
    Watched().SetCurrentCell(2, PartTable::kPartCol);
    Watched().calls.clear();
    Watched().SetYesNoColumn(PartTable::kChoiceCol);
    EXPECT_TRUE(Watched().calls.empty());
}

TEST_F(CurrentReferenceTest, AColumnThatStaysAsItIsDoesNotTouchTheCurrentCell) {
    Watched().SetMatlColumn(PartTable::kChoiceCol);
    Watched().SetPartialStldNameColumn(PartTable::kChoiceCol, 1);
    EXPECT_TRUE(Watched().calls.empty());
}

TEST_F(CurrentReferenceTest, AnOpenListShowsTheNewLines) {
    AddGroup(7, "Base", 100);
    Watched().SetPontNameColumn(PartTable::kChoiceCol);
    ASSERT_TRUE(Watched().DoCommand(velda::TableCommand::OpenList));
    AddGroup(9, "Roof", 100);
    Watched().SetPontNameColumn(PartTable::kChoiceCol);
    EXPECT_TRUE(Watched().IsListOpen());
    ASSERT_TRUE(Watched().TypeText("r"));
    EXPECT_EQ("Roof", Watched().Session().EditorText());
}

TEST_F(CurrentReferenceTest, WhatTypingInTheListLedToStays) {
    AddGroup(7, "Base", 100);
    Watched().SetPontNameColumn(PartTable::kChoiceCol);
    ASSERT_TRUE(Watched().TypeText("Bas"));
    Watched().SetPontNameColumn(PartTable::kChoiceCol);
    EXPECT_TRUE(Watched().Session().IsCellOpen());
    EXPECT_EQ("Base", Watched().Session().EditorText());
}

}  // namespace
}  // namespace zt
