#include "tests/filesel/FileSelWindowFixture.h"

namespace k4test {
namespace {

/// The band between tree and list. All places are pixels of the window.
class FileSelSplitterWindow : public FileSelWindow {
 protected:
    QRect PlaceIn(int id) const {
        const QWidget* pane = The<QWidget>(id);
        return {pane->mapTo(dialog.get(), QPoint(0, 0)), pane->size()};
    }
    int TreeLeft() const { return PlaceIn(kTree).left(); }
    int Edge() const { return PlaceIn(kTree).left() + PlaceIn(kTree).width(); }
    int ListLeft() const { return PlaceIn(kList).left(); }
    int ListRight() const { return PlaceIn(kList).left() + PlaceIn(kList).width(); }
    QWidget* BandAt(int x) const { return dialog->childAt(x, PlaceIn(kTree).center().y()); }
    QWidget* Band() const { return BandAt(Edge()); }
    /// Where a place of the window is on the band.
    QPoint OnBand(int x) const {
        return Band()->mapFrom(dialog.get(), QPoint(x, PlaceIn(kTree).center().y()));
    }
    void Drag(QWidget& band, int toX) {
        QMouseEvent move(QEvent::MouseMove,
                         band.mapFrom(dialog.get(), QPoint(toX, PlaceIn(kTree).center().y())),
                         dialog->mapToGlobal(QPoint(toX, PlaceIn(kTree).center().y())),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&band, &move);
    }
    static void Leave(QWidget& band) {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&band, &leave);
    }
};

TEST_F(FileSelSplitterWindow, LiesInTheThreePixelsBetweenTheTwo) {
    ShowAt(At());
    EXPECT_EQ(ListLeft(), Edge() + 3);
    QWidget* const band = Band();
    ASSERT_NE(band, nullptr);
    EXPECT_EQ(band->cursor().shape(), Qt::SplitHCursor);
    for (int x = Edge(); x <= ListLeft(); ++x)
        EXPECT_EQ(BandAt(x), band) << "also the first pixel of the list";
    EXPECT_NE(BandAt(Edge() - 1), band);
    EXPECT_NE(BandAt(ListLeft() + 1), band);
}

TEST_F(FileSelSplitterWindow, ADragMovesTheEdgeAndLeavingKeepsIt) {
    ShowAt(At());
    QWidget& band = *Band();
    const int right = ListRight();
    QTest::mousePress(&band, Qt::LeftButton, {}, OnBand(Edge() + 1));
    Drag(band, Edge() + 40);
    const int edge = Edge();
    EXPECT_EQ(ListLeft(), edge + 3);
    EXPECT_EQ(ListRight(), right);
    Drag(band, edge - 100);
    EXPECT_EQ(Edge(), edge - 100);
    Leave(band);
    EXPECT_EQ(KeptEdge(), 0U) << "the button is held";
    QTest::mouseRelease(&band, Qt::LeftButton);
    EXPECT_EQ(KeptEdge(), 0U) << "the mouse is still on it";
    Leave(band);
    EXPECT_EQ(KeptEdge(), static_cast<std::uint32_t>(edge - 100));
    Drag(band, edge);
    EXPECT_EQ(Edge(), edge - 100) << "nothing is dragged any more";
}

TEST_F(FileSelSplitterWindow, AnotherButtonDragsNothing) {
    ShowAt(At());
    QWidget& band = *Band();
    const int edge = Edge();
    QTest::mousePress(&band, Qt::RightButton, {}, OnBand(edge + 1));
    Drag(band, edge + 40);
    EXPECT_EQ(Edge(), edge);
    QTest::mouseRelease(&band, Qt::RightButton);
}

TEST_F(FileSelSplitterWindow, ALimitEndsTheDrag) {
    for (const bool isLeft : {true, false}) {
        ShowAt(At());
        QWidget& band = *Band();
        QTest::mousePress(&band, Qt::LeftButton, {}, OnBand(Edge() + 1));
        Drag(band, isLeft ? 0 : dialog->width());
        EXPECT_EQ(Edge(), isLeft ? TreeLeft() + 15 : ListRight() - 15);
        const int edge = Edge();
        Drag(band, 300);
        EXPECT_EQ(Edge(), edge) << "it takes another press";
        QTest::mouseRelease(&band, Qt::LeftButton);
        QTest::mousePress(&band, Qt::LeftButton, {}, OnBand(Edge() + 1));
        Drag(band, 300);
        EXPECT_EQ(Edge(), 300);
        QTest::mouseRelease(&band, Qt::LeftButton);
        dialog->DestroyWindow();
    }
}

TEST_F(FileSelSplitterWindow, TheKeptEdgeComesBack) {
    Remember(At());
    KeepEdge(333);
    New();
    Show();
    EXPECT_EQ(Edge(), 333);
    dialog->resize(dialog->width() + 150, dialog->height());
    Settle();
    EXPECT_EQ(Edge(), 333) << "the list takes what the window gains";
    EXPECT_EQ(ListRight(), dialog->width() - TreeLeft());
}

TEST_F(FileSelSplitterWindow, AKeptEdgeOutsideOfTheWindowIsBroughtIn) {
    for (const std::uint32_t edge : {1U, 5000U, 0xFFFFFFFFU}) {
        Remember(At());
        KeepEdge(edge);
        New();
        Show();
        // Both can be used, and not just be dragged.
        const int letter = dialog->fontMetrics().averageCharWidth();
        EXPECT_EQ(PlaceIn(kTree).width() == 12 * letter, edge == 1);
        EXPECT_EQ(PlaceIn(kList).width() == 18 * letter, edge != 1);
        dialog->DestroyWindow();
        EXPECT_EQ(KeptEdge(), edge) << "nobody has moved it";
    }
}

TEST_F(FileSelSplitterWindow, AnEdgeAtALimitStaysThereAndComesBackWithTheWindowsSize) {
    Remember(At());
    New();
    Show();
    const auto edge = static_cast<std::uint32_t>(ListRight() - 15);
    dialog->DestroyWindow();
    KeepEdge(edge);
    New();
    Show();
    EXPECT_EQ(Edge(), static_cast<int>(edge)) << "as somebody has dragged it";
    const QSize size = dialog->size();
    dialog->resize(size.width() - 60, size.height());
    Settle();
    EXPECT_EQ(PlaceIn(kList).width(), 18 * dialog->fontMetrics().averageCharWidth());
    dialog->resize(size);
    Settle();
    EXPECT_EQ(Edge(), static_cast<int>(edge));
}

TEST_F(FileSelSplitterWindow, WithoutAKeptEdgeBothGrowWithTheWindow) {
    ShowAt(At());
    const int tree = PlaceIn(kTree).width();
    const int list = PlaceIn(kList).width();
    dialog->resize(dialog->width() + 200, dialog->height() + 100);
    Settle();
    EXPECT_GT(PlaceIn(kTree).width(), tree + 20);
    EXPECT_GT(PlaceIn(kList).width(), list + 20);
    EXPECT_EQ(PlaceIn(kTree).height(), PlaceIn(kList).height());
    Leave(*Band());
    EXPECT_EQ(KeptEdge(), 0U);
}

TEST_F(FileSelSplitterWindow, ArrowKeysMoveItAndTabLeavesAndKeepsIt) {
    ShowAt(At());
    Tree().setFocus();
    const int edge = Edge();
    const auto press = [&](Qt::Key key) { QTest::keyClick(dialog->windowHandle(), key); };
    press(Qt::Key_Tab);
    EXPECT_EQ(dialog->focusWidget(), Band());
    EXPECT_FALSE(Band()->accessibleName().isEmpty());
    press(Qt::Key_Right);
    EXPECT_EQ(Edge(), edge + 10);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(Edge(), edge - 10);
    press(Qt::Key_PageDown);
    EXPECT_EQ(Edge(), edge + 40);
    for (int i = 0; i < 30; ++i)
        press(Qt::Key_PageUp);
    EXPECT_EQ(Edge(), TreeLeft() + 15);
    EXPECT_EQ(KeptEdge(), 0U);
    press(Qt::Key_Tab);
    EXPECT_TRUE(Rows().hasFocus());
    EXPECT_EQ(KeptEdge(), static_cast<std::uint32_t>(TreeLeft() + 15));
}

TEST_F(FileSelSplitterWindow, ADialogThatEndsDuringADragKeepsTheEdge) {
    ShowAt(At());
    QWidget& band = *Band();
    QTest::mousePress(&band, Qt::LeftButton, {}, OnBand(Edge() + 1));
    Drag(band, 250);
    dialog->DestroyWindow();
    EXPECT_EQ(KeptEdge(), 250U);
    QTest::mouseRelease(&band, Qt::LeftButton);
}

}  // namespace
}  // namespace k4test
