#pragma once

#include <QPainter>
#include <QPrinter>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

#include "velda_base/host/printer.h"
#include "velda_util/grid/tb_grid.h"

namespace zt {

/// Prints the table in front on paper, into a PDF file or into a preview. A preview lays the pages out anew when its
/// user turns the paper.
class QtPrinter : public velda::IPrinter {
public:
    /// Tells which table is printed; null for none.
    using FindTable = std::function<const velda::CTBGrid*()>;

    /// `window` is behind the dialogs; it may be null.
    explicit QtPrinter(FindTable table, QWidget* window = nullptr) : table_(std::move(table)), window_(window) {}

    /// Prints go into this PDF file from now on, without a question; an empty name prints on a printer again.
    void PrintToFile(QString path) { file_ = std::move(path); }
    /// Whether the last job was printed, or shown, to its end.
    bool IsDone() const { return done_; }

    bool Prepare(velda::PrintJob& job) override;
    void BeginJob(const velda::PrintJob& job) override;
    bool BeginPage(int page) override;
    void EndJob() override;

private:
    bool AskUser(const QString& title);
    void ShowPreview();
    /// Draws all pages as the paper of the printer is now.
    void PaintAll(QPrinter& printer) const;

    FindTable table_;
    QWidget* window_;
    QString file_;
    std::unique_ptr<QPrinter> printer_;
    QPainter painter_;
    velda::PrintJob job_;
    bool done_ = false;
};

/// The line of a title block that tells model, units and today's date.
std::string PrintHeading();

}  // namespace zt
