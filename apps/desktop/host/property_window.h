#pragma once

#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>

#include "zt_cmd/property_dialog.h"

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

    QListWidget& List() { return *list_; }
    /// The editor of a field: a line edit or a combo box.
    QWidget* EditorOf(int field) const;
    QPushButton& AddButton() { return *add_; }
    QPushButton& ChangeButton() { return *change_; }
    QPushButton& DeleteButton() { return *delete_; }
    /// What was refused last; empty after success.
    QString Message() const { return message_->text(); }

private:
    using Action = velda::Outcome (PropertyDialog::*)();

    QPushButton* MakeButton(std::string_view textKey, Action action);
    void Run(Action action);
    void Choose(int row);
    void ShowList();
    /// Shows the fields: new editors where they are other fields than before, otherwise the texts.
    void ShowFields();
    void MakeEditors(const std::vector<PropertyField>& fields);
    void ShowTexts(const std::vector<PropertyField>& fields);
    void ShowResults();
    void Type(std::size_t field, const QString& text);

    PropertyDialog& block_;
    QListWidget* list_;
    QFormLayout* form_;
    SectionPicture* picture_;
    QTableWidget* results_;
    QLabel* uses_;
    QLabel* message_;
    QPushButton* add_ = nullptr;
    QPushButton* change_ = nullptr;
    QPushButton* delete_ = nullptr;
    std::vector<PropertyField> shown_;
    bool showing_ = false;  ///< editors take texts over and report nothing
};

}  // namespace zt
