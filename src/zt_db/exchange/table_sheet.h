#pragma once

#include <algorithm>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "velda_lib/number_text.h"
#include "velda_util/export/sheet.h"
#include "zt_db/exchange/table_columns.h"
#include "zt_db/exchange/table_reader.h"

namespace zt {

/// A table as it is written: a header with units and the rows below it. What is the same for all structures.
class TableSheet : public velda::Sheet {
public:
    const std::string& Name() const override { return name_; }
    std::uint32_t ColumnCount() const override { return static_cast<std::uint32_t>(columns_.size()); }
    std::uint32_t HeaderRowCount() const override { return 1; }
    std::uint32_t FrozenColumnCount() const override { return 1; }
    int ColumnWidth(std::uint32_t col) const override;
    int HeaderRowHeight() const override;
    std::vector<velda::SheetMerge> Merges() const override { return {}; }

protected:
    struct Place {
        std::size_t rule = 0;
        std::size_t repeat = 0;
        std::string header{};
        double size = 1.0;
    };

    TableSheet(std::string name, HeaderStyle style) : name_(std::move(name)), style_(style) {}
    /// Adds a column of the sheet for a rule.
    void AddColumn(const ColumnRule& rule, std::size_t index, std::size_t repeat);
    void ReadHeader(std::uint32_t col, velda::SheetCell& cell) const;

    static void PutText(velda::SheetCell& cell, std::string text);
    static void PutNumber(velda::SheetCell& cell, const MaybeNumber& number, double size);

    std::string name_;
    HeaderStyle style_;
    std::vector<Place> columns_;
};

/// Joins the texts of a list with ";".
std::string JoinList(const NameList& items);
std::string JoinNumbers(const std::vector<double>& numbers, double size);

/// Structures as a sheet, by the same columns by which they are read. Columns that are `Silent` are not written.
template <class T>
class RecordSheet final : public TableSheet {
public:
    RecordSheet(std::string name, HeaderStyle style, std::span<const Column<T>> columns, const std::vector<T>& records)
        : TableSheet(std::move(name), style), rules_(columns), records_(records) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].rule.need == Need::Silent) continue;
            for (std::size_t repeat = 0; repeat < RepeatsOf(columns[i]); ++repeat) {
                AddColumn(columns[i].rule, i, repeat);
            }
        }
    }

    std::uint32_t RowCount() const override { return static_cast<std::uint32_t>(records_.size() + 1); }
    void ReadCell(std::uint32_t row, std::uint32_t col, velda::SheetCell& cell) const override {
        cell.kind = velda::SheetCell::Kind::Empty;
        cell.look = {};
        if (row == 0) return ReadHeader(col, cell);
        const Place& place = columns_[col];
        std::visit(Read{records_[row - 1], place.repeat, place.size, cell}, rules_[place.rule].target);
    }

private:
    struct Read {
        const T& record;
        std::size_t repeat;
        double size;
        velda::SheetCell& cell;

        void operator()(std::string T::*member) const { PutText(cell, record.*member); }
        void operator()(double T::*member) const { PutNumber(cell, record.*member, size); }
        void operator()(MaybeNumber T::*member) const { PutNumber(cell, record.*member, size); }
        void operator()(NameList T::*member) const { PutText(cell, JoinList(record.*member)); }
        void operator()(std::vector<double> T::*member) const { PutText(cell, JoinNumbers(record.*member, size)); }
        void operator()(const FreedomKindOf<T>& from) const { PutText(cell, (record.*from.freedoms)[from.index].kind); }
        void operator()(const FreedomNumberOf<T>& from) const {
            PutNumber(cell, (record.*from.freedoms)[from.index].*from.number, size);
        }
        void operator()(const OneOfSix<T>& from) const { PutNumber(cell, (record.*from.values)[from.index], size); }
        void operator()(const MeasuredText<T>& from) const {
            PutText(cell, ScaledText(record.*from.text, 1.0 / size).value_or(""));
        }
        void operator()(const RepeatedNumbers<T>& from) const {
            if (repeat < (record.*from.numbers).size()) PutNumber(cell, (record.*from.numbers)[repeat], size);
        }
        void operator()(const RepeatedTexts<T>& from) const {
            if (repeat < (record.*from.texts).size()) PutText(cell, (record.*from.texts)[repeat]);
        }
        void operator()(const FixedValue& fixed) const {
            if (fixed.isNumber) return PutNumber(cell, velda::wtof(fixed.text), 1.0);
            PutText(cell, std::string(fixed.text));
        }
    };

    std::size_t RepeatsOf(const Column<T>& column) const {
        const auto most = [&](auto member) {
            std::size_t count = 1;
            for (const T& record : records_) count = std::max(count, (record.*member).size());
            return count;
        };
        if (const auto* numbers = std::get_if<RepeatedNumbers<T>>(&column.target)) return most(numbers->numbers);
        if (const auto* texts = std::get_if<RepeatedTexts<T>>(&column.target)) return most(texts->texts);
        return 1;
    }

    std::span<const Column<T>> rules_;
    const std::vector<T>& records_;
};

}  // namespace zt
