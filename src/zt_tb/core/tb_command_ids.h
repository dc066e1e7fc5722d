#pragma once

#include <algorithm>
#include <span>

namespace zt {

/// Identifiers of the commands of table views.
namespace CommandId {
inline constexpr int FilePrint = 57607;
inline constexpr int FilePrintDirect = 57608;
inline constexpr int FilePrintPreview = 57609;
inline constexpr int EditCopy = 57634;
inline constexpr int EditFind = 57636;
inline constexpr int EditPaste = 57637;

inline constexpr int Sort = 46500;
inline constexpr int Graph = 46501;
inline constexpr int ChangeUnit = 46502;
inline constexpr int FitWidth = 46503;
inline constexpr int Style = 46504;
inline constexpr int Color = 46505;
inline constexpr int FindNext = 46506;
inline constexpr int LockColumns = 46507;
inline constexpr int UnlockColumns = 46508;
// The same commands on the tool bar.
inline constexpr int SortToolBar = 46509;
inline constexpr int FitWidthToolBar = 46510;
}  // namespace CommandId

/// A command of a view class: what it does, and whether it can be done now.
template <class View>
struct ViewCommand {
    int id;
    void (View::*run)();
    bool (View::*isEnabled)() const;
};

/// Whether a command of a list can be given now.
template <class View>
bool IsEnabled(std::span<const ViewCommand<View>> commands, const View& view, int id) {
    return std::any_of(commands.begin(), commands.end(), [&](const ViewCommand<View>& command) {
        return command.id == id && (view.*command.isEnabled)();
    });
}

/// Runs a command of a list; false when it is none of them or is disabled.
template <class View>
bool Run(std::span<const ViewCommand<View>> commands, View& view, int id) {
    for (const ViewCommand<View>& command : commands) {
        if (command.id != id || !(view.*command.isEnabled)()) continue;
        (view.*command.run)();
        return true;
    }
    return false;
}

}  // namespace zt
