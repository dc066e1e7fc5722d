#pragma once

#include <QLineEdit>
#include <functional>

#include "velda_util/grid/tb_browser_wnd.h"

namespace zt {

/// The open editor of a cell: a picture of the text that the edit session holds. Every change goes to the session, and
/// keys are offered to the table first.
class CellEditor : public QLineEdit {
    Q_OBJECT

public:
    /// Handles a key on behalf of the table; false when the editor is to have it.
    using KeyFilter = std::function<bool(QKeyEvent&)>;
    CellEditor(QWidget* parent, KeyFilter filter);

    /// Shows what the session holds; opens when it has just begun.
    void Follow(const velda::CTBBrowserWnd& browser, const QRect& place, const QFont& font);
    void Leave();
    /// The cell that it stands for; no cell while it is hidden.
    velda::CellId Cell() const { return cell_; }

signals:
    /// The user changed the text.
    void Typed(const QString& text);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool /*next*/) override { return false; }

private:
    void SetSilently(const QString& text);

    KeyFilter filter_;
    velda::CellId cell_;
    std::string known_;  ///< text of the session as it is shown
    bool following_ = false;
};

}  // namespace zt
