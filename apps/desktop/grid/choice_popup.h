#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <vector>

#include "velda_util/list/choice_list.h"

namespace zt {

/// The lines of a choice list, with check marks where several can be chosen. Holds no line of its own.
class ChoiceModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    void Show(const velda::ChoiceList& choices);
    /// Lines that are checked; a list without check marks has none.
    void Check(bool withMarks, const std::vector<std::size_t>& lines);
    const velda::ChoiceList& Choices() const { return choices_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    velda::ChoiceList choices_;
    bool withMarks_ = false;
    std::vector<std::size_t> checked_;
};

/// The open choice list of a cell: a picture of what the edit session holds. It never takes the focus.
class ChoicePopup : public QListView {
    Q_OBJECT

public:
    explicit ChoicePopup(QWidget* parent);

    /// Shows a list beneath a cell, or above it where there is more room. `value` is the text of the editor.
    void ShowFor(const QRect& cell, const velda::ChoiceList& choices, const std::string& value, bool severalChosen);
    /// The value of a list of several lines after one of them was clicked.
    std::string Toggled(std::size_t line) const;
    const velda::ChoiceList& Choices() const { return model_.Choices(); }

signals:
    void Picked(int line);

private:
    QRect PlaceFor(const QRect& cell) const;

    ChoiceModel model_;
    std::vector<std::size_t> checked_;
};

}  // namespace zt
