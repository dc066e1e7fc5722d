#pragma once

#include <QSplitter>
#include <QTabWidget>
#include <array>
#include <vector>

#include "desktop/window/table_document.h"

namespace zt {

/// The documents of the main window: one group of tabs, or two side by side.
class DocumentArea : public QSplitter {
    Q_OBJECT

public:
    explicit DocumentArea(QWidget* parent = nullptr);

    /// Takes over a document and brings it to the front of the group that was used last.
    void Add(TableDocument* document);
    void BringToFront(TableDocument& document);
    /// Puts the document in front into the other group, which appears beside the first one.
    void MoveToOtherGroup();
    /// The document that was used last; null when there is none.
    TableDocument* Active() const;
    std::vector<TableDocument*> Documents() const;
    bool IsSplit() const { return groups_[1]->count() > 0; }
    /// Deletes a document.
    void Remove(TableDocument* document);

signals:
    void ActiveChanged();
    void CloseRequested(TableDocument* document);

private:
    QTabWidget* MakeGroup();
    QTabWidget* GroupOf(const TableDocument& document) const;
    void Use(QTabWidget* group);
    void Settle();

    std::array<QTabWidget*, 2> groups_;
    QTabWidget* used_;
};

}  // namespace zt
