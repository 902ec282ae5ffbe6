#include "k4cmndlg/signctl/DimmingSettings.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace k4test {

using k4cmn::DimmingSettings;

namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();

struct ModeRead {
    const char* what;
    int mode;
    int radio;
};

class DimmingModeRead : public testing::TestWithParam<ModeRead> {};

TEST_P(DimmingModeRead, ChoosesTheRadioButton) {
    const auto mode = static_cast<tag_K4_SIGN_DIM_MODE>(GetParam().mode);
    EXPECT_EQ(DimmingSettings::FromSign(mode, 100, -10).radio, GetParam().radio);
}

TEST_P(DimmingModeRead, KeepsLevelAndOffset) {
    const auto mode = static_cast<tag_K4_SIGN_DIM_MODE>(GetParam().mode);
    const DimmingSettings settings = DimmingSettings::FromSign(mode, 100, -10);
    EXPECT_EQ(settings.level, 100);
    EXPECT_EQ(settings.offset, -10);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, DimmingModeRead,
    testing::Values(ModeRead{"Zero", 0, 0}, ModeRead{"One", 1, 0}, ModeRead{"Photocell", 2, 1},
                    ModeRead{"RemotePhotocell", 3, 2}, ModeRead{"Scheduled", 4, 3},
                    ModeRead{"Manual", 5, 0}, ModeRead{"PastTheLast", 6, -1},
                    ModeRead{"BelowTheFirst", -1, -1}, ModeRead{"TheGreatest", kMost, -1}),
    [](const auto& row) { return row.param.what; });

struct ModeSent {
    const char* what;
    int radio;
    int mode;
    int value;
};

class DimmingModeSent : public testing::TestWithParam<ModeSent> {};

TEST_P(DimmingModeSent, GoesWithItsValue) {
    const DimmingSettings settings{GetParam().radio, 77, -5};
    const auto command = settings.ModeAndValue();
    ASSERT_TRUE(command);
    EXPECT_EQ(command->mode, GetParam().mode);
    EXPECT_EQ(command->value, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Radios, DimmingModeSent,
                         testing::Values(ModeSent{"ManualSendsTheLevel", 0, 5, 77},
                                         ModeSent{"PhotocellSendsTheOffset", 1, 2, -5},
                                         ModeSent{"RemotePhotocellSendsNothingElse", 2, 3, 0},
                                         ModeSent{"ScheduledSendsNothingElse", 3, 4, 0},
                                         ModeSent{"NoneOnSendsModeZero", -1, 0, 0},
                                         ModeSent{"ALastOneWithinTheModes", 4, 0, 0}),
                         [](const auto& row) { return row.param.what; });

TEST(DimmingSettings, AModeOutsideOfZeroToFiveIsNotSent) {
    for (const int radio : {-2, 5, 6, -100, kLeast, kMost})
        EXPECT_FALSE((DimmingSettings{radio, 1, 1}.ModeAndValue())) << radio;
}

TEST(DimmingSettings, BeginWithoutAWayAndWithSlidersAtNought) {
    const DimmingSettings settings;
    EXPECT_EQ(settings.radio, -1);
    EXPECT_EQ(settings.level, 0);
    EXPECT_EQ(settings.offset, 0);
}

TEST(DimmingSettings, ASignInModeOneIsSentBackInModeFive) {
    const auto command = DimmingSettings::FromSign(K4_SIGN_DIM_MANUAL_1, 120, 0).ModeAndValue();
    EXPECT_EQ(command, (DimmingSettings::Command{K4_SIGN_DIM_MANUAL, 120}));
}

TEST(DimmingSettings, TheUnusedSliderKeepsItsPositionForALaterSwitch) {
    DimmingSettings settings = DimmingSettings::FromSign(K4_SIGN_DIM_PHOTOCELL, 200, -64);
    EXPECT_EQ(settings.ModeAndValue(), (DimmingSettings::Command{K4_SIGN_DIM_PHOTOCELL, -64}));
    settings.radio = DimmingSettings::kManual;
    EXPECT_EQ(settings.ModeAndValue(), (DimmingSettings::Command{K4_SIGN_DIM_MANUAL, 200}));
}

}  // namespace
}  // namespace k4test
