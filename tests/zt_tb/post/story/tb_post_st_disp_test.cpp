#include "zt_tb/post/story/tb_post_st_disp.h"

#include "zt_tb/post/fake_checker.h"
#include "zt_tb/post/result_sources.h"
#include "zt_tb/post/story/story_table_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

class StoryDisplacementTable : public StoryTableTest {
protected:
    using Parts = std::array<T_STDSP_PART, 3>;

    T_STDSP_D Displacement(int story, const Parts& parts) {
        auto record = RecordOf<T_STDSP_D>(story);
        record.part = parts;
        return record;
    }
    void PutDisplacements(std::uint32_t key, const std::vector<T_STDSP_D>& records) {
        PutRecords(LoadCaseKind::Static, key, "DSP", records);
    }
};

TEST_F(StoryDisplacementTable, ShowsTheValuesOfItsDirection) {
    PutDisplacements(kSeismic, {Displacement(3, {{{0.3, 0.2, 1301}, {0.4, 0.25, 1302}, {0.5, 0.4, 1303}}})});
    const auto row = [this](int direction) {
        auto& table = Open<CTBPostStDisp>(direction);
        table.SetActiveParam(Loads({Static(kSeismic)}));
        EXPECT_EQ(table.Grid()->GetRowCount(), 1);
        return RowOf(table, 1);
    };
    EXPECT_EQ(row(0), "M|3F|9|3|case|1301|0.3|0.2|1.5|300001|1|1|1");
    EXPECT_EQ(row(1), "M|3F|9|3|case|1302|0.4|0.25|1.6|300001|1|1|1");
    EXPECT_EQ(row(2), "M|3F|9|3|case|1303|0.5|0.4|1.25|300001|1|1|1");
    EXPECT_EQ(row(3), row(0));
    EXPECT_EQ(row(-1), row(0));
}

TEST_F(StoryDisplacementTable, OfBothDirectionsIsMadeByItsName) {
    PutDisplacements(kSeismic, {Displacement(3, {{{}, {}, {0.5, 0.4, 1303}}})});
    grids.push_back(std::make_unique<velda::CTBCore>());
    grids.back()->SetDataSrc(MakeResultSource("CTBPostStDisp", 22, 2));
    auto* source = PostSourceOf(grids.back().get());
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source->GetKind(), 22);
    grids.back()->Initialize();
    grids.back()->RecCtrl().ReadRecords();
    source->SetActiveParam(Loads({Static(kSeismic)}));
    EXPECT_EQ(Cell(*source, 1, 6), "1303");
}

TEST_F(StoryDisplacementTable, HasNoRatioToAnAverageOfNothing) {
    PutDisplacements(kSeismic, {Displacement(3, {{{0.3, 1e-10, 1}, {3e-10, -2e-10, 1}, {0.0, 0.5, 1}}}),
                                Displacement(2, {{{0.3, -1e-10, 1}, {3e-10, 1.2e-10, 1}, {5e-11, 0.5, 1}}}),
                                Displacement(1, {{{0.0, 0.0, 1}, {-0.3, 0.2, 1}, {-0.75, 0.5, 1}}})});
    const auto ratios = [this](int direction) {
        auto& table = Open<CTBPostStDisp>(direction);
        table.SetActiveParam(Loads({Static(kSeismic)}));
        return std::vector{Cell(table, 1, 9), Cell(table, 2, 9), Cell(table, 3, 9)};
    };
    EXPECT_THAT(ratios(0), ElementsAre("-", "-", "-"));
    EXPECT_THAT(ratios(1), ElementsAre("-1.5", "2.5", "-1.5"));
    // Nor is one of nothing to an average told.
    EXPECT_THAT(ratios(2), ElementsAre("-", "-", "-1.5"));
}

TEST_F(StoryDisplacementTable, PutsTheWholeOfACaseBehindIt) {
    PutDisplacements(kSeismic, {Displacement(3, {{{0.3, 0.2, 1301}}})});
    auto& table = Open<CTBPostStDisp>(0);
    table.SetActiveParam(Loads({{kSeismic, LoadCaseKind::Static, LoadCaseSubKind::All}, Static(kSeismic)}));
    ASSERT_EQ(table.Grid()->GetRowCount(), 2);
    EXPECT_EQ(RowOf(table, 1), "M|3F|9|3|case|1301|0.3|0.2|1.5|300001|1|1|1");
    EXPECT_EQ(RowOf(table, 2), "M|3F|9|3|case(all)|1301|0.3|0.2|1.5|500001|1|1|1");
}

// ---- findings of the model checker ----

class TracedDisplacements : public StoryDisplacementTable {
protected:
    static constexpr std::uint32_t kOther = 3;

    TracedDisplacements() {
        PutCase(kOther, [](int, int) { return Plane{}; });
        UseResults();
        std::vector<T_STDSP_D> records;
        for (const int story : {3, 2, 1}) records.push_back(Displacement(story, {{{0.3, 0.2, 1301}}}));
        PutDisplacements(kSeismic, records);
        PutDisplacements(kOther, records);
        // A finding of another kind of case with the same key is none of the table's.
        checker.findings = {{KeyOfStory(3), kOther, LoadCaseKind::Static},
                            {KeyOfStory(1), kSeismic, LoadCaseKind::Static},
                            {KeyOfStory(2), kSeismic, LoadCaseKind::Spectrum},
                            {KeyOfStory(2), 0, 0}};
        doc->SetChekCtrl(&checker);
        doc->SetCheckMode(73);
        doc->StartTracerMode();
    }
    /// Cells that are written in red, as "story load field".
    std::vector<std::string> RedCells() {
        auto& table = Open<CTBPostStDisp>(0);
        table.SetActiveParam(Loads({Static(kSeismic), Static(kOther)}));
        EXPECT_EQ(table.Grid()->GetRowCount(), 6);
        std::vector<std::string> red;
        for (int row = 1; row <= table.Grid()->GetRowCount(); ++row) {
            for (int col = 1; col <= table.Grid()->GetColCount(); ++col) {
                if (table.Grid()->StyleOf(row, col).GetTextColor() != 255) continue;
                red.push_back(Cell(table, row, 2) + " " + Cell(table, row, 12) + " " + std::to_string(col));
            }
        }
        return red;
    }
    FakeChecker checker;
};

TEST_F(TracedDisplacements, HaveTheirAveragesInRed) { EXPECT_THAT(RedCells(), ElementsAre("1F 1 8", "3F 3 8")); }

TEST_F(TracedDisplacements, AreThoseOfTheirCheckInTracerModeOnly) {
    doc->SetCheckMode(72);
    EXPECT_THAT(RedCells(), ElementsAre());
    doc->SetCheckMode(73);
    doc->EndTracerMode();
    EXPECT_THAT(RedCells(), ElementsAre());
    doc->StartTracerMode();
    doc->SetChekCtrl(nullptr);
    EXPECT_THAT(RedCells(), ElementsAre());
}

}  // namespace
}  // namespace zt
