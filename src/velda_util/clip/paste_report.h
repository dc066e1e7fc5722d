#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "velda_util/clip/change_plan.h"

namespace velda {

/// What becomes of the good rows when others are refused.
enum class OnRefusal { WriteOthers, WriteNothing };

/// Collects what a paste, a fill or a replacement could not write, from the plan and from the validation that follows,
/// and words one report of it.
class PasteReport {
public:
    explicit PasteReport(OnRefusal choice = OnRefusal::WriteOthers) : choice_(choice) {}

    /// Takes over the refused rows and notes of a plan.
    void Add(const ChangePlan& plan);
    /// Refuses a planned row for one of its cells, or for kNoPlanColumn as a whole. A row may be refused for several
    /// cells.
    void Refuse(const PlannedRow& row, int column, std::string_view text, std::string reason);

    /// Counts cells that cannot be changed, besides those that the plan knew.
    void PassOver(std::size_t cells);

    /// Whether the rows that were not refused may be written.
    bool MayWrite() const { return choice_ == OnRefusal::WriteOthers || entries_.empty(); }
    /// Number of refused rows.
    std::size_t RefusedCount() const;
    /// Whether there is nothing to tell.
    bool IsEmpty() const { return entries_.empty() && notes_.empty(); }

    /// The report: a line that counts, a line for each refused cell in the order of the rows, a line for each note;
    /// joined by
    /// "\n". Empty when there is nothing to tell. `written` is the number of rows that were written.
    std::string Words(std::size_t written, FunctionRef<std::string(int columnId)> title) const;

private:
    struct Entry {
        int source = 0;
        int target = kNewRow;
        int column = kNoPlanColumn;
        std::string text;
        std::string reason;
    };
    static bool SameRow(const Entry& a, const Entry& b) { return a.source == b.source && a.target == b.target; }
    static std::string WordsOf(const Entry& entry, FunctionRef<std::string(int columnId)> title);
    std::vector<const Entry*> InOrder() const;

    OnRefusal choice_;
    std::vector<Entry> entries_;
    std::vector<PlanNote> notes_;
};

}  // namespace velda
