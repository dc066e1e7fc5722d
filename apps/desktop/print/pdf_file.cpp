#include "desktop/print/pdf_file.h"

#include <QApplication>
#include <memory>

#include "desktop/grid/qt_text.h"
#include "desktop/print/qt_printer.h"
#include "velda_base/host/headless_host.h"

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

/// The toolkit finds its fonts through an application: one without a display, unless the program has its own.
std::unique_ptr<QApplication> ApplicationForFonts() {
    if (QCoreApplication::instance()) return nullptr;
    static int count = 1;
    static char name[] = "print";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QApplication>(count, arguments);
}

}  // namespace

velda::Outcome WritePdf(CTBView& view, const std::string& path) {
    const auto application = ApplicationForFonts();
    QtPrinter printer([&view] { return view.GetActiveGrid(); });
    printer.PrintToFile(ToQt(path));
    FileHost host(printer);
    const velda::UseHost use(host);
    if (view.Print(false) && printer.IsDone()) return velda::Outcome::Done();
    return velda::Outcome::Refused(velda::FormatText("IDS_DESKTOP_PRINT_FAILED", {path}));
}

}  // namespace zt
