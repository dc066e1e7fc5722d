#pragma once

#include <QPushButton>
#include <QScrollArea>

#include "desktop/host/property_list_editor.h"

namespace zt {

/// The rows of a list of the record in a property dialog: an editor for each cell, a button that removes the row, and
/// one that adds a row.
class PropertyRows : public PropertyListEditor {
    Q_OBJECT

public:
    PropertyRows(PropertyDialog& block, std::size_t list, Changed changed);

    bool ShowRows(TypedText typedText) override;
    /// Null for cells that do not exist.
    QWidget* EditorOf(int row, int column) const;
    QPushButton* RemoveButton(int row) const;
    QPushButton& AddButton() { return *add_; }
    std::vector<QWidget*> TabOrder() const override;

private:
    struct Line {
        std::vector<QWidget*> editors;
        QPushButton* remove;
    };

    using Fields = std::vector<PropertyField>;

    std::vector<Fields> Rows() const;
    void MakeLines(const std::vector<Fields>& rows);
    Line MakeLine(int row, const Fields& fields);
    void Tell() { changed_(velda::Outcome::Done()); }
    void AddRow();
    void RemoveRow(int row);

    PropertyDialog& block_;
    std::size_t list_;
    Changed changed_;
    QScrollArea* area_;
    QPushButton* add_;
    std::vector<Line> lines_;
};

}  // namespace zt
