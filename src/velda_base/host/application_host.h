#pragma once

#include "velda_base/host/clipboard.h"
#include "velda_base/host/cmd_dialog.h"
#include "velda_base/host/frame.h"
#include "velda_base/host/graph_view.h"
#include "velda_base/host/main_frame.h"
#include "velda_base/host/menu.h"
#include "velda_base/host/message_box.h"
#include "velda_base/host/modal_dialog.h"
#include "velda_base/host/model_view.h"
#include "velda_base/host/printer.h"
#include "velda_base/host/progress.h"
#include "velda_base/host/wait_cursor.h"

namespace velda {

/// All that the module asks of the program around it. There is one host at a time.
class ApplicationHost {
public:
    ApplicationHost() = default;
    ApplicationHost(const ApplicationHost&) = delete;
    ApplicationHost& operator=(const ApplicationHost&) = delete;
    virtual ~ApplicationHost() = default;

    /// The host of the process: a headless one until another was set.
    static ApplicationHost& Current();
    /// Sets the host, which outlives its use; null for the headless one. Returns what was set before.
    static ApplicationHost* SetCurrent(ApplicationHost* host);

    virtual IMessageBox& GetMessageBox() = 0;
    virtual IWaitCursor& GetWaitCursor() = 0;
    virtual IProgress& GetProgress() = 0;
    virtual IClipboard& GetClipboard() = 0;
    virtual IMenuTracker& GetMenus() = 0;
    virtual IModalDialogs& GetDialogs() = 0;
    virtual IFrames& GetFrames() = 0;
    virtual IPrinter& GetPrinter() = 0;
    // Null where the host has none.
    virtual ICmdDialog* GetCmdDialog() = 0;
    virtual IGraphView* GetGraphView() = 0;
    virtual I_ModelBase* GetModel() = 0;
    virtual I_MainFrameBase* GetMainFrame() = 0;

    /// Holds back what the application does while it is idle, such as while windows are taken down, or lets it go on.
    virtual void HoldIdle(bool hold) = 0;
};

/// Makes a host the current one as long as it lives.
class UseHost {
public:
    explicit UseHost(ApplicationHost& host) : before_(ApplicationHost::SetCurrent(&host)) {}
    ~UseHost() { ApplicationHost::SetCurrent(before_); }
    UseHost(const UseHost&) = delete;
    UseHost& operator=(const UseHost&) = delete;

private:
    ApplicationHost* before_;
};

}  // namespace velda
