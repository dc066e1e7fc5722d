#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "velda_util/pref/table_preferences.h"
#include "velda_util/result/record_cells.h"
#include "velda_util/result/record_order.h"
#include "velda_util/style/gx_style.h"

namespace velda {

class CTBCore;

/// What happened in a result grid.
struct T_TB_EVENT_D {
    static constexpr std::uint32_t kClick = 1;  ///< on a cell with a control, or before or after the records

    std::uint32_t kind = 0;
    std::uint32_t row = 0;
    std::uint32_t column = 0;
};

/// Where a result grid gets its records from: how many there are, the cells of one, how they are drawn. Nothing is
/// kept; a record is read when it is drawn. Records and fields count from 1.
class CTBDataSrc {
public:
    explicit CTBDataSrc(int kind) : kind_(kind) {}
    virtual ~CTBDataSrc() = default;
    CTBDataSrc(const CTBDataSrc&) = delete;
    CTBDataSrc& operator=(const CTBDataSrc&) = delete;

    /// The number that the program gave the table.
    int GetKind() const { return kind_; }
    /// The grid that shows the records; null before Initialize.
    CTBCore* Grid() const { return grid_; }

    // ---- set up, in this order

    virtual void Initialize(CTBCore& grid) { grid_ = &grid; }
    /// Says the titles of the columns.
    virtual void InitColHeader() = 0;
    /// Says the fields of a record, and the columns that the style dialog offers.
    virtual void InitRecFields() = 0;
    /// Finds the objects of the table for the first time.
    virtual void MakeRecords() = 0;
    /// Appends the preferences of a table that nobody has changed, one item for each column.
    virtual void AppendPreferences(std::vector<STBPrefItem>& /*items*/) const {}
    /// Styles of the grid; once.
    virtual int UserDefinedInit() = 0;

    // ---- records

    virtual long GetRecCount() = 0;
    /// Makes a record the current one; 0, and nothing is read, when there is none of this number.
    virtual int SeekRec(long record) = 0;
    /// Writes the cells of the current record.
    virtual void GetRecTexts(RecordCells& cells) = 0;
    /// The order that a sort gives, where it is known without reading a record; false otherwise.
    virtual bool GetOrder(std::span<const STBSortItem> /*items*/, RecordOrder& /*order*/) { return false; }

    // ---- drawing

    /// Changes the style of a cell of a record that is in sight.
    virtual void CustomizeCell(int /*row*/, int /*col*/, CGXStyle& /*style*/) {}
    /// The number of records is known: rows before and after them can be asked for.
    virtual void AfterSetRecCount() {}
    virtual void BeforeRedrawTable() {}
    /// Texts of the rows before and after the records can be written.
    virtual void AfterRedrawTable() {}

    // ---- events

    /// Other units are shown.
    virtual void UpdateUnit() {}
    /// Texts are in another language.
    virtual void UpdateLanguage() {}
    virtual void OnEvent(const T_TB_EVENT_D& /*event*/) {}
    virtual void OnBeforeCopy() {}
    virtual void AdjustDynPreference(std::vector<STBPrefItem>& /*items*/) {}

    // ---- units

    /// Label of a unit kind; empty for none.
    virtual std::string GetUnitText(int /*unitKind*/) const { return {}; }
    /// What numbers of a unit kind are multiplied by to be shown.
    virtual double GetUnitFactor(int /*unitKind*/) const { return 1.0; }

private:
    int kind_;
    CTBCore* grid_ = nullptr;
};

}  // namespace velda
