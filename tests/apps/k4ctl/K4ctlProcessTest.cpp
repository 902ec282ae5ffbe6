#include <fcntl.h>
#include <gmock/gmock.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QJsonArray>
#include <csignal>
#include <string>
#include <vector>

#include "suite/EmbeddedSuite.h"
#include "tests/apps/k4ctl/K4ctlProcess.h"

// The real program on a real data home: what holds between its runs and beside other processes.

extern char** environ;

namespace {

using k4test::K4ctlProcess;
using k4test::K4ctlRun;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class K4ctl : public testing::Test {
 protected:
    /// Runs it, which must end with code 0 and without a complaint.
    K4ctlRun Good(const QStringList& arguments) const {
        K4ctlRun run = program.Run(arguments);
        EXPECT_EQ(run.code, 0) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(run.err, "") << arguments.join(QLatin1Char(' ')).toStdString();
        return run;
    }
    QJsonObject GoodJson(QStringList arguments) const {
        arguments << QStringLiteral("--json");
        const K4ctlRun run = Good(arguments);
        EXPECT_FALSE(run.Json().isEmpty()) << run.out;
        return run.Json();
    }
    /// The signs of a service, by name.
    QStringList Signs(const QString& service) const {
        QStringList names;
        const QJsonObject listing = GoodJson({QStringLiteral("signs"), service});
        for (const auto each : listing[QLatin1String("signs")].toArray())
            names << each[QLatin1String("sign")].toString();
        return names;
    }
    QString FirstSign() const { return Signs(QStringLiteral("Local")).value(0); }

    K4ctlProcess program;
};

TEST_F(K4ctl, MakesAndSeedsADataHomeAndListsItsServices) {
    const QJsonArray signs = GoodJson({QStringLiteral("signs")})[QLatin1String("signs")].toArray();
    EXPECT_TRUE(std::filesystem::exists(program.Home() / "settings" / "machine.ini"));
    QStringList services;
    for (const auto each : signs) {
        services << each[QLatin1String("service")].toString();
        EXPECT_GT(each[QLatin1String("rows")].toInt(), 0);
        EXPECT_GT(each[QLatin1String("columns")].toInt(), 0);
        EXPECT_FALSE(each[QLatin1String("color")][QLatin1String("name")].toString().isEmpty());
        EXPECT_FALSE(each[QLatin1String("pixel")][QLatin1String("name")].toString().isEmpty());
        EXPECT_FALSE(each[QLatin1String("dimming")][QLatin1String("name")].toString().isEmpty());
    }
    services.removeDuplicates();
    EXPECT_TRUE(services.contains(QStringLiteral("Local")));
    EXPECT_GE(services.size(), 3);
}

TEST_F(K4ctl, ListsTheSameForPeopleAndForMachines) {
    const QJsonArray signs = GoodJson({QStringLiteral("signs")})[QLatin1String("signs")].toArray();
    const K4ctlRun people = Good({QStringLiteral("signs")});
    std::vector<std::string> lines;
    std::istringstream text(people.out);
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(signs.size()) + 1);
    EXPECT_THAT(lines[0], StartsWith("SERVICE"));
    const std::size_t size = lines[0].find("COLOR");
    for (qsizetype index = 0; index < signs.size(); ++index) {
        const auto& line = lines[static_cast<std::size_t>(index) + 1];
        const auto each = signs[index];
        const std::string service = each[QLatin1String("service")].toString().toStdString();
        const std::string sign = each[QLatin1String("sign")].toString().toStdString();
        const std::string color =
            each[QLatin1String("color")][QLatin1String("name")].toString().toStdString();
        EXPECT_THAT(line, StartsWith(service + " "));
        EXPECT_THAT(line, HasSubstr("  " + sign + " "));
        EXPECT_THAT(line, HasSubstr(std::to_string(each[QLatin1String("rows")].toInt()) + "x" +
                                    std::to_string(each[QLatin1String("columns")].toInt()) + "  "));
        EXPECT_EQ(line.substr(size, color.size()), color);
    }
}

TEST_F(K4ctl, LeavesASeededHomeAsItIs) {
    const K4ctlRun before = Good({QStringLiteral("signs")});
    const QString sign = FirstSign();
    Good({QStringLiteral("dim"), sign, QStringLiteral("scheduled")});
    const K4ctlRun after = Good({QStringLiteral("signs")});
    EXPECT_NE(after.out, before.out);
    EXPECT_THAT(after.out, HasSubstr("scheduled"));
}

struct DimRow {
    QStringList words;
    int mode;
    const char* key;  ///< the value that was set; null: none
    int value;
};

TEST_F(K4ctl, DimmingHoldsInTheNextRun) {
    const QString sign = FirstSign();
    const DimRow rows[] = {
        {{QStringLiteral("manual"), QStringLiteral("200")}, 5, "level", 200},
        {{QStringLiteral("manual"), QStringLiteral("0")}, 5, "level", 0},
        {{QStringLiteral("photocell"), QStringLiteral("-10")}, 2, "offset", -10},
        {{QStringLiteral("photocell"), QStringLiteral("+64")}, 2, "offset", 64},
        {{QStringLiteral("remote")}, 3, nullptr, 0},
        {{QStringLiteral("scheduled")}, 4, nullptr, 0},
    };
    for (const DimRow& row : rows) {
        Good(QStringList{QStringLiteral("dim"), sign} + row.words);
        const auto dimming = GoodJson({QStringLiteral("config"), sign})[QLatin1String("dimming")];
        EXPECT_EQ(dimming[QLatin1String("value")].toInt(), row.mode);
        if (row.key) {
            EXPECT_EQ(dimming[QLatin1String(row.key)].toInt(), row.value);
        }
    }
}

TEST_F(K4ctl, ConfigSaysTheSameForPeople) {
    const QString sign = FirstSign();
    Good({QStringLiteral("dim"), sign, QStringLiteral("manual"), QStringLiteral("77")});
    const QJsonObject json = GoodJson({QStringLiteral("config"), sign});
    const K4ctlRun people = Good({QStringLiteral("config"), sign});
    EXPECT_THAT(people.out, StartsWith("Rows              " +
                                       std::to_string(json[QLatin1String("rows")].toInt()) + "\n"));
    EXPECT_THAT(people.out, HasSubstr("\nDimming           manual\nLevel             77\n"));
}

TEST_F(K4ctl, WindowsHoldInTheNextRun) {
    const QString sign = FirstSign();
    const QJsonArray before =
        GoodJson({QStringLiteral("windows"), sign})[QLatin1String("windows")].toArray();
    ASSERT_EQ(before.size(), 16);
    for (int index = 0; index < 16; ++index) {
        EXPECT_EQ(before[index][QLatin1String("window")].toInt(), index + 1);
        EXPECT_GE(before[index][QLatin1String("row")].toInt(), 1);
        EXPECT_GE(before[index][QLatin1String("column")].toInt(), 1);
        EXPECT_FALSE(before[index][QLatin1String("shows")].toString().isEmpty());
    }
    const auto window = [&](int number) {
        return GoodJson({QStringLiteral("windows"), sign})[QLatin1String("windows")][number - 1];
    };
    const QString at = QStringLiteral("--at");
    Good({QStringLiteral("window"), sign, QStringLiteral("16"), QStringLiteral("open"), at,
          QStringLiteral("3,5")});
    EXPECT_EQ(window(16)[QLatin1String("open")].toBool(), true);
    EXPECT_EQ(window(16)[QLatin1String("row")].toInt(), 3);
    EXPECT_EQ(window(16)[QLatin1String("column")].toInt(), 5);

    Good({QStringLiteral("window"), sign, QStringLiteral("16"), QStringLiteral("close")});
    EXPECT_EQ(window(16)[QLatin1String("open")].toBool(), false);
    EXPECT_EQ(window(16)[QLatin1String("row")].toInt(), 3) << "it isn't moved";

    const K4ctlRun people = Good({QStringLiteral("windows"), sign});
    EXPECT_THAT(people.out, StartsWith("WINDOW  STATE "));
    EXPECT_THAT(people.out, HasSubstr("\n    16  closed"));
}

TEST_F(K4ctl, TheQueueHoldsInTheNextRun) {
    const QString sign = FirstSign();
    const QString queue = QStringLiteral("queue");
    Good({queue, sign, QStringLiteral("--clear")});
    EXPECT_EQ(Good({queue, sign}).out, "The queue is empty.\n");
    Good({queue, sign, QStringLiteral("--add"), QStringLiteral("First.SQ4"),
          QStringLiteral("--mode"), QStringLiteral("num-times"), QStringLiteral("--param"),
          QStringLiteral("3")});
    Good({queue, sign, QStringLiteral("--add"), QStringLiteral("Second.SQ4")});

    QJsonArray entries = GoodJson({queue, sign})[QLatin1String("queue")].toArray();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0][QLatin1String("sequence")].toString(), QStringLiteral("First.SQ4"));
    EXPECT_EQ(entries[0][QLatin1String("mode")][QLatin1String("value")].toInt(), 4);
    EXPECT_EQ(entries[0][QLatin1String("param")].toInt(), 3);
    EXPECT_EQ(entries[1][QLatin1String("sequence")].toString(), QStringLiteral("Second.SQ4"));
    EXPECT_EQ(entries[1][QLatin1String("mode")][QLatin1String("name")].toString(),
              QStringLiteral("Continuous"));
    EXPECT_THAT(Good({queue, sign}).out, HasSubstr(" 2  play    Second.SQ4  Continuous"));

    Good({queue, sign, QStringLiteral("--next")});
    entries = GoodJson({queue, sign})[QLatin1String("queue")].toArray();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0][QLatin1String("sequence")].toString(), QStringLiteral("Second.SQ4"));

    Good({queue, sign, QStringLiteral("--clear")});
    EXPECT_TRUE(GoodJson({queue, sign})[QLatin1String("queue")].toArray().isEmpty());
}

TEST_F(K4ctl, TheDefaultSequenceHoldsInTheNextRun) {
    const QString sign = FirstSign();
    Good({QStringLiteral("default"), sign, QStringLiteral("Idle.SQ4"), QStringLiteral("--mode"),
          QStringLiteral("play-stop"), QStringLiteral("--param"), QStringLiteral("9")});
    const QJsonObject json = GoodJson({QStringLiteral("default"), sign});
    EXPECT_EQ(json[QLatin1String("sequence")].toString(), QStringLiteral("Idle.SQ4"));
    EXPECT_EQ(json[QLatin1String("mode")][QLatin1String("value")].toInt(), 5);
    EXPECT_EQ(json[QLatin1String("param")].toInt(), 9);
    EXPECT_THAT(Good({QStringLiteral("default"), sign}).out,
                StartsWith("Sequence  Idle.SQ4\nMode      Play Stop\nParam     9\n"));
}

TEST_F(K4ctl, PlaysStopsAndBlanks) {
    const QString sign = FirstSign();
    const std::string name = sign.toStdString();
    EXPECT_EQ(Good({QStringLiteral("play"), sign, QStringLiteral("Goal.SQ4")}).out,
              name + ": plays Goal.SQ4\n");
    EXPECT_EQ(Good({QStringLiteral("play"), sign, QStringLiteral("Script.SC4")}).out,
              name + ": plays Script.SC4\n");
    EXPECT_EQ(Good({QStringLiteral("stop"), sign}).out, name + ": stopped\n");
    EXPECT_EQ(Good({QStringLiteral("blank"), sign}).out, name + ": blank\n");
    EXPECT_TRUE(GoodJson({QStringLiteral("blank"), sign})[QLatin1String("done")].toBool());
}

TEST_F(K4ctl, StatusTellsWhatTheSignDoes) {
    const QString sign = FirstSign();
    const QJsonObject json = GoodJson({QStringLiteral("status"), sign});
    EXPECT_EQ(json[QLatin1String("sign")].toString(), sign);
    EXPECT_THAT((std::vector<std::string>{"Playing", "Stopped", "Blank", "Step"}),
                testing::Contains(json[QLatin1String("state")].toString().toStdString()));
    EXPECT_THAT(Good({QStringLiteral("status"), sign}).out,
                StartsWith("State          " +
                           json[QLatin1String("state")].toString().toStdString() + "\n"));
}

TEST_F(K4ctl, ReachesTheSignsOfOtherServices) {
    const QJsonArray signs = GoodJson({QStringLiteral("signs")})[QLatin1String("signs")].toArray();
    for (const auto each : signs) {
        const QJsonObject config =
            GoodJson({QStringLiteral("config"), QStringLiteral("-s"),
                      each[QLatin1String("service")].toString(), QStringLiteral("--"),
                      each[QLatin1String("sign")].toString()});
        EXPECT_EQ(config[QLatin1String("rows")], each[QLatin1String("rows")]);
        EXPECT_EQ(config[QLatin1String("columns")], each[QLatin1String("columns")]);
        EXPECT_EQ(config[QLatin1String("color")], each[QLatin1String("color")]);
    }
}

// Failures ----------------------------------------------------------------------------------------

TEST_F(K4ctl, AnUnknownSignIsRefusedByTheService) {
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

TEST_F(K4ctl, AnUnknownServiceIsUnavailable) {
    const K4ctlRun run = program.Run({QStringLiteral("status"), QStringLiteral("Main"),
                                      QStringLiteral("-s"), QStringLiteral("Nowhere")});
    EXPECT_EQ(run.code, 3);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, StartsWith("k4ctl: Sign service unavailable.\n"
                                    "k4ctl: no service is named \"Nowhere\"; the configured ones "
                                    "are Local, "));
    EXPECT_EQ(program.Run({QStringLiteral("signs"), QStringLiteral("Nowhere")}).code, 3);
}

TEST_F(K4ctl, AWrongLineTouchesNoDataHome) {
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

TEST_F(K4ctl, HelpTouchesNoDataHome) {
    const K4ctlRun run = program.Run({QStringLiteral("--help")});
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.out, HasSubstr("Exit codes:"));
    EXPECT_EQ(program.Run({QStringLiteral("dim"), QStringLiteral("--help")}).code, 0);
    EXPECT_FALSE(std::filesystem::exists(program.Home()));
}

TEST_F(K4ctl, SaysWhichProcessHoldsTheServices) {
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

TEST_F(K4ctl, SaysThatTheSuiteFoundADamagedFile) {
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

TEST_F(K4ctl, AHomeThatCannotBeMadeLeavesTheServiceUnavailable) {
    K4ctlProcess other;
    ASSERT_TRUE(std::filesystem::create_directories(other.Home().parent_path()) ||
                std::filesystem::exists(other.Home().parent_path()));
    const int file = ::open(other.Home().c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_GE(file, 0);
    ::close(file);
    const K4ctlRun run = other.Run({QStringLiteral("status"), QStringLiteral("Main")});
    EXPECT_EQ(run.code, 3);
    EXPECT_THAT(run.err, HasSubstr("k4ctl: Sign service unavailable.\n"));
}

// Where the answer goes ---------------------------------------------------------------------------

TEST_F(K4ctl, AFullDiskUnderTheAnswerIsAFailure) {
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

TEST_F(K4ctl, AReaderThatWentAwayDoesNotEndItHalfway) {
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

TEST_F(K4ctl, WorksInAnyLocale) {
    const QString sign = FirstSign();
    program.Set(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    Good({QStringLiteral("config"), sign});
    program.Set(QStringLiteral("LC_ALL"), QStringLiteral("no_SUCH.locale"));
    Good({QStringLiteral("config"), sign});
}

}  // namespace
