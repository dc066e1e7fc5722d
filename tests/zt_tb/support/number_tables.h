#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "zt_db/records/mbtp.h"
#include "zt_db/test_support.h"
#include "zt_tb/core/record_table.h"
#include "zt_tb/core/tb_view.h"

namespace zt {

/// A table that shows the numbers of members which it does not hold itself: one row for each design element, in the
/// order of the numbers.
class PartTable : public RecordTable<PartTable, CClassPrel> {
public:
    static constexpr velda::ColumnId kMember = 1;
    static constexpr int kMemberCol = 2;
    static constexpr int kPartCol = 3;
    static constexpr int kChoiceCol = 4;

    static const Declaration& Declared() {
        static const Declaration declaration{
            .name = "TBPartTest",
            .columns =
                {Columns::Key("Key"),
                 {"Member", velda::ColumnType::Long, &ShowMember, &ReadMember, {}},
                 Columns::Long<&T_PREL_D::part>("Part", {.defaultText = "1"}),
                 {"Choice", velda::ColumnType::String, [](const PartTable&, const Row&, CellSink&) {}, nullptr, {}}},
            .sort = {{kMember, 0, 0}},
            .appends = true,
        };
        return declaration;
    }
    static inline const std::string m_strRegName = Register();

    /// What the last renumbering answered.
    int renumbered = -1;

protected:
    void BeforeReplay(const CViewBuff& buffer) override { renumbered = ConvOldMembNo2NewMembNo(buffer, kMember); }

private:
    static void ShowMember(const PartTable&, const Row& row, CellSink& cell) {
        const auto* members = GetRecords<CClassMemb>();
        cell.Key(members ? members->GetMembNoByKey(row.record.memb) : 0);
    }
    static void ReadMember(const PartTable&, std::string_view text, Row& row) {
        row.record.memb = GetRecords<CClassMemb>()->GetMembKeyByNo(static_cast<std::uint32_t>(velda::wtol(text)));
    }
};

/// A table of members with the numbers of their two nodes.
class SpanTable : public RecordTable<SpanTable, CClassMemb> {
public:
    static constexpr velda::ColumnId kStart = 1;
    static constexpr velda::ColumnId kEnd = 2;
    static constexpr int kStartCol = 2;
    static constexpr int kEndCol = 3;
    static constexpr int kPlanCol = 4;

    static const Declaration& Declared() {
        static const Declaration declaration{
            .name = "TBSpanTest",
            .columns = {Columns::Key("Key"),
                        {"Start", velda::ColumnType::Long, &ShowNode<0>, &ReadNode<0>, {}},
                        {"End", velda::ColumnType::Long, &ShowNode<1>, &ReadNode<1>, {}},
                        Columns::Long<&T_MEMB_D::plan>("Plan")},
            .sort = {{kStart, 0, 0}},
        };
        return declaration;
    }
    static inline const std::string m_strRegName = Register();

private:
    template <std::size_t Place>
    static void ShowNode(const SpanTable&, const Row& row, CellSink& cell) {
        cell.Key(GetRecords<CClassPont>()->GetPontNoByKey(row.record.nodes.at(Place)));
    }
    template <std::size_t Place>
    static void ReadNode(const SpanTable&, std::string_view text, Row& row) {
        row.record.nodes.resize(2);
        row.record.nodes[Place] =
            GetRecords<CClassPont>()->GetPontKeyByNo(static_cast<std::uint32_t>(velda::wtol(text)));
    }
};

/// A view of one table, filled with all records.
template <class Table>
class OneTableView : public CTBView {
public:
    explicit OneTableView(CDBDoc& doc) {
        auto made = std::make_unique<Table>();
        table = made.get();
        AddWorksheet(std::move(made), "");
        table->Initialize(this);
        table->MakeItemEx(nullptr, -2, 0);
        ConnectToDoc(&doc);
    }
    void UpdateBuffer(T_UPDATE_HINT* hint) override { table->UpdateBuffer(hint); }

    Table* table = nullptr;
};

/// A model whose records are made in a word each.
class TableTest : public ModelTest {
protected:
    ~TableTest() override { CDBDoc::m_pDBDoc = nullptr; }

    template <class Class>
    void Add(std::uint32_t key, const typename Class::Record& record) {
        ASSERT_TRUE(Records<Class>().TR_Add(key, record)) << Db().GetLastReason();
    }
    template <class Class>
    void AddNamed(std::uint32_t key, const std::string& name) {
        typename Class::Record record;
        record.name = name;
        Add<Class>(key, record);
    }
    void AddGroup(std::uint32_t key, const std::string& name, int type) { Add<CClassName>(key, {name, type, {}}); }
    void AddLoadCase(std::uint32_t key, const std::string& name, const std::string& type) {
        Add<CClassStld>(key, {name, type, {}});
    }
    void AddStory(std::uint32_t key, const std::string& name, std::uint32_t module, double level) {
        Add<CClassStor>(key, {name, module, level, 3.0});
    }
    void AddNode(std::uint32_t key, std::uint32_t no) {
        T_PONT_D node;
        node.no = no;
        node.x = key;
        Add<CClassPont>(key, node);
    }
    void AddMember(std::uint32_t key, std::uint32_t no, std::vector<std::uint32_t> nodes = {}) {
        T_MEMB_D member;
        member.no = no;
        member.nodes = std::move(nodes);
        Add<CClassMemb>(key, member);
    }
    void AddPart(std::uint32_t key, std::uint32_t member, int part = 1) { Add<CClassPrel>(key, {member, part}); }

    /// Gives records new numbers, all in one transaction: pairs of a key and a number.
    template <class Class>
    void Renumber(const std::vector<std::pair<std::uint32_t, std::uint32_t>>& numbers) {
        std::vector<std::uint32_t> keys;
        std::vector<typename Class::Record> records;
        for (const auto& [key, no] : numbers) {
            keys.push_back(key);
            ASSERT_TRUE(Records<Class>().Get(key, records.emplace_back()));
            records.back().no = no;
        }
        ASSERT_TRUE(Records<Class>().TR_Modify(keys, keys, records)) << Db().GetLastReason();
    }

    const CViewBuff& Buffer() { return *Db().GetViewBuff(); }
};

/// The texts of a column, of the rows of records.
template <class Table>
std::vector<std::string> ColumnTexts(const Table& table, int col) {
    std::vector<std::string> texts;
    for (int row = 1; row <= table.RecordRowCount(); ++row) texts.push_back(table.GetValueRowCol(row, col));
    return texts;
}

}  // namespace zt
