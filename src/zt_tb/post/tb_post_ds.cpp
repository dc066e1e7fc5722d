#include "zt_tb/post/tb_post_ds.h"

#include <algorithm>
#include <numeric>

#include "velda_base/host/wait_cursor.h"
#include "velda_lib/key_text.h"

namespace zt {

using velda::CGXRange;
using velda::CGXStyle;
using velda::KeyText;

namespace {

/// Colours of result tables, blue-green-red.
constexpr std::uint32_t kEvenBand = 15780518;
constexpr std::uint32_t kOddBand = 15063762;
constexpr std::uint32_t kCurrentRow = 0xC0DCC0;
constexpr std::uint32_t kBad = 255;
constexpr std::uint32_t kGood = 0xFF0000;

/// What stands behind the name of a load case.
std::string SuffixOf(std::int16_t subKind) {
    switch (subKind) {
        case LoadCaseSubKind::All: return KeyText("IDS_TB_POSTDISP_all");
        case LoadCaseSubKind::Min: return KeyText("IDS_TB_POSTDISP_min");
        case LoadCaseSubKind::Max: return KeyText("IDS_TB_POSTDISP_max");
        default: return {};
    }
}

/// Lengths of result tables are in the length unit of the model.
int ShownUnit(int unitKind) { return unitKind == Unit::Length ? Unit::ModelLength : unitKind; }

}  // namespace

CTBPostDS::CTBPostDS(int kind, std::uint32_t keyDomain, const ResultDeclaration& declaration)
    : CTBDataSrc(kind), declaration_(declaration), keyDomain_(keyDomain) {}

const CPostDataBase& CTBPostDS::Results() {
    static const CPostDataBase kNone;
    return CDBDoc::m_pDBDoc ? *CDBDoc::m_pDBDoc->GetMDBCtrl()->GetDBPost() : kNone;
}

// ---- set up ----

void CTBPostDS::Initialize(velda::CTBCore& grid) {
    CTBDataSrc::Initialize(grid);
    object_ = 0;
    row_ = 0;
}

void CTBPostDS::InitColHeader() {
    const int rows = declaration_.groups.empty() ? 1 : 2;
    velda::CTBColHdr& header = Grid()->ColHdr();
    header.SetRowColCount(rows, static_cast<int>(declaration_.columns.size()));
    int col = 1;
    for (const ResultColumn& column : declaration_.columns) {
        header.SetTitle(rows, col++, ResultTitle(column.title), column.unitKind);
    }
    for (const ResultGroup& group : declaration_.groups) {
        header.SetGroup(1, group.firstField, 1, group.lastField, ResultTitle(group.title));
    }
}

void CTBPostDS::AppendPreferences(std::vector<velda::STBPrefItem>& items) const {
    constexpr int kFixed = 2;
    for (const ResultColumn& column : declaration_.columns) {
        const bool isDouble = column.type == ResultColumn::Type::Double;
        items.push_back({static_cast<int>(column.type), isDouble ? kFixed : 0, column.places, column.width});
    }
}

int CTBPostDS::RecordRows() const { return partsOn_ ? std::max(static_cast<int>(parts_.size()), 1) : 1; }

void CTBPostDS::InitRecFields() {
    for (int recRow = 1; recRow <= RecordRows(); ++recRow) {
        int field = 1;
        for (const ResultColumn& column : declaration_.columns) {
            if (recRow == 1 || column.isPerPart) {
                Grid()->RecHdr().AddFld(recRow, field, ResultTitle(column.title), column.type, column.unitKind);
            }
            if (recRow == 1 && !column.isHidden) {
                Grid()->StyleCtrl().AddCol(TitleInGroup(field), column.type, field);
            }
            ++field;
        }
    }
}

std::string CTBPostDS::TitleInGroup(int fieldNo) const {
    const std::string title = ResultTitle(declaration_.columns[static_cast<std::size_t>(fieldNo - 1)].title);
    const auto isOver = [fieldNo](const ResultGroup& group) {
        return group.firstField <= fieldNo && fieldNo <= group.lastField;
    };
    const auto over = std::find_if(declaration_.groups.begin(), declaration_.groups.end(), isOver);
    return over == declaration_.groups.end() ? title : ResultTitle(over->title) + " : " + title;
}

void CTBPostDS::PutColumnStyles() {
    velda::CTBCore& grid = *Grid();
    grid.SetStyleRange(CGXRange().SetTable(), CGXStyle()
                                                  .SetVerticalAlignment(velda::VerticalAlignment::Center)
                                                  .SetControl(velda::ControlKind::StaticText)
                                                  .SetReadOnly(true));
    int col = 1;
    for (const ResultColumn& column : declaration_.columns) {
        const auto at = static_cast<CGXRange::Index>(col);
        const bool isText = column.type == ResultColumn::Type::String;
        CGXStyle style;
        style.SetValueType(isText ? velda::ValueType::String : velda::ValueType::Numeric);
        style.SetHorizontalAlignment(isText ? velda::HorizontalAlignment::Left : velda::HorizontalAlignment::Right);
        if (!isText) style.SetFormat(velda::NumberFormat::Fixed).SetPlaces(column.places);
        grid.SetStyleRange(CGXRange().SetCols(at), style);
        if (column.isHidden) grid.VisibleCtrl().HideColsByIntend(col, col, true);
        ++col;
    }
}

int CTBPostDS::UserDefinedInit() {
    velda::CTBCore& grid = *Grid();
    PutColumnStyles();
    grid.EnableMoveCols(false);
    grid.SetRowHeight(0, declaration_.headerHeight);
    grid.ApplyPreference(std::string(declaration_.name));
    if (declaration_.loadOrderField > 0) grid.SortCtrl().AddSortInfo(declaration_.loadOrderField, true);
    if (declaration_.objectField > 0) grid.SortCtrl().AddSortInfo(declaration_.objectField, true);
    return 1;
}

std::string CTBPostDS::GetUnitText(int unitKind) const {
    std::string text;
    CUnitCtrl::GetUnitSystem(ShownUnit(unitKind), text);
    return text;
}

double CTBPostDS::GetUnitFactor(int unitKind) const {
    if (unitKind != Unit::Length && unitKind != Unit::ModelLength) return 1.0;
    return CUnitCtrl::ConvValueCurUnit2ModelLengthUnit(Unit::ModelLength, 1.0);
}

// ---- records ----

long CTBPostDS::GetRecCount() { return static_cast<long>(ObjectCount() * rows_.size()); }

int CTBPostDS::SeekRec(long record) {
    if (record < 1 || record > GetRecCount()) return 0;
    const auto at = static_cast<std::size_t>(record - 1);
    object_ = at / rows_.size();
    row_ = at % rows_.size();
    ReadRecord();
    return 1;
}

bool CTBPostDS::GetOrder(std::span<const velda::STBSortItem> items, velda::RecordOrder& order) {
    if (items.size() != 2) return false;
    if (items[0] != velda::STBSortItem{declaration_.loadOrderField - 1, 0, 0}) return false;
    if (items[1] != velda::STBSortItem{declaration_.objectField - 1, 0, 0} || !AreObjectsSorted()) return false;
    const auto orderOf = [this](std::uint32_t row) { return LoadOrder(loads_[rows_[row].load]); };
    std::vector<std::uint32_t> inner(rows_.size());
    std::iota(inner.begin(), inner.end(), 0u);
    std::stable_sort(inner.begin(), inner.end(), [&](auto a, auto b) { return orderOf(a) < orderOf(b); });
    // Rows of one order stand object by object, which is another order.
    const auto equal = [&](auto a, auto b) { return orderOf(a) == orderOf(b); };
    if (std::adjacent_find(inner.begin(), inner.end(), equal) != inner.end()) return false;
    order = velda::RecordOrder::InnerFirst(std::move(inner), static_cast<std::uint32_t>(ObjectCount()));
    return true;
}

std::optional<LoadChoice> CTBPostDS::LoadOfRecord(long record) const {
    if (record < 1 || rows_.empty()) return std::nullopt;
    return loads_[rows_[static_cast<std::size_t>(record - 1) % rows_.size()].load];
}

CPostCtrl* CTBPostDS::PostOf(std::size_t load) {
    if (!CDBDoc::m_pDBDoc || load >= loads_.size()) return nullptr;
    posts_.resize(loads_.size());
    std::unique_ptr<CPostCtrl>& post = posts_[load];
    if (!post) {
        CDBDoc& doc = *CDBDoc::m_pDBDoc;
        post = std::make_unique<CPostCtrl>(*doc.GetMDBCtrl(), *doc.GetUnitCtrl());
        T_PLCOM_D combination;
        if (post->MakeLoadComb(static_cast<int>(loads_[load].kind), loads_[load].key, combination)) {
            post->SelectLoadComb(combination, 0, 0);
        }
    }
    return post.get();
}

const std::string& CTBPostDS::LoadText(std::size_t load) {
    loadTexts_.resize(loads_.size());
    std::string& text = loadTexts_[load];
    if (text.empty() && CDBDoc::m_pDBDoc) {
        const LoadChoice& choice = loads_[load];
        T_PLCOM_D combination;
        CDBDoc::m_pDBDoc->GetPostCtrl()->MakeLoadComb(static_cast<int>(choice.kind), choice.key, combination);
        text = combination.name + TextOfKind(choice.kind) + SuffixOf(choice.subKind);
    }
    return text;
}

std::optional<CTBPostDS::ShownStory> CTBPostDS::StoryOf(std::uint32_t mdul, std::uint32_t story) {
    T_PMDUL_D module;
    T_PSTOR_D record;
    if (!CClassPMdul(&Results()).Get(mdul, module) || !CClassPStor(&Results()).Get(story, record)) return std::nullopt;
    return ShownStory{module.name, record.name, record.level};
}

std::string CTBPostDS::GetErrorText() { return KeyText("IDS_TB_POSTDISP_Error"); }

// ---- drawing ----

std::string CTBPostDS::TextAt(int row, int fieldNo) const {
    return Grid()->GetValueRowCol(row, Grid()->PositionOfColumn(fieldNo - 1));
}

void CTBPostDS::BandByLoadCase(int row, int col, int loadField, CGXStyle& style) {
    int currentRow = 0;
    int currentCol = 0;
    const bool hasCurrent = Grid()->GetCurrentCell(currentRow, currentCol);
    if (hasCurrent && row == currentRow) {
        if (col != currentCol) style.SetInterior(kCurrentRow);
        return;
    }
    style.SetInterior(BandOf(TextAt(row, loadField)) % 2 == 0 ? kEvenBand : kOddBand);
}

int CTBPostDS::BandOf(const std::string& loadText) {
    if (bands_.empty()) {
        std::vector<std::pair<std::int64_t, std::string>> ordered;
        for (std::size_t load = 0; load < loads_.size(); ++load) {
            ordered.emplace_back(LoadOrder(loads_[load]), LoadText(load));
        }
        std::stable_sort(ordered.begin(), ordered.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        for (const auto& [order, text] : ordered) bands_.try_emplace(text, static_cast<int>(bands_.size()));
    }
    const auto found = bands_.find(loadText);
    return found == bands_.end() ? 0 : found->second;
}

void CTBPostDS::ColourVerdict(int row, int col, CGXStyle& style) const {
    const bool isBad = Grid()->GetValueRowCol(row, col) == "NG";
    style.SetBold(isBad).SetTextColor(isBad ? kBad : kGood);
}

// ---- what is shown ----

void CTBPostDS::RefreshRecords() {
    if (Grid()) Grid()->RecCtrl().DisplayRecords();
}

int CTBPostDS::GetActiveParam(TB_ACTIVE_PARAM& param) {
    param.objectDomain = keyDomain_;
    if (keyDomain_ == KeyDomain::None) {
        FillActiveExtra(param);
    } else {
        param.hasObjects = true;
        const CPostDataBase& results = Results();
        if (keyDomain_ == KeyDomain::Nodes) CClassPNode(&results).GetKeyList(param.allObjects);
        if (keyDomain_ == KeyDomain::Elements) CClassPElem(&results).GetKeyList(param.allObjects);
        if (keyDomain_ == KeyDomain::Members) CClassPMemb(&results).GetKeyList(param.allObjects);
        FilterObjectKeys(param.allObjects);
        GetCurObjectKeys(param.selectedObjects);
        if (keyDomain_ == KeyDomain::Members) {
            param.stories.isOn = hasStoryFilter_;
            FillActivePartList(param);
        }
    }
    param.hasLoads = loadsOn_;
    if (loadsOn_) GetCurLoadCases(param.loads.selected);
    param.steps.isOn = stepsOn_;
    if (stepsOn_) param.steps.selected = steps_;
    param.parts.isOn = partsOn_;
    if (partsOn_) param.parts.selected = parts_;
    return 1;
}

int CTBPostDS::FillActiveExtra(TB_ACTIVE_PARAM& param) {
    param.hasObjects = false;
    param.kinds.isOn = false;
    param.stories.isOn = false;
    return 1;
}

void CTBPostDS::SetActiveParam(const TB_ACTIVE_PARAM& param) {
    const velda::WaitCursor wait;
    ApplyParts(param);
    ApplyObjects(param);
    ApplyLoadCases(param);
    ApplySteps(param);
    if (param.hasLoads || param.steps.isOn) BuildLoadStepRows();
    AfterApplyParam(param);
    RefreshRecords();
}

void CTBPostDS::ApplyLoadCases(const TB_ACTIVE_PARAM& param) {
    if (param.hasLoads) loads_ = param.loads.selected;
}

void CTBPostDS::ApplySteps(const TB_ACTIVE_PARAM& param) {
    if (param.steps.isOn) steps_ = param.steps.selected;
}

void CTBPostDS::ApplyParts(const TB_ACTIVE_PARAM& param) {
    if (!param.parts.isOn) return;
    parts_ = param.parts.selected;
    if (!Grid()) return;
    Grid()->FieldsChanged();
}

void CTBPostDS::BuildLoadStepRows() {
    posts_.clear();
    ForgetTexts();
    if (!loadsOn_) return;
    const bool hasSteps = stepSettings_.isNonlinear || stepSettings_.isPushover || stepSettings_.listOff;
    if (!hasSteps) steps_ = {0};
    RefreshMaxStep();
    rows_ = zt::BuildLoadStepRows(PushoverControlOf(Results()), loads_, steps_, stepSettings_);
}

void CTBPostDS::RefreshMaxStep() {
    if (!CDBDoc::m_pDBDoc) return;
    const CPostCtrl& post = *CDBDoc::m_pDBDoc->GetPostCtrl();
    stepSettings_.maxStep = stepSettings_.isNonlinear ? post.GetMaxStep_NL() : post.GetMaxStep_PO();
}

CTBPostDS* PostSourceOf(const velda::CTBCore* grid) {
    return grid ? dynamic_cast<CTBPostDS*>(grid->GetDataSrc()) : nullptr;
}

}  // namespace zt
