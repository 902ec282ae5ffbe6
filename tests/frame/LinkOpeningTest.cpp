#include "k4cmndlg/frame/LinkOpening.h"

#include <gmock/gmock.h>

#include <new>

#include "tests/support/RecordingShell.h"
#include "tests/support/ThrowingShell.h"

using k4cmn::LinkCommand;
using k4cmn::OpenErrorMessage;
using k4cmn::OpenLink;
using k4cmn::ScopedProvider;
using k4cmn::Shell;
using testing::ElementsAre;

namespace {

class OpeningALink : public testing::Test {
 protected:
    k4test::RecordingShell m_shell;
    ScopedProvider<Shell> m_installed{m_shell};
};

}  // namespace

TEST_F(OpeningALink, ShellsSuccessEndsIt) {
    m_shell.openCode = 33;
    EXPECT_EQ(OpenLink("http://signs"), 33u);
    EXPECT_THAT(m_shell.calls, ElementsAre("open http://signs 5"));
}

TEST_F(OpeningALink, CodeOf32IsAFailure) {
    m_shell.openCode = 32;
    EXPECT_EQ(OpenLink("http://signs"), 32u);
    EXPECT_THAT(m_shell.calls, ElementsAre("open http://signs 5", "command .htm"));
}

TEST_F(OpeningALink, WithoutACommandForHtmTheShellsCodeStands) {
    m_shell.openCode = 31;
    EXPECT_EQ(OpenLink("http://signs"), 31u);
}

TEST_F(OpeningALink, CommandForHtmIsStartedWithTheText) {
    m_shell.openCode = 2;
    m_shell.openCommand = "browser -new \"%1\" -end";
    m_shell.runCode = 40;
    EXPECT_EQ(OpenLink("http://signs"), 40u);
    EXPECT_EQ(m_shell.calls.back(), "run browser -new  http://signs 5");
}

TEST_F(OpeningALink, CodeOfStartingTheCommandIsTheResult) {
    m_shell.openCode = 2;
    m_shell.openCommand = "browser";
    m_shell.runCode = 5;
    EXPECT_EQ(OpenLink("http://signs"), 5u);
}

TEST(OpeningALinkAlone, WithoutAShellThereIsNoProgram) {
    EXPECT_EQ(OpenLink("http://signs"), 31u);
}

TEST(OpeningALinkAlone, ShellThatThrowsIsOutOfResources) {
    k4test::ThrowingShell shell;
    const ScopedProvider<Shell> installed{shell};
    EXPECT_EQ(OpenLink("http://signs"), k4cmn::kOutOfResources);
    EXPECT_EQ(OpenErrorMessage(k4cmn::kOutOfResources),
              "Unable to open hyperlink:\n\nThe operating system is out\nof memory or resources.");
}

TEST_F(OpeningALink, CommandThatThrowsIsOutOfResourcesToo) {
    m_shell.openCode = 2;
    m_shell.openCommand = "browser";
    m_shell.onRun = [] { throw std::bad_alloc(); };
    EXPECT_EQ(OpenLink("http://signs"), 0u);
    EXPECT_EQ(m_shell.calls.back(), "run browser http://signs 5");
}

TEST(LinkCommand, IsCutAtThePlaceForTheDocument) {
    EXPECT_EQ(LinkCommand("browser \"%1\"", "U"), "browser  U");
    EXPECT_EQ(LinkCommand("browser \"%1\" -x", "U"), "browser  U");
    EXPECT_EQ(LinkCommand("browser %1", "U"), "browser  U");
    EXPECT_EQ(LinkCommand("browser", "U"), "browser U");
    EXPECT_EQ(LinkCommand("%1", "U"), " U");
    EXPECT_EQ(LinkCommand("", "U"), " U");
}

TEST(LinkCommand, QuotedPlaceComesBeforeABareOne) {
    EXPECT_EQ(LinkCommand("browser %1 \"%1\"", "U"), "browser %1  U");
    EXPECT_EQ(LinkCommand("browser \"-u %1\"", "U"), "browser \"-u  U");
}

namespace {

struct CodeRow {
    std::uint32_t code;
    const char* text;
};

constexpr CodeRow kCodes[] = {
    {0, "The operating system is out\nof memory or resources."},
    {2, "The specified file was not found."},
    {3, "The specified path was not found."},
    {5, "The operating system denied\naccess to the specified file."},
    {8, "There was not enough memory to complete the operation."},
    {11, "The .EXE file is invalid\n(non-Win32 .EXE or error in .EXE image)."},
    {26, "Unknown Error (26) occurred."},
    {27, "The filename association is\nincomplete or invalid."},
    {28, "The DDE transaction could not\nbe completed because the request timed out."},
    {29, "The DDE transaction failed."},
    {30,
     "The DDE transaction could not\nbe completed because other DDE transactions\nwere being "
     "processed."},
    {31, "There is no application associated\nwith the given filename extension."},
    {32, "The specified dynamic-link library was not found."},
    {1, "Unknown Error (1) occurred."},
    {10, "Unknown Error (10) occurred."},
    {0xFFFFFFFF, "Unknown Error (-1) occurred."},
};

class OpenCode : public testing::TestWithParam<CodeRow> {};

}  // namespace

TEST_P(OpenCode, HasItsExactWords) {
    EXPECT_EQ(OpenErrorMessage(GetParam().code),
              std::string("Unable to open hyperlink:\n\n") + GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, OpenCode, testing::ValuesIn(kCodes),
                         [](const auto& row) { return std::to_string(row.param.code); });
