#include "suite/platform/FreedesktopShell.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "suite/platform/FileOperationResult.h"
#include "suite/settings/DataHome.h"
#include "suite/store/NativePath.h"
#include "tests/suite/platform/OrdinaryUser.h"
#include "tests/suite/platform/ScopedEnvironment.h"
#include "tests/suite/platform/ScriptedFileUi.h"
#include "tests/support/TempFolder.h"

namespace fs = std::filesystem;
using k4suite::DesktopTools;
using k4suite::FreedesktopShell;
using k4test::ScopedEnvironment;
using k4test::ScriptedFileUi;
using k4test::TempFolder;

namespace {

constexpr int kShow = k4cmn::SW_SHOW;

using Paths = std::vector<std::string>;

class ShellTest : public testing::Test {
 protected:
    /// Makes a program in a folder that comes first in PATH.
    void MakeProgram(const std::string& name, const std::string& script) {
        const fs::path program = folder.Write("bin/" + name, "#!/bin/sh\n" + script);
        ASSERT_EQ(chmod(program.c_str(), 0755), 0);
    }
    /// An opener that notes each of its arguments on a line and ends with a code.
    void MakeOpener(int code) {
        MakeProgram("xdg-open", "printf '%s\\n' \"$#\" \"$@\" >\"" + log + "\"\nexit " +
                                    std::to_string(code) + "\n");
    }
    /// Waits for a file that another process writes.
    std::string Awaited(const std::string& name) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (folder.Read(name).empty() && std::chrono::steady_clock::now() < deadline)
            std::this_thread::yield();
        return folder.Read(name);
    }

    TempFolder folder;
    const std::string log = (folder / "log").string();
    ScopedEnvironment path{"PATH", (folder / "bin").string() + ":/usr/bin:/bin"};
    ScopedEnvironment dataHome{"XDG_DATA_HOME", (folder / "data").string()};
    ScriptedFileUi ui;
    FreedesktopShell shell{ui};
};

TEST_F(ShellTest, VersionIsTheKernels) {
    utsname system;
    ASSERT_EQ(uname(&system), 0);
    std::uint32_t version = 0;
    EXPECT_EQ(shell.GetMajorVersion(&version), 1);
    EXPECT_EQ(version, std::strtoul(system.release, nullptr, 10));
    EXPECT_GE(version, 4u);
    EXPECT_EQ(shell.GetMajorVersion(nullptr), 1);
}

TEST_F(ShellTest, PackedPathsAreTrashedAndCopied) {
    const fs::path a = folder.Write("a", "one");
    const fs::path b = folder.Write("b", "two");
    fs::create_directory(folder / "to");
    const std::string packed = k4cmn::PackPaths({a.string(), b.string()});
    EXPECT_EQ(
        shell.FileOperation(k4cmn::FO_COPY, packed, (folder / "to").string(), k4cmn::FOF_FILESONLY),
        k4suite::kFileOperationDone);
    EXPECT_EQ(folder.Read("to/b"), "two");
    ui.answers = {k4suite::FileAnswer::Yes};
    EXPECT_EQ(shell.FileOperation(k4cmn::FO_DELETE, packed, {}, k4cmn::FOF_ALLOWUNDO),
              k4suite::kFileOperationDone);
    EXPECT_EQ(folder.Read("data/Trash/files/a"), "one");
    EXPECT_FALSE(fs::exists(b));
}

TEST_F(ShellTest, UnknownOperationsAndDamagedListsFail) {
    folder.Write("a", "one");
    EXPECT_NE(shell.FileOperation(1, k4cmn::PackPaths({(folder / "a").string()}), {}, 0), 0u);
    EXPECT_NE(shell.FileOperation(99, {}, {}, 0), 0u);
    EXPECT_NE(shell.FileOperation(k4cmn::FO_DELETE, std::string("no end"), {}, 0), 0u);
    EXPECT_NE(shell.FileOperation(k4cmn::FO_COPY, k4cmn::PackPaths({std::string(5000, 'x')}),
                                  folder.Path().string(), 0),
              0u);
    EXPECT_EQ(folder.Read("a"), "one");
}

TEST_F(ShellTest, EveryPathGoesThroughTheMapper) {
    const FreedesktopShell::PathMapper mapper = [this](const std::string& given) {
        return given.rfind("A:\\", 0) == 0 ? (folder / given.substr(3)).string() : std::string();
    };
    FreedesktopShell mapped(ui, mapper);
    folder.Write("a", "one");
    fs::create_directory(folder / "to");
    EXPECT_EQ(mapped.FileOperation(k4cmn::FO_COPY, k4cmn::PackPaths({"A:\\a"}), "A:\\to",
                                   k4cmn::FOF_FILESONLY),
              0u);
    EXPECT_EQ(folder.Read("to/a"), "one");
    EXPECT_EQ(mapped.DeleteFile("A:\\a"), 1);
    EXPECT_FALSE(fs::exists(folder / "a"));

    EXPECT_EQ(mapped.DeleteFile("B:\\a"), 0) << "no such place";
    EXPECT_NE(mapped.FileOperation(k4cmn::FO_DELETE, k4cmn::PackPaths({"B:\\a"}), {},
                                   k4cmn::FOF_NOCONFIRMATION),
              0u);
    EXPECT_EQ(mapped.OpenVerb("A:\\a", kShow), 2u);
    EXPECT_EQ(mapped.OpenVerb("A:\\no\\a", kShow), 2u) << "mapped to a name with a backslash";
}

class StoreCopyTest : public ShellTest {
 protected:
    StoreCopyTest() {
        folder.Write("home/drives/A/To.Lib/A.SQ4", "old");
        folder.Write("native/a.SQ4", "new");
    }
    std::uint32_t Copy(const Paths& from, const std::string& to) {
        return stores.FileOperation(k4cmn::FO_COPY, k4cmn::PackPaths(from), to,
                                    k4cmn::FOF_FILESONLY);
    }
    Paths In(const std::string& name) const {
        Paths names;
        for (const auto& entry : fs::directory_iterator(folder / name))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    const std::string source = (folder / "native/a.SQ4").string();
    const std::string library = (folder / "home/drives/A/To.Lib").string();
    FreedesktopShell stores{ui, [this](const std::string& given) {
                                return k4suite::NativePath(k4suite::DataHome(folder / "home"),
                                                           given);
                            }};
};

TEST_F(StoreCopyTest, FileOfTheNameInAnyCaseIsAskedAboutAndReplaced) {
    for (const char* to : {"A:\\To.Lib", "a:\\to.lib\\", "A:\\To.Lib\\a.SQ4"}) {
        folder.Write("home/drives/A/To.Lib/A.SQ4", "old");
        ui.questions.clear();
        ui.answers = {k4suite::FileAnswer::Yes};
        EXPECT_EQ(Copy({source}, to), 0u) << to;
        EXPECT_EQ(
            ui.questions,
            (std::vector<k4suite::FileQuestion>{
                {"Copy",
                 "The folder '" + library + "' already has a file named 'A.SQ4'.\nReplace it?",
                 false, true}}))
            << to;
        EXPECT_EQ(In("home/drives/A/To.Lib"), Paths{"A.SQ4"}) << to;
        EXPECT_EQ(folder.Read("home/drives/A/To.Lib/A.SQ4"), "new") << to;
    }
}

TEST_F(StoreCopyTest, NoLeavesTheFileOfTheNameInAnyCase) {
    ui.answers = {k4suite::FileAnswer::No};
    EXPECT_EQ(Copy({source}, "A:\\To.Lib"), 0u);
    EXPECT_EQ(In("home/drives/A/To.Lib"), Paths{"A.SQ4"});
    EXPECT_EQ(folder.Read("home/drives/A/To.Lib/A.SQ4"), "old");
}

TEST_F(StoreCopyTest, TwoOfOneNameInOneCopyAreOneFile) {
    folder.Write("native/b.SQ4", "one");
    folder.Write("other/B.SQ4", "two");
    ui.answers = {k4suite::FileAnswer::Yes};
    EXPECT_EQ(
        Copy({(folder / "native/b.SQ4").string(), (folder / "other/B.SQ4").string()}, "A:\\To.Lib"),
        0u);
    EXPECT_EQ(ui.questions.size(), 1u);
    EXPECT_EQ(In("home/drives/A/To.Lib"), (Paths{"A.SQ4", "b.SQ4"}));
    EXPECT_EQ(folder.Read("home/drives/A/To.Lib/b.SQ4"), "two");
}

TEST_F(StoreCopyTest, FileOntoItselfInAnotherCaseIsRefused) {
    EXPECT_NE(Copy({"A:\\To.Lib\\a.sq4"}, "A:\\TO.LIB"), 0u);
    EXPECT_TRUE(ui.questions.empty());
    EXPECT_EQ(folder.Read("home/drives/A/To.Lib/A.SQ4"), "old");
}

TEST_F(StoreCopyTest, NativeDestinationKeepsItsNamesApart) {
    EXPECT_EQ(Copy({source}, library), 0u);
    EXPECT_TRUE(ui.questions.empty());
    EXPECT_EQ(In("home/drives/A/To.Lib"), (Paths{"A.SQ4", "a.SQ4"}));
}

TEST_F(ShellTest, RelativePathsBeginAtTheCurrentFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    folder.Write("a", "one");
    EXPECT_EQ(shell.FileOperation(k4cmn::FO_DELETE, k4cmn::PackPaths({"./a"}), {},
                                  k4cmn::FOF_NOCONFIRMATION | k4cmn::FOF_ALLOWUNDO),
              0u);
    fs::current_path(before);
    EXPECT_EQ(folder.Read("data/Trash/files/a"), "one");
}

TEST_F(ShellTest, DeleteFileTakesOneFileForGood) {
    const fs::path file = folder.Write("a");
    EXPECT_EQ(shell.DeleteFile(file.string()), 1);
    EXPECT_FALSE(fs::exists(file));
    EXPECT_FALSE(fs::exists(folder / "data"));
    EXPECT_EQ(shell.DeleteFile(file.string()), 0);
    EXPECT_EQ(shell.DeleteFile(folder.Path().string()), 0) << "a folder isn't a file";
    EXPECT_EQ(shell.DeleteFile(""), 0);
}

struct OpenRow {
    const char* what;
    std::string text;
    std::string argument;  ///< what the opener gets
};

class OpenedTexts : public ShellTest, public testing::WithParamInterface<OpenRow> {};

TEST_P(OpenedTexts, ReachTheOpenerAsOneArgument) {
    MakeOpener(0);
    EXPECT_GT(shell.OpenVerb(GetParam().text, kShow), 32u);
    EXPECT_EQ(folder.Read("log"), "1\n" + GetParam().argument + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, OpenedTexts,
    testing::Values(OpenRow{"Web", "http://kelda.example/a?b=c&d", "http://kelda.example/a?b=c&d"},
                    OpenRow{"Mail", "mailto:signs@kelda.example", "mailto:signs@kelda.example"},
                    OpenRow{"ShellWords", "http://x/$(touch%20y);`z` \"q\" 'r' *",
                            "http://x/$(touch%20y);`z` \"q\" 'r' *"},
                    OpenRow{"NoScheme", "www.kelda.example", "http://www.kelda.example"},
                    OpenRow{"NoSchemeInCapitals", "WWW.kelda.example", "http://WWW.kelda.example"},
                    OpenRow{"FarFile", "file://host/a", "file://host/a"},
                    OpenRow{"Folder", "/", "/"}, OpenRow{"FileLink", "file:///", "/"}),
    [](const auto& row) { return row.param.what; });

TEST_F(ShellTest, FilesAreOpenedByTheirAbsolutePaths) {
    MakeOpener(0);
    const fs::path before = fs::current_path();
    folder.Write("-rf x", "document");
    fs::current_path(folder.Path());
    EXPECT_EQ(shell.OpenVerb("-rf x", kShow), 33u);
    fs::current_path(before);
    EXPECT_EQ(folder.Read("log"), "1\n" + (fs::canonical(folder.Path()) / "-rf x").string() + "\n");
    EXPECT_EQ(shell.OpenVerb("file://" + (folder / "-rf%20x").string(), kShow), 33u);
    EXPECT_EQ(folder.Read("log"), "1\n" + (folder / "-rf x").string() + "\n");
}

TEST_F(ShellTest, FilesThatArentThereNeverReachTheOpener) {
    MakeOpener(0);
    folder.Write("file", "");
    EXPECT_EQ(shell.OpenVerb("", kShow), 2u);
    EXPECT_EQ(shell.OpenVerb((folder / "a").string(), kShow), 2u);
    EXPECT_EQ(shell.OpenVerb("file://" + (folder / "a").string(), kShow), 2u);
    EXPECT_EQ(shell.OpenVerb((folder / "no/a").string(), kShow), 3u);
    EXPECT_EQ(shell.OpenVerb((folder / "file/a").string(), kShow), 3u);
    EXPECT_EQ(folder.Read("log"), "");
}

TEST_F(ShellTest, FilesThatMayNotBeReadAreDenied) {
    MakeOpener(0);
    folder.Write("closed/a", "document");
    folder.Write("b", "document");
    const k4test::OrdinaryUser user(folder.Path());
    fs::permissions(folder / "closed", fs::perms::none);
    fs::permissions(folder / "b", fs::perms::none);
    EXPECT_EQ(shell.OpenVerb((folder / "closed/a").string(), kShow), 5u);
    EXPECT_EQ(shell.OpenVerb((folder / "b").string(), kShow), 5u);
    EXPECT_EQ(folder.Read("log"), "");
}

TEST_F(ShellTest, WhatTheOpenerSaysBecomesTheOpenCode) {
    constexpr struct {
        int exit;
        std::uint32_t code;
    } kRows[] = {{0, 33}, {1, 31}, {2, 2}, {3, 31}, {4, 31}, {127, 31}};
    for (const auto& row : kRows) {
        MakeOpener(row.exit);
        EXPECT_EQ(shell.OpenVerb("http://kelda.example", kShow), row.code) << row.exit;
    }
}

TEST_F(ShellTest, WithoutAnOpenerThereIsNoProgram) {
    const ScopedEnvironment nothing("PATH", (folder / "empty").string());
    EXPECT_EQ(shell.OpenVerb("http://kelda.example", kShow), 31u);
}

TEST_F(ShellTest, OpenerThatStaysIsASuccessAndIsLeftAlone) {
    MakeProgram("xdg-open", "read line <\"" + (folder / "gate").string() +
                                "\"\necho \"$line\" >\"" + log + "\"\n");
    ASSERT_EQ(mkfifo((folder / "gate").c_str(), 0600), 0);
    DesktopTools tools;
    tools.patience = std::chrono::milliseconds(50);
    {
        FreedesktopShell impatient(ui, {}, tools);
        EXPECT_EQ(impatient.OpenVerb("http://kelda.example", kShow), 33u);
    }
    EXPECT_EQ(folder.Read("log"), "");
    folder.Write("gate", "still there\n");  // returns once the opener reads
    EXPECT_EQ(Awaited("log"), "still there\n");
}

TEST_F(ShellTest, CommandsStartWithTheirWords) {
    MakeProgram("viewer", "printf '%s\\n' \"$@\" >\"" + log + ".part\"\nmv \"" + log +
                              ".part\" \"" + log + "\"\n");
    EXPECT_EQ(shell.Execute("viewer --new \"a b\" http://x/;$(id)", kShow), 33u);
    EXPECT_EQ(Awaited("log"), "--new\na b\nhttp://x/;$(id)\n");
}

TEST_F(ShellTest, CommandsThatCannotStartSayWhy) {
    folder.Write("bin/text", "just text");
    folder.Write("bin/broken",
                 "\x7F"
                 "ELF, and then nothing of it");
    fs::permissions(folder / "bin/broken", fs::perms::owner_all);
    EXPECT_EQ(shell.Execute("", kShow), 2u);
    EXPECT_EQ(shell.Execute("no-such-program x", kShow), 2u);
    EXPECT_EQ(shell.Execute((folder / "bin/nothing").string(), kShow), 2u);
    EXPECT_EQ(shell.Execute((folder / "bin/text/nothing").string(), kShow), 3u);
    EXPECT_EQ(shell.Execute((folder / "bin/text").string(), kShow), 5u);
    EXPECT_EQ(shell.Execute((folder / "bin/broken").string(), kShow), 11u);
}

/// The desktop's own default programs, asked through its own tool.
class DefaultPrograms : public ShellTest {
 protected:
    void MakeDefault(const std::string& entry, const std::string& file) {
        folder.Write("config/mimeapps.list", "[Default Applications]\ntext/html=" + entry + "\n");
        folder.Write("data/applications/" + file,
                     "[Desktop Entry]\nType=Application\nName=K4 Browser\nExec=k4browser --tab %u\n"
                     "MimeType=text/html;\n");
    }

    ScopedEnvironment config{"XDG_CONFIG_HOME", (folder / "config").string()};
    ScopedEnvironment configs{"XDG_CONFIG_DIRS", (folder / "none").string()};
    ScopedEnvironment desktop{"XDG_CURRENT_DESKTOP", nullptr};
};

TEST_F(DefaultPrograms, GiveTheirCommandForAnExtension) {
    MakeProgram("k4browser", "exit 0\n");
    MakeDefault("k4browser.desktop", "k4browser.desktop");
    EXPECT_EQ(shell.OpenCommand(".htm"), "k4browser --tab %1");
}

TEST_F(DefaultPrograms, MayLieInAFolderOfTheirVendor) {
    MakeProgram("xdg-mime",
                "[ \"$*\" = 'query default text/html' ] && echo kelda-k4-browser.desktop\n");
    MakeDefault("kelda-k4-browser.desktop", "kelda/k4-browser.desktop");
    EXPECT_EQ(shell.OpenCommand(".htm"), "k4browser --tab %1");
}

TEST_F(DefaultPrograms, ThatArentThereGiveNothing) {
    MakeProgram("xdg-mime", "exit 0\n");
    EXPECT_EQ(shell.OpenCommand(".htm"), "") << "no default";
    EXPECT_EQ(shell.OpenCommand(""), "");
    EXPECT_EQ(shell.OpenCommand(".k4-nobody-knows"), "");
    MakeProgram("xdg-mime", "echo gone.desktop\n");
    EXPECT_EQ(shell.OpenCommand(".htm"), "") << "an entry that is gone";
    const ScopedEnvironment nothing("PATH", (folder / "empty").string());
    EXPECT_EQ(shell.OpenCommand(".htm"), "") << "no tool";
}

TEST_F(DefaultPrograms, ToolThatHangsIsGivenUp) {
    ASSERT_EQ(mkfifo((folder / "gate").c_str(), 0600), 0);
    MakeProgram("xdg-mime", "exec cat \"" + (folder / "gate").string() + "\"\n");
    DesktopTools tools;
    tools.patience = std::chrono::milliseconds(50);
    FreedesktopShell impatient(ui, {}, tools);
    EXPECT_EQ(impatient.OpenCommand(".htm"), "");
}

}  // namespace
