#pragma once

#include <QPointer>
#include <map>
#include <string>

#include "desktop/graph/graph_window.h"

namespace zt {

/// The windows of graphs, one for each title. A window that the user closed comes back with the next graph.
class QtGraphView : public velda::IGraphView {
public:
    /// `parent` owns the windows and closes them with itself; it may be null.
    explicit QtGraphView(QWidget* parent = nullptr) : parent_(parent) {}
    ~QtGraphView() override;

    velda::CGraphFuncView* GetView(const std::string& title) override;

private:
    QWidget* parent_;
    std::map<std::string, QPointer<GraphWindow>> windows_;
};

}  // namespace zt
