#pragma once

#include <optional>
#include <vector>

#include "velda_util/cells/row_sort.h"
#include "velda_util/result/record_order.h"

namespace velda {

class CTBCore;

/// How the records of a result grid are sorted. Where the source cannot tell an order, every record is read once, block
/// by block, with a progress that can be cancelled; numbers go by their value, texts by bytes, equal records as they
/// are numbered.
class CTBSort {
public:
    explicit CTBSort(CTBCore& grid) : grid_(grid) {}

    /// One more field to sort by.
    void AddSortInfo(int fieldNo, bool ascending);
    const std::vector<STBSortItem>& Items() const { return items_; }
    /// Sorts the records by other fields; false, and the order stays, when the user cancels.
    bool Sort(const std::vector<STBSortItem>& items);
    /// Sorts the records that are shown by what was said; the order in which they are numbered when the user cancels.
    void Apply();
    bool ShowSortDlg();

private:
    std::optional<RecordOrder> OrderOf(const std::vector<STBSortItem>& items) const;

    CTBCore& grid_;
    std::vector<STBSortItem> items_;
};

}  // namespace velda
