#include "zt_tb/core/dock_view.h"

#include "support/view_fixture.h"
#include "velda_base/host/headless_dock_pane.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

/// Panes in a model of four thicknesses.
class DockViewTest : public TBViewTest {};

class TestPane : public CDockView {
public:
    ViewClass GetRuntimeViewClass() const override { return viewClass; }
    void OnAfterCreateView() override { ++created; }

    ViewClass viewClass = [] { return std::unique_ptr<CTBView>(std::make_unique<TestView>()); };
    int created = 0;
};

TEST_F(DockViewTest, APaneMakesItsViewOnce) {
    TestPane pane;
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    EXPECT_EQ(pane.GetCurrentView(), nullptr);
    ASSERT_TRUE(pane.SetInitData(7, nullptr));
    CTBView* made = pane.GetOrCreateView();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(pane.GetOrCreateView(), made);
    EXPECT_EQ(pane.GetCurrentView(), made);
    EXPECT_EQ(pane.created, 1);
    EXPECT_EQ(host.frames.made, 1);
    EXPECT_EQ(made->GetDocument(), doc.get());
    paneWindow.MoveWindow({0, 0, 100, 50});
    EXPECT_EQ(dynamic_cast<velda::HeadlessFrame&>(*made->GetWindow()).Place(), (velda::WindowRect{0, 0, 104, 54}));
    EXPECT_EQ(made->GetPlace(), (velda::WindowRect{0, 0, 102, 52}));
}

/// A view that shows one table of thicknesses.
std::unique_ptr<CTBView> MakeThicknessView() {
    auto view = std::make_unique<CTBCommonView>();
    auto table = std::make_unique<CTBThik>();
    table->Initialize(static_cast<CTBView*>(nullptr));
    table->MakeItemEx(nullptr, -2, 0);
    view->AddWorksheet(std::move(table), "Thickness");
    return view;
}

TEST_F(DockViewTest, TheWidthsOfItsTableAreKeptWhenAPaneCloses) {
    TestPane pane;
    pane.viewClass = &MakeThicknessView;
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    pane.SetInitData(7, nullptr);
    velda::CTBGrid* table = pane.GetOrCreateView()->GetActiveGrid();
    const int col = table->PositionOfColumn(kName);
    table->SetColWidth(col, 141);
    ASSERT_TRUE(velda::CDockViewBase::CloseDockView(7));
    EXPECT_EQ(pane.GetOrCreateView()->GetActiveGrid()->GetColWidth(col), 141);
}

TEST_F(DockViewTest, APaneWithoutAnIdentifierGivesAViewOnce) {
    TestPane pane;
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    CTBView* made = pane.GetOrCreateView();
    EXPECT_NE(made, nullptr);
    EXPECT_EQ(pane.GetOrCreateView(), nullptr) << "a pane that has a view makes none";
    EXPECT_EQ(pane.GetCurrentView(), made);
    EXPECT_EQ(host.frames.made, 1);
}

TEST_F(DockViewTest, APaneThatFloatsStaysVisibleWithoutItsView) {
    TestPane pane;
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    pane.SetInitData(7, nullptr);
    ASSERT_NE(pane.GetOrCreateView(), nullptr);
    paneWindow.docked = false;
    EXPECT_TRUE(velda::CDockViewBase::CloseDockView(7));
    EXPECT_TRUE(pane.IsVisible());
    EXPECT_EQ(pane.GetCurrentView(), nullptr);
    EXPECT_EQ(paneWindow.stored, 1);
}

TEST_F(DockViewTest, AViewWhoseFrameWasClosedIsMadeAnew) {
    TestPane pane;
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    pane.SetInitData(7, nullptr);
    pane.GetOrCreateView()->GetParentFrame()->Close();
    const std::size_t listeners = doc->GetViews().size();
    CTBView* made = pane.GetOrCreateView();
    ASSERT_NE(made, nullptr);
    EXPECT_TRUE(made->GetWindow()->IsOpen());
    EXPECT_EQ(pane.created, 2);
    EXPECT_EQ(doc->GetViews().size(), listeners) << "the closed view listens no longer";
}

/// A view that lets its pane go as it is told of a change, and is asked something behind that.
class LeavingView : public TestView {
public:
    ~LeavingView() override { ++deleted; }
    void UpdateRefresh() override {
        velda::CDockViewBase::CloseDockView(7);
        EXPECT_EQ(deleted, 0) << "it is still being told";
        TestView::UpdateRefresh();
    }
    static inline int deleted = 0;
};

TEST_F(DockViewTest, AViewThatLeavesWhileItIsToldIsDeletedBehindThat) {
    LeavingView::deleted = 0;
    TestPane pane;
    pane.viewClass = [] { return std::unique_ptr<CTBView>(std::make_unique<LeavingView>()); };
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    pane.SetInitData(7, nullptr);
    ASSERT_NE(pane.GetOrCreateView(), nullptr);
    doc->UpdateAllViews(nullptr, HintCode::Refresh, nullptr);
    EXPECT_EQ(pane.GetCurrentView(), nullptr);
    EXPECT_EQ(LeavingView::deleted, 1);
}

TEST_F(DockViewTest, APaneFollowsTheModelThatItsViewIsMadeIn) {
    TestPane pane;
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    CDBDoc::m_pDBDoc = nullptr;
    pane.SetInitData(7, nullptr);
    EXPECT_EQ(pane.GetDocument(), nullptr);
    for (int time = 0; time < 2; ++time) {
        const auto next = CDBDoc::New();
        next->MakeCurrent();
        ASSERT_NE(pane.GetOrCreateView(), nullptr);
        EXPECT_EQ(pane.GetDocument(), next.get());
        next->UpdateAllViews(nullptr, HintCode::ClosePanes, nullptr);
        EXPECT_EQ(pane.GetCurrentView(), nullptr);
    }
    doc->MakeCurrent();
    ASSERT_NE(pane.GetOrCreateView(), nullptr);
    EXPECT_EQ(doc->GetViews(), (std::vector<CDBUpdateConnector*>{pane.GetCurrentView(), &pane}));
}

TEST_F(DockViewTest, AViewThatCannotBeMadeIsNull) {
    TestPane pane;
    pane.SetInitData(7, nullptr);
    EXPECT_EQ(pane.GetOrCreateView(), nullptr) << "no window";
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    host.frames.fails = true;
    EXPECT_EQ(pane.GetOrCreateView(), nullptr);
    host.frames.fails = false;
    pane.viewClass = nullptr;
    EXPECT_EQ(pane.GetOrCreateView(), nullptr);
    pane.viewClass = []() -> std::unique_ptr<CTBView> { throw std::runtime_error("no view"); };
    EXPECT_EQ(pane.GetOrCreateView(), nullptr);
    pane.viewClass = [] { return std::unique_ptr<CTBView>(std::make_unique<TestView>()); };
    CDBDoc::m_pDBDoc = nullptr;
    EXPECT_EQ(pane.GetOrCreateView(), nullptr) << "no document";
    doc->MakeCurrent();
    EXPECT_NE(pane.GetOrCreateView(), nullptr);
    EXPECT_EQ(pane.created, 1);
}

TEST_F(DockViewTest, Hint18ClosesThePane) {
    TestPane pane;
    pane.SetInitData(7, nullptr);
    pane.OnUpdate(nullptr, HintCode::ClosePanes, nullptr);
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    ASSERT_NE(pane.GetOrCreateView(), nullptr);
    T_UPDATE_HINT hint;
    doc->UpdateAllViews(nullptr, HintCode::Refresh, &hint);
    EXPECT_NE(pane.GetCurrentView(), nullptr);
    doc->UpdateAllViews(nullptr, HintCode::ClosePanes, &hint);
    EXPECT_EQ(pane.GetCurrentView(), nullptr);
    EXPECT_FALSE(pane.IsVisible());
    EXPECT_EQ(pane.GetId(), 7u) << "the pane keeps its identifier";
    EXPECT_NE(pane.GetOrCreateView(), nullptr) << "and can have a view again";
    paneWindow.Destroy();
    pane.OnUpdate(nullptr, HintCode::ClosePanes, nullptr);
    EXPECT_NE(pane.GetCurrentView(), nullptr) << "its window is gone";
}

TEST_F(DockViewTest, APaneThatIsDestroyedHoldsIdleWorkBack) {
    TestPane pane;
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    pane.SetInitData(7, nullptr);
    pane.GetOrCreateView();
    pane.OnDestroy();
    EXPECT_EQ(pane.GetCurrentView(), nullptr);
    EXPECT_THAT(host.idleCalls, ElementsAre(true, false));
}

TEST_F(DockViewTest, APaneKeepsNoIdentifierThatAnotherHas) {
    TestPane pane;
    TestPane other;
    EXPECT_TRUE(pane.SetInitData(7, nullptr));
    EXPECT_FALSE(other.SetInitData(7, nullptr));
    EXPECT_EQ(other.GetId(), velda::CDockViewBase::kNoId);
    EXPECT_FALSE(other.ShowDockView());
}

TEST_F(DockViewTest, ATablePaneGivesItsKindToTheView) {
    static int kindGiven = 0;
    CDockView_PreTable pane;
    velda::HeadlessDockPane paneWindow(host.queue, pane);
    const int kind = 161;
    ASSERT_TRUE(pane.SetInitData(34551, &kind));
    EXPECT_EQ(pane.GetOrCreateView(), nullptr) << "no view class is registered";
    CDockView_PreTable::RegisterView({[] { return std::unique_ptr<CTBView>(std::make_unique<TestView>()); },
                                      [](CTBView&, int given) { kindGiven = given; }});
    EXPECT_NE(pane.GetOrCreateView(), nullptr);
    EXPECT_EQ(kindGiven, 161);
    CDockView_PreTable::RegisterView({});
}

}  // namespace
}  // namespace zt
