#include "velda_util/grid/gx_tab_wnd.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

class CountingHost : public TabStripHost {
public:
    void OnTabsChanged() override { ++changes; }
    void OnTabSwitched(int tab) override { switchedTo = tab; }

    int changes = 0;
    int switchedTo = -1;
};

class TabWnd : public testing::Test {
protected:
    TabWnd() {
        for (const char* label : {"A", "B", "C"}) tabs.AddTab(std::make_unique<CGXGridView>(), label);
        tabs.SetHost(&host);
    }
    CGXTabWnd tabs;
    CountingHost host;
};

TEST_F(TabWnd, SwitchesToTabsThatExist) {
    tabs.SwitchTab(2);
    EXPECT_EQ(tabs.GetActiveTab(), 2);
    EXPECT_EQ(host.switchedTo, 2);
    host.switchedTo = -1;
    for (const int tab : {2, 3, -1}) tabs.SwitchTab(tab);
    EXPECT_EQ(tabs.GetActiveTab(), 2);
    EXPECT_EQ(host.switchedTo, -1);
}

TEST_F(TabWnd, KeepsTheActivePaneWhenATabBeforeItGoes) {
    tabs.SwitchTab(1);
    const TabPane* active = tabs.GetActivePane();
    tabs.RemoveTab(0);
    EXPECT_EQ(tabs.GetActivePane(), active);
    EXPECT_EQ(tabs.FindPane(active), 0);
    tabs.RemoveTab(1);
    tabs.RemoveTab(0);
    tabs.RemoveTab(0);
    EXPECT_EQ(tabs.GetActivePane(), nullptr);
    EXPECT_EQ(host.changes, 3);
}

TEST_F(TabWnd, RenamesTabs) {
    tabs.SetLabel(1, "X");
    tabs.SetLabel(9, "Y");
    EXPECT_EQ(tabs.GetLabel(1), "X");
    EXPECT_EQ(host.changes, 1);
    EXPECT_EQ(tabs.FindPane(nullptr), -1);
    EXPECT_NE(tabs.GetNextID(), tabs.GetNextID());
}

}  // namespace
}  // namespace velda
