#pragma once

#include "zt_db/records/pont.h"
#include "zt_tb/core/record_table.h"

namespace zt {

/// The table of nodes. Coordinates stand in the length unit of the model and heights count from the origin, while the
/// record keeps the height above the top level of the node's story. Nodes are made in the model view.
class CTBPont : public RecordTable<CTBPont, CClassPont> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;

private:
    static void ShowLevel(const CTBPont&, const Row& row, CellSink& cell);
    static void ShowHeight(const CTBPont&, const Row& row, CellSink& cell);
    static void ReadHeight(const CTBPont&, std::string_view text, Row& row);
};

}  // namespace zt
