#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "velda_base/host/headless_host.h"
#include "velda_lib/language.h"
#include "velda_util/grid/table_dialogs.h"
#include "zt_tb/core/tb_common_view.h"
#include "zt_tb/model/tb_thik.h"
#include <gtest/gtest.h>

namespace zt {

/// Columns of the thickness table.
inline constexpr int kName = 1;
inline constexpr int kThickness = 2;

/// A thickness table that lets the tests say what its hooks do.
class HookedThik : public CTBThik {
public:
    bool GetGraphData(velda::T_GRAPH_D& data) override {
        data.title = "Graph";
        return hasGraph;
    }
    void CustomizeContextMenu(velda::CMenu& menu) override {
        menu.Append(50000, "Own");
        menu.RemoveCommand(CommandId::ChangeUnit);
    }
    bool HandleCustomContextMenu(int command) override {
        handled.push_back(command);
        return command == 50000;
    }

    bool hasGraph = false;
    std::vector<int> handled;
};

/// A grid that is no record browser.
class PlainGrid : public velda::CTBGrid {
public:
    int GetRowCount() const override { return 0; }
    int RowCount() const override { return 0; }
    bool HasAppendRow() const override { return false; }
    std::string GetValueRowCol(int, int) const override { return {}; }
    velda::RowId RowIdAt(int) const override { return velda::kNoRow; }
    int PositionOfRow(velda::RowId) const override { return 0; }
};

/// A view that writes down which operations it is asked for.
class TestView : public CTBCommonView {
public:
    void OnTabSwitch() override { ++switches; }
    void UpdateBuffer(T_UPDATE_HINT*) override { Called("buffer"); }
    void SetTableReadOnlyMode(int flag) override {
        Called("readOnly " + std::to_string(flag));
        CTBCommonView::SetTableReadOnlyMode(flag);
    }
    void UpdateUnit() override { Called("unit"); }
    void UpdateSelAdd() override { Called("selAdd"); }
    void UpdateSelDel() override { Called("selDel"); }
    void UpdateSelPre() override { Called("pre"); }
    void UpdateSelPost() override { Called("post"); }
    void UpdateExeStart() override { Called("exeStart"); }
    void UpdateExeEnd() override { Called("exeEnd"); }
    void UpdateRefresh() override { Called("refresh"); }
    void UpdatePostDBChanged() override { Called("postDb"); }
    void UpdatePrefChanged() override { Called("pref"); }
    void UpdateDgnForceChanged() override { Called("forceChanged"); }
    void UpdateDgnForceRemoved() override { Called("forceRemoved"); }

    int switches = 0;
    std::vector<std::string> calls;
    bool waited = true;

protected:
    void CustomizeContextMenu(velda::CMenu& menu) override { menu.Append(50001, "View"); }

private:
    void Called(const std::string& what) {
        calls.push_back(what);
        auto& host = dynamic_cast<velda::HeadlessHost&>(velda::ApplicationHost::Current());
        waited = waited && host.waitCursor.depth == 1;
    }
};

/// A view on the screen of a headless host, in a model of four thicknesses, and preferences without a file.
class TBViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        velda::SetCurrentLanguage(velda::Language::English);
        velda::TableRegistry::OfProcess().UseFile(velda::PreferenceFile(std::filesystem::path()));
        velda::CTBGrid::m_Find = {};
        doc->MakeCurrent();
        for (std::uint32_t key = 1; key <= 4; ++key) {
            T_THIK_D record;
            record.name = key == 3 ? "Slab" : "Wall";
            record.thickness = 0.1;
            ASSERT_TRUE(CTBCommonWnd::GetDB()->GetClass<CClassThik>()->TR_Add(key, record));
        }
        window.SetParentFrame(&frame);
        view.SetWindow(&window);
    }
    void TearDown() override {
        view.OnDestroy();
        CDBDoc::m_pDBDoc = nullptr;
        velda::CTBGrid::m_Find = {};
        velda::TableRegistry::OfProcess().UseFile(velda::PreferenceFile());
    }
    static std::unique_ptr<HookedThik> MakeTable() {
        auto table = std::make_unique<HookedThik>();
        table->Initialize(static_cast<CTBView*>(nullptr));
        table->MakeItemEx(nullptr, -2, 0);
        return table;
    }
    HookedThik& AddTable(const std::string& title = "Thickness") {
        auto table = MakeTable();
        HookedThik& added = *table;
        view.AddWorksheet(std::move(table), title);
        return added;
    }
    static const velda::ColumnList& ColumnsOf(const velda::CGXGridCore& table) { return table.Columns(); }
    static int Col(const HookedThik& table, int id) { return table.PositionOfColumn(id); }

    velda::HeadlessHost host;
    velda::UseHost use{host};
    velda::HeadlessFrame frame{host.queue};
    velda::HeadlessWindow window{host.queue};
    std::unique_ptr<CDBDoc> doc = CDBDoc::New();
    TestView view;
};

}  // namespace zt
