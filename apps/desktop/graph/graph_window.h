#pragma once

#include <QAction>
#include <QChart>
#include <QChartView>
#include <QMainWindow>
#include <memory>

#include "velda_base/host/graph_view.h"

namespace zt {

/// A window that shows what a table gave it as lines or bars, in the colours of its palette.
class GraphWindow : public QMainWindow, public velda::CGraphFuncView {
    Q_OBJECT

public:
    explicit GraphWindow(const QString& title, QWidget* parent = nullptr);

    void SetGraphData(std::unique_ptr<velda::T_GRAPH_D> data) override;
    /// Bars can be told apart up to this number of labels; longer graphs are lines.
    static constexpr int kMostBars = 200;
    void ShowBars(bool bars);
    bool ShowsBars() const;
    /// Writes the chart as a PNG file; false when it cannot be written.
    bool SavePicture(const QString& path) const;
    const QChart& Chart() const { return *view_->chart(); }

protected:
    void changeEvent(QEvent* event) override;

private:
    void AskAndSave();
    /// Makes the chart anew from the data.
    void Draw();
    void AddLines(QChart& chart) const;
    void AddBars(QChart& chart) const;
    void AddAxes(QChart& chart) const;
    void Dress(QChart& chart) const;
    int LabelCount() const;

    QChartView* view_;
    QAction* lines_;
    QAction* bars_;
    std::unique_ptr<velda::T_GRAPH_D> data_;
};

}  // namespace zt
