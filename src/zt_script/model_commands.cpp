#include <cmath>
#include <fstream>

#include "velda_lib/language.h"
#include "velda_lib/number_text.h"
#include "zt_db/exchange/model_exchange.h"
#include "zt_script/command.h"
#include "zt_script/script_session.h"

namespace zt {
namespace {

CommandResult NewModel(ScriptSession& session, ScriptWords words) {
    if (!words.empty()) return CommandResult::Unreadable("model new takes no words");
    return CommandResult::Of(session.NewModel());
}

CommandResult OpenModel(ScriptSession& session, ScriptWords words) {
    if (words.empty() || words.size() > 2) return CommandResult::Unreadable("model open FILE [readonly]");
    const bool readOnly = words.size() == 2;
    if (readOnly && words[1].value != "readonly") return CommandResult::Unreadable("unknown word " + words[1].value);
    return CommandResult::Of(session.OpenModel(words[0].value, readOnly ? OpenMode::ReadOnly : OpenMode::Normal));
}

CommandResult SaveModel(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Unreadable("model save FILE");
    if (velda::Outcome left = session.LeaveRows(); !left) return CommandResult::Of(left);
    return CommandResult::Of(session.Doc().SaveAs(words[0].value));
}

CommandResult SampleModel(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Unreadable("model sample NAME");
    return CommandResult::Of(session.SampleModel(words[0].value));
}

/// A new model of what a workbook or a folder of tables holds.
CommandResult Import(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    if (velda::Outcome made = session.NewModel(); !made) return CommandResult::Of(made);
    ExchangeReport report;
    if (ImportModel(*session.Doc().GetMDBCtrl()->GetCurrentDB(), words[0].value, {}, report)) {
        return CommandResult::Done();
    }
    return CommandResult::Refused(words[0].value + " cannot be imported");
}

struct QuantityName {
    std::string_view name;
    UnitQuantity quantity;
};
constexpr QuantityName kQuantities[] = {{"mass", UnitQuantity::Mass},
                                        {"modelLength", UnitQuantity::ModelLength},
                                        {"force", UnitQuantity::Force},
                                        {"length", UnitQuantity::Length},
                                        {"temperature", UnitQuantity::Temperature}};

CommandResult SetUnits(ScriptSession& session, ScriptWords words) {
    T_UNIT_INDEX index;
    session.Units().GetUnitIndexCurrent(index);
    for (const ScriptWord& word : words) {
        const QuantityName* found = nullptr;
        for (const QuantityName& quantity : kQuantities) {
            if (word.assigns && quantity.name == word.name) found = &quantity;
        }
        if (!found) return CommandResult::Unreadable("units takes force=, length=, modelLength=, mass=, temperature=");
        const int choice = CUnitCtrl::FindChoice(found->quantity, word.value);
        if (choice < 0) return CommandResult::Unreadable("unknown unit " + word.value + " of " + word.name);
        CUnitCtrl::IndexOf(index, found->quantity) = choice;
    }
    session.Units().SetUnitIndexCurrent(index, 1);
    return CommandResult::Done();
}

CommandResult SetLanguage(ScriptSession&, ScriptWords words) {
    const auto language = words.size() == 1 ? velda::LanguageOfCode(words[0].value) : std::nullopt;
    if (!language) return CommandResult::Unreadable("lang en|ko");
    velda::SetCurrentLanguage(*language);
    return CommandResult::Done();
}

CommandResult ExpectLabel(ScriptSession& session, ScriptWords words) {
    std::int64_t code = 0;
    if (words.size() != 2 || !velda::ReadWholeLong(words[0].value, code) || !std::in_range<int>(code)) {
        return CommandResult::Unreadable("expect unit CODE \"label\"");
    }
    return CommandResult::Compare(words[1].value, session.Units().Label(static_cast<int>(code)));
}

CommandResult ExpectFactor(ScriptSession& session, ScriptWords words) {
    std::int64_t code = 0;
    double factor = 0.0;
    if (words.size() != 2 || !velda::ReadWholeLong(words[0].value, code) || !std::in_range<int>(code) ||
        !velda::ReadWholeDouble(words[1].value, factor)) {
        return CommandResult::Unreadable("expect factor CODE NUMBER");
    }
    constexpr double kTolerance = 1.0e-14;  // factors are quotients of rounded numbers
    const double found = session.Units().GetConvertFactorCurrent(static_cast<int>(code));
    return CommandResult::Check(std::abs(found - factor) <= kTolerance * std::abs(factor), velda::FormatDouble(factor),
                                velda::FormatDouble(found));
}

/// Writes a file of plain text, line by line.
CommandResult WriteFile(ScriptSession&, ScriptWords words) {
    if (words.empty()) return CommandResult::Unreadable("file write FILE [\"line\" ...]");
    std::ofstream file(words[0].value, std::ios::binary);
    for (const ScriptWord& line : words.subspan(1)) file << line.value << '\n';
    file.close();
    return file ? CommandResult::Done() : CommandResult::Refused(words[0].value + " cannot be written");
}

constexpr ScriptCommand kCommands[] = {
    {"model new", &NewModel, "model new"},
    {"model open", &OpenModel, "model open FILE [readonly]"},
    {"model save", &SaveModel, "model save FILE"},
    {"model sample", &SampleModel, "model sample NAME"},
    {"model import", &Import, "model import FILE.xlsx|FOLDER"},
    {"units", &SetUnits, "units force=kN length=mm modelLength=m mass=t temperature=C"},
    {"lang", &SetLanguage, "lang en|ko"},
    {"expect unit", &ExpectLabel, "expect unit CODE \"label\""},
    {"expect factor", &ExpectFactor, "expect factor CODE NUMBER"},
    {"file write", &WriteFile, "file write FILE [\"line\" ...]"},
};

}  // namespace

std::span<const ScriptCommand> ModelCommands() { return kCommands; }

}  // namespace zt
