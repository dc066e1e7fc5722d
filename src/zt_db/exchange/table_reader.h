#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "zt_db/exchange/exchange_report.h"
#include "zt_db/exchange/sheet_source.h"
#include "zt_db/exchange/table_columns.h"

namespace zt {

/// How headers carry units: "Length [m]" or "length_m".
enum class HeaderStyle { Brackets, Suffix };

/// Told of what is being done and of rows done; false stops the work.
using ExchangeProgress = std::function<bool(std::string_view what, std::uint64_t rows)>;

/// What the reading of every table of a file shares.
struct TableContext {
    ExchangeReport& report;
    HeaderStyle style = HeaderStyle::Brackets;
    /// Values without a unit in their header are in imperial units.
    bool imperial = false;
    ExchangeProgress progress{};
    bool stopped = false;
};

/// Texts of headers and of words to choose among, as they are compared: without blanks, in small letters.
std::string Comparable(std::string_view text);
/// The texts of a list such as "N1; N2".
NameList SplitList(std::string_view text, char separator = ';');
/// Multiplies the numbers of a text such as "250" or "N3:300;N5:150"; none for a text of another form.
std::optional<std::string> ScaledText(std::string_view text, double factor);

/// Reads the header and then row by row the cells of one table.
class TableReading {
public:
    TableReading(TableContext& context, std::string sheet, std::vector<ColumnRule> rules);

    bool HasHeader() const { return hasHeader_; }
    void ReadHeader(const SheetRow& row);
    /// Points to a row; false for one that holds blanks only.
    bool BeginRow(const SheetRow& row);
    /// Whether all columns that must be there are there.
    bool IsComplete() const { return complete_; }

    /// A column of the sheet that belongs to a rule.
    struct Match {
        std::size_t column = 0;
        std::size_t rule = 0;
        std::size_t repeat = 0;  ///< from 0, where the column is repeated
        double size = 1.0;       ///< of its unit
    };
    const std::vector<Match>& Matches() const { return matches_; }

    // The cell of a match in the row. What cannot be read is reported, and gives nothing.
    std::string Text(const Match& match) const;
    MaybeNumber Number(const Match& match) const;
    std::vector<double> Numbers(const Match& match) const;
    std::string Measured(const Match& match) const;
    /// Reports a value that is not the one that a column always has here.
    void CheckFixed(const Match& match, const FixedValue& fixed) const;
    /// Reports cells of required columns that are empty.
    void CheckRequired() const;

private:
    struct Header {
        std::string name;
        std::string unit;
    };

    Header Split(std::string_view text) const;
    std::optional<Match> MatchOf(std::size_t column, const std::string& text) const;
    bool NameFits(const ColumnRule& rule, std::string_view name, const Header& header, Match& match) const;
    bool UnitFits(const ColumnRule& rule, std::string_view name, Match& match) const;
    double SizeOf(const ColumnRule& rule, const Header& header) const;
    const SheetValue& CellOf(const Match& match) const;
    void Tell(FindingLevel level, const Match& match, std::string_view key, std::vector<std::string> values = {}) const;
    void TellWrongType(const Match& match) const;
    void CheckMissing();

    TableContext& context_;
    std::string sheet_;
    std::vector<ColumnRule> rules_;
    std::vector<Match> matches_;
    std::vector<std::string> headers_;
    const SheetRow* row_ = nullptr;
    bool hasHeader_ = false;
    bool complete_ = false;
};

/// Puts the cell of a match where a column says.
template <class T>
struct StoreCell {
    const TableReading& reading;
    const TableReading::Match& match;
    T& record;

    void operator()(std::string T::*member) const { record.*member = reading.Text(match); }
    void operator()(double T::*member) const { record.*member = reading.Number(match).value_or(0.0); }
    void operator()(MaybeNumber T::*member) const { record.*member = reading.Number(match); }
    void operator()(NameList T::*member) const { record.*member = SplitList(reading.Text(match)); }
    void operator()(std::vector<double> T::*member) const { record.*member = reading.Numbers(match); }
    void operator()(const FreedomKindOf<T>& to) const { (record.*to.freedoms)[to.index].kind = reading.Text(match); }
    void operator()(const FreedomNumberOf<T>& to) const {
        (record.*to.freedoms)[to.index].*to.number = reading.Number(match);
    }
    void operator()(const OneOfSix<T>& to) const { (record.*to.values)[to.index] = reading.Number(match); }
    void operator()(const MeasuredText<T>& to) const { record.*to.text = reading.Measured(match); }
    void operator()(const RepeatedNumbers<T>& to) const {
        if (const MaybeNumber number = reading.Number(match)) At(record.*to.numbers) = number;
    }
    void operator()(const RepeatedTexts<T>& to) const {
        std::string text = reading.Text(match);
        if (!text.empty()) At(record.*to.texts) = std::move(text);
    }
    void operator()(const FixedValue& fixed) const { reading.CheckFixed(match, fixed); }

private:
    template <class Value>
    Value& At(std::vector<Value>& values) const {
        if (values.size() <= match.repeat) values.resize(match.repeat + 1);
        return values[match.repeat];
    }
};

/// Reads a sheet into structures, each with its origin. False when the sheet cannot be read at all.
template <class T>
bool ReadTable(SheetSource& source, std::size_t sheet, std::span<const Column<T>> columns, TableContext& context,
               std::uint32_t sheetIndex, std::vector<T>& records) {
    const std::string& name = source.Names()[sheet];
    std::vector<ColumnRule> rules;
    for (const Column<T>& column : columns) rules.push_back(column.rule);
    TableReading reading(context, name, std::move(rules));
    const std::size_t before = records.size();
    const auto visit = [&](const SheetRow& row) {
        if (!reading.HasHeader()) {
            reading.ReadHeader(row);
            return reading.IsComplete();
        }
        if (!reading.BeginRow(row)) return true;
        T& record = records.emplace_back();
        record.origin = {sheetIndex, row.number};
        for (const TableReading::Match& match : reading.Matches()) {
            std::visit(StoreCell<T>{reading, match, record}, columns[match.rule].target);
        }
        reading.CheckRequired();
        context.stopped = context.progress && !context.progress(name, records.size() - before);
        return !context.stopped;
    };
    const bool read = source.Read(sheet, visit, context.report);
    context.report.CountRead(name, records.size() - before);
    return read && !context.stopped && (reading.IsComplete() || !reading.HasHeader());
}

}  // namespace zt
