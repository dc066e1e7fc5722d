#include "velda_util/clip/paste_report.h"

#include <algorithm>
#include <tuple>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace velda {
namespace {

std::string CountText(std::size_t count) { return FormatLong(static_cast<std::int64_t>(count)); }

}  // namespace

void PasteReport::Add(const ChangePlan& plan) {
    for (const RefusedRow& row : plan.refused) {
        entries_.push_back({row.source, row.target, row.column, row.text, CMsgDll::pfuncLoadStr(row.reasonKey, 0)});
    }
    notes_.insert(notes_.end(), plan.notes.begin(), plan.notes.end());
}

void PasteReport::Refuse(const PlannedRow& row, int column, std::string_view text, std::string reason) {
    entries_.push_back({row.source, row.target, column, std::string(text), std::move(reason)});
}

void PasteReport::PassOver(std::size_t cells) {
    if (cells == 0) return;
    const auto isCount = [](const PlanNote& note) { return note.key == kNoteCellsSkipped; };
    const auto found = std::find_if(notes_.begin(), notes_.end(), isCount);
    if (found == notes_.end()) {
        notes_.push_back({kNoteCellsSkipped, cells});
    } else {
        found->count += cells;
    }
}

std::vector<const PasteReport::Entry*> PasteReport::InOrder() const {
    std::vector<const Entry*> entries;
    entries.reserve(entries_.size());
    for (const Entry& entry : entries_) entries.push_back(&entry);
    std::stable_sort(entries.begin(), entries.end(), [](const Entry* a, const Entry* b) {
        return std::tie(a->source, a->target) < std::tie(b->source, b->target);
    });
    return entries;
}

std::size_t PasteReport::RefusedCount() const {
    const std::vector<const Entry*> entries = InOrder();
    std::size_t count = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i == 0 || !SameRow(*entries[i - 1], *entries[i])) ++count;
    }
    return count;
}

std::string PasteReport::WordsOf(const Entry& entry, FunctionRef<std::string(int columnId)> title) {
    const std::string row = FormatLong(entry.source);
    if (entry.column == kNoPlanColumn) return FormatText("IDS_TB_ENGINE_REPORT_ROW", {row, entry.text, entry.reason});
    return FormatText("IDS_TB_ENGINE_REPORT_CELL", {row, title(entry.column), entry.text, entry.reason});
}

std::string PasteReport::Words(std::size_t written, FunctionRef<std::string(int columnId)> title) const {
    if (IsEmpty()) return {};
    const std::string refused = CountText(RefusedCount());
    std::string words = MayWrite() ? FormatText("IDS_TB_ENGINE_REPORT_COUNTS", {CountText(written), refused})
                                   : FormatText("IDS_TB_ENGINE_REPORT_NOTHING", {refused});
    for (const Entry* entry : InOrder()) words.append("\n").append(WordsOf(*entry, title));
    for (const PlanNote& note : notes_) words.append("\n").append(FormatText(note.key, {CountText(note.count)}));
    return words;
}

}  // namespace velda
