#include "apps/preview/PlayClock.h"

#include <gtest/gtest.h>

#include "tests/support/DrivenClock.h"

namespace {

using preview::PlayClock;
using std::chrono::microseconds;
using std::chrono::milliseconds;

class PlayClockTest : public testing::Test {
 protected:
    double Milliseconds() { return static_cast<double>(play.Position().count()) / 1000; }

    k4test::DrivenClock time;
    k4cmn::ScopedProvider<k4cmn::Clock> useTime{time};
    PlayClock play;
};

TEST_F(PlayClockTest, StandsAtTheBeginning) {
    time.Advance(milliseconds(500));
    EXPECT_FALSE(play.IsRunning());
    EXPECT_EQ(Milliseconds(), 0);
}

TEST_F(PlayClockTest, RunsWithTheTime) {
    play.Run();
    time.Advance(milliseconds(500));
    EXPECT_EQ(Milliseconds(), 500);
    play.Run();  // it does already
    time.Advance(milliseconds(1));
    EXPECT_EQ(Milliseconds(), 501);
}

TEST_F(PlayClockTest, StandingKeepsThePosition) {
    play.Run();
    time.Advance(milliseconds(500));
    play.Stand();
    time.Advance(milliseconds(500));
    EXPECT_EQ(Milliseconds(), 500);
    play.Run();
    time.Advance(milliseconds(10));
    EXPECT_EQ(Milliseconds(), 510);
}

TEST_F(PlayClockTest, EachSpeed) {
    const double factors[] = {0.25, 0.5, 1, 2, 4, 8};
    for (std::size_t speed = 0; speed < std::size(factors); ++speed) {
        play.SetPosition(microseconds(0));
        play.SetSpeed(speed);
        play.Run();
        time.Advance(milliseconds(1001));
        EXPECT_EQ(Milliseconds(), 1001 * factors[speed]) << speed;
    }
}

TEST_F(PlayClockTest, NothingIsLostByLookingOften) {
    play.SetSpeed(0);
    play.Run();
    for (int i = 0; i < 1001; ++i) {
        time.Advance(milliseconds(1));
        play.Position();
    }
    EXPECT_EQ(Milliseconds(), 250.25);
}

TEST_F(PlayClockTest, ANewSpeedCountsFromNowOn) {
    play.Run();
    time.Advance(milliseconds(100));
    play.SetSpeed(5);
    time.Advance(milliseconds(100));
    EXPECT_EQ(Milliseconds(), 900);
}

TEST_F(PlayClockTest, ASpeedBeyondTheEndIsTheLastOne) {
    play.SetSpeed(100);
    EXPECT_EQ(play.Speed(), 5u);
}

TEST_F(PlayClockTest, SetPositionGoesOnFromThere) {
    play.Run();
    time.Advance(milliseconds(100));
    play.SetPosition(milliseconds(20));
    time.Advance(milliseconds(5));
    EXPECT_EQ(Milliseconds(), 25);
}

TEST_F(PlayClockTest, AClockThatIsSetBackDoesNotTakeItBack) {
    play.Run();
    time.Advance(milliseconds(100));
    EXPECT_EQ(Milliseconds(), 100);
    time.Advance(-std::chrono::hours(1));
    EXPECT_EQ(Milliseconds(), 100);
    time.Advance(milliseconds(10));
    EXPECT_EQ(Milliseconds(), 110);
}

TEST_F(PlayClockTest, TheTimeUntilAPosition) {
    play.Run();
    EXPECT_EQ(play.Until(milliseconds(100)), milliseconds(100));
    play.SetSpeed(0);
    EXPECT_EQ(play.Until(milliseconds(100)), milliseconds(400));
    play.SetSpeed(5);
    EXPECT_EQ(play.Until(milliseconds(100)), milliseconds(13));  // not too early
    play.SetPosition(milliseconds(100));
    EXPECT_EQ(play.Until(milliseconds(100)), milliseconds(0));
    EXPECT_EQ(play.Until(milliseconds(50)), milliseconds(0));
}

}  // namespace
