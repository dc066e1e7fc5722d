#pragma once

#include <memory>

#include "velda_lib/msg_dll.h"
#include "zt_tb/core/tb_view.h"

namespace zt {

/// A view with one table of records.
template <class Table>
class SingleTableView : public CTBView {
public:
    explicit SingleTableView(CDBDoc& doc) {
        auto table = std::make_unique<Table>();
        table_ = table.get();
        AddWorksheet(std::move(table), {});
        table_->Initialize(this);
        table_->MakeItemEx(nullptr, -2, 0);
        table_->SetRightValidCell(1, 1);
        ConnectToDoc(&doc);
    }
    void UpdateBuffer(T_UPDATE_HINT* hint) override { table_->UpdateBuffer(hint); }
    void UpdateUnit() override { table_->UnitChanged(); }

private:
    Table* table_ = nullptr;
};

}  // namespace zt
