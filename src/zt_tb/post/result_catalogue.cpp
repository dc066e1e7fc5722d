#include "zt_tb/post/result_catalogue.h"

#include "velda_lib/msg_dll.h"
#include "zt_db/post/product.h"
#include "zt_tb/core/tb_command_ids.h"

namespace zt {
namespace {

constexpr ResultTabEntry kTabs[] = {
    {.tab = 0, .className = "CTBPostDisp", .titleKey = "IDS_TB_POSTVIEW_Test"},
    {.tab = 1, .className = "CTBPostDisp", .titleKey = "IDS_TB_POSTVIEW_Displacements"},
    {.tab = 2, .className = "CTBPostReac", .titleKey = "IDS_TB_POSTVIEW_Reaction_Global_"},
    {.tab = 3, .titleKey = "IDS_TB_POSTVIEW_Column_Force"},
    {.tab = 4, .titleKey = "IDS_TB_POSTVIEW_Column_Stress"},
    {.tab = 5, .titleKey = "IDS_TB_POSTVIEW_Beam_Force"},
    {.tab = 6, .titleKey = "IDS_TB_POSTVIEW_Beam_Stress"},
    {.tab = 7, .titleKey = "IDS_TB_POSTVIEW_Lintel_Force"},
    {.tab = 8, .titleKey = "IDS_TB_POSTVIEW_Lintel_Stress"},
    {.tab = 9, .titleKey = "IDS_TB_POSTVIEW_TG_Force"},
    {.tab = 10},
    {.tab = 11},
    {.tab = 12, .className = "CTBPostSlabForc", .titleKey = "IDS_TB_POSTVIEW_Slab_Stress"},
    {.tab = 13, .className = "CTBPostStek", .titleKey = "IDS_TB_POSTVIEW_Force_ELNK"},
    {.tab = 14, .className = "CTBPostModeEigenVal", .titleKey = "IDS_TB_POSTVIEW_Eigenvalue_Analysis"},
    {.tab = 15, .className = "CTBPostModeModalMas", .titleKey = "IDS_TB_POSTVIEW_Modal_Participation_Masses"},
    {.tab = 16, .className = "CTBPostModeModalDir", .titleKey = "IDS_TB_POSTVIEW_Modal_Direction_Factor"},
    {.tab = 17, .className = "CTBPostModeEigenVec", .titleKey = "IDS_TB_POSTVIEW_Eigenvector"},
    {.tab = 18, .className = "CTBPostStSsrt", .titleKey = "IDS_TB_RESULTVIEW_Story_Shear_Force_Ratio"},
    {.tab = 19, .className = "CTBPostStDrftQorv", .titleKey = "IDS_TB_RESULTVIEW_Drift_Ang"},
    {.tab = 20, .className = "CTBPostStDisp", .argument = 0, .titleKey = "IDS_TB_RESULTVIEW_Displacement_X_"},
    {.tab = 21, .className = "CTBPostStDisp", .argument = 1, .titleKey = "IDS_TB_RESULTVIEW_Displacement_Y_"},
    {.tab = 22, .className = "CTBPostStDisp", .argument = 2, .titleKey = "IDS_TB_RESULTVIEW_Story_Displacement"},
    {.tab = 23, .className = "CTBPostStEccent", .titleKey = "IDS_TB_RESULTVIEW_Story_Eccentricity"},
    {.tab = 24, .className = "CTBPostStTAF", .titleKey = "IDS_TB_RESULTVIEW_Story_TAF"},
    {.tab = 25, .className = "CTBPostStOTMQorv", .titleKey = "IDS_TB_POSTDISP_OverturnMoment"},
    {.tab = 26, .className = "CTBPostStAFS", .titleKey = "IDS_TB_RESULTVIEW_Story_Axial_Force_Sum"},
    {.tab = 27, .className = "CTBPostStStbCoef", .argument = 0, .titleKey = "IDS_TB_RESULTVIEW_Story_STC_X"},
    {.tab = 28, .className = "CTBPostStStbCoef", .argument = 1, .titleKey = "IDS_TB_RESULTVIEW_Story_STC_Y"},
    {.tab = 29, .className = "CTBPostStTIC", .titleKey = "IDS_TB_RESULTVIEW_Story_TIC_CHK"},
    {.tab = 30, .className = "CTBPostStSIC", .titleKey = "IDS_TB_RESULTVIEW_Story_SIC"},
    {.tab = 31, .className = "CTBPostStWIC", .argument = 0, .titleKey = "IDS_TB_RESULTVIEW_Story_WIC_X"},
    {.tab = 32, .className = "CTBPostStWIC", .argument = 1, .titleKey = "IDS_TB_RESULTVIEW_Story_WIC_Y"},
    {.tab = 33, .className = "CTBPostStCIC", .argument = 0, .titleKey = "IDS_TB_RESULTVIEW_Story_CIC"},
    {.tab = 34, .titleKey = "IDS_TB_RESULTVIEW_Drift_Ang"},
    {.tab = 35, .className = "CTBPostStDrftTH", .argument = 0, .titleKey = "IDS_TB_RESULTVIEW_Drift_Ang"},
    {.tab = 36, .className = "CTBPostStDrftTH2", .titleKey = "IDS_TB_RESULTVIEW_Drift_Ang_Stor_"},
    {.tab = 37, .className = "CTBPostStDrftTHNL", .argument = 0, .titleKey = "IDS_TB_RESULTVIEW_LOAD_DIR"},
    {.tab = 38, .className = "CTBPostStDrftTHNL", .argument = 1, .titleKey = "IDS_TB_RESULTVIEW_LOAD_DIR_90"},
    {.tab = 39, .className = "CTBPostStDrftPO", .titleKey = "IDS_TB_RESULTVIEW_Drift_Ang"},
    {.tab = 40, .className = "CTBPostStsr", .titleKey = "IDS_TB_POSTDISP_StoryShearForce"},
    {.tab = 41, .className = "CTBPostSsfc", .titleKey = "IDS_TB_RESULTVIEW_Story_Shear_Weight_Ratio"},
    {.tab = 42, .className = "CTBPostThss", .titleKey = "IDS_TB_RESULTVIEW_Story_Shear_for_T_H__"},
    {.tab = 43, .className = "CTBPostTHShearForce", .titleKey = "IDS_TB_POSTDISP_Shear_Force"},
    {.tab = 44, .className = "CTBPostTHNLShearForce", .argument = 0, .titleKey = "IDS_TB_RESULTVIEW_LOAD_DIR"},
    {.tab = 45, .className = "CTBPostTHNLShearForce", .argument = 1, .titleKey = "IDS_TB_RESULTVIEW_LOAD_DIR_90"},
    {.tab = 46, .className = "CTBPostStPOSH", .titleKey = "IDS_TB_POSTDISP_Shear_Force"},
    {.tab = 47, .className = "CTBPostStMode", .titleKey = "IDS_TB_POSTVIEW_Eigenvalue_Mode"},
    {.tab = 48, .className = "CTBPostS02Q", .titleKey = "IDS_TB_RESULTVIEW_Story_Shear_Force_Ratio_0_2_Q_Check"},
    {.tab = 49, .className = "CTBPostStStiff", .titleKey = "IDS_TB_RESULTVIEW_Stiffness_Ratio"},
    {.tab = 50},
    {.tab = 51, .className = "CTBPostStabChk_NorSt", .titleKey = "IDS_TB_RESULTVIEW_Story_Stability_Chk"},
    {.tab = 52, .className = "CTBPostStabChk_FrmSt", .titleKey = "IDS_TB_RESULTVIEW_Story_Stability_Chk"},
    {.tab = 53, .className = "CTBPostYieldStrenFctChk", .titleKey = "IDS_TB_RESULTVIEW_Story_Yield_Stren_Fct_Chk"},
    {.tab = 54, .className = "CTBPostSIA", .titleKey = "IDS_TB_RESULTVIEW_Story_SIC"},
    {.tab = 55, .className = "CTBPostSIG", .titleKey = "IDS_TB_RESULTVIEW_Story_SIC"},
    {.tab = 56, .className = "CTBPostSIT", .titleKey = "IDS_TB_POSTDISP_GA_RATIO"},
    {.tab = 57, .className = "CTBPostSIT2", .titleKey = "IDS_TB_POSTDISP_GA_RATIO"},
    {.tab = 58, .className = "CTBPostTIC2", .titleKey = "IDS_TB_RESULTVIEW_Story_TIC_CHK"},
    {.tab = 59, .className = "CTBPostSIB", .titleKey = "IDS_TB_RESULTVIEW_Story_SIB"},
    {.tab = 60, .className = "CTBPostStLoad", .titleKey = "IDS_TB_RESULTVIEW_Load_XYZ_"},
    {.tab = 61, .className = "CTBPostStMass", .titleKey = "IDS_TB_RESULTVIEW_Story_Mass"},
    {.tab = 62, .className = "CTBPostStWgt", .titleKey = "IDS_TB_RESULTVIEW_Story_Weight"},
    {.tab = 63, .titleKey = "IDS_TB_POSTDISP_LOAD_X"},
    {.tab = 64, .titleKey = "IDS_TB_POSTDISP_LOAD_Y"},
    {.tab = 65, .titleKey = "IDS_TB_POSTDISP_LOAD_Z"},
    {.tab = 66, .className = "CTBPostBeamForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 67, .className = "CTBPostColmForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 68, .className = "CTBPostBraceForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 69, .className = "CTBPostWBeamForce", .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_Wall_Beam"},
    {.tab = 70, .className = "CTBPostWColmForce", .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_Wall_Colm"},
    {.tab = 71, .className = "CTBPostTHBeamForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 72, .className = "CTBPostTHColmForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 73, .className = "CTBPostTHBraceForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 74, .className = "CTBPostTHWBeamForce", .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_Wall_Beam"},
    {.tab = 75, .className = "CTBPostTHWColmForce", .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_Wall_Colm"},
    {.tab = 76, .className = "CTBPostStekTH", .titleKey = "IDS_TB_POSTVIEW_Force_ELNK"},
    {.tab = 77, .className = "CTBPostTHNLBeamForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 78, .className = "CTBPostTHNLColmForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 79, .className = "CTBPostTHNLBraceForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 80, .className = "CTBPostTHNLWBeamForce", .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_Wall_Beam"},
    {.tab = 81, .className = "CTBPostTHNLWColmForce", .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_Wall_Colm"},
    {.tab = 82, .className = "CTBPostStekNLTH", .titleKey = "IDS_TB_POSTVIEW_Force_ELNK"},
    {.tab = 83, .className = "CTBPostReacTH", .titleKey = "IDS_TB_POSTVIEW_REAC"},
    {.tab = 84, .className = "CTBPostThisDisp", .titleKey = "IDS_TB_POSTVIEW_Displacement"},
    {.tab = 85, .className = "CTBPostThisVelo", .titleKey = "IDS_TB_POSTVIEW_Velocity"},
    {.tab = 86, .className = "CTBPostThisAAcc", .titleKey = "IDS_TB_POSTVIEW_AbsoluteAccel"},
    {.tab = 87, .className = "CTBPostThisRAcc", .titleKey = "IDS_TB_POSTVIEW_RelativeAccel"},
    {.tab = 88, .className = "CTBPostReacNLTH", .titleKey = "IDS_TB_POSTVIEW_REAC"},
    {.tab = 89, .className = "CTBPostNLTHDisp", .titleKey = "IDS_TB_POSTVIEW_Displacement"},
    {.tab = 90, .className = "CTBPostNLTHVelo", .titleKey = "IDS_TB_POSTVIEW_Velocity"},
    {.tab = 91, .className = "CTBPostNLTHAAcc", .titleKey = "IDS_TB_POSTVIEW_AbsoluteAccel"},
    {.tab = 92, .className = "CTBPostNLTHRAcc", .titleKey = "IDS_TB_POSTVIEW_RelativeAccel"},
    {.tab = 93, .className = "CTBPostPSOVBeamForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 94, .className = "CTBPostPSOVColmForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 95, .className = "CTBPostPSOVBraceForce", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 96, .className = "CTBPostPSOVWBeamForce", .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_Wall_Beam"},
    {.tab = 97, .className = "CTBPostPSOVWColmForce", .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_Wall_Colm"},
    {.tab = 98, .className = "CTBPostPSOVReac", .titleKey = "IDS_TB_POSTVIEW_REAC"},
    {.tab = 99, .className = "CTBPostPSOVDeform", .titleKey = "IDS_TB_POSTVIEW_Deformation"},
    {.tab = 100, .className = "CTBPostPSOVStek", .titleKey = "IDS_TB_POSTVIEW_Force_ELNK"},
    {.tab = 101, .className = "CTBPsovHgst", .titleKey = "IDS_TB_PSOV_FEMA_TYPE"},
    {.tab = 102, .className = "CTBPsovHgstM", .titleKey = "IDS_TB_PSOV_MUITI_LINEAR_TYPE"},
    {.tab = 103, .className = "CTBPostPOEventStepBeam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 104, .className = "CTBPostPOEventStepColumn", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 105, .className = "CTBPostPOEventStepBrace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 106, .className = "CTBPostPOBeamSummary", .argument = 0, .titleKey = "IDS_TB_Dx"},
    {.tab = 107, .className = "CTBPostPOBeamSummary", .argument = 1, .titleKey = "IDS_TB_Dy"},
    {.tab = 108, .className = "CTBPostPOBeamSummary", .argument = 2, .titleKey = "IDS_TB_Dz"},
    {.tab = 109, .className = "CTBPostPOBeamSummary", .argument = 3, .titleKey = "IDS_TB_Rx"},
    {.tab = 110, .className = "CTBPostPOBeamSummary", .argument = 4, .titleKey = "IDS_TB_Ry"},
    {.tab = 111, .className = "CTBPostPOBeamSummary", .argument = 5, .titleKey = "IDS_TB_Rz"},
    {.tab = 112, .className = "CTBPostPOColumnSummary", .argument = 0, .titleKey = "IDS_TB_Dx"},
    {.tab = 113, .className = "CTBPostPOColumnSummary", .argument = 1, .titleKey = "IDS_TB_Dy"},
    {.tab = 114, .className = "CTBPostPOColumnSummary", .argument = 2, .titleKey = "IDS_TB_Dz"},
    {.tab = 115, .className = "CTBPostPOColumnSummary", .argument = 3, .titleKey = "IDS_TB_Rx"},
    {.tab = 116, .className = "CTBPostPOColumnSummary", .argument = 4, .titleKey = "IDS_TB_Ry"},
    {.tab = 117, .className = "CTBPostPOColumnSummary", .argument = 5, .titleKey = "IDS_TB_Rz"},
    {.tab = 118, .className = "CTBPostPOBraceSummary", .titleKey = "IDS_TB_Dx"},
    {.tab = 119, .className = "CTBPostPOForcBeam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 120, .className = "CTBPostPOForcColumn", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 121, .className = "CTBPostPOForcBrace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 122, .className = "CTBPostPODermBeam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 123, .className = "CTBPostPODermColumn", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 124, .className = "CTBPostPODermBrace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 125, .className = "CTBPostPOPDermBeam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 126, .className = "CTBPostPOPDermColumn", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 127, .className = "CTBPostPOPDermBrace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 128, .className = "CTBPostPODuct1Beam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 129, .className = "CTBPostPODuct1Column", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 130, .className = "CTBPostPODuct1Brace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 131, .className = "CTBPostPODuct2Beam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 132, .className = "CTBPostPODuct2Column", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 133, .className = "CTBPostPODuct2Brace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 134},
    {.tab = 135, .className = "CTBPostNLTHEventStepBeam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 136, .className = "CTBPostNLTHEventStepColumn", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 137, .className = "CTBPostNLTHEventStepBrace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 138, .className = "CTBPostNLTHBeamSummary", .argument = 0, .titleKey = "IDS_TB_Dx"},
    {.tab = 139, .className = "CTBPostNLTHBeamSummary", .argument = 1, .titleKey = "IDS_TB_Dy"},
    {.tab = 140, .className = "CTBPostNLTHBeamSummary", .argument = 2, .titleKey = "IDS_TB_Dz"},
    {.tab = 141, .className = "CTBPostNLTHBeamSummary", .argument = 3, .titleKey = "IDS_TB_Rx"},
    {.tab = 142, .className = "CTBPostNLTHBeamSummary", .argument = 4, .titleKey = "IDS_TB_Ry"},
    {.tab = 143, .className = "CTBPostNLTHBeamSummary", .argument = 5, .titleKey = "IDS_TB_Rz"},
    {.tab = 144, .className = "CTBPostNLTHColumnSummary", .argument = 0, .titleKey = "IDS_TB_Dx"},
    {.tab = 145, .className = "CTBPostNLTHColumnSummary", .argument = 1, .titleKey = "IDS_TB_Dy"},
    {.tab = 146, .className = "CTBPostNLTHColumnSummary", .argument = 2, .titleKey = "IDS_TB_Dz"},
    {.tab = 147, .className = "CTBPostNLTHColumnSummary", .argument = 3, .titleKey = "IDS_TB_Rx"},
    {.tab = 148, .className = "CTBPostNLTHColumnSummary", .argument = 4, .titleKey = "IDS_TB_Ry"},
    {.tab = 149, .className = "CTBPostNLTHColumnSummary", .argument = 5, .titleKey = "IDS_TB_Rz"},
    {.tab = 150, .className = "CTBPostNLTHBraceSummary", .titleKey = "IDS_TB_Dx"},
    {.tab = 151, .className = "CTBPostNLTHForcBeam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 152, .className = "CTBPostNLTHForcColumn", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 153, .className = "CTBPostNLTHForcBrace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 154, .className = "CTBPostNLTHDermBeam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 155, .className = "CTBPostNLTHDermColumn", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 156, .className = "CTBPostNLTHDermBrace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 157, .className = "CTBPostNLTHPDermBeam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 158, .className = "CTBPostNLTHPDermColumn", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 159, .className = "CTBPostNLTHPDermBrace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 160, .className = "CTBPostNLTHDuct1Beam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 161, .className = "CTBPostNLTHDuct1Column", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 162, .className = "CTBPostNLTHDuct1Brace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 163, .className = "CTBPostNLTHDuct2Beam", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Beam"},
    {.tab = 164, .className = "CTBPostNLTHDuct2Column", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Colm"},
    {.tab = 165, .className = "CTBPostNLTHDuct2Brace", .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_Brace"},
    {.tab = 166, .className = "CTBPostDgnMaxBeamFactor", .titleKey = "IDS_TB_RESULTVIEW_Dgn_MaxBeamFactor"},
    {.tab = 167, .className = "CTBPostDgnMaxColmFactor", .titleKey = "IDS_TB_RESULTVIEW_Dgn_MaxColmFactor"},
    {.tab = 168, .className = "CTBPostDgnMaxWBeamFactor", .titleKey = "IDS_TB_RESULTVIEW_Dgn_MaxWBeamFactor"},
    {.tab = 169, .className = "CTBPostDgnMaxWColmFactor", .titleKey = "IDS_TB_RESULTVIEW_Dgn_MaxWColmFactor"},
    {.tab = 170, .className = "CTBPostDgnMaxSRCColmFactor", .titleKey = "IDS_TB_RESULTVIEW_Dgn_MaxSRCColmFactor"},
    {.tab = 171, .className = "CTBPostDgnMaxSRCEBCColmFactor", .titleKey = "IDS_TB_RESULTVIEW_Dgn_MaxSRCEBCColmFactor"},
    {.tab = 172, .className = "CTBPostDgnMaxSteelBeamFactor", .titleKey = "IDS_TB_RESULTVIEW_Dgn_MaxSteelBeamFactor"},
    {.tab = 173, .className = "CTBPostDgnMaxSteelColmFactor", .titleKey = "IDS_TB_RESULTVIEW_Dgn_MaxSteelColmFactor"},
    {.tab = 174, .className = "CTBPostDgnMaxSteelBraceFactor", .titleKey = "IDS_TB_RESULTVIEW_Dgn_MaxSteelBraceFactor"},
    {.tab = 175, .className = "CTBPostDgnMaxSteelJointFactor", .titleKey = "IDS_TB_RESULTVIEW_Dgn_MaxSteelJointFactor"},
    {.tab = 176},
    {.tab = 177, .className = "CTBPostDgnBeamDeflection", .titleKey = "IDS_TB_RESULTVIEW_Dgn_BeamDeflection"},
    {.tab = 178, .className = "CTBPostDgnSlabDeflection", .titleKey = "IDS_TB_RESULTVIEW_Dgn_SlabDeflection"},
    {.tab = 179, .titleKey = "IDS_TB_RESULTVIEW_Dgn_Fbem"},
    {.tab = 180, .titleKey = "IDS_TB_RESULTVIEW_Dgn_Fcol"},
    {.tab = 181, .titleKey = "IDS_TB_RESULTVIEW_Dgn_Fwal"},
    {.tab = 182, .titleKey = "IDS_TB_RESULTVIEW_Dgn_Fwlx"},
    {.tab = 183, .className = "CTBPostDgnSCWBResult", .titleKey = "IDS_TB_RESULTVIEW_Dgn_SCWBResult"},
    {.tab = 184,
     .className = "CTBPostDgnPerformResultCapaCon",
     .titleKey = "IDS_TB_RESULTVIEW_Dgn_PerformResultCapaCon"},
    {.tab = 185,
     .className = "CTBPostDgnPerformResultCapaStl",
     .titleKey = "IDS_TB_RESULTVIEW_Dgn_PerformResultCapaStl"},
    {.tab = 186, .className = "CTBPostDgnPerformResultDrft", .titleKey = "IDS_TB_RESULTVIEW_Dgn_PerformResultDrft"},
};

static_assert(std::size(kTabs) == kResultTabCount);

constexpr std::array<IdRange, 3> kMaxFactorTabs{{{166, 175}, {183, 183}, {184, 186}}};

constexpr ResultTableEntry kTables[] = {
    {.id = 1, .operation = "AddTestView", .tabs = {{{0, 0}}}},
    {.id = 2, .operation = "AddDispView", .titleKey = "IDS_TB_POSTVIEW_DISP", .tabs = {{{1, 1}}}},
    {.id = 3, .operation = "AddReacView", .titleKey = "IDS_TB_POSTVIEW_REAC", .tabs = {{{2, 2}}}},
    {.id = 4, .operation = "AddColmView", .tabs = {{{3, 4}}}, .choice = TabChoice::ByCaller},
    {.id = 5, .operation = "AddBeamView", .tabs = {{{5, 6}}}, .choice = TabChoice::ByCaller},
    {.id = 6, .operation = "AddLintView", .tabs = {{{7, 8}}}, .choice = TabChoice::ByCaller},
    {.id = 7},
    {.id = 8, .operation = "AddSlabView", .titleKey = "IDS_TB_POSTVIEW_Force_Slab", .tabs = {{{12, 12}}}},
    {.id = 9, .operation = "AddElnkView", .titleKey = "IDS_TB_POSTVIEW_Force_ELNK", .tabs = {{{13, 13}}}},
    {.id = 10, .operation = "AddVibrModeView", .titleKey = "IDS_TB_POSTVIEW_Eigenvalue_Mode", .tabs = {{{14, 17}}}},
    {.id = 11},
    {.id = 12},
    {.id = 13,
     .operation = "AddStorSsrtView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Shear_Force_Ratio",
     .tabs = {{{18, 18}}},
     .usageKey = "TBSTRSHR"},
    {.id = 14,
     .operation = "AddStorDrftAngView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Drift_Angle",
     .tabs = {{{19, 19}}},
     .usageKey = "TBSTRDFT"},
    {.id = 15,
     .operation = "AddStorDispView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Displacement",
     .tabs = {{{20, 21}}},
     .usageKey = "TBSTRDSP",
     .tracerTab = 1},
    {.id = 16,
     .operation = "AddStorEcctView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Eccentricity",
     .tabs = {{{23, 23}}},
     .usageKey = "TBSTRECC"},
    {.id = 17,
     .operation = "AddStorTAFView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_TAF",
     .tabs = {{{24, 24}}},
     .usageKey = "TBSTRTAF"},
    {.id = 18,
     .operation = "AddStorOTMView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_OTM",
     .tabs = {{{25, 25}}},
     .usageKey = "TBSTROTM"},
    {.id = 19,
     .operation = "AddStorVFSView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Axial_Force_Sum",
     .tabs = {{{26, 26}}},
     .usageKey = "TBSTRVFS"},
    {.id = 20,
     .operation = "AddStorSTCView",
     .titleKey = "IDS_TB_RESULTVIEW_Stability_Coefficient",
     .tabs = {{{27, 28}}},
     .usageKey = "TBSTRSTC"},
    {.id = 21,
     .operation = "AddStorTICView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_TIC_CHK",
     .tabs = {{{29, 29}}},
     .usageKey = "TBSTRTIC"},
    {.id = 22,
     .operation = "AddStorSICView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_SIC_CHK",
     .tabs = {{{30, 30}}},
     .usageKey = "TBSTRSIC"},
    {.id = 23,
     .operation = "AddStorWICView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_WIC_CHK",
     .tabs = {{{31, 32}}},
     .usageKey = "TBSTRWIC"},
    {.id = 24,
     .operation = "AddStorCICView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_CIC_CHK",
     .tabs = {{{33, 33}}},
     .usageKey = "TBSTRCIC"},
    {.id = 25},
    {.id = 26},
    {.id = 27,
     .operation = "AddStorDrftAngTHView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Drift_Angle_TH",
     .tabs = {{{35, 36}}}},
    {.id = 28,
     .operation = "AddStorDrftAngTHNLView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Drift_Angle_THNL",
     .tabs = {{{37, 38}}}},
    {.id = 29,
     .operation = "AddStorSharView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Shear_Weight_Ratio",
     .tabs = {{{41, 41}}}},
    {.id = 30,
     .operation = "AddStorSharTHView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Shear_TH_Analysis",
     .tabs = {{{42, 42}}}},
    {.id = 31,
     .operation = "AddStorSharTHView2",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Shear_TH_Analysis",
     .tabs = {{{43, 43}}}},
    {.id = 32,
     .operation = "AddStorSharTHNLView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Shear_THNL_Analysis",
     .tabs = {{{44, 45}}}},
    {.id = 33},
    {.id = 34,
     .operation = "AddStorS02qView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Shear_Force_Ratio_0_2_Q_Check",
     .tabs = {{{48, 48}}}},
    {.id = 35,
     .operation = "AddStorStabChkView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Stability_Chk",
     .tabs = {{{51, 52}}},
     .choice = TabChoice::ByModelControl},
    {.id = 36,
     .operation = "AddStorYieldStrenFctChkView",
     .titleKey = "IDS_TB_RESULTVIEW_Story_Yield_Stren_Fct_Chk",
     .tabs = {{{53, 53}}}},
    {.id = 37},
    {.id = 38, .operation = "AddStorSIBView", .titleKey = "IDS_TB_RESULTVIEW_Story_SIB", .tabs = {{{59, 59}}}},
    {.id = 39},
    {.id = 40},
    {.id = 41},
    {.id = 42, .operation = "AddStorStffView", .tabs = {{{49, 49}}}},
    {.id = 43,
     .operation = "AddStorQueryView",
     .titleKey = "IDS_TB_POSTVIEW_Story_Query",
     .tabs = {{{60, 62}}},
     .usageKey = "TBSTRQRY"},
    {.id = 44, .operation = "AddStorMassView", .titleKey = "IDS_TB_RESULTVIEW_Story_Mass", .tabs = {{{61, 61}}}},
    {.id = 45, .operation = "AddStorWegtView", .titleKey = "IDS_TB_RESULTVIEW_Story_Weight", .tabs = {{{62, 62}}}},
    {.id = 46, .operation = "AddStorLoadView", .titleKey = "IDS_TB_RESULTVIEW_Story_Load", .tabs = {{{60, 60}}}},
    {.id = 47},
    {.id = 48,
     .operation = "AddMembForceView",
     .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force",
     .tabs = {{{66, 68}}},
     .isMemberTable = true,
     .tracerTab = 1},
    {.id = 49, .operation = "AddDgnMaxFctView", .tabs = kMaxFactorTabs, .choice = TabChoice::BySwitch},
    {.id = 50, .operation = "AddDgnMaxFctView", .tabs = kMaxFactorTabs, .choice = TabChoice::BySwitch},
    {.id = 51, .operation = "AddDgnMaxFctView", .tabs = kMaxFactorTabs, .choice = TabChoice::BySwitch, .tracerTab = 2},
    {.id = 52, .operation = "AddDgnMaxFctView", .tabs = kMaxFactorTabs, .choice = TabChoice::BySwitch, .tracerTab = 1},
    {.id = 53, .operation = "AddDgnMaxFctView", .tabs = kMaxFactorTabs, .choice = TabChoice::BySwitch, .tracerTab = 3},
    {.id = 54,
     .operation = "AddMembForceWallView",
     .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force",
     .tabs = {{{69, 70}}},
     .isMemberTable = true},
    {.id = 55,
     .operation = "AddMembTHForceView",
     .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_TH",
     .tabs = {{{71, 73}}},
     .isMemberTable = true},
    {.id = 56,
     .operation = "AddMembTHForceWallView",
     .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_TH",
     .tabs = {{{74, 75}}},
     .isMemberTable = true},
    {.id = 57, .operation = "AddElnkTHView", .titleKey = "IDS_TB_POSTVIEW_Force_ELNK_TH", .tabs = {{{76, 76}}}},
    {.id = 58,
     .operation = "AddMembTHNLForceView",
     .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_THNL",
     .tabs = {{{77, 79}}},
     .isMemberTable = true},
    {.id = 59,
     .operation = "AddMembTHNLForceWallView",
     .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_THNL",
     .tabs = {{{80, 81}}},
     .isMemberTable = true},
    {.id = 60, .operation = "AddElnkTHNLView", .titleKey = "IDS_TB_POSTVIEW_Force_ELNK_THNL", .tabs = {{{82, 82}}}},
    {.id = 61, .operation = "AddDispTHView", .titleKey = "IDS_TB_POSTVIEW_Disp_Vel_Acc_TH", .tabs = {{{84, 87}}}},
    {.id = 62, .operation = "AddReacTHView", .titleKey = "IDS_TB_POSTVIEW_Reaction_TH", .tabs = {{{83, 83}}}},
    {.id = 63, .operation = "AddDispNLTHView", .titleKey = "IDS_TB_POSTVIEW_Disp_Vel_Acc_NLTH", .tabs = {{{89, 92}}}},
    {.id = 64, .operation = "AddReacNLTHView", .titleKey = "IDS_TB_POSTVIEW_Reaction_NLTH", .tabs = {{{88, 88}}}},
    {.id = 65,
     .operation = "AddMembPSOVForceView",
     .titleKey = "IDS_TB_POSTVIEW_Frame_Member_Force_PSOV",
     .tabs = {{{93, 95}}},
     .isMemberTable = true},
    {.id = 66,
     .operation = "AddMembPSOVForceWallView",
     .titleKey = "IDS_TB_POSTVIEW_Wall_Member_Force_PSOV",
     .tabs = {{{96, 97}}},
     .isMemberTable = true},
    {.id = 67, .operation = "AddDeformPSOVView", .titleKey = "IDS_TB_POSTVIEW_Deformation_PSOV", .tabs = {{{99, 99}}}},
    {.id = 68, .operation = "AddReacPSOVView", .titleKey = "IDS_TB_POSTVIEW_Reaction_PSOV", .tabs = {{{98, 98}}}},
    {.id = 69, .operation = "AddElnkPSOVView", .titleKey = "IDS_TB_POSTVIEW_Force_ELNK_PSOV", .tabs = {{{100, 100}}}},
    {.id = 70,
     .operation = "AddPSOVStorDrftAngView",
     .titleKey = "IDS_TB_PSOV_STORY_DRIFT_ANGLE",
     .tabs = {{{39, 39}}}},
    {.id = 71, .operation = "AddPSOVStorShearView", .titleKey = "IDS_TB_PSOV_STORY_SHEAR_FORCE", .tabs = {{{46, 46}}}},
    {.id = 72, .operation = "AddPsovHgstView", .titleKey = "IDS_TB_PSOV_STORY_HINGE_STATUS", .tabs = {{{101, 102}}}},
    {.id = 73,
     .operation = "AddPsovEventStepView",
     .titleKey = "IDS_TB_PSOV_YIELD_STEP",
     .tabs = {{{103, 105}}},
     .isMemberTable = true},
    {.id = 74, .operation = "AddPsovBeamSummaryView", .titleKey = "IDS_TB_PSOV_BEAM_SUMMARY", .tabs = {{{106, 111}}}},
    {.id = 75,
     .operation = "AddPsovColumnSummaryView",
     .titleKey = "IDS_TB_PSOV_COLUMN_SUMMARY",
     .tabs = {{{112, 117}}}},
    {.id = 76, .operation = "AddPsovBraceSummaryView", .titleKey = "IDS_TB_PSOV_BRACE_SUMMARY", .tabs = {{{118, 118}}}},
    {.id = 77, .operation = "AddPsovForceView", .titleKey = "IDS_TB_PSOV_FORCE", .tabs = {{{119, 121}}}},
    {.id = 78, .operation = "AddPsovDeformView", .titleKey = "IDS_TB_PSOV_DEFORMATION", .tabs = {{{122, 124}}}},
    {.id = 79,
     .operation = "AddPsovPlasticDeformView",
     .titleKey = "IDS_TB_PSOV_PLASTIC_DEFORMATION",
     .tabs = {{{125, 127}}}},
    {.id = 80, .operation = "AddPsovDuct1View", .titleKey = "IDS_TB_PSOV_DUC_FACTOR_D1", .tabs = {{{128, 130}}}},
    {.id = 81, .operation = "AddPsovDuct2View", .titleKey = "IDS_TB_PSOV_DUC_FACTOR_D2", .tabs = {{{131, 133}}}},
    {.id = 82, .operation = "AddNLTHEventStepView", .titleKey = "IDS_TB_NLTH_EVENT_STEP", .tabs = {{{135, 137}}}},
    {.id = 83, .operation = "AddNLTHBeamSummaryView", .titleKey = "IDS_TB_NLTH_BEAM_SUMMARY", .tabs = {{{138, 143}}}},
    {.id = 84,
     .operation = "AddNLTHColumnSummaryView",
     .titleKey = "IDS_TB_NLTH_COLUMN_SUMMARY",
     .tabs = {{{144, 149}}}},
    {.id = 85, .operation = "AddNLTHBraceSummaryView", .titleKey = "IDS_TB_NLTH_BRACE_SUMMARY", .tabs = {{{150, 150}}}},
    {.id = 86, .operation = "AddNLTHForceView", .titleKey = "IDS_TB_NLTH_FORCE", .tabs = {{{151, 153}}}},
    {.id = 87, .operation = "AddNLTHDeformView", .titleKey = "IDS_TB_NLTH_DEFORMATION", .tabs = {{{154, 156}}}},
    {.id = 88,
     .operation = "AddNLTHPlasticDeformView",
     .titleKey = "IDS_TB_NLTH_PLASTIC_DEFORMATION",
     .tabs = {{{157, 159}}}},
    {.id = 89, .operation = "AddNLTHDuct1View", .titleKey = "IDS_TB_NLTH_DUC_FACTOR_D1", .tabs = {{{160, 162}}}},
    {.id = 90, .operation = "AddNLTHDuct2View", .titleKey = "IDS_TB_NLTH_DUC_FACTOR_D2", .tabs = {{{163, 165}}}},
    {.id = 91, .operation = "AddDgnFbemView", .tabs = {{{179, 179}}}},
    {.id = 92, .operation = "AddDgnFcolView", .tabs = {{{180, 180}}}},
    {.id = 93, .operation = "AddDgnFwalView", .tabs = {{{181, 181}}}},
    {.id = 94, .operation = "AddDgnFwlxView", .tabs = {{{182, 182}}}},
    {.id = 95,
     .operation = "AddDgnBeamDeflection",
     .titleKey = "IDS_TB_POSTVIEW_DGN_DEFLECTION",
     .tabs = {{{177, 178}}}},
    {.id = 96, .operation = "AddTGView", .tabs = {{{9, 9}}}, .choice = TabChoice::ByCaller},
};

static_assert(std::size(kTables) == kLastResultTable);

constexpr std::string_view kIdleOperations[] = {"AddStorDrftView", "AddStorDrftFctView", "AddStorModeView",
                                                "AddDgnForceView"};

constexpr IdRange kTabsWithoutOperation[] = {{22, 22}, {34, 34}, {40, 40}, {47, 47}, {54, 58}, {63, 65}};

constexpr IdRange kTabsActivatedAtSwitch[] = {
    {17, 17},   {67, 68},   {70, 70},   {72, 73},   {75, 75},   {78, 79},   {81, 81},
    {94, 95},   {97, 97},   {104, 105}, {120, 121}, {123, 124}, {126, 127}, {129, 130},
    {132, 133}, {136, 137}, {152, 153}, {155, 156}, {158, 159}, {161, 162}, {164, 165},
};
constexpr IdRange kPushoverTabs[] = {{39, 39}, {46, 46}, {93, 99}, {101, 133}};
constexpr IdRange kStoryLoadTabs[] = {{60, 60}, {63, 65}};
/// The other tabs.
constexpr IdRange kTabsWithoutStoryLoads[] = {{0, 59}, {61, 62}, {66, kResultTabCount - 1}};

constexpr IdRange kModelTables = {43, 46};
constexpr IdRange kMaxFactorTables = {49, 53};
constexpr IdRange kDesignForceTables = {91, 94};
constexpr IdRange kDesignControlTables = {34, 34};
constexpr IdRange kClosingHints = {13, 15};

/// What texts say has ended, and the tables that close then.
struct ClosingText {
    std::string_view text;
    IdRange ids;
};
constexpr ClosingText kClosingTexts[] = {
    {"FINISH_STSR_TABLE", {29, 29}},        {"FINISH_STAB_TABLE", {35, 35}},           {"FINISH_YIELD_TABLE", {36, 36}},
    {"FINISH_STMASS_TABLE", {61, 61}},      {"FINISH_MAXFCT_TABLE", kMaxFactorTables}, {"FINISH_OVTN_TABLE", {18, 18}},
    {"FINISH_FORCE_FRAME_TABLE", {48, 48}},
};

/// A change of the context menu and where it is made: for some tables, on some tabs, by the mark of the graph menu.
struct MenuRule {
    IdSet ids;
    IdSet tabs{};                     ///< empty for all
    std::optional<bool> graphMenu{};  ///< none for both
    int deleted = 0;                  ///< 0 for none
    std::optional<int> deletedPosition{};
    AppendedCommand appended{};  ///< 0 for none

    bool Holds(int id, int tab, bool mark) const {
        return Contains(ids, id) && (tabs.empty() || Contains(tabs, tab)) && graphMenu.value_or(mark) == mark;
    }
};

constexpr IdRange kAllTables[] = {{kFirstResultTable, kLastResultTable}};
constexpr IdRange kModeTable[] = {{10, 10}};
constexpr IdRange kModeTabs[] = {{14, 16}};
constexpr IdRange kModeMassTab[] = {{15, 15}};
constexpr IdRange kTablesWithoutGraph[] = {{15, 17}, {19, 24}, {27, 29}, {31, 32}};
constexpr IdRange kTablesWithoutActivation[] = {{16, 16}, {44, 45}};
constexpr IdRange kQueryTable[] = {{43, 43}};
constexpr IdRange kTablesWithoutSort[] = {{31, 32}, {48, 48}, {54, 56}, {58, 59}, {65, 66}};
constexpr IdRange kOverturningTable[] = {{25, 25}};
constexpr IdRange kAllowableDriftTables[] = {{26, 26}, {28, 28}, {70, 70}};
constexpr IdRange kHistoryDriftTable[] = {{27, 27}};
constexpr IdRange kShearWeightTable[] = {{29, 29}};
constexpr IdRange kShearShareTable[] = {{34, 34}};
constexpr IdRange kTablesReadAfterCancel[] = {{14, 14}, {27, 28}};
constexpr int kTableOfAskedLimits = 26;

constexpr AppendedCommand kSetAllowableDrift = {ResultCommandId::SetAllowableDrift,
                                                "IDS_TB_POSTDISP_Drift_Ang_Alw_R___"};

constexpr MenuRule kMenuRules[] = {
    {.ids = kAllTables, .deleted = ResultCommandId::ExportGraphToExcel},
    {.ids = kModeTable, .tabs = kModeTabs, .deleted = ResultCommandId::Activate},
    {.ids = kModeTable,
     .tabs = kModeMassTab,
     .deletedPosition = 9,
     .appended = {ResultCommandId::ExportGraph, "IDS_TB_DYN_MENU_EXPORT_GRAPH"}},
    {.ids = kTablesWithoutGraph, .deleted = CommandId::Graph},
    {.ids = kTablesWithoutActivation, .deleted = ResultCommandId::Activate},
    {.ids = kQueryTable, .tabs = kTabsWithoutStoryLoads, .deleted = ResultCommandId::Activate},
    {.ids = kTablesWithoutSort, .deleted = CommandId::Sort},
    {.ids = kOverturningTable,
     .appended = {ResultCommandId::SetDriftParameters, "IDS_TB_RESULTVIEW_Set_Story_Drift_Parameters___"}},
    {.ids = kOverturningTable,
     .appended = {ResultCommandId::SelectDriftMethod, "IDS_TB_RESULTVIEW_Sel_Calc_Method___"}},
    {.ids = kAllowableDriftTables, .appended = kSetAllowableDrift},
    {.ids = kHistoryDriftTable, .graphMenu = true, .appended = kSetAllowableDrift},
    {.ids = kShearWeightTable,
     .appended = {ResultCommandId::SetLeastShearWeight, "IDS_TB_RESULTVIEW_Set_Allow_Shear_Weight_Ratio___"}},
    {.ids = kShearShareTable, .appended = {ResultCommandId::SetShearFactor, "IDS_TB_RESULTVIEW_Set_User_Defined_02Q"}},
};

}  // namespace

std::span<const ResultTabEntry> ResultTabs() { return kTabs; }

const ResultTabEntry* FindResultTab(int tab) { return tab >= 0 && tab < kResultTabCount ? &kTabs[tab] : nullptr; }

std::span<const ResultTableEntry> ResultTables() { return kTables; }

const ResultTableEntry* FindResultTable(int id) {
    return id >= kFirstResultTable && id <= kLastResultTable ? &kTables[id - kFirstResultTable] : nullptr;
}

const ResultTableEntry* FindResultTable(std::string_view operation) {
    const auto* found = std::find_if(std::begin(kTables), std::end(kTables), [&](const ResultTableEntry& table) {
        return !operation.empty() && table.operation == operation;
    });
    return found == std::end(kTables) ? nullptr : found;
}

std::span<const std::string_view> IdleResultOperations() { return kIdleOperations; }

std::vector<int> TabsOf(const ResultTableEntry& table) {
    std::vector<int> tabs;
    const bool withLast = table.choice != TabChoice::BySwitch || CProduct::IsSwitchedOn("PerformDesign");
    for (const IdRange& range : std::span(table.tabs).first(table.tabs.size() - (withLast ? 0 : 1))) {
        for (int tab = range.first; tab <= range.last; ++tab) tabs.push_back(tab);
    }
    return tabs;
}

IdSet TabsWithoutOperation() { return kTabsWithoutOperation; }

int GetAllTableNum() { return kResultTabCount; }

std::string GetTableName(int id) {
    const ResultTableEntry* table = FindResultTable(id);
    const bool hasName = table && id != kFirstResultTable && id != kLastResultTable && !table->titleKey.empty();
    return hasName ? velda::CMsgDll::pfuncLoadStr(table->titleKey, 0) : std::string{};
}

bool OpensActivation(int id, int tab) {
    return !Contains(kTablesWithoutActivation, id) && !(Contains(kModeTable, id) && Contains(kModeTabs, tab));
}

bool NeedsActivationAtSwitch(int tab) { return Contains(kTabsActivatedAtSwitch, tab); }

bool IsPOResTableForActiveEtc(int tab) { return Contains(kPushoverTabs, tab); }

bool ReadsAgainAfterCancel(int id) { return Contains(kTablesReadAfterCancel, id); }

bool AsksForDriftLimits(int id) { return id == kTableOfAskedLimits; }

bool ShowsStoryLoads(int tab) { return Contains(kStoryLoadTabs, tab); }

ContextMenuChange ContextMenuChangeOf(int id, int tab, bool graphMenu) {
    ContextMenuChange change;
    for (const MenuRule& rule : kMenuRules) {
        if (!rule.Holds(id, tab, graphMenu)) continue;
        if (rule.deleted != 0) change.deleted.push_back(rule.deleted);
        if (rule.deletedPosition) change.deletedPosition = rule.deletedPosition;
        if (rule.appended.id != 0) change.appended.push_back(rule.appended);
    }
    return change;
}

std::optional<bool> GraphMenuOf(int tab) {
    switch (tab) {
        case 19:
        case 35: return true;
        case 34:
        case 36: return false;
        default: return std::nullopt;
    }
}

bool IsModelTable(int id) { return kModelTables.Holds(id); }

bool IsDgnForceTable(int id) { return kDesignForceTables.Holds(id); }

bool ClosesOnDesignControl(int id) { return kDesignControlTables.Holds(id); }

bool ClosesOnHint(int hint, int id) { return kClosingHints.Holds(hint) && kMaxFactorTables.Holds(id); }

bool ClosesOnText(std::string_view text, int id) {
    return std::any_of(std::begin(kClosingTexts), std::end(kClosingTexts),
                       [&](const ClosingText& closing) { return closing.text == text && closing.ids.Holds(id); });
}

}  // namespace zt
