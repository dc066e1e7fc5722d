#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "velda_lib/msg_dll.h"
#include "zt_tb/core/table_column.h"

namespace zt {

/// A text that a declaration gives as it stands or by its key.
inline std::string TextOfDefault(std::string_view text) {
    return text.empty() ? std::string() : velda::CMsgDll::pfuncLoadStr(text, 0);
}

/// How the cells of a row depend on each other, as the columns of a table declare it: cells that others enable, and
/// cells that take what another one suggests. The texts of the row stand where the caller has them.
template <class Table, class R>
class DependentCells {
public:
    using SetText = velda::FunctionRef<void(velda::ColumnId, const std::string&)>;
    using IsGiven = velda::FunctionRef<bool(velda::ColumnId)>;

    explicit DependentCells(const std::vector<TableColumn<Table, R>>& columns) : columns_(columns) {}

    /// Whether a row can close cells at all.
    bool CanClose() const {
        return std::any_of(columns_.begin(), columns_.end(),
                           [](const auto& column) { return column.options.enabled != nullptr; });
    }
    bool IsEnabled(velda::ColumnId id, RowCells texts) const {
        const auto enabled = OptionsOf(id).enabled;
        return !enabled || enabled(texts);
    }

    /// The user gave a cell another text.
    void Follow(velda::ColumnId edited, RowCells texts, SetText set) const {
        for (velda::ColumnId id = 0; id < Count(); ++id) {
            if (OptionsOf(id).suggestedBy == edited) set(id, OptionsOf(id).suggest(texts));
        }
        for (velda::ColumnId id = 0; id < Count(); ++id) {
            if (!IsEnabled(id, texts)) Rest(id, texts, set);
        }
    }
    /// A change of many cells gave the row some of its texts, which stand as far as their cells can be entered. Returns
    /// how many were passed over.
    std::size_t Adjust(RowCells texts, RowCells before, IsGiven given, SetText set) const {
        for (velda::ColumnId id = 0; id < Count(); ++id) {
            const velda::ColumnId leading = OptionsOf(id).suggestedBy;
            if (leading == velda::kNoColumn || given(id) || texts(leading) == before(leading)) continue;
            set(id, OptionsOf(id).suggest(texts));
        }
        std::size_t passedOver = 0;
        for (velda::ColumnId id = 0; id < Count(); ++id) {
            if (IsEnabled(id, texts)) continue;
            if (given(id) && texts(id) != before(id)) {
                set(id, before(id));
                ++passedOver;
            }
            Rest(id, texts, set);
        }
        return passedOver;
    }

private:
    velda::ColumnId Count() const { return static_cast<velda::ColumnId>(columns_.size()); }
    const ColumnOptions<Table>& OptionsOf(velda::ColumnId id) const {
        return columns_[static_cast<std::size_t>(id)].options;
    }
    void Rest(velda::ColumnId id, RowCells texts, SetText set) const {
        if (!OptionsOf(id).restText.empty() && texts(id).empty()) set(id, TextOfDefault(OptionsOf(id).restText));
    }

    const std::vector<TableColumn<Table, R>>& columns_;
};

}  // namespace zt
