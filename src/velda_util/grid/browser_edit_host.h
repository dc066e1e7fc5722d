#pragma once

#include "velda_util/edit/edit_host.h"
#include "velda_util/edit/navigation.h"

namespace velda {

class CTBBrowserWnd;

/// Joins the edit session, which knows cells by ids, with the operations of a record browser, which know them by
/// position.
class BrowserEditHost final : public EditHost {
public:
    explicit BrowserEditHost(CTBBrowserWnd& browser) : browser_(browser) {}

    bool CanEditCell(CellId cell) const override;
    bool IsNewRow(RowId row) const override;
    std::string EditText(CellId cell) const override;
    void StoreCellText(CellId cell, const std::string& text) override;
    void TakeBeforeEditCopy(RowId row) override;
    void DropBeforeEditCopy() override;
    void SetRowInEdit(bool inEdit) override;
    bool OnStartEditing(CellId cell) override;
    void OnModifyCell(CellId cell, const std::string& text) override;
    bool OnValidateField(CellId cell, const std::string& text, std::vector<EditFinding>& findings) override;
    void OnEndEditing(CellId cell) override;
    void OnCanceledEditing(CellId cell) override;
    bool OnValidateRecord(RowId row, std::vector<EditFinding>& findings) override;
    Outcome OnAddNewRecord(RowId row) override;
    Outcome OnModifyRecord(RowId row) override;
    void OnCanceledAddNew(RowId row) override;
    void OnCanceledModify(RowId row) override;
    std::optional<RowId> OnInsertEmptyRecord(RowId row) override;
    Outcome DeleteSelectedRecords() override;
    std::string TextInCurrentUnits(ColumnId column, const std::string& text) const override;
    std::vector<ColumnId> RebaseRowInEdit(RowId row, const std::vector<EditedCell>& edits) override;
    void OnEditLost(const LostEdit& edit) override;

private:
    GridPosition Place(CellId cell) const;

    CTBBrowserWnd& browser_;
};

}  // namespace velda
