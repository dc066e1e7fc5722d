#pragma once

#include "zt_db/records/thik.h"
#include "zt_tb/core/record_table.h"

namespace zt {

/// The table of plate and wall thicknesses. New thicknesses come from the property dialog, not from the keyboard.
class CTBThik : public RecordTable<CTBThik, CClassThik> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;
};

}  // namespace zt
