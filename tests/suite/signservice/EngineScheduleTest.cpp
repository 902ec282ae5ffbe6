#include "tests/suite/signservice/EngineScheduleFixture.h"

// Schedules while they run.

namespace {

using k4test::EngineRig;
using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;

class EngineScheduleRun : public k4test::EngineScheduleFixture {
 protected:
    /// Moves to a time of the first day, or of a later one.
    void At(hours hour, minutes minute = minutes(0), int daysLater = 0) {
        rig.clock.Set(Friday() + hour + minute + hours(24 * daysLater));
    }
};

constexpr char kDay[] =
    "at 09:00 play show.SQ4\n"
    "at 12:00 sat,sun play film.SQ4\n"
    "at 18:00 dim manual 96\n"
    "at 20:00 default\n"
    "at 23:00 blank\n"
    "at 08:30 dim photocell 5\n";

TEST_F(EngineScheduleRun, EntriesAreCarriedOutAtTheirTimes) {
    ASSERT_EQ(Run(kDay), 0);
    EXPECT_EQ(Where(), "Blank pattern 1") << "since last night";
    EXPECT_EQ(Dimmed(), "5 96 0");
    At(hours(8), minutes(30));
    EXPECT_EQ(Dimmed(), "2 96 5");
    rig.clock.Set(Friday() + hours(9) - milliseconds(1));
    EXPECT_EQ(rig.Status().state, "Blank");
    At(hours(9));
    EXPECT_EQ(Where(), "Playing show 1");
    At(hours(12));
    EXPECT_EQ(Where(), "Playing show 1") << "it is Friday";
    At(hours(18));
    EXPECT_EQ(Dimmed(), "5 96 5");
    At(hours(20));
    EXPECT_EQ(Where(), "Playing pattern 1");
    EXPECT_EQ(rig.DefaultFlag(), 1U);
    At(hours(23));
    EXPECT_EQ(rig.Status().state, "Blank");
    At(hours(9), minutes(0), 1);
    EXPECT_EQ(Where(), "Playing show 1");
    At(hours(12), minutes(0), 1);
    EXPECT_EQ(Where(), "Playing film 1") << "it is Saturday";
    At(hours(12), minutes(0), 3);
    EXPECT_EQ(Where(), "Playing show 1") << "it is Monday";
}

TEST_F(EngineScheduleRun, ASequenceBeginsAtItsEntrysTimeWheneverSomebodyLooks) {
    ASSERT_EQ(Run(kDay), 0);
    rig.clock.Set(Friday() + hours(9) + milliseconds(1234));
    EXPECT_EQ(Where(), "Playing show 13");
}

TEST_F(EngineScheduleRun, EntriesOfOneTimeGoInTheOrderOfTheFile) {
    ASSERT_EQ(Run("at 10:00 dim manual 1\nat 10:00 blank\nat 10:00 dim manual 2\n"
                  "at 10:00 play show.SQ4\n"),
              0);
    At(hours(10));
    EXPECT_EQ(Where(), "Playing show 1");
    EXPECT_EQ(Dimmed(), "5 2 0");
    ASSERT_EQ(Run("at 11:00 play show.SQ4\nat 11:00 blank\n"), 0);
    At(hours(11));
    EXPECT_EQ(Where(), "Blank show 1");
}

TEST_F(EngineScheduleRun, CommandsByHandHoldUntilTheNextEntry) {
    ASSERT_EQ(Run("at 09:00 play show.SQ4\nat 09:30 dim manual 3\nat 10:00 blank\n"), 0);
    At(hours(9));
    ASSERT_EQ(rig.Play("S:\\film.SQ4", K4_PLAY_SEQ_CONTINUOUS), 0);
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 200), 0);
    rig.clock.Set(Friday() + hours(9) + minutes(29));
    EXPECT_EQ(rig.Status().sequence, "S:\\film.SQ4");
    EXPECT_EQ(Dimmed(), "5 200 0");
    At(hours(9), minutes(30));
    EXPECT_EQ(rig.Status().sequence, "S:\\film.SQ4");
    EXPECT_EQ(Dimmed(), "5 3 0");
    At(hours(10));
    EXPECT_EQ(rig.Status().state, "Blank");
    ASSERT_EQ(rig.rpc->k4ssSelectFrame("Main", 2), 0);
    At(hours(9), minutes(0), 1);
    EXPECT_EQ(Where(), "Playing show 1");
}

TEST_F(EngineScheduleRun, AnEntryThatCantBePlayedKeepsWhatShows) {
    MakeOf("gone.SQ4", {1});
    ASSERT_EQ(Run("at 09:00 play show.SQ4\nat 10:00 play gone.SQ4\nat 10:30 play missing.SQ4\n"
                  "at 11:00 play show.SQ4 sel-frame 41\n"),
              0);
    std::filesystem::remove(rig.store.Path() / "gone.SQ4");
    At(hours(9));
    ASSERT_EQ(Where(), "Playing show 1");
    const std::vector<std::uint8_t> bulbs = rig.Bulbs();
    At(hours(11), minutes(30));
    EXPECT_EQ(Where(), "Playing show 1");
    EXPECT_EQ(rig.Bulbs(), bulbs);
}

TEST_F(EngineScheduleRun, AStopHoldsTheFrame) {
    ASSERT_EQ(Run("at 09:00 play show.SQ4\nat 09:00:02 stop\n"), 0);
    At(hours(9), minutes(1));
    EXPECT_EQ(Where(), "Stopped show 21");
}

TEST_F(EngineScheduleRun, NextGoesOnToTheQueuesNextItem) {
    ASSERT_EQ(Run("at 09:00 next\nat 10:00 next\n"), 0);
    ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", "S:\\show.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    EXPECT_EQ(Where(), "Playing pattern 1");
    At(hours(9));
    EXPECT_EQ(Where(), "Playing show 1");
    EXPECT_EQ(rig.Queue(), "");
    At(hours(10), minutes(30));
    EXPECT_EQ(Where(), "Playing show 1") << "the queue is empty";
}

TEST_F(EngineScheduleRun, SequencesThatEndGoOnWithQueueAndDefaultAsEver) {
    ASSERT_EQ(Run("at 09:00 play show.SQ4 num-times 2\n"), 0);
    At(hours(8), minutes(30));
    ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", "S:\\film.SQ4", K4_PLAY_SEQ_PLAY_NEXT, 0), 0);
    rig.clock.Set(Friday() + hours(9) + seconds(9));
    EXPECT_EQ(Where(), "Playing film 11");
    rig.clock.Set(Friday() + hours(9) + seconds(13));
    EXPECT_EQ(Where(), "Playing pattern 11");
}

TEST_F(EngineScheduleRun, ADefaultThatPlaysGoesOn) {
    ASSERT_EQ(Run("at 09:00 default\n"), 0);
    rig.clock.Set(Friday() + hours(9) - milliseconds(500));
    EXPECT_EQ(Where(), "Playing pattern 36");
    rig.clock.Set(Friday() + hours(9) + milliseconds(500));
    EXPECT_EQ(Where(), "Playing pattern 6");
    EXPECT_EQ(rig.DefaultFlag(), 1U);
}

TEST_F(EngineScheduleRun, EndingItKeepsWhatShows) {
    ASSERT_EQ(Run("at 07:00 play show.SQ4\nat 07:00 dim manual 9\nat 09:00 blank\n"), 0);
    ASSERT_EQ(rig.rpc->k4ssEndSchedule("Main"), 0);
    At(hours(10));
    EXPECT_EQ(Where(), "Playing show 1");
    EXPECT_EQ(Dimmed(), "5 9 0");
    EXPECT_EQ(Running(), "");
}

TEST_F(EngineScheduleRun, TheChangeFlagMovesWithEntriesAndTheSchedulesDoesnt) {
    ASSERT_EQ(Run("at 07:00 blank\nat 09:00 dim manual 9\nat 10:00 dim manual 9\nat 11:00 dim "
                  "manual 5\n"),
              0);
    const std::uint32_t scheduleFlag = rig.ScheduleFlag();
    const std::uint32_t first = rig.ChangeFlag();
    At(hours(9));
    const std::uint32_t second = rig.ChangeFlag();
    EXPECT_NE(second, first);
    At(hours(10));
    EXPECT_EQ(rig.ChangeFlag(), second) << "the level was the same";
    EXPECT_EQ(rig.ScheduleFlag(), scheduleFlag);
    ASSERT_EQ(rig.rpc->k4ssEndSchedule("Main"), 0);
    EXPECT_NE(rig.ScheduleFlag(), scheduleFlag);
}

TEST_F(EngineScheduleRun, AChangeOfTheFileCountsWhenItIsStartedAgain) {
    ASSERT_EQ(Run("at 09:00 blank\n"), 0);
    rig.store.Write("test.SD4", "K4 schedule 1\nat 09:00 play show.SQ4\n");
    At(hours(9));
    EXPECT_EQ(rig.Status().state, "Blank");
    std::filesystem::remove(rig.store.Path() / "test.SD4");
    At(hours(9), minutes(0), 1);
    EXPECT_EQ(rig.Status().state, "Blank");
    EXPECT_EQ(Running(), "S:\\test.SD4");
}

constexpr char kBusy[] =
    "at 06:00 play show.SQ4 num-times 3\n"
    "at 06:00 mon-fri dim manual 200\n"
    "at 09:17:13 next\n"
    "at 12:00 tue play film.SQ4 play-stop\n"
    "at 12:30 stop\n"
    "at 15:00 play missing.SQ4\n"
    "at 18:00 sat default\n"
    "at 18:00 play film.SQ4\n"
    "at 22:00 dim photocell -10\n"
    "at 23:59:59 sun blank\n";

TEST_F(EngineScheduleRun, DaysThatNobodyWatchedAreCaughtUpAsIfSomebodyHad) {
    EngineRig slept;
    for (EngineRig* one : {&rig, &slept}) {
        ASSERT_EQ(Run(*one, kBusy), 0);
        for (int item = 0; item < 5; ++item)
            ASSERT_EQ(one->rpc->k4ssQueueSequence("Main", "S:\\film.SQ4", K4_PLAY_SEQ_NUM_TIMES, 2),
                      0);
    }
    const auto compare = [&] {
        ASSERT_EQ(Where(slept), Where(rig));
        ASSERT_EQ(Dimmed(slept), Dimmed(rig));
        ASSERT_EQ(slept.Queue(), rig.Queue());
        ASSERT_EQ(slept.DefaultFlag(), rig.DefaultFlag());
    };
    // The one that sleeps looks once in 1 to 7 days.
    for (int round = 1; round <= 7; ++round) {
        const seconds gap = hours(24) * round + seconds(4001) * round;
        for (seconds watched(0); watched < gap; watched += seconds(607)) {
            rig.clock.Advance(std::min(seconds(607), gap - watched));
            rig.Status();
        }
        slept.clock.Advance(gap);
        compare();
    }
}

TEST_F(EngineScheduleRun, AfterALongTimeItIsTakenUpAnew) {
    ASSERT_EQ(Run(kBusy), 0);
    ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", "S:\\film.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    rig.clock.Set(Friday() + hours(24 * 365) + hours(7));
    EXPECT_EQ(rig.Status().sequence, "Test Pattern.SQ4") << "Saturday, what began at six is over";
    EXPECT_EQ(Dimmed(), "2 200 -10");
    EXPECT_EQ(rig.Queue(), "") << "the items of these days have been asked for";
    rig.clock.Set(Friday() + hours(24 * 365) + hours(18));
    EXPECT_EQ(Where(), "Playing film 1") << "the second entry of that time";
}

TEST_F(EngineScheduleRun, AClockThatIsSetBackALittleCarriesOutNothingTwice) {
    ASSERT_EQ(Run("at 09:00 play show.SQ4\nat 10:00 blank\n"), 0);
    At(hours(10));
    ASSERT_EQ(rig.Status().state, "Blank");
    ASSERT_EQ(rig.Play("S:\\film.SQ4", K4_PLAY_SEQ_CONTINUOUS), 0);
    At(hours(8), minutes(30));
    EXPECT_EQ(rig.Status().sequence, "S:\\film.SQ4");
    At(hours(9), minutes(30));
    EXPECT_EQ(rig.Status().sequence, "S:\\film.SQ4") << "nine o'clock has been";
    At(hours(10), minutes(30));
    EXPECT_EQ(rig.Status().sequence, "S:\\film.SQ4") << "so has ten";
    At(hours(9), minutes(0), 1);
    EXPECT_EQ(Where(), "Playing show 1");
}

TEST_F(EngineScheduleRun, AClockThatIsSetBackFarTakesItUpAnew) {
    ASSERT_EQ(Run("at 09:00 play show.SQ4\nat 14:00 blank\nat 14:00 dim manual 7\n"), 0);
    At(hours(14));
    ASSERT_EQ(rig.Status().state, "Blank");
    At(hours(10), minutes(59));
    EXPECT_EQ(Where(), "Playing show 1");
    EXPECT_EQ(Dimmed(), "5 7 0") << "that of yesterday";
    At(hours(14), minutes(1));
    EXPECT_EQ(rig.Status().state, "Blank");
}

TEST_F(EngineScheduleRun, AClockThatWasFarAheadAndIsSetRightTakesItUpAnew) {
    ASSERT_EQ(Run("at 07:00 play show.SQ4\nat 14:00 blank\n"), 0);
    rig.clock.Set(Friday() + hours(24 * 400) + hours(15));
    ASSERT_EQ(rig.Status().state, "Blank");
    At(hours(8));
    EXPECT_EQ(Where(), "Playing show 1");
    At(hours(14));
    EXPECT_EQ(rig.Status().state, "Blank");
}

TEST_F(EngineScheduleRun, ManyEntriesThatCantBePlayedAreTriedInShortTime) {
    std::string lines = "at 00:00:00 play show.SQ4\n";
    for (int entry = 0; entry < 1500; ++entry)
        lines += "at 07:00 play missing" + std::to_string(entry) + ".SQ4\n";
    ASSERT_EQ(Run(lines), 0);
    EXPECT_EQ(Where(), "Playing show 1");
    At(hours(9), minutes(0), 7);
    EXPECT_EQ(Where(), "Playing show 1");
}

TEST_F(EngineScheduleRun, AClockThatIsSetForwardCarriesOutWhatLiesBetween) {
    ASSERT_EQ(Run("at 09:00 play show.SQ4\nat 14:00 dim manual 7\n"), 0);
    At(hours(20));
    EXPECT_EQ(Where(), "Playing show 1");
    EXPECT_EQ(Dimmed(), "5 7 0");
}

// Clocks there are set forward at two on 28 March 2027, and back at three on 31 October.
TEST_F(EngineScheduleRun, EntriesGoByTheClocksOnTheWall) {
    const k4test::TimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    ASSERT_EQ(Run("at 01:00 blank\nat 02:30 play show.SQ4\nat 12:00 play film.SQ4\n"), 0);
    const Instant spring(hours(24) * 20'905);  // 00:00 UTC on that Sunday
    rig.clock.Set(spring);
    EXPECT_EQ(rig.Status().state, "Blank") << "it is one o'clock";
    rig.clock.Set(spring + hours(1) - milliseconds(1));
    EXPECT_EQ(rig.Status().state, "Blank");
    rig.clock.Set(spring + hours(1));
    EXPECT_EQ(Where(), "Playing show 1") << "clocks pass over half past two";
    rig.clock.Set(spring + hours(10));
    EXPECT_EQ(Where(), "Playing film 1") << "noon of summer";
    const Instant autumn(hours(24) * 21'122);
    rig.clock.Set(autumn + minutes(30));
    EXPECT_EQ(Where(), "Playing show 1");
    ASSERT_EQ(rig.rpc->k4ssBlankSign("Main"), 0);
    rig.clock.Set(autumn + minutes(90));
    EXPECT_EQ(rig.Status().state, "Blank") << "half past two once more";
    rig.clock.Set(autumn + hours(11));
    EXPECT_EQ(Where(), "Playing film 1") << "noon of winter";
}

}  // namespace
