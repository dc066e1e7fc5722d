#pragma once

#include "node_peer.h"
#include "zt_db/records/pont.h"
#include "zt_tb/core/record_table.h"
#include "zt_tb/core/tb_view.h"

namespace bench {

using zt::CDataBase;
using zt::CDBDoc;

inline constexpr std::uint32_t kFirstStory = 1;
inline constexpr auto kStoryCount = static_cast<std::uint32_t>(kStories);

/// Nodes in the nine columns of the peer.
class NodeTable : public zt::RecordTable<NodeTable, zt::CClassPont> {
public:
    static const Declaration& Declared() {
        static const Declaration declaration{
            .name = "TBBenchNodes",
            .columns =
                {
                    Columns::Key("Key", {.state = zt::CellState::Disabled}),
                    Columns::Long<&zt::T_PONT_D::no>("Number", {.state = zt::CellState::ReadOnly}),
                    {"Story",
                     velda::ColumnType::String,
                     [](const NodeTable&, const Row& row, zt::CellSink& cell) {
                         cell.Text(StoryName(row.record.story - kFirstStory));
                     },
                     [](const NodeTable& table, std::string_view text, Row& row) {
                         const auto found = table.stories_.find(text);
                         row.record.story = found == table.stories_.end() ? 0 : found->second;
                     },
                     {}},
                    {"Level",
                     velda::ColumnType::Double,
                     [](const NodeTable&, const Row& row, zt::CellSink& cell) {
                         cell.Number((row.record.story - kFirstStory + 1) * 3.3);
                     },
                     nullptr,
                     {.state = zt::CellState::ReadOnly}},
                    Columns::Double<&zt::T_PONT_D::x>("X", {.unit = zt::Unit::Length}),
                    Columns::Double<&zt::T_PONT_D::y>("Y", {.unit = zt::Unit::Length}),
                    Columns::Double<&zt::T_PONT_D::z>("Z", {.unit = zt::Unit::Length}),
                    Columns::Text<&zt::T_PONT_D::name>("Name", {.state = zt::CellState::ReadOnly}),
                    Columns::Long<&zt::T_PONT_D::plan>("Plan"),
                },
            .sort = {{3, 0, 0}, {1, 0, 0}},
        };
        return declaration;
    }

    NodeTable() {
        for (std::uint64_t i = 0; i < kStories; ++i) {
            stories_.emplace(StoryName(i), static_cast<std::uint32_t>(i) + kFirstStory);
        }
    }

private:
    std::unordered_map<std::string_view, std::uint32_t> stories_;
};

inline const std::string kName = NodeTable::Register();

/// A view that passes hints on while it is told to.
class NodeView : public zt::CTBView {
public:
    void UpdateBuffer(zt::T_UPDATE_HINT* hint) override {
        if (connected) table->UpdateBuffer(hint);
    }
    NodeTable* table = nullptr;
    bool connected = true;
};

inline zt::T_PONT_D RecordOf(const Node& node) {
    zt::T_PONT_D record;
    record.x = node.x;
    record.y = node.y;
    record.z = node.z;
    record.plan = node.plan;
    record.story = node.story + kFirstStory;
    record.no = static_cast<std::uint32_t>(node.number);
    record.name = node.name;
    return record;
}

/// A model of nodes with an open table.
class OurModel {
public:
    explicit OurModel(std::uint32_t count) : doc_(CDBDoc::New()) {
        doc_->MakeCurrent();
        zt::T_UNIT_INDEX units;
        units.length = zt::CUnitCtrl::FindChoice(zt::UnitQuantity::Length, "m");
        doc_->GetUnitCtrl()->SetUnitIndexCurrent(units);
        Db().BeginGroup("stories");
        zt::CClassMdul* modules = Db().GetClass<zt::CClassMdul>();
        modules->TR_Add(1, zt::T_MDUL_D{"M"});
        std::vector<std::uint32_t> keys;
        std::vector<zt::T_STOR_D> stories;
        for (std::uint32_t i = 0; i < kStories; ++i) {
            keys.push_back(i + kFirstStory);
            stories.push_back({StoryName(i), 1, (i + 1) * 3.3, 3.3});
        }
        Db().GetClass<zt::CClassStor>()->TR_Add(keys, stories);
        Db().EndGroup();
        std::vector<std::uint32_t> nodeKeys;
        std::vector<zt::T_PONT_D> nodes;
        for (std::uint32_t i = 0; i < count; ++i) {
            nodeKeys.push_back(Nodes()[i].key);
            nodes.push_back(RecordOf(Nodes()[i]));
        }
        Nodes_().TR_Add(nodeKeys, nodes);
        auto table = std::make_unique<NodeTable>();
        view_.table = table.get();
        view_.AddWorksheet(std::move(table), "Nodes");
        view_.table->Initialize(&view_);
        view_.ConnectToDoc(doc_.get());
    }
    ~OurModel() {
        view_.DisconnectFromDoc();
        CDBDoc::m_pDBDoc = nullptr;
    }
    CDataBase& Db() { return *doc_->GetMDBCtrl()->GetCurrentDB(); }
    zt::CClassPont& Nodes_() { return *Db().GetClass<zt::CClassPont>(); }
    NodeTable& Table() { return *view_.table; }
    void Open() { Table().MakeItemEx(nullptr, -2, 0); }

    /// Changes the database without the table.
    template <class Change>
    void Apart(Change change) {
        view_.connected = false;
        change();
        view_.connected = true;
    }
    void Replay() {
        zt::T_UPDATE_HINT hint;
        Table().UpdateBuffer(&hint);
    }
    void MoveStories(std::span<const std::uint32_t> keys) {
        std::vector<zt::T_PONT_D> records;
        for (const std::uint32_t key : keys) {
            Nodes_().Get(key, records.emplace_back());
            records.back().story = (records.back().story - kFirstStory + 71) % kStoryCount + kFirstStory;
        }
        const std::vector<std::uint32_t> list(keys.begin(), keys.end());
        Nodes_().TR_Modify(list, list, records);
    }

private:
    std::unique_ptr<CDBDoc> doc_;
    NodeView view_;
};

}  // namespace bench
