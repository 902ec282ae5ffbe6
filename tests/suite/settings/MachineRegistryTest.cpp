#include <gtest/gtest.h>

#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "suite/settings/IniRegistry.h"
#include "tests/support/TempFolder.h"

namespace {

using k4suite::DataHome;
using k4suite::IniRegistry;
using k4suite::MachineSettings;
using Texts = std::vector<std::string>;

class MachineRegistry : public testing::Test {
 protected:
    k4test::TempFolder folder;
    DataHome home{folder.Path()};
    IniRegistry settings{home};
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> use{settings};
};

class Machine : public MachineRegistry {
 protected:
    void SetUp() override {
        MachineSettings machine;
        machine.services.push_back({"Local", "", {"A:", "\\\\STORE\\SIGNS"}, {MainBoard()}});
        machine.services.push_back({"North", "", {"B:"}, {}});
        machine.services.push_back({"Local", "Harbour line", {"H:"}, {}});
        machine.services.push_back({"Pier", "Harbour line", {}, {}});
        ASSERT_EQ(WriteMachineSettings(home, machine), 1);
    }
    static k4suite::SignSetup MainBoard() {
        return {"Main Board",
                {64,
                 192,
                 K4_SIGN_COLOR_RGB16M,
                 K4_PIXEL_TECH_LED,
                 {"north", ""},
                 {0, 0xFFFFFFFF},
                 K4_OUTPUT_ORIENTATION_ROTATED}};
    }
};

struct ServersCase {
    const char* what;
    const char* service;  ///< null: not given
    const char* entry;    ///< null: not given
    int result;
    Texts servers;
};

class MachineServers : public Machine, public testing::WithParamInterface<ServersCase> {};

TEST_P(MachineServers, AreThoseOfServiceAndEntry) {
    const ServersCase& row = GetParam();
    const std::string service = row.service ? row.service : "";
    const std::string entry = row.entry ? row.entry : "";
    Texts servers{"kept"};
    EXPECT_EQ(CK4Registry::GetRegistryServers(servers, row.service ? &service : nullptr,
                                              row.entry ? &entry : nullptr),
              row.result);
    EXPECT_EQ(servers, row.servers);
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, MachineServers,
    testing::Values(ServersCase{"None", nullptr, nullptr, 1, {"A:", "\\\\STORE\\SIGNS"}},
                    ServersCase{"Local", "Local", nullptr, 1, {"A:", "\\\\STORE\\SIGNS"}},
                    ServersCase{"LocalInAnyCase", "lOCAL", "", 1, {"A:", "\\\\STORE\\SIGNS"}},
                    ServersCase{"Other", "North", nullptr, 1, {"B:"}},
                    ServersCase{"LocalBehindALine", "Local", "Harbour line", 1, {"H:"}},
                    ServersCase{"EntryAlone", nullptr, "Harbour line", 1, {"H:"}},
                    ServersCase{"WithoutServers", "Pier", "Harbour line", 1, {}},
                    ServersCase{"OtherEntry", "North", "Harbour line", 0, {"kept"}},
                    ServersCase{"OnlyBehindTheLine", "Pier", nullptr, 0, {"kept"}},
                    ServersCase{"Unknown", "South", nullptr, 0, {"kept"}}),
    [](const auto& testCase) { return std::string(testCase.param.what); });

TEST_F(Machine, ServicesOfAnEntry) {
    Texts services{"old"};
    EXPECT_EQ(CK4Registry::GetRegistryServices(services), 1);
    EXPECT_EQ(services, (Texts{"Local", "North"}));
    std::string entry = "harbour LINE";
    EXPECT_EQ(CK4Registry::GetRegistryServices(services, &entry), 1);
    EXPECT_EQ(services, (Texts{"Local", "Pier"}));
    entry = "other";
    EXPECT_EQ(CK4Registry::GetRegistryServices(services, &entry), 1);
    EXPECT_EQ(services, Texts{});
}

TEST_F(Machine, LocalIsAmongTheServicesUnconfiguredToo) {
    MachineSettings machine;
    machine.services.push_back({"North", "", {}, {}});
    ASSERT_EQ(WriteMachineSettings(home, machine), 1);
    Texts services;
    EXPECT_EQ(CK4Registry::GetRegistryServices(services), 1);
    EXPECT_EQ(services, (Texts{"Local", "North"}));
    Texts signs{"old"};
    EXPECT_EQ(CK4Registry::GetLocalSignList(signs), 1);
    EXPECT_EQ(signs, Texts{});
    EXPECT_EQ(CK4Registry::GetSignConfig("x", nullptr, nullptr, nullptr, nullptr), 0);
}

TEST_F(Machine, LocalSignsAndTheirSettings) {
    Texts signs{"old"};
    EXPECT_EQ(CK4Registry::GetLocalSignList(signs), 1);
    EXPECT_EQ(signs, Texts{"Main Board"});
    std::uint32_t rows = 0;
    std::uint32_t columns = 0;
    tag_K4_SIGN_COLOR color{};
    tag_K4_PIXEL_TECH pixel{};
    Texts texts;
    std::vector<std::uint32_t> numbers;
    tag_K4_OUTPUT_ORIENTATION orientation{};
    EXPECT_EQ(CK4Registry::GetSignConfigEx("Main Board", &rows, &columns, &color, &pixel, &texts,
                                           &numbers, &orientation),
              1);
    EXPECT_EQ(rows, 64u);
    EXPECT_EQ(columns, 192u);
    EXPECT_EQ(color, K4_SIGN_COLOR_RGB16M);
    EXPECT_EQ(pixel, K4_PIXEL_TECH_LED);
    EXPECT_EQ(texts, (Texts{"north", ""}));
    EXPECT_EQ(numbers, (std::vector<std::uint32_t>{0, 0xFFFFFFFF}));
    EXPECT_EQ(orientation, K4_OUTPUT_ORIENTATION_ROTATED);
    rows = 42;
    EXPECT_EQ(CK4Registry::GetSignConfig("Other", &rows, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(rows, 42u);
}

TEST_F(MachineRegistry, WithoutMachineSettingsNothingCanBeRead) {
    Texts names{"kept"};
    EXPECT_EQ(CK4Registry::GetRegistryServers(names), 0);
    EXPECT_EQ(CK4Registry::GetRegistryServices(names), 0);
    EXPECT_EQ(CK4Registry::GetLocalSignList(names), 0);
    EXPECT_EQ(CK4Registry::GetSignConfig("x", nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(names, Texts{"kept"});
    EXPECT_EQ(settings.Problems(), Texts{});
}

TEST_F(MachineRegistry, DamagedMachineSettingsAreSetAsideAndReported) {
    folder.Write("settings/machine.ini", "nonsense");
    Texts names{"kept"};
    EXPECT_EQ(CK4Registry::GetRegistryServers(names), 0);
    EXPECT_EQ(names, Texts{"kept"});
    EXPECT_EQ(settings.Problems(),
              Texts{home.MachineSettings().string() + " was damaged; it is kept as " +
                    home.MachineSettings().string() + ".damaged-1."});
    EXPECT_EQ(folder.Read("settings/machine.ini.damaged-1"), "nonsense");
}

}  // namespace
