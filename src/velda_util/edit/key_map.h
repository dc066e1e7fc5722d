#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "velda_util/edit/key_chord.h"
#include "velda_util/edit/navigation.h"

namespace velda {

/// What the keys and menus of a table ask for. A move also accepts an open editor, and leaves the row when it goes to
/// another one.
enum class TableCommand : std::uint8_t {
    MoveUp,
    MoveDown,
    MoveLeft,
    MoveRight,
    MoveEdgeUp,
    MoveEdgeDown,
    MoveEdgeLeft,
    MoveEdgeRight,
    MoveRowStart,
    MoveRowEnd,
    MovePageUp,
    MovePageDown,
    MoveTableStart,
    MoveTableEnd,
    ExtendUp,
    ExtendDown,
    ExtendLeft,
    ExtendRight,
    ExtendEdgeUp,
    ExtendEdgeDown,
    ExtendEdgeLeft,
    ExtendEdgeRight,
    ExtendRowStart,
    ExtendRowEnd,
    ExtendPageUp,
    ExtendPageDown,
    ExtendTableStart,
    ExtendTableEnd,
    EditInPlace,
    EnterDown,
    EnterUp,
    NextCell,
    PreviousCell,
    Cancel,
    ToggleCheck,
    OpenList,
    CloseList,
    ListUp,
    ListDown,
    SelectAll,
    SelectRow,
    SelectColumn,
    Copy,
    CopyWithHeaders,
    Cut,
    Paste,
    FillDown,
    ClearCells,
    InsertRow,
    DeleteRows,
    Find,
    FindNext,
    FindPrevious,
};

struct TableCommandInfo {
    TableCommand command;
    /// Key of the command's name in menus and help.
    std::string_view textKey;
};
/// Every command, in the order of their values.
std::span<const TableCommandInfo> TableCommands();
/// Key of a command's name.
std::string_view TextKeyOf(TableCommand command);

/// A move that a command stands for.
struct CommandMove {
    NavigationStep step;
    /// Extends the selection instead of moving the current cell.
    bool extends;
};
/// The move of a command; none for commands that do not move. EnterDown is none of them: it follows the entry of the
/// row.
std::optional<CommandMove> MoveOf(TableCommand command);

/// Where a key is pressed. Most contexts only add to a more general one.
enum class KeyContext : std::uint8_t {
    Browsing,      ///< no cell editor is open
    RowsSelected,  ///< whole rows are selected
    CheckBoxCell,  ///< the current cell is a check box
    ListCell,      ///< the current cell has a choice list
    Editing,       ///< a cell editor is open
    Replacing,     ///< it was opened by typing: arrows leave it
    OpenList,      ///< its choice list is open
};

struct KeyBinding {
    KeyContext context;
    KeyChord chord;
    TableCommand command;
};
/// The key map.
std::span<const KeyBinding> KeyBindings();

/// What decides about the meaning of a key.
struct KeySituation {
    enum class Editor : std::uint8_t { None, Replacing, InPlace };
    enum class Cell : std::uint8_t { Plain, CheckBox, List };

    Editor editor = Editor::None;
    Cell cell = Cell::Plain;
    bool listOpen = false;
    bool rowsSelected = false;
};

/// The command of a chord in a context alone.
std::optional<TableCommand> CommandIn(KeyContext context, KeyChord chord);
/// The command of a chord; none when the key is no business of the table, as a key that the open editor handles itself.
std::optional<TableCommand> CommandFor(KeySituation situation, KeyChord chord);
/// The chord to show beside a command in a menu.
std::optional<KeyChord> ChordOf(TableCommand command);

}  // namespace velda
