#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "zt_tb/core/tb_common_view.h"
#include "zt_tb/model/table_kinds.h"

namespace zt {

class ICheckSheet;

/// The view of all tables of the model: one table, or a group of tables on tabs. It is asked for a kind, makes and
/// fills the tables of that kind, and passes the changes of the document on to them.
class CTBPreView : public CTBCommonView {
public:
    /// Commands that the view adds to the context menu.
    enum Command {
        kOnTableDisplayDlg = 46520,        ///< choose the tables of a member detail
        kOnTableHingePropSetting = 46521,  ///< choose what hinge tables show
    };

    explicit CTBPreView(TableMakerLookup findMaker = &FindTableMaker) : findMaker_(findMaker) {}

    /// The frame of the first view of a class, which derives from CTitleCtrlView, with a title; null when the document
    /// has none.
    template <class View>
    static velda::IFrame* FindTBFrame(const CDBDoc& doc, std::string_view title) {
        static_assert(std::is_base_of_v<CTitleCtrlView, View>);
        for (CDBUpdateConnector* connected : doc.GetViews()) {
            const auto* view = dynamic_cast<const View*>(connected);
            if (view && view->GetTitle() == title) return view->GetParentFrame();
        }
        return nullptr;
    }

    /// Makes this the view that docking panes host. Said once by the program.
    static void RegisterWithPanes();

    // ---- opening

    /// Text of a kind's window title; empty for a number that is not in use.
    static std::string GetTableName(int kind);

    /// Makes and fills the tables of a kind in the current document, and listens to it from then on. Once in the life
    /// of a view: one that has its tables keeps them. The data is for hinge tables, which find it in GetHingeData;
    /// other kinds do not get it. A kind without a table gives the view its title and nothing else.
    void SetTable(int kind, void* data);
    /// The kind that OnInitialUpdate shows.
    void StoreTableKind(int kind) { kind_ = kind; }
    /// The first update of a view whose kind was stored before. Other than SetTable it gives no title, tells a table
    /// that stands alone nothing of its opening, and makes the kind of a group the kind of the view.
    void OnInitialUpdate() override;
    /// Makes the tables of these kinds, in this order, and puts each on a tab. A table that is there already stays on
    /// its tab; a kind whose table class does not exist gets an empty tab.
    void AddTables(const CDBDoc* doc, std::span<const int> kinds);

    int GetTableKind() const { return kind_; }
    void* GetHingeData() const { return hingeData_; }

    // ---- filling

    /// Fills each table with all records.
    void MakeItemExMemberTable();
    /// Fills each table with the records of the kept selection, and tells it that it was opened.
    void MakeItemExMultiTable();
    /// Fills the tables by member type anew, for one of their kinds.
    void UpdateMemberTable(int kind);
    /// Another check item was chosen: passed on to the table of the model checker.
    void UpdateChk();

    // ---- the tables of a detail view

    /// Tab texts of the tables that are shown, in their order.
    std::vector<std::string> DisplayedTables() const;
    /// Takes tables away by their tab texts, adds those of other kinds, and fills all anew by the selected nodes. A
    /// text without a tab is passed over.
    void DisplayTables(std::span<const std::string> remove, std::span<const int> add);
    /// Lets the user choose the tables; nothing while an open row cannot be left.
    void OnTableDisplayDlg();

    bool OnCommand(int id) override;
    bool IsCommandEnabled(int id) const override;

    // ---- look

    void UpdateViewTitle() override;
    void CustomizeContextMenu(velda::CMenu& menu) override;
    void SetTabStyle() override;
    void OnWindowPosChanging(const velda::WindowRect& place) override;
    /// The window has another size, of which the table of the model checker is told.
    void OnSize();

    // ---- hints

    void OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) override;
    void UpdateBuffer(T_UPDATE_HINT* hint) override;
    void UpdateUnit() override;
    void UpdateSelAdd() override;
    void UpdateSelDel() override;
    void UpdateSelPre() override;
    void UpdateSelPost() override;

private:
    static std::span<const ViewCommand<CTBPreView>> Commands();
    bool HasChoiceOfTables() const { return kind_ == kTableMembDetail; }
    bool HasTables() const { return single_ || GetTabWnd(); }
    void MakeTables();
    std::unique_ptr<CTBCommonWnd> MakeTable(int kind);
    void MakeSingleTable(const CDBDoc* doc);
    void RemoveTable(const std::string& title);

    void FillAndShow(bool tellSingleTable);
    void FillTables(bool tellSingleTable);
    static void Fill(CTBCommonWnd& table, bool tell);
    void RedrawNow() const;
    void FetchSelectedKeys(GroupSelection selection);

    void UpdateSelection(int code);
    bool IsOutdatedBy(const T_UPDATE_HINT* hint) const;
    bool IsFinishedBy(std::string_view command) const;
    TableFollows Follows() const;
    ICheckSheet* CheckSheet() const;

    void CloseFrame();

    TableMakerLookup findMaker_;
    int kind_ = kTableNone;
    const TableGroup* group_ = nullptr;
    void* hingeData_ = nullptr;
    /// The table of each class by its mnemonic, once it was made.
    std::map<std::string_view, CTBCommonWnd*> tables_;
    CTBCommonWnd* single_ = nullptr;
    std::vector<CTBCommonWnd*> m_arrTables;   ///< tables of a group in the order of their tabs
    std::vector<std::uint32_t> m_arrSelKeys;  ///< sorted keys that a detail view shows
};

}  // namespace zt
