#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "suite/platform/FreedesktopShell.h"
#include "suite/platform/SilentFileOperationUi.h"
#include "tests/suite/platform/OrdinaryUser.h"
#include "tests/suite/platform/PrivateCups.h"
#include "tests/suite/platform/ScopedEnvironment.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

class PrintVerb : public testing::Test {
 protected:
    /// A printing program that notes its arguments and ends with a code.
    k4suite::FreedesktopShell Shell(int code) {
        const fs::path program =
            folder.Write("lp", "#!/bin/sh\nprintf '%s\\n' \"$@\" >'" + (folder / "log").string() +
                                   "'\nexit " + std::to_string(code) + "\n");
        fs::permissions(program, fs::perms::owner_all);
        k4suite::DesktopTools tools;
        tools.printer = program.string();
        return k4suite::FreedesktopShell(
            ui, [this](const std::string& path) { return (folder / path).string(); }, tools);
    }

    k4test::TempFolder folder;
    k4suite::SilentFileOperationUi ui;
};

TEST_F(PrintVerb, HandsTheFileToThePrintingProgram) {
    folder.Write("-odd 'name'.SQ4", "x");
    EXPECT_GT(Shell(0).PrintVerb("-odd 'name'.SQ4"), 32u);
    EXPECT_EQ(folder.Read("log"), "--\n" + (folder / "-odd 'name'.SQ4").string() + "\n");
}

TEST_F(PrintVerb, TellsWhyItCant) {
    folder.Write("f", "x");
    EXPECT_EQ(Shell(1).PrintVerb("f"), 31u);
    EXPECT_EQ(Shell(0).PrintVerb("none"), 2u);
    EXPECT_EQ(Shell(0).PrintVerb("none/f"), 3u);
    k4suite::DesktopTools tools;
    tools.printer = (folder / "no such program").string();
    k4suite::FreedesktopShell without(
        ui, [this](const std::string& path) { return (folder / path).string(); }, tools);
    EXPECT_EQ(without.PrintVerb("f"), 31u);
}

TEST_F(PrintVerb, NamesAreNeverOptionsOrCommands) {
    for (const char* name :
         {"-d other", "--", "-", "$(touch x)", "a\nb", "a b; ls", "%s", "Größe"}) {
        folder.Write(name, "text");
        EXPECT_GT(Shell(0).PrintVerb(name), 32u) << name;
        EXPECT_EQ(folder.Read("log"), "--\n" + (folder / name).string() + "\n");
    }
    EXPECT_FALSE(fs::exists(folder / "x"));
}

struct KindRow {
    const char* name;
    std::string content;
    bool isPrinted;
};

TEST_F(PrintVerb, PrintsWhatPagesCanBeMadeOf) {
    const std::string picture = "\x89PNG\r\n\x1a\n" + std::string(20, '\0');
    const std::string sequence = "RIFF" + std::string("\x40\0\0\0", 4) + "K4SQ" +
                                 std::string("\0\1\2\3", 4) + std::string(60, '\xee');
    const KindRow kRows[] = {
        {"notes.txt", "text", true},
        {"empty.txt", "", true},
        {"run.SC4", "PLAY \"one\"\n", true},
        {"page.html", "<html></html>", true},
        {"report.pdf", "%PDF-1.4\n", true},
        {"nothing in its name", "%PDF-1.4\n", true},
        {"report.ps", "%!PS-Adobe-3.0\n", true},
        {"photo.jpg", "\xff\xd8\xff\xe0", true},
        {"picture.png", picture, true},
        {"named.SQ4", picture, true},
        {"one.SQ4", sequence, false},
        {"one.SP4", sequence, false},
        {"film.avi", "RIFF....AVI LIST", false},
        {"some.bin", std::string(100, '\0'), false},
        {"empty", "", false},
        {"archive.zip", std::string("PK\3\4\0\0", 6), false},
    };
    for (const KindRow& row : kRows) {
        folder.Write(row.name, row.content);
        EXPECT_EQ(Shell(0).PrintVerb(row.name), row.isPrinted ? 33u : 31u) << row.name;
    }
    fs::create_directory(folder / "folder");
    EXPECT_EQ(Shell(0).PrintVerb("folder"), 31u);
}

TEST_F(PrintVerb, ANamedPipeIsRefusedAndNotOpened) {
    ASSERT_EQ(mkfifo((folder / "pipe.txt").c_str(), 0600), 0);
    EXPECT_EQ(Shell(0).PrintVerb("pipe.txt"), 31u);
}

TEST_F(PrintVerb, AFileThatMayNotBeReadIsDenied) {
    const fs::path file = folder.Write("secret.txt", "text");
    k4suite::FreedesktopShell shell = Shell(0);
    const k4test::OrdinaryUser user(folder.Path());
    fs::permissions(file, fs::perms::none);
    EXPECT_EQ(shell.PrintVerb("secret.txt"), 5u);
}

TEST_F(PrintVerb, GivesTheFileToARealScheduler) {
    const k4test::PrivateCups cups;
    ASSERT_TRUE(cups.IsRunning());
    k4suite::FreedesktopShell shell(
        ui, [this](const std::string& path) { return (folder / path).string(); });
    const std::vector<std::string> kNames = {"notes.txt", "-odd & 'name'\n.txt", "Größe.SC4"};
    for (const std::string& name : kNames) {
        folder.Write(name, "the text of " + name);
        EXPECT_GT(shell.PrintVerb(name), 32u) << name;
    }
    folder.Write("one.SQ4", "RIFF" + std::string(60, '\0'));
    EXPECT_EQ(shell.PrintVerb("one.SQ4"), 31u);
    const std::vector<std::string> documents = cups.Documents();
    ASSERT_EQ(documents.size(), kNames.size());
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        std::ifstream in(documents[i]);
        const std::string text((std::istreambuf_iterator<char>(in)), {});
        EXPECT_EQ(text, "the text of " + kNames[i]);
    }
}

TEST_F(PrintVerb, APrinterThatTakesNothingIsAFailure) {
    const k4test::PrivateCups cups(false);
    ASSERT_TRUE(cups.IsRunning());
    folder.Write("notes.txt", "text");
    k4suite::FreedesktopShell shell(
        ui, [this](const std::string& path) { return (folder / path).string(); });
    EXPECT_EQ(shell.PrintVerb("notes.txt"), 31u);
    EXPECT_TRUE(cups.Documents().empty());
}

TEST_F(PrintVerb, WithoutASchedulerIsAFailure) {
    const k4test::ScopedEnvironment server("CUPS_SERVER", "/nowhere/socket");
    folder.Write("notes.txt", "text");
    k4suite::FreedesktopShell shell(
        ui, [this](const std::string& path) { return (folder / path).string(); });
    EXPECT_EQ(shell.PrintVerb("notes.txt"), 31u);
}

TEST_F(PrintVerb, OfNoShellHasNoProgram) {
    EXPECT_EQ(k4cmn::Provided<k4cmn::Shell>::Current().PrintVerb("f"), 31u);
}

}  // namespace
