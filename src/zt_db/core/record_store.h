#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "velda_lib/flat_index.h"
#include "zt_db/core/images.h"

namespace zt {

/// The keys of one record class: which exist, in which slot each record stands.
/// Slots are walked from the last to the first, so that the order of an iteration is not that of the keys.
class RecordStoreBase {
public:
    virtual ~RecordStoreBase() = default;

    bool Exists(std::uint32_t key) const { return index_.Contains(key); }
    std::uint32_t Count() const { return static_cast<std::uint32_t>(index_.Count()); }
    /// The next free key: one above the largest, or the lowest gap when that would pass 31 bits (table cells read keys
    /// as signed numbers).
    std::uint32_t NewKey() const;
    /// All keys, ascending.
    std::vector<std::uint32_t> SortedKeys() const;

    static constexpr std::uint32_t kNoSlot = velda::FlatIndex::kNone;
    /// First slot of an iteration, and the one after `slot`; kNoSlot at the end.
    std::uint32_t FirstSlot() const { return UsedSlotBelow(static_cast<std::uint32_t>(slotKeys_.size())); }
    std::uint32_t NextSlot(std::uint32_t slot) const { return UsedSlotBelow(slot); }
    std::uint32_t KeyAt(std::uint32_t slot) const { return slotKeys_[slot]; }

    // ---- by number
    std::uint32_t KeyOfNumber(std::uint32_t number) const;
    std::uint32_t NewNumber() const;
    virtual std::uint32_t NumberOfKey(std::uint32_t key) const = 0;
    virtual bool HasNumbers() const = 0;
    /// The name of a record; empty where its class has no names. The key must exist.
    virtual std::string NameOfKey(std::uint32_t key) const = 0;
    /// Keys of records whose number another record has as well: all of those but one. For content that comes from
    /// outside.
    std::vector<std::uint32_t> KeysWithTakenNumber() const;

    // ---- what a class looks like
    virtual const RecordIdentity& Identity() const = 0;
    /// The class whose keys the records stand under; null when they have keys of their own.
    virtual const RecordIdentity* ForeignKeyClass() const = 0;
    /// Name of the class in the current language: "Thickness".
    std::string DisplayName() const;
    virtual const std::vector<std::string>& ColumnNames() const = 0;
    virtual const std::vector<ColumnKind>& ColumnKinds() const = 0;
    virtual std::unique_ptr<ImageList> NewImages() const = 0;

    // ---- content; keys are checked before these are called
    virtual void Insert(std::uint32_t key, const ImageList& images, std::uint32_t index) = 0;
    virtual void Replace(std::uint32_t key, const ImageList& images, std::uint32_t index) = 0;
    virtual void Remove(std::uint32_t key) = 0;
    /// Appends a copy of the record to `images`; returns its index there. The key must exist.
    virtual std::uint32_t CopyTo(std::uint32_t key, ImageList& images) const = 0;
    /// Adds a record from a storage, under a key that has not been met before. Returns -1, or the column whose value is
    /// of the wrong kind. The records can be reached only after FinishLoading.
    virtual int LoadRow(std::uint32_t key, RowReader& reader) = 0;
    void FinishLoading();
    /// Visits the references of every record as (key of the record, target, key referred to, policy).
    virtual void ForEachReference(
        velda::FunctionRef<void(std::uint32_t, const RecordIdentity&, std::uint32_t, IfGone)> visit) const = 0;

    /// Visits the references of one record; the key must exist.
    virtual void ForEachReferenceOf(std::uint32_t key, const ReferenceVisitor& visit) const = 0;
    /// Whether a record of this class can refer to one of another class at all.
    virtual bool MayReferTo(const RecordIdentity& target) const = 0;

    virtual std::size_t MemoryBytes() const = 0;

protected:
    std::uint32_t SlotOf(std::uint32_t key) const { return index_.Find(key); }
    std::uint32_t TakeSlot(std::uint32_t key);
    /// The place at the end of the slots for a record that is being loaded, and the step that takes it.
    std::uint32_t NextLoadSlot() const { return static_cast<std::uint32_t>(slotKeys_.size()); }
    void TakeLoadSlot(std::uint32_t key) { slotKeys_.push_back(key); }
    virtual std::uint32_t NumberAt(std::uint32_t slot) const = 0;
    void ReleaseSlot(std::uint32_t key, std::uint32_t slot);
    std::size_t KeyMemoryBytes() const;

    void NumberAppeared(std::uint32_t number, std::uint32_t key);
    void NumberVanished(std::uint32_t number, std::uint32_t key);

private:
    std::uint32_t UsedSlotBelow(std::uint32_t slot) const {
        while (slot > 0) {
            if (slotKeys_[--slot] != 0) return slot;
        }
        return kNoSlot;
    }
    void LowerLargestKey();
    bool NumbersAscend() const;
    const velda::FlatIndex& Numbers() const;

    velda::FlatIndex index_;
    std::vector<std::uint32_t> slotKeys_;
    std::vector<std::uint32_t> freeSlots_;
    std::uint32_t largestKey_ = 0;
    // Number to key, made when it is first asked for and kept up from then on.
    mutable velda::FlatIndex numbers_;
    mutable std::uint32_t largestNumber_ = 0;
    mutable bool numbersKnown_ = false;
};

/// The records of one class, in blocks that never move.
template <class R>
class RecordStore final : public RecordStoreBase {
public:
    const R* Find(std::uint32_t key) const {
        const std::uint32_t slot = SlotOf(key);
        return slot == kNoSlot ? nullptr : &At(slot);
    }
    const R& At(std::uint32_t slot) const { return blocks_[slot / kBlock][slot % kBlock]; }

    std::uint32_t NumberOfKey(std::uint32_t key) const override {
        const R* record = Find(key);
        return record ? RecordNumber(*record) : 0;
    }
    bool HasNumbers() const override { return HasNumber<R>(); }
    std::string NameOfKey(std::uint32_t key) const override {
        if constexpr (HasName<R>) {
            return Find(key)->name;
        } else {
            return {};
        }
    }
    const RecordIdentity& Identity() const override { return IdentityOf<R>::value; }
    const std::vector<std::string>& ColumnNames() const override {
        static const std::vector<std::string> names = [] {
            std::vector<std::string> collected;
            AppendColumnNames<R>("", collected);
            return collected;
        }();
        return names;
    }
    const std::vector<ColumnKind>& ColumnKinds() const override {
        static const std::vector<ColumnKind> kinds = [] {
            std::vector<ColumnKind> collected;
            const R record{};
            VisitFields(record, [&](auto tag, const auto&) {
                using Value = typename std::remove_cvref_t<decltype(decltype(tag)::value)>::MemberType;
                collected.push_back(KindOf<Value>());
            });
            return collected;
        }();
        return kinds;
    }
    std::unique_ptr<ImageList> NewImages() const override { return std::make_unique<Images<R>>(); }

    void Insert(std::uint32_t key, const ImageList& images, std::uint32_t index) override {
        const R& record = static_cast<const Images<R>&>(images).records[index];
        Place(TakeSlot(key)) = record;
        NumberAppeared(RecordNumber(record), key);
    }
    void Replace(std::uint32_t key, const ImageList& images, std::uint32_t index) override {
        const R& record = static_cast<const Images<R>&>(images).records[index];
        R& place = Place(SlotOf(key));
        const std::uint32_t oldNumber = RecordNumber(place);
        const std::uint32_t newNumber = RecordNumber(record);
        place = record;
        if (oldNumber == newNumber) return;
        NumberVanished(oldNumber, key);
        NumberAppeared(newNumber, key);
    }
    void Remove(std::uint32_t key) override {
        const std::uint32_t slot = SlotOf(key);
        R& place = Place(slot);
        NumberVanished(RecordNumber(place), key);
        place = R{};
        ReleaseSlot(key, slot);
    }
    std::uint32_t CopyTo(std::uint32_t key, ImageList& images) const override {
        return static_cast<Images<R>&>(images).Append(R(*Find(key)));
    }
    int LoadRow(std::uint32_t key, RowReader& reader) override {
        R& record = Place(NextLoadSlot());
        int column = 0;
        int bad = -1;
        VisitFields(record, [&](auto tag, auto& owner) {
            if (bad < 0 && !ReadValue(reader, column, owner.*(decltype(tag)::value.member))) bad = column;
            ++column;
        });
        if (bad >= 0) {
            record = R{};
        } else {
            TakeLoadSlot(key);
        }
        return bad;
    }
    void ForEachReference(
        velda::FunctionRef<void(std::uint32_t, const RecordIdentity&, std::uint32_t, IfGone)> visit) const override {
        if constexpr (!RefersToOthers<R>()) return;
        for (std::uint32_t slot = FirstSlot(); slot != kNoSlot; slot = NextSlot(slot)) {
            const std::uint32_t key = KeyAt(slot);
            VisitReferences(key, At(slot), [&](const RecordIdentity& target, std::uint32_t targetKey, IfGone ifGone) {
                visit(key, target, targetKey, ifGone);
            });
        }
    }
    void ForEachReferenceOf(std::uint32_t key, const ReferenceVisitor& visit) const override {
        VisitReferences(key, *Find(key), visit);
    }
    const RecordIdentity* ForeignKeyClass() const override { return KeyClass<R>(); }
    bool MayReferTo(const RecordIdentity& target) const override {
        return KeyClass<R>() == &target || AnyField<R>([&target](const auto& field) {
                   return field.reference.target == &target || field.reference.select != nullptr;
               });
    }
    /// Bytes of keys and records; texts and lists that do not stand in the record itself are not counted.
    std::size_t MemoryBytes() const override { return KeyMemoryBytes() + blocks_.size() * kBlock * sizeof(R); }

private:
    static constexpr std::uint32_t kBlock = 1024;

    template <class Value>
    static constexpr ColumnKind KindOf() {
        if constexpr (std::is_same_v<Value, double>)
            return ColumnKind::Real;
        else if constexpr (std::is_same_v<Value, std::string>)
            return ColumnKind::Text;
        else if constexpr (ScalarValue<Value>)
            return ColumnKind::Integer;
        else
            return ColumnKind::List;
    }

    template <class Value>
    static bool ReadValue(RowReader& reader, int column, Value& value) {
        if constexpr (KindOf<Value>() == ColumnKind::Real) {
            return reader.Real(column, value) && std::isfinite(value);
        } else if constexpr (KindOf<Value>() == ColumnKind::Integer) {
            std::int64_t read = 0;
            if (!reader.Integer(column, read) || !std::in_range<Value>(read)) return false;
            value = static_cast<Value>(read);
            return true;
        } else {
            std::string_view text;
            return reader.Text(column, text) && ValueFromText(text, value);
        }
    }

    std::uint32_t NumberAt(std::uint32_t slot) const override { return RecordNumber(At(slot)); }
    void AddBlock() { blocks_.push_back(std::make_unique<R[]>(kBlock)); }
    R& Place(std::uint32_t slot) {
        while (slot / kBlock >= blocks_.size()) AddBlock();
        return blocks_[slot / kBlock][slot % kBlock];
    }

    std::vector<std::unique_ptr<R[]>> blocks_;
};

}  // namespace zt
