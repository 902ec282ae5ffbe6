#include "suite/signservice/Dimming.h"

#include <gtest/gtest.h>

#include "suite/signservice/TimeOfDay.h"

namespace {

using namespace k4suite;

TEST(Dimming, EachModeTakesTheValueThatGoesWithIt) {
    struct Row {
        std::int32_t mode, value;
        std::int32_t level, offset;
    };
    // One after the other on one sign: the other value stays.
    constexpr Row rows[] = {
        {5, 100, 100, 0}, {5, 300, 255, 0},  {5, -1, 0, 0},   {5, 80, 80, 0},   {2, 10, 80, 10},
        {2, 65, 80, 64},  {2, -65, 80, -64}, {2, 20, 80, 20}, {3, 300, 80, 20}, {4, -7, 80, 20},
        {0, 9, 80, 20},   {1, 9, 80, 20},    {5, 81, 81, 20},
    };
    Dimming dimming;
    for (const Row& row : rows) {
        ASSERT_TRUE(dimming.Set(static_cast<tag_K4_SIGN_DIM_MODE>(row.mode), row.value));
        EXPECT_EQ(dimming.Mode(), row.mode);
        EXPECT_EQ(dimming.Level(), row.level) << row.mode << " " << row.value;
        EXPECT_EQ(dimming.Offset(), row.offset) << row.mode << " " << row.value;
    }
}

TEST(Dimming, OtherModesAreRefused) {
    Dimming dimming;
    const Dimming before = dimming;
    for (const std::int32_t mode : {-1, 6, 1000, -2147483647 - 1, 2147483647})
        EXPECT_FALSE(dimming.Set(static_cast<tag_K4_SIGN_DIM_MODE>(mode), 1)) << mode;
    EXPECT_EQ(dimming, before);
}

TEST(Dimming, TheLevelThatHoldsFollowsTheMode) {
    struct Row {
        std::int32_t mode, value;
        int level;
    };
    const Dimming::Surroundings surroundings{100, 150, 48};
    constexpr Row rows[] = {
        {5, 7, 7},    {0, 99, 7},   {1, 99, 7},  {2, 0, 100},
        {2, 64, 164}, {2, -64, 36}, {3, 0, 150}, {4, 0, 48},
    };
    Dimming dimming;
    for (const Row& row : rows) {
        dimming.Set(static_cast<tag_K4_SIGN_DIM_MODE>(row.mode), row.value);
        EXPECT_EQ(dimming.LevelNow(surroundings), row.level) << row.mode << " " << row.value;
    }
    dimming.Set(K4_SIGN_DIM_PHOTOCELL, 64);
    EXPECT_EQ(dimming.LevelNow({255, 0, 0}), 255);
    dimming.Set(K4_SIGN_DIM_PHOTOCELL, -64);
    EXPECT_EQ(dimming.LevelNow({6, 0, 0}), 0);
}

TEST(Dimming, TheDarkestLevelCanStillBeSeen) {
    EXPECT_EQ(BrightnessOfLevel(255), 255);
    EXPECT_EQ(BrightnessOfLevel(0), 16);
    for (int level = 1; level < 256; ++level)
        EXPECT_GE(BrightnessOfLevel(static_cast<std::uint8_t>(level)),
                  BrightnessOfLevel(static_cast<std::uint8_t>(level - 1)));
}

TEST(TimeOfDay, LightRisesInTheMorningAndFallsInTheEvening) {
    constexpr std::uint32_t hour = 60;
    for (std::uint32_t minute = 1; minute < kMinutesOfDay; ++minute) {
        const int before = Daylight(minute - 1, 20);
        const int now = Daylight(minute, 20);
        if (minute <= 12 * hour) {
            EXPECT_GE(now, before) << minute;
        } else {
            EXPECT_LE(now, before) << minute;
        }
    }
    EXPECT_EQ(Daylight(0, 20), 6);
    EXPECT_EQ(Daylight(12 * hour, 20), 230);
    EXPECT_EQ(Daylight(12 * hour, 0), 250);
}

TEST(TimeOfDay, ScheduledLevelsAreNightDuskAndDay) {
    struct Row {
        std::uint32_t hour;
        int level;
    };
    constexpr Row rows[] = {{0, 48},   {5, 48},   {6, 128},  {7, 128}, {8, 255},
                            {17, 255}, {18, 128}, {21, 128}, {22, 48}, {23, 48}};
    for (const Row& row : rows) {
        EXPECT_EQ(ScheduledLevel(row.hour * 60), row.level) << row.hour;
        EXPECT_EQ(ScheduledLevel(row.hour * 60 + 59), row.level) << row.hour;
    }
}

}  // namespace
