#include "zt_tb/model/tb_node_elem_sel_edit.h"

#include <cstdint>
#include <vector>

#include "velda_base/host/headless_window.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using velda::CommandMessage;
using velda::Key;
using velda::KeyMessage;

constexpr std::uint16_t kId = 1021;

KeyMessage KeyDown(velda::KeyChord chord) { return {KeyMessage::Kind::Down, chord}; }
KeyMessage KeyUp(velda::KeyChord chord) { return {KeyMessage::Kind::Up, chord}; }

/// A dialog that Return closes, unless its control handles the key.
class Dialog : public velda::HeadlessWindow {
public:
    using HeadlessWindow::HeadlessWindow;

    bool open = true;
    std::vector<CommandMessage> commands;
    std::vector<Key> keys;

protected:
    void OnCommand(const CommandMessage& command) override { commands.push_back(command); }
    void OnKey(const KeyMessage& message) override {
        keys.push_back(message.chord.key);
        if (message.kind == KeyMessage::Kind::Down && message.chord.key == Key::Enter) open = false;
    }
};

class NodeElemSelEdit : public testing::Test {
protected:
    velda::HeadlessQueue queue;
    Dialog dialog{queue};
    CTBNodeElemSelEdit edit{&dialog, kId};
};

TEST_F(NodeElemSelEdit, ReturnTellsTheDialogOnceAndLeavesItOpen) {
    dialog.SendKey(edit, KeyDown({Key::Enter}));
    EXPECT_THAT(dialog.commands, ElementsAre(CommandMessage{kId, 0x200, &edit}));
    EXPECT_THAT(dialog.keys, IsEmpty());
    EXPECT_TRUE(dialog.open);
}

TEST_F(NodeElemSelEdit, EachOfTwoControlsTellsTheDialogOfItself) {
    CTBNodeElemSelEdit elements(&dialog, kId + 1);
    dialog.SendKey(elements, KeyDown({Key::Enter}));
    dialog.SendKey(edit, KeyDown({Key::Enter}));
    EXPECT_THAT(dialog.commands,
                ElementsAre(CommandMessage{kId + 1, 0x200, &elements}, CommandMessage{kId, 0x200, &edit}));
}

TEST_F(NodeElemSelEdit, TheDialogIsToldAfterTheKeyWasHandled) {
    queue.Run([&] {
        EXPECT_TRUE(edit.PreTranslateMessage(KeyDown({Key::Enter})));
        EXPECT_THAT(dialog.commands, IsEmpty());
    });
    EXPECT_EQ(dialog.commands.size(), 1u);
}

TEST_F(NodeElemSelEdit, ReturnWithShiftOrCtrlConfirmsToo) {
    dialog.SendKey(edit, KeyDown({Key::Enter, true, false, false}));
    dialog.SendKey(edit, KeyDown({Key::Enter, false, true, false}));
    EXPECT_EQ(dialog.commands.size(), 2u);
    EXPECT_TRUE(dialog.open);
}

TEST_F(NodeElemSelEdit, ReturnGoingUpIsPassedOn) {
    dialog.SendKey(edit, KeyUp({Key::Enter}));
    EXPECT_THAT(dialog.commands, IsEmpty());
    EXPECT_THAT(dialog.keys, ElementsAre(Key::Enter));
}

TEST_F(NodeElemSelEdit, OtherKeysArePassedOn) {
    const std::vector<Key> others = {Key::Esc, Key::Tab, Key::A, Key::Space, Key::Delete};
    for (const Key key : others) dialog.SendKey(edit, KeyDown({key}));
    EXPECT_THAT(dialog.commands, IsEmpty());
    EXPECT_EQ(dialog.keys, others);
}

TEST_F(NodeElemSelEdit, WithoutAParentReturnIsPassedOn) {
    CTBNodeElemSelEdit alone(nullptr, kId);
    dialog.SendKey(alone, KeyDown({Key::Enter}));
    EXPECT_THAT(dialog.commands, IsEmpty());
    EXPECT_FALSE(dialog.open);
}

TEST_F(NodeElemSelEdit, ReturnLeavesTheTextAsItIs) {
    edit.SetText("1 3to7");
    dialog.SendKey(edit, KeyDown({Key::Enter}));
    EXPECT_EQ(edit.Text(), "1 3to7");
}

}  // namespace
}  // namespace zt
