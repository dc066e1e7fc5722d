#include "velda_util/result/tb_sort.h"

#include "velda_util/result/record_keys.h"
#include "velda_util/result/tb_core.h"

namespace velda {

void CTBSort::AddSortInfo(int fieldNo, bool ascending) { items_.push_back({fieldNo - 1, 0, ascending ? 0 : 1}); }

std::optional<RecordOrder> CTBSort::OrderOf(const std::vector<STBSortItem>& items) const {
    CTBDataSrc& source = *grid_.GetDataSrc();
    const long count = grid_.RecCtrl().RecCount();
    if (items.empty() || count == 0) return RecordOrder::Natural(static_cast<std::uint32_t>(count));
    RecordOrder order;
    if (source.GetOrder(items, order)) return order;
    const WaitCursor wait;
    std::vector<std::vector<double>> keys;
    for (const STBSortItem& item : items) {
        auto column = SortKeys(source, grid_.RecHdr(), count, item.column + 1);
        if (!column) return std::nullopt;
        keys.push_back(std::move(*column));
    }
    return OrderByKeys(keys, items);
}

bool CTBSort::Sort(const std::vector<STBSortItem>& items) {
    if (!grid_.GetDataSrc()) return false;
    std::optional<RecordOrder> order = OrderOf(items);
    if (!order) return false;
    items_ = items;
    const GridUpdateLock lock(grid_);
    grid_.RecCtrl().SetOrder(std::move(*order));
    return true;
}

void CTBSort::Apply() {
    if (std::optional<RecordOrder> order = OrderOf(items_)) grid_.RecCtrl().SetOrder(std::move(*order));
}

bool CTBSort::ShowSortDlg() { return grid_.ShowSortDlg(); }

}  // namespace velda
