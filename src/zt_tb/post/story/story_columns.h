#pragma once

#include "zt_tb/post/result_columns.h"

namespace zt::story_columns {

// Columns that story tables share. Displacements and drifts have six places; heights, times and ratios four.

inline constexpr ResultColumn kModule = {.title = "IDS_TB_POSTDISP_Module"};
inline constexpr ResultColumn kStory = {.title = "IDS_TB_POSTDISP_Story"};
inline constexpr ResultColumn kLoadCase = {.title = "IDS_TB_POSTDISP_Load_Case", .width = 130};
inline constexpr ResultColumn kRemark = {.title = "IDS_TB_POSTDISP_Remark", .width = 60};
inline constexpr ResultColumn kLoadOrder = LoadOrderColumn();
inline constexpr ResultColumn kSeqNum = HiddenColumn("IDS_TB_POSTDISP_Seq_Num");

constexpr ResultColumn TextColumn(std::string_view title) { return {.title = title, .width = 100}; }
constexpr ResultColumn NumberColumn(std::string_view title, int unitKind = Unit::None, int places = 4) {
    return {.title = title, .type = ResultColumn::Type::Double, .unitKind = unitKind, .places = places, .width = 100};
}
constexpr ResultColumn ShiftColumn(std::string_view title, int unitKind) { return NumberColumn(title, unitKind, 6); }
constexpr ResultColumn HeightColumn(int unitKind) { return NumberColumn("IDS_TB_POSTDISP_Story_Height", unitKind); }

/// The height of a header whose titles take several lines.
inline constexpr int kHeaderHeight = 54;

}  // namespace zt::story_columns
