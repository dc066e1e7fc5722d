#pragma once

#include <QPushButton>
#include <QScrollArea>
#include <QWidget>
#include <functional>

#include "desktop/host/property_editor.h"

namespace zt {

/// The rows of the record in a property dialog: an editor for each cell, a button that removes the row, and one that
/// adds a row.
class PropertyRows : public QWidget {
    Q_OBJECT

public:
    /// `changed` hears each change of a row, after the dialog has it.
    PropertyRows(PropertyDialog& block, std::function<void()> changed);

    /// Shows the rows as they are now; true when they are others than before, with other editors.
    bool ShowRows(TypedText typedText);
    /// Null for cells that do not exist.
    QWidget* EditorOf(int row, int column) const;
    QPushButton* RemoveButton(int row) const;
    QPushButton& AddButton() { return *add_; }
    /// All that takes the focus, in the order of the tab key.
    std::vector<QWidget*> TabOrder() const;

private:
    struct Line {
        std::vector<QWidget*> editors;
        QPushButton* remove;
    };

    void MakeLines(const std::vector<std::vector<PropertyField>>& rows);
    Line MakeLine(int row, const std::vector<PropertyField>& fields);
    void AddRow();
    void RemoveRow(int row);

    PropertyDialog& block_;
    std::function<void()> changed_;
    QScrollArea* area_;
    QPushButton* add_;
    std::vector<Line> lines_;
};

}  // namespace zt
