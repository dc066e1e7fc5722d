#include "velda_base/host/headless_host.h"

#include <utility>

namespace velda {
namespace {

/// The next of a queue; none when it is empty.
template <class Queue>
std::optional<typename Queue::value_type> TakeNext(Queue& queue) {
    if (queue.empty()) return std::nullopt;
    typename Queue::value_type next = std::move(queue.front());
    queue.pop_front();
    return next;
}

MessageAnswer CarefulAnswer(MessageButtons buttons) {
    for (const MessageAnswer answer : {MessageAnswer::Cancel, MessageAnswer::No}) {
        if (CanAnswer(buttons, answer)) return answer;
    }
    return MessageAnswer::Ok;
}

/// The command of the entry with a text; 0 when there is none.
int CommandOf(const CMenu& menu, const std::string& text) {
    for (const MenuItem& item : menu.Items()) {
        if (!item.IsSeparator() && item.text == text) return item.id;
    }
    return 0;
}

}  // namespace

MessageAnswer HeadlessMessageBox::Show(const std::string& text, MessageButtons buttons) {
    shown.push_back(text);
    // A box with one button needs nobody to decide.
    if (buttons == MessageButtons::Ok) return MessageAnswer::Ok;
    const auto answer = TakeNext(answers);
    return answer && CanAnswer(buttons, *answer) ? *answer : CarefulAnswer(buttons);
}

void HeadlessProgress::Begin(const std::string& title, int count) {
    lastTitle = title;
    steps = count;
    done = 0;
    open = true;
}

bool HeadlessProgress::Step(int count) {
    done = count;
    return !cancelAt || count < *cancelAt;
}

int HeadlessMenus::Track(const CMenu& menu, CWnd* /*window*/, WindowPoint place) {
    last = menu;
    lastPlace = place;
    const auto text = TakeNext(texts);
    const int choice = text ? CommandOf(menu, *text) : TakeNext(choices).value_or(0);
    const MenuItem* item = menu.Find(choice);
    return item && item->enabled ? choice : 0;
}

bool HeadlessDialogs::DoModal(ModalDialog& dialog) {
    shown.emplace_back(dialog.GetName());
    dialog.OnInitDialog();
    const auto user = TakeNext(users);
    // A user whose OK the dialog does not take leaves it by cancel.
    if (user && (*user)(dialog) && dialog.OnOK()) return true;
    dialog.OnCancel();
    return false;
}

void HeadlessFrame::Close() {
    if (!IsOpen()) return;
    Destroy();
    if (const auto closed = std::exchange(onClosed, nullptr)) closed();
}

std::unique_ptr<IFrame> HeadlessFrames::CreateChildFrame(CWnd& parent) {
    if (fails) return nullptr;
    ++made;
    auto frame = std::make_unique<HeadlessFrame>(queue_);
    frame->MoveWindow(parent.GetClientRect());
    return frame;
}

void HeadlessPrinter::BeginJob(const PrintJob& job) {
    jobs.push_back(job);
    pages.clear();
    printing = true;
}

bool HeadlessPrinter::BeginPage(int page) {
    if (cancelsAtPage && page >= *cancelsAtPage) return false;
    pages.push_back(page);
    if (whilePrinting) whilePrinting();
    return true;
}

CGraphFuncView* HeadlessGraphs::GetView(const std::string& title) {
    asked.push_back(title);
    return fails ? nullptr : this;
}

void HeadlessModel::ResetHighlights() {
    ++resets;
    highlighted.clear();
}

void HeadlessModel::Highlight(std::span<const std::uint32_t> keys, int kind, int flag) {
    highlighted.push_back({{keys.begin(), keys.end()}, kind, flag});
}

void HeadlessMainFrame::PostCommand(const CommandMessage& command) {
    posted.push_back(command.id);
    HeadlessWindowOf<I_MainFrameBase>::PostCommand(command);
}

void HeadlessMainFrame::SendCommand(const CommandMessage& command) {
    sent.push_back(command.id);
    Handle(command);
}

void HeadlessMainFrame::CheckToolButton(std::uint16_t id, bool checked) {
    if (checked) {
        checked_.insert(id);
    } else {
        checked_.erase(id);
    }
}

void HeadlessMainFrame::Handle(const CommandMessage& command) {
    const auto handler = handlers.find(command.id);
    if (handler != handlers.end() && handler->second) handler->second();
}

}  // namespace velda
