#pragma once

#include "zt_db/records/ptld.h"
#include "zt_tb/core/object_table.h"

namespace zt {

/// The table of loads on nodes.
class CTBPtld : public ObjectTable<CTBPtld, CClassPtld> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;
};

}  // namespace zt
