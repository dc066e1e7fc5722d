#pragma once

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "zt_db/records/pont.h"
#include "zt_tb/core/record_table.h"
#include "zt_tb/model/check_sheet.h"
#include "zt_tb/model/table_kinds.h"

namespace zt {

/// A table of nodes that stands for the table of any kind, and writes down what its view asks of it.
class ProbeTable : public RecordTable<ProbeTable, CClassPont> {
public:
    explicit ProbeTable(int forKind) : kind(forKind) {}

    static const Declaration& Declared() {
        static const Declaration declaration{
            .name = "TBProbeTest",
            .columns = {Columns::Key("Key"), Columns::Double<&T_PONT_D::x>("X")},
            .appends = true,
        };
        return declaration;
    }
    static inline const std::string m_strRegName = Register();

    void MakeItemEx(const std::uint32_t* keys, int count, int flag) override {
        calls.push_back("fill" + Locked());
        RecordTable::MakeItemEx(keys, count, flag);
    }
    void PreFilterRecord(const Keys& keys) override {
        filteredBy = keys;
        calls.push_back("filter" + Locked());
        RecordTable::PreFilterRecord(keys);
    }
    void OnAfterOpen() override {
        calls.push_back("open" + Locked());
        RecordTable::OnAfterOpen();
    }
    void UpdateBuffer(T_UPDATE_HINT* hint) override {
        calls.push_back("changes");
        RecordTable::UpdateBuffer(hint);
    }
    void UnitChanged() override {
        calls.push_back("units");
        RecordTable::UnitChanged();
    }
    void UpdateSelInDetail(int code, const Keys& keys) override {
        std::string call = "selection " + std::to_string(code);
        for (const std::uint32_t key : keys) call += " " + std::to_string(key);
        calls.push_back(call);
        RecordTable::UpdateSelInDetail(code, keys);
    }

    int kind = 0;
    std::vector<std::string> calls;
    Keys filteredBy;

private:
    std::string Locked() const { return IsUpdateLocked() ? "" : " unlocked"; }
};

/// The same for the table of the model checker.
class ProbeCheckSheet final : public ProbeTable, public ICheckSheet {
public:
    using ProbeTable::ProbeTable;
    void UpdateChk() override { calls.emplace_back("check"); }
    void LayoutCheckColumns() override { calls.emplace_back("layout"); }
};

template <int Kind>
std::unique_ptr<CTBCommonWnd> MakeProbe(CTBView* view) {
    std::unique_ptr<ProbeTable> table;
    if constexpr (Kind == kTableChk) {
        table = std::make_unique<ProbeCheckSheet>(Kind);
    } else {
        table = std::make_unique<ProbeTable>(Kind);
    }
    table->Initialize(view);
    return table;
}

/// Makers for all kinds that have a class.
inline TableMaker FindProbeMaker(int kind) {
    static constexpr auto makers = []<std::size_t... Kind>(std::index_sequence<Kind...>) {
        return std::array<TableMaker, sizeof...(Kind)>{&MakeProbe<static_cast<int>(Kind)>...};
    }
    (std::make_index_sequence<kLastTableKind + 1>());
    const TableKindEntry* entry = FindTableKind(kind);
    return entry && !entry->mnemonic.empty() ? makers[static_cast<std::size_t>(kind)] : nullptr;
}

}  // namespace zt
