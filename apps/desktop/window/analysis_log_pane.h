#pragma once

#include <QDockWidget>
#include <QMainWindow>
#include <QTreeWidget>

namespace zt {

/// What a line of the analysis log is.
enum class LogEntry { Note, Warning, Error };

/// The pane of the main window that shows what the last analysis had to say. It comes up by itself with warnings and
/// errors.
class AnalysisLogPane : public QDockWidget {
    Q_OBJECT

public:
    /// Stands at the bottom of a window, hidden.
    explicit AnalysisLogPane(QMainWindow& window);

    /// Adds a line with the time of day, and brings the pane up where it is a warning or an error.
    void Add(LogEntry entry, const QString& text);
    void Clear() { lines_->clear(); }
    /// Brings the first warning or error into sight, and chooses it.
    void ShowFirstFault();
    /// The lines as a text, as CopyAll copies them.
    QString Text() const;
    /// Copies the chosen lines to the clipboard, or all of them.
    void Copy() const;
    void CopyAll() const;
    void ShowTexts();
    QTreeWidget& Lines() { return *lines_; }

protected:
    void changeEvent(QEvent* event) override;

private:
    QAction* MakeAction(void (AnalysisLogPane::*run)() const);
    void Paint(QTreeWidgetItem& line) const;

    QTreeWidget* lines_;
    QAction* copy_;
    QAction* copyAll_;
    QAction* clear_;
};

}  // namespace zt
