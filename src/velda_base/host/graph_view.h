#pragma once

#include <memory>
#include <string>
#include <vector>

namespace velda {

/// One line of a graph. A value that is missing is no number (NaN).
struct T_GRAPH_ITEM_D {
    std::string name;
    std::vector<double> values;
};

/// What a table shows as a graph.
struct T_GRAPH_D {
    std::string title;
    std::string labelTitle;           ///< what the labels are
    std::vector<std::string> labels;  ///< along the axis that the items share
    std::vector<std::unique_ptr<T_GRAPH_ITEM_D>> items;
};

/// A view that shows graphs.
class CGraphFuncView {
public:
    virtual ~CGraphFuncView() = default;
    virtual void SetGraphData(std::unique_ptr<T_GRAPH_D> data) = 0;
};

/// The service of the graph views.
class IGraphView {
public:
    virtual ~IGraphView() = default;
    /// The view of this title, opened when there is none yet. Null when it cannot be had.
    virtual CGraphFuncView* GetView(const std::string& title) = 0;

    /// That of the current host; null where there is none.
    static IGraphView* Instance();
};

}  // namespace velda
