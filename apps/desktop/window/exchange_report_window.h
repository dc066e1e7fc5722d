#pragma once

#include <QDialog>
#include <QPlainTextEdit>

namespace zt {

/// Shows what became of an import or an export, and saves it as a text.
class ExchangeReportWindow : public QDialog {
    Q_OBJECT

public:
    ExchangeReportWindow(const QString& title, const QString& report, QWidget* parent);

    const QPlainTextEdit& Text() const { return *text_; }

private:
    void Save();

    QPlainTextEdit* text_;
};

}  // namespace zt
