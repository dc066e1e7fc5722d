// The parts of the main window and their texts.

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "desktop/grid/qt_text.h"
#include "desktop/window/icons.h"
#include "desktop/window/main_window.h"
#include "desktop/window/recent_files.h"

namespace zt {
namespace {

struct ThemeEntry {
    Theme theme;
    std::string_view textKey;
};
constexpr ThemeEntry kThemes[] = {
    {Theme::System, "IDS_DESKTOP_THEME_SYSTEM"},
    {Theme::Light, "IDS_DESKTOP_THEME_LIGHT"},
    {Theme::Dark, "IDS_DESKTOP_THEME_DARK"},
};

}  // namespace

void MainWindow::BuildWindow() {
    area_ = new DocumentArea;
    findBar_ = new FindBar;
    findBar_->hide();
    auto* center = new QWidget;
    auto* layout = new QVBoxLayout(center);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(area_, 1);
    layout->addWidget(findBar_);
    setCentralWidget(center);
    connect(area_, &DocumentArea::ActiveChanged, this, [this] {
        findBar_->SetTable(ActiveGrid());
        FollowLater();
    });
    connect(area_, &DocumentArea::CloseRequested, this, &MainWindow::CloseDocument);

    tree_ = new TableTree;
    treePane_ = new QDockWidget(this);
    treePane_->setObjectName(QStringLiteral("tables"));
    treePane_->setWidget(tree_);
    addDockWidget(Qt::LeftDockWidgetArea, treePane_);
    connect(tree_, &TableTree::TableChosen, this, &MainWindow::OpenTable);
    connect(tree_, &TableTree::PaneChosen, this, &MainWindow::OpenPane);
    modelPane_ = new ModelPane(*this);
    logPane_ = new AnalysisLogPane(*this);
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget* /*from*/, const QWidget* to) { FocusMoved(to); });

    fields_ = new StatusFields(*statusBar());
    connect(fields_, &StatusFields::UnitsChosen, this, &MainWindow::UseUnits);
    // The menu that asks is made anew with the texts.
    connect(fields_, &StatusFields::LanguageChosen, this, &MainWindow::UseLanguage, Qt::QueuedConnection);
    following_.setSingleShot(true);
    following_.setInterval(0);
    connect(&following_, &QTimer::timeout, this, &MainWindow::Follow);
    resize(1180, 720);
    resizeDocks({treePane_}, {260}, Qt::Horizontal);
}

void MainWindow::BuildCommands() {
    toolBar_ = addToolBar(QString());
    toolBar_->setObjectName(QStringLiteral("commands"));
    toolBar_->setMovable(false);
    toolBar_->setIconSize({20, 20});
    for (const WindowCommand& command : WindowCommands()) {
        const auto menu = static_cast<std::size_t>(command.menu);
        while (menus_.size() <= menu) menus_.push_back(menuBar()->addMenu(QString()));
        QAction* action = menus_[menu]->addAction(QString());
        action->setShortcut(QKeySequence(ToQt(command.shortcut)));
        connect(action, &QAction::triggered, this, [this, &command] { (this->*command.run)(); });
        actions_.push_back(action);
        if (command.onToolBar) toolBar_->addAction(action);
        if (!command.endsGroup) continue;
        menus_[menu]->addSeparator();
        const QList<QAction*> shown = toolBar_->actions();
        if (!shown.isEmpty() && !shown.last()->isSeparator()) toolBar_->addSeparator();
    }
    for (const char* id : {"model-fit", "model-plan", "model-front", "model-side", "model-isometric"}) {
        modelPane_->Tools().addAction(ActionOf(id));
    }
    ShowIcons();
}

void MainWindow::BuildLists() {
    recentMenu_ = new QMenu(this);
    menus_[static_cast<std::size_t>(CommandMenu::File)]->insertMenu(ActionOf("save"), recentMenu_);
    connect(recentMenu_, &QMenu::aboutToShow, this, &MainWindow::FillRecent);
    undoMenu_ = BuildHistory("undo", &CDataBase::GetUndoNames, &MainWindow::UndoSteps);
    redoMenu_ = BuildHistory("redo", &CDataBase::GetRedoNames, &MainWindow::RedoSteps);
    BuildThemes();
    QMenu* view = menus_[static_cast<std::size_t>(CommandMenu::View)];
    view->addAction(treePane_->toggleViewAction());
    view->addAction(modelPane_->toggleViewAction());
    view->addAction(logPane_->toggleViewAction());
    view->addMenu(themeMenu_);
    view->addMenu(&fields_->LanguageMenu());
    view->addMenu(&fields_->UnitMenu());
}

QMenu* MainWindow::BuildHistory(std::string_view command, std::vector<std::string> (CDataBase::*names)() const,
                                void (MainWindow::*run)(int)) {
    auto* menu = new QMenu(this);
    auto* button = qobject_cast<QToolButton*>(toolBar_->widgetForAction(ActionOf(command)));
    button->setMenu(menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, names, run] {
        menu->clear();
        int count = 0;
        for (const std::string& name : (Database().*names)()) {
            ++count;
            menu->addAction(ToQt(name), this, [this, run, count] { (this->*run)(count); });
        }
    });
    return menu;
}

void MainWindow::BuildThemes() {
    themeMenu_ = new QMenu(this);
    auto* group = new QActionGroup(themeMenu_);
    const int current = QSettings().value(QStringLiteral("theme"), 0).toInt();
    for (const ThemeEntry& entry : kThemes) {
        QAction* action = group->addAction(themeMenu_->addAction(QString()));
        action->setCheckable(true);
        action->setChecked(static_cast<int>(entry.theme) == current);
        connect(action, &QAction::triggered, this, [this, &entry] { UseThemeOf(entry.theme); });
    }
}

void MainWindow::FillRecent() {
    recentMenu_->clear();
    for (const QString& path : RecentFiles::Paths()) {
        QAction* action =
            recentMenu_->addAction(QFileInfo(path).fileName(), this, [this, path] { OpenModelFile(path); });
        action->setStatusTip(path);
    }
    if (recentMenu_->isEmpty()) recentMenu_->addAction(Word("IDS_DESKTOP_RECENT_NONE"))->setEnabled(false);
}

QAction* MainWindow::ActionOf(std::string_view id) const {
    const auto commands = WindowCommands();
    for (std::size_t at = 0; at < commands.size(); ++at) {
        if (commands[at].id == id) return actions_[at];
    }
    return nullptr;
}

void MainWindow::ShowIcons() {
    const auto commands = WindowCommands();
    const QColor enabled = palette().color(QPalette::Active, QPalette::ButtonText);
    QColor disabled = enabled;
    disabled.setAlphaF(0.35f);
    for (std::size_t at = 0; at < commands.size(); ++at) {
        actions_[at]->setIcon(IconOf(commands[at].icon, enabled, disabled));
    }
    modelPane_->ShowIcons(enabled, disabled);
}

void MainWindow::ShowTexts() {
    const auto commands = WindowCommands();
    for (std::size_t at = 0; at < commands.size(); ++at) {
        const QString text = Word(commands[at].textKey);
        const QString shortcut = actions_[at]->shortcut().toString(QKeySequence::NativeText);
        actions_[at]->setText(text);
        const QString plain = QString(text).remove(QRegularExpression(QStringLiteral("\\(&.\\)|&|\\.\\.\\.")));
        actions_[at]->setToolTip(shortcut.isEmpty() ? plain : plain + QStringLiteral(" (") + shortcut + ')');
    }
    for (std::size_t at = 0; at < menus_.size(); ++at) {
        menus_[at]->setTitle(Word(MenuTextKey(static_cast<CommandMenu>(at))));
    }
    const QList<QAction*> themes = themeMenu_->actions();
    for (qsizetype at = 0; at < themes.size(); ++at) {
        themes[at]->setText(Word(kThemes[static_cast<std::size_t>(at)].textKey));
    }
    recentMenu_->setTitle(Word("IDS_DESKTOP_RECENT"));
    themeMenu_->setTitle(Word("IDS_DESKTOP_THEME"));
    treePane_->setWindowTitle(Word("IDS_DESKTOP_TREE"));
    tree_->ShowTexts();
    modelPane_->ShowTexts();
    logPane_->ShowTexts();
    findBar_->ShowTexts();
    fields_->ShowLanguage();
    fields_->ShowUnits(*doc_->GetUnitCtrl());
    fields_->LanguageMenu().setTitle(Word("IDS_DESKTOP_LANGUAGE"));
    fields_->UnitMenu().setTitle(Word("IDS_DESKTOP_UNITS"));
    ShowTitle();
}

}  // namespace zt
