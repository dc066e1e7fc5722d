#pragma once

#include <cstddef>

#include "velda_util/grid/tb_grid.h"

namespace velda {

/// What the status bar tells of the selected cells.
struct SelectionStatistics {
    std::size_t cells = 0;    ///< cells of shown columns, the append row left out
    std::size_t numbers = 0;  ///< those of them that hold a number in a numeric column
    double sum = 0.0;
    double minimum = 0.0;
    double maximum = 0.0;

    /// Of the numbers; 0 when there is none.
    double Mean() const { return numbers == 0 ? 0.0 : sum / static_cast<double>(numbers); }
};

/// Each selected cell counts once, in however many ranges it lies.
SelectionStatistics StatisticsOf(const CTBGrid& grid);

}  // namespace velda
