// zt_desktop, the windows of the table module.

#include <QCommandLineParser>
#include <QSettings>
#include <QTimer>
#include <iostream>

#include "desktop/graph/qt_graph_view.h"
#include "desktop/grid/qt_text.h"
#include "desktop/host/qt_host.h"
#include "desktop/print/qt_printer.h"
#include "desktop/safe_application.h"
#include "desktop/tour/tour.h"
#include "desktop/window/main_window.h"
#include "velda_lib/language.h"
#include "velda_util/pref/config_folder.h"
#include "zt_db/library/library.h"
#include "zt_db/sample/sample_building.h"
#include "zt_tb/model/table_kinds.h"
#include "zt_tb/model/tb_pre_view.h"

namespace {

constexpr int kWrongUse = 2;

std::unique_ptr<zt::CDBDoc> SampleModel(const std::string& name) {
    auto doc = zt::CDBDoc::New();
    const velda::Outcome built = zt::BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), name);
    if (built) return doc;
    std::cerr << built.Reason() << '\n';
    return nullptr;
}

std::unique_ptr<zt::CDBDoc> OpenModel(const std::string& path) {
    zt::OpenReport report;
    auto doc = zt::CDBDoc::Open(path, zt::OpenMode::Normal, report);
    if (!report.message.empty()) std::cerr << report.message << '\n';
    return doc;
}

/// Brings the user's own library files into use. Returns what is wrong with them.
std::vector<std::string> UseOwnLibrary() {
    const std::filesystem::path folder = velda::ConfigFolder();
    return folder.empty() ? std::vector<std::string>() : zt::Library::UseFolder(folder / zt::kOwnLibraryFolder);
}

/// The theme of an option, or without one that which the user chose last.
zt::Theme ThemeOf(const QString& name) {
    if (name.isEmpty()) return static_cast<zt::Theme>(QSettings().value(QStringLiteral("theme"), 0).toInt());
    if (name == QLatin1String("light")) return zt::Theme::Light;
    return name == QLatin1String("dark") ? zt::Theme::Dark : zt::Theme::System;
}

/// Brings the window into a state for its picture.
void ShowLook(zt::MainWindow& window, const QStringList& words) {
    if (words.contains(QStringLiteral("filter"))) window.ToggleFilter();
    if (words.contains(QStringLiteral("find"))) {
        window.OpenFind();
        window.Finder().Text().setText(QStringLiteral("W"));
    }
    if (words.contains(QStringLiteral("split"))) {
        window.OpenTable({zt::TableSort::Model, zt::kTablePont});
        window.Split();
    }
    velda::CTBGrid* grid = window.ActiveGrid() ? window.ActiveGrid()->Grid() : nullptr;
    if (grid && words.contains(QStringLiteral("selection")))
        grid->SelectRange(velda::PositionRange::Of({1, 1}, {2, 4}));
}

}  // namespace

int main(int count, char** arguments) {
    zt::SafeApplication application(count, arguments);
    QCoreApplication::setOrganizationName(QStringLiteral("velda"));
    QCoreApplication::setApplicationName(QStringLiteral("zt"));
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument("model", "Model file to open.", "[model]");
    QCommandLineOption sample("sample", "Opens a sample building.", "name");
    QCommandLineOption theme("theme", "light or dark; that of the system without it.", "theme");
    QCommandLineOption language("language", "en or ko.", "code", "ko");
    QCommandLineOption screenshot("screenshot", "Writes a picture of the window and ends.", "file");
    screenshot.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption tour("tour", "Writes pictures of all kinds of windows and ends.", "folder");
    tour.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption size("size", "Size of the window.", "width x height", "1180x720");
    QCommandLineOption look("look", "What the picture shows: filter, find, split, selection.", "words");
    for (QCommandLineOption* hidden : {&size, &look}) hidden->setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({sample, theme, language, screenshot, tour, size, look});
    parser.process(application);

    const auto known = velda::LanguageOfCode(zt::FromQt(parser.value(language)));
    if (known) velda::SetCurrentLanguage(*known);
    if (parser.isSet(tour)) return zt::TakeTour(application, parser.value(tour)) ? 0 : 1;
    const std::vector<std::string> libraryFaults = UseOwnLibrary();
    zt::UseTheme(application, ThemeOf(parser.value(theme)));
    const QStringList models = parser.positionalArguments();
    auto doc = parser.isSet(sample) ? SampleModel(zt::FromQt(parser.value(sample)))
               : models.isEmpty()   ? zt::CDBDoc::New()
                                    : OpenModel(zt::FromQt(models.front()));
    if (!doc) return kWrongUse;

    zt::QtHost host;
    const velda::UseHost use(host);
    zt::CTBPreView::RegisterWithPanes();
    zt::MainWindow window(std::move(doc));
    zt::QtPrinter printer([&window] { return window.ActiveGrid() ? window.ActiveGrid()->Grid() : nullptr; }, &window);
    zt::QtGraphView graphs(&window);
    host.SetPrinter(printer);
    host.SetGraphView(&graphs);
    host.SetModel(&window.Model().View());
    host.SetMainFrame(&window.Frame());
    host.onHoldIdle = [&window](bool hold) { window.HoldIdle(hold); };
    const QStringList extent = parser.value(size).split(QLatin1Char('x'));
    if (extent.size() == 2) window.resize(extent[0].toInt(), extent[1].toInt());
    window.show();
    for (const std::string& fault : libraryFaults) window.ShowMessage(zt::ToQt(fault));
    ShowLook(window, parser.value(look).split(QLatin1Char(',')));
    if (parser.isSet(screenshot)) {
        QTimer::singleShot(100, &window,
                           [&] { application.exit(window.grab().save(parser.value(screenshot)) ? 0 : 1); });
    }
    return application.exec();
}
