#pragma once

#include "zt_db/records/spts.h"
#include "zt_tb/core/object_table.h"

namespace zt {

/// The table of nodal supports: which degrees of freedom of a node are restrained, and a value for each free one.
class CTBSpts : public ObjectTable<CTBSpts, CClassSpts> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;
};

}  // namespace zt
