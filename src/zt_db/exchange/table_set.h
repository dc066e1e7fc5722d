#pragma once

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "velda_lib/number_text.h"
#include "zt_db/exchange/exchange_table.h"
#include "zt_db/exchange/table_reader.h"

namespace zt {

/// Whether a sheet goes by one of the names of a table.
template <class T>
bool IsSheetOf(const ExchangeTable<T>& table, const std::string& sheet) {
    const std::string name = Comparable(sheet);
    if (name == Comparable(table.name)) return true;
    const NameList others = SplitList(table.otherNames, '|');
    return std::any_of(others.begin(), others.end(), [&](const auto& other) { return Comparable(other) == name; });
}

/// Index of the sheet of a table; the number of sheets when there is none.
template <class T>
std::size_t SheetOf(const ExchangeTable<T>& table, const SheetSource& source) {
    const auto& names = source.Names();
    const auto at = std::find_if(names.begin(), names.end(), [&](const auto& name) { return IsSheetOf(table, name); });
    return static_cast<std::size_t>(at - names.begin());
}

/// Reads every sheet of a set of tables into the lists of a model, and tells of the sheets that are none of them and
/// not among `known`. False when a sheet cannot be read or the work was stopped.
template <class Tables>
bool ReadSheets(SheetSource& source, const Tables& tables, const NameList& known, TableContext& context,
                ExchangeModel& model) {
    bool good = true;
    std::vector<bool> taken(source.Names().size(), false);
    const auto read = [&](const auto& table) {
        const std::size_t sheet = SheetOf(table, source);
        if (!good || sheet == source.Names().size()) return;
        taken[sheet] = true;
        model.sheets.push_back(source.Names()[sheet]);
        const auto index = static_cast<std::uint32_t>(model.sheets.size() - 1);
        // A sheet with an error in its header or its structure does not keep the others from being checked.
        const bool whole = ReadTable(source, sheet, table.columns, context, index, model.*table.list);
        good = !context.stopped && (whole || context.report.HasErrors());
    };
    std::apply([&](const auto&... table) { (read(table), ...); }, tables);
    for (std::size_t i = 0; i < taken.size() && good; ++i) {
        const std::string& name = source.Names()[i];
        if (taken[i] || std::find(known.begin(), known.end(), Comparable(name)) != known.end()) continue;
        std::uint64_t rows = 0;
        good = source.Read(
            i, [&](const SheetRow&) { return ++rows > 0; }, context.report);
        const std::uint64_t records = rows > 0 ? rows - 1 : 0;
        context.report.CountRead(name, records);
        context.report.Add(FindingLevel::LeftOut, {name, 0, {}}, "IDS_XCH_SHEET_NOT_KEPT",
                           {velda::FormatLong(static_cast<std::int64_t>(records))});
    }
    return good && !context.report.HasErrors();
}

}  // namespace zt
