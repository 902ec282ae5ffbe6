#include <QRadioButton>
#include <QSlider>

#include "tests/signctl/DimmingFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What enables and disables -----------------------------------------------------------------------

TEST_F(Dimming, EachRadioButtonSelectsItsGroupAndEnablesApply) {
    const struct {
        int radio;
        bool manualGroup;
        bool photocellGroup;
    } rows[] = {{kPhotocell, false, true},
                {kManual, true, false},
                {kRemotePhotocell, false, false},
                {kScheduled, false, false}};
    Configure(5, 100, 0);
    Run([&] {
        for (const auto& row : rows) {
            Item<QPushButton>(dialog, kApply)->setEnabled(false);
            Choose(row.radio);
            EXPECT_TRUE(On(row.radio));
            EXPECT_TRUE(Enabled(kApply)) << row.radio;
            for (const int id : {kManualCaption, kLevel, kManualLow, kManualHigh})
                EXPECT_EQ(Enabled(id), row.manualGroup) << row.radio << " " << id;
            for (const int id : {kPhotocellCaption, kOffset, kPhotocellLow, kPhotocellHigh})
                EXPECT_EQ(Enabled(id), row.photocellGroup) << row.radio << " " << id;
        }
        EXPECT_THAT(rpc.calls, IsEmpty());
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, TheRadioButtonThatIsOnEnablesApplyToo) {
    Configure(3, 100, 0);
    Run([&] {
        EXPECT_FALSE(Enabled(kApply));
        Choose(kRemotePhotocell);
        EXPECT_TRUE(Enabled(kApply));
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, TheRadioButtonsAreReachedByTheirLetters) {
    Configure(5, 100, 0);
    Run([&] {
        const std::pair<Qt::Key, int> letters[] = {{Qt::Key_P, kPhotocell},
                                                   {Qt::Key_S, kScheduled},
                                                   {Qt::Key_R, kRemotePhotocell},
                                                   {Qt::Key_M, kManual}};
        for (const auto& [letter, radio] : letters) {
            PressKey(dialog, letter, Qt::AltModifier);
            // A button shows for a moment that it is pressed by its letter.
            EXPECT_TRUE(QTest::qWaitFor([&, id = radio] { return On(id); })) << radio;
            EXPECT_TRUE(Enabled(kApply));
        }
        PressKey(dialog, Qt::Key_L, Qt::AltModifier);
        EXPECT_EQ(FocusedId(dialog), kLevel);
        Choose(kPhotocell);
        PressKey(dialog, Qt::Key_O, Qt::AltModifier);
        EXPECT_EQ(FocusedId(dialog), kOffset);
        PressKey(dialog, Qt::Key_A, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Sent() == "k4ssSetDimming(Main, 2, 0)"; }));
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(Dimming, TheArrowKeysChooseAmongTheRadioButtons) {
    Configure(5, 100, 0);
    Run([&] {
        PressOn(kManual, Qt::Key_Down);
        EXPECT_TRUE(On(kPhotocell));
        EXPECT_TRUE(Enabled(kOffset));
        EXPECT_TRUE(Enabled(kApply));
        PressKey(dialog, Qt::Key_Down);
        PressKey(dialog, Qt::Key_Down);
        EXPECT_TRUE(On(kScheduled));
        PressKey(dialog, Qt::Key_Up);
        EXPECT_TRUE(On(kRemotePhotocell));
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, AnyMovementOfASliderEnablesApply) {
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_PageUp, Qt::Key_PageDown,
                              Qt::Key_Home, Qt::Key_End}) {
        for (const bool manual : {true, false}) {
            CK4CmnDlgDimmingCtrl other("North", "Main", nullptr);
            Configure(manual ? 5 : 2, 100, 0);
            Run(other, [&] {
                auto* slider = Item<QSlider>(other, manual ? kLevel : kOffset);
                auto* apply = Item<QPushButton>(other, kApply);
                EXPECT_FALSE(apply->isEnabled());
                QTest::keyClick(slider, key);
                EXPECT_TRUE(apply->isEnabled()) << key;
                other.EndDialog(IDCANCEL);
            });
        }
    }
}

TEST_F(Dimming, ASliderMovedByTheMouseEnablesApply) {
    Configure(5, 100, 0);
    Run([&] {
        auto* slider = Item<QSlider>(dialog, kLevel);
        QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(slider->width() - 4, 8));
        EXPECT_GT(slider->value(), 100);
        EXPECT_TRUE(Enabled(kApply));
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, ApplyStaysAsItIsWhileTheDialogHasNoWindow) {
    Item<QSlider>(dialog, kLevel)->setValue(7);
    EXPECT_FALSE(Enabled(kApply));
}

// What is sent ------------------------------------------------------------------------------------

TEST_F(Dimming, ApplySendsTheManualLevelAndDisablesItself) {
    Configure(5, 100, 0);
    Run([&] {
        PressOn(kLevel, Qt::Key_Right);
        Click(dialog, kApply);
        EXPECT_THAT(rpc.calls, ElementsAre("k4ssIsServer(North)",
                                           "k4ssConnectSignAsUser(North, null, null, null)",
                                           "k4ssSetDimming(Main, 5, 101)", "k4ssDisconnectSign()"));
        EXPECT_FALSE(Enabled(kApply));
        EXPECT_TRUE(dialog.isVisible());
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, AppliedByTheKeyboardTheFocusGoesToOkNotToCancel) {
    Configure(5, 100, 0);
    EXPECT_EQ(Run([&] {
                  PressOn(kLevel, Qt::Key_Right);
                  PressOn(kApply, Qt::Key_Space);
                  EXPECT_FALSE(Enabled(kApply));
                  EXPECT_EQ(FocusedId(dialog), kOk);
                  PressKey(dialog, Qt::Key_Return);
              }),
              IDOK);
}

TEST_F(Dimming, EachRadioButtonSendsItsModeAndValue) {
    const std::pair<int, const char*> rows[] = {
        {kPhotocell, "k4ssSetDimming(Main, 2, -20)"},
        {kRemotePhotocell, "k4ssSetDimming(Main, 3, 0)"},
        {kScheduled, "k4ssSetDimming(Main, 4, 0)"},
        {kManual, "k4ssSetDimming(Main, 5, 100)"},
    };
    Configure(5, 100, -20);
    Run([&] {
        for (const auto& [radio, call] : rows) {
            rpc.calls.clear();
            Choose(radio);
            Click(dialog, kApply);
            EXPECT_EQ(Sent(), call);
            EXPECT_FALSE(Enabled(kApply));
        }
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, ASignInModeOneIsSentBackInModeFive) {
    Configure(1, 120, 0);
    EXPECT_EQ(Run([&] {
                  EXPECT_TRUE(On(kManual));
                  Click(dialog, kOk);
              }),
              IDOK);
    EXPECT_EQ(Sent(), "k4ssSetDimming(Main, 5, 120)");
}

TEST_F(Dimming, OkWithNothingChangedSendsAllTheSame) {
    Configure(2, 120, 17);
    EXPECT_EQ(Run([&] { Click(dialog, kOk); }), IDOK);
    EXPECT_THAT(rpc.calls,
                ElementsAre("k4ssIsServer(North)", "k4ssConnectSignAsUser(North, null, null, null)",
                            "k4ssSetDimming(Main, 2, 17)", "k4ssDisconnectSign()"));
}

TEST_F(Dimming, TheOffsetAtItsLeftEndSendsMinus64) {
    Configure(2, 0, 10);
    Run([&] {
        PressOn(kOffset, Qt::Key_Home);
        EXPECT_EQ(Position(kOffset), -64);
        Click(dialog, kOk);
    });
    EXPECT_EQ(Sent(), "k4ssSetDimming(Main, 2, -64)");
}

TEST_F(Dimming, TheEndsOfTheLevelAreSentAsTheyStand) {
    Configure(5, 100, 0);
    Run([&] {
        PressOn(kLevel, Qt::Key_End);
        Click(dialog, kApply);
        EXPECT_EQ(Sent(), "k4ssSetDimming(Main, 5, 255)");
        rpc.calls.clear();
        PressOn(kLevel, Qt::Key_Home);
        Click(dialog, kApply);
        EXPECT_EQ(Sent(), "k4ssSetDimming(Main, 5, 0)");
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, TheManualPositionIsNotSentWithPhotocellAndStaysForALaterSwitch) {
    Configure(5, 100, -5);
    Run([&] {
        PressOn(kLevel, Qt::Key_PageUp);
        Choose(kPhotocell);
        Click(dialog, kApply);
        EXPECT_EQ(Sent(), "k4ssSetDimming(Main, 2, -5)");
        EXPECT_EQ(Position(kLevel), 132);
        rpc.calls.clear();
        Choose(kManual);
        Click(dialog, kApply);
        EXPECT_EQ(Sent(), "k4ssSetDimming(Main, 5, 132)");
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, LocalIsThisMachine) {
    Configure(5, 100, 0);
    CK4CmnDlgDimmingCtrl local("Local", "Main", nullptr);
    Run(local, [&] {
        EXPECT_EQ(TextOf(local, kSignName), "Local\\Main");
        Click(local, kOk);
    });
    EXPECT_EQ(rpc.Count("k4ssConnectSignAsUser"), 1U);
    EXPECT_EQ(rpc.calls.front(), "k4ssIsServer(.)");
}

}  // namespace
}  // namespace k4test
