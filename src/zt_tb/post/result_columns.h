#pragma once

#include "zt_db/units/unit_codes.h"
#include "zt_tb/post/result_declaration.h"

namespace zt {

// The columns that result tables have in common.

constexpr ResultColumn CounterColumn(std::string_view title) {
    return {.title = title, .type = ResultColumn::Type::Long};
}
constexpr ResultColumn ValueColumn(std::string_view title, int unitKind, int places) {
    return {.title = title, .type = ResultColumn::Type::Double, .unitKind = unitKind, .places = places, .width = 110};
}
/// Module and story.
constexpr ResultColumn StoryColumn() { return {.title = "IDS_TB_POSTDISP_Story", .width = 110}; }
constexpr int kLevelPlaces = 4;
constexpr ResultColumn LevelColumn() { return ValueColumn("IDS_TB_POSTDISP_Level", Unit::Length, kLevelPlaces); }
constexpr ResultColumn LoadColumn() { return {.title = "IDS_TB_POSTDISP_Load", .width = 130}; }
constexpr ResultColumn HiddenColumn(std::string_view title) {
    return {.title = title, .type = ResultColumn::Type::Long, .isHidden = true};
}
constexpr ResultColumn LoadOrderColumn() { return HiddenColumn("IDS_TB_POSTDISP_Load_Order"); }
/// A column in which a record has a cell for each of its parts.
constexpr ResultColumn PerPart(ResultColumn column) {
    column.isPerPart = true;
    return column;
}

}  // namespace zt
