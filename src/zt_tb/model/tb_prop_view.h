#pragma once

#include <span>
#include <string_view>

#include "zt_tb/core/table_maker.h"
#include "zt_tb/core/tb_common_view.h"

namespace zt {

/// The view of the property tables, all on tabs of one view.
class CTBPropView : public CTBCommonView {
public:
    enum enTableKind { kMaterial = 1, kSection = 2, kThickness = 3 };

    /// A table that the view shows.
    struct TableEntry {
        int kind = 0;
        std::string_view mnemonic;  ///< of the record class
        std::string_view titleKey;  ///< of the tab
        /// Null while the table does not exist: its tab is empty.
        TableMaker make = nullptr;
    };
    /// The tables in the order of their tabs.
    static std::span<const TableEntry> Tables();
    /// Title of the view.
    static std::string GetTableName(int kind);

    /// Makes all tables, with the tab of `kind` in front, fills them with the records whose keys are the keys of the
    /// selected nodes, and listens to the current document from then on. Once in the life of a view. False, and nothing
    /// made, for a kind without a tab and while no model is open.
    bool SetTable(int kind, void* data = nullptr);
    /// The command for properties: SetTable, and all records where no node is selected.
    bool OpenProperties(int kind);
    /// Makes what SetTable could not make for want of a model; nothing before SetTable.
    void OnInitialUpdate() override;

    // One table alone with all records, without tabs. False when the table does not exist or no model is open.
    bool OninitialUpdateMatl(CDBDoc* doc, const velda::WindowRect& place) { return OpenAlone(doc, place, kMaterial); }
    bool OninitialUpdateSect(CDBDoc* doc, const velda::WindowRect& place) { return OpenAlone(doc, place, kSection); }
    bool OnInitialUpdateThik(CDBDoc* doc, const velda::WindowRect& place) { return OpenAlone(doc, place, kThickness); }

    void UpdateViewTitle() override;
    void UpdateBuffer(T_UPDATE_HINT* hint) override;
    void UpdateUnit() override;
    void UpdatePrefChanged() override {}

protected:
    void CustomizeContextMenu(velda::CMenu& /*menu*/) override {}

private:
    void OnInitialUpdateProperties(CDBDoc& doc, const velda::WindowRect& place, int kind);
    bool OpenAlone(CDBDoc* doc, const velda::WindowRect& place, int kind);
    void AddTable(const TableEntry& entry);
    /// Draws what is there and fills the tables: with all records, or with those of the selection's keys.
    void ShowAndFill(CDBDoc& doc, bool all);

    int kind_ = 0;
    std::vector<CTBCommonWnd*> tables_;
    std::vector<std::uint32_t> selectedKeys_;  ///< of nodes
    bool allWithoutSelection_ = false;         ///< all records are shown where no node is selected
};

}  // namespace zt
