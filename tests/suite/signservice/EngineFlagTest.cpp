#include <gtest/gtest.h>

#include "tests/suite/signservice/EngineRig.h"

namespace {

using k4test::EngineRig;
using std::chrono::milliseconds;

constexpr char kShow[] = "S:\\show.SQ4";

TEST(EngineFlag, ItMovesWithEachFrameThatIsSeenAndRestsBetween) {
    EngineRig rig;
    std::uint32_t before = rig.ChangeFlag();
    for (int frame = 0; frame < 90; ++frame) {
        rig.clock.Advance(milliseconds(50));
        const std::uint32_t half = rig.ChangeFlag();
        EXPECT_EQ(rig.ChangeFlag(), half);
        rig.clock.Advance(milliseconds(50));
        EXPECT_NE(rig.ChangeFlag(), before) << frame;
        before = rig.ChangeFlag();
    }
}

TEST(EngineFlag, ItRestsWhileThePictureStands) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssStopSequence("Main"), 0);
    const std::uint32_t before = rig.ChangeFlag();
    rig.clock.Advance(std::chrono::hours(5));
    EXPECT_EQ(rig.ChangeFlag(), before);
}

TEST(EngineFlag, ItMovesAtTheEndOfASequence) {
    EngineRig rig;
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_PLAY_STOP), 0);
    rig.clock.Advance(milliseconds(3999));
    const std::uint32_t last = rig.ChangeFlag();
    rig.clock.Advance(milliseconds(1));
    EXPECT_NE(rig.ChangeFlag(), last) << "the same frame, but it stands now";
}

TEST(EngineFlag, ItMovesWithTheBrightness) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssStopSequence("Main"), 0);
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_PHOTOCELL, 0), 0);
    const std::uint32_t before = rig.ChangeFlag();
    rig.clock.Advance(std::chrono::hours(14));
    EXPECT_NE(rig.ChangeFlag(), before) << "night has come";
}

TEST(EngineFlag, ItMovesWithASignInAnOpenWindow) {
    EngineRig rig;
    for (const char* sign : {"Main", "Small"})
        ASSERT_EQ(rig.rpc->k4ssStopSequence(sign), 0);
    const std::uint32_t closed = rig.ChangeFlag();
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_CONTINUOUS, 0, "Small"), 0);
    EXPECT_EQ(rig.ChangeFlag(), closed);
    ASSERT_EQ(rig.rpc->k4ssWindowEnable("Main", 1, 1), 0);
    const std::uint32_t open = rig.ChangeFlag();
    EXPECT_NE(open, closed);
    rig.clock.Advance(milliseconds(100));
    EXPECT_NE(rig.ChangeFlag(), open);
}

TEST(EngineFlag, ACommandThatChangesNothingLeavesIt) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssStopSequence("Main"), 0);
    ASSERT_EQ(rig.rpc->k4ssBlankSign("Main"), 0);
    const std::uint32_t before = rig.ChangeFlag();
    EXPECT_EQ(rig.rpc->k4ssBlankSign("Main"), 0);
    EXPECT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 255), 0);
    EXPECT_EQ(rig.rpc->k4ssWindowEnable("Main", 1, 0), 0);
    EXPECT_EQ(rig.rpc->k4ssWindowMove("Main", 1, 0, 0), 0);
    EXPECT_EQ(rig.rpc->k4ssClearQueue("Main"), 0);
    EXPECT_EQ(rig.rpc->k4ssEndSchedule("Main"), 0);
    EXPECT_EQ(rig.ChangeFlag(), before);
}

TEST(EngineFlag, SignsHaveFlagsOfTheirOwn) {
    EngineRig rig;
    for (const char* sign : {"Main", "Small"})
        ASSERT_EQ(rig.rpc->k4ssStopSequence(sign), 0);
    const std::uint32_t main = rig.ChangeFlag("Main");
    const std::uint32_t small = rig.ChangeFlag("Small");
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Small", K4_SIGN_DIM_MANUAL, 9), 0);
    EXPECT_EQ(rig.ChangeFlag("Main"), main);
    EXPECT_NE(rig.ChangeFlag("Small"), small);
}

TEST(EngineFlag, ItDiffersAfterARestart) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssStopSequence("Main"), 0);
    const std::uint32_t before = rig.ChangeFlag();
    rig.clock.Advance(std::chrono::seconds(1));
    rig.Restart();
    EXPECT_NE(rig.ChangeFlag(), before);
}

}  // namespace
