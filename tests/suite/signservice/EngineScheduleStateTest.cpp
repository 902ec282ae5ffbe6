#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/suite/signservice/EngineScheduleFixture.h"

// Schedules over restarts of the service.

namespace {

using k4test::EngineRig;
using std::chrono::hours;
using std::chrono::minutes;

class EngineScheduleState : public k4test::EngineScheduleFixture {
 protected:
    /// Changes the "schedule" of the state of "Main".
    template <class Change>
    void ChangeKept(Change&& change) {
        QJsonObject state = QJsonDocument::fromJson(
                                QByteArray::fromStdString(rig.state.Read(EngineRig::StateFile())))
                                .object();
        QJsonObject schedule = state.value(QStringLiteral("schedule")).toObject();
        EXPECT_FALSE(schedule.isEmpty());
        change(schedule);
        state.insert(QStringLiteral("schedule"), schedule);
        rig.state.Write(EngineRig::StateFile(), QJsonDocument(state).toJson().toStdString());
    }
};

TEST_F(EngineScheduleState, ItGoesOnAfterARestart) {
    ASSERT_EQ(Run("at 07:00 play show.SQ4\nat 09:00 blank\nat 10:00 play film.SQ4\n"), 0);
    rig.Restart();
    EXPECT_EQ(Running(), "S:\\test.SD4");
    EXPECT_EQ(Where(), "Playing show 1");
    rig.clock.Set(Friday() + hours(9));
    EXPECT_EQ(rig.Status().state, "Blank");
    rig.Restart();
    rig.clock.Set(Friday() + hours(10));
    EXPECT_EQ(Where(), "Playing film 1");
}

TEST_F(EngineScheduleState, WhatWasDueMeanwhileIsCarriedOutInOrder) {
    ASSERT_EQ(Run("at 09:00 play show.SQ4\nat 09:00:01 stop\nat 10:00 dim manual 9\n"), 0);
    rig.engine.reset();
    rig.clock.Set(Friday() + hours(11));
    rig.Restart();
    EXPECT_EQ(Where(), "Stopped show 11");
    EXPECT_EQ(Dimmed(), "5 9 0");
}

TEST_F(EngineScheduleState, CommandsByHandHoldOverARestart) {
    ASSERT_EQ(Run("at 07:00 play show.SQ4\nat 09:00 dim manual 9\n"), 0);
    ASSERT_EQ(rig.rpc->k4ssBlankSign("Main"), 0);
    rig.Restart();
    EXPECT_EQ(rig.Status().state, "Blank");
    rig.clock.Set(Friday() + hours(9));
    rig.Status();
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 100), 0);
    rig.Restart();
    EXPECT_EQ(Dimmed(), "5 100 0") << "nine o'clock has been";
}

TEST_F(EngineScheduleState, AnEntryThatChangedNothingIsntCarriedOutOnceMore) {
    ASSERT_EQ(Run("at 09:00 play late.SQ4\n"), 0);
    rig.clock.Set(Friday() + hours(9));
    EXPECT_EQ(Where(), "Playing pattern 1") << "there is no such file";
    MakeOf("late.SQ4", {1});
    rig.clock.Set(Friday() + hours(10));
    rig.Restart();
    EXPECT_EQ(Where(), "Playing pattern 1");
}

TEST_F(EngineScheduleState, AnEndedOneStaysEnded) {
    ASSERT_EQ(Run("at 07:00 play show.SQ4\nat 09:00 blank\n"), 0);
    ASSERT_EQ(rig.rpc->k4ssEndSchedule("Main"), 0);
    rig.Restart();
    rig.clock.Set(Friday() + hours(9));
    EXPECT_EQ(Where(), "Playing show 1");
    EXPECT_EQ(Running(), "");
}

TEST_F(EngineScheduleState, ItNeedsItsFileNoMore) {
    ASSERT_EQ(Run("at 09:00 play show.SQ4\n"), 0);
    std::filesystem::remove(rig.store.Path() / "test.SD4");
    rig.Restart();
    rig.clock.Set(Friday() + hours(9));
    EXPECT_EQ(Where(), "Playing show 1") << "found beside where the schedule lay";
}

TEST_F(EngineScheduleState, ATimeThatIsMissingOrFarAheadTakesItUpAnew) {
    for (const bool isMissing : {true, false}) {
        ASSERT_EQ(Run("at 07:00 play show.SQ4\n"), 0);
        ASSERT_EQ(rig.rpc->k4ssBlankSign("Main"), 0);
        rig.engine.reset();
        ChangeKept([&](QJsonObject& schedule) {
            if (isMissing)
                schedule.remove(QStringLiteral("done"));
            else
                schedule.insert(QStringLiteral("done"), 1e18);
        });
        rig.Restart();
        EXPECT_EQ(Where(), "Playing show 1");
        rig.clock.Advance(hours(24));
        EXPECT_EQ(Running(), "S:\\test.SD4");
    }
}

TEST_F(EngineScheduleState, ATimeOfLongAgoIsCaughtUpInShortTime) {
    ASSERT_EQ(Run("at 07:00 play show.SQ4\nat 07:30 dim manual 9\n"), 0);
    rig.engine.reset();
    ChangeKept([](QJsonObject& schedule) { schedule.insert(QStringLiteral("done"), 0); });
    rig.Restart();
    EXPECT_EQ(Where(), "Playing show 1");
    EXPECT_EQ(Dimmed(), "5 9 0");
}

TEST_F(EngineScheduleState, BytesThatAreNoScheduleEndIt) {
    for (const char* bytes : {"", "not base64 !", "SzQgc2NoZWR1bGUgMQphdCBub29uCg=="}) {
        ASSERT_EQ(Run("at 07:00 play show.SQ4\nat 09:00 blank\n"), 0);
        rig.engine.reset();
        ChangeKept([&](QJsonObject& schedule) {
            schedule.insert(QStringLiteral("bytes"), QLatin1String(bytes));
        });
        rig.Restart();
        EXPECT_EQ(Running(), "") << bytes;
        EXPECT_EQ(Where(), "Playing show 1") << bytes;
    }
}

TEST_F(EngineScheduleState, WhatPlaysIsTakenUpThoughItsFileHasChanged) {
    const std::string file = MakeOf("a.SQ4", {1, 2, 3, 4});
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_SEL_FRAME, 4), 0);
    MakeOf("a.SQ4", {11, 12});
    rig.Restart();
    EXPECT_EQ(Where(), "Playing pattern 1") << "there is no fourth frame any more";
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_SINGLE_STEP), 0);
    ASSERT_EQ(rig.rpc->k4ssSingleStepFrame("Main", 1), 0);
    MakeOf("a.SQ4", {21});
    rig.Restart();
    EXPECT_EQ(Where(), "Step a 1") << "brought into what is there";
    EXPECT_EQ(rig.Bulbs(), Frame(21));
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS), 0);
    MakeOf("a.SQ4", {31, 32, 33});
    rig.clock.Advance(std::chrono::milliseconds(250));
    rig.Restart();
    EXPECT_EQ(Where(), "Playing a 3");
    EXPECT_EQ(rig.Bulbs(), Frame(33));
}

TEST_F(EngineScheduleState, ADarkSignStaysDarkThoughItsFileHasGone) {
    const std::string file = MakeOf("a.SQ4", {1});
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS), 0);
    ASSERT_EQ(rig.rpc->k4ssBlankSign("Main"), 0);
    std::filesystem::remove(rig.store.Path() / "a.SQ4");
    rig.Restart();
    EXPECT_EQ(rig.Status().state, "Blank");
    EXPECT_EQ(rig.DefaultFlag(), 0U);
}

}  // namespace
