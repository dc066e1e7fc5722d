#include "desktop/grid/cell_editor.h"

#include <QKeyEvent>

#include "desktop/grid/alignment.h"
#include "desktop/grid/grid_painter.h"
#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

constexpr int kNoLimit = 32767;

}  // namespace

CellEditor::CellEditor(QWidget* parent, KeyFilter filter) : QLineEdit(parent), filter_(std::move(filter)) {
    setFrame(false);
    setAutoFillBackground(true);
    hide();
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (following_) return;
        known_ = FromQt(text);
        emit Typed(text);
    });
}

void CellEditor::SetSilently(const QString& text) {
    following_ = true;
    setText(text);
    following_ = false;
}

void CellEditor::Follow(const velda::CTBBrowserWnd& browser, const QRect& place, const QFont& font) {
    const velda::EditSession& session = browser.Session();
    const int row = browser.PositionOfRow(session.Cell().row);
    const int col = browser.PositionOfColumn(session.Cell().column);
    const velda::CGXStyle& style = browser.StyleOf(row, col);
    if (cell_ != session.Cell()) {
        cell_ = session.Cell();
        known_ = session.EditorText();
        setMaxLength(style.GetMaxLength() > 0 ? style.GetMaxLength() : kNoLimit);
        setAlignment((AlignmentOf(style) & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter);
        // What was typed stands as it was typed; the key of a listed name stands as the name.
        const bool typed = session.State() == velda::EditState::Replacing;
        SetSilently(ToQt(typed ? known_ : std::string(style.GetChoices().ShownText(known_))));
    } else if (known_ != session.EditorText()) {
        known_ = session.EditorText();
        SetSilently(ToQt(style.GetChoices().ShownText(known_)));
    }
    setFont(font);
    setGeometry(place);
    if (!isVisible()) show();
    raise();
}

void CellEditor::Leave() {
    cell_ = {};
    hide();
}

bool CellEditor::event(QEvent* event) {
    // Keys of the table are not for the shortcuts of the window.
    if (event->type() == QEvent::ShortcutOverride) event->accept();
    return QLineEdit::event(event);
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    if (filter_(*event)) return;
    QLineEdit::keyPressEvent(event);
}

}  // namespace zt
