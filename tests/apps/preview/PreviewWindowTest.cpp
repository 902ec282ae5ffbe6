#include "apps/preview/PreviewWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QTextDocument>
#include <QToolButton>
#include <QWheelEvent>

#include "apps/parts/SignView.h"
#include "apps/preview/ElidedLabel.h"
#include "apps/preview/PictureArea.h"
#include "tests/apps/preview/PreviewFixture.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/FontScale.h"

namespace {

using k4suite::SequenceWriter;
using preview::milliseconds;
using preview::PreviewWindow;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class PreviewWindowTest : public k4test::PreviewFixture {
 protected:
    void SetUp() override { MakeWindow(); }

    void MakeWindow() {
        window = std::make_unique<PreviewWindow>(suite.Registry(), home);
        window->resize(700, 500);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        window->activateWindow();
    }
    void Open(const std::string& path, bool play = false) {
        window->Open(path, play);
        ASSERT_TRUE(QTest::qWaitFor([&] { return Player().IsComplete(); }));
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window.get(), key, modifiers);
    }
    void Wait(int by) {
        time.Advance(milliseconds(by));
        Player().Tick();
    }

    preview::Player& Player() { return window->ThePlayer(); }
    parts::SignView& View() { return window->Area().View(); }
    std::string Words() { return View().Words().toStdString(); }
    template <class Widget>
    Widget* Child(const char* name) {
        Widget* child = window->findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(child, nullptr) << name;
        return child;
    }
    std::string Text(const char* label) { return Child<QLabel>(label)->text().toStdString(); }

    k4test::DrivenClock time;
    k4cmn::ScopedProvider<k4cmn::Clock> useTime{time};
    std::unique_ptr<PreviewWindow> window;
};

// What is seen -----------------------------------------------------------------------------------

TEST_F(PreviewWindowTest, WithoutARequestItSaysWhatToDo) {
    window->ShowRequest();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Preview"));
    EXPECT_THAT(Words(), HasSubstr("Nothing to preview yet."));
    EXPECT_FALSE(Child<QAction>("play")->isEnabled());
    EXPECT_FALSE(Child<QSlider>("frames")->isEnabled());
}

TEST_F(PreviewWindowTest, ASequenceWithItsFacts) {
    Open(MakeFrames("Goal.SQ4", {250, 1500}));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Preview - Goal.SQ4"));
    EXPECT_EQ(Text("name"), "A:\\Goal.SQ4");
    EXPECT_EQ(Text("facts"), "7 x 16   Mono1, LED   Keywords: summer; sale;");
    EXPECT_EQ(Text("place"), "Frame 1 of 2   0.25 s");
    EXPECT_EQ(Text("time"), "0:00.00 of 0:01.75");
    EXPECT_EQ(View().Picture().size(), QSize(16, 7));
    EXPECT_FALSE(Child<QLabel>("notice")->isVisible());
    Key(Qt::Key_Right);
    EXPECT_EQ(Text("place"), "Frame 2 of 2   1.5 s");
    EXPECT_EQ(Text("time"), "0:00.25 of 0:01.75");
}

TEST_F(PreviewWindowTest, AnIncludedFrameSaysWhereItIsFrom) {
    k4suite::SequenceFacts facts = Facts();
    facts.rows = 8;
    facts.keywords = "other";
    Make(
        "Part.SQ4", [](auto& writer) { AddFrame(writer, 40); }, facts);
    Open(Make("Main.SQ4", [](auto& writer) { AddInclude(writer, {"Part.SQ4"}); }));
    EXPECT_EQ(Text("place"), "Frame 1 of 1   0.04 s, frame 1 of Part.SQ4");
    EXPECT_EQ(Text("facts"), "8 x 16   Mono1, LED   Keywords: summer; sale;");
}

TEST_F(PreviewWindowTest, WhatCannotBePlayedIsNoticed) {
    Open(Make("Main.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 100);
        AddInclude(writer, {"Missing.SQ4"});
    }));
    EXPECT_TRUE(Child<QLabel>("notice")->isVisible());
    EXPECT_EQ(Text("notice"), "One place of the sequence can't be played: see frame 2.");
    Key(Qt::Key_End);
    EXPECT_THAT(Words(), HasSubstr("Included: A:\\Missing.SQ4"));
    EXPECT_EQ(Text("place"), "Frame 2 of 2   takes no time");
    Open(MakeFrames("Goal.SQ4", {100}));
    EXPECT_FALSE(Child<QLabel>("notice")->isVisible());
}

TEST_F(PreviewWindowTest, AFileThatIsNotThereIsWordsInThePlaceOfThePicture) {
    Open(Path("Nowhere.SQ4"), true);
    EXPECT_THAT(Words(), HasSubstr("Cannot show A:\\Nowhere.SQ4:\nCannot open \""));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Preview - Nowhere.SQ4"));
    EXPECT_EQ(Text("place"), "");
    for (const char* action : {"play", "first", "back", "forward", "last"})
        EXPECT_FALSE(Child<QAction>(action)->isEnabled()) << action;
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Left, Qt::Key_Right, Qt::Key_End})
        Key(key);
    EXPECT_FALSE(Player().IsPlaying());
}

TEST_F(PreviewWindowTest, TextsOfAFileAreTextsAndNoMarkup) {
    k4suite::SequenceFacts facts = Facts();
    facts.keywords = "<b>x</b>; <img src=y>\n; ";
    Open(Make(
        "Goal.SQ4", [](auto& writer) { AddFrame(writer, 100); }, facts));
    EXPECT_THAT(Text("facts"), HasSubstr("Keywords: <b>x</b>; <img src=y> ;"));
    EXPECT_EQ(Child<QLabel>("facts")->textFormat(), Qt::PlainText);
    EXPECT_THAT(Child<QLabel>("facts")->toolTip().toStdString(), HasSubstr("&lt;b&gt;"));
}

TEST_F(PreviewWindowTest, NameOfALongPathIsSeenAndItsTipTellsAll) {
    const std::string path = "A:\\" + std::string(200, 'f') + ".Fld\\R&D.SQ4";
    Open(path);
    auto* name = Child<preview::ElidedLabel>("name");
    EXPECT_THAT(name->Shown().toStdString(), EndsWith("\\R&D.SQ4"));
    EXPECT_THAT(name->Shown().toStdString(), StartsWith("A:\\ff"));
    EXPECT_LT(name->Shown().size(), 200);
    QTextDocument tip;
    tip.setHtml(name->toolTip());
    EXPECT_EQ(tip.toPlainText().toStdString(), path);
    EXPECT_TRUE(Qt::mightBeRichText(name->toolTip()));
}

// Keys -------------------------------------------------------------------------------------------

TEST_F(PreviewWindowTest, KeysOfPlaying) {
    Open(MakeEqualFrames("Goal.SQ4", 10, 100));
    Key(Qt::Key_Space);
    EXPECT_TRUE(Player().IsPlaying());
    Wait(250);
    EXPECT_EQ(Player().Index(), 2u);
    Key(Qt::Key_Space);
    EXPECT_FALSE(Player().IsPlaying());
    const struct {
        Qt::Key key;
        std::size_t index;
    } rows[] = {{Qt::Key_Right, 3}, {Qt::Key_Right, 4}, {Qt::Key_Left, 3}, {Qt::Key_End, 9},
                {Qt::Key_Right, 9}, {Qt::Key_Home, 0},  {Qt::Key_Left, 0}};
    for (const auto& row : rows) {
        Key(row.key);
        EXPECT_EQ(Player().Index(), row.index);
    }
}

TEST_F(PreviewWindowTest, KeysOfSpeed) {
    const struct {
        Qt::Key key;
        const char* text;
    } rows[] = {{Qt::Key_Plus, "2x"},    {Qt::Key_Equal, "4x"},    {Qt::Key_Plus, "8x"},
                {Qt::Key_Plus, "8x"},    {Qt::Key_Minus, "4x"},    {Qt::Key_1, "1x"},
                {Qt::Key_Minus, "0.5x"}, {Qt::Key_Minus, "0.25x"}, {Qt::Key_Minus, "0.25x"}};
    for (const auto& row : rows) {
        Key(row.key);
        EXPECT_EQ(Text("speed"), row.text);
    }
    EXPECT_FALSE(Child<QAction>("slower")->isEnabled());
    EXPECT_TRUE(Child<QAction>("faster")->isEnabled());
}

TEST_F(PreviewWindowTest, SpaceBelongsToAButtonThatHasTheFocus) {
    Open(MakeEqualFrames("Goal.SQ4", 10, 100));
    QToolButton* forward = nullptr;
    for (QToolButton* button : window->findChildren<QToolButton*>()) {
        if (button->defaultAction() == Child<QAction>("forward"))
            forward = button;
    }
    ASSERT_NE(forward, nullptr);
    forward->setFocus();
    QTest::keyClick(forward, Qt::Key_Space);
    EXPECT_EQ(Player().Index(), 1u);
    EXPECT_FALSE(Player().IsPlaying());
}

TEST_F(PreviewWindowTest, RepeatIsSwitchedByItsKey) {
    Open(MakeFrames("Goal.SQ4", {100, 100}), true);
    EXPECT_TRUE(Child<QAction>("loop")->isChecked());
    Key(Qt::Key_R);
    EXPECT_FALSE(Player().IsLooping());
    Wait(250);
    EXPECT_FALSE(Player().IsPlaying());
    EXPECT_EQ(Child<QAction>("play")->toolTip(), QStringLiteral("Play (Space)"));
}

// Buttons and slider -----------------------------------------------------------------------------

TEST_F(PreviewWindowTest, ThePlayButtonSaysWhatItWillDo) {
    Open(MakeEqualFrames("Goal.SQ4", 10, 100));
    QAction* play = Child<QAction>("play");
    EXPECT_EQ(play->text(), QStringLiteral("&Play"));
    play->trigger();
    EXPECT_EQ(play->text(), QStringLiteral("&Pause"));
    EXPECT_EQ(play->toolTip(), QStringLiteral("Pause (Space)"));
    play->trigger();
    EXPECT_EQ(play->text(), QStringLiteral("&Play"));
}

TEST_F(PreviewWindowTest, TheSliderGoesToWhereItIsClicked) {
    Open(MakeEqualFrames("Goal.SQ4", 101, 100));
    auto* slider = Child<QSlider>("frames");
    EXPECT_EQ(slider->maximum(), 100);
    QTest::mouseClick(slider, Qt::LeftButton, {}, slider->rect().center());
    EXPECT_NEAR(static_cast<double>(Player().Index()), 50, 2);
    Key(Qt::Key_End);
    EXPECT_EQ(slider->value(), 100);
    slider->setValue(7);
    EXPECT_EQ(Player().Index(), 7u);
}

TEST_F(PreviewWindowTest, TheSliderFollowsPlaying) {
    Open(MakeEqualFrames("Goal.SQ4", 10, 100), true);
    Wait(450);
    EXPECT_EQ(Child<QSlider>("frames")->value(), 4);
    EXPECT_EQ(Player().Index(), 4u);
}

TEST_F(PreviewWindowTest, EverythingHasANameAndATip) {
    Open(MakeEqualFrames("Goal.SQ4", 10, 100));
    for (QToolButton* button : window->findChildren<QToolButton*>()) {
        if (!button->defaultAction())
            continue;  // the menu bar's own
        EXPECT_FALSE(button->accessibleName().isEmpty());
        EXPECT_FALSE(button->accessibleName().contains(QLatin1Char('&')));
        const QString key = button->defaultAction()->shortcut().toString(QKeySequence::NativeText);
        EXPECT_FALSE(key.isEmpty());
        EXPECT_TRUE(button->toolTip().endsWith(QStringLiteral("(%1)").arg(key)))
            << button->toolTip().toStdString();
        EXPECT_NE(button->focusPolicy() & Qt::TabFocus, 0);
    }
    for (const char* name : {"frames", "zoom", "area", "picture"})
        EXPECT_FALSE(Child<QWidget>(name)->accessibleName().isEmpty()) << name;
}

// Zoom -------------------------------------------------------------------------------------------

TEST_F(PreviewWindowTest, ZoomByKeysAndList) {
    Open(MakeFrames("Goal.SQ4", {100}));
    auto* list = Child<QComboBox>("zoom");
    EXPECT_EQ(list->currentText(), QStringLiteral("Fit"));
    const double fitted = View().LampSize();
    EXPECT_GT(fitted, 16);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(View().LampSize(), fitted > 32 ? 32 : 16);
    for (const int zoom : {8, 4, 2, 1, 1}) {
        while (window->Area().Zoom() > zoom)
            Key(Qt::Key_Minus, Qt::ControlModifier);
        EXPECT_EQ(View().LampSize(), zoom);
        EXPECT_EQ(list->currentText(), QStringLiteral("%1x").arg(zoom));
    }
    Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(View().LampSize(), 2);
    Key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(View().LampSize(), fitted);
    EXPECT_EQ(list->currentText(), QStringLiteral("Fit"));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(window->Area().Zoom(), 1);
}

TEST_F(PreviewWindowTest, TheWheelZoomsAtThePointer) {
    k4suite::SequenceFacts facts = Facts();
    facts.rows = 200;
    facts.columns = 400;
    Open(Make(
        "Large.SQ4",
        [](SequenceWriter& writer) {
            const Bytes bulbs(k4cmn::BytesOfFrame(200, 400, 0), 0x55);
            writer.AddGraphic(k4cmn::kGraphicFrame, 100, bulbs);
        },
        facts));
    window->Area().SetZoom(4);
    QWidget* port = window->Area().viewport();
    const QPointF pointer(200, 100);
    const auto lampThere = [&] { return View().LampAt(pointer - QPointF(View().pos())); };
    const QPointF lamp = lampThere();
    const auto turn = [&](int angle, Qt::KeyboardModifiers keys) {
        QWheelEvent event(pointer, port->mapToGlobal(pointer), {}, {0, angle}, Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(port, &event);
    };
    turn(120, Qt::ControlModifier);
    EXPECT_EQ(window->Area().Zoom(), 8);
    EXPECT_LT((lampThere() - lamp).manhattanLength(), 1.0);
    turn(60, Qt::ControlModifier);  // half a step
    EXPECT_EQ(window->Area().Zoom(), 8);
    turn(60, Qt::ControlModifier);
    EXPECT_EQ(window->Area().Zoom(), 16);
    EXPECT_LT((lampThere() - lamp).manhattanLength(), 1.0);
    turn(-240, Qt::ControlModifier);
    EXPECT_EQ(window->Area().Zoom(), 4);
    const int before = window->Area().verticalScrollBar()->value();
    turn(-120, Qt::NoModifier);
    EXPECT_EQ(window->Area().Zoom(), 4);
    EXPECT_GT(window->Area().verticalScrollBar()->value(), before);
}

TEST_F(PreviewWindowTest, ALargePictureIsDraggedAndScrolled) {
    Open(MakeFrames("Goal.SQ4", {100}));
    window->resize(400, 300);
    window->Area().SetZoom(32);
    QScrollBar* bar = window->Area().horizontalScrollBar();
    ASSERT_GT(bar->maximum(), 80);
    bar->setValue(0);
    QWidget* port = window->Area().viewport();
    QTest::mousePress(port, Qt::LeftButton, {}, QPoint(100, 50));
    QTest::mouseMove(port, QPoint(60, 50));
    QTest::mouseRelease(port, Qt::LeftButton, {}, QPoint(60, 50));
    EXPECT_EQ(bar->value(), 40);
    QTest::keyClick(&window->Area(), Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(bar->value(), 80);
    QTest::keyClick(&window->Area(), Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(bar->value(), 40);
    EXPECT_EQ(Player().Index(), 0u);
}

TEST_F(PreviewWindowTest, WordsFillTheWindowWhateverTheZoom) {
    Open(MakeFrames("Goal.SQ4", {100}));
    window->Area().SetZoom(1);
    Open(Path("Nowhere.SQ4"));
    EXPECT_EQ(View().size(), window->Area().viewport()->size());
    Open(Path("Goal.SQ4"));
    EXPECT_EQ(View().size(), QSize(16 + 40, 7 + 40));
}

// Requests ---------------------------------------------------------------------------------------

TEST_F(PreviewWindowTest, TheRequestThatIsThereIsShown) {
    const std::uint32_t second = 1;
    const std::string path = MakeEqualFrames("Goal.SQ4", 3, 100);
    k4suite::IniRegistry other(home);
    ASSERT_EQ(other.SetPreviewOptions(path, {nullptr, nullptr, &second}), 1);
    window.reset();
    MakeWindow();
    window->ShowRequest();
    EXPECT_EQ(Player().Path(), path);
    EXPECT_TRUE(Player().IsPlaying());
}

TEST_F(PreviewWindowTest, TheSecondNumberStartsPlaying) {
    const std::string path = MakeEqualFrames("Goal.SQ4", 3, 100);
    k4suite::IniRegistry other(home);
    const std::uint32_t numbers[] = {0, 1, 2};
    for (const std::uint32_t& second : numbers) {
        const std::string named = MakeEqualFrames(std::to_string(second) + ".SQ4", 3, 100);
        ASSERT_EQ(other.SetPreviewOptions(named, {nullptr, nullptr, &second}), 1);
        ASSERT_TRUE(QTest::qWaitFor([&] { return Player().Path() == named; }));
        EXPECT_EQ(Player().IsPlaying(), second == 1) << second;
    }
    ASSERT_EQ(other.SetPreviewOptions(path, {}), 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Player().Path() == path; }));
    EXPECT_FALSE(Player().IsPlaying());
}

TEST_F(PreviewWindowTest, TheSameRequestAgainBeginsAnew) {
    const std::uint32_t second = 1;
    const std::string path = MakeEqualFrames("Goal.SQ4", 3, 100);
    ASSERT_EQ(suite.Registry().SetPreviewOptions(path, {nullptr, nullptr, &second}), 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Player().IsPlaying(); }));
    Wait(150);
    ASSERT_EQ(Player().Index(), 1u);
    ASSERT_EQ(suite.Registry().SetPreviewOptions(path, {nullptr, nullptr, &second}), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Player().Index() == 0; }));
    EXPECT_TRUE(Player().IsPlaying());
}

TEST_F(PreviewWindowTest, ARequestBringsAMinimizedWindowBack) {
    window->showMinimized();
    ASSERT_EQ(suite.Registry().SetPreviewOptions("A:\\x.SQ4", {}), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window->isMinimized(); }));
}

TEST_F(PreviewWindowTest, DamagedSettingsAreNoticed) {
    folder.Write("home/settings/user.ini", "no settings\xFF");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !suite.Registry().Problems().empty(); }));
    Open(MakeFrames("Goal.SQ4", {100}));
    EXPECT_THAT(Text("notice"), HasSubstr("was damaged; it is kept as"));
}

// The window -------------------------------------------------------------------------------------

TEST_F(PreviewWindowTest, PlaceZoomAndRepeatAreKept) {
    window->resize(555, 444);
    window->Area().SetZoom(4);
    Key(Qt::Key_R);
    Key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
    window = std::make_unique<PreviewWindow>(suite.Registry(), home);
    EXPECT_EQ(window->size(), QSize(555, 444));
    EXPECT_EQ(window->Area().Zoom(), 4);
    EXPECT_FALSE(Player().IsLooping());
}

TEST_F(PreviewWindowTest, AProfileOfNonsenseCountsForNothing) {
    window->close();
    folder.Write("home/settings/profile-K4Prevu.ini",
                 "[Preview]\nGeometry=zz01ff\nZoom=5\nRepeat=perhaps\n");
    window = std::make_unique<PreviewWindow>(suite.Registry(), home);
    EXPECT_EQ(window->size(), QSize(860, 560));
    EXPECT_EQ(window->Area().Zoom(), 0);
    EXPECT_TRUE(Player().IsLooping());
}

TEST_F(PreviewWindowTest, ClosingStandsStill) {
    Open(MakeEqualFrames("Goal.SQ4", 10, 100), true);
    window->close();
    EXPECT_TRUE(Player().IsIdle());
}

TEST_F(PreviewWindowTest, NothingIsClippedAtAnyFontSizeThatA800By600ScreenAllows) {
    MakeEqualFrames("Goal.SQ4", 10, 100);
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(factor);
        const k4test::FontScale scale(factor);
        window.reset();
        MakeWindow();
        Open(Path("Goal.SQ4"));
        // Twice as large in pixels is a screen of 400 by 300.
        const QSize room = factor <= 1 ? QSize(400, 300) : QSize(800, 600);
        EXPECT_LE(window->minimumSizeHint().width(), room.width());
        EXPECT_LE(window->minimumSizeHint().height(), room.height());
        window->resize(room);
        QCoreApplication::processEvents();
        EXPECT_EQ(window->size(), room);
        for (const QWidget* child : window->centralWidget()->findChildren<QWidget*>()) {
            if (!qobject_cast<const QAbstractButton*>(child) &&
                !qobject_cast<const QComboBox*>(child) && !qobject_cast<const QSlider*>(child))
                continue;
            if (!child->isVisible())
                continue;
            EXPECT_GE(child->width(), child->minimumSizeHint().width());
            EXPECT_GE(child->height(), child->minimumSizeHint().height());
            EXPECT_TRUE(window->rect().contains(
                QRect(child->mapTo(window.get(), QPoint()), child->size())));
        }
    }
}

}  // namespace
