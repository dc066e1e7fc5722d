#include "zt_tb/boundary_load/tb_ptld.h"

#include "zt_tb/support/number_tables.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

class TBPtldTest : public TableTest {
protected:
    static constexpr int kRows = 10000;

    TBPtldTest() {
        AddLoadCase(1, "DL", "D");
        AddLoadCase(2, "LL", "L");
        std::vector<std::uint32_t> keys;
        std::vector<T_PONT_D> nodes;
        for (std::uint32_t i = 1; i <= kRows / 2; ++i) {
            keys.push_back(i);
            T_PONT_D node;
            node.no = 100000 - i;
            nodes.push_back(node);
        }
        EXPECT_TRUE(Records<CClassPont>().TR_Add(keys, nodes));
        view_ = std::make_unique<OneTableView<CTBPtld>>(*doc);
    }
    CTBPtld& Table() { return *view_->table; }

    /// A row as it stands on the clipboard, from the column of the node on.
    static std::string Line(const std::string& node, const std::string& loadCase, const std::string& fz) {
        return node + "\tany\t" + loadCase + "\t0\t0\t" + fz + "\t0\t0\t0\n";
    }
    /// Two loads for each node; every hundredth row has a node, a load case or a number that is wrong, in turn.
    static std::string ManyLines(int& wrong) {
        std::string text;
        for (int i = 0; i < kRows; ++i) {
            const std::string node = std::to_string(100000 - 1 - i / 2);
            const int fault = i % 100 == 99 ? (i / 100) % 3 : -1;
            wrong += fault >= 0 ? 1 : 0;
            text += Line(fault == 0 ? "5" : node,
                         fault == 1   ? "Wind"
                         : i % 2 == 0 ? "DL"
                                      : "LL",
                         fault == 2 ? "heavy" : "-" + std::to_string(i + 1));
        }
        return text;
    }

    std::unique_ptr<OneTableView<CTBPtld>> view_;
};

TEST_F(TBPtldTest, TakesTenThousandPastedLoadsAndReportsTheWrongOnes) {
    int wrong = 0;
    const std::string text = ManyLines(wrong);
    ASSERT_EQ(wrong, 100);
    ASSERT_TRUE(Table().SetCurrentCell(1, 2));
    ASSERT_TRUE(Table().PasteText(text));
    EXPECT_EQ(Records<CClassPtld>().GetCount(), kRows - wrong);
    EXPECT_EQ(Table().RecordRowCount(), kRows - wrong);
    EXPECT_EQ(Db().GetUndoNames().front(), "Paste");

    // Rows stand in the order of the numbers, equal ones in the order of their keys.
    EXPECT_EQ(Table().GetValueRowCol(1, 2), "95000");
    EXPECT_EQ(Table().GetValueRowCol(1, 4), "DL");
    T_PTLD_D load;
    ASSERT_TRUE(Records<CClassPtld>().Get(1, load));
    EXPECT_EQ(load, (T_PTLD_D{.node = 1, .stld = 1, .fz = -1.0}));

    ASSERT_TRUE(Db().Undo());
    EXPECT_EQ(Records<CClassPtld>().GetCount(), 0);
    EXPECT_EQ(Table().RecordRowCount(), 0);
    ASSERT_TRUE(Db().Redo());
    EXPECT_EQ(Table().RecordRowCount(), kRows - wrong);
}

TEST_F(TBPtldTest, TakesNoneOfThemWhenAllOrNothingIsAskedFor) {
    int wrong = 0;
    ASSERT_TRUE(Table().SetCurrentCell(1, 2));
    EXPECT_FALSE(Table().PasteText(ManyLines(wrong), velda::OnRefusal::WriteNothing));
    EXPECT_EQ(Records<CClassPtld>().GetCount(), 0);
    EXPECT_EQ(Table().RecordRowCount(), 0);
}

}  // namespace
}  // namespace zt
