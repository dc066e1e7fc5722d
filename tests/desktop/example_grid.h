#pragma once

#include <map>
#include <numeric>
#include <string>
#include <vector>

#include "velda_util/grid/tb_browser_wnd.h"
#include "velda_util/rows/row_changes.h"

namespace zt {

/// A table of its own records: number, name, measure, check box, choice list. Counts the cells that it is asked for.
/// A name "bad" is refused.
class ExampleGrid : public velda::CTBBrowserWnd {
public:
    enum Column { kNumber = 1, kName, kMeasure, kCheck, kSupport };
    static constexpr int kColumns = 5;

    explicit ExampleGrid(int rows) {
        using velda::ColumnType;
        int id = 0;
        for (const char* title : {"No.", "Name", "Measure (mm)", "On", "Support"}) {
            const bool text = id == 1 || id == 4;
            columns_.AddColInfo(title, text ? ColumnType::String : ColumnType::Double, 0);
            Header().SetTitle(0, static_cast<std::uint32_t>(id++), title);
        }
        SetRowHeight(0, 36);
        SetColumnStyle(kMeasure, velda::CGXStyle()
                                     .SetValueType(velda::ValueType::Numeric)
                                     .SetFormat(velda::NumberFormat::Fixed)
                                     .SetPlaces(2)
                                     .SetHorizontalAlignment(velda::HorizontalAlignment::Right));
        SetColumnStyle(kCheck, velda::CGXStyle().SetControl(velda::ControlKind::CheckBox));
        SetColumnStyle(kSupport, velda::CGXStyle()
                                     .SetControl(velda::ControlKind::TabbedDropDownList)
                                     .SetTextColumn("1")
                                     .SetChoiceList("1\tfree\n2\tpinned\n3\tfixed\n"));
        ConfigureRows(0, {{0, 0, 0}});
        std::vector<std::uint32_t> keys(static_cast<std::size_t>(rows));
        std::iota(keys.begin(), keys.end(), 1u);
        FillRecordRows(keys, [this](std::uint32_t k, velda::CGXData& data, velda::RowId at) { Write(k, data, at); });
    }

    void SetColumnStyle(int col, const velda::CGXStyle& style) {
        SetStyleRange(velda::CGXRange().SetCols(static_cast<std::uint32_t>(col)), style);
    }

    std::string GetValueRowCol(int row, int col) const override {
        ++asked;
        return CTBBrowserWnd::GetValueRowCol(row, col);
    }
    mutable int asked = 0;
    int written = 0;
    int clicked = 0;

    bool OnValidateField(int row, int col) override {
        if (GetLiveText(row, col) != "bad") return true;
        AddFinding({velda::kNoRow, ColumnIdAt(col), velda::EditRule::Field, "bad", "not this name"});
        SetWarningText("not this name");
        return false;
    }
    bool OnValidateRecord(int /*row*/) override { return true; }
    bool OnAddNewRecord(int /*row*/) override { return false; }
    bool OnModifyRecord(int row) override {
        ++written;
        const std::uint32_t key = KeyOfRow(row);
        std::vector<std::string>& texts = changed_[key];
        texts.clear();
        for (velda::ColumnId id = 0; id < kColumns; ++id) texts.push_back(GetValueRowCol(row, PositionOfColumn(id)));
        ReplayRows({.gone = {key}, .come = {key}},
                   [this](std::uint32_t k, velda::CGXData& data, velda::RowId at) { Write(k, data, at); });
        return true;
    }
    bool OnDeleteRecords(const std::vector<int>& /*rows*/) override { return false; }

private:
    void Write(std::uint32_t key, velda::CGXData& data, velda::RowId row) const {
        const auto found = changed_.find(key);
        const std::vector<std::string> fresh = {std::to_string(key), "name", "12.5", "0", "2"};
        const std::vector<std::string>& texts = found == changed_.end() ? fresh : found->second;
        for (velda::ColumnId id = 0; id < kColumns; ++id) {
            const bool numeric = columns_.Info(id).type != velda::ColumnType::String;
            data.StoreText(row, id, texts[static_cast<std::size_t>(id)], numeric);
        }
    }

    std::map<std::uint32_t, std::vector<std::string>> changed_;
};

}  // namespace zt
