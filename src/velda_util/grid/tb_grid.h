#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "velda_util/cells/row_sort.h"
#include "velda_util/clip/find_text.h"
#include "velda_util/edit/key_map.h"
#include "velda_util/grid/gx_grid_wnd.h"
#include "velda_util/pref/table_registry.h"

namespace velda {

/// Colours of all tables, blue-green-red.
struct STBColorSet {
    std::uint32_t text = 0x000000;
    std::uint32_t background = 0xFFFFFF;
    std::uint32_t header = 0xF0F0F0;
    std::uint32_t readOnly = 0xF5F5F5;
    std::uint32_t rowInEdit = 0xCCFFFF;
    bool operator==(const STBColorSet&) const = default;
};

/// A grid with the identity of a table: its registration name and column preferences, find, hooks for graph and menu.
class CTBGrid : public CGXGridWnd {
public:
    // ---- preferences, kept per user and table name

    /// Registers a table class; returns the name to keep.
    static std::string RegisterTable(std::string_view name, DefaultPreferenceFunction defaults) {
        return TableRegistry::OfProcess().RegisterTable(name, defaults);
    }
    /// Registers a class of result tables under its name, the name of its preferences, and what makes its source;
    /// returns the name of its preferences.
    static std::string RegisterTable(std::string_view className, std::string_view name, DataSrcFactory factory) {
        return TableRegistry::OfProcess().RegisterTable(className, name, factory);
    }
    static std::vector<STBPrefItem> GetPrefInfo(std::string_view name) {
        return TableRegistry::OfProcess().GetPrefInfo(name);
    }
    static bool SetCurrColWithInPrefInfo(std::string_view name, const std::vector<int>& widths) {
        return TableRegistry::OfProcess().SetCurrColWithInPrefInfo(name, widths);
    }
    static Outcome WriteToRegistry(std::string_view name) { return TableRegistry::OfProcess().WriteToRegistry(name); }

    const std::string& GetTableName() const { return tableName_; }
    /// Keeps the widths, the order, and what is hidden and locked, for the next time that the table opens.
    Outcome SaveLayout();
    /// Applies the stored widths and decimal places.
    virtual void ApplyColumnPreferences() {}

    // ---- find

    /// Settings of the last search; they go from table to table.
    static inline STBFindStruct m_Find;
    /// Prepares a search that starts at the current cell.
    virtual void UpdateFindParam(STBFindStruct& find);
    /// Leaves the open row, where there is one, before something else goes on; false when it stays open.
    virtual bool LeaveRow() { return true; }
    /// Searches on from `find.currentRow` and makes the cell found the current one. The host is told when the search
    /// wrapped or found nothing. False when nothing was found or the open row cannot be left.
    bool Find(STBFindStruct& find);
    /// The next occurrence in the direction of the settings, behind the current cell.
    bool FindNext(STBFindStruct& find);

    // ---- look

    static inline STBColorSet m_Color;
    /// Lets the user choose the colours of all tables; false when he cancels.
    static bool ShowColorDlg();
    // ---- order

    /// How the rows are sorted: the columns, the first one counts most.
    virtual const std::vector<STBSortItem>& SortInfo() const;
    /// Sorts the rows anew; false, and the order stays, when the table cannot be sorted now or the user cancels.
    virtual bool Sort(const std::vector<STBSortItem>& /*items*/) { return false; }
    /// Lets the user sort the table; false when he cancels.
    bool ShowSortDlg();

    // ---- keys

    /// What a key means now; none when it is no business of the table.
    std::optional<TableCommand> CommandOf(KeyChord chord) const { return CommandFor(Situation(), chord); }
    /// Handles a key; false when it is no business of the table.
    bool ProcessKey(KeyChord chord);
    virtual bool DoCommand(TableCommand command);

    // ---- hooks of tables

    /// What a graph of the table shows: the numbers of the graph range. False when there are none.
    virtual bool GetGraphData(T_GRAPH_D& data);
    /// The cells that a graph shows: those that commands work on.
    virtual CGXRange GetGraphRange() const;
    /// Adds to the right-button menu, or takes away from it.
    virtual void CustomizeContextMenu(CMenu& /*menu*/) {}
    /// A command that the table added to the menu; false when it is no command of the table.
    virtual bool HandleCustomContextMenu(int /*command*/) { return false; }

protected:
    virtual KeySituation Situation() const;
    virtual bool MoveBy(NavigationStep step);
    bool ExtendBy(NavigationStep step);
    bool SelectWhole(TableCommand command);
    /// Applies widths and decimal places, by column id.
    void PutColumnPreferences(const std::vector<STBPrefItem>& items);
    /// Applies the order of the columns, and which the user hid and locked.
    void ApplyLayout();
    void SetTableName(std::string name) { tableName_ = std::move(name); }
    /// Searches the cells of an area, as FindText does, by the texts that a copy of them would give.
    virtual FindResult Search(const STBFindStruct& find, const FindArea& area) const;

private:
    bool FindFrom(STBFindStruct& find, int column);
    /// The cell behind which a search goes on: the last one found, though it may not be entered, or the current one.
    GridPosition SearchStart() const;

    std::string tableName_;
};

}  // namespace velda
