#include <ostream>

#include "tests/suite/signservice/EngineScheduleFixture.h"

// What starting a schedule does at once.

namespace {

using EngineScheduleStart = k4test::EngineScheduleFixture;

TEST_F(EngineScheduleStart, ABadLineRefusesItAndNothingChanges) {
    ASSERT_EQ(Run("at 06:00 play show.SQ4\n"), 0);
    ASSERT_EQ(rig.rpc->k4ssStopSequence("Main"), 0);
    const std::uint32_t scheduleFlag = rig.ScheduleFlag();
    const std::uint32_t flag = rig.ChangeFlag();
    const std::string where = Where();
    for (const char* lines :
         {"at 06:00 play film.SQ4\nat 07:00 explode\n", "at 25:00 blank\n", "blank\n",
          "at 06:00 dim manual 300\nat 06:00 blank\n", "\xFF", "at 06:00 play film.AVI\n"}) {
        rig.store.Write("bad.SD4", std::string("K4 schedule 1\n") + lines);
        EXPECT_NE(rig.rpc->k4ssRunSchedule("Main", "S:\\bad.SD4", 0), 0) << lines;
    }
    rig.store.Write("bad.SD4", "at 06:00 play film.SQ4\n");
    EXPECT_NE(rig.rpc->k4ssRunSchedule("Main", "S:\\bad.SD4", 0), 0) << "without the mark";
    EXPECT_EQ(Where(), where);
    EXPECT_EQ(Running(), "S:\\test.SD4");
    EXPECT_EQ(rig.ChangeFlag(), flag);
    EXPECT_EQ(rig.ScheduleFlag(), scheduleFlag);
}

struct ForceRow {
    const char* what;
    const char* lines;
    const char* where;   ///< at Friday, 08:00
    const char* dimmed;  ///< mode, level, offset
};

void PrintTo(const ForceRow& row, std::ostream* out) {
    *out << row.what;
}

class EngineInForce : public EngineScheduleStart, public testing::WithParamInterface<ForceRow> {};

// show and film have 40 frames of 100 ms; before the schedule the default, the pattern, plays since
// 08:00.
TEST_P(EngineInForce, IsWhatHoldsAtOnce) {
    ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", "S:\\film.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    const std::string queue = rig.Queue();
    const std::uint32_t flag = rig.ChangeFlag();
    const std::uint32_t scheduleFlag = rig.ScheduleFlag();
    ASSERT_EQ(Run(GetParam().lines), 0);
    EXPECT_EQ(Where(), GetParam().where);
    EXPECT_EQ(Dimmed(), GetParam().dimmed);
    EXPECT_EQ(rig.Queue(), queue) << "the queue is left alone";
    EXPECT_NE(rig.ChangeFlag(), flag);
    EXPECT_NE(rig.ScheduleFlag(), scheduleFlag);
    // What was in force at once isn't carried out once more.
    rig.rpc->k4ssBlankSign("Main");
    rig.clock.Advance(std::chrono::milliseconds(999));
    EXPECT_EQ(rig.Status().state, "Blank");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EngineInForce,
    testing::Values(
        ForceRow{"Nothing", "", "Playing pattern 1", "5 255 0"},
        ForceRow{"TheLastPlay", "at 07:00 play film.SQ4\nat 07:59:57 play show.SQ4\n",
                 "Playing show 31", "5 255 0"},
        ForceRow{"TheLastByTimeNotByLine", "at 07:59:57 play show.SQ4\nat 07:00 play film.SQ4\n",
                 "Playing show 31", "5 255 0"},
        ForceRow{"TheLastOfOneTimeByLine", "at 07:00 play film.SQ4\nat 07:00 play show.SQ4\n",
                 "Playing show 1", "5 255 0"},
        ForceRow{"ThisVeryMoment", "at 08:00 play show.SQ4\n", "Playing show 1", "5 255 0"},
        ForceRow{"NotTheNextMoment", "at 08:00:01 fri play show.SQ4\nat 07:00 thu blank\n",
                 "Blank pattern 1", "5 255 0"},
        ForceRow{"OfYesterday", "at 20:00 play show.SQ4\n", "Playing show 1", "5 255 0"},
        ForceRow{"OfLastSunday", "at 06:00 sat play show.SQ4\nat 06:00 sun blank\n",
                 "Blank pattern 1", "5 255 0"},
        ForceRow{"OfAWeekAgo", "at 08:00:01 fri play show.SQ4\n", "Playing show 31", "5 255 0"},
        ForceRow{"Blank", "at 06:00 play show.SQ4\nat 07:00 blank\n", "Blank pattern 1", "5 255 0"},
        ForceRow{"Default", "at 06:00 play show.SQ4\nat 07:00 default\n", "Playing pattern 1",
                 "5 255 0"},
        ForceRow{"BeforeAnUnplayableOne",
                 "at 05:00 play show.SQ4\nat 06:00 play missing.SQ4\nat 06:30 play show.SQ4 3 99\n",
                 "Playing show 1", "5 255 0"},
        ForceRow{"OnlyUnplayableOnes", "at 06:00 play missing.SQ4\n", "Playing pattern 1",
                 "5 255 0"},
        ForceRow{"EndedNumTimes", "at 07:59 play show.SQ4 num-times 2\n", "Playing pattern 1",
                 "5 255 0"},
        ForceRow{"NotYetEndedNumTimes", "at 07:59:57 play show.SQ4 num-times 2\n",
                 "Playing show 31", "5 255 0"},
        ForceRow{"EndedPlayStop", "at 07:59 play show.SQ4 play-stop\n", "Stopped show 40",
                 "5 255 0"},
        ForceRow{"EndedPlayBlank", "at 07:59 play show.SQ4 play-blank\n", "Blank show 40",
                 "5 255 0"},
        ForceRow{"EndedPlayNext", "at 07:59 play show.SQ4 play-next\n", "Playing pattern 1",
                 "5 255 0"},
        ForceRow{"SelFrame", "at 07:59 play show.SQ4 sel-frame 7\n", "Stopped show 7", "5 255 0"},
        ForceRow{"SingleStep", "at 07:59 play show.SQ4 single-step\n", "Step show 1", "5 255 0"},
        ForceRow{"StopHoldsWhatShowedThen", "at 07:00 play show.SQ4\nat 07:00:01 stop\n",
                 "Stopped show 11", "5 255 0"},
        ForceRow{"StopHoldsTheDefaultThatFollowed",
                 "at 07:00 play show.SQ4 num-times 1\nat 07:00:05 stop\n", "Stopped pattern 11",
                 "5 255 0"},
        ForceRow{"StopAlone", "at 07:00 stop\n", "Stopped pattern 1", "5 255 0"},
        ForceRow{"StopBeforePlay", "at 07:00 stop\nat 07:59:57 play show.SQ4\n", "Playing show 31",
                 "5 255 0"},
        ForceRow{"StopInTheDark", "at 07:00 blank\nat 07:01 stop\n", "Blank pattern 1", "5 255 0"},
        ForceRow{"StopBehindAnUnplayableOne",
                 "at 06:00 play show.SQ4\nat 06:01:01 stop\nat 07:00 play missing.SQ4\n",
                 "Stopped show 11", "5 255 0"},
        ForceRow{"NextIsntMadeUpFor", "at 07:00 next\n", "Playing pattern 1", "5 255 0"},
        ForceRow{"NextBehindPlay", "at 07:00 play show.SQ4\nat 07:01 next\n", "Playing show 1",
                 "5 255 0"},
        ForceRow{"TestPattern", "at 07:00 play show.SQ4\nat 07:59:59 play \"TEST pattern.sq4\"\n",
                 "Playing TEST pattern.sq4 11", "5 255 0"},
        ForceRow{"Dimming", "at 06:00 dim manual 10\nat 07:00 dim manual 96\n", "Playing pattern 1",
                 "5 96 0"},
        ForceRow{"DimmingOfYesterday", "at 20:00 dim photocell -7\n", "Playing pattern 1",
                 "2 255 -7"},
        ForceRow{"DimmingAndPicture",
                 "at 06:00 dim scheduled\nat 07:00 blank\nat 07:30 play missing.SQ4\n",
                 "Blank pattern 1", "4 255 0"},
        ForceRow{"DimmingRemote", "at 06:00 dim manual 3\nat 07:00 dim remote\n",
                 "Playing pattern 1", "3 255 0"}),
    [](const auto& row) { return std::string(row.param.what); });

TEST_F(EngineScheduleStart, ANameBeginsAtTheSchedulesFolder) {
    // In this store "S:\y\x" is the file "y\x".
    MakeOf("lib\\own.SQ4", {1});
    rig.store.Write("lib\\day.SD4", "K4 schedule 1\nat 07:00 play own.SQ4\n");
    ASSERT_EQ(rig.rpc->k4ssRunSchedule("Main", "S:\\lib\\day.SD4", 0), 0);
    EXPECT_EQ(rig.Status().sequence, "S:\\lib\\own.SQ4");
    EXPECT_EQ(rig.Bulbs(), Frame(1));
    rig.store.Write("lib\\day.SD4", "K4 schedule 1\nat 07:00 play S:\\show.SQ4\n");
    ASSERT_EQ(rig.rpc->k4ssRunSchedule("Main", "S:\\lib\\day.SD4", 0), 0);
    EXPECT_EQ(rig.Status().sequence, "S:\\show.SQ4");
}

TEST_F(EngineScheduleStart, AnotherOneTakesItsPlace) {
    ASSERT_EQ(Run("at 20:00 fri play show.SQ4\n"), 0);
    rig.store.Write("other.SD4", "K4 schedule 1\nat 20:00 fri blank\n");
    const std::uint32_t flag = rig.ScheduleFlag();
    ASSERT_EQ(rig.rpc->k4ssRunSchedule("Main", "S:\\other.SD4", 0), 0);
    EXPECT_NE(rig.ScheduleFlag(), flag);
    EXPECT_EQ(Running(), "S:\\other.SD4");
    rig.clock.Set(Friday() + std::chrono::hours(20));
    EXPECT_EQ(rig.Status().state, "Blank");
}

TEST_F(EngineScheduleStart, EachSignHasItsOwn) {
    ASSERT_EQ(Run("at 07:00 blank\n"), 0);
    EXPECT_EQ(rig.Status("Small").state, "Playing");
    ASSERT_EQ(rig.rpc->k4ssRunSchedule("Small", "S:\\test.SD4", 0), 0);
    ASSERT_EQ(rig.rpc->k4ssEndSchedule("Main"), 0);
    EXPECT_EQ(rig.Status("Small").state, "Blank");
    EXPECT_EQ(Running(), "");
}

}  // namespace
