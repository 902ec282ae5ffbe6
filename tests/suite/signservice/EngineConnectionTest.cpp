#include <gtest/gtest.h>

#include "tests/suite/signservice/EngineRig.h"

namespace {

using k4suite::Fault;
using k4test::EngineRig;
using std::chrono::milliseconds;

TEST(EngineConnection, ServiceNamesMeanMachines) {
    struct Row {
        const char* name;
        const char* machine;
    };
    constexpr Row rows[] = {
        {".", "Local"},     {"Local", "Local"}, {"LOCAL", "Local"}, {"local", "Local"},
        {"north", "North"}, {"NORTH", "North"}, {"", ""},           {"..", ""},
        {"Local ", ""},     {"South", ""},      {"\\\\Local", ""},
    };
    EngineRig rig;
    for (const Row& row : rows) {
        EXPECT_EQ(rig.engine->MachineNamed(row.name), row.machine) << row.name;
        rig.rpc->k4ssDisconnectSign();
        const bool connects = row.machine[0] != '\0';
        EXPECT_EQ(rig.rpc->k4ssConnectSignAsUser(row.name, nullptr, nullptr, nullptr) == 0,
                  connects)
            << row.name;
        EXPECT_EQ(rig.rpc->k4ssIsServer(row.name) != 0, connects) << row.name;
    }
}

TEST(EngineConnection, LocalIsTheServerByBothItsNames) {
    EngineRig rig;
    EXPECT_NE(rig.rpc->k4ssIsServer("."), 0);
    EXPECT_NE(rig.rpc->k4ssIsServer("Local"), 0);
    EXPECT_EQ(rig.rpc->k4ssIsServer(""), 0);
    EXPECT_EQ(rig.rpc->k4ssIsServer(nullptr), 0);
}

TEST(EngineConnection, ANullServiceCantBeConnected) {
    EngineRig rig;
    EXPECT_NE(rig.rpc->k4ssConnectSignAsUser(nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_NE(rig.rpc->k4ssIsServer("."), 0) << "the former connection stays";
}

TEST(EngineConnection, AConnectionThatFailsLeavesTheFormerOne) {
    EngineRig rig;
    rig.engine->SetFault("North", Fault::Unreachable());
    EXPECT_NE(rig.rpc->k4ssConnectSignAsUser("North", nullptr, nullptr, nullptr), 0);
    EXPECT_NE(rig.rpc->k4ssIsServer("."), 0);
    EXPECT_EQ(rig.rpc->k4ssPing(), 0);
}

TEST(EngineConnection, SignsBelongToTheirMachine) {
    EngineRig rig;
    std::uint32_t flag = 0;
    EXPECT_NE(rig.rpc->k4ssGetChangeFlag("Gate", &flag), 0);
    ASSERT_EQ(rig.rpc->k4ssConnectSignAsUser("North", nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(rig.rpc->k4ssGetChangeFlag("Gate", &flag), 0);
    EXPECT_NE(rig.rpc->k4ssGetChangeFlag("Main", &flag), 0);
}

TEST(EngineConnection, SignNamesAreFoundInAnyCase) {
    EngineRig rig;
    EXPECT_EQ(rig.rpc->k4ssGetChangeFlag("MAIN", nullptr), 0);
    EXPECT_NE(rig.rpc->k4ssGetChangeFlag("Main ", nullptr), 0);
    EXPECT_NE(rig.rpc->k4ssGetChangeFlag(nullptr, nullptr), 0);
}

TEST(EngineFaults, AnUnreachableMachineFailsPingAndCallsUntilItIsBack) {
    EngineRig rig;
    rig.engine->SetFault(".", Fault::Unreachable());
    EXPECT_NE(rig.rpc->k4ssIsServer("."), 0) << "the connection doesn't know yet";
    EXPECT_NE(rig.rpc->k4ssPing(), 0);
    EXPECT_NE(rig.rpc->k4ssGetChangeFlag("Main", nullptr), 0);
    EXPECT_NE(rig.rpc->k4ssConnectSignAsUser(".", nullptr, nullptr, nullptr), 0);
    rig.engine->ClearFaults();
    EXPECT_EQ(rig.rpc->k4ssPing(), 0);
}

TEST(EngineFaults, AFailingStubFailsAloneAndChangesNothing) {
    EngineRig rig;
    rig.engine->SetFault("local", Fault::FailingStub("k4ssSetDimming"));
    rig.engine->SetFault("local", Fault::FailingStub("k4ssGetConfig"));
    const std::uint32_t flag = rig.ChangeFlag();
    EXPECT_NE(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 10), 0);
    char buffer[1024] = "";
    EXPECT_NE(rig.rpc->k4ssGetConfig("Main", buffer, 1024, nullptr), 0);
    EXPECT_EQ(rig.ChangeFlag(), flag);
    EXPECT_EQ(rig.rpc->k4ssPing(), 0);
    rig.engine->ClearFaults();
    EXPECT_EQ(rig.Config()[7], "255");
}

TEST(EngineFaults, ASlowMachineTakesItsTimeForEachCallAndOthersDont) {
    EngineRig rig;
    std::vector<milliseconds> waits;
    rig.engine->SetWaiter([&](milliseconds wait) { waits.push_back(wait); });
    rig.engine->SetFault("Local", Fault::Slow(milliseconds(500)));
    EXPECT_EQ(rig.rpc->k4ssPing(), 0);
    EXPECT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 10), 0);
    EXPECT_EQ(waits, (std::vector<milliseconds>(2, milliseconds(500))));
    EXPECT_EQ(rig.rpc->k4ssConnectSignAsUser("North", nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(rig.rpc->k4ssPing(), 0);
    EXPECT_EQ(waits.size(), 2U);
}

TEST(EngineFaults, ASlowCallHoldsUpNoOther) {
    EngineRig rig;
    k4suite::EngineRpc other(*rig.engine);
    ASSERT_EQ(other.k4ssConnectSignAsUser("North", nullptr, nullptr, nullptr), 0);
    int answered = 0;
    // While one call waits, another one on another machine gets through.
    rig.engine->SetWaiter([&](milliseconds) { answered += other.k4ssPing() == 0; });
    rig.engine->SetFault("Local", Fault::Slow(milliseconds(1)));
    EXPECT_EQ(rig.rpc->k4ssPing(), 0);
    EXPECT_EQ(answered, 1);
}

TEST(EngineFaults, AFaultOfNobodyChangesNothing) {
    EngineRig rig;
    rig.engine->SetFault("Nowhere", Fault::Unreachable());
    rig.engine->SetFault("", Fault::Unreachable());
    EXPECT_EQ(rig.rpc->k4ssPing(), 0);
}

TEST(EngineSettings, WhatIsImpossibleIsLeftOutAndTold) {
    k4suite::MachineSettings settings = k4test::RigSettings();
    const auto add = [&](const std::string& name, std::uint32_t rows, std::uint32_t columns) {
        k4suite::SignSetup sign;
        sign.name = name;
        sign.settings.rows = rows;
        sign.settings.columns = columns;
        settings.services[0].signs.push_back(sign);
    };
    add("No Rows", 0, 16);
    add("No Columns", 16, 0);
    add("Too Tall", 2049, 16);
    add("Too Wide", 16, 16385);
    add("Too Many", 2048, 16384);
    add("", 16, 16);
    add("Tab\tName", 16, 16);
    add("MAIN", 16, 16);
    settings.services.push_back({"NORTH", {}, {}, {}});
    settings.services.push_back({"", {}, {}, {}});
    EngineRig rig(settings);
    EXPECT_EQ(rig.engine->Problems().size(), 10U);
    char buffer[512] = "";
    std::uint32_t length = 0;
    ASSERT_EQ(rig.rpc->k4ssListSigns(buffer, 512, &length), 0);
    EXPECT_STREQ(buffer, "Main\nSmall\nStrip\nQuad\nDisc\nPacked\n");
}

TEST(EngineSettings, TechnologiesThatNoSignHasBecomeThePlainest) {
    struct Row {
        int color, pixel, orientation;
        const char* config;
    };
    constexpr Row rows[] = {
        {15, 3, 3, "15 3 3"}, {16, 4, 4, "0 1 0"}, {-1, 0, -1, "0 1 0"}, {99999, -7, 7, "0 1 0"}};
    for (const Row& row : rows) {
        k4suite::MachineSettings settings = k4test::RigSettings();
        k4cmn::SignSettings& sign = settings.services[0].signs[0].settings;
        sign.color = static_cast<tag_K4_SIGN_COLOR>(row.color);
        sign.pixel = static_cast<tag_K4_PIXEL_TECH>(row.pixel);
        sign.orientation = static_cast<tag_K4_OUTPUT_ORIENTATION>(row.orientation);
        EngineRig rig(settings);
        const std::vector<std::string> config = rig.Config();
        EXPECT_EQ(config[2] + " " + config[3] + " " + config[4], row.config);
        rig.Picture();
        rig.Bulbs();
    }
}

TEST(EngineSettings, NoMachineAtAllMakesNothingReachable) {
    EngineRig rig{k4suite::MachineSettings()};
    EXPECT_NE(rig.rpc->k4ssConnectSignAsUser(".", nullptr, nullptr, nullptr), 0);
    EXPECT_NE(rig.rpc->k4ssPing(), 0);
    EXPECT_EQ(rig.rpc->k4ssDisconnectSign(), 0);
}

TEST(EngineSettings, AMachineWithoutSignsAnswersWithAnEmptyList) {
    k4suite::MachineSettings settings;
    settings.services.push_back({"Local", {}, {}, {}});
    EngineRig rig(settings);
    char buffer[8] = "x";
    std::uint32_t length = 7;
    EXPECT_EQ(rig.rpc->k4ssListSigns(buffer, 8, &length), 0);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(length, 0U);
}

}  // namespace
