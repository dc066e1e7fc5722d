#include <vector>

#include "velda_lib/number_text.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/pont.h"
#include "zt_tb/core/tb_common_wnd.h"

namespace zt {
namespace {

/// What a change makes of the numbers of a class, old to new. A record that is renumbered more than once in a step goes
/// from its first number to its last, so that every number in a row is looked up only once.
class NumberChanges {
public:
    template <class Class>
    static IntMap Of(const CViewBuff& buffer) {
        using Record = typename Class::Record;
        const auto& codes = IdentityOf<Record>::value.codes;
        NumberChanges changes;
        CDataOf<Record> before;
        CDataOf<Record> after;
        for (POSITION at = buffer.GetHeadPosition(); at;) {
            const std::uint64_t entry = buffer.GetNext(at);
            const int code = static_cast<int>(static_cast<std::uint32_t>(entry));
            if (code == codes[static_cast<std::size_t>(ChangeEntry::ModifiedAfter)]) buffer.ReadData(entry, after);
            if (code != codes[static_cast<std::size_t>(ChangeEntry::ModifiedBefore)]) continue;
            buffer.ReadData(entry, before);
            if (before.record.no == after.record.no) continue;
            changes.Add(before.key, Signed(before.record.no), after.key, Signed(after.record.no));
        }
        return changes.Numbers();
    }

private:
    struct Change {
        std::int32_t from;
        std::int32_t to;
    };

    static std::int32_t Signed(std::uint32_t value) { return static_cast<std::int32_t>(value); }

    void Add(std::uint32_t keyBefore, std::int32_t from, std::uint32_t keyAfter, std::int32_t to) {
        std::int32_t at = 0;
        if (changeOfKey_.Lookup(Signed(keyBefore), at) && changes_[static_cast<std::size_t>(at)].to == from) {
            changes_[static_cast<std::size_t>(at)].to = to;
        } else {
            at = static_cast<std::int32_t>(changes_.size());
            changes_.push_back({from, to});
        }
        changeOfKey_.Set(Signed(keyAfter), at);
    }
    /// A number that several records had in turn was that of the first one when the rows were written.
    IntMap Numbers() const {
        IntMap numbers;
        numbers.Rebuild();
        for (auto change = changes_.rbegin(); change != changes_.rend(); ++change) {
            if (change->from != change->to) numbers.Set(change->from, change->to);
        }
        return numbers;
    }

    std::vector<Change> changes_;
    IntMap changeOfKey_;
};

}  // namespace

int CTBCommonWnd::ConvOldMembNo2NewMembNo(const CViewBuff& buffer, velda::ColumnId colId) {
    return Renumber(NumberChanges::Of<CClassMemb>(buffer), {&colId, 1});
}

int CTBCommonWnd::ConvOldPontNo2NewPontNo(const CViewBuff& buffer, velda::ColumnId colId1, velda::ColumnId colId2) {
    const velda::ColumnId columns[] = {colId1, colId2};
    return Renumber(NumberChanges::Of<CClassPont>(buffer), {columns, colId2 == velda::kNoColumn ? 1u : 2u});
}

bool CTBCommonWnd::ChangesPontNos(const CViewBuff& buffer) { return !NumberChanges::Of<CClassPont>(buffer).IsEmpty(); }

int CTBCommonWnd::Renumber(const IntMap& numbers, std::span<const velda::ColumnId> columns) {
    if (numbers.IsEmpty()) return 0;
    std::vector<int> cols;
    for (const velda::ColumnId column : columns) {
        int col = 0;
        if (!GetColumnNoFor(column, col)) return 0;
        cols.push_back(col);
    }
    const velda::GridUpdateLock lock(*this);
    for (int row = 1; row < GetRowCount(); ++row) RenumberRow(row, cols, numbers);
    // While a row is being edited nothing moves: the engine sorts when the row is closed, because later changes are
    // merged into rows that stand in order.
    SortTable(SortInfo());
    return 1;
}

void CTBCommonWnd::RenumberRow(int row, std::span<const int> cols, const IntMap& numbers) {
    const bool inEdit = IsRowInEdit() && RowIdAt(row) == Session().Row();
    for (const int col : cols) {
        const std::string old = inEdit ? GetValueRowColBeforeEdit(row, col) : GetValueRowCol(row, col);
        std::int32_t number = 0;
        if (!numbers.Lookup(static_cast<std::int32_t>(velda::wtol(old)), number)) continue;
        const std::string text = velda::FormatLong(number);
        if (inEdit) SetValueRowColBeforeEdit(col, text);
        int currentRow = 0;
        int currentCol = 0;
        GetCurrentCell(currentRow, currentCol);
        // What is being typed in the current cell stays.
        if (!inEdit || currentCol != col) SetValueRange(row, col, text);
        return;
    }
}

}  // namespace zt
