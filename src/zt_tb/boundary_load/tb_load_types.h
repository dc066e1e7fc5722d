#pragma once

#include "zt_db/records/bmla.h"
#include "zt_db/records/bwld.h"
#include "zt_db/records/sbla.h"
#include "zt_tb/core/object_table.h"

namespace zt {

/// Beam load types on members.
class CTBBmla : public ObjectTable<CTBBmla, CClassBmla> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;
};

/// Walls that stand on beams as loads, one on each.
class CTBBwld : public ObjectTable<CTBBwld, CClassBwld> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;

    int ValidateColumn(const std::string& text, velda::ColumnId column) override;
};

/// Slab load types on slabs, one on each.
class CTBSbla : public ObjectTable<CTBSbla, CClassSbla> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;
};

}  // namespace zt
