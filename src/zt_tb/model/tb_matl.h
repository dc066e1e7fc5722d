#pragma once

#include <map>
#include <memory>

#include "zt_db/records/matl.h"
#include "zt_tb/core/record_table.h"
#include "zt_tb/model/matl_row.h"

namespace zt {

class Library;

/// The table of materials: of one material, or of two for a composite. The code of a row decides which grades it
/// offers, and fills the values from the material library; values can be typed where there is no code.
class CTBMatl : public RecordTable<CTBMatl, CClassMatl> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;

    int ValidateColumn(const std::string& text, velda::ColumnId column) override;
    bool OnValidateField(int row, int col) override;
    void OnModifyCell(int row, int col) override;
    void OnEndEditing(int row, int col) override;
    void OnCanceledEditing(int row, int col) override;
    void OnRowClosed() override;
    void AdjustAppendRowNo(int row) override;

protected:
    std::size_t AdjustGivenTexts(RowTexts& texts, const RowTexts& before,
                                 const std::vector<bool>& given) const override;
    bool DependsOnRow(velda::ColumnId column) const override {
        return column == MatlColumn::kType || MatlRow::IsDependent(column);
    }
    bool IsChoiceOfRow(velda::ColumnId column, const RowTexts& texts) const override;

private:
    /// What the cells of a row looked like before the edit of one of them, as far as they depend on it.
    struct RowBefore {
        std::map<velda::ColumnId, std::string> texts{};
        bool secondCodeFollowsFirst = false;
    };

    template <velda::ColumnId First>
    static void AddGroup(std::vector<Column>& columns);
    template <velda::ColumnId Id>
    static void StyleCell(const CTBMatl& table, int row, velda::CGXStyle& style);
    void StyleCell(velda::ColumnId column, int row, velda::CGXStyle& style) const;
    const velda::CGXStyle& ListStyle(bool grades, const std::string& of) const;
    bool IsClosedAppendRow(int row) const;
    RowTexts TextsDuringEdit(int row, velda::ColumnId edited) const;
    void SetLiveText(int row, velda::ColumnId column, const std::string& text);

    /// Set while a leading cell is edited, from its first change on.
    std::optional<RowBefore> before_;
    /// In the open row the second code cannot be entered while the first one, which was edited, is a code.
    bool secondCodeFollowsFirst_ = false;
    std::string appendType_;
    mutable std::map<std::pair<bool, std::string>, velda::CGXStyle> lists_;
    mutable std::shared_ptr<const Library> listed_;  ///< the library that the lists are of
};

}  // namespace zt
