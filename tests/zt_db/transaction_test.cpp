#include <limits>
#include <map>
#include <random>

#include "zt_db/test_support.h"

namespace zt {
namespace {

using Transaction = ModelTest;
using Keys = std::vector<std::uint32_t>;
using Texts = std::vector<std::string>;

/// Takes everything that a refused transaction must leave alone.
class Untouched {
public:
    explicit Untouched(CDataBase& database) : database_(database), before_(Describe()) {}
    bool Holds() const { return Describe() == before_; }

private:
    std::string Describe() const {
        std::string text;
        for (std::uint16_t i = 0; i < database_.ClassCount(); ++i) {
            const RecordStoreBase& store = database_.StoreAt(i);
            const auto images = store.NewImages();
            for (const std::uint32_t key : store.SortedKeys()) {
                const std::uint32_t image = store.CopyTo(key, *images);
                text += std::to_string(key) + ":";
                for (int column = 0; column < static_cast<int>(store.ColumnNames().size()); ++column) {
                    text += images->FieldText(image, column) + "|";
                }
            }
            text += "\n";
        }
        for (const std::string& name : database_.GetUndoNames()) text += name + "\n";
        return text + std::to_string(database_.GetViewBuff()->Count());
    }
    CDataBase& database_;
    std::string before_;
};

#define EXPECT_REFUSED(call, reason)             \
    do {                                         \
        const Untouched untouched(Db());         \
        EXPECT_FALSE(call);                      \
        EXPECT_EQ(Db().GetLastReason(), reason); \
        EXPECT_TRUE(untouched.Holds());          \
    } while (false)

TEST_F(Transaction, KeysAreValidated) {
    auto& thik = Records<CClassThik>();
    ASSERT_TRUE(thik.TR_Add(Keys{1, 2}, std::vector<T_THIK_D>(2)));
    EXPECT_REFUSED(thik.TR_Add(0, {}), "Thickness: a key must be greater than 0.");
    EXPECT_REFUSED(thik.TR_Add(2, {}), "Thickness 2 already exists.");
    EXPECT_REFUSED(thik.TR_Add(Keys{5, 5}, std::vector<T_THIK_D>(2)), "Thickness 5 is named twice.");
    EXPECT_REFUSED(thik.TR_Add(Keys{5}, std::vector<T_THIK_D>(2)), "There are not as many records as keys.");
    EXPECT_REFUSED(thik.TR_Del(9), "Thickness 9 does not exist.");
    EXPECT_REFUSED(thik.TR_Del(Keys{1, 1}), "Thickness 1 is named twice.");
    EXPECT_REFUSED(thik.TR_Modify(9, 9, {}), "Thickness 9 does not exist.");
    EXPECT_REFUSED(thik.TR_Modify(1, 2, {}), "Thickness 2 already exists.");
    EXPECT_REFUSED(thik.TR_Modify(1, 0, {}), "Thickness: a key must be greater than 0.");
    EXPECT_REFUSED(thik.TR_Modify(Keys{1, 2}, Keys{7, 7}, std::vector<T_THIK_D>(2)), "Thickness 7 is named twice.");
    EXPECT_REFUSED(thik.TR_Modify(Keys{1, 1}, Keys{7, 8}, std::vector<T_THIK_D>(2)), "Thickness 1 is named twice.");
}

TEST_F(Transaction, ABatchOfNothingIsNoStep) {
    EXPECT_TRUE(Records<CClassThik>().TR_Del(Keys{}));
    EXPECT_TRUE(Records<CClassThik>().TR_Add(Keys{}, {}));
    EXPECT_TRUE(Records<CClassThik>().TR_Modify(Keys{}, Keys{}, {}));
    EXPECT_TRUE(Db().GetUndoNames().empty());
    EXPECT_EQ(Db().GetTransactionCount(), 0u);
}

TEST_F(Transaction, ABatchMaySwapKeys) {
    auto& thik = Records<CClassThik>();
    ASSERT_TRUE(thik.TR_Add(Keys{3, 7}, {T_THIK_D{.name = "three"}, T_THIK_D{.name = "seven"}}));
    ASSERT_TRUE(thik.TR_Modify(Keys{3, 7}, Keys{7, 3}, {T_THIK_D{.name = "three"}, T_THIK_D{.name = "seven"}}));
    EXPECT_EQ(Changes(), (Texts{"THIK MFD 7", "THIK MFS 3", "THIK MFD 3", "THIK MFS 7"}));
    T_THIK_D record;
    ASSERT_TRUE(thik.Get(7, record));
    EXPECT_EQ(record.name, "three");
    ASSERT_EQ(Db().Undo(), 1);
    ASSERT_TRUE(thik.Get(7, record));
    EXPECT_EQ(record.name, "seven");
}

TEST_F(Transaction, ABatchMayMoveARecordToAKeyThatItFrees) {
    auto& thik = Records<CClassThik>();
    ASSERT_TRUE(thik.TR_Add(Keys{1, 2, 3}, std::vector<T_THIK_D>(3)));
    ASSERT_TRUE(thik.TR_Modify(Keys{1, 2, 3}, Keys{2, 3, 4}, std::vector<T_THIK_D>(3)));
    EXPECT_FALSE(thik.Exist(1));
    EXPECT_TRUE(thik.Exist(4));
}

TEST_F(Transaction, ReferencesAreNoneOrExist) {
    auto& nodes = Records<CClassPont>();
    EXPECT_TRUE(nodes.TR_Add(1, T_PONT_D{.story = 0}));
    EXPECT_REFUSED(nodes.TR_Add(2, T_PONT_D{.story = 4}), "Node 2 refers to Story 4, which does not exist.");
    EXPECT_REFUSED(nodes.TR_Modify(1, 1, T_PONT_D{.story = 4}), "Node 1 refers to Story 4, which does not exist.");
    EXPECT_REFUSED(Records<CClassMemb>().TR_Add(1, T_MEMB_D{.nodes = {1, 8}}),
                   "Member 1 refers to Node 8, which does not exist.");
    EXPECT_REFUSED(Records<CClassLcom>().TR_Add(1, T_LCOM_D{.items = {{LoadCaseKind::Static, 2, 1.0}}}),
                   "Load Combination 1 refers to Static Load Case 2, which does not exist.");
}

TEST_F(Transaction, ThePropertyOfAMemberIsAThicknessOrASectionByItsType) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(5, {}));
    EXPECT_TRUE(Records<CClassMemb>().TR_Add(1, T_MEMB_D{.type = 202, .prop = 5}));
    EXPECT_REFUSED(Records<CClassMemb>().TR_Add(2, T_MEMB_D{.type = 101, .prop = 5}),
                   "Member 2 refers to Section 5, which does not exist.");
}

TEST_F(Transaction, RecordsOfOneBatchMayReferToEachOther) {
    ASSERT_TRUE(Records<CClassStld>().TR_Add(1, T_STLD_D{.name = "D"}));
    EXPECT_TRUE(Records<CClassLcom>().TR_Add(
        Keys{1, 2}, {T_LCOM_D{.items = {{LoadCaseKind::Combination, 2, 1.0}}}, T_LCOM_D{.items = {{1, 1, 1.4}}}}));
}

TEST_F(Transaction, ACombinationMayNotContainItself) {
    auto& combinations = Records<CClassLcom>();
    ASSERT_TRUE(combinations.TR_Add(Keys{1, 2}, {T_LCOM_D{.name = "A"}, T_LCOM_D{.items = {{10, 1, 1.0}}}}));
    EXPECT_REFUSED(combinations.TR_Modify(1, 1, T_LCOM_D{.name = "A", .items = {{10, 1, 1.0}}}),
                   "Load Combination 1 would contain itself: A > A.");
    EXPECT_REFUSED(combinations.TR_Modify(1, 1, T_LCOM_D{.name = "A", .items = {{10, 2, 1.0}}}),
                   "Load Combination 1 would contain itself: A > 2 > A.");
    ASSERT_TRUE(combinations.TR_Add(3, T_LCOM_D{.name = "C", .items = {{10, 2, 1.0}, {10, 1, 1.0}}}));
    EXPECT_REFUSED(combinations.TR_Modify(1, 1, T_LCOM_D{.name = "A", .items = {{10, 3, 1.0}}}),
                   "Load Combination 1 would contain itself: A > C > A.");
    ASSERT_TRUE(combinations.TR_Add(4, T_LCOM_D{.name = "E", .items = {{10, 2, 1.0}}}));
    EXPECT_REFUSED(combinations.TR_Modify(1, 1, T_LCOM_D{.name = "A", .items = {{10, 4, 1.0}}}),
                   "Load Combination 1 would contain itself: A > E > 2 > A.");
}

TEST_F(Transaction, ValuesAreFinite) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_REFUSED(Records<CClassThik>().TR_Add(4, T_THIK_D{.thickness = infinite}),
                   "Thickness 4: the value of \"thickness\" is not a finite number.");
    T_SECT_D section;
    section.base.size[8] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_REFUSED(Records<CClassSect>().TR_Add(1, section),
                   "Section 1: the value of \"base_size\" is not a finite number.");
}

TEST_F(Transaction, NumbersAreUniqueAndMayBeSwappedInOneBatch) {
    auto& nodes = Records<CClassPont>();
    ASSERT_TRUE(nodes.TR_Add(Keys{1, 2}, {T_PONT_D{.no = 3}, T_PONT_D{.no = 7}}));
    EXPECT_REFUSED(nodes.TR_Add(9, T_PONT_D{.no = 7}), "Node number 7 is already in use.");
    EXPECT_REFUSED(nodes.TR_Modify(1, 1, T_PONT_D{.no = 7}), "Node number 7 is already in use.");
    ASSERT_TRUE(nodes.TR_Modify(Keys{1, 2}, Keys{1, 2}, {T_PONT_D{.no = 7}, T_PONT_D{.no = 3}}));
    EXPECT_EQ(nodes.GetPontKeyByNo(7), 1u);
    EXPECT_EQ(nodes.GetPontKeyByNo(3), 2u);
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_EQ(nodes.GetPontKeyByNo(7), 2u);
    EXPECT_EQ(nodes.GetPontKeyByNo(3), 1u);
}

TEST_F(Transaction, DeletingANodeTakesWhatCannotExistWithoutIt) {
    ASSERT_TRUE(Records<CClassPont>().TR_Add(Keys{1, 2, 3}, std::vector<T_PONT_D>(3)));
    ASSERT_TRUE(Records<CClassMemb>().TR_Add(Keys{10, 11}, {T_MEMB_D{.nodes = {1, 2}}, T_MEMB_D{.nodes = {2, 3}}}));
    ASSERT_TRUE(Records<CClassMbtp>().TR_Add(50, T_MBTP_D{.memb = 10}));
    ASSERT_TRUE(Records<CClassPrel>().TR_Add(60, T_PREL_D{.memb = 10}));
    ASSERT_TRUE(Records<CClassName>().TR_Add(70, T_NAME_D{.name = "nodes", .keys = {1, 3}}));
    ASSERT_TRUE(Records<CClassName>().TR_Add(71, T_NAME_D{.name = "members", .type = 200, .keys = {10, 11}}));
    const std::uint64_t before = Db().GetTransactionCount();

    ASSERT_TRUE(Records<CClassPont>().TR_Del(1));
    EXPECT_EQ(Db().GetTransactionCount(), before + 1);
    EXPECT_EQ(Changes(), (Texts{"NAME MFD 70", "NAME MFS 70", "NAME MFD 71", "NAME MFS 71", "PREL DEL 60",
                                "MBTP DEL 50", "MEMB DEL 10", "PONT DEL 1"}));
    T_NAME_D group;
    ASSERT_TRUE(Records<CClassName>().Get(70, group));
    EXPECT_EQ(group.keys, (Keys{3}));
    ASSERT_TRUE(Records<CClassName>().Get(71, group));
    EXPECT_EQ(group.keys, (Keys{11}));
    EXPECT_EQ(Db().GetUndoNames().front(), "Delete Node");

    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_EQ(Changes(), (Texts{"PONT ADD 1", "MEMB ADD 10", "MBTP ADD 50", "PREL ADD 60", "NAME MFD 71", "NAME MFS 71",
                                "NAME MFD 70", "NAME MFS 70"}));
    ASSERT_TRUE(Records<CClassName>().Get(70, group));
    EXPECT_EQ(group.keys, (Keys{1, 3}));
    EXPECT_TRUE(Records<CClassMbtp>().Exist(50));
}

TEST_F(Transaction, WhatIsInUseIsNotDeleted) {
    ASSERT_TRUE(Records<CClassMatl>().TR_Add(1, {}));
    ASSERT_TRUE(Records<CClassMemb>().TR_Add(Keys{4, 5}, {T_MEMB_D{.no = 40, .matl = 1}, T_MEMB_D{.no = 50}}));
    EXPECT_REFUSED(Records<CClassMatl>().TR_Del(1), "Material 1 cannot be deleted: Member 40 uses it.");
    ASSERT_TRUE(Records<CClassMemb>().TR_Del(4));
    EXPECT_TRUE(Records<CClassMatl>().TR_Del(1));
}

TEST_F(Transaction, ReferencesFollowAKeyThatChanges) {
    ASSERT_TRUE(Records<CClassPont>().TR_Add(Keys{1, 2}, std::vector<T_PONT_D>(2)));
    ASSERT_TRUE(Records<CClassMemb>().TR_Add(5, T_MEMB_D{.nodes = {1, 2}}));
    T_PONT_D node;
    ASSERT_TRUE(Records<CClassPont>().Get(1, node));
    ASSERT_TRUE(Records<CClassPont>().TR_Modify(1, 9, node));
    EXPECT_EQ(Changes(), (Texts{"PONT MFD 9", "PONT MFS 1", "MEMB MFD 5", "MEMB MFS 5"}));
    T_MEMB_D member;
    ASSERT_TRUE(Records<CClassMemb>().Get(5, member));
    EXPECT_EQ(member.nodes, (Keys{9, 2}));
    ASSERT_EQ(Db().Undo(), 1);
    ASSERT_TRUE(Records<CClassMemb>().Get(5, member));
    EXPECT_EQ(member.nodes, (Keys{1, 2}));
}

TEST_F(Transaction, ReferencesFollowKeysThatSwap) {
    ASSERT_TRUE(Records<CClassMatl>().TR_Add(Keys{1, 2}, {T_MATL_D{.name = "A"}, T_MATL_D{.name = "B"}}));
    ASSERT_TRUE(Records<CClassMemb>().TR_Add(Keys{1, 2}, {T_MEMB_D{.matl = 1}, T_MEMB_D{.matl = 2}}));
    ASSERT_TRUE(
        Records<CClassMatl>().TR_Modify(Keys{1, 2}, Keys{2, 1}, {T_MATL_D{.name = "A"}, T_MATL_D{.name = "B"}}));
    T_MEMB_D member;
    ASSERT_TRUE(Records<CClassMemb>().Get(1, member));
    EXPECT_EQ(member.matl, 2u);
    ASSERT_TRUE(Records<CClassMemb>().Get(2, member));
    EXPECT_EQ(member.matl, 1u);
}

TEST_F(Transaction, UndoAndRedoTakeTheSameRoadBackAndForth) {
    auto& thik = Records<CClassThik>();
    ASSERT_TRUE(thik.TR_Add(1, T_THIK_D{.name = "A"}));
    ASSERT_TRUE(thik.TR_Modify(1, 4, T_THIK_D{.name = "B"}));
    ASSERT_TRUE(thik.TR_Del(4));
    EXPECT_EQ(Db().GetUndoNames(), (Texts{"Delete Thickness", "Modify Thickness", "Add Thickness"}));
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_EQ(Changes(), (Texts{"THIK ADD 4"}));
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_EQ(Changes(), (Texts{"THIK MFD 1", "THIK MFS 4"}));
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_EQ(Changes(), (Texts{"THIK DEL 1"}));
    EXPECT_EQ(Db().Undo(), 0);
    EXPECT_EQ(Db().GetLastReason(), "There is nothing to undo.");
    EXPECT_EQ(Db().GetRedoNames(), (Texts{"Add Thickness", "Modify Thickness", "Delete Thickness"}));
    EXPECT_EQ(Db().Redo(2), 2);
    EXPECT_EQ(Changes(), (Texts{"THIK MFD 4", "THIK MFS 1"}));
    EXPECT_EQ(Db().Redo(5), 1);
    EXPECT_EQ(Db().GetLastReason(), "There is nothing to redo.");
}

TEST_F(Transaction, UndoByNameGoesBackToTheStepOfThatName) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
    ASSERT_TRUE(Records<CClassMatl>().TR_Add(1, {}));
    ASSERT_TRUE(Records<CClassThik>().TR_Add(2, {}));
    EXPECT_EQ(Db().UndoTo("Add Section"), 0);
    EXPECT_EQ(Db().GetLastReason(), "There is no step named \"Add Section\".");
    EXPECT_EQ(Db().UndoTo("Add Material"), 2);
    EXPECT_FALSE(Records<CClassMatl>().Exist(1));
    EXPECT_TRUE(Records<CClassThik>().Exist(1));
    EXPECT_EQ(Db().RedoTo("Add Thickness"), 2);
    EXPECT_TRUE(Records<CClassThik>().Exist(2));
}

TEST_F(Transaction, ATransactionAfterAnUndoForgetsWhatCouldBeRedone) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
    ASSERT_EQ(Db().Undo(), 1);
    ASSERT_TRUE(Records<CClassThik>().TR_Add(2, {}));
    EXPECT_EQ(Db().Redo(), 0);
}

TEST_F(Transaction, AGroupIsOneStepWithOneNameAndOneBuffer) {
    ASSERT_TRUE(Db().BeginGroup("Paste"));
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
    ASSERT_TRUE(Db().BeginGroup("inner"));
    ASSERT_TRUE(Records<CClassThik>().TR_Modify(1, 1, T_THIK_D{.name = "B"}));
    EXPECT_FALSE(Records<CClassThik>().TR_Add(1, {}));
    ASSERT_TRUE(Db().EndGroup());
    EXPECT_EQ(Db().Undo(), 0);
    EXPECT_EQ(Db().GetLastReason(), "A group of changes is still open.");
    ASSERT_TRUE(Records<CClassThik>().TR_Del(1));
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, T_THIK_D{.name = "C"}));
    EXPECT_EQ(Db().GetTransactionCount(), 0u);
    ASSERT_TRUE(Db().EndGroup());
    EXPECT_EQ(Db().GetTransactionCount(), 1u);
    EXPECT_EQ(Db().GetUndoNames(), (Texts{"Paste"}));
    EXPECT_EQ(Changes(), (Texts{"THIK ADD 1", "THIK MFD 1", "THIK MFS 1", "THIK DEL 1", "THIK ADD 1"}));
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_EQ(Changes(), (Texts{"THIK DEL 1", "THIK ADD 1", "THIK MFD 1", "THIK MFS 1", "THIK DEL 1"}));
    EXPECT_EQ(Records<CClassThik>().GetCount(), 0);
}

TEST_F(Transaction, AnEmptyGroupIsNoStepAndACancelledOneLeavesNothing) {
    ASSERT_TRUE(Db().BeginGroup("nothing"));
    ASSERT_TRUE(Db().EndGroup());
    EXPECT_TRUE(Db().GetUndoNames().empty());
    EXPECT_FALSE(Db().EndGroup());
    EXPECT_EQ(Db().GetLastReason(), "There is no open group of changes to end.");

    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, T_THIK_D{.name = "A"}));
    {
        const Untouched untouched(Db());
        ASSERT_TRUE(Db().BeginGroup("outer"));
        ASSERT_TRUE(Db().BeginGroup("inner"));
        ASSERT_TRUE(Records<CClassThik>().TR_Modify(1, 2, T_THIK_D{.name = "B"}));
        ASSERT_TRUE(Db().EndGroup());
        ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
        Db().CancelGroup();
        EXPECT_FALSE(Db().InGroup());
        EXPECT_TRUE(untouched.Holds());
        Db().CancelGroup();
        EXPECT_TRUE(untouched.Holds()) << "there is nothing to cancel";
    }
}

TEST_F(Transaction, ACancelledGroupWithinAnotherTakesBackItsOwnChangesOnly) {
    ASSERT_TRUE(Db().BeginGroup("outer"));
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, T_THIK_D{.name = "A"}));
    ASSERT_TRUE(Db().BeginGroup("inner"));
    ASSERT_TRUE(Records<CClassThik>().TR_Modify(1, 2, T_THIK_D{.name = "B"}));
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
    Db().CancelGroup();
    EXPECT_TRUE(Db().InGroup());
    T_THIK_D record;
    ASSERT_TRUE(Records<CClassThik>().Get(1, record));
    EXPECT_EQ(record.name, "A");
    EXPECT_EQ(Records<CClassThik>().GetCount(), 1);
    ASSERT_TRUE(Records<CClassThik>().TR_Add(3, {}));
    ASSERT_TRUE(Db().EndGroup());
    EXPECT_EQ(Changes(), (Texts{"THIK ADD 1", "THIK ADD 3"}));
    EXPECT_EQ(Db().GetUndoNames(), (Texts{"outer"}));
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_EQ(Records<CClassThik>().GetCount(), 0);
}

TEST_F(Transaction, AGroupWhoseInnerOnesAreAllCancelledIsNoStep) {
    ASSERT_TRUE(Db().BeginGroup("outer"));
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(Db().BeginGroup("inner"));
        ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
        Db().CancelGroup();
    }
    ASSERT_TRUE(Db().EndGroup());
    EXPECT_TRUE(Db().GetUndoNames().empty());
    EXPECT_EQ(Db().GetTransactionCount(), 0u);
}

TEST_F(Transaction, UndoOfALargeDeletionAddsAllRecordsInOneStep) {
    Keys keys;
    for (std::uint32_t key = 1; key <= 5000; ++key) keys.push_back(key);
    ASSERT_TRUE(Records<CClassPont>().TR_Add(keys, std::vector<T_PONT_D>(keys.size())));
    EXPECT_EQ(Db().GetUndoNames().front(), "Add Node (5000)");
    ASSERT_TRUE(Records<CClassPont>().TR_Del(keys));
    ASSERT_EQ(Db().Undo(), 1);
    EXPECT_EQ(Db().GetViewBuff()->Count(), 5000u);
    EXPECT_EQ(Records<CClassPont>().GetCount(), 5000);
    EXPECT_EQ(Records<CClassPont>().GetPontKeyByNo(5000), 5000u);
}

TEST_F(Transaction, AReadOnlyModelRefusesEveryChange) {
    ASSERT_TRUE(Records<CClassThik>().TR_Add(1, {}));
    Db().SetReadOnly(true);
    EXPECT_REFUSED(Records<CClassThik>().TR_Add(2, {}), "The model is open read-only.");
    EXPECT_REFUSED(Records<CClassThik>().TR_Del(1), "The model is open read-only.");
    EXPECT_REFUSED(Db().Undo(), "The model is open read-only.");
    EXPECT_REFUSED(Db().BeginGroup("x"), "The model is open read-only.");
}

// Random transactions against a plain map, with the whole history undone and redone at the end.
TEST_F(Transaction, RandomHistoriesGoBackToNothingAndForthAgain) {
    auto& nodes = Records<CClassPont>();
    std::mt19937 random(7);
    const auto pick = [&random](unsigned limit) { return static_cast<std::uint32_t>(random() % limit); };
    std::map<std::uint32_t, double> model;
    std::vector<std::map<std::uint32_t, double>> states{model};
    const auto current = [&] {
        std::map<std::uint32_t, double> content;
        for (POSITION position = nodes.DB_GetStart(); position;) {
            std::uint32_t key = 0;
            T_PONT_D record;
            nodes.GetNextData(position, key, record);
            content[key] = record.x;
        }
        return content;
    };
    for (int round = 0; round < 400; ++round) {
        const std::uint32_t key = pick(40) + 1;
        const std::uint32_t other = pick(40) + 1;
        const double x = round;
        bool done = false;
        switch (pick(3)) {
            case 0:
                done = nodes.TR_Add(key, T_PONT_D{.x = x});
                EXPECT_EQ(done, !model.contains(key));
                if (done) model[key] = x;
                break;
            case 1:
                done = nodes.TR_Del(key);
                EXPECT_EQ(done, model.contains(key));
                if (done) model.erase(key);
                break;
            default:
                done = nodes.TR_Modify(key, other, T_PONT_D{.x = x});
                EXPECT_EQ(done, model.contains(key) && (other == key || !model.contains(other)));
                if (done) {
                    model.erase(key);
                    model[other] = x;
                }
        }
        ASSERT_EQ(current(), model);
        if (done) states.push_back(model);
    }
    for (std::size_t i = states.size() - 1; i > 0; --i) {
        ASSERT_EQ(current(), states[i]);
        ASSERT_EQ(Db().Undo(), 1);
    }
    EXPECT_EQ(nodes.GetCount(), 0);
    EXPECT_EQ(Db().Redo(100000), static_cast<int>(states.size() - 1));
    EXPECT_EQ(current(), states.back());
}

}  // namespace
}  // namespace zt
