#include "zt_tb/post/story/story_source.h"

#include "velda_base/host/wait_cursor.h"
#include "velda_lib/msg_dll.h"

namespace zt {

using velda::CGXRange;
using velda::CGXStyle;

namespace {

T_RSTP_D RestrictionOf(const CPostDataBase& results) {
    T_RSTP_D restriction;
    if (results.Model()) results.Model()->GetClass<CClassRstp>()->Get(restriction);
    return restriction;
}

}  // namespace

void StoryTable::MakeRecords() {
    BuildLoadStepRows();
    ReadAgain();
}

void StoryTable::ReadAgain() {
    const velda::WaitCursor wait;
    restriction_ = RestrictionOf(Results());
    keys_.clear();
    MakeObjectKeys(keys_);
}

bool StoryTable::FollowRestriction() {
    if (RestrictionOf(Results()) == restriction_) return false;
    ReadAgain();
    return true;
}

void StoryTable::CustomizeCell(int row, int col, CGXStyle& style) {
    const int field = Grid()->RecCtrl().GetFldID(row, col);
    const bool isVerdict = std::find(layout_.verdicts.begin(), layout_.verdicts.end(), field) != layout_.verdicts.end();
    if (field != 0 && isVerdict) ColourVerdict(row, col, style);
    BandByLoadCase(row, col, layout_.load, style);
}

bool StoryTable::WriteHead(const T_STHEAD_D& head, velda::RecordCells& cells) {
    const std::optional<ShownStory> story = StoryOf(head.mdul, head.story);
    if (!story) return false;
    cells.Text(1, story->mdul);
    cells.Text(2, story->story);
    if (layout_.level != 0) cells.Number(layout_.level, head.level);
    if (layout_.height != 0) cells.Number(layout_.height, head.height);
    cells.Text(layout_.load, LoadText());
    return true;
}

void StoryTable::InsertLineAbove() { velda::CTBCore::InsertPrePostRows(*Grid(), 1, 0); }

void StoryTable::WriteLineAbove(const char* textKey) {
    constexpr int kHeight = 30;
    int row = 0;
    int last = 0;
    if (!Grid()->GetPreRecRange(row, last)) return;
    const auto at = static_cast<CGXRange::Index>(row);
    const int columns = Grid()->GetColCount();
    Grid()->SetRowHeight(row, kHeight);
    Grid()->JoinCells(row, 1, columns);
    Grid()->SetStyleRange(
        CGXRange(at, 1, at, static_cast<CGXRange::Index>(columns)),
        CGXStyle().SetValueType(velda::ValueType::String).SetHorizontalAlignment(velda::HorizontalAlignment::Left));
    Grid()->SetValueRange(row, 1, velda::CMsgDll::pfuncLoadStr(textKey, 0));
}

}  // namespace zt
