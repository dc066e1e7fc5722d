#include "velda_util/clip/change_plan.h"

#include <limits>
#include <stdexcept>

namespace velda {

void PlannedRows::AddCell(int column, std::string_view text) {
    if (rows_.empty()) throw std::invalid_argument("a planned cell needs a row");
    if (text.size() > std::numeric_limits<std::uint32_t>::max())
        throw std::invalid_argument("text too long for a cell");
    if (cells_.empty() || Text(cells_.back()) != text) {
        cells_.push_back({column, static_cast<std::uint32_t>(text.size()), bytes_.size()});
        bytes_ += text;
    } else {
        cells_.push_back({column, cells_.back().length, cells_.back().begin});
    }
    ++rows_.back().cellCount;
}

void PlannedRows::DropRow() {
    if (rows_.empty()) throw std::invalid_argument("no planned row to drop");
    cells_.resize(rows_.back().firstCell);
    rows_.pop_back();
}

}  // namespace velda
