#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "tests/suite/signservice/EngineRig.h"

namespace {

namespace fs = std::filesystem;
using k4test::EngineRig;
using k4test::StatusReply;

TEST(EngineDamage, ADamagedFileIsSetAsideAndToldAndNeverOverwritten) {
    EngineRig rig;
    rig.KeepBusy();
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

TEST(EngineDamage, WhatIsntAFileIsSetAsideToo) {
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

TEST(EngineDamage, AHugeFileIsSetAside) {
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

TEST(EngineDamage, AFileTruncatedAtAnyByteIsReadOrSetAside) {
    EngineRig rig;
    rig.KeepBusy();
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

TEST(EngineDamage, FilesWithAnyByteChangedLeaveASaneSign) {
    EngineRig rig;
    rig.KeepBusy();
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

TEST(EngineDamage, RandomBytesAreSetAside) {
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

TEST(EngineDamage, FilesOfAnotherShapeBecomeTheNearestSaneSign) {
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

TEST(EngineDamage, WindowsAndQueueAreCleanedEntryByEntry) {
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

}  // namespace
