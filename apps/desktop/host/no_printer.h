#pragma once

#include "velda_base/host/message_box.h"
#include "velda_base/host/printer.h"
#include "velda_lib/msg_dll.h"

namespace zt {

/// Stands in where the program has no printer: says so and prints nothing.
class NoPrinter final : public velda::IPrinter {
public:
    bool Prepare(velda::PrintJob& /*job*/) override {
        velda::AfxMessageBox(velda::CMsgDll::pfuncLoadStr("IDS_DESKTOP_NO_PRINTER", 0));
        return false;
    }
    void BeginJob(const velda::PrintJob& /*job*/) override {}
    bool BeginPage(int /*page*/) override { return false; }
    void EndJob() override {}
};

}  // namespace zt
