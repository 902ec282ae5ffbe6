#include "apps/preview/PlayerWords.h"

#include <gtest/gtest.h>

#include "apps/preview/PlayClock.h"
#include "apps/preview/ZoomSteps.h"

namespace {

using namespace preview;

TEST(PlayerWords, Times) {
    const struct {
        long long time;
        const char* text;
    } rows[] = {{0, "0:00.00"},
                {9, "0:00.00"},
                {10, "0:00.01"},
                {59'999, "0:59.99"},
                {60'000, "1:00.00"},
                {3'599'999, "59:59.99"},
                {3'600'000, "1:00:00.00"},
                {4'294'967'295'000, "1193046:28:15.00"}};
    for (const auto& row : rows)
        EXPECT_EQ(TimeText(milliseconds(row.time)), row.text);
}

TEST(PlayerWords, Seconds) {
    const struct {
        long long time;
        const char* text;
    } rows[] = {{1, "0.001 s"}, {250, "0.25 s"}, {1000, "1 s"}, {10'000, "10 s"}, {1500, "1.5 s"}};
    for (const auto& row : rows)
        EXPECT_EQ(SecondsText(milliseconds(row.time)), row.text);
}

TEST(PlayerWords, Places) {
    EXPECT_EQ(PlaceText(0, 0, true), "No frame");
    EXPECT_EQ(PlaceText(1, 60, true), "Frame 2 of 60");
    EXPECT_EQ(PlaceText(1, 60, false), "Frame 2 of 60 and more");
}

TEST(PlayerWords, Moments) {
    TimeLine line;
    EXPECT_EQ(MomentText(line, 0), "");
    line.AddFile({});
    line.AddFile({"A:\\Sub\\Small.SQ4", 0, 0, 0, 0, "", false});
    Moment moment;
    moment.dwell = milliseconds(250);
    line.Append(moment);
    moment.file = 1;
    moment.frame = 3;
    line.Append(moment);
    moment.dwell = milliseconds(0);
    line.Append(moment);
    EXPECT_EQ(MomentText(line, 0), "0.25 s");
    EXPECT_EQ(MomentText(line, 1), "0.25 s, frame 3 of Small.SQ4");
    EXPECT_EQ(MomentText(line, 2), "takes no time, frame 3 of Small.SQ4");
}

TEST(PlayerWords, Facts) {
    EXPECT_EQ(FactsText({"", 64, 192, 11, 3, "", false}), "64 x 192   RGB16M, LED");
    EXPECT_EQ(FactsText({"", 7, 16, 15, 4, "", true}),
              "7 x 16   color 15, pixel 4   Preview Only Sequence");
}

TEST(PlayerWords, Speeds) {
    const char* const texts[] = {"0.25x", "0.5x", "1x", "2x", "4x", "8x"};
    for (std::size_t speed = 0; speed < kSpeeds.size(); ++speed)
        EXPECT_EQ(SpeedText(speed), texts[speed]);
    EXPECT_EQ(SpeedText(kOwnSpeed), "1x");
}

TEST(PlayerWords, Names) {
    EXPECT_EQ(NameOf("A:\\Sub\\Goal.SQ4"), "Goal.SQ4");
    EXPECT_EQ(NameOf("/home/me/Goal.SQ4"), "Goal.SQ4");
    EXPECT_EQ(NameOf(""), "");
}

TEST(ZoomSteps, FromEachToItsNeighbours) {
    const struct {
        int zoom, smaller, larger;
    } rows[] = {{1, 1, 2}, {2, 1, 4}, {4, 2, 8}, {8, 4, 16}, {16, 8, 32}, {32, 16, 32}};
    for (const auto& row : rows) {
        EXPECT_EQ(SmallerZoom(row.zoom, 5), row.smaller) << row.zoom;
        EXPECT_EQ(LargerZoom(row.zoom, 5), row.larger) << row.zoom;
    }
}

TEST(ZoomSteps, FromFitTheSizeThatIsDrawnCounts) {
    const struct {
        double size;
        int smaller, larger;
    } rows[] = {{0.5, kFit, 1}, {1, kFit, 2}, {5, 4, 8}, {8, 4, 16}, {100, 32, kFit}};
    for (const auto& row : rows) {
        EXPECT_EQ(SmallerZoom(kFit, row.size), row.smaller) << row.size;
        EXPECT_EQ(LargerZoom(kFit, row.size), row.larger) << row.size;
    }
}

}  // namespace
