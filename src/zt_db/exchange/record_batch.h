#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "zt_db/core/record_class.h"

namespace zt {

/// Records of one class that are collected and then added in one transaction.
template <class Class>
class RecordBatch {
public:
    using Record = typename Class::Record;

    explicit RecordBatch(DB_CDataBase& database)
        : database_(database), next_(database.GetClass<Class>()->GetNewKey()) {}

    /// Takes a record in SI units under the next key, or under a key of its own, and gives the key.
    std::uint32_t Add(Record record, std::uint32_t key = 0) {
        RecordToCurrent(record, database_.Units());
        keys_.push_back(key != 0 ? key : next_++);
        records_.push_back(std::move(record));
        return keys_.back();
    }
    std::size_t Count() const { return keys_.size(); }
    /// Adds what was collected. False, with the reason in the database, when it was refused.
    bool Write() {
        const bool done = keys_.empty() || database_.GetClass<Class>()->TR_Add(keys_, records_) != 0;
        keys_.clear();
        records_.clear();
        return done;
    }

private:
    DB_CDataBase& database_;
    std::uint32_t next_;
    std::vector<std::uint32_t> keys_;
    std::vector<Record> records_;
};

/// The records that a model has already, found by what a user knows them by.
template <class Class>
class KnownRecords {
public:
    using Record = typename Class::Record;
    using TextOf = std::string (*)(const Record&);

    KnownRecords(const DB_CDataBase& database, TextOf textOf) : units_(database.Units()), textOf_(textOf) {
        const Class& records = *database.GetClass<Class>();
        std::vector<std::uint32_t> keys;
        records.GetKeyList(keys);
        for (const std::uint32_t key : keys) {
            Record record;
            records.Get(key, record);
            std::string text = textOf(record);
            known_.emplace(std::move(text), std::pair(key, std::move(record)));
        }
    }

    bool Has(const std::string& text) const { return known_.contains(text); }
    /// The key of a record that is the same as one in SI units; numbers that users give are not compared. 0 when there
    /// is none.
    std::uint32_t Find(Record record) const {
        if (known_.empty()) return 0;
        // The way that a record goes when it is stored and read again.
        RecordToCurrent(record, units_);
        RecordToBase(record, units_);
        RecordToCurrent(record, units_);
        const auto [first, last] = known_.equal_range(textOf_(record));
        for (auto at = first; at != last; ++at) {
            Record other = at->second.second;
            if constexpr (requires { other.no; }) other.no = record.no;
            if (other == record) return at->second.first;
        }
        return 0;
    }

private:
    const CUnitCtrl& units_;
    TextOf textOf_;
    std::unordered_multimap<std::string, std::pair<std::uint32_t, Record>> known_;
};

}  // namespace zt
