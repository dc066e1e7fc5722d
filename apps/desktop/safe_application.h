#pragma once

#include <QApplication>
#include <QSet>
#include <string>

namespace zt {

/// The application with a boundary around each event: what a handler throws ends the handler and not the program, and
/// is shown to the user once.
class SafeApplication : public QApplication {
    Q_OBJECT

public:
    SafeApplication(int& count, char** arguments) : QApplication(count, arguments) {}

    bool notify(QObject* receiver, QEvent* event) override;

signals:
    /// A handler has failed, for the first time or again.
    void HandlerFailed(const QString& reason);

private:
    void Report(const std::string& reason);

    QSet<QString> shown_;
};

}  // namespace zt
