#pragma once

#include <compare>

#include "velda_util/formula/cell_number.h"
#include "zt_cmd/field_declaration.h"

namespace zt {

/// What all property dialogs share. A dialog derives from it and tells its fields, and its lists where
/// its records hold some; `Class` is the record class. Records that have names have each one of its own.
template <class Class>
class PropertyDialogOf : public PropertyDialog {
public:
    using Record = typename Class::Record;
    using Field = FieldDeclaration<Record>;
    using List = ListDeclaration<Record>;

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

    std::vector<PropertyField> Fields() const override { return Shown({}, Declared()); }
    void SetField(std::size_t at, const std::string& text) override { Type({.at = at}, Declared(), text); }

    std::vector<ListInfo> Lists() const override {
        std::vector<ListInfo> lists;
        for (const List& list : DeclaredLists()) {
            const bool hasTitle = !list.titleKey.empty();
            lists.push_back({hasTitle ? FieldLabel(list.titleKey, Unit::None) : std::string(), {}, list.isTable});
            for (const Field& field : list.cells(0)) {
                lists.back().columns.push_back(FieldLabel(field.labelKey, field.unit));
            }
        }
        return lists;
    }
    std::size_t RowCount(std::size_t list) const override {
        const std::vector<List> lists = DeclaredLists();
        return list < lists.size() ? lists[list].count(record_) : 0;
    }
    std::vector<PropertyField> Row(std::size_t list, std::size_t row) const override {
        if (row >= RowCount(list)) return {};
        return Shown({list + 1, row}, DeclaredLists()[list].cells(row));
    }
    void SetCell(std::size_t list, std::size_t row, std::size_t column, const std::string& text) override {
        if (row < RowCount(list)) Type({list + 1, row, column}, DeclaredLists()[list].cells(row), text);
    }
    void AddRow(std::size_t list) override {
        const std::vector<List> lists = DeclaredLists();
        if (list < lists.size()) lists[list].append(record_);
    }
    void RemoveRow(std::size_t list, std::size_t row) override {
        if (row >= RowCount(list)) return;
        DeclaredLists()[list].erase(record_, row);
        std::map<Place, std::string> kept;
        for (const auto& [typedPlace, text] : typed_) {
            Place place = typedPlace;
            const bool isInList = place.list == list + 1;
            if (isInList && place.row == row) continue;
            if (isInList && place.row > row) --place.row;
            kept[place] = text;
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
        // The one record of a class may have to be made.
        Record before;
        const bool written = RecordClass().Get(current_, before) ? RecordClass().TR_Modify(current_, current_, record_)
                                                                 : RecordClass().TR_Add(current_, record_);
        if (!written) return Refusal();
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

    /// The lists as they are for the record in the fields.
    virtual std::vector<List> DeclaredLists() const { return {}; }

    const DB_CDataBase& Database() const { return database_; }
    const Record& Edited() const { return record_; }
    /// The record class in the database. Its handle changes nothing by itself.
    Class& RecordClass() const { return *database_.template GetClass<Class>(); }

private:
    /// Where a field stands: in list 0 the fields of the record, from 1 the cells of its lists.
    struct Place {
        std::size_t list = 0;
        std::size_t row = 0;
        std::size_t at = 0;
        auto operator<=>(const Place&) const = default;
        bool IsInLineOf(const Place& other) const { return list == other.list && row == other.row; }
    };

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

    std::vector<PropertyField> Shown(Place place, const std::vector<Field>& declared) const {
        std::vector<PropertyField> fields;
        for (const Field& field : declared) {
            place.at = fields.size();
            const auto typed = typed_.find(place);
            fields.push_back({FieldLabel(field.labelKey, field.unit), field.kind,
                              typed == typed_.end() ? field.show(record_) : typed->second,
                              field.choices ? field.choices(record_) : std::vector<std::string>(),
                              !field.isEnabled || field.isEnabled(record_)});
        }
        return fields;
    }
    void Type(const Place& place, const std::vector<Field>& declared, const std::string& text) {
        if (place.at >= declared.size()) return;
        const Field& field = declared[place.at];
        double number = 0.0;
        if (field.kind == PropertyField::Kind::Number &&
            (!velda::IsValidDoubleNumber(text, number) || (field.limits && !field.limits->Holds(number)))) {
            typed_[place] = text;
            return;
        }
        typed_.erase(place);
        field.read(record_, field.kind == PropertyField::Kind::Number ? velda::FormatDouble(number) : text);
        if (field.kind != PropertyField::Kind::Choice) return;
        // What was typed into fields that a choice replaces is gone with them.
        std::erase_if(typed_, [&](const auto& typed) { return typed.first.IsInLineOf(place); });
    }

    velda::Outcome Refusal() const { return velda::Outcome::Refused(database_.GetLastReason()); }
    /// Whether the fields can be written as the record of a key; 0 for a new one.
    velda::Outcome Check(std::uint32_t key) const {
        for (const auto& [place, text] : typed_) {
            if (velda::Outcome fits = CheckField(place, FieldAt(place), text); !fits) return fits;
        }
        if constexpr (HasName<Record>) {
            if (IsBlank(record_.name)) {
                return velda::Outcome::Refused(velda::CMsgDll::pfuncLoadStr("IDS_CMD_NAME_MISSING", 0));
            }
            if (IsTaken(record_.name, key)) {
                return velda::Outcome::Refused(velda::FormatText("IDS_CMD_NAME_TAKEN", {record_.name}));
            }
        }
        if (velda::Outcome fits = CheckLine({}, Declared()); !fits) return fits;
        const std::vector<List> lists = DeclaredLists();
        for (std::size_t list = 0; list < lists.size(); ++list) {
            for (std::size_t row = 0; row < lists[list].count(record_); ++row) {
                if (velda::Outcome fits = CheckLine({list + 1, row}, lists[list].cells(row)); !fits) return fits;
            }
        }
        return CheckRecord();
    }
    /// Whether what the record holds fits its fields; it may come from elsewhere.
    velda::Outcome CheckLine(Place place, const std::vector<Field>& declared) const {
        place.at = 0;
        for (const Field& field : declared) {
            const bool isEnabled = !field.isEnabled || field.isEnabled(record_);
            if (isEnabled && (field.limits || field.isNeeded)) {
                if (velda::Outcome fits = CheckField(place, field, field.show(record_)); !fits) return fits;
            }
            ++place.at;
        }
        return velda::Outcome::Done();
    }
    velda::Outcome CheckField(const Place& place, const Field& field, const std::string& text) const {
        if (field.isNeeded && text.empty()) {
            return velda::Outcome::Refused(velda::FormatText("IDS_CMD_NO_CHOICE", {LabelOf(place)}));
        }
        if (field.kind != PropertyField::Kind::Number) return velda::Outcome::Done();
        double number = 0.0;
        if (!velda::IsValidDoubleNumber(text, number)) {
            return velda::Outcome::Refused(NotANumber(LabelOf(place), text));
        }
        if (field.limits && !field.limits->Holds(number)) {
            return velda::Outcome::Refused(field.limits->Reason(LabelOf(place), text));
        }
        return velda::Outcome::Done();
    }
    Field FieldAt(const Place& place) const {
        return place.list == 0 ? Declared()[place.at] : DeclaredLists()[place.list - 1].cells(place.row)[place.at];
    }
    std::string LabelOf(const Place& place) const {
        const Field field = FieldAt(place);
        const std::string label = FieldLabel(field.labelKey, field.unit);
        if (place.list == 0) return label;
        const std::string cell = velda::FormatText("IDS_CMD_ROW_FIELD", {std::to_string(place.row + 1), label});
        const std::string title = Lists()[place.list - 1].title;
        return title.empty() ? cell : title + ", " + cell;
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
