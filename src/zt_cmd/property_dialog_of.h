#pragma once

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
    std::string (*show)(const R&) = nullptr;
    void (*read)(R&, const std::string& text) = nullptr;
    std::vector<std::string> (*choices)(const R&) = nullptr;  ///< of a choice
    bool (*isEnabled)(const R&) = nullptr;                    ///< null for always
};

/// What all property dialogs share. A dialog derives from it and tells its fields; `Class` is the record class, whose
/// records have a name.
template <class Class>
class PropertyDialogOf : public PropertyDialog {
public:
    using Record = typename Class::Record;
    using Field = FieldDeclaration<Record>;

    explicit PropertyDialogOf(DB_CDataBase& database) : database_(database) { StartAnew(); }

    std::vector<Item> Items() const override {
        std::vector<Item> items;
        std::vector<std::uint32_t> keys;
        RecordClass().GetKeyList(keys);
        for (const std::uint32_t key : keys) {
            Record record;
            if (RecordClass().Get(key, record)) items.push_back({key, record.name});
        }
        return items;
    }
    void Select(std::uint32_t key) override {
        StartAnew();
        if (RecordClass().Get(key, record_)) current_ = key;
    }

    std::vector<PropertyField> Fields() const override {
        std::vector<PropertyField> fields;
        for (const Field& field : Declared()) {
            const auto typed = typed_.find(fields.size());
            fields.push_back({FieldLabel(field.labelKey, field.unit), field.kind,
                              typed == typed_.end() ? field.show(record_) : typed->second,
                              field.choices ? field.choices(record_) : std::vector<std::string>(),
                              !field.isEnabled || field.isEnabled(record_)});
        }
        return fields;
    }
    void SetField(std::size_t at, const std::string& text) override {
        const std::vector<Field> fields = Declared();
        if (at >= fields.size()) return;
        const Field& field = fields[at];
        double number = 0.0;
        if (field.kind == PropertyField::Kind::Number && !velda::IsValidDoubleNumber(text, number)) {
            typed_[at] = text;
            return;
        }
        typed_.erase(at);
        field.read(record_, field.kind == PropertyField::Kind::Number ? velda::FormatDouble(number) : text);
        // What was typed into fields that a choice replaces is gone with them.
        if (field.kind == PropertyField::Kind::Choice) typed_.clear();
    }

    velda::Outcome Add() override {
        if (velda::Outcome fits = Check(0); !fits) return fits;
        const std::uint32_t key = RecordClass().GetNewKey();
        Complete(record_);
        if (!RecordClass().TR_Add(key, record_)) return Refusal();
        Select(key);
        return velda::Outcome::Done();
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

    const Record& Edited() const { return record_; }
    /// The record class in the database. Its handle changes nothing by itself.
    Class& RecordClass() const { return *database_.template GetClass<Class>(); }

private:
    void StartAnew() {
        current_ = 0;
        typed_.clear();
        record_.Initialize();
    }
    velda::Outcome Refusal() const { return velda::Outcome::Refused(database_.GetLastReason()); }
    /// Whether the fields can be written as the record of a key; 0 for a new one.
    velda::Outcome Check(std::uint32_t key) const {
        for (const auto& [at, text] : typed_) {
            return velda::Outcome::Refused(NotANumber(Fields()[at].label, text));
        }
        if (record_.name.empty()) {
            return velda::Outcome::Refused(velda::CMsgDll::pfuncLoadStr("IDS_CMD_NAME_MISSING", 0));
        }
        for (const Item& item : Items()) {
            if (item.key == key || item.text != record_.name) continue;
            return velda::Outcome::Refused(velda::FormatText("IDS_CMD_NAME_TAKEN", {record_.name}));
        }
        return CheckRecord();
    }

    DB_CDataBase& database_;
    Record record_{};
    /// Texts that do not fit their fields, by field.
    std::map<std::size_t, std::string> typed_;
};

}  // namespace zt
