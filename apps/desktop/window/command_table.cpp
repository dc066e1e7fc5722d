#include "desktop/window/command_table.h"

#include "desktop/window/main_window.h"
#include "zt_cmd/analysis_control_dialog.h"
#include "zt_cmd/drift_restriction_dialog.h"
#include "zt_cmd/load_case_dialog.h"
#include "zt_cmd/load_combination_dialog.h"
#include "zt_cmd/load_type_dialogs.h"
#include "zt_cmd/matl_dialog.h"
#include "zt_cmd/sect_dialog.h"
#include "zt_cmd/spectrum_dialogs.h"
#include "zt_cmd/thik_dialog.h"
#include "zt_cmd/time_history_dialogs.h"
#include "zt_tb/core/tb_command_ids.h"

namespace zt {
namespace {

using W = MainWindow;
using M = CommandMenu;
constexpr bool kBar = true;
constexpr bool kNoBar = false;
constexpr bool kEnd = true;
constexpr bool kGoOn = false;

template <StandardView view>
constexpr auto kShow = &MainWindow::ShowModelFrom<view>;
template <int id>
constexpr auto kRun = &MainWindow::RunViewCommand<id>;
template <int id>
constexpr auto kCan = &MainWindow::CanRunViewCommand<id>;

constexpr WindowCommand kCommands[] = {
    {"new", M::File, "IDS_DESKTOP_NEW", "Ctrl+N", "new", kBar, kGoOn, &W::NewModel, &W::Always},
    {"open", M::File, "IDS_DESKTOP_OPEN", "Ctrl+O", "open", kBar, kGoOn, &W::OpenModel, &W::Always},
    {"save", M::File, "IDS_DESKTOP_SAVE", "Ctrl+S", "save", kBar, kGoOn, &W::Save, &W::Always},
    {"save-as", M::File, "IDS_DESKTOP_SAVE_AS", "Ctrl+Shift+S", "", kNoBar, kEnd, &W::SaveAs, &W::Always},
    {"import", M::File, "IDS_DESKTOP_IMPORT", "Ctrl+I", "", kNoBar, kGoOn, &W::ImportFile, &W::Always},
    {"import-folder", M::File, "IDS_DESKTOP_IMPORT_FOLDER", "", "", kNoBar, kGoOn, &W::ImportFolder, &W::Always},
    {"export-model", M::File, "IDS_DESKTOP_EXPORT_MODEL", "", "", kNoBar, kEnd, &W::ExportWholeModel, &W::Always},
    {"export", M::File, "IDS_DESKTOP_EXPORT", "Ctrl+E", "export", kBar, kGoOn, &W::ExportTable, &W::HasTable},
    {"export-all", M::File, "IDS_DESKTOP_EXPORT_ALL", "Ctrl+Shift+E", "", kNoBar, kEnd, &W::ExportAll, &W::HasTable},
    {"preview", M::File, "IDS_DESKTOP_PRINT_PREVIEW", "", "", kNoBar, kGoOn, kRun<CommandId::FilePrintPreview>,
     kCan<CommandId::FilePrintPreview>},
    {"print", M::File, "IDS_DESKTOP_PRINT", "Ctrl+P", "print", kBar, kEnd, kRun<CommandId::FilePrint>,
     kCan<CommandId::FilePrint>},
    {"close", M::File, "IDS_DESKTOP_CLOSE_TABLE", "Ctrl+W", "", kNoBar, kGoOn, &W::CloseTable, &W::HasDocument},
    {"quit", M::File, "IDS_DESKTOP_QUIT", "Ctrl+Q", "", kNoBar, kGoOn, &W::Quit, &W::Always},

    {"undo", M::Edit, "IDS_DESKTOP_UNDO", "Ctrl+Z", "undo", kBar, kGoOn, &W::Undo, &W::CanUndo},
    {"redo", M::Edit, "IDS_DESKTOP_REDO", "Ctrl+Y", "redo", kBar, kEnd, &W::Redo, &W::CanRedo},
    {"copy", M::Edit, "IDS_DESKTOP_COPY", "Ctrl+C", "copy", kBar, kGoOn, kRun<CommandId::EditCopy>,
     kCan<CommandId::EditCopy>},
    {"paste", M::Edit, "IDS_DESKTOP_PASTE", "Ctrl+V", "paste", kBar, kEnd, kRun<CommandId::EditPaste>,
     kCan<CommandId::EditPaste>},
    {"find", M::Edit, "IDS_DESKTOP_FIND", "Ctrl+F", "find", kBar, kGoOn, &W::OpenFind, &W::HasTable},
    {"find-next", M::Edit, "IDS_DESKTOP_FIND_NEXT", "F3", "", kNoBar, kGoOn, &W::FindNext, &W::HasTable},
    {"find-previous", M::Edit, "IDS_DESKTOP_FIND_PREVIOUS", "Shift+F3", "", kNoBar, kGoOn, &W::FindPrevious,
     &W::HasTable},
    {"find-dialog", M::Edit, "IDS_DESKTOP_FIND_DIALOG", "Ctrl+Alt+F", "", kNoBar, kGoOn, kRun<CommandId::EditFind>,
     kCan<CommandId::EditFind>},

    {"zoom-in", M::View, "IDS_DESKTOP_ZOOM_IN", "Ctrl++", "", kNoBar, kGoOn, &W::ZoomIn, &W::HasTable},
    {"zoom-out", M::View, "IDS_DESKTOP_ZOOM_OUT", "Ctrl+-", "", kNoBar, kGoOn, &W::ZoomOut, &W::HasTable},
    {"zoom-reset", M::View, "IDS_DESKTOP_ZOOM_RESET", "Ctrl+0", "", kNoBar, kEnd, &W::ZoomReset, &W::HasTable},
    {"split", M::View, "IDS_DESKTOP_SPLIT", "Ctrl+\\", "split", kBar, kGoOn, &W::Split, &W::CanSplit},
    {"dock", M::View, "IDS_DESKTOP_DOCK", "Ctrl+Shift+D", "", kNoBar, kEnd, &W::Dock, &W::CanDock},

    {"model-fit", M::View, "IDS_DESKTOP_MODEL_FIT", "", "model-fit", kNoBar, kGoOn, &W::FitModel, &W::HasModel},
    {"model-plan", M::View, "IDS_DESKTOP_MODEL_PLAN", "", "model-plan", kNoBar, kGoOn, kShow<StandardView::Plan>,
     &W::HasModel},
    {"model-front", M::View, "IDS_DESKTOP_MODEL_FRONT", "", "model-front", kNoBar, kGoOn,
     kShow<StandardView::FrontElevation>, &W::HasModel},
    {"model-side", M::View, "IDS_DESKTOP_MODEL_SIDE", "", "model-side", kNoBar, kGoOn,
     kShow<StandardView::SideElevation>, &W::HasModel},
    {"model-isometric", M::View, "IDS_DESKTOP_MODEL_ISOMETRIC", "", "model-isometric", kNoBar, kEnd,
     kShow<StandardView::Isometric>, &W::HasModel},

    {"properties", M::Table, "IDS_DESKTOP_PROPERTIES", "Ctrl+Shift+P", "table", kBar, kGoOn, &W::OpenProperties,
     &W::Always},
    {"materials", M::Table, "IDS_DESKTOP_DIALOG_MATL", "", "", kNoBar, kGoOn, &W::OpenDialog<CModelPropMatlDlg>,
     &W::Always},
    {"sections", M::Table, "IDS_DESKTOP_DIALOG_SECT", "", "", kNoBar, kGoOn, &W::OpenDialog<CCMSectItemDlg>,
     &W::Always},
    {"thicknesses", M::Table, "IDS_DESKTOP_DIALOG_THIK", "", "", kNoBar, kEnd, &W::OpenDialog<CModelPropThikDlg>,
     &W::Always},
    {"filter", M::Table, "IDS_DESKTOP_FILTER_ROW", "Ctrl+Shift+L", "filter", kBar, kGoOn, &W::ToggleFilter,
     &W::HasTable},
    {"sort", M::Table, "IDS_DESKTOP_SORT", "", "sort", kBar, kGoOn, kRun<CommandId::Sort>, kCan<CommandId::Sort>},
    {"fit", M::Table, "IDS_DESKTOP_FIT", "", "", kNoBar, kGoOn, kRun<CommandId::FitWidth>, kCan<CommandId::FitWidth>},
    {"style", M::Table, "IDS_DESKTOP_STYLE", "", "", kNoBar, kGoOn, kRun<CommandId::Style>, kCan<CommandId::Style>},
    {"colors", M::Table, "IDS_DESKTOP_COLORS", "", "", kNoBar, kEnd, kRun<CommandId::Color>, kCan<CommandId::Color>},
    {"lock", M::Table, "IDS_DESKTOP_LOCK", "", "", kNoBar, kGoOn, kRun<CommandId::LockColumns>,
     kCan<CommandId::LockColumns>},
    {"unlock", M::Table, "IDS_DESKTOP_UNLOCK", "", "", kNoBar, kEnd, kRun<CommandId::UnlockColumns>,
     kCan<CommandId::UnlockColumns>},
    {"graph", M::Table, "IDS_DESKTOP_GRAPH", "", "graph", kBar, kGoOn, kRun<CommandId::Graph>, kCan<CommandId::Graph>},

    {"load-cases", M::Load, "IDS_DESKTOP_DIALOG_STLD", "", "", kNoBar, kGoOn, &W::OpenDialog<LoadCaseDialog>,
     &W::Always},
    {"load-combinations", M::Load, "IDS_DESKTOP_DIALOG_LCOM", "", "", kNoBar, kEnd,
     &W::OpenDialog<LoadCombinationDialog>, &W::Always},
    {"beam-load-types", M::Load, "IDS_DESKTOP_DIALOG_BLTP", "", "", kNoBar, kGoOn, &W::OpenDialog<BeamLoadTypeDialog>,
     &W::Always},
    {"wall-load-types", M::Load, "IDS_DESKTOP_DIALOG_BWTP", "", "", kNoBar, kGoOn, &W::OpenDialog<WallLoadTypeDialog>,
     &W::Always},
    {"slab-load-types", M::Load, "IDS_DESKTOP_DIALOG_SLTP", "", "", kNoBar, kGoOn, &W::OpenDialog<SlabLoadTypeDialog>,
     &W::Always},

    {"analysis-run", M::Analysis, "IDS_DESKTOP_ANALYSIS_RUN", "F5", "run", kBar, kGoOn, &W::RunAnalysis, &W::HasModel},
    {"discard-results", M::Analysis, "IDS_DESKTOP_ANALYSIS_DISCARD", "", "", kNoBar, kEnd, &W::DiscardResults,
     &W::HasResults},
    {"analysis-control", M::Analysis, "IDS_DESKTOP_DIALOG_ACTL", "", "", kNoBar, kEnd,
     &W::OpenDialog<AnalysisControlDialog>, &W::Always},
    {"spectra", M::Analysis, "IDS_DESKTOP_DIALOG_SPFC", "", "", kNoBar, kGoOn, &W::OpenDialog<SpectrumDialog>,
     &W::Always},
    {"spectrum-cases", M::Analysis, "IDS_DESKTOP_DIALOG_SPLC", "", "", kNoBar, kGoOn,
     &W::OpenDialog<SpectrumCaseDialog>, &W::Always},
    {"time-functions", M::Analysis, "IDS_DESKTOP_DIALOG_THFC", "", "", kNoBar, kGoOn,
     &W::OpenDialog<TimeFunctionDialog>, &W::Always},
    {"time-history-cases", M::Analysis, "IDS_DESKTOP_DIALOG_THLC", "", "", kNoBar, kEnd,
     &W::OpenDialog<TimeHistoryCaseDialog>, &W::Always},
    {"drift-restriction", M::Analysis, "IDS_DESKTOP_DIALOG_RSTP", "", "", kNoBar, kGoOn,
     &W::OpenDialog<DriftRestrictionDialog>, &W::Always},
};

}  // namespace

std::span<const WindowCommand> WindowCommands() { return kCommands; }

std::string_view MenuTextKey(CommandMenu menu) {
    constexpr std::string_view kKeys[] = {"IDS_DESKTOP_MENU_FILE", "IDS_DESKTOP_MENU_EDIT",
                                          "IDS_DESKTOP_MENU_VIEW", "IDS_DESKTOP_MENU_TABLE",
                                          "IDS_DESKTOP_MENU_LOAD", "IDS_DESKTOP_MENU_ANALYSIS"};
    return kKeys[static_cast<int>(menu)];
}

}  // namespace zt
