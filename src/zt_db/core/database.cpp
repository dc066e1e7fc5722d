#include "zt_db/core/database.h"

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_db/core/plan.h"
#include "zt_db/records/registry.h"

namespace zt {
namespace {

using velda::FormatText;
using velda::Outcome;

}  // namespace

/// While views are told of a change, no other change may begin: views that are still to be told would walk the wrong
/// buffer.
class DB_CDataBase::TellGuard {
public:
    explicit TellGuard(bool& telling) : telling_(telling) { telling_ = true; }
    ~TellGuard() { telling_ = false; }
    TellGuard(const TellGuard&) = delete;
    TellGuard& operator=(const TellGuard&) = delete;

private:
    bool& telling_;
};

DB_CDataBase::DB_CDataBase(CUnitCtrl& units) : units_(units), buffer_(units) {
    stores_ = MakeRecordStores();
    classes_ = MakeRecordClasses();
    for (const auto& handle : classes_) handle->ConnectToDB(this);
}

DB_CDataBase::~DB_CDataBase() = default;

DB_CDataClass* DB_CDataBase::GetClass(int classId) const {
    const int index = ClassIndexOfId(classId);
    return index < 0 ? nullptr : classes_[static_cast<std::size_t>(index)].get();
}

int DB_CDataBase::FindClass(std::string_view mnemonic) const {
    for (const auto& store : stores_) {
        if (store->Identity().mnemonic == mnemonic) return store->Identity().index;
    }
    return -1;
}

std::string DB_CDataBase::RecordLabel(std::uint16_t classIndex, std::uint32_t key) const {
    return StoreAt(classIndex).DisplayName() + " " + velda::FormatLong(NumberInLabel(classIndex, key));
}

std::uint32_t DB_CDataBase::NumberInLabel(std::uint16_t classIndex, std::uint32_t key) const {
    const RecordStoreBase& store = StoreAt(classIndex);
    const RecordIdentity* keyClass = store.ForeignKeyClass();
    const RecordStoreBase& keys = keyClass ? StoreAt(static_cast<std::uint16_t>(keyClass->index)) : store;
    return keys.HasNumbers() && keys.Exists(key) ? keys.NumberOfKey(key) : key;
}

// ---- transactions ----

int DB_CDataBase::Report(const Outcome& outcome) {
    reason_ = outcome.Reason();
    return outcome ? 1 : 0;
}

Outcome DB_CDataBase::MayChange() const {
    if (readOnly_) return Outcome::Refused(FormatText("IDS_DB_REASON_READ_ONLY", {}));
    if (telling_) return Outcome::Refused(FormatText("IDS_DB_REASON_BEING_SHOWN", {}));
    return Outcome::Done();
}

int DB_CDataBase::Add(std::uint16_t classIndex, const std::vector<std::uint32_t>& keys,
                      std::unique_ptr<ImageList> records) {
    Outcome outcome = MayChange();
    Batch batch;
    if (outcome) outcome = PlanAdd(*this, classIndex, keys, std::move(records), batch);
    if (outcome) outcome = Run(std::move(batch), StepAction::Add, classIndex);
    return Report(outcome);
}

int DB_CDataBase::Delete(std::uint16_t classIndex, const std::vector<std::uint32_t>& keys) {
    Outcome outcome = MayChange();
    Batch batch;
    if (outcome) outcome = PlanDelete(*this, classIndex, keys, batch);
    if (outcome) outcome = Run(std::move(batch), StepAction::Delete, classIndex);
    return Report(outcome);
}

int DB_CDataBase::Modify(std::uint16_t classIndex, const std::vector<std::uint32_t>& oldKeys,
                         const std::vector<std::uint32_t>& newKeys, std::unique_ptr<ImageList> records) {
    Outcome outcome = MayChange();
    Batch batch;
    if (outcome) outcome = PlanModify(*this, classIndex, oldKeys, newKeys, std::move(records), batch);
    if (outcome) outcome = Run(std::move(batch), StepAction::Modify, classIndex);
    return Report(outcome);
}

// Applies a planned batch as a step of its own, or as a part of the open group. A batch of nothing is no step.
Outcome DB_CDataBase::Run(Batch batch, StepAction action, std::uint16_t classIndex) {
    if (batch.changes.empty()) return Outcome::Done();
    if (lock_) {
        if (Outcome outcome = lock_(batch); !outcome) return outcome;
    }
    if (InGroup()) return RunInGroup(batch);

    if (Outcome outcome = storage_ ? storage_->Begin() : Outcome::Done(); !outcome) return outcome;
    Outcome outcome = ApplyChecked(batch);
    if (outcome && storage_) {
        outcome = storage_->Commit();
        if (!outcome) ApplyToMemory(batch, Direction::Backward);
    }
    if (!outcome) {
        if (storage_) storage_->Rollback();
        return outcome;
    }
    const auto count = static_cast<std::uint32_t>(std::count_if(
        batch.changes.begin(), batch.changes.end(), [&](const Change& c) { return c.classIndex == classIndex; }));
    auto step = std::make_shared<Step>();
    step->name = {"", action, classIndex, count};
    step->batches.push_back(std::move(batch));
    Finish(std::move(step));
    return outcome;
}

Outcome DB_CDataBase::RunInGroup(Batch& batch) {
    if (!groupFault_) return groupFault_;
    if (Outcome outcome = ApplyChecked(batch); !outcome) return outcome;
    group_->batches.push_back(std::move(batch));
    return Outcome::Done();
}

// Memory first, since the references are checked on the result; then the storage. When either fails, memory is as
// before.
Outcome DB_CDataBase::ApplyChecked(const Batch& batch) {
    ApplyToMemory(batch, Direction::Forward);
    Outcome outcome = CheckReferences(*this, batch);
    if (outcome && storage_) outcome = storage_->Write(batch, Direction::Forward);
    if (!outcome) ApplyToMemory(batch, Direction::Backward);
    return outcome;
}

void DB_CDataBase::ApplyToMemory(const Batch& batch, Direction direction) {
    ApplyInPhases(
        batch, direction,
        [&](const Change& change) {
            StoreAt(change.classIndex).Remove(From(change, direction).key);
            return true;
        },
        [&](const Change& change) {
            const RecordState& to = To(change, direction);
            StoreAt(change.classIndex).Replace(to.key, batch.ImagesOf(change.classIndex), to.image);
            return true;
        },
        [&](const Change& change) {
            const RecordState& to = To(change, direction);
            StoreAt(change.classIndex).Insert(to.key, batch.ImagesOf(change.classIndex), to.image);
            return true;
        });
}

void DB_CDataBase::Finish(std::shared_ptr<Step> step) {
    redo_.clear();
    undo_.push_back(step);
    ++transactionCount_;
    Tell(std::move(step), Direction::Forward);
}

void DB_CDataBase::Tell(std::shared_ptr<const Step> step, Direction direction) {
    ForgetDeleted(*step, direction);
    buffer_.Fill(std::move(step), direction);
    TellGuard guard(telling_);
    if (listener_) listener_();
}

void DB_CDataBase::ForgetDeleted(const Step& step, Direction direction) {
    std::vector<std::uint32_t> nodes;
    std::vector<std::uint32_t> members;
    for (const Batch& batch : step.batches) {
        for (const Change& change : batch.changes) {
            const std::uint32_t key = From(change, direction).key;
            if (key == 0 || StoreAt(change.classIndex).Exists(key)) continue;
            if (change.classIndex == NodeClassIndex()) nodes.push_back(key);
            if (change.classIndex == MemberClassIndex()) members.push_back(key);
        }
    }
    viewCtrl_.ForgetPont(nodes);
    viewCtrl_.ForgetMemb(members);
}

// ---- groups ----

int DB_CDataBase::BeginGroup(std::string name) {
    Outcome outcome = MayChange();
    if (outcome && !InGroup()) {
        if (storage_) outcome = storage_->Begin();
        if (outcome) {
            group_ = std::make_shared<Step>();
            group_->name.text = std::move(name);
        }
    }
    if (outcome) groupStarts_.push_back(group_->batches.size());
    return Report(outcome);
}

int DB_CDataBase::EndGroup() {
    if (!InGroup()) return Report(Outcome::Refused(FormatText("IDS_DB_REASON_NO_GROUP", {})));
    groupStarts_.pop_back();
    if (InGroup()) return Report(groupFault_);

    Outcome outcome = groupFault_;
    if (outcome && storage_) outcome = storage_->Commit();
    if (!outcome) {
        TakeBackGroup();
        return Report(outcome);
    }
    const std::shared_ptr<Step> step = std::move(group_);
    if (!step->batches.empty()) Finish(step);
    return Report(outcome);
}

void DB_CDataBase::CancelGroup() {
    if (!InGroup()) return;
    const std::size_t start = groupStarts_.back();
    groupStarts_.pop_back();
    if (InGroup()) {
        TakeBackInnerGroup(start);
    } else {
        TakeBackGroup();
    }
}

void DB_CDataBase::TakeBackGroup() {
    for (auto batch = group_->batches.rbegin(); batch != group_->batches.rend(); ++batch) {
        ApplyToMemory(*batch, Direction::Backward);
    }
    group_.reset();
    groupFault_ = Outcome::Done();
    if (storage_) storage_->Rollback();
}

// A storage that cannot follow no longer holds what memory does: the groups around can only be taken back.
void DB_CDataBase::TakeBackInnerGroup(std::size_t start) {
    std::vector<Batch>& batches = group_->batches;
    for (; batches.size() > start; batches.pop_back()) {
        if (groupFault_ && storage_) groupFault_ = storage_->Write(batches.back(), Direction::Backward);
        ApplyToMemory(batches.back(), Direction::Backward);
    }
}

// ---- history ----

int DB_CDataBase::Undo(int count) { return Move(undo_, redo_, Direction::Backward, count, "IDS_DB_REASON_NO_UNDO"); }

int DB_CDataBase::Redo(int count) { return Move(redo_, undo_, Direction::Forward, count, "IDS_DB_REASON_NO_REDO"); }

int DB_CDataBase::Move(std::vector<std::shared_ptr<Step>>& from, std::vector<std::shared_ptr<Step>>& to,
                       Direction direction, int count, std::string_view emptyReason) {
    int done = 0;
    Outcome outcome = MayChange();
    if (outcome && InGroup()) outcome = Outcome::Refused(FormatText("IDS_DB_REASON_GROUP_OPEN", {}));
    while (outcome && done < count) {
        if (from.empty()) {
            outcome = Outcome::Refused(FormatText(emptyReason, {}));
            break;
        }
        const std::shared_ptr<Step> step = from.back();
        outcome = MoveOne(*step, direction);
        if (!outcome) break;
        from.pop_back();
        to.push_back(step);
        ++done;
        Tell(step, direction);
    }
    Report(outcome);
    return done;
}

// A step leads from one valid state to another, so that nothing has to be checked; only the storage can fail.
Outcome DB_CDataBase::MoveOne(const Step& step, Direction direction) {
    const bool forward = direction == Direction::Forward;
    const std::size_t size = step.batches.size();
    const auto batchAt = [&](std::size_t i) -> const Batch& { return step.batches[forward ? i : size - 1 - i]; };
    if (storage_) {
        Outcome outcome = storage_->Begin();
        for (std::size_t i = 0; outcome && i < size; ++i) outcome = storage_->Write(batchAt(i), direction);
        if (outcome) outcome = storage_->Commit();
        if (!outcome) {
            storage_->Rollback();
            return outcome;
        }
    }
    for (std::size_t i = 0; i < size; ++i) ApplyToMemory(batchAt(i), direction);
    return Outcome::Done();
}

int DB_CDataBase::StepsTo(const std::vector<std::string>& names, const std::string& name) {
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? 0 : static_cast<int>(found - names.begin()) + 1;
}

int DB_CDataBase::UndoTo(const std::string& name) {
    const int steps = StepsTo(GetUndoNames(), name);
    if (steps == 0) return Report(Outcome::Refused(FormatText("IDS_DB_REASON_NO_STEP", {name})));
    return Undo(steps);
}

int DB_CDataBase::RedoTo(const std::string& name) {
    const int steps = StepsTo(GetRedoNames(), name);
    if (steps == 0) return Report(Outcome::Refused(FormatText("IDS_DB_REASON_NO_STEP", {name})));
    return Redo(steps);
}

std::string DB_CDataBase::NameOf(const Step& step) const {
    if (!step.name.text.empty()) return step.name.text;
    constexpr std::string_view kOne[] = {"IDS_DB_STEP_ADD", "IDS_DB_STEP_DELETE", "IDS_DB_STEP_MODIFY"};
    constexpr std::string_view kMany[] = {"IDS_DB_STEP_ADD_MANY", "IDS_DB_STEP_DELETE_MANY", "IDS_DB_STEP_MODIFY_MANY"};
    const auto action = static_cast<std::size_t>(step.name.action);
    return FormatText(step.name.count == 1 ? kOne[action] : kMany[action],
                      {StoreAt(step.name.classIndex).DisplayName(), velda::FormatLong(step.name.count)});
}

std::vector<std::string> DB_CDataBase::NamesOf(const std::vector<std::shared_ptr<Step>>& steps) const {
    std::vector<std::string> names;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) names.push_back(NameOf(**step));
    return names;
}

std::vector<std::string> DB_CDataBase::GetUndoNames() const { return NamesOf(undo_); }
std::vector<std::string> DB_CDataBase::GetRedoNames() const { return NamesOf(redo_); }

}  // namespace zt
