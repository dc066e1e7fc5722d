#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/edit/key_chord.h"
#include "velda_util/grid/tb_common.h"
#include <gtest/gtest.h>

namespace velda {

/// A record of the test database.
struct Plate {
    long long number = 0;
    std::string name{};
    double thickness = 0.0;  ///< in m
    int kind = 1;
    bool check = false;
    std::string note{};
    bool operator==(const Plate&) const = default;
};

class PlateTable;

/// A database in memory: it counts transactions and steps of its history, refuses what a rule tells it to,
/// and tells its tables directly of each change.
class PlateDatabase {
public:
    using Keys = std::vector<std::uint32_t>;
    using Plates = std::map<std::uint32_t, Plate>;

    int Add(const Keys& keys, const std::vector<Plate>& plates);
    int Modify(const Keys& from, const Keys& to, const std::vector<Plate>& plates);
    int Delete(const Keys& keys);
    bool Undo();
    /// A change from another window.
    void Put(std::uint32_t key, const Plate& plate);

    bool BeginStep();
    bool EndStep();
    void CancelStep();

    std::uint32_t NewKey() const {
        std::uint32_t key = firstFreeKey || plates.empty() ? 1 : plates.rbegin()->first + 1;
        while (plates.count(key) > 0) ++key;
        return key;
    }

    Plates plates;
    std::vector<PlateTable*> tables;
    /// Why a plate is refused; empty where it is not.
    std::function<std::string(const Plate&)> rule = [](const Plate&) { return std::string(); };
    std::string refusal;
    int transactions = 0;
    /// New keys fill gaps.
    bool firstFreeKey = false;
    /// Texts of lengths are shown in m times this.
    double lengthFactor = 1.0;
    double lengthFactorBefore = 1.0;

    std::size_t StepCount() const { return history_.size(); }
    bool IsStepOpen() const { return inStep_; }

private:
    bool Refuses(const std::vector<Plate>& plates);
    void Commit(Plates after, const RowChanges& changes);
    void Tell(const RowChanges& changes);

    std::vector<Plates> history_;
    Plates stepBegin_;
    bool inStep_ = false;
};

/// A table of plates with a column of each sort.
class PlateTable : public CTBCommon {
public:
    enum Column : ColumnId { Key, Number, Name, Thickness, Kind, Check, Note, Area, Mark, ColumnCount };
    static constexpr std::string_view kKinds = "1\tSlab\n2\tWall\n3\tShell\n";

    explicit PlateTable(PlateDatabase& db) : db_(db) {
        AddColInfo("Key", ColumnType::Long, 0);
        AddColInfo("Number", ColumnType::Long, 0);
        AddColInfo("Name", ColumnType::String, 0);
        AddColInfo("Thickness", ColumnType::Double, 1);
        AddColInfo("Kind", ColumnType::Long, 0);
        AddColInfo("Check", ColumnType::Long, 0);
        AddColInfo("Note", ColumnType::String, 0);
        AddColInfo("Area", ColumnType::Double, 0);
        AddColInfo("Mark", ColumnType::String, 0);
        KeyColumns().push_back(Key);
        db_.tables.push_back(this);
    }
    ~PlateTable() override { std::erase(db_.tables, this); }

    bool Initialize() override {
        CTBCommon::Initialize();
        SetTableName(RegisterTable("TBGridTestPlates", &AppendPreferences));
        const auto style = [this](Column column, const CGXStyle& with) {
            SetStyleRange(CGXRange().SetCols(static_cast<std::uint32_t>(column) + 1), with);
        };
        const CGXStyle text = CGXStyle().SetValueType(ValueType::String);
        style(Name, text);
        style(Note, text);
        style(Kind, CGXStyle()
                        .SetControl(ControlKind::TabbedDropDownList)
                        .SetKeyColumn("0")
                        .SetTextColumn("1")
                        .SetChoiceList(kKinds));
        style(Check, CGXStyle().SetControl(ControlKind::CheckBox));
        style(Area, CGXStyle().SetReadOnly(true));
        style(Mark, CGXStyle().SetEnabled(false));
        HideColsByIntend(1, 1, true);
        SetSortInfo({{Number, 0, 0}});
        ApplyPreference();
        EnableAppendRow(true);
        return true;
    }

    // ---- what a table supplies

    int AddRecords(const KeyPointers& keys, const RecordPointers& records) override {
        return db_.Add(Values(keys), Plates(records));
    }
    int AddRecord(int row) override {
        const auto [key, plate] = Read(GridTextsOf(row), CurrentColumnMap());
        return CanSaveData() && db_.Add({key}, {plate});
    }
    int DeleteRecords(const std::vector<int>& rows) override {
        if (rows.empty()) return 1;
        Keys keys;
        for (const int row : rows) keys.push_back(static_cast<std::uint32_t>(wtol(GetKeyStringBeforeEdit(row))));
        return db_.Delete(keys);
    }
    int DeleteRecord(int row) override {
        ++singleDeletes;
        return DeleteRecords({row});
    }
    int ModifyRecords(const RowTexts& oldKeyTexts, const KeyPointers& keys, const RecordPointers& records) override {
        Keys old;
        for (const std::string& text : oldKeyTexts) old.push_back(static_cast<std::uint32_t>(wtol(text)));
        return db_.Modify(old, Values(keys), Plates(records));
    }
    int ModifyRecord(int row) override {
        const auto [key, plate] = Read(GridTextsOf(row), CurrentColumnMap());
        return CanSaveData() &&
               db_.Modify({static_cast<std::uint32_t>(wtol(GetKeyStringBeforeEdit(row)))}, {key}, {plate});
    }
    std::string GetNewKeyString() override { return FormatLong(db_.NewKey()); }
    std::string GetDefaultCellText(ColumnId column) override {
        return GetDefaultCellTexts().at(static_cast<std::size_t>(column));
    }
    const RowTexts& GetDefaultCellTexts() const override {
        static const RowTexts texts{"", "0", "", "", "1", "0", "", "", ""};
        return texts;
    }
    bool NewPasteRecord(const RowTexts& rowTexts, const ColumnMap& columnMap, KeyPointers& keys,
                        RecordPointers& records) override {
        keys.push_back(new std::uint32_t(0));
        records.push_back(new Plate);
        ++allocated;
        if (!ValidateRowComplete(rowTexts, columnMap)) return false;
        auto [key, plate] = Read(rowTexts, columnMap);
        *keys.back() = key;
        *static_cast<Plate*>(records.back()) = plate;
        return true;
    }
    void FreePasteRecords(KeyPointers& keys, RecordPointers& records) override {
        allocated -= static_cast<int>(keys.size());
        for (std::uint32_t* key : keys) delete key;
        for (void* record : records) delete static_cast<Plate*>(record);
        keys.clear();
        records.clear();
    }
    int ValidateColumn(const std::string& text, ColumnId column) override {
        long long whole = 0;
        double number = 0.0;
        if (column < 0 || column >= GetInitialColCount()) return 0;
        switch (columns_.Info(column).type) {
            case ColumnType::Long: return IsValidLongNumber(text, whole) ? 1 : InvalidLongNumber(column);
            case ColumnType::Double: return IsValidDoubleNumber(text, number) ? 1 : InvalidDoubleNumber(column);
            default: return 1;
        }
    }
    int ValidateRowComplete(const RowTexts& rowTexts, const ColumnMap& columnMap) override {
        std::string message;
        for (const ColumnId id : {Number, Name, Thickness, Kind, Check}) {
            const std::string& text =
                rowTexts.at(static_cast<std::size_t>(columnMap.at(static_cast<std::size_t>(id)) - 1));
            if (!text.empty()) {
                if (!ValidateColumn(text, id)) return 0;
                continue;
            }
            if (id != Name && id != Thickness) continue;
            const std::string line = GetTitle(id) + CMsgDll::pfuncLoadStr("IDS_TB_has_not_been_entered", 0);
            AddFinding({kNoRow, id, EditRule::Missing, {}, line});
            message += (message.empty() ? "" : "\n") + line;
        }
        if (message.empty()) return 1;
        SetWarningText(message);
        return 0;
    }
    int GetRecordCount() const override { return static_cast<int>(db_.plates.size()); }
    void FillRows(int count, const std::uint32_t* keys, const ColumnMap& /*map*/) override {
        Fill({keys, keys + std::max(count, 0)});
    }
    void FillAllRows(int /*count*/, const ColumnMap& /*map*/) override {
        Keys keys;
        for (const auto& [key, plate] : db_.plates) keys.push_back(key);
        Fill(keys);
    }
    void WriteRowFromText(int row, const RowTexts& texts) override {
        RowTexts converted = texts;
        ConvertTypedTexts(converted);
        for (ColumnId id = 0; id < GetColCount(); ++id) {
            SetValueRange(row, PositionOfColumn(id), converted[static_cast<std::size_t>(id)]);
        }
    }
    void ConvertTypedTexts(RowTexts& texts) override {
        std::string& text = texts[Thickness];
        double value = 0.0;
        if (velda::IsValidDoubleNumber(text, value)) {
            text = FormatDouble(value / db_.lengthFactorBefore * db_.lengthFactor);
        }
    }
    std::string GetRefusalReason() const override { return db_.refusal; }
    void OnChangedSelectionPublic(const std::uint32_t* keys, int count) override {
        selected.clear();
        if (count > 0) selected.assign(keys, keys + count);
    }
    int GetSelectedKeys(Keys& keys) const override {
        keys = selected;
        return static_cast<int>(keys.size());
    }
    std::string GetUnitText(ColumnId column) const override {
        if (column != Thickness) return {};
        return db_.lengthFactor == 1.0 ? "m" : "mm";
    }

    /// The database changed.
    void Replay(const RowChanges& changes) {
        const GridUpdateLock lock(*this);
        ReplayFiltered(changes);
        ShowSelected();
        AdjustAppendRowNo(0);
    }
    bool HasStyleHook() const override { return static_cast<bool>(styleHook); }
    void GetStyleRowCol(int row, int col, CGXStyle& style) const override { styleHook(row, col, style); }

    // ---- short forms for tests

    int Col(Column column) const { return PositionOfColumn(column); }
    std::string Text(int row, Column column) const { return GetValueRowCol(row, Col(column)); }
    std::vector<std::string> ColumnTexts(Column column) const {
        std::vector<std::string> texts;
        for (int row = 1; row <= RecordRowCount(); ++row) texts.push_back(Text(row, column));
        return texts;
    }
    bool GoTo(int row, Column column) { return SetCurrentCell(row, Col(column)); }
    bool Press(std::string_view chord) { return ProcessKey(ParseKeyChord(chord).value()); }
    bool Enter(int row, Column column, const std::string& text) { return EditCell(row, Col(column), text); }

    Keys selected;
    int allocated = 0;
    int singleDeletes = 0;
    std::function<void(int, int, CGXStyle&)> styleHook;

protected:
    bool BeginStep(const std::string& /*name*/) override { return db_.BeginStep(); }
    bool EndStep() override { return db_.EndStep(); }
    void CancelStep() override { db_.CancelStep(); }
    bool RecordExists(std::uint32_t key) const override { return db_.plates.count(key) > 0; }
    void WriteRecordCells(std::uint32_t key, CGXData& data, RowId row) override {
        const Plate& plate = db_.plates.at(key);
        data.StoreText(row, Key, FormatLong(key), true);
        data.StoreText(row, Number, FormatLong(plate.number), true);
        data.StoreText(row, Name, plate.name, false);
        data.StoreText(row, Thickness, FormatDouble(plate.thickness * db_.lengthFactor), true);
        data.StoreText(row, Kind, FormatLong(plate.kind), true);
        data.StoreText(row, Check, plate.check ? "1" : "0", true);
        data.StoreText(row, Note, plate.note, false);
        data.StoreText(row, Area, "12.5", true);
        data.StoreText(row, Mark, "m" + FormatLong(key), false);
    }

private:
    static void AppendPreferences(std::vector<STBPrefItem>& items) {
        items = {{1, 2, 0, 40}, {1, 2, 0, 50}, {3, 2, 0, 80}, {2, 2, 2, 90}, {1, 2, 0, 60},
                 {1, 2, 0, 30}, {3, 2, 0, 80}, {2, 2, 1, 70}, {3, 2, 0, 20}};
    }
    void Fill(const Keys& keys) {
        FillRecordRows(keys, [this](std::uint32_t key, CGXData& data, RowId row) { WriteRecordCells(key, data, row); });
    }
    static Keys Values(const KeyPointers& pointers) {
        Keys keys;
        for (const std::uint32_t* key : pointers) keys.push_back(*key);
        return keys;
    }
    static std::vector<Plate> Plates(const RecordPointers& pointers) {
        std::vector<Plate> plates;
        for (const void* plate : pointers) plates.push_back(*static_cast<const Plate*>(plate));
        return plates;
    }
    std::pair<std::uint32_t, Plate> Read(const RowTexts& texts, const ColumnMap& map) const {
        const auto text = [&](Column id) {
            std::string value = texts.at(static_cast<std::size_t>(map.at(static_cast<std::size_t>(id)) - 1));
            ConvertFormulaToValue(id, value);
            return value;
        };
        return {static_cast<std::uint32_t>(wtol(text(Key))),
                {wtol(text(Number)), text(Name), wtof(text(Thickness)) / db_.lengthFactor,
                 static_cast<int>(wtol(text(Kind))), text(Check) == "1", text(Note)}};
    }

    PlateDatabase& db_;
};

// ---- the database ----

inline bool PlateDatabase::Refuses(const std::vector<Plate>& list) {
    ++transactions;
    for (const Plate& plate : list) {
        refusal = rule(plate);
        if (!refusal.empty()) return true;
    }
    return false;
}

inline int PlateDatabase::Add(const Keys& keys, const std::vector<Plate>& list) {
    if (Refuses(list)) return 0;
    Plates after = plates;
    for (std::size_t at = 0; at < keys.size(); ++at) {
        if (!after.emplace(keys[at], list[at]).second) return 0;
    }
    Commit(std::move(after), {{}, keys, {}});
    return 1;
}

inline int PlateDatabase::Modify(const Keys& from, const Keys& to, const std::vector<Plate>& list) {
    if (Refuses(list)) return 0;
    Plates after = plates;
    for (const std::uint32_t key : from) {
        if (after.erase(key) == 0) return 0;
    }
    RowChanges changes{from, to, {}};
    for (std::size_t at = 0; at < to.size(); ++at) {
        after[to[at]] = list[at];
        if (from[at] != to[at]) changes.rekeyed.push_back({from[at], to[at]});
    }
    Commit(std::move(after), changes);
    return 1;
}

inline int PlateDatabase::Delete(const Keys& keys) {
    ++transactions;
    Plates after = plates;
    for (const std::uint32_t key : keys) after.erase(key);
    Commit(std::move(after), {keys, {}, {}});
    return 1;
}

inline void PlateDatabase::Put(std::uint32_t key, const Plate& plate) {
    Plates after = plates;
    after[key] = plate;
    Commit(std::move(after), {{}, {key}, {}});
}

inline void PlateDatabase::Commit(Plates after, const RowChanges& changes) {
    if (!inStep_) history_.push_back(plates);
    plates = std::move(after);
    Tell(changes);
}

inline void PlateDatabase::Tell(const RowChanges& changes) {
    for (PlateTable* table : std::vector<PlateTable*>(tables)) table->Replay(changes);
}

inline bool PlateDatabase::BeginStep() {
    stepBegin_ = plates;
    inStep_ = true;
    return true;
}

inline bool PlateDatabase::EndStep() {
    history_.push_back(stepBegin_);
    inStep_ = false;
    return true;
}

inline void PlateDatabase::CancelStep() {
    history_.push_back(stepBegin_);
    inStep_ = false;
    Undo();
}

inline bool PlateDatabase::Undo() {
    if (history_.empty()) return false;
    RowChanges changes;
    const Plates before = std::exchange(plates, history_.back());
    history_.pop_back();
    for (const auto& [key, plate] : before) {
        if (plates.count(key) == 0) changes.gone.push_back(key);
    }
    for (const auto& [key, plate] : plates) {
        const auto old = before.find(key);
        if (old == before.end() || !(old->second == plate)) changes.come.push_back(key);
    }
    Tell(changes);
    return true;
}

// ---- the test ----

/// What a table told its window.
class RecordingHost : public GridHost {
public:
    void OnRedraw() override { ++redraws; }
    void OnWarning(const std::string& text) override { warnings.push_back(text); }
    void OnMessage(const std::string& text) override { messages.push_back(text); }

    int redraws = 0;
    std::vector<std::string> warnings;
    std::vector<std::string> messages;
};

/// A table with three plates: keys 1, 2, 3 with the numbers 10, 20, 30.
class PlateTableTest : public testing::Test {
protected:
    using Texts = std::vector<std::string>;
    using Keys = std::vector<std::uint32_t>;

    PlateTableTest() {
        db.plates = {
            {1, {10, "A", 0.1, 1, false, ""}}, {2, {20, "B", 0.2, 2, true, "x"}}, {3, {30, "C", 0.3, 1, false, ""}}};
        table.SetHost(&host);
        table.Initialize();
        Open();
        CTBGrid::m_Find = {};
    }
    void Open() { table.MakeItemEx(nullptr, -2, 0); }
    /// Plates with keys and numbers from 1 on, named "P" and their number.
    void FillWith(int count) {
        db.plates.clear();
        for (int at = 1; at <= count; ++at) {
            db.plates[static_cast<std::uint32_t>(at)] = {at, "P" + std::to_string(at), 0.1, 1, false, ""};
        }
        Open();
    }
    GridPosition At() const {
        GridPosition at;
        table.GetCurrentCell(at.row, at.column);
        return at;
    }
    GridPosition Cell(int row, PlateTable::Column column) const { return {row, table.Col(column)}; }
    void SelectCells(int top, PlateTable::Column left, int bottom, PlateTable::Column right) {
        ASSERT_TRUE(table.GoTo(top, left));
        table.ExtendSelection(Cell(bottom, right));
    }
    std::string LastWarning() const { return host.warnings.empty() ? "" : host.warnings.back(); }
    std::string LastMessage() const { return host.messages.empty() ? "" : host.messages.back(); }

    PlateDatabase db;
    PlateTable table{db};
    RecordingHost host;
};

}  // namespace velda
