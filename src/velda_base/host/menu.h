#pragma once

#include <string>
#include <vector>

#include "velda_base/host/window.h"

namespace velda {

/// An entry of a menu. A separator has no command and no text.
struct MenuItem {
    int id = 0;
    std::string text{};
    bool enabled = true;

    bool IsSeparator() const { return id == 0; }
    bool operator==(const MenuItem&) const = default;
};

/// A menu as data; the host shows it.
class CMenu {
public:
    void Append(int id, std::string text, bool enabled = true) { items_.push_back({id, std::move(text), enabled}); }
    void AppendSeparator() { items_.emplace_back(); }
    /// Removes the entry of a command; false when there is none.
    bool RemoveCommand(int id);
    /// Removes the entry at a position from 0, which may be a separator; false outside the menu.
    bool RemovePosition(int position);
    /// Enables or disables the entry of a command; false when there is none.
    bool Enable(int id, bool enabled);
    /// Removes separators at the ends and next to each other.
    void DeleteUselessSeparators();

    /// Null when the menu has no entry of this command.
    const MenuItem* Find(int id) const;
    const std::vector<MenuItem>& Items() const { return items_; }

private:
    std::vector<MenuItem>::iterator At(int id);

    std::vector<MenuItem> items_;
};

/// Shows menus.
class IMenuTracker {
public:
    virtual ~IMenuTracker() = default;
    /// Shows a menu at a place of a window, which may be null, and returns the command that the user chose; 0 for none.
    virtual int Track(const CMenu& menu, CWnd* window, WindowPoint place) = 0;
};

}  // namespace velda
