#include "zt_tb/post/tb_post_node.h"

#include <unordered_set>

#include "velda_base/host/wait_cursor.h"
#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_tb/post/result_columns.h"

namespace zt {

using velda::CGXStyle;

namespace {

constexpr int kValuePlaces = 6;
constexpr int kComponents = 6;
constexpr int kEnds = 2;

/// Writes six values into neighbouring fields.
void WriteSix(velda::RecordCells& cells, int firstField, const double* values, int recRow = 1) {
    for (int at = 0; at < kComponents; ++at) cells.Number(firstField + at, values[at], recRow);
}

constexpr ResultColumn Value(std::string_view title, int unitKind) {
    return ValueColumn(title, unitKind, kValuePlaces);
}

}  // namespace

// ---- displacements ----

const ResultDeclaration& CTBPostDisp::Declared() {
    static constexpr ResultColumn kColumns[] = {
        CounterColumn("IDS_TB_POSTDISP_Node"),
        LoadColumn(),
        Value("IDS_TB_POSTDISP_DX", Unit::ModelLength),
        Value("IDS_TB_POSTDISP_DY", Unit::ModelLength),
        Value("IDS_TB_POSTDISP_DZ", Unit::ModelLength),
        Value("IDS_TB_POSTDISP_RX", Unit::None),
        Value("IDS_TB_POSTDISP_RY", Unit::None),
        Value("IDS_TB_POSTDISP_RZ", Unit::None),
        LoadOrderColumn(),
    };
    static constexpr ResultDeclaration kDeclaration{
        .name = "TBPostDisp", .columns = kColumns, .loadOrderField = 9, .objectField = 1};
    return kDeclaration;
}

CTBPostDisp::CTBPostDisp(int kind) : CTBPostDS1(kind, KeyDomain::Nodes, Declared()) {}

void CTBPostDisp::MakeObjectKeys(std::vector<std::uint32_t>& keys) {
    CClassPNode(&Results()).GetKeyList(keys);
    hasAllNodes_ = true;
}

void CTBPostDisp::ApplyObjects(const TB_ACTIVE_PARAM& param) {
    CTBPostDS1::ApplyObjects(param);
    if (param.hasObjects) hasAllNodes_ = false;
}

void CTBPostDisp::ReadRecord() { ReadEnvelope(&CPostCtrl::GetDisp, Key(), record_); }

void CTBPostDisp::GetRecTexts(velda::RecordCells& cells) {
    cells.Long(1, Key());
    cells.Text(2, LoadText());
    WriteSix(cells, 3, record_.value.data());
    cells.Long(9, OrderOfLoad());
}

// ---- reactions ----

const ResultDeclaration& CTBPostReac::Declared() {
    static constexpr ResultColumn kColumns[] = {
        CounterColumn("IDS_TB_POSTDISP_Node"),
        LoadColumn(),
        Value("IDS_TB_POSTDISP_FX", Unit::Force),
        Value("IDS_TB_POSTDISP_FY", Unit::Force),
        Value("IDS_TB_POSTDISP_FZ", Unit::Force),
        Value("IDS_TB_POSTDISP_MX", Unit::Moment),
        Value("IDS_TB_POSTDISP_MY", Unit::Moment),
        Value("IDS_TB_POSTDISP_MZ", Unit::Moment),
        LoadOrderColumn(),
    };
    static constexpr ResultDeclaration kDeclaration{
        .name = "TBPostReac", .columns = kColumns, .loadOrderField = 9, .objectField = 1};
    return kDeclaration;
}

CTBPostReac::CTBPostReac(int kind) : CTBPostDS1(kind, KeyDomain::Nodes, Declared()) {}

void CTBPostReac::MakeObjectKeys(std::vector<std::uint32_t>& keys) {
    CClassPNode(&Results()).GetKeyList(keys);
    FindReacting();
}

void CTBPostReac::FindReacting() {
    const std::vector<std::uint32_t>& supported = Results().SupportedNodes();
    const std::unordered_set<std::uint32_t> carries(supported.begin(), supported.end());
    reacting_.clear();
    for (const std::uint32_t key : keys_) {
        if (carries.contains(key)) reacting_.push_back(key);
    }
}

void CTBPostReac::ApplyExternalActive(const TB_ACTIVE_PARAM& param) {
    const velda::WaitCursor wait;
    ApplyObjects(param);
    ApplyLoadCases(param);
    BuildLoadStepRows();
    FindReacting();
    RefreshRecords();
}

void CTBPostReac::AfterApplyParam(const TB_ACTIVE_PARAM& /*param*/) { FindReacting(); }

void CTBPostReac::ReadRecord() { ReadEnvelope(&CPostCtrl::GetReac, reacting_[CurrentObject()], record_); }

void CTBPostReac::GetRecTexts(velda::RecordCells& cells) {
    cells.Long(1, reacting_[CurrentObject()]);
    cells.Text(2, LoadText());
    WriteSix(cells, 3, record_.value.data());
    cells.Long(9, OrderOfLoad());
}

void CTBPostReac::AfterSetRecCount() {
    velda::CTBCore::InsertPrePostRows(*Grid(), 0, static_cast<int>(loads_.size()) + 2);
}

void CTBPostReac::AfterRedrawTable() {
    constexpr std::uint32_t kBlue = 0xFF0000;
    constexpr std::uint32_t kYellow = 65535;
    constexpr int kRowHeight = 16;
    constexpr int kTitleHeight = 32;
    constexpr int kLastTitle = 5;
    velda::CTBCore& grid = *Grid();
    int first = 0;
    int last = 0;
    if (!grid.GetPostRecRange(first, last)) return;
    const auto index = [](int at) { return static_cast<velda::CGXRange::Index>(at); };
    grid.SetStyleRange(velda::CGXRange(index(first), 1, index(last), index(grid.GetColCount())),
                       CGXStyle().SetTextColor(kBlue));
    for (int row = first; row <= last; ++row) grid.SetRowHeight(row, row == first + 1 ? kTitleHeight : kRowHeight);

    grid.JoinCells(first, 1, grid.GetColCount());
    grid.SetStyleRange(
        velda::CGXRange(index(first), 1, index(first), index(grid.GetColCount())),
        CGXStyle().SetHorizontalAlignment(velda::HorizontalAlignment::Center).SetInterior(kBlue).SetTextColor(kYellow));
    grid.SetValueRange(first, 1,
                       velda::CMsgDll::pfuncLoadStr("IDS_TB_POSTDISP_SUMMATION_OF_REACTION_FORCES_PRINTO", 0));
    for (int field = 2; field <= kLastTitle; ++field) {
        grid.SetValueRange(first + 1, field - 1, grid.Header().Text(0, static_cast<std::uint32_t>(field - 1)));
    }
    for (std::size_t load = 0; load < loads_.size(); ++load) WriteSum(first + 2 + static_cast<int>(load), load);
}

void CTBPostReac::WriteSum(int row, std::size_t load) {
    velda::CTBCore& grid = *Grid();
    T_REAC_D sum;
    if (CPostCtrl* post = PostOf(load)) ReadEnvelopeOf(*post, loads_[load], &CPostCtrl::GetReac, 0, sum);
    grid.SetValueRange(row, 1, LoadText(load));
    for (int axis = 0; axis < 3; ++axis) {
        grid.SetValueRange(row, axis + 2, velda::FormatDouble(sum.value[static_cast<std::size_t>(axis)]));
    }
    const auto at = static_cast<velda::CGXRange::Index>(row);
    grid.SetStyleRange(
        velda::CGXRange(at, 1),
        CGXStyle().SetValueType(velda::ValueType::String).SetHorizontalAlignment(velda::HorizontalAlignment::Left));
    grid.SetStyleRange(velda::CGXRange(at, 2, at, 4), CGXStyle()
                                                          .SetValueType(velda::ValueType::Numeric)
                                                          .SetFormat(velda::NumberFormat::Fixed)
                                                          .SetPlaces(kValuePlaces)
                                                          .SetHorizontalAlignment(velda::HorizontalAlignment::Right));
}

// ---- elastic links ----

const ResultDeclaration& CTBPostStek::Declared() {
    static constexpr ResultColumn kColumns[] = {
        CounterColumn("IDS_TB_POSTDISP_No_"),
        LoadColumn(),
        PerPart(CounterColumn("IDS_TB_POSTDISP_Node")),
        PerPart(Value("IDS_TB_POSTDISP_N_Axial", Unit::Force)),
        PerPart(Value("IDS_TB_POSTDISP_Vy_Shear", Unit::Force)),
        PerPart(Value("IDS_TB_POSTDISP_Vz_Shear", Unit::Force)),
        PerPart(Value("IDS_TB_POSTDISP_T_Torsion", Unit::Moment)),
        PerPart(Value("IDS_TB_POSTDISP_My_Moment", Unit::Moment)),
        PerPart(Value("IDS_TB_POSTDISP_Mz_Moment", Unit::Moment)),
        LoadOrderColumn(),
    };
    static constexpr ResultDeclaration kDeclaration{
        .name = "TBPostStek", .columns = kColumns, .loadOrderField = 10, .objectField = 1};
    return kDeclaration;
}

CTBPostStek::CTBPostStek(int kind) : CTBPostDS1(kind, KeyDomain::None, Declared()) {}

int CTBPostStek::RecordRows() const { return kEnds; }

void CTBPostStek::MakeObjectKeys(std::vector<std::uint32_t>& keys) { CClassPElnk(&Results()).GetKeyList(keys); }

int CTBPostStek::FillActiveExtra(TB_ACTIVE_PARAM& param) {
    CTBPostDS1::FillActiveExtra(param);
    param.kinds.isOn = true;
    param.kinds.title = velda::CMsgDll::pfuncLoadStr("IDS_TB_POSTDISP_STEK_NO", 0);
    param.kinds.keys.clear();
    CClassPElnk(&Results()).GetKeyList(param.kinds.keys);
    for (const std::uint32_t key : param.kinds.keys) param.kinds.names.push_back(std::to_string(key));
    param.kinds.selected = keys_;
    return 1;
}

void CTBPostStek::ApplyObjects(const TB_ACTIVE_PARAM& param) {
    if (param.kinds.isOn) keys_ = param.kinds.selected;
}

void CTBPostStek::ReadRecord() {
    ReadEnvelope(&CPostCtrl::GetElnk, Key(), record_);
    nodes_ = CClassPElnk(&Results()).NodesOf(Key());
}

void CTBPostStek::GetRecTexts(velda::RecordCells& cells) {
    cells.Long(1, Key());
    cells.Text(2, LoadText());
    cells.Long(10, OrderOfLoad());
    for (int end = 0; end < kEnds; ++end) {
        cells.Long(3, nodes_[static_cast<std::size_t>(end)], end + 1);
        WriteSix(cells, 4, record_.value.data() + end * kComponents, end + 1);
    }
}

}  // namespace zt
