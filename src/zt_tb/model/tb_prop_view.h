#pragma once

#include <span>
#include <string_view>

#include "zt_tb/core/table_maker.h"

namespace zt {

/// The view of the property tables, all on tabs of one view. It shows all records, or, when nodes are selected as it
/// opens, those records whose keys are the keys of the nodes.
class CTBPropView : public CTBView {
public:
    enum enTableKind { kMaterial = 1, kSection = 2, kThickness = 3 };

    /// A table that the view shows.
    struct TableEntry {
        int kind = 0;
        std::string_view mnemonic;  ///< of the record class
        std::string_view titleKey;  ///< of the tab
        TableMaker make = nullptr;
    };
    /// The tables in the order of their tabs.
    static std::span<const TableEntry> Tables();
    /// Title of the view.
    static std::string GetTableName(int kind);

    /// Makes and fills all tables, with the tab of `kind` in front, and listens to the document from then on. Once in
    /// the life of a view. False, and nothing done, for a kind without a table.
    bool SetTable(int kind, CDBDoc& doc);

    void UpdateViewTitle() override;
    void UpdateBuffer(T_UPDATE_HINT* hint) override;
    void UpdateUnit() override;

private:
    void AddTables();
    void FillTables(CViewCtrl& view);

    int kind_ = 0;
    std::vector<CTBCommonWnd*> tables_;
};

}  // namespace zt
