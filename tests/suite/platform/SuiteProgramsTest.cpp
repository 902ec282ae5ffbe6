#include "suite/platform/SuitePrograms.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "suite/EmbeddedSuite.h"
#include "tests/suite/platform/ScopedEnvironment.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::RunningProgram;
using k4suite::SuitePrograms;

constexpr int kShow = k4cmn::SW_RESTORE;

/// Real processes: a program that tells about itself, and runs until it is let go.
class Programs : public testing::Test {
 protected:
    void SetUp() override {
        for (const char* pipe : {"report", "go"})
            ASSERT_EQ(mkfifo((folder / pipe).c_str(), 0600), 0);
        const fs::path program = folder.Write(
            "bin folder/Tell", "#!/bin/sh\ncd '" + folder.Path().string() +
                                   "'\n{ echo $$; echo \"home=$K4_HOME\"; echo \"given=$#\"; echo "
                                   "\"other=$K4_OTHER\"; } >report\nread end <go\n");
        fs::permissions(program, fs::perms::owner_all);
    }
    std::string Path(const std::string& name = "Tell.exe") {
        return (folder / "bin folder").string() + "\\" + name;
    }
    /// What the program tells; it waits to be let go then. The first line is its process.
    std::vector<std::string> Report() {
        std::ifstream in(folder / "report");
        std::vector<std::string> lines;
        for (std::string line; std::getline(in, line);)
            lines.push_back(line);
        lines.resize(4);
        process = std::stoi("0" + lines[0]);
        return lines;
    }
    /// Lets it go, and waits for its end without reaping it.
    void LetGo() {
        std::ofstream(folder / "go") << "\n";
        siginfo_t info{};
        EXPECT_EQ(waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOWAIT), 0);
    }
    /// Whether the system has forgotten the process.
    bool IsReaped() const { return kill(process, 0) != 0 && errno == ESRCH; }

    k4test::TempFolder folder;
    SuitePrograms programs{{{"K4_HOME", "/the/home"}}};
    pid_t process = 0;
};

TEST_F(Programs, StartWithoutACommandLineAndKnowTheHome) {
    const k4test::ScopedEnvironment home("K4_HOME", "/another");
    const k4test::ScopedEnvironment other("K4_OTHER", "kept");
    const std::unique_ptr<RunningProgram> record = programs.Start(Path(), kShow);
    ASSERT_NE(record, nullptr);
    const std::vector<std::string> report = Report();
    EXPECT_EQ(report[1], "home=/the/home");
    EXPECT_EQ(report[2], "given=0");
    EXPECT_EQ(report[3], "other=kept");
    LetGo();
    EXPECT_FALSE(record->IsRunning());
}

TEST_F(Programs, TheRecordTellsWhetherItRunsAndReapsIt) {
    const std::unique_ptr<RunningProgram> record = programs.Start(Path(), kShow);
    ASSERT_NE(record, nullptr);
    Report();
    EXPECT_TRUE(record->IsRunning());
    kill(process, SIGSTOP);
    EXPECT_TRUE(record->IsRunning()) << "one that is stopped runs";
    kill(process, SIGCONT);
    LetGo();
    EXPECT_FALSE(record->IsRunning());
    EXPECT_TRUE(IsReaped());
    EXPECT_FALSE(record->IsRunning()) << "however often it is asked";
}

TEST_F(Programs, OneThatIsKilledRunsNoMore) {
    const std::unique_ptr<RunningProgram> record = programs.Start(Path(), kShow);
    ASSERT_NE(record, nullptr);
    Report();
    kill(process, SIGKILL);
    siginfo_t info{};
    ASSERT_EQ(waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOWAIT), 0);
    EXPECT_FALSE(record->IsRunning());
    EXPECT_TRUE(IsReaped());
}

TEST_F(Programs, DestroyingTheRecordLeavesTheProgramAlone) {
    programs.Start(Path(), kShow).reset();
    Report();
    EXPECT_EQ(kill(process, 0), 0);
    LetGo();
    EXPECT_FALSE(IsReaped()) << "it ended by itself";
    EXPECT_EQ(programs.Start(Path("None.exe"), kShow), nullptr);
    EXPECT_TRUE(IsReaped()) << "by the next start";
}

TEST_F(Programs, TheRecordOutlivesThem) {
    auto own = std::make_unique<SuitePrograms>(std::map<std::string, std::string>{});
    const std::unique_ptr<RunningProgram> record = own->Start(Path(), kShow);
    ASSERT_NE(record, nullptr);
    Report();
    own.reset();
    EXPECT_TRUE(record->IsRunning()) << "and so does the program";
    LetGo();
    EXPECT_FALSE(record->IsRunning());
}

TEST_F(Programs, WhatCantBeStartedHasNoRecord) {
    folder.Write("bin folder/plain", "no program");
    folder.Write("bin folder/damaged",
                 "\x7f"
                 "ELF and no more");
    fs::permissions(folder / "bin folder/damaged", fs::perms::owner_all);
    fs::permissions(folder / "bin folder/plain", fs::perms::owner_read);
    fs::create_directory(folder / "bin folder/folder");
    for (const std::string& path :
         {Path("None.exe"), Path("plain.exe"), Path("damaged.exe"), Path("folder.exe"), Path(""),
          Path(".exe"), Path("..\\Tell.exe"), Path("x/../Tell.exe"), std::string(),
          std::string("Tell.exe"), std::string("A:\\Tell.exe"), std::string("sh"),
          Path("Tell.exe") + std::string("\0x", 2), Path(std::string(5000, 'x'))})
        EXPECT_EQ(programs.Start(path, kShow), nullptr) << path;
}

struct ExecutableRow {
    const char* path;
    const char* executable;
};

TEST_F(Programs, NamesStandForExecutables) {
    constexpr ExecutableRow kRows[] = {
        {"/usr/bin\\K4Prevu.exe", "/usr/bin/K4Prevu"},
        {"/usr/bin\\K4Prevu.EXE", "/usr/bin/K4Prevu"},
        {"/usr/bin\\K4Prevu", "/usr/bin/K4Prevu"},
        {"/a\\b\\c.exe", "/a\\b/c"},
        {"/usr/bin\\a.exe.exe", "/usr/bin/a.exe"},
        {"bin\\a.exe", ""},
        {"/usr/bin/a.exe", ""},
    };
    for (const ExecutableRow& row : kRows)
        EXPECT_EQ(SuitePrograms::ExecutableOf(row.path), row.executable) << row.path;
    EXPECT_EQ(SuitePrograms::ExecutableOf("\\K4Prevu.exe"),
              (QCoreApplication::applicationDirPath() + QStringLiteral("/K4Prevu")).toStdString())
        << "beside the running one";
}

TEST_F(Programs, OfTheEmbeddedSuiteGetItsHome) {
    const fs::path home = folder / "home";
    const k4suite::EmbeddedSuite suite(k4suite::DataHome(home), "test");
    const std::unique_ptr<RunningProgram> record =
        k4cmn::Provided<k4cmn::Programs>::Current().Start(Path(), kShow);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(Report()[1], "home=" + home.string());
    LetGo();
    EXPECT_FALSE(record->IsRunning());
}

TEST(AbsentPrograms, StartNothing) {
    EXPECT_EQ(k4cmn::Provided<k4cmn::Programs>::Current().Start("/bin\\true.exe", kShow), nullptr);
}

}  // namespace
