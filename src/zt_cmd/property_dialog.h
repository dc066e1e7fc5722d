#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "velda_base/host/modal_dialog.h"
#include "velda_lib/function_ref.h"
#include "velda_lib/outcome.h"
#include "zt_db/core/database.h"
#include "zt_db/library/outline.h"

namespace zt {

/// A field of a property dialog as a window shows it.
struct PropertyField {
    /// A suggestion is a text that can be taken from the choices.
    enum class Kind { Text, Number, Choice, Suggestion };

    std::string label{};  ///< with the unit
    Kind kind = Kind::Text;
    std::string text{};
    std::vector<std::string> choices{};
    bool enabled = true;
    bool operator==(const PropertyField&) const = default;
};

/// A dialog on the records of one class: a list of them, one of them in fields, and buttons that add, copy, change and
/// delete it. Each button is one step that can be undone; closing changes nothing. The window shows what is here.
class PropertyDialog : public velda::ModalDialog {
public:
    struct Item {
        std::uint32_t key = 0;
        std::string text{};
    };
    struct Value {
        std::string label{};
        std::string text{};
    };
    /// A list that a record holds.
    struct ListInfo {
        std::string title{};  ///< empty where a record has only one
        std::vector<std::string> columns{};
        bool isTable = false;  ///< rows of numbers only; there may be thousands, and they may come from a text
    };

    virtual std::string GetTitle() const = 0;

    /// All records, by key.
    virtual std::vector<Item> Items() const = 0;
    /// Whether users know the records by their keys, so that the list shows them.
    virtual bool ListsKeys() const { return true; }
    /// Whether the class has one record that is always there, so that it can only be changed.
    virtual bool IsSingle() const { return false; }
    /// The record in the fields; 0 for a new one.
    std::uint32_t Current() const { return current_; }
    /// Brings a record into the fields; what was typed and not written is dropped. A key without a record is a new one.
    virtual void Select(std::uint32_t key) = 0;

    virtual std::vector<PropertyField> Fields() const = 0;
    /// Types a text into a field, or chooses it. Other fields may follow. A text that does not fit its field stands
    /// there until it is mended, and keeps the record from being written.
    virtual void SetField(std::size_t field, const std::string& text) = 0;

    /// The lists that a record holds.
    virtual std::vector<ListInfo> Lists() const { return {}; }
    virtual std::size_t RowCount(std::size_t /*list*/) const { return 0; }
    /// A row of a list, a field for each cell.
    virtual std::vector<PropertyField> Row(std::size_t /*list*/, std::size_t /*row*/) const { return {}; }
    /// Types a text into a cell, as SetField does.
    virtual void SetCell(std::size_t /*list*/, std::size_t /*row*/, std::size_t /*column*/,
                         const std::string& /*text*/) {}
    virtual void AddRow(std::size_t /*list*/) {}
    virtual void RemoveRow(std::size_t /*list*/, std::size_t /*row*/) {}
    /// Types the cells of a text into those from a row and a column on, and adds the rows that are missing. Refused,
    /// and nothing typed, where a line has more cells than the list.
    virtual velda::Outcome PasteRows(std::size_t list, std::size_t row, std::size_t column, const std::string& text);
    /// Puts the lines of a text in place of all rows of a list of numbers. Headings before the first numbers are passed
    /// over. Refused, and nothing changed, where a line does not fit.
    virtual velda::Outcome ImportRows(std::size_t list, const std::string& text);

    /// Writes the fields as a new record, as a new one with a free name, into the record that they show, and deletes
    /// that record.
    virtual velda::Outcome Add() = 0;
    virtual velda::Outcome Copy() = 0;
    virtual velda::Outcome Change() = 0;
    virtual velda::Outcome Delete() = 0;

    /// What uses the record in the fields, a class a line: "Member (12): 1, 2, 3, ...". Empty when nothing does.
    virtual std::string Uses() const = 0;

    /// What follows from the fields: values that a window shows beside them, and a picture.
    virtual std::vector<Value> Results() const { return {}; }
    virtual std::vector<Outline> Picture() const { return {}; }

protected:
    std::uint32_t current_ = 0;
};

/// The records that use a record, worded as PropertyDialog::Uses tells.
std::string UsesText(const DB_CDataBase& database, const RecordIdentity& identity, std::uint32_t key);
/// A name that is not taken: the name itself, or one with a number behind it, "Name (2)".
std::string FreeName(const std::string& name, velda::FunctionRef<bool(const std::string&)> isTaken);
/// The reason for a text that is no number.
std::string NotANumber(const std::string& label, const std::string& text);
/// The label of a field: the text of a key, with the current unit of a code behind it.
std::string FieldLabel(std::string_view textKey, int unit);

}  // namespace zt
