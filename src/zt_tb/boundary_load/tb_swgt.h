#pragma once

#include "zt_db/records/swgt.h"
#include "zt_tb/core/object_table.h"

namespace zt {

/// The table of self-weight factors by load case. Member 0 stands for all members.
class CTBSwgt : public ObjectTable<CTBSwgt, CClassSwgt> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;
};

}  // namespace zt
