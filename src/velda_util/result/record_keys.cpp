#include "velda_util/result/record_keys.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <unordered_map>

#include "velda_lib/msg_dll.h"
#include "velda_util/result/record_walk.h"

namespace velda {
namespace {

/// Numbers for texts, in the order in which they come.
class TextNumbers {
public:
    double NumberOf(const std::string& text) {
        const auto [found, isNew] = numbers_.try_emplace(text, static_cast<std::uint32_t>(texts_.size()));
        if (isNew) texts_.push_back(&found->first);
        return found->second;
    }
    bool IsEmpty() const { return texts_.empty(); }
    /// The rank of each number among the sorted texts.
    std::vector<double> Ranks() const {
        std::vector<std::uint32_t> sorted(texts_.size());
        std::iota(sorted.begin(), sorted.end(), 0u);
        std::sort(sorted.begin(), sorted.end(), [&](auto a, auto b) { return *texts_[a] < *texts_[b]; });
        std::vector<double> ranks(texts_.size());
        for (std::size_t at = 0; at < sorted.size(); ++at) ranks[sorted[at]] = static_cast<double>(at);
        return ranks;
    }

private:
    std::unordered_map<std::string, std::uint32_t> numbers_;
    std::vector<const std::string*> texts_;
};

/// Sorts pairs of a key and a record, which lie side by side.
RecordOrder OrderByOneKey(const std::vector<double>& keys, bool descending) {
    struct Pair {
        double key;
        std::uint32_t record;
    };
    std::vector<Pair> pairs(keys.size());
    for (std::uint32_t at = 0; at < pairs.size(); ++at) pairs[at] = {descending ? -keys[at] : keys[at], at + 1};
    std::sort(pairs.begin(), pairs.end(),
              [](const Pair& a, const Pair& b) { return a.key < b.key || (a.key == b.key && a.record < b.record); });
    std::vector<std::uint32_t> records(pairs.size());
    std::transform(pairs.begin(), pairs.end(), records.begin(), [](const Pair& pair) { return pair.record; });
    return RecordOrder::Of(std::move(records));
}

/// Puts the ranks of texts in place of their numbers. Where numbers stand among them, as beside a dash, each number
/// gets its rank behind all texts.
void RankTexts(const TextNumbers& texts, const std::vector<bool>& isText, std::vector<double>& keys) {
    const std::vector<double> ranks = texts.Ranks();
    std::vector<double> numbers;
    for (std::size_t at = 0; at < keys.size(); ++at) {
        if (!isText[at]) numbers.push_back(keys[at]);
    }
    std::sort(numbers.begin(), numbers.end());
    for (std::size_t at = 0; at < keys.size(); ++at) {
        keys[at] =
            isText[at]
                ? ranks[static_cast<std::size_t>(keys[at])]
                : static_cast<double>(ranks.size()) +
                      static_cast<double>(std::lower_bound(numbers.begin(), numbers.end(), keys[at]) - numbers.begin());
    }
}

}  // namespace

std::optional<std::vector<double>> SortKeys(CTBDataSrc& source, const CTBRecHdr& fields, long count, int fieldNo) {
    const int slot = fields.SlotOf(fieldNo, 1);
    if (slot < 0) return std::vector<double>(static_cast<std::size_t>(count), 0.0);
    std::vector<double> keys;
    keys.reserve(static_cast<std::size_t>(count));
    TextNumbers texts;
    std::vector<bool> isText;
    isText.reserve(keys.capacity());
    RecordCells cells;
    cells.TakeOnly(fieldNo);
    cells.Reset(fields);
    const bool done =
        WalkInBlocks(CMsgDll::pfuncLoadStr("IDS_TB_ENGINE_SORTING", 0), count, [&](long first, long last) {
            for (long record = first; record <= last; ++record) {
                cells.Clear(static_cast<std::size_t>(slot));
                source.SeekRec(record);
                source.GetRecTexts(cells);
                const RecordCell& cell = cells.At(static_cast<std::size_t>(slot));
                const bool isEmpty = cell.kind == RecordCell::Kind::Empty;
                isText.push_back(isEmpty || cell.kind == RecordCell::Kind::Text);
                keys.push_back(isText.back() ? texts.NumberOf(isEmpty ? std::string() : cell.text) : cell.number);
            }
        });
    if (!done) return std::nullopt;
    if (!texts.IsEmpty()) RankTexts(texts, isText, keys);
    return keys;
}

RecordOrder OrderByKeys(const std::vector<std::vector<double>>& keys, const std::vector<STBSortItem>& items) {
    if (keys.size() == 1) return OrderByOneKey(keys.front(), items.front().order != 0);
    std::vector<std::uint32_t> records(keys.front().size());
    std::iota(records.begin(), records.end(), 1u);
    std::stable_sort(records.begin(), records.end(), [&](std::uint32_t a, std::uint32_t b) {
        for (std::size_t at = 0; at < keys.size(); ++at) {
            const double first = keys[at][a - 1];
            const double second = keys[at][b - 1];
            if (first != second) return (first < second) == (items[at].order == 0);
        }
        return false;
    });
    return RecordOrder::Of(std::move(records));
}

}  // namespace velda
