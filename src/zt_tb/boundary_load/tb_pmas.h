#pragma once

#include "zt_db/records/pmas.h"
#include "zt_tb/core/object_table.h"

namespace zt {

/// The table of nodal masses.
class CTBPmas : public ObjectTable<CTBPmas, CClassPmas> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;
};

}  // namespace zt
