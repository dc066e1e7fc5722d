#pragma once

#include <span>
#include <string_view>

namespace zt {

class MainWindow;

enum class CommandMenu { File, Edit, View, Table, Load, Analysis };

/// A command of the main window. The menus, the tool bar and the shortcuts are made from the list of them.
struct WindowCommand {
    std::string_view id;
    CommandMenu menu;
    std::string_view textKey;
    std::string_view shortcut;  ///< as the toolkit reads it; empty for none
    std::string_view icon;      ///< of icons.h; empty for none
    bool onToolBar;
    bool endsGroup;  ///< a separator follows
    void (MainWindow::*run)();
    bool (MainWindow::*isEnabled)() const;
};

std::span<const WindowCommand> WindowCommands();
/// Text of a menu's title.
std::string_view MenuTextKey(CommandMenu menu);

}  // namespace zt
