#include "desktop/print/pdf_file.h"

#include <algorithm>

#include "desktop/grid/qt_text.h"
#include "desktop/print/qt_printer.h"
#include "velda_base/host/headless_host.h"
#include "zt_tb/model/tb_prop_view.h"

namespace zt {
namespace {

/// A host that asks nothing and prints into a file.
class FileHost : public velda::HeadlessHost {
public:
    explicit FileHost(QtPrinter& printer) : printer_(printer) {}
    velda::IPrinter& GetPrinter() override { return printer_; }

private:
    QtPrinter& printer_;
};

}  // namespace

velda::Outcome WritePdf(CDBDoc& doc, const std::string& table, const QString& path) {
    const auto tables = CTBPropView::Tables();
    const auto found = std::find_if(tables.begin(), tables.end(),
                                    [&](const auto& entry) { return entry.make && entry.mnemonic == table; });
    if (found == tables.end()) return velda::Outcome::Refused("there is no table " + table);
    doc.MakeCurrent();
    CTBPropView view;
    QtPrinter printer([&view] { return view.GetActiveGrid(); });
    printer.PrintToFile(path);
    FileHost host(printer);
    const velda::UseHost use(host);
    view.SetTable(found->kind);
    const bool done = view.Print(false) && printer.IsDone();
    view.OnDestroy();
    if (done) return velda::Outcome::Done();
    return velda::Outcome::Refused(velda::FormatText("IDS_DESKTOP_PRINT_FAILED", {FromQt(path)}));
}

}  // namespace zt
