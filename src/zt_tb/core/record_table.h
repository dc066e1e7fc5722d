#pragma once

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "velda_base/host/cmd_dialog.h"
#include "velda_lib/flat_index.h"
#include "velda_lib/msg_dll.h"
#include "zt_tb/core/declare_columns.h"
#include "zt_tb/core/dependent_cells.h"
#include "zt_tb/core/table_declaration.h"
#include "zt_tb/core/tb_common_wnd.h"

namespace zt {

class CTBView;

/// The skeleton of all tables whose rows are the records of one class: fills rows from records, reads rows into
/// records, validates, sends transactions, replays changes. A table derives from it, declares its columns in `static
/// const Declaration& Declared()`, and overrides the hooks that are its own.
template <class Table, class Class>
class RecordTable : public CTBCommonWnd {
public:
    using Record = typename Class::Record;
    using Row = RecordRow<Record>;
    using Column = TableColumn<Table, Record>;
    using Columns = Declare<Table, Record>;
    using Options = ColumnOptions<Table>;
    using Declaration = TableDeclaration<Table, Record>;

    RecordTable() {
        s_defaultTexts = DefaultTexts();
        for (const Column& column : Declared().columns) {
            AddColInfo(TitleOf(column), column.type, column.options.unit);
        }
        KeyColumns().push_back(0);
    }

    /// Name under which the table class registers; said once at load time.
    static std::string Register() { return RegisterTable(Table::Declared().name, &AppendPreferences); }

    using CTBCommonWnd::Initialize;
    /// Binds the table to its record class and sets its columns up.
    void Initialize(CTBView* /*view*/) {
        class_ = GetDB() ? GetDB()->template GetClass<Class>() : nullptr;
        CTBCommon::Initialize();
        const bool before = LockUpdate(true);
        ChangeStandardStyle(velda::CGXStyle()
                                .SetFontSize(10.0)
                                .SetVerticalAlignment(velda::VerticalAlignment::Bottom)
                                .SetAllowEnter(false));
        SetRowHeight(0, 36);
        SetTableName(std::string(Declared().name));
        InitColumns();
        EnableInsertRowByPressingKey(Declared().inserts);
        SetSortInfo(Declared().sort);
        ApplyPreference();
        ApplyPlaces();
        EnableAppendRow(Declared().appends);
        LockUpdate(before);
    }

    // ---- columns

    velda::ColumnId GetKeyColID() const override { return 0; }
    std::string GetNewKeyString() override { return velda::FormatLong(class_ ? class_->GetNewKey() : 0); }
    std::string GetDefaultCellText(velda::ColumnId column) override {
        const auto at = static_cast<std::size_t>(column);
        if (at >= s_defaultTexts.size()) throw std::invalid_argument("no default text of this column");
        return s_defaultTexts[at];
    }
    const RowTexts& GetDefaultCellTexts() const override { return s_defaultTexts; }

    // ---- selection

    int GetSelectedKeys(Keys& keys) const override {
        keys = selectedKeys_;
        return static_cast<int>(keys.size());
    }
    void OnChangedSelectionPublic(const std::uint32_t* keys, int count) override {
        selectedKeys_.clear();
        if (count > 0) selectedKeys_.assign(keys, keys + count);
    }

    // ---- validation

    int ValidateColumn(const std::string& text, velda::ColumnId column) override {
        if (column < 0 || column >= GetInitialColCount()) return 0;
        long long whole = 0;
        double number = 0.0;
        switch (CheckOf(ColumnAt(column))) {
            case CellCheck::Long: return IsValidLongNumber(text, whole) ? 1 : InvalidLongNumber(column);
            case CellCheck::Double: return IsValidDoubleNumber(text, number) ? 1 : InvalidDoubleNumber(column);
            default: return 1;
        }
    }

    int ValidateRowComplete(const RowTexts& rowTexts, const ColumnMap& columnMap) override {
        const RowTextsView texts{rowTexts, columnMap};
        std::string message;
        for (velda::ColumnId id = FirstCheckedColumn(); id < GetInitialColCount(); ++id) {
            const Column& column = ColumnAt(id);
            if (column.options.passedOver && column.options.passedOver(static_cast<const Table&>(*this), texts))
                continue;
            if (!texts[id].empty()) {
                if (!ValidateColumn(texts[id], id)) return 0;
            } else if (CountsAsMissing(column, texts)) {
                const std::string line = GetTitle(id) + velda::CMsgDll::pfuncLoadStr(Declared().missing, 0);
                AddFinding({velda::kNoRow, id, velda::EditRule::Missing, {}, line});
                message += (message.empty() ? "" : "\n") + line;
            }
        }
        if (message.empty()) return 1;
        SetWarningText(message);
        return 0;
    }

    // ---- transactions

    int AddRecords(const KeyPointers& keys, const RecordPointers& records) override {
        return class_ ? TrAdd(ValuesOf(keys), RecordsOf(records)) : 0;
    }
    int AddRecord(int row) override {
        if (!CanSaveData()) return 0;
        const Row read = ReadRow(row);
        return class_ ? TrAdd({read.key}, {read.record}) : 0;
    }
    int DeleteRecords(const std::vector<int>& rows) override {
        if (rows.empty()) return 1;
        Keys keys;
        for (const int row : rows) keys.push_back(KeyOfText(GetKeyStringBeforeEdit(row)));
        return class_ ? class_->TR_Del(keys) : 0;
    }
    int DeleteRecord(int row) override { return class_ ? class_->TR_Del(Keys{ReadRow(row).key}) : 0; }
    int ModifyRecords(const RowTexts& oldKeyTexts, const KeyPointers& keys, const RecordPointers& records) override {
        Keys oldKeys;
        for (const std::string& text : oldKeyTexts) oldKeys.push_back(KeyOfText(text));
        return class_ ? TrModify(oldKeys, ValuesOf(keys), RecordsOf(records)) : 0;
    }
    int ModifyRecord(int row) override {
        if (!CanSaveData()) return 0;
        const std::uint32_t oldKey = KeyOfText(GetKeyStringBeforeEdit(row));
        const Row read = ReadRow(row, oldKey);
        return class_ ? TrModify({oldKey}, {read.key}, {read.record}) : 0;
    }

    bool NewPasteRecord(const RowTexts& rowTexts, const ColumnMap& columnMap, KeyPointers& keys,
                        RecordPointers& records) override {
        auto key = std::make_unique<std::uint32_t>(0);
        auto record = std::make_unique<Record>();
        record->Initialize();
        keys.push_back(key.release());
        records.push_back(record.release());
        return ParseRowText(rowTexts, columnMap, *keys.back(), *static_cast<Record*>(records.back())) != 0;
    }
    void FreePasteRecords(KeyPointers& keys, RecordPointers& records) override {
        for (std::size_t at = 0; at < std::min(keys.size(), records.size()); ++at) {
            delete keys[at];
            delete static_cast<Record*>(records[at]);
        }
        keys.clear();
        records.clear();
    }
    /// Reads the texts of a row as they stand; formulas are not converted. False when they may not be written.
    virtual int ParseRowText(const RowTexts& rowTexts, const ColumnMap& columnMap, std::uint32_t& key, Record& record) {
        if (!ValidateRowComplete(rowTexts, columnMap)) return 0;
        const RowTextsView texts{rowTexts, columnMap};
        Row row{key, record};
        Keep(KeyOfCell(texts[GetKeyColID()]), row.record);
        for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) ReadCell(id, texts[id], row);
        key = row.key;
        record = std::move(row.record);
        return 1;
    }

    // ---- rows

    int GetRecordCount() const override {
        if (!class_ || !ShowsSome()) return class_ ? class_->GetCount() : 0;
        return static_cast<int>(AllKeys().size());
    }

    void FillRows(int count, const std::uint32_t* keys, const ColumnMap& /*columnMap*/) override {
        FillWith(ToFill({keys, static_cast<std::size_t>(std::max(count, 0))}));
    }
    void FillAllRows(int /*count*/, const ColumnMap& /*columnMap*/) override { FillWith(AllKeys()); }
    void WriteRowFromText(int row, const RowTexts& texts) override {
        RowTexts converted = texts;
        ConvertTypedTexts(converted);
        for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) {
            SetValueRange(row, PositionOfColumn(id), converted[static_cast<std::size_t>(id)]);
        }
    }

    void UpdateBuffer(T_UPDATE_HINT* hint) override {
        CDBDoc* doc = CDBDoc::m_pDBDoc;
        CDataBase* db = hint && doc ? doc->GetMDBCtrl()->GetDB(hint->dbIndex) : nullptr;
        if (!db || !db->GetViewBuff()->HasChanges()) return;
        const velda::GridUpdateLock lock(*this);
        BeforeReplay(*db->GetViewBuff());
        RebuildChoices(*db->GetViewBuff());
        const velda::RowChanges changes = ChangesOf(*db->GetViewBuff());
        if (!changes.IsEmpty()) {
            ReplayFiltered(changes);
            ShowSelected();
        }
        AfterReplay(*db->GetViewBuff());
        AdjustAppendRowNo(0);
    }

    void PreFilterRecord(const Keys& keys) override { CTBCommon::PreFilterRecord(keys); }
    void UpdateSelInDetail(int code, const Keys& keys) override {
        const velda::GridUpdateLock lock(*this);
        velda::RowChanges changes;
        for (const std::uint32_t key : RecordsOfObjects(keys)) {
            if (code == HintCode::SelectionAdded) changes.come.push_back(key);
            if (code == HintCode::SelectionRemoved) changes.gone.push_back(key);
        }
        if (!changes.IsEmpty()) ReplayFiltered(changes);
    }

    // ---- cells that depend on others of their row

    bool HasStyleHook() const override {
        return !Declared().tracerMarks.empty() || Dependent().CanClose() ||
               std::any_of(Declared().columns.begin(), Declared().columns.end(),
                           [](const Column& column) { return column.options.rowStyle != nullptr; });
    }
    void GetStyleRowCol(int row, int col, velda::CGXStyle& style) const override {
        const velda::ColumnId id = IdOfColumn(col);
        const Options& options = ColumnAt(id).options;
        const auto live = [&](velda::ColumnId other) { return GetLiveText(row, PositionOfColumn(other)); };
        if (options.rowStyle) options.rowStyle(static_cast<const Table&>(*this), row, style);
        if (!Dependent().IsEnabled(id, live)) style.SetEnabled(false);
        if (IsTraced(id)) style.SetTextColor(kTracedColor);
    }
    bool OnStartEditing(int row, int col) override {
        const velda::ColumnId cleared = ColumnAt(IdOfColumn(col)).options.clears;
        if (cleared != velda::kNoColumn) beforeClearing_ = GetValueRowCol(row, PositionOfColumn(cleared));
        return CTBCommonWnd::OnStartEditing(row, col);
    }
    void OnModifyCell(int row, int col) override {
        CTBCommonWnd::OnModifyCell(row, col);
        Clear(row, col, Session().EditorText() == kCleared ? kCleared : beforeClearing_);
    }
    void OnEndEditing(int row, int col) override {
        CTBCommonWnd::OnEndEditing(row, col);
        const auto live = [&](velda::ColumnId id) { return GetLiveText(row, PositionOfColumn(id)); };
        Dependent().Follow(IdOfColumn(col), live, [&](velda::ColumnId id, const std::string& text) {
            SetValueRange(row, PositionOfColumn(id), text);
        });
    }
    void OnCanceledEditing(int row, int col) override {
        CTBCommonWnd::OnCanceledEditing(row, col);
        if (IsRowInEdit()) Clear(row, col, beforeClearing_);
    }

    bool OnLButtonDblClk(int row, int /*col*/) override {
        velda::ICmdDialog* dialogs = velda::ICmdDialog::Instance();
        if (Declared().dialog.empty() || !dialogs || row < 1 || row > RecordRowCount()) return false;
        const std::uint32_t key = KeyOfText(GetKeyString(row));
        if (!RecordExists(key)) return false;
        dialogs->DoModal3(Declared().dialog, key, nullptr, nullptr);
        return true;
    }

    /// The texts by which a record's row is found, one for each sort item.
    RowTexts SortKeyTexts(std::uint32_t key, const Record& record) const {
        const Row row{key, record};
        RowTexts texts;
        for (const velda::STBSortItem& item : SortInfo()) texts.push_back(CellText(item.column, row));
        return texts;
    }
    /// Texts of a record by column identifier.
    RowTexts TextsOf(const Row& row) const {
        RowTexts texts;
        for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) texts.push_back(CellText(id, row));
        return texts;
    }

protected:
    static const Declaration& Declared() { return Table::Declared(); }
    Class* RecordClass() const { return class_; }

    // ---- hooks of tables

    virtual int TrAdd(const Keys& keys, const std::vector<Record>& records) { return class_->TR_Add(keys, records); }
    virtual int TrModify(const Keys& oldKeys, const Keys& newKeys, const std::vector<Record>& records) {
        return class_->TR_Modify(oldKeys, newKeys, records);
    }
    /// Before and behind the replay of the table's own records.
    virtual void BeforeReplay(const CViewBuff& /*buffer*/) {}
    virtual void AfterReplay(const CViewBuff& /*buffer*/) {}
    /// Whether a detail table shows this record.
    virtual bool IsInDetail(std::uint32_t key) const {
        CDataBase* db = GetDB();
        return db && db->GetViewCtrl()->IsExistPont(key);
    }
    /// Whether the table shows only some of the records of its class, and whether it shows this one.
    virtual bool ShowsSome() const { return false; }
    virtual bool Shows(std::uint32_t /*key*/) const { return true; }
    /// The records that belong to selected nodes or members: those under their keys.
    virtual Keys RecordsOfObjects(const Keys& objects) const {
        Keys keys = objects;
        std::erase_if(keys, [this](std::uint32_t key) { return !RecordExists(key); });
        return keys;
    }
    /// Adds the records whose rows a change of other records touches.
    virtual void AddTouched(const CViewBuff& /*buffer*/, Keys& /*keys*/) const {}
    /// The record that the text of a key cell stands for.
    virtual std::uint32_t KeyOfCell(const std::string& text) const { return KeyOfText(text); }
    /// The first column that the check of a row looks at. A key that the table gives itself needs no check.
    virtual velda::ColumnId FirstCheckedColumn() const { return 1; }

    /// Keys of all records that the table can show.
    Keys AllKeys() const {
        Keys keys;
        if (class_) class_->GetKeyList(keys);
        return ShowsSome() ? ShownOf(std::move(keys)) : keys;
    }
    /// Records whose rows may change with other records: those in the table, or more where others may come in.
    Keys CandidateKeys() const {
        if (!ShowsSome() || !ShowsAll()) return FilledKeys();
        Keys keys;
        if (class_) class_->GetKeyList(keys);
        return keys;
    }
    static const Column& ColumnAt(velda::ColumnId id) { return Declared().columns[static_cast<std::size_t>(id)]; }
    static std::uint32_t KeyOfText(const std::string& text) { return static_cast<std::uint32_t>(velda::wtol(text)); }

    /// The row as a record, formulas replaced by their values. The key is that of the record that the row stands for; 0
    /// for a new one.
    Row ReadRow(int row, std::uint32_t storedKey = 0) const {
        Row read;
        read.record.Initialize();
        Keep(storedKey, read.record);
        for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) {
            std::string text = GetValueRowCol(row, PositionOfColumn(id));
            ConvertFormulaToValue(id, text);
            ReadCell(id, text, read);
        }
        return read;
    }

    bool RecordExists(std::uint32_t key) const override { return class_ && class_->Exist(key); }
    void WriteRecordCells(std::uint32_t key, velda::CGXData& data, velda::RowId row) override {
        scratch_.key = key;
        // A record that is gone leaves what the record before it had.
        if (class_) class_->Get(key, scratch_.record);
        const Table& table = static_cast<const Table&>(*this);
        velda::ColumnId id = 0;
        for (const Column& column : Declared().columns) {
            CellSink cell(data, row, id++, column.type != velda::ColumnType::String);
            column.show(table, scratch_, cell);
        }
    }

    std::size_t AdjustGivenTexts(RowTexts& texts, const RowTexts& before,
                                 const std::vector<bool>& given) const override {
        velda::ColumnId id = 0;
        const std::size_t passedOver =
            Dependent().Adjust([&](velda::ColumnId other) { return texts[TextPlace(other)]; },
                               [&](velda::ColumnId other) { return before[TextPlace(other)]; },
                               [&](velda::ColumnId other) { return given[TextPlace(other)]; },
                               [&](velda::ColumnId other, const std::string& text) { texts[TextPlace(other)] = text; });
        for (const Column& column : Declared().columns) {
            const auto at = static_cast<std::size_t>(PositionOfColumn(id++) - 1);
            if (column.options.clears == velda::kNoColumn || !given[at] || texts[at] != kCleared) continue;
            texts[static_cast<std::size_t>(PositionOfColumn(column.options.clears) - 1)] = kCleared;
        }
        return passedOver;
    }
    bool MayBeEnabledByRow(velda::ColumnId column) const override { return ColumnAt(column).options.enabled; }
    bool HasUnitOfRow(velda::ColumnId column) const override { return ColumnAt(column).options.unitOfRecord; }
    std::string GetUnitText(velda::ColumnId column) const override {
        const Options& options = ColumnAt(column).options;
        if (!options.modelLength || options.unit == Unit::None) return CTBCommonWnd::GetUnitText(column);
        std::string text;
        CUnitCtrl::GetUnitSystem(Unit::ModelLength, text);
        return text;
    }

    void ConvertTypedTexts(RowTexts& texts) override {
        CDataOf<Record> data;
        Row row{0, data.record};
        for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) {
            std::string& text = texts[static_cast<std::size_t>(id)];
            if (HasUnit(ColumnAt(id).options)) ConvertFormulaToValue(id, text);
            ReadCell(id, text, row);
        }
        data.key = row.key;
        data.record = row.record;
        CUnitCtrl* units = CDBDoc::m_pDBDoc->GetUnitCtrl();
        data.ConvertUnitPrev(units);
        row.record = data.record;
        for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) {
            std::string& text = texts[static_cast<std::size_t>(id)];
            double number = 0.0;
            const Options& options = ColumnAt(id).options;
            if (!HasUnit(options) || !velda::IsValidDoubleNumber(text, number)) continue;
            text = options.modelLength ? velda::FormatDouble(units->FromPrevious(Unit::ModelLength, number))
                                       : CellText(id, row);
        }
    }

private:
    static constexpr const char* kCleared = "0";
    static constexpr std::uint32_t kTracedColor = 255;  ///< red, in the order blue-green-red

    /// Whether the checker traces what a column shows.
    static bool IsTraced(velda::ColumnId id) {
        const auto& marks = Declared().tracerMarks;
        const CDBDoc* doc = CDBDoc::m_pDBDoc;
        if (marks.empty() || !doc || !doc->IsTracerMode()) return false;
        return std::any_of(marks.begin(), marks.end(), [&](const TracerMark& mark) {
            return mark.mode == doc->GetCheckMode() && id >= mark.first && id <= mark.last;
        });
    }

    static bool HasUnit(const Options& options) { return options.unit > Unit::None || options.unitOfRecord; }

    static std::string TitleOf(const Column& column) {
        const std::string title = velda::CMsgDll::pfuncLoadStr(column.title, 0);
        const std::string& unit = column.options.fixedUnit;
        return unit.empty() ? title : title + "\n(" + unit + ")";
    }
    static RowTexts DefaultTexts() {
        RowTexts texts;
        for (const Column& column : Declared().columns) {
            texts.push_back(TextOfDefault(column.options.defaultText));
        }
        texts.insert(texts.end(), Declared().moreDefaults.begin(), Declared().moreDefaults.end());
        return texts;
    }
    static void AppendPreferences(std::vector<velda::STBPrefItem>& items) {
        for (const Column& column : Declared().columns) {
            const velda::STBPrefItem& own = column.options.preference;
            items.push_back(own.columnType != 0 ? own : UsualPreference(column.type, column.options.places));
        }
    }

    void InitColumns() {
        velda::ColumnId id = 0;
        for (const Column& column : Declared().columns) {
            const auto number = static_cast<std::uint32_t>(++id);
            velda::CGXStyle style;
            if (column.type == velda::ColumnType::String) {
                style.SetValueType(velda::ValueType::String).SetHorizontalAlignment(velda::HorizontalAlignment::Left);
            }
            if (column.options.state == CellState::ReadOnly) style.SetReadOnly(true);
            if (column.options.state == CellState::Disabled) style.SetEnabled(false);
            if (column.options.control != velda::ControlKind::Edit) style.SetControl(column.options.control);
            if (column.options.control == velda::ControlKind::CheckBox) {
                style.SetHorizontalAlignment(velda::HorizontalAlignment::Center);
            }
            SetStyleRange(velda::CGXRange().SetCols(number), style);
            if (column.options.choices.set) column.options.choices.set(Self(), id);
            if (column.options.centered) {
                const auto centre = velda::CGXStyle().SetHorizontalAlignment(velda::HorizontalAlignment::Center);
                SetStyleRange(velda::CGXRange().SetCols(number), centre);
            }
            if (column.options.hidden) HideColsByIntend(id, id, true);
        }
    }
    /// Places that the table prescribes stand above those of the preferences.
    void ApplyPlaces() {
        for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) {
            const int places = ColumnAt(id).options.places;
            if (places < 0) continue;
            SetStyleRange(velda::CGXRange().SetCols(static_cast<std::uint32_t>(PositionOfColumn(id))),
                          velda::CGXStyle().SetFormat(velda::NumberFormat::Fixed).SetPlaces(places));
        }
    }

    /// Place of a column's text in the texts by grid column.
    std::size_t TextPlace(velda::ColumnId id) const { return static_cast<std::size_t>(PositionOfColumn(id) - 1); }
    DependentCells<Table, Record> Dependent() const { return DependentCells<Table, Record>(Declared().columns); }

    Table& Self() { return static_cast<Table&>(*this); }
    void RebuildChoices(const CViewBuff& buffer) {
        for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) {
            const auto& choices = ColumnAt(id).options.choices;
            if (choices.follow && choices.follow(buffer)) choices.set(Self(), PositionOfColumn(id));
        }
    }
    void Clear(int row, int col, const std::string& text) {
        const velda::ColumnId cleared = ColumnAt(IdOfColumn(col)).options.clears;
        if (cleared != velda::kNoColumn) SetValueRange(row, PositionOfColumn(cleared), text);
    }

    static CellCheck CheckOf(const Column& column) {
        if (column.options.check != CellCheck::ByType) return column.options.check;
        switch (column.type) {
            case velda::ColumnType::Long: return CellCheck::Long;
            case velda::ColumnType::Double: return CellCheck::Double;
            case velda::ColumnType::String: break;
        }
        return CellCheck::None;
    }
    bool CountsAsMissing(const Column& column, const RowTextsView& texts) const {
        if (!column.read) return false;
        return !column.options.required || column.options.required(static_cast<const Table&>(*this), texts);
    }

    void Keep(std::uint32_t storedKey, Record& record) const {
        Record stored;
        if (Declared().keep && class_ && class_->Get(storedKey, stored)) Declared().keep(stored, record);
    }
    std::string CellText(velda::ColumnId id, const Row& row) const {
        std::string text;
        CellSink cell(text);
        ColumnAt(id).show(static_cast<const Table&>(*this), row, cell);
        return text;
    }
    void ReadCell(velda::ColumnId id, std::string_view text, Row& row) const {
        if (ColumnAt(id).read) ColumnAt(id).read(static_cast<const Table&>(*this), text, row);
    }

    static Keys ValuesOf(const KeyPointers& pointers) {
        Keys keys;
        for (const std::uint32_t* key : pointers) keys.push_back(*key);
        return keys;
    }
    static std::vector<Record> RecordsOf(const RecordPointers& pointers) {
        std::vector<Record> records;
        for (const void* record : pointers) records.push_back(*static_cast<const Record*>(record));
        return records;
    }

    Keys ShownOf(Keys keys) const {
        std::erase_if(keys, [this](std::uint32_t key) { return !Shows(key); });
        return keys;
    }
    /// The records of a list that can be shown, each once.
    Keys ToFill(std::span<const std::uint32_t> list) const {
        velda::FlatIndex met;
        Keys keys;
        for (const std::uint32_t key : list) {
            if (RecordExists(key) && met.Put(key, 1) && (!ShowsSome() || Shows(key))) keys.push_back(key);
        }
        return keys;
    }
    void FillWith(std::span<const std::uint32_t> keys) {
        scratch_.record.Initialize();
        FillRecordRows(keys, [this](std::uint32_t key, velda::CGXData& data, velda::RowId row) {
            WriteRecordCells(key, data, row);
        });
    }

    /// What the buffer means for the rows: every record that it names leaves, and comes back when it still exists. So
    /// the order of the entries does not matter, and keys can be swapped within a step.
    velda::RowChanges ChangesOf(const CViewBuff& buffer) const {
        const auto& codes = IdentityOf<Record>::value.codes;
        velda::RowChanges changes;
        std::uint32_t keyAfter = 0;
        for (POSITION at = buffer.GetHeadPosition(); at;) {
            const std::uint64_t entry = buffer.GetNext(at);
            const int code = static_cast<int>(static_cast<std::uint32_t>(entry));
            const auto* found = std::find(std::begin(codes), std::end(codes), code);
            if (found == std::end(codes)) continue;
            const auto kind = static_cast<ChangeEntry>(found - std::begin(codes));
            const std::uint32_t key = buffer.KeyOf(entry);
            changes.gone.push_back(key);
            if (kind == ChangeEntry::ModifiedAfter) keyAfter = key;
            if (kind == ChangeEntry::ModifiedBefore && key != keyAfter) changes.rekeyed.push_back({key, keyAfter});
        }
        const bool all = std::any_of(Declared().columns.begin(), Declared().columns.end(), [&](const Column& column) {
            return column.options.follows && column.options.follows(buffer);
        });
        if (all) {
            const Keys keys = CandidateKeys();
            changes.gone.insert(changes.gone.end(), keys.begin(), keys.end());
        } else {
            AddTouched(buffer, changes.gone);
        }
        std::sort(changes.gone.begin(), changes.gone.end());
        changes.gone.erase(std::unique(changes.gone.begin(), changes.gone.end()), changes.gone.end());
        for (const std::uint32_t key : changes.gone) {
            if (!RecordExists(key) || (ShowsSome() && !Shows(key))) continue;
            if (GetTableRunMode() != kDetail || IsInDetail(key)) changes.come.push_back(key);
        }
        return changes;
    }

    static inline RowTexts s_defaultTexts;
    Class* class_ = nullptr;
    Keys selectedKeys_;
    std::string beforeClearing_;  ///< of the check box that the edited one clears
    Row scratch_{};
};

}  // namespace zt
