#include "desktop/print/qt_printer.h"

#include <QDate>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrintPreviewDialog>

#include "desktop/grid/qt_text.h"
#include "desktop/print/page_painter.h"
#include "zt_db/doc/doc.h"

namespace zt {
namespace {

velda::PaperSize PaperOf(const QPrinter& printer) {
    const QRectF paper = printer.pageLayout().fullRect(QPageLayout::Point);
    return {paper.width(), paper.height()};
}

std::string UnitLabels(CDBDoc& doc) {
    T_UNIT_INDEX units;
    doc.GetUnitCtrl()->GetUnitIndexCurrent(units);
    std::string labels;
    for (const UnitQuantity quantity : {UnitQuantity::Force, UnitQuantity::Length, UnitQuantity::Temperature}) {
        int count = 0;
        const UnitChoice* choices = CUnitCtrl::Choices(quantity, count);
        const int chosen = CUnitCtrl::IndexOf(units, quantity);
        if (chosen < 0 || chosen >= count) continue;
        labels += (labels.empty() ? "" : ", ") + std::string(choices[chosen].label);
    }
    return labels;
}

}  // namespace

std::string PrintHeading() {
    CDBDoc* doc = CDBDoc::m_pDBDoc;
    const QString file = doc ? QFileInfo(ToQt(doc->GetPath())).fileName() : QString();
    const std::string model = file.isEmpty() ? FromQt(Word("IDS_DESKTOP_UNTITLED")) : FromQt(file);
    return velda::FormatText("IDS_DESKTOP_PRINT_HEADING", {model, doc ? UnitLabels(*doc) : std::string(),
                                                           FromQt(QDate::currentDate().toString(Qt::ISODate))});
}

bool QtPrinter::Prepare(velda::PrintJob& job) {
    done_ = false;
    if (!table_()) return false;
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    // The margins are those of the page layout and not of the device.
    printer_->setFullPage(true);
    printer_->setDocName(ToQt(job.title));
    if (!file_.isEmpty()) {
        printer_->setOutputFormat(QPrinter::PdfFormat);
        printer_->setOutputFileName(file_);
    } else if (!job.preview && !AskUser(ToQt(job.title))) {
        return false;
    }
    job.paper = PaperOf(*printer_);
    job.headings.push_back(PrintHeading());
    job.headings.emplace_back();  // a gap above the table
    job.textWidth = &PagePainter::TextWidth;
    return true;
}

bool QtPrinter::AskUser(const QString& title) {
    QPrintDialog dialog(printer_.get(), window_);
    dialog.setWindowTitle(title);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    return dialog.exec() == QDialog::Accepted;
}

void QtPrinter::BeginJob(const velda::PrintJob& job) {
    job_ = job;
    if (!job.preview) done_ = painter_.begin(printer_.get());
}

bool QtPrinter::BeginPage(int page) {
    if (job_.preview) return true;  // drawn when the preview asks for them
    const velda::CTBGrid* table = table_();
    const velda::PrintLayout* pages = table ? table->PrintedPages() : nullptr;
    done_ = done_ && pages && (page == 1 || printer_->newPage());
    if (done_) PagePainter(painter_, *table, job_.fontSize).Paint(pages->Page(page));
    return done_;
}

void QtPrinter::EndJob() {
    if (job_.preview) ShowPreview();
    if (painter_.isActive()) done_ = painter_.end() && done_;
    printer_.reset();
}

void QtPrinter::ShowPreview() {
    QPrintPreviewDialog dialog(printer_.get(), window_);
    dialog.setWindowTitle(Word("IDS_DESKTOP_PRINT_PREVIEW"));
    dialog.resize(900, 760);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [this](QPrinter* printer) { PaintAll(*printer); });
    done_ = true;
    dialog.exec();
}

void QtPrinter::PaintAll(QPrinter& printer) const {
    const velda::CTBGrid* table = table_();
    QPainter painter;
    if (!table || !painter.begin(&printer)) return;
    velda::PrintSettings settings{PaperOf(printer), job_.margins, job_.fontSize, {job_.title}};
    settings.titles.insert(settings.titles.end(), job_.headings.begin(), job_.headings.end());
    settings.textWidth = job_.textWidth;
    const velda::PrintLayout pages(*table, settings);
    PagePainter drawn(painter, *table, job_.fontSize);
    for (int page = 1; page <= pages.PageCount(); ++page) {
        if (page > 1 && !printer.newPage()) return;
        drawn.Paint(pages.Page(page));
    }
}

}  // namespace zt
