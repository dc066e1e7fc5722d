#include "velda_util/grid/selection_statistics.h"

#include <algorithm>

#include "velda_lib/number_text.h"

namespace velda {
namespace {

/// Adds numbers up without losing the small ones beside large ones (Neumaier, 1974).
class ExactSum {
public:
    void Add(double value) {
        const double next = sum_ + value;
        const bool sumIsLarger = (sum_ < 0 ? -sum_ : sum_) >= (value < 0 ? -value : value);
        lost_ += sumIsLarger ? (sum_ - next) + value : (value - next) + sum_;
        sum_ = next;
    }
    double Value() const { return sum_ + lost_; }

private:
    double sum_ = 0.0;
    double lost_ = 0.0;
};

}  // namespace

SelectionStatistics StatisticsOf(const CTBGrid& grid) {
    SelectionStatistics statistics;
    ExactSum sum;
    const int lastRow = grid.RowCount() - (grid.HasAppendRow() ? 1 : 0);
    const CellSelection& selection = grid.Selected();
    for (const PositionSpan& cols : selection.TouchedColumns(grid)) {
        for (int col = cols.first; col <= cols.last; ++col) {
            if (grid.IsColumnHidden(col)) continue;
            const bool numeric = grid.Columns().Info(grid.ColumnIdAt(col)).type != ColumnType::String;
            for (const PositionSpan& rows : selection.TouchedRows(grid)) {
                for (int row = rows.first; row <= std::min(rows.last, lastRow); ++row) {
                    if (!selection.Contains({row, col})) continue;
                    ++statistics.cells;
                    double value = 0.0;
                    if (!numeric || !ReadWholeDouble(grid.GetValueRowCol(row, col), value)) continue;
                    statistics.minimum = statistics.numbers == 0 ? value : std::min(statistics.minimum, value);
                    statistics.maximum = statistics.numbers == 0 ? value : std::max(statistics.maximum, value);
                    ++statistics.numbers;
                    sum.Add(value);
                }
            }
        }
    }
    statistics.sum = sum.Value();
    return statistics;
}

}  // namespace velda
