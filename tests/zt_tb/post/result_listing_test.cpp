#include <sstream>

#include "zt_tb/post/result_catalogue.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

/// What users and callers know of result tables: id, operation, key of the title, and key under which its use is
/// counted; below, each tab with its class, what the class is made with, and key of its title. Keys stand without their
/// common beginning. Tables of design factors are listed elsewhere.
constexpr std::string_view kListing = R"(
1 AddTestView -
  0 CTBPostDisp POSTVIEW_Test
2 AddDispView POSTVIEW_DISP
  1 CTBPostDisp POSTVIEW_Displacements
3 AddReacView POSTVIEW_REAC
  2 CTBPostReac POSTVIEW_Reaction_Global_
4 AddColmView -
  3 - POSTVIEW_Column_Force
  4 - POSTVIEW_Column_Stress
5 AddBeamView -
  5 - POSTVIEW_Beam_Force
  6 - POSTVIEW_Beam_Stress
6 AddLintView -
  7 - POSTVIEW_Lintel_Force
  8 - POSTVIEW_Lintel_Stress
8 AddSlabView POSTVIEW_Force_Slab
  12 CTBPostSlabForc POSTVIEW_Slab_Stress
9 AddElnkView POSTVIEW_Force_ELNK
  13 CTBPostStek POSTVIEW_Force_ELNK
10 AddVibrModeView POSTVIEW_Eigenvalue_Mode
  14 CTBPostModeEigenVal POSTVIEW_Eigenvalue_Analysis
  15 CTBPostModeModalMas POSTVIEW_Modal_Participation_Masses
  16 CTBPostModeModalDir POSTVIEW_Modal_Direction_Factor
  17 CTBPostModeEigenVec POSTVIEW_Eigenvector
13 AddStorSsrtView RESULTVIEW_Story_Shear_Force_Ratio TBSTRSHR
  18 CTBPostStSsrt RESULTVIEW_Story_Shear_Force_Ratio
14 AddStorDrftAngView RESULTVIEW_Story_Drift_Angle TBSTRDFT
  19 CTBPostStDrftQorv RESULTVIEW_Drift_Ang
15 AddStorDispView RESULTVIEW_Story_Displacement TBSTRDSP
  20 CTBPostStDisp(0) RESULTVIEW_Displacement_X_
  21 CTBPostStDisp(1) RESULTVIEW_Displacement_Y_
16 AddStorEcctView RESULTVIEW_Story_Eccentricity TBSTRECC
  23 CTBPostStEccent RESULTVIEW_Story_Eccentricity
17 AddStorTAFView RESULTVIEW_Story_TAF TBSTRTAF
  24 CTBPostStTAF RESULTVIEW_Story_TAF
18 AddStorOTMView RESULTVIEW_Story_OTM TBSTROTM
  25 CTBPostStOTMQorv POSTDISP_OverturnMoment
19 AddStorVFSView RESULTVIEW_Story_Axial_Force_Sum TBSTRVFS
  26 CTBPostStAFS RESULTVIEW_Story_Axial_Force_Sum
20 AddStorSTCView RESULTVIEW_Stability_Coefficient TBSTRSTC
  27 CTBPostStStbCoef(0) RESULTVIEW_Story_STC_X
  28 CTBPostStStbCoef(1) RESULTVIEW_Story_STC_Y
21 AddStorTICView RESULTVIEW_Story_TIC_CHK TBSTRTIC
  29 CTBPostStTIC RESULTVIEW_Story_TIC_CHK
22 AddStorSICView RESULTVIEW_Story_SIC_CHK TBSTRSIC
  30 CTBPostStSIC RESULTVIEW_Story_SIC
23 AddStorWICView RESULTVIEW_Story_WIC_CHK TBSTRWIC
  31 CTBPostStWIC(0) RESULTVIEW_Story_WIC_X
  32 CTBPostStWIC(1) RESULTVIEW_Story_WIC_Y
24 AddStorCICView RESULTVIEW_Story_CIC_CHK TBSTRCIC
  33 CTBPostStCIC(0) RESULTVIEW_Story_CIC
27 AddStorDrftAngTHView RESULTVIEW_Story_Drift_Angle_TH
  35 CTBPostStDrftTH(0) RESULTVIEW_Drift_Ang
  36 CTBPostStDrftTH2 RESULTVIEW_Drift_Ang_Stor_
28 AddStorDrftAngTHNLView RESULTVIEW_Story_Drift_Angle_THNL
  37 CTBPostStDrftTHNL(0) RESULTVIEW_LOAD_DIR
  38 CTBPostStDrftTHNL(1) RESULTVIEW_LOAD_DIR_90
29 AddStorSharView RESULTVIEW_Story_Shear_Weight_Ratio
  41 CTBPostSsfc RESULTVIEW_Story_Shear_Weight_Ratio
30 AddStorSharTHView RESULTVIEW_Story_Shear_TH_Analysis
  42 CTBPostThss RESULTVIEW_Story_Shear_for_T_H__
31 AddStorSharTHView2 RESULTVIEW_Story_Shear_TH_Analysis
  43 CTBPostTHShearForce POSTDISP_Shear_Force
32 AddStorSharTHNLView RESULTVIEW_Story_Shear_THNL_Analysis
  44 CTBPostTHNLShearForce(0) RESULTVIEW_LOAD_DIR
  45 CTBPostTHNLShearForce(1) RESULTVIEW_LOAD_DIR_90
34 AddStorS02qView RESULTVIEW_Story_Shear_Force_Ratio_0_2_Q_Check
  48 CTBPostS02Q RESULTVIEW_Story_Shear_Force_Ratio_0_2_Q_Check
35 AddStorStabChkView RESULTVIEW_Story_Stability_Chk
  51 CTBPostStabChk_NorSt RESULTVIEW_Story_Stability_Chk
  52 CTBPostStabChk_FrmSt RESULTVIEW_Story_Stability_Chk
36 AddStorYieldStrenFctChkView RESULTVIEW_Story_Yield_Stren_Fct_Chk
  53 CTBPostYieldStrenFctChk RESULTVIEW_Story_Yield_Stren_Fct_Chk
38 AddStorSIBView RESULTVIEW_Story_SIB
  59 CTBPostSIB RESULTVIEW_Story_SIB
42 AddStorStffView -
  49 CTBPostStStiff RESULTVIEW_Stiffness_Ratio
43 AddStorQueryView POSTVIEW_Story_Query TBSTRQRY
  60 CTBPostStLoad RESULTVIEW_Load_XYZ_
  61 CTBPostStMass RESULTVIEW_Story_Mass
  62 CTBPostStWgt RESULTVIEW_Story_Weight
44 AddStorMassView RESULTVIEW_Story_Mass
  61 CTBPostStMass RESULTVIEW_Story_Mass
45 AddStorWegtView RESULTVIEW_Story_Weight
  62 CTBPostStWgt RESULTVIEW_Story_Weight
46 AddStorLoadView RESULTVIEW_Story_Load
  60 CTBPostStLoad RESULTVIEW_Load_XYZ_
48 AddMembForceView POSTVIEW_Frame_Member_Force
  66 CTBPostBeamForce POSTVIEW_Frame_Member_Force_Beam
  67 CTBPostColmForce POSTVIEW_Frame_Member_Force_Colm
  68 CTBPostBraceForce POSTVIEW_Frame_Member_Force_Brace
54 AddMembForceWallView POSTVIEW_Wall_Member_Force
  69 CTBPostWBeamForce POSTVIEW_Wall_Member_Force_Wall_Beam
  70 CTBPostWColmForce POSTVIEW_Wall_Member_Force_Wall_Colm
55 AddMembTHForceView POSTVIEW_Frame_Member_Force_TH
  71 CTBPostTHBeamForce POSTVIEW_Frame_Member_Force_Beam
  72 CTBPostTHColmForce POSTVIEW_Frame_Member_Force_Colm
  73 CTBPostTHBraceForce POSTVIEW_Frame_Member_Force_Brace
56 AddMembTHForceWallView POSTVIEW_Wall_Member_Force_TH
  74 CTBPostTHWBeamForce POSTVIEW_Wall_Member_Force_Wall_Beam
  75 CTBPostTHWColmForce POSTVIEW_Wall_Member_Force_Wall_Colm
57 AddElnkTHView POSTVIEW_Force_ELNK_TH
  76 CTBPostStekTH POSTVIEW_Force_ELNK
58 AddMembTHNLForceView POSTVIEW_Frame_Member_Force_THNL
  77 CTBPostTHNLBeamForce POSTVIEW_Frame_Member_Force_Beam
  78 CTBPostTHNLColmForce POSTVIEW_Frame_Member_Force_Colm
  79 CTBPostTHNLBraceForce POSTVIEW_Frame_Member_Force_Brace
59 AddMembTHNLForceWallView POSTVIEW_Wall_Member_Force_THNL
  80 CTBPostTHNLWBeamForce POSTVIEW_Wall_Member_Force_Wall_Beam
  81 CTBPostTHNLWColmForce POSTVIEW_Wall_Member_Force_Wall_Colm
60 AddElnkTHNLView POSTVIEW_Force_ELNK_THNL
  82 CTBPostStekNLTH POSTVIEW_Force_ELNK
61 AddDispTHView POSTVIEW_Disp_Vel_Acc_TH
  84 CTBPostThisDisp POSTVIEW_Displacement
  85 CTBPostThisVelo POSTVIEW_Velocity
  86 CTBPostThisAAcc POSTVIEW_AbsoluteAccel
  87 CTBPostThisRAcc POSTVIEW_RelativeAccel
62 AddReacTHView POSTVIEW_Reaction_TH
  83 CTBPostReacTH POSTVIEW_REAC
63 AddDispNLTHView POSTVIEW_Disp_Vel_Acc_NLTH
  89 CTBPostNLTHDisp POSTVIEW_Displacement
  90 CTBPostNLTHVelo POSTVIEW_Velocity
  91 CTBPostNLTHAAcc POSTVIEW_AbsoluteAccel
  92 CTBPostNLTHRAcc POSTVIEW_RelativeAccel
64 AddReacNLTHView POSTVIEW_Reaction_NLTH
  88 CTBPostReacNLTH POSTVIEW_REAC
65 AddMembPSOVForceView POSTVIEW_Frame_Member_Force_PSOV
  93 CTBPostPSOVBeamForce POSTVIEW_Frame_Member_Force_Beam
  94 CTBPostPSOVColmForce POSTVIEW_Frame_Member_Force_Colm
  95 CTBPostPSOVBraceForce POSTVIEW_Frame_Member_Force_Brace
66 AddMembPSOVForceWallView POSTVIEW_Wall_Member_Force_PSOV
  96 CTBPostPSOVWBeamForce POSTVIEW_Wall_Member_Force_Wall_Beam
  97 CTBPostPSOVWColmForce POSTVIEW_Wall_Member_Force_Wall_Colm
67 AddDeformPSOVView POSTVIEW_Deformation_PSOV
  99 CTBPostPSOVDeform POSTVIEW_Deformation
68 AddReacPSOVView POSTVIEW_Reaction_PSOV
  98 CTBPostPSOVReac POSTVIEW_REAC
69 AddElnkPSOVView POSTVIEW_Force_ELNK_PSOV
  100 CTBPostPSOVStek POSTVIEW_Force_ELNK
70 AddPSOVStorDrftAngView PSOV_STORY_DRIFT_ANGLE
  39 CTBPostStDrftPO RESULTVIEW_Drift_Ang
71 AddPSOVStorShearView PSOV_STORY_SHEAR_FORCE
  46 CTBPostStPOSH POSTDISP_Shear_Force
72 AddPsovHgstView PSOV_STORY_HINGE_STATUS
  101 CTBPsovHgst PSOV_FEMA_TYPE
  102 CTBPsovHgstM PSOV_MUITI_LINEAR_TYPE
73 AddPsovEventStepView PSOV_YIELD_STEP
  103 CTBPostPOEventStepBeam POSTVIEW_Frame_Member_Force_Beam
  104 CTBPostPOEventStepColumn POSTVIEW_Frame_Member_Force_Colm
  105 CTBPostPOEventStepBrace POSTVIEW_Frame_Member_Force_Brace
74 AddPsovBeamSummaryView PSOV_BEAM_SUMMARY
  106 CTBPostPOBeamSummary(0) Dx
  107 CTBPostPOBeamSummary(1) Dy
  108 CTBPostPOBeamSummary(2) Dz
  109 CTBPostPOBeamSummary(3) Rx
  110 CTBPostPOBeamSummary(4) Ry
  111 CTBPostPOBeamSummary(5) Rz
75 AddPsovColumnSummaryView PSOV_COLUMN_SUMMARY
  112 CTBPostPOColumnSummary(0) Dx
  113 CTBPostPOColumnSummary(1) Dy
  114 CTBPostPOColumnSummary(2) Dz
  115 CTBPostPOColumnSummary(3) Rx
  116 CTBPostPOColumnSummary(4) Ry
  117 CTBPostPOColumnSummary(5) Rz
76 AddPsovBraceSummaryView PSOV_BRACE_SUMMARY
  118 CTBPostPOBraceSummary Dx
77 AddPsovForceView PSOV_FORCE
  119 CTBPostPOForcBeam POSTVIEW_Frame_Member_Force_Beam
  120 CTBPostPOForcColumn POSTVIEW_Frame_Member_Force_Colm
  121 CTBPostPOForcBrace POSTVIEW_Frame_Member_Force_Brace
78 AddPsovDeformView PSOV_DEFORMATION
  122 CTBPostPODermBeam POSTVIEW_Frame_Member_Force_Beam
  123 CTBPostPODermColumn POSTVIEW_Frame_Member_Force_Colm
  124 CTBPostPODermBrace POSTVIEW_Frame_Member_Force_Brace
79 AddPsovPlasticDeformView PSOV_PLASTIC_DEFORMATION
  125 CTBPostPOPDermBeam POSTVIEW_Frame_Member_Force_Beam
  126 CTBPostPOPDermColumn POSTVIEW_Frame_Member_Force_Colm
  127 CTBPostPOPDermBrace POSTVIEW_Frame_Member_Force_Brace
80 AddPsovDuct1View PSOV_DUC_FACTOR_D1
  128 CTBPostPODuct1Beam POSTVIEW_Frame_Member_Force_Beam
  129 CTBPostPODuct1Column POSTVIEW_Frame_Member_Force_Colm
  130 CTBPostPODuct1Brace POSTVIEW_Frame_Member_Force_Brace
81 AddPsovDuct2View PSOV_DUC_FACTOR_D2
  131 CTBPostPODuct2Beam POSTVIEW_Frame_Member_Force_Beam
  132 CTBPostPODuct2Column POSTVIEW_Frame_Member_Force_Colm
  133 CTBPostPODuct2Brace POSTVIEW_Frame_Member_Force_Brace
82 AddNLTHEventStepView NLTH_EVENT_STEP
  135 CTBPostNLTHEventStepBeam POSTVIEW_Frame_Member_Force_Beam
  136 CTBPostNLTHEventStepColumn POSTVIEW_Frame_Member_Force_Colm
  137 CTBPostNLTHEventStepBrace POSTVIEW_Frame_Member_Force_Brace
83 AddNLTHBeamSummaryView NLTH_BEAM_SUMMARY
  138 CTBPostNLTHBeamSummary(0) Dx
  139 CTBPostNLTHBeamSummary(1) Dy
  140 CTBPostNLTHBeamSummary(2) Dz
  141 CTBPostNLTHBeamSummary(3) Rx
  142 CTBPostNLTHBeamSummary(4) Ry
  143 CTBPostNLTHBeamSummary(5) Rz
84 AddNLTHColumnSummaryView NLTH_COLUMN_SUMMARY
  144 CTBPostNLTHColumnSummary(0) Dx
  145 CTBPostNLTHColumnSummary(1) Dy
  146 CTBPostNLTHColumnSummary(2) Dz
  147 CTBPostNLTHColumnSummary(3) Rx
  148 CTBPostNLTHColumnSummary(4) Ry
  149 CTBPostNLTHColumnSummary(5) Rz
85 AddNLTHBraceSummaryView NLTH_BRACE_SUMMARY
  150 CTBPostNLTHBraceSummary Dx
86 AddNLTHForceView NLTH_FORCE
  151 CTBPostNLTHForcBeam POSTVIEW_Frame_Member_Force_Beam
  152 CTBPostNLTHForcColumn POSTVIEW_Frame_Member_Force_Colm
  153 CTBPostNLTHForcBrace POSTVIEW_Frame_Member_Force_Brace
87 AddNLTHDeformView NLTH_DEFORMATION
  154 CTBPostNLTHDermBeam POSTVIEW_Frame_Member_Force_Beam
  155 CTBPostNLTHDermColumn POSTVIEW_Frame_Member_Force_Colm
  156 CTBPostNLTHDermBrace POSTVIEW_Frame_Member_Force_Brace
88 AddNLTHPlasticDeformView NLTH_PLASTIC_DEFORMATION
  157 CTBPostNLTHPDermBeam POSTVIEW_Frame_Member_Force_Beam
  158 CTBPostNLTHPDermColumn POSTVIEW_Frame_Member_Force_Colm
  159 CTBPostNLTHPDermBrace POSTVIEW_Frame_Member_Force_Brace
89 AddNLTHDuct1View NLTH_DUC_FACTOR_D1
  160 CTBPostNLTHDuct1Beam POSTVIEW_Frame_Member_Force_Beam
  161 CTBPostNLTHDuct1Column POSTVIEW_Frame_Member_Force_Colm
  162 CTBPostNLTHDuct1Brace POSTVIEW_Frame_Member_Force_Brace
90 AddNLTHDuct2View NLTH_DUC_FACTOR_D2
  163 CTBPostNLTHDuct2Beam POSTVIEW_Frame_Member_Force_Beam
  164 CTBPostNLTHDuct2Column POSTVIEW_Frame_Member_Force_Colm
  165 CTBPostNLTHDuct2Brace POSTVIEW_Frame_Member_Force_Brace
91 AddDgnFbemView -
  179 - RESULTVIEW_Dgn_Fbem
92 AddDgnFcolView -
  180 - RESULTVIEW_Dgn_Fcol
93 AddDgnFwalView -
  181 - RESULTVIEW_Dgn_Fwal
94 AddDgnFwlxView -
  182 - RESULTVIEW_Dgn_Fwlx
95 AddDgnBeamDeflection POSTVIEW_DGN_DEFLECTION
  177 CTBPostDgnBeamDeflection RESULTVIEW_Dgn_BeamDeflection
  178 CTBPostDgnSlabDeflection RESULTVIEW_Dgn_SlabDeflection
96 AddTGView -
  9 - POSTVIEW_TG_Force
)";

std::string KeyText(std::string_view key) {
    constexpr std::string_view kPrefix = "IDS_TB_";
    if (key.empty()) return "-";
    return std::string(key.starts_with(kPrefix) ? key.substr(kPrefix.size()) : key);
}

std::vector<std::string> LinesOf(const ResultTableEntry& table) {
    std::string head = std::to_string(table.id) + " " + std::string(table.operation) + " " + KeyText(table.titleKey);
    if (!table.usageKey.empty()) head += " " + std::string(table.usageKey);
    std::vector<std::string> lines{head};
    for (const int number : TabsOf(table)) {
        const ResultTabEntry& tab = *FindResultTab(number);
        std::string line = "  " + std::to_string(number) + " ";
        line += tab.className.empty() ? "-" : std::string(tab.className);
        if (tab.argument != ResultTabEntry::kNoArgument) line += "(" + std::to_string(tab.argument) + ")";
        lines.push_back(line + " " + KeyText(tab.titleKey));
    }
    return lines;
}

TEST(ResultListing, EachTableHasItsOperationTitleTabsClassesAndTitlesOfTabs) {
    std::vector<std::string> expected;
    std::istringstream listing{std::string(kListing.substr(1))};
    for (std::string line; std::getline(listing, line);) expected.push_back(line);
    std::vector<std::string> found;
    for (const ResultTableEntry& table : ResultTables()) {
        if (table.operation.empty() || table.choice == TabChoice::BySwitch) continue;
        const std::vector<std::string> lines = LinesOf(table);
        found.insert(found.end(), lines.begin(), lines.end());
    }
    ASSERT_EQ(expected.size(), found.size());
    for (std::size_t line = 0; line < expected.size(); ++line) EXPECT_EQ(expected[line], found[line]);
}

}  // namespace
}  // namespace zt
