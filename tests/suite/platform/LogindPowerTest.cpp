#include "suite/platform/LogindPower.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/suite/platform/PrivateBus.h"

using k4cmn::EWX_REBOOT;
using k4cmn::EWX_SHUTDOWN;
using k4suite::LogindPower;
using k4test::PrivateBus;

namespace {

constexpr char kPrivilege[] = "SeShutdownPrivilege";
constexpr std::uint32_t kNotHeld = 1300;

TEST(LogindPower, PowersOffInTheStepsOfTheContract) {
    PrivateBus bus;
    ASSERT_TRUE(bus.StartLogind());
    LogindPower power(bus.Connection());
    EXPECT_EQ(power.OpenProcessToken(), 1);
    EXPECT_EQ(power.LookupPrivilege(kPrivilege), 1);
    EXPECT_EQ(power.AdjustPrivilege(1), 0u);
    EXPECT_EQ(power.ExitSystem(EWX_SHUTDOWN), 1);
    EXPECT_EQ(power.AdjustPrivilege(0), 0u);
    EXPECT_EQ(bus.LogindCalls(), "CanPowerOff\nCanReboot\nPowerOff True\n");
}

TEST(LogindPower, Reboots) {
    PrivateBus bus;
    ASSERT_TRUE(bus.StartLogind());
    LogindPower power(bus.Connection());
    ASSERT_EQ(power.OpenProcessToken(), 1);
    ASSERT_EQ(power.LookupPrivilege(kPrivilege), 1);
    ASSERT_EQ(power.AdjustPrivilege(1), 0u);
    EXPECT_EQ(power.ExitSystem(EWX_REBOOT), 1);
    EXPECT_EQ(bus.LogindCalls(), "CanPowerOff\nCanReboot\nReboot True\n");
}

TEST(LogindPower, NothingEndsUnlessThePrivilegeIsOn) {
    PrivateBus bus;
    ASSERT_TRUE(bus.StartLogind());
    LogindPower power(bus.Connection());
    EXPECT_EQ(power.LookupPrivilege(kPrivilege), 0) << "not opened";
    EXPECT_EQ(power.ExitSystem(EWX_REBOOT), 0);
    ASSERT_EQ(power.OpenProcessToken(), 1);
    EXPECT_EQ(power.AdjustPrivilege(1), kNotHeld) << "not looked up";
    ASSERT_EQ(power.LookupPrivilege(kPrivilege), 1);
    EXPECT_EQ(power.ExitSystem(EWX_REBOOT), 0) << "not switched on";
    ASSERT_EQ(power.AdjustPrivilege(1), 0u);
    EXPECT_EQ(power.AdjustPrivilege(0), 0u);
    EXPECT_EQ(power.ExitSystem(EWX_SHUTDOWN), 0) << "switched off";
    ASSERT_EQ(power.AdjustPrivilege(1), 0u);
    for (const std::uint32_t how : {0u, 3u, 4u, 0xFFFFFFFFu})
        EXPECT_EQ(power.ExitSystem(how), 0) << how;
    EXPECT_EQ(bus.LogindCalls(), "CanPowerOff\nCanReboot\n");
}

TEST(LogindPower, KnowsOnePrivilege) {
    PrivateBus bus;
    ASSERT_TRUE(bus.StartLogind());
    LogindPower power(bus.Connection());
    ASSERT_EQ(power.OpenProcessToken(), 1);
    for (const char* name : {"SeDebugPrivilege", "seshutdownprivilege", "", "SeShutdownPrivilege "})
        EXPECT_EQ(power.LookupPrivilege(name), 0) << name;
    EXPECT_EQ(power.LookupPrivilege(nullptr), 0);
    EXPECT_EQ(bus.LogindCalls(), "");
}

struct AnswerRow {
    const char* powerOff;
    const char* reboot;
    int found;
    int powersOff;
    int reboots;
};

class LogindAnswers : public testing::TestWithParam<AnswerRow> {};

TEST_P(LogindAnswers, DecideWhatMayBeDone) {
    const AnswerRow& row = GetParam();
    PrivateBus bus;
    ASSERT_TRUE(bus.StartLogind(std::string("{\"CanPowerOff\": \"") + row.powerOff +
                                "\", \"CanReboot\": \"" + row.reboot + "\"}"));
    LogindPower power(bus.Connection());
    ASSERT_EQ(power.OpenProcessToken(), 1);
    EXPECT_EQ(power.LookupPrivilege(kPrivilege), row.found);
    EXPECT_EQ(power.AdjustPrivilege(1), row.found ? 0u : kNotHeld);
    EXPECT_EQ(power.ExitSystem(EWX_SHUTDOWN), row.powersOff);
    EXPECT_EQ(power.ExitSystem(EWX_REBOOT), row.reboots);
    const std::string calls = bus.LogindCalls();
    EXPECT_EQ(calls.find("PowerOff True") != std::string::npos, row.powersOff == 1);
    EXPECT_EQ(calls.find("Reboot True") != std::string::npos, row.reboots == 1);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LogindAnswers,
    testing::Values(AnswerRow{"yes", "challenge", 1, 1, 1}, AnswerRow{"challenge", "no", 1, 1, 0},
                    AnswerRow{"na", "yes", 1, 0, 1}, AnswerRow{"no", "no", 0, 0, 0},
                    AnswerRow{"na", "na", 0, 0, 0}, AnswerRow{"", "perhaps", 0, 0, 0}),
    [](const auto& row) {
        return std::string("PowerOff_") + row.param.powerOff + "_Reboot_" + row.param.reboot;
    });

TEST(LogindPower, BusWithoutLogindHasNoToken) {
    PrivateBus bus;
    ASSERT_TRUE(bus.Connection().isConnected());
    LogindPower power(bus.Connection());
    EXPECT_EQ(power.OpenProcessToken(), 0);
    EXPECT_EQ(power.LookupPrivilege(kPrivilege), 0);
}

TEST(LogindPower, NoBusHasNoToken) {
    LogindPower power(QDBusConnection::connectToBus(QStringLiteral("unix:path=/nonexistent/bus"),
                                                    QStringLiteral("k4test-no-bus")));
    EXPECT_EQ(power.OpenProcessToken(), 0);
    EXPECT_EQ(power.ExitSystem(EWX_SHUTDOWN), 0);
    QDBusConnection::disconnectFromBus(QStringLiteral("k4test-no-bus"));
}

TEST(LogindPower, ServiceThatCannotBeStartedHasNoPrivilege) {
    PrivateBus bus("org.freedesktop.login1");
    LogindPower power(bus.Connection());
    EXPECT_EQ(power.OpenProcessToken(), 1) << "the bus offers to start it";
    EXPECT_EQ(power.LookupPrivilege(kPrivilege), 0);
    EXPECT_EQ(power.AdjustPrivilege(1), kNotHeld);
}

TEST(LogindPower, ServiceThatDiesBeforeTheEndFails) {
    PrivateBus bus;
    ASSERT_TRUE(bus.StartLogind());
    LogindPower power(bus.Connection());
    ASSERT_EQ(power.OpenProcessToken(), 1);
    ASSERT_EQ(power.LookupPrivilege(kPrivilege), 1);
    ASSERT_EQ(power.AdjustPrivilege(1), 0u);
    bus.StopLogind();
    EXPECT_EQ(power.ExitSystem(EWX_SHUTDOWN), 0);
    EXPECT_EQ(power.OpenProcessToken(), 0) << "looked at anew each time";
}

TEST(LogindPower, BusThatDiesBeforeTheEndFails) {
    PrivateBus bus;
    ASSERT_TRUE(bus.StartLogind());
    LogindPower power(bus.Connection());
    ASSERT_EQ(power.OpenProcessToken(), 1);
    ASSERT_EQ(power.LookupPrivilege(kPrivilege), 1);
    ASSERT_EQ(power.AdjustPrivilege(1), 0u);
    bus.StopLogind();
    bus.Stop();
    EXPECT_EQ(power.ExitSystem(EWX_REBOOT), 0);
    EXPECT_EQ(power.OpenProcessToken(), 0);
}

}  // namespace
