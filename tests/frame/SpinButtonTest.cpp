#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "tests/support/DrivenClock.h"

using k4cmn::Clock;
using k4cmn::ScopedProvider;
using std::chrono::milliseconds;
using std::chrono::seconds;

namespace {

class SpinButton : public testing::Test {
 protected:
    SpinButton() {
        auto* row = new QHBoxLayout(&m_window);
        row->addWidget(&m_other);
        row->addWidget(&m_field);
        row->addWidget(&m_spin);
        m_field.setAccessibleName(QStringLiteral("Row 1"));
        m_spin.SetBuddy(&m_field);
        m_spin.SetRange(-7, 1000);
        m_spin.SetAccel({{0, 1}, {2, 8}, {4, 16}});
        m_field.setText(QStringLiteral("1"));
        m_window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        const auto arrows = m_spin.findChildren<QToolButton*>();
        m_up = arrows.at(0);
        m_down = arrows.at(1);
    }

    QString Text() const { return m_field.text(); }
    /// One key event of a key that is held: the first, or one of its repetitions.
    void Key(QEvent::Type type, int key, bool repeated) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), repeated);
        QCoreApplication::sendEvent(&m_field, &event);
    }

    k4test::DrivenClock m_clock;
    ScopedProvider<Clock> m_installed{m_clock};
    QWidget m_window;
    QLineEdit m_other;
    QLineEdit m_field;
    CSpinButtonCtrl m_spin;
    QToolButton* m_up;
    QToolButton* m_down;
};

}  // namespace

TEST_F(SpinButton, ClickOnAnArrowMovesByTheFirstStep) {
    QTest::mouseClick(m_up, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("2"));
    QTest::mouseClick(m_down, Qt::LeftButton);
    QTest::mouseClick(m_down, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("0"));
}

TEST_F(SpinButton, PressActsAtOnce) {
    QTest::mousePress(m_up, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("2"));
    QTest::mouseRelease(m_up, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("2"));
}

TEST_F(SpinButton, HeldArrowStepsOnUntilItIsReleased) {
    QTest::mousePress(m_up, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_spin.GetPos() >= 5; }));
    QTest::mouseRelease(m_up, Qt::LeftButton);
    const QString released = Text();
    QSignalSpy changes(&m_field, &QLineEdit::textChanged);
    EXPECT_FALSE(changes.wait(200));
    EXPECT_EQ(Text(), released);
}

TEST_F(SpinButton, StepGrowsWithTheTimeAnArrowIsHeld) {
    QTest::mousePress(m_up, Qt::LeftButton);
    m_clock.Advance(milliseconds(2000));
    const std::int32_t slow = m_spin.GetPos();
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_spin.GetPos() >= slow + 16; }));
    EXPECT_EQ((m_spin.GetPos() - slow) % 8, 0);
    m_clock.Advance(milliseconds(2000));
    const std::int32_t fast = m_spin.GetPos();
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_spin.GetPos() >= fast + 32; }));
    EXPECT_EQ((m_spin.GetPos() - fast) % 16, 0);
    QTest::mouseRelease(m_up, Qt::LeftButton);
}

TEST_F(SpinButton, NextPressBeginsWithTheFirstStepAgain) {
    QTest::mousePress(m_up, Qt::LeftButton);
    m_clock.Advance(seconds(10));
    QTest::mouseRelease(m_up, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("2"));
    QTest::mouseClick(m_up, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("3"));
}

TEST_F(SpinButton, KeysInTheFieldDoTheSame) {
    QTest::keyClick(&m_field, Qt::Key_Up);
    EXPECT_EQ(Text(), QStringLiteral("2"));
    QTest::keyClick(&m_field, Qt::Key_Down);
    QTest::keyClick(&m_field, Qt::Key_Down);
    EXPECT_EQ(Text(), QStringLiteral("0"));
}

TEST_F(SpinButton, HeldKeyCountsAsAHeldArrow) {
    Key(QEvent::KeyPress, Qt::Key_Up, false);
    EXPECT_EQ(Text(), QStringLiteral("2"));
    m_clock.Advance(milliseconds(1999));
    Key(QEvent::KeyRelease, Qt::Key_Up, true);
    Key(QEvent::KeyPress, Qt::Key_Up, true);
    EXPECT_EQ(Text(), QStringLiteral("3"));
    m_clock.Advance(milliseconds(1));
    Key(QEvent::KeyPress, Qt::Key_Up, true);
    EXPECT_EQ(Text(), QStringLiteral("11"));
    m_clock.Advance(seconds(2));
    Key(QEvent::KeyPress, Qt::Key_Up, true);
    EXPECT_EQ(Text(), QStringLiteral("27"));
    Key(QEvent::KeyRelease, Qt::Key_Up, false);
    Key(QEvent::KeyPress, Qt::Key_Up, false);
    EXPECT_EQ(Text(), QStringLiteral("28"));
    Key(QEvent::KeyRelease, Qt::Key_Up, false);
}

TEST_F(SpinButton, TurningRoundBeginsAnew) {
    Key(QEvent::KeyPress, Qt::Key_Up, false);
    m_clock.Advance(seconds(5));
    Key(QEvent::KeyPress, Qt::Key_Down, true);
    EXPECT_EQ(Text(), QStringLiteral("1"));
    Key(QEvent::KeyRelease, Qt::Key_Down, false);
}

TEST_F(SpinButton, KeysWithModifiersAreTheFieldsOwn) {
    QTest::keyClick(&m_field, Qt::Key_Up, Qt::ControlModifier);
    QTest::keyClick(&m_field, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Text(), QStringLiteral("1"));
    QTest::keyClick(&m_field, Qt::Key_Up, Qt::KeypadModifier);
    EXPECT_EQ(Text(), QStringLiteral("2"));
}

TEST_F(SpinButton, LosingTheFocusEndsTheHolding) {
    m_field.setFocus();
    Key(QEvent::KeyPress, Qt::Key_Up, false);
    m_clock.Advance(seconds(5));
    m_other.setFocus();
    m_field.setFocus();
    Key(QEvent::KeyPress, Qt::Key_Up, true);
    EXPECT_EQ(Text(), QStringLiteral("3")) << "the key counts as pressed just now";
    Key(QEvent::KeyRelease, Qt::Key_Up, false);
}

TEST_F(SpinButton, PositionIsReadFromTheFieldAtEachStep) {
    m_field.setText(QStringLiteral("41 and more"));
    QTest::mouseClick(m_up, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("42"));
    m_field.setText(QStringLiteral("nothing"));
    EXPECT_EQ(m_spin.GetPos(), 0);
    QTest::mouseClick(m_up, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("1"));
}

TEST_F(SpinButton, StaysInsideItsRange) {
    m_field.setText(QStringLiteral("-7"));
    QTest::mouseClick(m_down, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("-7"));
    m_field.setText(QStringLiteral("1000"));
    QTest::mouseClick(m_up, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("1000"));
    m_field.setText(QStringLiteral("99999999999"));
    QTest::mouseClick(m_down, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("1000"));
}

TEST_F(SpinButton, SetPosHoldsThePositionInsideTheRange) {
    m_spin.SetPos(17);
    EXPECT_EQ(m_spin.GetPos(), 17);
    m_spin.SetPos(-32768);
    EXPECT_EQ(m_spin.GetPos(), -7);
    m_spin.SetPos(32767);
    EXPECT_EQ(m_spin.GetPos(), 1000);
}

TEST_F(SpinButton, HandlerThatSetsThePositionItselfCancelsTheMove) {
    std::vector<std::pair<int, int>> moves;
    QObject::connect(&m_spin, &CSpinButtonCtrl::DeltaPos, &m_window,
                     [&](int position, int delta, bool* cancel) {
                         moves.emplace_back(position, delta);
                         m_spin.SetPos(100);
                         *cancel = true;
                     });
    QTest::mouseClick(m_up, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("100"));
    QTest::mouseClick(m_down, Qt::LeftButton);
    EXPECT_EQ(moves, (std::vector<std::pair<int, int>>{{1, 1}, {100, -1}}));
}

TEST_F(SpinButton, HandlerIsToldThePositionAndTheSignedStepAlsoAtTheEnd) {
    QSignalSpy moves(&m_spin, &CSpinButtonCtrl::DeltaPos);
    m_field.setText(QStringLiteral("1000"));
    QTest::mouseClick(m_up, Qt::LeftButton);
    ASSERT_EQ(moves.count(), 1);
    EXPECT_EQ(moves.at(0).at(0).toInt(), 1000);
    EXPECT_EQ(moves.at(0).at(1).toInt(), 1);
}

TEST_F(SpinButton, ArrowGivesTheFieldTheFocusWithItsTextSelected) {
    m_other.setFocus();
    QTest::mouseClick(m_up, Qt::LeftButton);
    EXPECT_TRUE(m_field.hasFocus());
    EXPECT_EQ(m_field.selectedText(), QStringLiteral("2"));
}

TEST_F(SpinButton, DisabledFieldDisablesTheArrows) {
    m_field.setEnabled(false);
    EXPECT_FALSE(m_up->isEnabled());
    EXPECT_FALSE(m_down->isEnabled());
    QTest::mouseClick(m_up, Qt::LeftButton);
    EXPECT_EQ(Text(), QStringLiteral("1"));
    m_field.setEnabled(true);
    EXPECT_TRUE(m_up->isEnabled());
}

TEST_F(SpinButton, ReadOnlyFieldDisablesTheArrowsAndTheKeys) {
    m_field.setReadOnly(true);
    EXPECT_FALSE(m_up->isEnabled());
    QTest::keyClick(&m_field, Qt::Key_Up);
    EXPECT_EQ(Text(), QStringLiteral("1"));
    m_field.setReadOnly(false);
    QTest::keyClick(&m_field, Qt::Key_Up);
    EXPECT_EQ(Text(), QStringLiteral("2"));
}

TEST_F(SpinButton, FieldDisabledWhileAnArrowIsHeldEndsTheHolding) {
    QTest::mousePress(m_up, Qt::LeftButton);
    m_field.setEnabled(false);
    QSignalSpy changes(&m_field, &QLineEdit::textChanged);
    EXPECT_FALSE(changes.wait(600));
    QTest::mouseRelease(m_up, Qt::LeftButton);
}

TEST_F(SpinButton, ArrowsAreNamedForTheirField) {
    EXPECT_EQ(m_up->accessibleName(), QStringLiteral("Row 1 up"));
    EXPECT_EQ(m_down->accessibleName(), QStringLiteral("Row 1 down"));
    EXPECT_EQ(m_up->focusPolicy(), Qt::NoFocus);
}

TEST_F(SpinButton, StandsAsHighAsItsField) {
    EXPECT_EQ(m_spin.height(), m_field.height());
    EXPECT_GT(m_up->height(), 5);
    EXPECT_NEAR(m_up->height(), m_down->height(), 1);
}

TEST(SpinButtonAlone, WithoutAFieldNothingHappens) {
    CSpinButtonCtrl spin;
    spin.show();
    EXPECT_FALSE(spin.findChildren<QToolButton*>().at(0)->isEnabled());
    spin.SetPos(5);
    EXPECT_EQ(spin.GetPos(), 0);
    spin.SetBuddy(nullptr);
}

TEST(SpinButtonAlone, FieldThatGoesFirstIsForgotten) {
    CSpinButtonCtrl spin;
    auto field = std::make_unique<QLineEdit>();
    spin.SetBuddy(field.get());
    field.reset();
    spin.SetPos(5);
    EXPECT_EQ(spin.GetPos(), 0);
}

TEST(SpinButtonAlone, FormerFieldIsLeftAlone) {
    CSpinButtonCtrl spin;
    QLineEdit former;
    QLineEdit present;
    former.setText(QStringLiteral("1"));
    spin.SetBuddy(&former);
    spin.SetBuddy(&present);
    QTest::keyClick(&former, Qt::Key_Up);
    EXPECT_EQ(former.text(), QStringLiteral("1"));
    QTest::keyClick(&present, Qt::Key_Up);
    EXPECT_EQ(present.text(), QStringLiteral("1"));
}
