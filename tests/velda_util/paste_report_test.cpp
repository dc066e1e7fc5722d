#include "velda_util/clip/paste_report.h"

#include "velda_lib/language.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

const auto Title = [](int column) -> std::string { return column == 1 ? "Name" : "Thickness (m)"; };

ChangePlan PlanWithRefusals() {
    ChangePlan plan;
    plan.refused = {{3, 7, 2, "x", "IDS_TB_ENGINE_CELL_READ_ONLY"},
                    {9, kNewRow, kNoPlanColumn, "W9", "IDS_TB_ENGINE_NO_NEW_ROWS"}};
    plan.notes = {{"IDS_TB_ENGINE_NOTE_COLUMNS_CUT", 2}};
    return plan;
}

TEST(PasteReport, HasNothingToTellWhenAllWentWell) {
    PasteReport report;
    report.Add(ChangePlan{});
    EXPECT_TRUE(report.IsEmpty());
    EXPECT_TRUE(report.MayWrite());
    EXPECT_EQ(report.Words(4, Title), "");
}

TEST(PasteReport, NamesEachRefusedRowWithCellTextAndReason) {
    PasteReport report;
    report.Add(PlanWithRefusals());
    report.Refuse({.source = 5, .target = 2}, 1, "100%", "This name exists.");
    EXPECT_TRUE(report.MayWrite());
    EXPECT_EQ(report.Words(4, Title),
              "Rows written: 4, rows refused: 3\n"
              "Row 3, Thickness (m), \"x\": The cell is read-only.\n"
              "Row 5, Name, \"100%\": This name exists.\n"
              "Row 9, \"W9\": The table takes no new rows.\n"
              "Columns beyond the last column of the table, left out: 2");
}

TEST(PasteReport, CountsARowOnceThoughSeveralCellsAreWrong) {
    PasteReport report;
    report.Refuse({.source = 1, .target = 4}, 1, "a", "r");
    report.Refuse({.source = 1, .target = 5}, 1, "a", "r");
    report.Refuse({.source = 1, .target = 4}, 2, "b", "s");
    EXPECT_EQ(report.RefusedCount(), 2u) << "a repeated row goes to several places";
}

TEST(PasteReport, AllOrNothingWritesNothingOnceARowIsRefused) {
    PasteReport report(OnRefusal::WriteNothing);
    report.Add(ChangePlan{.rows = {}, .refused = {}, .notes = {{"IDS_TB_ENGINE_NOTE_EMPTY_ROWS", 1}}});
    EXPECT_TRUE(report.MayWrite()) << "a note refuses nothing";
    EXPECT_EQ(report.Words(2, Title), "Rows written: 2, rows refused: 0\nEmpty rows, not added: 1");
    report.Refuse({.source = 1}, 1, "a", "No.");
    EXPECT_FALSE(report.MayWrite());
    EXPECT_EQ(report.Words(0, Title),
              "Nothing was written. Rows refused: 1\nRow 1, Name, \"a\": No.\nEmpty rows, not added: 1");
}

TEST(PasteReport, SpeaksTheCurrentLanguage) {
    SetCurrentLanguage(Language::Korean);
    PasteReport report;
    report.Refuse({.source = 2}, 1, "a", "…");
    EXPECT_EQ(report.Words(1, Title), "적용한 행: 1개, 거부한 행: 1개\n2행, Name, \"a\": …");
    SetCurrentLanguage(Language::English);
}

}  // namespace
}  // namespace velda
