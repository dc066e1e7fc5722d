#pragma once

#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/host/property_rows.h"
#include "desktop/host/property_table.h"

namespace zt {

/// The picture of a section: its outlines, filled, with its axes.
class SectionPicture : public QWidget {
    Q_OBJECT

public:
    explicit SectionPicture(QWidget* parent = nullptr);
    void Show(std::vector<Outline> parts);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<Outline> parts_;
};

/// The window of a property dialog: the list of records, the fields of one, what follows from them, and the buttons.
class PropertyWindow : public QDialog {
    Q_OBJECT

public:
    PropertyWindow(PropertyDialog& block, QWidget* parent);
    ~PropertyWindow() override;

    QListWidget& List() { return *list_; }
    /// The editor of a field: a line edit or a combo box.
    QWidget* EditorOf(int field) const;
    /// The editor of a list of the record; null where there is no such list, or one of the other kind.
    PropertyRows* Rows(std::size_t list = 0) { return EditorOfList<PropertyRows>(list); }
    PropertyTable* Table(std::size_t list = 0) { return EditorOfList<PropertyTable>(list); }
    QPushButton& AddButton() { return *add_; }
    QPushButton& CopyButton() { return *copy_; }
    QPushButton& ChangeButton() { return *change_; }
    QPushButton& DeleteButton() { return *delete_; }
    /// What was refused last; empty after success.
    QString Message() const { return message_->text(); }

private:
    using Action = velda::Outcome (PropertyDialog::*)();

    template <class Editor>
    Editor* EditorOfList(std::size_t list) {
        return list < lists_.size() ? dynamic_cast<Editor*>(lists_[list]) : nullptr;
    }
    void MakeLists(QVBoxLayout& layout);
    void PlaceParts();
    static QPushButton* MakeButton(std::string_view textKey);
    QPushButton* MakeButton(std::string_view textKey, Action action);
    void Run(Action action);
    void Choose(int row);
    void ShowList();
    /// Shows fields and rows: new editors where they are others than before, otherwise the texts.
    void ShowFields(TypedText typedText);
    void MakeEditors(const std::vector<PropertyField>& fields);
    void ShowResults();
    /// The tab key goes from the list to the fields and the rows, and then to the buttons.
    void OrderTabs();
    void Type(std::size_t field, const QString& text);
    void AfterTyping(const velda::Outcome& outcome);

    PropertyDialog& block_;
    QHBoxLayout* upper_;  ///< the list, the fields, and what follows from them
    QListWidget* list_;
    QFormLayout* form_;
    std::vector<PropertyListEditor*> lists_;
    SectionPicture* picture_;
    QTableWidget* results_;
    QLabel* uses_;
    QLabel* message_;
    QPushButton* add_ = nullptr;
    QPushButton* copy_ = nullptr;
    QPushButton* change_ = nullptr;
    QPushButton* delete_ = nullptr;
    QPushButton* close_ = nullptr;
    std::vector<PropertyField> shown_;
    bool showing_ = false;  ///< editors take texts over and report nothing
};

}  // namespace zt
