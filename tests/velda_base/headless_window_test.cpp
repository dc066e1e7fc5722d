#include "velda_base/host/headless_window.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "velda_base/host/edit.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr KeyMessage kReturn{KeyMessage::Kind::Down, {Key::Enter}};

/// Writes the codes of its commands, with its name in front, into a record that windows may share.
class RecordingWindow : public HeadlessWindow {
public:
    RecordingWindow(HeadlessQueue& queue, std::string name, std::vector<std::string>& record)
        : HeadlessWindow(queue), name_(std::move(name)), record_(record) {}

    /// Posted once, within the next command.
    std::optional<CommandMessage> answer;
    std::vector<Key> keys;

protected:
    void OnCommand(const CommandMessage& command) override {
        record_.push_back(name_ + std::to_string(command.code));
        if (answer) PostCommand(*answer);
        answer.reset();
        record_.push_back(name_ + "end");
    }
    void OnKey(const KeyMessage& message) override { keys.push_back(message.chord.key); }

private:
    std::string name_;
    std::vector<std::string>& record_;
};

class HeadlessWindows : public testing::Test {
protected:
    HeadlessQueue queue;
    std::vector<std::string> record;
    RecordingWindow window{queue, "a", record};
};

TEST(CommandMessage, HasTheIdentifierInTheLowWordAndTheCodeInTheHighWord) {
    EXPECT_EQ((CommandMessage{0x1234, 0x200}.Words()), 0x02001234u);
    EXPECT_EQ((CommandMessage{0xFFFF, 0xFFFE}.Words()), 0xFFFEFFFFu);
}

TEST_F(HeadlessWindows, APostedCommandComesAfterTheHandler) {
    queue.Run([&] {
        window.PostCommand({1, 7});
        EXPECT_THAT(record, IsEmpty());
    });
    EXPECT_THAT(record, ElementsAre("a7", "aend"));
}

TEST_F(HeadlessWindows, ACommandPostedOutsideAHandlerWaitsToBeDelivered) {
    window.PostCommand({1, 7});
    EXPECT_THAT(record, IsEmpty());
    queue.Deliver();
    EXPECT_THAT(record, ElementsAre("a7", "aend"));
    queue.Deliver();
    EXPECT_EQ(record.size(), 2u);
}

TEST_F(HeadlessWindows, NothingIsDeliveredWhileAnOuterHandlerIsAtWork) {
    queue.Run([&] {
        window.PostCommand({1, 7});
        queue.Run([] {});
        queue.Deliver();
        EXPECT_THAT(record, IsEmpty());
    });
    EXPECT_THAT(record, ElementsAre("a7", "aend"));
}

TEST_F(HeadlessWindows, ACommandPostedByACommandComesAfterIt) {
    window.answer = CommandMessage{1, 8};
    queue.Run([&] { window.PostCommand({1, 7}); });
    EXPECT_THAT(record, ElementsAre("a7", "aend", "a8", "aend"));
}

TEST_F(HeadlessWindows, CommandsOfAllWindowsComeInTheOrderInWhichTheyWerePosted) {
    RecordingWindow other(queue, "b", record);
    queue.Run([&] {
        window.PostCommand({1, 1});
        other.PostCommand({1, 2});
        window.PostCommand({1, 3});
    });
    EXPECT_THAT(record, ElementsAre("a1", "aend", "b2", "bend", "a3", "aend"));
}

TEST_F(HeadlessWindows, CommandsOfAWindowThatIsGoneAreDropped) {
    auto other = std::make_unique<RecordingWindow>(queue, "b", record);
    queue.Run([&] {
        other->PostCommand({1, 1});
        window.PostCommand({1, 2});
        other.reset();
    });
    EXPECT_THAT(record, ElementsAre("a2", "aend"));
}

TEST_F(HeadlessWindows, WhatWaitsWhenAHandlerThrowsComesTheNextTime) {
    const auto fails = [&] {
        window.PostCommand({1, 7});
        throw std::runtime_error("handler");
    };
    EXPECT_THROW(queue.Run(fails), std::runtime_error);
    EXPECT_THAT(record, IsEmpty());
    queue.Deliver();
    EXPECT_THAT(record, ElementsAre("a7", "aend"));
}

TEST_F(HeadlessWindows, AnEditControlPassesKeysOnToItsWindow) {
    CEdit edit(&window, 12);
    window.SendKey(edit, kReturn);
    EXPECT_THAT(window.keys, ElementsAre(Key::Enter));
    EXPECT_THAT(record, IsEmpty());
}

TEST_F(HeadlessWindows, AKeyThatAControlHandlesDoesNotReachTheWindow) {
    class Posting : public CEdit {
    public:
        using CEdit::CEdit;
        bool PreTranslateMessage(const KeyMessage&) override {
            Parent()->PostCommand({Id(), 5, this});
            return true;
        }
    };
    Posting edit(&window, 12);
    window.SendKey(edit, kReturn);
    EXPECT_THAT(window.keys, IsEmpty());
    EXPECT_THAT(record, ElementsAre("a5", "aend"));
}

TEST_F(HeadlessWindows, AnEditControlKnowsItsWindowItsIdentifierAndItsText) {
    CEdit edit(&window, 12);
    EXPECT_EQ(edit.Parent(), &window);
    EXPECT_EQ(edit.Id(), 12);
    EXPECT_EQ(edit.Text(), "");
    edit.SetText("1to5");
    EXPECT_EQ(edit.Text(), "1to5");
}

}  // namespace
}  // namespace velda
