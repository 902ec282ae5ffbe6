#include <gtest/gtest.h>

#include "tests/suite/signservice/EngineRig.h"

namespace {

using k4test::EngineRig;
using k4test::StatusReply;
using std::chrono::milliseconds;

constexpr char kShow[] = "S:\\show.SQ4";
/// The sequences and the test pattern: 40 frames of 100 ms.
constexpr milliseconds kFrame(100);
constexpr milliseconds kOnce(4000);

std::string Where(const StatusReply& status) {
    return status.state + " " + status.sequence + " " + std::to_string(status.frame);
}

TEST(EngineQueue, EntriesAreCarriedOutInOrderAtTheEndsOfSequences) {
    EngineRig rig;
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_NUM_TIMES, 2), 0);
    ASSERT_EQ(rig.rpc->k4ssQueueWindowEnable("Main", 3, 1), 0);
    ASSERT_EQ(rig.rpc->k4ssQueueWindowMove("Main", 3, 4, 8), 0);
    ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", "S:\\film.SQ4", K4_PLAY_SEQ_PLAY_NEXT, 0), 0);
    ASSERT_EQ(rig.rpc->k4ssQueueWindowEnable("Main", 3, 0), 0);
    EXPECT_EQ(rig.Queue(), "2\t3\t1\n3\t3\t4\t8\n1\tS:\\film.SQ4\t9\t0\n2\t3\t0\n");

    rig.clock.Advance(2 * kOnce - milliseconds(1));
    EXPECT_EQ(rig.Status().sequence, kShow);
    EXPECT_EQ(rig.Window(3)[1], "0");
    rig.clock.Advance(milliseconds(1));
    EXPECT_EQ(Where(rig.Status()), "Playing S:\\film.SQ4 1");
    EXPECT_EQ(rig.Window(3), (std::vector<std::string>{"Quad", "1", "4", "8"}));
    EXPECT_EQ(rig.Queue(), "2\t3\t0\n");

    rig.clock.Advance(kOnce + kFrame);
    EXPECT_EQ(Where(rig.Status()), "Playing Test Pattern.SQ4 2") << "nothing left: the default";
    EXPECT_EQ(rig.Window(3)[1], "0");
    EXPECT_EQ(rig.Queue(), "");
}

TEST(EngineQueue, WhatEndedLongAgoIsCaughtUpAsIfSomebodyHadWatched) {
    EngineRig watched;
    EngineRig slept;
    for (EngineRig* rig : {&watched, &slept}) {
        ASSERT_EQ(rig->Play(kShow, K4_PLAY_SEQ_NUM_TIMES, 2), 0);
        for (std::uint32_t times = 1; times <= 3; ++times)
            ASSERT_EQ(
                rig->rpc->k4ssQueueSequence("Main", "S:\\film.SQ4", K4_PLAY_SEQ_NUM_TIMES, times),
                0);
    }
    for (int step = 0; step < 1003; ++step) {
        watched.clock.Advance(milliseconds(29));
        watched.Status();
    }
    slept.clock.Advance(milliseconds(29 * 1003));
    EXPECT_EQ(Where(watched.Status()), Where(slept.Status()));
    EXPECT_EQ(watched.Status().param, slept.Status().param);
    EXPECT_EQ(watched.Queue(), slept.Queue());
}

TEST(EngineQueue, PlayStopGoesOnWithTheQueueAndPlayBlankLeavesItAlone) {
    for (const std::int32_t mode : {K4_PLAY_SEQ_PLAY_STOP, K4_PLAY_SEQ_PLAY_BLANK}) {
        EngineRig rig;
        ASSERT_EQ(rig.Play(kShow, mode), 0);
        ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", "S:\\film.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
        rig.clock.Advance(kOnce);
        EXPECT_EQ(rig.Status().state, mode == K4_PLAY_SEQ_PLAY_STOP ? "Playing" : "Blank");
        EXPECT_EQ(rig.Queue().empty(), mode == K4_PLAY_SEQ_PLAY_STOP);
    }
}

TEST(EngineQueue, AQueuedFileThatHasGoneIsPassedOver) {
    EngineRig rig;
    ASSERT_EQ(rig.Play("S:\\film.SQ4", K4_PLAY_SEQ_PLAY_NEXT), 0);
    ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", kShow, K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", "Test Pattern.SQ4", K4_PLAY_SEQ_PLAY_STOP, 0), 0);
    std::filesystem::remove(rig.store.Path() / "show.SQ4");
    rig.clock.Advance(kOnce);
    EXPECT_EQ(Where(rig.Status()), "Playing Test Pattern.SQ4 1");
    EXPECT_EQ(rig.Status().mode, 5U);
    EXPECT_EQ(rig.Queue(), "");
}

TEST(EngineQueue, NextTakesOneEntryAndCarriesItOut) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssQueueWindowEnable("Main", 1, 1), 0);
    ASSERT_EQ(rig.rpc->k4ssQueueWindowMove("Main", 1, -3, 16), 0);
    ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", kShow, K4_PLAY_SEQ_CONTINUOUS, 4), 0);
    ASSERT_EQ(rig.rpc->k4ssNextItem("Main"), 0);
    EXPECT_EQ(rig.Window(1), (std::vector<std::string>{"Small", "1", "0", "0"}));
    ASSERT_EQ(rig.rpc->k4ssNextItem("Main"), 0);
    EXPECT_EQ(rig.Window(1), (std::vector<std::string>{"Small", "1", "-3", "16"}));
    EXPECT_EQ(rig.Status().sequence, "Test Pattern.SQ4");
    ASSERT_EQ(rig.rpc->k4ssNextItem("Main"), 0);
    EXPECT_EQ(rig.Status().sequence, kShow);
    EXPECT_EQ(rig.Status().param, 4U);
    const std::uint32_t flag = rig.ChangeFlag();
    EXPECT_NE(rig.rpc->k4ssNextItem("Main"), 0) << "the queue is empty";
    EXPECT_EQ(rig.ChangeFlag(), flag);
}

TEST(EngineQueue, NextDropsAnEntryThatCantBeCarriedOut) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", kShow, K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    std::filesystem::remove(rig.store.Path() / "show.SQ4");
    EXPECT_NE(rig.rpc->k4ssNextItem("Main"), 0);
    EXPECT_EQ(rig.Queue(), "");
}

TEST(EngineQueue, AFullQueueRefusesMore) {
    EngineRig rig;
    for (int count = 0; count < 64; ++count)
        ASSERT_EQ(rig.rpc->k4ssQueueWindowEnable("Main", 1, 1), 0) << count;
    EXPECT_NE(rig.rpc->k4ssQueueWindowEnable("Main", 1, 1), 0);
    EXPECT_NE(rig.rpc->k4ssQueueWindowMove("Main", 1, 0, 0), 0);
    EXPECT_NE(rig.rpc->k4ssQueueSequence("Main", kShow, K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    ASSERT_EQ(rig.rpc->k4ssNextItem("Main"), 0);
    EXPECT_EQ(rig.rpc->k4ssQueueWindowMove("Main", 1, 0, 0), 0);
}

TEST(EngineQueue, WhatNoWindowCanDoIsntQueued) {
    EngineRig rig;
    for (const std::uint32_t window : {0U, 17U, 0xFFFFFFFFU}) {
        EXPECT_NE(rig.rpc->k4ssQueueWindowEnable("Main", window, 1), 0);
        EXPECT_NE(rig.rpc->k4ssQueueWindowMove("Main", window, 0, 0), 0);
    }
    EXPECT_NE(rig.rpc->k4ssQueueWindowMove("Main", 1, 32, 0), 0);
    EXPECT_EQ(rig.Queue(), "");
}

TEST(EngineSchedule, RunningOneShowsInTheRepliesAndMovesItsFlag) {
    EngineRig rig;
    const std::uint32_t idle = rig.ScheduleFlag();
    ASSERT_EQ(rig.rpc->k4ssRunSchedule("Main", "S:\\day.SD4", 0), 0);
    const std::uint32_t running = rig.ScheduleFlag();
    EXPECT_NE(running, idle);

    char schedule[262] = "";
    char sequence[262] = "";
    std::uint32_t first = 261, second = 261, word = 0;
    ASSERT_EQ(rig.rpc->k4ssGetSchedSeqStatus("Main", schedule, &first, sequence, &second, &word),
              0);
    EXPECT_STREQ(schedule, "S:\\day.SD4");
    EXPECT_STREQ(sequence, "Test Pattern.SQ4");
    EXPECT_EQ(first, 10U);
    EXPECT_EQ(second, 16U);
    EXPECT_EQ(word, 1U);

    const std::string content = k4test::kDaySchedule;
    std::vector<std::uint8_t> bytes(100);
    std::uint32_t length = 100;
    ASSERT_EQ(rig.rpc->k4ssGetSchedule("Main", &word, bytes.data(), &length), 0);
    EXPECT_EQ(word, running);
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + length), content);

    length = static_cast<std::uint32_t>(content.size()) - 1;
    EXPECT_NE(rig.rpc->k4ssGetSchedule("Main", &word, bytes.data(), &length), 0);
    EXPECT_EQ(length, content.size()) << "what it takes";
    EXPECT_EQ(rig.rpc->k4ssGetSchedule("Main", nullptr, bytes.data(), &length), 0);
    EXPECT_NE(rig.rpc->k4ssGetSchedule("Main", nullptr, nullptr, &length), 0);

    ASSERT_EQ(rig.rpc->k4ssEndSchedule("Main"), 0);
    const std::uint32_t ended = rig.ScheduleFlag();
    EXPECT_NE(ended, running);
    EXPECT_EQ(rig.rpc->k4ssEndSchedule("Main"), 0) << "none runs: nothing to do";
    EXPECT_EQ(rig.ScheduleFlag(), ended);
    length = 100;
    EXPECT_EQ(rig.rpc->k4ssGetSchedule("Main", &word, bytes.data(), &length), 0);
    EXPECT_EQ(length, 0U);
}

TEST(EngineSchedule, OnlyScheduleFilesOfASaneLengthRun) {
    EngineRig rig;
    const std::string mark = "K4 schedule 1\n";
    rig.store.Write("longest.sd4", mark + std::string(64 * 1024 - mark.size(), '\n'));
    rig.store.Write("longer.SD4", mark + std::string(64 * 1024 + 1 - mark.size(), '\n'));
    rig.store.Write("empty.SD4");
    rig.store.Write("mark.SD4", mark);
    rig.store.Write("day.txt", k4test::kDaySchedule);
    struct Row {
        const char* file;
        bool runs;
    };
    constexpr Row rows[] = {
        {"S:\\day.SD4", true},    {"S:\\longest.sd4", true},  {"S:\\mark.SD4", true},
        {"S:\\empty.SD4", false}, {"S:\\day.txt", false},     {"S:\\longer.SD4", false},
        {"S:\\show.SQ4", false},  {"S:\\missing.SD4", false}, {"", false},
        {"day.SD4", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(rig.rpc->k4ssRunSchedule("Main", row.file, 0) == 0, row.runs) << row.file;
    EXPECT_NE(rig.rpc->k4ssRunSchedule("Main", nullptr, 0), 0);
    EXPECT_TRUE(rig.engine->Problems().empty());
}

}  // namespace
