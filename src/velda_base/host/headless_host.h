#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>

#include "velda_base/host/application_host.h"
#include "velda_base/host/headless_window.h"

namespace velda {

/// Keeps what was said and answers from a queue. With nothing in the queue, and where the next answer does not fit the
/// buttons, it takes the most careful button: cancel, or no where there is no cancel.
class HeadlessMessageBox final : public IMessageBox {
public:
    MessageAnswer Show(const std::string& text, MessageButtons buttons) override;

    std::deque<MessageAnswer> answers;
    std::vector<std::string> shown;
};

class HeadlessWaitCursor final : public IWaitCursor {
public:
    void Begin() override {
        if (depth++ == 0) ++times;
    }
    void End() override { --depth; }

    int depth = 0;
    int times = 0;  ///< how often the cursor appeared
};

class HeadlessProgress final : public IProgress {
public:
    void Begin(const std::string& title, int count) override;
    bool Step(int count) override;
    void End() override { open = false; }

    std::optional<int> cancelAt;  ///< the step at which the user cancels
    std::string lastTitle;
    int steps = 0;
    int done = 0;
    bool open = false;
};

class HeadlessClipboard final : public IClipboard {
public:
    void SetText(std::string text) override { text_ = std::move(text); }
    std::string GetText() override { return text_; }

private:
    std::string text_;
};

/// Keeps the last menu and chooses from queues: by text while there are texts, otherwise by command. An entry that the
/// menu lacks or that is disabled is not chosen.
class HeadlessMenus final : public IMenuTracker {
public:
    int Track(const CMenu& menu, CWnd* window, WindowPoint place) override;

    std::deque<int> choices;
    std::deque<std::string> texts;
    std::optional<CMenu> last;
    WindowPoint lastPlace;
};

/// Works on dialogs as the next in a queue of users does; with none, they are cancelled.
class HeadlessDialogs final : public IModalDialogs {
public:
    /// Changes the controls; true presses OK, false cancel.
    using User = std::function<bool(ModalDialog& dialog)>;
    bool DoModal(ModalDialog& dialog) override;

    std::deque<User> users;
    std::vector<std::string> shown;  ///< names of the dialogs
};

class HeadlessFrame final : public HeadlessWindowOf<IFrame> {
public:
    using HeadlessWindowOf<IFrame>::HeadlessWindowOf;

    std::string GetTitle() const override { return title_; }
    void SetTitle(const std::string& title) override { title_ = title; }
    void Activate() override { ++activations; }
    IFrame* GetParentFrame() override { return this; }
    void Close() override;

    int activations = 0;
    std::function<void()> onClosed;  ///< called once

private:
    std::string title_;
};

class HeadlessFrames final : public IFrames {
public:
    explicit HeadlessFrames(HeadlessQueue& queue) : queue_(queue) {}
    std::unique_ptr<IFrame> CreateChildFrame(CWnd& parent) override;

    bool fails = false;  ///< no frame can be made
    int made = 0;

private:
    HeadlessQueue& queue_;
};

class HeadlessPrinter final : public IPrinter {
public:
    bool Prepare(PrintJob& /*job*/) override { return !cancels; }
    void BeginJob(const PrintJob& job) override;
    bool BeginPage(int page) override;
    void EndJob() override { printing = false; }

    bool cancels = false;                 ///< the user cancels the print dialog
    std::optional<int> cancelsAtPage;     ///< the user cancels while this page is printed
    std::vector<PrintJob> jobs;           ///< as they began
    std::vector<int> pages;               ///< of the last job
    std::function<void()> whilePrinting;  ///< called at each page
    bool printing = false;
};

class HeadlessGraphs final : public IGraphView, public CGraphFuncView {
public:
    CGraphFuncView* GetView(const std::string& title) override;
    void SetGraphData(std::unique_ptr<T_GRAPH_D> data) override { shown = std::move(data); }

    bool fails = false;  ///< no view can be had
    std::vector<std::string> asked;
    std::unique_ptr<T_GRAPH_D> shown;
};

class HeadlessModel final : public I_ModelBase {
public:
    struct Highlighted {
        std::vector<std::uint32_t> keys;
        int kind = 0;
        int flag = 0;
    };
    void ResetHighlights() override;
    void Highlight(std::span<const std::uint32_t> keys, int kind, int flag) override;
    void Refresh() override { ++refreshes; }

    std::vector<Highlighted> highlighted;
    int resets = 0;
    int refreshes = 0;
};

class HeadlessMainFrame final : public HeadlessWindowOf<I_MainFrameBase> {
public:
    using HeadlessWindowOf<I_MainFrameBase>::HeadlessWindowOf;

    void PostCommand(const CommandMessage& command) override;
    void SendCommand(const CommandMessage& command) override;
    bool IsToolButtonChecked(std::uint16_t id) const override { return checked_.contains(id); }
    void CheckToolButton(std::uint16_t id, bool checked) override;

    std::vector<std::uint16_t> sent;    ///< commands that were run at once
    std::vector<std::uint16_t> posted;  ///< commands that were left for later
    /// What the application does on a command, sent or delivered.
    std::map<std::uint16_t, std::function<void()>> handlers;

protected:
    void OnCommand(const CommandMessage& command) override { Handle(command); }

private:
    void Handle(const CommandMessage& command);

    std::set<std::uint16_t> checked_;
};

/// A host without a screen, for scripts and tests: it keeps what it is asked for, and answers as it was told before.
class HeadlessHost : public ApplicationHost {
public:
    IMessageBox& GetMessageBox() override { return messages; }
    IWaitCursor& GetWaitCursor() override { return waitCursor; }
    IProgress& GetProgress() override { return progress; }
    IClipboard& GetClipboard() override { return clipboard; }
    IMenuTracker& GetMenus() override { return menus; }
    IModalDialogs& GetDialogs() override { return dialogs; }
    IFrames& GetFrames() override { return frames; }
    IPrinter& GetPrinter() override { return printer; }
    ICmdDialog* GetCmdDialog() override { return cmdDialog; }
    IGraphView* GetGraphView() override { return &graphs; }
    I_ModelBase* GetModel() override { return &model; }
    I_MainFrameBase* GetMainFrame() override { return &mainFrame; }
    void HoldIdle(bool hold) override { idleCalls.push_back(hold); }

    HeadlessQueue queue;
    HeadlessMessageBox messages;
    HeadlessWaitCursor waitCursor;
    HeadlessProgress progress;
    HeadlessClipboard clipboard;
    HeadlessMenus menus;
    HeadlessDialogs dialogs;
    HeadlessFrames frames{queue};
    HeadlessPrinter printer;
    HeadlessGraphs graphs;
    HeadlessModel model;
    HeadlessMainFrame mainFrame{queue};
    ICmdDialog* cmdDialog = nullptr;
    std::vector<bool> idleCalls;  ///< each holding back and letting go
};

}  // namespace velda
