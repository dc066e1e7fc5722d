#include "zt_db/post/result_import.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/exchange/table_reader.h"
#include "zt_db/post/result_keeper.h"
#include "zt_db/post/result_source.h"
#include "zt_db/records/load_case_kind.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/pont.h"
#include "zt_db/records/stld.h"

namespace zt {
namespace {

using velda::Outcome;
using SixNumbers = std::array<double, 6>;

/// A row of any of the tables.
struct ResultRow {
    std::string loadCase{};
    std::string node{};
    std::string member{};
    std::string end{};
    SixValues values{};
    ExchangeOrigin origin{};
};

constexpr Column<ResultRow> Value(std::string_view name, std::size_t index, std::string_view unit) {
    return {{name, Need::Present, unit}, OneOfSix<ResultRow>{&ResultRow::values, index}};
}

constexpr Column<ResultRow> kDisplacementColumns[] = {
    {{"load_case", Need::Required}, &ResultRow::loadCase},
    {{"node", Need::Required}, &ResultRow::node},
    Value("ux", 0, "m"),
    Value("uy", 1, "m"),
    Value("uz", 2, "m"),
    Value("rx", 3, "rad"),
    Value("ry", 4, "rad"),
    Value("rz", 5, "rad"),
};

constexpr Column<ResultRow> kReactionColumns[] = {
    {{"load_case", Need::Required}, &ResultRow::loadCase},
    {{"node", Need::Required}, &ResultRow::node},
    Value("Fx", 0, "kN"),
    Value("Fy", 1, "kN"),
    Value("Fz", 2, "kN"),
    Value("Mx", 3, "kNm"),
    Value("My", 4, "kNm"),
    Value("Mz", 5, "kNm"),
};

constexpr Column<ResultRow> kEndForceColumns[] = {
    {{"load_case", Need::Required}, &ResultRow::loadCase},
    {{"member", Need::Required}, &ResultRow::member},
    {{"end"}, &ResultRow::end},
    {{"node", Need::Required}, &ResultRow::node},
    Value("N", 0, "kN"),
    Value("Vy", 1, "kN"),
    Value("Vz", 2, "kN"),
    Value("T", 3, "kNm"),
    Value("My", 4, "kNm"),
    Value("Mz", 5, "kNm"),
};

/// What the tables of a case hold.
struct CaseTables {
    std::map<std::uint32_t, SixNumbers> displacements;
    std::map<std::uint32_t, SixNumbers> reactions;
    /// Forces on a member at its nodes, by the number of the member, then of the node.
    std::map<std::uint32_t, std::map<std::uint32_t, SixNumbers>> ends;
};

class ResultImport {
public:
    ResultImport(CDBDoc& doc, ExchangeReport& report)
        : doc_(doc), model_(*doc.GetMDBCtrl()->GetCurrentDB()), report_(report) {
        ReadNames();
    }

    bool Read(const std::filesystem::path& folder) {
        const auto source = OpenCsvFolder(folder, limits_, report_);
        if (!source) return false;
        for (std::size_t i = 0; i < source->Names().size(); ++i) {
            const std::string& name = source->Names()[i];
            if (name.rfind("results", 0) != 0) continue;
            if (Holds(name, "displacements"))
                ReadSheet(*source, i, kDisplacementColumns, &ResultImport::TakeDisplacement);
            if (Holds(name, "reactions")) ReadSheet(*source, i, kReactionColumns, &ResultImport::TakeReaction);
            if (Holds(name, "member_end_forces")) ReadSheet(*source, i, kEndForceColumns, &ResultImport::TakeEndForce);
        }
        if (cases_.empty() && !report_.HasErrors()) report_.Add(FindingLevel::Error, {}, "IDS_XCH_RESULT_NONE");
        return !report_.HasErrors();
    }

    bool Keep() {
        constexpr std::uint32_t kEnds = 2;
        const Outcome outcome = doc_.GetResults().Keep(velda::FormatText("IDS_DB_STEP_IMPORT_RESULTS", {}), "import",
                                                       kEnds, [this](ResultSink& sink) { return Write(sink); });
        if (!outcome) report_.Add(FindingLevel::Error, {}, "IDS_XCH_RESULT_NOT_KEPT", {outcome.Reason()});
        return static_cast<bool>(outcome);
    }

private:
    using Take = bool (ResultImport::*)(CaseTables&, const ResultRow&, const SixNumbers&);

    static bool Holds(const std::string& name, std::string_view part) { return name.find(part) != std::string::npos; }

    void ReadNames() {
        ForEachInOrder<CClassPont>(model_, [&](std::uint32_t key, const T_PONT_D& node) {
            nodes_.emplace(std::to_string(node.no), node.no);
            if (!node.name.empty()) nodes_[node.name] = node.no;
            numbers_[key] = node.no;
        });
        ForEachInOrder<CClassMemb>(model_, [&](std::uint32_t, const T_MEMB_D& member) {
            if (member.nodes.size() < 2) return;
            members_[member.no] = {numbers_[member.nodes.front()], numbers_[member.nodes.back()]};
            memberOfNodes_.emplace(members_[member.no], member.no);
        });
    }

    template <std::size_t Count>
    void ReadSheet(SheetSource& source, std::size_t sheet, const Column<ResultRow> (&columns)[Count], Take take) {
        std::vector<ResultRow> rows;
        TableContext context{.report = report_, .style = HeaderStyle::Suffix};
        if (!ReadTable<ResultRow>(source, sheet, columns, context, 0, rows)) return;
        const std::string& name = source.Names()[sheet];
        std::uint64_t kept = 0;
        for (const ResultRow& row : rows) {
            const std::uint32_t loadCase = model_.GetClass<CClassStld>()->GetKey(row.loadCase);
            SixNumbers values{};
            for (std::size_t i = 0; i < values.size(); ++i) values[i] = row.values[i].value_or(0.0);
            const bool isWhole = std::all_of(row.values.begin(), row.values.end(),
                                             [](const MaybeNumber& value) { return value.has_value(); });
            if (!isWhole) {
                report_.Add(FindingLevel::LeftOut, {name, row.origin.row, {}}, "IDS_XCH_RESULT_NO_VALUE");
            } else if (loadCase == 0) {
                report_.Add(FindingLevel::LeftOut, {name, row.origin.row, "load_case"}, "IDS_XCH_RESULT_NO_CASE",
                            {row.loadCase});
            } else if (!nodes_.contains(row.node)) {
                report_.Add(FindingLevel::LeftOut, {name, row.origin.row, "node"}, "IDS_XCH_RESULT_NO_NODE",
                            {row.node});
            } else if ((this->*take)(cases_[loadCase], row, values)) {
                ++kept;
            } else {
                report_.Add(FindingLevel::LeftOut, {name, row.origin.row, "member"}, "IDS_XCH_RESULT_NO_MEMBER",
                            {row.member});
            }
        }
        report_.CountKept(name, kept);
    }

    bool TakeDisplacement(CaseTables& tables, const ResultRow& row, const SixNumbers& values) {
        tables.displacements[nodes_[row.node]] = values;
        return true;
    }
    bool TakeReaction(CaseTables& tables, const ResultRow& row, const SixNumbers& values) {
        tables.reactions[nodes_[row.node]] = values;
        return true;
    }
    /// A member is known by its number, or by the nodes of both of its rows, which follow each other.
    bool TakeEndForce(CaseTables& tables, const ResultRow& row, const SixNumbers& values) {
        const std::uint32_t node = nodes_[row.node];
        const std::uint32_t number = NumberOf(row.member);
        if (number != 0) {
            tables.ends[number][node] = values;
            return true;
        }
        if (row.member != waiting_.member) {
            waiting_ = {row.member, node, values};
            return true;
        }
        const auto forward = memberOfNodes_.find({waiting_.node, node});
        const auto found = forward != memberOfNodes_.end() ? forward : memberOfNodes_.find({node, waiting_.node});
        if (found == memberOfNodes_.end()) return false;
        tables.ends[found->second][waiting_.node] = waiting_.values;
        tables.ends[found->second][node] = values;
        return true;
    }
    std::uint32_t NumberOf(const std::string& text) const {
        std::int64_t number = 0;
        return velda::ReadWholeLong(text, number) && number > 0 && members_.contains(static_cast<std::uint32_t>(number))
                   ? static_cast<std::uint32_t>(number)
                   : 0;
    }

    // ---- writing

    Outcome Write(ResultSink& sink) {
        std::vector<std::uint32_t> nodes;
        for (const auto& [key, no] : numbers_) nodes.push_back(no);
        std::sort(nodes.begin(), nodes.end());
        std::vector<std::uint32_t> supports;
        std::vector<std::uint32_t> members;
        std::vector<std::uint32_t> ends;
        for (const auto& [key, tables] : cases_) {
            for (const auto& [no, values] : tables.reactions) supports.push_back(no);
            for (const auto& [no, values] : tables.ends) members.push_back(no);
        }
        for (auto* keys : {&supports, &members}) {
            std::sort(keys->begin(), keys->end());
            keys->erase(std::unique(keys->begin(), keys->end()), keys->end());
        }
        for (const std::uint32_t member : members)
            ends.insert(ends.end(), {members_[member].first, members_[member].second});
        Outcome outcome = sink.PutKeys(ResultName::Nodes, nodes);
        if (outcome) outcome = sink.PutKeys(ResultName::Supports, supports);
        if (outcome) outcome = sink.PutKeys(ResultName::ElementMembers, members);
        if (outcome) outcome = sink.PutKeys(ResultName::ElementEnds, ends);
        for (auto& [key, tables] : cases_) {
            if (outcome) outcome = WriteCase(sink, key, tables, nodes, supports, members);
        }
        return outcome;
    }

    Outcome WriteCase(ResultSink& sink, std::uint32_t key, CaseTables& tables, const std::vector<std::uint32_t>& nodes,
                      const std::vector<std::uint32_t>& supports, const std::vector<std::uint32_t>& members) {
        T_STLD_D record;
        model_.GetClass<CClassStld>()->Get(key, record);
        Outcome outcome = sink.PutCase({LoadCaseKind::Static, key, record.name, record.type});
        const auto put = [&](std::string_view quantity, const std::vector<double>& values) {
            if (outcome && !values.empty()) {
                outcome =
                    sink.PutArray(CasePath(LoadCaseKind::Static, key, quantity), std::tuple_size_v<SixNumbers>, values);
            }
        };
        std::vector<double> displacements;
        std::vector<double> reactions;
        std::vector<double> forces;
        const auto append = [](std::vector<double>& to, const SixNumbers& values, double sign) {
            for (const double value : values) to.push_back(sign * value + 0.0);
        };
        for (const std::uint32_t node : nodes) append(displacements, tables.displacements[node], 1.0);
        for (const std::uint32_t node : supports) append(reactions, tables.reactions[node], 1.0);
        // Forces on the member at its end i are those on the section there, turned around.
        for (const std::uint32_t member : members) {
            append(forces, tables.ends[member][members_[member].first], -1.0);
            append(forces, tables.ends[member][members_[member].second], 1.0);
        }
        put(ResultName::Displacement, displacements);
        put(ResultName::Reaction, reactions);
        put(ResultName::ElementForce, forces);
        return outcome;
    }

    struct Waiting {
        std::string member{};
        std::uint32_t node = 0;
        SixNumbers values{};
    };
    using Nodes = std::pair<std::uint32_t, std::uint32_t>;

    CDBDoc& doc_;
    CDataBase& model_;
    ExchangeReport& report_;
    SheetLimits limits_;
    std::unordered_map<std::string, std::uint32_t> nodes_;  ///< numbers, by name or number
    std::map<std::uint32_t, std::uint32_t> numbers_;        ///< of nodes, by key
    std::map<std::uint32_t, Nodes> members_;                ///< the nodes of members, all by number
    std::map<Nodes, std::uint32_t> memberOfNodes_;
    std::map<std::uint32_t, CaseTables> cases_;
    Waiting waiting_;
};

}  // namespace

bool ImportResults(CDBDoc& doc, const std::filesystem::path& folder, ExchangeReport& report) {
    ResultImport import(doc, report);
    return import.Read(folder) && import.Keep();
}

}  // namespace zt
