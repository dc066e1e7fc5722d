#include <map>

#include "velda_lib/language.h"
#include "zt_tb/post/post_view_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

class PostViewMenu : public PostViewTest {
protected:
    ~PostViewMenu() override { velda::SetCurrentLanguage(velda::Language::English); }

    /// The commands of the menu, with bars for separators.
    static std::string CommandsOf(const velda::CMenu& menu) {
        std::string texts;
        for (const velda::MenuItem& item : menu.Items()) {
            texts += (texts.empty() ? "" : " ") + (item.IsSeparator() ? "|" : std::to_string(item.id));
        }
        return texts;
    }
};

/// The menu of a tab of a table.
struct TabMenu {
    int id;
    int tab;
    std::string_view commands;
};

constexpr std::string_view kPlain = "57634 | 57636 | 46500 46504 46501 | 46516 46526";
constexpr std::string_view kWithoutGraph = "57634 | 57636 | 46500 46504 | 46516 46526";
constexpr std::string_view kWithoutSort = "57634 | 57636 | 46504 46501 | 46516 46526";
constexpr std::string_view kWithoutSortAndGraph = "57634 | 57636 | 46504 | 46516 46526";
constexpr std::string_view kWithoutActivation = "57634 | 57636 | 46500 46504 46501 | 46526";

constexpr TabMenu kMenus[] = {
    {2, 1, kPlain},
    {10, 14, kWithoutActivation},
    {10, 15, "57634 | 57636 | 46500 46504 46501 | 46526 46529"},
    {10, 16, kWithoutActivation},
    {10, 17, kPlain},
    {13, 18, kPlain},
    {14, 19, kPlain},
    {15, 20, kWithoutGraph},
    {15, 21, kWithoutGraph},
    {16, 23, "57634 | 57636 | 46500 46504 | 46526"},
    {17, 24, kWithoutGraph},
    {18, 25, kPlain},
    {19, 26, kWithoutGraph},
    {20, 28, kWithoutGraph},
    {21, 29, kWithoutGraph},
    {22, 30, kWithoutGraph},
    {23, 31, kWithoutGraph},
    {24, 33, kWithoutGraph},
    {27, 35, "57634 | 57636 | 46500 46504 | 46516 46526 46524"},
    {27, 36, kWithoutGraph},
    {28, 38, "57634 | 57636 | 46500 46504 | 46516 46526 46524"},
    {29, 41, "57634 | 57636 | 46500 46504 | 46516 46526 46525"},
    {30, 42, kPlain},
    {31, 43, kWithoutSortAndGraph},
    {32, 45, kWithoutSortAndGraph},
    {34, 48, "57634 | 57636 | 46500 46504 46501 | 46516 46526 46528"},
    {43, 60, kPlain},
    {43, 61, kWithoutActivation},
    {43, 62, kWithoutActivation},
    {44, 61, kWithoutActivation},
    {45, 62, kWithoutActivation},
    {46, 60, kPlain},
    {48, 67, kWithoutSort},
    {54, 69, kWithoutSort},
    {55, 71, kWithoutSort},
    {56, 75, kWithoutSort},
    {57, 76, kPlain},
    {58, 77, kWithoutSort},
    {59, 81, kWithoutSort},
    {65, 93, kWithoutSort},
    {66, 97, kWithoutSort},
    {70, 39, "57634 | 57636 | 46500 46504 46501 | 46516 46526 46524"},
    {91, 179, kPlain},
    {96, 9, kPlain},
};

void BringToFront(CTBPostView& view, int tab) {
    for (int at = 0; at < view.GetTabCount() && view.ActiveTab() != tab; ++at) view.SetCurrentTab(at);
    ASSERT_EQ(tab, view.ActiveTab());
}

TEST_F(PostViewMenu, EachTabHasTheCommandsOfItsTable) {
    for (const TabMenu& menu : kMenus) {
        CTBPostView one;
        ASSERT_TRUE(one.AddTable(menu.id)) << menu.id;
        BringToFront(one, menu.tab);
        EXPECT_EQ(menu.commands, CommandsOf(one.BuildContextMenu())) << menu.id << " " << menu.tab;
    }
}

TEST_F(PostViewMenu, TheDriftLimitsOfHistoriesFollowTheTabInFront) {
    view.AddStorDrftAngTHView();
    for (const int tab : {36, 35, 36}) {
        BringToFront(view, tab);
        EXPECT_EQ(tab == 35, view.BuildContextMenu().Find(ResultCommandId::SetAllowableDrift) != nullptr);
    }
}

TEST_F(PostViewMenu, CommandsHaveTheirTextsInKorean) {
    const std::map<int, std::string> expected = {
        {57634, "복사\tCtrl+C"},        {57636, "검색...\tCtrl+F"},
        {46500, "정렬정보..."},         {46504, "형식..."},
        {46501, "그래프 보기..."},      {46516, "자료 활성정보..."},
        {46524, "허용 층간변위각..."},  {46525, "허용 전단력-중량비 설정..."},
        {46526, "Excel로 내보내기..."}, {46528, "0.2Q 사용자 계수 설정..."},
        {46529, "그래프 내보내기..."},
    };
    velda::SetCurrentLanguage(velda::Language::Korean);
    std::map<int, std::string> found;
    for (const TabMenu& menu : kMenus) {
        CTBPostView one;
        ASSERT_TRUE(one.AddTable(menu.id)) << menu.id;
        BringToFront(one, menu.tab);
        const velda::CMenu built = one.BuildContextMenu();
        for (const velda::MenuItem& item : built.Items()) {
            if (!item.IsSeparator()) found[item.id] = item.text;
        }
    }
    EXPECT_EQ(expected, found);
}

TEST_F(PostViewMenu, AChoiceRunsItsCommandOnceAndAtItsPlace) {
    view.AddStorDrftAngTHView();
    host.queue.Deliver();
    host.menus.choices = {ResultCommandId::Activate, ResultCommandId::SetAllowableDrift};
    view.OnContextMenu({3, 4});
    EXPECT_EQ(3, host.menus.lastPlace.x);
    EXPECT_EQ(4, host.menus.lastPlace.y);
    EXPECT_THAT(host.dialogs.shown, ::testing::ElementsAre("ResultActivation"));
    view.OnContextMenu({});
    EXPECT_THAT(host.dialogs.shown, ::testing::ElementsAre("ResultActivation", "AllowableDrift"));
    // Nothing is chosen.
    view.OnContextMenu({});
    EXPECT_EQ(2u, host.dialogs.shown.size());
}

TEST_F(PostViewMenu, ATabWithoutASourceOffersNoActivation) {
    view.AddColmView(true, false);
    const velda::CMenu menu = view.BuildContextMenu();
    ASSERT_NE(nullptr, menu.Find(ResultCommandId::Activate));
    EXPECT_FALSE(menu.Find(ResultCommandId::Activate)->enabled);
    EXPECT_TRUE(menu.Find(CommandId::Style)->enabled);
    host.menus.choices = {ResultCommandId::Activate};
    view.OnContextMenu({});
    EXPECT_TRUE(host.menus.last);
    EXPECT_TRUE(host.dialogs.shown.empty());
    EXPECT_FALSE(view.OnCommand(ResultCommandId::Activate));
}

TEST_F(PostViewMenu, DriftLimitsAreSetWhereThereAreSomeOnly) {
    view.AddStorDrftAngView();
    EXPECT_FALSE(view.IsCommandEnabled(ResultCommandId::SetAllowableDrift));
    EXPECT_EQ(0, view.OnTbSetStorParam2(true));
    EXPECT_TRUE(host.dialogs.shown.empty());
}

TEST_F(PostViewMenu, AViewWithoutATableHasNone) {
    view.OnContextMenu({});
    EXPECT_FALSE(host.menus.last);
}

TEST_F(PostViewMenu, EmptyCommandsAreTakenAndDoNothing) {
    view.AddDispView();
    for (const int id : {46515, 46517, 46519, 46521, 46522, 46523}) EXPECT_TRUE(view.OnCommand(id)) << id;
    EXPECT_TRUE(host.dialogs.shown.empty());
}

}  // namespace
}  // namespace zt
