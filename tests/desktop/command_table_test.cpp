#include "desktop/window/command_table.h"

#include <QKeySequence>
#include <set>
#include <string>

#include "desktop/window/icons.h"
#include "velda_lib/language.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

TEST(CommandTable, NamesEachCommandOnce) {
    std::set<std::string_view> ids;
    for (const WindowCommand& command : WindowCommands()) EXPECT_TRUE(ids.insert(command.id).second) << command.id;
}

TEST(CommandTable, GivesEachShortcutToOneCommand) {
    std::set<std::string> shortcuts;
    for (const WindowCommand& command : WindowCommands()) {
        if (command.shortcut.empty()) continue;
        const QKeySequence keys(QString::fromStdString(std::string(command.shortcut)));
        EXPECT_FALSE(keys.isEmpty() || keys[0].key() == Qt::Key_unknown) << command.shortcut;
        EXPECT_TRUE(shortcuts.insert(keys.toString().toStdString()).second) << command.shortcut;
    }
}

TEST(CommandTable, HasAPictureForEachToolButton) {
    for (const WindowCommand& command : WindowCommands()) {
        const bool isDrawn = !IconOf(command.icon, Qt::black, Qt::gray).isNull();
        EXPECT_TRUE(isDrawn || !command.onToolBar) << command.id;
    }
    EXPECT_TRUE(IconOf("", Qt::black, Qt::gray).isNull());
}

TEST(CommandTable, HasTextsInBothLanguages) {
    for (const velda::Language language : {velda::Language::English, velda::Language::Korean}) {
        for (const WindowCommand& command : WindowCommands()) {
            EXPECT_TRUE(velda::CatalogOf(language).Find(command.textKey)) << command.textKey;
            EXPECT_TRUE(velda::CatalogOf(language).Find(MenuTextKey(command.menu))) << command.id;
        }
    }
}

}  // namespace
}  // namespace zt
