// New, open, save and export of the main window.

#include <QFileDialog>
#include <QStatusBar>

#include "desktop/grid/qt_text.h"
#include "desktop/window/main_window.h"
#include "desktop/window/recent_files.h"
#include "desktop/window/table_exporting.h"
#include "velda_base/host/message_box.h"
#include "velda_base/host/wait_cursor.h"
#include "zt_db/post/result_keeper.h"

namespace zt {
namespace {

constexpr const char* kModelFilter = "*.ztm";

}  // namespace

bool MainWindow::MayDropModel() {
    // A model that lives in a file is written with every change.
    if (!doc_->GetPath().empty() || Database().GetTransactionCount() == savedCount_) return true;
    using velda::MessageAnswer;
    const MessageAnswer answer =
        velda::AfxMessageBox(FromQt(Word("IDS_DESKTOP_SAVE_QUESTION")), velda::MessageButtons::YesNoCancel);
    if (answer == MessageAnswer::Yes) SaveAs();
    return answer == MessageAnswer::No || !doc_->GetPath().empty();
}

void MainWindow::UseModel(std::unique_ptr<CDBDoc> doc) {
    findBar_->SetTable(nullptr);
    CloseDocuments();
    watcher_.DisconnectFromDoc();
    modelPane_->ShowDocument(nullptr);
    logPane_->Clear();
    doc_ = std::move(doc);
    savedCount_ = Database().GetTransactionCount();
    doc_->MakeCurrent();
    watcher_.ConnectToDoc(doc_.get());
    modelPane_->ShowDocument(doc_.get());
    fields_->ShowUnits(*doc_->GetUnitCtrl());
    OpenProperties();
    Follow();
}

void MainWindow::NewModel() {
    if (LeaveRows() && MayDropModel()) UseModel(CDBDoc::New());
}

void MainWindow::OpenModel() {
    const QString path = QFileDialog::getOpenFileName(this, Word("IDS_DESKTOP_OPEN").remove('&'), {}, kModelFilter);
    if (!path.isEmpty()) OpenModelFile(path);
}

bool MainWindow::OpenModelFile(const QString& path) {
    if (!LeaveRows() || !MayDropModel()) return false;
    OpenReport report;
    std::unique_ptr<CDBDoc> doc;
    {
        const velda::WaitCursor wait;
        doc = CDBDoc::Open(FromQt(path), OpenMode::Normal, report);
    }
    if (!doc) {
        RecentFiles::Remove(path);
        velda::AfxMessageBox(report.message);
        return false;
    }
    UseModel(std::move(doc));
    RecentFiles::Add(path);
    if (!report.message.empty()) ShowMessage(ToQt(report.message));
    if (!doc_->GetResults().Message().empty()) ShowMessage(ToQt(doc_->GetResults().Message()));
    return true;
}

bool MainWindow::SaveTo(const QString& path) {
    const velda::WaitCursor wait;
    if (const velda::Outcome saved = doc_->SaveAs(FromQt(path)); !saved) {
        velda::AfxMessageBox(saved.Reason());
        return false;
    }
    savedCount_ = Database().GetTransactionCount();
    RecentFiles::Add(path);
    ShowTitle();
    return true;
}

void MainWindow::Save() {
    if (!LeaveRows()) return;
    // A model that lives in a file is written with every change.
    if (doc_->GetPath().empty()) {
        SaveAs();
    } else {
        ShowMessage(Word("IDS_DESKTOP_SAVED"));
    }
}

void MainWindow::SaveAs() {
    if (!LeaveRows()) return;
    const QString title = Word("IDS_DESKTOP_SAVE_AS").remove('&');
    QFileDialog dialog(this, title, {}, kModelFilter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("ztm"));
    if (dialog.exec() != QDialog::Accepted || !SaveTo(dialog.selectedFiles().front())) return;
    ShowMessage(Word("IDS_DESKTOP_SAVED"));
}

void MainWindow::ExportTable() {
    if (TableHolder* holder = ActiveHolder()) ExportTo({holder}, false);
}

void MainWindow::ExportAll() { ExportTo(Holders(), true); }

void MainWindow::ExportTo(const std::vector<TableHolder*>& holders, bool allTabs) {
    if (!LeaveRows()) return;
    std::vector<TableToExport> tables;
    for (const TableHolder* holder : holders) {
        const CTBView& view = *holder->View();
        for (int tab = 0; tab < view.GetTabCount(); ++tab) {
            auto* grid = dynamic_cast<velda::CTBGrid*>(view.GetTabWnd()->GetPane(tab));
            const bool wanted = allTabs || tab == view.GetCurrentTab();
            if (grid && wanted) tables.push_back({grid, view.GetTabLabel(tab)});
        }
        if (view.GetTabCount() == 0 && view.GetActiveGrid()) tables.push_back({view.GetActiveGrid(), view.GetTitle()});
    }
    if (tables.empty()) return;
    QFileDialog dialog(this, Word("IDS_DESKTOP_EXPORT").remove('&'), {}, QStringLiteral("*.xlsx;;*.csv"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("xlsx"));
    if (dialog.exec() != QDialog::Accepted) return;
    bool stopped = false;
    const velda::Outcome outcome = ExportTables(tables, dialog.selectedFiles().front(), stopped);
    if (stopped) {
        ShowMessage(Word("IDS_DESKTOP_EXPORT_STOPPED"));
    } else if (outcome) {
        ShowMessage(Word("IDS_DESKTOP_EXPORTED"));
    } else {
        velda::AfxMessageBox(outcome.Reason());
    }
}

}  // namespace zt
