#include "zt_tb/post/story/story_profile.h"

#include "zt_tb/post/story/story_source.h"

namespace zt {
namespace {

constexpr int kStoryField = 2;

/// The cell of a field of a record.
const velda::RecordCell& CellOf(const velda::CTBCore& grid, long record, int fieldNo) {
    const int slot = grid.RecHdr().SlotOf(fieldNo, 1);
    return grid.RecCtrl().CellsOf(record).At(static_cast<std::size_t>(slot));
}

}  // namespace

StoryProfile ProfileOf(const velda::CTBCore& grid) {
    const auto* table = dynamic_cast<const StoryTable*>(grid.GetDataSrc());
    if (!table || table->Layout().plot == 0 || table->ObjectCount() == 0 || table->Rows().empty()) return {};
    const int field = table->Layout().plot;
    StoryProfile profile{.title = grid.Header().ColumnTitle(static_cast<std::uint32_t>(field - 1))};
    const auto rows = static_cast<long>(table->Rows().size());
    const auto stories = static_cast<long>(table->ObjectCount());
    for (long story = 0; story < stories; ++story) {
        profile.stories.push_back(CellOf(grid, story * rows + 1, kStoryField).Text());
    }
    for (long row = 0; row < rows; ++row) {
        StoryCurve& curve = profile.curves.emplace_back();
        curve.name = CellOf(grid, row + 1, table->Layout().load).Text();
        // Steps of one case are told apart by the field that stands beside it.
        if (table->Layout().step > 0) curve.name += " " + CellOf(grid, row + 1, table->Layout().step).Text();
        for (long story = 0; story < stories; ++story) {
            curve.values.push_back(CellOf(grid, story * rows + row + 1, field).number);
        }
    }
    return profile;
}

}  // namespace zt
