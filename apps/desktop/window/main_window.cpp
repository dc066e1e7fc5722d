#include "desktop/window/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QSettings>
#include <QStatusBar>
#include <algorithm>

#include "desktop/grid/qt_text.h"
#include "desktop/window/open_rows.h"
#include "velda_base/host/wait_cursor.h"
#include "zt_tb/model/tb_prop_view.h"

namespace zt {

MainWindow::MainWindow(std::unique_ptr<CDBDoc> doc)
    : doc_(std::move(doc)),
      savedCount_(doc_->GetMDBCtrl()->GetCurrentDB()->GetTransactionCount()),
      frame_(*this, [this](std::uint16_t id) { RunOnView(id); }) {
    doc_->MakeCurrent();
    BuildWindow();
    BuildCommands();
    BuildLists();
    watcher_.ConnectToDoc(doc_.get());
    ShowTexts();
    OpenProperties();
    Follow();
    ShowMessage(Word("IDS_DESKTOP_READY"));
}

MainWindow::~MainWindow() {
    // The tables go before the model that they show.
    area_->disconnect(this);
    following_.stop();
    findBar_->SetTable(nullptr);
    CloseDocuments();
    watcher_.DisconnectFromDoc();
    if (CDBDoc::m_pDBDoc == doc_.get()) CDBDoc::m_pDBDoc = nullptr;
}

// ---- what is shown ----

GridWidget* MainWindow::ActiveGrid() const {
    const TableDocument* document = area_->Active();
    return document ? &document->Grid() : nullptr;
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
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !actions_.empty()) ShowIcons();
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
    connect(&document->Grid(), &GridWidget::Warned, this, &MainWindow::ShowMessage);
    connect(&document->Grid(), &GridWidget::Told, this, &MainWindow::ShowMessage);
    connect(&document->Grid(), &GridWidget::FindRequested, this, &MainWindow::OpenFind);
    connect(&document->Grid(), &GridWidget::Refreshed, this, &MainWindow::FollowLater);
    connect(document, &TableHolder::TableChanged, this, [this] {
        findBar_->SetTable(ActiveGrid());
        FollowLater();
    });
    area_->Add(document);
}

void MainWindow::OpenProperties() {
    // The tab of the first table that exists comes to the front.
    const auto tables = CTBPropView::Tables();
    const auto found = std::find_if(tables.begin(), tables.end(),
                                    [](const CTBPropView::TableEntry& entry) { return entry.make != nullptr; });
    OpenTable({true, found == tables.end() ? CTBPropView::kMaterial : found->kind});
}

bool MainWindow::CloseDocument(TableDocument* document) {
    if (!LeaveOrDropRows(*document->View())) {
        area_->BringToFront(*document);
        return false;
    }
    std::vector<velda::CTBGrid*> grids;
    document->View()->GetAllGrid(grids);
    for (velda::CTBGrid* grid : grids) {
        if (const velda::Outcome kept = grid->SaveLayout(); !kept) ShowMessage(ToQt(kept.Reason()));
    }
    findBar_->SetTable(nullptr);
    area_->Remove(document);
    return true;
}

void MainWindow::CloseDocuments() {
    for (TableDocument* document : area_->Documents()) area_->Remove(document);
}

void MainWindow::CloseTable() {
    if (TableDocument* document = area_->Active()) CloseDocument(document);
}

bool MainWindow::LeaveRows() {
    for (TableDocument* document : area_->Documents()) {
        const bool left = LeaveOrDropRows(*document->View());
        document->Grid().Refresh();
        if (left) continue;
        area_->BringToFront(*document);
        return false;
    }
    return true;
}

void MainWindow::RunOnView(int id) {
    TableDocument* document = area_->Active();
    if (!document) return;
    document->View()->OnCommand(id);
    document->Grid().Refresh();
}

bool MainWindow::CanRunOnView(int id) const {
    const TableDocument* document = area_->Active();
    return document && document->View()->IsCommandEnabled(id);
}

// ---- edit and look ----

void MainWindow::Step(int (CDataBase::*step)(int), int count) {
    if (!LeaveRows()) return;
    CDataBase& database = Database();
    if ((database.*step)(count) < count && !database.GetLastReason().empty()) {
        ShowMessage(ToQt(database.GetLastReason()));
    }
}

void MainWindow::OpenFind() {
    findBar_->SetTable(ActiveGrid());
    findBar_->Open();
}

void MainWindow::ToggleFilter() {
    TableDocument* document = area_->Active();
    if (!document) return;
    FilterRow& filters = document->Filters();
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
    for (TableDocument* document : area_->Documents()) document->Reopen();
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
    for (TableDocument* document : area_->Documents()) CloseDocument(document);
    event->accept();
}

}  // namespace zt
