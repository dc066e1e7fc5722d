#include "velda_util/edit/key_map.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velda_lib/language.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using Command = TableCommand;
using Editor = KeySituation::Editor;
using Cell = KeySituation::Cell;

constexpr KeySituation kBrowsing{};
constexpr KeySituation kReplacing{Editor::Replacing};
constexpr KeySituation kInPlace{Editor::InPlace};

std::optional<Command> Press(KeySituation situation, std::string_view text) {
    const auto chord = ParseKeyChord(text);
    EXPECT_TRUE(chord) << text;
    return chord ? CommandFor(situation, *chord) : std::nullopt;
}

TEST(KeyChord, ReadsAndPrintsEveryName) {
    for (const char* text : {"F1",        "F2",
                             "F12",       "Enter",
                             "Tab",       "Esc",
                             "Delete",    "Insert",
                             "Backspace", "Space",
                             "Up",        "Down",
                             "Left",      "Right",
                             "Home",      "End",
                             "PgUp",      "PgDn",
                             "A",         "Z",
                             "0",         "9",
                             "Shift+Tab", "Ctrl+Shift+C",
                             "Alt+Down",  "Ctrl+Shift+Alt+F4"}) {
        const auto chord = ParseKeyChord(text);
        ASSERT_TRUE(chord) << text;
        EXPECT_EQ(KeyChordText(*chord), text);
    }
}

TEST(KeyChord, TakesNoNoticeOfCaseAndOrder) {
    EXPECT_EQ(ParseKeyChord("shift+CTRL+c"), (KeyChord{Key::C, true, true, false}));
    EXPECT_EQ(ParseKeyChord("pgdn"), (KeyChord{Key::PgDn}));
}

TEST(KeyChord, WhatIsNoChordGivesNone) {
    for (const char* text : {"", "+", "Ctrl", "Ctrl+", "+C", "Ctrl++C", "Ctrl+Ctrl+C", "Meta+C", "F13", "F0",
                             "Ctrl+Foo", "CC", " C", "C+Ctrl", "\xC3\xA9", "["}) {
        EXPECT_FALSE(ParseKeyChord(text)) << text;
    }
}

TEST(KeyMap, NoChordStandsTwiceInAContext) {
    std::set<std::pair<KeyContext, KeyChord>> seen;
    for (const KeyBinding& binding : KeyBindings()) {
        EXPECT_TRUE(seen.insert({binding.context, binding.chord}).second) << KeyChordText(binding.chord);
    }
}

TEST(KeyMap, EveryChordCanBeTypedInAScript) {
    for (const KeyBinding& binding : KeyBindings()) {
        EXPECT_EQ(ParseKeyChord(KeyChordText(binding.chord)), binding.chord);
    }
}

TEST(KeyMap, EveryCommandHasANameOfItsOwnInEveryLanguage) {
    for (const Language language : {Language::English, Language::Korean}) {
        std::set<std::string_view> names;
        for (const TableCommandInfo& info : TableCommands()) {
            const auto text = CatalogOf(language).Find(info.textKey);
            ASSERT_TRUE(text) << info.textKey;
            EXPECT_TRUE(names.insert(*text).second) << *text;
            EXPECT_EQ(TextKeyOf(info.command), info.textKey);
        }
    }
}

TEST(KeyMap, EveryCommandHasAKey) {
    for (const TableCommandInfo& info : TableCommands()) {
        const auto chord = ChordOf(info.command);
        ASSERT_TRUE(chord) << info.textKey;
        const auto bound = std::any_of(KeyBindings().begin(), KeyBindings().end(), [&](const KeyBinding& binding) {
            return binding.command == info.command && binding.chord == *chord;
        });
        EXPECT_TRUE(bound) << info.textKey;
    }
}

TEST(KeyMap, BrowsingHasTheKeysOfASpreadsheet) {
    const std::vector<std::pair<std::string_view, Command>> keys = {
        {"F2", Command::EditInPlace},
        {"Enter", Command::EnterDown},
        {"Shift+Enter", Command::EnterUp},
        {"Tab", Command::NextCell},
        {"Shift+Tab", Command::PreviousCell},
        {"Esc", Command::Cancel},
        {"Up", Command::MoveUp},
        {"Ctrl+Left", Command::MoveEdgeLeft},
        {"Home", Command::MoveRowStart},
        {"End", Command::MoveRowEnd},
        {"PgUp", Command::MovePageUp},
        {"PgDn", Command::MovePageDown},
        {"Ctrl+Home", Command::MoveTableStart},
        {"Ctrl+End", Command::MoveTableEnd},
        {"Shift+Down", Command::ExtendDown},
        {"Ctrl+Shift+Right", Command::ExtendEdgeRight},
        {"Shift+PgDn", Command::ExtendPageDown},
        {"Ctrl+Shift+End", Command::ExtendTableEnd},
        {"Ctrl+A", Command::SelectAll},
        {"Shift+Space", Command::SelectRow},
        {"Ctrl+Space", Command::SelectColumn},
        {"Ctrl+C", Command::Copy},
        {"Ctrl+Shift+C", Command::CopyWithHeaders},
        {"Ctrl+X", Command::Cut},
        {"Ctrl+V", Command::Paste},
        {"Ctrl+D", Command::FillDown},
        {"Delete", Command::ClearCells},
        {"Insert", Command::InsertRow},
        {"Ctrl+F", Command::Find},
        {"F3", Command::FindNext},
        {"Shift+F3", Command::FindPrevious},
    };
    for (const auto& [text, command] : keys) EXPECT_EQ(Press(kBrowsing, text), command) << text;
}

TEST(KeyMap, AKeyWithoutMeaningGivesNone) {
    EXPECT_EQ(Press(kBrowsing, "F9"), std::nullopt);
    EXPECT_EQ(Press(kBrowsing, "Space"), std::nullopt);
    EXPECT_EQ(Press(kBrowsing, "A"), std::nullopt);
    EXPECT_EQ(Press(kBrowsing, "Alt+Down"), std::nullopt);
    EXPECT_EQ(CommandIn(KeyContext::CheckBoxCell, {Key::Enter}), std::nullopt);
}

TEST(KeyMap, DeleteRemovesRowsOnlyWhenWholeRowsAreSelected) {
    KeySituation rows;
    rows.rowsSelected = true;
    EXPECT_EQ(Press(rows, "Delete"), Command::DeleteRows);
    EXPECT_EQ(Press(rows, "Ctrl+C"), Command::Copy);
    rows.editor = Editor::Replacing;
    EXPECT_EQ(Press(rows, "Delete"), std::nullopt);
}

TEST(KeyMap, SpaceSwitchesACheckBox) {
    KeySituation checkBox;
    checkBox.cell = Cell::CheckBox;
    EXPECT_EQ(Press(checkBox, "Space"), Command::ToggleCheck);
    EXPECT_EQ(Press(checkBox, "Shift+Space"), Command::SelectRow);
    checkBox.rowsSelected = true;
    EXPECT_EQ(Press(checkBox, "Space"), Command::ToggleCheck);
    EXPECT_EQ(Press(checkBox, "Delete"), Command::DeleteRows);
}

TEST(KeyMap, AListOpensAndClosesByKey) {
    KeySituation list;
    list.cell = Cell::List;
    EXPECT_EQ(Press(list, "Alt+Down"), Command::OpenList);
    EXPECT_EQ(Press(list, "F4"), Command::OpenList);
    EXPECT_EQ(Press(list, "Down"), Command::MoveDown);
    list.editor = Editor::Replacing;
    EXPECT_EQ(Press(list, "Alt+Down"), Command::OpenList);
    list.listOpen = true;
    EXPECT_EQ(Press(list, "Down"), Command::ListDown);
    EXPECT_EQ(Press(list, "Up"), Command::ListUp);
    EXPECT_EQ(Press(list, "F4"), Command::CloseList);
    EXPECT_EQ(Press(list, "Esc"), Command::CloseList);
    EXPECT_EQ(Press(list, "Enter"), Command::EnterDown);
}

TEST(KeyMap, ArrowsLeaveAnEditorThatWasOpenedByTyping) {
    EXPECT_EQ(Press(kReplacing, "Left"), Command::MoveLeft);
    EXPECT_EQ(Press(kReplacing, "Down"), Command::MoveDown);
    EXPECT_EQ(Press(kReplacing, "Home"), Command::MoveRowStart);
    EXPECT_EQ(Press(kReplacing, "F2"), Command::EditInPlace);
}

TEST(KeyMap, AnEditorInPlaceKeepsTheKeysOfItsText) {
    for (const char* text : {"Left", "Right", "Home", "End", "Ctrl+Left", "Shift+Left", "Ctrl+A", "Ctrl+C", "Ctrl+V",
                             "Ctrl+X", "Delete", "Space"}) {
        EXPECT_EQ(Press(kInPlace, text), std::nullopt) << text;
    }
    EXPECT_EQ(Press(kInPlace, "Enter"), Command::EnterDown);
    EXPECT_EQ(Press(kInPlace, "Tab"), Command::NextCell);
    EXPECT_EQ(Press(kInPlace, "Esc"), Command::Cancel);
    EXPECT_EQ(Press(kInPlace, "Up"), Command::MoveUp);
}

TEST(KeyMap, MovesTellTheirStep) {
    ASSERT_TRUE(MoveOf(Command::MovePageDown));
    EXPECT_EQ(MoveOf(Command::MovePageDown)->step, NavigationStep::PageDown);
    EXPECT_FALSE(MoveOf(Command::MovePageDown)->extends);
    EXPECT_TRUE(MoveOf(Command::ExtendTableEnd)->extends);
    EXPECT_EQ(MoveOf(Command::PreviousCell)->step, NavigationStep::Previous);
    EXPECT_FALSE(MoveOf(Command::EnterDown));
    EXPECT_FALSE(MoveOf(Command::Copy));
}

}  // namespace
}  // namespace velda
