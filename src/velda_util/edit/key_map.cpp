#include "velda_util/edit/key_map.h"

#include <algorithm>
#include <array>

namespace velda {
namespace {

using C = TableCommand;
using S = NavigationStep;
using X = KeyContext;

constexpr auto kCommands = std::to_array<TableCommandInfo>({
    {TableCommand::MoveUp, "IDS_TB_ENGINE_CMD_MOVE_UP"},
    {TableCommand::MoveDown, "IDS_TB_ENGINE_CMD_MOVE_DOWN"},
    {TableCommand::MoveLeft, "IDS_TB_ENGINE_CMD_MOVE_LEFT"},
    {TableCommand::MoveRight, "IDS_TB_ENGINE_CMD_MOVE_RIGHT"},
    {TableCommand::MoveEdgeUp, "IDS_TB_ENGINE_CMD_MOVE_EDGE_UP"},
    {TableCommand::MoveEdgeDown, "IDS_TB_ENGINE_CMD_MOVE_EDGE_DOWN"},
    {TableCommand::MoveEdgeLeft, "IDS_TB_ENGINE_CMD_MOVE_EDGE_LEFT"},
    {TableCommand::MoveEdgeRight, "IDS_TB_ENGINE_CMD_MOVE_EDGE_RIGHT"},
    {TableCommand::MoveRowStart, "IDS_TB_ENGINE_CMD_MOVE_ROW_START"},
    {TableCommand::MoveRowEnd, "IDS_TB_ENGINE_CMD_MOVE_ROW_END"},
    {TableCommand::MovePageUp, "IDS_TB_ENGINE_CMD_MOVE_PAGE_UP"},
    {TableCommand::MovePageDown, "IDS_TB_ENGINE_CMD_MOVE_PAGE_DOWN"},
    {TableCommand::MoveTableStart, "IDS_TB_ENGINE_CMD_MOVE_TABLE_START"},
    {TableCommand::MoveTableEnd, "IDS_TB_ENGINE_CMD_MOVE_TABLE_END"},
    {TableCommand::ExtendUp, "IDS_TB_ENGINE_CMD_EXTEND_UP"},
    {TableCommand::ExtendDown, "IDS_TB_ENGINE_CMD_EXTEND_DOWN"},
    {TableCommand::ExtendLeft, "IDS_TB_ENGINE_CMD_EXTEND_LEFT"},
    {TableCommand::ExtendRight, "IDS_TB_ENGINE_CMD_EXTEND_RIGHT"},
    {TableCommand::ExtendEdgeUp, "IDS_TB_ENGINE_CMD_EXTEND_EDGE_UP"},
    {TableCommand::ExtendEdgeDown, "IDS_TB_ENGINE_CMD_EXTEND_EDGE_DOWN"},
    {TableCommand::ExtendEdgeLeft, "IDS_TB_ENGINE_CMD_EXTEND_EDGE_LEFT"},
    {TableCommand::ExtendEdgeRight, "IDS_TB_ENGINE_CMD_EXTEND_EDGE_RIGHT"},
    {TableCommand::ExtendRowStart, "IDS_TB_ENGINE_CMD_EXTEND_ROW_START"},
    {TableCommand::ExtendRowEnd, "IDS_TB_ENGINE_CMD_EXTEND_ROW_END"},
    {TableCommand::ExtendPageUp, "IDS_TB_ENGINE_CMD_EXTEND_PAGE_UP"},
    {TableCommand::ExtendPageDown, "IDS_TB_ENGINE_CMD_EXTEND_PAGE_DOWN"},
    {TableCommand::ExtendTableStart, "IDS_TB_ENGINE_CMD_EXTEND_TABLE_START"},
    {TableCommand::ExtendTableEnd, "IDS_TB_ENGINE_CMD_EXTEND_TABLE_END"},
    {TableCommand::EditInPlace, "IDS_TB_ENGINE_CMD_EDIT_IN_PLACE"},
    {TableCommand::EnterDown, "IDS_TB_ENGINE_CMD_ENTER_DOWN"},
    {TableCommand::EnterUp, "IDS_TB_ENGINE_CMD_ENTER_UP"},
    {TableCommand::NextCell, "IDS_TB_ENGINE_CMD_NEXT_CELL"},
    {TableCommand::PreviousCell, "IDS_TB_ENGINE_CMD_PREVIOUS_CELL"},
    {TableCommand::Cancel, "IDS_TB_ENGINE_CMD_CANCEL"},
    {TableCommand::ToggleCheck, "IDS_TB_ENGINE_CMD_TOGGLE_CHECK"},
    {TableCommand::OpenList, "IDS_TB_ENGINE_CMD_OPEN_LIST"},
    {TableCommand::CloseList, "IDS_TB_ENGINE_CMD_CLOSE_LIST"},
    {TableCommand::ListUp, "IDS_TB_ENGINE_CMD_LIST_UP"},
    {TableCommand::ListDown, "IDS_TB_ENGINE_CMD_LIST_DOWN"},
    {TableCommand::SelectAll, "IDS_TB_ENGINE_CMD_SELECT_ALL"},
    {TableCommand::SelectRow, "IDS_TB_ENGINE_CMD_SELECT_ROW"},
    {TableCommand::SelectColumn, "IDS_TB_ENGINE_CMD_SELECT_COLUMN"},
    {TableCommand::Copy, "IDS_TB_ENGINE_CMD_COPY"},
    {TableCommand::CopyWithHeaders, "IDS_TB_ENGINE_CMD_COPY_WITH_HEADERS"},
    {TableCommand::Cut, "IDS_TB_ENGINE_CMD_CUT"},
    {TableCommand::Paste, "IDS_TB_ENGINE_CMD_PASTE"},
    {TableCommand::FillDown, "IDS_TB_ENGINE_CMD_FILL_DOWN"},
    {TableCommand::ClearCells, "IDS_TB_ENGINE_CMD_CLEAR_CELLS"},
    {TableCommand::InsertRow, "IDS_TB_ENGINE_CMD_INSERT_ROW"},
    {TableCommand::DeleteRows, "IDS_TB_ENGINE_CMD_DELETE_ROWS"},
    {TableCommand::Find, "IDS_TB_ENGINE_CMD_FIND"},
    {TableCommand::FindNext, "IDS_TB_ENGINE_CMD_FIND_NEXT"},
    {TableCommand::FindPrevious, "IDS_TB_ENGINE_CMD_FIND_PREVIOUS"},
});

constexpr bool InOrder() {
    for (std::size_t i = 0; i < kCommands.size(); ++i) {
        if (static_cast<std::size_t>(kCommands[i].command) != i) return false;
    }
    return true;
}
static_assert(InOrder());

struct MoveEntry {
    TableCommand command;
    CommandMove move;
};
constexpr auto kMoves = std::to_array<MoveEntry>({
    {C::MoveUp, {S::Up, false}},
    {C::MoveDown, {S::Down, false}},
    {C::MoveLeft, {S::Left, false}},
    {C::MoveRight, {S::Right, false}},
    {C::MoveEdgeUp, {S::EdgeUp, false}},
    {C::MoveEdgeDown, {S::EdgeDown, false}},
    {C::MoveEdgeLeft, {S::EdgeLeft, false}},
    {C::MoveEdgeRight, {S::EdgeRight, false}},
    {C::MoveRowStart, {S::RowStart, false}},
    {C::MoveRowEnd, {S::RowEnd, false}},
    {C::MovePageUp, {S::PageUp, false}},
    {C::MovePageDown, {S::PageDown, false}},
    {C::MoveTableStart, {S::TableStart, false}},
    {C::MoveTableEnd, {S::TableEnd, false}},
    {C::ExtendUp, {S::Up, true}},
    {C::ExtendDown, {S::Down, true}},
    {C::ExtendLeft, {S::Left, true}},
    {C::ExtendRight, {S::Right, true}},
    {C::ExtendEdgeUp, {S::EdgeUp, true}},
    {C::ExtendEdgeDown, {S::EdgeDown, true}},
    {C::ExtendEdgeLeft, {S::EdgeLeft, true}},
    {C::ExtendEdgeRight, {S::EdgeRight, true}},
    {C::ExtendRowStart, {S::RowStart, true}},
    {C::ExtendRowEnd, {S::RowEnd, true}},
    {C::ExtendPageUp, {S::PageUp, true}},
    {C::ExtendPageDown, {S::PageDown, true}},
    {C::ExtendTableStart, {S::TableStart, true}},
    {C::ExtendTableEnd, {S::TableEnd, true}},
    {C::EnterUp, {S::Up, false}},
    {C::NextCell, {S::Next, false}},
    {C::PreviousCell, {S::Previous, false}},
});

constexpr KeyChord Plain(Key key) { return {key, false, false, false}; }
constexpr KeyChord Ctrl(Key key) { return {key, true, false, false}; }
constexpr KeyChord Shift(Key key) { return {key, false, true, false}; }
constexpr KeyChord CtrlShift(Key key) { return {key, true, true, false}; }
constexpr KeyChord Alt(Key key) { return {key, false, false, true}; }

constexpr auto kBindings = std::to_array<KeyBinding>({
    {X::Browsing, Plain(Key::F2), C::EditInPlace},
    {X::Browsing, Plain(Key::Enter), C::EnterDown},
    {X::Browsing, Shift(Key::Enter), C::EnterUp},
    {X::Browsing, Plain(Key::Tab), C::NextCell},
    {X::Browsing, Shift(Key::Tab), C::PreviousCell},
    {X::Browsing, Plain(Key::Esc), C::Cancel},
    {X::Browsing, Plain(Key::Up), C::MoveUp},
    {X::Browsing, Plain(Key::Down), C::MoveDown},
    {X::Browsing, Plain(Key::Left), C::MoveLeft},
    {X::Browsing, Plain(Key::Right), C::MoveRight},
    {X::Browsing, Ctrl(Key::Up), C::MoveEdgeUp},
    {X::Browsing, Ctrl(Key::Down), C::MoveEdgeDown},
    {X::Browsing, Ctrl(Key::Left), C::MoveEdgeLeft},
    {X::Browsing, Ctrl(Key::Right), C::MoveEdgeRight},
    {X::Browsing, Plain(Key::Home), C::MoveRowStart},
    {X::Browsing, Plain(Key::End), C::MoveRowEnd},
    {X::Browsing, Plain(Key::PgUp), C::MovePageUp},
    {X::Browsing, Plain(Key::PgDn), C::MovePageDown},
    {X::Browsing, Ctrl(Key::Home), C::MoveTableStart},
    {X::Browsing, Ctrl(Key::End), C::MoveTableEnd},
    {X::Browsing, Shift(Key::Up), C::ExtendUp},
    {X::Browsing, Shift(Key::Down), C::ExtendDown},
    {X::Browsing, Shift(Key::Left), C::ExtendLeft},
    {X::Browsing, Shift(Key::Right), C::ExtendRight},
    {X::Browsing, CtrlShift(Key::Up), C::ExtendEdgeUp},
    {X::Browsing, CtrlShift(Key::Down), C::ExtendEdgeDown},
    {X::Browsing, CtrlShift(Key::Left), C::ExtendEdgeLeft},
    {X::Browsing, CtrlShift(Key::Right), C::ExtendEdgeRight},
    {X::Browsing, Shift(Key::Home), C::ExtendRowStart},
    {X::Browsing, Shift(Key::End), C::ExtendRowEnd},
    {X::Browsing, Shift(Key::PgUp), C::ExtendPageUp},
    {X::Browsing, Shift(Key::PgDn), C::ExtendPageDown},
    {X::Browsing, CtrlShift(Key::Home), C::ExtendTableStart},
    {X::Browsing, CtrlShift(Key::End), C::ExtendTableEnd},
    {X::Browsing, Ctrl(Key::A), C::SelectAll},
    {X::Browsing, Shift(Key::Space), C::SelectRow},
    {X::Browsing, Ctrl(Key::Space), C::SelectColumn},
    {X::Browsing, Ctrl(Key::C), C::Copy},
    {X::Browsing, CtrlShift(Key::C), C::CopyWithHeaders},
    {X::Browsing, Ctrl(Key::X), C::Cut},
    {X::Browsing, Ctrl(Key::V), C::Paste},
    {X::Browsing, Ctrl(Key::D), C::FillDown},
    {X::Browsing, Plain(Key::Delete), C::ClearCells},
    {X::Browsing, Plain(Key::Insert), C::InsertRow},
    {X::Browsing, Ctrl(Key::F), C::Find},
    {X::Browsing, Plain(Key::F3), C::FindNext},
    {X::Browsing, Shift(Key::F3), C::FindPrevious},

    {X::RowsSelected, Plain(Key::Delete), C::DeleteRows},

    {X::CheckBoxCell, Plain(Key::Space), C::ToggleCheck},

    {X::ListCell, Alt(Key::Down), C::OpenList},
    {X::ListCell, Plain(Key::F4), C::OpenList},

    {X::Editing, Plain(Key::Enter), C::EnterDown},
    {X::Editing, Shift(Key::Enter), C::EnterUp},
    {X::Editing, Plain(Key::Tab), C::NextCell},
    {X::Editing, Shift(Key::Tab), C::PreviousCell},
    {X::Editing, Plain(Key::Esc), C::Cancel},
    {X::Editing, Plain(Key::Up), C::MoveUp},
    {X::Editing, Plain(Key::Down), C::MoveDown},
    {X::Editing, Plain(Key::PgUp), C::MovePageUp},
    {X::Editing, Plain(Key::PgDn), C::MovePageDown},
    {X::Editing, Ctrl(Key::F), C::Find},
    {X::Editing, Plain(Key::F3), C::FindNext},
    {X::Editing, Shift(Key::F3), C::FindPrevious},

    {X::Replacing, Plain(Key::F2), C::EditInPlace},
    {X::Replacing, Plain(Key::Left), C::MoveLeft},
    {X::Replacing, Plain(Key::Right), C::MoveRight},
    {X::Replacing, Ctrl(Key::Up), C::MoveEdgeUp},
    {X::Replacing, Ctrl(Key::Down), C::MoveEdgeDown},
    {X::Replacing, Ctrl(Key::Left), C::MoveEdgeLeft},
    {X::Replacing, Ctrl(Key::Right), C::MoveEdgeRight},
    {X::Replacing, Plain(Key::Home), C::MoveRowStart},
    {X::Replacing, Plain(Key::End), C::MoveRowEnd},
    {X::Replacing, Ctrl(Key::Home), C::MoveTableStart},
    {X::Replacing, Ctrl(Key::End), C::MoveTableEnd},

    {X::OpenList, Plain(Key::Up), C::ListUp},
    {X::OpenList, Plain(Key::Down), C::ListDown},
    {X::OpenList, Plain(Key::Esc), C::CloseList},
    {X::OpenList, Alt(Key::Up), C::CloseList},
    {X::OpenList, Alt(Key::Down), C::CloseList},
    {X::OpenList, Plain(Key::F4), C::CloseList},
});

/// The contexts of a situation, the most particular one first.
struct ContextEntry {
    KeyContext context;
    bool (*applies)(const KeySituation&);
};
bool IsEditing(const KeySituation& situation) { return situation.editor != KeySituation::Editor::None; }
constexpr auto kContexts = std::to_array<ContextEntry>({
    {X::OpenList, [](const KeySituation& s) { return s.listOpen; }},
    {X::ListCell, [](const KeySituation& s) { return s.cell == KeySituation::Cell::List; }},
    {X::CheckBoxCell, [](const KeySituation& s) { return s.cell == KeySituation::Cell::CheckBox && !IsEditing(s); }},
    {X::RowsSelected, [](const KeySituation& s) { return s.rowsSelected && !IsEditing(s); }},
    {X::Replacing, [](const KeySituation& s) { return s.editor == KeySituation::Editor::Replacing; }},
    {X::Editing, IsEditing},
    {X::Browsing, [](const KeySituation& s) { return !IsEditing(s); }},
});

}  // namespace

std::span<const TableCommandInfo> TableCommands() { return kCommands; }

std::string_view TextKeyOf(TableCommand command) { return kCommands[static_cast<std::size_t>(command)].textKey; }

std::optional<CommandMove> MoveOf(TableCommand command) {
    const auto found =
        std::find_if(kMoves.begin(), kMoves.end(), [command](const MoveEntry& e) { return e.command == command; });
    return found == kMoves.end() ? std::nullopt : std::optional(found->move);
}

std::span<const KeyBinding> KeyBindings() { return kBindings; }

std::optional<TableCommand> CommandIn(KeyContext context, KeyChord chord) {
    const auto found = std::find_if(kBindings.begin(), kBindings.end(), [&](const KeyBinding& binding) {
        return binding.context == context && binding.chord == chord;
    });
    return found == kBindings.end() ? std::nullopt : std::optional(found->command);
}

std::optional<TableCommand> CommandFor(KeySituation situation, KeyChord chord) {
    for (const ContextEntry& entry : kContexts) {
        if (!entry.applies(situation)) continue;
        if (const auto command = CommandIn(entry.context, chord)) return command;
    }
    return std::nullopt;
}

std::optional<KeyChord> ChordOf(TableCommand command) {
    const auto found = std::find_if(kBindings.begin(), kBindings.end(),
                                    [command](const KeyBinding& binding) { return binding.command == command; });
    return found == kBindings.end() ? std::nullopt : std::optional(found->chord);
}

}  // namespace velda
