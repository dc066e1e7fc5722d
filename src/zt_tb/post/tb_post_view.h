#pragma once

#include <array>
#include <initializer_list>
#include <vector>

#include "velda_util/result/tb_core.h"
#include "zt_tb/core/tb_view.h"
#include "zt_tb/post/result_catalogue.h"
#include "zt_tb/post/tb_post_ds.h"

namespace zt {

/// The view of all tables of results: a fresh view is asked for one table, by one of its Add...View operations, and
/// shows its tabs from then on. Where results change it closes.
class CTBPostView : public CTBView {
public:
    /// Which tabs a table has, by their numbers.
    using TabFlags = std::array<bool, kResultTabCount>;

    CTBPostView() = default;

    /// The table that is shown; 0 before one was opened.
    int GetResultTableId() const { return id_; }
    /// 3 for tables of member forces and of their events, otherwise 0.
    int GetMemberTableMark() const { return memberMark_; }

    // ---- opening

    /// Opens the table of an operation of the catalogue; with its arguments, for those that take some. False, and
    /// nothing happens, when there is none, or the arguments do not fit. Operations that open nothing succeed.
    bool AddTable(std::string_view operation, std::span<const int> arguments = {});

    /// Opens a table by its number, with all tabs that it can have. False, and nothing happens, when there is none.
    bool AddTable(int id);

    // Each opens the table of its name. Tables whose tabs the caller chooses take a flag for each tab.
    // clang-format off
#define ZT_OPENS(operation) void operation() { AddTable(#operation); }
    ZT_OPENS(AddTestView) ZT_OPENS(AddDispView) ZT_OPENS(AddReacView) ZT_OPENS(AddSlabView) ZT_OPENS(AddElnkView)
    ZT_OPENS(AddVibrModeView) ZT_OPENS(AddStorSsrtView) ZT_OPENS(AddStorDrftAngView) ZT_OPENS(AddStorDispView)
    ZT_OPENS(AddStorEcctView) ZT_OPENS(AddStorTAFView) ZT_OPENS(AddStorOTMView) ZT_OPENS(AddStorVFSView)
    ZT_OPENS(AddStorSTCView) ZT_OPENS(AddStorTICView) ZT_OPENS(AddStorSICView) ZT_OPENS(AddStorWICView)
    ZT_OPENS(AddStorCICView) ZT_OPENS(AddStorDrftAngTHView) ZT_OPENS(AddStorDrftAngTHNLView) ZT_OPENS(AddStorSharView)
    ZT_OPENS(AddStorSharTHView) ZT_OPENS(AddStorSharTHView2) ZT_OPENS(AddStorSharTHNLView) ZT_OPENS(AddStorS02qView)
    ZT_OPENS(AddStorStabChkView) ZT_OPENS(AddStorYieldStrenFctChkView) ZT_OPENS(AddStorSIBView)
    ZT_OPENS(AddStorStffView) ZT_OPENS(AddStorQueryView) ZT_OPENS(AddStorMassView) ZT_OPENS(AddStorWegtView)
    ZT_OPENS(AddStorLoadView) ZT_OPENS(AddMembForceView) ZT_OPENS(AddMembForceWallView) ZT_OPENS(AddMembTHForceView)
    ZT_OPENS(AddMembTHForceWallView) ZT_OPENS(AddElnkTHView) ZT_OPENS(AddMembTHNLForceView)
    ZT_OPENS(AddMembTHNLForceWallView) ZT_OPENS(AddElnkTHNLView) ZT_OPENS(AddDispTHView) ZT_OPENS(AddReacTHView)
    ZT_OPENS(AddDispNLTHView) ZT_OPENS(AddReacNLTHView) ZT_OPENS(AddMembPSOVForceView)
    ZT_OPENS(AddMembPSOVForceWallView) ZT_OPENS(AddDeformPSOVView) ZT_OPENS(AddReacPSOVView) ZT_OPENS(AddElnkPSOVView)
    ZT_OPENS(AddPSOVStorDrftAngView) ZT_OPENS(AddPSOVStorShearView) ZT_OPENS(AddPsovHgstView)
    ZT_OPENS(AddPsovEventStepView) ZT_OPENS(AddPsovBeamSummaryView) ZT_OPENS(AddPsovColumnSummaryView)
    ZT_OPENS(AddPsovBraceSummaryView) ZT_OPENS(AddPsovForceView) ZT_OPENS(AddPsovDeformView)
    ZT_OPENS(AddPsovPlasticDeformView) ZT_OPENS(AddPsovDuct1View) ZT_OPENS(AddPsovDuct2View)
    ZT_OPENS(AddNLTHEventStepView) ZT_OPENS(AddNLTHBeamSummaryView) ZT_OPENS(AddNLTHColumnSummaryView)
    ZT_OPENS(AddNLTHBraceSummaryView) ZT_OPENS(AddNLTHForceView) ZT_OPENS(AddNLTHDeformView)
    ZT_OPENS(AddNLTHPlasticDeformView) ZT_OPENS(AddNLTHDuct1View) ZT_OPENS(AddNLTHDuct2View) ZT_OPENS(AddDgnFbemView)
    ZT_OPENS(AddDgnFcolView) ZT_OPENS(AddDgnFwalView) ZT_OPENS(AddDgnFwlxView) ZT_OPENS(AddDgnBeamDeflection)
    // Callers know these; they open nothing.
    ZT_OPENS(AddStorDrftView) ZT_OPENS(AddStorDrftFctView) ZT_OPENS(AddStorModeView) ZT_OPENS(AddDgnForceView)
#undef ZT_OPENS
#define ZT_OPENS(operation) void operation(bool forces, bool stresses) { AddTable(#operation, std::array{int{forces}, int{stresses}}); }
    ZT_OPENS(AddColmView) ZT_OPENS(AddBeamView) ZT_OPENS(AddLintView)
#undef ZT_OPENS
        // clang-format on
        void AddTGView(bool forces) {
        AddTable("AddTGView", std::array{int{forces}});
    }
    /// `id` is the table; 0 means that of all members.
    void AddDgnMaxFctView(int id) { AddTable("AddDgnMaxFctView", std::array{id}); }

    /// Makes the tabs whose flag is set, as far as they are not there, and takes away the others; the last tab stays.
    /// Then the activation dialog opens, once the handler at work has returned.
    void AddnDelView(const TabFlags& flags);

    // Each brings a tab to the front; refused, with false, outside its tabs. Nothing happens without tabs.

    bool ActiveStorDispTab(int tab) { return ActivateTab(tab, 1); }
    bool ActiveMembDeflectionTab(int tab) { return ActivateTab(tab, 1); }
    bool ActiveMaxFctTab(int tab) { return ActivateTab(tab, 3); }

    // ---- what is shown

    bool IsDgnForceTable() const { return zt::IsDgnForceTable(id_); }
    int IsQueryTable() const { return 0; }
    /// What the tables read: the results, or the model where they stand before any analysis.
    const CPostDataBase& GetDB() const;
    /// The grid of a tab number; null when it is not there.
    velda::CTBCore* GridOf(int tab) const;
    velda::CTBCore* GetActiveCore() const { return dynamic_cast<velda::CTBCore*>(GetActiveGrid()); }
    /// The number of the tab in front; -1 without one.
    int ActiveTab() const;

    // ---- activation

    /// What the tab in front shows and could show; false when it has no source.
    bool GetActivation(TB_ACTIVE_PARAM& param);
    /// Lets the user choose what the tables show.
    void OnActiveNewDlg();
    /// Shows what was chosen, in all tables that follow the one in front.
    void Activate(const TB_ACTIVE_PARAM& param);
    /// For each of the entries, whether the source shows it.
    static std::vector<bool> SetActiveCheck(const CTBPostDS& source, std::span<const LoadChoice> entries);

    /// Lets the user set the limits of the drift table in front, or of all those beside it with `all`: 1 when they were
    /// set. Tables whose limits cannot be set give 0.
    int OnTbSetStorParam2(bool all);

    // ---- commands

    bool OnCommand(int id) override;
    bool IsCommandEnabled(int id) const override;
    velda::CMenu BuildContextMenu() const;
    void OnContextMenu(velda::WindowPoint point) override;

    // ---- hints

    void OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) override;
    void OnTabSwitch() override;
    /// What is shown stays.
    bool UpdateLanguage() override;
    void UpdateBuffer(T_UPDATE_HINT* hint) override;
    void UpdateUnit() override;
    void UpdateSelPre() override;
    void UpdateRefresh() override;
    void UpdatePostDBChanged() override { CloseFrame(); }
    /// Results cannot be edited.
    void SetTableReadOnlyMode(int /*flag*/) override {}
    void UpdateDgnForceChanged() override;
    void UpdateDgnForceRemoved() override;

private:
    static std::span<const ViewCommand<CTBPostView>> Commands();
    bool Always() const { return true; }
    bool HasCore() const { return GetActiveCore() != nullptr; }
    bool CanSetDriftLimits() const;
    void OnTbCmenuSetDrftParam2() { OnTbSetStorParam2(false); }
    /// Whether the tables read results: on the side of the program that shows them, and wherever there are some.
    static bool ReadsResults();
    bool CanActivate() const { return PostSourceOf(GetActiveCore()) != nullptr; }
    void OnTbGvFind();
    void OnTbGvFindNext();
    void OnSort();
    void OnStyleDlg();
    void OnExportExcel();
    void OnExportExcelGraph();
    // Callers know these commands; they do nothing.
    void OnTbCmenuSetDrftParam() {}
    void OnTbCmenuSelDrftMethod() {}
    void OnTbCmenuSetOTMParam() {}
    void OnTbCMenuSetTICParam() {}
    void OnTbCmenuSICParam() {}
    void OnTbCmenuWICParam() {}

    bool FlagsOf(const ResultTableEntry& table, std::span<const int> arguments, TabFlags& flags) const;
    void OpenTable(const ResultTableEntry& table, const TabFlags& flags);
    void AddTab(int tab);
    void RemoveTab(int tab);
    bool ActivateTab(int tab, int last);
    void PostActivation();
    /// Turns to the tab that a traced finding is about; false when there is no checker to tell.
    bool FollowTracer();
    /// Selects in the model what the rows of a table are about.
    void SelectObjectsOf(const velda::CTBCore& grid);
    /// Selects the rows of what was selected elsewhere.
    void FollowSelection();
    std::vector<CTBPostDS*> Sources() const;
    void CloseFrame();

    int id_ = 0;
    int memberMark_ = 0;
    bool graphMenu_ = true;
    bool activationWaits_ = false;   ///< the command of the activation dialog was posted
    bool followsSelection_ = false;  ///< rows are being selected for what was selected elsewhere
    std::array<velda::CTBCore*, kResultTabCount> grids_{};
};

}  // namespace zt
