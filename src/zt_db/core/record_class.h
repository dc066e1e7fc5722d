#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "velda_lib/comp_func.h"
#include "zt_db/core/database.h"

namespace zt {

/// The operations that every record class has. Records cross in the user's current units.
template <class R>
class CClassOf : public DB_CDataClass {
public:
    using Record = R;

    CClassOf() = default;

    void ConnectToDB(DB_CDataBase* database) override {
        database_ = database;
        store_ = database ? static_cast<const RecordStore<R>*>(&database->StoreAt(Index())) : nullptr;
        keys_ = store_;
    }

    /// Reads a record; false, and `record` is left alone, when the key does not exist.
    int Get(std::uint32_t key, R& record) const {
        const R* found = store_ ? store_->Find(key) : nullptr;
        if (!found) return 0;
        record = *found;
        RecordToCurrent(record, database_->Units());
        return 1;
    }

    /// The record at `position`, which moves on; null after the last.
    void GetNextData(POSITION& position, std::uint32_t& key, R& record) const {
        const auto slot = static_cast<std::uint32_t>(position.Place());
        key = store_->KeyAt(slot);
        record = store_->At(slot);
        RecordToCurrent(record, database_->Units());
        const std::uint32_t next = store_->NextSlot(slot);
        position = next == RecordStoreBase::kNoSlot ? POSITION{} : POSITION::At(next);
    }

    int TR_Add(std::uint32_t key, const R& record) { return TR_Add(Keys{key}, Records{record}); }
    int TR_Add(const std::vector<std::uint32_t>& keys, const std::vector<R>& records) {
        return database_ ? database_->Add(Index(), keys, ImagesOf(records)) : 0;
    }
    int TR_Del(std::uint32_t key) { return TR_Del(Keys{key}); }
    int TR_Del(const std::vector<std::uint32_t>& keys) { return database_ ? database_->Delete(Index(), keys) : 0; }
    int TR_Modify(std::uint32_t oldKey, std::uint32_t newKey, const R& record) {
        return TR_Modify(Keys{oldKey}, Keys{newKey}, Records{record});
    }
    int TR_Modify(const std::vector<std::uint32_t>& oldKeys, const std::vector<std::uint32_t>& newKeys,
                  const std::vector<R>& records) {
        return database_ ? database_->Modify(Index(), oldKeys, newKeys, ImagesOf(records)) : 0;
    }

protected:
    using Keys = std::vector<std::uint32_t>;
    using Records = std::vector<R>;
    struct AnyRecord {
        bool operator()(const R&) const { return true; }
    };

    /// The stored record, in SI units; null when the key does not exist.
    const R* Stored(std::uint32_t key) const { return store_ ? store_->Find(key) : nullptr; }
    /// Visits every stored record as (key, record), in SI units and in no particular order.
    template <class Visit>
    void ForEachStored(Visit visit) const {
        if (!store_) return;
        for (std::uint32_t slot = store_->FirstSlot(); slot != RecordStoreBase::kNoSlot; slot = store_->NextSlot(slot))
            visit(store_->KeyAt(slot), store_->At(slot));
    }
    /// The record of a name for which `matches` holds as well, the smallest key where there are several; 0 when there
    /// is none. Names are compared with regard to case.
    template <class Matches = AnyRecord>
    std::uint32_t KeyOfName(std::string_view name, Matches matches = {}) const {
        std::uint32_t smallest = 0;
        ForEachStored([&](std::uint32_t key, const R& record) {
            if (smallest != 0 && smallest < key) return;
            if (matches(record) && velda::CCompFunc::CompString(record.name, name) == 0) smallest = key;
        });
        return smallest;
    }
    /// The keys of the stored records for which `matches` holds, ascending.
    template <class Matches>
    Keys KeysWhere(Matches matches) const {
        Keys keys;
        ForEachStored([&](std::uint32_t key, const R& record) {
            if (matches(record)) keys.push_back(key);
        });
        std::sort(keys.begin(), keys.end());
        return keys;
    }
    const RecordStore<R>* store_ = nullptr;

private:
    static std::uint16_t Index() { return static_cast<std::uint16_t>(IdentityOf<R>::value.index); }
    static std::unique_ptr<ImageList> ImagesOf(const Records& records) {
        auto images = std::make_unique<Images<R>>();
        images->records = records;
        return images;
    }
};

/// The names of a record class: its identifier and its change codes, as variables assigned at start-up.
#define ZT_CLASS_NAMES(XXXX)                                                                   \
    static inline const int& m_nClassID = ::zt::IdentityOf<T_##XXXX##_D>::value.classId;       \
    static inline const int& UR_##XXXX##_ADD = ::zt::IdentityOf<T_##XXXX##_D>::value.codes[0]; \
    static inline const int& UR_##XXXX##_DEL = ::zt::IdentityOf<T_##XXXX##_D>::value.codes[1]; \
    static inline const int& UR_##XXXX##_MFD = ::zt::IdentityOf<T_##XXXX##_D>::value.codes[2]; \
    static inline const int& UR_##XXXX##_MFS = ::zt::IdentityOf<T_##XXXX##_D>::value.codes[3]; \
    static constexpr std::string_view kMnemonic = #XXXX;

/// What follows the field list of a structure that publishes unit codes: the type of STRUCTURE::unit, and that member.
#define ZT_UNITS(UNIT, STRUCTURE)            \
    struct UNIT : UnitCodesOf<STRUCTURE> {}; \
    inline const UNIT STRUCTURE::unit{};

/// What follows the field list of a record: its unit codes T_XXXX_D::unit and its transport object CDataXxxx. What the
/// machinery needs of the record is compiled once, in the source file that says ZT_DEFINE_RECORD.
#define ZT_RECORD(XXXX, Xxxx)                        \
    ZT_UNITS(T_##XXXX##_UNIT, T_##XXXX##_D)          \
    using CData##Xxxx = CDataOf<T_##XXXX##_D>;       \
    extern template class Images<T_##XXXX##_D>;      \
    extern template class RecordStore<T_##XXXX##_D>; \
    extern template class CDataOf<T_##XXXX##_D>;     \
    extern template class CClassOf<T_##XXXX##_D>;

#define ZT_DEFINE_RECORD(XXXX)                \
    template class Images<T_##XXXX##_D>;      \
    template class RecordStore<T_##XXXX##_D>; \
    template class CDataOf<T_##XXXX##_D>;     \
    template class CClassOf<T_##XXXX##_D>;

/// A record class without operations of its own.
#define ZT_PLAIN_CLASS(XXXX, Xxxx)                       \
    class CClass##Xxxx : public CClassOf<T_##XXXX##_D> { \
    public:                                              \
        ZT_CLASS_NAMES(XXXX)                             \
    };

}  // namespace zt
