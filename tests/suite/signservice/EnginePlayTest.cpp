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

TEST(EnginePlay, AnIdleSignPlaysTheTestPatternAsItsDefault) {
    EngineRig rig;
    const StatusReply status = rig.Status();
    EXPECT_EQ(Where(status), "Playing Test Pattern.SQ4 1");
    EXPECT_EQ(status.mode, 1U);
    EXPECT_EQ(status.param, 0U);
    EXPECT_EQ(status.count, 40U);
    EXPECT_EQ(rig.DefaultFlag(), 1U);
    char buffer[270] = "";
    std::uint32_t capacity = 270;
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    std::uint32_t param = 9;
    ASSERT_EQ(rig.rpc->k4ssGetDefaultSequence("Main", buffer, &capacity, &mode, &param), 0);
    EXPECT_STREQ(buffer, "Test Pattern.SQ4");
    EXPECT_EQ(capacity, 16U);
    EXPECT_EQ(mode, K4_PLAY_SEQ_CONTINUOUS);
    EXPECT_EQ(param, 0U);
}

TEST(EnginePlay, FilesThatCanBePlayed) {
    EngineRig rig;
    const std::string sequence = rig.store.Read("show.SQ4");
    for (const char* name : {"film.avi", "UPPER.AVI", "lower.sq4", "show.bmp", ".SQ4"})
        rig.store.Write(name, sequence);
    rig.store.Write("empty.SQ4");
    rig.store.Write("text.SQ4", "this is no sequence");
    std::filesystem::create_directory(rig.store.Path() / "folder.SQ4");
    struct Row {
        const char* file;
        bool plays;
    };
    const std::string endless = "S:\\" + std::string(300, 'x') + ".SQ4";
    const Row rows[] = {
        {"Test Pattern.SQ4", true},
        {"TEST PATTERN.sq4", true},
        {kShow, true},
        {"S:\\lower.sq4", true},
        {"S:\\.SQ4", true},
        {"S:\\empty.SQ4", false},
        {"S:\\text.SQ4", false},
        {"S:\\film.avi", false},
        {"S:\\UPPER.AVI", false},
        {"S:\\day.SD4", false},
        {"S:\\show.bmp", false},
        {"S:\\missing.SQ4", false},
        {"", false},
        {"show.SQ4", false},
        {"S:\\folder.SQ4", false},
        {"S:\\", false},
        {"S:\\Test Pattern.SQ4", false},
        {"Test Pattern", false},
        {"S:\\a\tb.SQ4", false},
        {"\xFF\xFE.SQ4", false},
        {endless.c_str(), false},
    };
    for (const Row& row : rows) {
        const std::uint32_t before = rig.ChangeFlag();
        EXPECT_EQ(rig.rpc->k4ssCheckSequence("Main", row.file, K4_PLAY_SEQ_CONTINUOUS, 0) == 0,
                  row.plays)
            << row.file;
        EXPECT_EQ(rig.ChangeFlag(), before) << "checking changes nothing: " << row.file;
        EXPECT_EQ(rig.rpc->k4ssQueueSequence("Main", row.file, K4_PLAY_SEQ_CONTINUOUS, 0) == 0,
                  row.plays)
            << row.file;
        EXPECT_EQ(rig.rpc->k4ssSetDefaultSequence("Main", row.file, K4_PLAY_SEQ_CONTINUOUS, 0) == 0,
                  row.plays)
            << row.file;
        EXPECT_EQ(rig.Play(row.file, K4_PLAY_SEQ_CONTINUOUS) == 0, row.plays) << row.file;
        if (row.plays) {
            EXPECT_EQ(rig.Status().sequence, row.file);
        }
    }
    EXPECT_NE(rig.rpc->k4ssPlaySequence("Main", nullptr, K4_PLAY_SEQ_CONTINUOUS, 0), 0);
}

TEST(EnginePlay, ModesOutOfRangeAndFramesThatArentThereAreRefused) {
    EngineRig rig;
    for (const std::int32_t mode : {-1, 13, 1000, -2147483647}) {
        EXPECT_NE(rig.Play(kShow, mode), 0) << mode;
        EXPECT_NE(
            rig.rpc->k4ssCheckSequence("Main", kShow, static_cast<tag_K4_PLAY_SEQ_MODE>(mode), 0),
            0);
    }
    for (const std::uint32_t frame : {0U, 41U, 0xFFFFFFFFU}) {
        EXPECT_NE(rig.Play(kShow, K4_PLAY_SEQ_SEL_FRAME, frame), 0) << frame;
        EXPECT_NE(rig.rpc->k4ssSelectFrame("Main", frame), 0) << frame;
    }
    EXPECT_EQ(rig.Status().sequence, "Test Pattern.SQ4");
    EXPECT_EQ(rig.DefaultFlag(), 1U);
}

// What each mode shows in the course of time: after half a run, a run and a frame, and ten runs.
TEST(EnginePlay, ModesPlayAsTheirNamesSay) {
    struct Row {
        const char* name;
        std::int32_t mode;
        std::uint32_t param;
        const char* half;
        const char* once;
        const char* ten;
    };
    constexpr Row rows[] = {
        {"none", 0, 0, "Playing show 21", "Playing show 2", "Playing show 1"},
        {"Continuous", 1, 0, "Playing show 21", "Playing show 2", "Playing show 1"},
        {"Single Step", 2, 0, "Step show 1", "Step show 1", "Step show 1"},
        {"Sel Frame", 3, 7, "Stopped show 7", "Stopped show 7", "Stopped show 7"},
        {"Num Times", 4, 2, "Playing show 21", "Playing show 2", "Playing default 1"},
        {"Num Times of 0", 4, 0, "Playing show 21", "Playing default 2", "Playing default 1"},
        {"Play Stop", 5, 0, "Playing show 21", "Stopped show 40", "Stopped show 40"},
        {"Play Blank", 6, 0, "Playing show 21", "Blank show 40", "Blank show 40"},
        {"Play Video", 7, 0, "Playing show 21", "Playing show 2", "Playing show 1"},
        {"Play Frame", 8, 0, "Playing show 21", "Playing show 2", "Playing show 1"},
        {"Play Next", 9, 0, "Playing show 21", "Playing default 2", "Playing default 1"},
        {"Play Cal", 10, 0, "Playing show 21", "Playing show 2", "Playing show 1"},
        {"11", 11, 0, "Playing show 21", "Playing show 2", "Playing show 1"},
        {"12", 12, 0, "Playing show 21", "Playing show 2", "Playing show 1"},
    };
    for (const Row& row : rows) {
        EngineRig rig;
        ASSERT_EQ(rig.Play(kShow, row.mode, row.param), 0) << row.name;
        EXPECT_EQ(rig.DefaultFlag(), 0U) << row.name;
        const auto shows = [&] {
            const StatusReply status = rig.Status();
            const char* what = status.sequence == kShow ? "show" : "default";
            return status.state + " " + what + " " + std::to_string(status.frame);
        };
        rig.clock.Advance(kOnce / 2);
        EXPECT_EQ(shows(), row.half) << row.name;
        rig.clock.Advance(kOnce / 2 + kFrame);
        EXPECT_EQ(shows(), row.once) << row.name;
        rig.clock.Advance(9 * kOnce - kFrame);
        EXPECT_EQ(shows(), row.ten) << row.name;
        EXPECT_EQ(rig.DefaultFlag(), std::string(row.ten).find("default") != std::string::npos)
            << row.name;
    }
}

TEST(EnginePlay, FramesChangeExactlyAtTheEndOfTheirTime) {
    EngineRig rig;
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_CONTINUOUS), 0);
    rig.clock.Advance(milliseconds(99));
    EXPECT_EQ(rig.Status().frame, 1U);
    rig.clock.Advance(milliseconds(1));
    EXPECT_EQ(rig.Status().frame, 2U);
    rig.clock.Advance(milliseconds(3899));
    EXPECT_EQ(rig.Status().frame, 40U);
    rig.clock.Advance(milliseconds(1));
    EXPECT_EQ(rig.Status().frame, 1U);
}

TEST(EnginePlay, FrameStatusTellsWhereTheSequenceIs) {
    EngineRig rig;
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_NUM_TIMES, 5), 0);
    rig.clock.Advance(2 * kOnce + 3 * kFrame);
    char text[1024] = "";
    std::uint32_t frame = 0, count = 0, param = 0, dwell = 0, done = 0;
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    ASSERT_EQ(
        rig.rpc->k4ssGetFrameStatus("Main", text, &frame, &count, &mode, &param, &dwell, &done), 0);
    EXPECT_STREQ(text, kShow);
    EXPECT_EQ(frame, 4U);
    EXPECT_EQ(count, 40U);
    EXPECT_EQ(mode, K4_PLAY_SEQ_NUM_TIMES);
    EXPECT_EQ(param, 5U);
    EXPECT_EQ(dwell, 100U);
    EXPECT_EQ(done, 2U);
}

TEST(EnginePlay, SingleStepsGoAroundBothEnds) {
    struct Row {
        std::int32_t step;
        std::uint32_t frame;
    };
    constexpr Row rows[] = {
        {1, 2},
        {-1, 1},
        {-1, 40},
        {1, 1},
        {39, 40},
        {40, 40},
        {-40, 40},
        {0, 40},
        {81, 1},
        {2147483647, 8},
        {-2147483647 - 1, 40},
    };
    EngineRig rig;
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_SINGLE_STEP), 0);
    for (const Row& row : rows) {
        ASSERT_EQ(rig.rpc->k4ssSingleStepFrame("Main", row.step), 0);
        EXPECT_EQ(rig.Status().frame, row.frame) << row.step;
        EXPECT_EQ(rig.Status().state, "Step");
    }
}

TEST(EnginePlay, AStepStopsWhatMovesAtTheNextFrame) {
    EngineRig rig;
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_CONTINUOUS), 0);
    rig.clock.Advance(10 * kFrame);
    ASSERT_EQ(rig.rpc->k4ssSingleStepFrame("Main", 1), 0);
    rig.clock.Advance(kOnce / 3);
    EXPECT_EQ(Where(rig.Status()), "Step S:\\show.SQ4 12");
    EXPECT_EQ(rig.Status().mode, 2U);
}

TEST(EnginePlay, ASelectedFrameStands) {
    EngineRig rig;
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_CONTINUOUS), 0);
    ASSERT_EQ(rig.rpc->k4ssSelectFrame("Main", 40), 0);
    rig.clock.Advance(kOnce * 3);
    const StatusReply status = rig.Status();
    EXPECT_EQ(Where(status), "Stopped S:\\show.SQ4 40");
    EXPECT_EQ(status.mode, 3U);
    EXPECT_EQ(status.param, 40U);
}

TEST(EnginePlay, StoppingHoldsThePicture) {
    EngineRig rig;
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_NUM_TIMES, 3), 0);
    rig.clock.Advance(kOnce + 5 * kFrame);
    const k4test::DibPicture picture = rig.Picture();
    ASSERT_EQ(rig.rpc->k4ssStopSequence("Main"), 0);
    rig.clock.Advance(std::chrono::hours(1));
    EXPECT_EQ(Where(rig.Status()), "Stopped S:\\show.SQ4 6");
    EXPECT_EQ(rig.Picture(), picture);
    const std::uint32_t flag = rig.ChangeFlag();
    EXPECT_EQ(rig.rpc->k4ssStopSequence("Main"), 0) << "what stands can be stopped";
    EXPECT_EQ(rig.ChangeFlag(), flag);
}

TEST(EnginePlay, StoppingTheDefaultEndsItsBeingTheDefault) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssStopSequence("Main"), 0);
    EXPECT_EQ(rig.DefaultFlag(), 0U);
    rig.clock.Advance(std::chrono::hours(1));
    EXPECT_EQ(rig.Status().state, "Stopped");
}

TEST(EnginePlay, ABlankSignIsDarkUntilItPlaysOrShowsAFrame) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssWindowEnable("Main", 1, 1), 0);
    ASSERT_EQ(rig.rpc->k4ssBlankSign("Main"), 0);
    const StatusReply status = rig.Status();
    EXPECT_EQ(status.state, "Blank");
    for (const k4test::DibPixel& pixel : rig.Picture().pixels)
        ASSERT_EQ(pixel, k4test::DibPixel());
    const std::vector<std::uint8_t> bulbs = rig.Bulbs();
    EXPECT_EQ(static_cast<std::size_t>(std::count(bulbs.begin(), bulbs.end(), 0)), bulbs.size());
    char sequence[262] = "x";
    std::uint32_t capacity = 261;
    ASSERT_EQ(
        rig.rpc->k4ssGetSchedSeqStatus("Main", nullptr, nullptr, sequence, &capacity, nullptr), 0);
    EXPECT_STREQ(sequence, "");
    ASSERT_EQ(rig.rpc->k4ssStopSequence("Main"), 0);
    EXPECT_EQ(rig.Status().state, "Blank") << "stopping lights nothing";
    ASSERT_EQ(rig.rpc->k4ssSelectFrame("Main", 1), 0);
    EXPECT_EQ(rig.Status().state, "Stopped");
    EXPECT_NE(rig.Picture().pixels, std::vector<k4test::DibPixel>(rig.Picture().pixels.size()));
}

TEST(EnginePlay, ANewDefaultSequenceIsPlayedAtOnceByAnIdleSignAlone) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssSetDefaultSequence("Main", kShow, K4_PLAY_SEQ_PLAY_NEXT, 0), 0);
    EXPECT_EQ(Where(rig.Status()), "Playing S:\\show.SQ4 1");
    rig.clock.Advance(100 * kOnce + kFrame);
    EXPECT_EQ(Where(rig.Status()), "Playing S:\\show.SQ4 2") << "the default goes on and on";
    EXPECT_EQ(rig.DefaultFlag(), 1U);

    ASSERT_EQ(rig.Play("S:\\film.SQ4", K4_PLAY_SEQ_CONTINUOUS), 0);
    ASSERT_EQ(
        rig.rpc->k4ssSetDefaultSequence("Main", "Test Pattern.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    EXPECT_EQ(rig.Status().sequence, "S:\\film.SQ4");
}

TEST(EnginePlay, ADefaultWhoseFileHasGoneGivesWayToTheTestPattern) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssSetDefaultSequence("Main", kShow, K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    ASSERT_EQ(rig.Play("S:\\film.SQ4", K4_PLAY_SEQ_PLAY_NEXT), 0);
    std::filesystem::remove(rig.store.Path() / "show.SQ4");
    rig.clock.Advance(kOnce);
    EXPECT_EQ(Where(rig.Status()), "Playing Test Pattern.SQ4 1");
    EXPECT_EQ(rig.DefaultFlag(), 1U);
}

}  // namespace
