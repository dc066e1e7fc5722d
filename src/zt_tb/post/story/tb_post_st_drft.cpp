#include "zt_tb/post/story/tb_post_st_drft.h"

#include <cmath>

#include "zt_db/post/story/story_result.h"
#include "zt_db/post/story/story_result_post.h"
#include "zt_tb/post/story/story_columns.h"

namespace zt {

namespace columns = story_columns;

// ---- limits ----

void CTBPostStDrftBase::SetLimits(const DriftLimits& limits) {
    limits_ = limits;
    areGiven_ = true;
    ReadAgain();
    RefreshRecords();
}

bool CTBPostStDrftBase::HasAllowableAngle() {
    double angle = 0.0;
    return CDBDoc::m_pDBDoc && CStoryResult(*CDBDoc::m_pDBDoc->GetPostCtrl()).CalcAlwAngle4DFT(angle, 1) != 0;
}

void StaticDrift::ReadStories(const CPostCtrl& control, const LoadChoice& load, int /*step*/,
                              std::vector<T_STDFT_D>& records) {
    CStoryResultPost(control).GetDFT(static_cast<int>(load.kind), load.key, records);
}

// ---- drift angles ----

const ResultDeclaration& CTBPostStDrftAng::Declared() {
    static constexpr ResultColumn kColumns[] = {
        columns::kModule,
        columns::kStory,
        columns::HeightColumn(Unit::ModelLength),
        columns::kLoadCase,
        columns::ShiftColumn("IDS_TB_POSTDISP_Max_Story_Drift", Unit::ModelLength),
        columns::TextColumn("IDS_TB_POSTDISP_Max_Story_Drift_Angle"),
        columns::TextColumn("IDS_TB_POSTDISP_Allowable_Story_Drift_Angle"),
        columns::kRemark,
        columns::kLoadOrder,
        columns::kSeqNum,
    };
    static constexpr ResultDeclaration kDeclaration{.name = "TBPostStDrftAng",
                                                    .columns = kColumns,
                                                    .headerHeight = columns::kHeaderHeight,
                                                    .loadOrderField = 9,
                                                    .objectField = 10};
    return kDeclaration;
}

CTBPostStDrftAng::CTBPostStDrftAng(int kind, int follows)
    : StaticDrift(kind, Declared(), StoryLayout{.height = 3, .load = 4, .verdicts = {8}, .plot = 5}),
      follows_(follows == 1) {}

CTBPostStDrftAng::~CTBPostStDrftAng() {
    if (leader_ == this) leader_ = nullptr;
}

void CTBPostStDrftAng::Initialize(velda::CTBCore& grid) {
    StaticDrift::Initialize(grid);
    if (!follows_) leader_ = this;
}

void CTBPostStDrftAng::MakeRecords() {
    if (Follows()) loads_ = leader_->loads_;
    StaticDrift::MakeRecords();
}

void CTBPostStDrftAng::MakeObjectKeys(std::vector<std::uint32_t>& keys) {
    if (Follows() && loads_ == leader_->loads_) {
        TakeRecords(*leader_, keys);
    } else {
        StaticDrift::MakeObjectKeys(keys);
    }
}

void CTBPostStDrftAng::UpdateUnit() {
    // The leading table may still have records of the former units.
    SetReRead(true);
    StaticDrift::UpdateUnit();
}

void CTBPostStDrftAng::WriteRecord(const T_STDFT_D& record, velda::RecordCells& cells) {
    const T_STDFT_PART& part = PartOf(record);
    if (part.inUse == 0) {
        WriteNoValues(cells, 5, 8);
        return;
    }
    const double denominator = Limits().DenominatorOf(record.type);
    cells.Number(5, part.maximum.drift);
    cells.Text(6, AngleText(part.maximum.angle));
    cells.Text(7, AllowableAngleText(denominator));
    cells.Text(8, VerdictText(!ExceedsAngle(part.maximum.angle, denominator)));
}

// ---- drift by a seismic code ----

const ResultDeclaration& CTBPostStDrftQorv::Declared() {
    static constexpr ResultColumn kDrift = columns::ShiftColumn("IDS_TB_POSTDISP_Story_Drift", Unit::Length);
    static constexpr ResultColumn kModified = columns::ShiftColumn("IDS_TB_POSTDISP_Modified_Drift", Unit::Length);
    static constexpr ResultColumn kRatio = columns::NumberColumn("IDS_TB_POSTDISP_Story_Drift_Ratio");
    static constexpr ResultColumn kColumns[] = {
        columns::kModule,
        columns::kStory,
        columns::HeightColumn(Unit::Length),
        columns::kLoadCase,
        columns::NumberColumn("IDS_TB_POSTDISP_P_DELTA"),
        columns::NumberColumn("IDS_TB_POSTDISP_Alw_R"),
        {.title = "IDS_TB_POSTDISP_Node", .type = ResultColumn::Type::Long},
        kDrift,
        kModified,
        kRatio,
        columns::kRemark,
        kDrift,
        kModified,
        kRatio,
        columns::kRemark,
        columns::kLoadOrder,
        columns::kSeqNum,
    };
    static constexpr ResultGroup kGroups[] = {
        {.firstField = 7, .lastField = 11, .title = "IDS_TB_POSTDISP_Max_Drift"},
        {.firstField = 12, .lastField = 15, .title = "IDS_TB_POSTDISP_CENTER_MASS"},
    };
    static constexpr ResultDeclaration kDeclaration{.name = "TBPostStDrftQorv",
                                                    .columns = kColumns,
                                                    .groups = kGroups,
                                                    .headerHeight = columns::kHeaderHeight,
                                                    .loadOrderField = 16,
                                                    .objectField = 17};
    return kDeclaration;
}

CTBPostStDrftQorv::CTBPostStDrftQorv(int kind)
    : StaticDrift(kind, Declared(), StoryLayout{.height = 3, .load = 4, .verdicts = {11, 15}, .plot = 10}) {}

void CTBPostStDrftQorv::AfterRedrawTable() {
    if (!FollowRestriction()) return;
    const velda::GridUpdateLock redraws(*Grid());
    Grid()->RecCtrl().ForgetCells();
    Grid()->SortCtrl().Apply();
}

void CTBPostStDrftQorv::WriteRecord(const T_STDFT_D& record, velda::RecordCells& cells) {
    const T_STDFT_PART& part = PartOf(record);
    const bool isAtCenter = Restriction().driftMethod != DriftMethod::Maximum;
    cells.Number(5, isAtCenter ? part.center.pDelta : part.maximum.pDelta);
    cells.Number(6, Restriction().allowableRatio);
    if (part.inUse == 0) {
        WriteNoValues(cells, 7, 15);
        return;
    }
    cells.Long(7, part.maximum.node);
    WritePoint(part.maximum, 8, cells);
    WritePoint(part.center, 12, cells);
}

void CTBPostStDrftQorv::WritePoint(const T_STDFT_POINT& point, int firstField, velda::RecordCells& cells) const {
    const double ratio = std::abs(point.ratio);
    cells.Number(firstField, point.drift);
    cells.Number(firstField + 1, std::abs(point.modified));
    cells.Number(firstField + 2, ratio);
    cells.Text(firstField + 3, VerdictText(Restriction().allowableRatio - ratio > kStoryTolerance));
}

}  // namespace zt
