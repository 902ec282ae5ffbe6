#include "tests/signctl/DimmingFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
                  PressOn(kLevel, Qt::Key_Right);
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
