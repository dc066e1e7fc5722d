#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "velda_util/columns/column_list.h"
#include "zt_db/records/matl_type.h"

namespace zt {

/// Columns of the material table. Each group of code and values has its identifiers in the same order.
namespace MatlColumn {
enum : velda::ColumnId {
    kKey,
    kName,
    kType,
    kCode1,
    kGrade1,
    kElasticity1,
    kPoisson1,
    kThermal1,
    kDensity1,
    kCode2,
    kGrade2,
    kElasticity2,
    kPoisson2,
    kThermal2,
    kDensity2,
    kDamping,
};
}  // namespace MatlColumn

/// The texts of a row of the material table by identifier, and how its cells depend on each other: the type decides
/// which codes there are and whether the second group is alive, the code which grades there are, and both fill the
/// values from the material library.
class MatlRow {
public:
    using Texts = std::vector<std::string>;

    /// The text of a code cell without a code.
    static std::string NoneText();
    static bool IsNone(std::string_view code) { return code.empty() || code == NoneText(); }
    /// "S", "C", "SRC" or "U" for "Steel", "RC", "SRC" or "User Defined", compared exactly; empty for any other text.
    static std::string_view ShortType(std::string_view type);
    /// The text of a short type; empty for one that does not exist.
    static std::string_view TypeText(std::string_view shortType);
    /// Lines of the choice lists: the types, the codes of a short type behind the text for none, the grades of a code.
    static std::string TypeLines();
    static std::string CodeLines(std::string_view shortType);
    static std::string GradeLines(std::string_view code);

    /// Whether others depend on a cell of this column, and whether it depends on others.
    static bool IsLeading(velda::ColumnId column);
    static bool IsDependent(velda::ColumnId column) {
        return column >= MatlColumn::kCode1 && column <= MatlColumn::kDensity2;
    }

    MatlRow(Texts& texts, const Texts& defaults) : texts_(texts), defaults_(defaults) {}

    /// Whether a cell can be entered.
    bool IsEnabled(velda::ColumnId column) const;
    /// Whether a choice list of the row has the text of its cell; cells without a list take any text.
    bool HasChoice(velda::ColumnId column) const;
    /// Brings the row in line with a leading cell that was edited. Nothing happens while the type is none.
    void Follow(velda::ColumnId edited);

private:
    const std::string& At(velda::ColumnId column) const { return texts_[static_cast<std::size_t>(column)]; }
    std::string& At(velda::ColumnId column) { return texts_[static_cast<std::size_t>(column)]; }
    bool IsComposite() const { return ShortType(At(MatlColumn::kType)) == MatlType::Composite; }
    void FollowType();
    void FollowCode(velda::ColumnId code);
    void FillFromLibrary(velda::ColumnId code, std::string_view grade);
    void ResetSecondGroup();

    Texts& texts_;
    const Texts& defaults_;
};

}  // namespace zt
