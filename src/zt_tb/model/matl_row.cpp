#include "zt_tb/model/matl_row.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "velda_lib/msg_dll.h"
#include "zt_db/library/data_tool.h"
#include "zt_db/library/matl_db.h"
#include "zt_db/library/matl_grades.h"

namespace zt {
namespace {

using velda::ColumnId;
using namespace MatlColumn;

// Places in a group, counted from its code.
constexpr ColumnId kGrade = kGrade1 - kCode1;
constexpr ColumnId kElasticity = kElasticity1 - kCode1;
constexpr ColumnId kPoisson = kPoisson1 - kCode1;
constexpr ColumnId kThermal = kThermal1 - kCode1;
constexpr ColumnId kDensity = kDensity1 - kCode1;

ColumnId CodeOfGroup(ColumnId column) { return column < kCode2 ? kCode1 : kCode2; }
bool IsGrade(ColumnId column) { return column == kGrade1 || column == kGrade2; }
bool IsCode(ColumnId column) { return column == kCode1 || column == kCode2; }

bool HasLine(std::string_view lines, std::string_view text) {
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        if (lines.substr(0, end) == text) return true;
        lines.remove_prefix(end + 1);
    }
    return false;
}

/// A value of the library in the form "%.4e".
std::string LibraryText(double value) {
    std::array<char, 32> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific, 4).ptr;
    return {buffer.data(), end};
}

}  // namespace

// ---- texts and lists ----

std::string MatlRow::NoneText() { return velda::CMsgDll::pfuncLoadStr("IDS_TB_MATL_None", 0); }

std::string_view MatlRow::ShortType(std::string_view type) {
    for (const MaterialType& known : MaterialTypes()) {
        if (known.name == type) return known.shortType;
    }
    return {};
}

std::string_view MatlRow::TypeText(std::string_view shortType) {
    for (const MaterialType& known : MaterialTypes()) {
        if (known.shortType == shortType) return known.name;
    }
    return {};
}

std::string MatlRow::TypeLines() {
    std::string lines;
    for (const MaterialType& type : MaterialTypes()) (lines += type.name) += '\n';
    return lines;
}

std::string MatlRow::CodeLines(std::string_view shortType) {
    std::vector<std::string> codes;
    CMatlDB::GetMatlCodeList(shortType, MatlType::Steel, codes);
    return NoneText() + "\n" + CDB_DataTool::ConvertArrayToString(codes);
}

std::string MatlRow::GradeLines(std::string_view code) {
    return IsNone(code) ? std::string() : CDB_DataTool::ConvertArrayToString(GradesOfCode(code));
}

bool MatlRow::HasChoice(ColumnId column) const {
    if (At(column).empty()) return true;
    if (IsCode(column)) return HasLine(CodeLines(ShortType(At(kType))), At(column));
    return !IsGrade(column) || HasLine(GradeLines(At(CodeOfGroup(column))), At(column));
}

// ---- which cells can be entered ----

bool MatlRow::IsLeading(ColumnId column) { return column == kType || IsCode(column) || IsGrade(column); }

bool MatlRow::IsEnabled(ColumnId column) const {
    if (!IsDependent(column) || column == kCode1) return true;
    if (column >= kCode2 && !IsComposite()) return false;
    if (column == kCode2) return true;
    return IsGrade(column) != IsNone(At(CodeOfGroup(column)));
}

// ---- what follows an edit ----

void MatlRow::Follow(ColumnId edited) {
    if (ShortType(At(kType)).empty()) return;
    if (edited == kType) FollowType();
    if (IsGrade(edited)) FillFromLibrary(CodeOfGroup(edited), At(edited));
    if (IsCode(edited)) FollowCode(edited);
}

void MatlRow::FollowType() {
    const bool composite = IsComposite();
    At(kCode1) = composite ? velda::CMsgDll::pfuncLoadStr("IDS_TB_MATL_KCI03_RC", 0) : NoneText();
    FollowCode(kCode1);
    if (!composite) return;
    At(kCode2) = At(kCode1);
    FollowCode(kCode2);
}

void MatlRow::FollowCode(ColumnId code) {
    At(code + kGrade).clear();
    FillFromLibrary(code, {});
    if (code == kCode1 && !IsComposite()) ResetSecondGroup();
}

void MatlRow::FillFromLibrary(ColumnId code, std::string_view grade) {
    const std::string& name = At(code);
    T_MATL_ANALYSIS values;
    if (IsNone(name) || !TakeGrade(name, grade, values)) return;
    At(code + kElasticity) = LibraryText(values.elasticity);
    At(code + kPoisson) = LibraryText(values.poisson);
    At(code + kThermal) = LibraryText(values.thermal);
    At(code + kDensity) = LibraryText(values.density);
}

void MatlRow::ResetSecondGroup() {
    for (ColumnId column = kCode2; column <= kDensity2; ++column) {
        At(column) = defaults_[static_cast<std::size_t>(column)];
    }
}

}  // namespace zt
