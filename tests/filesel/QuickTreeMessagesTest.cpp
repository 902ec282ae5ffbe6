#include <QScrollBar>

#include "tests/filesel/QuickTreeWindowFixture.h"

namespace k4test {
namespace {

using k4cmn::WM_QUICK_TREE_CHOSEN;
using k4cmn::WM_QUICK_TREE_LEFT;
using testing::ElementsAre;
using testing::IsEmpty;

// Chosen ------------------------------------------------------------------------------------------

TEST_F(QuickTreeWindow, TellsOfAFileThatIsChosenByEnter) {
    EXPECT_EQ(WM_QUICK_TREE_CHOSEN, 1124u);
    Make();
    Open();
    tree->SetSelectedFile(kFile);
    Press(Qt::Key_Return);
    EXPECT_THAT(owner.told, IsEmpty()) << "it is posted";
    EXPECT_THAT(owner.Numbers(), ElementsAre(WM_QUICK_TREE_CHOSEN));
    EXPECT_EQ(owner.told.at(0).second, 0u);
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_THAT(owner.Numbers(), ElementsAre(WM_QUICK_TREE_CHOSEN, WM_QUICK_TREE_CHOSEN));
    EXPECT_TRUE(tree->isVisible()) << "Enter goes no further";
}

TEST_F(QuickTreeWindow, TellsOfAFileThatIsDoubleClicked) {
    OpenAt({10, 10, 400, 400});
    tree->SetSelectedFile(kFile);
    QCoreApplication::processEvents();
    const QPoint point = View()->visualRect(View()->currentIndex()).center();
    QTest::mouseClick(View()->viewport(), Qt::LeftButton, {}, point);
    EXPECT_THAT(owner.Numbers(), IsEmpty());
    QTest::mouseDClick(View()->viewport(), Qt::LeftButton, {}, point);
    EXPECT_THAT(owner.Numbers(), ElementsAre(WM_QUICK_TREE_CHOSEN));
    EXPECT_EQ(Selected(), kFile);
}

TEST_F(QuickTreeWindow, TellsNothingOfOtherItems) {
    OpenAt({10, 10, 400, 400});
    for (const char* path : {"A:", "A:\\16x80.Mono1.LED.Sign", kLibrary}) {
        tree->SetSelectedFile(path);
        Press(Qt::Key_Return);
        const QPoint point = View()->visualRect(View()->currentIndex()).center();
        QTest::mouseClick(View()->viewport(), Qt::LeftButton, {}, point);
        QTest::mouseDClick(View()->viewport(), Qt::LeftButton, {}, point);
        EXPECT_THAT(owner.Numbers(), IsEmpty()) << path;
    }
    EXPECT_TRUE(tree->isVisible());
}

TEST_F(QuickTreeWindow, EnterGoesNoFurtherWhateverIsSelected) {
    Make();
    Open();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        Press(key);
        QTest::keyClick(tree.get(), key);
        QTest::keyClick(Grip(), key);
    }
    EXPECT_THAT(owner.Numbers(), IsEmpty());
    EXPECT_TRUE(tree->isVisible());
    EXPECT_TRUE(tree->isActiveWindow());
}

TEST_F(QuickTreeWindow, CanBeUsedByKeysAlone) {
    Make();
    Open();
    for (int level = 0; level < 3; ++level) {
        Press(Qt::Key_Right);
        Press(Qt::Key_Right);
    }
    EXPECT_EQ(Selected(), kFile);
    Press(Qt::Key_Return);
    EXPECT_THAT(owner.Numbers(), ElementsAre(WM_QUICK_TREE_CHOSEN));
}

// Left --------------------------------------------------------------------------------------------

TEST_F(QuickTreeWindow, TellsWhereTheFocusGoes) {
    EXPECT_EQ(WM_QUICK_TREE_LEFT, 1125u);
    Make();
    Open();
    owner.other->setFocus();
    owner.activateWindow();
    ASSERT_TRUE(WaitUntilActive(&owner));
    EXPECT_THAT(owner.Numbers(), ElementsAre(WM_QUICK_TREE_LEFT));
    EXPECT_EQ(owner.told.at(0).second, reinterpret_cast<std::uintptr_t>(owner.other));
    EXPECT_TRUE(tree->isVisible()) << "what happens then is the owner's decision";
}

TEST_F(QuickTreeWindow, TellsOfEachTimeThatItIsLeft) {
    QWidget third;
    third.show();
    ASSERT_TRUE(WaitUntilActive(&third));
    Make();
    Open();
    third.activateWindow();
    ASSERT_TRUE(WaitUntilActive(&third));
    EXPECT_THAT(owner.Numbers(), ElementsAre(WM_QUICK_TREE_LEFT));
    EXPECT_EQ(owner.told.at(0).second, reinterpret_cast<std::uintptr_t>(&third));
    tree->activateWindow();
    ASSERT_TRUE(WaitUntilActive(tree.get()));
    EXPECT_EQ(owner.Numbers().size(), 1u);
    owner.activateWindow();
    ASSERT_TRUE(WaitUntilActive(&owner));
    EXPECT_EQ(owner.Numbers().size(), 2u);
}

TEST_F(QuickTreeWindow, TellsNothingWhileTheFocusStaysInside) {
    Make();
    Open();
    View()->clearFocus();
    View()->setFocus();
    EXPECT_THAT(owner.Numbers(), IsEmpty());
}

TEST_F(QuickTreeWindow, EscapeGivesTheFocusBack) {
    Make();
    Open();
    Press(Qt::Key_Escape);
    ASSERT_TRUE(WaitUntilActive(&owner));
    EXPECT_TRUE(owner.field->hasFocus());
    EXPECT_THAT(owner.Numbers(), ElementsAre(WM_QUICK_TREE_LEFT));
    EXPECT_EQ(owner.told.at(0).second, reinterpret_cast<std::uintptr_t>(owner.field));
    EXPECT_TRUE(tree->isVisible());
}

TEST_F(QuickTreeWindow, EscapeEndsAWindowThatNobodyWaitsFor) {
    tree = std::make_unique<CK4CmnDlgK4FileTree>(nullptr, kKey, 0);
    tree->SetInitialPosition({10, 10, 300, 333}, 0);
    Open();
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(tree->isVisible());
    EXPECT_FALSE(tree->HasWindow());
    EXPECT_EQ(Kept(), 333);
}

TEST_F(QuickTreeWindow, EscapeEndsAWindowWhoseOwnerIsHidden) {
    Make();
    Open();
    owner.hide();
    QTest::keyClick(tree.get(), Qt::Key_Escape);
    EXPECT_FALSE(tree->HasWindow());
}

TEST_F(QuickTreeWindow, MayBeEndedByWhatItTells) {
    Make();
    Open();
    owner.activateWindow();
    ASSERT_TRUE(WaitUntilActive(&owner));
    EXPECT_THAT(owner.Numbers(), ElementsAre(WM_QUICK_TREE_LEFT));
    tree.reset();
    EXPECT_THAT(owner.Numbers(), ElementsAre(WM_QUICK_TREE_LEFT));
}

TEST_F(QuickTreeWindow, EndedWithTheFocusTellsThatToo) {
    Make();
    Open();
    tree->DestroyWindow();
    EXPECT_THAT(owner.Numbers(), ElementsAre(WM_QUICK_TREE_LEFT));
}

TEST_F(QuickTreeWindow, GoesWithItsOwner) {
    auto another = std::make_unique<QuickTreeOwner>();
    another->show();
    auto* const child = new CK4CmnDlgK4FileTree(another.get(), kKey, 0);  // its owner's
    child->SetInitialPosition({10, 10, 300, 222}, 0);
    EXPECT_EQ(child->Create(), 1);
    another.reset();
    EXPECT_EQ(Kept(), 222);
}

// Scrolling ---------------------------------------------------------------------------------------

/// Counts how often a widget is painted.
class Paints final : public QObject {
 public:
    explicit Paints(QWidget* widget) { widget->installEventFilter(this); }
    int count = 0;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
};

TEST_F(QuickTreeWindow, ScrolledUpOrDownIsPaintedAtOnce) {
    for (int number = 0; number < 100; ++number)
        MakeFile(std::string(kLibrary) + "\\f" + std::to_string(number) + ".SQ4");
    OpenAt({10, 10, 300, 300});
    tree->SetSelectedFile(kFile);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(tree.get()));
    QCoreApplication::processEvents();
    Paints paints(View()->viewport());
    QScrollBar* const bar = View()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    bar->setValue(bar->value() == 0 ? bar->maximum() : 0);
    EXPECT_GE(paints.count, 1) << "without a turn of the event loop";
}

}  // namespace
}  // namespace k4test
