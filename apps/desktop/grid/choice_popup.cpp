#include "desktop/grid/choice_popup.h"

#include <algorithm>

#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

constexpr int kMostLines = 12;

}  // namespace

void ChoiceModel::Show(const velda::ChoiceList& choices) {
    if (choices.SharesWith(choices_)) return;
    beginResetModel();
    choices_ = choices;
    endResetModel();
}

void ChoiceModel::Check(bool withMarks, const std::vector<std::size_t>& lines) {
    withMarks_ = withMarks;
    checked_ = lines;
    if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1), {Qt::CheckStateRole});
}

int ChoiceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(choices_.Count());
}

QVariant ChoiceModel::data(const QModelIndex& index, int role) const {
    const auto line = static_cast<std::size_t>(index.row());
    if (role == Qt::DisplayRole) return ToQt(choices_.Text(line));
    if (role == Qt::CheckStateRole && withMarks_) {
        return std::find(checked_.begin(), checked_.end(), line) != checked_.end() ? Qt::Checked : Qt::Unchecked;
    }
    return {};
}

ChoicePopup::ChoicePopup(QWidget* parent) : QListView(parent) {
    setModel(&model_);
    setFocusPolicy(Qt::NoFocus);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setMouseTracking(true);
    hide();
    connect(this, &QListView::clicked, this, [this](const QModelIndex& index) { emit Picked(index.row()); });
}

QRect ChoicePopup::PlaceFor(const QRect& cell) const {
    const int frame = 2 * frameWidth();
    const int lines = std::clamp(model_.rowCount(), 1, kMostLines);
    const int wanted = lines * std::max(sizeHintForRow(0), fontMetrics().height()) + frame;
    const int widest = std::max(cell.width(), sizeHintForColumn(0) + frame + 24);
    const int width = std::min(widest, parentWidget()->width());
    const int left = std::clamp(cell.left(), 0, std::max(0, parentWidget()->width() - width));
    const int below = parentWidget()->height() - cell.bottom() - 1;
    if (wanted <= below || below >= cell.top()) return {left, cell.bottom() + 1, width, std::min(wanted, below)};
    const int height = std::min(wanted, cell.top());
    return {left, cell.top() - height, width, height};
}

void ChoicePopup::ShowFor(const QRect& cell, const velda::ChoiceList& choices, const std::string& value,
                          bool severalChosen) {
    model_.Show(choices);
    checked_.clear();
    if (severalChosen && !choices.ReadJoinedText(value, checked_)) checked_.clear();
    model_.Check(severalChosen, checked_);
    // The empty line before flags is no choice.
    setRowHidden(0, severalChosen && choices.HoldsFlags());
    setGeometry(PlaceFor(cell));
    show();
    raise();
    if (severalChosen) return;
    const auto line = choices.IndexOfKey(value);
    setCurrentIndex(line ? model_.index(static_cast<int>(*line)) : QModelIndex());
}

std::string ChoicePopup::Toggled(std::size_t line) const {
    std::vector<std::size_t> lines = checked_;
    const auto found = std::find(lines.begin(), lines.end(), line);
    if (found == lines.end()) {
        lines.push_back(line);
    } else {
        lines.erase(found);
    }
    return Choices().JoinedText(lines);
}

}  // namespace zt
