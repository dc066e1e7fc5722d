#include "zt_cmd/matl_dialog.h"

#include "velda_lib/key_text.h"
#include "zt_db/library/matl_db.h"
#include "zt_db/library/matl_grades.h"
#include "zt_db/records/matl_type.h"

namespace zt {

using velda::KeyText;

namespace {

using Kind = PropertyField::Kind;
using MatlField = CModelPropMatlDlg::Field;

std::string NameOfType(const std::string& type) {
    for (const MaterialType& known : MaterialTypes()) {
        if (known.shortType == type) return std::string(known.name);
    }
    return {};
}

std::string NoCode() { return KeyText("IDS_TB_MATL_None"); }
bool HasCode(const T_MATL_ANALYSIS& group) { return !group.code.empty() && group.code != NoCode(); }

/// The codes of a material's type; for a composite those of steel and of concrete, in either group.
std::vector<std::string> Codes(const T_MATL_D& material) {
    std::vector<std::string> codes;
    CMatlDB::GetMatlCodeList(material.type, MatlType::Steel, codes);
    codes.insert(codes.begin(), NoCode());
    return codes;
}

template <std::size_t Group>
std::vector<std::string> Grades(const T_MATL_D& material) {
    return GradesOfCode(material.analysis[Group].code);
}

template <std::size_t Group>
bool IsUsed(const T_MATL_D& material) {
    return Group == 0 || material.type == MatlType::Composite;
}
template <std::size_t Group>
bool IsOwn(const T_MATL_D& material) {
    return IsUsed<Group>(material) && !HasCode(material.analysis[Group]);
}
template <std::size_t Group>
bool IsOfCode(const T_MATL_D& material) {
    return IsUsed<Group>(material) && HasCode(material.analysis[Group]);
}

template <std::size_t Group>
void ChooseGrade(T_MATL_D& material, const std::string& name) {
    T_MATL_ANALYSIS& group = material.analysis[Group];
    group.codeName = name;
    TakeGrade(group.code, name, group);
    if (material.name.empty()) material.name = name;
}

template <std::size_t Group>
void ChooseCode(T_MATL_D& material, const std::string& code) {
    material.analysis[Group].code = code == NoCode() ? std::string() : code;
    const std::vector<std::string> grades = Grades<Group>(material);
    ChooseGrade<Group>(material, grades.empty() ? std::string() : grades.front());
}

void ChooseType(T_MATL_D& material, const std::string& name) {
    for (const MaterialType& known : MaterialTypes()) {
        if (known.name == name) material.type = known.shortType;
    }
    material.analysis = {};
}

template <std::size_t Group, auto Member>
MatlField Figure(std::string_view labelKey, int unit = Unit::None) {
    return {labelKey,
            Kind::Number,
            unit,
            [](const T_MATL_D& material) { return velda::FormatDouble(material.analysis[Group].*Member); },
            [](T_MATL_D& material, const std::string& text) { material.analysis[Group].*Member = velda::wtof(text); },
            nullptr,
            &IsOwn<Group>};
}

template <std::size_t Group>
void AppendGroup(std::vector<MatlField>& fields) {
    fields.insert(fields.end(),
                  {{Group == 0 ? "IDS_CMD_MATL_CODE1" : "IDS_CMD_MATL_CODE2", Kind::Choice, Unit::None,
                    [](const T_MATL_D& material) {
                        return HasCode(material.analysis[Group]) ? material.analysis[Group].code : NoCode();
                    },
                    &ChooseCode<Group>, &Codes, &IsUsed<Group>},
                   {"IDS_CMD_MATL_GRADE", Kind::Choice, Unit::None,
                    [](const T_MATL_D& material) { return material.analysis[Group].codeName; }, &ChooseGrade<Group>,
                    &Grades<Group>, &IsOfCode<Group>},
                   Figure<Group, &T_MATL_ANALYSIS::elasticity>("IDS_CMD_MATL_ELASTICITY"),
                   Figure<Group, &T_MATL_ANALYSIS::poisson>("IDS_CMD_MATL_POISSON"),
                   Figure<Group, &T_MATL_ANALYSIS::thermal>("IDS_CMD_MATL_THERMAL", T_MATL_ANALYSIS::unit[2]),
                   Figure<Group, &T_MATL_ANALYSIS::density>("IDS_CMD_MATL_DENSITY")});
}

}  // namespace

std::string CModelPropMatlDlg::GetTitle() const { return KeyText("IDS_CMD_MATL_TITLE"); }

std::vector<MatlField> CModelPropMatlDlg::Declared() const {
    std::vector<MatlField> fields{
        TextField<T_MATL_D, &T_MATL_D::name>("IDS_CMD_NAME"),
        {"IDS_CMD_MATL_TYPE", Kind::Choice, Unit::None,
         [](const T_MATL_D& material) { return NameOfType(material.type); }, &ChooseType,
         [](const T_MATL_D&) {
             std::vector<std::string> names;
             for (const MaterialType& known : MaterialTypes()) names.emplace_back(known.name);
             return names;
         }},
    };
    AppendGroup<0>(fields);
    AppendGroup<1>(fields);
    fields.push_back(NumberField<T_MATL_D, &T_MATL_D::dampingRatio>("IDS_CMD_MATL_DAMPING", Unit::None));
    return fields;
}

velda::Outcome CModelPropMatlDlg::CheckRecord() const {
    const T_MATL_D& material = Edited();
    if (material.type.empty()) return velda::Outcome::Refused(KeyText("IDS_CMD_MATL_NO_TYPE"));
    const std::size_t groups = material.type == MatlType::Composite ? 2 : 1;
    for (std::size_t group = 0; group < groups; ++group) {
        if (material.analysis[group].elasticity <= 0.0)
            return velda::Outcome::Refused(KeyText("IDS_CMD_MATL_NO_STIFFNESS"));
    }
    return velda::Outcome::Done();
}

}  // namespace zt
