#pragma once

#include "zt_db/records/memb.h"
#include "zt_tb/core/record_table.h"

namespace zt {

/// The table of members of all types. What a type has no use for cannot be entered in its rows. Members are made in the
/// model view.
class CTBMemb : public RecordTable<CTBMemb, CClassMemb> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;

protected:
    bool IsInDetail(std::uint32_t key) const override;

private:
    template <int Type>
    static void EnableFor(const CTBMemb& table, int row, velda::CGXStyle& style) {
        style.SetEnabled(table.TypeOfRow(row) == Type);
    }
    static void DisableBetaOfWalls(const CTBMemb& table, int row, velda::CGXStyle& style);
    /// Sections are listed, and thicknesses where the type has one.
    static void ListProperties(CTBMemb& table, int col);
    static void ListThicknesses(const CTBMemb& table, int row, velda::CGXStyle& style);
    int TypeOfRow(int row) const;

    velda::CGXStyle thicknesses_;
};

}  // namespace zt
