#include "zt_tb/post/story/tb_post_st_disp.h"

#include "velda_lib/number_text.h"
#include "zt_db/post/story/story_result_post.h"
#include "zt_tb/post/result_tracer.h"
#include "zt_tb/post/story/story_columns.h"

namespace zt {

namespace columns = story_columns;

const ResultDeclaration& CTBPostStDisp::Declared() {
    static constexpr ResultColumn kColumns[] = {
        columns::kModule,
        columns::kStory,
        columns::NumberColumn("IDS_TB_POSTDISP_Level", Unit::Length),
        columns::HeightColumn(Unit::Length),
        columns::kLoadCase,
        columns::TextColumn("IDS_TB_POSTDISP_Node"),
        columns::ShiftColumn("IDS_TB_POSTDISP_Maximum_Disp", Unit::Length),
        columns::ShiftColumn("IDS_TB_POSTDISP_Average_Disp", Unit::Length),
        columns::NumberColumn("IDS_TB_POSTDISP_MaxAvgRatio"),
        columns::kLoadOrder,
        columns::kSeqNum,
        {.title = "Load Key", .isHidden = true},
        {.title = "Load Type", .isHidden = true},
    };
    static constexpr ResultDeclaration kDeclaration{.name = "TBPostStDisp",
                                                    .columns = kColumns,
                                                    .headerHeight = columns::kHeaderHeight,
                                                    .loadOrderField = 10,
                                                    .objectField = 11};
    return kDeclaration;
}

CTBPostStDisp::CTBPostStDisp(int kind, int direction)
    : StorySource(kind, Declared(), {.level = 3, .height = 4, .load = 5, .plot = 7}),
      direction_(direction == 1 || direction == 2 ? static_cast<std::size_t>(direction) : 0) {}

void CTBPostStDisp::CustomizeCell(int row, int col, velda::CGXStyle& style) {
    constexpr int kCheckMode = 73;
    constexpr int kAverage = 8;
    constexpr std::uint32_t kRed = 255;
    StorySource::CustomizeCell(row, col, style);
    if (Grid()->RecCtrl().GetFldID(row, col) != kAverage) return;
    const long record = Grid()->RecCtrl().GetRecNo(row);
    const std::uint32_t story = ObjectNumber(static_cast<std::size_t>(record - 1) / Rows().size());
    if (IsTraced(kCheckMode, story, *LoadOfRecord(record))) style.SetTextColor(kRed);
}

void CTBPostStDisp::ReadStories(const CPostCtrl& control, const LoadChoice& load, int /*step*/,
                                std::vector<T_STDSP_D>& records) {
    CStoryResultPost(control).GetDSP(static_cast<int>(load.kind), load.key, records);
}

void CTBPostStDisp::WriteRecord(const T_STDSP_D& record, velda::RecordCells& cells) {
    const T_STDSP_PART& part = record.part[direction_];
    cells.Text(6, velda::FormatLong(part.node));
    cells.Number(7, part.maximum);
    cells.Number(8, part.average);
    WriteRatio(cells, 9, RatioOrNone(part.maximum, part.average));
    cells.Text(12, velda::FormatLong(Load().key));
    cells.Text(13, velda::FormatLong(Load().kind));
}

}  // namespace zt
