#pragma once

#include <functional>

#include "desktop/host/no_printer.h"
#include "desktop/host/qt_clipboard.h"
#include "desktop/host/qt_dialogs.h"
#include "desktop/host/qt_frames.h"
#include "desktop/host/qt_main_frame.h"
#include "desktop/host/qt_menus.h"
#include "desktop/host/qt_message_box.h"
#include "desktop/host/qt_progress.h"
#include "desktop/host/qt_wait_cursor.h"
#include "velda_base/host/application_host.h"
#include "zt_cmd/cmd_dialogs.h"

namespace zt {

/// The program with its windows, as the module asks it. The services that are set outlive their use.
class QtHost final : public velda::ApplicationHost {
public:
    velda::IMessageBox& GetMessageBox() override { return messages_; }
    velda::IWaitCursor& GetWaitCursor() override { return waitCursor_; }
    velda::IProgress& GetProgress() override { return progress_; }
    velda::IClipboard& GetClipboard() override { return clipboard_; }
    velda::IMenuTracker& GetMenus() override { return menus_; }
    velda::IModalDialogs& GetDialogs() override { return dialogs_; }
    velda::IFrames& GetFrames() override { return frames_; }
    velda::IPrinter& GetPrinter() override { return *printer_; }
    velda::ICmdDialog* GetCmdDialog() override { return &properties_; }
    velda::IGraphView* GetGraphView() override { return graphs_; }
    velda::I_ModelBase* GetModel() override { return model_; }
    velda::I_MainFrameBase* GetMainFrame() override { return mainFrame_; }
    void HoldIdle(bool hold) override {
        if (onHoldIdle) onHoldIdle(hold);
    }

    void SetPrinter(velda::IPrinter& printer) { printer_ = &printer; }
    void SetGraphView(velda::IGraphView* graphs) { graphs_ = graphs; }
    void SetModel(velda::I_ModelBase* model) { model_ = model; }
    void SetMainFrame(velda::I_MainFrameBase* frame) { mainFrame_ = frame; }

    /// What holds back, and lets go, the work that the main window does while it is idle.
    std::function<void(bool)> onHoldIdle;

private:
    QtMessageBox messages_;
    QtWaitCursor waitCursor_;
    QtProgress progress_;
    QtClipboard clipboard_;
    QtMenus menus_;
    QtDialogs dialogs_;
    CmdDialogs properties_;
    QtFrames frames_;
    NoPrinter noPrinter_;
    velda::IPrinter* printer_ = &noPrinter_;
    velda::IGraphView* graphs_ = nullptr;
    velda::I_ModelBase* model_ = nullptr;
    velda::I_MainFrameBase* mainFrame_ = nullptr;
};

}  // namespace zt
