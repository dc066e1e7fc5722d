#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <memory>

#include "desktop/grid/cell_editor.h"
#include "desktop/grid/choice_popup.h"
#include "desktop/grid/grid_geometry.h"
#include "desktop/grid/grid_mouse.h"
#include "velda_util/grid/tb_browser_wnd.h"

namespace zt {

/// The window of a table. It draws what the engine holds and hands every event to the engine; of its own it has only
/// pixels: where the table is scrolled to, the zoom, a drag that is going on.
class GridWidget : public QAbstractScrollArea, public velda::GridHost {
    Q_OBJECT

public:
    explicit GridWidget(QWidget* parent = nullptr);
    ~GridWidget() override;

    /// Shows a table from now on; null for none. The table has to live as long as it is shown.
    void SetGrid(velda::CTBGrid* grid);
    /// Lets go of a table that is gone already.
    void ForgetGrid();
    velda::CTBGrid* Grid() const { return grid_; }
    /// The table, when its rows are records that can be edited; null otherwise.
    velda::CTBBrowserWnd* Browser() const { return browser_; }

    /// Where things stand now.
    GridGeometry Geometry() const;
    double Zoom() const { return scroll_.zoom; }
    void SetZoom(double zoom);
    /// Scrolls as little as is needed to bring a cell in sight.
    void ShowCell(velda::GridPosition cell);
    void ScrollBy(int rows, int pixels);
    /// Makes a column as wide as its title and its texts need. In a long table a sample of the rows is looked at.
    void FitColumn(int col);
    /// Takes over what the engine holds now: scroll bars, editor, open list, picture.
    void Refresh();
    /// What a tool tip tells at a place of the window: what was found in the cell, else the tip of its style.
    QString TipAt(QPoint point) const;

    // The engine's host.
    void OnRedraw() override;
    void OnWarning(const std::string& text) override;
    void OnMessage(const std::string& text) override;
    void OnTopLeft(velda::GridPosition cell) override;
    std::optional<velda::GridPosition> CellUnder(const velda::CGXGridCore& grid,
                                                 velda::WindowPoint point) const override;
    void SetClipboardText(std::string text) override;
    std::string GetClipboardText() override;

signals:
    /// Something was refused.
    void Warned(const QString& text);
    /// Something that the user should know.
    void Told(const QString& text);
    /// The user asks for the search dialog.
    void FindRequested();
    /// Another cell became the current one.
    void CurrentCellChanged();
    /// What the window shows was taken over from the engine: places, selection or texts may be others.
    void Refreshed();

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool /*next*/) override { return false; }

private:
    bool IsCellOpen() const { return browser_ && browser_->Session().IsCellOpen(); }
    /// Gives a key to the table. False when it means nothing there.
    bool HandleKey(const QKeyEvent& event);
    bool HandleListTyping(const QKeyEvent& event);
    void FollowSelection(velda::PositionRange before);
    void FollowCurrentCell();
    void UpdateScrollBars();
    void FollowEditor(const GridGeometry& geometry);
    void FollowList(const QRect& cell);
    void PickFromList(int line);
    int WidestText(int col) const;
    QFont HeaderFont() const;

    velda::CTBGrid* grid_ = nullptr;
    velda::CTBBrowserWnd* browser_ = nullptr;
    GridScroll scroll_;
    GridMouse mouse_{*this};
    QBasicTimer dragTimer_;
    CellEditor* editor_;
    ChoicePopup* list_;
    velda::CellId shownCurrent_;  ///< the current cell as it was last brought in sight
    bool redrawWaits_ = false;
    bool settingBars_ = false;  ///< the scroll bars follow the window and not the user
    bool isComposing_ = false;  ///< an input method composes a syllable that began here
    int wheelAngle_ = 0;        ///< turns of the wheel that are no whole row yet
};

}  // namespace zt
