#include <QApplication>
#include <QScrollBar>

#include "tests/suite/quicktree/QuickTreeFixture.h"
#include "tests/support/FontScale.h"

namespace k4test {
namespace {

class QuickTreeHandling : public QuickTreeWidget {
 protected:
    void SetUp() override {
        QuickTreeWidget::SetUp();
        for (const char* name : {"a.SQ4", "b.SQ4", "week.SD4"})
            MakeFile(std::string("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\") + name);
        MakeFolder("A:\\48x160.Quad16.Incand.Sign");
        EXPECT_TRUE(tree->Fill());
    }
};

TEST_F(QuickTreeHandling, IsWalkedByKeysAlone) {
    Show();
    EXPECT_EQ(Selected(), "A:") << "the first item, when the tree gets the focus";
    QSignalSpy chosen(tree, &K4QuickFileTreeCtrl::Chosen);
    Press(Qt::Key_Right);
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n 48x160.Quad16.Incand\n");
    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    EXPECT_EQ(SelectedText(), "a.SQ4");
    Press(Qt::Key_W);
    EXPECT_EQ(SelectedText(), "week.SD4") << "a letter looks for a name";
    Press(Qt::Key_Return);
    EXPECT_EQ(chosen.count(), 1);
    Press(Qt::Key_Left);
    EXPECT_EQ(SelectedText(), "Default");
    Press(Qt::Key_Minus);
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n 48x160.Quad16.Incand\n");
    Press(Qt::Key_Plus);
    EXPECT_EQ(Shown(),
              "A:\n 16x80.Mono1.LED\n  Default\n   a.SQ4\n   b.SQ4\n   week.SD4\n"
              " 48x160.Quad16.Incand\n");
}

TEST_F(QuickTreeHandling, AStarOpensEverythingBelow) {
    Show();
    Press(Qt::Key_Asterisk);
    EXPECT_EQ(Shown(),
              "A:\n 16x80.Mono1.LED\n  Default\n   a.SQ4\n   b.SQ4\n   week.SD4\n"
              " 48x160.Quad16.Incand\n  No Libraries\n");
    EXPECT_EQ(Selected(), "A:");
}

TEST_F(QuickTreeHandling, ADoubleClickOpensAFolderAndChoosesAFile) {
    Show();
    QSignalSpy chosen(tree, &K4QuickFileTreeCtrl::Chosen);
    Click("A:", true);
    Click("16x80.Mono1.LED", true);
    Click("Default", true);
    EXPECT_EQ(Shown(),
              "A:\n 16x80.Mono1.LED\n  Default\n   a.SQ4\n   b.SQ4\n   week.SD4\n"
              " 48x160.Quad16.Incand\n");
    chosen.clear();
    Click("b.SQ4", true);
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_EQ(SelectedText(), "b.SQ4");
    Click("Default", true);
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n 48x160.Quad16.Incand\n");
}

TEST_F(QuickTreeHandling, OnlyADoubleClickOfTheLeftButtonOnAnItemChooses) {
    Show();
    OpenServer();
    QSignalSpy chosen(tree, &K4QuickFileTreeCtrl::Chosen);
    Click("A:");
    EXPECT_EQ(chosen.count(), 0);
    Click("48x160.Quad16.Incand", true, Qt::RightButton);
    EXPECT_EQ(chosen.count(), 0);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {},
                       QPoint(20, view->viewport()->height() - 5));
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(QuickTreeHandling, AClosedFolderTakesOverTheSelectionFromBelow) {
    Show();
    EXPECT_TRUE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\b.SQ4"));
    view->collapse(RowOf("16x80.Mono1.LED"));
    EXPECT_EQ(Selected(), "A:\\16x80.Mono1.LED.Sign");
    view->expand(RowOf("16x80.Mono1.LED"));
    EXPECT_EQ(Selected(), "A:\\16x80.Mono1.LED.Sign");
    Click("48x160.Quad16.Incand");
    view->collapse(RowOf("16x80.Mono1.LED"));
    EXPECT_EQ(Selected(), "A:\\48x160.Quad16.Incand.Sign") << "another one's is left alone";
}

TEST_F(QuickTreeHandling, OneItemIsSelectedWhateverKeysAreHeld) {
    Show();
    OpenServer();
    Click("16x80.Mono1.LED");
    const QPoint point = view->visualRect(RowOf("16x80.Mono1.LED")).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ControlModifier, point);
    EXPECT_EQ(SelectedText(), "16x80.Mono1.LED");
    EXPECT_NE(tree->SelectedItem(), K4QuickTreeItem::None);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      QPoint(20, view->viewport()->height() - 5));
    EXPECT_EQ(SelectedText(), "16x80.Mono1.LED") << "a click beside all items leaves it";
}

TEST_F(QuickTreeHandling, AClickOnTheArrowOpens) {
    Show();
    const QRect row = view->visualRect(RowOf("A:"));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      QPoint(row.left() - view->indentation() / 2, row.center().y()));
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n 48x160.Quad16.Incand\n");
}

TEST_F(QuickTreeHandling, AFoundItemIsInView) {
    for (int number = 100; number < 300; ++number)
        MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\f" + std::to_string(number) + ".SQ4");
    Show();
    EXPECT_TRUE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\f250.SQ4"));
    QCoreApplication::processEvents();
    EXPECT_TRUE(view->viewport()->rect().contains(view->visualRect(view->currentIndex()).center()));
}

TEST_F(QuickTreeHandling, TellsOfScrollingUpAndDown) {
    for (int number = 100; number < 300; ++number)
        MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\f" + std::to_string(number) + ".SQ4");
    Show();
    Open("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    QCoreApplication::processEvents();
    QSignalSpy scrolled(tree, &K4QuickFileTreeCtrl::Scrolled);
    view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum());
    EXPECT_EQ(scrolled.count(), 1);
    view->horizontalScrollBar()->setValue(view->horizontalScrollBar()->maximum());
    EXPECT_EQ(scrolled.count(), 1);
}

TEST_F(QuickTreeHandling, TheSelectionReachesFromEdgeToEdge) {
    Show();
    OpenServer();
    for (const int width : {400, 700, 300}) {
        tree->resize(width, 500);
        QCoreApplication::processEvents();
        const QRect row = view->visualRect(RowOf("16x80.Mono1.LED"));
        EXPECT_EQ(row.right(), view->viewport()->rect().right()) << width;
        EXPECT_EQ(view->horizontalScrollBar()->maximum(), 0) << width;
    }
    tree->resize(60, 500);
    QCoreApplication::processEvents();
    EXPECT_GT(view->horizontalScrollBar()->maximum(), 0) << "a long text is scrolled to";
    tree->resize(400, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(view->horizontalScrollBar()->maximum(), 0);
}

TEST_F(QuickTreeHandling, ItsPicturesGrowWithItsTexts) {
    Show();
    const int usual = view->iconSize().height();
    const FontScale scale(2.0);
    QCoreApplication::sendPostedEvents();
    EXPECT_GT(view->iconSize().height(), usual);
}

TEST_F(QuickTreeHandling, HasAnAccessibleName) {
    EXPECT_FALSE(view->accessibleName().isEmpty());
}

}  // namespace
}  // namespace k4test
