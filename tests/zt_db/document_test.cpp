#include <functional>

#include "zt_db/post/post_ctrl.h"
#include "zt_db/test_support.h"

namespace zt {
namespace {

using Document = ModelTest;
using Keys = std::vector<std::uint32_t>;

/// A view that writes down what it is told.
class Listener final : public CDBUpdateConnector {
public:
    Listener(CDBDoc& doc, std::string name, std::vector<std::string>& log) : name_(std::move(name)), log_(log) {
        ConnectToDoc(&doc);
    }
    void OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) override {
        log_.push_back(name_ + " " + std::to_string(code) + (sender == this ? " own" : ""));
        lastIndex = hint ? hint->dbIndex : -1;
        if (react) react();
    }
    std::function<void()> react;
    int lastIndex = -2;

private:
    std::string name_;
    std::vector<std::string>& log_;
};

TEST_F(Document, IsPublishedUntilItIsClosed) {
    EXPECT_EQ(CDBDoc::m_pDBDoc, doc.get());
    auto other = CDBDoc::New();
    EXPECT_EQ(CDBDoc::m_pDBDoc, doc.get());
    other.reset();
    EXPECT_EQ(CDBDoc::m_pDBDoc, doc.get());
    doc.reset();
    EXPECT_EQ(CDBDoc::m_pDBDoc, nullptr);
}

TEST_F(Document, AnIndexLeadsToItsDatabase) {
    EXPECT_EQ(doc->GetMDBCtrl()->GetDB(CMDBCtrl::kModel), doc->GetMDBCtrl()->GetCurrentDB());
    EXPECT_EQ(doc->GetMDBCtrl()->GetDB(5), nullptr);
}

TEST_F(Document, TheResultDatabaseIsEmptyAndHarmlessWithoutResults) {
    const CPostDataBase& post = *doc->GetMDBCtrl()->GetDBPost();
    EXPECT_EQ(post.Model(), nullptr);
    EXPECT_EQ(post.Results(), nullptr);
    EXPECT_FALSE(doc->GetPostCtrl()->IsPostEnable());
}

TEST_F(Document, ViewsAreToldInsideTheTransactionInTheOrderInWhichTheyCame) {
    std::vector<std::string> log;
    Listener first(*doc, "first", log);
    Listener second(*doc, "second", log);
    int countWhenTold = -1;
    second.react = [&] { countWhenTold = Records<CClassThik>().GetCount(); };
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
    EXPECT_EQ(log, (std::vector<std::string>{"first 3", "second 3"}));
    EXPECT_EQ(countWhenTold, 1);
    EXPECT_EQ(first.lastIndex, CMDBCtrl::kModel);
    log.clear();
    EXPECT_FALSE(Records<CClassThik>().TR_Add(1, {}));
    EXPECT_TRUE(log.empty());
    Db().Undo();
    EXPECT_EQ(log, (std::vector<std::string>{"first 3", "second 3"}));
}

TEST_F(Document, AGroupTellsOnceAtItsEnd) {
    std::vector<std::string> log;
    Listener view(*doc, "view", log);
    Db().BeginGroup("two");
    Records<CClassThik>().TR_Add(1, {});
    Records<CClassThik>().TR_Add(2, {});
    EXPECT_TRUE(log.empty());
    Db().EndGroup();
    EXPECT_EQ(log.size(), 1u);
}

TEST_F(Document, AViewMayCloseItselfOrAnotherWhileItIsTold) {
    std::vector<std::string> log;
    auto first = std::make_unique<Listener>(*doc, "first", log);
    auto second = std::make_unique<Listener>(*doc, "second", log);
    Listener third(*doc, "third", log);
    first->react = [&] {
        second.reset();
        first.reset();
    };
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
    EXPECT_EQ(log, (std::vector<std::string>{"first 3", "third 3"}));
    log.clear();
    ASSERT_TRUE(Records<CClassThik>().TR_Add(2, {}));
    EXPECT_EQ(log, (std::vector<std::string>{"third 3"}));
}

TEST_F(Document, AViewOpenedWhileOthersAreToldHearsOfTheNextChange) {
    std::vector<std::string> log;
    std::unique_ptr<Listener> late;
    Listener first(*doc, "first", log);
    first.react = [&] {
        if (!late) late = std::make_unique<Listener>(*doc, "late", log);
    };
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
    EXPECT_EQ(log, (std::vector<std::string>{"first 3"}));
    ASSERT_TRUE(Records<CClassThik>().TR_Add(2, {}));
    EXPECT_EQ(log, (std::vector<std::string>{"first 3", "first 3", "late 3"}));
}

TEST_F(Document, NoChangeBeginsWhileTheLastOneIsShown) {
    std::vector<std::string> log;
    Listener view(*doc, "view", log);
    std::string reason;
    view.react = [&] {
        EXPECT_FALSE(Records<CClassThik>().TR_Add(2, {}));
        reason = Db().GetLastReason();
        EXPECT_EQ(Db().Undo(), 0);
    };
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
    EXPECT_EQ(reason, "The last change is still being shown; the model cannot be changed at this moment.");
    EXPECT_EQ(Records<CClassThik>().GetCount(), 1);
    view.react = nullptr;
    EXPECT_TRUE(Records<CClassThik>().TR_Add(2, {}));
}

TEST_F(Document, AViewThatFailsLeavesTheChangeMadeAndTheModelUsable) {
    std::vector<std::string> log;
    Listener view(*doc, "view", log);
    view.react = [] { throw std::invalid_argument("row"); };
    EXPECT_THROW(Records<CClassThik>().TR_Add(1, {}), std::invalid_argument);
    view.react = nullptr;
    EXPECT_TRUE(Records<CClassThik>().Exist(1));
    EXPECT_TRUE(Records<CClassThik>().TR_Add(2, {}));
    EXPECT_EQ(Db().GetUndoNames().size(), 2u);
}

TEST_F(Document, AViewMayOutliveTheDocument) {
    std::vector<std::string> log;
    Listener view(*doc, "view", log);
    doc.reset();
    view.DisconnectFromDoc();
    EXPECT_TRUE(log.empty());
}

TEST_F(Document, SidesOfTheApplicationAreSwitchedWithAHint) {
    std::vector<std::string> log;
    Listener view(*doc, "view", log);
    EXPECT_TRUE(doc->IsPreMode());
    doc->SetModePost();
    EXPECT_TRUE(doc->IsPostMode());
    EXPECT_FALSE(doc->IsPreMode());
    doc->SetModePre();
    EXPECT_EQ(log, (std::vector<std::string>{"view 8", "view 7"}));
}

TEST_F(Document, KeepsTheStateOfTheTracerAndTheRun) {
    EXPECT_FALSE(doc->IsTracerMode());
    doc->StartTracerMode();
    EXPECT_TRUE(doc->IsTracerMode());
    doc->EndTracerMode();
    EXPECT_FALSE(doc->IsTracerMode());
    doc->SetTableID4Checker(12);
    EXPECT_EQ(doc->GetTableID4Checker(), 12);
    doc->SetCheckMode(28);
    EXPECT_EQ(doc->GetCheckMode(), 28);
    EXPECT_FALSE(doc->IsExcuted());
    doc->SetExcuted(1);
    EXPECT_TRUE(doc->IsExcuted());
}

TEST_F(Document, UnitSwitchesAreToldWhenAskedFor) {
    std::vector<std::string> log;
    Listener view(*doc, "view", log);
    T_UNIT_INDEX index;
    doc->GetUnitCtrl()->GetUnitIndexCurrent(index);
    index.length = 1;
    EXPECT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(index));
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(index, 1));
    EXPECT_EQ(log, (std::vector<std::string>{"view 4"}));
}

// ---- selection

using SelectionState = ModelTest;

TEST_F(SelectionState, APushReplacesTheSelectionAndTellsWhatLeftAndWhatCame) {
    std::vector<std::string> log;
    Listener view(*doc, "view", log);
    CViewCtrl& control = *Db().GetViewCtrl();
    control.SelectPont(nullptr, {1, 2, 3});
    EXPECT_EQ(log, (std::vector<std::string>{"view 5"}));
    log.clear();
    Keys current;
    Keys leaving;
    view.react = [&] { control.GetCurrentPont(log.size() == 1 ? leaving : current); };
    control.SelectPont(&view, {2, 3, 4});
    EXPECT_EQ(log, (std::vector<std::string>{"view 6 own", "view 5 own"}));
    EXPECT_EQ(leaving, (Keys{1}));
    EXPECT_EQ(current, (Keys{4}));
    Keys all;
    EXPECT_EQ(control.GetAllSelectedPont(all), 3);
    EXPECT_EQ(all, (Keys{2, 3, 4}));
    EXPECT_TRUE(control.IsExistPont(4));
    EXPECT_FALSE(control.IsExistPont(1));
    EXPECT_EQ(control.GetLastPush().sender, &view);
    EXPECT_EQ(control.GetLastPush().nodes, (Keys{2, 3, 4}));
    EXPECT_EQ(control.GetPushCount(), 2u);
}

TEST_F(SelectionState, NodesAndMembersAreSelectedApartOrTogether) {
    CViewCtrl& control = *Db().GetViewCtrl();
    Keys keys;
    control.SelectPont(nullptr, {1});
    control.SelectMemb(nullptr, {7, 7, 0});
    EXPECT_EQ(control.GetAllSelectedMemb(keys), 1);
    EXPECT_TRUE(control.IsExistPont(1));
    control.SelectPMemb(nullptr, {8});
    EXPECT_TRUE(control.IsExistMemb(8));
    EXPECT_FALSE(control.IsExistMemb(7));
    control.Select(nullptr, {}, {9});
    EXPECT_FALSE(control.IsExistPont(1));
    EXPECT_TRUE(control.IsExistMemb(9));
    EXPECT_EQ(control.GetCurrentMemb(keys), 1);
}

TEST_F(SelectionState, APushOfWhatIsSelectedAlreadyTellsNothing) {
    std::vector<std::string> log;
    Listener view(*doc, "view", log);
    Db().GetViewCtrl()->SelectPont(nullptr, {1});
    Db().GetViewCtrl()->SelectPont(nullptr, {1});
    EXPECT_EQ(log.size(), 1u);
}

TEST_F(SelectionState, DeletedRecordsLeaveTheSelection) {
    ASSERT_TRUE(Records<CClassPont>().TR_Add(Keys{1, 2}, std::vector<T_PONT_D>(2)));
    ASSERT_TRUE(Records<CClassMemb>().TR_Add(5, T_MEMB_D{.nodes = {1, 2}}));
    Db().GetViewCtrl()->Select(nullptr, {1, 2}, {5});
    ASSERT_TRUE(Records<CClassPont>().TR_Del(1));
    EXPECT_FALSE(Db().GetViewCtrl()->IsExistPont(1));
    EXPECT_TRUE(Db().GetViewCtrl()->IsExistPont(2));
    EXPECT_FALSE(Db().GetViewCtrl()->IsExistMemb(5));
}

}  // namespace
}  // namespace zt
