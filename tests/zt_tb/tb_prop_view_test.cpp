#include "zt_tb/model/tb_prop_view.h"

#include "velda_base/host/headless_host.h"
#include "velda_lib/language.h"
#include "zt_db/records/pont.h"
#include "zt_tb/model/tb_thik.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

class TBPropViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        velda::SetCurrentLanguage(velda::Language::English);
        doc_->MakeCurrent();
        Add(3, "W200");
        Add(7, "W150");
    }
    void TearDown() override { CDBDoc::m_pDBDoc = nullptr; }

    void Add(std::uint32_t key, const std::string& name) {
        T_THIK_D record;
        record.name = name;
        ASSERT_TRUE(CTBCommonWnd::GetDB()->GetClass<CClassThik>()->TR_Add(key, record));
    }
    static CTBThik& TableOf(const CTBView& view) { return dynamic_cast<CTBThik&>(*view.GetActiveGrid()); }

    std::unique_ptr<CDBDoc> doc_ = CDBDoc::New();
};

TEST_F(TBPropViewTest, ListsItsTablesInTheOrderOfTheirKinds) {
    int last = 0;
    for (const CTBPropView::TableEntry& entry : CTBPropView::Tables()) {
        EXPECT_GT(entry.kind, last);
        last = entry.kind;
    }
    EXPECT_EQ(CTBPropView::kThickness, last);
}

TEST_F(TBPropViewTest, ShowsATabForEachTableWithTheAskedOneInFront) {
    CTBPropView view;
    ASSERT_TRUE(view.OpenProperties(CTBPropView::kThickness));
    EXPECT_EQ(static_cast<int>(CTBPropView::Tables().size()), view.GetTabCount());
    EXPECT_EQ("Thickness", view.GetTabLabel(view.GetCurrentTab()));
    EXPECT_EQ("Properties", view.GetTitle());
    EXPECT_THAT(TableOf(view).ShownKeys(), ElementsAre(3, 7));
}

TEST_F(TBPropViewTest, HasATableForEachTab) {
    for (const CTBPropView::TableEntry& entry : CTBPropView::Tables()) EXPECT_NE(entry.make, nullptr) << entry.mnemonic;
}

TEST_F(TBPropViewTest, ShowsAllTabsWhicheverKindIsAskedFor) {
    const std::vector<std::pair<int, std::string>> kinds = {{CTBPropView::kMaterial, "Material"},
                                                            {CTBPropView::kSection, "Section"},
                                                            {CTBPropView::kThickness, "Thickness"}};
    for (const auto& [kind, title] : kinds) {
        CTBPropView view;
        ASSERT_TRUE(view.OpenProperties(kind));
        EXPECT_EQ(view.GetTabCount(), 3);
        EXPECT_EQ(view.GetTabLabel(view.GetCurrentTab()), title);
        std::vector<velda::CTBGrid*> grids;
        EXPECT_EQ(view.GetAllGrid(grids), 3);
    }
}

TEST_F(TBPropViewTest, OpensOneTableAloneWithoutTabs) {
    CTBPropView materials;
    EXPECT_TRUE(materials.OninitialUpdateMatl(doc_.get(), {}));
    EXPECT_EQ(materials.GetActiveGrid()->GetTableName(), "TBMatl");
    CTBPropView sections;
    EXPECT_TRUE(sections.OninitialUpdateSect(doc_.get(), {}));
    EXPECT_EQ(sections.GetActiveGrid()->GetTableName(), "TBSect");
    CTBPropView view;
    EXPECT_FALSE(view.OnInitialUpdateThik(nullptr, {}));
    ASSERT_TRUE(view.OnInitialUpdateThik(doc_.get(), {0, 0, 40, 30}));
    EXPECT_EQ(view.GetTabCount(), 0);
    EXPECT_EQ(TableOf(view).Place(), (velda::WindowRect{0, 0, 40, 30}));
    EXPECT_THAT(TableOf(view).ShownKeys(), ElementsAre(3, 7));
}

TEST_F(TBPropViewTest, WaitsForAModel) {
    CTBPropView view;
    view.OnInitialUpdate();
    EXPECT_EQ(view.GetTabCount(), 0) << "no kind is known";
    CDBDoc::m_pDBDoc = nullptr;
    EXPECT_FALSE(view.OpenProperties(CTBPropView::kThickness));
    doc_->MakeCurrent();
    view.OnInitialUpdate();
    EXPECT_EQ(view.GetTabCount(), 3);
    view.OnInitialUpdate();
    EXPECT_EQ(view.GetTabCount(), 3);
}

TEST_F(TBPropViewTest, MakesNothingForAKindWithoutATable) {
    for (const int kind : {-1, 0, 4}) {
        CTBPropView view;
        EXPECT_FALSE(view.OpenProperties(kind)) << kind;
        EXPECT_EQ(0, view.GetTabCount());
        EXPECT_EQ(nullptr, view.GetActiveGrid());
    }
}

TEST_F(TBPropViewTest, FollowsTheDocumentUntilItIsClosed) {
    auto view = std::make_unique<CTBPropView>();
    ASSERT_TRUE(view->OpenProperties(CTBPropView::kThickness));
    Add(5, "W180");
    EXPECT_THAT(TableOf(*view).ShownKeys(), ElementsAre(3, 5, 7));
    view.reset();
    Add(9, "W90");
}

TEST_F(TBPropViewTest, ShowsTheRecordsUnderTheKeysOfSelectedNodes) {
    T_PONT_D node;
    const std::vector<std::uint32_t> keys{7, 3};
    ASSERT_TRUE(CTBCommonWnd::GetDB()->GetClass<CClassPont>()->TR_Add(keys, {node, node}));
    Add(5, "W180");
    CTBCommonWnd::GetDB()->GetViewCtrl()->SelectPont(nullptr, keys);
    CTBPropView view;
    ASSERT_TRUE(view.OpenProperties(CTBPropView::kThickness));
    EXPECT_THAT(TableOf(view).ShownKeys(), ElementsAre(3, 7));
}

TEST_F(TBPropViewTest, ShowsNoRecordWithoutASelectionUnlessAllAreAskedFor) {
    CTBPropView view;
    ASSERT_TRUE(view.SetTable(CTBPropView::kThickness));
    EXPECT_THAT(TableOf(view).ShownKeys(), ElementsAre());
    CTBPropView all;
    ASSERT_TRUE(all.OpenProperties(CTBPropView::kThickness));
    EXPECT_THAT(TableOf(all).ShownKeys(), ElementsAre(3, 7));
}

TEST_F(TBPropViewTest, IsDrawnOnceAsItIsFilledAndOnceMoreInFront) {
    CTBPropView view;
    ASSERT_TRUE(view.OpenProperties(CTBPropView::kThickness));
    EXPECT_EQ(2u, TableOf(view).RedrawCount());
    EXPECT_FALSE(TableOf(view).IsUpdateLocked());
}

TEST_F(TBPropViewTest, OpensLockedWhileResultsAreCurrent) {
    doc_->SetExcuted(1);
    CTBPropView view;
    ASSERT_TRUE(view.OpenProperties(CTBPropView::kThickness));
    EXPECT_TRUE(TableOf(view).IsEditModeLocked());
}

/// A view that writes down what stood in the table in front as its tables were locked.
class LockingPropView : public CTBPropView {
public:
    void SetTableReadOnlyMode(int flag) override {
        rowsThen = TableOf(*this).RecordRowCount();
        drawingHeldThen = TableOf(*this).IsUpdateLocked();
        CTBPropView::SetTableReadOnlyMode(flag);
    }
    int rowsThen = -1;
    bool drawingHeldThen = false;

private:
    static CTBThik& TableOf(const CTBView& view) { return dynamic_cast<CTBThik&>(*view.GetActiveGrid()); }
};

TEST_F(TBPropViewTest, LocksItsTablesOnceAllAreFilled) {
    LockingPropView view;
    ASSERT_TRUE(view.OpenProperties(CTBPropView::kThickness));
    EXPECT_EQ(2, view.rowsThen);
    EXPECT_TRUE(view.drawingHeldThen);
}

TEST_F(TBPropViewTest, StaysOpenOnAModeSwitch) {
    velda::HeadlessHost host;
    const velda::UseHost use(host);
    velda::HeadlessFrame frame(host.queue);
    velda::HeadlessWindow window(host.queue);
    window.SetParentFrame(&frame);
    CTBPropView view;
    view.SetWindow(&window);
    ASSERT_TRUE(view.OpenProperties(CTBPropView::kThickness));
    doc_->SetModePost();
    doc_->SetModePre();
    EXPECT_TRUE(frame.IsOpen());
    EXPECT_THAT(TableOf(view).ShownKeys(), ElementsAre(3, 7));
}

TEST_F(TBPropViewTest, ShowsKeyZeroAsAnEmptyText) {
    CTBPropView view;
    ASSERT_TRUE(view.OpenProperties(CTBPropView::kThickness));
    T_THIK_D record;
    record.name = "W1";
    record.thickness = 1.0 / 3.0;
    EXPECT_THAT(TableOf(view).SortKeyTexts(0, record), ElementsAre(""));
    EXPECT_THAT(TableOf(view).SortKeyTexts(12, record), ElementsAre("12"));
    EXPECT_THAT(TableOf(view).TextsOf({0, record}), ElementsAre("", "W1", "0.333333333333333"));
}

}  // namespace
}  // namespace zt
