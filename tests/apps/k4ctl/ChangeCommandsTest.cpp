#include <gmock/gmock.h>

#include <ostream>

#include "tests/apps/k4ctl/OnScriptedService.h"

// The commands that change something: what they ask the service for, and what they say.

namespace {

using k4ctl::ExitCode;
using k4test::CommandRun;
using k4test::OnScriptedService;
using Words = std::vector<std::string>;

struct ChangeRow {
    const char* name;
    Words arguments;
    Words calls;
    const char* line;   ///< for people
    const char* stub;   ///< fails in the third test
    const char* words;  ///< of that failure
};

void PrintTo(const ChangeRow& row, std::ostream* out) {
    *out << row.name;
}

class Change : public OnScriptedService, public testing::WithParamInterface<ChangeRow> {};

TEST_P(Change, ReachesTheServiceOnceAndSaysSo) {
    const CommandRun run(GetParam().arguments);
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out, GetParam().line);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(Work(), GetParam().calls);
    EXPECT_EQ(rpc.calls.front(), "k4ssIsServer(.)");
    EXPECT_EQ(rpc.Count("k4ssConnectSignAsUser"), 1u);
    EXPECT_EQ(rpc.connectedTo, "") << "the connection is dropped";
}

TEST_P(Change, SaysSoToMachines) {
    Words arguments = GetParam().arguments;
    arguments.insert(arguments.begin() + 1, "--json");
    const CommandRun run(arguments);
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.Json(), (QJsonObject{{QStringLiteral("service"), QStringLiteral("Local")},
                                       {QStringLiteral("sign"), QStringLiteral("Main")},
                                       {QStringLiteral("done"), true}}));
}

TEST_P(Change, ThatTheServiceRefusesEndsWithTheClientsWords) {
    rpc.results[GetParam().stub] = 5;
    const CommandRun run(GetParam().arguments);
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "k4ctl: " + std::string(GetParam().words) + "\n");

    Words arguments = GetParam().arguments;
    arguments.push_back("--json");
    const CommandRun machine(arguments);
    EXPECT_EQ(machine.code, ExitCode::Refused);
    EXPECT_EQ(machine.err, run.err);
    EXPECT_EQ(machine.Json(),
              (QJsonObject{{QStringLiteral("service"), QStringLiteral("Local")},
                           {QStringLiteral("sign"), QStringLiteral("Main")},
                           {QStringLiteral("error"), QLatin1String(GetParam().words)}}));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Change,
    testing::Values(ChangeRow{"PlaySequence",
                              {"play", "Main", "A.SQ4"},
                              {"k4ssPlaySequence(Main, A.SQ4, 1, 0)"},
                              "Main: plays A.SQ4\n",
                              "k4ssPlaySequence",
                              "Could not play sequence"},
                    ChangeRow{"PlayVideo",
                              {"play", "Main", "A.AVI", "--mode", "play video"},
                              {"k4ssPlaySequence(Main, A.AVI, 7, 0)"},
                              "Main: plays A.AVI\n",
                              "k4ssPlaySequence",
                              "Could not play sequence"},
                    ChangeRow{"PlayWithModeAndParam",
                              {"play", "Main", "A.SQ4", "--mode", "num-times", "--param", "3"},
                              {"k4ssPlaySequence(Main, A.SQ4, 4, 3)"},
                              "Main: plays A.SQ4\n",
                              "k4ssPlaySequence",
                              "Could not play sequence"},
                    ChangeRow{"PlaySchedule",
                              {"play", "Main", "A.SD4"},
                              {"k4ssRunSchedule(Main, A.SD4, 0)"},
                              "Main: plays A.SD4\n",
                              "k4ssRunSchedule",
                              "Could not run schedule"},
                    ChangeRow{"Stop",
                              {"stop", "Main"},
                              {"k4ssStopSequence(Main)"},
                              "Main: stopped\n",
                              "k4ssStopSequence",
                              "Could not stop sequence"},
                    ChangeRow{"StopSchedule",
                              {"stop", "Main", "--schedule"},
                              {"k4ssEndSchedule(Main)"},
                              "Main: schedule ended\n",
                              "k4ssEndSchedule",
                              "Could not end schedule"},
                    ChangeRow{"Blank",
                              {"blank", "Main"},
                              {"k4ssBlankSign(Main)"},
                              "Main: blank\n",
                              "k4ssBlankSign",
                              "Could not blank sign"},
                    ChangeRow{"DimManual",
                              {"dim", "Main", "manual", "200"},
                              {"k4ssSetDimming(Main, 5, 200)"},
                              "Main: dimming is manual 200\n",
                              "k4ssSetDimming",
                              "Could not set dimming mode"},
                    ChangeRow{"DimPhotocell",
                              {"dim", "Main", "photocell", "-10"},
                              {"k4ssSetDimming(Main, 2, -10)"},
                              "Main: dimming is photocell -10\n",
                              "k4ssSetDimming",
                              "Could not set dimming mode"},
                    ChangeRow{"DimRemote",
                              {"dim", "Main", "remote"},
                              {"k4ssSetDimming(Main, 3, 0)"},
                              "Main: dimming is remote photocell\n",
                              "k4ssSetDimming",
                              "Could not set dimming mode"},
                    ChangeRow{"DimScheduled",
                              {"dim", "Main", "scheduled"},
                              {"k4ssSetDimming(Main, 4, 0)"},
                              "Main: dimming is scheduled\n",
                              "k4ssSetDimming",
                              "Could not set dimming mode"},
                    ChangeRow{"WindowOpen",
                              {"window", "Main", "16", "open"},
                              {"k4ssWindowEnable(Main, 16, 1)"},
                              "Main: window 16 is open\n",
                              "k4ssWindowEnable",
                              "Could not open window"},
                    ChangeRow{"WindowClose",
                              {"window", "Main", "1", "close"},
                              {"k4ssWindowEnable(Main, 1, 0)"},
                              "Main: window 1 is closed\n",
                              "k4ssWindowEnable",
                              "Could not close window"},
                    ChangeRow{"WindowOpenAt",
                              {"window", "Main", "2", "open", "--at", "9,17"},
                              {"k4ssWindowEnable(Main, 2, 1)", "k4ssWindowMove(Main, 2, 8, 16)"},
                              "Main: window 2 is open at row 9, column 17\n",
                              "k4ssWindowMove",
                              "Could not move window"},
                    ChangeRow{"QueueAdd",
                              {"queue", "Main", "--add", "A.SQ4"},
                              {"k4ssQueueSequence(Main, A.SQ4, 1, 0)"},
                              "Main: queued A.SQ4\n",
                              "k4ssQueueSequence",
                              "Could not queue sequence"},
                    ChangeRow{"QueueAddWithModeAndParam",
                              {"queue", "Main", "--param", "7", "--mode", "12", "--add", "A.SQ4"},
                              {"k4ssQueueSequence(Main, A.SQ4, 12, 7)"},
                              "Main: queued A.SQ4\n",
                              "k4ssQueueSequence",
                              "Could not queue sequence"},
                    ChangeRow{"QueueNext",
                              {"queue", "Main", "--next"},
                              {"k4ssNextItem(Main)"},
                              "Main: next item\n",
                              "k4ssNextItem",
                              "Could not execute \"Next\" command"},
                    ChangeRow{"QueueClear",
                              {"queue", "Main", "--clear"},
                              {"k4ssClearQueue(Main)"},
                              "Main: queue cleared\n",
                              "k4ssClearQueue",
                              "Could not clear queue"},
                    ChangeRow{"DefaultSet",
                              {"default", "Main", "A.SQ4", "--mode", "Play Stop", "--param", "2"},
                              {"k4ssSetDefaultSequence(Main, A.SQ4, 5, 2)"},
                              "Main: default sequence is A.SQ4\n",
                              "k4ssSetDefaultSequence",
                              "Could not set default sequence"}),
    [](const auto& each) { return std::string(each.param.name); });

TEST_F(OnScriptedService, PlayOfAScriptSucceedsWithoutACallOfTheService) {
    const CommandRun run({"play", "Main", "A.SC4"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out, "Main: plays A.SC4\n");
    EXPECT_THAT(Work(), testing::IsEmpty());
}

TEST_F(OnScriptedService, PlayOfAnotherKindOfFileIsRefusedWithWordsOfItsOwn) {
    for (const char* file : {"A.TXT", "A.sq4", "Q4", ""}) {
        const CommandRun run({"play", "Main", file});
        EXPECT_EQ(run.code, ExitCode::Refused);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "k4ctl: \"" + std::string(file) +
                               "\" can't be played; its name must end in SQ4, AVI, SD4 or SC4\n");
    }
    EXPECT_THAT(Work(), testing::IsEmpty());
}

}  // namespace
