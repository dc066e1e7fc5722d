#pragma once

#include "velda_lib/flat_index.h"
#include "velda_lib/key_text.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/pont.h"
#include "zt_tb/core/record_table.h"

namespace zt {

/// The skeleton of tables whose records hang on nodes or members: cells show numbers and the records hold keys. Old
/// numbers stay findable while a change is replayed, renumbering changes them in place, and a detail table shows the
/// records of the selected nodes or members. Where the first column is such a number, the record stands under the key
/// of its node or member, which is never shown.
template <class Table, class Class>
class ObjectTable : public RecordTable<Table, Class> {
public:
    using Base = RecordTable<Table, Class>;
    using typename Base::Column;
    using typename Base::Columns;
    using typename Base::Declaration;
    using typename Base::Options;
    using typename Base::Record;
    using typename Base::Row;
    using Keys = velda::CTBCommon::Keys;
    using RowTexts = velda::CTBCommon::RowTexts;
    using ColumnMap = velda::CTBCommon::ColumnMap;

    std::string GetNewKeyString() override { return StandsUnderObject() ? std::string() : Base::GetNewKeyString(); }
    std::string GetKeyString(int row) const override { return KeyStringOf(Base::GetKeyString(row)); }
    std::string GetKeyStringBeforeEdit(int row) const override {
        return KeyStringOf(Base::GetKeyStringBeforeEdit(row));
    }

    int ValidateColumn(const std::string& text, velda::ColumnId column) override {
        if (!Base::ValidateColumn(text, column)) return 0;
        return this->ColumnAt(column).kind == ObjectKind::None || ValidateObject(text, column);
    }

    /// Keeps the records that belong to the given nodes or members. A key that is given twice comes twice.
    void PreFilterRecord(const Keys& objects) override { Base::PreFilterRecord(RecordsOfObjects(objects)); }

protected:
    static bool StandsUnderObject() { return Base::Declared().columns.front().kind != ObjectKind::None; }

    std::uint32_t KeyOfCell(const std::string& text) const override {
        if (!StandsUnderObject()) return Base::KeyOfCell(text);
        return CTBCommonWnd::GetObjectKey(Base::Declared().columns.front().kind, text);
    }
    velda::ColumnId FirstCheckedColumn() const override { return StandsUnderObject() ? 0 : Base::FirstCheckedColumn(); }

    void BeforeReplay(const CViewBuff& buffer) override {
        if (velda::ColumnId column = ColumnOf(ObjectKind::Node); column != velda::kNoColumn) {
            this->MakeDeletedPontMap(buffer);
            this->ConvOldPontNo2NewPontNo(buffer, column, velda::kNoColumn);
        }
        if (velda::ColumnId column = ColumnOf(ObjectKind::Member); column != velda::kNoColumn) {
            this->MakeDeletedMembMap(buffer);
            this->ConvOldMembNo2NewMembNo(buffer, column);
        }
    }
    void AfterReplay(const CViewBuff& /*buffer*/) override {
        this->RemoveAllDeletedPontMap();
        this->RemoveAllDeletedMembMap();
    }

    bool IsInDetail(std::uint32_t key) const override {
        CDataBase* db = CTBCommonWnd::GetDB();
        if (!db) return false;
        return AnyObject(key, [view = db->GetViewCtrl()](ObjectKind kind, std::uint32_t object) {
            return kind == ObjectKind::Node ? view->IsExistPont(object) : view->IsExistMemb(object);
        });
    }
    Keys RecordsOfObjects(const Keys& objects) const override {
        Keys keys;
        if (StandsUnderObject()) {
            keys = Base::RecordsOfObjects(objects);
            if (this->ShowsSome()) std::erase_if(keys, [this](std::uint32_t key) { return !this->Shows(key); });
        } else if (!objects.empty()) {
            keys = RecordsOn(SetOf(objects), this->AllKeys());
        }
        return keys;
    }

    /// What a row takes from its node or member, the story or the type, changes with it.
    void AddTouched(const CViewBuff& buffer, Keys& keys) const override {
        velda::FlatIndex changed;
        if (ColumnOf(ObjectKind::Node) != velda::kNoColumn) {
            AddModified<T_PONT_D>(buffer, changed,
                                  [](const T_PONT_D& a, const T_PONT_D& b) { return a.story == b.story; });
        }
        if (ColumnOf(ObjectKind::Member) != velda::kNoColumn) {
            AddModified<T_MEMB_D>(buffer, changed, [](const T_MEMB_D& a, const T_MEMB_D& b) {
                return a.story == b.story && a.type == b.type;
            });
        }
        if (changed.Count() == 0) return;
        const Keys touched = RecordsOn(changed, this->CandidateKeys());
        keys.insert(keys.end(), touched.begin(), touched.end());
    }

    /// Refuses a text for a told reason; false.
    int Refuse(const std::string& text, velda::ColumnId column, const std::string& reason) {
        this->AddFinding({velda::kNoRow, column, velda::EditRule::Field, text, reason});
        this->SetWarningText(reason);
        return 0;
    }
    /// The key that the record of the row being checked has; 0 for a new record.
    std::uint32_t CheckedKey() const {
        const int row = this->CheckedRow();
        return row < 1 ? 0 : Base::KeyOfText(GetKeyStringBeforeEdit(row));
    }

private:
    std::string KeyStringOf(const std::string& text) const {
        return StandsUnderObject() ? velda::FormatLong(KeyOfCell(text)) : text;
    }
    /// The column that shows numbers of a kind.
    static velda::ColumnId ColumnOf(ObjectKind kind) {
        const auto& columns = Base::Declared().columns;
        const auto found =
            std::find_if(columns.begin(), columns.end(), [&](const Column& column) { return column.kind == kind; });
        return found == columns.end() ? velda::kNoColumn : static_cast<velda::ColumnId>(found - columns.begin());
    }

    int ValidateObject(const std::string& text, velda::ColumnId id) {
        const Column& column = this->ColumnAt(id);
        const ObjectRules& rules = column.objects;
        const bool isMember = column.kind == ObjectKind::Member;
        const auto number = static_cast<std::uint32_t>(velda::wtol(text));
        if (rules.zeroStandsForAll && number == 0) return 1;
        const auto* members = CTBCommonWnd::GetRecords<CClassMemb>();
        if (isMember && (!members || members->GetCount() < 1)) {
            return Refuse(text, id, velda::KeyText("IDS_TB_NO_EXIST_MEMB_ERROR"));
        }
        const std::uint32_t key = CTBCommonWnd::GetObjectKey(column.kind, number);
        if (key == 0) {
            const char* reason = isMember ? "IDS_TB_CORE_NO_MEMBER" : "IDS_TB_CORE_NO_NODE";
            return Refuse(text, id, velda::FormatText(reason, {text}));
        }
        if (!IsTaken(rules.types, members, key)) return Refuse(text, id, velda::KeyText(rules.wrongType));
        if (!rules.taken.empty() && key != CheckedKey() && this->RecordExists(key)) {
            return Refuse(text, id, velda::KeyText(rules.taken));
        }
        return 1;
    }
    static bool IsTaken(std::span<const int> types, const CClassMemb* members, std::uint32_t key) {
        return types.empty() || std::find(types.begin(), types.end(), members->GetType(key)) != types.end();
    }

    template <class Test>
    bool AnyObject(std::uint32_t key, Test test) const {
        Row row{key, {}};
        if (!this->RecordClass() || !this->RecordClass()->Get(key, row.record)) return false;
        const auto& columns = Base::Declared().columns;
        return std::any_of(columns.begin(), columns.end(), [&](const Column& column) {
            return column.kind != ObjectKind::None && test(column.kind, column.objectKey(row));
        });
    }
    static velda::FlatIndex SetOf(const Keys& keys) {
        velda::FlatIndex set;
        for (const std::uint32_t key : keys) set.Put(key, 1);
        return set;
    }
    Keys RecordsOn(const velda::FlatIndex& objects, Keys keys) const {
        std::erase_if(keys, [&](std::uint32_t key) {
            return !AnyObject(key, [&](ObjectKind, std::uint32_t object) { return objects.Contains(object); });
        });
        return keys;
    }
    /// Adds the keys of the records of a class that a change left unlike what they were. The entry of what a record is
    /// now stands before that of what it was.
    template <class R, class Alike>
    static void AddModified(const CViewBuff& buffer, velda::FlatIndex& keys, Alike alike) {
        const auto& codes = IdentityOf<R>::value.codes;
        CDataOf<R> after;
        CDataOf<R> before;
        for (POSITION at = buffer.GetHeadPosition(); at;) {
            const std::uint64_t entry = buffer.GetNext(at);
            const int code = static_cast<int>(static_cast<std::uint32_t>(entry));
            if (code == codes[static_cast<std::size_t>(ChangeEntry::ModifiedAfter)]) buffer.ReadData(entry, after);
            if (code != codes[static_cast<std::size_t>(ChangeEntry::ModifiedBefore)]) continue;
            if (buffer.ReadData(entry, before) && !alike(before.record, after.record)) keys.Put(after.key, 1);
        }
    }
};

}  // namespace zt
