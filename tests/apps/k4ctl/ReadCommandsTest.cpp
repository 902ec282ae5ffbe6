#include <gmock/gmock.h>

#include <QJsonArray>

#include "tests/apps/k4ctl/OnScriptedService.h"

// The commands that show something: what they make of the answers of the service.

namespace {

using k4ctl::ExitCode;
using k4test::CommandRun;
using k4test::OnScriptedService;
using testing::HasSubstr;

TEST_F(OnScriptedService, StatusShowsEveryFieldOfTheReplies) {
    rpc.replies["k4ssGetStatus"].text = "Playing\tGoal.SQ4\t3\t4\t7\t12";
    rpc.replies["k4ssGetSchedSeqStatus"].text = "Evening.SD4";
    rpc.replies["k4ssGetDefaultSeqFlag"].words = {1};
    const CommandRun run({"status", "Main"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out,
              "State          Playing\n"
              "Sequence       Goal.SQ4\n"
              "Schedule       Evening.SD4\n"
              "Frame          3 of 12\n"
              "Mode           Num Times\n"
              "Param          7\n"
              "Default plays  yes\n");
    EXPECT_EQ(CommandRun({"status", "Main", "--json"}).Json(),
              (QJsonObject{{QStringLiteral("service"), QStringLiteral("Local")},
                           {QStringLiteral("sign"), QStringLiteral("Main")},
                           {QStringLiteral("state"), QStringLiteral("Playing")},
                           {QStringLiteral("sequence"), QStringLiteral("Goal.SQ4")},
                           {QStringLiteral("schedule"), QStringLiteral("Evening.SD4")},
                           {QStringLiteral("frame"), 3},
                           {QStringLiteral("frames"), 12},
                           {QStringLiteral("mode"),
                            QJsonObject{{QStringLiteral("value"), 4},
                                        {QStringLiteral("name"), QStringLiteral("Num Times")}}},
                           {QStringLiteral("param"), 7},
                           {QStringLiteral("defaultPlays"), true}}));
}

TEST_F(OnScriptedService, StatusOfAShortReplyLeavesTheRestEmpty) {
    rpc.replies["k4ssGetStatus"].text = "Stopped";
    const CommandRun run({"status", "Main"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out,
              "State          Stopped\n"
              "Sequence\n"
              "Schedule\n"
              "Frame          0 of 0\n"
              "Mode           0\n"
              "Param          0\n"
              "Default plays  no\n");
}

TEST_F(OnScriptedService, StatusShowsAModeWithoutNameByItsNumber) {
    rpc.replies["k4ssGetStatus"].text = "Playing\tA\t1\t11\t0\t1";
    EXPECT_THAT(CommandRun({"status", "Main"}).out, HasSubstr("\nMode           11\n"));
    EXPECT_EQ(CommandRun({"status", "Main", "--json"}).Json()[QLatin1String("mode")].toObject(),
              (QJsonObject{{QStringLiteral("value"), 11}, {QStringLiteral("name"), QString()}}));
}

TEST_F(OnScriptedService, TextOfTheServiceIsMadeFitForTheTerminal) {
    rpc.replies["k4ssGetStatus"].text = "\x1b[2J\x9b\tA\xc2\x9b\x07\t1\t1\t0\t1";
    const CommandRun run({"status", "Main"});
    EXPECT_THAT(run.out, HasSubstr("State          \\x1b[2J\\x9b\n"));
    EXPECT_THAT(run.out, HasSubstr("Sequence       A\\u009b\\x07\n"));

    const CommandRun machine({"status", "Main", "--json"});
    EXPECT_EQ(machine.Json()[QLatin1String("sequence")].toString(),
              QStringLiteral("A\u009b\u0007"));
    EXPECT_EQ(machine.out.find('\x1b'), std::string::npos);
    EXPECT_EQ(machine.out.find("\xc2\x9b"), std::string::npos);
}

TEST_F(OnScriptedService, ConfigShowsNamesAndNumbers) {
    rpc.replies["k4ssGetConfig"].text = "16\t96\t11\t3\t0\t2\t0\t200\t-10";
    const CommandRun run({"config", "Main"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out,
              "Rows              16\n"
              "Columns           96\n"
              "Color             RGB16M\n"
              "Pixel             LED\n"
              "Dimming           photocell\n"
              "Level             200\n"
              "Photocell offset  -10\n");
    EXPECT_EQ(CommandRun({"config", "Main", "--json"}).Json(),
              (QJsonObject{{QStringLiteral("service"), QStringLiteral("Local")},
                           {QStringLiteral("sign"), QStringLiteral("Main")},
                           {QStringLiteral("rows"), 16},
                           {QStringLiteral("columns"), 96},
                           {QStringLiteral("color"),
                            QJsonObject{{QStringLiteral("value"), 11},
                                        {QStringLiteral("name"), QStringLiteral("RGB16M")}}},
                           {QStringLiteral("pixel"),
                            QJsonObject{{QStringLiteral("value"), 3},
                                        {QStringLiteral("name"), QStringLiteral("LED")}}},
                           {QStringLiteral("dimming"),
                            QJsonObject{{QStringLiteral("value"), 2},
                                        {QStringLiteral("name"), QStringLiteral("photocell")},
                                        {QStringLiteral("level"), 200},
                                        {QStringLiteral("offset"), -10}}}}));
}

struct DimmingTextRow {
    int mode;
    const char* text;
};

TEST_F(OnScriptedService, SignsShowsEveryDimmingModeWithWhatGoesWithIt) {
    const DimmingTextRow rows[] = {{0, "manual 200"},       {1, "manual 200"}, {2, "photocell +10"},
                                   {3, "remote photocell"}, {4, "scheduled"},  {5, "manual 200"}};
    rpc.replies["k4ssListSigns"].text = "Main\n";
    for (const DimmingTextRow& row : rows) {
        rpc.replies["k4ssGetConfig"].text =
            "16\t96\t15\t1\t0\t" + std::to_string(row.mode) + "\t0\t200\t10";
        EXPECT_THAT(
            CommandRun({"signs", "Local"}).out,
            HasSubstr("\nLocal    Main  16x96  15     Incand  " + std::string(row.text) + "\n"));
    }
}

TEST_F(OnScriptedService, WindowsShowsSixteenWindowsCountedFromOne) {
    std::string reply;
    for (int window = 1; window <= 16; ++window)
        reply += "Sign" + std::to_string(window) + (window % 2 ? "\t1\t" : "\t0\t") +
                 std::to_string(window) + "\t" + std::to_string(10 * window) + "\n";
    rpc.replies["k4ssListWindows"].text = reply;
    const CommandRun run({"windows", "Main"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_THAT(run.out, testing::StartsWith("WINDOW  STATE   ROW  COLUMN  SHOWS\n"
                                             "     1  open      2      11  Sign1\n"
                                             "     2  closed    3      21  Sign2\n"));
    EXPECT_THAT(run.out, testing::EndsWith("    16  closed   17     161  Sign16\n"));

    const QJsonArray windows =
        CommandRun({"windows", "Main", "--json"}).Json()[QLatin1String("windows")].toArray();
    ASSERT_EQ(windows.size(), 16);
    for (int window = 1; window <= 16; ++window) {
        EXPECT_EQ(windows[window - 1].toObject(),
                  (QJsonObject{{QStringLiteral("window"), window},
                               {QStringLiteral("open"), window % 2 == 1},
                               {QStringLiteral("row"), window + 1},
                               {QStringLiteral("column"), 10 * window + 1},
                               {QStringLiteral("shows"), QStringLiteral("Sign%1").arg(window)}}));
    }
}

TEST_F(OnScriptedService, WindowsThatTheReplyDoesNotHoldHaveNoValues) {
    rpc.replies["k4ssListWindows"].text = "Main\t1\t0\t0\nMain\t0\n";
    const CommandRun run({"windows", "Main"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_THAT(run.out, testing::StartsWith("WINDOW  STATE  ROW  COLUMN  SHOWS\n"
                                             "     1  open     1       1  Main\n"
                                             "     2  -        -       -  -\n"));
    EXPECT_THAT(run.out, testing::EndsWith("    16  -        -       -  -\n"));
    const QJsonArray windows =
        CommandRun({"windows", "Main", "--json"}).Json()[QLatin1String("windows")].toArray();
    ASSERT_EQ(windows.size(), 16);
    EXPECT_EQ(windows[1].toObject(), (QJsonObject{{QStringLiteral("window"), 2}}));
}

TEST_F(OnScriptedService, QueueShowsEveryKindOfEntry) {
    rpc.replies["k4ssGetQueue"].text = "1\tA.SQ4\t4\t3\n2\t5\t1\n2\t6\t0\n3\t7\t0\t8\n9\n";
    const CommandRun run({"queue", "Main"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out,
              "NO  ACTION   SEQUENCE  MODE       PARAM  WINDOW  ROW  COLUMN\n"
              " 1  play     A.SQ4     Num Times      3\n"
              " 2  open                                      5\n"
              " 3  close                                     6\n"
              " 4  move                                      7    1       9\n"
              " 5  unknown\n");
    const QJsonArray queue =
        CommandRun({"queue", "Main", "--json"}).Json()[QLatin1String("queue")].toArray();
    ASSERT_EQ(queue.size(), 5);
    const QString action = QStringLiteral("action");
    const QString window = QStringLiteral("window");
    EXPECT_EQ(queue[0].toObject(),
              (QJsonObject{{action, QStringLiteral("play")},
                           {QStringLiteral("sequence"), QStringLiteral("A.SQ4")},
                           {QStringLiteral("mode"),
                            QJsonObject{{QStringLiteral("value"), 4},
                                        {QStringLiteral("name"), QStringLiteral("Num Times")}}},
                           {QStringLiteral("param"), 3}}));
    EXPECT_EQ(queue[1].toObject(), (QJsonObject{{action, QStringLiteral("open")}, {window, 5}}));
    EXPECT_EQ(queue[2].toObject(), (QJsonObject{{action, QStringLiteral("close")}, {window, 6}}));
    EXPECT_EQ(queue[3].toObject(), (QJsonObject{{action, QStringLiteral("move")},
                                                {window, 7},
                                                {QStringLiteral("row"), 1},
                                                {QStringLiteral("column"), 9}}));
    EXPECT_EQ(queue[4].toObject(), (QJsonObject{{action, QStringLiteral("unknown")}}));
}

TEST_F(OnScriptedService, QueueShowsModesAndPlacesOfAnyNumber) {
    rpc.replies["k4ssGetQueue"].text = "1\tA\t-5\t1\n1\tB\t99\t1\n3\t1\t4294967295\t4294967295\n";
    const CommandRun run({"queue", "Main"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_THAT(run.out, HasSubstr(" 1  play    A         -5"));
    EXPECT_THAT(run.out, HasSubstr(" 2  play    B         99"));
    EXPECT_THAT(run.out, HasSubstr("4294967296"));
}

TEST_F(OnScriptedService, QueueHoldsTheGreatestReply) {
    std::string reply;
    for (int entry = 0; entry < 511; ++entry)
        reply += "9\n";
    rpc.replies["k4ssGetQueue"].text = reply;
    EXPECT_EQ(
        CommandRun({"queue", "Main", "--json"}).Json()[QLatin1String("queue")].toArray().size(),
        511);
}

TEST_F(OnScriptedService, QueueThatIsEmptyIsNoFailure) {
    const CommandRun run({"queue", "Main"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out, "The queue is empty.\n");
    const CommandRun machine({"queue", "Main", "--json"});
    EXPECT_EQ(machine.code, ExitCode::Done);
    EXPECT_TRUE(machine.Json()[QLatin1String("queue")].isArray());
    EXPECT_TRUE(machine.Json()[QLatin1String("queue")].toArray().isEmpty());
}

TEST_F(OnScriptedService, DefaultShowsThePresentSequence) {
    rpc.replies["k4ssGetDefaultSequence"] = {"Idle.SQ4", {}, {9}, 6};
    rpc.replies["k4ssGetDefaultSeqFlag"].words = {0};
    const CommandRun run({"default", "Main"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out,
              "Sequence  Idle.SQ4\n"
              "Mode      Play Blank\n"
              "Param     9\n"
              "Plays     no\n");
    EXPECT_EQ(CommandRun({"default", "Main", "--json"}).Json(),
              (QJsonObject{{QStringLiteral("service"), QStringLiteral("Local")},
                           {QStringLiteral("sign"), QStringLiteral("Main")},
                           {QStringLiteral("sequence"), QStringLiteral("Idle.SQ4")},
                           {QStringLiteral("mode"),
                            QJsonObject{{QStringLiteral("value"), 6},
                                        {QStringLiteral("name"), QStringLiteral("Play Blank")}}},
                           {QStringLiteral("param"), 9},
                           {QStringLiteral("plays"), false}}));
}

struct ReadFailureRow {
    const char* command;
    const char* stub;
    const char* words;
};

TEST_F(OnScriptedService, AReadThatTheServiceRefusesEndsWithTheClientsWords) {
    const ReadFailureRow rows[] = {
        {"status", "k4ssGetStatus", "Could not get sign status from service."},
        {"status", "k4ssGetSchedSeqStatus", "Could not get sequence/schedule status from service"},
        {"status", "k4ssGetDefaultSeqFlag",
         "Could not get default sequence flag from sign service"},
        {"config", "k4ssGetConfig", "Could not get sign configuration from service"},
        {"windows", "k4ssListWindows", "Could not get window state"},
        {"queue", "k4ssGetQueue", "Could not get queue from service"},
        {"default", "k4ssGetDefaultSequence", "Could not get default sequence from sign service"},
        {"default", "k4ssGetDefaultSeqFlag",
         "Could not get default sequence flag from sign service"},
    };
    for (const ReadFailureRow& row : rows) {
        rpc.results = {{row.stub, 1}};
        const CommandRun run({row.command, "Main"});
        EXPECT_EQ(run.code, ExitCode::Refused) << row.stub;
        EXPECT_EQ(run.out, "") << row.stub;
        EXPECT_EQ(run.err, "k4ctl: " + std::string(row.words) + "\n");
    }
}

}  // namespace
