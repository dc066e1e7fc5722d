// zt_desktop, the windows of the table module.

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>
#include <iostream>

#include "desktop/grid/qt_text.h"
#include "desktop/print/pdf_file.h"
#include "desktop/tour/tour.h"
#include "desktop/window/main_window.h"
#include "desktop/window/theme.h"
#include "velda_lib/language.h"
#include "zt_db/sample/sample_building.h"

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

zt::Theme ThemeOf(const QString& name) {
    if (name == QLatin1String("light")) return zt::Theme::Light;
    return name == QLatin1String("dark") ? zt::Theme::Dark : zt::Theme::System;
}

}  // namespace

int main(int count, char** arguments) {
    QApplication application(count, arguments);
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
    QCommandLineOption pdf("pdf", "Prints a table into a PDF file and ends.", "file");
    QCommandLineOption table("table", "Table to print, by its mnemonic.", "name", "THIK");
    parser.addOptions({sample, theme, language, screenshot, tour, pdf, table});
    parser.process(application);

    const auto known = velda::LanguageOfCode(zt::FromQt(parser.value(language)));
    if (known) velda::SetCurrentLanguage(*known);
    if (parser.isSet(tour)) return zt::TakeTour(application, parser.value(tour)) ? 0 : 1;
    zt::UseTheme(application, ThemeOf(parser.value(theme)));
    const QStringList models = parser.positionalArguments();
    auto doc = parser.isSet(sample) ? SampleModel(zt::FromQt(parser.value(sample)))
               : models.isEmpty()   ? zt::CDBDoc::New()
                                    : OpenModel(zt::FromQt(models.front()));
    if (!doc) return kWrongUse;
    if (parser.isSet(pdf)) {
        const velda::Outcome printed = zt::WritePdf(*doc, zt::FromQt(parser.value(table)), parser.value(pdf));
        if (!printed) std::cerr << printed.Reason() << '\n';
        return printed ? 0 : 1;
    }

    zt::MainWindow window(std::move(doc));
    window.show();
    if (parser.isSet(screenshot)) {
        QTimer::singleShot(100, &window,
                           [&] { application.exit(window.grab().save(parser.value(screenshot)) ? 0 : 1); });
    }
    return application.exec();
}
