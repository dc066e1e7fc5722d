#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velda_util/cells/row_sort.h"

namespace velda {

/// One column of a table as it was declared.
struct ColumnInfo {
    std::string title;
    ColumnType type = ColumnType::String;
    int unitCode = 0;
};

/// The columns of a table. A column is known by its identifier, its place in the order of declaration from 0, which
/// never changes; the user moves and hides columns, so that the number under which it stands in the grid, from 1, does.
class ColumnList {
public:
    /// Appends a column; returns its identifier.
    int AddColInfo(std::string title, ColumnType type, int unitCode);
    int Count() const { return static_cast<int>(infos_.size()); }
    const ColumnInfo& Info(int id) const { return infos_.at(static_cast<std::size_t>(id)); }
    void SetTitle(int id, std::string title) { infos_.at(static_cast<std::size_t>(id)).title = std::move(title); }
    /// Types by identifier, as sorting wants them.
    const std::vector<ColumnType>& Types() const { return types_; }

    /// Grid column of an identifier; false, and `number` is left alone, when there is no such column.
    bool GetColumnNoFor(int id, int& number) const;
    /// Grid column of a title. Several columns may share a title: the first declared one counts.
    bool GetColumnNoFor(std::string_view title, int& number) const;
    /// Identifier of a grid column.
    bool GetColumnIDFor(int number, int& id) const;
    /// For each identifier the grid column, as the record operations take it.
    std::vector<int> ColumnMap() const { return numbers_; }

    /// Moves a column to stand before the one that is `before` now; Count() + 1 moves it to the end. False for a wrong
    /// number.
    bool Move(int number, int before);
    /// Sets the order by identifiers, when it names each column once; otherwise false, and nothing changes.
    bool SetOrder(const std::vector<int>& ids);
    const std::vector<int>& Order() const { return order_; }

    /// Hides grid columns in a way that the user does not bring back.
    void HideColsByIntend(int firstNumber, int lastNumber, bool hide);
    bool IsHiddenByIntend(int number) const;
    /// Hides or shows a column for the user.
    void SetHidden(int id, bool hidden);
    bool IsHidden(int id) const;

    void SetWidth(int id, int width);
    int Width(int id) const { return state_.at(static_cast<std::size_t>(id)).width; }
    /// The user may lock a column: its cells cannot be entered then.
    void SetLocked(int id, bool locked) { state_.at(static_cast<std::size_t>(id)).locked = locked; }
    bool IsLocked(int id) const { return state_.at(static_cast<std::size_t>(id)).locked; }

    /// Columns from the left that stay when the table is scrolled.
    void SetFrozen(int count) { frozen_ = count < 0 ? 0 : count; }
    int Frozen() const { return frozen_; }

    static constexpr int kDefaultWidth = 80;
    static constexpr int kLargestWidth = 4000;

private:
    struct State {
        int width = kDefaultWidth;
        bool hidden = false;
        bool hiddenByIntend = false;
        bool locked = false;
    };
    bool Has(int id) const { return id >= 0 && id < Count(); }
    void Renumber();

    std::vector<ColumnInfo> infos_;
    std::vector<ColumnType> types_;
    std::vector<State> state_;
    std::vector<int> order_;    ///< identifiers by place
    std::vector<int> numbers_;  ///< grid columns by identifier
    int frozen_ = 0;
};

}  // namespace velda
