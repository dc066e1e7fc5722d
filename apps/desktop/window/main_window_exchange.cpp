// Import and export of whole models of the main window.

#include <QFileDialog>
#include <QFileInfo>

#include "desktop/grid/qt_text.h"
#include "desktop/window/exchange_report_window.h"
#include "desktop/window/main_window.h"
#include "velda_base/host/progress.h"
#include "zt_db/exchange/library_lookup.h"
#include "zt_db/exchange/model_exchange.h"

namespace zt {
namespace {

std::filesystem::path PathOf(const QString& path) { return std::filesystem::path(path.toStdU16String()); }

}  // namespace

bool MainWindow::ImportFrom(const QString& path) {
    if (!LeaveRows()) return false;
    ExchangeReport report;
    bool done = false;
    {
        // How many rows come is not known beforehand.
        velda::Progress progress(FromQt(Word("IDS_DESKTOP_IMPORTING")), 0);
        const ImportOptions options{.lookup = &CompleteFromLibrary,
                                    .progress = [&](std::string_view, std::uint64_t) { return progress.Step(0); }};
        done = ImportModel(Database(), PathOf(path), options, report);
    }
    ShowMessage(Word(done ? "IDS_DESKTOP_IMPORTED" : "IDS_DESKTOP_NOT_IMPORTED"));
    ShowReport(Word("IDS_DESKTOP_IMPORT").remove('&'), report);
    return done;
}

void MainWindow::ShowReport(const QString& title, const ExchangeReport& report) {
    ExchangeReportWindow(title, ToQt(report.Text()), this).exec();
}

void MainWindow::ImportFile() {
    const QString path =
        QFileDialog::getOpenFileName(this, Word("IDS_DESKTOP_IMPORT").remove('&'), {}, QStringLiteral("*.xlsx"));
    if (!path.isEmpty()) ImportFrom(path);
}

void MainWindow::ImportFolder() {
    const QString path = QFileDialog::getExistingDirectory(this, Word("IDS_DESKTOP_IMPORT_FOLDER").remove('&'));
    if (!path.isEmpty()) ImportFrom(path);
}

bool MainWindow::ExportModelTo(const QString& path) {
    if (!LeaveRows()) return false;
    const bool isWorkbook = path.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive);
    ExchangeReport report;
    velda::Outcome done = velda::Outcome::Done();
    {
        velda::Progress progress(FromQt(Word("IDS_DESKTOP_EXPORTING")), 0);
        done = ExportModel(
            Database(), PathOf(path), isWorkbook ? ExchangeFormat::Saf : ExchangeFormat::Csv,
            [&](std::string_view, std::uint64_t) { return progress.Step(0); }, report);
    }
    ShowMessage(done ? Word("IDS_DESKTOP_EXPORTED") : ToQt(done.Reason()));
    ShowReport(Word("IDS_DESKTOP_EXPORT_MODEL").remove('&'), report);
    return static_cast<bool>(done);
}

void MainWindow::ExportWholeModel() {
    QFileDialog dialog(this, Word("IDS_DESKTOP_EXPORT_MODEL").remove('&'), {}, QStringLiteral("SAF (*.xlsx);;CSV (*)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    if (dialog.exec() != QDialog::Accepted) return;
    QString path = dialog.selectedFiles().front();
    const bool isWorkbook = dialog.selectedNameFilter().startsWith(QLatin1String("SAF"));
    if (isWorkbook && QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".xlsx");
    ExportModelTo(path);
}

}  // namespace zt
