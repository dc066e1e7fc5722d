#include "velda_base/host/application_host.h"

#include <utility>

#include "velda_base/host/headless_host.h"

namespace velda {
namespace {

ApplicationHost* g_current = nullptr;

}  // namespace

ApplicationHost& ApplicationHost::Current() {
    static HeadlessHost headless;
    return g_current ? *g_current : headless;
}

ApplicationHost* ApplicationHost::SetCurrent(ApplicationHost* host) { return std::exchange(g_current, host); }

MessageAnswer AfxMessageBox(const std::string& text, MessageButtons buttons) {
    return ApplicationHost::Current().GetMessageBox().Show(text, buttons);
}

WaitCursor::WaitCursor() : cursor_(ApplicationHost::Current().GetWaitCursor()) { cursor_.Begin(); }

Progress::Progress(const std::string& title, int steps) : progress_(ApplicationHost::Current().GetProgress()) {
    progress_.Begin(title, steps);
}

bool DoModal(ModalDialog& dialog) { return ApplicationHost::Current().GetDialogs().DoModal(dialog); }

IGraphView* IGraphView::Instance() { return ApplicationHost::Current().GetGraphView(); }

ICmdDialog* ICmdDialog::Instance() { return ApplicationHost::Current().GetCmdDialog(); }

}  // namespace velda
