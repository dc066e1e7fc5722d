#include "zt_tb/model/tb_thik.h"

#include "zt_tb/core/tb_view.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

/// A view with one thickness table.
class ThikView : public CTBView {
public:
    explicit ThikView(CDBDoc& doc) {
        auto table = std::make_unique<CTBThik>();
        table_ = table.get();
        AddWorksheet(std::move(table), "Thickness");
        table_->Initialize(this);
        table_->MakeItemEx(nullptr, -2, 0);
        ConnectToDoc(&doc);
    }
    void UpdateBuffer(T_UPDATE_HINT* hint) override { table_->UpdateBuffer(hint); }
    void UpdateUnit() override { table_->UnitChanged(); }
    CTBThik& Table() { return *table_; }

private:
    CTBThik* table_ = nullptr;
};

class TBThikTest : public ::testing::Test {
protected:
    void SetUp() override {
        doc_ = CDBDoc::New();
        doc_->MakeCurrent();
        thik_ = CTBCommonWnd::GetDB()->GetClass<CClassThik>();
        Add(3, "W200", 200);
        Add(7, "W150", 150);
        view_ = std::make_unique<ThikView>(*doc_);
    }
    void TearDown() override {
        view_.reset();
        CDBDoc::m_pDBDoc = nullptr;
    }
    void Add(std::uint32_t key, const std::string& name, double thickness) {
        T_THIK_D record;
        record.name = name;
        record.thickness = thickness;
        ASSERT_TRUE(thik_->TR_Add(key, record));
    }
    CTBThik& Table() { return view_->Table(); }
    std::vector<std::string> Row(int row) {
        return {Table().GetValueRowCol(row, 1), Table().GetValueRowCol(row, 2), Table().GetValueRowCol(row, 3)};
    }

    std::unique_ptr<CDBDoc> doc_;
    CClassThik* thik_ = nullptr;
    std::unique_ptr<ThikView> view_;
};

TEST_F(TBThikTest, ShowsRecordsInTheOrderOfTheirKeys) {
    ASSERT_EQ(3, Table().GetRowCount());
    EXPECT_EQ(2, Table().RowCount()) << "no append row";
    EXPECT_THAT(Row(1), ElementsAre("3", "W200", "200"));
    EXPECT_THAT(Row(2), ElementsAre("7", "W150", "150"));
}

TEST_F(TBThikTest, WritesAnEditedRowWhenItIsLeft) {
    EXPECT_TRUE(Table().EditCell(1, 3, "250"));
    EXPECT_TRUE(Table().IsRowInEdit());
    EXPECT_EQ("250", Table().GetValueRowCol(1, 3));
    EXPECT_EQ("200", Table().GetValueRowColBeforeEdit(1, 3));
    EXPECT_TRUE(Table().LeaveRow());
    T_THIK_D record;
    ASSERT_TRUE(thik_->Get(3, record));
    EXPECT_EQ(250, record.thickness);
    EXPECT_THAT(Row(1), ElementsAre("3", "W200", "250"));
}

TEST_F(TBThikTest, FollowsAnotherWindow) {
    Add(5, "W180", 180);
    EXPECT_THAT(Row(2), ElementsAre("5", "W180", "180"));
    EXPECT_TRUE(thik_->TR_Del(3));
    EXPECT_THAT(Row(1), ElementsAre("5", "W180", "180"));
}

}  // namespace
}  // namespace zt
