#pragma once

#include <functional>
#include <map>
#include <memory>

#include "velda_util/grid/tb_grid.h"
#include "velda_util/result/tb_col_hdr.h"
#include "velda_util/result/tb_core_controls.h"
#include "velda_util/result/tb_data_src.h"
#include "velda_util/result/tb_rec_ctrl.h"
#include "velda_util/result/tb_sort.h"

namespace velda {

/// A result grid: it owns a data source and nothing of what that shows. Rows are read when they are drawn, copied,
/// searched or sorted. Before and after the records there may be rows whose texts the source writes.
class CTBCore : public CTBGrid {
public:
    CTBCore() = default;

    // ---- set up

    /// Where the table stands among those of its view.
    void SetTableIndex(int index) { index_ = index; }
    int GetTableIndex() const { return index_; }
    /// Takes over a source; before Initialize.
    void SetDataSrc(std::unique_ptr<CTBDataSrc> source) { source_ = std::move(source); }
    /// Null in a grid of a table that does not exist yet.
    CTBDataSrc* GetDataSrc() const { return source_.get(); }
    /// Sets header, fields and styles up as the source says. A grid without a source stays empty.
    void Initialize();
    /// The source has other fields in its records: asks it for them.
    void FieldsChanged();
    /// Takes its texts anew, in the current language.
    void UpdateLanguage();
    /// Names the preferences of the table, and applies them.
    void ApplyPreference(const std::string& name);
    void ApplyColumnPreferences() override;

    CTBRecCtrl& RecCtrl() { return records_; }
    const CTBRecCtrl& RecCtrl() const { return records_; }
    CTBColHdr& ColHdr() { return titles_; }
    CTBRecHdr& RecHdr() { return fields_; }
    const CTBRecHdr& RecHdr() const { return fields_; }
    CTBStyleCtrl& StyleCtrl() { return styleCtrl_; }
    CTBVisibleCtrl& VisibleCtrl() { return visibleCtrl_; }
    CTBSort& SortCtrl() { return sort_; }
    CTBKeyCtrl& KeyCtrl() { return keyCtrl_; }

    // ---- rows before and after the records

    /// Asks for rows before and after the records; to be called when the number of records is known.
    static void InsertPrePostRows(CTBCore& grid, int preRows, int postRows) {
        grid.records_.SetPrePostRows(preRows, postRows);
    }
    /// First and last row; false when there are none.
    bool GetPreRecRange(int& first, int& last) const;
    bool GetPostRecRange(int& first, int& last) const;
    /// Writes a text into a cell before or after the records. Throws std::invalid_argument for another one.
    void SetValueRange(int row, int col, std::string text);
    /// Lays the cells of such a row from one column to another under the text of the first.
    void JoinCells(int row, int firstCol, int lastCol);
    /// The texts, styles, heights and joined cells of these rows are no longer there.
    void ClearRowsAround();

    // ---- values

    int GetRowCount() const override { return records_.RowCount(); }
    std::string GetValueRowCol(int row, int col) const override;
    /// What the source says about the style of a cell in sight.
    void GetStyleRowCol(int row, int col, CGXStyle& style) const override;
    bool HasStyleHook() const override { return source_ != nullptr; }

    int RowCount() const override { return records_.RowCount(); }
    bool HasAppendRow() const override { return false; }
    RowId RowIdAt(int row) const override;
    int PositionOfRow(RowId row) const override;

    // ---- what the user does

    const std::vector<STBSortItem>& SortInfo() const override { return sort_.Items(); }
    bool Sort(const std::vector<STBSortItem>& items) override { return sort_.Sort(items); }
    bool DoCommand(TableCommand command) override;
    bool SetCurrentCell(int row, int col, int flags = 0) override;
    /// Called when the current cell or the selection became another one.
    std::function<void()> onSelection;
    /// A click on a cell; the source is told when the cell has a control or stands before or after the records. A
    /// drop-down list before or after the records offers its lines first, and takes the text of the chosen one.
    void ClickCell(int row, int col);
    /// Other units are shown: titles and values follow.
    void UpdateUnit();

protected:
    void OnChangedSelection() override {
        if (onSelection) onSelection();
    }
    std::string GetTitle(ColumnId column) const override;
    std::string GetUnitText(ColumnId column) const override;
    FindResult Search(const STBFindStruct& find, const FindArea& area) const override;

private:
    void ChooseFromList(int row, int col);
    bool IsAround(int row) const { return records_.GetRecNo(row) == 0; }
    void ReadFields();
    void PutTitles();
    void PutFactors();

    std::unique_ptr<CTBDataSrc> source_;
    int index_ = 0;
    CTBColHdr titles_;
    CTBRecHdr fields_;
    CTBRecCtrl records_{*this};
    CTBStyleCtrl styleCtrl_{*this};
    CTBVisibleCtrl visibleCtrl_{*this};
    CTBSort sort_{*this};
    CTBKeyCtrl keyCtrl_;
    std::map<std::pair<RowId, ColumnId>, std::string> around_;  ///< texts before and after the records
};

}  // namespace velda
