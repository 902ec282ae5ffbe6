#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "suite/signservice/SignStateFile.h"
#include "tests/suite/signservice/EngineRig.h"

namespace {

namespace fs = std::filesystem;
using k4suite::SignStateFile;
using k4suite::StateFileName;
using k4test::EngineRig;
using k4test::StatusReply;
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

/// Gives a sign something of everything to keep.
void Busy(EngineRig& rig) {
    k4suite::EngineRpc& rpc = *rig.rpc;
    ASSERT_EQ(rpc.k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 77), 0);
    ASSERT_EQ(rpc.k4ssSetDimming("Main", K4_SIGN_DIM_PHOTOCELL, -33), 0);
    ASSERT_EQ(rpc.k4ssWindowEnable("Main", 2, 1), 0);
    ASSERT_EQ(rpc.k4ssWindowMove("Main", 2, -5, 40), 0);
    ASSERT_EQ(rpc.k4ssWindowMove("Main", 16, 3, 8), 0);
    ASSERT_EQ(rpc.k4ssQueueSequence("Main", kShow, K4_PLAY_SEQ_NUM_TIMES, 0xFFFFFFFF), 0);
    ASSERT_EQ(rpc.k4ssQueueWindowEnable("Main", 2, 0), 0);
    ASSERT_EQ(rpc.k4ssQueueWindowMove("Main", 3, -1, -2), 0);
    ASSERT_EQ(rpc.k4ssSetDefaultSequence("Main", "S:\\film.avi", K4_PLAY_SEQ_NUM_TIMES, 12), 0);
    ASSERT_EQ(rpc.k4ssRunSchedule("Main", "S:\\day.SD4", 0), 0);
    ASSERT_EQ(rig.Play(kShow, K4_PLAY_SEQ_NUM_TIMES, 3), 0);
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
    Busy(rig);
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
        ASSERT_EQ(rig->rpc->k4ssQueueSequence("Main", "S:\\film.avi", K4_PLAY_SEQ_CONTINUOUS, 0),
                  0);
        rig->clock.Advance(std::chrono::hours(3) + milliseconds(777));
    }
    stopped.Restart();
    EXPECT_EQ(All(stopped), All(stayed));
    EXPECT_EQ(stopped.Status().sequence, "S:\\film.avi");
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

TEST(EngineState, WhatIsPlayingMayHaveGone) {
    EngineRig rig;
    Busy(rig);
    fs::remove(rig.store.Path() / "show.SQ4");
    rig.Restart();
    EXPECT_EQ(rig.Status().sequence, "S:\\film.avi") << "the default";
    fs::remove(rig.store.Path() / "film.avi");
    rig.Restart();
    EXPECT_EQ(rig.Status().sequence, "Test Pattern.SQ4");
    EXPECT_EQ(rig.DefaultFlag(), 1U);
}

TEST(EngineState, AScheduleIsKeptAsItWasWhenItWasStarted) {
    EngineRig rig;
    std::string content;
    for (int byte = 0; byte < 256; ++byte)
        content += static_cast<char>(byte);
    rig.store.Write("bytes.SD4", content);
    ASSERT_EQ(rig.rpc->k4ssRunSchedule("Main", "S:\\bytes.SD4", 0), 0);
    fs::remove(rig.store.Path() / "bytes.SD4");
    rig.Restart();
    std::vector<std::uint8_t> bytes(256);
    std::uint32_t length = 256;
    ASSERT_EQ(rig.rpc->k4ssGetSchedule("Main", nullptr, bytes.data(), &length), 0);
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), content);
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

TEST(EngineState, ADamagedFileIsSetAsideAndToldAndNeverOverwritten) {
    EngineRig rig;
    Busy(rig);
    for (int number = 1; number <= 3; ++number) {
        const std::string garbage = "not JSON " + std::to_string(number);
        rig.state.Write(EngineRig::StateFile(), garbage);
        rig.Restart();
        ASSERT_EQ(rig.engine->Problems().size(), 1U);
        const std::string aside = "Main.json.damaged-" + std::to_string(number);
        EXPECT_NE(rig.engine->Problems()[0].find(aside), std::string::npos)
            << rig.engine->Problems()[0];
        EXPECT_EQ(rig.state.Read("Local/" + aside), garbage);
        EXPECT_EQ(rig.Config()[7], "255") << "out of the box";
        ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 5), 0);
        EXPECT_EQ(rig.state.Read("Local/" + aside), garbage);
    }
}

TEST(EngineState, WhatIsntAFileIsSetAsideToo) {
    EngineRig rig;
    fs::create_directories(rig.state / EngineRig::StateFile() / "inner");
    rig.Restart();
    EXPECT_EQ(rig.engine->Problems().size(), 1U);
    EXPECT_TRUE(fs::is_directory(rig.state / "Local/Main.json.damaged-1"));
    EXPECT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 5), 0);
    EXPECT_EQ(rig.engine->Problems().size(), 1U);
    rig.Restart();
    EXPECT_EQ(rig.Config()[7], "5");
}

TEST(EngineState, AHugeFileIsSetAside) {
    EngineRig rig;
    rig.state.Write(EngineRig::StateFile(), "{\"a\":\"" + std::string(2 << 20, 'x') + "\"}");
    rig.Restart();
    EXPECT_EQ(rig.engine->Problems().size(), 1U);
    EXPECT_TRUE(fs::exists(rig.state / "Local/Main.json.damaged-1"));
}

/// Whether a sign has everything that it must have, whatever its file said.
void ExpectSane(EngineRig& rig, const std::string& what) {
    const StatusReply status = rig.Status();
    EXPECT_GE(status.frame, 1U) << what;
    EXPECT_LE(status.frame, status.count) << what;
    EXPECT_LE(status.mode, 12U) << what;
    const std::vector<std::string> config = rig.Config();
    const auto within = [&](std::size_t field, int lowest, int highest) {
        const int value = std::stoi(config[field]);
        EXPECT_TRUE(value >= lowest && value <= highest) << what << ": field " << field;
    };
    within(5, 0, 5);
    within(7, 0, 255);
    within(8, -64, 64);
    for (std::size_t window = 1; window <= 16; ++window)
        EXPECT_FALSE(rig.Window(window)[0].empty()) << what;
    rig.Queue();
    rig.Picture();
}

TEST(EngineState, AFileTruncatedAtAnyByteIsReadOrSetAside) {
    EngineRig rig;
    Busy(rig);
    const std::string whole = rig.state.Read(EngineRig::StateFile());
    ASSERT_GT(whole.size(), 500U);
    const fs::path aside = rig.state / (EngineRig::StateFile() + ".damaged-1");
    for (std::size_t size = 0; size < whole.size(); ++size) {
        rig.state.Write(EngineRig::StateFile(), whole.substr(0, size));
        fs::remove(aside);
        rig.Restart();
        ExpectSane(rig, "cut at " + std::to_string(size));
        const bool isWhole = size == whole.size() - 1;  // only the last newline is gone
        ASSERT_EQ(fs::exists(aside), !isWhole) << size;
        ASSERT_EQ(rig.engine->Problems().empty(), isWhole) << size;
    }
}

TEST(EngineState, FilesWithAnyByteChangedLeaveASaneSign) {
    EngineRig rig;
    Busy(rig);
    const std::string whole = rig.state.Read(EngineRig::StateFile());
    std::mt19937 random(4400);
    for (int round = 0; round < 300; ++round) {
        std::string changed = whole;
        for (int count = 0; count <= round % 4; ++count)
            changed[random() % changed.size()] = static_cast<char>(random());
        rig.state.Write(EngineRig::StateFile(), changed);
        rig.Restart();
        ExpectSane(rig, changed);
    }
}

TEST(EngineState, RandomBytesAreSetAside) {
    std::mt19937 random(7);
    EngineRig rig;
    for (int round = 0; round < 50; ++round) {
        std::string bytes(random() % 4000, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        rig.state.Write(EngineRig::StateFile(), bytes);
        rig.Restart();
        ExpectSane(rig, "random");
    }
}

TEST(EngineState, FilesOfAnotherShapeBecomeTheNearestSaneSign) {
    struct Row {
        const char* what;
        const char* json;
        const char* config;  ///< mode, level, offset
    };
    constexpr Row rows[] = {
        {"empty", "{}", "5 255 0"},
        {"another format", R"({"format": 99, "unknown": [1, 2]})", "5 255 0"},
        {"only a mode", R"({"dimming": {"mode": 3}})", "3 255 0"},
        {"too much", R"({"dimming": {"mode": 6, "level": 300, "offset": 65}})", "5 255 64"},
        {"too little", R"({"dimming": {"mode": -1, "level": -300, "offset": -65}})", "0 0 -64"},
        {"absurd", R"({"dimming": {"mode": 1e300, "level": -1e300, "offset": 1e300}})", "5 0 64"},
        {"fractions", R"({"dimming": {"mode": 2.9, "level": 7.9, "offset": -3.9}})", "2 7 -3"},
        {"texts", R"({"dimming": {"mode": "2", "level": "7", "offset": null}})", "5 255 0"},
        {"a list", R"({"dimming": [1, 2, 3], "windows": {"a": 1}, "queue": 7})", "5 255 0"},
        {"all wrong", R"({"windows": [1, "x", null, []], "queue": [1, {}, [], {"type": 9}],
            "default": [], "playing": 5, "schedule": "x"})",
         "5 255 0"},
    };
    for (const Row& row : rows) {
        EngineRig rig;
        rig.state.Write(EngineRig::StateFile(), row.json);
        rig.Restart();
        const std::vector<std::string> config = rig.Config();
        EXPECT_EQ(config[5] + " " + config[7] + " " + config[8], row.config) << row.what;
        EXPECT_TRUE(rig.engine->Problems().empty()) << row.what;
        EXPECT_EQ(rig.Queue(), "") << row.what;
        EXPECT_EQ(rig.Status().sequence, "Test Pattern.SQ4") << row.what;
        ExpectSane(rig, row.what);
        EXPECT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_PHOTOCELL, 1), 0) << row.what;
    }
}

TEST(EngineState, WindowsAndQueueAreCleanedEntryByEntry) {
    EngineRig rig;
    std::string windows = R"({"sign": "small", "open": true, "row": 9999, "column": -9999})";
    for (int window = 2; window <= 20; ++window)
        windows += R"(, {"sign": "Nobody", "row": "x"})";
    std::string queue = R"({"type": 1, "sequence": "a\tb.SQ4", "mode": 1},
        {"type": 1, "sequence": "S:\\show.SQ4", "mode": 99, "param": -5},
        {"type": 2, "window": 17, "open": true}, {"type": 2, "window": 1, "open": 1},
        {"type": 3, "window": 4, "row": 1e99, "column": -7})";
    for (int entry = 0; entry < 100; ++entry)
        queue += R"(, {"type": 2, "window": 16, "open": true})";
    rig.state.Write(EngineRig::StateFile(),
                    "{\"windows\": [" + windows + "], \"queue\": [" + queue + "]}");
    rig.Restart();
    EXPECT_EQ(rig.Window(1), (std::vector<std::string>{"Small", "1", "31", "-32"}));
    EXPECT_EQ(rig.Window(2), (std::vector<std::string>{"Strip", "0", "0", "0"}));
    EXPECT_TRUE(rig.Queue().starts_with(
        "1\tS:\\show.SQ4\t12\t0\n2\t1\t0\n3\t4\t2147483647\t-7\n2\t16\t1\n"))
        << rig.Queue();
    int taken = 0;
    while (!rig.Queue().empty() && taken < 1000) {
        rig.rpc->k4ssNextItem("Main");
        ++taken;
    }
    EXPECT_EQ(taken, 64);
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

}  // namespace
