#include "zt_tb/post/story/tb_post_st_drft_th.h"

#include <utility>

#include "velda_lib/number_text.h"
#include "zt_tb/post/result_catalogue.h"
#include "zt_tb/post/story/story_columns.h"

namespace zt {

namespace columns = story_columns;

namespace {

constexpr ResultColumn kTime = columns::NumberColumn("IDS_TB_POSTDISP_Drift_Ang_TH_Time");
constexpr ResultColumn kStep = columns::TextColumn("IDS_TB_POSTDISP_Step");
constexpr std::string_view kAngle = "IDS_TB_POSTDISP_Story_Drift_Ang";
constexpr std::string_view kAllowable = "IDS_TB_POSTDISP_Drift_Ang_Alw_R";

/// Tables of angles differ in what tells the moment, and in the type under which the texts of angles are registered.
constexpr std::array<ResultColumn, 11> AngleColumns(const ResultColumn& moment, const ResultColumn& angle,
                                                    const ResultColumn& allowable) {
    return {columns::kModule,
            columns::kStory,
            columns::HeightColumn(Unit::ModelLength),
            columns::kLoadCase,
            moment,
            columns::ShiftColumn("IDS_TB_POSTDISP_Story_Drift", Unit::ModelLength),
            angle,
            allowable,
            columns::kRemark,
            columns::kLoadOrder,
            columns::kSeqNum};
}

constexpr ResultDeclaration AngleTable(std::string_view name, std::span<const ResultColumn> all) {
    return {
        .name = name, .columns = all, .headerHeight = columns::kHeaderHeight, .loadOrderField = 10, .objectField = 11};
}

}  // namespace

// ---- records ----

GreatestDrift::GreatestDrift(int kind, const ResultDeclaration& declaration, const StoryLayout& layout, int direction)
    : StorySource(kind, declaration, layout), direction_(direction) {}

void GreatestDrift::ReadStories(const CPostCtrl& control, const LoadChoice& load, int step,
                                std::vector<T_STDFTTH_D>& records) {
    ReadService(CStoryResult(control), load, step, records);
    const DriftLimits* limits = GivenLimits();
    if (!limits) return;
    const double denominator = limits->limit[0].denominator;
    for (T_STDFTTH_D& record : records) {
        for (T_STDFTTH_PART& part : record.part) {
            part.allowable = denominator;
            part.isFailed = ExceedsAngle(part.angle, denominator) ? 1 : 0;
        }
    }
}

void GreatestDrift::ReadService(const CStoryResult& service, const LoadChoice& load, int /*step*/,
                                std::vector<T_STDFTTH_D>& records) const {
    service.GetDFT4TH(static_cast<int>(load.kind), load.key, records);
}

const T_STDFTTH_PART& GreatestDrift::PartOf(const T_STDFTTH_D& record) const {
    const int direction = direction_ == kGoverning ? record.head.direction : direction_;
    return record.part[direction == 1 ? 1 : 0];
}

// ---- linear time histories ----

const ResultDeclaration& CTBPostStDrftTH::Declared() {
    static constexpr auto kColumns = AngleColumns(kTime, columns::TextColumn(kAngle), columns::TextColumn(kAllowable));
    static constexpr ResultDeclaration kDeclaration = AngleTable("TBPostStDrftTH", kColumns);
    return kDeclaration;
}

void CTBPostStDrftTH::WriteRecord(const T_STDFTTH_D& record, velda::RecordCells& cells) {
    const T_STDFTTH_PART& part = PartOf(record);
    if (part.inUse == 0) {
        WriteNoValues(cells, 5, kRemark);
        return;
    }
    WriteMoment(part, cells);
    cells.Number(6, part.drift);
    cells.Text(7, LargeAngleText(part.angle));
    if (part.allowable >= 0.0) cells.Text(8, AllowableAngleText(part.allowable));
    cells.Text(kRemark, VerdictText(part.isFailed == 0));
}

void CTBPostStDrftTH::OnEvent(const velda::T_TB_EVENT_D& event) {
    int first = 0;
    int last = 0;
    if (event.kind != velda::T_TB_EVENT_D::kClick || !Grid()->GetPreRecRange(first, last)) return;
    if (std::cmp_equal(event.row, first) && onCommand) onCommand(ResultCommandId::SetAllowableDrift);
}

const ResultDeclaration& CTBPostStDrftTH2::Declared() {
    static constexpr ResultColumn kColumns[] = {
        columns::kModule,
        columns::kStory,
        columns::HeightColumn(Unit::ModelLength),
        columns::kLoadCase,
        kTime,
        columns::TextColumn("IDS_TB_POSTDISP_S_Drift_Angle2"),
        columns::TextColumn(kAngle),
        columns::kRemark,
        columns::NumberColumn("IDS_TB_POSTDISP_S_Drift_Angle_Ratio2"),
        columns::kLoadOrder,
        columns::kSeqNum,
    };
    static constexpr ResultDeclaration kDeclaration = AngleTable("TBPostStDrftTH2", kColumns);
    return kDeclaration;
}

void CTBPostStDrftTH2::WriteRecord(const T_STDFTTH_D& record, velda::RecordCells& cells) {
    const T_STDFTTH_PART& part = PartOf(record);
    if (part.inUse == 0) {
        WriteNoValues(cells, 5, 9);
        return;
    }
    cells.Number(5, part.time);
    cells.Text(6, LargeAngleText(part.averageAngle));
    cells.Text(7, LargeAngleText(part.angle));
    cells.Text(kRemark, VerdictText(part.isFailed == 0));
    WriteRatio(cells, 9, part.angleRatio);
}

// ---- nonlinear time histories ----

const ResultDeclaration& CTBPostStDrftTHNL::Declared() {
    static constexpr auto kColumns =
        AngleColumns(kTime, columns::NumberColumn(kAngle), columns::NumberColumn(kAllowable));
    static constexpr ResultDeclaration kDeclaration = AngleTable("TBPostStDrftTHNL", kColumns);
    return kDeclaration;
}

void CTBPostStDrftTHNL::ReadService(const CStoryResult& service, const LoadChoice& load, int /*step*/,
                                    std::vector<T_STDFTTH_D>& records) const {
    service.GetDFT4THNC(static_cast<int>(load.kind), load.key, records);
}

// ---- pushover ----

const ResultDeclaration& CTBPostStDrftPO::Declared() {
    static constexpr auto kColumns =
        AngleColumns(kStep, columns::NumberColumn(kAngle), columns::NumberColumn(kAllowable));
    static constexpr ResultDeclaration kDeclaration = AngleTable("TBPostStDrftPO", kColumns);
    return kDeclaration;
}

CTBPostStDrftPO::CTBPostStDrftPO(int kind) : CTBPostStDrftTH(kind, Declared(), kGoverning, 5) {
    stepsOn_ = true;
    stepSettings_.isPushover = true;
}

void CTBPostStDrftPO::ApplySteps(const TB_ACTIVE_PARAM& param) {
    CTBPostStDrftTH::ApplySteps(param);
    if (!param.steps.isOn) return;
    stepNames_.clear();
    for (std::size_t i = 0; i < param.steps.names.size(); ++i) {
        stepNames_[param.steps.keys[i]] = param.steps.names[i];
    }
}

int CTBPostStDrftPO::PrepareActiveSteps(TB_ACTIVE_PARAM& param) {
    RefreshMaxStep();
    const std::set<int> reached = ReachedSteps(PushoverControlOf(Results()), param.steps.keys, stepSettings_.maxStep);
    ActiveList<std::int16_t> offered = param.steps;
    offered.names.clear();
    offered.keys.clear();
    for (std::size_t i = 0; i < param.steps.keys.size(); ++i) {
        if (!reached.contains(param.steps.keys[i])) continue;
        offered.names.push_back(param.steps.names[i]);
        offered.keys.push_back(param.steps.keys[i]);
    }
    param.steps = std::move(offered);
    return 1;
}

void CTBPostStDrftPO::ReadService(const CStoryResult& service, const LoadChoice& load, int step,
                                  std::vector<T_STDFTTH_D>& records) const {
    service.GetDFT4PV(static_cast<int>(load.kind), load.key, step, records);
}

void CTBPostStDrftPO::WriteMoment(const T_STDFTTH_PART& /*part*/, velda::RecordCells& cells) {
    const int step = Rows()[CurrentRow()].step;
    const auto name = stepNames_.find(step);
    cells.Text(5, name == stepNames_.end() ? velda::FormatLong(step) : name->second);
}

}  // namespace zt
