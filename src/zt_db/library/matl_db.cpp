#include "zt_db/library/matl_db.h"

#include <algorithm>

#include "velda_lib/number_text.h"
#include "zt_db/library/library.h"
#include "zt_db/records/matl_type.h"

namespace zt {
namespace {

bool BelongsTo(const SteelGrade& grade, std::string_view code) { return grade.code == code; }
bool BelongsTo(const ConcreteGrade& grade, std::string_view code) { return grade.code == code; }
bool BelongsTo(const LibraryBarGrade& grade, std::string_view standard) { return grade.standard == standard; }

double StrengthOf(const ConcreteGrade& grade) { return grade.fck; }
double StrengthOf(const LibraryBarGrade& grade) { return grade.fy; }

/// One value of each row of a code.
template <class Row, class Value, class Take>
int ListOf(std::string_view code, std::vector<Value>& values, Take take) {
    values.clear();
    const auto library = Library::Current();
    for (const Row& row : library->Rows<Row>()) {
        if (BelongsTo(row, code)) values.push_back(take(row));
    }
    return values.empty() ? 0 : 1;
}

template <class Row>
int NamesOf(std::string_view code, std::vector<std::string>& names) {
    return ListOf<Row>(code, names, [](const Row& row) { return row.name; });
}

template <class Row>
int StrengthsOf(std::string_view code, std::vector<double>& strengths) {
    return ListOf<Row>(code, strengths, [](const Row& row) { return StrengthOf(row); });
}

template <class Row>
int StrengthsOf(std::string_view code, std::vector<std::string>& strengths) {
    return ListOf<Row>(code, strengths, [](const Row& row) { return velda::FormatDouble(StrengthOf(row)); });
}

template <class Row>
int DataOf(std::string_view code, std::string_view name, Row& data) {
    const auto library = Library::Current();
    const Row* found = library->Find<Row>(code, name);
    if (found) data = *found;
    return found ? 1 : 0;
}

template <class Row>
double StrengthOfName(std::string_view code, std::string_view name) {
    Row grade;
    return DataOf(code, name, grade) ? StrengthOf(grade) : 0.0;
}

template <class Row>
std::string NameOfStrength(std::string_view code, double strength) {
    const auto library = Library::Current();
    for (const Row& row : library->Rows<Row>()) {
        if (BelongsTo(row, code) && velda::RoundToShown(StrengthOf(row)) == velda::RoundToShown(strength)) {
            return row.name;
        }
    }
    return {};
}

/// Each code once, in the order of the library, behind what the list holds.
template <class Row>
void AppendCodes(std::vector<std::string>& codes) {
    const auto library = Library::Current();
    for (const Row& row : library->Rows<Row>()) {
        if (std::find(codes.begin(), codes.end(), row.code) == codes.end()) codes.push_back(row.code);
    }
}

template <class Row>
bool HasCode(std::string_view code) {
    const auto library = Library::Current();
    const std::vector<Row>& rows = library->Rows<Row>();
    return std::any_of(rows.begin(), rows.end(), [&](const Row& row) { return BelongsTo(row, code); });
}

}  // namespace

CMatlDB& CMatlDB::Shared() {
    static CMatlDB shared;
    return shared;
}

int CMatlDB::GetMatlCodeList(std::string_view type, std::string_view selector, std::vector<std::string>& codes) {
    codes.clear();
    const bool composite = type == MatlType::Composite;
    const bool concreteFirst = composite && selector == MatlType::Concrete;
    if (concreteFirst) AppendCodes<ConcreteGrade>(codes);
    if (composite || type == MatlType::Steel) AppendCodes<SteelGrade>(codes);
    if (type == MatlType::Concrete || (composite && !concreteFirst)) AppendCodes<ConcreteGrade>(codes);
    return codes.empty() ? 0 : 1;
}

int CMatlDB::GetMatlType(std::string_view code, std::string& type) {
    if (HasCode<SteelGrade>(code)) {
        type = MatlType::Steel;
    } else if (HasCode<ConcreteGrade>(code)) {
        type = MatlType::Concrete;
    } else {
        return 0;
    }
    return 1;
}

int CMatlDB::GetSteelNameList(std::string_view code, std::vector<std::string>& names) {
    return NamesOf<SteelGrade>(code, names);
}
int CMatlDB::GetConcreteNameList(std::string_view code, std::vector<std::string>& names) {
    return NamesOf<ConcreteGrade>(code, names);
}
int CMatlDB::GetSteelData(std::string_view code, std::string_view name, SteelGrade& data) {
    return DataOf(code, name, data);
}
int CMatlDB::GetConcreteData(std::string_view code, std::string_view name, ConcreteGrade& data) {
    return DataOf(code, name, data);
}

double CMatlDB::GetSteelFy(std::string_view code, std::string_view name, double thickness) {
    SteelGrade grade;
    if (!DataOf(code, name, grade)) return 0.0;
    double fy = grade.fy;
    for (std::size_t band = 0; band < SteelGrade::kBands && grade.bandFy[band] > 0.0; ++band) {
        fy = grade.bandFy[band];
        const double limit = grade.bandThickness[band];
        if (limit == 0.0 || thickness <= limit) break;
    }
    return fy;
}

int CMatlDB::GetConcfckList(std::string_view code, std::vector<std::string>& strengths) {
    return StrengthsOf<ConcreteGrade>(code, strengths);
}
int CMatlDB::GetConcfckList(std::string_view code, std::vector<double>& strengths) {
    return StrengthsOf<ConcreteGrade>(code, strengths);
}
double CMatlDB::GetMatlConcreteFc(std::string_view code, std::string_view name) {
    return StrengthOfName<ConcreteGrade>(code, name);
}
std::string CMatlDB::GetStrConcName(std::string_view code, double strength) {
    return NameOfStrength<ConcreteGrade>(code, strength);
}

std::string CMatlDB::GetRebarStandard(std::string_view code) {
    if (HasCode<LibraryBarGrade>(code)) return std::string(code);
    const auto library = Library::Current();
    const DesignCodeSet* found = library->Find<DesignCodeSet>(code);
    return found ? found->barStandard : std::string();
}

int CMatlDB::GetRebarfyList(std::string_view code, std::vector<std::string>& strengths) {
    return StrengthsOf<LibraryBarGrade>(GetRebarStandard(code), strengths);
}
int CMatlDB::GetRebarfyList(std::string_view code, std::vector<double>& strengths) {
    return StrengthsOf<LibraryBarGrade>(GetRebarStandard(code), strengths);
}
int CMatlDB::GetRebarNameList(std::string_view code, std::vector<std::string>& names) {
    return NamesOf<LibraryBarGrade>(GetRebarStandard(code), names);
}
double CMatlDB::GetRebarfyFromRebarName(std::string_view code, std::string_view name) {
    return StrengthOfName<LibraryBarGrade>(GetRebarStandard(code), name);
}
std::string CMatlDB::GetStrRebarName(std::string_view code, double strength) {
    return NameOfStrength<LibraryBarGrade>(GetRebarStandard(code), strength);
}

}  // namespace zt
