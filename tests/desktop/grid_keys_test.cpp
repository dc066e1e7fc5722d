#include <QClipboard>

#include "desktop/grid_fixture.h"

namespace zt {
namespace {

using velda::EditState;
using Pair = std::pair<int, int>;

class GridKeys : public GridFixture {};

TEST_F(GridKeys, ArrowsMoveTheCurrentCell) {
    Key(Qt::Key_Down);
    Key(Qt::Key_Right);
    EXPECT_EQ(Pair(2, ExampleGrid::kMeasure), Current());
}

TEST_F(GridKeys, TypingBeginsAnEditorWithTheCharacter) {
    Type("a");
    ASSERT_EQ(EditState::Replacing, grid.Session().State());
    ASSERT_NE(nullptr, Editor());
    EXPECT_EQ("a", Editor()->text());
    EXPECT_EQ("a", grid.Session().EditorText());
}

TEST_F(GridKeys, EveryChangeOfTheEditorGoesToTheSession) {
    Type("abc");
    Key(Qt::Key_Backspace);
    EXPECT_EQ("ab", grid.Session().EditorText());
}

TEST_F(GridKeys, F2OpensTheTextInPlaceAndArrowsStayInIt) {
    Key(Qt::Key_F2);
    ASSERT_EQ(EditState::InPlace, grid.Session().State());
    EXPECT_EQ("name", Editor()->text());
    Key(Qt::Key_Left);
    Type("x");
    EXPECT_EQ("namxe", grid.Session().EditorText());
}

TEST_F(GridKeys, ArrowsLeaveAnEditorThatWasOpenedByTyping) {
    Type("a");
    Key(Qt::Key_Right);
    EXPECT_EQ(nullptr, Editor());
    EXPECT_EQ(Pair(1, ExampleGrid::kMeasure), Current());
    EXPECT_EQ("a", grid.GetValueRowCol(1, ExampleGrid::kName));
}

TEST_F(GridKeys, EscapeCancelsTheEditorAndThenTheRow) {
    Type("a");
    Key(Qt::Key_Escape);
    EXPECT_EQ(nullptr, Editor());
    EXPECT_TRUE(widget.hasFocus());
    EXPECT_EQ("name", grid.GetValueRowCol(1, ExampleGrid::kName));
    EXPECT_EQ(0, grid.written);
}

TEST_F(GridKeys, EnterWritesTheRowAndMovesDown) {
    Type("new");
    Key(Qt::Key_Return);
    EXPECT_EQ(Pair(2, ExampleGrid::kName), Current());
    EXPECT_EQ(nullptr, Editor());
    EXPECT_EQ(1, grid.written);
    EXPECT_EQ("new", grid.GetValueRowCol(1, ExampleGrid::kName));
}

TEST_F(GridKeys, TabGoesToTheNextCellAndDoesNotLeaveTheTable) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(Pair(1, ExampleGrid::kMeasure), Current());
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Pair(1, ExampleGrid::kName), Current());
    EXPECT_TRUE(widget.hasFocus());
}

TEST_F(GridKeys, TabInAnEditorAcceptsItsText) {
    Type("new");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Pair(1, ExampleGrid::kMeasure), Current());
    EXPECT_EQ("new", grid.GetValueRowCol(1, ExampleGrid::kName));
}

TEST_F(GridKeys, ARefusedTextStaysOpenWithItsFinding) {
    QSignalSpy warned(&widget, &GridWidget::Warned);
    Type("bad");
    Key(Qt::Key_Return);
    ASSERT_NE(nullptr, Editor());
    EXPECT_EQ("bad", Editor()->text());
    ASSERT_EQ(1, warned.count());
    EXPECT_EQ("not this name", warned.first().first().toString());
    EXPECT_EQ("not this name", widget.TipAt(Middle(1, ExampleGrid::kName)));
}

TEST_F(GridKeys, SpaceTogglesACheckBox) {
    At(1, ExampleGrid::kCheck);
    Key(Qt::Key_Space);
    EXPECT_EQ("1", grid.GetValueRowCol(1, ExampleGrid::kCheck));
    EXPECT_EQ(nullptr, Editor());
}

TEST_F(GridKeys, CopyGoesToTheClipboard) {
    QApplication::clipboard()->clear();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ("name", QApplication::clipboard()->text().trimmed());
}

TEST_F(GridKeys, PageDownGoesAsFarAsTheWindowIsHigh) {
    Key(Qt::Key_PageDown);
    const int page = grid.PageRows();
    EXPECT_GT(page, 10);
    EXPECT_LT(page, 30);
    EXPECT_EQ(Pair(1 + page, ExampleGrid::kName), Current());
}

TEST_F(GridKeys, TheWindowFollowsTheCurrentCell) {
    Key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(50, Current().first);
    EXPECT_FALSE(widget.Geometry().CellRect(50, Current().second).isEmpty());
    EXPECT_EQ(nullptr, widget.Geometry().RowOf(1));
}

TEST_F(GridKeys, ShiftWithArrowsExtendsTheSelection) {
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ((velda::PositionRange{1, 2, 2, 3}), grid.CommandRange());
    EXPECT_EQ(Pair(1, ExampleGrid::kName), Current());
}

TEST_F(GridKeys, CtrlFAsksForTheSearchDialog) {
    QSignalSpy asked(&widget, &GridWidget::FindRequested);
    Key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(1, asked.count());
}

TEST_F(GridKeys, KeysThatMeanNothingInATableAreLeftToTheWindow) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier, "\x1a");
    QApplication::sendEvent(&widget, &event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_EQ(nullptr, Editor());
}

// ---- input methods

void Compose(QWidget& target, const QString& preedit, const QString& commit) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QApplication::sendEvent(&target, &event);
}

TEST_F(GridKeys, AnInputMethodComposesKoreanInANewEditor) {
    Compose(widget, QString::fromUtf8("ㅂ"), {});
    ASSERT_NE(nullptr, Editor());
    EXPECT_TRUE(widget.hasFocus()) << "a change of focus would end the syllable";
    EXPECT_EQ("", grid.Session().EditorText());
    Compose(widget, QString::fromUtf8("벽"), {});
    Compose(widget, {}, QString::fromUtf8("벽"));
    EXPECT_EQ("벽", grid.Session().EditorText());
    EXPECT_TRUE(Editor()->hasFocus());
    Key(Qt::Key_Return);
    EXPECT_EQ("벽", grid.GetValueRowCol(1, ExampleGrid::kName));
}

// ---- choice lists

TEST_F(GridKeys, AltDownOpensTheListOfTheCell) {
    At(1, ExampleGrid::kSupport);
    Key(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(nullptr, List());
    EXPECT_EQ(3, List()->model()->rowCount());
    EXPECT_EQ("pinned", List()->currentIndex().data().toString());
    EXPECT_EQ("pinned", Editor()->text());
}

TEST_F(GridKeys, ArrowsAndEnterChooseFromTheList) {
    At(1, ExampleGrid::kSupport);
    Key(Qt::Key_F4);
    Key(Qt::Key_Down);
    EXPECT_EQ("fixed", Editor()->text());
    Key(Qt::Key_Return);
    EXPECT_EQ(nullptr, List());
    EXPECT_EQ("3", grid.GetValueRowCol(1, ExampleGrid::kSupport));
}

TEST_F(GridKeys, TypingInAnOpenListLeadsToTheLineThatBeginsSo) {
    At(1, ExampleGrid::kSupport);
    Key(Qt::Key_F4);
    Type("fi");
    EXPECT_EQ("3", grid.Session().EditorText());
    EXPECT_EQ("fixed", List()->currentIndex().data().toString());
}

TEST_F(GridKeys, EscapeClosesTheListFirst) {
    At(1, ExampleGrid::kSupport);
    Key(Qt::Key_F4);
    Key(Qt::Key_Escape);
    EXPECT_EQ(nullptr, List());
    EXPECT_NE(nullptr, Editor());
    Key(Qt::Key_Escape);
    EXPECT_EQ(nullptr, Editor());
}

TEST(GridWithoutTable, TakesAllEventsAndShowsNothing) {
    GridWidget widget;
    widget.resize(200, 100);
    widget.show();
    QTest::keyClick(&widget, Qt::Key_A);
    QTest::keyClick(&widget, Qt::Key_Down);
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, {}, QPoint(50, 50));
    QTest::mouseDClick(widget.viewport(), Qt::LeftButton, {}, QPoint(50, 50));
    widget.SetZoom(2);
    EXPECT_TRUE(widget.TipAt({50, 50}).isEmpty());
    EXPECT_FALSE(widget.grab().isNull());
}

TEST(GridWithoutRows, TakesAllEvents) {
    ExampleGrid grid(0);
    GridWidget widget;
    widget.resize(200, 100);
    widget.SetGrid(&grid);
    widget.show();
    QTest::keyClick(&widget, Qt::Key_A);
    QTest::keyClick(&widget, Qt::Key_Down);
    QTest::keyClick(&widget, Qt::Key_PageDown);
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, {}, QPoint(90, 90));
    EXPECT_FALSE(widget.grab().isNull());
    EXPECT_FALSE(grid.Session().IsRowOpen());
}

TEST(GridWidgetTable, IsLetGoWhenAnotherOneIsShown) {
    ExampleGrid second(3);
    GridWidget widget;
    widget.resize(300, 200);
    {
        ExampleGrid first(3);
        widget.SetGrid(&first);
        ASSERT_TRUE(first.SetCurrentCell(1, ExampleGrid::kName));
        first.TypeText("x");
        widget.Refresh();
        widget.SetGrid(&second);
    }
    EXPECT_EQ(&second, widget.Grid());
    EXPECT_FALSE(widget.grab().isNull());
}

}  // namespace
}  // namespace zt
