#include <QLineEdit>
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

// After a failed read -----------------------------------------------------------------------------

TEST_F(Dimming, OkAfterAFailedReadSendsModeZero) {
    rpc.results["k4ssGetConfig"] = 1;
    messages.Expect("Could not get sign configuration from service");
    EXPECT_EQ(Run([&] { Click(dialog, kOk); }), IDOK);
    EXPECT_EQ(Sent(), "k4ssSetDimming(Main, 0, 0)");
}

TEST_F(Dimming, AWayChosenAfterAFailedReadIsSent) {
    rpc.results["k4ssGetConfig"] = 1;
    messages.Expect("Could not get sign configuration from service");
    Run([&] {
        Choose(kPhotocell);
        EXPECT_TRUE(Enabled(kOffset));
        EXPECT_TRUE(Enabled(kApply));
        PressOn(kOffset, Qt::Key_Left);
        Click(dialog, kApply);
        EXPECT_EQ(Sent(), "k4ssSetDimming(Main, 2, -1)");
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, EveryRadioButtonIsReachedAndChosenByKeysAfterAFailedRead) {
    rpc.results["k4ssGetConfig"] = 1;
    messages.Expect("Could not get sign configuration from service");
    Run([&] {
        std::vector<int> visited;
        PressKey(dialog, Qt::Key_Tab);
        for (int i = 0; i < 4; ++i) {
            visited.push_back(FocusedId(dialog));
            PressKey(dialog, Qt::Key_Down);
        }
        EXPECT_THAT(visited, ElementsAre(kManual, kPhotocell, kRemotePhotocell, kScheduled));
        EXPECT_EQ(RadioOn(), -1);
        PressKey(dialog, Qt::Key_Space);
        EXPECT_NE(RadioOn(), -1);
        EXPECT_TRUE(Enabled(kApply));
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, TheTabKeyGoesToTheRadioButtonThatIsOn) {
    for (const auto& [mode, radio] : {std::pair{5, +kManual}, std::pair{2, +kPhotocell},
                                      std::pair{3, +kRemotePhotocell}, std::pair{4, +kScheduled}}) {
        Configure(mode, 100, 0);
        CK4CmnDlgDimmingCtrl other("North", "Main", nullptr);
        Run(other, [&, radio = radio] {
            EXPECT_EQ(FocusedId(other), kSignName);
            PressKey(other, Qt::Key_Tab);
            EXPECT_EQ(FocusedId(other), radio);
            Click(other, kCancel);
        });
    }
}

// Failures and ends -------------------------------------------------------------------------------

class DimmingNotSet : public Dimming,
                      public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(DimmingNotSet, ApplyShowsTheClientsWordsAndStaysEnabled) {
    Configure(5, 100, 0);
    Run([&] {
        PressOn(kLevel, Qt::Key_Right);
        rpc.results[GetParam().first] = 1;
        messages.Expect(GetParam().second);
        Click(dialog, kApply);
        EXPECT_EQ(messages.Pending(), 0U);
        EXPECT_TRUE(Enabled(kApply));
        EXPECT_TRUE(dialog.isVisible());
        rpc.results.clear();
        Click(dialog, kApply);
        EXPECT_FALSE(Enabled(kApply));
        Click(dialog, kCancel);
    });
}

TEST_P(DimmingNotSet, OkShowsTheClientsWordsAndClosesAllTheSame) {
    Configure(5, 100, 0);
    EXPECT_EQ(Run([&] {
                  rpc.results[GetParam().first] = 1;
                  messages.Expect(GetParam().second);
                  Click(dialog, kOk);
                  EXPECT_EQ(messages.Pending(), 0U);
                  EXPECT_FALSE(dialog.isVisible());
              }),
              IDOK);
}

INSTANTIATE_TEST_SUITE_P(Failures, DimmingNotSet,
                         testing::Values(std::pair{"k4ssSetDimming", "Could not set dimming mode"},
                                         std::pair{"k4ssConnectSignAsUser",
                                                   "Sign service unavailable."}),
                         [](const auto& row) { return row.param.first; });

TEST_F(Dimming, CancelSendsNothing) {
    Configure(5, 100, 0);
    EXPECT_EQ(Run([&] {
                  PressOn(kLevel, Qt::Key_Right);
                  Click(dialog, kCancel);
              }),
              IDCANCEL);
    EXPECT_THAT(rpc.calls, IsEmpty());
}

TEST_F(Dimming, EscapeSendsNothing) {
    Configure(5, 100, 0);
    EXPECT_EQ(Run([&] {
                  Choose(kScheduled);
                  PressKey(dialog, Qt::Key_Escape);
              }),
              IDCANCEL);
    EXPECT_THAT(rpc.calls, IsEmpty());
}

TEST_F(Dimming, TheWindowsCloseButtonSendsNothing) {
    Configure(5, 100, 0);
    EXPECT_EQ(Run([&] { dialog.close(); }), IDCANCEL);
    EXPECT_THAT(rpc.calls, IsEmpty());
}

TEST_F(Dimming, EnterOnASliderIsOk) {
    Configure(5, 100, 0);
    EXPECT_EQ(Run([&] {
                  PressOn(kLevel, Qt::Key_Right);
                  PressOn(kLevel, Qt::Key_Return);
              }),
              IDOK);
    EXPECT_EQ(Sent(), "k4ssSetDimming(Main, 5, 101)");
}

TEST_F(Dimming, LaterChangesOnTheSignAreNotFollowed) {
    Configure(5, 100, 0);
    Run([&] {
        Configure(2, 1, 1);
        Choose(kPhotocell);
        Choose(kManual);
        Click(dialog, kApply);
        EXPECT_EQ(Position(kLevel), 100);
        EXPECT_EQ(rpc.Count("k4ssGetConfig"), 0U);
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, OpenedAgainItReadsAgain) {
    Configure(5, 100, 0);
    Run([&] { Click(dialog, kCancel); });
    Configure(2, 50, 12);
    Run([&] {
        EXPECT_TRUE(On(kPhotocell));
        EXPECT_EQ(Position(kOffset), 12);
        EXPECT_FALSE(Enabled(kApply));
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, OpenedAgainOnASignThatCantBeReadItShowsNothingOfBefore) {
    Configure(2, 50, 12);
    Run([&] { Click(dialog, kCancel); });
    rpc.results["k4ssGetConfig"] = 1;
    messages.Expect("Could not get sign configuration from service");
    Run([&] {
        EXPECT_EQ(RadioOn(), -1);
        EXPECT_EQ(Position(kLevel), 0);
        EXPECT_EQ(Position(kOffset), 0);
        EXPECT_FALSE(Enabled(kOffset));
        Click(dialog, kCancel);
    });
}

}  // namespace
}  // namespace k4test
