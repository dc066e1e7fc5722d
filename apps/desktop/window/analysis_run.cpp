#include "desktop/window/analysis_run.h"

#include <QElapsedTimer>
#include <cmath>

#include "desktop/grid/qt_text.h"
#include "velda_base/host/message_box.h"
#include "velda_base/host/progress.h"
#include "velda_lib/number_text.h"
#include "zt_anl/analysis_summary.h"
#include "zt_anl/store_results.h"
#include "zt_db/doc/hint_codes.h"

namespace zt {
namespace {

/// The share of the whole work, in percent, that a step begins and ends with.
struct StepShare {
    AnalysisStep step;
    int from;
    int to;
};
constexpr StepShare kShares[] = {
    {AnalysisStep::Read, 0, 5},       {AnalysisStep::Assemble, 5, 15}, {AnalysisStep::Factor, 15, 35},
    {AnalysisStep::Static, 35, 55},   {AnalysisStep::Modal, 55, 70},   {AnalysisStep::Spectrum, 70, 80},
    {AnalysisStep::History, 80, 100},
};
constexpr int kWhole = 100;

int ProgressOf(AnalysisStep step, std::size_t done, std::size_t of) {
    for (const StepShare& share : kShares) {
        if (share.step != step) continue;
        const double part = of > 0 ? static_cast<double>(done) / static_cast<double>(of) : 0.0;
        return share.from + static_cast<int>(part * (share.to - share.from));
    }
    return kWhole;
}

/// Tells the views that the analysis begins and, whatever becomes of it, ends.
class Execution {
public:
    explicit Execution(CDBDoc& doc) : doc_(doc) { doc_.UpdateAllViews(nullptr, HintCode::ExecutionStarted, nullptr); }
    ~Execution() { doc_.UpdateAllViews(nullptr, HintCode::ExecutionEnded, nullptr); }
    Execution(const Execution&) = delete;
    Execution& operator=(const Execution&) = delete;

private:
    CDBDoc& doc_;
};

}  // namespace

velda::Outcome AnalysisRun::Run() {
    pane_.Clear();
    pane_.Add(LogEntry::Note, Word("IDS_DESKTOP_ANALYSIS_STARTED"));
    QElapsedTimer clock;
    clock.start();
    const velda::Outcome outcome = RunWithProgress();
    FollowLog();
    TellRest();
    if (outcome) {
        const std::string seconds = velda::FormatDouble(static_cast<double>(clock.elapsed()) / 1000.0);
        pane_.Add(LogEntry::Note, ToQt(velda::FormatText("IDS_ANL_TIME", {seconds})));
        UseResult();
    } else if (isCancelled_) {
        pane_.Add(LogEntry::Note, ToQt(outcome.Reason()));
    } else {
        pane_.Add(LogEntry::Error, ToQt(outcome.Reason()));
        velda::AfxMessageBox(outcome.Reason());
    }
    pane_.ShowFirstFault();
    return outcome;
}

velda::Outcome AnalysisRun::RunWithProgress() {
    const Execution execution(doc_);
    const CDataBase& database = *doc_.GetMDBCtrl()->GetCurrentDB();
    velda::Progress progress(FromQt(Word("IDS_DESKTOP_ANALYSIS_RUNNING")), kWhole);
    AnalysisOptions options = OptionsOf(database);
    options.progress = [&](AnalysisStep step, std::size_t done, std::size_t of) {
        FollowLog();
        isCancelled_ = !progress.Step(ProgressOf(step, done, of));
        return !isCancelled_;
    };
    return Analyse(database, options, result_, log_);
}

void AnalysisRun::UseResult() {
    for (const std::string& line : SummaryOf(result_)) pane_.Add(LogEntry::Note, ToQt(line));
    const velda::Outcome stored = StoreResults(result_, doc_);
    if (stored) return pane_.Add(LogEntry::Note, Word("IDS_DESKTOP_ANALYSIS_STORED"));
    pane_.Add(LogEntry::Error, ToQt(stored.Reason()));
    velda::AfxMessageBox(stored.Reason());
}

void AnalysisRun::FollowLog() {
    for (; shownLines_ < log_.Lines().size(); ++shownLines_) {
        const LogLine& line = log_.Lines()[shownLines_];
        const bool isWarning = line.level == LogLevel::Warning;
        if (isWarning) ++shownWarnings_;
        pane_.Add(isWarning ? LogEntry::Warning : LogEntry::Note, ToQt(line.Text()));
    }
}

void AnalysisRun::TellRest() {
    const std::uint64_t rest = log_.Warnings() - shownWarnings_;
    if (rest == 0) return;
    const std::string count = velda::FormatLong(static_cast<std::int64_t>(rest));
    pane_.Add(LogEntry::Warning, ToQt(velda::FormatText("IDS_ANL_MORE_OF_ONE_KIND", {count})));
}

}  // namespace zt
