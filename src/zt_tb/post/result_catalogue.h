#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zt_tb/post/id_range.h"

namespace zt {

// What the result view can show. A table has a number, the id, and stands in a view of its own; its tabs have numbers
// that all tables share, since a tab may stand in several tables.

inline constexpr int kFirstResultTable = 1;
inline constexpr int kLastResultTable = 96;
inline constexpr int kResultTabCount = 187;

/// A tab: what its data source is and what it is called.
struct ResultTabEntry {
    static constexpr int kNoArgument = -1;

    int tab = 0;
    std::string_view className{};  ///< of the data source; empty for a grid without one
    int argument = kNoArgument;    ///< what the data source is constructed with
    std::string_view titleKey{};   ///< empty for a number that is kept free
};

/// How the tabs of a table are chosen as it opens.
enum class TabChoice {
    All,
    ByCaller,        ///< the caller says which
    ByModelControl,  ///< one of them, by the control record of the model
    BySwitch,        ///< the last range only where the performance design is switched on
};

/// A table: the operation that opens it and what it holds.
struct ResultTableEntry {
    int id = 0;
    std::string_view operation{};  ///< empty for an id that nothing opens
    std::string_view titleKey{};   ///< of the window; empty for none
    std::array<IdRange, 3> tabs{};
    TabChoice choice = TabChoice::All;
    std::string_view usageKey{};     ///< under which its use is counted; empty where it is not
    bool isMemberTable = false;      ///< forces of members and their events
    std::optional<int> tracerTab{};  ///< position of the tab that the tracer of the model check turns to
};

/// All tabs, by number.
std::span<const ResultTabEntry> ResultTabs();
/// The entry of a tab; null for a number that is none.
const ResultTabEntry* FindResultTab(int tab);

/// All tables, by id.
std::span<const ResultTableEntry> ResultTables();
/// The entry of an id; null for a number that is none.
const ResultTableEntry* FindResultTable(int id);
/// The first table that an operation opens; null when there is none.
const ResultTableEntry* FindResultTable(std::string_view operation);
/// Operations that open nothing; callers know them.
std::span<const std::string_view> IdleResultOperations();
/// The tabs of a table that can open now, ascending.
std::vector<int> TabsOf(const ResultTableEntry& table);
/// Tabs that have a title but that no operation opens.
IdSet TabsWithoutOperation();

/// The number of tabs.
int GetAllTableNum();
/// The title of a window; empty for tables without one, for those at both ends of the list, and for other numbers.
std::string GetTableName(int id);

// ---- the activation dialog

/// Whether the dialog opens by itself as a table comes with a tab in front.
bool OpensActivation(int id, int tab);
/// Whether the dialog opens as a tab comes to the front for the first time.
bool NeedsActivationAtSwitch(int tab);
/// Whether the steps of a tab are those of pushover analyses.
bool IsPOResTableForActiveEtc(int tab);
/// Whether a cancelled dialog still has the table read again, so that its first display shows the defaults.
bool ReadsAgainAfterCancel(int id);
/// Whether a table asks for the limits of drift before it shows what was chosen.
bool AsksForDriftLimits(int id);
/// Whether a tab shows loads of stories: those know static cases only.
bool ShowsStoryLoads(int tab);

// ---- the context menu

namespace ResultCommandId {
inline constexpr int SetDriftParameters = 46515;
inline constexpr int Activate = 46516;
inline constexpr int SelectDriftMethod = 46517;
inline constexpr int SetOverturningParameters = 46519;
inline constexpr int SelectTorsionEnds = 46521;
inline constexpr int SelectSoftStoryMethod = 46522;
inline constexpr int SelectWeightMethod = 46523;
inline constexpr int SetAllowableDrift = 46524;
inline constexpr int SetLeastShearWeight = 46525;
inline constexpr int ExportToExcel = 46526;
inline constexpr int ExportGraphToExcel = 46527;
inline constexpr int SetShearFactor = 46528;
inline constexpr int ExportGraph = 46529;
}  // namespace ResultCommandId

/// A command that is put at the end of the menu.
struct AppendedCommand {
    int id = 0;
    std::string_view textKey{};
};

/// How the common context menu becomes that of a table: first commands go, then an item by its position, then others
/// are put at the end.
struct ContextMenuChange {
    std::vector<int> deleted{};
    std::optional<int> deletedPosition{};
    std::vector<AppendedCommand> appended{};
};
/// `graphMenu` is the mark that tabs leave behind, see GraphMenuOf.
ContextMenuChange ContextMenuChangeOf(int id, int tab, bool graphMenu);
/// The mark for the context menu that a tab sets as it comes to the front; none for a tab that leaves it alone.
std::optional<bool> GraphMenuOf(int tab);

// ---- what closes a table

/// Tables that read the model and so stand before any analysis; a change of the model closes them.
bool IsModelTable(int id);
/// Tables of design forces; they close when those are removed.
bool IsDgnForceTable(int id);
/// Tables that a change of the control of the design closes.
bool ClosesOnDesignControl(int id);
/// Whether a hint of the document closes a table.
bool ClosesOnHint(int hint, int id);
/// Whether a text that the document sends along with a hint closes a table.
bool ClosesOnText(std::string_view text, int id);

}  // namespace zt
