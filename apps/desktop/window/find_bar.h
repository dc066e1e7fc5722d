#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <optional>

#include "desktop/grid/grid_widget.h"
#include "velda_util/clip/text_matcher.h"

namespace zt {

/// A bar to search the table in front, with the number of cells that hold the text.
class FindBar : public QWidget {
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent = nullptr);

    /// The table that is searched; null for none. It outlives its use.
    void SetTable(GridWidget* table);
    /// Appears, with its text selected.
    void Open();
    QLineEdit& Text() { return *text_; }
    QLabel& Count() { return *count_; }
    void ShowTexts();

public slots:
    void FindNext() { Find(1); }
    void FindPrevious() { Find(0); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Find(int direction);
    void StartCount();
    /// Counts in a part of the rows, so that the window stays alive over long tables.
    void CountOn();

    GridWidget* table_ = nullptr;
    QLineEdit* text_;
    QToolButton* previous_;
    QToolButton* next_;
    QToolButton* close_;
    QCheckBox* matchCase_;
    QLabel* count_;
    QTimer counting_;
    std::optional<velda::TextMatcher> matcher_;
    int nextRow_ = 1;
    int found_ = 0;
};

}  // namespace zt
