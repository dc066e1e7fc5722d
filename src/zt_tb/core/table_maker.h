#pragma once

#include <memory>

#include "zt_tb/core/tb_view.h"

namespace zt {

/// Makes a table for a view, ready to be filled.
using TableMaker = std::unique_ptr<CTBCommonWnd> (*)(CTBView* view);

template <class Table>
std::unique_ptr<CTBCommonWnd> MakeTable(CTBView* view) {
    auto table = std::make_unique<Table>();
    table->Initialize(view);
    return table;
}

}  // namespace zt
