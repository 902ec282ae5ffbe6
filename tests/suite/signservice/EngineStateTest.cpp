#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "suite/signservice/SignStateFile.h"
#include "tests/suite/sequence/FullDisk.h"
#include "tests/suite/signservice/EngineRig.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4suite::StateFileName;
using k4test::EngineRig;
using std::chrono::milliseconds;

constexpr char kShow[] = "S:\\show.SQ4";

/// What the replies tell about a sign, in one text.
std::string All(EngineRig& rig, const std::string& sign = "Main") {
    using Rpc = k4suite::EngineRpc;
    std::string all = rig.Text(&Rpc::k4ssGetStatus, sign) + "\n" +
                      rig.Text(&Rpc::k4ssGetConfig, sign) + "\n" +
                      rig.Text(&Rpc::k4ssListWindows, sign) + rig.Text(&Rpc::k4ssGetQueue, sign);
    char text[300] = "";
    std::uint32_t capacity = 300;
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    std::uint32_t word = 0;
    rig.rpc->k4ssGetDefaultSequence(sign.c_str(), text, &capacity, &mode, &word);
    all += std::string(text) + " " + std::to_string(mode) + " " + std::to_string(word) + "\n";
    std::vector<std::uint8_t> schedule(70000);
    std::uint32_t length = 70000;
    rig.rpc->k4ssGetSchedule(sign.c_str(), nullptr, schedule.data(), &length);
    all.append(schedule.begin(), schedule.begin() + length);
    capacity = 300;
    rig.rpc->k4ssGetSchedSeqStatus(sign.c_str(), text, &capacity, nullptr, nullptr, &word);
    return all + text + " " + std::to_string(rig.DefaultFlag(sign));
}

std::vector<std::string> FilesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

TEST(EngineState, EverythingASignKeepsSurvivesARestart) {
    EngineRig rig;
    rig.KeepBusy();
    rig.clock.Advance(milliseconds(1234));
    const std::string before = All(rig);
    rig.Restart();
    EXPECT_EQ(All(rig), before);
    EXPECT_EQ(rig.Status().frame, 13U) << "it goes on where it was";
    EXPECT_TRUE(rig.engine->Problems().empty());
    // The manual level waits behind the photocell's offset.
    ASSERT_EQ(rig.Config()[5], "2");
    EXPECT_EQ(rig.Config()[7], "77");
    EXPECT_EQ(rig.Config()[8], "-33");
}

TEST(EngineState, TimeGoesOnWhileTheServiceIsDown) {
    EngineRig stayed;
    EngineRig stopped;
    for (EngineRig* rig : {&stayed, &stopped}) {
        ASSERT_EQ(rig->Play(kShow, K4_PLAY_SEQ_NUM_TIMES, 2), 0);
        ASSERT_EQ(rig->rpc->k4ssQueueSequence("Main", "S:\\film.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0),
                  0);
        rig->clock.Advance(std::chrono::hours(3) + milliseconds(777));
    }
    stopped.Restart();
    EXPECT_EQ(All(stopped), All(stayed));
    EXPECT_EQ(stopped.Status().sequence, "S:\\film.SQ4");
}

TEST(EngineState, StatesThatStandSurviveToo) {
    EngineRig rig;
    const auto restart = [&] {
        const std::string before = All(rig);
        rig.clock.Advance(std::chrono::minutes(1));
        rig.Restart();
        EXPECT_EQ(All(rig), before);
    };
    ASSERT_EQ(rig.rpc->k4ssSelectFrame("Main", 17), 0);
    restart();
    ASSERT_EQ(rig.rpc->k4ssSingleStepFrame("Main", 2), 0);
    restart();
    ASSERT_EQ(rig.rpc->k4ssBlankSign("Main"), 0);
    restart();
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_PLAY_STOP), 0);
    rig.clock.Advance(std::chrono::minutes(1));
    restart();
    EXPECT_EQ(rig.Status().frame, 40U);
}

TEST(EngineState, ASignThatNobodyTouchedWritesNothing) {
    EngineRig rig;
    rig.clock.Advance(std::chrono::hours(30));
    All(rig);
    EXPECT_TRUE(fs::is_empty(rig.state.Path()));
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Small", K4_SIGN_DIM_MANUAL, 1), 0);
    EXPECT_EQ(FilesIn(rig.state / "Local"), std::vector<std::string>{"Small.json"});
}

TEST(EngineState, AClockThatWasSetBackStartsTheSequenceAnew) {
    EngineRig rig;
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_CONTINUOUS), 0);
    rig.clock.Advance(-std::chrono::hours(24));
    EXPECT_EQ(rig.Status().frame, 1U);
    rig.Restart();
    EXPECT_EQ(rig.Status().frame, 1U);
    rig.clock.Advance(milliseconds(100));
    EXPECT_EQ(rig.Status().frame, 2U);
}

TEST(EngineState, AClockThatWasSetBackDoesntMakeASequenceWaitForItsTime) {
    EngineRig rig;
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_NUM_TIMES, 2), 0);
    rig.clock.Advance(-std::chrono::hours(24));
    const std::uint32_t flag = rig.ChangeFlag();
    rig.clock.Advance(milliseconds(300));
    EXPECT_EQ(rig.Status().frame, 4U);
    EXPECT_NE(rig.ChangeFlag(), flag);
    rig.clock.Advance(std::chrono::seconds(8));
    EXPECT_EQ(rig.Status().sequence, "Test Pattern.SQ4") << "it ends after two times";
}

TEST(EngineState, WhatIsPlayingMayHaveGone) {
    EngineRig rig;
    rig.KeepBusy();
    fs::remove(rig.store.Path() / "show.SQ4");
    rig.Restart();
    EXPECT_EQ(rig.Status().sequence, "S:\\film.SQ4") << "the default";
    fs::remove(rig.store.Path() / "film.SQ4");
    rig.Restart();
    EXPECT_EQ(rig.Status().sequence, "Test Pattern.SQ4");
    EXPECT_EQ(rig.DefaultFlag(), 1U);
}

TEST(EngineState, TheDefaultSequenceComesBackWithItsFile) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssSetDefaultSequence("Main", kShow, K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    const fs::path file = rig.store.Path() / "show.SQ4";
    fs::rename(file, rig.store.Path() / "away");
    rig.Restart();
    ASSERT_EQ(rig.Status().sequence, "Test Pattern.SQ4");
    // Something else of the sign is changed, so that all of it is kept anew.
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 9), 0);
    fs::rename(rig.store.Path() / "away", file);
    rig.clock.Advance(milliseconds(5050));
    rig.Restart();
    EXPECT_EQ(rig.Status().sequence, kShow);
    EXPECT_EQ(rig.DefaultFlag(), 1U);
    EXPECT_EQ(rig.Status().frame, 1U);
}

TEST(EngineState, ADefaultSequenceThatPlaysGoesOnWhereItWas) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssSetDefaultSequence("Main", kShow, K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    rig.clock.Advance(milliseconds(1250));
    rig.Restart();
    EXPECT_EQ(rig.Status().frame, 13U);
}

TEST(EngineState, AScheduleThatCantGoOnIsTold) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssRunSchedule("Main", "S:\\day.SD4", 0), 0);
    std::string kept = rig.state.Read(EngineRig::StateFile());
    const std::string bytes = "\"bytes\": \"";
    kept.insert(kept.find(bytes) + bytes.size(), "AAAA");
    rig.state.Write(EngineRig::StateFile(), kept);
    rig.Restart();
    EXPECT_EQ(
        rig.engine->Problems(),
        (std::vector<std::string>{"The schedule \"S:\\day.SD4\" of the sign \"Main\" of the "
                                  "machine \"Local\" was ended: it can't be read any more."}));
}

TEST(EngineState, AScheduleIsKeptAsItWasWhenItWasStarted) {
    EngineRig rig;
    std::string content = "K4 schedule 1\r\n# ";
    for (char32_t letter = 0xA0; letter < 0x200; ++letter)
        content += {static_cast<char>(0xC0 | letter >> 6), static_cast<char>(0x80 | (letter & 63))};
    rig.store.Write("bytes.SD4", content);
    ASSERT_EQ(rig.rpc->k4ssRunSchedule("Main", "S:\\bytes.SD4", 0), 0);
    fs::remove(rig.store.Path() / "bytes.SD4");
    rig.Restart();
    std::vector<std::uint8_t> bytes(1000);
    std::uint32_t length = 1000;
    ASSERT_EQ(rig.rpc->k4ssGetSchedule("Main", nullptr, bytes.data(), &length), 0);
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + length), content);
}

TEST(EngineState, ASignThatChangedSizeBringsItsWindowsIntoReach) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssWindowMove("Main", 1, 31, 63), 0);
    rig.settings.services[0].signs[0].settings.rows = 20;
    rig.settings.services[0].signs[0].settings.columns = 40;
    rig.Restart();
    EXPECT_EQ(rig.Window(1), (std::vector<std::string>{"Small", "0", "19", "39"}));
}

TEST(EngineState, AWindowKeepsItsSignWhenSignsJoinAndFindsAnotherWhenItsSignLeaves) {
    EngineRig rig;
    ASSERT_EQ(rig.rpc->k4ssWindowEnable("Main", 2, 1), 0);
    ASSERT_EQ(rig.Window(2)[0], "Strip");
    auto& signs = rig.settings.services[0].signs;
    signs.insert(signs.begin() + 1, signs[1]);
    signs[1].name = "Newcomer";
    rig.Restart();
    EXPECT_EQ(rig.Window(2)[0], "Strip");
    signs.erase(signs.begin() + 3);
    rig.Restart();
    EXPECT_EQ(rig.Window(2), (std::vector<std::string>{"Small", "1", "0", "0"}));
}

TEST(EngineState, AStateThatCantBeSavedIsToldAndTheCommandHolds) {
    EngineRig rig;
    // The machine's folder can't be made where a file is.
    rig.state.Write("Local", "in the way");
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 9), 0);
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 8), 0);
    EXPECT_EQ(rig.Config()[7], "8");
    ASSERT_EQ(rig.engine->Problems().size(), 1U) << "told once";
    EXPECT_NE(rig.engine->Problems()[0].find("can't be written"), std::string::npos);
    // Saving is tried again with the next change.
    fs::remove(rig.state / "Local");
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 7), 0);
    rig.Restart();
    EXPECT_EQ(rig.Config()[7], "7");
}

TEST(EngineState, NoHalfWrittenFileStaysBehind) {
    EngineRig rig;
    for (int level = 0; level < 20; ++level)
        ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, level), 0);
    EXPECT_EQ(FilesIn(rig.state / "Local"), std::vector<std::string>{"Main.json"});
}

TEST(StateFileName, KeepsPlainNamesAndEscapesTheRest) {
    struct Row {
        const char* name;
        const char* file;
    };
    constexpr Row rows[] = {
        {"Main Board", "Main Board"},
        {"a-b_c.d", "a-b_c.d"},
        {"..", "%2E."},
        {".hidden", "%2Ehidden"},
        {"../up", "%2E.%2Fup"},
        {"a/b\\c", "a%2Fb%5Cc"},
        {"100%", "100%25"},
        {"\xC3\xA4", "%C3%A4"},
        {" x", "%20x"},
        {"C:", "C%3A"},
        {"", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(StateFileName(row.name), row.file);
}

TEST(StateFileName, LongNamesStayShortAndDifferent) {
    const std::string one = StateFileName(std::string(260, 'x') + "1");
    const std::string two = StateFileName(std::string(260, 'x') + "2");
    EXPECT_NE(one, two);
    EXPECT_LT(one.size(), 240U);
}

TEST(EngineState, SignsOfAnyNameKeepTheirState) {
    k4suite::MachineSettings settings = k4test::RigSettings();
    settings.services[0].signs[1].name = "../../escape";
    settings.services[0].signs[2].name = std::string(260, '/');
    settings.services[0].signs[3].name = "\xE6\xA8\x99\xE8\xAD\x98";
    EngineRig rig(settings);
    for (std::size_t sign = 1; sign <= 3; ++sign)
        ASSERT_EQ(rig.rpc->k4ssSetDimming(settings.services[0].signs[sign].name.c_str(),
                                          K4_SIGN_DIM_MANUAL, static_cast<int>(sign)),
                  0);
    EXPECT_EQ(FilesIn(rig.state.Path()), std::vector<std::string>{"Local"});
    EXPECT_EQ(FilesIn(rig.state / "Local").size(), 3U);
    rig.Restart();
    for (std::size_t sign = 1; sign <= 3; ++sign)
        EXPECT_EQ(rig.Config(settings.services[0].signs[sign].name)[7], std::to_string(sign));
}

TEST(EngineState, AFullDiskLeavesTheStateThatWasThere) {
    const k4test::TempFolder folder;
    const k4suite::SignStateFile file(folder.Path(), "Local", "Main");
    std::string problem;
    k4suite::SignKept kept;
    kept.defaultOrder.sequence = kShow;
    ASSERT_TRUE(file.Write(kept, problem)) << problem;

    // Of any length around that of what is written in one go.
    for (const std::size_t length : {2'000U, 12'000U, 12'300U, 40'000U}) {
        kept.defaultOrder.sequence = "S:\\other.SQ4";
        kept.schedule = k4suite::RunningSchedule{"S:\\plan.SD4", {}, {}};
        kept.schedule->bytes.assign(length, 'x');
        {
            const k4test::FullDisk disk(1'000);
            EXPECT_FALSE(file.Write(kept, problem)) << length;
        }
        EXPECT_NE(problem.find("can't be written"), std::string::npos);
        const std::optional<k4suite::SignKept> read = file.Read(problem);
        ASSERT_TRUE(read) << length;
        EXPECT_EQ(read->defaultOrder.sequence, kShow) << length;
    }
}

}  // namespace
