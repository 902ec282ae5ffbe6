#include "k4cmndlg/frame/SpinSteps.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

using k4cmn::SpinAccel;
using k4cmn::SpinStep;
using k4cmn::SpinTarget;

TEST(SpinStep, GrowsWithTheTimeHeld) {
    const std::vector<SpinAccel> speeds{{0, 2}, {2, 8}, {4, 16}};
    EXPECT_EQ(SpinStep(speeds, 0), 2);
    EXPECT_EQ(SpinStep(speeds, 1999), 2);
    EXPECT_EQ(SpinStep(speeds, 2000), 8);
    EXPECT_EQ(SpinStep(speeds, 3999), 8);
    EXPECT_EQ(SpinStep(speeds, 4000), 16);
    EXPECT_EQ(SpinStep(speeds, LLONG_MAX), 16);
}

TEST(SpinStep, IsOneWithoutSpeedsAndBeforeTheFirst) {
    EXPECT_EQ(SpinStep({}, 5000), 1);
    const std::vector<SpinAccel> late{{3, 10}};
    EXPECT_EQ(SpinStep(late, 2999), 1);
    EXPECT_EQ(SpinStep(late, 3000), 10);
}

TEST(SpinStep, ClockSetBackCountsAsNoTime) {
    const std::vector<SpinAccel> speeds{{0, 2}, {2, 8}};
    EXPECT_EQ(SpinStep(speeds, -1), 2);
    EXPECT_EQ(SpinStep(speeds, -1'000'000), 2);
}

TEST(SpinTarget, StaysInsideTheBounds) {
    EXPECT_EQ(SpinTarget(5, 1, 1, 10), 6);
    EXPECT_EQ(SpinTarget(10, 1, 1, 10), 10);
    EXPECT_EQ(SpinTarget(1, -8, -7, 10), -7);
    EXPECT_EQ(SpinTarget(500, -1, 1, 10), 10);
    EXPECT_EQ(SpinTarget(-500, 1, 1, 10), 1);
}

TEST(SpinTarget, DoesNotRunOverTheEndsOfANumber) {
    EXPECT_EQ(SpinTarget(INT_MAX, INT_MAX, INT_MIN, INT_MAX), INT_MAX);
    EXPECT_EQ(SpinTarget(INT_MIN, INT_MIN, INT_MIN, INT_MAX), INT_MIN);
}

TEST(SpinTarget, LowerBoundCountsWhereTheBoundsCross) {
    EXPECT_EQ(SpinTarget(5, 1, 10, 1), 10);
}
