#pragma once

#include <QPointer>

#include "desktop/host/qt_dock_pane.h"
#include "desktop/window/table_holder.h"
#include "zt_tb/core/dock_view.h"

namespace zt {

/// A kind of model table in a docking pane of the main window.
class DockedTable final : public CDockView_PreTable {
public:
    DockedTable(QMainWindow& window, int kind);
    ~DockedTable() override;

    QtDockPane& Pane() { return pane_; }
    /// The table with its tabs and filters; null while the pane is closed.
    TableHolder* Holder() const { return holder_; }
    bool IsOpen() const { return holder_ != nullptr; }
    /// Shows the pane and makes the view when there is none. False when it cannot be made.
    bool Open();
    /// Makes the view of an open pane anew, so that it takes its texts in the current language.
    void Reopen();

    /// Told of each view that the pane makes.
    std::function<void(TableHolder&)> onOpened;
    /// Told that the view is about to go.
    std::function<void()> onClosing;

protected:
    void OnAfterCreateView() override;
    void OnClosed() override;

private:
    QtDockPane pane_;
    QPointer<TableHolder> holder_;
};

}  // namespace zt
