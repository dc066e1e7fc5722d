#pragma once

#include <span>
#include <string_view>

#include "zt_tb/core/table_maker.h"

namespace zt {

/// What the model table view can show: a table, or a group of tables on tabs. Numbers that are not named are not used.
enum enTableKind {
    kTableNone = 0,
    kTablePont = 1,
    kTableMemb = 2,
    kTableSpts = 3,
    kTablePmas = 4,
    kTableRigd = 5,
    kTablePtld = 6,
    kTableElnk = 7,
    kTableSkew = 8,
    kTableNlnk = 9,
    kTableCglp = 10,
    kTableFrls = 11,
    kTableSrls = 12,
    kTableSspt = 13,
    kTableWssf = 14,
    kTableSssf = 15,
    kTableFrsf = 16,
    kTableSdsp = 17,
    kTableSwgt = 18,
    kTableStmp = 19,
    kTablePtmp = 20,
    kTableMtmp = 21,
    kTableBmla = 22,
    kTableArld = 23,
    kTableLtld = 24,
    kTableLnld = 25,
    kTableCmld = 26,
    kTableWallld = 27,
    kTableBeamld = 28,
    kTableInmf = 29,
    kTableAwop = 30,
    kTableOffs = 31,
    kTableThnl = 32,
    kTableMatl = 33,
    kTableSbla = 34,
    kTableBwld = 35,
    kTableSprs = 36,
    kTableWprs = 37,
    kTableGwex = 38,
    kTableNwex = 39,
    kTableDrld = 40,
    kTableWnld = 41,
    kTableGwup = 42,
    kTableNwup = 43,
    kTableNwlw = 44,
    kTableNdld = 45,
    kTableNwld = 46,
    kTableCbld = 47,
    kTableMrft = 48,
    kTableTrft = 49,
    kTableSueq = 50,
    kTableKfac = 51,
    kTableDfft = 52,
    kTablePMrft = 53,
    kTablePTrft = 54,
    kTablePSueq = 55,
    kTablePKfac = 56,
    kTablePDfft = 57,
    kTableLfeg = 58,
    kTablePLfeg = 59,
    kTableSdir = 60,
    kTablePSdir = 61,
    kTableLfcw = 62,
    kTableLfbm = 63,
    kTableLffd = 64,
    kTableLlrf = 65,
    kTablePLfcw = 66,
    kTablePLfbm = 67,
    kTablePLffd = 68,
    kTablePLlrf = 69,
    kTableSflt = 70,
    kTableSfmd = 71,
    kTableSfwb = 72,
    kTableLeng = 73,
    kTableLtsr = 74,
    kTableCbft = 75,
    kTableUccf = 76,
    kTableSpan = 77,
    kTableExps = 78,
    kTableMbtp = 79,
    kTableMtcm = 80,
    kTableMtbm = 81,
    kTableMtwl = 82,
    kTableMtsb = 83,
    kTablePontMemb = 84,
    kTablePontDetail = 85,
    kTableMembDetail = 86,
    kTablePhgeAll = 121,
    kTablePhgeFema = 122,
    kTablePhgeMul = 123,
    kTablePhgeAllSel = 124,
    kTablePhgeFemaSel = 125,
    kTablePhgeMulSel = 126,
    kTableIeheAll = 127,
    kTableIeheMulAll = 128,
    kTableIeheMul = 129,
    kTablePhge = 130,
    kTableIehe = 131,
    kTablePhgeWallAll = 132,
    kTablePhgeWallCon = 133,
    kTablePhgeWallStl = 134,
    kTablePhgeWallShr = 135,
    kTableIeheWallAll = 136,
    kTableIeheWallCon = 137,
    kTableIeheWallStl = 138,
    kTableIeheWallShr = 139,
    kTableMbcl = 140,
    kTableMbbm = 141,
    kTableMbsb = 142,
    kTableMbwl = 143,
    kTableMbsl = 144,
    kTableMbst = 145,
    kTableMbbr = 146,
    kTableMbln = 147,
    kTableMbos = 148,
    kTableMbbl = 149,
    kTableMbbc = 150,
    kTableMbmw = 151,
    kTableMbuw = 152,
    kTableMbus = 153,
    kTableMbbt = 154,
    kTableMbrt = 155,
    kTableMbpl = 156,
    kTableMbgt = 157,
    kTableMbSteelStairBeam = 158,
    kTableMbSteelStair = 159,
    kTableMembTypes = 160,
    kTableChk = 161,
};
/// Number of the last kind.
inline constexpr int kLastTableKind = kTableChk;

/// What a table that stands alone in its view is told of.
enum class TableFollows { Nothing, Changes, ChangesAndUnits };

/// What is known of a kind.
struct TableKindEntry {
    int kind = kTableNone;
    std::string_view mnemonic{};  ///< of the table class; empty for a group and for a kind without a table
    std::string_view titleKey{};  ///< text of the window title
    TableMaker make = nullptr;    ///< null as long as the table class does not exist
    std::string_view tabKey{};    ///< text of the tab; empty where it is the window title
    TableFollows follows = TableFollows::ChangesAndUnits;

    std::string_view TabKey() const { return tabKey.empty() ? titleKey : tabKey; }
};

/// All kinds that are in use, by number.
std::span<const TableKindEntry> TableKinds();
/// The entry of a kind; null for a number that is not in use.
const TableKindEntry* FindTableKind(int kind);
/// The first kind with a table class of this mnemonic; null when there is none.
const TableKindEntry* FindTableKind(std::string_view mnemonic);

/// Finds the maker of a kind; null for a kind without one. Views of tests bring their own.
using TableMakerLookup = TableMaker (*)(int kind);
/// The makers of the catalogue.
TableMaker FindTableMaker(int kind);

/// How the tables of a group are filled as they open.
enum class GroupFilling {
    Records,         ///< with all records
    RecordsAndOpen,  ///< with all records, and each table is told that it was opened
    Selection,       ///< with the selected records, and each table is told that it was opened
};

/// Whose selection in the model the tables of a group follow.
enum class GroupSelection { None, Nodes, Members, FoundByTables };

/// A group: several tables on tabs.
struct TableGroup {
    int kind = kTableNone;         ///< its own kind, which decides the title of the view
    std::span<const int> askedBy;  ///< the kinds that open it
    std::span<const int> tables;   ///< kinds of its tables in the order of the tabs
    int firstTab = kTableNone;     ///< the kind that stands for tab 0; the kinds behind it stand for the next tabs
    int runMode = CTBCommonWnd::kGroup;
    GroupFilling filling = GroupFilling::Records;
    GroupSelection selection = GroupSelection::None;
    std::span<const int> postTables{};  ///< its tables on the result side, where they are others
    bool opensInitially = true;         ///< whether the first update of a view knows the group's own kind

    std::span<const int> TablesIn(bool preMode) const { return preMode || postTables.empty() ? tables : postTables; }
};

std::span<const TableGroup> TableGroups();
/// The group that a kind opens; null for a kind that stands alone.
const TableGroup* FindTableGroup(int kind);

/// Kinds from one to another, both included.
struct TableKindRange {
    int first = 0;
    int last = 0;
};
using TableKindSet = std::span<const TableKindRange>;
bool Contains(TableKindSet kinds, int kind);

/// Kinds whose tables take the data that was given with the kind.
TableKindSet HingeTableKinds();
/// Kinds whose frames stay open as the application turns to the modelling side.
TableKindSet KindsKeptByPreMode();
/// Kinds whose frames close as the application turns to the result side.
TableKindSet KindsClosedByPostMode();

/// A text command that closes the frames of some kinds.
struct ClosingCommand {
    std::string_view text;
    TableKindSet kinds;
};
std::span<const ClosingCommand> ClosingCommands();

}  // namespace zt
