#pragma once

#include <string>
#include <utility>
#include <vector>

#include "velda_base/host/modal_dialog.h"
#include "velda_util/grid/tb_grid.h"

namespace velda {

/// Lets the user choose the colours of all tables.
class CTBColorDlg final : public ModalDialog {
public:
    std::string_view GetName() const override { return "TableColors"; }
    void OnInitDialog() override { colors = CTBGrid::m_Color; }
    bool OnOK() override {
        CTBGrid::m_Color = colors;
        return true;
    }

    STBColorSet colors;
};

/// Identifiers of the columns of a table that the user can see, from left to right.
std::vector<ColumnId> ColumnsInSight(const CTBGrid& table);

/// Lets the user sort a table by its columns.
class CTBSortDlg final : public ModalDialog {
public:
    /// The table outlives the dialog.
    explicit CTBSortDlg(CTBGrid& table) : table_(table) {}

    std::string_view GetName() const override { return "TableSort"; }
    void OnInitDialog() override { items = table_.SortInfo(); }
    /// Stays open when the open row of the table cannot be left.
    bool OnOK() override { return table_.Sort(items); }
    /// Identifiers of the columns that can be sorted by: those that the user can see, and those that the table is
    /// sorted by as the dialog opens.
    std::vector<ColumnId> Columns() const;
    /// Title of a column, for the list of them.
    std::string TitleOf(ColumnId column) const { return table_.Columns().Info(column).title; }

    std::vector<STBSortItem> items;

private:
    CTBGrid& table_;
};

/// Lets the user choose how the columns of a table are shown.
class CTBStyleDlg final : public ModalDialog {
public:
    /// A column that the dialog offers.
    struct Column {
        ColumnId id = 0;
        std::string title{};
    };
    /// The table outlives the dialog.
    CTBStyleDlg(CTBGrid& table, std::vector<Column> columns) : table_(table), columns_(std::move(columns)) {}

    std::string_view GetName() const override { return "TableStyle"; }
    void OnInitDialog() override { items = CTBGrid::GetPrefInfo(table_.GetTableName()); }
    /// Keeps the preferences and applies them. Stays open when they do not fit the table.
    bool OnOK() override;

    const std::vector<Column>& Columns() const { return columns_; }

    std::vector<STBPrefItem> items;  ///< by column identifier

private:
    CTBGrid& table_;
    std::vector<Column> columns_;
};

/// Opens the style dialog of a table, for the columns that the user can see.
class CTBStyleCtrlEx {
public:
    void Initialize(CTBGrid& table) { table_ = &table; }
    /// False when the user cancels, and before Initialize.
    bool ShowStyleDlg();

private:
    CTBGrid* table_ = nullptr;
};

}  // namespace velda
