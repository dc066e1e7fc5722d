#include "velda_util/result/tb_core.h"

#include "velda_base/host/headless_host.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

/// Records with a number, a name and a value; counts what it is asked for.
class FakeSource final : public CTBDataSrc {
public:
    explicit FakeSource(long count, int rowsOfRecord = 1) : CTBDataSrc(7), count_(count), rows_(rowsOfRecord) {}

    void InitColHeader() override {
        Grid()->ColHdr().SetRowColCount(2, 3);
        Grid()->ColHdr().SetTitle(2, 1, "No", 0);
        Grid()->ColHdr().SetTitle(2, 2, "Name", 0);
        Grid()->ColHdr().SetTitle(2, 3, "Value", 5);
        Grid()->ColHdr().SetGroup(1, 2, 1, 3, "Both");
    }
    void InitRecFields() override {
        Grid()->RecHdr().AddFld(1, 1, "No", ColumnType::Long, 0);
        Grid()->RecHdr().AddFld(1, 2, "Name", ColumnType::String, 0);
        for (int row = 1; row <= rows_; ++row) Grid()->RecHdr().AddFld(row, 3, "Value", ColumnType::Double, 5);
    }
    void MakeRecords() override { ++made; }
    int UserDefinedInit() override { return 1; }
    long GetRecCount() override { return count_; }
    int SeekRec(long record) override {
        ++seeks;
        if (record < 1 || record > count_) return 0;
        record_ = record;
        return 1;
    }
    void GetRecTexts(RecordCells& cells) override {
        cells.Long(1, record_);
        cells.Text(2, record_ % 2 == 0 ? "even" : "odd");
        for (int row = 1; row <= rows_; ++row) cells.Number(3, value(record_) + row - 1, row);
    }
    void AfterSetRecCount() override { CTBCore::InsertPrePostRows(*Grid(), preRows, postRows); }
    void AfterRedrawTable() override {
        int first = 0;
        int last = 0;
        if (Grid()->GetPostRecRange(first, last)) Grid()->SetValueRange(first, 1, "sum");
    }
    void CustomizeCell(int row, int /*col*/, CGXStyle& style) override {
        style.SetBold(Grid()->RecCtrl().GetRecNo(row) == 2);
    }
    void OnEvent(const T_TB_EVENT_D& event) override { clicked = static_cast<int>(event.row); }
    std::string GetUnitText(int unitKind) const override { return unitKind == 5 ? unit : ""; }
    double GetUnitFactor(int unitKind) const override { return unitKind == 5 ? factor : 1.0; }

    std::function<double(long)> value = [](long record) { return 1.5 * static_cast<double>(record); };
    std::string unit = "m";
    double factor = 1.0;
    int preRows = 0;
    int postRows = 0;
    int made = 0;
    long seeks = 0;
    int clicked = 0;

private:
    long count_;
    int rows_;
    long record_ = 0;
};

/// A grid with a fake source.
class TBCoreTest : public testing::Test {
protected:
    FakeSource& Open(long count, int rowsOfRecord = 1, int preRows = 0, int postRows = 0) {
        auto source = std::make_unique<FakeSource>(count, rowsOfRecord);
        FakeSource& made = *source;
        made.preRows = preRows;
        made.postRows = postRows;
        grid.SetDataSrc(std::move(source));
        grid.Initialize();
        grid.RecCtrl().ReadRecords();
        return made;
    }
    std::vector<std::string> Column(int col) const {
        std::vector<std::string> texts;
        for (int row = 1; row <= grid.RowCount(); ++row) texts.push_back(grid.GetValueRowCol(row, col));
        return texts;
    }

    HeadlessHost host;
    UseHost use{host};
    CTBCore grid;
};

using Texts = std::vector<std::string>;

TEST_F(TBCoreTest, AGridWithoutASourceIsEmpty) {
    grid.Initialize();
    grid.RecCtrl().ReadRecords();
    EXPECT_EQ(0, grid.RowCount());
    EXPECT_EQ(0, grid.GetColCount());
    grid.UpdateUnit();
}

TEST_F(TBCoreTest, ShowsRecordsAsTheSourceWritesThem) {
    const FakeSource& source = Open(3);
    EXPECT_EQ(1, source.made);
    EXPECT_EQ(3, grid.RowCount());
    EXPECT_EQ((Texts{"1", "2", "3"}), Column(1));
    EXPECT_EQ((Texts{"odd", "even", "odd"}), Column(2));
    EXPECT_EQ((Texts{"1.5", "3", "4.5"}), Column(3));
}

TEST_F(TBCoreTest, ReadsOnlyWhatIsDrawnAndThatOnce) {
    const FakeSource& source = Open(1'000'000);
    EXPECT_EQ(0, source.seeks);
    for (int row = 500'001; row <= 500'030; ++row) {
        for (int col = 1; col <= 3; ++col) static_cast<void>(grid.GetShownText(row, col));
    }
    EXPECT_EQ(30, source.seeks);
}

TEST_F(TBCoreTest, HasUnitsAndGroupsInTheHeader) {
    FakeSource& source = Open(1);
    EXPECT_EQ("Both", grid.Header().Text(0, 1));
    EXPECT_EQ("Value (m)", grid.Header().ColumnTitle(2));
    EXPECT_EQ("No", grid.Header().Text(0, 0));
    source.unit = "mm";
    source.factor = 1000.0;
    grid.UpdateUnit();
    EXPECT_EQ("Value (mm)", grid.Header().ColumnTitle(2));
    EXPECT_EQ("1500", grid.GetValueRowCol(1, 3));
}

TEST_F(TBCoreTest, ARecordTakesARowForEachOfItsParts) {
    Open(2, 3);
    EXPECT_EQ(6, grid.RowCount());
    EXPECT_EQ((Texts{"1", "", "", "2", "", ""}), Column(1));
    EXPECT_EQ((Texts{"1.5", "2.5", "3.5", "3", "4", "5"}), Column(3));
    EXPECT_EQ(0, grid.RecCtrl().GetFldID(2, 1));
    EXPECT_EQ(3, grid.RecCtrl().GetFldID(2, 3));
    EXPECT_EQ(2, grid.RecCtrl().GetRecNo(4));
    int row = 0;
    int col = 0;
    ASSERT_TRUE(grid.RecCtrl().GetRecFldRowCol(2, 3, row, col));
    EXPECT_EQ(4, row);
    EXPECT_EQ(3, col);
    EXPECT_FALSE(grid.RecCtrl().GetRecFldRowCol(3, 3, row, col));
}

TEST_F(TBCoreTest, RowsBeforeAndAfterTheRecordsHaveTextsOfTheirOwn) {
    Open(2, 1, 1, 2);
    EXPECT_EQ(5, grid.RowCount());
    EXPECT_EQ((Texts{"", "1", "2", "sum", ""}), Column(1));
    int first = 0;
    int last = 0;
    EXPECT_TRUE(grid.GetPreRecRange(first, last));
    EXPECT_EQ(1, last);
    EXPECT_TRUE(grid.GetPostRecRange(first, last));
    EXPECT_EQ(4, first);
    EXPECT_THROW(grid.SetValueRange(2, 1, "x"), std::invalid_argument);
    EXPECT_THROW(grid.SetValueRange(6, 1, "x"), std::invalid_argument);
    // Sorting leaves them where they are.
    EXPECT_TRUE(grid.Sort({{2, 0, 1}}));
    EXPECT_EQ((Texts{"", "2", "1", "sum", ""}), Column(1));
}

TEST_F(TBCoreTest, SortsByNumbersAndTextsAndKeepsEqualRecordsInTheirOrder) {
    Open(4);
    EXPECT_TRUE(grid.Sort({{2, 0, 1}}));
    EXPECT_EQ((Texts{"4", "3", "2", "1"}), Column(1));
    EXPECT_TRUE(grid.Sort({{1, 0, 0}}));
    EXPECT_EQ((Texts{"2", "4", "1", "3"}), Column(1));
    EXPECT_TRUE(grid.Sort({{1, 0, 1}, {2, 0, 1}}));
    EXPECT_EQ((Texts{"3", "1", "4", "2"}), Column(1));
    EXPECT_TRUE(grid.Sort({}));
    EXPECT_EQ((Texts{"1", "2", "3", "4"}), Column(1));
}

TEST_F(TBCoreTest, ARecordKeepsItsRowIdWhereverItStands) {
    Open(4, 2);
    const RowId id = grid.RowIdAt(4);
    EXPECT_TRUE(grid.Sort({{2, 0, 1}}));
    EXPECT_EQ(6, grid.PositionOfRow(id));
    EXPECT_EQ(0, grid.PositionOfRow(999));
    EXPECT_EQ(kNoRow, grid.RowIdAt(9));
}

TEST_F(TBCoreTest, ACancelledSortLeavesTheOrder) {
    Open(200'000);
    host.progress.cancelAt = 2;
    EXPECT_FALSE(grid.Sort({{2, 0, 1}}));
    EXPECT_EQ("1", grid.GetValueRowCol(1, 1));
    EXPECT_TRUE(grid.SortInfo().empty());
}

TEST_F(TBCoreTest, FindsATextInRecordsThatWereNeverDrawn) {
    Open(20'000);
    STBFindStruct find{.text = "30000"};
    EXPECT_TRUE(grid.Find(find));
    int row = 0;
    int col = 0;
    grid.GetCurrentCell(row, col);
    EXPECT_EQ(20'000, row);
    EXPECT_EQ(3, col);
}

TEST_F(TBCoreTest, ACancelledSearchFindsNothing) {
    Open(20'000);
    host.progress.cancelAt = 1;
    STBFindStruct find{.text = "30000"};
    EXPECT_FALSE(grid.Find(find));
}

TEST_F(TBCoreTest, KeysMoveAboutAndCopy) {
    Open(3);
    grid.SetCurrentCell(1, 1);
    EXPECT_TRUE(grid.DoCommand(TableCommand::MoveTableEnd));
    int row = 0;
    int col = 0;
    grid.GetCurrentCell(row, col);
    EXPECT_EQ(3, row);
    EXPECT_EQ(3, col);
    EXPECT_TRUE(grid.DoCommand(TableCommand::SelectAll));
    EXPECT_TRUE(grid.DoCommand(TableCommand::Copy));
    EXPECT_FALSE(grid.DoCommand(TableCommand::DeleteRows));
    EXPECT_FALSE(grid.Paste());
}

TEST_F(TBCoreTest, TheSourceStylesCellsOfRecordsAndHearsOfClicks) {
    FakeSource& source = Open(2, 1, 1, 0);
    EXPECT_FALSE(grid.StyleOf(1, 1).GetBold());
    EXPECT_TRUE(grid.StyleOf(3, 1).GetBold());
    grid.SetStyleRange(CGXRange(1, 1), CGXStyle().SetControl(ControlKind::PushButton));
    grid.ClickCell(1, 1);
    EXPECT_EQ(1, source.clicked);
}

TEST(TBRecHdr, RefusesPlacesThatAreTakenOrNotThere) {
    CTBRecHdr fields;
    EXPECT_THROW(fields.AddFld(0, 1, "", ColumnType::Long, 0), std::invalid_argument);
    EXPECT_THROW(fields.AddFld(1, 0, "", ColumnType::Long, 0), std::invalid_argument);
    fields.AddFld(1, 1, "", ColumnType::Long, 0);
    EXPECT_THROW(fields.AddFld(1, 1, "", ColumnType::Long, 0), std::invalid_argument);
    fields.EndAdd();
    EXPECT_EQ(0, fields.SlotOf(1, 1));
    EXPECT_EQ(-1, fields.SlotOf(2, 1));
    EXPECT_EQ(-1, fields.SlotOf(1, 2));
}

TEST(TBColHdr, RefusesCellsThatAreNotThere) {
    CTBColHdr header;
    header.SetRowColCount(1, 2);
    EXPECT_THROW(header.SetTitle(2, 1, "", 0), std::invalid_argument);
    EXPECT_THROW(header.SetTitle(1, 3, "", 0), std::invalid_argument);
    EXPECT_THROW(header.SetGroup(1, 1, 1, 3, ""), std::invalid_argument);
    EXPECT_THROW(header.SetRowColCount(0, 1), std::invalid_argument);
}

TEST(RecordOrder, PlacesAndRecordsAreInverse) {
    const RecordOrder orders[] = {
        RecordOrder::Natural(6),
        RecordOrder::InnerFirst({1, 0}, 3),
        RecordOrder::InnerFirst({2, 0, 1}, 2),
        RecordOrder::Of({3, 1, 2, 6, 5, 4}),
    };
    for (const RecordOrder& order : orders) {
        ASSERT_EQ(6u, order.Count());
        for (std::uint32_t place = 1; place <= 6; ++place) EXPECT_EQ(place, order.PlaceOf(order.RecordAt(place)));
    }
    // Two load cases, the second one first, over three objects: 2 4 6 1 3 5.
    EXPECT_EQ(4u, orders[1].RecordAt(2));
    EXPECT_EQ(1u, orders[1].RecordAt(4));
}

}  // namespace
}  // namespace velda
