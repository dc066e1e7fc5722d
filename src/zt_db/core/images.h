#pragma once

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velda_lib/function_ref.h"
#include "zt_db/core/field_text.h"
#include "zt_db/core/row_io.h"
#include "zt_db/units/unit_ctrl.h"

namespace zt {

/// Calls `visit(code, number)` for every number of a record that can have a unit.
template <class R, class Visit>
void VisitMeasured(R& record, Visit visit) {
    VisitScalars(record, [&](auto tag, auto& owner, auto& value) {
        constexpr const auto& field = decltype(tag)::value;
        if constexpr (field.units.count == 1 && field.units.Convert()) {
            visit(field.units.codes[0], value);
        } else if constexpr (field.units.Convert()) {
            const auto element = static_cast<std::size_t>(&value - (owner.*(field.member)).data());
            visit(field.units.CodeOf(owner, element), value);
        }
    });
}

/// Brings every number of a record that has a unit from SI units to the current ones.
template <class R>
void RecordToCurrent(R& record, const CUnitCtrl& units) {
    VisitMeasured(record, [&](int code, double& value) { value = units.ToCurrent(code, value); });
}

/// Brings every number of a record that has a unit from the current units to SI units. A negative zero, which a file
/// does not keep, becomes zero.
template <class R>
void RecordToBase(R& record, const CUnitCtrl& units) {
    VisitMeasured(record, [&](int code, double& value) { value = units.ToBase(code, value); });
    VisitScalars(record, [](auto, auto&, auto& value) {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(value)>, double>) value += 0.0;
    });
}

/// A key held by a record: the class it refers to, the key itself, and what becomes of the record when that is gone.
using ReferenceVisitor = velda::FunctionRef<void(const RecordIdentity& target, std::uint32_t key, IfGone ifGone)>;
/// New key for a reference: the key itself to keep it, another one, or 0 for none.
using ReferenceMapping = velda::FunctionRef<std::uint32_t(const RecordIdentity& target, std::uint32_t key)>;

/// Visits the keys that a record under `key` holds, and `key` itself where it is that of another record.
template <class R>
void VisitReferences(std::uint32_t key, const R& record, const ReferenceVisitor& visit) {
    if constexpr (kHasForeignKey<R>) visit(*KeyClass<R>(), key, IfGone::Cascade);
    VisitScalars(record, [&](auto tag, const auto& owner, const auto& value) {
        constexpr const auto& field = decltype(tag)::value;
        if constexpr (field.reference.IsSet()) {
            const RecordIdentity* target = field.reference.TargetOf(owner);
            if (target && value != 0) visit(*target, value, field.reference.ifGone);
        }
    });
}

/// Rewrites the keys that a record holds. Entries of a list whose key becomes 0 leave the list.
template <class R>
void MapReferences(R& record, const ReferenceMapping& map) {
    const auto mapped = [&](const auto& field, const auto& owner, std::uint32_t key) {
        const RecordIdentity* target = field.reference.TargetOf(owner);
        return target && key != 0 ? map(*target, key) : key;
    };
    VisitFields(record, [&](auto tag, auto& owner) {
        constexpr const auto& field = decltype(tag)::value;
        auto& value = owner.*(field.member);
        using Value = std::remove_cvref_t<decltype(value)>;
        if constexpr (ScalarValue<Value>) {
            if constexpr (field.reference.IsSet()) value = mapped(field, owner, value);
        } else if constexpr (HasFields<typename Value::value_type>) {
            std::erase_if(value, [&](auto& element) {
                bool lost = false;
                VisitScalars(element, [&](auto innerTag, auto& innerOwner, auto& inner) {
                    constexpr const auto& innerField = decltype(innerTag)::value;
                    if constexpr (innerField.reference.IsSet()) {
                        const bool had = inner != 0;
                        inner = mapped(innerField, innerOwner, inner);
                        lost = lost || (had && inner == 0);
                    }
                });
                return lost;
            });
        } else if constexpr (field.reference.IsSet()) {
            std::erase_if(value, [&](std::uint32_t& key) {
                const bool had = key != 0;
                key = mapped(field, owner, key);
                return had && key == 0;
            });
        }
    });
}

/// A list of records of one class without their keys: the content of transactions, undo steps and the change buffer.
class ImageList {
public:
    virtual ~ImageList() = default;

    virtual const RecordIdentity& Identity() const = 0;
    virtual std::size_t Count() const = 0;
    /// Appends a record with the default content; returns its index.
    virtual std::uint32_t AppendDefault() = 0;
    /// Appends a copy of a record of a list of the same class; returns its index.
    virtual std::uint32_t AppendCopy(const ImageList& from, std::uint32_t index) = 0;

    virtual void ToCurrent(std::uint32_t index, const CUnitCtrl& units) = 0;
    virtual void ToBase(std::uint32_t index, const CUnitCtrl& units) = 0;

    /// Rounds every real number, those in lists included, to the 15 digits in which it is shown.
    virtual void RoundReals(std::uint32_t index) = 0;

    virtual std::string FieldText(std::uint32_t index, int column) const = 0;
    /// False, and the field is unchanged, when the text is no value of the field's kind.
    virtual bool SetFieldText(std::uint32_t index, int column, std::string_view text) = 0;
    virtual bool Equal(std::uint32_t a, std::uint32_t b) const = 0;
    /// Column of the first number that is not finite, or -1.
    virtual int FirstNotFinite(std::uint32_t index) const = 0;
    /// The class of the first record that one needs and does not name; null when there is none.
    virtual const RecordIdentity* FirstMissing(std::uint32_t index) const = 0;

    /// Visits the references that the record has under `key`.
    virtual void ForEachReference(std::uint32_t index, std::uint32_t key, const ReferenceVisitor& visit) const = 0;
    virtual void RewriteReferences(std::uint32_t index, const ReferenceMapping& map) = 0;
    virtual std::uint32_t NumberOf(std::uint32_t index) const = 0;
    virtual void SetNumber(std::uint32_t index, std::uint32_t number) = 0;

    virtual void WriteRow(std::uint32_t index, RowWriter& writer) const = 0;
};

/// The user's number of a record, 0 for classes that have none.
template <class R>
std::uint32_t RecordNumber(const R& record) {
    std::uint32_t number = 0;
    if constexpr (HasNumber<R>()) {
        VisitFields(record, [&](auto tag, const R& owner) {
            if constexpr (decltype(tag)::value.isNumber) number = owner.*(decltype(tag)::value.member);
        });
    }
    return number;
}

template <class R>
class Images final : public ImageList {
public:
    std::vector<R> records;

    const RecordIdentity& Identity() const override { return IdentityOf<R>::value; }
    std::size_t Count() const override { return records.size(); }

    std::uint32_t Append(R record) {
        records.push_back(std::move(record));
        return static_cast<std::uint32_t>(records.size() - 1);
    }
    std::uint32_t AppendDefault() override {
        R record;
        record.Initialize();
        return Append(std::move(record));
    }
    std::uint32_t AppendCopy(const ImageList& from, std::uint32_t index) override {
        return Append(R(static_cast<const Images&>(from).records[index]));
    }

    void ToCurrent(std::uint32_t index, const CUnitCtrl& units) override { RecordToCurrent(records[index], units); }
    void ToBase(std::uint32_t index, const CUnitCtrl& units) override { RecordToBase(records[index], units); }
    void RoundReals(std::uint32_t index) override {
        VisitScalars(records[index], [](auto, auto&, auto& value) {
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(value)>, double>) {
                value = velda::RoundToShown(value);
            }
        });
    }

    std::string FieldText(std::uint32_t index, int column) const override {
        std::string text;
        VisitColumn(records[index], column, [&](auto, const auto& value) { text = ValueText(value); });
        return text;
    }
    bool SetFieldText(std::uint32_t index, int column, std::string_view text) override {
        bool good = false;
        VisitColumn(records[index], column, [&](auto, auto& value) {
            auto read = value;
            good = ValueFromText(text, read);
            if (good) value = std::move(read);
        });
        return good;
    }
    bool Equal(std::uint32_t a, std::uint32_t b) const override { return records[a] == records[b]; }
    int FirstNotFinite(std::uint32_t index) const override {
        int found = -1;
        int column = 0;
        VisitFields(records[index], [&](auto tag, const auto& owner) {
            if (found < 0 && !AllFinite(owner.*(decltype(tag)::value.member))) found = column;
            ++column;
        });
        return found;
    }

    const RecordIdentity* FirstMissing(std::uint32_t index) const override {
        const RecordIdentity* missing = nullptr;
        VisitFields(records[index], [&](auto tag, const auto& owner) {
            constexpr const auto& field = decltype(tag)::value;
            if constexpr (field.reference.isNeeded) {
                if (!missing && owner.*(field.member) == 0) missing = field.reference.target;
            }
        });
        return missing;
    }

    void ForEachReference(std::uint32_t index, std::uint32_t key, const ReferenceVisitor& visit) const override {
        VisitReferences(key, records[index], visit);
    }
    void RewriteReferences(std::uint32_t index, const ReferenceMapping& map) override {
        MapReferences(records[index], map);
    }
    std::uint32_t NumberOf(std::uint32_t index) const override { return RecordNumber(records[index]); }
    void SetNumber(std::uint32_t index, std::uint32_t number) override {
        VisitFields(records[index], [&](auto tag, auto& owner) {
            if constexpr (decltype(tag)::value.isNumber) owner.*(decltype(tag)::value.member) = number;
        });
    }

    void WriteRow(std::uint32_t index, RowWriter& writer) const override {
        int column = 0;
        VisitFields(records[index], [&](auto tag, const auto& owner) {
            const auto& value = owner.*(decltype(tag)::value.member);
            using Value = std::remove_cvref_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, double>) {
                writer.Real(column, value);
            } else if constexpr (std::is_same_v<Value, std::string>) {
                writer.Text(column, value);
            } else if constexpr (ScalarValue<Value>) {
                writer.Integer(column, value);
            } else {
                writer.Text(column, ValueText(value));
            }
            ++column;
        });
    }

private:
    template <class Record, class Visit>
    static void VisitColumn(Record& record, int wanted, Visit&& visit) {
        int column = 0;
        VisitFields(record, [&](auto tag, auto& owner) {
            if (column++ == wanted) visit(tag, owner.*(decltype(tag)::value.member));
        });
    }

    template <class T>
    static bool AllFinite(const T& value) {
        if constexpr (std::is_same_v<T, double>) {
            return std::isfinite(value);
        } else if constexpr (ScalarValue<T>) {
            return true;
        } else if constexpr (HasFields<T>) {
            bool finite = true;
            VisitScalars(value, [&](auto, const auto&, const auto& scalar) { finite = finite && AllFinite(scalar); });
            return finite;
        } else {
            for (const auto& element : value) {
                if (!AllFinite(element)) return false;
            }
            return true;
        }
    }
};

}  // namespace zt
