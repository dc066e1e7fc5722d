#include <algorithm>
#include <vector>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_db/records/load.h"
#include "zt_db/records/load_case_type.h"
#include "zt_db/records/matl.h"
#include "zt_db/records/name.h"
#include "zt_db/records/sect.h"
#include "zt_db/records/stor.h"
#include "zt_db/records/thik.h"
#include "zt_tb/core/tb_common_wnd.h"

namespace zt {
namespace {

using velda::CGXStyle;
using Keys = std::vector<std::uint32_t>;

/// A type of static load cases and its bit in a mask.
struct LoadTypeBit {
    std::string_view type;
    std::uint32_t bit;
};
constexpr LoadTypeBit kLoadTypeBits[] = {
    {LoadCaseType::Dead, 0x1},
    {LoadCaseType::Live, 0x2},
    {LoadCaseType::RoofLive, 0x2},
    {LoadCaseType::Wind, 0x4},
    {LoadCaseType::Earthquake, 0x8},
    {"EVT", 0x10},
    {LoadCaseType::Temperature, 0x20},
    {LoadCaseType::EarthPressure, 0x40},
    {LoadCaseType::WaterPressure, 0x80},
    {"EH", 0x100},
    {"EV", 0x200},
    {"WH", 0x400},
    {"WV", 0x800},
    {"BS", 0x1000},
    {"US", 0x1000},
    {"TU", 0x2000},
    {"TD", 0x4000},
    {"CLV", 0x200000},
    {"CLR", 0x200000},
    {"CLH", 0x200000},
};

bool IsInMask(std::string_view type, std::uint32_t mask) {
    if (mask == CTBCommonWnd::kAllLoadTypes) return true;
    return std::any_of(std::begin(kLoadTypeBits), std::end(kLoadTypeBits),
                       [&](const LoadTypeBit& known) { return (known.bit & mask) != 0 && known.type == type; });
}

CGXStyle ListStyle(std::string_view lines, std::string_view textColumn, std::string_view third) {
    return CGXStyle()
        .SetControl(velda::ControlKind::TabbedDropDownList)
        .SetChoiceList(lines)
        .SetKeyColumn("0")
        .SetTextColumn(textColumn)
        .SetThirdAttribute(third);
}

/// A list of keys that are shown by their names.
CGXStyle KeyListStyle(std::string_view lines, std::string_view third) {
    return ListStyle(lines, "1", third).SetFourthAttribute("0");
}

template <class Class>
std::string KeyLines(const Class& records, const Keys& keys) {
    std::string lines;
    typename Class::Record record;
    for (const std::uint32_t key : keys) {
        if (records.Get(key, record)) lines += velda::FormatLong(key) + "\t" + record.name + "\n";
    }
    return lines;
}

/// The keys of all records of a class with their names.
template <class Class>
std::string AllKeyLines() {
    const Class* records = CTBCommonWnd::GetRecords<Class>();
    Keys keys;
    return records && records->GetKeyList(keys) ? KeyLines(*records, keys) : std::string();
}

/// The names of groups of a type, the text for none before them.
std::string GroupLines(int type) {
    std::string lines = velda::CMsgDll::pfuncLoadStr("IDS_TB_NAME_NONE", 0) + "\n";
    const auto* groups = CTBCommonWnd::GetRecords<CClassName>();
    Keys keys;
    std::vector<std::string> names;
    if (groups) groups->GetList(type, keys, names);
    for (const std::string& name : names) lines += name + "\n";
    return lines;
}

/// The names of those load cases for which `takes` holds.
template <class Takes>
std::string LoadCaseLines(Takes takes) {
    const auto* cases = CTBCommonWnd::GetRecords<CClassStld>();
    Keys keys;
    if (cases) cases->GetKeyList(keys, 1, 1);
    std::string lines;
    T_STLD_D loadCase;
    for (const std::uint32_t key : keys) {
        if (cases->Get(key, loadCase) && takes(loadCase)) lines += loadCase.name + "\n";
    }
    return lines;
}

}  // namespace

void CTBCommonWnd::SetReferenceStyle(int row, int col, const CGXStyle& style) {
    const auto number = static_cast<std::uint32_t>(col);
    const auto cells =
        row == 0 ? velda::CGXRange().SetCols(number) : velda::CGXRange(static_cast<std::uint32_t>(row), number);
    SetStyleRange(cells, style);
    RebuildControl(col);
}

void CTBCommonWnd::RebuildControl(int col) {
    int currentRow = 0;
    int currentCol = 0;
    if (GetCurrentCell(currentRow, currentCol) && currentCol == col) {
        SetCurrentCell(currentRow, currentCol, kRebuildControl);
    }
}

void CTBCommonWnd::SetMatlColumn(int col) {
    const auto* materials = GetRecords<CClassMatl>();
    Keys keys;
    if (!materials || !materials->GetKeyList(keys)) return;
    SetReferenceStyle(0, col, KeyListStyle(KeyLines(*materials, keys), "1"));
}

void CTBCommonWnd::SetSectColumn(int col, int membType) {
    const auto* sections = GetRecords<CClassSect>();
    Keys keys;
    if (!sections || !sections->GetKeyListByMembType(keys, membType, 1, 0)) return;
    SetReferenceStyle(0, col, KeyListStyle(KeyLines(*sections, keys), "1"));
}

void CTBCommonWnd::SetThikColumn(int col, int membType) {
    const auto* thicknesses = GetRecords<CClassThik>();
    Keys keys;
    if (!thicknesses || !thicknesses->GetKeyListByMembType(keys, membType, 1)) return;
    SetReferenceStyle(0, col, KeyListStyle(KeyLines(*thicknesses, keys), "0"));
}

void CTBCommonWnd::SetAllSectColumn(int col) {
    SetReferenceStyle(0, col, KeyListStyle(AllKeyLines<CClassSect>(), "1"));
}

CGXStyle CTBCommonWnd::AllThikStyle() { return KeyListStyle(AllKeyLines<CClassThik>(), "0"); }

CGXStyle CTBCommonWnd::NameListStyle(std::string_view lines) {
    return ListStyle(lines, "0", "1")
        .SetValueType(velda::ValueType::String)
        .SetHorizontalAlignment(velda::HorizontalAlignment::Left)
        .SetValue("");
}

void CTBCommonWnd::SetPontNameColumn(int col) { SetMembNameColumn(0, col, T_NAME_D::kNodeGroup); }

void CTBCommonWnd::SetMembNameColumn(int row, int col, int type) {
    SetReferenceStyle(row, col, NameListStyle(GroupLines(type)));
}

void CTBCommonWnd::SetStldNameColumn(int col) {
    SetReferenceStyle(0, col, NameListStyle(LoadCaseLines([](const T_STLD_D&) { return true; })));
}

void CTBCommonWnd::SetPartialStldNameColumn(int col, std::uint32_t typeMask) {
    const auto* cases = GetRecords<CClassStld>();
    if (!cases || cases->GetCount() == 0) return;
    const auto isTaken = [typeMask](const T_STLD_D& loadCase) { return IsInMask(loadCase.type, typeMask); };
    SetReferenceStyle(0, col, NameListStyle(LoadCaseLines(isTaken)));
}

void CTBCommonWnd::SetStorColumn(int col) {
    const auto* modules = GetRecords<CClassMdul>();
    Keys moduleKeys;
    if (modules) modules->GetKeyList(moduleKeys);
    std::string lines;
    for (const std::uint32_t moduleKey : moduleKeys) {
        Keys storyKeys;
        GetRecords<CClassStor>()->GetKeyListReverse(storyKeys, moduleKey);
        for (const std::uint32_t key : storyKeys) lines += GetStorName(key) + "\n";
    }
    SetReferenceStyle(0, col, NameListStyle(lines));
}

void CTBCommonWnd::SetYesNoColumn(int col) {
    SetReferenceStyle(0, col, NameListStyle(velda::CMsgDll::pfuncLoadStr("IDS_TB_COMMONWND_YESNO", 0)));
}

}  // namespace zt
