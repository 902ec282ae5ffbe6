#include "suite/platform/DesktopEntry.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using k4suite::CommandOfDesktopEntry;
using k4suite::JoinCommand;
using k4suite::SplitCommand;

namespace {

struct ExecRow {
    const char* what;
    std::string exec;
    std::string command;
};

class ExecLines : public testing::TestWithParam<ExecRow> {};

TEST_P(ExecLines, BecomeCommands) {
    EXPECT_EQ(
        CommandOfDesktopEntry("[Desktop Entry]\nType=Application\nExec=" + GetParam().exec + "\n"),
        GetParam().command);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ExecLines,
    testing::Values(ExecRow{"Link", "browser %u", "browser %1"},
                    ExecRow{"Links", "browser %U", "browser %1"},
                    ExecRow{"File", "viewer %f", "viewer %1"},
                    ExecRow{"Files", "viewer --new %F --last", "viewer --new %1 --last"},
                    ExecRow{"Nowhere", "viewer --empty", "viewer --empty"},
                    ExecRow{"InsideAWord", "viewer --url=%u", "viewer --url=%1"},
                    ExecRow{"OtherCodesGo", "viewer %i %c %k -x%d %u", "viewer -x %1"},
                    ExecRow{"Percent", "viewer 100%% %u", "viewer 100% %1"},
                    ExecRow{"PercentAtTheEnd", "viewer %", "viewer %"},
                    ExecRow{"QuotedBlank", "\"/opt/my viewer\" %u", "\"/opt/my viewer\" %1"},
                    ExecRow{"QuotedMark", R"(viewer "say \\"hi\\"" %u)",
                            R"(viewer "say """hi"""" %1)"},
                    ExecRow{"EscapedDollar", R"(viewer "\\$HOME" %u)", "viewer $HOME %1"},
                    ExecRow{"OpenQuote", "viewer \"%u", ""}, ExecRow{"Empty", "", ""}),
    [](const auto& row) { return row.param.what; });

struct EntryRow {
    const char* what;
    std::string text;
    std::string command;
};

class Entries : public testing::TestWithParam<EntryRow> {};

TEST_P(Entries, AreUsedOnlyIfTheyOpenInAWindow) {
    EXPECT_EQ(CommandOfDesktopEntry(GetParam().text), GetParam().command);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Entries,
    testing::Values(
        EntryRow{"Plain", "[Desktop Entry]\nType=Application\nExec=a %u\n", "a %1"},
        EntryRow{"LineEndsOfOthers", "[Desktop Entry]\r\nType=Application\r\nExec=a %u\r\n",
                 "a %1"},
        EntryRow{"BlanksAroundTheSign", "[Desktop Entry]\nType = Application\nExec = a %u\n",
                 "a %1"},
        EntryRow{"CommentsAndOtherGroups",
                 "# Exec=no\n[Other]\nExec=no\n[Desktop Entry]\n#Exec=no\nType=Application\n"
                 "Exec=a %u\n[Desktop Action new]\nExec=no\n",
                 "a %1"},
        EntryRow{"Terminal", "[Desktop Entry]\nType=Application\nExec=a %u\nTerminal=true\n", ""},
        EntryRow{"Hidden", "[Desktop Entry]\nType=Application\nExec=a %u\nHidden=true\n", ""},
        EntryRow{"ALink", "[Desktop Entry]\nType=Link\nExec=a %u\n", ""},
        EntryRow{"NoExec", "[Desktop Entry]\nType=Application\n", ""}, EntryRow{"Empty", "", ""},
        EntryRow{"Garbage", std::string("\0\xFF=[\n\n=", 7), ""}),
    [](const auto& row) { return row.param.what; });

TEST(CommandWords, SurviveJoiningAndSplitting) {
    const std::vector<std::string> words = {"/opt/my viewer", "plain",         "say \"hi\"", "\"",
                                            "a\"b",           "\xC3\xBC mlaut"};
    EXPECT_EQ(SplitCommand(JoinCommand(words)), words);
    EXPECT_TRUE(SplitCommand("  ").empty());
}

}  // namespace
