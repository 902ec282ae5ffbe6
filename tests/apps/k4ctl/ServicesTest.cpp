#include <gmock/gmock.h>

#include <QJsonArray>

#include "tests/apps/k4ctl/OnScriptedService.h"

// Which service a command works on, and what it says of one that fails.

namespace {

using k4ctl::ExitCode;
using k4test::CommandRun;
using k4test::OnScriptedService;
using testing::ElementsAre;
using Words = std::vector<std::string>;

TEST_F(OnScriptedService, EveryCommandOfASignEndsWithCodeThreeWhereConnectingFails) {
    rpc.results["k4ssConnectSignAsUser"] = 1;
    const Words lines[] = {{"status", "Main"},
                           {"config", "Main"},
                           {"windows", "Main"},
                           {"queue", "Main"},
                           {"queue", "Main", "--clear"},
                           {"play", "Main", "A.SQ4"},
                           {"play", "Main", "A.SC4"},
                           {"stop", "Main"},
                           {"blank", "Main"},
                           {"dim", "Main", "remote"},
                           {"window", "Main", "1", "open"},
                           {"default", "Main"},
                           {"default", "Main", "A.SQ4"}};
    for (Words line : lines) {
        rpc.calls.clear();
        line.insert(line.end(), {"-s", "Arena"});
        const CommandRun run(line);
        EXPECT_EQ(run.code, ExitCode::Unavailable) << line.front();
        EXPECT_EQ(run.out, "") << line.front();
        EXPECT_EQ(run.err, "k4ctl: Sign service unavailable.\n") << line.front();
        EXPECT_THAT(Work(), testing::IsEmpty());
        line.push_back("--json");
        EXPECT_EQ(
            CommandRun(line).Json(),
            (QJsonObject{{QStringLiteral("service"), QStringLiteral("Arena")},
                         {QStringLiteral("sign"), QStringLiteral("Main")},
                         {QStringLiteral("error"), QStringLiteral("Sign service unavailable.")}}));
    }
}

TEST_F(OnScriptedService, AnUnknownServiceIsToldWithTheConfiguredOnes) {
    rpc.results["k4ssConnectSignAsUser"] = 1;
    EXPECT_EQ(CommandRun({"status", "Main", "-s", "Arenna"}).err,
              "k4ctl: Sign service unavailable.\n"
              "k4ctl: no service is named \"Arenna\"; the configured ones are Local, Arena\n");
    EXPECT_EQ(CommandRun({"status", "Main", "-s", "ARENA"}).err,
              "k4ctl: Sign service unavailable.\n");
    EXPECT_EQ(CommandRun({"signs", "Arenna"}).err,
              "k4ctl: Sign service unavailable.\n"
              "k4ctl: no service is named \"Arenna\"; the configured ones are Local, Arena\n");
    settings.readable = false;
    EXPECT_EQ(CommandRun({"status", "Main", "-s", "Arenna"}).err,
              "k4ctl: Sign service unavailable.\n");
}

TEST_F(OnScriptedService, TheServiceIsConnectedToByItsName) {
    CommandRun({"blank", "Main", "-s", "Arena"});
    EXPECT_THAT(rpc.calls,
                ElementsAre("k4ssIsServer(Arena)", "k4ssConnectSignAsUser(Arena, null, null, null)",
                            "k4ssBlankSign(Main)", "k4ssDisconnectSign()"));
}

TEST_F(OnScriptedService, SignsListsEveryConfiguredService) {
    rpc.replies["k4ssListSigns"].text = "Main\n\tEast\n";
    rpc.replies["k4ssGetConfig"].text = "16\t96\t11\t3\t0\t5\t0\t200\t0";
    const CommandRun run({"signs"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out,
              "SERVICE  SIGN   SIZE  COLOR   PIXEL  DIMMING\n"
              "Local    Main  16x96  RGB16M  LED    manual 200\n"
              "Local    East  16x96  RGB16M  LED    manual 200\n"
              "Arena    Main  16x96  RGB16M  LED    manual 200\n"
              "Arena    East  16x96  RGB16M  LED    manual 200\n");
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(Work(),
                ElementsAre("k4ssListSigns()", "k4ssGetConfig(Main)", "k4ssGetConfig(East)",
                            "k4ssListSigns()", "k4ssGetConfig(Main)", "k4ssGetConfig(East)"));

    const QJsonObject json = CommandRun({"signs", "--json"}).Json();
    EXPECT_TRUE(json[QLatin1String("failures")].toArray().isEmpty());
    const QJsonArray signs = json[QLatin1String("signs")].toArray();
    ASSERT_EQ(signs.size(), 4);
    EXPECT_EQ(signs[3][QLatin1String("service")].toString(), QStringLiteral("Arena"));
    EXPECT_EQ(signs[3][QLatin1String("sign")].toString(), QStringLiteral("East"));
    EXPECT_EQ(signs[3][QLatin1String("columns")].toInt(), 96);
}

TEST_F(OnScriptedService, SignsOfOneServiceIsNamedEitherWay) {
    rpc.replies["k4ssListSigns"].text = "Main\n";
    rpc.replies["k4ssGetConfig"].text = "16\t96\t11\t3\t0\t5\t0\t200\t0";
    const CommandRun run({"signs", "Arena"});
    EXPECT_EQ(run.out,
              "SERVICE  SIGN   SIZE  COLOR   PIXEL  DIMMING\n"
              "Arena    Main  16x96  RGB16M  LED    manual 200\n");
    EXPECT_EQ(CommandRun({"signs", "-s", "Arena"}).out, run.out);
    EXPECT_EQ(CommandRun({"signs", "--service", "Arena"}).out, run.out);
}

TEST_F(OnScriptedService, SignsTellsAnUnreachableServiceAndListsTheOthers) {
    rpc.replies["k4ssListSigns"].text = "Main\n";
    rpc.replies["k4ssGetConfig"].text = "16\t96\t11\t3\t0\t5\t0\t200\t0";
    rpc.onCall = [this](const std::string& stub) {
        if (stub == "k4ssConnectSignAsUser")
            rpc.results[stub] = rpc.calls.back().find("(Arena,") == std::string::npos ? 0 : 1;
    };
    const CommandRun run({"signs"});
    EXPECT_EQ(run.code, ExitCode::Unavailable);
    EXPECT_EQ(run.err, "k4ctl: Arena: Sign service unavailable.\n");
    EXPECT_THAT(run.out, testing::EndsWith("Local    Main  16x96  RGB16M  LED    manual 200\n"));

    const QJsonObject json = CommandRun({"signs", "--json"}).Json();
    EXPECT_EQ(json[QLatin1String("signs")].toArray().size(), 1);
    EXPECT_EQ(json[QLatin1String("failures")].toArray(),
              (QJsonArray{QJsonObject{
                  {QStringLiteral("service"), QStringLiteral("Arena")},
                  {QStringLiteral("words"), QStringLiteral("Sign service unavailable.")}}}));

    const CommandRun one({"signs", "Arena"});
    EXPECT_EQ(one.code, ExitCode::Unavailable);
    EXPECT_EQ(one.err, "k4ctl: Sign service unavailable.\n");
    EXPECT_EQ(one.out, "");
}

TEST_F(OnScriptedService, SignsOfAServiceWithoutSignsIsNoFailure) {
    const CommandRun run({"signs", "Local"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out, "There are no signs.\n");
    EXPECT_TRUE(CommandRun({"signs", "--json"}).Json()[QLatin1String("signs")].isArray());
}

TEST_F(OnScriptedService, SignsTellsASignThatHidesItsConfiguration) {
    rpc.replies["k4ssListSigns"].text = "Main\n";
    rpc.results["k4ssGetConfig"] = 1;
    const CommandRun run({"signs", "Local"});
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_THAT(run.out, testing::EndsWith("\nLocal    Main     -  -      -      -\n"));
    EXPECT_EQ(run.err, "k4ctl: Main: Could not get sign configuration from service\n");
}

TEST_F(OnScriptedService, SignsTellsAServiceThatHidesItsSigns) {
    rpc.results["k4ssListSigns"] = 1;
    const CommandRun run({"signs"});
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_EQ(run.err,
              "k4ctl: Local: Could not get sign list from service.\n"
              "k4ctl: Arena: Could not get sign list from service.\n");
}

TEST_F(OnScriptedService, SignsTellsSettingsThatCannotBeRead) {
    settings.readable = false;
    const CommandRun run({"signs"});
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_EQ(run.err, "k4ctl: the configured services can't be read\n");
    EXPECT_THAT(rpc.calls, testing::IsEmpty());
}

TEST_F(OnScriptedService, AnAnswerThatCannotBeWrittenIsAFailure) {
    std::ostringstream out;
    std::ostringstream err;
    out.setstate(std::ios::badbit);
    k4ctl::Answer answer;
    answer.Say("Main: blank");
    EXPECT_EQ(k4ctl::WriteAnswer(answer, false, out, err), ExitCode::Refused);
    EXPECT_EQ(err.str(), "k4ctl: the answer couldn't be written\n");
}

TEST_F(OnScriptedService, FailuresKeepTheGreatestCodeAndTheFirstWordsForMachines) {
    k4ctl::Answer answer;
    answer.Fail(ExitCode::Unavailable, "first\n");
    answer.Fail(ExitCode::Refused, "second");
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(k4ctl::WriteAnswer(answer, true, out, err), ExitCode::Unavailable);
    EXPECT_EQ(err.str(), "k4ctl: first\\n\nk4ctl: second\n");
    EXPECT_EQ(QJsonDocument::fromJson(QByteArray::fromStdString(out.str())).object(),
              (QJsonObject{{QStringLiteral("error"), QStringLiteral("first\n")}}));
}

}  // namespace
