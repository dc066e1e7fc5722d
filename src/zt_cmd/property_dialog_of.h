#pragma once

#include <functional>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/formula/cell_number.h"
#include "zt_cmd/property_dialog.h"
#include "zt_db/units/unit_codes.h"

namespace zt {

/// A field of a dialog on records of class R, as data.
template <class R>
struct FieldDeclaration {
    std::string_view labelKey;
    PropertyField::Kind kind = PropertyField::Kind::Text;
    int unit = Unit::None;
    std::function<std::string(const R&)> show{};
    std::function<void(R&, const std::string& text)> read{};
    std::function<std::vector<std::string>(const R&)> choices{};  ///< of a choice or a suggestion
    std::function<bool(const R&)> isEnabled{};                    ///< null for always
};

/// The field of a text of a record.
template <class R, std::string R::*Member>
FieldDeclaration<R> TextField(std::string_view labelKey) {
    return {labelKey, PropertyField::Kind::Text, Unit::None, [](const R& record) { return record.*Member; },
            [](R& record, const std::string& text) { record.*Member = text; }};
}

/// The field of a number of a record.
template <class R, double R::*Member>
FieldDeclaration<R> NumberField(std::string_view labelKey, int unit) {
    return {labelKey, PropertyField::Kind::Number, unit,
            [](const R& record) { return velda::FormatDouble(record.*Member); },
            [](R& record, const std::string& text) { record.*Member = velda::wtof(text); }};
}

/// What all property dialogs share. A dialog derives from it and tells its fields, and the rows where its records hold
/// a list; `Class` is the record class. Records that have names have each one of its own.
template <class Class>
class PropertyDialogOf : public PropertyDialog {
public:
    using Record = typename Class::Record;
    using Field = FieldDeclaration<Record>;

    explicit PropertyDialogOf(DB_CDataBase& database) : database_(database) { StartAnew(); }

    std::vector<Item> Items() const override {
        std::vector<Item> items;
        ForEach([&](std::uint32_t key, const Record& record) {
            items.push_back({key, ListText(items.size() + 1, record)});
        });
        return items;
    }
    void Select(std::uint32_t key) override {
        StartAnew();
        if (RecordClass().Get(key, record_)) current_ = key;
    }

    std::vector<PropertyField> Fields() const override { return Shown(0, Declared()); }
    void SetField(std::size_t at, const std::string& text) override { Type({0, at}, Declared(), text); }

    std::vector<std::string> RowTitles() const override {
        std::vector<std::string> titles;
        for (const Field& field : DeclaredRow(0)) titles.push_back(FieldLabel(field.labelKey, field.unit));
        return titles;
    }
    std::vector<std::vector<PropertyField>> Rows() const override {
        std::vector<std::vector<PropertyField>> rows;
        for (std::size_t row = 0; row < RowCount(record_); ++row) rows.push_back(Shown(row + 1, DeclaredRow(row)));
        return rows;
    }
    void SetCell(std::size_t row, std::size_t column, const std::string& text) override {
        if (row < RowCount(record_)) Type({row + 1, column}, DeclaredRow(row), text);
    }
    void AddRow() override { AppendRow(record_); }
    void RemoveRow(std::size_t row) override {
        if (row >= RowCount(record_)) return;
        EraseRow(record_, row);
        std::map<Place, std::string> kept;
        for (const auto& [place, text] : typed_) {
            const auto& [line, at] = place;
            if (line != row + 1) kept[{line > row + 1 ? line - 1 : line, at}] = text;
        }
        typed_ = std::move(kept);
    }

    velda::Outcome Add() override {
        if (velda::Outcome fits = Check(0); !fits) return fits;
        const std::uint32_t key = RecordClass().GetNewKey();
        Complete(record_);
        if (!RecordClass().TR_Add(key, record_)) return Refusal();
        Select(key);
        return velda::Outcome::Done();
    }
    velda::Outcome Copy() override {
        if (current_ == 0) return velda::Outcome::Refused(velda::CMsgDll::pfuncLoadStr("IDS_CMD_NOTHING_CHOSEN", 0));
        const Record shown = record_;
        if constexpr (HasName<Record>) {
            record_.name = FreeName(record_.name, [this](const std::string& name) { return IsTaken(name, 0); });
        }
        velda::Outcome added = Add();
        if (!added) record_ = shown;
        return added;
    }
    velda::Outcome Change() override {
        if (current_ == 0) return velda::Outcome::Refused(velda::CMsgDll::pfuncLoadStr("IDS_CMD_NOTHING_CHOSEN", 0));
        if (velda::Outcome fits = Check(current_); !fits) return fits;
        Complete(record_);
        if (!RecordClass().TR_Modify(current_, current_, record_)) return Refusal();
        Select(current_);
        return velda::Outcome::Done();
    }
    velda::Outcome Delete() override {
        if (current_ == 0) return velda::Outcome::Refused(velda::CMsgDll::pfuncLoadStr("IDS_CMD_NOTHING_CHOSEN", 0));
        if (!RecordClass().TR_Del(std::vector<std::uint32_t>{current_})) return Refusal();
        Select(0);
        return velda::Outcome::Done();
    }
    std::string Uses() const override { return UsesText(database_, IdentityOf<Record>::value, current_); }

protected:
    /// The fields as they are for the record in them.
    virtual std::vector<Field> Declared() const = 0;
    /// What else must hold before the record is written.
    virtual velda::Outcome CheckRecord() const { return velda::Outcome::Done(); }
    /// Fills in what follows from the fields before the record is written.
    virtual void Complete(Record& /*record*/) const {}

    /// The line of a record in the list, where it has this place, from 1.
    virtual std::string ListText(std::size_t /*place*/, const Record& record) const {
        if constexpr (HasName<Record>) {
            return record.name;
        } else {
            return {};
        }
    }

    /// The rows of records that hold a list. The fields of a row are asked for their labels also where it does not
    /// exist.
    virtual std::size_t RowCount(const Record& /*record*/) const { return 0; }
    virtual std::vector<Field> DeclaredRow(std::size_t /*row*/) const { return {}; }
    virtual void AppendRow(Record& /*record*/) const {}
    virtual void EraseRow(Record& /*record*/, std::size_t /*row*/) const {}

    const DB_CDataBase& Database() const { return database_; }
    const Record& Edited() const { return record_; }
    /// The record class in the database. Its handle changes nothing by itself.
    Class& RecordClass() const { return *database_.template GetClass<Class>(); }

private:
    /// The line of a field, 0 for the fields of the record and from 1 for its rows, and its place there.
    using Place = std::pair<std::size_t, std::size_t>;

    void StartAnew() {
        current_ = 0;
        typed_.clear();
        record_.Initialize();
    }
    template <class Visit>
    void ForEach(Visit visit) const {
        std::vector<std::uint32_t> keys;
        RecordClass().GetKeyList(keys);
        Record record;
        for (const std::uint32_t key : keys) {
            if (RecordClass().Get(key, record)) visit(key, record);
        }
    }

    std::vector<PropertyField> Shown(std::size_t line, const std::vector<Field>& declared) const {
        std::vector<PropertyField> fields;
        for (const Field& field : declared) {
            const auto typed = typed_.find({line, fields.size()});
            fields.push_back({FieldLabel(field.labelKey, field.unit), field.kind,
                              typed == typed_.end() ? field.show(record_) : typed->second,
                              field.choices ? field.choices(record_) : std::vector<std::string>(),
                              !field.isEnabled || field.isEnabled(record_)});
        }
        return fields;
    }
    void Type(const Place& place, const std::vector<Field>& declared, const std::string& text) {
        const auto [line, at] = place;
        if (at >= declared.size()) return;
        const Field& field = declared[at];
        double number = 0.0;
        if (field.kind == PropertyField::Kind::Number && !velda::IsValidDoubleNumber(text, number)) {
            typed_[place] = text;
            return;
        }
        typed_.erase(place);
        field.read(record_, field.kind == PropertyField::Kind::Number ? velda::FormatDouble(number) : text);
        if (field.kind != PropertyField::Kind::Choice) return;
        // What was typed into fields that a choice replaces is gone with them.
        std::erase_if(typed_, [line = line](const auto& typed) { return typed.first.first == line; });
    }

    velda::Outcome Refusal() const { return velda::Outcome::Refused(database_.GetLastReason()); }
    /// Whether the fields can be written as the record of a key; 0 for a new one.
    velda::Outcome Check(std::uint32_t key) const {
        for (const auto& [place, text] : typed_) return velda::Outcome::Refused(NotANumber(LabelOf(place), text));
        if constexpr (HasName<Record>) {
            if (IsBlank(record_.name)) {
                return velda::Outcome::Refused(velda::CMsgDll::pfuncLoadStr("IDS_CMD_NAME_MISSING", 0));
            }
            if (IsTaken(record_.name, key)) {
                return velda::Outcome::Refused(velda::FormatText("IDS_CMD_NAME_TAKEN", {record_.name}));
            }
        }
        return CheckRecord();
    }
    std::string LabelOf(const Place& place) const {
        const auto& [line, at] = place;
        if (line == 0) return Fields()[at].label;
        return velda::FormatText("IDS_CMD_ROW_FIELD", {std::to_string(line), RowTitles()[at]});
    }
    /// Whether a record other than that of a key has a name.
    bool IsTaken(const std::string& name, std::uint32_t key) const {
        bool taken = false;
        ForEach(
            [&](std::uint32_t other, const Record& record) { taken = taken || (other != key && record.name == name); });
        return taken;
    }
    static bool IsBlank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

    DB_CDataBase& database_;
    Record record_{};
    /// Texts that do not fit their fields.
    std::map<Place, std::string> typed_;
};

}  // namespace zt
