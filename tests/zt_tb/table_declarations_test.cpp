// What holds for every table, however it is declared.

#include "velda_lib/language.h"
#include "zt_tb/model/table_kinds.h"
#include "zt_tb/model/tb_prop_view.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

class TableDeclarations : public ::testing::Test {
protected:
    TableDeclarations() : doc_(CDBDoc::New()) { doc_->MakeCurrent(); }
    ~TableDeclarations() override {
        CDBDoc::m_pDBDoc = nullptr;
        velda::SetCurrentLanguage(velda::Language::English);
    }

    /// Every table that can be made, anew in each language.
    template <class Visit>
    void ForEachTable(Visit visit) {
        std::vector<TableMaker> makers;
        for (const CTBPropView::TableEntry& entry : CTBPropView::Tables()) makers.push_back(entry.make);
        for (const TableKindEntry& entry : TableKinds()) makers.push_back(entry.make);
        int made = 0;
        for (const velda::Language language : {velda::Language::English, velda::Language::Korean}) {
            velda::SetCurrentLanguage(language);
            for (const TableMaker maker : makers) {
                if (!maker) continue;
                const auto table = maker(nullptr);
                SCOPED_TRACE(table->GetTableName());
                visit(*table);
                ++made;
            }
        }
        EXPECT_GT(made, 0);
    }

    std::unique_ptr<CDBDoc> doc_;
};

TEST_F(TableDeclarations, HaveATitleForEachColumnInEveryLanguage) {
    ForEachTable([](CTBCommonWnd& table) {
        ASSERT_GT(table.GetInitialColCount(), 0);
        for (int id = 0; id < table.GetInitialColCount(); ++id) {
            const std::string& title = table.Columns().Info(id).title;
            EXPECT_FALSE(title.empty() || title.starts_with("ID")) << id << " " << title;
        }
    });
}

TEST_F(TableDeclarations, HaveDefaultTextsAndPreferencesForEachColumn) {
    ForEachTable([](CTBCommonWnd& table) {
        const auto count = static_cast<std::size_t>(table.GetInitialColCount());
        EXPECT_GE(table.GetDefaultCellTexts().size(), count);
        const std::vector<velda::STBPrefItem> items = velda::CTBGrid::GetPrefInfo(table.GetTableName());
        ASSERT_EQ(items.size(), count);
        for (std::size_t id = 0; id < count; ++id) {
            EXPECT_EQ(items[id].columnType, static_cast<int>(table.Columns().Info(static_cast<int>(id)).type)) << id;
        }
    });
}

TEST_F(TableDeclarations, SortByTheirOwnColumnsAndNameTheirKey) {
    ForEachTable([](CTBCommonWnd& table) {
        EXPECT_FALSE(table.SortInfo().empty());
        for (const velda::STBSortItem& item : table.SortInfo()) EXPECT_LT(item.column, table.GetInitialColCount());
        EXPECT_LT(table.GetKeyColID(), table.GetInitialColCount());
        EXPECT_EQ(table.KeyColumns(), std::vector<velda::ColumnId>{0});
    });
}

TEST_F(TableDeclarations, CarryUnitsThatHaveALabelInTheirHeaders) {
    ForEachTable([](CTBCommonWnd& table) {
        for (int id = 0; id < table.GetInitialColCount(); ++id) {
            std::string label;
            if (!CUnitCtrl::GetUnitSystem(table.Columns().Info(id).unitCode, label)) continue;
            EXPECT_EQ(table.Header().Text(0, static_cast<std::uint32_t>(id)),
                      table.Columns().Info(id).title + " (" + label + ")");
        }
    });
}

TEST_F(TableDeclarations, RefuseAnIdentifierBeyondTheirColumnsAndOpenEmpty) {
    ForEachTable([](CTBCommonWnd& table) {
        EXPECT_FALSE(table.ValidateColumn("1", table.GetInitialColCount()));
        table.MakeItemEx(nullptr, -2, 0);
        EXPECT_EQ(table.RecordRowCount(), 0);
        EXPECT_EQ(table.DeleteRecords({}), 1);
    });
}

}  // namespace
}  // namespace zt
