#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QMainWindow>
#include <QToolBar>

#include "desktop/modelview/model_widget.h"
#include "desktop/modelview/result_follower.h"

namespace zt {

/// The pane of the main window that draws the model, with its commands and the choice of what is drawn at the top.
class ModelPane : public QDockWidget {
    Q_OBJECT

public:
    /// Stands at the right of a window, hidden until ShowDocument.
    explicit ModelPane(QMainWindow& window);
    ~ModelPane() override;

    ModelView& View() { return view_; }
    ModelWidget& Widget() { return *widget_; }
    /// The tool bar of the pane, which takes the commands of the model view.
    QToolBar& Tools() { return *tools_; }
    /// Chooses the load case whose loads are drawn; its item data are keys, 0 for none.
    QComboBox& Loads() { return *loads_; }
    QCheckBox& Supports() { return *supports_; }
    /// Whether the model is drawn as the current table of results has it: deformed, and in the colours of its values.
    QCheckBox& Deformed() { return *deformed_; }
    QCheckBox& Colours() { return *colours_; }
    /// Follows the current table of results; null for none.
    void FollowResults(velda::CTBCore* grid);
    /// Shows a document; null for none. The pane comes up with a model that has nodes, unless the user has closed it.
    void ShowDocument(CDBDoc* doc);
    /// Shows the pane as the user wants it.
    void Open();
    void ShowTexts();
    /// Draws the pane's own icons in the colours of the palette.
    void ShowIcons(const QColor& enabled, const QColor& disabled);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* MakeChoices();
    void ShowLoadCases();

    ModelView view_;
    ResultFollower results_{view_};
    velda::CTBCore* followed_ = nullptr;
    ModelWidget* widget_ = nullptr;
    QToolBar* tools_ = nullptr;
    QAction* bands_ = nullptr;
    QComboBox* loads_ = nullptr;
    QCheckBox* supports_ = nullptr;
    QCheckBox* deformed_ = nullptr;
    QCheckBox* colours_ = nullptr;
};

}  // namespace zt
