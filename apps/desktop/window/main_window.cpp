#include "desktop/window/main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QStatusBar>

#include "desktop/grid/qt_text.h"
#include "desktop/window/table_view.h"
#include "zt_tb/model/tb_thik.h"

namespace zt {

MainWindow::MainWindow(std::unique_ptr<CDBDoc> doc) : doc_(std::move(doc)), tabs_(new QTabWidget(this)) {
    doc_->MakeCurrent();
    tabs_->setDocumentMode(true);
    setCentralWidget(tabs_);
    AddActions();
    AddPage(std::make_unique<SingleTableView<CTBThik>>(*doc_), Word("IDS_DESKTOP_TABLE_THIK"));
    resize(1000, 640);
    ShowTitle();
    statusBar()->showMessage(Word("IDS_DESKTOP_READY"));
}

MainWindow::~MainWindow() {
    for (const Page& page : pages_) page.grid->SetGrid(nullptr);
    pages_.clear();
    if (CDBDoc::m_pDBDoc == doc_.get()) CDBDoc::m_pDBDoc = nullptr;
}

GridWidget* MainWindow::ActiveGrid() const { return qobject_cast<GridWidget*>(tabs_->currentWidget()); }

void MainWindow::AddPage(std::unique_ptr<CTBView> view, const QString& title) {
    auto* grid = new GridWidget(tabs_);
    grid->SetGrid(view->GetActiveGrid());
    connect(grid, &GridWidget::Warned, this, &MainWindow::ShowMessage);
    connect(grid, &GridWidget::Told, this, &MainWindow::ShowMessage);
    tabs_->addTab(grid, title);
    pages_.push_back({std::move(view), grid});
    if (pages_.size() == 1) grid->setFocus();
}

void MainWindow::AddActions() {
    QMenu* file = menuBar()->addMenu(Word("IDS_DESKTOP_MENU_FILE"));
    file->addAction(Word("IDS_DESKTOP_SAVE"), QKeySequence::Save, this, &MainWindow::Save);
    file->addSeparator();
    file->addAction(Word("IDS_DESKTOP_QUIT"), QKeySequence::Quit, this, &QWidget::close);
    QMenu* edit = menuBar()->addMenu(Word("IDS_DESKTOP_MENU_EDIT"));
    edit->addAction(Word("IDS_DESKTOP_UNDO"), QKeySequence::Undo, this, &MainWindow::Undo);
    edit->addAction(Word("IDS_DESKTOP_REDO"), QKeySequence::Redo, this, &MainWindow::Redo);
}

void MainWindow::ShowTitle() {
    const QString path = ToQt(doc_->GetPath());
    const QString name = path.isEmpty() ? Word("IDS_DESKTOP_UNTITLED") : QFileInfo(path).fileName();
    setWindowTitle(name + QStringLiteral(" - ZT"));
}

void MainWindow::ShowMessage(const QString& text) { statusBar()->showMessage(QString(text).replace('\n', ' ')); }

bool MainWindow::LeaveRows() {
    for (const Page& page : pages_) {
        const bool left = page.view->LeaveRows();
        page.grid->Refresh();
        if (left) continue;
        tabs_->setCurrentWidget(page.grid);
        return false;
    }
    return true;
}

void MainWindow::Step(int (CDataBase::*step)(int)) {
    if (!LeaveRows()) return;
    CDataBase& database = *doc_->GetMDBCtrl()->GetCurrentDB();
    if (!(database.*step)(1) && !database.GetLastReason().empty()) ShowMessage(ToQt(database.GetLastReason()));
}

void MainWindow::Save() {
    if (!LeaveRows()) return;
    // A model that lives in a file is written with every change.
    if (doc_->GetPath().empty()) {
        const QString path = QFileDialog::getSaveFileName(this, Word("IDS_DESKTOP_SAVE"), {}, QStringLiteral("*.ztm"));
        if (path.isEmpty()) return;
        if (const velda::Outcome saved = doc_->SaveAs(FromQt(path)); !saved) {
            ShowMessage(ToQt(saved.Reason()));
            return;
        }
        ShowTitle();
    }
    ShowMessage(Word("IDS_DESKTOP_SAVED"));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!LeaveRows()) {
        event->ignore();
        return;
    }
    for (const Page& page : pages_) {
        if (const velda::Outcome kept = page.grid->Grid()->SaveLayout(); !kept) ShowMessage(ToQt(kept.Reason()));
    }
    event->accept();
}

}  // namespace zt
