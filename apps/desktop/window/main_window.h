#pragma once

#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QTimer>
#include <QToolBar>
#include <memory>

#include "desktop/host/qt_main_frame.h"
#include "desktop/modelview/model_pane.h"
#include "desktop/window/analysis_log_pane.h"
#include "desktop/window/command_table.h"
#include "desktop/window/docked_table.h"
#include "desktop/window/document_area.h"
#include "desktop/window/find_bar.h"
#include "desktop/window/status_fields.h"
#include "desktop/window/table_tree.h"
#include "desktop/window/theme.h"

namespace zt {

class ExchangeReport;

/// The main window: an open model, its tables on tabs, the commands of the program.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(std::unique_ptr<CDBDoc> doc);
    ~MainWindow() override;

    CDBDoc& Document() { return *doc_; }
    /// What the commands work on: the docked pane that was used last, or the document in front; null when there is
    /// neither.
    TableHolder* ActiveHolder() const;
    /// The table of the active holder; null when there is none.
    GridWidget* ActiveGrid() const;
    /// The pane of a kind of table; null when it was never opened.
    DockedTable* PaneOf(int kind) const;
    DocumentArea& Area() { return *area_; }
    TableTree& Tree() { return *tree_; }
    /// The pane that draws the model.
    ModelPane& Model() { return *modelPane_; }
    /// The pane with the log of the last analysis.
    AnalysisLogPane& Log() { return *logPane_; }
    FindBar& Finder() { return *findBar_; }
    StatusFields& Fields() { return *fields_; }
    velda::I_MainFrameBase& Frame() { return frame_; }
    /// The action of a command; null for an identifier that names none.
    QAction* ActionOf(std::string_view id) const;
    QMenu& UndoMenu() { return *undoMenu_; }
    QMenu& RedoMenu() { return *redoMenu_; }

    /// Opens a table, or brings it to the front where it is open.
    void OpenTable(TableId id);
    /// Opens a kind of model table in a docked pane, or brings its pane to the front.
    void OpenPane(int kind);
    /// Switches the language of all that is shown. False when an open row stays open.
    bool UseLanguage(velda::Language language);
    bool UseUnits(const T_UNIT_INDEX& index);
    void UseThemeOf(Theme theme);
    /// Opens a model file in place of the current model. False when it cannot be opened or the user keeps the current.
    bool OpenModelFile(const QString& path);
    /// Adds what a workbook or a folder of tables holds to the model, as one step, and shows the report.
    bool ImportFrom(const QString& path);
    /// Writes the model as a workbook where the name says so, otherwise as a folder of tables, and shows the report.
    bool ExportModelTo(const QString& path);
    /// Takes back, or makes again, several steps.
    void UndoSteps(int count) { Step(&CDataBase::Undo, count); }
    void RedoSteps(int count) { Step(&CDataBase::Redo, count); }
    /// While held the window does not follow changes.
    void HoldIdle(bool hold);
    void ShowMessage(const QString& text);

    // ---- commands

    void NewModel();
    void OpenModel();
    void Save();
    void SaveAs();
    void ImportFile();
    void ImportFolder();
    void ExportWholeModel();
    void ExportTable();
    void ExportAll();
    void CloseTable();
    void Quit() { close(); }
    void Undo() { UndoSteps(1); }
    void Redo() { RedoSteps(1); }
    void OpenFind();
    void FindNext() { findBar_->FindNext(); }
    void FindPrevious() { findBar_->FindPrevious(); }
    void ZoomIn() { ZoomBy(kZoomStep); }
    void ZoomOut() { ZoomBy(-kZoomStep); }
    void ZoomReset();
    void Split() { area_->MoveToOtherGroup(); }
    /// Moves the document in front into a docked pane.
    void Dock();
    void OpenProperties();
    void ToggleFilter();
    void FitModel();
    void RunAnalysis();
    void DiscardResults();
    template <StandardView view>
    void ShowModelFrom() {
        ShowModel(view);
    }
    /// Opens a property dialog of a class, by its name.
    template <class Dialog>
    void OpenDialog() {
        RunDialog(Dialog::kName);
    }
    template <int id>
    void RunViewCommand() {
        RunOnView(id);
    }

    bool Always() const { return true; }
    bool HasDocument() const { return area_->Active() != nullptr; }
    bool CanDock() const { return HasDocument() && area_->Active()->Id().sort == TableSort::Model; }
    bool HasTable() const;
    bool HasModel() const { return !modelPane_->View().Scene().IsEmpty(); }
    bool HasResults() const;
    bool CanUndo() const { return !Database().GetUndoNames().empty(); }
    bool CanRedo() const { return !Database().GetRedoNames().empty(); }
    bool CanSplit() const { return area_->IsSplit() || area_->Documents().size() > 1; }
    template <int id>
    bool CanRunViewCommand() const {
        return CanRunOnView(id);
    }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Follows the changes of the document.
    class Watcher final : public CDBUpdateConnector {
    public:
        explicit Watcher(MainWindow& owner) : owner_(owner) {}
        void OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) override;

    private:
        MainWindow& owner_;
    };
    static constexpr double kZoomStep = 0.1;

    CDataBase& Database() const { return *doc_->GetMDBCtrl()->GetCurrentDB(); }
    void BuildWindow();
    void BuildCommands();
    void BuildLists();
    QMenu* BuildHistory(std::string_view command, std::vector<std::string> (CDataBase::*names)() const,
                        void (MainWindow::*run)(int));
    void BuildThemes();
    void FillRecent();
    void ShowTexts();
    void ShowIcons();
    void ShowModel(StandardView view);
    void ShowTitle();
    void Follow();
    void FollowLater();
    void RunDialog(std::string_view name);
    void RunOnView(int id);
    bool CanRunOnView(int id) const;
    void ZoomBy(double step);
    void Step(int (CDataBase::*step)(int), int count);
    /// Follows what happens in the table of a document or a pane.
    void Connect(TableHolder& holder);
    /// The views of all documents and panes.
    std::vector<TableHolder*> Holders() const;
    void BringToFront(TableHolder& holder);
    /// Keeps the columns of the tables of a view; a failure is told.
    void KeepLayout(CTBView& view);
    void FocusMoved(const QWidget* to);
    /// A handler has failed: what it left half done in the model is taken back.
    void AfterFailure(const QString& reason);
    void ReadGeometry();
    void KeepGeometry() const;
    bool CloseDocument(TableDocument* document);
    void CloseDocuments();
    bool LeaveRows();
    /// Asks what becomes of changes that are in no file. False when the user goes back.
    bool MayDropModel();
    void UseModel(std::unique_ptr<CDBDoc> doc);
    bool SaveTo(const QString& path);
    void ShowReport(const QString& title, const ExchangeReport& report);
    void ExportTo(const std::vector<TableHolder*>& holders, bool allTabs);

    std::unique_ptr<CDBDoc> doc_;
    std::uint64_t savedCount_ = 0;  ///< transactions when the model was last in a file or new
    Watcher watcher_{*this};
    QtMainFrame frame_;
    DocumentArea* area_ = nullptr;
    std::vector<std::unique_ptr<DockedTable>> panes_;
    QPointer<TableHolder> usedPane_;  ///< the docked pane that has the focus, or had it last
    /// The results that the tree shows the tables of.
    const ResultSource* shownResults_ = nullptr;
    TableTree* tree_ = nullptr;
    QDockWidget* treePane_ = nullptr;
    ModelPane* modelPane_ = nullptr;
    AnalysisLogPane* logPane_ = nullptr;
    FindBar* findBar_ = nullptr;
    StatusFields* fields_ = nullptr;
    QToolBar* toolBar_ = nullptr;
    std::vector<QMenu*> menus_;
    std::vector<QAction*> actions_;  ///< in the order of the commands
    QMenu* recentMenu_ = nullptr;
    QMenu* undoMenu_ = nullptr;
    QMenu* redoMenu_ = nullptr;
    QMenu* themeMenu_ = nullptr;
    QTimer following_;
    int held_ = 0;
};

}  // namespace zt
