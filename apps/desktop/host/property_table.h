#pragma once

#include <QAbstractTableModel>
#include <QPushButton>
#include <QTableView>

#include "desktop/host/property_list_editor.h"

namespace zt {

/// The rows of a list of numbers as a table view asks for them.
class PropertyTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    PropertyTableModel(PropertyDialog& block, std::size_t list, PropertyListEditor::Changed changed, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Takes over what the dialog has now.
    void Follow();
    /// Takes nothing over any more: a cell that is open when its table goes is dropped.
    void Silence() { isSilent_ = true; }

private:
    PropertyDialog& block_;
    std::size_t list_;
    PropertyListEditor::Changed changed_;
    std::vector<std::string> columns_;
    int rows_ = 0;
    bool isSilent_ = false;
};

/// A list of numbers in a property dialog: a table that shows only the rows in sight, with buttons that add and remove
/// rows and take them from the clipboard or a file.
class PropertyTable : public PropertyListEditor {
    Q_OBJECT

public:
    PropertyTable(PropertyDialog& block, std::size_t list, Changed changed);
    ~PropertyTable() override { model_->Silence(); }

    bool ShowRows(TypedText typedText) override;
    std::vector<QWidget*> TabOrder() const override;
    QTableView& Table() { return *table_; }
    QPushButton& AddButton() { return *add_; }
    QPushButton& RemoveButton() { return *remove_; }
    QPushButton& PasteButton() { return *paste_; }
    /// Puts the rows of a text file in place of those of the list.
    void ImportFile(const QString& path);

private:
    QPushButton* MakeButton(std::string_view textKey, void (PropertyTable::*run)());
    void MakeShortcut(QKeySequence::StandardKey key, void (PropertyTable::*run)());
    void AddRow();
    void RemoveRows();
    void Copy();
    void Paste();
    void AskForFile();

    PropertyDialog& block_;
    std::size_t list_;
    Changed changed_;
    QTableView* table_;
    PropertyTableModel* model_;
    QPushButton* add_;
    QPushButton* remove_;
    QPushButton* paste_;
    QPushButton* import_;
};

}  // namespace zt
