#pragma once

#include <QLineEdit>
#include <QTreeWidget>
#include <optional>

#include "desktop/window/table_id.h"

namespace zt {

/// All tables of the program by group, with a box that filters them by name.
class TableTree : public QWidget {
    Q_OBJECT

public:
    explicit TableTree(QWidget* parent = nullptr);

    /// Writes all names anew, in the current language.
    void ShowTexts();
    /// Results have come or gone: tables of results are bright or dim anew.
    void FollowResults();
    QLineEdit& Filter() { return *filter_; }
    QTreeWidget& Tree() { return *tree_; }
    /// The entry of a table; null when the tree has none.
    QTreeWidgetItem* ItemOf(TableId id) const;

signals:
    /// The user opens a table that exists.
    void TableChosen(zt::TableId id);
    /// The user opens a kind of model table in a docked pane.
    void PaneChosen(int kind);

private:
    QTreeWidgetItem* AddHeading(std::string_view textKey);
    /// `whyNot` tells why the table cannot be opened; empty when it can.
    void AddTable(QTreeWidgetItem& heading, TableId id, const QString& title, const QString& whyNot);
    void AddProperties();
    void AddKinds();
    void AddResults();
    void ApplyFilter();
    /// The table of an entry; none when it is a heading or the table does not exist.
    static std::optional<TableId> TableOf(const QTreeWidgetItem* item);
    void Choose(const QTreeWidgetItem* item);
    void ShowMenu(QPoint point);

    QLineEdit* filter_;
    QTreeWidget* tree_;
};

}  // namespace zt
