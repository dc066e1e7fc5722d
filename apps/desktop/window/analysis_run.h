#pragma once

#include "desktop/window/analysis_log_pane.h"
#include "zt_anl/analysis.h"
#include "zt_db/doc/doc.h"

namespace zt {

/// One analysis of an open model: behind a bar of progress that can cancel it, with all that it has to say in the log.
/// Views hear that it begins and ends. Nobody may change the model meanwhile, so the bar keeps input from other
/// windows.
class AnalysisRun {
public:
    AnalysisRun(CDBDoc& doc, AnalysisLogPane& pane) : doc_(doc), pane_(pane) {}

    /// Refused, with the reason in a message box, when the model cannot be analysed; refused without one when the user
    /// cancels.
    velda::Outcome Run();
    std::uint64_t Warnings() const { return log_.Warnings(); }

private:
    velda::Outcome RunWithProgress();
    /// What becomes of the results.
    void UseResult();
    /// Shows the lines that came to the log since the last time.
    void FollowLog();
    void TellRest();

    CDBDoc& doc_;
    AnalysisLogPane& pane_;
    AnalysisResult result_{};
    AnalysisLog log_{};
    std::size_t shownLines_ = 0;
    std::uint64_t shownWarnings_ = 0;
    bool isCancelled_ = false;
};

}  // namespace zt
