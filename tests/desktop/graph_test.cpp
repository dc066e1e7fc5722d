#include <QApplication>
#include <QBarSeries>
#include <QCategoryAxis>
#include <QImage>
#include <QLegend>
#include <QLineSeries>
#include <QTemporaryDir>
#include <QValueAxis>
#include <limits>

#include "desktop/graph/qt_graph_view.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

std::unique_ptr<velda::T_GRAPH_D> Data(std::size_t items, std::size_t labels) {
    auto data = std::make_unique<velda::T_GRAPH_D>();
    data->title = "Plates";
    data->labelTitle = "Name";
    for (std::size_t at = 0; at < labels; ++at) data->labels.push_back("P" + std::to_string(at % 5));
    for (std::size_t item = 0; item < items; ++item) {
        auto made = std::make_unique<velda::T_GRAPH_ITEM_D>();
        made->name = "Value " + std::to_string(item) + " (mm)";
        for (std::size_t at = 0; at < labels; ++at) made->values.push_back(static_cast<double>((at * (item + 3)) % 11));
        data->items.push_back(std::move(made));
    }
    return data;
}

class GraphTest : public ::testing::Test {
protected:
    template <class Axis>
    Axis* AxisOf(Qt::Orientation orientation) {
        const auto axes = window.Chart().axes(orientation);
        return axes.isEmpty() ? nullptr : qobject_cast<Axis*>(axes.front());
    }
    const QLineSeries* Line(int at) { return qobject_cast<QLineSeries*>(window.Chart().series().at(at)); }

    GraphWindow window{"Graphs"};
};

TEST_F(GraphTest, ShowsItemsAsLinesWithTitlesAndUnits) {
    window.SetGraphData(Data(2, 5));
    ASSERT_EQ(2, window.Chart().series().size());
    EXPECT_EQ("Value 1 (mm)", Line(1)->name());
    EXPECT_EQ(5, Line(0)->count());
    EXPECT_EQ("Plates", window.Chart().title());
    EXPECT_EQ("(mm)", AxisOf<QValueAxis>(Qt::Vertical)->titleText());
    EXPECT_EQ("Name", AxisOf<QCategoryAxis>(Qt::Horizontal)->titleText());
    EXPECT_TRUE(window.Chart().legend()->isVisible());
}

TEST_F(GraphTest, OneItemNeedsNoLegend) {
    window.SetGraphData(Data(1, 5));
    EXPECT_FALSE(window.Chart().legend()->isVisible());
    EXPECT_EQ("Value 0 (mm)", AxisOf<QValueAxis>(Qt::Vertical)->titleText());
}

TEST_F(GraphTest, BarsBeginAtZero) {
    window.SetGraphData(Data(1, 5));
    window.ShowBars(true);
    ASSERT_NE(nullptr, qobject_cast<QBarSeries*>(window.Chart().series().at(0)));
    EXPECT_EQ(0.0, AxisOf<QValueAxis>(Qt::Vertical)->min());
}

TEST_F(GraphTest, LongGraphsAreLinesWithFewPointsAndFewLabels) {
    window.ShowBars(true);
    window.SetGraphData(Data(1, 1000000));
    EXPECT_FALSE(window.ShowsBars());
    EXPECT_LE(Line(0)->count(), 4000);
    EXPECT_LE(AxisOf<QCategoryAxis>(Qt::Horizontal)->count(), 9);
}

TEST_F(GraphTest, LabelsThatAreAlikeAllStand) {
    window.SetGraphData(Data(1, 8));
    EXPECT_EQ(8, AxisOf<QCategoryAxis>(Qt::Horizontal)->count());
}

TEST_F(GraphTest, MissingValuesAreNoPoints) {
    auto data = Data(1, 4);
    data->items[0]->values[2] = std::numeric_limits<double>::quiet_NaN();
    window.SetGraphData(std::move(data));
    EXPECT_EQ(3, Line(0)->count());
}

TEST_F(GraphTest, EqualValuesHaveRoomAboutThem) {
    auto data = Data(1, 3);
    data->items[0]->values = {2.0, 2.0, 2.0};
    window.SetGraphData(std::move(data));
    EXPECT_LT(AxisOf<QValueAxis>(Qt::Vertical)->min(), 2.0);
    EXPECT_GT(AxisOf<QValueAxis>(Qt::Vertical)->max(), 2.0);
}

TEST_F(GraphTest, FollowsADarkPalette) {
    window.SetGraphData(Data(1, 3));
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    window.setPalette(dark);
    EXPECT_EQ(QColor(30, 30, 30), window.Chart().backgroundBrush().color());
    EXPECT_GT(AxisOf<QValueAxis>(Qt::Vertical)->labelsColor().lightness(), 200);
}

TEST_F(GraphTest, IsSavedAsAPicture) {
    const QTemporaryDir folder;
    window.SetGraphData(Data(2, 5));
    window.resize(600, 400);
    EXPECT_TRUE(window.SavePicture(folder.filePath("graph.png")));
    EXPECT_GT(QImage(folder.filePath("graph.png")).width(), 300);
    EXPECT_FALSE(window.SavePicture(folder.filePath("missing/graph.png")));
}

TEST(GraphViews, HaveAWindowForEachTitle) {
    QtGraphView graphs;
    auto* first = dynamic_cast<GraphWindow*>(graphs.GetView("One"));
    ASSERT_NE(nullptr, first);
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(first, graphs.GetView("One"));
    EXPECT_NE(first, graphs.GetView("Two"));
    first->close();
    EXPECT_NE(nullptr, graphs.GetView("One"));
    EXPECT_TRUE(first->isVisible()) << "a window that was closed comes back";
}

}  // namespace
}  // namespace zt
