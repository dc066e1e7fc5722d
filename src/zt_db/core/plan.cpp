#include "zt_db/core/plan.h"

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_db/core/database.h"

namespace zt {
namespace {

using velda::FlatIndex;
using velda::FormatText;
using velda::Outcome;
using Keys = std::vector<std::uint32_t>;

std::uint16_t IndexOf(const RecordIdentity& identity) { return static_cast<std::uint16_t>(identity.index); }

/// Checks and completes the records that come to a class: keys, numbers, finite values.
class Arrival {
public:
    Arrival(const DB_CDataBase& database, std::uint16_t classIndex)
        : database_(database), store_(database.StoreAt(classIndex)) {}

    /// Names the records that leave their place in the same batch, so that their keys and numbers are free.
    Outcome Leaving(const Keys& keys) {
        leaving_.Reserve(keys.size());
        for (const std::uint32_t key : keys) {
            if (!store_.Exists(key)) return Refuse("IDS_DB_REASON_KEY_MISSING", key);
            if (!leaving_.Put(key, 0)) return Refuse("IDS_DB_REASON_KEY_TWICE", key);
        }
        return Outcome::Done();
    }

    Outcome CheckKeys(const Keys& keys) {
        FlatIndex seen;
        seen.Reserve(keys.size());
        for (const std::uint32_t key : keys) {
            if (key == 0) {
                return Outcome::Refused(FormatText("IDS_DB_REASON_KEY_ZERO", {store_.DisplayName()}));
            }
            if (!seen.Put(key, 0)) return Refuse("IDS_DB_REASON_KEY_TWICE", key);
            if (store_.Exists(key) && !leaving_.Contains(key)) return Refuse("IDS_DB_REASON_KEY_EXISTS", key);
        }
        return Outcome::Done();
    }

    /// `oldNumbers` holds the number that each record had, 0 for a new one; a record without number keeps or gets one.
    Outcome SettleNumbers(ImageList& records, const Keys& oldNumbers) {
        if (!store_.HasNumbers()) return Outcome::Done();
        FlatIndex taken;
        taken.Reserve(oldNumbers.size());
        for (std::uint32_t i = 0; i < oldNumbers.size(); ++i) {
            if (records.NumberOf(i) == 0) records.SetNumber(i, oldNumbers[i]);
            const std::uint32_t number = records.NumberOf(i);
            if (number == 0 || number == oldNumbers[i]) continue;
            const std::uint32_t holder = store_.KeyOfNumber(number);
            if (holder != 0 && !leaving_.Contains(holder)) return RefuseNumber(number);
        }
        for (std::uint32_t i = 0; i < oldNumbers.size(); ++i) {
            const std::uint32_t number = records.NumberOf(i);
            if (number != 0 && !taken.Put(number, 0)) return RefuseNumber(number);
        }
        GiveNumbers(records, static_cast<std::uint32_t>(oldNumbers.size()), taken);
        return Outcome::Done();
    }

    /// Brings the records to SI units; refuses a value that is no finite number.
    Outcome Convert(ImageList& records, const Keys& keys) {
        for (std::uint32_t i = 0; i < keys.size(); ++i) {
            if (const RecordIdentity* missing = records.FirstMissing(i)) {
                return Outcome::Refused(FormatText(
                    "IDS_DB_REASON_NEEDS", {store_.DisplayName(), database_.StoreAt(IndexOf(*missing)).DisplayName()}));
            }
            records.ToBase(i, database_.Units());
            const int column = records.FirstNotFinite(i);
            if (column < 0) continue;
            return Outcome::Refused(
                FormatText("IDS_DB_REASON_NOT_FINITE", {store_.DisplayName(), velda::FormatLong(keys[i]),
                                                        store_.ColumnNames()[static_cast<std::size_t>(column)]}));
        }
        return Outcome::Done();
    }

private:
    Outcome Refuse(std::string_view textKey, std::uint32_t key) const {
        const auto ownClass = IndexOf(store_.Identity());
        const std::uint32_t number = store_.ForeignKeyClass() ? database_.NumberInLabel(ownClass, key) : key;
        return Outcome::Refused(FormatText(textKey, {store_.DisplayName(), velda::FormatLong(number)}));
    }
    Outcome RefuseNumber(std::uint32_t number) const { return Refuse("IDS_DB_REASON_NUMBER_TAKEN", number); }

    void GiveNumbers(ImageList& records, std::uint32_t count, FlatIndex& taken) const {
        std::uint32_t next = store_.NewNumber();
        for (std::uint32_t i = 0; i < count; ++i) {
            if (records.NumberOf(i) != 0) continue;
            while (taken.Contains(next) || store_.KeyOfNumber(next) != 0) ++next;
            records.SetNumber(i, next);
            taken.Put(next++, 0);
        }
    }

    const DB_CDataBase& database_;
    const RecordStoreBase& store_;
    FlatIndex leaving_;
};

/// A record that refers to one that goes.
struct User {
    std::uint16_t classIndex;
    std::uint32_t key;
    std::uint16_t targetClass;
    std::uint32_t targetKey;
};

/// The records that a deletion takes with it, found in rounds: each round looks for those that refer to what the round
/// before found.
class DeletionClosure {
public:
    explicit DeletionClosure(const DB_CDataBase& database)
        : database_(database), gone_(database.ClassCount()), cleared_(database.ClassCount()) {}

    void Run(std::uint16_t classIndex, const Keys& keys) {
        std::vector<FlatIndex> fresh(database_.ClassCount());
        for (const std::uint32_t key : keys) {
            gone_[classIndex].Put(key, 0);
            fresh[classIndex].Put(key, 0);
        }
        while (Round(fresh)) {
        }
    }

    /// The record with the lowest key that stays and needs one that goes, with the number of such records; null when
    /// there is none.
    const User* FirstRefusal(std::uint32_t& count) const {
        const User* first = nullptr;
        count = 0;
        for (const User& user : refusals_) {
            if (gone_[user.classIndex].Contains(user.key)) continue;
            const bool lower =
                !first || std::pair(user.classIndex, user.key) < std::pair(first->classIndex, first->key);
            if (lower) first = &user;
            ++count;
        }
        return first;
    }

    /// Records that go besides those asked for, the last found first.
    std::vector<std::pair<std::uint16_t, std::uint32_t>> Followers() const {
        return {followers_.rbegin(), followers_.rend()};
    }
    /// Records that stay and lose a reference.
    std::vector<std::pair<std::uint16_t, std::uint32_t>> Cleared() const {
        auto list = clears_;
        std::erase_if(list, [this](const auto& record) { return gone_[record.first].Contains(record.second); });
        return list;
    }
    bool IsGone(std::uint16_t classIndex, std::uint32_t key) const { return gone_[classIndex].Contains(key); }

private:
    bool Round(std::vector<FlatIndex>& fresh) {
        std::vector<FlatIndex> next(database_.ClassCount());
        bool found = false;
        for (std::uint16_t user = 0; user < database_.ClassCount(); ++user) {
            if (!MayUse(user, fresh)) continue;
            database_.StoreAt(user).ForEachReference(
                [&](std::uint32_t key, const RecordIdentity& target, std::uint32_t targetKey, IfGone ifGone) {
                    if (!fresh[IndexOf(target)].Contains(targetKey)) return;
                    found = Meet({user, key, IndexOf(target), targetKey}, ifGone, next) || found;
                });
        }
        fresh = std::move(next);
        return found;
    }

    bool MayUse(std::uint16_t user, const std::vector<FlatIndex>& fresh) const {
        for (std::uint16_t target = 0; target < database_.ClassCount(); ++target) {
            if (fresh[target].Count() == 0) continue;
            if (database_.StoreAt(user).MayReferTo(database_.StoreAt(target).Identity())) return true;
        }
        return false;
    }

    /// Takes note of a user; true when it has to go as well.
    bool Meet(const User& user, IfGone ifGone, std::vector<FlatIndex>& next) {
        if (gone_[user.classIndex].Contains(user.key)) return false;
        switch (ifGone) {
            case IfGone::Refuse: refusals_.push_back(user); return false;
            case IfGone::Clear:
                if (cleared_[user.classIndex].Put(user.key, 0)) clears_.emplace_back(user.classIndex, user.key);
                return false;
            case IfGone::Cascade: break;
        }
        gone_[user.classIndex].Put(user.key, 0);
        next[user.classIndex].Put(user.key, 0);
        followers_.emplace_back(user.classIndex, user.key);
        return true;
    }

    const DB_CDataBase& database_;
    std::vector<FlatIndex> gone_;
    std::vector<FlatIndex> cleared_;
    std::vector<std::pair<std::uint16_t, std::uint32_t>> followers_;
    std::vector<std::pair<std::uint16_t, std::uint32_t>> clears_;
    std::vector<User> refusals_;
};

void AddDeletion(const DB_CDataBase& database, std::uint16_t classIndex, std::uint32_t key, Batch& batch) {
    const RecordStoreBase& store = database.StoreAt(classIndex);
    const std::uint32_t image = store.CopyTo(key, batch.ImagesOf(classIndex, store));
    batch.changes.push_back({classIndex, {key, image}, {}});
}

/// Adds the modification of a record whose references change, and with them its own key where it is that of another
/// record.
void AddRewrite(const DB_CDataBase& database, std::uint16_t classIndex, std::uint32_t key, const ReferenceMapping& map,
                Batch& batch) {
    const RecordStoreBase& store = database.StoreAt(classIndex);
    ImageList& images = batch.ImagesOf(classIndex, store);
    const std::uint32_t before = store.CopyTo(key, images);
    const std::uint32_t after = images.AppendCopy(images, before);
    images.RewriteReferences(after, map);
    const RecordIdentity* keyClass = store.ForeignKeyClass();
    batch.changes.push_back({classIndex, {key, before}, {keyClass ? map(*keyClass, key) : key, after}});
}

Outcome RefuseInUse(const DB_CDataBase& database, const User& user, std::uint32_t count) {
    const std::string used = database.RecordLabel(user.targetClass, user.targetKey);
    const std::string by = database.RecordLabel(user.classIndex, user.key);
    if (count == 1) return Outcome::Refused(FormatText("IDS_DB_REASON_IN_USE", {used, by}));
    return Outcome::Refused(FormatText("IDS_DB_REASON_IN_USE_MANY", {used, by, velda::FormatLong(count - 1)}));
}

/// Lets references in records outside the batch follow the keys that change.
void FollowKeys(const DB_CDataBase& database, std::uint16_t classIndex, const Keys& oldKeys, const Keys& newKeys,
                Batch& batch) {
    FlatIndex renamed;
    FlatIndex inBatch;
    for (std::size_t i = 0; i < oldKeys.size(); ++i) {
        inBatch.Put(oldKeys[i], 0);
        if (oldKeys[i] != newKeys[i]) renamed.Put(oldKeys[i], newKeys[i]);
    }
    if (renamed.Count() == 0) return;
    const RecordIdentity& changed = database.StoreAt(classIndex).Identity();
    const auto newKeyOf = [&](const RecordIdentity& target, std::uint32_t key) {
        return &target == &changed && renamed.Contains(key) ? renamed.Find(key) : key;
    };
    for (std::uint16_t user = 0; user < database.ClassCount(); ++user) {
        if (!database.StoreAt(user).MayReferTo(changed)) continue;
        FlatIndex met;
        Keys users;
        database.StoreAt(user).ForEachReference(
            [&](std::uint32_t key, const RecordIdentity& target, std::uint32_t targetKey, IfGone) {
                if (newKeyOf(target, targetKey) == targetKey || (user == classIndex && inBatch.Contains(key))) return;
                if (met.Put(key, 0)) users.push_back(key);
            });
        for (const std::uint32_t key : users) AddRewrite(database, user, key, newKeyOf, batch);
    }
}

/// A ring of records by their names, or by their keys where they have none: "A > B > A".
std::string RingText(const RecordStoreBase& store, const Keys& ring) {
    std::string text;
    for (const std::uint32_t key : ring) {
        const std::string name = store.NameOfKey(key);
        text += (text.empty() ? "" : " > ") + (name.empty() ? velda::FormatLong(key) : name);
    }
    return text;
}

}  // namespace

Outcome PlanAdd(const DB_CDataBase& database, std::uint16_t classIndex, const Keys& keys,
                std::unique_ptr<ImageList> records, Batch& batch) {
    if (records->Count() != keys.size()) return Outcome::Refused(FormatText("IDS_DB_REASON_COUNTS_DIFFER", {}));
    Arrival arrival(database, classIndex);
    if (Outcome outcome = arrival.CheckKeys(keys); !outcome) return outcome;
    if (Outcome outcome = arrival.Convert(*records, keys); !outcome) return outcome;
    if (Outcome outcome = arrival.SettleNumbers(*records, Keys(keys.size(), 0)); !outcome) return outcome;
    batch.changes.reserve(keys.size());
    for (std::uint32_t i = 0; i < keys.size(); ++i) batch.changes.push_back({classIndex, {}, {keys[i], i}});
    batch.PutImages(classIndex, std::move(records));
    return Outcome::Done();
}

Outcome PlanDelete(const DB_CDataBase& database, std::uint16_t classIndex, const Keys& keys, Batch& batch) {
    Arrival leaving(database, classIndex);
    if (Outcome outcome = leaving.Leaving(keys); !outcome) return outcome;
    DeletionClosure closure(database);
    closure.Run(classIndex, keys);
    std::uint32_t refusals = 0;
    if (const User* user = closure.FirstRefusal(refusals)) return RefuseInUse(database, *user, refusals);

    const auto keptKey = [&](const RecordIdentity& target, std::uint32_t key) {
        return closure.IsGone(IndexOf(target), key) ? 0u : key;
    };
    for (const auto& [user, key] : closure.Cleared()) AddRewrite(database, user, key, keptKey, batch);
    for (const auto& [follower, key] : closure.Followers()) AddDeletion(database, follower, key, batch);
    for (const std::uint32_t key : keys) AddDeletion(database, classIndex, key, batch);
    return Outcome::Done();
}

Outcome PlanModify(const DB_CDataBase& database, std::uint16_t classIndex, const Keys& oldKeys, const Keys& newKeys,
                   std::unique_ptr<ImageList> records, Batch& batch) {
    if (records->Count() != oldKeys.size() || newKeys.size() != oldKeys.size()) {
        return Outcome::Refused(FormatText("IDS_DB_REASON_COUNTS_DIFFER", {}));
    }
    Arrival arrival(database, classIndex);
    if (Outcome outcome = arrival.Leaving(oldKeys); !outcome) return outcome;
    if (oldKeys != newKeys) {
        if (Outcome outcome = arrival.CheckKeys(newKeys); !outcome) return outcome;
    }
    if (Outcome outcome = arrival.Convert(*records, newKeys); !outcome) return outcome;

    const RecordStoreBase& store = database.StoreAt(classIndex);
    Keys oldNumbers(oldKeys.size(), 0);
    for (std::size_t i = 0; store.HasNumbers() && i < oldKeys.size(); ++i) {
        oldNumbers[i] = store.NumberOfKey(oldKeys[i]);
    }
    if (Outcome outcome = arrival.SettleNumbers(*records, oldNumbers); !outcome) return outcome;

    ImageList& images = *records;
    batch.PutImages(classIndex, std::move(records));
    batch.changes.reserve(oldKeys.size());
    for (std::uint32_t i = 0; i < oldKeys.size(); ++i) {
        const std::uint32_t before = store.CopyTo(oldKeys[i], images);
        batch.changes.push_back({classIndex, {oldKeys[i], before}, {newKeys[i], i}});
    }
    FollowKeys(database, classIndex, oldKeys, newKeys, batch);
    return Outcome::Done();
}

Keys RingOf(const RecordStoreBase& store, std::uint32_t start) {
    FlatIndex ways;  // each key that was reached, and the one before it
    Keys reached{start};
    std::uint32_t last = 0;
    for (std::size_t at = 0; at < reached.size() && last == 0; ++at) {
        const std::uint32_t key = reached[at];
        store.ForEachReferenceOf(key, [&](const RecordIdentity& target, std::uint32_t next, IfGone) {
            if (&target != &store.Identity() || last != 0) return;
            if (next == start) last = key;
            if (next != start && store.Exists(next) && !ways.Contains(next)) {
                ways.Put(next, key);
                reached.push_back(next);
            }
        });
    }
    if (last == 0) return {};
    Keys ring{start};
    for (std::uint32_t key = last; key != start; key = ways.Find(key)) ring.push_back(key);
    ring.push_back(start);
    std::reverse(ring.begin(), ring.end());
    return ring;
}

Outcome CheckReferences(const DB_CDataBase& database, const Batch& batch) {
    std::string reason;
    for (const Change& change : batch.changes) {
        if (change.after.key == 0) continue;
        const RecordStoreBase& store = database.StoreAt(change.classIndex);
        bool ownClass = false;
        batch.ImagesOf(change.classIndex)
            .ForEachReference(change.after.image, change.after.key,
                              [&](const RecordIdentity& target, std::uint32_t key, IfGone) {
                                  ownClass = ownClass || &target == &store.Identity();
                                  const RecordStoreBase& targets = database.StoreAt(IndexOf(target));
                                  if (!reason.empty() || targets.Exists(key)) return;
                                  reason = FormatText("IDS_DB_REASON_REFERENCE",
                                                      {database.RecordLabel(change.classIndex, change.after.key),
                                                       targets.DisplayName(), velda::FormatLong(key)});
                              });
        const Keys ring = reason.empty() && ownClass ? RingOf(store, change.after.key) : Keys();
        if (!ring.empty()) {
            reason = FormatText("IDS_DB_REASON_CONTAINS_ITSELF",
                                {database.RecordLabel(change.classIndex, change.after.key), RingText(store, ring)});
        }
        if (!reason.empty()) return Outcome::Refused(reason);
    }
    return Outcome::Done();
}

}  // namespace zt
