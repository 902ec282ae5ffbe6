#include <iterator>
#include <random>

#include "tests/apps/k4ctl/Examples.h"
#include "tests/apps/k4ctl/store/StoreRuns.h"

// The help of the commands on the store, and any line at all.

namespace {

using k4ctl::ExitCode;
using k4test::CommandRun;
using k4test::Words;
using testing::HasSubstr;

constexpr const char* kCommands[] = {"ls", "tree",  "cp",     "mv",    "rename",
                                     "rm", "mklib", "mktype", "report"};

class StoreHelp : public k4test::StoreRuns {
 protected:
    std::vector<std::unique_ptr<k4ctl::Command>> Commands() {
        return k4ctl::StoreCommands(k4suite::DataHome(home.Path()), {in, shown, false, false});
    }
    std::istringstream in;
};

TEST_F(StoreHelp, HelpOfTheGroupListsTheCommands) {
    const CommandRun group = Call({"--help"});
    EXPECT_EQ(group.code, ExitCode::Done);
    EXPECT_THAT(group.out, testing::StartsWith("Commands on the sign file store\n"));
    for (const char* command : kCommands)
        EXPECT_THAT(group.out, HasSubstr("\n  " + std::string(command) + " "));
}

TEST_F(StoreHelp, HelpOfACommandHasExamplesThatAreUnderstoodAndTheExitCodes) {
    for (const char* command : kCommands) {
        const CommandRun run = Call({command, "--help"});
        EXPECT_EQ(run.code, ExitCode::Done) << command;
        EXPECT_EQ(run.err, "");
        EXPECT_THAT(run.out, HasSubstr("--json"));
        EXPECT_THAT(run.out, HasSubstr("Exit codes:\n  0  done\n"));
        const auto examples = k4test::Examples(run.out.substr(run.out.find("Examples:\n")), "  ");
        EXPECT_FALSE(examples.empty()) << command;
        k4test::ExpectUnderstood(examples, [this] { return Commands(); });
    }
}

TEST_F(StoreHelp, AnyLineEndsWithAKnownCodeAndWordsFitForATerminal) {
    MakeSequence(k4test::LibraryOn("A:") + "one.SQ4");
    const std::string lib = k4test::LibraryOn("A:");
    const Words pieces = {"",           "-",    "--",        "--json",  "--type",  "SQ4",
                          "--sort",     "size", "--yes",     "--no",    "-r",      "--depth",
                          "2",          "A:",   "B:/",       lib,       lib + "*", "//S/T",
                          "\x1b[2J",    "\xff", "a\nb\tc",   "[a,b]",   "..",      "A:\\..\\..",
                          "--rows",     "16",   "--columns", "80",      "--color", "Mono1",
                          "--pixel",    "LED",  "--palette", "--force", "A:*",     "\\\\",
                          "--modified", "today"};
    std::mt19937 random(21);  // the same lines in every run
    for (int line = 0; line < 600; ++line) {
        Words words = {kCommands[random() % std::size(kCommands)]};
        for (std::size_t count = random() % 8; count > 0; --count)
            words.push_back(pieces[random() % pieces.size()]);
        const CommandRun run = Call(words);
        ASSERT_TRUE(run.code == ExitCode::Done || run.code == ExitCode::Refused ||
                    run.code == ExitCode::Usage)
            << testing::PrintToString(words);
        ASSERT_EQ(run.code == ExitCode::Done, run.err.empty()) << testing::PrintToString(words);
        ASSERT_EQ((run.out + run.err + shown.str()).find_first_of("\x1b\t\xff"), std::string::npos)
            << testing::PrintToString(words);
        // Nothing is touched outside of the store and the trash.
        for (const auto& entry : std::filesystem::directory_iterator(home.Path())) {
            const std::string name = entry.path().filename().string();
            ASSERT_TRUE(name == "drives" || name == "network" || name == "settings" ||
                        name == "xdg")
                << name << testing::PrintToString(words);
        }
    }
}

}  // namespace
