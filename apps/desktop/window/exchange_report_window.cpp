#include "desktop/window/exchange_report_window.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPushButton>
#include <QSaveFile>
#include <QVBoxLayout>

#include "desktop/grid/qt_text.h"
#include "velda_base/host/message_box.h"

namespace zt {

ExchangeReportWindow::ExchangeReportWindow(const QString& title, const QString& report, QWidget* parent)
    : QDialog(parent), text_(new QPlainTextEdit(report)) {
    setWindowTitle(title);
    text_->setReadOnly(true);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* buttons = new QDialogButtonBox;
    QPushButton* save = buttons->addButton(Word("IDS_DESKTOP_SAVE_REPORT"), QDialogButtonBox::ActionRole);
    QPushButton* close = buttons->addButton(Word("IDS_DESKTOP_CLOSE"), QDialogButtonBox::AcceptRole);
    close->setDefault(true);
    connect(save, &QPushButton::clicked, this, &ExchangeReportWindow::Save);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_, 1);
    layout->addWidget(buttons);
    resize(760, 420);
}

void ExchangeReportWindow::Save() {
    const QString path = QFileDialog::getSaveFileName(this, windowTitle(), {}, QStringLiteral("*.txt"));
    if (path.isEmpty()) return;
    QSaveFile file(path);
    const QByteArray bytes = text_->toPlainText().toUtf8();
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    if (!written) velda::AfxMessageBox(velda::FormatText("IDS_DESKTOP_REPORT_NOT_SAVED", {FromQt(path)}));
}

}  // namespace zt
