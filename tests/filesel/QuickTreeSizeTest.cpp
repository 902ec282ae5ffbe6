#include "tests/filesel/QuickTreeWindowFixture.h"

namespace k4test {
namespace {

// The place ---------------------------------------------------------------------------------------

TEST_F(QuickTreeWindow, OpensAtItsPlace) {
    OpenAt({40, 50, 320, 300});
    EXPECT_EQ(tree->geometry(), QRect(40, 50, 320, 300));
}

TEST_F(QuickTreeWindow, APlaceOffTheScreenBeginsAt0AsLargeAsItWas) {
    const int right = Screen().width();
    const int bottom = Screen().height();
    const std::pair<QRect, QPoint> places[] = {
        {{-1, 50, 320, 300}, {0, 50}},
        {{40, -1, 320, 300}, {40, 0}},
        {{-500, -500, 320, 300}, {0, 0}},
        {{right + 1, 50, 320, 300}, {0, 50}},
        {{40, bottom + 1, 320, 300}, {40, 0}},
        {{right - 10, bottom - 10, 320, 300}, {right - 10, bottom - 10}},
        {{0, 0, 320, 300}, {0, 0}}};
    for (const auto& [place, corner] : places) {
        OpenAt(place);
        EXPECT_EQ(tree->geometry(), QRect(corner, QSize(320, 300)));
        tree.reset();
    }
}

TEST_F(QuickTreeWindow, WithoutAPlaceOpensOverItsParent) {
    owner.setGeometry(100, 100, 600, 400);
    Make();
    Open();
    EXPECT_TRUE(tree->geometry().intersects(owner.geometry()));
    EXPECT_GE(tree->width(), 200);
    EXPECT_GE(tree->height(), 200);
}

// The height that is kept -------------------------------------------------------------------------

TEST_F(QuickTreeWindow, KeepsItsHeightWhenItGoes) {
    OpenAt({10, 10, 300, 345});
    EXPECT_EQ(Kept(), -1) << "not before";
    tree->DestroyWindow();
    EXPECT_EQ(Kept(), 345);
    tree.reset();
    EXPECT_EQ(Kept(), 345) << "once";
    OpenAt({10, 10, 300, 222});
    tree.reset();
    EXPECT_EQ(Kept(), 222) << "its destruction ends it too";
}

TEST_F(QuickTreeWindow, KeepsNothingWithoutAKeyOrAWindow) {
    OpenAt({10, 10, 300, 345}, nullptr);
    tree.reset();
    EXPECT_EQ(Kept(), -1);
    Make();
    tree->SetInitialPosition({10, 10, 300, 345}, 0);
    tree.reset();
    EXPECT_EQ(Kept(), -1);
}

TEST_F(QuickTreeWindow, OpensAsHighAsItWas) {
    OpenAt({10, 10, 300, 345});
    tree.reset();
    for (int time = 0; time < 3; ++time) {
        Make();
        tree->SetInitialPosition({10, 10, 300, 200}, 1);
        Open();
        EXPECT_EQ(tree->geometry(), QRect(10, 10, 300, 345));
        tree.reset();
    }
    EXPECT_EQ(Kept(), 345);
}

struct HeightRow {
    const char* what;
    std::uint32_t kept;
    int fromBottom;  ///< the top's distance from the end of the usable screen; 0: the top is 20
    int initial;     ///< 0: to the end of the screen
    int moved;
};

class QuickTreeKeptHeight : public QuickTreeWindow, public testing::WithParamInterface<HeightRow> {
 protected:
    int Top() const { return GetParam().fromBottom ? UsableHeight() - GetParam().fromBottom : 20; }
};

TEST_P(QuickTreeKeptHeight, IsLimitedAtOpening) {
    Keep(GetParam().kept);
    Make();
    tree->SetInitialPosition({20, Top(), 300, 200}, 1);
    Open();
    const int expected = GetParam().initial ? GetParam().initial : UsableHeight() - 20;
    EXPECT_EQ(tree->geometry(), QRect(20, Top(), 300, expected));
}

TEST_P(QuickTreeKeptHeight, IsLimitedWhenItIsMoved) {
    Keep(GetParam().kept);
    OpenAt({30, 30, 320, 210});
    tree->MoveDialog(20, Top(), 300, 200, 1);
    const int expected = GetParam().moved ? GetParam().moved : UsableHeight() - 20;
    EXPECT_EQ(tree->geometry(), QRect(20, Top(), 300, expected));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, QuickTreeKeptHeight,
    testing::Values(HeightRow{"Plain", 250, 0, 250, 250}, HeightRow{"ToTheEnd", 250, 120, 120, 120},
                    HeightRow{"Below10", 9, 0, 100, 9}, HeightRow{"Ten", 10, 0, 10, 10},
                    HeightRow{"Zero", 0, 0, 100, 100}, HeightRow{"LittleLeft", 250, 9, 100, 9},
                    HeightRow{"Huge", 0xFFFFFFFF, 0, 0, 0}),
    [](const auto& row) { return row.param.what; });

TEST_F(QuickTreeWindow, WithoutAKeptHeightTheTwoRulesDiffer) {
    for (const char* key : {kKey, static_cast<const char*>(nullptr)}) {
        Make(key);
        const int own = tree->height();
        tree->SetInitialPosition({10, 10, 300, 123}, 1);
        Open();
        EXPECT_EQ(tree->geometry(), QRect(10, 10, 300, own)) << "the window's own";
        tree->MoveDialog(20, 20, 320, 123, 1);
        EXPECT_EQ(tree->geometry(), QRect(20, 20, 320, UsableHeight() / 7));
        k4cmn::Provided<k4cmn::RegistryProvider>::Install(nullptr);
        tree.reset();  // without keeping anything
        k4cmn::Provided<k4cmn::RegistryProvider>::Install(&registry);
    }
}

TEST_F(QuickTreeWindow, MovesAsItIsTold) {
    OpenAt({30, 30, 320, 210});
    Keep(250);
    tree->MoveDialog(50, 60, 310, 220, 0);
    EXPECT_EQ(tree->geometry(), QRect(50, 60, 310, 220));
    tree->MoveDialog(-20, -10, 310, 220, 0);
    EXPECT_EQ(tree->geometry(), QRect(-20, -10, 310, 220)) << "only opening looks at the screen";
}

TEST_F(QuickTreeWindow, MovedBeforeItOpensItOpensThere) {
    Make();
    tree->MoveDialog(50, 60, 310, 220, 0);
    Open();
    EXPECT_EQ(tree->geometry(), QRect(50, 60, 310, 220));
}

// Sizing ------------------------------------------------------------------------------------------

class QuickTreeSizing : public QuickTreeWindow {
 protected:
    const QRect place{10, 10, Screen().width() / 5 + 40, Screen().height() / 7 + 60};
};

TEST_F(QuickTreeSizing, TheLowerBorderCanBeDragged) {
    OpenAt(place);
    Drag(50);
    EXPECT_EQ(tree->geometry(), place.adjusted(0, 0, 0, 50));
    Drag(-60);
    EXPECT_EQ(tree->geometry(), place.adjusted(0, 0, 0, -10));
    tree.reset();
    EXPECT_EQ(Kept(), place.height() - 10);
}

TEST_F(QuickTreeSizing, ADragThatGoesTooFarLeavesTheWindowAsItWas) {
    OpenAt(place);
    Drag(-59);
    EXPECT_EQ(tree->height(), Screen().height() / 7 + 1);
    Drag(-1);
    EXPECT_EQ(tree->height(), Screen().height() / 7 + 1) << "it stays above a seventh";
    Drag(-1000);
    EXPECT_EQ(tree->geometry(), QRect(place.topLeft(), QSize(place.width(), tree->height())));
}

TEST_F(QuickTreeSizing, AWindowNoWiderThanAFifthOfTheScreenKeepsItsHeight) {
    OpenAt({10, 10, Screen().width() / 5, 300});
    Drag(50);
    EXPECT_EQ(tree->height(), 300);
    Press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(tree->height(), 300);
    tree->MoveDialog(10, 10, Screen().width() / 5 + 1, 300, 0);
    Drag(50);
    EXPECT_EQ(tree->height(), 350);
}

TEST_F(QuickTreeSizing, NoOtherBorderCanBeDragged) {
    OpenAt(place);
    const QRect inside = tree->rect();
    for (const QPoint start :
         {QPoint(0, inside.center().y()), QPoint(inside.right(), inside.center().y()),
          QPoint(inside.center().x(), 0), QPoint(0, 0), QPoint(inside.right(), 0)}) {
        QWidget* const part = tree->childAt(start) ? tree->childAt(start) : tree.get();
        const QPoint at = part->mapFrom(tree.get(), start);
        EXPECT_NE(part->cursor().shape(), Qt::SizeHorCursor);
        QTest::mousePress(part, Qt::LeftButton, {}, at);
        QMouseEvent move(QEvent::MouseMove, QPointF(at + QPoint(40, 40)),
                         QPointF(part->mapToGlobal(at + QPoint(40, 40))), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(part, &move);
        QTest::mouseRelease(part, Qt::LeftButton, {}, at);
        EXPECT_EQ(tree->geometry(), place);
    }
}

TEST_F(QuickTreeSizing, TheCornersDragTheLowerBorderAlone) {
    OpenAt(place);
    const QPoint corner(Grip()->width() - 1, Grip()->height() - 1);
    QTest::mousePress(Grip(), Qt::LeftButton, {}, corner);
    QMouseEvent move(QEvent::MouseMove, QPointF(corner + QPoint(70, 30)),
                     QPointF(Grip()->mapToGlobal(corner + QPoint(70, 30))), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Grip(), &move);
    QTest::mouseRelease(Grip(), Qt::LeftButton, {}, corner);
    EXPECT_EQ(tree->geometry(), place.adjusted(0, 0, 0, 30));
}

TEST_F(QuickTreeSizing, OnlyTheLeftButtonDrags) {
    OpenAt(place);
    QTest::mousePress(Grip(), Qt::RightButton);
    QMouseEvent move(QEvent::MouseMove, QPointF(5, 50), QPointF(Grip()->mapToGlobal(QPoint(5, 50))),
                     Qt::NoButton, Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Grip(), &move);
    QTest::mouseRelease(Grip(), Qt::RightButton);
    EXPECT_EQ(tree->geometry(), place);
}

TEST_F(QuickTreeSizing, KeysChangeTheHeightByTheSameRule) {
    OpenAt(place);
    const int row = tree->fontMetrics().lineSpacing();
    Press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(tree->geometry(), place.adjusted(0, 0, 0, row));
    Press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(tree->geometry(), place);
    for (int time = 0; time < 20; ++time)
        Press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_GT(tree->height(), Screen().height() / 7);
    EXPECT_LE(tree->height(), Screen().height() / 7 + row);
    EXPECT_EQ(Selected(), "");
}

TEST_F(QuickTreeSizing, AWindowThatOpenedLowGrowsToWhereItMayBeSized) {
    OpenAt({10, 10, place.width(), 20});
    Press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(tree->height(), 20);
    Press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(tree->height(), Screen().height() / 7 + 1);
}

TEST_F(QuickTreeSizing, TheLowerBorderSaysWhatItIs) {
    OpenAt(place);
    EXPECT_EQ(Grip()->cursor().shape(), Qt::SizeVerCursor);
    EXPECT_FALSE(Grip()->accessibleName().isEmpty());
    EXPECT_TRUE(Grip()->toolTip().contains(QStringLiteral("Alt+Down")));
    EXPECT_GE(Grip()->height(), 8);
}

}  // namespace
}  // namespace k4test
