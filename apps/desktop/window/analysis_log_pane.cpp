#include "desktop/window/analysis_log_pane.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QStyle>
#include <QTime>
#include <optional>

#include "desktop/grid/qt_text.h"
#include "velda_base/host/application_host.h"

namespace zt {
namespace {

constexpr int kTime = 0;  ///< columns
constexpr int kText = 1;
constexpr int kEntry = Qt::UserRole;
constexpr int kIconSide = 16;
constexpr int kUsualHeight = 170;
constexpr int kDarkest = 128;  ///< a background below this lightness is dark

/// How the lines of a kind look, on light and on dark ground.
struct EntryLook {
    std::string_view nameKey;
    std::optional<QStyle::StandardPixmap> icon;
    QColor onLight;
    QColor onDark;
};

const EntryLook& LookOf(LogEntry entry) {
    static const EntryLook looks[] = {
        {"IDS_DESKTOP_ANALYSIS_NOTE", {}, {}, {}},
        {"IDS_DESKTOP_ANALYSIS_WARNING", QStyle::SP_MessageBoxWarning, "#8a5200", "#f0b64a"},
        {"IDS_DESKTOP_ANALYSIS_ERROR", QStyle::SP_MessageBoxCritical, "#b3261e", "#ff8f85"},
    };
    return looks[static_cast<int>(entry)];
}

/// Notes have a clear icon, so that their texts begin where those of the others begin.
QIcon IconOf(const EntryLook& look, const QStyle& style) {
    if (look.icon) return style.standardIcon(*look.icon);
    QPixmap clear(kIconSide, kIconSide);
    clear.fill(Qt::transparent);
    return clear;
}

LogEntry EntryOf(const QTreeWidgetItem& line) { return static_cast<LogEntry>(line.data(kText, kEntry).toInt()); }

/// A line as it stands in a text: what is no note says what it is.
QString LineText(const QTreeWidgetItem& line) {
    const LogEntry entry = EntryOf(line);
    const QString kind = entry == LogEntry::Note ? QString() : Word(LookOf(entry).nameKey) + QStringLiteral(": ");
    return line.text(kTime) + QLatin1Char('\t') + kind + line.text(kText) + QLatin1Char('\n');
}

void PutOnClipboard(const QString& text) {
    if (!text.isEmpty()) velda::ApplicationHost::Current().GetClipboard().SetText(FromQt(text));
}

}  // namespace

AnalysisLogPane::AnalysisLogPane(QMainWindow& window) : QDockWidget(&window), lines_(new QTreeWidget) {
    setObjectName(QStringLiteral("analysis-log"));
    lines_->setColumnCount(2);
    lines_->setRootIsDecorated(false);
    lines_->setUniformRowHeights(true);
    lines_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lines_->header()->setSectionResizeMode(kTime, QHeaderView::ResizeToContents);
    lines_->setContextMenuPolicy(Qt::ActionsContextMenu);
    copy_ = MakeAction(&AnalysisLogPane::Copy);
    copy_->setShortcut(QKeySequence::Copy);
    copy_->setShortcutContext(Qt::WidgetShortcut);
    copyAll_ = MakeAction(&AnalysisLogPane::CopyAll);
    clear_ = new QAction(lines_);
    lines_->addAction(clear_);
    connect(clear_, &QAction::triggered, this, &AnalysisLogPane::Clear);
    setWidget(lines_);
    window.addDockWidget(Qt::BottomDockWidgetArea, this);
    window.resizeDocks({this}, {kUsualHeight}, Qt::Vertical);
    hide();
}

QAction* AnalysisLogPane::MakeAction(void (AnalysisLogPane::*run)() const) {
    auto* action = new QAction(lines_);
    lines_->addAction(action);
    connect(action, &QAction::triggered, this, run);
    return action;
}

void AnalysisLogPane::Add(LogEntry entry, const QString& text) {
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
    auto* line = new QTreeWidgetItem(lines_, {time, text});
    line->setData(kText, kEntry, static_cast<int>(entry));
    line->setToolTip(kText, text);
    Paint(*line);
    lines_->scrollToItem(line);
    if (entry == LogEntry::Note) return;
    show();
    raise();
}

void AnalysisLogPane::Paint(QTreeWidgetItem& line) const {
    const EntryLook& look = LookOf(EntryOf(line));
    line.setIcon(kText, IconOf(look, *style()));
    line.setData(kText, Qt::AccessibleTextRole, Word(look.nameKey) + QStringLiteral(": ") + line.text(kText));
    const bool isDark = palette().color(QPalette::Base).lightness() < kDarkest;
    const QColor color = isDark ? look.onDark : look.onLight;
    line.setData(kText, Qt::ForegroundRole, color.isValid() ? QVariant(QBrush(color)) : QVariant());
}

void AnalysisLogPane::ShowFirstFault() {
    for (int at = 0; at < lines_->topLevelItemCount(); ++at) {
        QTreeWidgetItem* line = lines_->topLevelItem(at);
        if (EntryOf(*line) == LogEntry::Note) continue;
        lines_->setCurrentItem(line);
        lines_->scrollToItem(line, QAbstractItemView::PositionAtCenter);
        return;
    }
}

QString AnalysisLogPane::Text() const {
    QString text;
    for (int at = 0; at < lines_->topLevelItemCount(); ++at) text += LineText(*lines_->topLevelItem(at));
    return text;
}

void AnalysisLogPane::Copy() const {
    QString text;
    for (int at = 0; at < lines_->topLevelItemCount(); ++at) {
        const QTreeWidgetItem* line = lines_->topLevelItem(at);
        if (line->isSelected()) text += LineText(*line);
    }
    PutOnClipboard(text);
}

void AnalysisLogPane::CopyAll() const { PutOnClipboard(Text()); }

void AnalysisLogPane::ShowTexts() {
    setWindowTitle(Word("IDS_DESKTOP_ANALYSIS_LOG"));
    lines_->setHeaderLabels({Word("IDS_DESKTOP_ANALYSIS_LOG_TIME"), Word("IDS_DESKTOP_ANALYSIS_LOG_TEXT")});
    lines_->setAccessibleName(windowTitle());
    copy_->setText(Word("IDS_DESKTOP_COPY"));
    copyAll_->setText(Word("IDS_DESKTOP_COPY_ALL"));
    clear_->setText(Word("IDS_DESKTOP_ANALYSIS_LOG_CLEAR"));
}

void AnalysisLogPane::changeEvent(QEvent* event) {
    QDockWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    for (int at = 0; at < lines_->topLevelItemCount(); ++at) Paint(*lines_->topLevelItem(at));
}

}  // namespace zt
