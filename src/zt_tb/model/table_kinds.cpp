#include "zt_tb/model/table_kinds.h"

#include <algorithm>
#include <array>

#include "zt_tb/boundary_load/tb_load_types.h"
#include "zt_tb/boundary_load/tb_member_loads.h"
#include "zt_tb/boundary_load/tb_pmas.h"
#include "zt_tb/boundary_load/tb_ptld.h"
#include "zt_tb/boundary_load/tb_spts.h"
#include "zt_tb/boundary_load/tb_swgt.h"
#include "zt_tb/model/tb_matl.h"
#include "zt_tb/model/tb_memb.h"
#include "zt_tb/model/tb_pont.h"

namespace zt {
namespace {

constexpr TableKindEntry kKinds[] = {
    {.kind = kTableNone, .titleKey = "IDS_TB_PREVIEW_No_table"},
    {.kind = kTablePont, .mnemonic = "PONT", .titleKey = "IDS_TB_PREVIEW_Pont", .make = &MakeTable<CTBPont>},
    {.kind = kTableMemb, .mnemonic = "MEMB", .titleKey = "IDS_TB_PREVIEW_Memb", .make = &MakeTable<CTBMemb>},
    {.kind = kTableSpts, .mnemonic = "SPTS", .titleKey = "IDS_TB_PREVIEW_Spts", .make = &MakeTable<CTBSpts>},
    {.kind = kTablePmas, .mnemonic = "PMAS", .titleKey = "IDS_TB_PREVIEW_Pmas", .make = &MakeTable<CTBPmas>},
    {.kind = kTableRigd, .mnemonic = "RIGD", .titleKey = "IDS_TB_PREVIEW_Rigd"},
    {.kind = kTablePtld,
     .mnemonic = "PTLD",
     .titleKey = "IDS_TB_PREVIEW_Ptld",
     .make = &MakeTable<CTBPtld>,
     .tabKey = "IDS_TB_PREVIEW_Pold"},
    {.kind = kTableElnk, .mnemonic = "ELNK", .titleKey = "IDS_TB_PREVIEW_Elnk"},
    {.kind = kTableSkew, .mnemonic = "SKEW", .titleKey = "IDS_TB_PREVIEW_Skew"},
    {.kind = kTableNlnk, .mnemonic = "NLNK", .titleKey = "IDS_TB_PREVIEW_Nlnk"},
    {.kind = kTableCglp, .mnemonic = "CGLP", .titleKey = "IDS_TB_PREVIEW_Cglp"},
    {.kind = kTableFrls, .mnemonic = "FRLS", .titleKey = "IDS_TB_PREVIEW_Frls"},
    {.kind = kTableSrls, .mnemonic = "SRLS", .titleKey = "IDS_TB_PREVIEW_Srls"},
    {.kind = kTableSspt, .mnemonic = "SSPT", .titleKey = "IDS_TB_PREVIEW_Sspt"},
    {.kind = kTableWssf, .mnemonic = "WSSF", .titleKey = "IDS_TB_PREVIEW_Wssf"},
    {.kind = kTableSssf, .mnemonic = "SSSF", .titleKey = "IDS_TB_PREVIEW_Sssf"},
    {.kind = kTableFrsf, .mnemonic = "FRSF", .titleKey = "IDS_TB_PREVIEW_Frsf"},
    {.kind = kTableSdsp, .mnemonic = "SDSP", .titleKey = "IDS_TB_PREVIEW_Sdsp"},
    {.kind = kTableSwgt, .mnemonic = "SWGT", .titleKey = "IDS_TB_PREVIEW_Swgt", .make = &MakeTable<CTBSwgt>},
    {.kind = kTableStmp, .mnemonic = "STMP", .titleKey = "IDS_TB_PREVIEW_Stmp"},
    {.kind = kTablePtmp, .mnemonic = "PTMP", .titleKey = "IDS_TB_PREVIEW_Ptmp"},
    {.kind = kTableMtmp, .mnemonic = "MTMP", .titleKey = "IDS_TB_PREVIEW_Mtmp"},
    {.kind = kTableBmla, .mnemonic = "BMLA", .titleKey = "IDS_TB_PREVIEW_Bmla", .make = &MakeTable<CTBBmla>},
    {.kind = kTableArld, .mnemonic = "ARLD", .titleKey = "IDS_TB_PREVIEW_Arld"},
    {.kind = kTableLtld, .titleKey = "IDB_TB_PREVIEW_Ltld"},
    {.kind = kTableLnld, .mnemonic = "LNLD", .titleKey = "IDS_TB_PREVIEW_Line_Load", .make = &MakeTable<CTBLnld>},
    {.kind = kTableCmld, .mnemonic = "CMLD", .titleKey = "IDB_TB_PREVIEW_Cmld", .make = &MakeTable<CTBCmld>},
    {.kind = kTableWallld, .mnemonic = "WALLLD", .titleKey = "IDS_TB_PREVIEW_Wall_Load", .make = &MakeTable<CTBWallld>},
    {.kind = kTableBeamld, .mnemonic = "BEAMLD", .titleKey = "IDS_TB_PREVIEW_Bmla", .make = &MakeTable<CTBBeamld>},
    {.kind = kTableInmf, .mnemonic = "INMF", .titleKey = "IDS_TB_PREVIEW_Inmf"},
    {.kind = kTableAwop, .mnemonic = "AWOP", .titleKey = "IDS_TB_PREVIEW_Awop"},
    {.kind = kTableOffs, .mnemonic = "OFFS", .titleKey = "IDS_TB_PREVIEW_Offs"},
    {.kind = kTableThnl, .titleKey = "IDB_TB_PREVIEW_Thnl"},
    {.kind = kTableMatl, .mnemonic = "MATL", .titleKey = "IDB_TB_PREVIEW_Matl", .make = &MakeTable<CTBMatl>},
    {.kind = kTableSbla, .mnemonic = "SBLA", .titleKey = "IDB_TB_PREVIEW_Sbla", .make = &MakeTable<CTBSbla>},
    {.kind = kTableBwld, .mnemonic = "BWLD", .titleKey = "IDB_TB_PREVIEW_Bwld", .make = &MakeTable<CTBBwld>},
    {.kind = kTableSprs, .mnemonic = "SPRS", .titleKey = "IDB_TB_PREVIEW_Sprs"},
    {.kind = kTableWprs, .mnemonic = "WPRS", .titleKey = "IDB_TB_PREVIEW_Wprs"},
    {.kind = kTableGwex, .mnemonic = "GWEX", .titleKey = "IDB_TB_PREVIEW_Gwex"},
    {.kind = kTableNwex, .mnemonic = "NWEX", .titleKey = "IDB_TB_PREVIEW_Nwex"},
    {.kind = kTableDrld, .mnemonic = "DRLD", .titleKey = "IDB_TB_PREVIEW_Drld"},
    {.kind = kTableWnld, .mnemonic = "WNLD", .titleKey = "IDB_TB_PREVIEW_Wnld"},
    {.kind = kTableGwup, .mnemonic = "GWUP", .titleKey = "IDB_TB_PREVIEW_Gwup"},
    {.kind = kTableNwup, .mnemonic = "NWUP", .titleKey = "IDB_TB_PREVIEW_Nwup"},
    {.kind = kTableNwlw, .mnemonic = "NWLW", .titleKey = "IDB_TB_PREVIEW_Nwlw"},
    {.kind = kTableNdld, .mnemonic = "NDLD", .titleKey = "IDB_TB_PREVIEW_Ndld"},
    {.kind = kTableNwld, .mnemonic = "NWLD", .titleKey = "IDB_TB_PREVIEW_Nwld"},
    {.kind = kTableCbld, .titleKey = "IDB_TB_PREVIEW_Cbld"},
    {.kind = kTableMrft, .mnemonic = "MRFT", .titleKey = "IDB_TB_PREVIEW_Mrft"},
    {.kind = kTableTrft, .mnemonic = "TRFT", .titleKey = "IDB_TB_PREVIEW_Trft"},
    {.kind = kTableSueq, .mnemonic = "SUEQ", .titleKey = "IDB_TB_PREVIEW_Sueq"},
    {.kind = kTableKfac, .mnemonic = "KFAC", .titleKey = "IDB_TB_PREVIEW_Kfac"},
    {.kind = kTableDfft, .titleKey = "IDB_TB_PREVIEW_Dfft"},
    {.kind = kTablePMrft, .mnemonic = "PMRFT", .titleKey = "IDB_TB_PREVIEW_Mrft"},
    {.kind = kTablePTrft, .mnemonic = "PTRFT", .titleKey = "IDB_TB_PREVIEW_Trft"},
    {.kind = kTablePSueq, .mnemonic = "PSUEQ", .titleKey = "IDB_TB_PREVIEW_Sueq"},
    {.kind = kTablePKfac, .mnemonic = "PKFAC", .titleKey = "IDB_TB_PREVIEW_Kfac"},
    {.kind = kTablePDfft, .titleKey = "IDB_TB_PREVIEW_Dfft"},
    {.kind = kTableLfeg, .mnemonic = "LFEG", .titleKey = "IDB_TB_PREVIEW_Lfeg"},
    {.kind = kTablePLfeg, .mnemonic = "PLFEG", .titleKey = "IDB_TB_PREVIEW_Lfeg"},
    {.kind = kTableSdir, .mnemonic = "SDIR", .titleKey = "IDB_TB_PREVIEW_Sdir"},
    {.kind = kTablePSdir, .mnemonic = "PSDIR", .titleKey = "IDB_TB_PREVIEW_Sdir"},
    {.kind = kTableLfcw, .mnemonic = "LFCW", .titleKey = "IDB_TB_PREVIEW_Lfcw"},
    {.kind = kTableLfbm, .mnemonic = "LFBM", .titleKey = "IDB_TB_PREVIEW_Lfbm"},
    {.kind = kTableLffd, .mnemonic = "LFFD", .titleKey = "IDB_TB_PREVIEW_Lffd"},
    {.kind = kTableLlrf, .titleKey = "IDB_TB_PREVIEW_Llrf"},
    {.kind = kTablePLfcw, .mnemonic = "PLFCW", .titleKey = "IDB_TB_PREVIEW_Lfcw"},
    {.kind = kTablePLfbm, .mnemonic = "PLFBM", .titleKey = "IDB_TB_PREVIEW_Lfbm"},
    {.kind = kTablePLffd, .mnemonic = "PLFFD", .titleKey = "IDB_TB_PREVIEW_Lffd"},
    {.kind = kTablePLlrf, .titleKey = "IDB_TB_PREVIEW_Llrf"},
    {.kind = kTableSflt, .mnemonic = "SFLT", .titleKey = "IDB_TB_PREVIEW_Sflt"},
    {.kind = kTableSfmd, .mnemonic = "SFMD", .titleKey = "IDB_TB_PREVIEW_Sfmd"},
    {.kind = kTableSfwb, .mnemonic = "SFWB", .titleKey = "IDB_TB_PREVIEW_Sfwb"},
    {.kind = kTableLeng, .mnemonic = "LENG", .titleKey = "IDB_TB_PREVIEW_Leng"},
    {.kind = kTableLtsr, .mnemonic = "LTSR", .titleKey = "IDB_TB_PREVIEW_Ltsr"},
    {.kind = kTableCbft, .mnemonic = "CBFT", .titleKey = "IDB_TB_PREVIEW_Cbft"},
    {.kind = kTableUccf, .mnemonic = "UCCF", .titleKey = "IDB_TB_PREVIEW_Uccf"},
    {.kind = kTableSpan, .mnemonic = "SPAN", .titleKey = "IDS_TB_PREVIEW_SPAN", .follows = TableFollows::Nothing},
    {.kind = kTableExps, .mnemonic = "EXPS", .titleKey = "IDB_TB_PREVIEW_Exps", .follows = TableFollows::Changes},
    {.kind = kTableMbtp, .titleKey = "IDB_TB_PREVIEW_Mbtp"},
    {.kind = kTableMtcm, .mnemonic = "MTCM", .titleKey = "IDB_TB_PREVIEW_Mtcm"},
    {.kind = kTableMtbm, .mnemonic = "MTBM", .titleKey = "IDB_TB_PREVIEW_Mtbm"},
    {.kind = kTableMtwl, .mnemonic = "MTWL", .titleKey = "IDB_TB_PREVIEW_Mtwl"},
    {.kind = kTableMtsb, .mnemonic = "MTSB", .titleKey = "IDB_TB_PREVIEW_Mtsb"},
    {.kind = kTablePontMemb, .titleKey = "IDS_TB_PREVIEW_Memb"},
    {.kind = kTablePontDetail, .titleKey = "IDS_TB_PREVIEW_Pont_Detail"},
    {.kind = kTableMembDetail, .titleKey = "IDS_TB_PREVIEW_Memb_Detail"},
    {.kind = kTablePhgeAll, .titleKey = "IDS_TB_PREVIEW_PHGE_ALL"},
    {.kind = kTablePhgeFema, .mnemonic = "PHGEFEMA", .titleKey = "IDS_TB_PREVIEW_PHGE_FEMA"},
    {.kind = kTablePhgeMul, .mnemonic = "PHGEMUL", .titleKey = "IDS_TB_PREVIEW_PHGE_MULT"},
    {.kind = kTablePhgeAllSel, .titleKey = "IDS_TB_PREVIEW_PHGE_ALL_SEL"},
    {.kind = kTablePhgeFemaSel, .mnemonic = "PHGEFEMA", .titleKey = "IDS_TB_PREVIEW_PHGE_FEMA"},
    {.kind = kTablePhgeMulSel, .mnemonic = "PHGEMUL", .titleKey = "IDS_TB_PREVIEW_PHGE_MULT"},
    {.kind = kTableIeheAll, .titleKey = "IDS_TB_PREVIEW_IEHE_ALL"},
    {.kind = kTableIeheMulAll, .mnemonic = "IEHEMUL", .titleKey = "IDS_TB_PREVIEW_IEHE_HYST"},
    {.kind = kTableIeheMul, .mnemonic = "IEHEMUL", .titleKey = "IDS_TB_PREVIEW_IEHE_HYST"},
    {.kind = kTablePhge, .mnemonic = "PHGE", .titleKey = "IDS_TB_PREVIEW_PHGE"},
    {.kind = kTableIehe, .mnemonic = "IEHE", .titleKey = "IDS_TB_PREVIEW_IEHE"},
    {.kind = kTablePhgeWallAll, .titleKey = "IDS_TB_PREVIEW_PHGE_ALL_WALL"},
    {.kind = kTablePhgeWallCon,
     .mnemonic = "PHGEWALLCON",
     .titleKey = "IDB_TB_PREVIEW_phgew_con",
     .tabKey = "IDS_TB_PREVIEW_IEHE_TAB_CONC"},
    {.kind = kTablePhgeWallStl,
     .mnemonic = "PHGEWALLSTL",
     .titleKey = "IDB_TB_PREVIEW_phgew_stl",
     .tabKey = "IDS_TB_PREVIEW_IEHE_TAB_STL"},
    {.kind = kTablePhgeWallShr,
     .mnemonic = "PHGEWALLSHR",
     .titleKey = "IDB_TB_PREVIEW_phgew_shr",
     .tabKey = "IDS_TB_PREVIEW_IEHE_TAB_SHR"},
    {.kind = kTableIeheWallAll, .titleKey = "IDS_TB_PREVIEW_IEHE_ALL_WALL"},
    {.kind = kTableIeheWallCon,
     .mnemonic = "IEHEWALLCON",
     .titleKey = "IDB_TB_PREVIEW_iehew_con",
     .tabKey = "IDS_TB_PREVIEW_IEHE_TAB_CONC"},
    {.kind = kTableIeheWallStl,
     .mnemonic = "IEHEWALLSTL",
     .titleKey = "IDB_TB_PREVIEW_iehew_stl",
     .tabKey = "IDS_TB_PREVIEW_IEHE_TAB_STL"},
    {.kind = kTableIeheWallShr,
     .mnemonic = "IEHEWALLSHR",
     .titleKey = "IDB_TB_PREVIEW_iehew_shr",
     .tabKey = "IDS_TB_PREVIEW_IEHE_TAB_SHR"},
    {.kind = kTableMbcl, .mnemonic = "MBCL", .titleKey = "IDS_TB_MEMB_TYPE_COLUMN"},
    {.kind = kTableMbbm, .mnemonic = "MBBM", .titleKey = "IDS_TB_MEMB_TYPE_BEAM"},
    {.kind = kTableMbsb, .mnemonic = "MBSB", .titleKey = "IDS_TB_MEMB_TYPE_SBEAM"},
    {.kind = kTableMbwl, .mnemonic = "MBWL", .titleKey = "IDS_TB_MEMB_TYPE_WALL"},
    {.kind = kTableMbsl, .mnemonic = "MBSL", .titleKey = "IDS_TB_MEMB_TYPE_SLAB"},
    {.kind = kTableMbst, .mnemonic = "MBST", .titleKey = "IDS_TB_MEMB_TYPE_STAIR"},
    {.kind = kTableMbbr, .mnemonic = "MBBR", .titleKey = "IDS_TB_MEMB_TYPE_BREACE"},
    {.kind = kTableMbln, .mnemonic = "MBLN", .titleKey = "IDS_TB_MEMB_TYPE_LINE"},
    {.kind = kTableMbos, .mnemonic = "MBOS", .titleKey = "IDS_TB_MEMB_TYPE_OPENING_SLAB"},
    {.kind = kTableMbbl, .mnemonic = "MBBL", .titleKey = "IDS_TB_MEMB_TYPE_BLOCK"},
    {.kind = kTableMbbc, .mnemonic = "MBBC", .titleKey = "IDS_TB_MEMB_TYPE_BRICK"},
    {.kind = kTableMbmw, .mnemonic = "MBMW", .titleKey = "IDS_TB_MEMB_TYPE_CONCRETE"},
    {.kind = kTableMbuw, .mnemonic = "MBUW", .titleKey = "IDS_TB_MEMB_TYPE_USER_WALL"},
    {.kind = kTableMbus, .mnemonic = "MBUS", .titleKey = "IDS_TB_MEMB_TYPE_USER_SLAB"},
    {.kind = kTableMbbt, .mnemonic = "MBBT", .titleKey = "IDS_TB_MEMB_TYPE_TRUSS_BEAM"},
    {.kind = kTableMbrt, .mnemonic = "MBRT", .titleKey = "IDS_TB_MEMB_TYPE_TRUSS_BRTR"},
    {.kind = kTableMbpl, .mnemonic = "MBPL", .titleKey = "IDS_TB_MEMB_TYPE_PURLIN"},
    {.kind = kTableMbgt, .mnemonic = "MBGT", .titleKey = "IDS_TB_MEMB_TYPE_GIRTH"},
    {.kind = kTableMbSteelStairBeam, .mnemonic = "MBSTEELSTAIRBEAM", .titleKey = "IDS_TB_MEMB_TYPE_STEEL_STAIR_BEAM"},
    {.kind = kTableMbSteelStair, .mnemonic = "MBSTEELSTAIR", .titleKey = "IDS_TB_MEMB_TYPE_STEEL_STAIR"},
    {.kind = kTableMembTypes, .titleKey = "IDS_TB_PREVIEW_Memb"},
    {.kind = kTableChk, .mnemonic = "CHK", .titleKey = "IDS_TB_PREVIEW_Chk", .follows = TableFollows::Changes},
};

/// The kinds from one to another.
template <int First, int Last>
constexpr auto Run() {
    std::array<int, Last - First + 1> kinds{};
    for (std::size_t at = 0; at < kinds.size(); ++at) kinds[at] = First + static_cast<int>(at);
    return kinds;
}

constexpr auto kLineLoadAsked = Run<kTableLtld, kTableBeamld>();
constexpr auto kLineLoads = Run<kTableLnld, kTableBeamld>();
constexpr auto kProtectiveAsked = Run<kTableSprs, kTableCbld>();
constexpr auto kProtectiveLoads = Run<kTableSprs, kTableNwld>();
// These two families have tables of their own for the other factors as well, but the group shows the first one only.
constexpr int kDesignFactorAsked[] = {kTableMrft, kTableTrft, kTableSueq, kTableDfft};
constexpr int kDesignFactors[] = {kTableMrft};
constexpr int kPostDesignFactorAsked[] = {kTablePMrft, kTablePTrft, kTablePSueq, kTablePDfft};
constexpr int kPostDesignFactors[] = {kTablePMrft};
constexpr auto kReductionAsked = Run<kTableLfcw, kTableLlrf>();
constexpr auto kReductionFactors = Run<kTableLfcw, kTableLffd>();
constexpr auto kPostReductionAsked = Run<kTablePLfcw, kTablePLlrf>();
constexpr auto kPostReductionFactors = Run<kTablePLfcw, kTablePLffd>();
constexpr auto kTypeDataAsked = Run<kTableMbtp, kTableMtsb>();
constexpr auto kTypeData = Run<kTableMtcm, kTableMtsb>();
constexpr int kPontMembAsked[] = {kTablePontMemb};
constexpr int kPontMemb[] = {kTablePont, kTableMemb};
constexpr auto kMembTypeAsked = Run<kTableMbcl, kTableMembTypes>();
constexpr auto kMembTypes = Run<kTableMbcl, kTableMbSteelStair>();

constexpr int kPontDetailAsked[] = {kTablePontDetail};
constexpr int kPontDetail[] = {kTablePont, kTableSpts, kTableElnk, kTablePtld, kTableSdsp};
constexpr int kMembDetailAsked[] = {kTableMembDetail};
constexpr int kMembDetail[] = {
    kTableMemb,  kTableAwop,  kTableFrls,  kTableOffs,  kTableSbla,  kTableBeamld, kTableWallld,
    kTableLnld,  kTableCmld,  kTableMtmp,  kTableLfeg,  kTableFrsf,  kTableWssf,   kTableSssf,
    kTableLfcw,  kTableLfbm,  kTableLffd,  kTableMrft,  kTableTrft,  kTableSueq,   kTableKfac,
    kTableSdir,  kTableLeng,  kTableLtsr,  kTableCbft,  kTableUccf,  kTablePLfeg,  kTablePLfcw,
    kTablePLfbm, kTablePLffd, kTablePMrft, kTablePTrft, kTablePSueq, kTablePKfac,  kTablePSdir,
};
constexpr int kPostMembDetail[] = {
    kTablePLfeg, kTablePLfcw, kTablePLfbm, kTablePLffd, kTablePMrft, kTablePTrft, kTablePSueq,
    kTablePKfac, kTablePSdir, kTableLeng,  kTableLtsr,  kTableCbft,  kTableUccf,
};

constexpr int kPhgeAsked[] = {kTablePhgeAll};
constexpr int kPhge[] = {kTablePhgeFema, kTablePhgeMul};
constexpr int kPhgeSelAsked[] = {kTablePhgeAllSel};
constexpr int kPhgeSel[] = {kTablePhgeFemaSel, kTablePhgeMulSel};
constexpr int kIeheAsked[] = {kTableIeheAll};
constexpr int kIehe[] = {kTableIeheMulAll};
constexpr int kPhgeWallAsked[] = {kTablePhgeWallAll};
constexpr int kPhgeWall[] = {kTablePhgeWallCon, kTablePhgeWallStl, kTablePhgeWallShr};
constexpr int kIeheWallAsked[] = {kTableIeheWallAll};
constexpr int kIeheWall[] = {kTableIeheWallCon, kTableIeheWallStl, kTableIeheWallShr};

// A kind that stands for a tab outside the group opens it with the first tab in front.
constexpr TableGroup kGroups[] = {
    {.kind = kTableLtld, .askedBy = kLineLoadAsked, .tables = kLineLoads, .firstTab = kTableLnld},
    {.kind = kTableCbld,
     .askedBy = kProtectiveAsked,
     .tables = kProtectiveLoads,
     .firstTab = kTableSprs,
     .opensInitially = false},
    {.kind = kTableDfft, .askedBy = kDesignFactorAsked, .tables = kDesignFactors, .firstTab = kTableMrft},
    {.kind = kTablePDfft, .askedBy = kPostDesignFactorAsked, .tables = kPostDesignFactors, .firstTab = kTablePMrft},
    {.kind = kTableLlrf, .askedBy = kReductionAsked, .tables = kReductionFactors, .firstTab = kTableLfcw},
    {.kind = kTablePLlrf, .askedBy = kPostReductionAsked, .tables = kPostReductionFactors, .firstTab = kTablePLfcw},
    {.kind = kTableMbtp, .askedBy = kTypeDataAsked, .tables = kTypeData, .firstTab = kTableMtcm},
    {.kind = kTablePontMemb, .askedBy = kPontMembAsked, .tables = kPontMemb, .firstTab = kTablePontMemb},
    {.kind = kTableMembTypes, .askedBy = kMembTypeAsked, .tables = kMembTypes, .firstTab = kTableMbcl},
    {.kind = kTablePontDetail,
     .askedBy = kPontDetailAsked,
     .tables = kPontDetail,
     .firstTab = kTablePontDetail,
     .runMode = CTBCommonWnd::kDetail,
     .filling = GroupFilling::Selection,
     .selection = GroupSelection::Nodes},
    {.kind = kTableMembDetail,
     .askedBy = kMembDetailAsked,
     .tables = kMembDetail,
     .firstTab = kTableMembDetail,
     .runMode = CTBCommonWnd::kDetail,
     .filling = GroupFilling::Selection,
     .selection = GroupSelection::Members,
     .postTables = kPostMembDetail},
    {.kind = kTablePhgeAll,
     .askedBy = kPhgeAsked,
     .tables = kPhge,
     .firstTab = kTablePhgeAll,
     .filling = GroupFilling::RecordsAndOpen,
     .selection = GroupSelection::FoundByTables},
    {.kind = kTablePhgeAllSel,
     .askedBy = kPhgeSelAsked,
     .tables = kPhgeSel,
     .firstTab = kTablePhgeAllSel,
     .filling = GroupFilling::RecordsAndOpen},
    {.kind = kTableIeheAll,
     .askedBy = kIeheAsked,
     .tables = kIehe,
     .firstTab = kTableIeheAll,
     .filling = GroupFilling::RecordsAndOpen,
     .selection = GroupSelection::FoundByTables},
    {.kind = kTablePhgeWallAll,
     .askedBy = kPhgeWallAsked,
     .tables = kPhgeWall,
     .firstTab = kTablePhgeWallAll,
     .filling = GroupFilling::RecordsAndOpen,
     .selection = GroupSelection::FoundByTables},
    {.kind = kTableIeheWallAll,
     .askedBy = kIeheWallAsked,
     .tables = kIeheWall,
     .firstTab = kTableIeheWallAll,
     .filling = GroupFilling::RecordsAndOpen,
     .selection = GroupSelection::FoundByTables},
};

/// What a kind leads to, so that nothing is searched for.
struct Lead {
    const TableKindEntry* entry = nullptr;
    const TableGroup* group = nullptr;
};
using Leads = std::array<Lead, kLastTableKind + 1>;

constexpr Leads MakeLeads() {
    Leads leads{};
    for (const TableKindEntry& entry : kKinds) leads.at(static_cast<std::size_t>(entry.kind)).entry = &entry;
    for (const TableGroup& group : kGroups) {
        for (const int kind : group.askedBy) leads.at(static_cast<std::size_t>(kind)).group = &group;
    }
    return leads;
}
constexpr Leads kLeads = MakeLeads();

Lead LeadOf(int kind) { return kind < 0 || kind > kLastTableKind ? Lead{} : kLeads[static_cast<std::size_t>(kind)]; }

constexpr TableKindRange kHinges[] = {{kTablePhgeAll, kTableIeheWallShr}};
constexpr TableKindRange kDetails[] = {{kTablePontDetail, kTableMembDetail}};
constexpr TableKindRange kClosedByPostMode[] = {
    {kTablePont, kTableUccf}, {kTableMbtp, kTablePontMemb}, {kTableMbcl, kTableMembTypes}};

constexpr TableKindRange kClosedWithMemberTypes[] = {
    {kTableMbcl, kTableMbus}, {kTableMbpl, kTableMbgt}, {kTableMembTypes, kTableMembTypes}};
constexpr TableKindRange kSlabLoad[] = {{kTableSbla, kTableSbla}};
constexpr TableKindRange kLineLoad[] = {{kTableLnld, kTableLnld}};
constexpr TableKindRange kOffset[] = {{kTableOffs, kTableOffs}};

constexpr ClosingCommand kClosingCommands[] = {
    {"FINISH_MBTB_TABLE", kClosedWithMemberTypes},
    {"FINISH_SBLA_TABLE", kSlabLoad},
    {"FINISH_LNLD_TABLE", kLineLoad},
    {"FINISH_BNDR_OFFS_TABLE", kOffset},
};

}  // namespace

std::span<const TableKindEntry> TableKinds() { return kKinds; }
std::span<const TableGroup> TableGroups() { return kGroups; }

const TableKindEntry* FindTableKind(int kind) { return LeadOf(kind).entry; }
const TableGroup* FindTableGroup(int kind) { return LeadOf(kind).group; }

const TableKindEntry* FindTableKind(std::string_view mnemonic) {
    const auto found = std::find_if(std::begin(kKinds), std::end(kKinds), [&](const TableKindEntry& entry) {
        return !mnemonic.empty() && entry.mnemonic == mnemonic;
    });
    return found == std::end(kKinds) ? nullptr : found;
}

TableMaker FindTableMaker(int kind) {
    const TableKindEntry* entry = FindTableKind(kind);
    return entry ? entry->make : nullptr;
}

bool Contains(TableKindSet kinds, int kind) {
    return std::any_of(kinds.begin(), kinds.end(),
                       [&](const TableKindRange& range) { return kind >= range.first && kind <= range.last; });
}

TableKindSet HingeTableKinds() { return kHinges; }
TableKindSet KindsKeptByPreMode() { return kDetails; }
TableKindSet KindsClosedByPostMode() { return kClosedByPostMode; }
std::span<const ClosingCommand> ClosingCommands() { return kClosingCommands; }

}  // namespace zt
