#pragma once

#include <QLineEdit>
#include <QTreeWidget>

#include "desktop/window/table_id.h"

namespace zt {

/// All tables of the program by group, with a box that filters them by name.
class TableTree : public QWidget {
    Q_OBJECT

public:
    explicit TableTree(QWidget* parent = nullptr);

    /// Writes all names anew, in the current language.
    void ShowTexts();
    QLineEdit& Filter() { return *filter_; }
    QTreeWidget& Tree() { return *tree_; }
    /// The entry of a table; null when the tree has none.
    QTreeWidgetItem* ItemOf(TableId id) const;

signals:
    /// The user opens a table that exists.
    void TableChosen(zt::TableId id);

private:
    QTreeWidgetItem* AddHeading(std::string_view textKey);
    void AddTable(QTreeWidgetItem& heading, TableId id, std::string_view textKey, bool exists);
    void AddProperties();
    void AddKinds();
    void ApplyFilter();
    void Choose(const QTreeWidgetItem* item);

    QLineEdit* filter_;
    QTreeWidget* tree_;
};

}  // namespace zt
