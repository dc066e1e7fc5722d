#include "zt_tb/post/member_parts.h"

#include "velda_lib/msg_dll.h"
#include "zt_tb/post/id_range.h"

namespace zt {
namespace {

constexpr std::string_view kEndI = "IDS_TB_POSTVIEW_Part___i";
constexpr std::string_view kEndJ = "IDS_TB_POSTVIEW_Part___j";
constexpr std::string_view kMiddle = "IDS_TB_POSTVIEW_Part_2_4";

constexpr MemberPart kBeamParts[] = {
    {0, kEndI},
    {2, "IDS_TB_POSTVIEW_Part_1_8"},
    {4, "IDS_TB_POSTVIEW_Part_2_8"},
    {6, "IDS_TB_POSTVIEW_Part_3_8"},
    {8, "IDS_TB_POSTVIEW_Part_4_8"},
    {10, "IDS_TB_POSTVIEW_Part_5_8"},
    {12, "IDS_TB_POSTVIEW_Part_6_8"},
    {14, "IDS_TB_POSTVIEW_Part_7_8"},
    {16, kEndJ},
};
constexpr MemberPart kColumnParts[] = {
    {1, "IDS_TB_POSTVIEW_Top"},
    {3, "IDS_TB_POSTVIEW_M_2"},
    {2, "IDS_TB_POSTVIEW_M_1"},
    {0, "IDS_TB_POSTVIEW_Bottom"},
};
constexpr MemberPart kBraceParts[] = {{0, kEndI}, {1, kEndJ}};
constexpr MemberPart kDesignColumnParts[] = {{0, kEndI}, {4, kMiddle}, {7, kEndJ}};
constexpr MemberPart kDesignWallParts[] = {{0, "IDS_TB_POSTDISP_Bot"}, {7, "IDS_TB_POSTDISP_Top"}};
constexpr MemberPart kQuarterParts[] = {
    {0, kEndI}, {2, "IDS_TB_POSTVIEW_Part_1_4"}, {4, kMiddle}, {6, "IDS_TB_POSTVIEW_Part_3_4"}, {7, kEndJ}};

constexpr IdRange kBeamTabs[] = {{66, 66}, {69, 69}, {71, 71}, {74, 74}, {77, 77}, {80, 80}, {93, 93}, {96, 96}};
constexpr IdRange kColumnTabs[] = {{67, 67}, {70, 70}, {72, 72}, {75, 75}, {78, 78}, {81, 81}, {94, 94}, {97, 97}};
constexpr IdRange kBraceTabs[] = {{68, 68}, {73, 73}, {79, 79}, {95, 95}};
constexpr IdRange kDesignColumnTabs[] = {{180, 180}};
constexpr IdRange kDesignWallTabs[] = {{181, 182}};

struct PartRule {
    IdSet tabs;
    std::span<const MemberPart> parts;
};
constexpr PartRule kRules[] = {
    {kBeamTabs, kBeamParts},
    {kColumnTabs, kColumnParts},
    {kBraceTabs, kBraceParts},
    {kDesignColumnTabs, kDesignColumnParts},
    {kDesignWallTabs, kDesignWallParts},
};

}  // namespace

std::span<const MemberPart> MemberPartsOf(int tab) {
    const auto* found = std::find_if(std::begin(kRules), std::end(kRules),
                                     [tab](const PartRule& rule) { return Contains(rule.tabs, tab); });
    return found == std::end(kRules) ? std::span<const MemberPart>(kQuarterParts) : found->parts;
}

void GetAllPartForActiveNew(int tab, ActiveList<std::int16_t>& parts) {
    parts.names.clear();
    parts.keys.clear();
    for (const MemberPart& part : MemberPartsOf(tab)) {
        parts.names.push_back(velda::CMsgDll::pfuncLoadStr(part.nameKey, 0));
        parts.keys.push_back(part.number);
    }
}

}  // namespace zt
