#pragma once

#include <string>
#include <vector>

#include "zt_db/core/images.h"
#include "zt_db/post/result_source.h"
#include "zt_db/post/story/story_records.h"

namespace zt {

/// Where a run may store the records of a story service, such as "case/1_3/story/DSP".
inline std::string StoryPath(int kind, std::uint32_t key, std::string_view service) {
    return CasePath(kind, key, "story/" + std::string(service));
}

/// The numbers of a record, in the order of its field list.
template <class Record>
std::vector<double> RowOfRecord(const Record& record) {
    std::vector<double> row;
    VisitScalars(record, [&](auto, const auto&, const auto& value) { row.push_back(static_cast<double>(value)); });
    return row;
}

/// The record of a row; false when the row has not as many numbers as the record.
template <class Record>
bool RecordOfRow(std::span<const double> row, Record& record) {
    std::size_t at = 0;
    VisitScalars(record, [&](auto, auto&, auto& value) {
        if (at < row.size()) value = static_cast<std::remove_cvref_t<decltype(value)>>(row[at]);
        ++at;
    });
    return at == row.size();
}

/// Stores records, in SI units, for a story service.
template <class Record>
velda::Outcome PutStoryRecords(ResultSink& sink, int kind, std::uint32_t key, std::string_view service,
                               const std::vector<Record>& records) {
    std::vector<double> rows;
    for (const Record& record : records) {
        const std::vector<double> row = RowOfRecord(record);
        rows.insert(rows.end(), row.begin(), row.end());
    }
    return sink.PutArray(StoryPath(kind, key, service), RowOfRecord(Record{}).size(), rows);
}

/// The stored records of a story service, in SI units; none where nothing fits the record.
template <class Record>
std::vector<Record> StoredStoryRecords(const ResultSource& results, int kind, std::uint32_t key,
                                       std::string_view service) {
    const ResultArray rows = results.Array(StoryPath(kind, key, service));
    std::vector<Record> records;
    for (std::size_t i = 0; i < rows.Rows(); ++i) {
        const double* row = rows.Row(i);
        Record record;
        if (!row || !RecordOfRow(std::span(row, rows.Columns()), record)) return {};
        records.push_back(record);
    }
    return records;
}

}  // namespace zt
