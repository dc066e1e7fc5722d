#include "desktop/window/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QProgressDialog>
#include <QSettings>
#include <QStatusBar>
#include <algorithm>

#include "desktop/grid/qt_text.h"
#include "desktop/safe_application.h"
#include "desktop/window/analysis_run.h"
#include "desktop/window/open_rows.h"
#include "velda_base/host/cmd_dialog.h"
#include "velda_base/host/message_box.h"
#include "velda_base/host/wait_cursor.h"
#include "velda_lib/number_text.h"
#include "zt_db/post/result_keeper.h"
#include "zt_tb/model/tb_prop_view.h"
#include "zt_tb/post/result_catalogue.h"

namespace zt {
namespace {

// Where the user's place of the window and of its panes is kept.
const QString kGeometry = QStringLiteral("window/geometry");
const QString kPanes = QStringLiteral("window/panes");

}  // namespace

MainWindow::MainWindow(std::unique_ptr<CDBDoc> doc)
    : doc_(std::move(doc)),
      savedCount_(doc_->GetMDBCtrl()->GetCurrentDB()->GetTransactionCount()),
      frame_(*this, [this](std::uint16_t id) { RunOnView(id); }) {
    doc_->MakeCurrent();
    BuildWindow();
    BuildCommands();
    BuildLists();
    watcher_.ConnectToDoc(doc_.get());
    if (auto* application = qobject_cast<SafeApplication*>(qApp)) {
        connect(application, &SafeApplication::HandlerFailed, this, &MainWindow::AfterFailure);
    }
    ShowTexts();
    ReadGeometry();
    modelPane_->ShowDocument(doc_.get());
    OpenProperties();
    Follow();
    ShowMessage(Word("IDS_DESKTOP_READY"));
}

MainWindow::~MainWindow() {
    // The tables go before the model that they show, and nothing of what they tell while they go is heard.
    qApp->disconnect(this);
    area_->disconnect(this);
    following_.stop();
    findBar_->SetTable(nullptr);
    CloseDocuments();
    watcher_.DisconnectFromDoc();
    modelPane_->ShowDocument(nullptr);
    if (CDBDoc::m_pDBDoc == doc_.get()) CDBDoc::m_pDBDoc = nullptr;
}

// ---- what is shown ----

TableHolder* MainWindow::ActiveHolder() const { return usedPane_ ? usedPane_ : area_->Active(); }

GridWidget* MainWindow::ActiveGrid() const {
    const TableHolder* holder = ActiveHolder();
    return holder ? &holder->Grid() : nullptr;
}

bool MainWindow::HasTable() const { return ActiveGrid() && ActiveGrid()->Grid(); }

void MainWindow::ShowTitle() {
    const QString path = ToQt(doc_->GetPath());
    const QString name = path.isEmpty() ? Word("IDS_DESKTOP_UNTITLED") : QFileInfo(path).fileName();
    setWindowTitle(name + QStringLiteral("[*] - ") + Word("IDS_DESKTOP_PROGRAM"));
    setWindowModified(path.isEmpty() && Database().GetTransactionCount() != savedCount_);
}

void MainWindow::ShowMessage(const QString& text) { statusBar()->showMessage(QString(text).replace('\n', ' ')); }

void MainWindow::Watcher::OnUpdate(CDBUpdateConnector* /*sender*/, int code, T_UPDATE_HINT* /*hint*/) {
    if (code == HintCode::Unit) owner_.fields_->ShowUnits(*owner_.doc_->GetUnitCtrl());
    owner_.FollowLater();
}

void MainWindow::FollowLater() {
    if (held_ == 0) following_.start();
}

void MainWindow::HoldIdle(bool hold) {
    held_ += hold ? 1 : -1;
    FollowLater();
}

void MainWindow::Follow() {
    const auto commands = WindowCommands();
    for (std::size_t at = 0; at < commands.size(); ++at) actions_[at]->setEnabled((this->*commands[at].isEnabled)());
    fields_->ShowSelection(ActiveGrid());
    ShowTitle();
    const ResultSource* results = CDBDoc::m_pDBDoc ? CDBDoc::m_pDBDoc->GetMDBCtrl()->GetDBPost()->Results() : nullptr;
    if (std::exchange(shownResults_, results) != results) tree_->FollowResults();
    velda::CTBGrid* grid = ActiveGrid() ? ActiveGrid()->Grid() : nullptr;
    modelPane_->FollowResults(dynamic_cast<velda::CTBCore*>(grid));
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !actions_.empty()) ShowIcons();
}

void MainWindow::AfterFailure(const QString& reason) {
    ShowMessage(reason);
    // Behind a bar of progress the work at hand goes on, and ends its group itself.
    if (qobject_cast<QProgressDialog*>(QApplication::activeModalWidget())) return;
    while (Database().InGroup()) Database().CancelGroup();
}

void MainWindow::ReadGeometry() {
    const QSettings settings;
    restoreGeometry(settings.value(kGeometry).toByteArray());
    restoreState(settings.value(kPanes).toByteArray());
}

void MainWindow::KeepGeometry() const {
    QSettings settings;
    settings.setValue(kGeometry, saveGeometry());
    settings.setValue(kPanes, saveState());
}

// ---- tables ----

void MainWindow::OpenTable(TableId id) {
    for (TableDocument* document : area_->Documents()) {
        if (!document->Shows(id)) continue;
        document->BringToFront(id);
        area_->BringToFront(*document);
        return;
    }
    const velda::WaitCursor wait;
    auto* document = new TableDocument(id);
    Connect(*document);
    usedPane_ = nullptr;
    area_->Add(document);
}

void MainWindow::Connect(TableHolder& holder) {
    connect(&holder.Grid(), &GridWidget::Warned, this, &MainWindow::ShowMessage);
    connect(&holder.Grid(), &GridWidget::Told, this, &MainWindow::ShowMessage);
    connect(&holder.Grid(), &GridWidget::FindRequested, this, &MainWindow::OpenFind);
    connect(&holder.Grid(), &GridWidget::Refreshed, this, &MainWindow::FollowLater);
    connect(&holder, &TableHolder::TableChanged, this, [this] {
        findBar_->SetTable(ActiveGrid());
        FollowLater();
    });
}

// ---- docked panes ----

DockedTable* MainWindow::PaneOf(int kind) const {
    const auto found =
        std::find_if(panes_.begin(), panes_.end(), [&](const auto& pane) { return pane->GetTableKind() == kind; });
    return found == panes_.end() ? nullptr : found->get();
}

void MainWindow::OpenPane(int kind) {
    const velda::WaitCursor wait;
    DockedTable* pane = PaneOf(kind);
    if (!pane) {
        pane = panes_.emplace_back(std::make_unique<DockedTable>(*this, kind)).get();
        pane->onOpened = [this](TableHolder& holder) { Connect(holder); };
        pane->onClosing = [this, pane] {
            KeepLayout(*pane->GetCurrentView());
            if (usedPane_ == pane->Holder()) usedPane_ = nullptr;
            findBar_->SetTable(nullptr);
            FollowLater();
        };
    }
    if (!pane->Open()) return;
    pane->Pane().Dock().raise();
    BringToFront(*pane->Holder());
}

void MainWindow::Dock() {
    TableDocument* document = area_->Active();
    const int kind = document->Id().kind;
    if (CloseDocument(document)) OpenPane(kind);
}

std::vector<TableHolder*> MainWindow::Holders() const {
    const std::vector<TableDocument*> documents = area_->Documents();
    std::vector<TableHolder*> holders(documents.begin(), documents.end());
    for (const auto& pane : panes_) {
        if (pane->IsOpen()) holders.push_back(pane->Holder());
    }
    return holders;
}

void MainWindow::BringToFront(TableHolder& holder) {
    if (auto* document = qobject_cast<TableDocument*>(&holder)) {
        area_->BringToFront(*document);
    } else {
        usedPane_ = &holder;
        holder.setFocus();
        findBar_->SetTable(ActiveGrid());
        FollowLater();
    }
}

void MainWindow::FocusMoved(const QWidget* to) {
    if (!to) return;
    TableHolder* used = area_->isAncestorOf(to) ? nullptr : usedPane_.data();
    for (const auto& pane : panes_) {
        if (pane->IsOpen() && pane->Holder()->isAncestorOf(to)) used = pane->Holder();
    }
    if (used == usedPane_) return;
    usedPane_ = used;
    findBar_->SetTable(ActiveGrid());
    FollowLater();
}

void MainWindow::OpenProperties() { OpenTable({TableSort::Property, CTBPropView::kMaterial}); }

void MainWindow::RunDialog(std::string_view name) {
    velda::ICmdDialog* dialogs = velda::ICmdDialog::Instance();
    if (dialogs && LeaveRows()) dialogs->DoModal(name);
}

bool MainWindow::CloseDocument(TableDocument* document) {
    if (!LeaveOrDropRows(*document->View())) {
        area_->BringToFront(*document);
        return false;
    }
    KeepLayout(*document->View());
    findBar_->SetTable(nullptr);
    area_->Remove(document);
    return true;
}

void MainWindow::KeepLayout(CTBView& view) {
    std::vector<velda::CTBGrid*> grids;
    view.GetAllGrid(grids);
    for (velda::CTBGrid* grid : grids) {
        if (const velda::Outcome kept = grid->SaveLayout(); !kept) ShowMessage(ToQt(kept.Reason()));
    }
}

void MainWindow::CloseDocuments() {
    panes_.clear();
    for (TableDocument* document : area_->Documents()) area_->Remove(document);
}

void MainWindow::CloseTable() {
    TableHolder* holder = ActiveHolder();
    for (const auto& pane : panes_) {
        if (holder && pane->Holder() == holder) pane->Pane().Dock().close();
    }
    if (auto* document = qobject_cast<TableDocument*>(holder)) CloseDocument(document);
}

bool MainWindow::LeaveRows() {
    for (TableHolder* holder : Holders()) {
        const bool left = LeaveOrDropRows(*holder->View());
        holder->Grid().Refresh();
        if (left) continue;
        BringToFront(*holder);
        return false;
    }
    return true;
}

void MainWindow::RunOnView(int id) {
    // Views leave to the window what needs a dialog for files.
    if (id == ResultCommandId::ExportToExcel || id == ResultCommandId::ExportGraphToExcel) {
        ExportTable();
        return;
    }
    TableHolder* holder = ActiveHolder();
    if (!holder) return;
    holder->View()->OnCommand(id);
    holder->Grid().Refresh();
}

bool MainWindow::CanRunOnView(int id) const {
    const TableHolder* holder = ActiveHolder();
    return holder && holder->View()->IsCommandEnabled(id);
}

// ---- edit and look ----

void MainWindow::Step(int (CDataBase::*step)(int), int count) {
    if (!LeaveRows()) return;
    CDataBase& database = Database();
    if ((database.*step)(count) < count && !database.GetLastReason().empty()) {
        ShowMessage(ToQt(database.GetLastReason()));
    }
}

void MainWindow::FitModel() {
    modelPane_->Open();
    modelPane_->View().Fit();
}

void MainWindow::ShowModel(StandardView view) {
    modelPane_->Open();
    modelPane_->View().Show(view);
}

void MainWindow::OpenFind() {
    findBar_->SetTable(ActiveGrid());
    findBar_->Open();
}

void MainWindow::ToggleFilter() {
    TableHolder* holder = ActiveHolder();
    if (!holder) return;
    FilterRow& filters = holder->Filters();
    if (!filters.isHidden()) filters.Clear();
    filters.setVisible(filters.isHidden());
}

void MainWindow::ZoomBy(double step) {
    if (GridWidget* grid = ActiveGrid()) grid->SetZoom(grid->Zoom() + step);
}

void MainWindow::ZoomReset() {
    if (GridWidget* grid = ActiveGrid()) grid->SetZoom(1.0);
}

bool MainWindow::UseLanguage(velda::Language language) {
    if (!LeaveRows()) return false;
    velda::SetCurrentLanguage(language);
    for (TableDocument* document : area_->Documents()) document->UseLanguage();
    for (const auto& pane : panes_) pane->Reopen();
    ShowTexts();
    ShowMessage(Word("IDS_DESKTOP_READY"));
    return true;
}

bool MainWindow::UseUnits(const T_UNIT_INDEX& index) {
    if (!LeaveRows()) return false;
    return doc_->GetUnitCtrl()->SetUnitIndexCurrent(index, 1) != 0;
}

void MainWindow::UseThemeOf(Theme theme) {
    UseTheme(*qApp, theme);
    QSettings().setValue(QStringLiteral("theme"), static_cast<int>(theme));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (!LeaveRows() || !MayDropModel()) return;
    KeepGeometry();
    for (TableDocument* document : area_->Documents()) CloseDocument(document);
    panes_.clear();
    event->accept();
}

bool MainWindow::HasResults() const { return doc_ && doc_->GetResults().Current(); }

void MainWindow::DiscardResults() {
    const velda::Outcome outcome = doc_->GetResults().Discard();
    if (!outcome) velda::AfxMessageBox(outcome.Reason());
}

void MainWindow::RunAnalysis() {
    if (!LeaveRows()) return;
    AnalysisRun run(*doc_, *logPane_);
    const velda::Outcome outcome = run.Run();
    const std::string warnings = velda::FormatLong(static_cast<std::int64_t>(run.Warnings()));
    ShowMessage(ToQt(outcome ? velda::FormatText("IDS_DESKTOP_ANALYSIS_DONE", {warnings}) : outcome.Reason()));
}

}  // namespace zt
