#include "desktop/window/docked_table.h"

#include "desktop/host/qt_frames.h"
#include "desktop/window_fixture.h"
#include "zt_db/doc/hint_codes.h"
#include "zt_tb/model/tb_pre_view.h"

namespace zt {
namespace {

class DockedTableTest : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        CTBPreView::RegisterWithPanes();
        window->OpenPane(kTablePont);
        pane = window->PaneOf(kTablePont);
        ASSERT_NE(nullptr, pane);
        ASSERT_TRUE(pane->IsOpen());
    }
    void TearDown() override {
        EXPECT_EQ(velda::CDockViewBase::GetDockViewFromID(pane->GetId()), pane);
        const std::uint32_t id = pane->GetId();
        WindowFixture::TearDown();
        EXPECT_EQ(nullptr, velda::CDockViewBase::GetDockViewFromID(id)) << "the pane goes with the window";
    }

    velda::UseHost useFrames{frames};
    DockedTable* pane = nullptr;

private:
    /// The frames of panes are widgets.
    class FramesHost : public velda::HeadlessHost {
    public:
        velda::IFrames& GetFrames() override { return widgets_; }

    private:
        QtFrames widgets_;
    };
    static inline FramesHost frames;
};

TEST_F(DockedTableTest, ShowsItsViewBesideTheDocuments) {
    EXPECT_TRUE(pane->IsVisible());
    EXPECT_EQ("Node", pane->GetCurrentView()->GetTitle());
    EXPECT_EQ(pane->Holder(), window->ActiveHolder());
    EXPECT_EQ(pane->GetCurrentView(), pane->Holder()->View());
    // The frame's border falls outside.
    QTRY_COMPARE_WITH_TIMEOUT(pane->Holder()->size(), pane->Pane().Widget()->size(), 5000);
}

TEST_F(DockedTableTest, IsNotMadeTwice) {
    const CTBView* view = pane->GetCurrentView();
    window->OpenPane(kTablePont);
    EXPECT_EQ(pane, window->PaneOf(kTablePont));
    EXPECT_EQ(view, pane->GetCurrentView());
}

TEST_F(DockedTableTest, EndsItsViewWhenTheUserClosesItAndMakesItAnew) {
    EXPECT_TRUE(pane->Pane().Dock().close());
    EXPECT_FALSE(pane->IsOpen());
    EXPECT_EQ(nullptr, pane->GetCurrentView());
    EXPECT_EQ(window->Area().Active(), window->ActiveHolder());
    window->OpenPane(kTablePont);
    EXPECT_TRUE(pane->IsOpen());
    EXPECT_TRUE(pane->IsVisible());
}

TEST_F(DockedTableTest, ClosesWithTheHintForPanesAndWithItsFrame) {
    window->Document().UpdateAllViews(nullptr, HintCode::ClosePanes, nullptr);
    EXPECT_FALSE(pane->IsOpen());
    EXPECT_FALSE(pane->IsVisible());
    window->OpenPane(kTablePont);
    pane->GetCurrentView()->GetParentFrame()->Close();
    QTRY_VERIFY_WITH_TIMEOUT(!pane->GetCurrentView(), 5000);
    EXPECT_FALSE(pane->IsVisible());
}

TEST_F(DockedTableTest, MakesItsViewAnewWhenItsFrameIsGone) {
    const auto* frame = dynamic_cast<const WidgetHolder*>(pane->GetCurrentView()->GetWindow());
    delete frame->Widget();
    EXPECT_FALSE(pane->IsOpen());
    window->OpenPane(kTablePont);
    ASSERT_TRUE(pane->IsOpen());
    EXPECT_TRUE(pane->IsVisible());
    EXPECT_EQ(pane->GetCurrentView(), pane->Holder()->View());
}

TEST_F(DockedTableTest, TakesADocumentFromItsTab) {
    window->OpenTable({TableSort::Model, kTableMemb});
    const auto count = window->Area().Documents().size();
    QTRY_VERIFY_WITH_TIMEOUT(window->ActionOf("dock")->isEnabled(), 5000);
    window->ActionOf("dock")->trigger();
    EXPECT_EQ(count - 1, window->Area().Documents().size());
    ASSERT_NE(nullptr, window->PaneOf(kTableMemb));
    EXPECT_TRUE(window->PaneOf(kTableMemb)->IsOpen());
}

TEST_F(DockedTableTest, IsWrittenInTheLanguageThatIsSwitchedTo) {
    ASSERT_TRUE(window->UseLanguage(velda::Language::Korean));
    EXPECT_TRUE(pane->IsOpen());
    EXPECT_EQ(pane->GetCurrentView()->GetTitle(), CTBPreView::GetTableName(kTablePont));
    EXPECT_EQ(pane->Pane().Dock().windowTitle().toStdString(), CTBPreView::GetTableName(kTablePont));
}

TEST_F(DockedTableTest, GoesWithItsModel) {
    window->NewModel();
    EXPECT_EQ(nullptr, window->PaneOf(kTablePont));
    window->OpenPane(kTablePont);
    pane = window->PaneOf(kTablePont);
    EXPECT_TRUE(pane->IsOpen());
}

}  // namespace
}  // namespace zt
