#pragma once

#include "zt_db/records/sect.h"
#include "zt_tb/core/record_table.h"

namespace zt {

/// The table of sections with their properties, for reading and comparing: but for name and description, a section is
/// edited in its dialog. A cell of the shape column shows a picture of the shape beside its name.
class CTBSect : public RecordTable<CTBSect, CClassSect> {
public:
    static const Declaration& Declared();
    static const std::string m_strRegName;

    /// Number of the control for a shape cell without a picture.
    static constexpr int kPlainCell = 1;

    CTBSect();

    /// The given keys that are sections, in the order of the class.
    void PreFilterRecord(const Keys& keys) override;
    /// Number of the control that a section's shape cell has.
    static int ShapeControlOf(const T_SECT_D& section);
    /// What a section's kind of material is called: 1 concrete, 2 steel, 3 both; empty for other kinds.
    static std::string MaterialKindText(int kind);

private:
    /// What the columns show of a section besides its fields.
    struct Values {
        T_SECT_STIFFNESS stiffness{};
        T_SECT_DESIGN design{};
        double perimeterOut = 0.0;
        double perimeterIn = 0.0;
    };

    template <auto Group, auto Member>
    static void ShowValue(const CTBSect& table, const Row& row, CellSink& cell);
    template <auto Member>
    static void ShowPerimeter(const CTBSect& table, const Row& row, CellSink& cell);
    static void PictureOfShape(const CTBSect& table, int row, velda::CGXStyle& style);
    const Values& ValuesOf(const T_SECT_D& section) const;

    // The values of the section that was asked for last: a row asks once for each of its columns.
    mutable T_SECT_D asked_;
    mutable std::optional<Values> values_;
};

}  // namespace zt
