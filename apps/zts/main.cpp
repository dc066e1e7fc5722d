// zts, the command line of the table module: shows what a model file holds, writes tables, analyses models, shows the
// library and runs table scripts.

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "analyse_command.h"
#include "exchange_commands.h"
#include "export_command.h"
#include "library_command.h"
#include "results_command.h"
#include "velda_lib/msg_dll.h"
#include "zt_db/doc/doc.h"
#include "zt_script/script_runner.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

void PrintUsage(std::ostream& output) {
    output << "zts info FILE                 what a model file holds, and what is wrong with it\n"
              "zts export MODEL [--table KIND]... --out FILE\n"
              "                              writes tables to FILE.xlsx or FILE.csv, all without --table, or one\n"
              "                              table to FILE.pdf\n"
              "zts library [materials|sections|bars|bolts|plates] [SEARCH]\n"
              "                              rows of the library that hold a text, separated by tabs; the size of its\n"
              "                              tables without arguments\n"
              "zts script FILE...            runs table scripts\n"
              "zts help                      this text and the commands of scripts\n";
    for (const std::string_view key :
         {"IDS_ZTS_HELP_IMPORT", "IDS_ZTS_HELP_EXPORT_MODEL", "IDS_ZTS_HELP_ANALYSE", "IDS_ZTS_HELP_RESULTS"}) {
        output << velda::FormatText(key, {}) << '\n';
    }
}

void PrintContent(zt::CDBDoc& doc, const zt::OpenReport& report) {
    const zt::CDataBase& database = *doc.GetMDBCtrl()->GetCurrentDB();
    std::cout << doc.GetPath() << ", format " << report.formatVersion << '\n';
    for (std::uint16_t i = 0; i < database.ClassCount(); ++i) {
        const zt::RecordStoreBase& store = database.StoreAt(i);
        std::cout << "  " << store.Identity().mnemonic << "  " << store.Count() << "  " << store.DisplayName() << '\n';
    }
}

int Info(const std::vector<std::string>& arguments) {
    if (arguments.size() != 1) {
        PrintUsage(std::cerr);
        return kWrongUse;
    }
    zt::OpenReport report;
    const auto doc = zt::CDBDoc::Open(arguments[0], zt::OpenMode::ReadOnly, report);
    if (!report.message.empty()) std::cerr << report.message << '\n';
    for (const std::string& loss : report.losses) std::cerr << loss << '\n';
    if (doc) PrintContent(*doc, report);
    return doc && report.losses.empty() ? 0 : kFailed;
}

int RunScripts(const std::vector<std::string>& files) {
    if (files.empty()) {
        PrintUsage(std::cerr);
        return kWrongUse;
    }
    zt::ScriptRunner runner(std::cout);
    zt::ScriptCount total;
    for (const std::string& file : files) total += runner.RunFile(file);
    std::cout << total.passed << " passed, " << total.failed << " failed";
    if (total.unreadable > 0) std::cout << ", " << total.unreadable << " not readable";
    std::cout << '\n';
    return total.ExitStatus();
}

int ImportFile(const std::vector<std::string>& words) {
    const auto request = ReadImportRequest(words);
    if (!request) {
        PrintUsage(std::cerr);
        return kWrongUse;
    }
    return Import(*request) ? 0 : kFailed;
}

int ExportTables(const std::vector<std::string>& words) {
    if (const auto whole = ReadModelExportRequest(words)) return ExportWholeModel(*whole) ? 0 : kFailed;
    const auto request = ReadExportRequest(words);
    if (!request) {
        PrintUsage(std::cerr);
        return kWrongUse;
    }
    return Export(*request) ? 0 : kFailed;
}

int AnalyseFile(const std::vector<std::string>& words) {
    if (words.size() != 1) {
        PrintUsage(std::cerr);
        return kWrongUse;
    }
    return AnalyseModel(words[0]) ? 0 : kFailed;
}

int Results(const std::vector<std::string>& words) {
    if (words.size() == 2 && words[0] == "info") return ResultsInfo(words[1]) ? 0 : kFailed;
    if (words.size() == 3 && words[0] == "import") return ImportResultTables(words[1], words[2]) ? 0 : kFailed;
    PrintUsage(std::cerr);
    return kWrongUse;
}

int ShowLibrary(const std::vector<std::string>& words) {
    const int status = PrintLibrary(words);
    if (status >= 0) return status;
    PrintUsage(std::cerr);
    return kWrongUse;
}

int Run(const std::vector<std::string>& arguments) {
    const std::string command = arguments.empty() ? "" : arguments[0];
    const std::vector<std::string> rest(arguments.begin() + (arguments.empty() ? 0 : 1), arguments.end());
    if (command == "info") return Info(rest);
    if (command == "import") return ImportFile(rest);
    if (command == "export") return ExportTables(rest);
    if (command == "analyse") return AnalyseFile(rest);
    if (command == "results") return Results(rest);
    if (command == "library") return ShowLibrary(rest);
    if (command == "script") return RunScripts(rest);
    if (command == "help" || command == "--help") {
        PrintUsage(std::cout);
        std::cout << "\nCommands of scripts:\n" << zt::ScriptRunner::Usage();
        return 0;
    }
    PrintUsage(std::cerr);
    return kWrongUse;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return Run(std::vector<std::string>(arguments + 1, arguments + count));
    } catch (const std::exception& exception) {
        std::cerr << "zts: " << exception.what() << '\n';
        return kFailed;
    }
}
