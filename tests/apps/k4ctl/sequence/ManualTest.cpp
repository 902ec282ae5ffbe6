#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

#include "apps/k4ctl/ScheduleCommand.h"
#include "apps/k4ctl/sequence/SequenceCommands.h"
#include "apps/k4ctl/store/StoreCommands.h"
#include "tests/apps/k4ctl/CommandRun.h"
#include "tests/apps/k4ctl/Examples.h"
#include "tests/support/TempFolder.h"

// The manual of all commands, and the help of those on sequence files.

namespace {

using k4ctl::ExitCode;
using k4test::CommandRun;
using k4test::Words;
using testing::HasSubstr;

constexpr const char* kSequenceCommands[] = {"make", "show", "export", "check"};
constexpr const char* kSignCommands[] = {"signs", "status", "config", "windows", "queue",  "play",
                                         "stop",  "blank",  "dim",    "window",  "default"};

constexpr const char* kStoreCommands[] = {"ls", "tree",  "cp",     "mv",    "rename",
                                          "rm", "mklib", "mktype", "report"};

std::string AsGiven(const std::string& file) {
    return file;
}

std::vector<std::unique_ptr<k4ctl::Command>> Commands() {
    return k4ctl::SequenceCommands(AsGiven);
}

std::vector<std::unique_ptr<k4ctl::Command>> AllOnFiles() {
    auto commands = Commands();
    commands.push_back(std::make_unique<k4ctl::ScheduleCommand>(AsGiven));
    for (auto& command :
         k4ctl::StoreCommands(k4suite::DataHome("/none"), k4ctl::Terminal::OfProcess()))
        commands.push_back(std::move(command));
    return commands;
}

CommandRun RunLine(const Words& words) {
    return CommandRun(words, Commands());
}

TEST(Manual, ShowsExamplesThatAreUnderstoodForEveryCommand) {
    std::ifstream file(K4CTL_MANUAL);
    ASSERT_TRUE(file) << K4CTL_MANUAL;
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const std::vector<Words> examples = k4test::Examples(text, "");
    k4test::ExpectUnderstood(examples, AllOnFiles);
    const auto has = [&](const Words& command) {
        return std::any_of(examples.begin(), examples.end(), [&](const Words& example) {
            return example.size() >= command.size() &&
                   std::equal(command.begin(), command.end(), example.begin());
        });
    };
    for (const char* command : kSignCommands)
        EXPECT_TRUE(has({command})) << command;
    for (const char* command : kSequenceCommands)
        EXPECT_TRUE(has({"sequence", command})) << command;
    EXPECT_TRUE(has({"schedule", "check"}));
    for (const char* command : kStoreCommands)
        EXPECT_TRUE(has({"store", command})) << command;
    EXPECT_TRUE(has({"find"}));
}

TEST(SequenceHelp, OfTheProgramAndOfTheGroupListTheCommands) {
    EXPECT_THAT(RunLine({"--help"}).out, HasSubstr("\n  sequence "));
    const CommandRun group = RunLine({"sequence", "--help"});
    EXPECT_EQ(group.code, ExitCode::Done);
    for (const char* command : kSequenceCommands)
        EXPECT_THAT(group.out, HasSubstr("\n  " + std::string(command) + " "));
}

TEST(SequenceHelp, OfACommandHasExamplesThatAreUnderstoodAndTheExitCodes) {
    for (const char* command : kSequenceCommands) {
        const CommandRun run = RunLine({"sequence", command, "--help"});
        EXPECT_EQ(run.code, ExitCode::Done) << command;
        EXPECT_EQ(run.err, "");
        EXPECT_THAT(run.out, HasSubstr("--json"));
        EXPECT_THAT(run.out, HasSubstr("Exit codes:\n  0  done\n"));
        const auto examples = k4test::Examples(run.out.substr(run.out.find("Examples:\n")), "  ");
        EXPECT_FALSE(examples.empty()) << command;
        k4test::ExpectUnderstood(examples, Commands);
    }
}

TEST(SequenceLine, WithoutACommandOrWithAnUnknownOneIsNotUnderstood) {
    const auto wrong = [](const Words& words, const std::string& problem) {
        const CommandRun run = RunLine(words);
        EXPECT_EQ(run.code, ExitCode::Usage);
        EXPECT_EQ(run.err, "k4ctl: " + problem + "\n");
    };
    wrong({"sequence"}, "a command is required\nk4ctl: see k4ctl sequence --help");
    wrong({"sequence", "explode"},
          "\"explode\" is no command of sequence\nk4ctl: see k4ctl sequence --help");
    wrong({"sequence", "--loud"},
          "\"--loud\" is no option of sequence\nk4ctl: see k4ctl sequence --help");
    wrong({"sequence", "show"}, "FILE is required\nk4ctl: see k4ctl sequence show --help");
    wrong({"sequence", "show", "a", "b"},
          "The following argument was not expected: b\nk4ctl: see k4ctl sequence show --help");
    wrong({"sequence", "export", "a"}, "OUT is required\nk4ctl: see k4ctl sequence export --help");
    wrong({"sequence", "check"}, "FILE is required\nk4ctl: see k4ctl sequence check --help");
}

TEST(SequenceLine, TakesAFileThatIsNamedLikeACommand) {
    for (const char* name : {"show", "sequence", "status", "make"}) {
        const CommandRun run = RunLine({"sequence", "show", name});
        EXPECT_EQ(run.code, ExitCode::Refused);
        EXPECT_EQ(run.err,
                  "k4ctl: Cannot open \"" + std::string(name) + "\": No such file or directory.\n");
    }
}

TEST(AnySequenceLine, EndsWithAKnownCodeAndWordsFitForATerminal) {
    const k4test::TempFolder folder;
    const std::string out = (folder / "out.SQ4").string();
    const Words pieces = {"",        "-",       "--",      "--json",    "--size",   "16x24",
                          "--color", "RGB16M",  "--pixel", "LED",       "--frames", "all",
                          "--force", "--fit",   "crop",    "--include", "a.SQ4",    "--dwell",
                          "1,2",     "\x1b[2J", "\xff",    "a\nb\tc",   "[a,b]",    "--scale",
                          "2",       "--level", "low",     "x.gif",     "5-1",      "--thumbnail"};
    std::mt19937 random(21);  // the same lines in every run
    for (int line = 0; line < 1000; ++line) {
        // Nothing may be made but in the test's folder.
        const char* command = kSequenceCommands[random() % std::size(kSequenceCommands)];
        Words words = {"sequence", command, command == kSequenceCommands[0] ? out : "none.SQ4"};
        for (std::size_t count = random() % 10; count > 0; --count)
            words.push_back(pieces[random() % pieces.size()]);
        const CommandRun run = RunLine(words);
        ASSERT_TRUE(run.code == ExitCode::Done || run.code == ExitCode::Refused ||
                    run.code == ExitCode::Usage)
            << testing::PrintToString(words);
        ASSERT_EQ(run.code == ExitCode::Done, run.err.empty()) << testing::PrintToString(words);
        ASSERT_EQ((run.out + run.err).find_first_of("\x1b\t\xff"), std::string::npos)
            << testing::PrintToString(words);
    }
}

}  // namespace
