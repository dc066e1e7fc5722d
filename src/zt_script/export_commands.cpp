#include <fstream>
#include <iterator>
#include <string>

#include "zt_db/core/field_text.h"
#include "zt_script/command.h"
#include "zt_script/script_session.h"
#include "zt_tb/core/table_export.h"

namespace zt {
namespace {

/// export FILE.xlsx, export FILE.csv all
CommandResult Export(ScriptSession& session, ScriptWords words) {
    const bool all = words.size() == 2 && words[1].value == "all";
    if (words.size() != 1 && !all) return CommandResult::Misused();
    if (session.Views().IsEmpty()) return CommandResult::Refused("no view is open");
    const velda::Outcome left = session.LeaveRows();
    if (!left) return CommandResult::Of(left);
    velda::CGridExportToExcel exporter;
    if (all) {
        for (const CTBView* view : session.Views().All()) AddAllTables(exporter, *view);
    } else {
        const CTBView& view = *session.Views().Active();
        AddTable(exporter, view, view.GetCurrentTab());
    }
    return CommandResult::Of(exporter.Export(words[0].value));
}

/// A text file with "\n" at the ends of its lines, without the mark of UTF-8.
std::string PlainText(std::string text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
    std::erase(text, '\r');
    return text;
}

/// expect file thik.csv "text"
CommandResult ExpectFile(ScriptSession& /*session*/, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    std::ifstream file(words[0].value, std::ios::binary);
    if (!file) return CommandResult::Check(false, "a file", "none");
    const std::string content = PlainText({std::istreambuf_iterator<char>(file), {}});
    std::string expected;
    std::string found;
    AppendQuoted(expected, words[1].value);
    AppendQuoted(found, content);
    return CommandResult::Compare(expected, found);
}

constexpr ScriptCommand kCommands[] = {
    {"export", &Export, "export FILE.xlsx|FILE.csv [all]"},
    {"expect file", &ExpectFile, "expect file FILE \"text\""},
};

}  // namespace

std::span<const ScriptCommand> ExportCommands() { return kCommands; }

}  // namespace zt
