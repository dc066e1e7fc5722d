#pragma once

#include <QMainWindow>
#include <QTabWidget>
#include <memory>

#include "desktop/grid/grid_widget.h"
#include "zt_tb/core/tb_view.h"

namespace zt {

/// The main window: an open model, its tables on tabs, the commands of the model.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(std::unique_ptr<CDBDoc> doc);
    ~MainWindow() override;

    CDBDoc& Document() { return *doc_; }
    /// The table on the active tab; null when there is none.
    GridWidget* ActiveGrid() const;

public slots:
    void Save();
    void Undo() { Step(&CDataBase::Undo); }
    void Redo() { Step(&CDataBase::Redo); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    struct Page {
        std::unique_ptr<CTBView> view;
        GridWidget* grid;
    };
    void AddPage(std::unique_ptr<CTBView> view, const QString& title);
    void AddActions();
    void ShowTitle();
    void ShowMessage(const QString& text);
    void Step(int (CDataBase::*step)(int));
    /// Leaves the open rows of all tables; false when one stays open.
    bool LeaveRows();

    std::unique_ptr<CDBDoc> doc_;
    QTabWidget* tabs_;
    std::vector<Page> pages_;
};

}  // namespace zt
