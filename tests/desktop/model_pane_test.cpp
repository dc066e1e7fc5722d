#include "desktop/modelview/model_pane.h"

#include <QSettings>
#include <QWheelEvent>

#include "desktop/grid/qt_text.h"
#include "desktop/host/qt_host.h"
#include "desktop/modelview/model_painter.h"
#include "desktop/window_fixture.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/ptld.h"
#include "zt_db/records/spts.h"
#include "zt_tb/model/table_kinds.h"
#include "zt_tb/model/tb_pre_view.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

class ModelPaneTest : public WindowFixture {
protected:
    void SetUp() override {
        QSettings().clear();
        WindowFixture::SetUp();
        Widget().resize(400, 400);
    }
    void TearDown() override {
        WindowFixture::TearDown();
        QSettings().clear();
    }
    ModelPane& Pane() { return window->Model(); }
    ModelWidget& Widget() { return Pane().Widget(); }
    ModelView& View() { return Pane().View(); }
    CDataBase& Db() { return *window->Document().GetMDBCtrl()->GetCurrentDB(); }
    QPoint PlaceOf(const Vec3& place) {
        const Point2 point = View().View().Project(place).Flat();
        return QPointF(point.x, point.y).toPoint();
    }
    /// The first column of the sample stands here.
    QPoint ColumnPlace() { return PlaceOf({0.0, 0.0, 1.8}); }
    void Drag(Qt::MouseButton button, Qt::KeyboardModifiers keys, QPoint from, QPoint to) {
        QTest::mousePress(&Widget(), button, keys, from);
        QTest::mouseMove(&Widget(), (from + to) / 2);
        QMouseEvent move(QEvent::MouseMove, to, Widget().mapToGlobal(to), Qt::NoButton, button, keys);
        QApplication::sendEvent(&Widget(), &move);
        QTest::mouseRelease(&Widget(), button, keys, to);
    }
    /// Pixels of the pane's picture that have a colour.
    int Count(const QColor& color) {
        const QImage picture = Widget().grab().toImage().convertToFormat(QImage::Format_RGB32);
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == color ? 1 : 0;
        }
        return count;
    }
    /// Chooses an entry of the list of load cases as the user does.
    void Choose(int entry) {
        Pane().Loads().setCurrentIndex(entry);
        Q_EMIT Pane().Loads().activated(entry);
    }
    QStringList Choices() {
        QStringList names;
        for (int at = 0; at < Pane().Loads().count(); ++at) names += Pane().Loads().itemText(at);
        return names;
    }
    ModelColors Colors() { return ModelColors::Of(Widget().palette()); }
};

TEST_F(ModelPaneTest, StandsAtTheRightOfAModelWithNodes) {
    EXPECT_TRUE(Pane().isVisible());
    EXPECT_EQ(Qt::RightDockWidgetArea, window->dockWidgetArea(&Pane()));
    EXPECT_EQ("Model", Pane().windowTitle().toStdString());
    const MainWindow empty(CDBDoc::New());
    EXPECT_TRUE(const_cast<MainWindow&>(empty).Model().isHidden());
}

TEST_F(ModelPaneTest, StaysAwayWhenTheUserHasClosedIt) {
    Pane().close();
    window->NewModel();
    auto doc = CDBDoc::New();
    ASSERT_TRUE(BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), "small"));
    MainWindow other(std::move(doc));
    EXPECT_TRUE(other.Model().isHidden());
    other.Model().toggleViewAction()->trigger();
    EXPECT_FALSE(other.Model().isHidden());
    EXPECT_TRUE(QSettings().value("window/model").toBool());
}

TEST_F(ModelPaneTest, SelectsWithClicksAndClearsWithEscape) {
    QTest::mouseClick(&Widget(), Qt::LeftButton, {}, ColumnPlace());
    ASSERT_EQ(1u, View().Selection().members.size());
    EXPECT_EQ(MembType::Column, Db().GetClass<CClassMemb>()->GetType(View().Selection().members[0]));
    QTest::mouseClick(&Widget(), Qt::LeftButton, Qt::ControlModifier, PlaceOf({0.0, 0.0, 3.6}));
    EXPECT_EQ(1u, View().Selection().nodes.size());
    EXPECT_EQ(1u, View().Selection().members.size());
    QTest::keyClick(&Widget(), Qt::Key_Escape);
    EXPECT_TRUE(View().Selection().IsEmpty());
}

TEST_F(ModelPaneTest, DrawsBandsWhenTheirButtonIsPressedIn) {
    const Camera before = View().View();
    Pane().Tools().actions().first()->trigger();
    Drag(Qt::LeftButton, {}, {1, 1}, {Widget().width() - 2, Widget().height() - 2});
    EXPECT_EQ(static_cast<std::size_t>(Db().GetClass<CClassMemb>()->GetCount()), View().Selection().members.size());
    EXPECT_EQ(before, View().View());
    Pane().Tools().actions().first()->trigger();
    Drag(Qt::LeftButton, {}, {100, 100}, {160, 100});
    EXPECT_NE(before.Azimuth(), View().View().Azimuth());
}

TEST_F(ModelPaneTest, TurnsMovesAndZooms) {
    const Camera before = View().View();
    Drag(Qt::RightButton, {}, {100, 100}, {150, 120});
    EXPECT_EQ(before.Azimuth(), View().View().Azimuth());
    EXPECT_NE(before, View().View());
    Drag(Qt::MiddleButton, {}, {100, 100}, {150, 120});
    EXPECT_NE(before.Azimuth(), View().View().Azimuth());
    QWheelEvent wheel({100.0, 100.0}, Widget().mapToGlobal(QPointF(100.0, 100.0)), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Widget(), &wheel);
    EXPECT_NEAR(1.2 * before.Scale(), View().View().Scale(), 1e-9);
    QTest::keyClick(&Widget(), Qt::Key_F);
    window->ActionOf("model-isometric")->trigger();
    EXPECT_NEAR(before.Scale(), View().View().Scale(), 1e-9);
}

TEST_F(ModelPaneTest, ShowsStandardViewsByCommands) {
    window->ActionOf("model-plan")->trigger();
    EXPECT_NEAR(std::acos(0.0), View().View().Elevation(), 1e-9);
    window->ActionOf("model-side")->trigger();
    EXPECT_EQ(0.0, View().View().Elevation());
    EXPECT_NEAR(std::acos(0.0), View().View().Azimuth(), 1e-9);
    Pane().close();
    window->ActionOf("model-front")->trigger();
    EXPECT_FALSE(Pane().isHidden()) << "who asks for a view sees it";
    EXPECT_EQ(0.0, View().View().Azimuth());
}

TEST_F(ModelPaneTest, FollowsTheModelThatIsOpen) {
    window->NewModel();
    EXPECT_TRUE(View().Scene().IsEmpty());
    EXPECT_FALSE(window->HasModel());
    EXPECT_EQ(QStringList{"No Loads"}, Choices());
    QTest::mouseClick(&Widget(), Qt::LeftButton, {}, {100, 100});
    ASSERT_TRUE(BuildSample(Db(), "small"));
    EXPECT_EQ(12u, View().Scene().Nodes().size());
    window->Undo();
    EXPECT_TRUE(View().Scene().IsEmpty());
}

TEST_F(ModelPaneTest, PicturesTheBuildingInTheColoursOfItsMembers) {
    window->ActionOf("model-front")->trigger();
    const ModelColors colors = Colors();
    EXPECT_GT(Count(colors.background), 1000);
    EXPECT_GT(Count(colors.OfKind(DrawnKind::Column)), 20);
    EXPECT_GT(Count(colors.OfKind(DrawnKind::Beam)), 20);
    EXPECT_EQ(0, Count(colors.selected));
    EXPECT_EQ(0, Count(colors.highlighted));
}

TEST_F(ModelPaneTest, PicturesSelectionAndHighlights) {
    window->ActionOf("model-front")->trigger();
    Db().GetViewCtrl()->SelectMemb(nullptr, {1});
    EXPECT_GT(Count(Colors().selected), 20) << "selected by another view";
    const std::uint32_t keys[] = {2};
    View().Highlight(keys, 4, 1);
    EXPECT_GT(Count(Colors().highlighted), 20);
    View().ResetHighlights();
    EXPECT_EQ(0, Count(Colors().highlighted));
}

TEST_F(ModelPaneTest, PicturesTheBuildingOnDarkWindowsToo) {
    QPalette dark = Widget().palette();
    dark.setColor(QPalette::Base, QColor("#1c1e21"));
    dark.setColor(QPalette::Text, QColor("#e6e6e6"));
    Widget().setPalette(dark);
    EXPECT_EQ(QColor("#1c1e21"), Colors().background);
    EXPECT_GT(Count(Colors().background), 1000);
    EXPECT_NE(Colors().OfKind(DrawnKind::Column), ModelColors::Of(window->palette()).OfKind(DrawnKind::Column));
}

TEST_F(ModelPaneTest, IsSharpOnScreensOfMorePixels) {
    window->ActionOf("model-front")->trigger();
    QImage large(Widget().size() * 2, QImage::Format_RGB32);
    large.setDevicePixelRatio(2.0);
    Widget().render(&large);
    const QRgb column = Colors().OfKind(DrawnKind::Column).rgb();
    const int y = 2 * PlaceOf({0.0, 0.0, 1.8}).y();
    int width = 0;
    int edges = 0;
    for (int x = 2 * PlaceOf({0.0, 0.0, 1.8}).x() - 12; x < 2 * PlaceOf({0.0, 0.0, 1.8}).x() + 12; ++x) {
        if (large.pixel(x, y) == column) ++width;
        if (large.pixel(x, y) != column && large.pixel(x, y) != Colors().background.rgb()) ++edges;
    }
    EXPECT_GE(width, 3) << "2.4 pixels of the window";
    EXPECT_LE(edges, 2);
}

TEST_F(ModelPaneTest, LeavesAxesAndLegendOutOfASmallPane) {
    window->ActionOf("model-plan")->trigger();
    EXPECT_GT(Count(Colors().axes[0]), 5);
    Widget().resize(200, 400);
    EXPECT_EQ(0, Count(Colors().axes[0]));
}

TEST_F(ModelPaneTest, ShowsSupportsUnlessTheyAreSwitchedOff) {
    window->ActionOf("model-front")->trigger();
    EXPECT_TRUE(Pane().Supports().isChecked());
    EXPECT_GT(Count(Colors().support), 10);
    Pane().Supports().click();
    EXPECT_EQ(0, Count(Colors().support));
    Pane().Supports().click();
    std::vector<std::uint32_t> keys;
    Db().GetClass<CClassSpts>()->GetKeyList(keys);
    ASSERT_TRUE(Db().GetClass<CClassSpts>()->TR_Del(keys));
    EXPECT_EQ(0, Count(Colors().support)) << "deleted";
    window->Undo();
    EXPECT_GT(Count(Colors().support), 10);
}

TEST_F(ModelPaneTest, DrawsTheLoadsOfTheChosenLoadCase) {
    window->ActionOf("model-front")->trigger();
    EXPECT_EQ((QStringList{"No Loads", "DL", "LL", "WX", "EX"}), Choices());
    EXPECT_EQ(0, Pane().Loads().currentIndex());
    EXPECT_EQ(0, Count(Colors().force));
    const Camera before = View().View();
    Choose(1);
    EXPECT_EQ(1u, View().Loads().LoadCase());
    EXPECT_GT(Count(Colors().force), 100);
    ASSERT_TRUE(Db().GetClass<CClassPtld>()->TR_Add(1, {.node = 22, .stld = 1, .mz = 10.0}));
    ASSERT_TRUE(Db().GetClass<CClassPtld>()->TR_Add(2, {.node = 23, .stld = 1, .mx = 10.0}));
    EXPECT_GT(Count(Colors().moment), 5);
    EXPECT_EQ(before, View().View());
    Choose(0);
    EXPECT_EQ(0, Count(Colors().force));
    EXPECT_EQ(0, Count(Colors().moment));
}

TEST_F(ModelPaneTest, FollowsTheLoadCasesAndKeepsTheChoice) {
    auto& cases = *Db().GetClass<CClassStld>();
    Choose(3);
    ASSERT_TRUE(cases.TR_Modify(3, 3, {.name = "Wind", .type = "W"}));
    EXPECT_EQ("Wind", Pane().Loads().currentText().toStdString());
    ASSERT_TRUE(cases.TR_Add(2000, {.name = "Snow", .type = "S"}));
    EXPECT_EQ("Snow", Choices().last().toStdString());
    EXPECT_EQ(3u, View().Loads().LoadCase());
    window->Undo();
    EXPECT_EQ("EX", Choices().last().toStdString());
    Choose(4);
    ASSERT_TRUE(cases.TR_Del(4));
    EXPECT_EQ(0, Pane().Loads().currentIndex());
    EXPECT_EQ(0u, View().Loads().LoadCase());
    window->Undo();
    EXPECT_EQ("EX", Choices().last().toStdString());
}

TEST_F(ModelPaneTest, WritesValuesOfLoadsInCurrentUnits) {
    Choose(1);
    const QImage before = Widget().grab().toImage();
    T_UNIT_INDEX units;
    CUnitCtrl& control = *window->Document().GetUnitCtrl();
    control.GetUnitIndexCurrent(units);
    units.force = CUnitCtrl::FindChoice(UnitQuantity::Force, "N");
    ASSERT_TRUE(control.SetUnitIndexCurrent(units, 1));
    EXPECT_NE(before, Widget().grab().toImage());
}

TEST_F(ModelPaneTest, WordsItsChoicesInTheCurrentLanguage) {
    velda::SetCurrentLanguage(velda::Language::Korean);
    Pane().ShowTexts();
    EXPECT_EQ(Word("IDS_DESKTOP_MODEL_NO_LOADS"), Choices().first());
    EXPECT_NE("No Loads", Choices().first().toStdString());
    EXPECT_EQ(Word("IDS_DESKTOP_MODEL_SUPPORTS"), Pane().Supports().text());
}

TEST_F(ModelPaneTest, ShowsTheSelectionInDetailTables) {
    CTBPreView::RegisterWithPanes();
    QTest::mouseClick(&Widget(), Qt::LeftButton, {}, ColumnPlace());
    window->OpenTable({.kind = kTableMembDetail});
    EXPECT_EQ(1, window->ActiveGrid()->Browser()->RecordRowCount());
    QTest::mouseClick(&Widget(), Qt::LeftButton, Qt::ControlModifier, PlaceOf({8.0, 0.0, 1.8}));
    ASSERT_EQ(2u, View().Selection().members.size());
    EXPECT_EQ(2, window->ActiveGrid()->Browser()->RecordRowCount());
    QTest::keyClick(&Widget(), Qt::Key_Escape);
    EXPECT_EQ(0, window->ActiveGrid()->Browser()->RecordRowCount());
}

TEST_F(ModelPaneTest, IsTheModelViewOfTheHost) {
    QtHost qtHost;
    EXPECT_EQ(nullptr, qtHost.GetModel());
    qtHost.SetModel(&View());
    const std::uint32_t keys[] = {3};
    qtHost.GetModel()->Highlight(keys, 2, 1);
    EXPECT_THAT(View().Highlights().members, ElementsAre(3));
}

TEST_F(ModelPaneTest, DrawsLargeModelsThinAndWithoutFacesWhileTheyTurn) {
    auto doc = CDBDoc::New();
    ASSERT_TRUE(BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), "tower"));
    ModelView view;
    view.SetSize(400.0, 400.0);
    view.SetDocument(doc.get());
    const ModelColors colors = Colors();
    const auto shades = [&](bool isMoving) {
        QImage image(400, 400, QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.background);
        ModelPainter(image, QFont(), colors).PaintBuilding(view, isMoving);
        std::set<QRgb> found;
        for (int x = 150; x < 250; ++x) found.insert(image.pixel(x, 200));
        return found.size();
    };
    EXPECT_LE(shades(true), 15u) << "one for each slice of depth and kind of line";
    EXPECT_GT(shades(false), 30u);
    view.SetDocument(nullptr);
}

}  // namespace
}  // namespace zt
