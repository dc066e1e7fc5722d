#include "desktop/window/table_tree.h"

#include <QMenu>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/grid/qt_text.h"
#include "zt_tb/model/table_kinds.h"
#include "zt_tb/model/tb_prop_view.h"
#include "zt_tb/post/result_availability.h"

namespace zt {
namespace {

constexpr int kSortRole = Qt::UserRole;
constexpr int kKindRole = Qt::UserRole + 1;

/// A heading of the tree and the kinds below it. A kind stands below the first heading that names it.
struct Heading {
    std::string_view textKey;
    std::vector<TableKindRange> kinds;
};

const std::vector<Heading>& Headings() {
    static const std::vector<Heading> headings = {
        {"IDS_DESKTOP_GROUP_STRUCTURE",
         {{kTablePont, kTableMemb}, {kTablePontMemb, kTablePontMemb}, {kTableAwop, kTableOffs}}},
        {"IDS_DESKTOP_GROUP_MEMBER_TYPES", {{kTableMbtp, kTableMtsb}, {kTableMbcl, kTableMembTypes}}},
        {"IDS_DESKTOP_GROUP_BOUNDARY", {{kTableSpts, kTableSpts}, {kTableRigd, kTableRigd}, {kTableElnk, kTableFrsf}}},
        {"IDS_DESKTOP_GROUP_LOADS",
         {{kTablePmas, kTablePmas},
          {kTablePtld, kTablePtld},
          {kTableSdsp, kTableInmf},
          {kTableThnl, kTableThnl},
          {kTableSbla, kTableBwld}}},
        {"IDS_DESKTOP_GROUP_PROTECTIVE", {{kTableSprs, kTableCbld}}},
        {"IDS_DESKTOP_GROUP_DESIGN",
         {{kTableMrft, kTableDfft},
          {kTableLfeg, kTableLfeg},
          {kTableSdir, kTableSdir},
          {kTableLfcw, kTableLlrf},
          {kTableSflt, kTableExps}}},
        {"IDS_DESKTOP_GROUP_RESULT_DESIGN", {{kTablePMrft, kTablePLlrf}}},
        {"IDS_DESKTOP_GROUP_HINGES", {{kTablePhgeAll, kTableIeheWallShr}}},
        {"IDS_DESKTOP_GROUP_DETAILS", {{kTablePontDetail, kTableMembDetail}}},
        {"IDS_DESKTOP_GROUP_CHECK", {{kTableChk, kTableChk}}},
    };
    return headings;
}

/// A heading of result tables, by their ids.
struct ResultHeading {
    std::string_view textKey;
    std::array<IdRange, 4> ids;
};
constexpr ResultHeading kResultHeadings[] = {
    {"IDS_DESKTOP_GROUP_RESULT_NODES", {{{2, 3}, {9, 9}}}},
    {"IDS_DESKTOP_GROUP_RESULT_MEMBERS", {{{8, 8}, {48, 48}, {54, 54}}}},
    {"IDS_DESKTOP_GROUP_RESULT_MODES", {{{10, 10}}}},
    {"IDS_DESKTOP_GROUP_RESULT_STORIES", {{{13, 26}, {29, 29}, {33, 47}}}},
    {"IDS_DESKTOP_GROUP_RESULT_HISTORIES", {{{27, 27}, {30, 31}, {55, 57}, {61, 62}}}},
    {"IDS_DESKTOP_GROUP_RESULT_PUSHOVER", {{{65, 81}}}},
    {"IDS_DESKTOP_GROUP_RESULT_NONLINEAR", {{{28, 28}, {32, 32}, {58, 60}, {63, 64}}}},
    {"IDS_DESKTOP_GROUP_RESULT_FORCES", {{{49, 53}, {82, 96}}}},
};

/// Why a table of results cannot be opened now; empty when it can.
QString WhyNoResults(const ResultTableEntry& table) {
    static const CPostDataBase none;
    const CPostDataBase& results = CDBDoc::m_pDBDoc ? *CDBDoc::m_pDBDoc->GetMDBCtrl()->GetDBPost() : none;
    const std::string_view key = WhyNothingToShow(table, results);
    return key.empty() ? QString() : Word(key);
}

/// Whether anything is shown for a kind: its own table, or one of the group that it opens.
bool Exists(const TableKindEntry& entry) {
    if (entry.make) return true;
    const TableGroup* group = FindTableGroup(entry.kind);
    return group && std::any_of(group->tables.begin(), group->tables.end(),
                                [](int kind) { return FindTableMaker(kind) != nullptr; });
}

/// Title of a kind. A group that is titled like one of its tables is told by all of them.
QString TitleOf(const TableKindEntry& entry) {
    const TableGroup* group = FindTableGroup(entry.kind);
    if (!group || group->kind != entry.kind) return Word(entry.titleKey);
    QStringList titles;
    for (const int kind : group->tables) titles << Word(FindTableKind(kind)->titleKey);
    const bool isAmbiguous = titles.contains(Word(entry.titleKey));
    return isAmbiguous && titles.size() < 4 ? titles.join(QStringLiteral(" + ")) : Word(entry.titleKey);
}

}  // namespace

TableTree::TableTree(QWidget* parent) : QWidget(parent), filter_(new QLineEdit), tree_(new QTreeWidget) {
    filter_->setClearButtonEnabled(true);
    tree_->setHeaderHidden(true);
    tree_->setUniformRowHeights(true);
    tree_->setFrameShape(QFrame::NoFrame);
    tree_->setStyleSheet(QStringLiteral("QTreeView::item { min-height: 21px; }"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->addWidget(filter_);
    layout->addWidget(tree_, 1);
    connect(filter_, &QLineEdit::textChanged, this, &TableTree::ApplyFilter);
    connect(tree_, &QTreeWidget::itemActivated, this, &TableTree::Choose);
    connect(tree_, &QTreeWidget::itemClicked, this, &TableTree::Choose);
    tree_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tree_, &QWidget::customContextMenuRequested, this, &TableTree::ShowMenu);
    ShowTexts();
}

void TableTree::ShowTexts() {
    filter_->setPlaceholderText(Word("IDS_DESKTOP_TREE_FILTER"));
    tree_->clear();
    AddProperties();
    AddKinds();
    AddResults();
    ApplyFilter();
}

QTreeWidgetItem* TableTree::AddHeading(std::string_view textKey) {
    auto* heading = new QTreeWidgetItem(tree_, {Word(textKey)});
    heading->setFlags(Qt::ItemIsEnabled);
    QFont font = tree_->font();
    font.setBold(true);
    heading->setFont(0, font);
    return heading;
}

namespace {

QString WhyNot(bool exists) { return exists ? QString() : Word("IDS_DESKTOP_NOT_THERE_YET"); }

/// A table that cannot be opened is dim and says why.
void ShowState(QTreeWidgetItem& item, const QPalette& palette, const QString& whyNot) {
    const QPalette::ColorGroup group = whyNot.isEmpty() ? QPalette::Active : QPalette::Disabled;
    item.setForeground(0, palette.color(group, QPalette::Text));
    item.setToolTip(0, whyNot);
}

TableId IdOf(const QTreeWidgetItem& item) {
    return {static_cast<TableSort>(item.data(0, kSortRole).toInt()), item.data(0, kKindRole).toInt()};
}

}  // namespace

void TableTree::AddTable(QTreeWidgetItem& heading, TableId id, const QString& title, const QString& whyNot) {
    auto* item = new QTreeWidgetItem(&heading, {title});
    item->setData(0, kSortRole, static_cast<int>(id.sort));
    item->setData(0, kKindRole, id.kind);
    ShowState(*item, palette(), whyNot);
}

void TableTree::AddProperties() {
    QTreeWidgetItem* heading = AddHeading("IDS_TB_PROPVIEW_PROPERTIES");
    for (const CTBPropView::TableEntry& entry : CTBPropView::Tables()) {
        AddTable(*heading, {TableSort::Property, entry.kind}, Word(entry.titleKey), WhyNot(entry.make != nullptr));
    }
    heading->setExpanded(true);
}

void TableTree::AddKinds() {
    for (const Heading& heading : Headings()) {
        QTreeWidgetItem* parent = AddHeading(heading.textKey);
        bool any = false;
        for (const TableKindEntry& entry : TableKinds()) {
            if (entry.kind == kTableNone || !Contains(heading.kinds, entry.kind)) continue;
            AddTable(*parent, {TableSort::Model, entry.kind}, TitleOf(entry), WhyNot(Exists(entry)));
            any = any || Exists(entry);
        }
        parent->setExpanded(any || parent == tree_->topLevelItem(1));
    }
}

void TableTree::AddResults() {
    for (const ResultHeading& heading : kResultHeadings) {
        QTreeWidgetItem* parent = AddHeading(heading.textKey);
        bool any = false;
        for (const ResultTableEntry& table : ResultTables()) {
            const QString title = ToQt(GetTableName(table.id));
            if (!Contains(heading.ids, table.id) || title.isEmpty() || table.operation.empty()) continue;
            const QString whyNot = WhyNoResults(table);
            AddTable(*parent, {TableSort::Result, table.id}, title, whyNot);
            any = any || whyNot.isEmpty();
        }
        parent->setExpanded(any);
    }
}

void TableTree::FollowResults() {
    for (const ResultTableEntry& table : ResultTables()) {
        QTreeWidgetItem* item = ItemOf({TableSort::Result, table.id});
        if (!item) continue;
        const QString whyNot = WhyNoResults(table);
        if (whyNot == item->toolTip(0)) continue;
        ShowState(*item, palette(), whyNot);
        if (whyNot.isEmpty()) item->parent()->setExpanded(true);
    }
}

void TableTree::ApplyFilter() {
    const QString text = filter_->text().trimmed();
    for (int at = 0; at < tree_->topLevelItemCount(); ++at) {
        QTreeWidgetItem* heading = tree_->topLevelItem(at);
        const bool all = heading->text(0).contains(text, Qt::CaseInsensitive);
        int shown = 0;
        for (int child = 0; child < heading->childCount(); ++child) {
            QTreeWidgetItem* item = heading->child(child);
            const bool matches = all || item->text(0).contains(text, Qt::CaseInsensitive);
            item->setHidden(!matches);
            shown += matches ? 1 : 0;
        }
        heading->setHidden(shown == 0);
        if (!text.isEmpty()) heading->setExpanded(true);
    }
}

QTreeWidgetItem* TableTree::ItemOf(TableId id) const {
    for (int at = 0; at < tree_->topLevelItemCount(); ++at) {
        QTreeWidgetItem* heading = tree_->topLevelItem(at);
        for (int child = 0; child < heading->childCount(); ++child) {
            QTreeWidgetItem* item = heading->child(child);
            if (IdOf(*item) == id) return item;
        }
    }
    return nullptr;
}

std::optional<TableId> TableTree::TableOf(const QTreeWidgetItem* item) {
    // A tool tip says that a table does not exist.
    if (!item || !item->parent() || !item->toolTip(0).isEmpty()) return std::nullopt;
    return IdOf(*item);
}

void TableTree::Choose(const QTreeWidgetItem* item) {
    if (const auto table = TableOf(item)) emit TableChosen(*table);
}

void TableTree::ShowMenu(QPoint point) {
    const auto table = TableOf(tree_->itemAt(point));
    if (!table) return;
    QMenu menu;
    menu.addAction(Word("IDS_DESKTOP_OPEN_TABLE"), this, [this, table] { emit TableChosen(*table); });
    QAction* dock = menu.addAction(Word("IDS_DESKTOP_DOCK"), this, [this, table] { emit PaneChosen(table->kind); });
    dock->setEnabled(table->sort == TableSort::Model);
    menu.exec(tree_->viewport()->mapToGlobal(point));
}

}  // namespace zt
