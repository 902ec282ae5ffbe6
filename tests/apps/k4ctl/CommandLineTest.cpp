#include "apps/k4ctl/CommandLine.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <ostream>
#include <random>
#include <sstream>

#include "k4cmndlg/clients/contracts/K4SSRpc.h"
#include "tests/apps/k4ctl/CommandRun.h"
#include "tests/apps/k4ctl/Examples.h"
#include "tests/support/RecordingSSRpc.h"

namespace {

using k4ctl::ExitCode;
using k4test::CommandRun;
using k4test::Examples;
using k4test::Words;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kCommands[] = {"signs", "status", "config", "windows", "queue",  "play",
                                     "stop",  "blank",  "dim",    "window",  "default"};

TEST(Help, OfTheProgramListsEveryCommandWithExamplesAndExitCodes) {
    const CommandRun run({"--help"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, HasSubstr("\nCommands:\n  signs "));
    for (const char* command : kCommands)
        EXPECT_THAT(run.out, HasSubstr("\n  " + std::string(command) + " "));
    EXPECT_THAT(run.out, HasSubstr("Examples:\n  k4ctl signs"));
    EXPECT_THAT(run.out, HasSubstr("Exit codes:\n"
                                   "  0  done\n"
                                   "  1  refused, or failed\n"
                                   "  2  the command line can't be understood\n"
                                   "  3  the service is unavailable\n"));
    EXPECT_THAT(run.out, HasSubstr("K4_HOME"));
}

TEST(Help, OfACommandHasItsExamplesAndTheExitCodes) {
    for (const char* command : kCommands) {
        const CommandRun run({command, "--help"});
        EXPECT_EQ(run.code, ExitCode::Done) << command;
        EXPECT_EQ(run.err, "") << command;
        EXPECT_THAT(run.out, HasSubstr("Examples:\n  k4ctl " + std::string(command) + " "));
        EXPECT_THAT(run.out, HasSubstr("Exit codes:\n  0  done\n"));
        EXPECT_THAT(run.out, HasSubstr("--json"));
        EXPECT_THAT(run.out, HasSubstr("-s,--service"));
        EXPECT_EQ(CommandRun({command, "-h"}).out, run.out);
    }
}

TEST(Help, ShowsExamplesThatAreUnderstood) {
    std::vector<Words> helps = {{"--help"}};
    for (const char* command : kCommands)
        helps.push_back({command, "--help"});
    for (const Words& help : helps) {
        const std::string text = CommandRun(help).out;
        const std::vector<Words> examples = Examples(text.substr(text.find("Examples:\n")), "  ");
        ASSERT_FALSE(examples.empty()) << help.front();
        k4test::ExpectUnderstood(examples, {});
    }
}

TEST(Version, IsShownAlone) {
    const CommandRun run({"--version"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_THAT(run.out, testing::MatchesRegex("k4ctl [0-9]+\\.[0-9]+\\.[0-9]+\n"));
    EXPECT_EQ(run.err, "");
}

struct UsageRow {
    const char* name;
    Words arguments;
    const char* words;  ///< stand somewhere on standard error
    const char* see;    ///< the help that is named
};

void PrintTo(const UsageRow& row, std::ostream* out) {
    *out << row.name;
}

class WrongUsage : public testing::TestWithParam<UsageRow> {};

TEST_P(WrongUsage, EndsWithCodeTwoAndReachesNoService) {
    k4test::RecordingSSRpc rpc;
    const k4cmn::ScopedProvider<K4SSRpc> use(rpc);
    const CommandRun run(GetParam().arguments);
    EXPECT_EQ(run.code, ExitCode::Usage);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, StartsWith("k4ctl: "));
    EXPECT_THAT(run.err, HasSubstr(GetParam().words));
    EXPECT_THAT(run.err, testing::EndsWith("\nk4ctl: see k4ctl " + std::string(GetParam().see) +
                                           "--help\n"));
    EXPECT_THAT(rpc.calls, testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WrongUsage,
    testing::Values(
        UsageRow{"Nothing", {}, "a command is required", ""},
        UsageRow{"UnknownCommand", {"explode", "Main"}, "\"explode\" is no command", ""},
        UsageRow{"OptionBeforeTheCommand", {"--loud", "status", "Main"}, "--loud", "status "},
        UsageRow{"OptionAlone", {"--loud"}, "\"--loud\" is no option of the program", ""},
        UsageRow{"UnknownOption", {"status", "Main", "--loud"}, "--loud", "status "},
        UsageRow{"StatusWithoutSign", {"status"}, "SIGN is required", "status "},
        UsageRow{"StatusOfTwo", {"status", "Main", "East"}, "East", "status "},
        UsageRow{"ServiceWithoutName", {"status", "Main", "-s"}, "--service", "status "},
        UsageRow{"PlayWithoutFile", {"play", "Main"}, "FILE is required", "play "},
        UsageRow{"PlayBadMode",
                 {"play", "Main", "A.SQ4", "--mode", "forever"},
                 "--mode: \"forever\" is no play mode",
                 "play "},
        UsageRow{"PlayModeThirteen",
                 {"play", "Main", "A.SQ4", "--mode", "13"},
                 "--mode: \"13\" is no play mode",
                 "play "},
        UsageRow{"PlayBadParam",
                 {"play", "Main", "A.SQ4", "--param", "many"},
                 "--param: \"many\" is not a whole number from 0 to 4294967295",
                 "play "},
        UsageRow{"PlayNegativeParam",
                 {"play", "Main", "A.SQ4", "--param", "-1"},
                 "--param: \"-1\" is not a whole number",
                 "play "},
        UsageRow{"PlayGreatParam",
                 {"play", "Main", "A.SQ4", "--param", "4294967296"},
                 "--param: \"4294967296\" is not a whole number",
                 "play "},
        UsageRow{"DimWithoutMode", {"dim", "Main"}, "MODE is required", "dim "},
        UsageRow{"DimBadMode", {"dim", "Main", "darker"}, "\"darker\" is no dimming mode", "dim "},
        UsageRow{
            "DimManualWithoutLevel", {"dim", "Main", "manual"}, "manual needs the level", "dim "},
        UsageRow{"DimLevelTooGreat", {"dim", "Main", "manual", "256"}, "from 0 to 255", "dim "},
        UsageRow{"DimLevelNegative", {"dim", "Main", "manual", "-1"}, "from 0 to 255", "dim "},
        UsageRow{
            "DimOffsetTooSmall", {"dim", "Main", "photocell", "-65"}, "from -64 to 64", "dim "},
        UsageRow{
            "DimRemoteWithValue", {"dim", "Main", "remote", "3"}, "remote takes no value", "dim "},
        UsageRow{"WindowWithoutState", {"window", "Main", "1"}, "STATE is required", "window "},
        UsageRow{"WindowZero",
                 {"window", "Main", "0", "open"},
                 "NUMBER: \"0\" is not a whole number from 1 to 16",
                 "window "},
        UsageRow{"WindowSeventeen",
                 {"window", "Main", "17", "open"},
                 "NUMBER: \"17\" is not a whole number from 1 to 16",
                 "window "},
        UsageRow{"WindowWord", {"window", "Main", "first", "open"}, "\"first\"", "window "},
        UsageRow{"WindowBadState",
                 {"window", "Main", "1", "ajar"},
                 "STATE: \"ajar\" is neither open nor close",
                 "window "},
        UsageRow{"WindowBadPlace",
                 {"window", "Main", "1", "open", "--at", "0,5"},
                 "--at: \"0,5\" is no place",
                 "window "},
        UsageRow{"WindowHalfPlace",
                 {"window", "Main", "1", "open", "--at", "5"},
                 "--at: \"5\" is no place",
                 "window "},
        UsageRow{"QueueAddAndClear",
                 {"queue", "Main", "--add", "A.SQ4", "--clear"},
                 "--add, --next and --clear exclude one another",
                 "queue "},
        UsageRow{
            "QueueAddAndNext", {"queue", "Main", "--add", "A.SQ4", "--next"}, "--next", "queue "},
        UsageRow{"QueueNextAndClear",
                 {"queue", "Main", "--next", "--clear"},
                 "--add, --next and --clear exclude one another",
                 "queue "},
        UsageRow{"QueueModeWithoutAdd",
                 {"queue", "Main", "--mode", "1"},
                 "--mode and --param go with --add",
                 "queue "},
        UsageRow{
            "DefaultParamWithoutFile", {"default", "Main", "--param", "1"}, "FILE", "default "},
        UsageRow{"ControlCharacters", {"ex\x1b[2Jplode"}, "ex\\x1b[2Jplode", ""}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(UnderstoodLine, TakesASignThatIsNamedLikeACommandOrAnOption) {
    k4test::RecordingSSRpc rpc;
    const k4cmn::ScopedProvider<K4SSRpc> use(rpc);
    EXPECT_EQ(CommandRun({"blank", "queue"}).code, ExitCode::Done);
    EXPECT_EQ(CommandRun({"blank", "blank"}).code, ExitCode::Done);
    EXPECT_EQ(CommandRun({"blank", "--", "--json"}).code, ExitCode::Done);
    EXPECT_EQ(CommandRun({"blank", "-5"}).code, ExitCode::Done);
    EXPECT_EQ(CommandRun({"blank", "[a,b]"}).code, ExitCode::Done);
    EXPECT_EQ(CommandRun({"blank", ""}).code, ExitCode::Done);
    std::vector<std::string> blanked;
    for (const std::string& call : rpc.calls) {
        if (call.starts_with("k4ssBlankSign"))
            blanked.push_back(call);
    }
    EXPECT_THAT(blanked, testing::ElementsAre("k4ssBlankSign(queue)", "k4ssBlankSign(blank)",
                                              "k4ssBlankSign(--json)", "k4ssBlankSign(-5)",
                                              "k4ssBlankSign([a,b])", "k4ssBlankSign()"));
}

TEST(UnderstoodLine, TakesOptionsInAnyPlaceBehindTheCommand) {
    k4test::RecordingSSRpc rpc;
    const k4cmn::ScopedProvider<K4SSRpc> use(rpc);
    for (const Words& line : {Words{"blank", "-s", "Arena", "Main", "--json"},
                              Words{"blank", "--json", "Main", "--service=Arena"},
                              Words{"blank", "Main", "-sArena", "--json"}}) {
        rpc.calls.clear();
        const CommandRun run(line);
        EXPECT_EQ(run.code, ExitCode::Done) << run.err;
        EXPECT_EQ(run.Json()[QLatin1String("service")].toString(), QStringLiteral("Arena"));
        EXPECT_EQ(run.Json()[QLatin1String("sign")].toString(), QStringLiteral("Main"));
    }
}

TEST(AnyLine, EndsWithAKnownCodeAndWordsFitForATerminal) {
    k4test::RecordingSSRpc rpc;
    const k4cmn::ScopedProvider<K4SSRpc> use(rpc);
    const Words pieces = {"",        "-",        "--",      "---",     "-s",      "--service=",
                          "--json",  "--json=5", "--mode",  "--param", "--at",    "--add",
                          "--clear", "--next",   "-1",      "1,1",     "16",      "99999999999999",
                          "open",    "manual",   "A.SQ4",   "[",       "[a,b]",   "{}",
                          "++",      "%%",       "\x1b[2J", "\xff",    "a\nb\tc", "Continuous"};
    std::mt19937 random(20);  // the same lines in every run
    for (int line = 0; line < 3000; ++line) {
        Words arguments = {kCommands[random() % std::size(kCommands)]};
        for (std::size_t count = random() % 6; count > 0; --count)
            arguments.push_back(pieces[random() % pieces.size()]);
        const CommandRun run(arguments);
        const bool answered = run.code == ExitCode::Done || run.code == ExitCode::Refused;
        ASSERT_TRUE(answered || run.code == ExitCode::Usage) << testing::PrintToString(arguments);
        ASSERT_EQ(run.code == ExitCode::Done, run.err.empty()) << testing::PrintToString(arguments);
        ASSERT_EQ((run.out + run.err).find_first_of("\x1b\t\xff"), std::string::npos)
            << testing::PrintToString(arguments);
    }
}

}  // namespace
