#include <fcntl.h>
#include <gmock/gmock.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <csignal>
#include <string>
#include <vector>

#include "suite/EmbeddedSuite.h"
#include "tests/apps/k4ctl/K4ctlOnHome.h"

// The real program where something is wrong: with the line, the service, the data home, or the
// place where the answer goes.

extern char** environ;

namespace {

using k4test::K4ctlProcess;
using k4test::K4ctlRun;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using K4ctlFailure = k4test::K4ctlOnHome;

TEST_F(K4ctlFailure, AnUnknownSignIsRefusedByTheService) {
    const struct {
        QStringList line;
        const char* words;
    } rows[] = {
        {{QStringLiteral("status"), QStringLiteral("Nowhere")},
         "k4ctl: Could not get sign status from service.\n"},
        {{QStringLiteral("config"), QStringLiteral("Nowhere")},
         "k4ctl: Could not get sign configuration from service\n"},
        {{QStringLiteral("windows"), QStringLiteral("Nowhere")},
         "k4ctl: Could not get window state\n"},
        {{QStringLiteral("queue"), QStringLiteral("Nowhere")},
         "k4ctl: Could not get queue from service\n"},
        {{QStringLiteral("play"), QStringLiteral("Nowhere"), QStringLiteral("A.SQ4")},
         "k4ctl: Could not play sequence\n"},
        {{QStringLiteral("stop"), QStringLiteral("Nowhere")}, "k4ctl: Could not stop sequence\n"},
        {{QStringLiteral("blank"), QStringLiteral("Nowhere")}, "k4ctl: Could not blank sign\n"},
        {{QStringLiteral("dim"), QStringLiteral("Nowhere"), QStringLiteral("remote")},
         "k4ctl: Could not set dimming mode\n"},
        {{QStringLiteral("window"), QStringLiteral("Nowhere"), QStringLiteral("1"),
          QStringLiteral("open")},
         "k4ctl: Could not open window\n"},
        {{QStringLiteral("default"), QStringLiteral("Nowhere")},
         "k4ctl: Could not get default sequence from sign service\n"},
    };
    for (const auto& row : rows) {
        const K4ctlRun run = program.Run(row.line);
        EXPECT_EQ(run.code, 1) << row.line.front().toStdString();
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, row.words);
    }
}

TEST_F(K4ctlFailure, AnUnknownServiceIsUnavailable) {
    const K4ctlRun run = program.Run({QStringLiteral("status"), QStringLiteral("Main"),
                                      QStringLiteral("-s"), QStringLiteral("Nowhere")});
    EXPECT_EQ(run.code, 3);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, StartsWith("k4ctl: Sign service unavailable.\n"
                                    "k4ctl: no service is named \"Nowhere\"; the configured ones "
                                    "are Local, "));
    EXPECT_EQ(program.Run({QStringLiteral("signs"), QStringLiteral("Nowhere")}).code, 3);
}

TEST_F(K4ctlFailure, AWrongLineTouchesNoDataHome) {
    const QStringList lines[] = {{},
                                 {QStringLiteral("explode")},
                                 {QStringLiteral("dim"), QStringLiteral("Main"),
                                  QStringLiteral("manual"), QStringLiteral("256")},
                                 {QStringLiteral("window"), QStringLiteral("Main"),
                                  QStringLiteral("17"), QStringLiteral("open")}};
    for (const QStringList& line : lines) {
        const K4ctlRun run = program.Run(line);
        EXPECT_EQ(run.code, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, StartsWith("k4ctl: "));
    }
    EXPECT_FALSE(std::filesystem::exists(program.Home()));
}

TEST_F(K4ctlFailure, HelpTouchesNoDataHome) {
    const K4ctlRun run = program.Run({QStringLiteral("--help")});
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.out, HasSubstr("Exit codes:"));
    EXPECT_EQ(program.Run({QStringLiteral("dim"), QStringLiteral("--help")}).code, 0);
    EXPECT_FALSE(std::filesystem::exists(program.Home()));
}

TEST_F(K4ctlFailure, SaysWhichProcessHoldsTheServices) {
    const QString sign = FirstSign();
    const std::string holder = "k4ctl: the services of " + program.Home().string() +
                               " are held by testholder, process " +
                               std::to_string(QCoreApplication::applicationPid()) + "\n";
    {
        const k4suite::EmbeddedSuite suite(k4suite::DataHome(program.Home()), "testholder");
        ASSERT_TRUE(suite.RunsServices());

        const K4ctlRun run = program.Run({QStringLiteral("status"), sign});
        EXPECT_EQ(run.code, 3);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "k4ctl: Sign service unavailable.\n" + holder);

        const K4ctlRun machine =
            program.Run({QStringLiteral("blank"), sign, QStringLiteral("--json")});
        EXPECT_EQ(machine.code, 3);
        const QJsonObject json = machine.Json();
        EXPECT_EQ(json[QLatin1String("error")].toString(),
                  QStringLiteral("Sign service unavailable."));
        EXPECT_EQ(json[QLatin1String("holder")],
                  (QJsonObject{{QStringLiteral("pid"), QCoreApplication::applicationPid()},
                               {QStringLiteral("program"), QStringLiteral("testholder")}}));

        const K4ctlRun all = program.Run({QStringLiteral("signs")});
        EXPECT_EQ(all.code, 3);
        EXPECT_THAT(all.err, StartsWith("k4ctl: Local: Sign service unavailable.\n"));
        EXPECT_THAT(all.err, EndsWith(holder));
    }
    Good({QStringLiteral("status"), sign});
}

TEST_F(K4ctlFailure, SaysThatTheSuiteFoundADamagedFile) {
    Good({QStringLiteral("signs")});
    const std::filesystem::path settings = program.Home() / "settings" / "machine.ini";
    {
        const int file = ::open(settings.c_str(), O_WRONLY | O_TRUNC);
        ASSERT_GE(file, 0);
        const std::string damaged("\0\xff[[[[\n\x1b no settings", 20);
        EXPECT_EQ(::write(file, damaged.data(), damaged.size()),
                  static_cast<ssize_t>(damaged.size()));
        ::close(file);
    }
    const K4ctlRun run = program.Run({QStringLiteral("signs"), QStringLiteral("Local")});
    EXPECT_THAT(run.err, StartsWith("k4ctl: "));
    EXPECT_THAT(run.err, HasSubstr("machine.ini"));
    EXPECT_EQ(run.err.find('\x1b'), std::string::npos);
}

TEST_F(K4ctlFailure, AChangeThatCannotBeKeptIsAFailure) {
    const QString sign = FirstSign();
    std::filesystem::remove_all(program.Home() / "state");
    {
        const int file = ::open((program.Home() / "state").c_str(), O_WRONLY | O_CREAT, 0600);
        ASSERT_GE(file, 0);
        ::close(file);
    }
    const K4ctlRun run = program.Run(
        {QStringLiteral("dim"), sign, QStringLiteral("scheduled"), QStringLiteral("--json")});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, StartsWith("k4ctl: "));
    EXPECT_THAT(run.err, HasSubstr("state"));
    EXPECT_FALSE(run.Json()[QLatin1String("error")].toString().isEmpty());
}

TEST_F(K4ctlFailure, AHomeThatCannotBeMadeLeavesTheServiceUnavailable) {
    K4ctlProcess other;
    const int file = ::open(other.Home().c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_GE(file, 0);
    ::close(file);
    const K4ctlRun run = other.Run({QStringLiteral("status"), QStringLiteral("Main")});
    EXPECT_EQ(run.code, 3);
    EXPECT_THAT(run.err, HasSubstr("k4ctl: Sign service unavailable.\n"));
}

// Where the answer goes ---------------------------------------------------------------------------

TEST_F(K4ctlFailure, AFullDiskUnderTheAnswerIsAFailure) {
    Good({QStringLiteral("signs")});
    const K4ctlRun run = program.RunInto(QStringLiteral("/dev/full"), {QStringLiteral("signs")});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "k4ctl: the answer couldn't be written\n");
}

/// Starts the program with its output and its complaints in a pipe that nobody reads.
int WaitStatusIntoClosedPipe(const std::filesystem::path& home, std::vector<std::string> words) {
    int ends[2];
    if (::pipe(ends) != 0)
        return -1;
    ::close(ends[0]);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&files, ends[1], STDERR_FILENO);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

    words.insert(words.begin(), K4CTL_PROGRAM);
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ::setenv("K4_HOME", home.c_str(), 1);
    pid_t child = 0;
    int status = -1;
    if (posix_spawn(&child, K4CTL_PROGRAM, &files, &attributes, arguments.data(), environ) == 0)
        ::waitpid(child, &status, 0);
    ::unsetenv("K4_HOME");
    ::close(ends[1]);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return status;
}

TEST_F(K4ctlFailure, AReaderThatWentAwayDoesNotEndItHalfway) {
    const QString sign = FirstSign();
    const int shown = WaitStatusIntoClosedPipe(program.Home(), {"signs"});
    ASSERT_TRUE(WIFEXITED(shown)) << shown;
    EXPECT_EQ(WEXITSTATUS(shown), 1);

    const int changed =
        WaitStatusIntoClosedPipe(program.Home(), {"dim", sign.toStdString(), "manual", "123"});
    ASSERT_TRUE(WIFEXITED(changed)) << changed;
    EXPECT_THAT(Good({QStringLiteral("config"), sign}).out, HasSubstr("Level             123\n"));

    const int help = WaitStatusIntoClosedPipe(program.Home(), {"--help"});
    EXPECT_TRUE(WIFEXITED(help)) << help;
    const int wrong = WaitStatusIntoClosedPipe(program.Home(), {"explode"});
    ASSERT_TRUE(WIFEXITED(wrong)) << wrong;
    EXPECT_EQ(WEXITSTATUS(wrong), 2);
}

TEST_F(K4ctlFailure, WorksInAnyLocale) {
    const QString sign = FirstSign();
    program.Set(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    Good({QStringLiteral("config"), sign});
    program.Set(QStringLiteral("LC_ALL"), QStringLiteral("no_SUCH.locale"));
    Good({QStringLiteral("config"), sign});
}

}  // namespace
