#include "apps/preview/TimeLine.h"

#include <gtest/gtest.h>

namespace {

using preview::milliseconds;
using preview::Moment;
using preview::MomentKind;
using preview::TimeLine;

TimeLine LineOf(const std::vector<int>& dwells) {
    TimeLine line;
    for (const int dwell : dwells) {
        Moment moment;
        moment.dwell = milliseconds(dwell);
        moment.kind = dwell == 0 ? MomentKind::Include : MomentKind::Frame;
        line.Append(moment);
    }
    return line;
}

TEST(TimeLine, EmptyOneTakesNoTime) {
    const TimeLine line;
    EXPECT_TRUE(line.IsEmpty());
    EXPECT_EQ(line.Duration(), milliseconds(0));
    EXPECT_EQ(line.ProblemCount(), 0u);
}

TEST(TimeLine, MomentsFollowOneAnother) {
    const TimeLine line = LineOf({100, 50, 1});
    EXPECT_EQ(line.At(0).start, milliseconds(0));
    EXPECT_EQ(line.At(1).start, milliseconds(100));
    EXPECT_EQ(line.At(2).start, milliseconds(150));
    EXPECT_EQ(line.Duration(), milliseconds(151));
}

TEST(TimeLine, TheMomentOfATime) {
    const TimeLine line = LineOf({100, 0, 50, 0, 0, 1, 0});
    const struct {
        int time;
        std::size_t index;
    } rows[] = {{-1, 0}, {0, 0}, {99, 0}, {100, 2}, {149, 2}, {150, 5}, {151, 5}, {1000, 5}};
    for (const auto& row : rows)
        EXPECT_EQ(line.IndexAt(milliseconds(row.time)), row.index) << row.time;
}

TEST(TimeLine, WithoutTimeTheFirstMomentIsSeen) {
    EXPECT_EQ(LineOf({0, 0}).IndexAt(milliseconds(0)), 0u);
    EXPECT_EQ(LineOf({0, 0}).IndexAt(milliseconds(5)), 0u);
}

TEST(TimeLine, LongestDwellsDontOverflow) {
    TimeLine line;
    Moment moment;
    moment.dwell = milliseconds(4294967295);
    for (int i = 0; i < 1000; ++i)
        line.Append(moment);
    EXPECT_EQ(line.Duration(), milliseconds(4294967295000));
    EXPECT_EQ(line.IndexAt(milliseconds(4294967294999)), 999u);
}

TEST(TimeLine, ProblemsAreCounted) {
    const TimeLine line = LineOf({100, 0, 50, 0});
    EXPECT_EQ(line.ProblemCount(), 2u);
    EXPECT_EQ(line.FirstProblem(), 1u);
}

}  // namespace
