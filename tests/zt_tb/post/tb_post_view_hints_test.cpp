#include "zt_db/records/rstp.h"
#include "zt_tb/post/post_view_fixture.h"
#include "zt_tb/post/tb_post_node.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

using PostViewHints = PostViewTest;

using Ids = std::vector<int>;

/// What the document says, and the tables that close on it.
struct ClosingHint {
    int code;
    std::string text;
    Ids closed;
};

Ids OpenableTables() {
    Ids ids;
    for (const ResultTableEntry& table : ResultTables()) {
        if (!table.operation.empty()) ids.push_back(table.id);
    }
    return ids;
}

const std::vector<ClosingHint>& ClosingHints() {
    static const Ids kModel{43, 44, 45, 46};
    static const Ids kFactors{49, 50, 51, 52, 53};
    static const std::vector<ClosingHint> kHints = {
        {0, "", kModel},
        {1, "", kModel},
        {3, "", kModel},
        {4, "", {}},
        {5, "", {}},
        {6, "", {}},
        {7, "", OpenableTables()},
        {8, "", {}},
        {9, "", {}},
        {10, "", {}},
        {12, "", kModel},
        {13, "", kFactors},
        {14, "", {49, 50, 51, 52, 53, 91, 92, 93, 94}},
        {15, "", kFactors},
        {20, "", OpenableTables()},
        {27, "", {}},
        {30, "", {}},
        {39, "", {}},
        {39, "FINISH_STSR_TABLE", {29}},
        {39, "FINISH_STAB_TABLE", {35}},
        {39, "FINISH_YIELD_TABLE", {36}},
        {39, "FINISH_STMASS_TABLE", {61}},
        {39, "FINISH_MAXFCT_TABLE", kFactors},
        {39, "FINISH_OVTN_TABLE", {18}},
        {39, "FINISH_FORCE_FRAME_TABLE", {48}},
        {39, "FINISH_FORCE_FRAME", {}},
        // A text closes as a command by text only.
        {13, "FINISH_OVTN_TABLE", kFactors},
        {4, "FINISH_OVTN_TABLE", {}},
    };
    return kHints;
}

TEST_F(PostViewHints, EachHintClosesItsTablesAndNoOther) {
    std::vector<Ids> closed(ClosingHints().size());
    for (const int id : OpenableTables()) {
        CTBPostView one;
        velda::HeadlessWindow ofOne(host.queue);
        one.SetWindow(&ofOne);
        ASSERT_TRUE(one.AddTable(id)) << id;
        for (std::size_t at = 0; at < ClosingHints().size(); ++at) {
            velda::HeadlessFrame itsFrame(host.queue);
            ofOne.SetParentFrame(&itsFrame);
            T_UPDATE_HINT hint;
            hint.text = ClosingHints()[at].text;
            doc->UpdateAllViews(nullptr, ClosingHints()[at].code, &hint);
            if (!itsFrame.IsOpen()) closed[at].push_back(id);
        }
        ofOne.SetParentFrame(nullptr);
    }
    for (std::size_t at = 0; at < ClosingHints().size(); ++at) {
        const ClosingHint& hint = ClosingHints()[at];
        EXPECT_EQ(hint.closed, closed[at]) << hint.code << " " << hint.text;
    }
}

TEST_F(PostViewHints, HintsWithoutAnObjectAreTaken) {
    view.AddDispView();
    for (const ClosingHint& hint : ClosingHints()) {
        if (hint.closed != OpenableTables()) view.OnUpdate(nullptr, hint.code, nullptr);
    }
    EXPECT_TRUE(frame.IsOpen());
}

TEST_F(PostViewHints, AViewWithoutATableStaysOpen) {
    for (const ClosingHint& hint : ClosingHints()) {
        if (hint.code == HintCode::PostDatabaseChanged) continue;
        T_UPDATE_HINT object;
        object.text = hint.text;
        view.OnUpdate(nullptr, hint.code, &object);
        EXPECT_TRUE(frame.IsOpen()) << hint.code;
    }
}

/// A source that counts what the view tells it.
class Listener final : public CTBPostDisp {
public:
    using CTBPostDisp::CTBPostDisp;
    void AfterRedrawTable() override { ++redraws; }
    void OnRestrictionChanged() override { ++restrictions; }
    void OnDgnForceChanged() override { ++designs; }

    int redraws = 0;
    int restrictions = 0;
    int designs = 0;
};

/// Puts a listener in place of the source of a tab.
Listener& ListenAt(CTBPostView& view, int tab) {
    auto made = std::make_unique<Listener>(tab);
    Listener& listener = *made;
    view.GridOf(tab)->SetDataSrc(std::move(made));
    return listener;
}

TEST_F(PostViewHints, ADriftRestrictionReachesTheTablesThatShowIt) {
    std::vector<int> told;
    std::vector<int> redrawn;
    for (const int id : OpenableTables()) {
        CTBPostView one;
        ASSERT_TRUE(one.AddTable(id)) << id;
        if (IsModelTable(id)) continue;
        for (const int tab : TabsOf(*FindResultTable(id))) {
            if (!one.GridOf(tab)) continue;
            const Listener& listener = ListenAt(one, tab);
            ASSERT_TRUE(Records<CClassRstp>().TR_Add(1, T_RSTP_D{}));
            if (listener.restrictions > 0) told.push_back(tab);
            if (listener.redraws > 0) redrawn.push_back(tab);
            // Other records say nothing.
            const int before = listener.restrictions + listener.redraws;
            ASSERT_TRUE(Records<CClassMatl>().TR_Add(99, T_MATL_D{.name = "N"}));
            EXPECT_EQ(before, listener.restrictions + listener.redraws) << tab;
            ASSERT_TRUE(Records<CClassRstp>().TR_Del(1));
            EXPECT_EQ(2 * before, listener.restrictions + listener.redraws) << tab;
            ASSERT_TRUE(Records<CClassMatl>().TR_Del(99));
        }
    }
    EXPECT_THAT(redrawn, ElementsAre(19));
    EXPECT_THAT(told, ElementsAre(25, 27, 28, 30, 31, 32, 35, 36, 37, 38, 39));
}

TEST_F(PostViewHints, ChangedDesignForcesReachEveryTab) {
    view.AddMembForceView();
    std::vector<const Listener*> listeners;
    for (const int tab : Tabs()) listeners.push_back(&ListenAt(view, tab));
    ASSERT_EQ(3u, listeners.size());
    doc->UpdateAllViews(nullptr, HintCode::DesignForceChanged, nullptr);
    for (const Listener* listener : listeners) EXPECT_EQ(1, listener->designs);
}

}  // namespace
}  // namespace zt
