#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "velda_lib/outcome.h"
#include "zt_db/core/data_class.h"
#include "zt_db/core/model_storage.h"
#include "zt_db/core/view_buff.h"
#include "zt_db/core/view_ctrl.h"

namespace zt {

/// A model database: the records of every class, the one road on which they change, and the history of changes.
///
/// A transaction is validated whole, applied, written to the storage, filed in the change buffer and the undo history,
/// and then told to the listener. A refused transaction changes nothing; GetLastReason says why.
class DB_CDataBase {
public:
    explicit DB_CDataBase(CUnitCtrl& units);
    ~DB_CDataBase();
    DB_CDataBase(const DB_CDataBase&) = delete;
    DB_CDataBase& operator=(const DB_CDataBase&) = delete;

    /// The shared handle of a record class; null for an identifier that names none.
    DB_CDataClass* GetClass(int classId) const;
    /// The shared handle of a record class by its type.
    template <class Class>
    Class* GetClass() const {
        return static_cast<Class*>(GetClass(Class::m_nClassID));
    }

    CViewBuff* GetViewBuff() { return &buffer_; }
    CViewCtrl* GetViewCtrl() { return &viewCtrl_; }
    const CUnitCtrl& Units() const { return units_; }

    // ---- transactions; records are in current units. Each returns 1, or 0 when it was refused.

    int Add(std::uint16_t classIndex, const std::vector<std::uint32_t>& keys, std::unique_ptr<ImageList> records);
    int Delete(std::uint16_t classIndex, const std::vector<std::uint32_t>& keys);
    int Modify(std::uint16_t classIndex, const std::vector<std::uint32_t>& oldKeys,
               const std::vector<std::uint32_t>& newKeys, std::unique_ptr<ImageList> records);

    /// Why the last transaction, undo, redo or group was refused; empty after one that was not.
    const std::string& GetLastReason() const { return reason_; }

    // ---- groups: several transactions as one step with one hint at the end. Groups nest; only the outermost ends.

    int BeginGroup(std::string name);
    /// Ends a group. Returns 0, and takes everything back, when the outermost one cannot be written.
    int EndGroup();
    /// Takes back everything since the last BeginGroup and ends that group; the groups around it go on.
    void CancelGroup();
    bool InGroup() const { return !groupStarts_.empty(); }

    // ---- history

    /// Takes back, or makes again, up to `count` steps. Returns how many; GetLastReason tells why it were fewer.
    int Undo(int count = 1);
    int Redo(int count = 1);
    /// Takes back, or makes again, steps up to and including the next one of this name; 0 when there is none.
    int UndoTo(const std::string& name);
    int RedoTo(const std::string& name);
    /// Names of the steps that can be undone or redone, the next one first.
    std::vector<std::string> GetUndoNames() const;
    std::vector<std::string> GetRedoNames() const;
    /// Number of steps made by transactions since the database was opened; undo and redo do not count.
    std::uint64_t GetTransactionCount() const { return transactionCount_; }

    // ---- the host's side

    /// Called after each step with the change buffer filled.
    void SetListener(std::function<void()> listener) { listener_ = std::move(listener); }
    /// Keeps transactions in a storage from now on; null for memory only.
    void SetStorage(ModelStorage* storage) { storage_ = storage; }
    void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }
    /// Asked before the changes of a transaction are applied; what it refuses does not happen. Undo and redo are not
    /// asked about, since they lead to states that were allowed.
    void SetLock(std::function<velda::Outcome(const Batch&)> lock) { lock_ = std::move(lock); }
    bool IsReadOnly() const { return readOnly_; }

    std::uint16_t ClassCount() const { return static_cast<std::uint16_t>(stores_.size()); }
    RecordStoreBase& StoreAt(std::uint16_t classIndex) { return *stores_[classIndex]; }
    const RecordStoreBase& StoreAt(std::uint16_t classIndex) const { return *stores_[classIndex]; }
    /// Index of the class with a mnemonic such as "THIK"; -1 when there is none.
    int FindClass(std::string_view mnemonic) const;

    /// How a user knows a record: its class and its number, that of the record under whose key it stands, or its key in
    /// classes without numbers.
    std::string RecordLabel(std::uint16_t classIndex, std::uint32_t key) const;
    /// The number in that label.
    std::uint32_t NumberInLabel(std::uint16_t classIndex, std::uint32_t key) const;

private:
    class TellGuard;

    int Report(const velda::Outcome& outcome);
    velda::Outcome MayChange() const;
    velda::Outcome Run(Batch batch, StepAction action, std::uint16_t classIndex);
    velda::Outcome RunInGroup(Batch& batch);
    velda::Outcome ApplyChecked(const Batch& batch);
    void ApplyToMemory(const Batch& batch, Direction direction);
    void TakeBackGroup();
    void TakeBackInnerGroup(std::size_t start);
    void Finish(std::shared_ptr<Step> step);
    void Tell(std::shared_ptr<const Step> step, Direction direction);
    void ForgetDeleted(const Step& step, Direction direction);
    int Move(std::vector<std::shared_ptr<Step>>& from, std::vector<std::shared_ptr<Step>>& to, Direction direction,
             int count, std::string_view emptyReason);
    velda::Outcome MoveOne(const Step& step, Direction direction);
    std::string NameOf(const Step& step) const;
    std::vector<std::string> NamesOf(const std::vector<std::shared_ptr<Step>>& steps) const;
    static int StepsTo(const std::vector<std::string>& names, const std::string& name);

    CUnitCtrl& units_;
    std::vector<std::unique_ptr<RecordStoreBase>> stores_;
    std::vector<std::unique_ptr<DB_CDataClass>> classes_;
    CViewBuff buffer_;
    CViewCtrl viewCtrl_;

    ModelStorage* storage_ = nullptr;
    std::function<void()> listener_;
    std::function<velda::Outcome(const Batch&)> lock_;
    bool readOnly_ = false;
    bool telling_ = false;

    std::vector<std::shared_ptr<Step>> undo_;
    std::vector<std::shared_ptr<Step>> redo_;
    std::shared_ptr<Step> group_;
    std::vector<std::size_t> groupStarts_;  ///< where each open group begins among the batches, the outermost first
    velda::Outcome groupFault_ = velda::Outcome::Done();  ///< why the open groups can no longer be written
    std::uint64_t transactionCount_ = 0;
    std::string reason_;
};

using CDataBase = DB_CDataBase;

}  // namespace zt
