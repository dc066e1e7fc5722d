#include <array>
#include <cmath>

#include "velda_lib/number_text.h"
#include "zt_anl/store_results.h"
#include "zt_db/post/post_ctrl.h"
#include "zt_db/post/result_keeper.h"
#include "zt_db/post/result_seed.h"
#include "zt_script/command.h"
#include "zt_script/script_session.h"

namespace zt {
namespace {

/// Analyses the model as it says and keeps the results.
CommandResult RunAnalysis(ScriptSession& session, ScriptWords words) {
    if (!words.empty()) return CommandResult::Misused();
    if (velda::Outcome left = session.LeaveRows(); !left) return CommandResult::Of(left);
    const CDataBase& model = *session.Doc().GetMDBCtrl()->GetCurrentDB();
    AnalysisResult result;
    AnalysisLog log;
    velda::Outcome outcome = Analyse(model, OptionsOf(model), result, log);
    if (outcome) outcome = StoreResults(result, session.Doc());
    return CommandResult::Of(outcome);
}

/// Makes results that a text file tells the current ones.
CommandResult SeedFile(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    if (velda::Outcome left = session.LeaveRows(); !left) return CommandResult::Of(left);
    return CommandResult::Of(SeedResults(session.Doc(), words[0].value));
}

CommandResult DiscardResults(ScriptSession& session, ScriptWords words) {
    if (!words.empty()) return CommandResult::Misused();
    return CommandResult::Of(session.Doc().GetResults().Discard());
}

CommandResult ExpectResults(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    return CommandResult::Compare(words[0].value, session.Doc().GetPostCtrl()->IsPostEnable() ? "on" : "off");
}

/// The static case or the combination of a name; false when there is none with results.
bool SelectCase(CDBDoc& doc, const std::string& name) {
    CPostCtrl& post = *doc.GetPostCtrl();
    const CPostDataBase& results = *doc.GetMDBCtrl()->GetDBPost();
    for (const ResultCase& one : results.Results() ? results.Results()->Cases() : std::vector<ResultCase>{}) {
        if (one.name == name) return post.SelectLoadComb(one.kind, one.key) != 0;
    }
    for (const std::uint32_t key : CClassPLcom(&results).Keys()) {
        T_PLCOM_D combination;
        CClassPLcom(&results).Get(key, combination);
        if (combination.name == name) return post.SelectLoadComb(combination) != 0;
    }
    return false;
}

struct ResultWords {
    std::uint32_t number = 0;
    std::size_t component = 0;
    double wanted = 0.0;
};

/// Reads NUMBER COMPONENT VALUE behind the name of a case, and opens that.
bool ReadResultWords(ScriptSession& session, ScriptWords words, const std::array<const char*, 6>& components,
                     ResultWords& read) {
    std::int64_t number = 0;
    if (words.size() != 4 || !velda::ReadWholeLong(words[1].value, number) || number < 0) return false;
    if (!velda::ReadWholeDouble(words[3].value, read.wanted)) return false;
    read.number = static_cast<std::uint32_t>(number);
    const auto found = std::find(components.begin(), components.end(), words[2].value);
    read.component = static_cast<std::size_t>(found - components.begin());
    return found != components.end() && SelectCase(session.Doc(), words[0].value);
}

/// Values agree when they differ by a millionth of them at most.
CommandResult CompareNumbers(double wanted, double found) {
    constexpr double kNear = 1.0e-6;
    const bool agrees = std::abs(wanted - found) <= kNear * std::max(std::abs(wanted), std::abs(found)) + 1.0e-12;
    return CommandResult::Check(agrees, velda::FormatDouble(wanted), velda::FormatDouble(found));
}

CommandResult ExpectDisplacement(ScriptSession& session, ScriptWords words) {
    ResultWords read;
    T_DISP_D displacement;
    if (!ReadResultWords(session, words, {"DX", "DY", "DZ", "RX", "RY", "RZ"}, read)) return CommandResult::Misused();
    if (!session.Doc().GetPostCtrl()->GetDisp(read.number, &displacement)) return CommandResult::Refused("no result");
    return CompareNumbers(read.wanted, displacement.value[read.component]);
}

CommandResult ExpectReaction(ScriptSession& session, ScriptWords words) {
    ResultWords read;
    T_REAC_D reaction;
    if (!ReadResultWords(session, words, {"FX", "FY", "FZ", "MX", "MY", "MZ"}, read)) return CommandResult::Misused();
    if (!session.Doc().GetPostCtrl()->GetReac(read.number, &reaction)) return CommandResult::Refused("no result");
    return CompareNumbers(read.wanted, reaction.value[read.component]);
}

constexpr ScriptCommand kCommands[] = {
    {"analyse", &RunAnalysis, "analyse"},
    {"results seed", &SeedFile, "results seed FILE"},
    {"results discard", &DiscardResults, "results discard"},
    {"expect results", &ExpectResults, "expect results on|off"},
    {"expect displacement", &ExpectDisplacement, "expect displacement \"case\" NODE DX|DY|DZ|RX|RY|RZ VALUE"},
    {"expect reaction", &ExpectReaction, "expect reaction \"case\" NODE FX|FY|FZ|MX|MY|MZ VALUE"},
};

}  // namespace

std::span<const ScriptCommand> ResultCommands() { return kCommands; }

}  // namespace zt
